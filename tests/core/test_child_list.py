import pytest
import Tessora as T
from helpers import Recorder


def family(count=3):
    parent = T.GameNode(None)
    return parent, [T.GameNode(parent) for _ in range(count)]


def indices(nodes):
    return [node.sortIndex for node in nodes]


def test_add_child():
    parent, (a, b, c) = family()
    assert parent.children == [a, b, c] and indices(parent.children) == [0, 1, 2]
    stray = T.GameNode(None)
    assert parent.AddChild(child=stray) is None
    assert stray.sortIndex == 3 and stray.parent is None
    parent.AddChild(a)
    assert parent.children == [a, b, c, stray, a] and a.sortIndex == 4


def test_add_child_numbers_before_it_appends():
    class Picky(T.GameNode):
        def SetSortIndex(self, i):
            raise LookupError(i)

    parent, _ = family(2)
    with pytest.raises(LookupError):
        parent.AddChild(Picky(None))
    with pytest.raises(AttributeError):
        parent.AddChild(object())
    assert len(parent.children) == 2


def test_remove_child_closes_the_gap():
    parent, (a, b, c) = family()
    leaf = T.GameNode(T.GameNode(b))
    assert parent.RemoveChild(child=b) is None
    assert parent.children == [a, c] and indices([a, c]) == [0, 1]
    assert b.children == [] and leaf.parent.children == [] and b.parent is parent
    parent.ReSortAllChild()
    assert parent.children == [a, c]
    parent.RemoveChild(b)
    parent.RemoveChild(None)
    assert parent.children == [a, c]


def test_remove_child_goes_by_sort_index():
    parent, (a, b, c) = family()
    a.SetSortIndex(5)
    parent.RemoveChild(a)
    assert indices([b, c]) == [1, 2]
    b.SetSortIndex(1.5)
    c.SetSortIndex(7)
    parent.RemoveChild(b)
    assert c.sortIndex == 6


def test_removing_changes_the_list_in_place():
    parent, (a, b, c) = family()
    children = parent.children
    parent.RemoveChild(a)
    assert parent.children is children
    parent.RemoveAllChildren()
    assert parent.children == [] and parent.children is not children and children == [b, c]


def test_membership_is_equality():
    class Twin(T.GameNode):
        __hash__ = None

        def __eq__(self, other):
            return isinstance(other, Twin)

    parent = T.GameNode(None)
    first, second = Twin(parent), Twin(parent)
    parent.RemoveChild(Twin(None))
    assert len(parent.children) == 1 and parent.children[0] is second
    assert first.parent is parent


def test_remove_all_children_is_depth_first():
    log = []

    class Noted(T.GameNode):
        def RemoveAllChildren(self):
            log.append(self.userData)
            T.GameNode.RemoveAllChildren(self)
            log.append(-self.userData)

    parent = T.GameNode(None)
    for number in (1, 2):
        Noted(parent).userData = number
    Noted(parent.children[0]).userData = 3
    kept = parent.children[0]
    parent.RemoveAllChildren()
    assert log == [1, 3, -3, -1, 2, -2] and kept.children == []


def test_all_children_in_post_order():
    root, (a, b, c) = family()
    a1, a2 = T.GameNode(a), T.GameNode(a)
    a11, b1 = T.GameNode(a1), T.GameNode(b)
    result = root.GetAllChildrens()
    assert result == [a11, a1, a2, a, b1, b, c]
    assert T.GameNode(None).GetAllChildrens() == []
    result.clear()
    assert len(root.GetAllChildrens()) == 7


def test_all_children_uses_what_a_child_answers():
    root, (a, b) = family(2)
    a.GetAllChildrens = lambda: "xy"
    assert root.GetAllChildrens() == ["x", "y", a, b]
    a.GetAllChildrens = lambda: 3
    with pytest.raises(TypeError):
        root.GetAllChildrens()


