"""Replacing a method is honoured wherever the engine itself makes the call."""

import pytest
import Tessora as T
from helpers import Recorder, Scene

# How a script can replace a method of one node.
WAYS = ["subclass", "grandchild", "instance", "class", "mapping", "callable object"]


class Call:
    def __init__(self, function):
        self.function = function

    def __call__(self, *args, **params):
        return self.function(*args, **params)


def replace(way, cls, make, name, function, monkeypatch):
    """An object made by `make(class)` whose method answers with `function(*arguments)`."""

    def method(self, *args):
        return function(*args)

    if way in ("subclass", "grandchild"):
        made = type("Script", (cls,), {name: method})
        return make(type("Deeper", (made,), {}) if way == "grandchild" else made)
    thing = make(cls)
    if way == "instance":
        setattr(thing, name, function)
    elif way == "mapping":
        vars(thing)[name] = function
    elif way == "callable object":
        setattr(thing, name, Call(function))
    else:
        # Everybody's method changes, so others fall through to the old one.
        old = getattr(cls, name)

        def patched(self, *args):
            return function(*args) if self is thing else old(self, *args)

        monkeypatch.setattr(cls, name, patched)
    return thing


# the replaced method, what it answers, the engine call on a child or a parent of that node
AS_PARENT = [
    ("GetWX", 50, lambda c: c.GetWX(), 50),
    ("GetWX", 50, lambda c: c.GetWPXY(), (50, 0)),
    ("GetWX", 50, lambda c: c.GetWXY(), (50, 0)),
    ("GetWX", 50, lambda c: c.GetCenterX(), 50),
    ("GetWX", 50, lambda c: c.GetSizeRect().x, 50),
    ("GetWX", 50, lambda c: (c.draw_begin(), c.WX)[1], 50),
    ("GetWY", 50, lambda c: c.GetWPY(), 50),
    ("GetWSX", 3, lambda c: c.GetWSX(), 3),
    ("GetWSY", 3, lambda c: c.GetWPSXY(), (1, 3)),
    ("GetWAngle", 30, lambda c: c.GetWAngle(), 30),
    ("GetWAngle", 30, lambda c: (c.draw_begin(), c.WAngle)[1], 30),
    ("GetAXW", 7, lambda c: c.GetPAXW(), 7),
    ("GetAYH", 7, lambda c: c.GetPAYH(), 7),
]


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize("name, answer, act, expected", AS_PARENT)
def test_calls_on_a_parent(monkeypatch, way, name, answer, act, expected):
    parent = replace(
        way, T.GameNode, lambda cls: cls(None), name, lambda *args: answer, monkeypatch
    )
    assert act(T.GameNode(parent)) == expected
    assert act(T.GUI_Image(parent, 0, 0)) == expected


