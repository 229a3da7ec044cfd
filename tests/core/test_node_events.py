"""Presses, releases, keys, bindings and collisions of a node."""

import math
import sys

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene, make_node

LEAST, MOST = -(2**31), 2**31 - 1


def box(parent=None, width=20, height=10, **values):
    return make_node(parent, width=width, height=height, **values)


def test_a_press_prints_then_calls_then_counts_as_clicked(capsys):
    node, seen = box(), []
    node.SetPickDownFunction(lambda n: seen.append((n, n.clicked, capsys.readouterr().out)))
    assert node.OnPickDownFunction(x=5, y=5) is node
    assert seen == [(node, False, "collidepoint\n")] and node.clicked is True


def test_a_release_prints_two_lines_when_there_is_a_callback(capsys):
    node, seen = box(clicked=True), []
    assert node.OnPickUpFunction(5, 5) is node
    assert capsys.readouterr().out == "collidepoint\n"
    node.SetPickUpFunction(lambda n: seen.append((n, n.clicked, capsys.readouterr().out)))
    assert node.OnPickUpFunction(x=5, y=5) is node
    assert seen == [(node, False, "collidepoint\nOnPickUpFunction2\n")]


def test_callbacks_and_output_may_fail_and_output_may_be_missing(monkeypatch):
    node, output = box(PickDownFunction=lambda n: 1 / 0), Recorder()
    pytest.raises(ZeroDivisionError, node.OnPickDownFunction, 1, 1)
    assert node.clicked is False
    node.PickDownFunction = None
    output.write = lambda text: [][0]
    monkeypatch.setattr(sys, "stdout", output)
    pytest.raises(IndexError, node.OnPickDownFunction, 1, 1)
    assert node.clicked is False
    monkeypatch.setattr(sys, "stdout", None)
    assert node.OnPickDownFunction(1, 1) is node


INSIDE, OUTSIDE = [(0, 0), (19.9, 9.9)], [(20, 5), (5, 10), (-1, 5), (5, -1)]


def hits(node, point):
    found = [node.checkClick(*point), node.OnPickDownFunction(*point) is node]
    found.append(node.OnPickUpFunction(*point) is node)
    assert len(set(found)) == 1
    return found[0]


@pytest.mark.parametrize("point", INSIDE + OUTSIDE)
def test_the_right_and_bottom_edges_are_outside(capsys, point):
    assert hits(box(), point) is (point in INSIDE)


NEVER = [{"width": 0}, {"width": -20}, {"WSX": -1.0}, {"visible": False}, {"visible": 2}]
NEVER += [{"WX": far} for far in (math.nan, math.inf, -math.inf, 1e20, -1e20, 2.0**31)]


@pytest.mark.parametrize("values", NEVER, ids=str)
def test_what_is_never_hit(values):
    node = box(clicked=True, dragcornerindex=2)
    vars(node).update(values)
    for point in ((0, 0), (5, 5), (MOST, 5)):
        assert not hits(node, point)
    # A hidden node is not even told that the press has ended.
    assert node.clicked is ("visible" in values)


LEFTS = [-0.5, -0.999, 5.5, -1.5, MOST, MOST - 10, MOST - 30, LEAST, LEAST + 1]


# Fractions are cut towards zero, and a rectangle may reach beyond 32 bits.
@pytest.mark.parametrize("left", LEFTS)
def test_rectangles_are_hit_as_pygame_says(capsys, left):
    node, column = box(WX=left), int(left)
    for x in (column, max(column - 1, LEAST), min(column + 5, MOST), MOST, LEAST):
        assert hits(node, (x, 5)) is bool(pygame.Rect(left, 0, 20, 10).collidepoint(x, 5)), x


@pytest.mark.parametrize("values", [{"WX": "a"}, {"width": None}, {"WSY": []}], ids=str)
def test_wrong_types_are_refused(values):
    node = box()
    vars(node).update(values)
    for method in (node.checkClick, node.OnPickDownFunction, node.OnPickUpFunction):
        pytest.raises(TypeError, method, 1, 1)


