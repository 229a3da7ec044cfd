"""Scroll bars and the scale: steps, drags, and where the button stands."""

import picture_oracle as oracle
import pygame
import pytest
import Tessora as T
from picture_oracle import LOOKS, assert_painted, assert_parts, dress, part_place

GREY = (168, 168, 168, 255)
KINDS = {"H": (T.GUI_HScrollBar, "Left", "Right", 0), "V": (T.GUI_VScrollBar, "Up", "Down", 1)}


# A bar at 40, 30, whichever way it lies.
class Bar:
    def __init__(self, kind):
        cls, self.first, self.last, self.axis = KINDS[kind]
        self.widget = cls(None, 40, 30)

    def press(self, name):
        getattr(self.widget, name + "BtnPickDownFunction")()

    def stretch(self, length):
        setattr(self.widget, "width" if self.axis == 0 else "height", length)

    # Draws it, and tells where the thumb stands.
    def drawn(self, screen):
        self.widget.draw(screen, 0, 0, 1.0)
        return self.thumb()

    def thumb(self):
        return self.widget.MidButton.GetXY()[self.axis]

    # A point on the bar, so many unscaled pixels from its beginning.
    def point(self, along, across=10):
        return (40 + along, 30 + across) if self.axis == 0 else (40 + across, 30 + along)

    def parts(self, *places):
        boxes = [(place, 0) if self.axis == 0 else (0, place) for place in places]
        size = (120, 20) if self.axis == 0 else (20, 120)
        return [(0, 0, *size, GREY, "raised")] + [(*b, 20, 20, GREY, "raised") for b in boxes]


@pytest.fixture(params=KINDS)
def bar(request, screen):
    return Bar(request.param)


def test_end_buttons_step_to_the_ends(bar):
    values = []
    for name, count in ((bar.last, 11), (bar.first, 12)):
        for _ in range(count):
            bar.press(name)
            values.append(bar.widget.GetValue())
    assert values == [*range(10, 110, 10), 100, *range(90, -10, -10), 0, 0]
    bar.widget.SetRange(0, 95)
    bar.widget.SetValue(92)
    bar.press(bar.last)
    assert (bar.widget.GetValue(), bar.thumb()) == (95, 80)


# Least, most and value; the place of the thumb.
PLACES = [(0, 100, 0, 20), (0, 100, 50, 50), (0, 100, 100, 80), (0, 100, 150, 110)]
PLACES += [(50, 150, 100, 50), (150, 50, 100, 50)]


@pytest.mark.parametrize(("least", "most", "value", "place"), PLACES)
def test_the_thumb_stands_where_the_value_says(bar, screen, least, most, value, place):
    bar.widget.SetRange(least, most)
    bar.widget.SetValue(value)
    assert (bar.drawn(screen), bar.widget.GetValue()) == (place, value)
    bar.widget.SetRange(7, 7)
    pytest.raises(ZeroDivisionError, bar.widget.draw, screen, 0, 0, 1.0)


DRAGS = {30: 0, 31: 0, 36: 10, 60: 50, 89: 90, 90: 100, 400: 100, -400: 0}


@pytest.mark.parametrize("scale", [1.0, 2.0])
def test_the_thumb_follows_the_pointer_until_the_release(bar, screen, pointer, scale):
    widget, told = bar.widget, []
    widget.SetPickUpFunction(lambda node: told.append(node.GetValue()))
    bar.drawn(screen)
    widget.OnPickDownFunction(*bar.point(30))
    dress(widget, sx=scale, sy=scale)
    for along, value in DRAGS.items():
        pointer.place = bar.point(along * scale)
        assert bar.drawn(screen) == (20 + 0.6 * value) * scale and widget.GetValue() == value
    widget.OnPickUpFunction(500, 500)
    assert (widget.MidButtonPicked, told) == (False, [0])
    pointer.place = bar.point(60)
    bar.drawn(screen)
    assert widget.GetValue() == 0


# int(0.29 * 100 / 1) is 28: the order of the formula counts.
def test_a_dragged_value_is_a_whole_number_of_steps_from_the_minimum(bar, screen, pointer):
    widget = bar.widget
    widget.SetRange(7, 107)
    widget.SetStep(1)
    bar.stretch(160)
    widget.OnPickDownFunction(0, 0)
    bar.press("Mid")
    pointer.place = bar.point(30 + 29)
    bar.drawn(screen)
    assert widget.GetValue() == 7 + int(29 / 100 * 100 / 1)


