"""What bars, lists and panels start with: their attributes, in the order of construction."""

import pytest
import Tessora as T
from pygame import Color

GREY, WHITE, BLACK = Color(168, 168, 168), Color(255, 255, 255), Color(0, 0, 0)
FONT = "font fontname fontsize fontbold fontitalic fontunderline strikethrough"
RANGE = "minvalue=0 maxvalue=100 currvalue="
BAR = RANGE + "0 step=10 rulerVisible=True"
FILL = "ProgressImage PositionImage " + RANGE + "50"
# The type; attributes of the base that it sets otherwise; its own, in their order.
VALUES = [
    (
        T.GUI_HScrollBar,
        (120, 20, GREY, "raised"),
        "LeftButton MidButton MidButtonPicked=False RightButton " + BAR,
    ),
    (
        T.GUI_VScrollBar,
        (20, 120, GREY, "raised"),
        "UpButton MidButton MidButtonPicked=False DownButton " + BAR,
    ),
    (
        T.GUI_Scale,
        (120, 20, GREY, "sunken"),
        "font textColor texttopgap=2 textalign_V='bottom' "
        "Button ButtonPicked=False " + RANGE + "50 step=20 rulerVisible=True",
    ),
    (T.GUI_HProgressBar, (100, 20, WHITE, "sunken"), FILL),
    (T.GUI_VProgressBar, (20, 100, WHITE, "sunken"), FILL),
    (
        T.GUI_ListBox,
        (120, 100, WHITE, "sunken"),
        "lineArray=[] lineCount=0 selectedIndex=-1 "
        "lineHeight=20 linegap=2 showlineCount=4 lineIndex=0 itemBGColor textColor HAlign='left' "
        "VAlign='center' " + FONT + " VScrollBar VScrollBarVisible=True",
    ),
    (T.GUI_ComboBox, (120, 120, WHITE, "flat"), "Edit Button DropList"),
    (T.GUI_MsgBox, (160, 100, Color(239, 239, 239), "raised"), "Title OKButton CloseButton"),
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


PARTS = [
    (T.GUI_HScrollBar, "LeftButton", (0, 0, 20, 20), None),
    (T.GUI_HScrollBar, "MidButton", (20, 0, 20, 20), None),
    (T.GUI_HScrollBar, "RightButton", (100, 0, 20, 20), None),
    (T.GUI_VScrollBar, "UpButton", (0, 0, 20, 20), None),
    (T.GUI_VScrollBar, "MidButton", (0, 20, 20, 20), None),
    (T.GUI_VScrollBar, "DownButton", (0, 100, 20, 20), None),
    (T.GUI_Scale, "Button", (0, 0, 20, 20), None),
    (T.GUI_HProgressBar, "ProgressImage", (0, 0, 100, 20), (64, 0, 0)),
    (T.GUI_HProgressBar, "PositionImage", (0, 0, 2, 20), (128, 128, 128)),
    (T.GUI_VProgressBar, "ProgressImage", (0, 0, 20, 100), (64, 64, 64)),
    (T.GUI_VProgressBar, "PositionImage", (0, 0, 20, 2), (128, 128, 128)),
    (T.GUI_ListBox, "VScrollBar", (100, 0, 20, 100), None),
    (T.GUI_ComboBox, "Edit", (0, 0, 100, 20), (255, 255, 255)),
    (T.GUI_ComboBox, "Button", (100, 0, 20, 20), None),
    (T.GUI_ComboBox, "DropList", (0, 20, 120, 100), None),
    (T.GUI_MsgBox, "Title", (20, 30, 120, 23), (239, 239, 239)),
    (T.GUI_MsgBox, "OKButton", (60, 66, 60, 23), (239, 239, 239)),
    (T.GUI_MsgBox, "CloseButton", (129, 1, 30, 23), (239, 239, 239)),
]


@pytest.mark.parametrize(("cls", "name", "box", "color"), PARTS)
def test_parts_are_children_in_their_places(screen, cls, name, box, color):
    widget = cls()
    part = getattr(widget, name)
    assert part in widget.children and part.parent is widget
    assert (*part.GetXY(), part.width, part.height) == box
    assert color is None or part.GetBGColor() == Color(*color)
    visible = name not in ("PositionImage", "VScrollBar", "DropList")
    assert part.IsVisible() is visible


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
