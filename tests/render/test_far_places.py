"""Places, sizes and cameras that no screen holds: nothing is drawn and nothing breaks."""

import pytest
from helpers import failures, kept_megabytes

FAR = "[nan, inf, -inf, 1e300, -1e300, 1e30, 2.0**31, -2.0**31, 2**31, -(2**31), 2**40, 2**30 + 1]"
PRELUDE = f"""
from math import inf, nan
FAR = {FAR}
PICTURE = pygame.Surface((200, 150), pygame.SRCALPHA)
PICTURE.fill((250, 100, 50))
COLOR = pygame.Color(250, 250, 10)
OVERLAYS = dict.fromkeys(("rectvisible", "anchorvisible", "editrectvisible"), True)
BORDER = dict(borderVisible=True, borderwidth=3, borderColor=COLOR, bgColor=None)
def widget(cls=T.GUI_Image, **values):
    made = cls(None, 5, 5)
    vars(made).update(values)
    return made
def text(**values):
    look = dict(text="text", bgColor=None, textColor=COLOR, width=50, height=30)
    return widget(T.GUI_Label, **look, **values)
def pixels():
    return pygame.image.tobytes(screen, "RGB")
# What is far away in one direction or in both is not drawn.
def draw_far(thing):
    screen.fill((1, 2, 3))
    before = pixels()
    for far in FAR:
        for thing.x, thing.y in ((far, 5), (5, far), (far, far)):
            for _ in range(2):
                thing.draw(screen, 0, 0, 1.0)
            assert pixels() == before, (thing.x, thing.y)
    thing.x = thing.y = 5
    for far in FAR:
        for camera in ((far, 0, 1.0), (0, far, 1.0)):
            thing.draw(screen, *camera)
            assert pixels() == before, camera
    thing.draw(screen, 0, 0, 1.0)
    assert pixels() != before
# Sizes and scales may be refused, as long as the next draw works again.
def draw_large(thing):
    for far in FAR:
        for name in ("width", "height", "sx", "sy", None):
            old = dict(vars(thing))
            vars(thing).update({{name: far}} if name else {{}})
            try:
                thing.draw(screen, 0, 0, 1.0 if name else far)
            except (ValueError, OverflowError, TypeError, MemoryError, pygame.error):
                pass
            vars(thing).update(old)
    thing.draw(screen, 0, 0, 1.0)
"""
THINGS = {
    "picture": "widget(image=PICTURE, width=200, height=150)",
    "small picture": "widget(image=PICTURE, width=20, height=15)",
    "tinted picture": "widget(image=PICTURE, bgColor=COLOR, alpha=100)",
    "turned picture": "widget(image=PICTURE, width=200, height=150, angle=30)",
    "added picture": "widget(image=PICTURE, blendtype=pygame.BLEND_ADD)",
    "background": "widget()",
    "turned background": "widget(angle=30)",
    "raised border": "widget(style='raised', **BORDER)",
    "solid border": "widget(style='solid', **BORDER)",
    "turned border": "widget(style='sunken', angle=30, **BORDER)",
    "focus border": "widget(focusIn=True, bgColor=None)",
    "outlines": "widget(coll_visible=True, coll_rectArray={'a': [(1, 2, 30, 20)]}, bgColor=None)",
    "text": "text()",
    "turned text": "text(angle=30)",
    "button": "widget(T.GUI_Button)",
    "overlays": "widget(bgColor=None, **OVERLAYS)",
}


@pytest.mark.parametrize("draw", ["draw_far", "draw_large"])
def test_what_is_far_away_or_larger_than_any_memory(draw):
    assert failures({name: f"{draw}({make})" for name, make in THINGS.items()}, PRELUDE) == {}


SHAPES = """
for far in FAR:
    for kind, place in (("Point", (far, 5)), ("Line", (5, 5, far, 30)), ("Rect", (5, 5, far, far))):
        layer = T.GameLayer()
        getattr(layer, "Add" + kind)("shape", 1, *place)
        try:
            layer.draw(screen)
        except (TypeError, ValueError, OverflowError):
            pass
"""


def test_debug_shapes():
    assert failures({"debug shapes": SHAPES}, PRELUDE) == {}


# The megabytes that finished pictures may take.
BOUND = 268
SHOWN = """
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
PICTURES = {
    "many": ("for n in range(40): show(2000 + n, 1000)", BOUND),
    "many turned": ("for n in range(60): show(1000, 500, angle=1 + n)", BOUND),
    "many, then a large one": ("for n in range(30): show(2000 + n, 1000)\nshow(6000, 6000)", BOUND),
    "one beyond the bound": ("show(9000, 9000)", BOUND),
    "some, then quit": ("for n in range(20): show(2000 + n, 1000)\npygame.quit()", 10),
}


@pytest.mark.parametrize("name", PICTURES)
def test_memory_stays_within_the_bound(monkeypatch, name):
    act, most = PICTURES[name]
    assert kept_megabytes(monkeypatch, SHOWN, act) <= most + 20
