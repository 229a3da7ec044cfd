"""The list box: lines, selection, scrolling; and the combo box, which opens one."""

import picture_oracle as oracle
import pygame
import pytest
import Tessora as T
from picture_oracle import LOOKS, assert_painted, assert_parts, dress, outcome, part_place

WHITE, GREY, SELECTED = (255,) * 4, (168, 168, 168, 255), (64, 64, 64, 255)


pytestmark = pytest.mark.usefixtures("pointer")


def list_box(lines, make=T.GUI_ListBox):
    widget = make(None, 40, 30)
    for index in range(lines):
        widget.AddTextLine(f"line {index}")
    return widget


def click(widget, screen, x, y):
    widget.draw(screen)
    widget.OnPickDownFunction(x, y)
    widget.OnPickUpFunction(x, y)
    widget.draw(screen)


def checked(widget):
    return [index for index, line in enumerate(widget.lineArray) if line.IsChecked() is True]


def shown(widget):
    return [index for index, line in enumerate(widget.lineArray) if line.IsVisible()]


def test_lines_stand_below_each_other(screen):
    widget = list_box(3)
    assert [line.GetXY() for line in widget.lineArray] == [(0, 0), (0, 22), (0, 44)]
    line = widget.GetLineControl(1)
    assert (line.parent, line.GetText(), widget.lineCount) == (widget, "line 1", 3)
    assert line.IsCheckBoxVisible() is False and line.GetFont() is widget.GetFont()
    assert line.GetTextColor_Checked() == line.GetBGColor() == widget.GetItemBGColor() == WHITE
    assert line.GetBGColor_Checked() == line.GetBGColor_Click_Checked() == SELECTED
    pytest.raises(IndexError, widget.GetLineControl, 3)


def test_a_click_selects_one_line(screen):
    widget, told = list_box(4), []
    widget.SetPickUpFunction(told.append)
    assert (widget.GetSelectedIndex(), widget.GetSelectedText()) == (-1, "")
    for index in (2, 0, 0, 3):
        click(widget, screen, 60, 40 + 22 * index)
        assert (widget.GetSelectedIndex(), checked(widget)) == (index, [index])
        assert widget.GetSelectedText() == f"line {index}"
    assert told == [widget] * 4
    # A release over another line leaves none pressed.
    widget.OnPickDownFunction(60, 40)
    widget.OnPickUpFunction(60, 84)
    assert [line.clicked for line in widget.lineArray] == [False] * 4
    assert checked(widget) == [2]


@pytest.mark.parametrize("index", [2, 0, 2.0, True, -1, 9, None, "text"])
def test_selecting_by_index(screen, index):
    widget = list_box(3)
    for chosen in (1, index):
        widget.SetSelectedIndex(chosen)
    places = [place for place in range(3) if place == index]
    assert (checked(widget), widget.selectedIndex) == (places, index)


def test_keys_move_the_selection_into_view(screen):
    widget, keys = list_box(9), []
    widget.SetKeyDownFunction("down", lambda: keys.append("down"))
    widget.OnKeyDownFunction("up")
    assert widget.GetSelectedIndex() == -1
    steps = [("down", min(index, 8)) for index in range(10)]
    steps += [("up", max(index, 0)) for index in range(7, -3, -1)]
    for key, index in steps:
        widget.OnKeyDownFunction(key)
        widget.draw(screen)
        assert widget.GetSelectedIndex() == index
        assert index in shown(widget) and len(shown(widget)) == 4
    assert len(keys) == 10 and widget.lineIndex == 0
    for changes in ({"enable": False}, {"enable": True, "visible": False}):
        dress(widget, **changes).OnKeyDownFunction("down")
    assert widget.GetSelectedIndex() == 0


def test_list_and_scroll_bar_move_each_other(screen, pointer):
    widget, told = list_box(20), []
    widget.SetPickUpFunction(told.append)
    bar = widget.VScrollBar
    widget.draw(screen)
    assert bar.IsVisible() and bar.GetRange() == (0, 16)
    for value, first in ((3, 3), (16, 16), (99, 16), (-4, 0)):
        bar.SetValue(value)
        widget.draw(screen)
        assert (widget.lineIndex, bar.GetValue()) == (first, first)
        assert shown(widget) == list(range(first, first + 4))
        assert widget.lineArray[first].GetY() == 0
    dress(widget, lineIndex=7).draw(screen)
    assert bar.GetValue() == 7
    # The end button, then a drag of the thumb that ends over the lines.
    click(widget, screen, 150, 125)
    assert widget.lineIndex == 8
    widget.OnPickDownFunction(150, 30 + 55)
    assert bar.MidButtonPicked
    pointer.place = (150, 500)
    widget.draw(screen)
    widget.OnPickUpFunction(60, 40)
    widget.draw(screen)
    assert (widget.lineIndex, bar.MidButtonPicked, checked(widget), told) == (16, False, [], [])


