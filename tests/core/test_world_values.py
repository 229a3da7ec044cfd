import random

import pygame
import pytest
import Tessora as T
from helpers import make_node

# Exact in Python's own arithmetic: integers of any size, and the sign of zero.
NUMBERS = [0, 1, -3, 2**40, 2**53 + 1, 2**70, 0.0, -0.0, 0.1, 1e-310, 1e300, -7.25]


def assert_formulas(rng):
    values = [*rng.sample(NUMBERS, 2), rng.uniform(-50, 50), rng.randint(-9, 9), rng.random()]
    names = "x y sx sy angle width height anchorx anchory".split()
    p, c = [make_node(None, **{n: rng.choice(values) for n in names}) for _ in range(2)]
    c.parent, aw, ah = p, c.anchorx * c.width, c.anchory * c.height
    px, py = 0.0 + p.x - p.anchorx * p.width * p.sx, 0.0 + p.y - p.anchory * p.height * p.sy
    x, y = px + c.x - c.anchorx * c.width * c.sx, py + c.y - c.anchory * c.height * c.sy
    expected = [("GetWPXY", (px, py)), ("GetWXY", (x, y)), ("GetWPSXY", (1.0 * p.sx, 1.0 * p.sy))]
    expected += [("GetWSXY", (1.0 * p.sx * c.sx, 1.0 * p.sy * c.sy))]
    expected += [("GetCenterXY", (x + aw * 1.0, y + ah * 1.0)), ("GetAXW", aw), ("GetAYH", ah)]
    expected += [("GetWAngle", 0.0 + p.angle + c.angle), ("GetWPAngle", 0.0 + p.angle)]
    expected += [("GetPAXW", p.anchorx * p.width), ("GetPAYH", p.anchory * p.height)]
    for name, value in expected:
        assert repr(getattr(c, name)()) == repr(value), name
        if name.endswith("XY"):
            each = (getattr(c, name[:-1])(), getattr(c, name[:-2] + "Y")())
            assert repr(each) == repr(value), name


@pytest.mark.parametrize("seed", range(20))
def test_formulas_bit_for_bit(seed):
    rng = random.Random(seed)
    for _ in range(50):
        assert_formulas(rng)


def test_integers_stay_integers_where_the_formula_keeps_them():
    node = make_node(None, x=2, width=10, anchorx=1, sx=2, angle=5)
    assert repr((node.GetAXW(), node.GetWX(), node.GetWAngle())) == "(10, -18.0, 5.0)"
    body = {"GetWX": lambda s: 7, "GetWSX": lambda s: 3, "GetWAngle": lambda s: 90}
    node.parent = type("Grid", (T.GameNode,), body)(None)
    assert repr((node.GetWX(), node.GetWSX(), node.GetWAngle())) == "(-11, 6, 95)"
    # Clamp answers one of its arguments as it is.
    low, high = 1.0, 2
    assert node.Clamp(0, low, high) is low and node.Clamp(3, low, high) is high
    assert type(node.Clamp(1, 1.0, 2)) is int and node.Clamp(value=5, min=9, max=1) == 9
    assert node.Clamp(2**53 + 1, 0, 2**53) == 2**53
    pytest.raises(TypeError, node.Clamp, "b", 1, 2)


def test_a_zero_keeps_its_sign_through_the_camera():
    node = make_node(None, x=-1, sx=-0.0)
    node.draw_begin(-0.0, 0, 0.0)
    assert repr((node.WX, node.WSX)) == "(-0.0, -0.0)"


BAD = [
    ({"x": "3"}, "GetWX", TypeError),
    ({"anchorx": "3"}, "GetWX", TypeError),
    ({"y": None}, "GetWXY", TypeError),
    ({"sx": []}, "GetWSX", TypeError),
    ({"angle": {}}, "GetWAngle", TypeError),
    ({"width": "w"}, "GetSizeRect", TypeError),
    ({"WSX": "w"}, "GetCenterX", TypeError),
    ({"WX": None}, "GetRight", TypeError),
    ({"WSX": None}, "GetSizeRect", TypeError),
    ({"parent": "p"}, "GetWX", AttributeError),
]


@pytest.mark.parametrize(("values", "query", "error"), BAD, ids=str)
def test_wrong_types_fail_where_the_arithmetic_runs(values, query, error):
    node = make_node(None, width=1)
    vars(node).update(values)
    pytest.raises(error, getattr(node, query))


# Equal to none, so that a node with this parent has none.
class Nobody:
    def __eq__(self, other):
        return other is None

    __hash__ = None


NoNode = type("NoNode", (Nobody, T.GameNode), {})
ROOTS = {"GetWPX": 0.0, "GetWPY": 0.0, "GetWPSX": 1.0, "GetWPSY": 1.0, "GetWPAngle": 0.0}
ROOTS.update(GetPAXW=0.0, GetPAYH=0.0, GetWX=7.0, GetWXY=(7.0, 0.0))


@pytest.mark.parametrize("parent", [Nobody, lambda: NoNode(None, 5)], ids=["foreign", "a node"])
@pytest.mark.parametrize("query", ROOTS)
def test_a_parent_equal_to_none_is_no_parent(query, parent):
    node = T.GameNode(None, 7)
    node.parent = parent()
    assert getattr(node, query)() == ROOTS[query]


