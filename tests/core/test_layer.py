"""The layer's registry, draw order, scrolling and debug shapes."""

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene, ink, make_node


@pytest.fixture
def layer(screen):
    layer = T.GameLayer()
    layer.OnLoad(Scene((100, 50)))
    return layer


def fill(layer, count=3, **values):
    nodes = [make_node(None, **values) for _ in range(count)]
    assert [layer.AddGameNode(node) for node in nodes] == list(range(count))
    return nodes


def test_numbers_are_never_reused(layer, monkeypatch):
    log, (_, second), third, inner = [], fill(layer, 2), make_node(), make_node()

    def load(scene):
        log.append((third.instanceID, layer.SortGameNodeInstanceIDArray[:]))
        layer.AddGameNode(inner)

    third.OnLoad = load
    layer.DelGameNode(0)
    layer.update(0)
    assert layer.AddGameNode(GameNode=third, immMode=1.0) == 2
    assert log == [(2, [1])] and inner.instanceID == 3 and layer.instanceID == 4
    assert layer.GetAllGameNode() == {1: second, 2: third, 3: inner}
    assert sorted(layer.SortGameNodeInstanceIDArray) == [1, 2, 3] and layer.GetGameNodeCount() == 3
    assert layer.GetGameNode(instanceID=2) is third and layer.GetGameNode(0) is None
    assert layer.ExistGameNode(instanceID=1) is True and layer.ExistGameNode("none") is False
    assert layer.CheckAllGameNode() is True
    fonts = []
    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: fonts.append(args) or "font")
    assert T.GameLayer().font == "font" and fonts == [("Arial", 18, False, False)]


@pytest.mark.parametrize("mode", [False, 2, None])
def test_adding_later(layer, screen, mode):
    log, late, node = [], make_node(), make_node()
    node.draw = lambda *args: log.append(args)
    node.OnLoad = lambda scene: layer.AddGameNode(late, False)
    assert layer.AddGameNode(node, mode) == 0 and node.instanceID == -1
    layer.update(1)
    layer.SetVisible(False)
    layer.draw(screen)
    assert layer.AddGameNodeDict == {0: node} and layer.GetGameNode(0) is None
    layer.SetVisible(True)
    layer.draw(screen)
    assert layer.GetGameNode(0) is node and node.instanceID == 0 and log == []
    layer.draw(screen)
    assert log == [(screen, 0, 0, 1.0)] and layer.GetGameNode(1) is late
    assert late.sceneInstance is layer.sceneInstance and layer.AddGameNodeDict == {}


def test_deleting_queues_registered_descendants_until_an_update(layer, screen):
    nodes, log = fill(layer), []
    layer.AddGameNode(T.GameNode(T.GameNode(nodes[0])))
    for number in (3, 0, 0, 77):
        layer.DelGameNode(instanceID=number)
    nodes[0].draw, nodes[0].update = lambda *args: log.append("draw"), log.append
    layer.draw(screen)
    layer.SetVisible(False)
    layer.update(1)
    assert log == ["draw"] and layer.DelGameNodeArray == [3, 3, 0] and layer.GetGameNodeCount() == 4
    layer.SetVisible(True)
    nodes[1].update = lambda delay: 1 / 0
    pytest.raises(ZeroDivisionError, layer.update, 2)
    assert log == ["draw", 2] and layer.DelGameNodeArray == [3, 3, 0]
    del nodes[1].update
    layer.update(3)
    assert layer.SortGameNodeInstanceIDArray == list(layer.GameNodeDict) == [1, 2]
    assert layer.DelGameNodeArray == [] and nodes[0].instanceID == 0
    layer.CleanUpGameNode()
    layer.update(4)
    assert layer.GameNodeDict == {}


@pytest.mark.parametrize("row", ["Up 0 102", "Up 2 012", "Down 0 012", "Down 2 021", "Up 9 012"])
def test_draw_order(layer, screen, row):
    log, (step, number, order) = [], row.split()
    for index, node in enumerate(fill(layer)):
        node.draw = lambda *args, index=index: log.append(str(index))
        node.update = lambda delay, index=index: log.append(f"u{index}")
    getattr(layer, f"Layer{step}GameNode")(instanceID=int(number))
    layer.draw(screen)
    layer.update(1)
    assert log == [*order, "u0", "u1", "u2"] and layer.GameNodeKeyArray == [0, 1, 2]


def test_every_node_is_offered_every_event_unless_hidden(layer):
    nodes = [Recorder(5), Recorder(False)]
    for node in nodes:
        layer.AddGameNode(node)
    for visible in (1, True, False, 2):
        layer.SetVisible(visible)
        layer.OnPickDownFunction(x=1, y=2)
        layer.OnPickUpFunction(x=1, y=2)
        layer.OnKeyDownFunction(key=1)
    calls = ["OnPickDownFunction", "OnPickUpFunction", "OnKeyDownFunction"]
    assert nodes[0].names() == nodes[1].names() == ["SetInstanceID", "OnLoad", *calls * 2]


