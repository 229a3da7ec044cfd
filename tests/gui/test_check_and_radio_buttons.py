"""Check and radio buttons: their looks, their box, and what a click does."""

import math
from functools import partial
from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from picture_oracle import LOOK, Place, assert_draws, draw_widget, dress, ground, noise

AWAY, INSIDE = (300, 200), (60, 40)
STATES = {"": (AWAY, False), "_hover": (INSIDE, False), "_click": (INSIDE, True)}
COLORS = {"": (10, 20, 200), "_hover": (20, 200, 30), "_click": (200, 30, 40)}
DARK = pygame.Color(64, 64, 64)


def button(cls, **changes):
    widget = dress(cls(None, 40, 30), textVisible=False, height=30)
    for state, (red, green, blue) in COLORS.items():
        setattr(widget, "bgColor" + state, pygame.Color(red, green, blue))
        setattr(widget, f"bgColor{state}_checked", pygame.Color(blue, red, green))
    return dress(widget, **changes)


check_button = partial(button, T.GUI_CheckButton)
radio_button = partial(button, T.GUI_RadioButton)


def empty_sheet(side):
    sheet = pygame.Surface((int(side), int(side))).convert_alpha()
    sheet.fill((0, 0, 0, 0))
    return sheet


def drawn_check_box(side, width, marked):
    sheet, near, far = empty_sheet(side), side * 0.1, side - side * 0.1 - 1
    inner, tip, outer = side * 0.2, side * 0.4, side - side * 0.2 - 1
    lines = [((near, near), (far, near)), ((far, near), (far, far))]
    lines += [((near, far), (far, far)), ((near, near), (near, far))]
    lines += [((inner, side * 0.5), (tip, outer)), ((tip, outer), (outer, inner))] * marked
    for start, end in lines:
        pygame.draw.line(sheet, DARK, start, end, width)
    return sheet


# Drawn four times as large, so that smoothscale rounds it.
def drawn_radio_box(side, width, marked):
    side, width = side * 4, width * 4
    sheet, near = empty_sheet(side), side * 0.1
    for step in range(width):
        for extent in (side - 2 * near - 2 * step, side - 2 * near - 2 * step - 1):
            box = near + step, near + step, extent, extent
            for quarter in range(4):
                start = math.pi / 2 * quarter + math.pi / 4
                pygame.draw.arc(sheet, DARK, box, start, start + math.pi / 2, 1)
    if marked:
        pygame.draw.circle(sheet, DARK, (side / 2, side / 2), side / 2 - near - side * 0.2)
    return sheet


def draw_box(target, place, box, side):
    picture = pygame.transform.smoothscale(box, (int(side * place.WSX), int(side * place.WSY)))
    if place.WAngle == 0:
        corner = place.WX, place.WY + (place.height - side) * 0.5 * place.WSY
    else:
        picture = pygame.transform.rotozoom(picture, place.WAngle, 1)
        turn, away = math.radians(place.WAngle), (place.width - side) * 0.5 * place.WSX
        left, top = place.corner(picture)
        corner = left - away * math.cos(turn), top + away * math.sin(turn)
    target.blit(picture.convert_alpha(), [int(side) for side in corner])


# `end` names the attributes of the look; `box` is drawn, or a picture.
def assert_look(widget, screen, end, box, camera=(0, 0, 1.0)):
    look = {name: getattr(widget, name) for name in LOOK}
    color, picture = getattr(widget, "bgColor" + end), getattr(widget, "image" + end)

    def expected(target):
        draw_widget(target, camera, **dict(look, image=None, bgColor=color))
        if picture is not None:
            draw_widget(target, camera, **dict(look, image=picture))
        draw_box(target, Place(look, camera), box, widget.height - widget.texttopgap)

    screen.blit(ground(screen.get_size()), (0, 0))
    assert_draws(widget, screen, expected, camera)


DRAWN = {"check": (check_button, drawn_check_box), "radio": (radio_button, drawn_radio_box)}
PLACES = [{}, {"angle": 25.0}, {"sx": 1.5, "sy": 0.75}, {"angle": -70.0, "sx": 1.3, "sy": 1.3}]
PLACES += [{"borderwidth": 3, "texttopgap": 6}, {"style": "hollow"}, {"bgColor_hover": None}]


