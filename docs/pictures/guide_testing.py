"""A drawn frame beside the expected one, and where they differ."""

import pygame
import Tessora
from parts.looks import FONT, quiet
from scenes import image, layer, play, sheet, window


def frame(score, x):
    screen = window(220, 140, (150, 200, 240))
    label = Tessora.GUI_Label(None, 8, 6, f"Coins: {score}", FONT, 18)
    label.SetWidth(120)
    label.SetHeight(26)
    label.SetStyle("hollow", False)
    label.SetTextHAlign("left")
    nodes = [label, image("hero.png", x, 66), image("coin.png", 150, 80)]
    for node in nodes[1:]:
        node.DropBGColor()
    return play(screen, layer(*nodes))


def difference(one, other):
    same = pygame.mask.from_threshold(one, (0, 0, 0), (8, 8, 8, 255), other)
    return same.to_surface(setcolor=(40, 34, 60), unsetcolor=(255, 80, 120))


def picture():
    with quiet():
        expected, drawn = frame(3, 60), frame(2, 63)
    parts = [("expected.png", expected), ("what the game draws", drawn)]
    return sheet([*parts, ("where they differ", difference(expected, drawn))], 3)
