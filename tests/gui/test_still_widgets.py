"""What is kept of a still widget follows its attributes: it looks as a new one does."""

import itertools

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_same, dress, noise

GROUND = (90, 100, 110)
STILL = {"x": 60, "y": 40, "width": 90, "height": 50, "bgColor": pygame.Color(20, 40, 60)}
STILL.update(borderVisible=True, borderwidth=4, style="raised", focusIn=True, text="text")
# Everything that a background, a border or a text is made of, with another value.
CHANGES = {"width": 77, "height": 61, "sx": 1.5, "sy": 0.5, "angle": 50.0, "x": 70.5, "y": 3}
CHANGES.update(bgColor=pygame.Color(200, 40, 60), image=noise((30, 20), 5), clicked=True, alpha=100)
CHANGES.update(style="sunken", borderwidth=7, borderVisible=False, focusIn=False)
CHANGES.update(borderColor_LT=pygame.Color(0, 0, 0), borderColor_RB=pygame.Color(0, 0, 1))
CHANGES.update(text="other", textColor=pygame.Color(1, 200, 3), textVisible=False)
CHANGES.update(HAlign="left", VAlign="bottom", showChar="*")
WIDTHS = itertools.count(80)
ALIGNED = {"textleftgap": ("HAlign", "left"), "texttopgap": ("VAlign", "top")}


def drawn(widget, screen, times):
    for _ in range(times):
        screen.fill(GROUND)
        widget.draw(screen, 0, 0, 1.0)
    return screen.copy()


def assert_follows(screen, cls, look, name, value):
    # A size of its own, so that nothing is kept of it yet.
    look = {**look, "width": next(WIDTHS)}
    expected = drawn(dress(cls(), **{**look, name: value}), screen, 1)
    widget = dress(cls(), **look)
    drawn(widget, screen, 3)
    setattr(widget, name, value)
    for _ in range(3):
        assert_same(drawn(widget, screen, 1), expected)


@pytest.mark.parametrize("angle", [0.0, 20.0])
@pytest.mark.parametrize("cls", [T.GUI_Label, T.GUI_Button])
@pytest.mark.parametrize("name", CHANGES)
def test_a_changed_attribute_shows(screen, cls, angle, name):
    assert_follows(screen, cls, {**STILL, "angle": angle}, name, CHANGES[name])


@pytest.mark.parametrize("angle", [0.0, 20.0])
@pytest.mark.parametrize("name", ALIGNED)
def test_a_changed_gap_shows(screen, angle, name):
    align, side = ALIGNED[name]
    assert_follows(screen, T.GUI_Label, {**STILL, "angle": angle, align: side}, name, 15)


@pytest.mark.parametrize("angle", [0.0, 20.0])
def test_a_color_changed_in_place_shows(screen, angle):
    for name in ("bgColor", "textColor", "borderColor_LT"):
        look = {**STILL, "angle": angle, "width": next(WIDTHS)}
        new = dress(T.GUI_Label(), **{**look, name: pygame.Color(250, 20, 30)})
        expected = drawn(new, screen, 1)
        widget = dress(T.GUI_Label(), **{**look, name: pygame.Color(10, 20, 30)})
        drawn(widget, screen, 3)
        getattr(widget, name).r = 250
        assert_same(drawn(widget, screen, 1), expected)


@pytest.mark.parametrize("angle", [0.0, 20.0])
def test_another_font_shows(screen, angle):
    small, large = pygame.font.Font(None, 16), pygame.font.Font(None, 30)
    look = {**STILL, "angle": angle, "font": small}
    assert_follows(screen, T.GUI_Label, look, "font", large)
    widget = dress(T.GUI_Label(), **look)
    before = drawn(widget, screen, 3)
    small.set_underline(True)
    after = drawn(widget, screen, 1)
    assert pygame.image.tobytes(after, "RGB") != pygame.image.tobytes(before, "RGB")