@pytest.mark.parametrize("changes", PLACES, ids=str)
@pytest.mark.parametrize("state", STATES)
@pytest.mark.parametrize("kind", DRAWN)
@pytest.mark.parametrize("value", [False, True])
def test_looks_are_drawn_as_plain_calls_would(screen, pointer, kind, state, value, changes):
    make, drawn = DRAWN[kind]
    pointer.place, clicked = STATES[state]
    widget = make(clicked=clicked, CheckValue=value, RadioValue=value, **changes)
    end = state + ("_checked" if value and kind == "check" else "")
    box = drawn(widget.height - widget.texttopgap, widget.borderwidth, value)
    for camera in ((0, 0, 1.0), (0, 0, 1.0), (-3, 4, 1.25)):
        if state != "_hover" or camera[2] == 1.0:
            assert_look(widget, screen, end, box, camera)


@pytest.mark.parametrize("angle", [0.0, 30.0])
@pytest.mark.parametrize("state", STATES)
def test_box_pictures(screen, pointer, state, angle):
    pointer.place, clicked = STATES[state]
    for value, end in ((False, ""), (True, "_checked")):
        widget = check_button(angle=angle, CheckValue=value, clicked=clicked)
        box = noise((11, 7), 4)
        setattr(widget, f"image_checkbox{state}{end}", box)
        setattr(widget, f"image{state}{end}", noise((20, 10), 5))
        assert_look(widget, screen, state + end, box)
    widget = radio_button(angle=angle, clicked=clicked, RadioValue=True)
    setattr(widget, "image_radiobox" + state, box)
    assert_look(widget, screen, state, box)


@pytest.mark.parametrize("kind", DRAWN)
def test_hidden_boxes_leave_the_text_in_its_place(screen, pointer, kind):
    color, gaps = pygame.Color(9, 8, 7), []
    widget = DRAWN[kind][0](text="ab", textleftgap=5, CheckValue=True)
    setattr(widget, "textColor_checked" if kind == "check" else "textColor", color)
    widget.drawText = lambda surface, *drawn: gaps.append((*drawn, widget.textleftgap))
    for visible in (True, False):
        getattr(widget, f"Set{kind.title()}BoxVisible")(visible)
        widget.draw(screen)
    assert gaps == [("ab", color, 5 + 28), ("ab", color, 5)]
    assert (widget.textleftgap, widget.texttopgap) == (5, 2)


@pytest.mark.parametrize("make", [T.GUI_CheckButton, T.GUI_RadioButton])
def test_the_gaps_come_back_when_the_text_fails(screen, make):
    widget, seen = make(None, 0, 0), []

    def fail(surface, *args):
        seen.append(widget.textleftgap)
        widget.texttopgap = 9
        raise LookupError("text")

    widget.drawText = fail
    pytest.raises(LookupError, widget.draw, screen)
    assert seen == [2 + 18] and (widget.textleftgap, widget.texttopgap) == (2, 2)


def test_boxes_without_room_are_left_out(screen):
    for height in (2, 0, -5, float("nan")):
        widget = dress(T.GUI_CheckButton(None, 10, 10), bgColor=None, height=height)
        widget.draw(screen)
        assert screen.get_bounding_rect().size == screen.get_size()
    pytest.raises(TypeError, dress(widget, height="high").draw, screen)


# Each makes the checked look of a fresh button another one.
OWN_LOOKS = [("SetBGColor_Checked", (1, 2, 3)), ("SetTextColor_Hover_Checked", (1, 2, 3))]
OWN_LOOKS += [("SetTextColor_Click_Checked", (9, 2, 3)), ("SetBGColor", (1, 2, 3))]
OWN_LOOKS += [("SetImage_Checked", ("a.png",)), ("SetImage_Click_Checked", ("a.png",))]
OWN_LOOKS += [("SetImage_CheckBox_Checked", ("a.png",)), ("SetImage_CheckBox", ("a.png",))]