# the replaced method, its answer, what is done to the node, the arguments seen
ON_SELF = [
    ("IsVisible", False, lambda n, s: n.draw(s, 1, 2, 3), [()]),
    ("IsVisible", False, lambda n, s: n.OnPickDownFunction(1, 1), [()]),
    ("IsVisible", False, lambda n, s: n.OnPickUpFunction(1, 1), [()]),
    ("IsVisible", False, lambda n, s: n.checkClick(1, 1), [()]),
    ("draw_begin", None, lambda n, s: n.draw(s, 1, 2, 3), [(1, 2, 3)]),
    ("drawsize", None, lambda n, s: n.draw(s, 1, 2, 3), [("screen",)]),
    ("drawAnchor", None, lambda n, s: n.draw(s, 1, 2, 3), [("screen", 3)]),
    ("drawDragRect", None, lambda n, s: n.draw(s, 1, 2, 3), [("screen", 6, -2)]),
    ("draw_children", None, lambda n, s: n.draw(s, 1, 2, 3), [("screen", 1, 2, 3)]),
    ("GetWX", 5, lambda n, s: n.draw_begin(), [()]),
    ("GetWX", 5, lambda n, s: n.GetWXY(), [()]),
    ("GetWY", 5, lambda n, s: n.GetSizeRect(), [()]),
    ("GetWX", 5, lambda n, s: n.GetCenterXY(), [()]),
    ("GetWPX", 5, lambda n, s: n.GetWX(), [()]),
    ("GetWPY", 5, lambda n, s: n.GetWPXY(), [()]),
    ("GetAXW", 5, lambda n, s: n.GetWX(), [()]),
    ("GetAYH", 5, lambda n, s: n.GetWY(), [()]),
    ("GetWSX", 5, lambda n, s: n.draw_begin(), [()]),
    ("GetWPSX", 5, lambda n, s: n.GetWSX(), [()]),
    ("GetWPSY", 5, lambda n, s: n.GetWSXY(), [()]),
    ("GetWPAngle", 5, lambda n, s: n.GetWAngle(), [()]),
    ("GetWAngle", 5, lambda n, s: n.draw_begin(), [()]),
    ("checkDragRect", -2, lambda n, s: n.OnPickDownFunction(1, 2), [(1, 2)]),
    ("AddChild", None, lambda n, s: T.GameNode(n), None),
    ("GetSceneInstance", None, lambda n, s: T.GameNode(n), [()]),
]


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize("name, answer, act, seen", ON_SELF)
def test_calls_on_itself(monkeypatch, screen, capsys, way, name, answer, act, seen):
    calls = []

    def function(*args):
        calls.append(tuple("screen" if arg is screen else arg for arg in args))
        return answer

    node = replace(way, T.GameNode, lambda cls: cls(None), name, function, monkeypatch)
    act(node, screen)
    if seen is None:
        ((child,),) = calls
        assert child.parent is node
    else:
        assert calls == seen


# the replaced method of a child, its answer, what is done to the parent, the arguments seen
ON_CHILD = [
    ("IsVisible", False, lambda p, c, s: p.draw(s, 1, 2, 3), [()]),
    ("draw", None, lambda p, c, s: p.draw(s, 1, 2, 3), [("screen", 1, 2, 3)]),
    ("draw", None, lambda p, c, s: p.draw_children(s, 1, 2, 3), [("screen", 1, 2, 3)]),
    ("update", None, lambda p, c, s: p.update(0.5), [(0.5,)]),
    ("OnLoad", None, lambda p, c, s: p.OnLoad(5), [(5,)]),
    ("OnDestroy", None, lambda p, c, s: p.OnDestroy(), [()]),
    ("OnPickDownFunction", 5, lambda p, c, s: p.OnPickDownFunction(1, 2), [(1, 2)]),
    ("OnPickUpFunction", 5, lambda p, c, s: p.OnPickUpFunction(1, 2), [(1, 2)]),
    ("OnEditRectDraging", None, lambda p, c, s: p.OnEditRectDraging(1, 2), [(1, 2)]),
    ("GetLeft", -9, lambda p, c, s: p.GetLeft(), [()]),
    ("GetTop", -9, lambda p, c, s: p.GetTop(), [()]),
    ("GetRight", 9, lambda p, c, s: p.GetRight(), [()]),
    ("GetBottom", -9, lambda p, c, s: p.GetBottom(), [()]),
    ("GetAllChildrens", [], lambda p, c, s: p.GetAllChildrens(), [()]),
    ("RemoveAllChildren", None, lambda p, c, s: p.RemoveAllChildren(), [()]),
    ("RemoveAllChildren", None, lambda p, c, s: p.RemoveChild(c), [()]),
    ("GetSortIndex", 0, lambda p, c, s: p.ReSortAllChild(), [()]),
    ("SetSortIndex", None, lambda p, c, s: T.GameNode(None).AddChild(c), [(0,)]),
    ("GetSizeRect", T.Rect(0, 0, 1, 1), lambda p, c, s: p.checkCollision(c), [()]),
]


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize("name, answer, act, seen", ON_CHILD)
def test_calls_on_a_child(monkeypatch, screen, way, name, answer, act, seen):
    calls = []
    active = []

    def function(*args):
        if active:
            calls.append(tuple("screen" if arg is screen else arg for arg in args))
        return answer

    parent = T.GameNode(None)
    child = replace(way, T.GameNode, lambda cls: cls(None), name, function, monkeypatch)
    parent.children.append(child)
    active.append(1)
    act(parent, child, screen)
    assert calls == seen


