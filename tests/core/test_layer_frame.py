"""Scrolling and the debug shapes of a layer."""

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene, ink


@pytest.fixture
def layer(screen):
    layer = T.GameLayer()
    layer.OnLoad(Scene((100, 50)))
    return layer


def positions(layer, attribute, steps, delay=1):
    result = []
    for _ in range(steps):
        layer.update(delay)
        result.append(getattr(layer, attribute))
    return result


@pytest.mark.parametrize(
    "kind, attribute, expected",
    [
        (1, "scrollPosX", [*range(-10, -101, -10), 100, 90]),
        (2, "scrollPosX", [*range(10, 101, 10), -100, -90]),
        (3, "scrollPosY", [*range(-10, -51, -10), 100, 90]),
        (4, "scrollPosY", [*range(10, 51, 10), -50, -40]),
    ],
)
def test_automatic_scroll(layer, kind, attribute, expected):
    layer.SetAutoScroll(kind, 10)
    found = positions(layer, attribute, len(expected))
    assert found == expected and all(type(value) is int for value in found)
    other = {"scrollPosX": "scrollPosY", "scrollPosY": "scrollPosX"}[attribute]
    assert getattr(layer, other) == 0
    layer.SetAutoScroll(kind, 0.5)
    assert positions(layer, attribute, 1, 0.5)[0] == expected[-1] + (
        0.25 if kind % 2 == 0 else -0.25
    )


@pytest.mark.parametrize("kind", [0, -1, 5, 2.5, False])
def test_other_kinds_do_not_scroll(layer, kind):
    layer.SetAutoScroll(kind, 10)
    layer.update(1)
    assert (layer.scrollPosX, layer.scrollPosY) == (0, 0)


def test_kind_is_compared_by_equality(layer):
    layer.SetAutoScroll(2.0, 10)
    assert positions(layer, "scrollPosX", 1) == [10]
    layer.SetAutoScroll(True, 10)
    assert positions(layer, "scrollPosX", 1) == [0]


def test_the_scene_is_asked_only_while_scrolling(layer):
    scene = Recorder(GetSceneSize=[100, 50])
    layer.OnLoad(scene)
    layer.update(1)
    layer.SetAutoScroll(5, 10)
    layer.update(1)
    layer.SetAutoScroll(2, 10)
    layer.update(1)
    layer.SetVisible(False)
    layer.update(1)
    assert scene.names() == ["GetSceneSize"] * 2 and layer.scrollPosX == 10
    layer.SetVisible(True)
    layer.sceneInstance = None
    layer.update(1)
    assert layer.scrollPosX == 10


@pytest.mark.parametrize(
    "size, error, text",
    [
        ((1, 2, 3), ValueError, "too many values to unpack (expected 2"),
        ((1,), ValueError, "not enough values to unpack (expected 2, got 1)"),
        ((), ValueError, "not enough values to unpack (expected 2, got 0)"),
        (None, TypeError, ""),
        (5, TypeError, ""),
    ],
)
def test_scene_sizes_of_other_shapes(layer, size, error, text):
    layer.sceneInstance.size = size
    layer.SetAutoScroll(1, 10)
    with pytest.raises(error) as caught:
        layer.update(1)
    assert str(caught.value).startswith(text)
    layer.sceneInstance.size = iter((100, 50))
    layer.update(1)
    assert layer.scrollPosX == -10


def test_a_scene_without_a_size(layer):
    layer.OnLoad(object())
    layer.SetAutoScroll(1, 10)
    with pytest.raises(AttributeError):
        layer.update(1)


def test_scroll_position_is_the_camera_offset(layer, screen):
    node = T.GameNode(None, 5, 5)
    layer.AddGameNode(node)
    layer.scrollPosX, layer.scrollPosY = 7, -2.5
    layer.draw(screen)
    assert (node.WX, node.WY) == (12, 2.5)
    layer.scrollPosX = None
    with pytest.raises(TypeError):
        layer.draw(screen)


@pytest.mark.parametrize(
    "kind, arguments, names",
    [
        ("Point", ["p", 1, 2, 3], ["pointName", "pointType", "px", "py"]),
        ("Line", ["l", 1, 2, 3, 4, 5], ["lineName", "lineType", "x1", "y1", "x2", "y2"]),
        ("Rect", ["r", 1, 2, 3, 4, 5], ["rectName", "rectType", "x1", "y1", "x2", "y2"]),
    ],
)
def test_shape_lists(layer, kind, arguments, names):
    add, get = getattr(layer, "Add" + kind), getattr(layer, "Get" + kind + "Array")
    remove = getattr(layer, "Del" + kind)
    assert add(*arguments) is None
    add(**dict(zip(names, arguments)))
    assert get() == [arguments, arguments] and type(get()[0]) is list and get()[0] is not get()[1]
    add("third", *arguments[1:])
    for index in (3, -1, 50):
        remove(index)
    assert len(get()) == 3
    assert remove(index=0) is None
    assert [shape[0] for shape in get()] == [arguments[0], "third"]
    remove(1)
    assert [shape[0] for shape in get()] == [arguments[0]]
    with pytest.raises(TypeError):
        remove("l")
    with pytest.raises(TypeError):
        remove(None)


