"""Maps with a scene whose nodes are still pictures, and the reference that they are drawn by."""

import pygame
import Tessora as T
from picture_oracle import noise

TILE = 16


def tile(seed, size=(TILE, TILE), **values):
    node = T.GUI_Image(None)
    node.image = noise(size, seed)
    node.width, node.height = size
    for name, value in values.items():
        setattr(node, name, value)
    return node


# A scene that is asked for nodes, and remembers for which.
class Stage:
    def __init__(self, nodes):
        self.nodes, self.asked = nodes, []

    def GetLayerResNode(self, index):
        self.asked.append(index)
        return self.nodes[index]


# A scene of which the engine can tell that asking it has no effect.
class QuietStage:
    def __init__(self, nodes):
        self.GetLayerResNode = nodes.__getitem__


def make_map(nodes=None, rows=3, columns=4, view=0, x=0, y=0, scene=None, size=(TILE, TILE)):
    made = T.TiledMap(None, x, y)
    made.SetTiledMapInfo("tiles", rows, columns, *size, view)
    made.SetTileVisible(False)
    if nodes is not None or scene is not None:
        made.OnLoad(scene if scene is not None else Stage(nodes))
    return made


def fill(tilemap, *rows):
    tilemap.Tile_Array[:] = [index for row in rows for index in row]
    return tilemap


# What a walk over all cells does, call by call.
def draw_cells_plainly(tilemap, look_up, screen, camera):
    offset_x, offset_y, scale = camera
    wide, high = tilemap.Tile_Width, tilemap.Tile_Height
    across, down = wide * 0.5, high * 0.5
    left, top = tilemap.x * scale + offset_x, tilemap.y * scale + offset_y
    for index, content in enumerate(tilemap.Tile_Array):
        row, column = divmod(index, tilemap.Tile_Cow)
        if content >= 0:
            node = look_up(content)
            if tilemap.ViewType == 0:
                node.SetXY(column * wide, row * high)
            else:
                node.SetXY((row + column) * across, (row - column) * down - down)
            node.draw(screen, left, top, scale)


def look(screen):
    return pygame.image.tobytes(screen, "RGB")
