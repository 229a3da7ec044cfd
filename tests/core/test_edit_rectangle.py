"""Dragging the handles of the edit rectangle with the mouse."""

import pygame
import pytest
import Tessora as T

PLACES = {0: "left top", 1: "top", 2: "right top", 3: "left", 4: "middle", 5: "right"}
PLACES.update({6: "left bottom", 7: "bottom", 8: "right bottom"})


def make(x=100, y=80, width=60, height=40, parent=None, **values):
    node = T.GameNode(parent, x, y)
    node.SetWidth(width)
    node.SetHeight(height)
    node.SetEditRectEnable(True)
    for name, value in values.items():
        setattr(node, name, value)
    return node


def drawn(node):
    return (node.WX, node.WY, node.WX + node.width * node.WSX, node.WY + node.height * node.WSY)


def grip(node, index):
    """A point well inside a handle, wherever it lies against the edge."""
    left, top, right, bottom = drawn(node)
    column, row = index % 3, index // 3
    return (
        (left + 1, (left + right) // 2, right - 2)[column],
        (top + 1, (top + bottom) // 2, bottom - 2)[row],
    )


@pytest.mark.parametrize("index", sorted(PLACES))
def test_handles_row_by_row(screen, index):
    node = make()
    node.draw(screen, 0, 0, 1.0)
    assert node.checkDragRect(*grip(node, index)) == index
    x, y = grip(node, index)
    assert node.checkDragRect(x=x, y=y) == index
    node.SetEditRectEnable(2)
    assert node.checkDragRect(x, y) == -2


@pytest.mark.parametrize("point", [(115, 90), (145, 110), (0, 0), (300, 300)])
def test_between_the_handles(screen, point):
    node = make()
    node.draw(screen, 0, 0, 1.0)
    assert node.checkDragRect(*point) < 0


def drag(node, index, dx, dy, screen, camera, steps=2):
    x, y = grip(node, index)
    assert node.OnPickDownFunction(x, y) is node and node.dragcornerindex == index
    assert (node.dragbegin_x, node.dragbegin_y) == (x, y) and node.clicked is False
    for step in range(1, steps + 1):
        node.OnEditRectDraging(x + dx * step // steps, y + dy * step // steps)
        node.draw(screen, *camera)
    node.OnPickUpFunction(x + dx, y + dy)
    assert node.dragcornerindex == -1


@pytest.mark.parametrize("camera", [(0, 0, 1.0), (-30, -20, 2.0)])
@pytest.mark.parametrize("scale, anchor", [((1, 1), (0, 0)), ((2, 1.5), (0.5, 0.5))])
@pytest.mark.parametrize("index", sorted(PLACES))
def test_the_dragged_edge_follows_the_mouse(screen, capsys, index, scale, anchor, camera):
    parent = T.GameNode(None, 7, 9)
    node = make(parent=parent)
    node.SetSXY(*scale)
    node.SetAXY(*anchor)
    node.draw(screen, *camera)
    left, top, right, bottom = drawn(node)
    dx, dy = 12, -8
    drag(node, index, dx, dy, screen, camera)
    column, row = index % 3, index // 3
    whole = index == 4
    expected = (
        left + dx * (column == 0 or whole),
        top + dy * (row == 0 or whole),
        right + dx * (column == 2 or whole),
        bottom + dy * (row == 2 or whole),
    )
    assert drawn(node) == pytest.approx(expected, abs=1.01)
    assert capsys.readouterr().out.replace("collidepoint\n", "") == ""


@pytest.mark.parametrize("index", [0, 2, 6, 8])
def test_sizes_stop_at_nothing(screen, capsys, index):
    node = make()
    node.draw(screen, 0, 0, 1.0)
    far = {0: (500, 500), 2: (-500, 500), 6: (500, -500), 8: (-500, -500)}[index]
    drag(node, index, far[0], far[1], screen, (0, 0, 1.0), steps=1)
    assert node.GetWidth() == 0 and node.GetHeight() == 0


def test_only_a_dragged_node_moves(screen):
    node = make()
    node.draw(screen, 0, 0, 1.0)
    before = dict(vars(node))
    assert node.OnEditRectDraging(10, 10) is None
    node.dragcornerindex = -1
    node.OnEditRectDraging(20, 20)
    node.dragcornerindex = -2
    assert {k: v for k, v in vars(node).items() if before[k] != v} == {}


def test_a_dragged_child_is_reached_through_its_parent(screen, capsys):
    root = T.GameNode(None)
    child = make(parent=root)
    root.draw(screen, 0, 0, 1.0)
    x, y = grip(child, 4)
    assert root.OnPickDownFunction(x, y) is child
    root.OnEditRectDraging(x + 5, y + 6)
    assert child.GetXY() == (105, 86) and root.GetXY() == (0, 0)
    layer = T.GameLayer()
    layer.AddGameNode(root)
    layer.OnEditRectDraging(x + 7, y + 6)
    assert child.GetXY() == (107, 86)
    layer.SetVisible(False)
    layer.OnEditRectDraging(0, 0)
    assert child.GetXY() == (107, 86)


def test_a_drag_by_pygame_events(screen, capsys):
    layer = T.GameLayer()
    node = make()
    layer.AddGameNode(node)
    layer.draw(screen)
    x, y = (int(v) for v in grip(node, 8))
    pygame.event.clear()
    for kind, pos in (
        (pygame.MOUSEBUTTONDOWN, (x, y)),
        (pygame.MOUSEMOTION, (x + 10, y + 5)),
        (pygame.MOUSEBUTTONUP, (x + 10, y + 5)),
        (pygame.MOUSEMOTION, (x + 90, y + 90)),
    ):
        pygame.event.post(pygame.event.Event(kind, pos=pos, button=1))
    handlers = {
        pygame.MOUSEBUTTONDOWN: layer.OnPickDownFunction,
        pygame.MOUSEBUTTONUP: layer.OnPickUpFunction,
        pygame.MOUSEMOTION: layer.OnEditRectDraging,
    }
    for event in pygame.event.get():
        if event.type in handlers:
            handlers[event.type](*event.pos)
    assert (node.GetWidth(), node.GetHeight()) == (70, 45) and node.GetXY() == (100, 80)


@pytest.mark.parametrize("value", ["a", None, float("nan"), 10**400])
@pytest.mark.parametrize("index", [0, 4, 8])
def test_a_drag_to_nowhere_fails_in_an_ordinary_way(screen, index, value):
    node = make()
    node.draw(screen, 0, 0, 1.0)
    node.dragcornerindex = index
    try:
        node.OnEditRectDraging(value, value)
    except (TypeError, ValueError, OverflowError):
        pass
    node = make()
    node.draw(screen, 0, 0, 1.0)
    assert node.checkDragRect(*grip(node, index)) == index
