"""Replacing a method, or a whole object, is honoured wherever the engine makes the call."""

import functools

import pygame
import pytest
import Tessora as T
from helpers import Recorder

SURFACE = pygame.Surface((8, 8))
CAMERA = (SURFACE, 1, 2, 3)
ANY_ARGUMENTS = object()
# What is done to an object, and the calls it makes on the replaced one: methods and arguments.
NODE = [
    (lambda node: node.draw(*CAMERA), {"draw_begin": (1, 2, 3), "drawsize": (SURFACE,)}),
    (lambda node: node.draw(*CAMERA), {"drawAnchor": (SURFACE, 3), "draw_children": CAMERA}),
    (lambda node: node.draw(*CAMERA), {"drawDragRect": (SURFACE, 6, -2), "IsVisible": ()}),
    (lambda node: node.draw_begin(), {"GetWX": (), "GetWY": (), "GetWSX": (), "GetWSY": ()}),
    (lambda node: node.GetWXY(), {"GetWX": (), "GetWY": (), "GetAXW": (), "GetAYH": ()}),
    (lambda node: node.OnPickDownFunction(1, 2), {"IsVisible": (), "checkDragRect": (1, 2)}),
    (lambda node: node.OnPickUpFunction(1, 2), {"IsVisible": ()}),
    (lambda node: node.checkClick(1, 2), {"IsVisible": ()}),
    (lambda node: T.GameNode(node), {"GetSceneInstance": (), "AddChild": ANY_ARGUMENTS}),
    (lambda node: play(node, T.MoveToAction(1, 2, 3)), {"GetWX": (), "GetWY": ()}),
    (lambda node: play(node, T.MoveToAction(1, 2, 3)), {"SetXY": ANY_ARGUMENTS}),
    (lambda node: play(node, T.ScaleByAction(1, 2, 3)), {"GetSX": (), "GetSY": ()}),
    (lambda node: play(node, T.ScaleByAction(1, 2, 3)), {"SetSXY": ANY_ARGUMENTS}),
    (lambda node: play(node, T.RotateByAction(1, 2)), {"GetAngle": (), "SetAngle": ANY_ARGUMENTS}),
    (lambda node: play(node, T.BlinkAction(1, 2)), {"IsVisible": (), "SetVisible": (False,)}),
]
# The replaced node is asked by its child,
CHILD = [
    (lambda child: child.draw_begin(), {"GetWX": (), "GetWSY": (), "GetWAngle": ()}),
    (lambda child: child.GetPAXW(), {"GetAXW": ()}),
    (lambda child: child.GetPAYH(), {"GetAYH": ()}),
    (lambda child: child.AddChild(child.parent), {"SetSortIndex": (0,)}),
    (lambda child: child.checkCollision(child.parent), {"GetSizeRect": ()}),
]
# by its parent,
PARENT = [
    (lambda parent: parent.draw(*CAMERA), {"draw": CAMERA, "IsVisible": ()}),
    (lambda parent: parent.draw_children(*CAMERA), {"draw": CAMERA}),
    (lambda parent: parent.ReSortAllChild(), {"GetSortIndex": ()}),
    (lambda parent: parent.RemoveChild(parent.children[0]), {"RemoveAllChildren": ()}),
]
# or by its layer;
LAYER = [
    (lambda layer: layer.draw(SURFACE), {"draw": (SURFACE, 0, 0, 1.0)}),
    (lambda layer: layer.DelGameNode(0), {"GetAllChildrens": ()}),
    (lambda layer: layer.CheckAllGameNode(), {"GetInstanceID": ()}),
    (lambda layer: layer.AddGameNode(layer.GetGameNode(0)), {"SetInstanceID": (1,)}),
]


# The same call, handed on.
def handed_on(name, *arguments):
    return (lambda above: getattr(above, name)(*arguments), {name: arguments})


for rows in (PARENT, LAYER):
    rows += [handed_on("update", 5), handed_on("OnLoad", 5), handed_on("OnDestroy")]
    rows += [handed_on("OnPickDownFunction", 1, 2), handed_on("OnPickUpFunction", 1, 2)]
    rows += [handed_on("OnEditRectDraging", 1, 2)]
PARENT += [handed_on("GetAllChildrens"), handed_on("GetLeft"), handed_on("GetTop")]
PARENT += [handed_on("GetRight"), handed_on("GetBottom")]
LAYER += [handed_on("OnKeyDownFunction", 1), handed_on("OnKeyUpFunction", 1)]
# an action is played on a node.
PLAYED = {"Run": (), "update": (0.125,), "IsOver": (), "SetTarget": ANY_ARGUMENTS}
ACTION = [(lambda action: play(T.GameNode(None), action), PLAYED)]

