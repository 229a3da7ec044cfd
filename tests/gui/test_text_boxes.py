"""Text boxes: breaking lines, the cursor between them, and the window of whole lines."""

import random

import pygame
import pytest
import Tessora as T
from helpers import ink
from picture_oracle import LOOK, BlockFont, Place, assert_draws, dress, ground, outcome

pytestmark = pytest.mark.usefixtures("screen")


# Room for `columns` characters of 6 x 10 pixels and, at 100, for 8 lines.
def box(text="", columns=10, font=None, **changes):
    widget = T.GUI_Text(None, 40, 30)
    widget.SetFont(font or BlockFont(), "blocks")
    widget.SetMaxCharCount(10**6)
    widget.SetLineHeight(10)
    widget.SetWidth(columns * 6 + 4)
    widget.SetText(text)
    return dress(widget, **dict({"focusIn": True}, **changes))


def type_keys(widget, *keys):
    for key in keys:
        widget.OnKeyDownFunction(key)
    return widget.text, widget.cursorPos, widget.cursorRow


BREAKS = [("", []), ("one", ["one"]), ("one\n", ["one\n", ""]), ("\n", ["\n", ""])]
BREAKS += [("one two three", ["one two ", "three"]), ("one\ntwo three", ["one\n", "two three"])]
BREAKS += [("abcdefghijklmno", ["abcdefghij", "klmno"]), ("abcdefghij\nk", ["abcdefghij\n", "k"])]
BREAKS += [("abcdefghij     k", ["abcdefghij     ", "k"])]
BREAKS += [("a abcdefghijklm", ["a ", "abcdefghij", "klm"])]
BREAKS += [("abcdefghij  \n\nk", ["abcdefghij  \n", "\n", "k"])]
BREAKS += [("你好 é\u00a0ü abcdef", ["你好 é\u00a0ü ", "abcdef"])]


@pytest.mark.parametrize(("text", "lines"), BREAKS, ids=repr)
def test_breaking_lines(text, lines):
    widget = box(text)
    assert (widget.lineArray, widget.lineCount) == (lines, len(lines))
    assert widget.GetText() == text


@pytest.mark.parametrize("width", [0, -5, 3, 10, float("nan"), float("inf"), 1e9])
def test_any_width(screen, width):
    widget = box("one two\nthree")
    widget.SetWidth(width)
    assert "".join(widget.lineArray) == widget.text
    assert len(widget.lineArray) == (2 if width > 100 else 11)


PIECES = ["word ", "a ", "  ", "longerwordhere ", "\n", "x", "yy", "\n\n", "unbroken" * 5]


def random_text(rng, count):
    return "".join(rng.choice(PIECES) for _ in range(count))


# Whatever happens, the lines are those that a new box breaks the text into.
@pytest.mark.parametrize("seed", range(12))
def test_lines_after_changes_are_those_of_the_whole_text(screen, seed, capsys):
    rng = random.Random(seed)
    widget = box(random_text(rng, 40), font=pygame.font.Font(None, 16))

    def replace_part():
        start, end = sorted(rng.randrange(len(widget.text) + 1) for _ in range(2))
        widget.SetText(widget.text[:start] + random_text(rng, 3) + widget.text[end:])

    keys = [*"abcabc", "space", "return", "tab", *["backspace"] * 4]
    keys += ["left", "right", "up", "down"] * 2
    acts = [lambda: widget.OnKeyDownFunction(rng.choice(keys))] * 19
    acts += [lambda: widget.SetCursorPosition(rng.randrange(len(widget.text) + 2))]
    acts += [lambda: widget.SetWidth(rng.choice([5, 20, 60, 150])), replace_part]
    acts += [lambda: widget.SetFont(pygame.font.Font(None, rng.choice([12, 20])), "other")]
    acts += [lambda: widget.font.set_underline(True), lambda: widget.SetShowChar(rng.choice("i*W"))]
    acts += [lambda: widget.OnPickDownFunction(rng.randrange(40, 90), rng.randrange(30, 90))]
    for _ in range(80):
        rng.choice(acts)()
        widget.SetFocusIn(True)
        widget.draw(screen)
        look = {name: getattr(widget, name) for name in ("font", "showChar", "width")}
        fresh = dress(T.GUI_Text(None, 0, 0), **look)
        fresh.SetText(widget.text)
        assert widget.lineArray == fresh.lineArray and widget.lineCount == len(fresh.lineArray)
        assert "".join(widget.lineArray) == widget.text
        start = sum(map(len, widget.lineArray[: widget.cursorRow]))
        assert start <= min(widget.cursorPos, len(widget.text)) or not widget.text
        if widget.cursorRow + 1 < widget.lineCount:
            assert widget.cursorPos < start + len(widget.lineArray[widget.cursorRow])
        assert 0 <= widget.lineIndex <= max(0, widget.lineCount - 1)


