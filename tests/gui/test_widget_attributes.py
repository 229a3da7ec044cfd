"""Attributes of images, labels and buttons: names, order, defaults, and their accessors."""

import copy

import pygame
import pytest
import Tessora as T

NODE = """
NodeType sceneInstance parent children sortIndex KeyDownFunctionDict KeyUpFunctionDict
BindingVarArray BindingEventArray BindingPointArray InnerBindingEventArray PickDownFunction
Enable_PickDown PickUpFunction Enable_PickUp UpdateFunction x y sx sy angle width height anchorx
anchory instanceID visible ActionPlayer rectvisible anchorvisible lock_xysa WSX WSY WAngle WX WY
clicked CheckPickDownChild collisionType collisionInfo editrectenable editrectvisible
dragcornerindex dragbegin_x dragbegin_y focusIn userData"""
IMAGE = """
bgColor alpha image imageArray imageFrameRectArray imagefiles imageCount imageIndex
imageDelay imageSwitchDelay imageAutoSwitch plistFile currActionName originalImage autosize
blendtype borderwidth borderVisible borderColor borderColor_LT borderColor_RB imageAnchor
coll_visible coll_rectArray style enable"""
LABEL = """
text font fontname fontsize fontbold fontitalic fontunderline strikethrough textColor
HAlign VAlign textleftgap texttopgap textVisible showChar"""
BUTTON = """
textColor_hover bgColor_hover image_hover image_hover_File image_click_File
textColor_click bgColor_click image_click"""
ORDER = {
    T.GUI_Image: (NODE + IMAGE).split(),
    T.GUI_Label: (NODE + IMAGE + LABEL).split(),
    T.GUI_Button: (NODE + IMAGE + LABEL + BUTTON).split(),
}
WIDGETS = list(ORDER)

IMAGE_VALUES = {
    "NodeType": "Image",
    "bgColor": pygame.Color(255, 255, 255, 255),
    "alpha": 255,
    "image": None,
    "imageArray": None,
    "imageFrameRectArray": {},
    "imagefiles": None,
    "imageCount": 0,
    "imageIndex": 0,
    "imageDelay": 0,
    "imageSwitchDelay": 0.1,
    "imageAutoSwitch": False,
    "plistFile": None,
    "currActionName": None,
    "originalImage": None,
    "autosize": False,
    "blendtype": pygame.BLEND_MULT,
    "width": 100,
    "height": 100,
    "borderwidth": 2,
    "borderVisible": False,
    "borderColor": pygame.Color(128, 128, 128, 128),
    "borderColor_LT": pygame.Color(218, 218, 218, 255),
    "borderColor_RB": pygame.Color(64, 64, 64, 255),
    "imageAnchor": "wn",
    "coll_visible": False,
    "coll_rectArray": {},
    "style": "flat",
    "WSX": 1.0,
    "WSY": 1.0,
    "WAngle": 0.0,
    "WX": 0.0,
    "WY": 0.0,
    "enable": True,
    "anchorx": 0.0,
    "focusIn": False,
    "visible": True,
    "clicked": False,
    "sx": 1.0,
}
LABEL_VALUES = dict(
    IMAGE_VALUES,
    NodeType="Label",
    text="",
    fontname="Arial",
    fontsize=16,
    fontbold=False,
    fontitalic=False,
    fontunderline=False,
    strikethrough=False,
    textColor=pygame.Color("black"),
    HAlign="center",
    VAlign="center",
    textleftgap=2,
    texttopgap=2,
    textVisible=True,
    showChar=None,
)
BUTTON_VALUES = dict(
    LABEL_VALUES,
    NodeType="Button",
    PickDownFunction=None,
    PickUpFunction=None,
    bgColor=pygame.Color(168, 168, 168, 255),
    textColor_hover=pygame.Color("black"),
    bgColor_hover=pygame.Color(128, 128, 128, 255),
    image_hover=None,
    image_hover_File=None,
    image_click_File=None,
    textColor_click=pygame.Color("black"),
    bgColor_click=pygame.Color(96, 96, 96, 255),
    image_click=None,
    borderVisible=True,
    style="raised",
)
VALUES = dict(zip(WIDGETS, (IMAGE_VALUES, LABEL_VALUES, BUTTON_VALUES)))


