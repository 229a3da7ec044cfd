"""Construction, attributes and accessors of the scene node."""

import pytest
import Tessora as T
from helpers import Recorder, Scene

INNER = {
    "Load": [],
    "Update": [],
    "Render": [],
    "Destroy": [],
    "PickDown": ["px", "py"],
    "PickUp": ["px", "py"],
}
DEFAULTS = [
    ("NodeType", "GameNode"),
    ("sceneInstance", None),
    ("parent", None),
    ("children", []),
    ("sortIndex", 0),
    ("KeyDownFunctionDict", {}),
    ("KeyUpFunctionDict", {}),
    ("BindingVarArray", {}),
    ("BindingEventArray", {}),
    ("BindingPointArray", {}),
    ("InnerBindingEventArray", {name: [None, params, []] for name, params in INNER.items()}),
    ("PickDownFunction", None),
    ("Enable_PickDown", True),
    ("PickUpFunction", None),
    ("Enable_PickUp", True),
    ("UpdateFunction", None),
    ("x", 0),
    ("y", 0),
    ("sx", 1.0),
    ("sy", 1.0),
    ("angle", 0.0),
    ("width", 0),
    ("height", 0),
    ("anchorx", 0.0),
    ("anchory", 0.0),
    ("instanceID", -1),
    ("visible", True),
    ("ActionPlayer", None),
    ("rectvisible", False),
    ("anchorvisible", False),
    ("lock_xysa", False),
    ("WSX", 1.0),
    ("WSY", 1.0),
    ("WAngle", 0.0),
    ("WX", 0.0),
    ("WY", 0.0),
    ("clicked", False),
    ("CheckPickDownChild", True),
    ("collisionType", -1),
    ("collisionInfo", None),
    ("editrectenable", False),
    ("editrectvisible", False),
    ("dragcornerindex", -2),
    ("dragbegin_x", -1),
    ("dragbegin_y", -1),
    ("focusIn", False),
    ("userData", None),
]

# getter, setter, its argument names, the attributes
ACCESSORS = [
    ("GetX", "SetX", ["x"], ["x"]),
    ("GetY", "SetY", ["y"], ["y"]),
    ("GetXY", "SetXY", ["x", "y"], ["x", "y"]),
    ("GetSX", "SetSX", ["sx"], ["sx"]),
    ("GetSY", "SetSY", ["sy"], ["sy"]),
    ("GetSXY", "SetSXY", ["sx", "sy"], ["sx", "sy"]),
    ("GetAngle", "SetAngle", ["angle"], ["angle"]),
    ("GetAX", "SetAX", ["ax"], ["anchorx"]),
    ("GetAY", "SetAY", ["ay"], ["anchory"]),
    ("GetAXY", "SetAXY", ["ax", "ay"], ["anchorx", "anchory"]),
    ("GetWidth", "SetWidth", ["w"], ["width"]),
    ("GetHeight", "SetHeight", ["h"], ["height"]),
    ("IsVisible", "SetVisible", ["v"], ["visible"]),
    ("IsAnchorVisible", "SetAnchorVisible", ["v"], ["anchorvisible"]),
    ("IsSizeRectVisible", "SetSizeRectVisible", ["v"], ["rectvisible"]),
    ("IsFocusIn", "SetFocusIn", ["v"], ["focusIn"]),
    ("GetCollision", "SetCollision", ["type", "info"], ["collisionType", "collisionInfo"]),
    ("GetCheckPickDownChild", "SetCheckPickDownChild", ["v"], ["CheckPickDownChild"]),
    ("GetUserData", "SetUserData", ["d"], ["userData"]),
    ("GetSortIndex", "SetSortIndex", ["i"], ["sortIndex"]),
    ("GetInstanceID", "SetInstanceID", ["i"], ["instanceID"]),
    ("GetSceneInstance", None, [], ["sceneInstance"]),
    ("GetNodeType", None, [], ["NodeType"]),
    ("GetParent", None, [], ["parent"]),
    ("GetBindingEventArray", None, [], ["BindingEventArray"]),
    ("GetInnerBindingEventArray", None, [], ["InnerBindingEventArray"]),
    ("GetBindingPointArray", None, [], ["BindingPointArray"]),
    ("GetBindingVarArray", None, [], ["BindingVarArray"]),
    (None, "SetUpdateFunction", None, ["UpdateFunction"]),
    (None, "SetPickDownFunction", ["f"], ["PickDownFunction"]),
    (None, "SetPickUpFunction", ["f"], ["PickUpFunction"]),
    (None, "EnablePickDownEvent", ["v"], ["Enable_PickDown"]),
    (None, "EnablePickUpEvent", ["v"], ["Enable_PickUp"]),
    (None, "SetEditRectEnable", ["v"], ["editrectenable"]),
    (None, "SetEditRectVisible", ["v"], ["editrectvisible"]),
]


def test_attributes_in_order_with_their_defaults():
    node = T.GameNode(None)
    assert list(vars(node)) == [name for name, _ in DEFAULTS]
    for name, value in DEFAULTS:
        found = getattr(node, name)
        assert found == value and type(found) is type(value), name
    assert list(node.InnerBindingEventArray) == list(INNER)


