import math
import random
from fractions import Fraction

import pygame
import pytest
import Tessora as T
from helpers import Recorder

NUMBERS = [0, 1, -3, 2**70, 0.0, -0.0, 0.1, 1e-310, 1e300, -7.25]


def make(parent=None, **values):
    node = T.GameNode(parent)
    for name, value in values.items():
        setattr(node, name, value)
    return node


def same(first, second):
    return type(first) is type(second) and repr(first) == repr(second)


@pytest.mark.parametrize("seed", range(20))
def test_formulas_bit_for_bit(seed):
    rng = random.Random(seed)
    number = [rng.choice(NUMBERS), rng.uniform(-50, 50), rng.randint(-9, 9), rng.random()]
    names = "x y sx sy angle width height anchorx anchory".split()
    root, child = (make(**{n: rng.choice(number) for n in names}) for _ in range(2))
    child.parent = root
    px, py = root.GetWX(), root.GetWY()
    assert same(px, 0.0 + root.x - root.anchorx * root.width * root.sx)
    assert same(py, 0.0 + root.y - root.anchory * root.height * root.sy)
    assert same(child.GetWX(), px + child.x - child.anchorx * child.width * child.sx)
    assert same(child.GetWY(), py + child.y - child.anchory * child.height * child.sy)
    assert same(child.GetWSX(), 1.0 * root.sx * child.sx)
    assert same(child.GetWSY(), 1.0 * root.sy * child.sy)
    assert same(child.GetWAngle(), 0.0 + root.angle + child.angle)
    assert same(child.GetAXW(), child.anchorx * child.width)
    assert same(child.GetAYH(), child.anchory * child.height)
    assert same(child.GetPAXW(), root.anchorx * root.width)
    assert same(child.GetPAYH(), root.anchory * root.height)
    assert same(child.GetCenterX(), child.GetWX() + child.GetAXW() * child.WSX)
    assert same(child.GetCenterY(), child.GetWY() + child.GetAYH() * child.WSY)
    assert repr(child.GetWXY()) == repr((child.GetWX(), child.GetWY()))
    assert repr(child.GetWPXY()) == repr((px, py))
    assert repr(child.GetWSXY()) == repr((child.GetWSX(), child.GetWSY()))
    assert repr(child.GetWPSXY()) == repr((root.GetWSX(), root.GetWSY()))
    assert repr(child.GetCenterXY()) == repr((child.GetCenterX(), child.GetCenterY()))


def test_integers_stay_integers_where_the_formula_keeps_them():
    node = make(x=2, y=3, width=10, height=4, anchorx=1, anchory=2, sx=2, sy=1, angle=5)
    assert same(node.GetAXW(), 10) and same(node.GetAYH(), 8)
    assert same(node.GetWX(), 2.0 - 20) and same(node.GetWAngle(), 5.0) and same(node.GetWSX(), 2.0)
    assert same(node.GetPAXW(), 0.0) and same(node.GetPAYH(), 0.0)

    class Grid(T.GameNode):
        def GetWX(self):
            return 7

        def GetWSX(self):
            return 3

        def GetWAngle(self):
            return 90

    node.parent = Grid(None)
    assert same(node.GetWX(), 7 + 2 - 20)
    assert same(node.GetWSX(), 6) and same(node.GetWAngle(), 95)
    assert same(make(x=10**30, parent=node.parent).GetWPX(), 7)


def test_numbers_of_other_types():
    node = make(x=Fraction(1, 3), width=Fraction(1, 2), anchorx=Fraction(1, 2), sx=2)
    assert node.GetAXW() == Fraction(1, 4) and same(node.GetWX(), 0.0 + Fraction(1, 3) - 0.5)
    assert same(make(x=True, angle=True).GetWX(), 1.0)
    assert math.isnan(make(x=float("nan")).GetWX())
    assert make(x=float("inf")).GetWX() == math.inf
    assert make(x=1 + 2j).GetWX() == 1 + 2j
    with pytest.raises(OverflowError):
        make(x=10**400).GetWX()


@pytest.mark.parametrize(
    "values, query",
    [
        ({"x": "3"}, "GetWX"),
        ({"anchorx": "3"}, "GetWX"),
        ({"y": None}, "GetWXY"),
        ({"sx": []}, "GetWSX"),
        ({"sx": "2"}, "GetWSX"),
        ({"angle": {}}, "GetWAngle"),
        ({"width": None, "anchorx": 0}, "GetAXW"),
        ({"width": "w"}, "GetSizeRect"),
        ({"WSX": "w"}, "GetCenterX"),
        ({"WX": None, "width": 1}, "GetRight"),
        ({"WSX": None}, "draw_begin"),
    ],
)
def test_wrong_types_are_the_hosts_type_error(values, query):
    node = make(**values)
    if query == "draw_begin":
        node.lock_xysa = True
        assert node.draw_begin() is None
        query = "GetSizeRect"
    with pytest.raises(TypeError):
        getattr(node, query)()
    fresh = make(x=3)
    assert fresh.GetWX() == 3


def test_children_are_moved_but_not_scaled_or_turned_by_their_parents():
    parent = make(x=10, y=20, sx=2, sy=3, angle=90)
    child = make(parent, x=5, y=5, width=10, height=10, anchorx=0.5, anchory=1, sx=2)
    assert child.GetWXY() == (10 + 5 - 10, 20 + 5 - 10)
    assert child.GetWSXY() == (4, 3) and child.GetWAngle() == 90
    assert child.GetPAXW() == 0


def test_removed_children_still_follow_their_parent():
    parent = make(x=10)
    child = make(parent, x=1)
    parent.RemoveChild(child)
    parent.x = 50
    assert child.parent is parent and child.GetWX() == 51


