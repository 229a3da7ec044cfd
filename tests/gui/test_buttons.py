"""Buttons: the look of each state, hover, the flow of a click, copying."""

import pygame
import pytest
import Tessora as T
from picture_oracle import (
    CAMERA,
    LOOK,
    Place,
    assert_draws,
    draw_background,
    draw_image,
    dress,
    noise,
    outcome,
    scenery,
)

AWAY = (300, 200)
INSIDE = (60, 50)


class Pointer:
    def __init__(self):
        self.place = AWAY

    def __call__(self):
        return self.place


@pytest.fixture
def pointer(monkeypatch):
    pointer = Pointer()
    monkeypatch.setattr(pygame.mouse, "get_pos", pointer)
    return pointer


COLORS = {"normal": (10, 20, 200), "hover": (20, 200, 30), "click": (200, 30, 40)}
NAMES = {
    "normal": ("bgColor", "image", "textColor"),
    "hover": ("bgColor_hover", "image_hover", "textColor_hover"),
    "click": ("bgColor_click", "image_click", "textColor_click"),
}


def button(images=False, cls=T.GUI_Button, **changes):
    widget = dress(cls(None, 40, 30), borderVisible=False, height=60)
    for seed, state in enumerate(NAMES):
        background, image, text = NAMES[state]
        setattr(widget, background, pygame.Color(*COLORS[state]))
        setattr(widget, text, pygame.Color(*COLORS[state]))
        if images:
            setattr(widget, image, noise((20, 10), seed))
    return dress(widget, **changes)


def assert_state(widget, screen, state, camera=CAMERA):
    background, image, _ = (getattr(widget, name) for name in NAMES[state])
    look = {name: getattr(widget, name) for name in LOOK}
    scenery(screen)

    def expected(target):
        place = Place(look, camera)
        if widget.style is None:
            return
        if widget.style != "hollow":
            draw_background(target, place, background)
        if image is not None:
            draw_image(target, place, image, widget.bgColor, widget.blendtype)

    assert_draws(widget, screen, expected, camera)


CASES = [
    ("normal", AWAY, False),
    ("hover", INSIDE, False),
    ("click", INSIDE, True),
    ("click", AWAY, True),
    ("click", AWAY, 1),
    ("normal", AWAY, 2),
    ("hover", INSIDE, "yes"),
    ("hover", INSIDE, None),
]


@pytest.mark.parametrize("images", [False, True])
@pytest.mark.parametrize("style", ["flat", "hollow", None])
@pytest.mark.parametrize(("state", "place", "clicked"), CASES)
def test_states(screen, pointer, state, place, clicked, style, images):
    widget = button(images, clicked=clicked, style=style)
    pointer.place = place
    for changes in ({}, {"angle": 20.0}, {"angle": 0, "bgColor": None}):
        dress(widget, **changes)
        assert_state(widget, screen, state)


@pytest.mark.parametrize("alpha", [255, 128, 0])
@pytest.mark.parametrize("blendtype", [pygame.BLEND_MULT, pygame.BLEND_ADD])
def test_opacity_does_not_fade_a_button(screen, pointer, alpha, blendtype):
    widget = button(True, alpha=alpha, blendtype=blendtype)
    for place, state in ((AWAY, "normal"), (INSIDE, "hover")):
        pointer.place = place
        assert_state(widget, screen, state, (2, 3, 1.0))


def test_no_fall_back_to_the_normal_picture(screen, pointer):
    widget = button(True, image_hover=None, image_click=None)
    pointer.place = INSIDE
    assert_state(widget, screen, "hover")
    widget.clicked = True
    assert_state(widget, screen, "click")


@pytest.mark.parametrize(
    ("place", "hit"),
    [
        ((40, 30), True),
        ((39, 30), False),
        ((139, 89), True),
        ((140, 60), False),
        ((60, 90), False),
        ((139.9, 60), True),
    ],
)
def test_edges_of_the_hover_area(screen, pointer, place, hit):
    pointer.place = place
    widget = button()
    assert_state(widget, screen, "hover" if hit else "normal")


@pytest.mark.parametrize("camera", [(100, 50, 1.0), (0, 0, 0.5), (0, 0, 2.0)])
def test_hover_follows_the_camera(screen, pointer, camera):
    widget = button()
    left, top, width, height = Place(dict(LOOK, x=40, y=30, height=60), camera).rect
    for place, state in (
        ((left + 1, top + 1), "hover"),
        ((left + width - 1, top + height - 1), "hover"),
        ((left - 1, top + 1), "normal"),
        ((left + 1, top + height), "normal"),
    ):
        pointer.place = tuple(int(value) for value in place)
        assert_state(widget, screen, state, camera)


def test_hover_needs_the_exact_node_type(screen, pointer):
    pointer.place = INSIDE
    widget = button(cls=type("Own", (T.GUI_Button,), {}))
    assert_state(widget, screen, "hover")
    for name in ("CheckButton", "button", None, "Own"):
        widget.NodeType = name
        assert_state(widget, screen, "normal")


@pytest.mark.parametrize("sx", [-1.0, 0])
def test_a_button_without_area_has_no_hover(screen, pointer, sx):
    pointer.place = INSIDE
    assert_state(button(sx=sx), screen, "normal")


def test_captions_use_the_color_of_the_state(screen, pointer):
    colors = []

    class Caption(T.GUI_Button):
        def drawText(self, surface, text, color):
            colors.append((text, color))

    widget = button(cls=Caption, text="Go")
    for place, clicked in ((AWAY, False), (INSIDE, False), (INSIDE, True)):
        pointer.place = place
        dress(widget, clicked=clicked).draw(screen, 0, 0, 1.0)
    assert colors == [("Go", COLORS[state] + (255,)) for state in NAMES]
    assert colors[1][1] is widget.textColor_hover