def test_tables_are_not_shared_between_nodes():
    first, second = T.GameNode(None), T.GameNode(None)
    for name, value in DEFAULTS:
        if isinstance(value, (list, dict)):
            assert getattr(first, name) is not getattr(second, name), name
    first.InnerBindingEventArray["PickDown"][1].append("more")
    first.InnerBindingEventArray["Load"][2].append("more")
    assert second.InnerBindingEventArray == T.GameNode(None).InnerBindingEventArray
    assert first.InnerBindingEventArray["PickUp"][1] == ["px", "py"]


@pytest.mark.parametrize("getter, setter, arguments, attributes", ACCESSORS)
def test_accessors(getter, setter, arguments, attributes):
    node = T.GameNode(None)
    before = dict(vars(node))
    values = [object() for _ in attributes]
    if setter:
        assert getattr(node, setter)(*values) is None
    else:
        for name, value in zip(attributes, values):
            setattr(node, name, value)
    for name, value in zip(attributes, values):
        assert getattr(node, name) is value
    changed = [name for name, value in vars(node).items() if value is not before[name]]
    assert sorted(changed) == sorted(attributes)
    if getter:
        found = getattr(node, getter)()
        if len(values) == 1:
            assert found is values[0]
        else:
            assert type(found) is tuple and list(found) == values
        with pytest.raises(TypeError):
            getattr(node, getter)(1)
    if setter and arguments:
        values = [object() for _ in attributes]
        getattr(node, setter)(**dict(zip(arguments, values)))
        assert [getattr(node, name) for name in attributes] == values
    if setter:
        with pytest.raises(TypeError):
            getattr(node, setter)()
        with pytest.raises(TypeError):
            getattr(node, setter)(*values, 1)
        with pytest.raises(TypeError):
            getattr(node, setter)(nonsense=1)


@pytest.mark.parametrize("getter, setter, arguments, attributes", [a for a in ACCESSORS if a[0]])
def test_getters_fail_on_a_missing_attribute(getter, setter, arguments, attributes):
    node = T.GameNode(None)
    delattr(node, attributes[-1])
    with pytest.raises(AttributeError):
        getattr(node, getter)()
    setattr(node, attributes[-1], 5)
    assert getattr(node, attributes[-1]) == 5


def test_position_properties():
    node = T.GameNode(None, 1, 2)
    assert (node.X, node.Y) == (1, 2)
    node.X, node.Y = 5, "6"
    assert node.GetXY() == (5, "6")
    assert "X" not in vars(node) and "Y" not in vars(node)
    del node.x
    with pytest.raises(AttributeError):
        node.X  # noqa: B018


def test_parent_has_no_default():
    with pytest.raises(TypeError):
        T.GameNode()
    node = T.GameNode(y=5, parent=None, x="left")
    assert node.GetXY() == ("left", 5)


def test_values_are_kept_as_given():
    huge = 10**50
    node = T.GameNode(None, huge, "text")
    assert node.x is huge and node.y == "text"
    with pytest.raises(TypeError):
        node.GetWY()
    node.y = 1
    assert node.GetWY() == 1


def test_constructor_tells_the_scene_before_joining_the_parent():
    log = []

    class Child(T.GameNode):
        def OnLoad(self, sceneInstance):
            log.append(("OnLoad", sceneInstance, list(vars(self)), len(self.parent.children)))
            T.GameNode.OnLoad(self, sceneInstance)

        def SetSortIndex(self, i):
            log.append(("SetSortIndex", i, list(vars(self))))
            T.GameNode.SetSortIndex(self, i)

    class Parent(T.GameNode):
        def GetSceneInstance(self):
            log.append("GetSceneInstance")
            return T.GameNode.GetSceneInstance(self)

        def AddChild(self, child):
            log.append(("AddChild", child.sceneInstance))
            T.GameNode.AddChild(self, child)

    five = ["NodeType", "sceneInstance", "parent", "children", "sortIndex"]
    parent = Parent(None)
    T.GameNode(parent)
    parent.OnLoad("scene")
    log.clear()
    child = Child(parent, 1, 2)
    assert log == [
        "GetSceneInstance",
        ("OnLoad", "scene", five, 1),
        ("AddChild", "scene"),
        ("SetSortIndex", 1, five),
    ]
    assert parent.children[1] is child and child.sortIndex == 1
    assert list(vars(child)) == [name for name, _ in DEFAULTS]


def test_attributes_that_the_load_hook_sets_are_overwritten():
    class Early(T.GameNode):
        def OnLoad(self, sceneInstance):
            self.x = self.width = self.own = 77
            self.sortIndex = 99

    parent = T.GameNode(None)
    parent.OnLoad("scene")
    node = Early(parent, 3)
    assert (node.x, node.width, node.own) == (3, 0, 77)
    assert node.sortIndex == 0 and node.sceneInstance is None
    names = [name for name, _ in DEFAULTS]
    assert list(vars(node)) == names[:5] + ["x", "width", "own"] + [
        n for n in names[5:] if n not in ("x", "width")
    ] or list(vars(node)) == names + ["own"]


