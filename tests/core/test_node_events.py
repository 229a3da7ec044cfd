"""Presses, releases, dragged handles, keys, bindings and collisions of a node."""

import math
import sys

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene, make_node

HIT = "collidepoint\n"
NEVER = [{"width": 0}, {"width": -20}, {"WSX": -1.0}, {"visible": False}, {"visible": 2}]
FAILING = [{"WX": "a"}, {"width": None}, {"WSY": []}]
ODD = [{"WX": value} for value in (math.nan, math.inf, -math.inf, 1e20, 2**40, -0.5, 5.5)]


def box(parent=None, width=20, height=10, **values):
    return make_node(parent, width=width, height=height, **values)


def test_order_and_printed_lines_of_a_press_and_a_release(monkeypatch):
    node, output, seen = box(), Recorder(), []
    monkeypatch.setattr("sys.stdout", output)
    note = lambda n: seen.append((n, n.clicked, len(output.calls)))  # noqa: E731
    node.SetPickDownFunction(note)
    node.SetPickUpFunction(note)
    assert node.OnPickDownFunction(x=5, y=5) is node and node.clicked is True
    assert node.OnPickDownFunction(50, 5) is None and node.dragcornerindex == -2
    assert node.OnPickUpFunction(x=5, y=5) is node and node.clicked is False
    assert seen[0][:2] == seen[1][:2] == (node, False) and 0 < seen[0][2] < seen[1][2]
    text = "".join(args[0] for name, args in output.calls if name == "write")
    assert text == HIT + HIT + "OnPickUpFunction2\n" and len(output.calls) == seen[1][2]
    sys.stdout.write, node.PickDownFunction = lambda text: [][0], lambda n: 1 / 0
    pytest.raises(IndexError, node.OnPickDownFunction, 1, 1)
    monkeypatch.setattr("sys.stdout", None)
    pytest.raises(ZeroDivisionError, node.OnPickDownFunction, 1, 1)
    assert node.clicked is False and node.OnPickUpFunction(50, 50) is None


@pytest.mark.parametrize("values", NEVER + FAILING + ODD)
def test_hit_rectangle(screen, capsys, values):
    node = box(clicked=True, dragcornerindex=2)
    vars(node).update(values)
    for point in ((0, 0), (19.9, 9.9), (20, 5), (5, 10), (-1, 5), (5, -1), (-0.5, 5)):
        hit = values not in NEVER
        for method in (node.checkClick, node.OnPickDownFunction, node.OnPickUpFunction):
            if values in FAILING:
                pytest.raises(TypeError, method, *point)
                continue
            hit = hit and bool(pygame.Rect(values.get("WX", 0), 0, 20, 10).collidepoint(point))
            assert (method(*point) in (True, node)) is hit
    assert "visible" not in values or (node.clicked is True and node.dragcornerindex == 2)
    # The drawn place counts until the next draw, the size at once.
    node = box(x=100, sx=2)
    node.draw(screen, 10, 0, 1.5)
    node.x, node.height = 0, 5
    assert node.checkClick(px=219, py=6) is True and not node.checkClick(220, 0)
    assert not node.checkClick(200, 8) and not node.checkClick(5, 5)


@pytest.mark.parametrize("flag", [True, 1, False, 2, "yes", None])
def test_flags_are_equalities_and_the_topmost_child_takes_the_event(capsys, flag):
    node, on, seen = box(clicked=True, dragcornerindex=3), flag in (True, 1), []
    callbacks = {"PickDownFunction": seen.append, "PickUpFunction": seen.append}
    lower, upper = [box(node, 5, **callbacks) for _ in range(2)]
    node.EnablePickDownEvent(flag)
    node.EnablePickUpEvent(flag)
    assert node.OnPickDownFunction(1, 1) is upper and upper.clicked and not lower.clicked
    assert node.OnPickUpFunction(1, 1) is upper and seen == [upper, upper] and not upper.clicked
    assert node.OnPickDownFunction(10, 5) is (node if on else None)
    assert node.OnPickUpFunction(10, 5) is (node if on else None) and node.clicked is False
    # A parent can stand in for its children.
    node.Enable_PickDown, node.PickDownFunction = True, Recorder()
    node.SetCheckPickDownChild(flag)
    assert node.OnPickDownFunction(1, 1) is (upper if on else node)
    assert upper.clicked is True and node.clicked is False and seen[2:] == [upper]
    node.children, node.CheckPickDownChild = [Recorder(False)], True
    assert node.OnPickDownFunction(1, 2) is False is node.OnPickUpFunction(1, 2)


def edges(node):
    return (node.WX, node.WY, node.WX + node.width * node.WSX, node.WY + node.height * node.WSY)


