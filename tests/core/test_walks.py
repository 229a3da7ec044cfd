"""Callbacks that change a list while the engine walks over it."""

import contextlib

import pytest
import Tessora as T
from helpers import Scene


class Acting(T.GameNode):
    """Notes that its turn has come, then does what `act` holds."""

    def __init__(self, parent, name, log):
        T.GameNode.__init__(self, parent)
        self.name, self.log, self.act = name, log, None

    def turn(self):
        self.log.append(self.name)
        if self.act:
            self.act(self)

    def update(self, delay):
        self.turn()
        T.GameNode.update(self, delay)

    def draw(self, screen, offsetX, offsetY, scale):
        self.turn()
        T.GameNode.draw(self, screen, offsetX, offsetY, scale)

    def OnLoad(self, sceneInstance):
        if hasattr(self, "log"):
            self.turn()
        T.GameNode.OnLoad(self, sceneInstance)

    def OnDestroy(self):
        self.turn()
        T.GameNode.OnDestroy(self)

    def OnPickDownFunction(self, x, y):
        self.turn()
        return T.GameNode.OnPickDownFunction(self, x, y)

    def OnPickUpFunction(self, x, y):
        self.turn()
        return T.GameNode.OnPickUpFunction(self, x, y)

    def OnEditRectDraging(self, *args):
        self.turn()
        return T.GameNode.OnEditRectDraging(self, *args)


WALKS = {
    "update": lambda node: node.update(1),
    "draw": lambda node: node.draw(None, 0, 0, 1.0),
    "draw_children": lambda node: node.draw_children(None, 0, 0, 1.0),
    "load": lambda node: node.OnLoad(Scene()),
    "destroy": lambda node: node.OnDestroy(),
    "drag": lambda node: node.OnEditRectDraging(0, 0),
    "press": lambda node: node.OnPickDownFunction(-9, -9),
    "release": lambda node: node.OnPickUpFunction(-9, -9),
}
BACKWARDS = ("press", "release")


def remove(*names):
    def act(node):
        siblings = {n.name: n for n in node.parent.children}
        for name in names:
            if name in siblings:
                node.parent.RemoveChild(siblings[name])

    return act


def add(node):
    Acting(node.parent, "new", node.log)


def add_in_front(node):
    node.parent.children.insert(0, Acting(None, "new", node.log))


def replace(node):
    node.parent.children = [Acting(None, "new", node.log)]


def reverse(node):
    node.parent.children.reverse()


def move_to_end(node):
    node.parent.children.remove(node)
    node.parent.children.append(node)


CHANGES = [
    # what the second of four children does, who is visited in a walk forwards and backwards
    (remove("b"), "abcd", "dcba"),
    (remove("a"), "abcd", "dcb"),
    (remove("c"), "abd", "dcba"),
    (remove("a", "b"), "abcd", "dcb"),
    (remove("a", "b", "c", "d"), "ab", "dcb"),
    (lambda node: node.parent.RemoveAllChildren(), "ab", "dcb"),
    (lambda node: node.parent.children.clear(), "ab", "dcb"),
    (lambda node: setattr(node.parent, "children", []), "ab", "dcb"),
    (lambda node: node.parent.LayerUpChild(node), "abcd", "dcba"),
    (lambda node: node.parent.LayerDownChild(node), "abcd", "dcba"),
    (reverse, "abcd", "dcba"),
    (move_to_end, "abcd", "dcba"),
    (add, "abcd", "dcba"),
    (add_in_front, "abcd", "dcba"),
    (replace, "ab", "dcb"),
]


@pytest.mark.parametrize("walk", sorted(WALKS))
@pytest.mark.parametrize("act, forwards, backwards", CHANGES)
def test_changes_during_a_walk_over_children(walk, act, forwards, backwards):
    log = []
    root = T.GameNode(None)
    nodes = {name: Acting(root, name, log) for name in "abcd"}
    nodes["b"].act = act
    WALKS[walk](root)
    assert "".join(log) == (backwards if walk in BACKWARDS else forwards)
    root.children = [nodes["a"]]
    log.clear()
    nodes["b"].act = None
    WALKS[walk](root)
    assert log == ["a"]


@pytest.mark.parametrize("walk", sorted(set(WALKS) - {"destroy"}))
def test_a_child_listed_twice_has_two_turns(walk):
    log = []
    root = T.GameNode(None)
    node = Acting(root, "a", log)
    root.AddChild(node)
    WALKS[walk](root)
    assert log == ["a", "a"]


