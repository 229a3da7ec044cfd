import math

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene

HIT = "collidepoint\n"


def box(parent=None, x=0, y=0, width=20, height=10, **values):
    node = T.GameNode(parent, x, y)
    node.SetWidth(width)
    node.SetHeight(height)
    for name, value in values.items():
        setattr(node, name, value)
    return node


def test_a_press(capsys):
    node, seen = box(), []
    node.SetPickDownFunction(lambda n: seen.append((n, n.clicked, capsys.readouterr().out)))
    assert node.OnPickDownFunction(x=5, y=5) is node
    assert seen == [(node, False, HIT)] and node.clicked is True and node.dragcornerindex == -2
    assert node.OnPickDownFunction(50, 5) is None and node.clicked is True
    assert capsys.readouterr().out == ""


def test_a_release(capsys):
    node, seen = box(), []
    node.clicked = True
    assert node.OnPickUpFunction(50, 50) is None and node.clicked is False
    assert capsys.readouterr().out == ""
    assert node.OnPickUpFunction(x=5, y=5) is node
    assert capsys.readouterr().out == HIT
    node.SetPickUpFunction(lambda n: seen.append((n, capsys.readouterr().out)))
    assert node.OnPickUpFunction(5, 5) is node
    assert seen == [(node, HIT + "OnPickUpFunction2\n")]


@pytest.mark.parametrize(
    "point, hit",
    [
        ((0, 0), True),
        ((19, 9), True),
        ((19.9, 9.9), True),
        ((20, 5), False),
        ((5, 10), False),
        ((-1, 5), False),
        ((5, -1), False),
        ((-0.5, 5), True),
    ],
)
def test_edges_of_the_hit_rectangle(capsys, point, hit):
    node = box()
    assert node.checkClick(*point) is hit
    assert (node.OnPickDownFunction(*point) is node) is hit
    assert (node.OnPickUpFunction(*point) is node) is hit


def test_hits_use_the_drawn_place(screen, capsys):
    node = box(x=100, y=50, sx=2)
    assert node.checkClick(px=5, py=5) is True and node.checkClick(105, 55) is False
    node.draw(screen, 10, 0, 1.5)
    assert node.checkClick(160, 75) is True and node.checkClick(160 + 59, 75 + 14) is True
    assert node.checkClick(160 + 60, 75) is False and node.checkClick(5, 5) is False
    node.SetX(0)
    assert node.checkClick(160, 75) is True
    node.SetWidth(10)
    assert node.checkClick(160 + 30, 75) is False


@pytest.mark.parametrize(
    "values",
    [{"width": 0}, {"width": -20}, {"WSX": 0}, {"WSX": -1.0}, {"visible": False}, {"visible": 2}],
)
def test_never_hit(capsys, values):
    node = box(**values)
    assert node.checkClick(0, 0) is False and node.checkClick(-5, 5) is False
    assert node.OnPickDownFunction(0, 0) is None and node.OnPickUpFunction(-5, 5) is None


@pytest.mark.parametrize("odd", [float("nan"), math.inf, -math.inf, 1e20, 2**40])
def test_places_beyond_a_rectangle(capsys, odd):
    node = box(WX=odd)
    hit = bool(pygame.Rect(odd, 0, 20, 10).collidepoint(0, 0))
    assert node.checkClick(0, 0) is hit
    assert node.OnPickDownFunction(0, 0) is (node if hit else None)
    node.WX = 0
    assert node.checkClick(0, 0) is True


@pytest.mark.parametrize("values", [{"WX": "a"}, {"width": None}, {"WSY": []}])
def test_places_that_are_no_numbers(capsys, values):
    node = box(**values)
    for method in (node.checkClick, node.OnPickDownFunction, node.OnPickUpFunction):
        with pytest.raises(TypeError):
            method(0, 0)


@pytest.mark.parametrize("point", [("a", 0), (0, None), (None, None), ([], 0)])
def test_points_that_are_no_numbers(capsys, point):
    node = box()
    for method in (node.checkClick, node.OnPickDownFunction, node.OnPickUpFunction):
        with pytest.raises(TypeError):
            method(*point)
    assert node.clicked is False and node.OnPickDownFunction(1, 1) is node


def test_a_failing_callback_leaves_the_node_unclicked(capsys):
    node = box(PickDownFunction=lambda n: 1 / 0, PickUpFunction=lambda n: 1 / 0)
    with pytest.raises(ZeroDivisionError):
        node.OnPickDownFunction(1, 1)
    assert node.clicked is False
    node.clicked = True
    with pytest.raises(ZeroDivisionError):
        node.OnPickUpFunction(1, 1)
    assert node.clicked is False