@pytest.mark.parametrize("cls", WIDGETS)
def test_order_and_defaults(screen, cls):
    widget = cls()
    assert list(vars(widget)) == ORDER[cls]
    for name, value in VALUES[cls].items():
        got = getattr(widget, name)
        assert (got, type(got)) == (value, type(value)), name
    if cls is not T.GUI_Image:
        assert isinstance(widget.font, pygame.font.Font)
    widget.extra = 1
    assert list(vars(widget))[-1] == "extra"


@pytest.mark.parametrize("cls", WIDGETS)
def test_every_widget_has_its_own_values(screen, cls):
    one, two = cls(), cls()
    assert one.borderColor is T.GUI_WINDOW_BGCOLOR
    for name in ORDER[cls]:
        value = getattr(one, name)
        if isinstance(value, (pygame.Color, list, dict)) and name != "borderColor":
            assert value is not getattr(two, name), name


def test_the_border_color_is_the_module_value_of_the_moment(monkeypatch):
    color = pygame.Color(1, 2, 3, 4)
    monkeypatch.setattr(T, "GUI_WINDOW_BGCOLOR", color)
    assert T.GUI_Image().borderColor is color


@pytest.mark.parametrize("cls", WIDGETS)
def test_constructor_arguments(screen, cls):
    parent = T.GUI_Image(None, 5, 6)
    for arguments, keywords in (
        ((parent, 30, 40), {}),
        ((), {"parent": parent, "x": 30, "y": 40}),
        ((parent,), {"y": 40, "x": 30}),
    ):
        widget = cls(*arguments, **keywords)
        assert widget.parent is parent
        assert parent.children[-1] is widget
        assert (widget.x, widget.y, widget.WX, widget.WY) == (30, 40, 35.0, 46.0)
    for bad in ({"nothing": 1}, {"parent": None, "z": 2}):
        with pytest.raises(TypeError):
            cls(**bad)


@pytest.mark.parametrize("cls", [T.GUI_Label, T.GUI_Button])
def test_text_arguments(screen, monkeypatch, cls):
    asked = []
    make = pygame.font.SysFont
    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: asked.append(args) or make(*args))
    widget = cls(None, 1, 2, "words", "Courier", 23)
    other = cls(fontsize=23, fontname="Courier", text="words")
    for label in (widget, other):
        assert (label.text, label.fontname, label.fontsize) == ("words", "Courier", 23)
    assert asked == [("Courier", 23, False, False)] * 2
    assert widget.font is not other.font