SIDES = {"node": NODE, "child": CHILD, "parent": PARENT, "layer": LAYER, "action": ACTION}
SIDES["move"] = ACTION
CALLS = [
    pytest.param(side, act, name, arguments, id=f"{side} {index} {name}")
    for side, table in SIDES.items()
    for index, (act, calls) in enumerate(table)
    for name, arguments in calls.items()
]
# What the replacement answers, where 5 will not do.
ANSWERS = {"GetAllChildrens": [], "GetSizeRect": T.Rect(0, 0, 1, 1), "checkDragRect": -2}
ANSWERS.update(GetSceneInstance=None, IsOver=False, GetSortIndex=0, IsVisible=0)
WAYS = ["subclass", "instance", "class", "mapping", "callable", "property"]


def play(node, action):
    node.RunAction(action)
    node.update(0.125)


# An object of the class whose method is replaced by `function` in one of the ways.
def replace(way, cls, arguments, name, function, patch):
    if way == "subclass":
        script = type("Script", (cls,), {name: lambda self, *args: function(*args)})
        return type("Deeper", (script,), {})(*arguments)
    if way == "property":
        return type("Script", (cls,), {name: property(lambda self: function)})(*arguments)
    thing, old = cls(*arguments), getattr(cls, name)
    if way == "instance":
        setattr(thing, name, function)
    elif way == "mapping":
        vars(thing)[name] = function
    elif way == "callable":
        setattr(thing, name, functools.partial(function))
    else:
        # Everybody's method changes, so the others go on to the old one.
        def changed(node, *args):
            return function(*args) if node is thing else old(node, *args)

        patch.setattr(cls, name, changed)
    return thing


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize(("side", "act", "name", "arguments"), CALLS)
def test_the_engines_own_calls(monkeypatch, screen, capsys, way, side, act, name, arguments):
    calls, watching = [], []

    def function(*args):
        if watching:
            calls.append(args)
        return ANSWERS.get(name, 5)

    cls = {"action": T.GAction, "move": T.MoveToAction}.get(side, T.GameNode)
    values = {T.GAction: (), T.MoveToAction: (1, 2, 3)}.get(cls, (None,))
    thing = replace(way, cls, values, name, function, monkeypatch)
    things = {"node": thing, "action": thing, "move": thing, "layer": T.GameLayer()}
    things.update(parent=T.GameNode(None), child=T.GUI_Image(None, 0, 0))
    if cls is T.GameNode:
        things["parent"].children.append(thing)
        things["child"].parent = thing
        things["layer"].AddGameNode(thing)
    watching.append(True)
    act(things[side])
    assert calls and (arguments is ANY_ARGUMENTS or calls[0] == arguments)


def test_replacements_come_and_go(screen):
    parent, calls = T.GameNode(None), []
    child = T.GameNode(parent)
    for _ in range(3):
        parent.update(1)
        child.update = calls.append
        parent.update(2)
        del child.update
    assert calls == [2, 2, 2]
    child.draw = None
    pytest.raises(TypeError, parent.draw, screen, 0, 0, 1.0)


# A base's method, classes that extend it, and the arguments of a call that takes the base step.
PRESSED = "GUI_HScrollBar GUI_Scale GUI_ListBox GUI_ComboBox GUI_Tree GameCharacter"
RELEASED = "GUI_VScrollBar GUI_Scale GUI_ListBox GUI_ComboBox"
BASE_STEPS = [
    (T.GameNode, "update", "GUI_Image", (1,)),
    (T.GameNode, "CopyTo", "GUI_Image", (T.GUI_Image(),)),
    (T.GUI_Image, "CopyTo", "GUI_Label", (T.GUI_Image(),)),
    (T.GUI_Label, "CopyTo", "GUI_Button", (T.GUI_Image(),)),
    (T.GameNode, "OnPickDownFunction", "GUI_Button", (1, 1)),
    (T.GameNode, "OnPickUpFunction", "GUI_Button", (1, 1)),
    (T.GUI_Image, "OnPickDownFunction", PRESSED, (0, 0)),
    (T.GUI_Image, "OnPickUpFunction", RELEASED, (0, 0)),
    (T.GUI_Image, "OnKeyDownFunction", "GUI_ListBox GUI_ComboBox GUI_Edit GUI_Text", ("a",)),
    (T.GUI_Label, "OnLoad", "GUI_MsgBox", (None,)),
    (T.GUI_Image, "GetSizeRect", "GameCharacter", ()),
    (T.GAction, "Run", "ActionPlayer", ()),
    (T.GAction, "update", "ActionPlayer", (1,)),
]
BASE_STEPS = [
    pytest.param(base, name, cls, arguments, id=f"{base.__name__}.{name} {cls}")
    for base, name, classes, arguments in BASE_STEPS
    for cls in classes.split()
]