RED = (255, 0, 0)


def test_debug_points(layer, screen):
    layer.scrollPosX = 100
    layer.AddPoint("p", 0, 40, 60)
    layer.draw(screen)
    marker = pygame.Rect(30, 50, 20, 20)
    assert screen.get_at((40, 60))[:3] == RED
    assert marker.contains(ink(screen.subsurface((0, 0, 40, 240))))
    text = layer.font.size("(40,60)")
    area = ink(screen)
    assert text[0] * 0.7 < area.width < text[0] + 40 and area.left >= 30


def test_the_label_of_a_point(layer, screen, monkeypatch):
    texts = []

    class Font:
        def render(self, text, *rest):
            texts.append((text, rest))
            return pygame.Surface((4, 4))

    layer.font = Font()
    layer.AddPoint("p", 0, 40, 60)
    layer.draw(screen)
    ((text, rest),) = texts
    assert text.startswith("(40") and text.endswith("60)")
    assert pygame.Color("red") in rest


def test_debug_lines_and_rectangles(layer, screen):
    layer.AddLine("l", 0, 10, 20, 60, 20)
    layer.draw(screen)
    assert screen.get_at((10, 20))[:3] == screen.get_at((60, 20))[:3] == RED
    assert ink(screen) == pygame.Rect(10, 20, 51, 1)
    screen.fill((0, 0, 0))
    layer.DelLine(0)
    layer.AddRect("r", 0, 30, 40, 80, 70)
    layer.draw(screen)
    area = ink(screen)
    assert area.topleft == (30, 40)
    assert abs(area.right - 80) <= 1 and abs(area.bottom - 70) <= 1
    assert screen.get_at((55, 55))[:3] == (0, 0, 0) and screen.get_at((55, 40))[:3] == RED


def test_shapes_lie_above_the_nodes(layer, screen):
    node = T.GameNode(None)
    node.draw = lambda surface, *camera: surface.fill((0, 0, 255))
    layer.AddGameNode(node)
    layer.AddLine("l", 0, 0, 5, 300, 5)
    layer.draw(screen)
    assert screen.get_at((100, 5))[:3] == RED and screen.get_at((100, 50))[:3] == (0, 0, 255)


def test_a_hidden_layer_draws_nothing(layer, screen):
    layer.AddRect("r", 0, 0, 0, 50, 50)
    layer.SetVisible(False)
    layer.draw(screen)
    assert ink(screen).size == (0, 0)


@pytest.mark.parametrize("kind, count", [("Point", 2), ("Line", 4), ("Rect", 4)])
@pytest.mark.parametrize("value", ["x", None, float("nan"), 10**30, 1e300])
def test_shapes_at_impossible_places(layer, screen, kind, count, value):
    getattr(layer, "Add" + kind)("name", 0, *[value] * count)
    try:
        layer.draw(screen)
    except (TypeError, ValueError, OverflowError, pygame.error):
        pass
    getattr(layer, "Del" + kind)(0)
    layer.AddLine("l", 0, 0, 0, 9, 0)
    layer.draw(screen)
    assert ink(screen).width == 10


@pytest.mark.parametrize("table", ["PointArray", "LineArray", "RectArray"])
@pytest.mark.parametrize("entry", [[], None, ["name", 0], 5])
def test_malformed_shapes(layer, screen, table, entry):
    getattr(layer, table).append(entry)
    with pytest.raises((TypeError, IndexError, ValueError)):
        layer.draw(screen)
    getattr(layer, table).clear()
    layer.draw(screen)


def test_an_error_while_drawing_reaches_the_game(layer, screen):
    node = T.GameNode(None)
    layer.AddGameNode(node)
    layer.AddGameNode(T.GameNode(None), False)
    node.x = "bad"
    with pytest.raises(TypeError):
        layer.draw(screen)
    assert list(layer.AddGameNodeDict) == [1]
    node.x = 1
    layer.draw(screen)
    assert layer.GetGameNodeCount() == 2
    node.UpdateFunction = lambda delay: 1 / 0
    layer.DelGameNode(0)
    with pytest.raises(ZeroDivisionError):
        layer.update(1)
    assert layer.DelGameNodeArray == [0]