IMAGE_PAIRS = [
    ("GetImage", None, "image", ("picture",)),
    ("GetOriginalImage", None, "originalImage", ("other",)),
    ("GetImageCount", None, "imageCount", (3,)),
    ("GetImageFiles", None, "imagefiles", (["a"],)),
    ("GetPlistFile", None, "plistFile", ("f.plist",)),
    ("GetCurrActionName", None, "currActionName", ("run",)),
    ("GetImageAnchor", None, "imageAnchor", ("center",)),
    ("GetBlendType", None, "blendtype", (1,)),
    ("IsAutoImageSize", None, "autosize", (True,)),
    ("GetSwitchImageDelay", "SetSwitchImageDelay", "imageSwitchDelay", (0.5, 1, "x")),
    (None, "SetAutoSwitch", "imageAutoSwitch", (True, 1, "yes")),
    ("IsEnable", "SetEnable", "enable", (False, 2)),
    ("GetBGColor", None, "bgColor", ("color",)),
    ("GetBorderColor", None, "borderColor", ("color",)),
    ("GetBorderWidth", "SetBorderWidth", "borderwidth", (7, 1.5)),
    ("IsBorderVisible", "SetBorderVisible", "borderVisible", (True, 1)),
    ("GetStyle", None, "style", ("solid",)),
    (None, "SetCollInfoVisible", "coll_visible", (True, 1)),
    ("GetCollRectArray", None, "coll_rectArray", ({"a": []},)),
]
LABEL_PAIRS = [
    ("GetFont", None, "font", ("font",)),
    ("GetFontName", None, "fontname", ("Times",)),
    ("GetFontSize", None, "fontsize", (4,)),
    ("GetFontBold", None, "fontbold", (True,)),
    ("GetFontItalic", None, "fontitalic", (True,)),
    ("GetFontUnderline", None, "fontunderline", (True,)),
    ("GetFontStrikeThrough", None, "strikethrough", (True,)),
    ("GetText", "SetText", "text", ("abc", 5)),
    ("GetTextColor", None, "textColor", ("color",)),
    ("GetTextHAlign", "SetTextHAlign", "HAlign", ("left", "odd")),
    ("GetTextVAlign", "SetTextVAlign", "VAlign", ("top", None)),
    ("GetTextLeftGap", "SetTextLeftGap", "textleftgap", (9, 2.5)),
    ("GetTextTopGap", "SetTextTopGap", "texttopgap", (9, -1)),
    ("IsTextVisible", "SetTextVisible", "textVisible", (False, 1)),
    ("GetShowChar", "SetShowChar", "showChar", ("*", None)),
]
BUTTON_PAIRS = [
    ("IsClicked", None, "clicked", (True, 1)),
    ("GetImage_Hover", None, "image_hover", ("picture",)),
    ("GetImageFile_Hover", None, "image_hover_File", ("a.png",)),
    ("GetBGColor_Hover", None, "bgColor_hover", ("color",)),
    ("GetTextColor_Hover", None, "textColor_hover", ("color",)),
    ("GetImage_Click", None, "image_click", ("picture",)),
    ("GetImageFile_Click", None, "image_click_File", ("a.png",)),
    ("GetBGColor_Click", None, "bgColor_click", ("color",)),
    ("GetTextColor_Click", None, "textColor_click", ("color",)),
]
ACCESSORS = [(T.GUI_Image, *row) for row in IMAGE_PAIRS]
ACCESSORS += [(T.GUI_Label, *row) for row in LABEL_PAIRS]
ACCESSORS += [(T.GUI_Button, *row) for row in BUTTON_PAIRS + LABEL_PAIRS[:1] + IMAGE_PAIRS[:1]]


@pytest.mark.parametrize(("cls", "getter", "setter", "name", "values"), ACCESSORS)
def test_accessors(screen, cls, getter, setter, name, values):
    widget = cls()
    for value in values:
        before = dict(vars(widget))
        if setter:
            assert getattr(widget, setter)(value) is None
        else:
            setattr(widget, name, value)
        assert getattr(widget, name) is value
        if getter:
            assert getattr(widget, getter)() is value
        after = dict(vars(widget))
        assert {key for key in after if after[key] is not before[key]} <= {name}


COLORS = [
    (T.GUI_Image, "SetBGColor", "bgColor", True),
    (T.GUI_Image, "SetBorderColor", "borderColor", False),
    (T.GUI_Label, "SetTextColor", "textColor", True),
    (T.GUI_Button, "SetBGColor_Hover", "bgColor_hover", False),
    (T.GUI_Button, "SetTextColor_Hover", "textColor_hover", False),
    (T.GUI_Button, "SetBGColor_Click", "bgColor_click", False),
    (T.GUI_Button, "SetTextColor_Click", "textColor_click", False),
]