IN_LAYER = [
    ("OnLoad", None, lambda y, s: y.OnLoad(5), [(5,)]),
    ("OnDestroy", None, lambda y, s: y.OnDestroy(), [()]),
    ("update", None, lambda y, s: y.update(0.5), [(0.5,)]),
    ("draw", None, lambda y, s: y.draw(s), [("screen", 0, 0, 1.0)]),
    ("OnPickDownFunction", None, lambda y, s: y.OnPickDownFunction(1, 2), [(1, 2)]),
    ("OnPickUpFunction", None, lambda y, s: y.OnPickUpFunction(1, 2), [(1, 2)]),
    ("OnKeyDownFunction", None, lambda y, s: y.OnKeyDownFunction(1), [(1,)]),
    ("OnKeyUpFunction", None, lambda y, s: y.OnKeyUpFunction(1), [(1,)]),
    ("OnEditRectDraging", None, lambda y, s: y.OnEditRectDraging(1, 2), [(1, 2)]),
    ("GetAllChildrens", [], lambda y, s: y.DelGameNode(0), [()]),
    ("SetInstanceID", None, lambda y, s: y.AddGameNode(y.GetGameNode(0)), [(1,)]),
    ("GetInstanceID", 0, lambda y, s: y.CheckAllGameNode(), [()]),
]


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize("name, answer, act, seen", IN_LAYER)
def test_calls_of_a_layer(monkeypatch, screen, way, name, answer, act, seen):
    calls = []

    def function(*args):
        calls.append(tuple("screen" if arg is screen else arg for arg in args))
        return answer

    node = replace(way, T.GameNode, lambda cls: cls(None), name, function, monkeypatch)
    layer = T.GameLayer()
    layer.AddGameNode(node)
    calls.clear()
    act(layer, screen)
    assert calls == seen


@pytest.mark.parametrize("way", WAYS)
def test_a_hidden_layer_by_its_method(monkeypatch, screen, way):
    layer = replace(
        way, T.GameLayer, lambda cls: cls(), "IsVisible", lambda *args: False, monkeypatch
    )
    node = Recorder()
    layer.AddGameNode(node)
    layer.update(1)
    layer.draw(screen)
    layer.OnPickDownFunction(1, 1)
    layer.OnKeyUpFunction("a")
    assert node.names() == ["SetInstanceID", "OnLoad"]


ON_ACTION = [
    ("SetTarget", lambda n, a: n.RunAction(a), 1),
    ("Run", lambda n, a: n.RunAction(a), 1),
    ("update", lambda n, a: (n.RunAction(a), n.update(1)), 1),
    ("IsOver", lambda n, a: (n.RunAction(a), n.update(1)), 1),
]


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize("name, act, count", ON_ACTION)
@pytest.mark.parametrize("cls", [T.GAction, T.MoveToAction])
def test_calls_on_an_action(monkeypatch, way, name, act, count, cls):
    calls = []
    arguments = () if cls is T.GAction else (1, 2, 3)
    action = replace(
        way, cls, lambda c: c(*arguments), name, lambda *a: calls.append(a), monkeypatch
    )
    act(T.GameNode(None), action)
    assert len(calls) == count


