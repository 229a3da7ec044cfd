"""Attributes of images, labels and buttons: names, order, defaults, and their accessors."""

from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from picture_oracle import dress, outcome
from pygame import Color

BLACK, GRAY, LIGHT = Color("black"), Color(128, 128, 128), Color(218, 218, 218)
# In the order in which the attributes are made, after those of every node.
IMAGE = {"bgColor": Color("white"), "alpha": 255, "image": None, "imageArray": None}
IMAGE.update(imageFrameRectArray={}, imagefiles=None, imageCount=0, imageIndex=0, imageDelay=0)
IMAGE.update(imageSwitchDelay=0.1, imageAutoSwitch=False, plistFile=None, currActionName=None)
IMAGE.update(originalImage=None, autosize=False, blendtype=pygame.BLEND_MULT, borderwidth=2)
IMAGE.update(borderVisible=False, borderColor=Color(128, 128, 128, 128), borderColor_LT=LIGHT)
IMAGE.update(borderColor_RB=Color(64, 64, 64), imageAnchor="wn", coll_visible=False)
IMAGE.update(coll_rectArray={}, style="flat", enable=True)
LABEL = {"text": "", "font": None, "fontname": "Arial", "fontsize": 16, "fontbold": False}
LABEL.update(fontitalic=False, fontunderline=False, strikethrough=False, textColor=BLACK)
LABEL.update(HAlign="center", VAlign="center", textleftgap=2, texttopgap=2, textVisible=True)
LABEL.update(showChar=None)
BUTTON = {"textColor_hover": BLACK, "bgColor_hover": GRAY, "image_hover": None}
BUTTON.update(image_hover_File=None, image_click_File=None, textColor_click=BLACK)
BUTTON.update(bgColor_click=Color(96, 96, 96), image_click=None)
OTHERS = {"NodeType": "Button", "borderVisible": True, "style": "raised"}
OTHERS["bgColor"] = Color(168, 168, 168)
KINDS = [(T.GUI_Image, IMAGE, {"NodeType": "Image", "width": 100, "height": 100, "WSX": 1.0})]
KINDS += [(T.GUI_Label, {**IMAGE, **LABEL}, {"NodeType": "Label", "WX": 0.0, "x": 0})]
KINDS += [(T.GUI_Button, {**IMAGE, **LABEL, **BUTTON}, OTHERS)]


@pytest.mark.parametrize(("cls", "added", "changed"), KINDS)
def test_order_defaults_and_arguments(screen, monkeypatch, cls, added, changed):
    widget, other, parent = cls(), cls(), T.GUI_Image(None, 5, 6)
    assert list(vars(widget)) == [*vars(T.GameNode(None)), *added]
    for name, value in {**added, **changed}.items():
        got = getattr(widget, name)
        assert name == "font" or (got, type(got)) == (value, type(value)), name
        if isinstance(got, (Color, list, dict)) and name != "borderColor":
            assert got is not getattr(other, name), name
    monkeypatch.setattr(T, "GUI_WINDOW_BGCOLOR", Color(1, 2, 3, 4))
    assert cls().borderColor is T.GUI_WINDOW_BGCOLOR
    widget = cls(y=40, parent=parent, x=30)
    assert (parent.children, widget.x, widget.WX, widget.WY) == ([widget], 30, 35.0, 46.0)
    assert outcome(lambda: cls(nothing=1)) is TypeError


# A getter, a setter or both, and their attribute.
ACCESSORS = """
GetSwitchImageDelay SetSwitchImageDelay imageSwitchDelay,GetBorderWidth SetBorderWidth borderwidth,
IsBorderVisible SetBorderVisible borderVisible,GetTextLeftGap SetTextLeftGap textleftgap,
IsTextVisible SetTextVisible textVisible,GetTextTopGap SetTextTopGap texttopgap,GetBGColor bgColor,
GetImageFile_Hover image_hover_File,GetImageFile_Click image_click_File,GetImageAnchor imageAnchor,
GetFontStrikeThrough strikethrough,GetTextHAlign SetTextHAlign HAlign,SetAutoSwitch imageAutoSwitch,
GetTextVAlign SetTextVAlign VAlign,GetTextColor_Hover textColor_hover,GetBorderColor borderColor,
GetTextColor_Click textColor_click,GetCurrActionName currActionName,SetCollInfoVisible coll_visible,
GetShowChar SetShowChar showChar,GetCollRectArray coll_rectArray,GetOriginalImage originalImage,
GetFontUnderline fontunderline,GetBGColor_Hover bgColor_hover,GetBGColor_Click bgColor_click,
GetImage_Hover image_hover,GetImage_Click image_click,IsEnable SetEnable enable,IsClicked clicked,
GetImageCount imageCount,GetImageFiles imagefiles,IsAutoImageSize autosize,GetFontItalic fontitalic,
GetPlistFile plistFile,GetBlendType blendtype,GetTextColor textColor,GetFontSize fontsize,
GetFontName fontname,GetFontBold fontbold,GetText SetText text,GetImage image,GetStyle style,
GetFont font"""


