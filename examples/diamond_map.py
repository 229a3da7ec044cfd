"""A diamond map: pictures in cells, presses that report their cell, things that stand on it.

A click on grass plants a tree; the arrow keys move the camera.
"""

import math

import pygame
import Tessora
from example_window import FONT, run

CELL = CELL_WIDTH, CELL_HEIGHT = 64, 32
SIDE = 9
FINE = 4  # pictures are painted so many times larger
GRASS, SAND, WATER, MEADOW = range(4)
COLOURS = ((104, 176, 94), (236, 206, 140), (78, 150, 206), (124, 194, 100))
LIGHT, DARK = (255, 244, 222), (58, 44, 88)
MAP = (
    "ggggggmgg",
    "gmgggsssg",
    "ggggsswws",
    "ggssswwws",
    "gsswwwwss",
    "gswwwwssg",
    "gsswwssgg",
    "gmgsssgmg",
    "ggggggggg",
)
TREES = ((1, 1), (3, 1), (0, 3), (7, 7), (8, 5), (1, 8), (6, 0), (0, 6))


def canvas(width, height, edge):
    surface = pygame.Surface((width * FINE, height * FINE), pygame.SRCALPHA, 32)
    surface.fill((*edge, 0))
    return surface


def finished(surface):
    width, height = surface.get_size()
    return pygame.transform.smoothscale(surface, (width // FINE, height // FINE))


def diamond(kind):
    colour = COLOURS[kind]
    surface = canvas(*CELL, colour)
    wide, high = CELL_WIDTH * FINE, CELL_HEIGHT * FINE
    # A little larger than the cell, so that neighbours leave no seam.
    corners = [
        (-FINE, high / 2),
        (wide / 2, -FINE),
        (wide + FINE, high / 2),
        (wide / 2, high + FINE),
    ]
    pygame.draw.polygon(surface, colour, corners)
    paler = [min(255, part + 22) for part in colour]
    if kind == WATER:
        for x, y in ((76, 56), (150, 44), (128, 84)):
            pygame.draw.arc(surface, paler, (x, y, 44, 18), 0.3, math.pi - 0.3, 5)
    for x, y in ((84, 60), (130, 38), (170, 66), (128, 92)) if kind in (GRASS, MEADOW) else ():
        pygame.draw.lines(surface, paler, False, [(x - 7, y - 9), (x, y), (x + 7, y - 11)], 5)
    if kind == MEADOW:
        for x, y, flower in (
            (104, 52, (255, 158, 170)),
            (150, 74, LIGHT),
            (128, 30, (255, 214, 102)),
        ):
            pygame.draw.circle(surface, flower, (x, y), 9)
    return finished(surface)


def cliffs():
    """What the island stands on."""
    wide, high, deep = SIDE * CELL_WIDTH, SIDE * CELL_HEIGHT, 26
    surface = canvas(wide, high // 2 + deep, (96, 64, 60))
    for side, colour in ((0, (142, 98, 74)), (1, (112, 76, 64))):
        edge = side * wide
        corners = [(edge, 0), (wide / 2, high / 2), (wide / 2, high / 2 + deep), (edge, deep)]
        pygame.draw.polygon(surface, colour, [(x * FINE, y * FINE) for x, y in corners])
    return finished(surface)


def tree():
    surface = canvas(40, 60, (42, 96, 70))
    pygame.draw.ellipse(surface, (30, 60, 40, 90), (32, 212, 100, 26))
    pygame.draw.rect(surface, (120, 82, 60), (70, 180, 20, 48), 0, 8)
    for x, y, radius, colour in (
        (80, 140, 60, (42, 96, 70)),
        (80, 84, 48, (52, 116, 80)),
        (80, 44, 32, (68, 138, 92)),
        (66, 34, 12, (110, 176, 120)),
    ):
        pygame.draw.circle(surface, colour, (x, y), radius)
    return finished(surface)


def picture(parent, x, y, surface, anchor="wn"):
    made = Tessora.GUI_Image(parent, x, y)
    made.SetImage([surface])
    made.AutoImageSize(True)
    made.SetImageAnchor(anchor)
    made.SetStyle("hollow", False)
    made.DropBGColor()
    return made


class Island(Tessora.TiledMap):
    def __init__(self, x, y, scene):
        super().__init__(None, x, y)
        self.SetTiledMapInfo("island", SIDE, SIDE, *CELL, 1)
        self.SetTileVisible(False)
        self.Tile_Array[:] = ["gswm".index(letter) for row in MAP for letter in row]
        # A plain list's look-up calls no script, which suits large maps.
        scene.GetLayerResNode = [
            picture(None, 0, 0, diamond(kind)) for kind in range(4)
        ].__getitem__
        scene.on_plant = self.plant
        self.SetInnerBindingEvent("PickDown", "plant", None)
        self.tree = tree()
        self.trees = {}
        for column, row in TREES:
            self.plant(column, row)

    def plant(self, tx, ty):
        """Called as the scene's event: a press has hit this cell."""
        if self.GetTileObject(tx, ty, True) not in (GRASS, MEADOW) or (tx, ty) in self.trees:
            return
        # The centre of the cell, relative to the map.
        x = (ty + tx) * CELL_WIDTH / 2 + CELL_WIDTH / 2
        y = (ty - tx) * CELL_HEIGHT / 2
        planted = picture(self, x, y + 4, self.tree, "s")
        self.trees[tx, ty] = planted
        # Those in front are drawn later.
        for order, child in enumerate(sorted(self.children, key=lambda child: child.GetY())):
            child.SetSortIndex(order)
        self.ReSortAllChild()


def build(layer):
    island = Island(32, 200, layer.GetSceneInstance())
    layer.AddGameNode(picture(None, 32, 200, cliffs()))
    layer.AddGameNode(island)
    title = Tessora.GUI_Label(None, 0, 14, "Click on grass to plant a tree", FONT, 22)
    title.SetWidth(640)
    title.SetHeight(30)
    title.SetStyle("hollow", False)
    title.SetTextColor(*LIGHT)
    layer.AddGameNode(title)
    for key, x, y in ((pygame.K_LEFT, 16, 0), (pygame.K_RIGHT, -16, 0), (pygame.K_UP, 0, 16),
                      (pygame.K_DOWN, 0, -16)):  # fmt: skip
        island.SetKeyDownFunction(key, lambda x=x, y=y: scroll(layer, x, y))


def scroll(layer, x, y):
    layer.scrollPosX += x
    layer.scrollPosY += y


SCRIPT = (
    (0.5, pygame.MOUSEBUTTONDOWN, (160, 170)),
    (1.0, pygame.MOUSEBUTTONDOWN, (350, 330)),
    (1.5, pygame.MOUSEBUTTONDOWN, (320, 200)),
)

if __name__ == "__main__":
    run("diamond_map", build, SCRIPT)