def test_only_a_lock_equal_to_true_freezes_the_cached_values():
    node = make_node(make_node(None, x=100), x=1, WX=7, WY="y", WSX=None, WAngle=5, lock_xysa=1)
    node.draw_begin(5, 5, 2)
    assert (node.WX, *node.GetWXY(), node.GetWSX(), node.GetWAngle()) == (7, 7, "y", None, 5)
    # Neither freezes the values nor stores new ones.
    node.lock_xysa = "yes"
    node.draw_begin()
    assert node.GetWX() == 101 and node.WX == 7 and node.GetWPX() == 100
    # Children of a locked node get the camera twice.
    child = make_node(node, x=1)
    node.lock_xysa = False
    node.draw_begin(100, 0, 2)
    node.lock_xysa = True
    child.draw_begin(scale=2, offsetX=100)
    assert node.GetWX() == 302 and child.WX == 303 * 2 + 100


def test_draw_begin_stores_in_order_up_to_a_failure_and_size_rectangles_mix_old_and_new():
    node, seen = make_node(None, x=1, sx=2, sy=3, angle=4), []
    node.GetWX = lambda: seen.append((node.WSX, node.WSY, node.WAngle)) or node.x
    node.GetWY = lambda: seen.append(node.WX) or 1 / 0
    pytest.raises(ZeroDivisionError, node.draw_begin, 10, 0, 2)
    assert seen == [(4, 6, 4), 12] and node.WY == 0.0
    node = make_node(None, x=10.7, y=-0.5, width=10, height=5, sx=3)
    node.draw_begin(100, 100, 2)
    for node.x in (10.7, float("nan"), float("inf"), 1e20):
        assert node.GetSizeRect() == pygame.Rect(node.x, -0.5, 60, 10)


EDGES = [((0, 0, 1, 1), (0, 0, 20, 1)), ((12, 22, 100, 100), (10, 20, 112, 30))]
EDGES += [((12, 22, 1, 1), (10, 20, 20, 23)), ((10, 20, 10, 10), (10, 20, 20, 30))]


@pytest.mark.parametrize("place, edges", EDGES)
def test_the_bottom_edge_is_a_smallest_one_too(place, edges):
    values = {"WX": 10, "WY": 20, "width": 5, "height": 4, "WSX": 2, "WSY": 2.5}
    node = make_node(None, **values)
    make_node(make_node(node, **values), **dict(zip(("WX", "WY", "width", "height"), place)))
    assert (node.GetLeft(), node.GetTop(), node.GetRight(), node.GetBottom()) == edges


# Scripts are called in the order in which the formulas are written.
PLACE = ["GetWX", "GetWPX", "GetAXW", "GetWY", "GetWPY", "GetAYH"]
SCALE = ["GetWSX", "GetWPSX", "GetWSY", "GetWPSY"]
ANGLE = ["GetWAngle", "GetWPAngle"]
CENTER = [["GetCenter" + axis, "GetW" + axis, "GetWP" + axis] for axis in "XY"]
CENTER = [CENTER[0] + ["GetAXW"] * 2, CENTER[1] + ["GetAYH"] * 2]
QUERIES = {"GetWX": PLACE[1:3], "GetWY": PLACE[4:], "GetWXY": PLACE, "GetWSXY": SCALE}
QUERIES.update(GetWPXY=["GetWPX", "GetWPY"], GetWPSXY=["GetWPSX", "GetWPSY"], GetSizeRect=PLACE)
QUERIES.update(GetCenterX=CENTER[0][1:], GetCenterY=CENTER[1][1:], GetCenterXY=sum(CENTER, []))
QUERIES["draw_begin"] = [*SCALE, *ANGLE, *PLACE]
PARENT_QUERIES = {"GetWPXY": ["GetWX", "GetWY"], "GetWPSXY": ["GetWSX", "GetWSY"]}
PARENT_QUERIES["draw_begin"] = ["GetWSX", "GetWSY", "GetWAngle", "GetWX", "GetWY"]


# Notes the methods that are called on it.
def noting(names, log, parent=None):
    def method(name):
        return lambda self, *args: (log.append(name), getattr(T.GameNode, name)(self, *args))[1]

    return type("Noting", (T.GameNode,), {name: method(name) for name in names})(parent)


@pytest.mark.parametrize("query", QUERIES)
def test_world_queries(query):
    log, asked, child = [], [], T.GameNode(None)
    node = noting(set(QUERIES).union(*QUERIES.values()), log)
    getattr(node, query)()
    assert log == [query, *QUERIES[query]]
    child.parent = noting(PARENT_QUERIES["draw_begin"], asked)
    getattr(child, query)()
    assert asked == PARENT_QUERIES.get(query, asked)


@pytest.mark.parametrize("cls, axis", [(T.MoveByAction, "GetW"), (T.ScaleToAction, "GetS")])
def test_actions_ask_for_x_first(cls, axis):
    log, action = [], cls(1, 2, 3)
    action.SetTarget(noting([axis + "X", axis + "Y"], log))
    action.Run()
    assert log == [axis + "X", axis + "Y"]


def test_viewport_is_tried_left_to_right(screen):
    log, widget = [], T.GUI_Image()
    widget.OnLoad(type("Scene", (), {"GetViewPort": lambda self: (0, 0, 100, 100)})())
    widget.GetWX = lambda: log.append("x") or 0
    widget.GetWY = lambda: log.append("y") or 0
    assert widget.CheckInViewPort() is True and log == ["x", "y", "x", "y"]
