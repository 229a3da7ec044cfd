"""CopyTo of nodes, images, labels and buttons."""

import copy
from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from helpers import Recorder, make_node
from picture_oracle import dress
from pygame import Color

# What ties a node to its place, and what belongs to the font.
KEPT = "NodeType sceneInstance parent children sortIndex instanceID ActionPlayer lock_xysa WSX WSY"
KEPT += " WAngle WX WY clicked dragcornerindex dragbegin_x dragbegin_y focusIn fontsize fontbold"
KEPT += " fontitalic fontunderline strikethrough"
TABLES = {"KeyDownFunctionDict": {"a": len}, "KeyUpFunctionDict": {"b": len}}
TABLES.update(BindingVarArray={"life": 3}, BindingPointArray={"hand": (1, 2, 3)})
TABLES.update(BindingEventArray={"hit": ["f", ["code"], []]})
TABLES.update(InnerBindingEventArray={"Load": [None, [], []]})
# Everything else is copied; numbers, flags and texts get a value of their own.
ALL = {**TABLES, "image": 3, "imageArray": [1, 2], "imageFrameRectArray": {"a": (1, 2, 3, 4)}}
ALL.update(imagefiles=["a.png"], blendtype=pygame.BLEND_ADD, imageAnchor="s", font=9)
ALL.update(coll_rectArray={"a": [1]}, image_hover=4, image_click=4)
pygame.font.init()
for place, (name, value) in enumerate(vars(T.GUI_Button()).items()):
    if name not in KEPT.split():
        changed = Color(place, place + 1, 3) if isinstance(value, Color) else f"own {place}"
        ALL.setdefault(name, place if isinstance(value, (int, float)) else changed)
ALL.update({name: Color(5, 6, 7, 8) for name in ("bgColor", "textColor")})
LABEL, BUTTON = [
    {name: ALL[name] for name in vars(cls()) if name in ALL and name not in vars(base())}
    for cls, base in ((T.GUI_Label, T.GUI_Image), (T.GUI_Button, T.GUI_Label))
]


@pytest.fixture
def button(screen, monkeypatch):
    monkeypatch.setattr(T, "Res", SimpleNamespace(LoadImage=lambda name: 4))
    return dress(T.GUI_Button(), **ALL)


CHANGED_IN_PLACE = [*TABLES, "bgColor", "imageArray", "imageFrameRectArray", "coll_rectArray"]
CHANGED_IN_PLACE += ["imagefiles", "borderColor", "borderColor_LT", "textColor", "textColor_hover"]


def test_every_attribute_is_copied_and_none_shared_that_scripts_change_in_place(button):
    other = T.GUI_Button()
    button.CopyTo(other)
    assert {name: getattr(other, name) for name in ALL} == ALL
    shared = [name for name in ALL if getattr(other, name) is getattr(button, name)]
    assert not set(shared) & set(CHANGED_IN_PLACE)


def test_what_ties_a_node_to_its_place_stays(button):
    parent = T.GUI_Image()
    other = T.GUI_Button(parent)
    child = T.GUI_Image(other)
    T.GUI_Image(button)
    button.SetInstanceID(9)
    before = dict(vars(other))
    button.CopyTo(other)
    assert {n for n in before if getattr(other, n) is not before[n]} <= set(ALL)
    assert other.children == [child] and parent.children == [other]


# Kind of the other widget, and the parts that it takes over.
KINDS = {"Button": [LABEL, BUTTON], "Label": [LABEL], "CheckButton": [BUTTON]}
KINDS.update(RadioButton=[BUTTON], Own=[])


@pytest.mark.parametrize("kind", KINDS)
def test_the_node_type_says_what_is_taken_over(button, kind):
    other, fresh = dress(T.GUI_Button(), NodeType=kind), T.GUI_Button()
    button.CopyTo(other)
    for part in (LABEL, BUTTON):
        wanted = part if part in KINDS[kind] else {name: getattr(fresh, name) for name in part}
        compared = set(part) - {"font"}
        assert {n: getattr(other, n) for n in compared} == {n: wanted[n] for n in compared}
    assert other.NodeType == kind


@pytest.mark.parametrize("name", ["coll_rectArray", "BindingEventArray", "InnerBindingEventArray"])
def test_lists_in_the_tables_are_not_shared(button, name):
    other, before = T.GUI_Button(), copy.deepcopy(ALL[name])
    button.CopyTo(other)
    for entry in getattr(other, name).values():
        entry[0] = "changed"
        for part in entry[1:]:
            part.append("more")
    assert getattr(button, name) == before


ORDER = "BorderVisible BorderWidth BorderColor BlendType Text ShowChar Font TextVisible TextHAlign"
ORDER += " TextVAlign TextColor TextLeftGap TextTopGap TextColor_Hover TextColor_Click"
ORDER += " BGColor_Hover BGColor_Click Image_Hover Image_Click"


def test_foreign_widgets_are_asked_in_order(button):
    other = Recorder(GetNodeType="Button")
    button.image_hover_File = button.image_click_File = "a"
    button.CopyTo(other)
    assert ("SetXY", (button.x, button.y)) in other.calls
    called = [name[3:] for name in other.names() if name.startswith("Set")]
    assert called[-19:] == ORDER.split()


def test_setters_of_the_other_node_are_called():
    seen = []
    cls = type("Target", (T.GameNode,), {"SetXY": lambda self, *place: seen.append(place)})
    make_node(None, x=3, y=4).CopyTo(cls(None))
    assert (3, 4) in seen


def test_anything_that_is_no_node_is_refused():
    pytest.raises(AttributeError, T.GUI_Button().CopyTo, None)


# The name of the font is asked for by its method, as scripts do.
@pytest.mark.parametrize("name", [name for name in ALL if name not in ("font", "fontname")])
def test_deleted_attributes_are_passed_over(screen, name):
    source, other = dress(T.GUI_Button(), text="copied", angle=30), T.GUI_Button()
    expected = {"text": "copied", "angle": 30, name: getattr(other, name)}
    delattr(source, name)
    source.CopyTo(other)
    assert {key: getattr(other, key) for key in expected} == expected
