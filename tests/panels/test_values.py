"""What bars, lists and panels start with: their attributes, in the order of construction."""

import pytest
import Tessora as T
from pygame import Color

GREY, WHITE, PAPER = Color(168, 168, 168), Color(255, 255, 255), Color(239, 239, 239)
FONT = "font fontname fontsize fontbold fontitalic fontunderline strikethrough"
RANGE = "minvalue=0 maxvalue=100 currvalue="
BUTTONS = "Button MidButton MidButtonPicked=False "
BAR = "Button " + RANGE + "0 step=10 rulerVisible=True"
SCALE = "font textColor texttopgap=2 textalign_V='bottom' Button ButtonPicked=False "
LIST = "lineArray=[] lineCount=0 selectedIndex=-1 lineHeight=20 linegap=2 showlineCount=4 "
LIST_BAR = " VScrollBar VScrollBarVisible=True"
LIST += "lineIndex=0 itemBGColor textColor HAlign='left' VAlign='center' "
FILL = "ProgressImage PositionImage " + RANGE + "50"
# The type; attributes of the base that it sets otherwise; its own, in their order.
VALUES = [
    (T.GUI_HScrollBar, (120, 20, GREY, "raised"), "Left" + BUTTONS + "Right" + BAR),
    (T.GUI_VScrollBar, (20, 120, GREY, "raised"), "Up" + BUTTONS + "Down" + BAR),
    (T.GUI_Scale, (120, 20, GREY, "sunken"), SCALE + RANGE + "50 step=20 rulerVisible=True"),
    (T.GUI_HProgressBar, (100, 20, WHITE, "sunken"), FILL),
    (T.GUI_VProgressBar, (20, 100, WHITE, "sunken"), FILL),
    (T.GUI_ListBox, (120, 100, WHITE, "sunken"), LIST + FONT + LIST_BAR),
    (T.GUI_ComboBox, (120, 120, WHITE, "flat"), "Edit Button DropList"),
    (T.GUI_MsgBox, (160, 100, PAPER, "raised"), "Title OKButton CloseButton"),
    (T.GUI_Tree, (20, 100, WHITE, "sunken"), "RootItemNode=None " + FONT + " textColor"),
]
IDS = [cls.__name__ for cls, _, _ in VALUES]


@pytest.mark.parametrize(("cls", "look", "own"), VALUES, ids=IDS)
def test_attributes_in_their_order(screen, cls, look, own):
    widget = cls(None, 3, 4)
    assert widget.GetNodeType() == cls.__name__[4:] and widget.GetXY() == (3, 4)
    assert (widget.width, widget.height, widget.bgColor, widget.style) == look
    rows = [row.split("=") for row in own.split()]
    assert list(vars(widget))[-len(rows) :] == [row[0] for row in rows]
    base = cls.__bases__[0]()
    assert list(vars(widget))[: -len(rows)] == list(vars(base))
    assert [row for row in rows if row[1:] and repr(getattr(widget, row[0])) != row[1]] == []


MESSAGE_BUTTONS = {"OKButton": (60, 66, 60, 23), "CloseButton": (129, 1, 30, 23)}
# The places of the parts inside; 20 x 20 where no size is said.
PARTS = {
    T.GUI_HScrollBar: {"LeftButton": (0, 0), "MidButton": (20, 0), "RightButton": (100, 0)},
    T.GUI_VScrollBar: {"UpButton": (0, 0), "MidButton": (0, 20), "DownButton": (0, 100)},
    T.GUI_Scale: {"Button": (0, 0)},
    T.GUI_HProgressBar: {"ProgressImage": (0, 0, 100, 20), "PositionImage": (0, 0, 2, 20)},
    T.GUI_VProgressBar: {"ProgressImage": (0, 0, 20, 100), "PositionImage": (0, 0, 20, 2)},
    T.GUI_ListBox: {"VScrollBar": (100, 0, 20, 100)},
    T.GUI_ComboBox: {"Edit": (0, 0, 100, 20), "Button": (100, 0), "DropList": (0, 20, 120, 100)},
    T.GUI_MsgBox: {"Title": (20, 30, 120, 23), **MESSAGE_BUTTONS},
}


@pytest.mark.parametrize("cls", PARTS)
def test_parts_are_children_in_their_places(screen, cls):
    widget = cls()
    parts = {name: getattr(widget, name) for name in PARTS[cls]}
    boxes = {name: (*part.GetXY(), part.width, part.height) for name, part in parts.items()}
    assert boxes == {name: (*box, 20, 20)[:4] for name, box in PARTS[cls].items()}
    assert set(parts.values()) <= set(widget.children)
    assert {part.parent for part in parts.values()} == {widget}
    hidden = [name for name, part in parts.items() if part.IsVisible() is not True]
    assert set(hidden) == {"PositionImage", "VScrollBar", "DropList"} & set(parts)


def test_arguments_by_keyword(screen):
    assert T.GUI_MsgBox(parent=None, x=1, y=2, text="a", fontname="Arial", fontsize=9).text == "a"
    assert T.GUI_ListBox(parent=None, x=1, y=2).GetXY() == (1, 2)
    item = T.TreeItemNode(itemText="a", itemValue=1, itemImage=None)
    assert T.GUI_Tree().InsertItem("", itemText="b", index=0).itemText == "b" != item.itemText
    for cls in (T.GUI_ListBox, T.GUI_ComboBox):
        assert cls().OnPickDownFunction(px=-9, py=-9) is None
    for cls in (T.GUI_ListBox, T.GUI_HScrollBar, T.GUI_VScrollBar, T.GUI_Scale):
        assert cls().OnPickUpFunction(px=-9, py=-9) is None
    widget = T.GUI_ListBox()
    widget.SetHeight(height=50)
    widget.SetWidth(width=70)
    widget.OnKeyDownFunction(keyname="down")
    assert (widget.width, widget.height) == (70, 50)


# Scripts may press for themselves, and take the place of every method.
def test_overridden_methods_are_reached_through_the_buttons(screen):
    class Box(T.GUI_MsgBox):
        def Button_6_onCommand(self, node=None):
            self.answer = node

    class Own(T.GUI_ListBox):
        def ClickItemFunction(self, item):
            super().ClickItemFunction(item)
            self.taken = item

    box, own = Box(), Own()
    box.draw(screen)
    assert box.OnPickDownFunction(70, 70) is box.OKButton is box.answer
    line = own.AddTextLine("x")
    own.draw(screen)
    own.OnPickDownFunction(5, 5)
    own.OnPickUpFunction(5, 5)
    assert own.taken is line and own.GetSelectedIndex() == 0