@pytest.mark.parametrize(("base", "name", "cls", "arguments"), BASE_STEPS)
def test_a_method_replaced_on_a_base_is_the_base_step(monkeypatch, base, name, cls, arguments):
    thing, asked = getattr(T, cls)(), []
    if base is T.GAction:
        thing.SetTarget(T.GameNode(None))
        vars(thing).update(running=True, over=False, runtime=0)
        thing.AddActions([T.GAction()])
    monkeypatch.setattr(base, name, lambda self, *args: asked.append(self))
    getattr(thing, name)(*arguments)
    assert thing in asked


def test_a_base_class_lends_its_methods_to_the_classes_below(screen):
    root = T.GameNode(None)
    type("Bare", (T.GUI_Image,), {"draw": T.GameNode.draw})(root)
    root.draw(screen, 0, 0, 1.0)
    assert screen.get_at((50, 50))[:3] == (0, 0, 0)


def test_class_values_of_a_plain_mixin_stay_live():
    mixin = type("Mixin", (), {"userData": "a", "update": None})
    cls = type("Hero", (mixin, T.GameNode), {})
    hero, other = cls.__new__(cls), cls(None)
    assert (hero.userData, other.userData) == ("a", None)
    mixin.userData = "b"
    assert (hero.userData, other.userData) == ("b", None)
    del mixin.userData
    assert not hasattr(hero, "userData")
    mixin.userData = "c"
    assert hero.userData == "c"
    del other.userData
    assert other.userData == "c"


def test_methods_of_a_plain_mixin_stay_live():
    mixin, calls = type("Mixin", (), {}), []
    root = T.GameNode(None)
    type("Hero", (mixin, T.GameNode), {})(root)
    root.update(1)
    mixin.update = lambda self, delay: calls.append(delay)
    root.update(2)
    del mixin.update
    root.update(3)
    assert calls == [2]


# The interpreter gives a class only so many versions.
def test_a_class_that_was_written_to_very_often_still_changes():
    cls = type("Enemy", (T.GameNode,), {"alive": 0})
    child = T.GameNode(cls(T.GameNode(None, 7)))
    for _ in range(5000):
        cls.alive += 1
    assert (cls.alive, child.GetWX()) == (5000, 7)
    cls.GetWX = lambda self: 50
    assert child.GetWX() == 50
    del cls.GetWX
    assert child.GetWX() == 7
    cls.x = property(lambda self: 30)
    assert child.GetWX() == 37


def test_very_many_classes_keep_their_own_methods():
    classes = [type("C", (T.GameNode,), {"GetWX": lambda self, i=i: i}) for i in range(3000)]
    plain = [type("P", (T.GameNode,), {}) for _ in range(3000)]
    children = [T.GameNode(make(None, 5)) for pair in zip(classes, plain) for make in pair]
    for _ in range(2):
        found = [child.GetWX() for child in children]
        assert found[::2] == list(range(3000)) and set(found[1::2]) == {5}


def fail(error):
    raise error


@pytest.mark.parametrize("error", [KeyboardInterrupt, SystemExit, LookupError, StopIteration])
def test_what_a_script_raises_comes_out_unchanged_and_ends_the_frame_only(error):
    raised, log, parent = error("text"), [], T.GameNode(None)
    child = T.GameNode(T.GameNode(parent))
    child.update = lambda delay: fail(raised)
    T.GameNode(parent).UpdateFunction = log.append
    assert pytest.raises(error, parent.update, 1).value is raised and log == []
    del child.update
    parent.update(2)
    assert log == [2]


def test_foreign_parents_are_asked_by_name():
    dock = Recorder(9, GetSceneInstance="scene", GetWX=100)
    node = T.GameNode(dock, 1, 2)
    assert dock.calls[-1] == ("AddChild", (node,)) and node.sceneInstance == "scene"
    assert node.GetWXY() == (101, 11) and node.GetWSXY() == (9, 9) and node.GetWAngle() == 9


@pytest.mark.parametrize("parent", [1, "parent", object(), [1], T.GameLayer])
def test_parents_without_the_methods_are_refused(screen, parent):
    parent = parent() if parent is T.GameLayer else parent
    pytest.raises(AttributeError, T.GameNode, parent)


def test_foreign_children_are_asked_by_name(screen):
    parent, child = T.GameNode(None), Recorder(IsVisible=1, GetAllChildrens="xy")
    parent.AddChild(child)
    parent.draw(screen, 1, 2, 3)
    parent.update(0.5)
    assert parent.GetAllChildrens() == ["x", "y", child]
    seen = [("SetSortIndex", (0,)), ("IsVisible", ()), ("draw", (screen, 1, 2, 3))]
    assert child.calls == [*seen, ("update", (0.5,)), ("GetAllChildrens", ())]