@pytest.mark.parametrize("lock", [True, 1, 1.0])
def test_lock_freezes_the_cached_values(lock):
    node = make(make(x=100), x=1, WX=7, WY="y", WSX=None, WSY=4, WAngle=5, lock_xysa=lock)
    assert node.GetWXY() == (7, "y") and node.GetWSXY() == (None, 4) and node.GetWAngle() == 5
    assert node.GetWPX() == 100
    node.draw_begin(5, 5, 2)
    assert (node.WX, node.WY, node.WSX) == (7, "y", None)
    node.lock_xysa = False
    assert node.GetWX() == 101


@pytest.mark.parametrize("lock", [2, "yes", None])
def test_half_locks_neither_freeze_nor_store(lock):
    node = make(x=3, WX=50, lock_xysa=lock)
    assert node.GetWX() == 3
    node.draw_begin()
    assert node.WX == 50
    node.lock_xysa = 0
    node.draw_begin()
    assert node.WX == 3


def test_draw_begin_applies_the_camera():
    node = make(x=10, y=4, angle=30)
    assert node.draw_begin(100, 0, 2) is None
    assert (node.WX, node.WY, node.WSX, node.WSY, node.WAngle) == (120, 8, 2, 2, 30)
    node.draw_begin()
    assert same(node.WX, 10.0) and same(node.WSX, 1.0)
    node.draw_begin(scale=3, offsetX=1, offsetY=-1)
    assert (node.WX, node.WY, node.WSX) == (31, 11, 3)


def test_draw_begin_stores_each_value_before_it_asks_for_the_next():
    seen = []

    class Node(T.GameNode):
        def GetWX(self):
            seen.append((self.WSX, self.WSY, self.WAngle))
            return 1

        def GetWY(self):
            seen.append(self.WX)
            return 2

    node = Node(None)
    node.sx, node.sy, node.angle = 2, 3, 4
    node.draw_begin(10, 0, 2)
    assert seen == [(4, 6, 4), 12] and node.WY == 4


def test_draw_begin_stores_in_order_up_to_the_failure():
    node = make(x="bad", sx=2, sy=3, angle=4)
    with pytest.raises(TypeError):
        node.draw_begin(0, 0, 2)
    assert (node.WSX, node.WSY, node.WAngle, node.WX) == (4, 6, 4, 0.0)


def test_children_of_a_locked_node_get_the_camera_twice():
    parent = make(x=10)
    child = make(parent, x=1)
    parent.draw_begin(100, 0, 2)
    parent.lock_xysa = True
    child.draw_begin(100, 0, 2)
    assert parent.GetWX() == 120 and child.WX == (120 + 1) * 2 + 100


def test_size_rectangle_mixes_recomputed_place_and_cached_scale():
    node = make(x=10.7, y=-0.5, width=10, height=5, sx=3)
    assert node.GetSizeRect() == pygame.Rect(10, 0, 10, 5)
    node.draw_begin(100, 100, 2)
    rect = node.GetSizeRect()
    assert type(rect) is pygame.Rect and rect == pygame.Rect(10.7, -0.5, 60, 10)
    node.width = -4
    assert node.GetSizeRect() == pygame.Rect(10.7, -0.5, -24, 10)
    for odd in (float("nan"), float("inf"), 1e20):
        node.x = odd
        assert node.GetSizeRect() == pygame.Rect(odd, -0.5, -24, 10)


def test_clamp():
    node = make()
    low, high = 1.0, 2
    assert node.Clamp(0, low, high) is low and node.Clamp(3, low, high) is high
    value = 1
    assert node.Clamp(value, 1.0, 2) is value and node.Clamp(2.0, 1, 2) == 2.0
    assert node.Clamp(value=5, min=9, max=1) == 9
    assert node.Clamp("b", "a", "c") == "b"
    with pytest.raises(TypeError):
        node.Clamp("b", 1, 2)


EDGES = {"WX": 10, "WY": 20, "width": 5, "height": 5, "WSX": 2, "WSY": 2}


@pytest.mark.parametrize(
    "place, left, top, right, bottom",
    [
        ((0, 0, 1, 1), 0, 0, 20, 1),
        ((12, 22, 100, 100), 10, 20, 112, 30),
        ((12, 22, 1, 1), 10, 20, 20, 23),
        ((10, 20, 10, 10), 10, 20, 20, 30),
    ],
)
def test_edges_over_the_subtree(place, left, top, right, bottom):
    node = make(**EDGES)
    assert (node.GetLeft(), node.GetTop(), node.GetRight(), node.GetBottom()) == (10, 20, 20, 30)
    middle = make(node, **EDGES)
    x, y, w, h = place
    make(middle, WX=x, WY=y, width=w, height=h)
    assert (node.GetLeft(), node.GetTop()) == (left, top)
    assert (node.GetRight(), node.GetBottom()) == (right, bottom)


def test_edges_keep_their_own_value_on_a_tie_and_ask_foreign_children():
    node = make(WX=1, WY=1)
    node.AddChild(Recorder(result=1.0))
    assert same(node.GetLeft(), 1) and same(node.GetTop(), 1)
    node.children[0].result = 0.5
    assert (node.GetLeft(), node.GetTop(), node.GetBottom()) == (0.5, 0.5, 0.5)
    assert node.GetRight() == 1
    node.children[0].result = "text"
    with pytest.raises(TypeError):
        node.GetLeft()


@pytest.mark.parametrize(
    "query", ["GetWX", "GetWY", "GetWXY", "GetWSX", "GetWAngle", "GetSizeRect", "draw_begin"]
)
def test_a_parent_loop_is_a_recursion_error(query):
    node = make()
    node.parent = make(node)
    with pytest.raises(RecursionError):
        getattr(node, query)()
    node.parent = None
    assert node.GetWX() == 0
