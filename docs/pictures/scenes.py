"""What the modules of pictures share: a window without a screen, layers, captions, arrows, sheets.

A module of pictures defines `picture()`, which returns a surface, or `pictures()`, which returns a
dictionary from names to surfaces. `make docs` runs every one in a process of its own. On a page
text of size 15 is as large as the text around the picture.
"""

import math
import os

import pygame
import Tessora

WIDEST = 760
ASSETS = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "assets")

PAPER = (246, 244, 250)
INK = (58, 40, 72)
FAINT = (206, 200, 218)
ACCENT = (214, 72, 96)
SKY = (170, 200, 240)
NIGHT = (36, 26, 72)


class Scene:
    """The least that a scene needs: its size."""

    def __init__(self, size=(640, 480)):
        self.size = size

    def GetSceneSize(self):
        return self.size


def window(width=640, height=360, color=PAPER):
    """The display in that size, filled; files of docs/assets are found by name from now on."""
    if width > WIDEST:
        raise ValueError(f"a picture is at most {WIDEST} pixels wide")
    pygame.init()
    screen = pygame.display.set_mode((width, height))
    screen.set_clip(None)
    screen.fill(color)
    if Tessora.Res is None:
        Tessora.Res = Tessora.PyGameResManager(ASSETS)
        # So that widgets find pygame's own font by its name, which is the same on every machine.
        font = os.path.join(os.path.dirname(pygame.__file__), pygame.font.get_default_font())
        Tessora.Res.AddNewResFile(font)
    return screen


def layer(*nodes, scene=None):
    """A layer with these nodes, in a scene if one is given."""
    made = Tessora.GameLayer()
    if scene is not None:
        made.OnLoad(scene)
    for node in nodes:
        made.AddGameNode(node)
    return made


def play(screen, a_layer, seconds=0.0, color=None, frames_per_second=60):
    """Update and draw the layer for so long, at least one frame; returns a copy of the screen.

    Where a picture follows the frames before it, give the colour that clears the screen.
    """
    for _ in range(max(1, round(seconds * frames_per_second))):
        a_layer.update(1 / frames_per_second if seconds else 0)
        if color is not None:
            screen.fill(color)
        a_layer.draw(screen)
    return screen.copy()


def image(name, x, y, parent=None, anchor=None, **values):
    """A GUI_Image of the file's own size; further values become attributes."""
    node = Tessora.GUI_Image(parent, x, y)
    node.SetImage(name)
    node.AutoImageSize(True)
    if anchor:
        node.SetImageAnchor(anchor)
    for attribute, value in values.items():
        setattr(node, attribute, value)
    if parent is not None:
        parent.AddChild(node)
    return node


def font(size=15, bold=False):
    """pygame's own font, which is the same on every machine."""
    made = pygame.font.Font(None, round(size * 1.4))
    made.set_bold(bold)
    return made


def caption(surface, text, x, y, size=15, color=INK, align="left", bold=False):
    """Write lines of text whose top is at `y`; `align` tells what of them is at `x`."""
    written = pygame.Rect(x, y, 0, 0)
    for row in text.split("\n"):
        line = font(size, bold).render(row, True, color)
        left = {"left": x, "center": x - line.get_width() // 2, "right": x - line.get_width()}
        written.union_ip(surface.blit(line, (left[align], y)))
        y += line.get_height() + 2
    return written


def arrow(surface, start, end, color=ACCENT, text="", width=2, both=False):
    """An arrow with its text above the middle; `both` gives it two heads."""
    pygame.draw.line(surface, color, start, end, width)
    for tip, tail in ((end, start), (start, end))[: 2 if both else 1]:
        turn = math.atan2(tip[1] - tail[1], tip[0] - tail[0])
        corners = [
            (tip[0] - 10 * math.cos(turn + side), tip[1] - 10 * math.sin(turn + side))
            for side in (0.4, -0.4)
        ]
        pygame.draw.polygon(surface, color, [tip, *corners])
    if text:
        middle = (start[0] + end[0]) // 2, (start[1] + end[1]) // 2
        upright = abs(end[0] - start[0]) < abs(end[1] - start[1])
        if upright:
            caption(surface, text, middle[0] + 8, middle[1] - 8, 14, color)
        else:
            caption(surface, text, middle[0], middle[1] - 22, 14, color, "center")


def dot(surface, position, color=ACCENT, text="", radius=4):
    """A point with a text to its right."""
    pygame.draw.circle(surface, color, position, radius)
    if text:
        caption(surface, text, position[0] + radius + 4, position[1] - 9, 14, color)


def grid(surface, step=50, color=FAINT, numbers=True):
    """Lines every `step` pixels, with their positions along the top and the left."""
    width, height = surface.get_size()
    for x in range(0, width, step):
        pygame.draw.line(surface, color, (x, 0), (x, height))
        if numbers and x:
            caption(surface, str(x), x + 2, 2, 11, INK)
    for y in range(0, height, step):
        pygame.draw.line(surface, color, (0, y), (width, y))
        if numbers and y:
            caption(surface, str(y), 2, y + 2, 11, INK)


def sheet(parts, columns=3, gap=16, color=PAPER, ink=INK):
    """One picture of several, in rows, each above its text: pairs of (text, surface)."""
    parts = list(parts)
    columns = min(columns, len(parts))
    width = max(surface.get_width() for _, surface in parts)
    width = max([width] + [font().size(row)[0] for text, _ in parts for row in text.split("\n")])
    rows = [parts[at : at + columns] for at in range(0, len(parts), columns)]
    line = font().get_linesize() + 2
    heights = [
        max(surface.get_height() + 6 + line * len(text.split("\n")) for text, surface in row)
        for row in rows
    ]
    size = columns * (width + gap) + gap, sum(heights) + gap * (len(rows) + 1)
    whole = pygame.Surface(size)
    whole.fill(color)
    top = gap
    for row, height in zip(rows, heights):
        for column, (text, surface) in enumerate(row):
            middle = gap + column * (width + gap) + width // 2
            place = surface.get_rect(midtop=(middle, top))
            whole.blit(surface, place)
            caption(whole, text, middle, place.bottom + 6, color=ink, align="center")
        top += height + gap
    return whole
