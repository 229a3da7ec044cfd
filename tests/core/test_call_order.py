"""Scripts are called in the order in which the formulas are written."""

import pytest
import Tessora as T
from helpers import make_node

PLACE = ["GetWX", "GetWPX", "GetAXW", "GetWY", "GetWPY", "GetAYH"]
SCALE = ["GetWSX", "GetWPSX", "GetWSY", "GetWPSY"]
ANGLE = ["GetWAngle", "GetWPAngle"]
QUERIES = {
    "GetWX": ["GetWPX", "GetAXW"],
    "GetWY": ["GetWPY", "GetAYH"],
    "GetWXY": PLACE,
    "GetWSXY": SCALE,
    "GetWPXY": ["GetWPX", "GetWPY"],
    "GetWPSXY": ["GetWPSX", "GetWPSY"],
    "GetCenterX": ["GetWX", "GetWPX", "GetAXW", "GetAXW"],
    "GetCenterY": ["GetWY", "GetWPY", "GetAYH", "GetAYH"],
    "GetCenterXY": [
        *["GetCenterX", "GetWX", "GetWPX", "GetAXW", "GetAXW"],
        *["GetCenterY", "GetWY", "GetWPY", "GetAYH", "GetAYH"],
    ],
    "GetSizeRect": PLACE,
    "draw_begin": [*SCALE, *ANGLE, *PLACE],
}


# Notes the methods that are called on it.
def noting(names, log, parent=None):
    def method(name):
        return lambda self, *args: (log.append(name), getattr(T.GameNode, name)(self, *args))[1]

    return type("Noting", (T.GameNode,), {name: method(name) for name in names})(parent)


@pytest.mark.parametrize("query", QUERIES)
def test_world_queries(query):
    log = []
    node = noting(set(QUERIES).union(*QUERIES.values()), log)
    getattr(node, query)()
    assert log == [query, *QUERIES[query]]


PARENT_QUERIES = {
    "GetWPXY": ["GetWX", "GetWY"],
    "GetWPSXY": ["GetWSX", "GetWSY"],
    "draw_begin": ["GetWSX", "GetWSY", "GetWAngle", "GetWX", "GetWY"],
}


@pytest.mark.parametrize("query", PARENT_QUERIES)
def test_queries_to_the_parent(query):
    log = []
    child = make_node(parent=None)
    child.parent = noting(PARENT_QUERIES["draw_begin"], log)
    getattr(child, query)()
    assert log == PARENT_QUERIES[query]


STARTS = {
    "move": (lambda: T.MoveByAction(1, 2, 3), ["GetWX", "GetWY"]),
    "scale": (lambda: T.ScaleToAction(1, 2, 3), ["GetSX", "GetSY"]),
}


@pytest.mark.parametrize("kind", STARTS)
def test_actions_ask_for_x_first(kind):
    make, asked = STARTS[kind]
    log, action = [], make()
    action.SetTarget(noting(asked, log))
    action.Run()
    assert log == asked


def test_read_rect_takes_left_top_width_height():
    log = []

    class Noting(dict):
        def __getitem__(self, key):
            log.append(key)
            return dict.__getitem__(self, key)

    T.read_rect(Noting(height=4, width=3, y=2, x=1))
    assert log == ["x", "y", "width", "height"]
    with pytest.raises(KeyError, match="'x'"):
        T.read_rect({})


def test_viewport_is_tried_left_to_right(screen):
    log, widget = [], T.GUI_Image()
    widget.OnLoad(type("Scene", (), {"GetViewPort": lambda self: (0, 0, 100, 100)})())
    widget.GetWX = lambda: log.append("x") or 0
    widget.GetWY = lambda: log.append("y") or 0
    assert widget.CheckInViewPort() is True and log == ["x", "y", "x", "y"]
