"""Attributes of the classes that are no widgets: order, defaults, accessors."""

import re
from unittest.mock import ANY

import pytest
import Tessora as T
from pygame.math import Vector2

NODE = """NodeType='GameNode', sceneInstance=None, parent=None, children=[], sortIndex=0,
KeyDownFunctionDict={}, KeyUpFunctionDict={}, BindingVarArray={}, BindingEventArray={},
BindingPointArray={}, InnerBindingEventArray={'Load': [None, [], []], 'Update': [None, [], []],
'Render': [None, [], []], 'Destroy': [None, [], []], 'PickDown': [None, ['px', 'py'], []],
'PickUp': [None, ['px', 'py'], []]}, PickDownFunction=None, Enable_PickDown=True,
PickUpFunction=None, Enable_PickUp=True, UpdateFunction=None, x=0, y=0, sx=1.0, sy=1.0, angle=0.0,
width=0, height=0, anchorx=0.0, anchory=0.0, instanceID=-1, visible=True, ActionPlayer=None,
rectvisible=False, anchorvisible=False, lock_xysa=False, WSX=1.0, WSY=1.0, WAngle=0.0, WX=0.0,
WY=0.0, clicked=False, CheckPickDownChild=True, collisionType=-1, collisionInfo=None,
editrectenable=False, editrectvisible=False, dragcornerindex=-2, dragbegin_x=-1, dragbegin_y=-1,
focusIn=False, userData=None"""
LAYER = """sceneInstance=None, NodeType='GameLayer', LayerName=None, GameNodeDict={},
SortGameNodeInstanceIDArray=[], GameNodeKeyArray=[], AddGameNodeDict={}, DelGameNodeArray=[],
BindingEventArray={}, PointArray=[], LineArray=[], RectArray=[], InnerBindingEventArray={
'Load': [None, []], 'Update': [None, []], 'Render': [None, []], 'Destroy': [None, []],
'PickDown': [None, []], 'PickUp': [None, []], 'PickTile': [None, []]}, UserFunctionDict={},
instanceID=0, visible=True, scrollType=0, scrollSpeed=0, scrollPosX=0, scrollPosY=0, font=ANY"""
MANAGER = """resdir='none', fontdir=None, fileDict={}, ImageDict={}, soundDict={},
ImageDict_MemManage_List=[], ImageDict_MemManage_Total=100, ImageDict_MemManage_Count=0,
SceneJsonDict=[], soundPlayCount=0"""
ACTION = "running=False, targetNode=None, runtime=0, over=False"
MOVE = "duration=2, srcPostion=Vector2(0, 0), dstPostion=Vector2(3, 4)"
TURN = "duration=2, srcAngle=0, dstAngle=3"
CLASSES = f"""GameNode | parent=None, x=0, y=0 | NODE
GameLayer | | LAYER
PyGameResManager | resdir='none' | MANAGER
GAction | | ACTION
ActionPlayer | | ActionArray=None, ActionIndex=0
CallBackAction | duration=2, callbackFunc=len | duration=2, callbackFunc=len, callbackParams={{}}
MoveToAction | duration=2, x=3, y=4 | {MOVE}
MoveByAction | duration=2, x=3, y=4 | {MOVE}
ScaleToAction | duration=2, sx=3, sy=4 | {MOVE.replace("Postion", "Scale").replace("0", "1")}
ScaleByAction | duration=2, sx=3, sy=4 | {MOVE.replace("Postion", "Scale")}
RotateToAction | duration=2, angle=3 | {TURN}
RotateByAction | duration=2, angle=3 | {TURN}
BlinkAction | duration=2, blinkcount=4 | duration=2, blinkcount=4, delaytime=0.5, blinkindex=0"""


def table(text):
    return eval(f"dict({text})", {"Vector2": Vector2, "ANY": ANY})