@pytest.mark.parametrize("answer", [None, 5, (1,), ("a", "b"), "xy"], ids=repr)
def test_a_pointer_without_a_place(screen, pointer, answer):
    widget = button()
    pointer.place = answer
    with pytest.raises((TypeError, ValueError)):
        widget.draw(screen, 0, 0, 1.0)
    pointer.place = INSIDE
    assert_state(widget, screen, "hover")


def test_flow_of_a_click(screen, pointer, capsys):
    events = []
    widget = button()
    widget.SetPickDownFunction(lambda node: events.append(("down", node, node.IsClicked())))
    widget.SetPickUpFunction(lambda node: events.append(("up", node, node.IsClicked())))
    widget.draw(screen, 0, 0, 1.0)
    pointer.place = INSIDE
    assert widget.OnPickDownFunction(*AWAY) is None
    assert widget.OnPickDownFunction(*INSIDE) is widget
    assert_state(widget, screen, "click")
    assert widget.OnPickUpFunction(*INSIDE) is widget
    assert_state(widget, screen, "hover")
    assert events == [("down", widget, False), ("up", widget, False)]
    assert capsys.readouterr().out.split() == ["collidepoint"] * 2 + ["OnPickUpFunction2"]


def test_a_press_released_outside(screen, pointer):
    events = []
    widget = button(PickUpFunction=events.append)
    widget.draw(screen, 0, 0, 1.0)
    widget.OnPickDownFunction(*INSIDE)
    pointer.place = AWAY
    assert_state(widget, screen, "click")
    assert widget.OnPickUpFunction(*AWAY) is None
    assert_state(widget, screen, "normal")
    assert (widget.IsClicked(), events) == (False, [])


def test_a_disabled_button_takes_no_press(screen, pointer):
    events = []
    widget = button(PickDownFunction=events.append, PickUpFunction=events.append)
    child = T.GUI_Image(widget, 0, 0)
    widget.draw(screen, 0, 0, 1.0)
    widget.SetEnable(False)
    assert widget.OnPickDownFunction(*INSIDE) is None
    assert (child.clicked, widget.clicked, events) == (False, False, [])
    widget.clicked = True
    widget.OnPickUpFunction(*INSIDE)
    assert (widget.clicked, events) == (False, [])
    widget.SetEnable(True)
    assert widget.OnPickDownFunction(*INSIDE) is child
    assert child.clicked


def test_a_failing_callback_leaves_the_button_unpressed(screen, pointer):
    def fail(node):
        raise LookupError("script")

    widget = button(PickDownFunction=fail, PickUpFunction=fail)
    widget.draw(screen, 0, 0, 1.0)
    for press in (widget.OnPickDownFunction, widget.OnPickUpFunction):
        with pytest.raises(LookupError):
            press(*INSIDE)
    assert_state(widget, screen, "normal")


class Images:
    def __init__(self):
        self.asked = []

    def LoadImage(self, name):
        self.asked.append(name)
        return noise((9, 9), name) if name != "missing" else None


@pytest.mark.parametrize("state", ["Hover", "Click"])
def test_pictures_of_the_states(monkeypatch, screen, state):
    images = Images()
    widget = T.GUI_Button()
    set_image = getattr(widget, "SetImage_" + state)
    with pytest.raises(AttributeError):
        set_image("a.png")
    monkeypatch.setattr(T, "Res", images)
    for name in ("a.png", "missing"):
        set_image(name)
        assert getattr(widget, "GetImageFile_" + state)() == name
        assert (getattr(widget, "GetImage_" + state)() is None) is (name == "missing")
    assert images.asked == ["a.png", "missing"]
    assert widget.GetImage() is None


def test_copying_a_button(screen, monkeypatch):
    images = Images()
    monkeypatch.setattr(T, "Res", images)
    source = button(text="copied")
    source.SetImage_Hover("hover.png")
    source.bgColor_click.a = 9
    images.asked.clear()
    other = T.GUI_Button()
    source.CopyTo(other)
    assert images.asked == ["hover.png"]
    assert other.text == "copied"
    for name in ("textColor_hover", "bgColor_hover", "textColor_click", "bgColor_click"):
        value = getattr(source, name)
        assert getattr(other, name) == pygame.Color(value.r, value.g, value.b, 255)
        assert getattr(other, name) is not value
    assert (other.image_hover_File, other.image_click_File) == ("hover.png", None)
    assert other.image_hover.get_size() == (9, 9)
    assert other.image_click is None


@pytest.mark.parametrize(
    ("node_type", "state", "text"),
    [
        ("Button", True, True),
        ("CheckButton", True, False),
        ("RadioButton", True, False),
        ("Label", False, True),
        ("Own", False, False),
    ],
)
def test_what_is_copied_to_which_kind(screen, node_type, state, text):
    other = dress(T.GUI_Button(), NodeType=node_type)
    button(text="copied", angle=3).CopyTo(other)
    assert (other.bgColor_hover == COLORS["hover"] + (255,)) is state
    assert (other.text == "copied") is text
    assert (other.angle, other.NodeType) == (3, node_type)


@pytest.mark.parametrize("name", ["bgColor", "bgColor_hover", "image"])
@pytest.mark.parametrize("bad", ["no color", (1, 2), 3.5, object()], ids=repr)
def test_looks_that_cannot_be_drawn(screen, pointer, name, bad):
    widget = button()
    pointer.place = INSIDE if name == "bgColor_hover" else AWAY
    good = getattr(widget, name)
    setattr(widget, name, bad)
    assert outcome(widget.draw, screen, 0, 0, 1.0) in (TypeError, ValueError)
    setattr(widget, name, good)
    assert_state(widget, screen, "hover" if name == "bgColor_hover" else "normal")