def test_load_hook_that_needs_a_later_attribute_leaves_the_parent_alone():
    class Early(T.GameNode):
        def OnLoad(self, sceneInstance):
            return self.x

    parent = T.GameNode(None)
    parent.OnLoad("scene")
    with pytest.raises(AttributeError):
        Early(parent)
    assert parent.children == []
    assert T.GameNode(parent).sceneInstance == "scene"


@pytest.mark.parametrize("scene", [None, 0, "", []])
def test_a_falsy_scene_is_not_handed_on(scene):
    parent = T.GameNode(None)
    parent.sceneInstance = scene
    child = T.GameNode(parent)
    assert child.sceneInstance is None and parent.children == [child]


def test_falsy_parent_is_kept_but_not_asked():
    class Empty(T.GameNode):
        def __len__(self):
            return 0

    parent = Empty(None, 10, 20)
    parent.OnLoad("scene")
    child = T.GameNode(parent, 1, 2)
    assert child.parent is parent and parent.children == [] and child.sceneInstance is None
    assert child.GetWXY() == (11, 22)
    other = T.GameNode(None)
    other.SetParent(parent)
    assert other.parent is parent and parent.children == []
    other.SetParent(0)
    assert other.parent == 0


@pytest.mark.parametrize("parent", [1, "parent", object(), [1]])
def test_a_parent_without_the_methods(parent):
    with pytest.raises(AttributeError):
        T.GameNode(parent)


def test_a_layer_is_no_parent(screen):
    with pytest.raises(AttributeError):
        T.GameNode(T.GameLayer())


def test_set_parent():
    old, new = T.GameNode(None), T.GameNode(None)
    new.OnLoad("scene")
    child = T.GameNode(old)
    child.SetParent(new)
    assert old.children == [child] and new.children == [child]
    assert child.parent is new and child.sceneInstance is None
    child.SetParent(p=new)
    assert new.children == [child, child] and child.sortIndex == 1
    child.SetParent(None)
    assert child.parent is None and new.children == [child, child]


def test_load_and_destroy_reach_the_whole_subtree():
    root = T.GameNode(None)
    child = T.GameNode(root)
    leaf = T.GameNode(child)
    scene = Scene()
    root.OnLoad(sceneInstance=scene)
    assert [n.GetSceneInstance() for n in (root, child, leaf)] == [scene] * 3
    leaf.instanceID = child.instanceID = 5
    kept = {}
    replaced = "KeyDownFunctionDict KeyUpFunctionDict BindingVarArray BindingEventArray"
    for name in replaced.split() + ["BindingPointArray", "children"]:
        kept[name] = getattr(root, name)
    root.SetBindingVar("a", 1)
    root.PickDownFunction = root.userData = "kept"
    inner = root.InnerBindingEventArray
    assert root.OnDestroy() is None
    for name, table in kept.items():
        assert getattr(root, name) == type(table)() and getattr(root, name) is not table, name
    assert kept["BindingVarArray"] == {"a": 1} and kept["children"] == [child]
    assert [n.instanceID for n in (root, child, leaf)] == [-1] * 3
    assert child.children == [] and child.parent is root and leaf.parent is child
    assert root.InnerBindingEventArray is inner and root.sceneInstance is scene
    assert root.PickDownFunction == root.userData == "kept"


def test_destroy_runs_children_first_and_stops_at_an_error():
    root = T.GameNode(None)
    root.AddChild(Recorder())
    bad = T.GameNode(root)
    bad.OnDestroy = lambda: 1 / 0
    with pytest.raises(ZeroDivisionError):
        root.OnDestroy()
    assert len(root.children) == 2 and root.children[0].names()[-1] == "OnDestroy"
    del bad.OnDestroy
    root.OnDestroy()
    assert root.children == []


def test_copy_to_copies_through_the_setters():
    source, seen = T.GameNode(None, 3, 4), []

    class Target(T.GameNode):
        def SetXY(self, x, y):
            seen.append((x, y))
            T.GameNode.SetXY(self, x, y)

    source.SetSXY(2, 3)
    source.SetAXY(0.5, 1)
    source.SetAngle(30)
    source.SetWidth(7)
    source.SetHeight(8)
    source.SetVisible(False)
    source.SetSizeRectVisible(True)
    source.SetCollision(1, "shape")
    source.SetUserData("mine")
    source.SetBindingVar("a", 1)
    source.SetBindingPoint("p", 0, 1, 2)
    source.SetInstanceID(9)
    source.NodeType = "Special"
    T.GameNode(source)
    target = Target(None)
    source.CopyTo(target)
    same = "sx sy anchorx anchory angle width height visible rectvisible collisionType"
    for name in same.split() + ["collisionInfo", "userData", "BindingVarArray", "x", "y"]:
        assert getattr(target, name) == getattr(source, name), name
    assert (3, 4) in seen
    assert target.BindingPointArray == {"p": (0, 1, 2)}
    assert target.BindingVarArray is not source.BindingVarArray
    assert target.instanceID == -1 and target.NodeType == "GameNode" and target.children == []
