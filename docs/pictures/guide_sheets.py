"""What the pictures of the guides share: a window, a font, sheets of things with captions."""

import contextlib
import os
import sys
from pathlib import Path

import pygame
import Tessora

ROOT = next(p for p in Path(__file__).resolve().parents if (p / "examples").is_dir())
FONT = pygame.font.get_default_font()
PAPER, INK, SOFT = (244, 241, 248), (48, 38, 78), (120, 110, 150)


def start(size, folder=None):
    """Open a window, use the files of a folder, and return the window's surface."""
    pygame.init()
    screen = pygame.display.set_mode(size)
    screen.fill(PAPER)
    assets = ROOT / "examples" / "star_catcher" / "assets" if folder is None else folder
    Tessora.Res = Tessora.PyGameResManager(str(assets))
    Tessora.Res.AddNewResFile(os.path.join(os.path.dirname(pygame.__file__), FONT))
    point(-1, -1)
    return screen


def point(x, y):
    """Let the mouse pointer be there."""
    pygame.mouse.get_pos = lambda: (x, y)


@contextlib.contextmanager
def quiet():
    """What the engine prints about presses and pictures is of no use here."""
    with open(os.devnull, "w") as nothing, contextlib.redirect_stdout(nothing):
        yield


def use_examples():
    """Let a picture import the examples."""
    sys.path.insert(0, str(ROOT / "examples"))


def write(surface, text, x, y, size=14, color=INK, center=False):
    for line in text.split("\n"):
        made = pygame.font.Font(None, size + 6).render(line, True, color)
        surface.blit(made, (x - made.get_width() // 2 if center else x, y))
        y += size + 2


def pointer(surface, x, y):
    """Paint a mouse pointer, whose tip is there."""
    shape = [(0, 0), (0, 17), (4, 13), (7, 20), (10, 19), (7, 12), (13, 12)]
    corners = [(x + dx, y + dy) for dx, dy in shape]
    pygame.draw.polygon(surface, (255, 255, 255), corners)
    pygame.draw.polygon(surface, (0, 0, 0), corners, 1)


def sheet(cells, columns, cell, margin=10):
    """Draw each thing of `cells`, pairs of a caption and a function, in a grid.

    A function gets the surface and the middle of its cell's upper part.
    """
    rows = -(-len(cells) // columns)
    lines = max(caption.count("\n") for caption, _ in cells) + 1
    width, height = cell
    surface = start((columns * width + 2 * margin, rows * height + 2 * margin))
    for index, (caption, draw) in enumerate(cells):
        left = margin + index % columns * width
        top = margin + index // columns * height
        point(-1, -1)
        with quiet():
            draw(surface, left + width // 2, top + (height - 16 * lines - 10) // 2)
        write(surface, caption, left + width // 2, top + height - 16 * lines - 8, 14, SOFT, True)
    return surface.copy()


def look(make, hovered=False, pressed=False, **state):
    """A function for `sheet` that draws what `make()` returns, centred, in a state.

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