@pytest.mark.parametrize(("cls", "setter", "name", "has_alpha"), COLORS)
def test_color_setters(screen, cls, setter, name, has_alpha):
    widget = cls()
    old = getattr(widget, name)
    untouched = pygame.Color(*old)
    set_color = getattr(widget, setter)
    set_color(1, 2, 3)
    assert getattr(widget, name) == pygame.Color(1, 2, 3, 255)
    assert old == untouched
    set_color(r=4, g=5, b=6)
    assert getattr(widget, name) == pygame.Color(4, 5, 6, 255)
    if has_alpha:
        set_color(1, 2, 3, a=7)
        assert getattr(widget, name) == pygame.Color(1, 2, 3, 7)
    kept = getattr(widget, name)
    bad_values = [(256, 0, 0), (-1, 0, 0), ("a", 0, 0), (None, 0, 0), (1, 2), (1, 2, 3, 4, 5)]
    for bad in bad_values if has_alpha else [*bad_values, (1, 2, 3, 4)]:
        with pytest.raises((TypeError, ValueError)):
            set_color(*bad)
    assert getattr(widget, name) is kept


@pytest.mark.parametrize("cls", WIDGETS)
def test_styles_switch_the_border_on(screen, cls):
    widget = cls()
    widget.borderVisible = False
    for style in ("flat", "hollow", "raised", None):
        widget.SetStyle(style)
        assert (widget.style, widget.borderVisible) == (style, True)
        widget.SetStyle(style=style, borderVisible=False)
        assert (widget.style, widget.borderVisible) == (style, False)
    widget.DropBGColor()
    assert widget.GetBGColor() is None


@pytest.mark.parametrize(
    ("keyword", "anchor"),
    [
        ("wn", (0, 0)),
        ("n", (0.5, 0)),
        ("en", (1.0, 0)),
        ("w", (0, 0.5)),
        ("center", (0.5, 0.5)),
        ("e", (1.0, 0.5)),
        ("ws", (0, 1.0)),
        ("s", (0.5, 1.0)),
        ("es", (1.0, 1.0)),
        ("ne", (0, 0)),
        ("", (0, 0)),
        (" center", (0, 0)),
    ],
)
def test_anchor_keywords(keyword, anchor):
    class Widget(T.GUI_Image):
        def SetAXY(self, ax, ay):
            calls.append((ax, ay))
            super().SetAXY(ax, ay)

    calls = []
    for spelling in (keyword, keyword.upper(), keyword.title()):
        widget = Widget()
        widget.SetAXY(0.3, 0.3)
        widget.SetImageAnchor(spelling)
        assert widget.GetImageAnchor() == keyword.lower()
        assert widget.GetAXY() == anchor == calls[-1]


def test_an_anchor_that_is_no_text():
    widget = T.GUI_Image()
    widget.SetImageAnchor("center")
    for bad in (None, 5):
        with pytest.raises(AttributeError):
            widget.SetImageAnchor(bad)
    assert (widget.imageAnchor, widget.GetAXY()) == ("center", (0.5, 0.5))


def test_blend_names():
    widget = T.GUI_Image()
    names = [("ADD", pygame.BLEND_ADD), ("add", pygame.BLEND_MULT), ("SUB", pygame.BLEND_SUB)]
    names += [
        (other, pygame.BLEND_MULT) for other in ("Sub", "MULT", "", None, pygame.BLEND_ADD, 5)
    ]
    for name, flag in names:
        widget.SetBlendType("SUB" if flag != pygame.BLEND_SUB else "ADD")
        widget.SetBlendType(name)
        assert widget.GetBlendType() == flag


@pytest.mark.parametrize("cls", WIDGETS)
def test_copies_of_the_host_are_complete(screen, cls):
    widget = cls(None, 3, 4)
    widget.own = "attribute"
    twin = copy.copy(widget)
    assert type(twin) is cls
    assert dict(vars(twin)) == dict(vars(widget))
    twin.x = 50
    assert widget.x == 3


def test_class_tree():
    assert T.GUI_Button.__mro__[:4] == (T.GUI_Button, T.GUI_Label, T.GUI_Image, T.GameNode)
