"""Edits: keys, focus, the cursor, and the window onto a longer text."""

from types import SimpleNamespace

import picture_oracle as oracle
import pygame
import pytest
import Tessora as T
from picture_oracle import LOOK, Place, assert_draws, draw_widget, dress, ground, noise, outcome

pytestmark = pytest.mark.usefixtures("screen")
MAGENTA, GREY = pygame.Color(255, 0, 255), pygame.Color(96, 96, 96)


# At 40, 30, sized 100 x 30; every character is 6 pixels wide.
def edit(text="", font=None, **changes):
    widget = T.GUI_Edit(None, 40, 30, text)
    widget.SetFont(font or oracle.BlockFont(), "blocks")
    return dress(widget, **dict({"height": 30, "focusIn": True}, **changes))


def type_keys(widget, *keys):
    for key in keys:
        widget.OnKeyDownFunction(key)
    return widget.text, widget.cursorPos


@pytest.fixture
def clock(monkeypatch):
    clock = SimpleNamespace(now=100.0)
    monkeypatch.setattr("time.time", lambda: clock.now)
    return clock


SIDES, MODIFIERS = ("left", "right"), ("alt", "shift", "ctrl")
# Text, cursor, keys; text and cursor afterwards.
KEYS = [("", 0, ("a", "b"), ("ab", 2)), ("ad", 1, ("b", "c"), ("abcd", 3))]
KEYS += [("ab", 1, ("right", "right", "x"), ("abx", 3)), ("ab", -5, ("x",), ("xab", 1))]
KEYS += [("ab", 1, ("left", "left", "x"), ("xab", 1)), ("ab", 99, ("x",), ("abx", 3))]
KEYS += [("abc", 2, ("backspace",), ("ac", 1)), ("abc", 0, ("backspace",), ("abc", 0))]
KEYS += [("", 0, ("space", "tab", "x"), ("     x", 6)), ("ab", 1, ("f1",), ("af1b", 3))]
KEYS += [("ab", 1.5, ("x",), ("axb", 2)), ("é你", 1, ("ш",), ("éш你", 2))]
KEYS += [("a", 1, ("return", "up", "down"), ("aupdown", 7))]
KEYS += [("ab", 1, (f"{side} {key}",), ("ab", 1)) for side in SIDES for key in MODIFIERS]
KEYS += [("ab", 1, ("caps lock",), ("ab", 1))]


@pytest.mark.parametrize(("text", "cursor", "keys", "after"), KEYS)
def test_keys(text, cursor, keys, after):
    assert type_keys(edit(text, cursorPos=cursor), *keys) == after


def test_the_limit_counts_before_a_key_is_inserted():
    widget = edit()
    assert type_keys(widget, *"x" * 49, "escape")[0] == "x" * 49 + "escape"
    assert type_keys(widget, "y", "space", "tab")[1] == 55
    widget.SetMaxCharCount(56)
    assert type_keys(widget, "y", "y")[0].count("y") == 1
    assert type_keys(edit(), *"x" * 51)[1] == 50


def test_return_calls_back_with_the_edit():
    widget, seen = edit("a"), []
    assert type_keys(widget, "return") == ("a", 0)
    widget.SetReturnCallBackFunc(seen.append)
    type_keys(widget, "return")
    assert seen == [widget]


@pytest.mark.parametrize("name", ["visible", "enable", "focusIn"])
def test_other_keys_go_to_the_bindings(name):
    widget, seen = edit("a"), []
    widget.SetKeyDownFunction("b", lambda: seen.append("b"))
    type_keys(widget, "b")
    setattr(widget, name, False)
    assert type_keys(widget, "b", "c") == ("ba", 1) and seen == ["b"]


@pytest.mark.parametrize("key", [5, None, b"a", ("a",)], ids=str)
def test_keys_without_a_name_are_refused(key):
    widget = edit("ab", cursorPos=1)
    pytest.raises(TypeError, widget.OnKeyDownFunction, key)
    assert (widget.text, widget.cursorPos) == ("ab", 1)


def test_setting_the_text_shows_its_begin():
    widget = edit("a long text that goes on and on", cursorPos=30)
    widget.SetText("a long text that goes on")
    assert (widget.cursorPos, widget.text_begin_index, widget.text_end_index) == (24, 0, 24)
    pytest.raises(TypeError, widget.SetText, None)
    assert widget.GetText() == "a long text that goes on"