def test_load_destroy_and_collision(layer, screen):
    nodes = fill(layer, width=10, height=10, collisionType=0)
    nodes[1].collisionType = -1
    nodes[1].x = nodes[2].x = 15
    assert layer.checkCollision(nodes[2]) is False
    assert layer.checkCollision(gameNode=nodes[2], moveX=-10, moveY=0) is True and nodes[2].x == 15
    rect = pygame.Rect(12, 0, 2, 2)
    assert layer.checkEventRectCollision(rect) is False
    assert layer.checkEventRectCollision(objrect=rect, moveX=-5, moveY=0) is True and rect.x == 12
    layer.AddGameNode(make_node(), False)
    layer.OnLoad(scene="scene")
    layer.DelGameNode(0)
    kept = dict(vars(layer))
    layer.OnDestroy()
    replaced = [name for name, value in vars(layer).items() if value is not kept[name]]
    assert {"GameNodeDict", "GameNodeKeyArray", "DelGameNodeArray"} <= set(replaced)
    assert not any(vars(layer)[name] for name in replaced) and len(kept["GameNodeDict"]) == 3
    assert [(n.instanceID, n.sceneInstance) for n in nodes] == [(-1, "scene")] * 3
    assert layer.instanceID == 4 and layer.sceneInstance == "scene"


SCROLLS = [
    (1, "scrollPosX", [*range(-10, -101, -10), 100, 90]),
    (2, "scrollPosX", [*range(10, 101, 10), -100, -90]),
    (3, "scrollPosY", [*range(-10, -51, -10), 100, 90]),
    (4, "scrollPosY", [*range(10, 51, 10), -50, -40]),
]


@pytest.mark.parametrize("kind, attribute, expected", SCROLLS)
def test_automatic_scroll(layer, kind, attribute, expected):
    layer.SetAutoScroll(float(kind), 10)
    for value in expected:
        layer.update(1)
        assert repr(getattr(layer, attribute)) == repr(value)
    assert layer.scrollPosX == 0 or layer.scrollPosY == 0
    for size in ((1, 2, 3), (1,), (), None):
        layer.sceneInstance.size = size
        text = (
            "too many values to unpack .expected 2"
            if len(size or ()) > 2
            else "not enough|iterable"
        )
        pytest.raises((ValueError, TypeError), layer.update, 1).match(text)


SHAPES = [
    ("Point", "pointName pointType px py", ["p", 1, 40, 60], (30, 50, 20, 20)),
    ("Line", "lineName lineType x1 y1 x2 y2", ["l", 1, 10, 20, 60, 20], (10, 20, 51, 1)),
    ("Rect", "rectName rectType x1 y1 x2 y2", ["r", 1, 30, 40, 80, 70], (30, 40, 51, 31)),
]


@pytest.mark.parametrize("kind, names, arguments, place", SHAPES)
def test_debug_shapes(layer, screen, kind, names, arguments, place):
    add, get = getattr(layer, "Add" + kind), getattr(layer, f"Get{kind}Array")
    remove, layer.scrollPosX = getattr(layer, "Del" + kind), 100
    add(*arguments)
    add(**dict(zip(names.split(), arguments)))
    assert get() == [arguments, arguments] and type(get()[0]) is list
    for index in (2, -1, 50):
        remove(index)
    remove(index=0)
    pytest.raises(TypeError, remove, "l")
    layer.font = Recorder(pygame.Surface((4, 4)))
    layer.draw(screen)
    x, y = arguments[2:4]
    assert get() == [arguments] and screen.get_at((x, y))[:3] == (255, 0, 0)
    assert pygame.Rect(place).contains(ink(screen)) and ink(screen).width > place[2] / 5
    if kind == "Point":
        text = layer.font.calls[0][1][0]
        assert text.startswith("(40") and text.endswith("60)")
    get()[0] = ["name", 0]
    pytest.raises((TypeError, IndexError, ValueError), layer.draw, screen)
    # Shapes lie above the nodes, and a hidden layer draws nothing.
    get()[0], (node,) = arguments, fill(layer, 1)
    node.draw = lambda surface, *camera: surface.fill((0, 0, 0))
    layer.draw(screen)
    assert screen.get_at((x, y))[:3] == (255, 0, 0)
    screen.fill((0, 0, 0))
    layer.SetVisible(False)
    layer.draw(screen)
    assert ink(screen).size == (0, 0)
