"""How much memory finished pictures may take, and when they go."""

import pytest
from helpers import kept_megabytes

BOUND = 268
PREPARE = """
import pygame
import Tessora as T
pygame.init()
screen = pygame.display.set_mode((320, 240))
picture = pygame.Surface((16, 16), pygame.SRCALPHA)
picture.fill((200, 100, 50))
def show(width, height, **look):
    widget = T.GUI_Image(None, 0, 0)
    vars(widget).update(dict(image=picture, width=width, height=height, bgColor=None), **look)
    for _ in range(3):
        widget.draw(screen, 0, 0, 1.0)
"""
# What is drawn, and the megabytes that may stay.
DRAWN = {
    "many": ("for n in range(40): show(2000 + n, 1000)", BOUND),
    "many turned": ("for n in range(60): show(1000, 500, angle=1 + n)", BOUND),
    "many, then a large one": ("for n in range(30): show(2000 + n, 1000)\nshow(6000, 6000)", BOUND),
    "one beyond the bound": ("show(9000, 9000)", BOUND),
    "some, then quit": ("for n in range(20): show(2000 + n, 1000)\npygame.quit()", 10),
}


@pytest.mark.parametrize("name", DRAWN)
def test_memory_stays_within_the_bound(monkeypatch, name):
    act, most = DRAWN[name]
    assert kept_megabytes(monkeypatch, PREPARE, act) <= most + 20
