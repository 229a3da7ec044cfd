import random

import pygame
import pytest
import Tessora as T
from helpers import make_node

NUMBERS = [0, 1, -3, 2**70, 0.0, -0.0, 0.1, 1e-310, 1e300, -7.25]


@pytest.mark.parametrize("seed", range(20))
def test_formulas_bit_for_bit(seed):
    rng = random.Random(seed)
    values = [rng.choice(NUMBERS), rng.uniform(-50, 50), rng.randint(-9, 9), rng.random()]
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
    pytest.raises(TypeError, node.Clamp, "b", 1, 2)


BAD = """x='3':GetWX anchorx='3':GetWX y=None:GetWXY sx=[]:GetWSX angle={}:GetWAngle
width='w':GetSizeRect WSX='w':GetCenterX WX=None:GetRight WSX=None:GetSizeRect parent='p':GetWX"""


@pytest.mark.parametrize("case", BAD.split())
def test_wrong_types_are_the_hosts_own_errors(case):
    values, query = case.split(":")
    node = make_node(None, width=1)
    vars(node).update(eval(f"dict({values})"))
    pytest.raises(AttributeError if "parent" in values else TypeError, getattr(node, query))
    assert make_node(None, x=3).GetWX() == 3


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
    values = {"WX": 10, "WY": 20, "width": 5, "height": 5, "WSX": 2, "WSY": 2}
    node = make_node(None, **values)
    make_node(make_node(node, **values), **dict(zip(("WX", "WY", "width", "height"), place)))
    assert (node.GetLeft(), node.GetTop(), node.GetRight(), node.GetBottom()) == edges