@pytest.mark.parametrize("row", CLASSES.splitlines())
def test_attributes_in_order_with_their_defaults(screen, row):
    name, arguments, attributes = [part.strip() for part in row.split("|")]
    attributes = globals().get(attributes) or f"{ACTION}, " * (name != "ActionPlayer") + attributes
    cls, arguments, expected = getattr(T, name), table(arguments), table(attributes)
    first, second = cls(**arguments), cls(*arguments.values())
    for thing in (first, second):
        assert list(vars(thing)) == list(expected)
        for attribute, value in expected.items():
            found = getattr(thing, attribute)
            assert found == value and (value is ANY or type(found) is type(value)), attribute
    for attribute, value in expected.items():
        if isinstance(value, (list, dict, Vector2)):
            assert getattr(first, attribute) is not getattr(second, attribute), attribute
    if "InnerBindingEventArray" in expected:
        entries = first.InnerBindingEventArray
        assert list(entries) == list(expected["InnerBindingEventArray"])
        entries["PickDown"][1].append("more")
        assert cls(**arguments).InnerBindingEventArray == second.InnerBindingEventArray
    pytest.raises(TypeError, cls, *arguments.values(), 1)
    if name != "CallBackAction":
        pytest.raises(TypeError, cls, **arguments, nonsense=1)
    if arguments:
        pytest.raises(TypeError, cls)


# getter, setter (without its "Set"; "-" for none), argument names, attributes when they differ
ACCESSORS = {
    T.GameNode: """GetX X x; GetY Y y; GetXY XY x,y; GetSX SX sx; GetSY SY sy; GetSXY SXY sx,sy
GetAngle Angle angle; GetAX AX ax anchorx; GetAY AY ay anchory; GetAXY AXY ax,ay anchorx,anchory
GetWidth Width w width; GetHeight Height h height; IsVisible Visible v visible
IsAnchorVisible AnchorVisible v anchorvisible; IsSizeRectVisible SizeRectVisible v rectvisible
IsFocusIn FocusIn v focusIn; GetCollision Collision type,info collisionType,collisionInfo
GetCheckPickDownChild CheckPickDownChild v CheckPickDownChild; GetUserData UserData d userData
GetSortIndex SortIndex i sortIndex; GetInstanceID InstanceID i instanceID
GetSceneInstance - sceneInstance; GetNodeType - NodeType; GetParent - parent
GetBindingEventArray - BindingEventArray; GetInnerBindingEventArray - InnerBindingEventArray
GetBindingPointArray - BindingPointArray; GetBindingVarArray - BindingVarArray
- UpdateFunction f UpdateFunction; - PickDownFunction f PickDownFunction
- PickUpFunction f PickUpFunction; - EnablePickDownEvent v Enable_PickDown
- EnablePickUpEvent v Enable_PickUp; - EditRectEnable v editrectenable
- EditRectVisible v editrectvisible""",
    T.GameLayer: """GetLayerName LayerName name LayerName; IsVisible Visible v visible
GetAutoScroll AutoScroll scrollType,scrollSpeed; GetSceneInstance - sceneInstance
GetNodeType - NodeType; GetAllGameNode - GameNodeDict; GetPointArray - PointArray
GetLineArray - LineArray; GetRectArray - RectArray""",
    T.GAction: "IsRunning - running; GetRunTime - runtime; IsOver - over; - Target targetNode",
}
ROWS = [(cls, row) for cls, text in ACCESSORS.items() for row in re.split(r"; |\n", text)]


@pytest.mark.parametrize("cls, row", ROWS)
def test_accessors(screen, cls, row):
    getter, setter, arguments, attributes = [part.split(",") for part in (row + " -").split()[:4]]
    attributes = arguments if attributes == ["-"] else attributes
    thing = cls(None) if cls is T.GameNode else cls()
    values, more = [object() for _ in attributes], [object() for _ in attributes]
    before = dict(vars(thing))
    if setter == ["-"]:
        vars(thing).update(zip(attributes, values))
    else:
        name = setter[0] if setter[0].startswith("Enable") else "Set" + setter[0]
        store = getattr(thing, name)
        store(**dict(zip(arguments, more)))
        assert [getattr(thing, name) for name in attributes] == more
        assert store(*values) is None
        for refused in (lambda: store(), lambda: store(*values, 1), lambda: store(nonsense=1)):
            pytest.raises(TypeError, refused)
    changed = {name: value for name, value in vars(thing).items() if value is not before[name]}
    assert changed == dict(zip(attributes, values))
    if getter != ["-"]:
        get = getattr(thing, getter[0])
        found = get()
        assert found == tuple(values) if len(values) > 1 else found is values[0]
        pytest.raises(TypeError, get, 1)
        delattr(thing, attributes[-1])
        pytest.raises(AttributeError, get)