def test_lines_away_from_a_change_are_not_made_again():
    widget = box("some words in a line\n" * 400, columns=9, font=pygame.font.Font(None, 16))
    before, lines = list(widget.lineArray), widget.lineArray
    widget.SetCursorPosition(200 * 21 + 3)
    type_keys(widget, "x", "return")
    assert widget.lineArray is lines
    kept = set(map(id, before)) & set(map(id, lines))
    assert len(kept) >= len(before) - 4 and widget.text.count("\n") == 401
    # Appending, too.
    before = list(lines)
    widget.SetText(widget.text + "more")
    assert len(set(map(id, before)) - set(map(id, lines))) <= 2


def test_up_and_down_keep_the_column():
    widget = box("abcdef\nab\n\nabcdef", cursorPos=5)
    places = [type_keys(widget, key)[1:] for key in ["down"] * 4 + ["up"] * 4]
    assert places == [(9, 1), (10, 2), (16, 3), (16, 3), (10, 2), (9, 1), (5, 0), (5, 0)]
    assert type_keys(widget, "down", "left", "up") == (widget.text, 1, 0)
    # A line that was broken by width has no place behind its last character.
    for text, place in (("abcdefghijkl", (13, 2)), ("abcdefghij", (20, 1))):
        widget = box(text + "\nabcdefghijkl", cursorPos=10)
        assert type_keys(widget, "down")[1:] == place


def test_an_empty_text_has_no_line(screen):
    widget = box("")
    assert type_keys(widget, "up", "down", "left", "backspace", "right") == ("", 0, 0)
    assert (widget.lineArray, widget.lineCount) == ([], 0)
    widget.draw(screen)
    widget.OnPickDownFunction(50, 50)
    assert type_keys(widget, "a", "return", "b") == ("a\nb", 3, 1)


def test_typing_over_line_ends():
    widget = box("one two three", cursorPos=7)
    assert type_keys(widget, "return") == ("one two\n three", 8, 1)
    assert type_keys(widget, "backspace", "x") == ("one twox three", 8, 0)
    widget.SetCursorPosition(14)
    assert type_keys(widget, "return", "backspace", "backspace") == ("one twox thre", 13, 1)


def test_return_breaks_the_line_before_it_calls_back():
    widget, seen = box("ab", cursorPos=1), []
    widget.SetReturnCallBackFunc(lambda node: seen.append((node, node.text, node.cursorRow)))
    type_keys(widget, "return")
    assert seen == [(widget, "a\nb", 1)]
    # At the limit, too.
    widget.SetMaxCharCount(3)
    assert type_keys(widget, "return", "x")[0] == "a\nb" and len(seen) == 2