@pytest.mark.parametrize("order", [(0, 1, 2), (2, 0, 1), (2, 1, 0), (True, False, 2.0)])
def test_sorting(order):
    parent, nodes = family()
    for node, index in zip(nodes, order):
        node.SetSortIndex(index)
    assert parent.ReSortAllChild() is None
    assert [parent.children.index(node) for node in nodes] == list(order)
    assert parent.children == sorted(nodes, key=lambda node: node.sortIndex)


@pytest.mark.parametrize("order", [(0, 1, 3), (1, 2, 3), (0, 0, 1), (0, 2, 2), (-1, 0, 1), "abc"])
def test_sorting_with_a_gap_or_a_double_index_changes_nothing(order):
    parent, nodes = family()
    for node, index in zip(nodes, order):
        node.SetSortIndex(index)
    children = parent.children
    with pytest.raises(KeyError):
        parent.ReSortAllChild()
    assert parent.children is children and children == nodes


def test_sorting_with_an_unhashable_index():
    parent, (a, b) = family(2)
    a.SetSortIndex([])
    with pytest.raises(TypeError):
        parent.ReSortAllChild()
    assert parent.children == [a, b]


@pytest.mark.parametrize(
    "method, position, expected",
    [
        ("LayerUpChild", 0, [1, 0, 2]),
        ("LayerUpChild", 1, [0, 2, 1]),
        ("LayerUpChild", 2, [0, 1, 2]),
        ("LayerDownChild", 0, [0, 1, 2]),
        ("LayerDownChild", 1, [1, 0, 2]),
        ("LayerDownChild", 2, [0, 2, 1]),
    ],
)
def test_layer_steps(method, position, expected):
    parent, nodes = family()
    assert getattr(parent, method)(child=nodes[position]) is None
    assert parent.children == [nodes[i] for i in expected]
    assert indices(parent.children) == [0, 1, 2]
    getattr(parent, method)(T.GameNode(None))
    getattr(parent, method)(None)
    assert parent.children == [nodes[i] for i in expected]


def test_layer_step_renumbers_only_the_two_it_swaps():
    parent, (a, b, c) = family()
    for node in (a, b, c):
        node.SetSortIndex(50)
    parent.LayerUpChild(a)
    assert indices([a, b, c]) == [1, 0, 50]
    parent.LayerUpChild(c)
    assert c.sortIndex == 50


def test_foreign_children():
    parent = T.GameNode(None)
    stranger = Recorder(GetSortIndex=0, GetAllChildrens=["inner"])
    parent.AddChild(stranger)
    last = T.GameNode(parent)
    assert parent.GetAllChildrens() == ["inner", stranger, last]
    parent.LayerUpChild(stranger)
    assert parent.children == [last, stranger] and last.sortIndex == 0
    parent.RemoveChild(stranger)
    assert parent.children == [last]
    assert stranger.calls == [
        ("SetSortIndex", (0,)),
        ("GetAllChildrens", ()),
        ("SetSortIndex", (1,)),
        ("RemoveAllChildren", ()),
        ("GetSortIndex", ()),
    ]


@pytest.mark.parametrize("children", [None, 5, "text", (), {}])
def test_something_else_in_place_of_the_list(children):
    parent = T.GameNode(None)
    parent.children = children
    for act in (
        lambda: parent.AddChild(T.GameNode(None)),
        lambda: parent.RemoveChild(parent),
        lambda: parent.LayerUpChild(parent),
        parent.GetAllChildrens,
        parent.ReSortAllChild,
        lambda: parent.update(0),
        lambda: parent.OnPickDownFunction(0, 0),
    ):
        try:
            act()
        except (TypeError, AttributeError):
            pass
    parent.children = [T.GameNode(None)]
    assert len(parent.GetAllChildrens()) == 1


def test_any_sequence_of_children_is_walked():
    log = []
    parent, nodes = family(2)
    for node in nodes:
        node.UpdateFunction = log.append
    parent.children = tuple(nodes)
    parent.update(2)
    assert log == [2, 2] and parent.GetAllChildrens() == nodes