def test_the_scroll_bar_shows_when_it_is_wanted_and_needed(screen):
    widget = list_box(4)
    for lines, flag, visible in ((0, True, False), (1, True, True), (0, False, False)):
        for _ in range(lines):
            widget.AddLine()
        widget.SetVScrollBarVisible(flag)
        widget.draw(screen)
        assert widget.VScrollBar.IsVisible() is visible
        assert widget.lineArray[0].GetWidth() == (100 if visible else 120)
    widget.SetHeight(200)
    assert widget.showlineCount == 9
    widget.SetLineHeight(48)
    widget.SetLineGap(1)
    assert (widget.showlineCount, widget.lineArray[2].GetHeight()) == (4, 48)
    pytest.raises(ZeroDivisionError, dress(widget, linegap=-48).SetLineHeight, 48)


def test_hidden_and_overhanging_lines_take_no_press(screen):
    widget = list_box(6)
    wide = widget.lineArray[0]
    dress(wide, autosize=True).SetWidth(300)
    widget.draw(screen)
    for x, y in ((60, 30 + 95), (60, 30 + 110), (200, 40), (39, 40), (60, 29)):
        assert widget.OnPickDownFunction(x, y) in (None, widget)
    assert widget.OnPickDownFunction(60, 40) is wide
    assert screen.get_at((200, 40)) == (0, 0, 0)
    # The scroll bar lies over the overhanging line.
    assert widget.OnPickDownFunction(150, 40) is widget.VScrollBar.UpButton
    assert dress(widget, enable=False).OnPickDownFunction(60, 40) is None


def test_what_is_set_reaches_all_lines(screen):
    widget = list_box(2)
    widget.SetItemBGColor(100, 50, 200)
    widget.SetTextColor(9, 8, 7)
    widget.SetTextHAlign("right")
    widget.SetTextVAlign("top")
    widget.CreateFont("Arial", 12, bold=True)
    widget.AddTextLine("new")
    look = {"bgColor": (100, 50, 200), "textColor": (9, 8, 7), "bgColor_hover": (88, 44, 176)}
    look.update(HAlign="right", VAlign="top", font=widget.GetFont())
    for line in widget.lineArray:
        assert {name: getattr(line, name) for name in look} == look
    assert (widget.GetFontSize(), widget.GetFontBold()) == (12, True)


def test_picture_lines_show_their_picture_in_every_state(screen):
    widget, picture = list_box(0), pygame.Surface((30, 16))
    line = widget.AddImageLine(picture)
    assert widget.AddLine("text", [picture]).GetText() == "text"
    assert (line.width, line.height) == (30, 16) and line.IsAutoImageSize() is True
    looks = ("", "_hover", "_click", "_checked", "_hover_checked", "_click_checked")
    assert all(getattr(line, "image" + look) is picture for look in looks)


WRECKS = {"lines": lambda w: w.lineArray.clear(), "children": lambda w: w.children.clear()}
WRECKS["deleted"] = lambda w: delattr(w, "lineArray")
WRECKS["number"] = lambda w: w.lineArray.append(5)
WRECKS["itself"] = lambda w: w.lineArray.append(w)
WRECKS["no bar"] = lambda w: setattr(w, "VScrollBar", None)
WRECKS["nan"] = lambda w: setattr(w, "showlineCount", float("nan"))
WRECKS["text"] = lambda w: setattr(w, "lineIndex", "text")
WRECKS["infinite"] = lambda w: w.VScrollBar.SetValue(float("inf"))
ORDINARY = {AttributeError, TypeError, ValueError, IndexError, OverflowError, RecursionError, None}
ORDINARY = {AttributeError, TypeError, ValueError, IndexError, OverflowError, RecursionError, None}


@pytest.mark.parametrize("wreck", WRECKS)
def test_a_list_in_disorder_raises_ordinary_errors(screen, wreck):
    widget = list_box(9)
    click(widget, screen, 60, 60)
    WRECKS[wreck](widget)
    calls = [("draw", screen), ("OnPickDownFunction", 60, 40), ("OnPickUpFunction", 60, 40)]
    calls += [("OnKeyDownFunction", "down"), ("SetSelectedIndex", 0), ("AddTextLine", "more")]
    ends = {outcome(getattr(widget, name), *values) for name, *values in calls}
    ends.update([outcome(widget.GetSelectedText), outcome(widget.draw, screen)])
    assert ends <= ORDINARY and screen.get_clip() == screen.get_rect()


