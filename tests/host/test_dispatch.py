"""Replacing a method, or a whole object, is honoured wherever the engine makes the call."""

import functools

import pytest
import Tessora as T
from helpers import Recorder

# An object whose method answers with `function(*arguments)`, replaced in one of these ways.
WAYS = ["subclass", "instance", "class", "mapping", "callable", "property"]


def replace(way, cls, arguments, name, function, patch):
    if way in ("subclass", "property"):
        method = property(lambda self: function) if way == "property" else None
        body = {name: method or (lambda self, *args: function(*args))}
        return type("Deeper", (type("Script", (cls,), body),), {})(*arguments)
    thing, old = cls(*arguments), getattr(cls, name)
    if way == "class":
        # Everybody's method changes, so others fall through to the old one.
        new = lambda node, *args: (function if node is thing else old.__get__(node))(*args)  # noqa: E731
        patch.setattr(cls, name, new)
    else:
        vars(thing)[name] = functools.partial(function) if way == "callable" else function
    return thing


# What is done, and the calls it makes on the replaced node; "parent" lists it as a child, "child"
# has it for a parent, "layer" holds it.
CALLS = """
node.draw(s, 1, 2, 3): draw_begin(1,2,3) drawsize(s) drawAnchor(s,3) drawDragRect(s,6,-2)
node.draw(s, 1, 2, 3): draw_children(s,1,2,3) IsVisible()
node.draw_begin(): GetWX() GetWY() GetWSX() GetWSY() GetWAngle()
node.GetWXY(), node.GetWSXY(): GetWX() GetWY() GetAXW() GetAYH() GetWPSX() GetWPSY()
node.GetWPXY(), node.GetWAngle(), node.GetSizeRect(): GetWPX() GetWPY() GetWPAngle() GetWX()
node.OnPickDownFunction(1, 2): IsVisible() checkDragRect(1,2)
node.checkClick(1, 2), node.OnPickUpFunction(1, 2): IsVisible()
T.GameNode(node): GetSceneInstance() AddChild
child.GetWXY(), child.draw_begin(): GetWX() GetWY()
child.draw_begin(): GetWSX() GetWSY() GetWAngle()
child.GetPAXW(), child.GetPAYH(), child.GetSizeRect(): GetAXW() GetAYH() GetWX() GetWY()
parent.draw(s, 1, 2, 3): draw(s,1,2,3) IsVisible()
parent.draw_children(s, 1, 2, 3): draw(s,1,2,3)
parent.update(5), parent.OnLoad(5): update(5) OnLoad(5)
parent.OnPickDownFunction(1, 2): OnPickDownFunction(1,2)
parent.OnPickUpFunction(1, 2): OnPickUpFunction(1,2)
parent.OnEditRectDraging(1, 2), parent.OnDestroy(): OnEditRectDraging(1,2) OnDestroy()
parent.GetLeft(), parent.GetTop(), parent.GetAllChildrens(): GetLeft() GetTop() GetAllChildrens()
parent.GetRight(), parent.GetBottom(): GetRight() GetBottom()
parent.RemoveChild(node), parent.ReSortAllChild(): RemoveAllChildren() GetSortIndex()
child.AddChild(node), child.checkCollision(node): SetSortIndex(0) GetSizeRect()
layer.OnLoad(5), layer.update(5), layer.DelGameNode(0): OnLoad(5) update(5) GetAllChildrens()
layer.draw(s), layer.CheckAllGameNode(), layer.OnDestroy(): draw(s,0,0,1.0) OnDestroy()
layer.CheckAllGameNode(): GetInstanceID()
layer.OnPickDownFunction(1, 2): OnPickDownFunction(1,2)
layer.OnPickUpFunction(1, 2): OnPickUpFunction(1,2)
layer.OnKeyDownFunction(1), layer.OnKeyUpFunction(1): OnKeyDownFunction(1) OnKeyUpFunction(1)
layer.OnEditRectDraging(1, 2), layer.AddGameNode(node): OnEditRectDraging(1,2) SetInstanceID(1)
play(node, T.MoveToAction(1, 2, 3)): SetXY GetWX GetWY
play(node, T.ScaleByAction(1, 2, 3)): SetSXY GetSX GetSY
play(node, T.RotateByAction(1, 2)): SetAngle GetAngle
play(node, T.BlinkAction(1, 2)): SetVisible IsVisible
play(child, action): Run() update(0.125) IsOver() SetTarget
play(child, move): Run() update(0.125) IsOver() SetTarget
"""
ANSWERS = {"GetAllChildrens": [], "GetSizeRect": T.Rect(0, 0, 1, 1), "checkDragRect": -2}
ANSWERS.update(GetSceneInstance=None, IsOver=False, GetSortIndex=0, IsVisible=0)
MADE = {"action)": (T.GAction, ()), "move)": (T.MoveToAction, (1, 2, 3))}
ROWS = [line.split(": ") for line in CALLS.strip().splitlines()]
ROWS = [(act, call) for act, calls in ROWS for call in calls.split()]


