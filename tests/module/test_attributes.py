"""Attributes of all classes: order, defaults and accessors."""

import re
from unittest.mock import ANY

import pygame
import pytest
import Tessora as T
from pygame import Color
from pygame.math import Vector2

EVENTS = {name: [None, [], []] for name in ("Load", "Update", "Render", "Destroy")}
EVENTS.update({name: [None, ["px", "py"], []] for name in ("PickDown", "PickUp")})
LAYER_EVENTS = {name: [None, []] for name in (*EVENTS, "PickTile")}
# In the order in which the attributes are made.
NODE = {"NodeType": "GameNode", "sceneInstance": None, "parent": None, "children": []}
NODE.update(sortIndex=0, KeyDownFunctionDict={}, KeyUpFunctionDict={}, BindingVarArray={})
NODE.update(BindingEventArray={}, BindingPointArray={}, InnerBindingEventArray=EVENTS)
NODE.update(PickDownFunction=None, Enable_PickDown=True, PickUpFunction=None, Enable_PickUp=True)
NODE.update(UpdateFunction=None, x=0, y=0, sx=1.0, sy=1.0, angle=0.0, width=0, height=0)
NODE.update(anchorx=0.0, anchory=0.0, instanceID=-1, visible=True, ActionPlayer=None)
NODE.update(rectvisible=False, anchorvisible=False, lock_xysa=False, WSX=1.0, WSY=1.0, WAngle=0.0)
NODE.update(WX=0.0, WY=0.0, clicked=False, CheckPickDownChild=True, collisionType=-1)
NODE.update(collisionInfo=None, editrectenable=False, editrectvisible=False, dragcornerindex=-2)
NODE.update(dragbegin_x=-1, dragbegin_y=-1, focusIn=False, userData=None)
LAYER = {"sceneInstance": None, "NodeType": "GameLayer", "LayerName": None, "GameNodeDict": {}}
LAYER.update(SortGameNodeInstanceIDArray=[], GameNodeKeyArray=[], AddGameNodeDict={})
LAYER.update(DelGameNodeArray=[], BindingEventArray={}, PointArray=[], LineArray=[], RectArray=[])
LAYER.update(InnerBindingEventArray=LAYER_EVENTS, UserFunctionDict={}, instanceID=0, visible=True)
LAYER.update(scrollType=0, scrollSpeed=0, scrollPosX=0, scrollPosY=0, font=ANY)
MANAGER = {"resdir": "none", "fontdir": None, "fileDict": {}, "ImageDict": {}, "soundDict": {}}
MANAGER.update(ImageDict_MemManage_List=[], ImageDict_MemManage_Total=100)
MANAGER.update(ImageDict_MemManage_Count=0, SceneJsonDict=[], soundPlayCount=0)
BLACK, WINDOW = Color("black"), Color(128, 128, 128, 128)
IMAGE = {**NODE, "NodeType": "Image", "width": 100, "height": 100, "bgColor": Color("white")}
IMAGE.update(alpha=255, image=None, imageArray=None, imageFrameRectArray={}, imagefiles=None)
IMAGE.update(imageCount=0, imageIndex=0, imageDelay=0, imageSwitchDelay=0.1, imageAutoSwitch=False)
IMAGE.update(plistFile=None, currActionName=None, originalImage=None, autosize=False)
IMAGE.update(blendtype=pygame.BLEND_MULT, borderwidth=2, borderVisible=False, borderColor=WINDOW)
IMAGE.update(borderColor_LT=Color(218, 218, 218), borderColor_RB=Color(64, 64, 64))
IMAGE.update(imageAnchor="wn", coll_visible=False, coll_rectArray={}, style="flat", enable=True)
LABEL = {**IMAGE, "NodeType": "Label", "text": "", "font": ANY, "fontname": "Arial"}
LABEL.update(fontsize=16, fontbold=False, fontitalic=False, fontunderline=False)
LABEL.update(strikethrough=False, textColor=BLACK, HAlign="center", VAlign="center")
LABEL.update(textleftgap=2, texttopgap=2, textVisible=True, showChar=None)
BUTTON = {**LABEL, "NodeType": "Button", "bgColor": Color(168, 168, 168), "borderVisible": True}
BUTTON.update(style="raised", textColor_hover=BLACK, bgColor_hover=Color(128, 128, 128))
BUTTON.update(image_hover=None, image_hover_File=None, image_click_File=None)
BUTTON.update(textColor_click=BLACK, bgColor_click=Color(96, 96, 96), image_click=None)
CHARACTER = {**IMAGE, "NodeType": "GameCharacter", "imagefiles": [], "imageArray": {}}
CHARACTER.update(ActionArray={}, ActionFpsDelayArray={}, ActionLoop=False, ActionPlaying=False)
CHARACTER.update(currActionFrameIndex=0, currActionFrameTime=0, currActionEndframe=0)
CHARACTER.update(currActionEndCallBackFunction=None, currActionEndCallBackParams=None)
CHARACTER.update(currOffsetX=0, currOffsetY=0, imageDict={}, PickedPartObj=None, moveDir=[0, 0])
CHARACTER.update(dropSpeed=0, isJumping=False, isPlayer=False, isDead=False)
CHARACTER.update(rectListVisible=True, UserFunctionDict={})
VARIABLES = {"life": 100, "speed": 0, "jumpspeed": 0, "gravity": 0, "check_block": False}
VARIABLES.update(check_collision=False, check_eventrect=False)
CHARACTER.update(CharacterBindingVarArray=VARIABLES)
CHECK = {**BUTTON, "NodeType": "CheckButton", "width": 120, "height": 20, "bgColor": WINDOW}
CHECK.update(style="flat", CheckValue=False, HAlign="left")
for state, level in (("", WINDOW), ("_hover", Color(128, 128, 128)), ("_click", Color(96, 96, 96))):
    CHECK.update({f"textColor{state}_checked": BLACK, f"bgColor{state}_checked": level})
    CHECK[f"image{state}_checked"] = None