@pytest.mark.parametrize("row", ACCESSORS.split(","))
def test_accessors_keep_the_value_as_given_and_touch_nothing_else(screen, row):
    *methods, name = row.split()
    widget, setters = T.GUI_Button(), [method for method in methods if method.startswith("Set")]
    for value in (True, 1, None, "odd", object()):
        before = dict(vars(widget))
        for setter in setters or ["__setattr__"]:
            getattr(widget, setter)(*([value] if setters else [name, value]))
        got = [getattr(widget, method)() for method in methods if method not in setters]
        assert all(item is value for item in [getattr(widget, name), *got])
        assert {key for key, now in vars(widget).items() if now is not before[key]} <= {name}


ANCHORS = {"wn": (0, 0), "n": (0.5, 0), "en": (1.0, 0), "w": (0, 0.5), "center": (0.5, 0.5)}
ANCHORS.update({"e": (1.0, 0.5), "ws": (0, 1.0), "s": (0.5, 1.0), "es": (1.0, 1.0), "ne": (0, 0)})


def test_anchors_colors_blend_names_and_styles(screen):
    widget, calls = T.GUI_Image(), []
    widget.SetAXY = lambda *axy: calls.append(axy)
    for keyword, anchor in ANCHORS.items():
        widget.SetImageAnchor(keyword.upper())
        assert (widget.imageAnchor, calls[-1]) == (keyword, anchor)
    assert outcome(widget.SetImageAnchor, None) is AttributeError
    widget.SetBGColor(1, 2, 3, a=7)
    assert widget.GetBGColor() == Color(1, 2, 3, 7)
    for bad in ((256, 0, 0), ("a", 0, 0), (1, 2), (1, 2, 3, 4)):
        assert outcome(T.GUI_Button().SetBGColor_Hover, *bad) in (TypeError, ValueError)
    for name in ("ADD", "add", "SUB", "Sub", "MULT", "", None, 5):
        widget.SetBlendType("SUB" if name != "SUB" else "ADD")
        widget.SetBlendType(name)
        flags = {"ADD": pygame.BLEND_ADD, "SUB": pygame.BLEND_SUB}
        assert widget.GetBlendType() == flags.get(name, pygame.BLEND_MULT)
    for flags, border in ((("flat",), True), (("hollow", False), False), ((None,), True)):
        widget.SetStyle(*flags)
        assert (widget.style, widget.borderVisible) == (flags[0], border)


COPIED = {"x": 30, "sx": 2.0, "angle": 15, "width": 33, "alpha": 90, "imageIndex": 2, "style": 1}
COPIED.update(imageArray=[1], imageCount=7, imageAutoSwitch=1, anchorx=0.5, enable=False, image=3)
COPIED.update(coll_rectArray={"a": [1]}, bgColor=Color(1, 2, 3, 4), blendtype=1, borderwidth=5)
TEXT = {"text": "copied", "showChar": "*", "HAlign": "left", "VAlign": "top", "textVisible": 2}
TEXT.update(fontname="mine", textleftgap=7, texttopgap=8, textColor=Color(5, 6, 7, 8), font=9)
STATES = {"textColor_hover": Color(1, 2, 3), "bgColor_click": Color(4, 5, 6), "image_hover": 4}


@pytest.mark.parametrize("kind", ["Button", "Label", "CheckButton", "RadioButton", "Own"])
def test_copying_depends_on_the_node_type(screen, monkeypatch, kind):
    monkeypatch.setattr(T, "Res", SimpleNamespace(LoadImage=lambda name: 4))
    source, parent = dress(T.GUI_Button(), **COPIED, **TEXT, **STATES), T.GUI_Image()
    source.image_hover_File = "x"
    other = dress(T.GUI_Button(parent, 1, 1), NodeType=kind)
    child = T.GUI_Image(other)
    source.CopyTo(other)
    texts, states = kind in ("Button", "Label"), kind not in ("Label", "Own")
    for values, same in ((COPIED, True), (TEXT, texts), (STATES, states)):
        assert {getattr(other, name) == value for name, value in values.items()} == {same}
    for name in ("bgColor", "coll_rectArray", "textColor", "textColor_hover"):
        assert getattr(other, name) is not getattr(source, name)
    assert (other.NodeType, other.children, parent.children) == (kind, [child], [other])
    assert outcome(source.CopyTo, T.GUI_Image()) is None
    assert outcome(source.CopyTo, None) in (AttributeError, TypeError)