def test_a_disabled_bar_takes_no_press_and_keeps_its_drag(bar, screen):
    widget = bar.widget
    widget.draw(screen, 0, 0, 1.0)
    widget.OnPickDownFunction(*bar.point(30))
    widget.SetEnable(False)
    assert widget.OnPickUpFunction(0, 0) is None and widget.MidButtonPicked is True
    assert widget.OnPickDownFunction(*bar.point(110)) is None and widget.GetValue() == 0
    widget.SetEnable(True)
    assert widget.OnPickDownFunction(*bar.point(110)) is not None and widget.GetValue() == 10


def test_a_script_may_replace_the_callbacks(screen):
    pressed = []
    own = {"RightBtnPickDownFunction": lambda self, node=None: pressed.append(self)}
    bar = type("Own", (T.GUI_HScrollBar,), own)()
    bar.draw(screen)
    bar.OnPickDownFunction(110, 10)
    assert (pressed, bar.GetValue()) == ([bar], 0)


@pytest.mark.parametrize("look", LOOKS)
def test_a_bar_in_every_look(bar, screen, look, pointer):
    bar.widget.SetValue(50)
    assert_parts(bar.widget, screen, look, bar.parts(0, 50, 100))


def test_the_last_button_stays_at_the_end(bar, screen):
    bar.stretch(200)
    bar.drawn(screen)
    assert getattr(bar.widget, bar.last + "Button").GetXY()[bar.axis] == 180


@pytest.mark.parametrize("align", ["bottom", "top", "center"])
@pytest.mark.parametrize("look", ["still", "scaled", "turned"])
def test_a_scale_in_every_look(screen, pointer, align, look):
    widget = dress(T.GUI_Scale(None, 60, 60), font=pygame.font.Font(None, 20))
    widget.SetTextAlign(align)
    widget.SetTextColor(250, 240, 200)
    size = widget.font.size("50")
    tops = {"bottom": 22, "top": -2 - size[1], "center": (20 - size[1]) / 2}
    tick = 2 if align == "top" else 14

    def ruler(sheet, corner, sx=1, sy=1):
        for index in range(6):
            box = (corner[0] + (10 + index * 20) * sx, corner[1] + tick * sy, max(1, sx), 4 * sy)
            pygame.draw.rect(sheet, (250, 240, 200), box)
        text = widget.font.render("50", True, (250, 240, 200)).convert_alpha()
        left, top = 60 - size[0] / 2, tops[align]
        # With pygame-ce the picture may be a pixel higher than size() says.
        wide, high = text.get_size()
        text = pygame.transform.smoothscale(text, (int(wide * sx), int(high * sy)))
        sheet.blit(text, (corner[0] + left * sx, corner[1] + top * sy))

    def draw(target, camera):
        oracle.draw_parts(target, widget, [(0, 0, 120, 20, GREY, None)], camera)
        place = part_place(widget, (0, 0, 120, 20), camera)
        if place.WAngle == 0:
            ruler(target, (place.WX, place.WY), place.WSX, place.WSY)
        else:
            reach = 0 if align == "center" else 2 + size[1]
            tall = part_place(widget, (0, -reach, 120, 20 + 2 * reach), camera)
            oracle.draw_turned(target, tall, lambda sheet: ruler(sheet, (0, reach)))
        oracle.draw_border(target, place, "sunken")
        oracle.draw_parts(target, widget, [(50, 0, 20, 20, GREY, "raised")], camera)

    assert_painted(widget, screen, look, draw)


def test_a_scale_without_its_ruler(screen, pointer):
    widget = dress(T.GUI_Scale(None, 40, 30), rulerVisible=False)
    widget.SetValue(0)
    parts = [(0, 0, 120, 20, GREY, "sunken"), (0, 0, 20, 20, GREY, "raised")]
    assert_parts(widget, screen, "still", parts)


def test_the_scales_button_is_dragged(screen, pointer):
    widget, told = T.GUI_Scale(None, 40, 30), []
    widget.SetPickUpFunction(lambda node: told.append(node.GetValue()))
    widget.draw(screen)
    assert widget.Button.GetX() == 50
    assert widget.OnPickDownFunction(100, 40) is widget.GetButton()
    for at, value in ((52, 0), (71, 20), (150, 100), (999, 100), (-5, 0)):
        pointer.place = (at, 0)
        widget.draw(screen)
        assert widget.GetValue() == value
    widget.OnPickUpFunction(999, 999)
    assert (widget.ButtonPicked, told) == (False, [0])