@pytest.mark.parametrize("camera", [(0, 0, 1.0), (-30, -20, 2.0)])
@pytest.mark.parametrize("scale, anchor", [((1, 1), (0, 0)), ((2, 1.5), (0.5, 0.5))])
@pytest.mark.parametrize("index", range(9))
def test_the_dragged_edge_follows_the_mouse(screen, capsys, index, scale, anchor, camera):
    root = make_node(None, x=7, y=9)
    node = box(root, 60, 40, x=100, y=80, editrectenable=True)
    node.SetSXY(*scale)
    node.SetAXY(*anchor)
    node.draw(screen, *camera)
    left, top, right, bottom = edges(node)
    # A point well inside the handle, wherever it lies against the edge.
    (row, column), dx, dy = divmod(index, 3), 12, -8
    x = (left + 1, (left + right) // 2, right - 2)[column]
    y = (top + 1, (top + bottom) // 2, bottom - 2)[row]
    assert node.checkDragRect(x=x, y=y) == index and node.checkDragRect(left + 15, top + 10) < 0
    assert root.OnPickDownFunction(x, y) is node and node.clicked is False
    assert (node.dragcornerindex, node.dragbegin_x, node.dragbegin_y) == (index, x, y)
    for step in (0.5, 1):
        root.OnEditRectDraging(x + dx * step, y + dy * step)
        node.draw(screen, *camera)
    root.OnPickUpFunction(x + 500, y)
    root.OnEditRectDraging(0, 0)
    moved = (dx * (column == 0), dy * (row == 0), dx * (column == 2), dy * (row == 2))
    moved = (dx, dy, dx, dy) if index == 4 else moved
    expected = [edge + move for edge, move in zip((left, top, right, bottom), moved)]
    assert edges(node) == pytest.approx(expected, abs=1.01) and root.GetXY() == (7, 9)
    # Sizes stop at nothing.
    node.dragcornerindex, node.dragbegin_x, node.dragbegin_y = index, x, y
    node.OnEditRectDraging(x + (-999, 999)[column == 0], y + (-999, 999)[row == 0])
    assert node.width >= 0 and node.height >= 0 and (column == 1 or node.width == 0)


@pytest.mark.parametrize("key", ["a", 97, ("ctrl", "x"), None, 1.5])
def test_keys(key):
    node, log = T.GameNode(None), []
    T.GameNode(node).SetKeyDownFunction(key, lambda: log.append("child"))
    note = lambda *args: (log.append(args), node.OnDestroy())  # noqa: E731
    node.SetKeyDownFunction(keyname=key, function=note)
    node.SetKeyUpFunction(keyname=key, function=lambda: log.append("up"))
    node.OnKeyUpFunction(key=key)
    for name in (key, key, "other"):
        node.OnKeyDownFunction(key=name)
    assert log == ["up", ()] and node.KeyDownFunctionDict == node.KeyUpFunctionDict == {}


EVENT = "eventName functionName functionCode"
FAMILIES = [
    ("BindingEvent", EVENT, ["e", "f", "code"], ["f", "code"]),
    ("InnerBindingEvent", EVENT, ["PickUp", "f", 1], ["f", 1]),
    ("BindingPoint", "pointName posType x y", ["p", 1, 2, 3], (1, 2, 3)),
    ("BindingVar", "varname varvalue", ["v", 5], 5),
]


@pytest.mark.parametrize("family, names, arguments, stored", FAMILIES)
def test_tables_of_bindings(screen, family, names, arguments, stored):
    name, keywords = arguments[0], dict(zip(names.split(), arguments))
    for owner in [T.GameNode(None), T.GameLayer()][: 2 if "Event" in family else 1]:
        values, key = getattr(owner, family + "Array"), {names.split()[0]: name}
        store, get, delete = [getattr(owner, verb + family) for verb in ("Set", "Get", "Del")]
        for call in (lambda: store(*arguments), lambda: store(**keywords)):  # noqa: B023
            call()
            assert values[name] == stored and type(values[name]) is type(stored)
            assert get(name) is values[name] is get(**key)
            delete(**key)
            assert name not in values and len(values) in (0, 5, 6)
        pytest.raises(KeyError, get, name)
        pytest.raises(KeyError, delete, name)
        store(*arguments)
        getattr(owner, "CleanUp" + family)()
        assert getattr(owner, f"Get{family}Array")() is getattr(owner, family + "Array") is values
        assert values == {}


@pytest.mark.parametrize("inner", ["Inner", ""])
@pytest.mark.parametrize("make, name", [(make_node, "on_go"), (T.GameLayer, "on_sky_go")])
def test_calling_events(screen, make, name, inner):
    owner, scene, event = make(), Scene(), "Update" if inner else "hit"
    call = getattr(owner, f"Call{inner}Event")
    getattr(owner, f"Set{inner}BindingEvent")(event, "go", ["code"])
    assert call(event) is None
    owner.OnLoad(scene)
    if make is T.GameLayer:
        pytest.raises(TypeError, call, event)
        owner.SetLayerName(name="sky")
    call(event)
    call(eventName=event, params={"b": 2})
    call("unknown")
    assert scene.calls == [(name, {}), (name, {"b": 2})]
    setattr(scene, name, lambda: 7)
    assert call(event) == 7
    for entry in ([], 5, "", [5]):
        getattr(owner, f"{inner}BindingEventArray")[event] = entry
        pytest.raises((TypeError, IndexError), call, event)


def test_bound_inner_events_get_the_position_and_collisions_move_the_other(capsys):
    scene, root, rect = Scene(), box(), pygame.Rect(30, 0, 5, 5)
    child = box(root, 5, x=30)
    for node, name in ((root, "root"), (child, "child")):
        node.SetInnerBindingEvent("PickDown", name, "code")
        node.SetInnerBindingEvent("PickUp", name + "Up", "code")
    root.OnLoad(scene)
    for press in (root.OnPickDownFunction, root.OnPickUpFunction):
        for point in ((10, 5), (3, 4), (90, 90)):
            press(*point)
    names = ["on_root", "on_child", "on_rootUp", "on_childUp"]
    assert scene.calls == list(zip(names, [{"px": 10, "py": 5}, {"px": 3, "py": 4}] * 2))
    assert root.checkCollision(child) is False and root.checkCollision(child, -15) is True
    assert root.checkCollision(gameNode=child, moveX=-15, moveY=50) is False and child.x == 30
    assert root.checkEventRectCollision(rect, -12) is True and rect.x == 30
    assert root.checkEventRectCollision(objrect=rect, moveX=0, moveY=0) is False
