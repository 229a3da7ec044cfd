"""Tile maps: their cells, what is blocked, and a press under a moved camera."""

import importlib.util

import pygame
import Tessora
from parts.looks import SOFT, example, pointer, quiet
from scenes import INK, SKY, Scene, caption, image, window

LEVEL = (
    "..........",
    "..........",
    ".....##...",
    "..#......#",
    "####..####",
    "####~~####",
)
KINDS = ".#~"  # air, earth, water


def tiles():
    """A node for grass or earth, and one for water, in their numbers' order."""
    sheet = Tessora.Res.LoadImage("tiles.png")
    made = []
    for index in (0, 3):
        node = Tessora.GUI_Image(None)
        node.SetImage(sheet.subsurface((32 * index, 0, 32, 32)))
        node.AutoImageSize(True)
        node.DropBGColor()
        made.append(node)
    made[0].SetCollision(1, None)
    return made


def level(scene, x, y):
    made = Tessora.TiledMap(None, x, y)
    made.SetTiledMapInfo("ground", len(LEVEL), len(LEVEL[0]), 32, 32, 0)
    made.SetTileVisible(False)
    made.Tile_Array[:] = [KINDS.index(letter) - 1 for row in LEVEL for letter in row]
    made.OnLoad(scene)
    return made


def the_scene():
    scene = Scene()
    scene.GetLayerResNode = tiles().__getitem__
    return scene


def grids():
    screen = window(720, 260)
    caption(screen, "ViewType 0: rectangular", 24, 10, 15)
    caption(screen, "ViewType 1: diamonds", 350, 10, 15)
    for x, y, view, wide, high in ((24, 44, 0, 64, 48), (350, 140, 1, 84, 42)):
        made = Tessora.TiledMap(None, x, y)
        made.SetTiledMapInfo("", 4, 4, wide, high, view)
        made.SetTileLineColor(pygame.Color(*INK))
        made.draw(screen)
        pygame.draw.circle(screen, (214, 72, 96), (x, y), 5)
        for row in range(4):
            for column in range(4):
                if view:
                    place = x + (row + column + 1) * wide / 2, y + (row - column) * high / 2
                else:
                    place = x + (column + 0.5) * wide, y + (row + 0.5) * high
                text = f"{column}, {row}"
                caption(screen, text, int(place[0]), int(place[1]) - 9, 14, SOFT, "center")
    return screen.copy()


def blocked():
    screen = window(720, 250)
    scene = the_scene()
    for x, text, crossed in ((20, "a map that knows what is blocked", True),
                             (380, "drawn without; a hidden one knows", False)):  # fmt: skip
        screen.fill(SKY, (x, 10, 320, 192))
        drawn = level(scene, x, 10)
        if crossed:
            drawn.UpdateTileCollision()
        drawn.draw(screen)
        hero = image("hero.png", x + 192, 10 + 64, anchor="s")
        hero.draw(screen)
        caption(screen, text, x + 160, 212, 15, SOFT, "center")
    return screen.copy()


def camera():
    screen = window(320, 192, SKY)
    scene = the_scene()
    layer = Tessora.GameLayer()
    layer.OnLoad(scene)
    field = level(scene, 0, 0)
    layer.AddGameNode(field)
    layer.scrollPosX, layer.scrollPosY = -40, 40
    found = []
    scene.on_pressed = lambda tx, ty: found.append((tx, ty))
    field.SetInnerBindingEvent("PickDown", "pressed", None)
    with quiet():
        layer.update(0)
        layer.draw(screen)
        layer.OnPickDownFunction(160, 120)
    column, row = found[0]
    pygame.draw.rect(screen, (214, 72, 96), (column * 32 - 40, row * 32 + 40, 32, 32), 3)
    pointer(screen, 160, 120)
    shown = screen.copy()
    screen = window(560, 250)
    screen.blit(shown, (20, 20))
    pygame.draw.rect(screen, INK, (19, 19, 322, 194), 1)
    text = f"scrollPosX = -40\nscrollPosY = 40\n\npressed at 160, 120\n\ntx = {column}\nty = {row}"
    caption(screen, text, 370, 40, 16)
    caption(screen, "the window", 180, 220, 15, SOFT, "center")
    return screen.copy()


def pictures():
    made = {"grids": grids(), "blocked": blocked(), "camera": camera()}
    # Optional as for the example; `make docs` has it.
    if importlib.util.find_spec("pytmx"):
        made["tmx"] = example("tmx_map", 1.2)
    return made