@pytest.mark.parametrize("flag", [False, 0, 2, "yes", None])
def test_disabled_events(capsys, flag):
    node = box(editrectenable=True, dragcornerindex=-1)
    child = box(node, width=5)
    node.EnablePickDownEvent(flag)
    node.EnablePickUpEvent(flag)
    node.clicked = True
    node.SetPickDownFunction(Recorder())
    assert node.OnPickDownFunction(10, 5) is None and node.dragcornerindex == -1
    assert node.OnPickDownFunction(1, 1) is child
    assert node.OnPickUpFunction(1, 1) is child
    assert node.OnPickUpFunction(10, 5) is None and node.clicked is False


def test_every_enabled_press_writes_the_handle(capsys):
    node = box(dragcornerindex=-1, Enable_PickDown=1)
    assert node.OnPickDownFunction(500, 500) is None and node.dragcornerindex == -2


def test_the_topmost_child_takes_the_press(capsys):
    parent, asked = box(width=100, height=100), []
    lower, upper = box(parent), box(parent)
    lower.PickDownFunction = lambda node: asked.append(node)
    upper.PickDownFunction = lambda node: asked.append(node)
    assert parent.OnPickDownFunction(1, 1) is upper and asked == [upper]
    assert (upper.clicked, lower.clicked, parent.clicked) == (True, False, False)
    upper.SetVisible(False)
    assert parent.OnPickDownFunction(1, 1) is lower
    assert parent.OnPickDownFunction(50, 50) is parent
    parent.SetVisible(False)
    assert parent.OnPickDownFunction(1, 1) is None and len(asked) == 2


def test_a_child_outside_its_parent_is_still_asked(capsys):
    parent = box()
    child = box(parent, WX=200, WY=200)
    assert parent.OnPickDownFunction(205, 205) is child
    assert parent.OnPickUpFunction(205, 205) is child


@pytest.mark.parametrize("flag, swallowed", [(True, False), (1, False), (False, True), (2, True)])
def test_a_parent_can_stand_in_for_its_children(capsys, flag, swallowed):
    parent, seen = box(), []
    child = box(parent, PickDownFunction=seen.append, PickUpFunction=seen.append)
    parent.SetPickDownFunction(lambda node: 1 / 0)
    parent.SetPickUpFunction(lambda node: 1 / 0)
    parent.SetCheckPickDownChild(flag)
    taker = parent if swallowed else child
    assert parent.OnPickDownFunction(1, 1) is taker
    assert child.clicked is True and parent.clicked is False
    assert parent.OnPickUpFunction(1, 1) is taker
    assert seen == [child, child] and child.clicked is False


@pytest.mark.parametrize("answer", [False, 0, "", 5])
def test_any_answer_but_none_takes_the_event(capsys, answer):
    parent = box()
    child = Recorder(result=answer)
    parent.AddChild(child)
    assert parent.OnPickDownFunction(1, 2) is answer
    assert parent.OnPickUpFunction(1, 2) is answer
    assert child.calls[1:] == [("OnPickDownFunction", (1, 2)), ("OnPickUpFunction", (1, 2))]
    child.result = None
    assert parent.OnPickDownFunction(1, 2) is parent


def test_a_release_stops_at_the_first_taker(capsys):
    parent = box(width=100, height=100, clicked=True, dragcornerindex=3)
    first, second = box(parent), box(parent, WX=50)
    assert parent.OnPickDownFunction(1, 1) is first
    assert parent.OnPickUpFunction(51, 1) is second
    assert first.clicked is True and parent.clicked is False and parent.dragcornerindex == -1
    assert parent.OnPickUpFunction(90, 90) is parent and first.clicked is False


@pytest.mark.parametrize("index, after", [(0, -1), (8, -1), (-1, -1), (-2, -2)])
def test_a_release_anywhere_ends_the_drag(capsys, index, after):
    node = box(dragcornerindex=index, dragbegin_x=3, dragbegin_y=4)
    assert node.OnPickUpFunction(500, 500) is None
    assert (node.dragcornerindex, node.dragbegin_x, node.dragbegin_y) == (after, 3, 4)


def test_hidden_nodes_get_no_release(capsys):
    node = box(clicked=True, visible=False, dragcornerindex=2)
    assert node.OnPickUpFunction(1, 1) is None
    assert node.clicked is True and node.dragcornerindex == 2


