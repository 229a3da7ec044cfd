"""Handles by which a node is moved and resized."""

import fractions

import pytest
from helpers import make_node


def edges(node):
    return (node.WX, node.WY, node.WX + node.width * node.WSX, node.WY + node.height * node.WSY)


@pytest.mark.parametrize("camera", [(0, 0, 1.0), (-30, -20, 2.0)], ids=["plain", "camera"])
@pytest.mark.parametrize(("scale", "anchor"), [((1, 1), (0, 0)), ((2, 1.5), (0.5, 0.5))])
@pytest.mark.parametrize("index", range(9))
def test_the_dragged_edge_follows_the_mouse(screen, capsys, index, scale, anchor, camera):
    root = make_node(None, x=7, y=9)
    node = make_node(root, width=60, height=40, x=100, y=80, editrectenable=True)
    node.SetSXY(*scale)
    node.SetAXY(*anchor)
    node.draw(screen, *camera)
    left, top, right, bottom = edges(node)
    # A point well inside the handle, wherever it lies against the edge.
    row, column = divmod(index, 3)
    x = (left + 1, (left + right) // 2, right - 2)[column]
    y = (top + 1, (top + bottom) // 2, bottom - 2)[row]
    assert root.OnPickDownFunction(x, y) is node and node.clicked is False
    assert (node.dragcornerindex, node.dragbegin_x, node.dragbegin_y) == (index, x, y)
    for step in (0.5, 1):
        root.OnEditRectDraging(x + 12 * step, y - 8 * step)
        node.draw(screen, *camera)
    root.OnPickUpFunction(x + 500, y)
    root.OnEditRectDraging(0, 0)
    moved = (12 * (column == 0), -8 * (row == 0), 12 * (column == 2), -8 * (row == 2))
    moved = (12, -8, 12, -8) if index == 4 else moved
    expected = [edge + move for edge, move in zip((left, top, right, bottom), moved)]
    assert edges(node) == pytest.approx(expected, abs=1.01) and root.GetXY() == (7, 9)


def dragged(index, to):
    node = make_node(None, width=60, height=40, editrectenable=True)
    node.dragcornerindex, node.dragbegin_x, node.dragbegin_y = index, 0, 0
    node.OnEditRectDraging(*to)
    return node.x, node.y, node.width, node.height


@pytest.mark.parametrize("index", [0, 1, 2, 3, 5, 6, 7, 8])
def test_sizes_stop_at_nothing(index):
    row, column = divmod(index, 3)
    size = dragged(index, (-999 if column else 999, -999 if row else 999))[2:]
    assert size == (60 if column == 1 else 0, 40 if row == 1 else 0)


# Equal to a number without being one of Python's own, as numpy's integers are.
class Whole(fractions.Fraction):
    def __index__(self):
        return self.numerator


INDEXES = [(True, 1), (False, 0), (Whole(8), 8), (type("Int", (int,), {})(6), 6), (5.0, 5)]


@pytest.mark.parametrize(("index", "number"), INDEXES)
def test_any_number_names_a_handle(index, number):
    assert dragged(index, (12, -8)) == dragged(number, (12, -8))


def test_without_edit_rectangle_there_are_no_handles(screen):
    node = make_node(None, width=60, height=40)
    assert node.checkDragRect(1, 1) == -2
    node.SetEditRectEnable(True)
    assert node.checkDragRect(x=-3, y=2.9) == 0 and node.checkDragRect(15, 10) < 0
    assert node.checkDragRect(3, 0) < 0 and node.checkDragRect(0, 3) < 0


def test_a_node_without_extent_on_the_screen_stays_where_it_is():
    node = make_node(None, x=5, dragcornerindex=4, editrectenable=True, WSX=0)
    node.OnEditRectDraging(12, 9)
    assert (node.x, node.y) == (5, 10)
