"""Debug points, lines and rectangles of a layer."""

import pygame
import pytest
import Tessora as T
from helpers import ink, make_node

RED = (255, 0, 0)
SHAPES = [
    ("Point", ("pointName", "pointType", "px", "py"), ("p", 1, 40, 60)),
    ("Line", ("lineName", "lineType", "x1", "y1", "x2", "y2"), ("l", 1, 10, 20, 60, 20)),
    ("Rect", ("rectName", "rectType", "x1", "y1", "x2", "y2"), ("r", 1, 30, 40, 80, 70)),
]


@pytest.fixture
def layer(screen):
    return T.GameLayer()


@pytest.mark.parametrize(("kind", "names", "values"), SHAPES)
def test_adding_and_deleting(layer, kind, names, values):
    add, delete = getattr(layer, "Add" + kind), getattr(layer, "Del" + kind)
    add(*values)
    add(**dict(zip(names, values)))
    array = getattr(layer, f"Get{kind}Array")()
    assert array == [list(values), list(values)] and type(array[0]) is list
    for index in (2, -1, 50):
        delete(index)
    assert len(array) == 2
    delete(index=0)
    assert len(array) == 1
    pytest.raises(TypeError, delete, "l")


@pytest.mark.parametrize(
    "corners", [(30, 40, 80, 70), (80, 40, 30, 70), (30, 70, 80, 40), (80, 70, 30, 40)], ids=str
)
def test_a_rectangle_has_any_two_opposite_corners(layer, screen, corners):
    layer.AddRect("r", 1, *corners)
    layer.draw(screen)
    assert ink(screen) == pygame.Rect(30, 40, 50, 30)
    assert screen.get_at((30, 40))[:3] == RED and screen.get_at((50, 50))[:3] == (0, 0, 0)


@pytest.mark.parametrize(("kind", "names", "values"), SHAPES)
def test_shapes_lie_above_the_nodes_and_do_not_scroll(layer, screen, kind, names, values):
    node = make_node()
    node.draw = lambda surface, *camera: surface.fill((0, 0, 0))
    layer.AddGameNode(node)
    getattr(layer, "Add" + kind)(*values)
    layer.scrollPosX = 100
    layer.draw(screen)
    assert screen.get_at(values[2:4])[:3] == RED


@pytest.mark.parametrize(("kind", "names", "values"), SHAPES)
def test_a_hidden_layer_draws_none(layer, screen, kind, names, values):
    getattr(layer, "Add" + kind)(*values)
    layer.SetVisible(False)
    layer.draw(screen)
    assert ink(screen).size == (0, 0)


@pytest.mark.parametrize(("kind", "names", "values"), SHAPES)
def test_malformed_shapes_are_refused(layer, screen, kind, names, values):
    getattr(layer, f"{kind}Array").append(["name", 0])
    pytest.raises((TypeError, IndexError, ValueError), layer.draw, screen)
