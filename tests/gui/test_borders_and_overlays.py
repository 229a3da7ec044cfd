"""Borders in every style, the focus border, collision outlines and the editor's overlays."""

import pygame
import pytest
import Tessora as T
from picture_oracle import CAMERA, LOOK, Place, assert_draws, assert_same, dress, noise, scenery

LIGHT = (218, 218, 218)
DARK = (64, 64, 64)
SOLID = (10, 200, 30)
GROUND = (90, 20, 150)


def plain(screen, **changes):
    """A widget at 40, 30 sized 100 x 60 with nothing inside, on a plain ground."""
    screen.fill(GROUND)
    widget = T.GUI_Image(None, 40, 30)
    widget.DropBGColor()
    widget.SetBorderColor(*SOLID)
    widget.height = 60
    return dress(widget, **changes)


def rgb(screen, x, y):
    return tuple(screen.get_at((x, y)))[:3]


def edge_depths(screen, left, top, width, height):
    """Per side, the colors met when walking inwards from outside the middle of the side."""
    x, y = left + width // 2, top + height // 2
    steps = range(-2, 12)
    return {
        "left": [rgb(screen, left + step, y) for step in steps],
        "top": [rgb(screen, x, top + step) for step in steps],
        "right": [rgb(screen, left + width - 1 - step, y) for step in steps],
        "bottom": [rgb(screen, x, top + height - 1 - step) for step in steps],
    }


STYLES = {
    "raised": (LIGHT, LIGHT, DARK, DARK),
    "sunken": (DARK, DARK, LIGHT, LIGHT),
    "solid": (SOLID, SOLID, SOLID, SOLID),
    "flat": (GROUND,) * 4,
    "hollow": (GROUND,) * 4,
    "unknown": (GROUND,) * 4,
    None: (GROUND,) * 4,
}


@pytest.mark.parametrize("style", list(STYLES))
@pytest.mark.parametrize("width", [0, 1, 2, 5])
@pytest.mark.parametrize("camera", [CAMERA, (10, 5, 1.5), (-3, 2, 0.5)])
def test_border_sides(screen, style, width, camera):
    widget = plain(screen, borderwidth=width)
    widget.SetStyle(style)
    widget.draw(screen, *camera)
    left, top, w, h = [
        int(value) for value in Place(dict(LOOK, x=40, y=30, height=60), camera).rect
    ]
    sides = edge_depths(screen, left, top, w, h)
    for side, color in zip(("left", "top", "right", "bottom"), STYLES[style]):
        assert sides[side] == [GROUND] * 2 + [color] * width + [GROUND] * (12 - width), side


@pytest.mark.parametrize("flag", [True, 1, 1.0, False, 0, None, 2, "yes"])
def test_the_border_flag_is_compared_with_true(screen, flag):
    widget = plain(screen, style="solid", borderVisible=flag)
    widget.draw(screen, 0, 0, 1.0)
    assert rgb(screen, 90, 30) == (SOLID if flag == True else GROUND)  # noqa: E712


def test_the_border_lies_over_the_picture_and_under_the_children(screen):
    widget = plain(screen, image=noise((100, 60), 1, 0, 32), borderwidth=4)
    widget.SetStyle("solid")
    child = dress(T.GUI_Image(widget, 0, 0), width=20, height=20)
    child.SetBGColor(1, 2, 3)
    widget.draw(screen, 0, 0, 1.0)
    assert rgb(screen, 90, 31) == SOLID
    assert rgb(screen, 50, 31) == (1, 2, 3)


def test_border_colors_can_be_changed_in_place(screen):
    widget = plain(screen, borderwidth=3)
    widget.SetStyle("raised")
    for angle in (0, 180.0):
        widget.angle = angle
        for red in (10, 250):
            widget.borderColor_LT = pygame.Color(0, 0, 0)
            widget.borderColor_LT.r = red
            screen.fill(GROUND)
            widget.draw(screen, 0, 0, 1.0)
            assert abs(rgb(screen, 90, 31 if angle == 0 else 88)[0] - red) < 25


