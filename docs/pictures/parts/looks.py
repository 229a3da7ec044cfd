"""Sheets of widgets in their looks, for modules of pictures."""

import contextlib
import importlib
import os
import sys
from pathlib import Path

import pygame
import Tessora
from scenes import PAPER, caption, window

FONT = pygame.font.get_default_font()
ROOT = Path(__file__).resolve().parents[3]
SOFT = (120, 110, 150)


def point(x, y):
    """Let the mouse pointer be there."""
    pygame.mouse.get_pos = lambda: (x, y)


@contextlib.contextmanager
def quiet():
    """What the engine prints about presses and pictures is of no use here."""
    with open(os.devnull, "w") as nothing, contextlib.redirect_stdout(nothing):
        yield


def pointer(surface, x, y):
    """Paint a mouse pointer, whose tip is there."""
    shape = [(0, 0), (0, 17), (4, 13), (7, 20), (10, 19), (7, 12), (13, 12)]
    corners = [(x + dx, y + dy) for dx, dy in shape]
    pygame.draw.polygon(surface, (255, 255, 255), corners)
    pygame.draw.polygon(surface, (0, 0, 0), corners, 1)


def cells(things, columns, cell, margin=10):
    """Draw each of `things`, pairs of a text and a function, in a grid.

    A function gets the surface and the middle of its cell's upper part.
    """
    rows = -(-len(things) // columns)
    lines = max(text.count("\n") for text, _ in things) + 1
    width, height = cell
    surface = window(columns * width + 2 * margin, rows * height + 2 * margin, PAPER)
    for index, (text, draw) in enumerate(things):
        left = margin + index % columns * width
        top = margin + index // columns * height
        point(-1, -1)
        with quiet():
            draw(surface, left + width // 2, top + (height - 18 * lines - 10) // 2)
        below = top + height - 18 * lines - 8
        caption(surface, text, left + width // 2, below, 14, SOFT, "center")
    return surface.copy()


def look(make, hovered=False, pressed=False, **state):
    """A function for `cells` that draws what `make()` returns, centred, in a state.

    `state` holds attributes that are set before it is drawn.
    """

    def draw(surface, x, y):
        widget = make()
        widget.SetXY(x - widget.GetWidth() // 2, y - widget.GetHeight() // 2)
        for name, value in state.items():
            setattr(widget, name, value)
        tip = widget.GetX() + widget.GetWidth() * 0.7, widget.GetY() + widget.GetHeight() * 0.5
        if hovered or pressed:
            point(*tip)
        if pressed:
            widget.clicked = True
        widget.update(0)
        widget.draw(surface)
        if hovered or pressed:
            pointer(surface, int(tip[0]), int(tip[1]))

    return draw


def use(folder):
    """Find the files of an example's folder by name, too."""
    window(1, 1)
    Tessora.Res.FoundAllResFile(str(ROOT / "examples" / folder))


def example(name, seconds, size=(640, 400), presses=(), build="build"):
    """What an example's `build(layer)` shows after so long, with clicks at (seconds, x, y)."""
    sys.path.insert(0, str(ROOT / "examples"))
    use("star_catcher/assets")
    module = importlib.import_module(name)
    import example_window

    window(8, 8)
    # On a surface of its own, as a large window is made smaller for the page.
    screen = pygame.Surface(size)
    point(-1, -1)
    layer = Tessora.GameLayer()
    layer.OnLoad(example_window.Scene())
    with quiet():
        getattr(module, build)(layer)
        waiting = list(presses)
        for frame in range(round(seconds * 60)):
            while waiting and waiting[0][0] <= frame / 60:
                _, x, y = waiting.pop(0)
                layer.OnPickDownFunction(x, y)
                layer.OnPickUpFunction(x, y)
            layer.update(1 / 60)
            screen.fill(example_window.BACKGROUND)
            layer.draw(screen)
    return screen.copy()