@pytest.mark.parametrize("key", ["a", 97, ("ctrl", "x"), None, 1.5])
def test_keys(key):
    node, log = T.GameNode(None), []
    T.GameNode(node).SetKeyDownFunction(key, lambda: log.append("child"))
    node.SetKeyDownFunction(keyname=key, function=lambda *args: log.append(("down", args)))
    node.SetKeyUpFunction(keyname=key, function=lambda *args: log.append(("up", args)))
    node.OnKeyDownFunction(key=key)
    node.OnKeyUpFunction(key=key)
    node.OnKeyDownFunction("other")
    node.OnKeyUpFunction("other")
    assert log == [("down", ()), ("up", ())]
    assert list(node.KeyDownFunctionDict) == list(node.KeyUpFunctionDict) == [key]


def test_key_failures():
    node = T.GameNode(None)
    with pytest.raises(TypeError):
        node.OnKeyDownFunction([])
    with pytest.raises(TypeError):
        node.SetKeyUpFunction({}, print)
    node.SetKeyDownFunction("a", lambda: 1 / 0)
    node.SetKeyUpFunction("a", 5)
    with pytest.raises(ZeroDivisionError):
        node.OnKeyDownFunction("a")
    with pytest.raises(TypeError):
        node.OnKeyUpFunction("a")


def test_key_callback_may_unregister_itself():
    node = T.GameNode(None)
    node.SetKeyDownFunction("a", lambda: node.OnDestroy())
    node.OnKeyDownFunction("a")
    node.OnKeyDownFunction("a")
    assert node.KeyDownFunctionDict == {}


def test_printed_lines_go_through_the_current_output(monkeypatch):
    class Output:
        text = ""

        def write(self, text):
            Output.text += text

        def flush(self):
            pass

    monkeypatch.setattr("sys.stdout", Output())
    box(PickUpFunction=lambda node: None).OnPickUpFunction(1, 1)
    assert Output.text == "collidepoint\nOnPickUpFunction2\n"

    class Broken(Output):
        def write(self, text):
            raise LookupError("closed")

    monkeypatch.setattr("sys.stdout", Broken())
    node = box()
    with pytest.raises(LookupError):
        node.OnPickDownFunction(1, 1)
    assert node.clicked is False
    monkeypatch.setattr("sys.stdout", None)
    assert node.OnPickDownFunction(1, 1) is node


@pytest.mark.parametrize("event, call", [("PickDown", "Down"), ("PickUp", "Up")])
def test_bound_inner_events_get_the_position(capsys, event, call):
    scene, root = Scene(), box()
    child = box(root, width=5)
    for node, name in ((root, "root"), (child, "child")):
        node.SetInnerBindingEvent(event, name, "code")
    root.OnLoad(scene)
    press = getattr(root, f"OnPick{call}Function")
    press(10, 5)
    press(3, 4)
    press(90, 90)
    assert scene.calls == [("on_root", {"px": 10, "py": 5}), ("on_child", {"px": 3, "py": 4})]


def test_bound_inner_events_of_the_life_cycle():
    scene, node = Scene(), T.GameNode(None)
    for event in ("Load", "Update", "Destroy"):
        node.SetInnerBindingEvent(event, event.lower(), None)
    node.OnLoad(scene)
    node.update(1)
    node.OnDestroy()
    assert [name for name, _ in scene.calls] == ["on_load", "on_update", "on_destroy"]


def test_collision_moves_the_other_node():
    node, other = box(), box(x=30)
    assert node.checkCollision(other) is False and node.checkCollision(other, -15) is True
    assert node.checkCollision(gameNode=other, moveX=-15, moveY=50) is False
    assert other.GetXY() == (30, 0)
    rect = pygame.Rect(30, 0, 5, 5)
    assert node.checkEventRectCollision(rect, -12) is True and rect.x == 30
    assert node.checkEventRectCollision(objrect=rect, moveX=0, moveY=0) is False
    assert node.checkEventRectCollision((5, 5, 1, 1)) is True
    for collide in (node.checkCollision, node.checkEventRectCollision):
        with pytest.raises((TypeError, AttributeError)):
            collide(None)


def test_collision_asks_the_other_for_its_rectangle():
    class Fake:
        def GetSizeRect(self):
            return pygame.Rect(1, 1, 1, 1)

    assert box().checkCollision(Fake()) is True

    class Moved(T.GameNode):
        def GetSizeRect(self):
            return pygame.Rect(500, 500, 9, 9)

    assert Moved(None).checkCollision(box()) is False
    assert box().checkCollision(Moved(None)) is False
