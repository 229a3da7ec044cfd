"""Construction, children and life of a node."""

import pytest
import Tessora as T

FIVE = ["NodeType", "sceneInstance", "parent", "children", "sortIndex"]


def family(count=3):
    parent = T.GameNode(None)
    return parent, [T.GameNode(parent) for _ in range(count)]


def test_the_constructor_tells_the_scene_before_joining_the_parent():
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
    # What the hook set is overwritten, except what was set before.
    assert (child.x, child.own, child.sortIndex) == (1, 77, 1)


def test_falsy_parents_are_kept_but_not_asked():
    parent = type("Empty", (T.GameNode,), {"__len__": lambda self: 0})(None, 10)
    parent.OnLoad("scene")
    child = T.GameNode(parent, 1, 2)
    child.SetParent(parent)
    assert child.parent is parent and parent.children == [] and child.sceneInstance is None


def test_arguments_that_do_not_fit_are_named():
    pytest.raises(TypeError, T.GameNode, None, nonsense=1).match("nonsense")
    pytest.raises(TypeError, T.GameNode, None, parent=1).match("multiple values.*parent")


REPLACED = ["children", "KeyDownFunctionDict", "KeyUpFunctionDict", "BindingVarArray"]
REPLACED += ["BindingEventArray", "BindingPointArray"]


def test_destroying_empties_the_tables_of_the_whole_subtree():
    root, (child,) = family(1)
    leaf = T.GameNode(child)
    leaf.instanceID = child.instanceID = root.instanceID = 5
    kept = dict(vars(root))
    root.KeyDownFunctionDict["a"] = len
    root.OnDestroy()
    changed = [name for name, value in vars(root).items() if value is not kept[name]]
    assert changed == [*REPLACED, "instanceID"] and not any(vars(root)[n] for n in REPLACED)
    assert root.instanceID == child.instanceID == leaf.instanceID == -1
    assert kept["KeyDownFunctionDict"] == {"a": len} and kept["children"] == [child]
    assert leaf.parent is child


def test_a_failing_destruction_leaves_the_children():
    root, (child, bad) = family(2)
    bad.OnDestroy = lambda: 1 / 0
    pytest.raises(ZeroDivisionError, root.OnDestroy)
    assert root.children == [child, bad]


def test_position_properties_read_and_write_the_attributes():
    node = T.GameNode(None, 3, 4)
    node.X, node.Y = 5, "6"
    assert (node.x, node.y) == (5, "6") == (node.X, node.Y) and "X" not in vars(node)


def test_a_new_parent_leaves_the_old_list_alone():
    (old, (a, b)), new = family(2), T.GameNode(None)
    for _ in range(2):
        a.SetParent(new)
    assert old.children == [a, b] and new.children == [a, a] and a.sortIndex == 1


def test_a_child_is_numbered_before_it_is_added():
    parent, (a, b) = family(2)
    parent.AddChild(child=a)
    assert parent.children == [a, b, a] and a.sortIndex == 2
    a.SetSortIndex = lambda i: 1 / 0
    pytest.raises(ZeroDivisionError, parent.AddChild, a)
    pytest.raises(AttributeError, parent.AddChild, object())
    assert len(parent.children) == 3


def test_removing_a_child_empties_its_subtree_and_keeps_the_list():
    parent, (a, b, c, d) = family(4)
    leaf, children = T.GameNode(T.GameNode(b)), parent.children
    assert parent.GetAllChildrens() == [a, leaf, leaf.parent, b, c, d]
    for _ in range(2):
        parent.RemoveChild(child=b)
    assert parent.children is children == [a, c, d] and (c.sortIndex, d.sortIndex) == (1, 2)
    assert b.children == leaf.parent.children == [] and b.parent is parent


@pytest.mark.parametrize("index", [1, 1.5])
def test_removing_goes_by_sort_index_not_by_place(index):
    parent, (a, b, c) = family(3)
    a.SetSortIndex(index)
    parent.RemoveChild(a)
    assert (b.sortIndex, c.sortIndex) == (1, 1)


def test_membership_is_equality():
    parent = T.GameNode(None)
    twin = type("Twin", (T.GameNode,), {"__eq__": lambda self, other: True, "__hash__": None})
    second = [twin(parent), twin(parent)][1]
    parent.RemoveChild(twin(None))
    assert len(parent.children) == 1 and parent.children[0] is second


def test_removed_children_still_follow_their_parent():
    parent, (child,) = family(1)
    children = parent.children
    parent.RemoveAllChildren()
    parent.x = 50
    assert parent.children == [] and children == [child] and child.GetWX() == 50


@pytest.mark.parametrize("order", [(2, 0, 1), (2, 1, 0), (True, False, 2.0)])
def test_sorting_by_index(order):
    parent, nodes = family()
    for node, index in zip(nodes, order):
        node.SetSortIndex(index)
    parent.ReSortAllChild()
    assert [parent.children.index(node) for node in nodes] == list(order)


GAPS = [(0, 1, 3), (1, 2, 3), (0, 0, 1), (-1, 0, 1), (0, 1, "c"), (0, 1, [])]


@pytest.mark.parametrize("order", GAPS, ids=str)
def test_sorting_needs_every_index_once(order):
    parent, nodes = family()
    for node, index in zip(nodes, order):
        node.SetSortIndex(index)
    children = parent.children
    pytest.raises(TypeError if order[2] == [] else KeyError, parent.ReSortAllChild)
    assert parent.children is children == nodes


STEPS = [("Up", 0, [1, 0, 2]), ("Up", 2, [0, 1, 2]), ("Down", 1, [1, 0, 2])]
STEPS += [("Down", 0, [0, 1, 2]), ("Up", 1, [0, 2, 1]), ("Down", 2, [0, 2, 1])]


@pytest.mark.parametrize(("step", "which", "order"), STEPS)
def test_layer_steps_renumber_only_the_two_they_swap(step, which, order):
    parent, nodes = family()
    for node in nodes:
        node.sortIndex = 50
    getattr(parent, f"Layer{step}Child")(child=nodes[which])
    assert parent.children == [nodes[index] for index in order]
    swapped = [index for place, index in enumerate(order) if place != index]
    for index, node in enumerate(nodes):
        assert node.sortIndex == (order.index(index) if index in swapped else 50)


def test_layer_steps_of_others_change_nothing():
    parent, nodes = family()
    parent.LayerUpChild(parent)
    parent.LayerDownChild(T.GameNode(None))
    assert parent.children == nodes