STATES = ("", "_hover", "_click")
CHECK.update(checkboxVisible=True, **{"image_checkbox" + state: None for state in STATES})
CHECK.update({f"image_checkbox{state}_checked": None for state in STATES})
RADIO = {**BUTTON, "NodeType": "RadioButton", "width": 120, "height": 20, "bgColor": WINDOW}
RADIO.update(style="flat", HAlign="left", RadioValue=False, radioboxVisible=True)
RADIO.update({"image_radiobox" + state: None for state in STATES})
EDIT = {**LABEL, "NodeType": "Edit", "cursorColor": Color("white"), "bgColor": Color(96, 96, 96)}
EDIT.update(bgColor_focusIn=Color(96, 96, 96), image_focusIn=None, image_focusIn_File="")
EDIT.update(cursorPos=0, cursorshowtime=0.5, cursorlasttime=0.0, cursorvisible=False)
EDIT.update(text_begin_index=0, text_end_index=0, max_char_count=50, HAlign="left")
EDIT.update(ReturnCallBackFunc=None, style="sunken", borderVisible=True)
TEXT = {**EDIT, "NodeType": "Text", "lineArray": [], "lineCount": 0, "lineIndex": 0}
TEXT.update(showlineCount=ANY, cursorRow=0, lineHeight=ANY, linegap=2)
ACTION = {"running": False, "targetNode": None, "runtime": 0, "over": False}
TIMED = {**ACTION, "duration": 2}
CALLBACK = {**TIMED, "callbackFunc": len, "callbackParams": {}}
BLINK = {**TIMED, "blinkcount": 4, "delaytime": 0.5, "blinkindex": 0}


def vectors(name, source):
    return {**TIMED, "src" + name: Vector2(source, source), "dst" + name: Vector2(3, 4)}