@pytest.mark.parametrize(("setter", "values"), OWN_LOOKS)
def test_the_mark_shows_once_the_look_is_its_own(screen, pointer, monkeypatch, setter, values):
    monkeypatch.setattr(T, "Res", SimpleNamespace(LoadImage=lambda name: noise((9, 9), 2)))
    widget = dress(T.GUI_CheckButton(None, 40, 30), textVisible=False, height=30, CheckValue=True)
    # Fresh, and with an equal colour.
    for color in (widget.bgColor_checked, pygame.Color(*T.GUI_WINDOW_BGCOLOR)):
        widget.bgColor_checked = color
        assert_look(widget, screen, "_checked", drawn_check_box(28, 2, False))
    getattr(widget, setter)(*values)
    for value, end in ((True, "_checked"), (False, "")):
        box = getattr(widget, "image_checkbox" + end) or drawn_check_box(28, 2, value)
        assert_look(dress(widget, CheckValue=value), screen, end, box)


def test_checked_colours_are_the_unchecked_objects():
    widget = T.GUI_CheckButton()
    for name in ("textColor", "bgColor"):
        for state in STATES:
            assert getattr(widget, f"{name}{state}_checked") is getattr(widget, name + state)


@pytest.mark.parametrize("kind", ["Button", "RadioButton", None])
def test_only_their_own_kind_is_hovered(screen, pointer, kind):
    pointer.place = INSIDE
    widget = check_button(NodeType=kind)
    assert_look(widget, screen, "", drawn_check_box(28, 2, False))


def click(widget, down=INSIDE, up=INSIDE):
    widget.OnPickDownFunction(*down)
    return widget.OnPickUpFunction(*up)


def test_a_click_checks_before_the_callback(pointer):
    widget, seen = check_button(), []
    widget.SetPickUpFunction(lambda node: seen.append(node.IsChecked()))
    for expected in (True, False):
        assert click(widget) is widget
        assert widget.CheckValue is expected
    # Not: released elsewhere, pressed elsewhere, disabled, hidden, without releases.
    click(widget, INSIDE, AWAY)
    click(widget, AWAY, INSIDE)
    for name in ("enable", "visible", "Enable_PickUp"):
        click(dress(widget, **{name: False}))
        dress(widget, clicked=False, **{name: True})
    assert widget.CheckValue is False and seen[:2] == [True, False]


def test_scripts_decide_what_checking_means():
    seen = []
    cls = type("Own", (T.GUI_CheckButton,), {"SetChecked": lambda self, value: seen.append(value)})
    widget = cls(None, 40, 30)
    click(widget)
    widget.IsChecked = lambda: 5
    click(widget)
    assert seen == [True, False] and widget.CheckValue is False


def test_a_click_chooses_among_the_parents_radio_buttons():
    parent, other = T.GUI_Image(None), T.GUI_Image(None)
    first, second = [T.GUI_RadioButton(parent, 40, 30 + 30 * row) for row in range(2)]
    check, stranger = T.GUI_CheckButton(parent, 200, 0), T.GUI_RadioButton(other)
    stranger.SetRadioValue(True)
    check.SetChecked(True)
    parent.children.append(object())
    for chosen, place in ((second, (60, 65)), (first, INSIDE), (first, INSIDE)):
        click(chosen, place, place)
        assert [first.RadioValue, second.RadioValue] == [chosen is first, chosen is second]
    assert stranger.RadioValue is True and check.CheckValue is True
    alone = T.GUI_RadioButton(None, 40, 30)
    click(alone)
    assert alone.GetRadioValue() is True


def test_checked_pictures_of_radio_boxes_are_kept_but_not_drawn(screen, pointer, monkeypatch):
    picture = noise((9, 9), 2)
    monkeypatch.setattr(T, "Res", SimpleNamespace(LoadImage=lambda name: picture))
    widget = radio_button(RadioValue=True)
    before = list(vars(widget))
    getters = [f"GetImage_RadioBox{state}_Checked" for state in ("", "_Hover", "_Click")]
    assert [getattr(widget, getter)() for getter in getters] == [None] * 3
    assert list(vars(widget)) == before
    for getter in getters:
        getattr(widget, "S" + getter[1:])("a.png")
        assert getattr(widget, getter)() is picture
    assert_look(widget, screen, "", drawn_radio_box(28, 2, True))


@pytest.mark.parametrize("name", ["CheckValue", "bgColor_checked", "checkboxVisible", "clicked"])
def test_deleted_attributes_are_ordinary_errors(screen, name):
    widget = check_button(CheckValue=True)
    delattr(widget, name)
    pytest.raises(AttributeError, widget.draw, screen)
