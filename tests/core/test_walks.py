"""Callbacks that change a list while the engine walks over it."""

import pytest
import Tessora as T
from helpers import Scene

WALKS = {"update": (1,), "draw": (None, 0, 0, 1.0), "OnLoad": (Scene(),), "OnDestroy": ()}
WALKS.update(OnEditRectDraging=(0, 0), OnPickDownFunction=(-9, -9), OnPickUpFunction=(-9, -9))


def turn(method):
    def step(self, *args):
        # The load hook runs in the constructor, too.
        if "act" in vars(self):
            self.log.append(self.name)
            act, self.act = self.act, None
            if act:
                act(self)
        return getattr(T.GameNode, method)(self, *args)

    return step


# Notes that its turn has come, then does once what `act` holds.
Acting = type("Acting", (T.GameNode,), {name: turn(name) for name in WALKS})


def make(name, log, parent=None):
    node = Acting(parent)
    node.name, node.log, node.act = name, log, None
    return node


def remove(names):
    def act(node):
        for child in list(node.parent.children):
            if child.name in names:
                node.parent.RemoveChild(child)

    return act


CHANGES = [
    # what the second of four children does, who is visited in a walk forwards and backwards
    (remove("b"), "abcd", "dcba"),
    (remove("a"), "abcd", "dcb"),
    (remove("c"), "abd", "dcba"),
    (remove("abcd"), "ab", "dcb"),
    (lambda node: node.parent.RemoveAllChildren(), "ab", "dcb"),
    (lambda node: node.parent.children.clear(), "ab", "dcb"),
    (lambda node: node.parent.LayerUpChild(node), "abcd", "dcba"),
    (lambda node: make("new", node.log, node.parent), "abcd", "dcba"),
    (lambda node: node.parent.children.insert(0, make("new", node.log)), "abcd", "dcba"),
    (lambda node: setattr(node.parent, "children", [make("n", node.log)]), "ab", "dcb"),
    (lambda node: (node.parent.OnDestroy(), vars(node).update(children=[])), None, None),
]


@pytest.mark.parametrize("walk", WALKS)
@pytest.mark.parametrize("act, forwards, backwards", CHANGES)
def test_changes_during_a_walk_over_children(walk, act, forwards, backwards):
    log, root = [], T.GameNode(None)
    nodes = {name: make(name, log, root) for name in "abcd"}
    nodes["b"].act = act
    getattr(root, walk)(*WALKS[walk])
    assert "".join(log) == (backwards if "Pick" in walk else forwards) or forwards is None
    root.children = [nodes["a"], nodes["a"]]
    log.clear()
    root.update(1)
    assert log == ["a", "a"]


def test_changes_in_a_list_of_a_scripts_own():
    log, root = [], T.GameNode(None)
    nodes = [make(name, log, root) for name in "abc"]
    root.children = type("Own", (list,), {})(nodes)
    nodes[0].act = lambda node: root.children.remove(nodes[1])
    root.update(1)
    assert log == ["a", "c"]


def forget(*numbers):
    return lambda layer: [layer.GameNodeDict.pop(number) for number in numbers]


LAYER_CHANGES = [
    (lambda layer: layer.DelGameNode(2), "abcd"),
    (lambda layer: layer.CleanUpGameNode(), "abcd"),
    (lambda layer: layer.AddGameNode(make("new", [])), "abcd"),
    (lambda layer: layer.AddGameNode(make("new", []), False), "abcd"),
    (forget(1), "abcd"),
    (forget(2), "abd"),
    (forget(0, 1, 2, 3), "ab"),
    (lambda layer: setattr(layer, "GameNodeDict", {}), "ab"),
    (lambda layer: layer.LayerUpGameNode(1), "abcd"),
    (lambda layer: layer.GameNodeKeyArray.clear(), None),
    (lambda layer: (layer.DelGameNode(2), layer.update(1)), None),
    (lambda layer: layer.OnDestroy(), None),
]


@pytest.mark.parametrize("walk", WALKS)
@pytest.mark.parametrize("act, expected", LAYER_CHANGES)
def test_changes_during_a_walk_over_a_layer(screen, walk, act, expected):
    log, layer = [], T.GameLayer()
    layer.OnLoad(Scene())
    for name in "abcd":
        layer.AddGameNode(make(name, log))
    log.clear()
    layer.GetGameNode(1).act = lambda node: act(layer)
    getattr(layer, walk)(*((screen,) if walk == "draw" else WALKS[walk]))
    assert expected is None or "".join(log) == expected
    # Whatever happened, the layer goes on working.
    layer.OnDestroy()
    layer.draw(screen)
    assert layer.AddGameNode(make("late", log)) >= 4
    log.clear()
    layer.update(1)
    layer.draw(screen)
    assert log == ["late", "late"]


def test_a_child_that_drops_every_reference_to_itself():
    root = T.GameNode(None)
    for _ in range(50):
        T.GameNode(root).UpdateFunction = lambda delay: root.RemoveAllChildren()
    root.update(1)
    assert root.children == []