TURN, XY = {**TIMED, "srcAngle": 0, "dstAngle": 3}, {"x": 0, "y": 0}
LABEL_ARGUMENTS = {"parent": None, **XY, "text": "", "fontname": "Arial", "fontsize": 16}
# Arguments of the constructor, and the attributes it makes.
CLASSES = {
    "GameNode": ({"parent": None, **XY}, NODE),
    "GUI_Image": ({"parent": None, **XY}, IMAGE),
    "GUI_Label": (LABEL_ARGUMENTS, LABEL),
    "GUI_Button": (LABEL_ARGUMENTS, BUTTON),
    "GUI_CheckButton": (LABEL_ARGUMENTS, CHECK),
    "GUI_RadioButton": (LABEL_ARGUMENTS, RADIO),
    "GUI_Edit": (LABEL_ARGUMENTS, EDIT),
    "GUI_Text": (LABEL_ARGUMENTS, TEXT),
    "GameCharacter": ({"parent": None, **XY}, CHARACTER),
    "GameLayer": ({}, LAYER),
    "PyGameResManager": ({"resdir": "none"}, MANAGER),
    "GAction": ({}, ACTION),
    "ActionPlayer": ({}, {"ActionArray": None, "ActionIndex": 0}),
    "CallBackAction": ({"duration": 2, "callbackFunc": len}, CALLBACK),
    "MoveToAction": ({"duration": 2, "x": 3, "y": 4}, vectors("Postion", 0)),
    "MoveByAction": ({"duration": 2, "x": 3, "y": 4}, vectors("Postion", 0)),
    "ScaleToAction": ({"duration": 2, "sx": 3, "sy": 4}, vectors("Scale", 1)),
    "ScaleByAction": ({"duration": 2, "sx": 3, "sy": 4}, vectors("Scale", 0)),
    "RotateToAction": ({"duration": 2, "angle": 3}, TURN),
    "RotateByAction": ({"duration": 2, "angle": 3}, TURN),
    "BlinkAction": ({"duration": 2, "blinkcount": 4}, BLINK),
}


@pytest.mark.parametrize("name", CLASSES)
def test_attributes_in_order_with_their_defaults(screen, name):
    arguments, expected = CLASSES[name]
    for thing in (getattr(T, name)(**arguments), getattr(T, name)(*arguments.values())):
        assert list(vars(thing)) == list(expected) and dict(vars(thing)) == expected
        # Equal is not enough: 0, 0.0 and False differ in what scripts print.
        types = {key: type(value) for key, value in expected.items() if value is not ANY}
        assert {key: type(getattr(thing, key)) for key in types} == types


@pytest.mark.parametrize("name", CLASSES)
def test_objects_share_no_default_that_can_change(screen, name):
    arguments, expected = CLASSES[name]
    first, second = [getattr(T, name)(**arguments) for _ in range(2)]
    kinds = (list, dict, Vector2, Color)
    changing = {key for key, value in expected.items() if isinstance(value, kinds)}
    # Some colours are the module's own.
    for key in (key for key in changing if expected[key] != WINDOW):
        assert getattr(first, key) is not getattr(second, key), key


@pytest.mark.parametrize("name", CLASSES)
def test_arguments_that_do_not_fit_are_refused(screen, name):
    cls, arguments = getattr(T, name), CLASSES[name][0]
    pytest.raises(TypeError, cls, *arguments.values(), 1)
    if name != "CallBackAction":
        pytest.raises(TypeError, cls, **arguments, nonsense=1)
    if arguments and not name.startswith(("GUI", "GameC")):
        pytest.raises(TypeError, cls)


def test_widgets_know_their_place_at_once_and_take_the_modules_colour(monkeypatch, screen):
    parent = T.GUI_Image(None, 5, 6)
    monkeypatch.setattr(T, "GUI_WINDOW_BGCOLOR", Color(1, 2, 3, 4))
    for name in (name for name in CLASSES if name.startswith("GUI")):
        cls = getattr(T, name)
        widget = cls(y=40, parent=parent, x=30)
        assert (parent.children[-1], widget.x, widget.WX, widget.WY) == (widget, 30, 35.0, 46.0)
        assert widget.borderColor is T.GUI_WINDOW_BGCOLOR
        if CLASSES[name][1]["bgColor"] == WINDOW:
            assert widget.bgColor is T.GUI_WINDOW_BGCOLOR


