"""Fills tile maps from a file of the Tiled editor (needs pytmx), and lets a ball bounce in it.

pytmx is an optional extra: pip install "Tessora[tmx]", or pip install pytmx.
"""

import os
import sys

import pygame
import Tessora
from example_window import FONT, run

try:
    import pytmx
except ImportError:
    sys.exit("tmx_map.py reads its map with pytmx, which is not installed: pip install pytmx")

FILE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "tmx", "meadow.tmx")
GRAVITY = 900.0


class TileSet:
    """The nodes for the tiles that a file uses, by their numbers in it."""

    def __init__(self, file):
        self.nodes = {}
        for number in range(1, file.maxgid):
            image = file.get_tile_image_by_gid(number)
            if image is None:
                continue
            node = Tessora.GUI_Image(None)
            node.SetImage([image])
            node.AutoImageSize(True)
            node.SetStyle("hollow", False)
            node.DropBGColor()
            properties = file.get_tile_properties_by_gid(number) or {}
            # Type 1 blocks the cell; `solid` is what the tile set calls it.
            node.SetCollision(1 if properties.get("solid") else -1, None)
            self.nodes[number] = node


def tile_map(file, layer):
    """A layer of the file as a node, drawn without grid lines."""
    made = Tessora.TiledMap(None, layer.offsetx, layer.offsety)
    diamonds = 1 if file.orientation == "isometric" else 0
    made.SetTiledMapInfo(
        layer.name, file.height, file.width, file.tilewidth, file.tileheight, diamonds
    )
    made.SetTileVisible(False)
    # The file has 0 where there is no tile.
    made.Tile_Array[:] = [number or -1 for row in layer.data for number in row]
    return made


def collision_map(file, layer, scene):
    """The same cells for collision alone: it is hidden, as drawing crosses blocked cells out."""
    made = tile_map(file, layer)
    made.SetVisible(False)
    made.OnLoad(scene)
    made.UpdateTileCollision()
    return made


class Ball(Tessora.GUI_Image):
    def __init__(self, x, y, walls):
        super().__init__(None, x, y)
        surface = pygame.Surface((24, 24), pygame.SRCALPHA, 32)
        pygame.draw.circle(surface, (240, 96, 88), (12, 12), 12)
        pygame.draw.circle(surface, (255, 196, 180), (8, 8), 4)
        self.SetImage([surface])
        self.AutoImageSize(True)
        self.SetStyle("hollow", False)
        self.DropBGColor()
        self.walls = walls
        self.speed = [140.0, 0.0]
        self.SetUpdateFunction(self.move)

    def move(self, delay):
        self.speed[1] += GRAVITY * delay
        across, down = (speed * delay for speed in self.speed)
        stopped = self.walls.checkCollision(self, across, down)
        if stopped[0] or not 0 <= self.x + across <= 640 - 24:
            self.speed[0] *= -1
        else:
            self.x += across
        if stopped[1]:
            self.speed[1] *= -0.8
        else:
            self.y += down


def build(layer):
    file = pytmx.load_pygame(FILE)
    tiles = TileSet(file)
    scene = layer.GetSceneInstance()
    # A plain dictionary's look-up calls no script, which suits large maps.
    scene.GetLayerResNode = tiles.nodes.get
    for each in file.visible_layers:
        if isinstance(each, pytmx.TiledTileLayer):
            layer.AddGameNode(tile_map(file, each))
    walls = collision_map(file, file.get_layer_by_name("ground"), scene)
    start = file.get_object_by_name("ball")
    layer.AddGameNode(Ball(start.x, start.y, walls))

    title = Tessora.GUI_Label(None, 0, 10, os.path.basename(FILE), FONT, 20)
    title.SetWidth(640)
    title.SetHeight(30)
    title.SetStyle("hollow", False)
    title.SetTextColor(255, 244, 222)
    layer.AddGameNode(title)


if __name__ == "__main__":
    run("tmx_map", build)