@pytest.mark.parametrize("look", LOOKS)
def test_a_list_in_every_look(screen, look):
    widget = T.GUI_ListBox(None, 100, 60)
    for _ in range(3):
        widget.AddLine()
    widget.SetItemBGColor(200, 220, 240)
    widget.SetSelectedIndex(1)
    colors = [(200, 220, 240), SELECTED, (200, 220, 240)]
    lines = [(0, 22 * index, 120, 20, color, None) for index, color in enumerate(colors)]

    def draw(target, camera):
        place = part_place(widget, (0, 0, 120, 100), camera)
        oracle.draw_parts(target, widget, [(0, 0, 120, 100, WHITE, "sunken")], camera)
        if place.WAngle == 0:
            target.set_clip(pygame.Rect(*(int(side) for side in place.rect)))
        oracle.draw_parts(target, widget, lines, camera)
        target.set_clip(None)
        oracle.draw_border(target, place, "sunken")

    assert_painted(widget, screen, look, draw)


def combo_box(lines=12):
    return list_box(lines, T.GUI_ComboBox)


def test_the_button_opens_and_closes_the_list_and_a_choice_closes_it(screen):
    combo = combo_box()
    for visible in (True, False, True):
        click(combo, screen, 150, 40)
        assert combo.DropList.IsVisible() is visible
    click(combo, screen, 60, 30 + 20 + 30)
    assert (combo.Edit.GetText(), combo.DropList.IsVisible()) == ("line 1", False)
    assert combo.GetSelectedIndex() == combo.DropList.GetSelectedIndex() == 1
    # A press elsewhere closes the list, too, and ends the typing.
    click(combo, screen, 60, 40)
    click(combo, screen, 150, 40)
    assert combo.DropList.IsVisible()
    assert combo.OnPickDownFunction(10, 10) is None
    assert (combo.DropList.IsVisible(), combo.Edit.IsFocusIn()) == (False, False)


def test_scrolling_the_open_list_keeps_it_open(screen, pointer):
    combo = combo_box()
    click(combo, screen, 150, 40)
    click(combo, screen, 150, 145)
    assert (combo.DropList.IsVisible(), combo.DropList.lineIndex) == (True, 1)
    combo.OnPickDownFunction(150, 80)
    assert combo.DropList.VScrollBar.MidButtonPicked
    combo.OnPickUpFunction(60, 90)
    assert (combo.DropList.IsVisible(), combo.GetSelectedIndex()) == (True, -1)


def test_keys_reach_the_edit_and_the_open_list(screen):
    combo = combo_box()
    click(combo, screen, 60, 40)
    for key in ("a", "up"):
        combo.OnKeyDownFunction(key)
    combo.ClickBtnFunction()
    for key in ("down", "up", "b"):
        combo.OnKeyDownFunction(key)
    # What moves in the open list is not typed.
    assert (combo.Edit.GetText(), combo.GetSelectedIndex()) == ("aupb", 0)
    combo.OnPickDownFunction(10, 10)
    combo.OnKeyDownFunction("down")
    assert combo.GetSelectedIndex() == 0
    combo.ClickBtnFunction()
    for key in ("down", "down", "up", "return"):
        combo.OnKeyDownFunction(key)
    assert (combo.Edit.GetText(), combo.DropList.IsVisible()) == ("line 1", False)


def test_a_disabled_combo_box_neither_opens_nor_chooses(screen):
    combo = dress(combo_box(), enable=False)
    click(combo, screen, 150, 40)
    assert combo.DropList.IsVisible() is False
    dress(combo, enable=True).ClickBtnFunction()
    combo.draw(screen)
    line = combo.OnPickDownFunction(60, 60)
    assert line.clicked is True
    assert dress(combo, enable=False).OnPickUpFunction(60, 60) is None
    assert line.clicked is False and combo.GetSelectedIndex() == -1
    assert combo.DropList.IsVisible() is True


def test_a_combo_box_hands_over_to_its_parts(screen):
    combo = combo_box(2)
    combo.SetWidth(200)
    combo.SetHeight(220)
    assert (combo.Edit.width, combo.Button.x, combo.DropList.width) == (180, 180, 200)
    assert (combo.DropList.height, combo.DropList.showlineCount) == (200, 9)
    combo.SetSelectedIndex(1)
    assert combo.DropList.GetSelectedText() == "line 1"
    combo.CreateFont("Arial", 12)
    values = {"LineGap": 5, "LineHeight": 30, "VScrollBarVisible": False}
    values.update(ItemBGColor=(1, 2, 3), TextColor=(4, 5, 6))
    for name, value in values.items():
        getattr(combo, "Set" + name)(*(value if isinstance(value, tuple) else (value,)))
    values["FontSize"] = 12
    for owner in (combo, combo.DropList):
        assert {name: getattr(owner, "Get" + name)() for name in values} == values
    combo.DropList = None
    for act in (combo.ClickBtnFunction, combo.GetLineGap, lambda: combo.draw(screen)):
        pytest.raises(AttributeError, act)


@pytest.mark.parametrize("look", LOOKS)
def test_a_combo_box_in_every_look(screen, look):
    combo = T.GUI_ComboBox(None, 100, 60)
    combo.SetStyle("flat", False)
    closed = [(0, 0, 100, 20, WHITE, "sunken"), (100, 0, 20, 20, GREY, "raised")]
    assert_parts(combo, screen, look, closed)