def play(node, action):
    node.RunAction(action)
    node.update(0.125)


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize("act, call", ROWS)
def test_the_engines_own_calls(monkeypatch, screen, capsys, way, act, call):
    calls, active, (name, _, arguments) = [], [], call.partition("(")

    def function(*args):
        if active:
            calls.append(args)
        return ANSWERS.get(name, 5)

    cls, values = MADE.get(act.split()[-1], (T.GameNode, (None,)))
    thing = replace(way, cls, values, name, function, monkeypatch)
    parent, child, layer = T.GameNode(None), T.GUI_Image(None, 0, 0), T.GameLayer()
    if cls is T.GameNode:
        parent.children.append(thing)
        child.parent = thing
        layer.AddGameNode(thing)
    active.append(True)
    names = {"node": thing, "action": thing, "move": thing, "parent": parent, "child": child}
    names.update(layer=layer, s=screen, T=T, play=play)
    eval(act, names)
    expected = eval(f"(lambda *args: args)({arguments}", names) if arguments else calls[0]
    several = "GetWX GetWY GetWPX GetWPY GetAXW GetAYH IsVisible GetSortIndex".split()
    assert calls[0] == expected and (len(calls) == 1 or name in several)


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


def test_an_override_calls_its_base_and_the_base_calls_overrides(screen):
    log = []

    class Mixin:
        def draw(self, *args):
            log.append("mixin")
            super().draw(*args)

    body = {"draw_begin": lambda self, *args: log.append("begin")}
    root = T.GameNode(None)
    picture = type("Picture", (Mixin, T.GUI_Image), body)(root, 1, y=2)
    root.draw(screen, 0, 0, 1.0)
    assert log == ["mixin", "begin"] and picture.GetXY() == (1, 2)


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


def test_foreign_objects_in_every_place(screen):
    dock = Recorder(9, GetSceneInstance="scene", GetWX=100)
    node = T.GameNode(dock, 1, 2)
    assert dock.calls[-1] == ("AddChild", (node,)) and node.sceneInstance == "scene"
    assert node.GetWXY() == (101, 11) and node.GetWSXY() == (9, 9) and node.GetWAngle() == 9
    for parent in (1, "parent", object(), [1], T.GameLayer()):
        pytest.raises(AttributeError, T.GameNode, parent)
    parent, child = T.GameNode(None), Recorder(IsVisible=1, GetAllChildrens="xy")
    parent.AddChild(child)
    parent.draw(screen, 1, 2, 3)
    parent.update(0.5)
    assert parent.GetAllChildrens() == ["x", "y", child]
    seen = [("SetSortIndex", (0,)), ("IsVisible", ()), ("draw", (screen, 1, 2, 3))]
    assert child.calls == [*seen, ("update", (0.5,)), ("GetAllChildrens", ())]