def test_the_drawn_place_counts_until_the_next_draw_and_the_size_at_once(screen):
    node = box(x=100, sx=2)
    node.draw(screen, 10, 0, 1.5)
    node.x, node.height = 0, 5
    assert node.checkClick(px=219, py=6) is True
    assert not any(node.checkClick(*point) for point in ((220, 0), (200, 8), (5, 5)))


FLAGS = [True, 1, False, 2, "yes", None]


@pytest.mark.parametrize("flag", FLAGS)
def test_events_are_enabled_by_what_equals_true(capsys, flag):
    node, on = box(clicked=True, dragcornerindex=3), flag in (True, 1)
    node.EnablePickDownEvent(flag)
    node.EnablePickUpEvent(flag)
    assert node.OnPickDownFunction(10, 5) is (node if on else None)
    assert node.dragcornerindex == (-2 if on else 3)
    assert node.OnPickUpFunction(10, 5) is (node if on else None) and node.clicked is False


def test_the_topmost_child_takes_the_event_alone(capsys):
    node, seen = box(), []
    lower, upper = [box(node, PickDownFunction=seen.append) for _ in range(2)]
    upper.PickUpFunction = lower.PickUpFunction = seen.append
    assert node.OnPickDownFunction(1, 1) is upper and upper.clicked and not lower.clicked
    assert node.OnPickUpFunction(1, 1) is upper and not upper.clicked
    assert seen == [upper, upper] and not node.clicked


@pytest.mark.parametrize("flag", FLAGS)
def test_a_parent_may_stand_in_for_its_children(capsys, flag):
    node = box(PickDownFunction=Recorder(), CheckPickDownChild=flag)
    child, seen = box(node), []
    child.PickDownFunction = seen.append
    for event in (node.OnPickDownFunction, node.OnPickUpFunction):
        assert event(1, 1) is (child if flag in (True, 1) else node)
    assert seen == [child] and node.clicked is False


def test_any_answer_but_none_takes_the_event():
    node = box(children=[Recorder(False)])
    assert node.OnPickDownFunction(1, 2) is False is node.OnPickUpFunction(1, 2)


@pytest.mark.parametrize("key", ["a", 97, ("ctrl", "x"), None, 1.5])
@pytest.mark.parametrize("way", ["Down", "Up"])
def test_keys(way, key):
    node, log = T.GameNode(None), []
    for each in (T.GameNode(node), node):
        set_function = getattr(each, f"SetKey{way}Function")
        set_function(keyname=key, function=lambda each=each: log.append(each))
    for name in (key, "other"):
        node.OnKeyDownFunction(key=name), node.OnKeyUpFunction(key=name)
    assert log == [node]


EVENT = ("eventName", "functionName", "functionCode")
FAMILIES = [
    # the methods' ending, argument names, arguments, and what is stored
    ("BindingEvent", EVENT, ("e", "f", "code"), ["f", "code"]),
    ("InnerBindingEvent", EVENT, ("PickUp", "f", 1), ["f", 1]),
    ("BindingPoint", ("pointName", "posType", "x", "y"), ("p", 1, 2, 3), (1, 2, 3)),
    ("BindingVar", ("varname", "varvalue"), ("v", 5), 5),
]


@pytest.mark.parametrize("make", [make_node, T.GameLayer])
@pytest.mark.parametrize(("family", "names", "arguments", "stored"), FAMILIES)
def test_tables_of_bindings(screen, make, family, names, arguments, stored):
    owner, key = make(), arguments[0]
    if make is T.GameLayer and "Event" not in family:
        assert not hasattr(owner, "Set" + family)
        return
    table = getattr(owner, family + "Array")
    store, get, delete = [getattr(owner, verb + family) for verb in ("Set", "Get", "Del")]
    store(**dict(zip(names, arguments)))
    assert get(**{names[0]: key}) == stored and type(table[key]) is type(stored)
    delete(**{names[0]: key})
    for method in (get, delete):
        pytest.raises(KeyError, method, key)
    store(*arguments)
    getattr(owner, "CleanUp" + family)()
    assert getattr(owner, f"Get{family}Array")() is table and table == {}