def test_the_window_follows_the_cursor():
    widget = box("a\n" * 20)
    widget.SetHeight(2 + 3 * 12)
    assert (widget.showlineCount, widget.lineIndex) == (3, 0)
    indexes = [(type_keys(widget, "down")[2], widget.lineIndex) for _ in range(5)]
    assert indexes == [(1, 0), (2, 0), (3, 1), (4, 2), (5, 3)]
    indexes = [(type_keys(widget, "up")[2], widget.lineIndex) for _ in range(4)]
    assert indexes == [(4, 3), (3, 3), (2, 2), (1, 1)]
    widget.SetCursorPosition(40)
    type_keys(widget, "left")
    assert (widget.cursorRow, widget.lineIndex) == (19, 17)


# Height less the gap of 2 over lines of 12, cut towards zero.
HEIGHTS = [(100, 8), (14, 1), (13, 0), (2, 0), (-9, 0), (-23, -2), (13.9, 0), (26.5, 2)]


@pytest.mark.parametrize(("height", "count"), HEIGHTS)
def test_how_many_lines_fit(screen, height, count):
    for text, lines in (("a\n" * 20, 21), ("a", 1)):
        widget = box(text, lineIndex=19)
        widget.SetHeight(height)
        assert (widget.height, widget.showlineCount) == (height, count)
        assert widget.lineIndex == max(0, min(19, lines - count))
        if height > 0:
            widget.draw(screen)


def test_gaps_and_heights_of_lines():
    widget = box("a\n" * 20)
    widget.SetLineGap(15)
    assert (widget.GetLineGap(), widget.showlineCount) == (15, 3)
    widget.SetLineHeight(83)
    assert (widget.GetLineHeight(), widget.showlineCount) == (83, 1)
    pytest.raises(ZeroDivisionError, widget.SetLineHeight, -15)


def test_lines_are_as_high_as_the_font_until_said_otherwise(screen):
    widget = T.GUI_Text(None, 0, 0, "text")
    for size in (20, 40):
        font = pygame.font.Font(None, size)
        widget.SetFont(font, "font")
        widget.draw(screen)
        assert widget.GetLineHeight() == font.size("")[1]
        assert widget.showlineCount == int(98 / (font.size("")[1] + 2))
    widget.SetLineHeight(33)
    widget.SetFont(pygame.font.Font(None, 20), "font")
    widget.draw(screen)
    assert widget.GetLineHeight() == 33


@pytest.mark.parametrize(("x", "y", "cursor"), [(7, 3, 1), (60, 3, 3), (1, 17, 4), (9, 90, 9)])
def test_presses_set_the_cursor(screen, x, y, cursor):
    widget = box("one\ntwo\nsix", columns=15)
    widget.draw(screen)
    assert widget.OnPickDownFunction(40 + x, 30 + y) is widget
    assert (widget.focusIn, widget.cursorPos) == (True, cursor)
    assert widget.cursorRow == widget.text.count("\n", 0, cursor)
    assert widget.OnPickDownFunction(300, 200) is None and widget.focusIn is False


@pytest.mark.parametrize("camera", [(0, 0, 1.0), (5, -4, 1.5)])
@pytest.mark.parametrize(("align", "left"), [("left", 2), ("center", 17), ("right", 34)])
def test_only_whole_lines_of_the_window_are_drawn(screen, align, left, camera):
    widget = box("abc\n\nabcd\nabcde\nabcdef", HAlign=align, bgColor=None, borderVisible=False)
    widget.SetHeight(40)
    dress(widget, lineIndex=1, focusIn=False, textColor=pygame.Color(255, 0, 0))
    widget.font.rendered.clear()
    screen.fill((255, 255, 255))
    widget.draw(screen, *camera)
    assert [text for text, color in widget.font.rendered] == ["abcd", "abcde"]
    place, drawn = Place(dict(LOOK, x=40, y=30), camera), ink(screen, (255, 255, 255))
    top = place.WY + (2 + 12) * place.WSY
    assert drawn.topleft == (int(place.WX + left * place.WSX), int(top))
    assert drawn.width == int(30 * place.WSX)
    assert abs(drawn.height - 22 * place.WSY) <= 1