@pytest.mark.parametrize(
    ("style", "sides"),
    [
        ("raised", {"bottom": LIGHT, "left": LIGHT, "top": DARK, "right": DARK}),
        ("sunken", {"bottom": DARK, "left": DARK, "top": LIGHT, "right": LIGHT}),
        ("solid", dict.fromkeys(("bottom", "left", "top", "right"), SOLID)),
        ("flat", dict.fromkeys(("bottom", "left", "top", "right"), GROUND)),
    ],
)
def test_a_turned_border(screen, style, sides):
    """A quarter turn to the left: the left side goes to the bottom, the top to the left."""
    widget = plain(screen, width=80, height=80, borderwidth=8, angle=90)
    widget.SetStyle(style)
    widget.draw(screen, 0, 0, 1.0)
    found = edge_depths(screen, 40, 30, 80, 80)
    for side, color in sides.items():
        for channel, wanted in zip(found[side][5], color):
            assert abs(channel - wanted) <= 12, side
    assert rgb(screen, 80, 70) == GROUND
    assert rgb(screen, 35, 25) == GROUND


@pytest.mark.parametrize("style", ["raised", "solid"])
@pytest.mark.parametrize("color", [(0, 0, 0), (1, 1, 1), (255, 255, 255), (255, 0, 255), (0, 0, 1)])
def test_a_turned_border_of_any_color_shows_and_hides_nothing_else(screen, style, color):
    widget = plain(screen, width=80, height=80, borderwidth=8, angle=180)
    widget.SetStyle(style)
    widget.borderColor = widget.borderColor_LT = widget.borderColor_RB = pygame.Color(*color)
    widget.draw(screen, 0, 0, 1.0)
    assert max(abs(a - b) for a, b in zip(rgb(screen, 80, 34), color)) <= 12
    assert rgb(screen, 80, 70) == GROUND


@pytest.mark.parametrize("camera", [CAMERA, (7.5, -3.25, 1.25)])
@pytest.mark.parametrize("focus", [True, 1, False, None, 2])
def test_focus_border(screen, monkeypatch, focus, camera):
    color = pygame.Color(10, 250, 20)
    monkeypatch.setattr(T, "g_pygameControl_BorderColor", color)
    widget = plain(screen)
    scenery(screen)
    widget.SetFocusIn(focus)
    rect = Place(dict(LOOK, x=40, y=30, height=60), camera).rect

    def expected(target):
        if focus in (True, 1):
            pygame.draw.rect(target, color, rect, 2)

    assert_draws(widget, screen, expected, camera)


def test_a_turned_focus_border(screen):
    widget = plain(screen, width=80, height=80, angle=45, focusIn=True)
    widget.draw(screen, 0, 0, 1.0)
    center_x, center_y = 80, 70
    magenta = []
    for distance in range(32, 46):
        for dx, dy in ((1, 1), (1, -1), (-1, 1), (-1, -1)):
            x, y = center_x + dx * distance * 707 // 1000, center_y + dy * distance * 707 // 1000
            color = rgb(screen, x, y)
            if color[0] > 130 and color[2] > 180:
                magenta.append((dx, dy))
    assert set(magenta) == {(1, 1), (1, -1), (-1, 1), (-1, -1)}
    assert rgb(screen, center_x, center_y) == GROUND
    assert rgb(screen, center_x, center_y - 60) == GROUND


@pytest.mark.parametrize("flag", [True, 1, False, 2])
@pytest.mark.parametrize("rect", [pygame.Rect(10, 5, 40, 20), (10, 5, 40, 20), [10, 5, 40, 20]])
def test_collision_outlines(screen, monkeypatch, flag, rect):
    color = (11, 222, 33)
    monkeypatch.setattr(T, "g_pygameControl_CollColor", pygame.Color(*color))
    widget = plain(screen)
    widget.AddCollRect("body", rect)
    widget.AddCollRect("body", (60, 30, 20, 20))
    widget.AddCollRect("empty", rect)
    widget.CleanCollRect("empty")
    widget.SetCollInfoVisible(flag)
    widget.draw(screen, 3, 4, 1.0)
    shown = color if flag == True else GROUND  # noqa: E712
    for x, y in ((30, 5), (10, 15), (49, 15), (30, 24), (70, 30), (60, 40), (79, 40), (70, 49)):
        assert rgb(screen, 43 + x, 34 + y) == shown
    for x, y in ((30, 15), (70, 40), (30, 4), (5, 5), (55, 40)):
        assert rgb(screen, 43 + x, 34 + y) == GROUND