@pytest.fixture(params=["Inner", ""])
def inner(request):
    return request.param


@pytest.mark.parametrize(("make", "name"), [(make_node, "on_go"), (T.GameLayer, "on_sky_go")])
def test_events_call_the_scene(screen, make, name, inner):
    owner, scene, event = make(), Scene(), "Update" if inner else "hit"
    getattr(owner, f"Set{inner}BindingEvent")(event, "go", ["code"])
    call = getattr(owner, f"Call{inner}Event")
    assert call(event) is None
    owner.OnLoad(scene)
    owner.LayerName = "sky"
    call(event)
    call(eventName=event, params={"b": 2})
    call("unknown")
    assert scene.calls == [(name, {}), (name, {"b": 2})]
    setattr(scene, name, lambda: 7)
    assert call(event) == 7


@pytest.mark.parametrize(("make", "prefix"), [(make_node, "on_"), (T.GameLayer, "on_sky_")])
def test_bound_inner_events_of_a_life(screen, make, prefix):
    owner, scene = make(), Scene()
    owner.LayerName = "sky"
    for event in ("Load", "Update", "Render", "Destroy"):
        owner.SetInnerBindingEvent(event, event.lower(), None)
    owner.OnLoad(scene), owner.update(1), owner.draw(screen), owner.OnDestroy()
    steps = ("load", "update", "render", "destroy")
    assert scene.calls == [(prefix + step, {}) for step in steps]


@pytest.mark.parametrize("entry", [[], 5, "", [5]])
@pytest.mark.parametrize("make", [make_node, T.GameLayer])
def test_malformed_events_are_refused(screen, make, entry, inner):
    owner = make()
    owner.OnLoad(Scene())
    getattr(owner, f"{inner}BindingEventArray")["Update"] = entry
    pytest.raises((TypeError, IndexError), getattr(owner, f"Call{inner}Event"), "Update")


def test_events_of_a_layer_need_its_name(screen):
    layer = T.GameLayer()
    layer.OnLoad(Scene())
    layer.SetBindingEvent("hit", "go", None)
    pytest.raises(TypeError, layer.CallEvent, "hit")


def test_bound_inner_events_get_the_position(capsys):
    scene, root = Scene(), box()
    child = box(root, 5)
    for node, name in ((root, "root"), (child, "child")):
        node.SetInnerBindingEvent("PickDown", name, "code")
        node.SetInnerBindingEvent("PickUp", name + "Up", "code")
    root.OnLoad(scene)
    for point in ((10, 5), (3, 4), (90, 90)):
        root.OnPickDownFunction(*point)
    root.OnPickUpFunction(10, 5)
    at = {"px": 10, "py": 5}
    assert scene.calls == [("on_root", at), ("on_child", {"px": 3, "py": 4}), ("on_rootUp", at)]


# pygame-ce reads the missing items of such a sequence.
@pytest.mark.parametrize("cls", [T.GameNode, T.GameCharacter])
def test_a_sequence_that_breaks_its_promise_is_no_rectangle(screen, cls):
    promise = {"__len__": lambda self: 4, "__getitem__": lambda self, index: [][index]}
    rect = type("Promise", (), promise)()
    pytest.raises((IndexError, TypeError), cls(None).checkEventRectCollision, rect)


MOVES = [((), False), ((-15,), True), ((-15, 50), False), ((0, 0), False)]


@pytest.mark.parametrize(("move", "hit"), MOVES)
def test_collisions_try_the_move_of_the_other(move, hit):
    node, other, rect = box(), box(x=30), pygame.Rect(30, 0, 5, 5)
    assert node.checkCollision(other, *move) is hit and other.x == 30
    assert node.checkEventRectCollision(rect, *move) is hit and rect.topleft == (30, 0)