def test_presses_give_and_take_the_focus(screen):
    widget = edit(focusIn=False)
    child = T.GUI_Image(widget, 50, 0)
    child.SetWidth(20)
    widget.draw(screen)
    for x, taker in ((45, widget), (300, None), (45, widget), (95, child)):
        assert widget.OnPickDownFunction(x, 45) is taker
        assert widget.focusIn is (taker is widget)
    dress(widget, focusIn=True, enable=False)
    assert widget.OnPickDownFunction(45, 45) is None and widget.focusIn is False
    seen = []
    dress(widget, enable=True, SetFocusIn=seen.append).OnPickDownFunction(45, 45)
    assert seen == [True]


# A press between the characters of "abcdef" sets the cursor where it is nearest.
PRESSES = [(0, 0), (2, 0), (4, 1), (8, 1), (10, 2), (32, 5), (38, 6), (90, 6)]


@pytest.mark.parametrize(("x", "cursor"), PRESSES)
@pytest.mark.parametrize("changes", [{}, {"sx": 2.0, "sy": 2.0}, {"HAlign": "right"}], ids=str)
@pytest.mark.parametrize("angle", [0.0, 180.0])
def test_presses_set_the_cursor(screen, x, cursor, changes, angle):
    widget = edit("abcdef", textleftgap=4, angle=angle, **changes)
    widget.draw(screen)
    across = (4 if widget.HAlign == "left" else 100 - 36) + x + 0.1
    inside, across = across < 100, across if angle == 0 else 100 - across
    taker = widget.OnPickDownFunction(40 + across * widget.sx, 40)
    assert (taker, widget.cursorPos) == ((widget, cursor) if inside else (None, 0))


def shown_part(widget, screen):
    shown = []
    widget.drawText = lambda surface, text, color: shown.append(text)
    widget.draw(screen)
    return shown[-1]


def test_the_window_follows_the_cursor(screen):
    # 16 characters fit.
    widget, text = edit("abcdefghijklmnopqrstuvwxyz"), "abcdefghijklmnopqrstuvwxyz"
    assert shown_part(widget, screen) == text[:16]
    for cursor, begin in ((10, 0), (16, 0), (17, 1), (26, 10), (20, 10), (9, 9), (0, 0), (26, 10)):
        widget.SetCursorPosition(cursor)
        assert shown_part(widget, screen) == text[begin : begin + 16]
        assert (widget.text_begin_index, widget.text_end_index) == (begin, begin + 16)
    type_keys(widget, "backspace", "backspace")
    assert shown_part(widget, screen) == text[8:24]
    widget.SetShowChar("#")
    assert shown_part(widget, screen) == text[8:24]


@pytest.mark.parametrize("width", [0, -50, -3, 1, 3, 10, 61, 64.5, 1e9, float("nan"), float("inf")])
def test_any_width(screen, width):
    for cursor in (0, 3, 8):
        widget = edit("abcdefgh", cursorPos=cursor, bgColor=None, bgColor_focusIn=None)
        widget.SetWidth(width)
        begin, end = widget.text_begin_index, widget.text_end_index
        assert 0 <= begin <= cursor <= end <= 8
        assert end - begin <= max(0, width - 4) / 6 or end == begin
        if width > 52:
            assert (begin, end) == (0, 8)
        if width < 1e9:
            widget.draw(screen)


def test_what_shows_is_found_anew_for_another_text_font_or_gap(screen):
    widget = edit("abcdefghijklmnopqrstuvwxyz", font=pygame.font.Font(None, 30))
    parts = [shown_part(widget, screen)]
    changes = [{"font": pygame.font.Font(None, 20)}, {"textleftgap": 30}, {"showChar": "W"}]
    for change in (*changes, {"text": "i" * 41}, {"width": 50}):
        parts.append(shown_part(dress(widget, **change), screen))
        assert parts[-1] != parts[-2]


def test_the_cursor_blinks_by_the_clock(screen, clock):
    widget, seen = edit(), []
    for clock.now in (100.0, 100.4, 100.5, 100.9, 101.0, 90.0, 90.4):
        widget.draw(screen)
        seen.append(widget.cursorvisible)
    assert seen == [True, True, False, False, True, False, False]
    assert widget.cursorlasttime == 90.0
    dress(widget, focusIn=False).draw(screen)
    assert widget.cursorlasttime == 90.0