@pytest.mark.parametrize("angle", [30.0, -100.0])
def test_rotated_lines_are_drawn_as_plain_calls_would(screen, angle):
    widget = box("abc\nde", angle=angle, bgColor=None, borderVisible=False, focusIn=False)
    place = Place(dict(LOOK, x=40, y=30, width=64, angle=angle))
    sheet = pygame.Surface((64, 100)).convert_alpha()
    sheet.fill((0, 0, 0, 0))
    for top, text in ((2, "abc"), (14, "de")):
        sheet.blit(BlockFont().render(text, True, widget.textColor), (2, top))
    picture = pygame.transform.rotozoom(sheet, angle, 1)
    corner = [int(side) for side in place.corner(picture)]
    for _ in range(3):
        screen.blit(ground(screen.get_size()), (0, 0))
        assert_draws(widget, screen, lambda target: target.blit(picture, corner))


def test_a_scripts_own_lines_become_the_text():
    widget = box("one\ntwo", cursorPos=7)
    widget.lineArray.append("\nsix")
    assert type_keys(widget, "x") == ("one\ntwox\nsix", 8, 1)
    widget.lineArray = ["new", "er"]
    assert type_keys(widget, "x")[0] == "newerx"
    widget.lineArray.clear()
    assert type_keys(widget, "x") == ("x", 1, 0)


def test_fonts_of_scripts_and_of_pygame_take_turns(screen):
    plain, widget, counts = pygame.font.Font(None, 60), box("one two"), []
    for font in (plain, BlockFont(), plain):
        widget.SetFont(font, "font")
        widget.draw(screen)
        counts.append(widget.lineCount)
    assert counts[1] == 1 and counts[0] == counts[2] > 1


def test_a_property_leaves_a_new_text_alone(screen):
    own = {"userData": property(lambda self: 5, lambda self, value: None)}
    widget = type("Own", (T.GUI_Text,), own)(None, 0, 0, "old\ntext")
    widget.draw(screen)
    dress(widget, text="new", focusIn=True)
    assert type_keys(widget, "x") == ("xnew", 1, 0)


def test_scripts_may_break_lines_themselves(screen):
    own = {"CalculationLineCount": lambda self: setattr(self, "lineArray", self.text.split())}
    widget = type("Words", (T.GUI_Text,), own)(None, 0, 0, "one two six")
    widget.draw(screen)
    assert widget.lineArray == ["one", "two", "six"]


NAMES = "text lineArray lineCount lineIndex showlineCount cursorRow lineHeight linegap cursorPos"
NAMES += " font width texttopgap"


@pytest.mark.parametrize("name", NAMES.split())
def test_wrong_and_deleted_attributes_are_ordinary_errors(screen, name):
    ends = set()
    for act in (lambda w: setattr(w, name, object()), lambda w: delattr(w, name)):
        widget = box("one two three four\nfive")
        widget.draw(screen)
        act(widget)
        calls = [("draw", screen), ("OnKeyDownFunction", "a"), ("OnKeyDownFunction", "up")]
        calls += [("OnPickDownFunction", 50, 50), ("SetHeight", 50), ("CalculationLineCount",)]
        ends.update(outcome(getattr(widget, call), *values) for call, *values in calls)
    assert ends <= {None, TypeError, AttributeError, ValueError}
    assert ends != {None} or name in ("cursorRow", "showlineCount", "lineCount", "lineArray")


@pytest.mark.parametrize("lines", [[5, None], ["a", 5], [object()] * 3, ("a", "b"), "ab"], ids=repr)
def test_lines_that_are_none(screen, lines):
    widget = box("a\nb\nc")
    widget.lineArray[:] = lines
    ends = {outcome(widget.draw, screen), outcome(widget.OnKeyDownFunction, "x")}
    ends.add(outcome(widget.CalculationLineCount))
    widget.SetText("fine")
    assert ends <= {None, TypeError} and widget.lineArray == ["fine"]