def test_bad_collision_rectangles(screen):
    widget = plain(screen)
    widget.SetCollInfoVisible(True)
    for bad in (None, 5, "abcd", (1, 2), (1, 2, 3, "x")):
        widget.coll_rectArray = {"bad": [bad]}
        with pytest.raises((TypeError, ValueError, IndexError)):
            widget.draw(screen, 0, 0, 1.0)
    widget.coll_rectArray = {}
    reference = screen.copy()
    widget.draw(screen, 0, 0, 1.0)
    assert_same(screen, reference)


def changed_boxes(screen, before, points, reach=4):
    """For each point: whether any pixel near it differs from the ground."""
    return [
        any(
            screen.get_at((x + dx, y + dy)) != before.get_at((x + dx, y + dy))
            for dx in range(-reach, reach + 1)
            for dy in range(-reach, reach + 1)
        )
        for x, y in points
    ]


HANDLES = [(x, y) for y in (30, 60, 89) for x in (40, 90, 139)]


@pytest.mark.parametrize("flag", [True, 1, False, 2])
def test_edit_rectangle(screen, flag):
    widget = plain(screen)
    before = screen.copy()
    widget.SetEditRectVisible(flag)
    widget.draw(screen, 0, 0, 1.0)
    shown = flag == True  # noqa: E712
    assert changed_boxes(screen, before, HANDLES) == [shown] * 9
    assert rgb(screen, 65, 45) == GROUND
    assert rgb(screen, 20, 20) == GROUND


def test_the_dragged_handle_looks_different(screen):
    pictures = []
    for index in (-2, 0, 8):
        widget = plain(screen, editrectvisible=True, dragcornerindex=index)
        widget.draw(screen, 0, 0, 1.0)
        pictures.append(screen.copy())
    near = {
        index: changed_boxes(pictures[row], pictures[0], [HANDLES[index]])[0]
        for row, index in ((1, 0), (2, 8))
    }
    assert near in ({0: True, 8: True}, {0: False, 8: False})


@pytest.mark.parametrize("flag", [True, 1, False, 2])
@pytest.mark.parametrize("keyword", ["wn", "center", "es"])
def test_anchor_marker(screen, flag, keyword):
    widget = plain(screen)
    before = screen.copy()
    widget.SetImageAnchor(keyword)
    widget.SetXY(150, 100)
    widget.SetAnchorVisible(flag)
    widget.draw(screen, 0, 0, 1.0)
    shown = flag == True  # noqa: E712
    assert changed_boxes(screen, before, [(150, 100)]) == [shown]


def test_the_size_rectangle_is_not_drawn_by_widgets(screen):
    widget = plain(screen)
    before = screen.copy()
    widget.SetSizeRectVisible(True)
    widget.draw(screen, 0, 0, 1.0)
    assert_same(screen, before)


@pytest.mark.parametrize(
    "changes",
    [
        {"borderwidth": "wide"},
        {"borderwidth": None},
        {"borderColor": None},
        {"borderColor": "no color"},
        {"borderColor": (1, 2)},
    ],
    ids=str,
)
def test_borders_that_cannot_be_drawn(screen, changes):
    widget = plain(screen)
    widget.SetStyle("solid")
    good = {name: getattr(widget, name) for name in changes}
    for angle in (0, 30):
        widget.angle = angle
        dress(widget, **changes)
        with pytest.raises((TypeError, ValueError)):
            widget.draw(screen, 0, 0, 1.0)
        dress(widget, **good).draw(screen, 0, 0, 1.0)
    screen.fill(GROUND)
    widget.angle = 0
    widget.draw(screen, 0, 0, 1.0)
    assert rgb(screen, 90, 30) == SOLID
