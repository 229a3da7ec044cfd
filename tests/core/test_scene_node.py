"""Construction, the list of children, and the life of a scene node."""

import pytest
import Tessora as T
from helpers import Scene, make_node

FIVE = ["NodeType", "sceneInstance", "parent", "children", "sortIndex"]


def family(count=3):
    parent = T.GameNode(None)
    return parent, [T.GameNode(parent) for _ in range(count)]


def test_constructor_tells_the_scene_before_joining_the_parent():
    log = []

    class Child(T.GameNode):
        def OnLoad(self, sceneInstance):
            log.append((sceneInstance, list(vars(self)), len(self.parent.children)))
            self.x = self.own = self.sortIndex = 77

        def SetSortIndex(self, i):
            log.append((i, list(vars(self))[:5]))
            T.GameNode.SetSortIndex(self, i)

    parent, _ = family(1)
    parent.OnLoad("scene")
    child = Child(parent, 1, 2)
    assert log == [("scene", FIVE, 1), (1, FIVE)] and parent.children[1] is child
    # What the hook set is overwritten.
    assert (child.x, child.own, child.sortIndex) == (1, 77, 1) and list(vars(child))[:5] == FIVE


def test_falsy_parents_and_scenes_are_kept_but_not_asked():
    parent = type("Empty", (T.GameNode,), {"__len__": lambda self: 0})(None, 10)
    parent.OnLoad("scene")
    child = T.GameNode(parent, 1, 2)
    assert child.parent is parent and parent.children == [] and child.sceneInstance is None


def test_load_and_destroy_reach_the_whole_subtree():
    root, (child, bad) = family(2)
    leaf, scene = T.GameNode(child), Scene()
    for event in ("Load", "Update", "Destroy"):
        root.SetInnerBindingEvent(event, event.lower(), None)
    root.OnLoad(sceneInstance=scene)
    root.update(1)
    assert [n.GetSceneInstance() for n in (root, child, leaf)] == [scene] * 3
    leaf.instanceID = child.instanceID = root.userData = 5
    bad.OnDestroy = lambda: 1 / 0
    pytest.raises(ZeroDivisionError, root.OnDestroy)
    assert root.children == [child, bad] and child.instanceID == leaf.instanceID == -1
    del bad.OnDestroy
    kept, root.KeyDownFunctionDict["a"] = dict(vars(root)), len
    root.OnDestroy()
    assert [name for name, _ in scene.calls] == ["on_load", "on_update", *["on_destroy"] * 2]
    replaced = "children KeyDownFunctionDict KeyUpFunctionDict BindingVarArray BindingEventArray"
    replaced = [*replaced.split(), "BindingPointArray"]
    assert [n for n, value in vars(root).items() if value is not kept[n]] == replaced
    assert not any(vars(root)[n] for n in replaced) and kept["KeyDownFunctionDict"] == {"a": len}
    assert leaf.parent is child and kept["children"] == [child, bad]


def test_copy_to_copies_through_the_setters():
    source, seen = make_node(None, x=3, y=4, sx=2, anchory=1, angle=30, width=7, visible=False), []
    source.rectvisible, source.collisionType, source.userData = True, 1, "mine"
    source.SetBindingVar("a", 1)
    source.SetInstanceID(9)
    T.GameNode(source)
    target = type("Target", (T.GameNode,), {"SetXY": lambda self, *place: seen.append(place)})(None)
    source.CopyTo(target)
    same = "sx sy anchorx anchory angle width height visible rectvisible collisionType userData"
    for name in [*same.split(), "BindingVarArray"]:
        assert getattr(target, name) == getattr(source, name), name
    assert (3, 4) in seen and target.BindingVarArray is not source.BindingVarArray
    assert target.instanceID == -1 and target.children == []
    target.X, target.Y = 5, "6"
    assert (target.x, target.y) == (5, "6") == (target.X, target.Y) and "X" not in vars(target)


def test_adding_and_set_parent_leave_other_lists_alone():
    (old, (a, b)), new = family(2), T.GameNode(None)
    old.AddChild(child=a)
    assert old.children == [a, b, a] and a.sortIndex == 2 and b.sortIndex == 1
    for _ in range(2):
        a.SetParent(new)
    assert old.children == [a, b, a] and new.children == [a, a] and a.sortIndex == 1
    # A child is numbered before it is appended.
    a.SetSortIndex = lambda i: 1 / 0
    pytest.raises(ZeroDivisionError, new.AddChild, a)
    pytest.raises(AttributeError, new.AddChild, object())
    assert len(new.children) == 2


def test_remove_child_goes_by_sort_index_and_changes_the_list_in_place():
    parent, (a, b, c, d) = family(4)
    leaf, children = T.GameNode(T.GameNode(b)), parent.children
    assert parent.GetAllChildrens() == [a, leaf, leaf.parent, b, c, d]
    for _ in range(2):
        parent.RemoveChild(child=b)
    assert parent.children is children == [a, c, d] and (c.sortIndex, d.sortIndex) == (1, 2)
    a.SetSortIndex(1.5)
    parent.RemoveChild(a)
    assert [c.sortIndex, d.sortIndex] == [1, 1]
    parent.RemoveAllChildren()
    parent.x = 50
    assert parent.children == [] and children == [c, d] and c.GetWX() == 50
    # Membership is equality.
    twin = type("Twin", (T.GameNode,), {"__eq__": lambda self, other: True, "__hash__": None})
    second = [twin(parent), twin(parent)][1]
    parent.RemoveChild(twin(None))
    assert len(parent.children) == 1 and parent.children[0] is second


ORDERS = [(2, 0, 1), (2, 1, 0), (True, False, 2.0)]
GAPS = [(0, 1, 3), (1, 2, 3), (0, 0, 1), (-1, 0, 1), (0, 1, "c"), (0, 1, [])]


@pytest.mark.parametrize("order", ORDERS + GAPS)
def test_sorting_needs_every_index_once(order):
    parent, nodes = family()
    for node, index in zip(nodes, order):
        node.SetSortIndex(index)
    children = parent.children
    if order in ORDERS:
        parent.ReSortAllChild()
        assert [parent.children.index(node) for node in nodes] == list(order)
    else:
        pytest.raises(TypeError if order[2] == [] else KeyError, parent.ReSortAllChild)
        assert parent.children is children and children == nodes


def test_layer_steps_renumber_only_the_two_they_swap():
    parent, (a, b, c) = family()
    a.sortIndex = b.sortIndex = c.sortIndex = 50
    steps = [("Up", a, "bac"), ("Up", c, "bac"), ("Down", b, "bac"), ("Down", a, "abc")]
    for step, node, order in [*steps, ("Up", parent, "abc")]:
        expected = [{"a": a, "b": b, "c": c}[name] for name in order]
        getattr(parent, f"Layer{step}Child")(child=node)
        assert parent.children == expected and c.sortIndex == 50
        assert a.sortIndex == expected.index(a) and b.sortIndex == expected.index(b)