# The border of the focus on a sheet, before it is turned.
def draw_focus(sheet):
    for start, end in (((0, 0), (100, 0)), ((0, 0), (0, 30)), ((98, 0), (98, 30))):
        pygame.draw.line(sheet, MAGENTA, start, end, 2)
    pygame.draw.line(sheet, MAGENTA, (0, 28), (100, 28), 2)


# What an edit with a picture or a background looks like, its text left out.
def assert_edit(widget, screen, color, image, cursor, camera=(0, 0, 1.0)):
    look = dict({name: getattr(widget, name) for name in LOOK}, bgColor=color, image=image)

    def expected(target):
        place = Place(look, camera)
        draw_widget(target, camera, **dict(look, bgColor=GREY if image else color))
        if cursor is not None and place.WAngle == 0:
            pygame.draw.rect(target, MAGENTA, place.rect, 2)
            left, top = place.WX + cursor * place.WSX, place.WY + 10 * place.WSY
            pygame.draw.rect(target, widget.cursorColor, (left, top, 2, 10 * place.WSY), 0)
        elif cursor is not None:
            oracle.draw_turned(target, place, draw_focus)
            bar = pygame.Rect(cursor, 10, 2, 10)
            oracle.draw_turned(target, place, lambda sheet: sheet.fill(widget.cursorColor, bar))

    for _ in range(3):
        screen.blit(ground(screen.get_size()), (0, 0))
        widget.cursorlasttime = 1e12
        assert_draws(widget, screen, expected, camera)


PICTURE = noise((8, 8), 2)
PLACES = [{}, {"angle": 25.0}, {"sx": 1.5, "sy": 0.75}, {"angle": -70.0, "sx": 1.3, "sy": 1.3}]


@pytest.mark.parametrize("changes", PLACES, ids=str)
@pytest.mark.parametrize("camera", [(0, 0, 1.0), (-3, 4, 1.25)])
def test_looks_are_drawn_as_plain_calls_would(screen, clock, monkeypatch, changes, camera):
    clock.now = 1e12
    widget = edit("abcdef", textVisible=False, borderVisible=False, cursorvisible=True, **changes)
    widget.SetBGColor_Focus(10, 200, 30)
    widget.SetCursorColor(250, 250, 0)
    focused = pygame.Color(10, 200, 30)
    for cursor, left in ((0, 2), (4, 26), (99, 38)):
        assert_edit(dress(widget, cursorPos=cursor), screen, focused, None, left, camera)
    dress(widget, cursorvisible=True, image=noise((9, 9), 1))
    assert_edit(widget, screen, focused, widget.image, 38, camera)
    monkeypatch.setattr(T, "Res", SimpleNamespace(LoadImage=lambda name: PICTURE))
    widget.SetImage_FocusIn("focus.png")
    assert (widget.GetImage_focusIn(), widget.GetImageFile_focusIn()) == (PICTURE, "focus.png")
    assert_edit(widget, screen, focused, PICTURE, 38)
    assert_edit(dress(widget, focusIn=False), screen, GREY, widget.image, None, camera)
    assert_edit(dress(widget, image=None), screen, GREY, None, None, camera)


NAMES = "text cursorPos font width text_begin_index cursorlasttime max_char_count textleftgap"
NAMES += " showChar cursorshowtime"


@pytest.mark.parametrize("name", NAMES.split())
def test_wrong_and_deleted_attributes_are_ordinary_errors(screen, name):
    widget = edit("abc")
    for act in (lambda: setattr(widget, name, object()), lambda: delattr(widget, name)):
        act()
        ends = {outcome(widget.draw, screen), outcome(widget.SetWidth, 5)}
        ends.add(outcome(widget.OnKeyDownFunction, "a"))
        assert ends <= {None, TypeError, AttributeError, ValueError}
        assert ends != {None} or name == "showChar"


def test_a_property_in_place_of_the_text_is_read(screen):
    class Upper(T.GUI_Edit):
        text = property(lambda self: "UPPER", lambda self, value: None)

    widget = Upper(None, 0, 0, "x")
    assert shown_part(widget, screen) == "UPPER"
    type_keys(dress(widget, focusIn=True), "a", "backspace")
    assert widget.text == "UPPER"
