"""What is kept of a still widget follows its attributes: it looks as a new one does."""

import itertools

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_same, dress, noise, pixels

GROUND = (90, 100, 110)
STILL = {"x": 60, "y": 40, "width": 90, "height": 50, "bgColor": pygame.Color(20, 40, 60)}
STILL.update(borderVisible=True, borderwidth=4, style="raised", focusIn=True, text="text")
STILL.update(HAlign="left", VAlign="top")
# Everything that a background, a border or a text is made of, with another value.
CHANGES = {"width": 77, "height": 61, "sx": 1.5, "sy": 0.5, "angle": 50.0, "x": 70.5, "y": 3}
CHANGES.update(bgColor=pygame.Color(200, 40, 60), image=noise((30, 20), 5), clicked=True, alpha=100)
CHANGES.update(style="sunken", borderwidth=7, borderVisible=False, focusIn=False)
CHANGES.update(borderColor_LT=pygame.Color(0, 0, 0), borderColor_RB=pygame.Color(0, 0, 1))
CHANGES.update(text="other", textColor=pygame.Color(1, 200, 3), textVisible=False)
CHANGES.update(HAlign="right", VAlign="bottom", showChar="*", textleftgap=15, texttopgap=15)
WIDTHS = itertools.count(80)


def drawn(widget, screen, times=1):
    for _ in range(times):
        screen.fill(GROUND)
        widget.draw(screen, 0, 0, 1.0)
    return screen.copy()


def assert_follows(screen, cls, look, name, value, change=setattr):
    # A size of its own, so that nothing is kept of it yet.
    look = {**look, "width": next(WIDTHS)}
    expected = drawn(dress(cls(), **{**look, name: value}), screen)
    widget = dress(cls(), **look)
    drawn(widget, screen, 3)
    change(widget, name, value)
    for _ in range(3):
        assert_same(drawn(widget, screen), expected)


@pytest.mark.parametrize("angle", [0.0, 20.0])
@pytest.mark.parametrize("cls", [T.GUI_Label, T.GUI_Button])
@pytest.mark.parametrize("name", CHANGES)
def test_a_changed_attribute_shows(screen, cls, angle, name):
    assert_follows(screen, cls, {**STILL, "angle": angle}, name, CHANGES[name])


@pytest.mark.parametrize("angle", [0.0, 20.0])
@pytest.mark.parametrize("name", ["bgColor", "textColor", "borderColor_LT"])
def test_a_color_changed_in_place_shows(screen, angle, name):
    look, color = {**STILL, "angle": angle, name: pygame.Color(10, 20, 30)}, (250, 20, 30)
    assert_follows(
        screen, T.GUI_Label, look, name, color, lambda w, n, c: setattr(getattr(w, n), "r", c[0])
    )


@pytest.mark.parametrize("angle", [0.0, 20.0])
def test_another_font_shows(screen, angle):
    small, large = pygame.font.Font(None, 16), pygame.font.Font(None, 30)
    look = {**STILL, "angle": angle, "font": small}
    assert_follows(screen, T.GUI_Label, look, "font", large)
    widget = dress(T.GUI_Label(), **look)
    before = drawn(widget, screen, 3)
    small.set_underline(True)
    assert pixels(drawn(widget, screen)) != pixels(before)