@pytest.mark.parametrize("walk", ["update", "draw", "load", "press", "release", "drag"])
def test_destroying_the_whole_tree_from_inside(walk):
    log = []
    root = Acting(None, "root", log)
    middle = Acting(root, "middle", log)
    leaf = Acting(middle, "leaf", log)
    last = Acting(root, "last", log)

    def destroy(node):
        leaf.act = last.act = None
        root.OnDestroy()
        vars(node).pop("children", None)
        node.children = []

    leaf.act = last.act = destroy
    WALKS[walk](root)
    assert root.children == [] and root.instanceID == -1
    log.clear()
    root.update(1)
    assert log == ["root"]


def test_a_child_that_drops_every_reference_to_itself(screen):
    root = T.GameNode(None)
    for _ in range(50):
        child = T.GameNode(root)
        child.UpdateFunction = lambda delay: root.RemoveAllChildren()
    del child
    root.update(1)
    assert root.children == []
    child = T.GameNode(root)
    child.PickDownFunction = lambda node: (root.RemoveAllChildren(), vars(node).clear())
    child.SetWidth(5)
    child.SetHeight(5)
    del child
    with contextlib.suppress(AttributeError):
        # The press may miss what it needs next, no more than that.
        root.OnPickDownFunction(1, 1)
    assert root.children == []


class Walker(T.GameLayer):
    def __init__(self):
        T.GameLayer.__init__(self)
        self.OnLoad(Scene())


LAYER_WALKS = {
    "update": lambda layer, screen: layer.update(1),
    "draw": lambda layer, screen: layer.draw(screen),
    "load": lambda layer, screen: layer.OnLoad(Scene()),
    "destroy": lambda layer, screen: layer.OnDestroy(),
    "press": lambda layer, screen: layer.OnPickDownFunction(-9, -9),
    "release": lambda layer, screen: layer.OnPickUpFunction(-9, -9),
    "drag": lambda layer, screen: layer.OnEditRectDraging(0, 0),
}


def forget(*numbers):
    def act(layer):
        for number in numbers:
            layer.GameNodeDict.pop(number, None)

    return act


LAYER_CHANGES = [
    (lambda layer: layer.DelGameNode(2), "abcd"),
    (lambda layer: layer.CleanUpGameNode(), "abcd"),
    (lambda layer: layer.AddGameNode(Acting(None, "new", [])), "abcd"),
    (lambda layer: layer.AddGameNode(Acting(None, "new", []), False), "abcd"),
    (forget(1), "abcd"),
    (forget(2), "abd"),
    (forget(0, 1, 2, 3), "ab"),
    (lambda layer: setattr(layer, "GameNodeDict", {}), "ab"),
    (lambda layer: layer.LayerUpGameNode(1), "abcd"),
    (lambda layer: setattr(layer, "GameNodeKeyArray", []), "abcd"),
    (lambda layer: layer.GameNodeKeyArray.clear(), None),
    (lambda layer: layer.OnLoad("other"), None),
    (lambda layer: layer.OnDestroy(), None),
]


@pytest.mark.parametrize("walk", sorted(LAYER_WALKS))
@pytest.mark.parametrize("act, expected", LAYER_CHANGES)
def test_changes_during_a_walk_over_a_layer(screen, walk, act, expected):
    log = []
    layer = Walker()
    nodes = {name: Acting(None, name, log) for name in "abcd"}
    for node in nodes.values():
        layer.AddGameNode(node)
    log.clear()

    def once(node):
        node.act = None
        act(layer)

    nodes["b"].act = once
    LAYER_WALKS[walk](layer, screen)
    if expected:
        assert "".join(log) == expected
    # Whatever happened, the layer goes on working.
    layer.OnDestroy()
    layer.draw(screen)
    log.clear()
    late = Acting(None, "late", log)
    number = layer.AddGameNode(late)
    assert number >= 4 and layer.GetGameNode(number) is late
    log.clear()
    layer.update(1)
    layer.draw(screen)
    assert log == ["late", "late"]


def test_a_press_that_changes_the_scene(screen):
    log = []
    layer = Walker()
    nodes = [Acting(None, name, log) for name in "abc"]
    for node in nodes:
        layer.AddGameNode(node)
    log.clear()
    nodes[1].act = lambda node: (setattr(node, "act", None), layer.OnDestroy())
    layer.OnPickDownFunction(0, 0)
    assert log == ["a", "b", "a", "b", "c"] and layer.GetGameNodeCount() == 0
    layer.update(1)
    layer.draw(screen)


def test_a_nested_walk_leaves_the_outer_one_alone(screen):
    log = []
    layer = Walker()
    nodes = [Acting(None, name, log) for name in "abc"]
    for node in nodes:
        layer.AddGameNode(node)
    log.clear()

    def nested(node):
        node.act = None
        layer.DelGameNode(2)
        layer.update(1)

    nodes[0].act = nested
    layer.update(1)
    assert log == ["a", "a", "b", "c", "b"] and layer.GetGameNodeCount() == 2
    assert layer.GameNodeKeyArray == [0, 1, 2]