# Accessors say in their docstrings which attributes they read or write.
SAYS = re.compile(r"(?:Return|Set) `(\w+)`(?: and `(\w+)`)?[:.]")
ROWS = [row for row in T.__declarations__() if row.get("name") in CLASSES]
ACCESSORS = [
    pytest.param(row["name"], method, [name for name in said.groups() if name], id=method["name"])
    for row in ROWS
    for method in row["members"]
    for said in [SAYS.match(method["doc"])]
    if said and method["kind"] == "method" and method["signature"] != "() -> None"
]
GETTERS = [row for row in ACCESSORS if row.values[1]["signature"].startswith("()")]
COLORS = [row for row in ACCESSORS if row.values[1]["signature"].startswith("(r: int")]
SETTERS = [row for row in ACCESSORS if row not in GETTERS + COLORS]
# Methods that are named otherwise than their attributes.
NAMES = {"AX": "anchorx", "AY": "anchory", "SizeRectVisible": "rectvisible", "XY": "x y"}
NAMES.update(SXY="sx sy", AXY="anchorx anchory", Collision="collisionType collisionInfo")
NAMES.update(ImageFile_focusIn="image_focusIn_File", CurrFrameIndex="currActionFrameIndex")
NAMES.update(AutoScroll="scrollType scrollSpeed", SwitchImageDelay="imageSwitchDelay")
NAMES.update(ImageFile_Hover="image_hover_File", ImageFile_Click="image_click_File")
NAMES.update(CurrFrame="currActionFrameIndex", PickDownEvent="Enable_PickDown", Target="targetNode")
NAMES.update(CollInfoVisible="coll_visible", CollRectArray="coll_rectArray", JumpState="isJumping")
NAMES.update(MaxCharCount="max_char_count", AutoSwitch="imageAutoSwitch", SceneList="SceneJsonDict")
NAMES.update(PickUpEvent="Enable_PickUp", AllGameNode="GameNodeDict", CursorPosition="cursorPos")
NAMES.update(AutoImageSize="autosize", Checked="CheckValue")


@pytest.mark.parametrize(("cls", "method", "names"), ACCESSORS)
def test_accessors_are_named_after_their_attributes(cls, method, names):
    key = re.sub("^(Get|Set|Is|Enable|Text|Font)+", "", method["name"])
    assert names == NAMES[key].split() if key in NAMES else key.lower() in names[0].lower()


@pytest.mark.parametrize(("cls", "method", "names"), SETTERS)
def test_setters_take_any_value_and_touch_nothing_else(screen, cls, method, names):
    thing, values = getattr(T, cls)(**CLASSES[cls][0]), [object() for _ in names]
    before, store = dict(vars(thing)), getattr(thing, method["name"])
    assert store(*values) is None
    changed = {name: value for name, value in vars(thing).items() if value is not before[name]}
    assert changed == dict(zip(names, values))
    pytest.raises(TypeError, store, *values, 1)


@pytest.mark.parametrize(("cls", "method", "names"), GETTERS)
def test_getters_return_what_is_stored(screen, cls, method, names):
    thing, values = getattr(T, cls)(**CLASSES[cls][0]), tuple(object() for _ in names)
    vars(thing).update(zip(names, values))
    get = getattr(thing, method["name"])
    assert get() == (values if len(names) > 1 else values[0])
    pytest.raises(TypeError, get, 1)
    delattr(thing, names[-1])
    pytest.raises(AttributeError, get)


@pytest.mark.parametrize(("cls", "method", "names"), COLORS)
def test_colors_are_opaque_unless_said_otherwise(screen, cls, method, names):
    thing = getattr(T, cls)(**CLASSES[cls][0])
    store, alpha = getattr(thing, method["name"]), "a: int" in method["signature"]
    store(1, 2, 3)
    assert getattr(thing, names[0]) == Color(1, 2, 3, 255)
    for bad in ((256, 0, 0), ("a", 0, 0), (1, 2), (1, 2, 3, 4, 5), (1, 2, 3, "a")):
        pytest.raises((TypeError, ValueError), store, *bad)
    if alpha:
        store(1, 2, 3, a=7)
    assert getattr(thing, names[0]).a == (7 if alpha else 255)