TARGET_CALLS = [
    (T.MoveToAction, (1, 2, 3), "SetXY"),
    (T.MoveByAction, (1, 2, 3), "GetWX"),
    (T.MoveByAction, (1, 2, 3), "GetWY"),
    (T.ScaleToAction, (1, 2, 3), "SetSXY"),
    (T.ScaleByAction, (1, 2, 3), "GetSY"),
    (T.RotateToAction, (1, 2), "GetAngle"),
    (T.RotateByAction, (1, 2), "SetAngle"),
    (T.BlinkAction, (1, 2), "IsVisible"),
    (T.BlinkAction, (1, 2), "SetVisible"),
]


@pytest.mark.parametrize("way", WAYS)
@pytest.mark.parametrize("cls, arguments, name", TARGET_CALLS)
def test_calls_of_an_action_on_its_target(monkeypatch, way, cls, arguments, name):
    calls = []

    def function(*args):
        calls.append(args)
        return 1

    node = replace(way, T.GameNode, lambda c: c(None), name, function, monkeypatch)
    node.RunAction(cls(*arguments))
    node.update(0.1)
    assert len(calls) == 1


@pytest.mark.parametrize("name", ["CleanUp", "AddActions", "Run", "update"])
def test_calls_on_the_players(monkeypatch, name):
    calls, node, action = [], T.GameNode(None), T.GAction()
    old = getattr(T.ActionPlayer, name)

    def patched(self, *args):
        calls.append(args)
        return old(self, *args)

    monkeypatch.setattr(T.ActionPlayer, name, patched)
    node.RunAction(action)
    node.update(2)
    expected = {"CleanUp": (), "AddActions": ((action,),), "Run": (), "update": (2,)}
    assert calls == [expected[name]] and action.runtime == 2


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
    with pytest.raises(TypeError):
        parent.draw(screen, 0, 0, 1.0)
    del child.draw
    parent.draw(screen, 0, 0, 1.0)


def test_other_kinds_of_methods():
    class Odd(T.GameNode):
        GetWX = staticmethod(lambda: 5)
        GetWY = classmethod(lambda cls: cls)
        GetWSX = property(lambda self: lambda: self.x + 1)
        GetWAngle = Call(lambda: 90)

    odd = Odd(None, 3)
    child = T.GameNode(odd)
    assert (child.GetWPX(), child.GetWPY(), child.GetWPSX(), child.GetWPAngle()) == (5, Odd, 4, 90)


def test_a_method_removed_by_a_property_that_fails():
    class Failing(T.GameNode):
        @property
        def GetWX(self):
            raise AttributeError("no GetWX")

    with pytest.raises(AttributeError):
        T.GameNode(Failing(None)).GetWX()


def test_getattribute_hooks_see_the_engines_calls():
    seen = []

    class Spy(T.GameNode):
        def __getattribute__(self, name):
            seen.append(name)
            return T.GameNode.__getattribute__(self, name)

    parent = T.GameNode(None)
    Spy(parent)
    seen.clear()
    parent.update(1)
    assert "update" in seen


def test_an_override_calls_its_base_and_the_base_calls_overrides(screen):
    log = []

    class Picture(T.GUI_Image):
        def draw_begin(self, *camera):
            log.append("begin")
            T.GUI_Image.draw_begin(self, *camera)

        def draw(self, surface, x, y, scale):
            log.append("draw")
            super().draw(surface, x, y, scale)

        def OnLoad(self, sceneInstance):
            log.append("load")
            super().OnLoad(sceneInstance)

    root = T.GameNode(None)
    root.OnLoad(Scene())
    Picture(root, 1, 2)
    root.draw(screen, 0, 0, 1.0)
    assert log == ["load", "draw", "begin"]


@pytest.mark.parametrize(
    "error", [KeyboardInterrupt, SystemExit, LookupError, StopIteration, GeneratorExit]
)
def test_what_a_script_raises_comes_out_unchanged(error):
    raised = error("text")

    def fail(*args):
        raise raised

    parent = T.GameNode(None)
    child = T.GameNode(T.GameNode(parent))
    child.update = fail
    with pytest.raises(error) as caught:
        parent.update(1)
    assert caught.value is raised
    del child.update
    parent.update(1)
