"""The layer's registry, draw order, scrolling and collisions."""

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene, make_node


@pytest.fixture
def layer(screen):
    layer = T.GameLayer()
    layer.OnLoad(Scene((100, 50)))
    return layer


def fill(layer, count=3, **values):
    nodes = [make_node(None, **values) for _ in range(count)]
    assert [layer.AddGameNode(node) for node in nodes] == list(range(count))
    return nodes


def test_numbers_are_never_reused(layer):
    _, second = fill(layer, 2)
    third = make_node()
    layer.DelGameNode(0)
    layer.update(0)
    assert layer.AddGameNode(GameNode=third, immMode=1.0) == third.instanceID == 2
    assert layer.GetAllGameNode() == {1: second, 2: third} and layer.GetGameNodeCount() == 2
    assert layer.GetGameNode(instanceID=2) is third and layer.GetGameNode(0) is None
    assert layer.ExistGameNode(instanceID=1) is True and layer.ExistGameNode("none") is False


def test_a_consistent_layer_knows_every_node_by_its_number_and_once(layer):
    (node, _), order = fill(layer, 2), layer.SortGameNodeInstanceIDArray
    assert layer.CheckAllGameNode() is True
    for spoil, repair in (
        (lambda: order.append(0), order.pop),
        (lambda: order.remove(0), lambda: order.append(0)),
        (lambda: node.SetInstanceID(7), lambda: node.SetInstanceID(0)),
    ):
        spoil()
        assert layer.CheckAllGameNode() is False
        repair()
    assert layer.CheckAllGameNode() is True


def test_a_node_may_add_another_while_it_is_loaded(layer):
    outer, inner = make_node(), make_node()
    outer.OnLoad = lambda scene: layer.AddGameNode(inner)
    assert layer.AddGameNode(outer) == 0
    assert (outer.instanceID, inner.instanceID, layer.instanceID) == (0, 1, 2)
    assert sorted(layer.SortGameNodeInstanceIDArray) == [0, 1]


def test_the_font_of_the_labels(screen, monkeypatch):
    asked = []
    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: asked.append(args) or "font")
    assert T.GameLayer().font == "font" and asked == [("Arial", 18, False, False)]


@pytest.mark.parametrize("mode", [False, 2, None])
def test_nodes_added_later_are_taken_in_at_the_end_of_a_draw(layer, screen, mode):
    node, drawn = make_node(), []
    node.draw = lambda *args: drawn.append(args)
    assert layer.AddGameNode(node, mode) == 0 and node.instanceID == -1
    layer.update(1)
    layer.SetVisible(False)
    layer.draw(screen)
    assert layer.AddGameNodeDict == {0: node} and layer.GetGameNode(0) is None
    layer.SetVisible(True)
    layer.draw(screen)
    assert (layer.GetGameNode(0), node.instanceID, drawn) == (node, 0, [])
    assert layer.AddGameNodeDict == {} and node.sceneInstance is layer.sceneInstance
    layer.scrollPosX, layer.scrollPosY = 5, 7
    layer.draw(screen)
    assert drawn == [(screen, 5, 7, 1.0)]


def test_a_node_taken_in_may_queue_another(layer, screen):
    node, late = make_node(), make_node()
    node.OnLoad = lambda scene: layer.AddGameNode(late, False)
    layer.AddGameNode(node, False)
    for _ in range(2):
        layer.draw(screen)
    assert layer.GetGameNode(1) is late and late.sceneInstance is layer.sceneInstance


def test_deleting_queues_registered_descendants(layer):
    nodes = fill(layer)
    layer.AddGameNode(T.GameNode(T.GameNode(nodes[0])))
    for number in (3, 0, 0, 77):
        layer.DelGameNode(instanceID=number)
    assert layer.DelGameNodeArray == [3, 3, 0] and layer.GetGameNodeCount() == 4
    layer.update(3)
    assert layer.SortGameNodeInstanceIDArray == list(layer.GameNodeDict) == [1, 2]
    assert layer.DelGameNodeArray == [] and nodes[0].instanceID == 0
    layer.CleanUpGameNode()
    layer.update(4)
    assert layer.GameNodeDict == {}


def test_a_descendant_may_have_the_number_0(layer):
    parent = make_node()
    for node in (make_node(parent), parent):
        layer.AddGameNode(node)
    layer.DelGameNode(1)
    assert layer.DelGameNodeArray == [0, 1]


def test_the_queue_waits_for_an_update_that_ends(layer, screen):
    nodes, log = fill(layer), []
    nodes[0].draw, nodes[0].update = lambda *args: log.append("draw"), log.append
    layer.DelGameNode(0)
    layer.draw(screen)
    layer.SetVisible(False)
    layer.update(1)
    layer.SetVisible(True)
    nodes[1].update = lambda delay: 1 / 0
    pytest.raises(ZeroDivisionError, layer.update, 2)
    assert log == ["draw", 2] and layer.DelGameNodeArray == [0]


STEPS = [("Up", 0, [1, 0, 2]), ("Up", 2, [0, 1, 2]), ("Up", 9, [0, 1, 2])]
STEPS += [("Down", 0, [0, 1, 2]), ("Down", 2, [0, 2, 1])]


@pytest.mark.parametrize(("step", "number", "order"), STEPS)
def test_draw_order(layer, screen, step, number, order):
    drawn, updated = [], []
    for index, node in enumerate(fill(layer)):
        node.draw = lambda *args, index=index: drawn.append(index)
        node.update = lambda delay, index=index: updated.append(index)
    getattr(layer, f"Layer{step}GameNode")(instanceID=number)
    layer.draw(screen)
    layer.update(1)
    assert drawn == order and updated == layer.GameNodeKeyArray == [0, 1, 2]


@pytest.mark.parametrize("event", ["OnPickDownFunction", "OnPickUpFunction", "OnKeyDownFunction"])
def test_every_node_is_offered_every_event_unless_hidden(layer, event):
    nodes = [Recorder(5), Recorder(False)]
    for node in nodes:
        layer.AddGameNode(node)
    for visible in (1, True, False, 2):
        layer.SetVisible(visible)
        getattr(layer, event)(*(1, 2)[: 1 if "Key" in event else 2])
    assert nodes[0].names() == nodes[1].names() == ["SetInstanceID", "OnLoad", event, event]


def test_load_and_destroy(layer):
    nodes = fill(layer)
    layer.AddGameNode(make_node(), False)
    layer.OnLoad(scene="scene")
    layer.DelGameNode(0)
    kept = dict(vars(layer))
    layer.OnDestroy()
    for name in ("GameNodeDict", "GameNodeKeyArray", "DelGameNodeArray"):
        assert not getattr(layer, name) and getattr(layer, name) is not kept[name]
    assert len(kept["GameNodeDict"]) == 3
    assert [(n.instanceID, n.sceneInstance) for n in nodes] == [(-1, "scene")] * 3
    assert layer.instanceID == 4 and layer.sceneInstance == "scene"


# Where the other nodes stand, the move that is tried, and whether the node at 0, 0 is stopped.
COLLISIONS = [
    ([50, 5, 60], (), True),
    ([50, 60, 5], (), True),
    ([50, 60], (-55, 0), False),
    ([50, 60], (45, 0), True),
    ([], (), False),
]


@pytest.mark.parametrize(("places", "move", "hit"), COLLISIONS, ids=str)
def test_collisions_with_the_other_nodes(layer, places, move, hit):
    box = {"width": 10, "height": 10, "collisionType": 0}
    for x in places:
        layer.AddGameNode(make_node(None, x=x, **box))
    node, rect = make_node(None, **box), pygame.Rect(0, 0, 10, 10)
    layer.AddGameNode(node)
    assert layer.checkCollision(node, *move) is hit and node.GetXY() == (0, 0)
    layer.DelGameNode(len(places))
    layer.update(0)
    assert layer.checkEventRectCollision(rect, *move) is hit and rect.topleft == (0, 0)


def test_nodes_without_collision_are_passed_over(layer):
    node, _ = fill(layer, 2, width=10, height=10)
    assert layer.checkCollision(node) is False
    assert layer.checkEventRectCollision(pygame.Rect(0, 0, 10, 10)) is False


ANSWERS = [((False, False), False), ((True, False), True), ((False, True), True)]


# A map's own type is -1, and it answers with a flag for each direction.
@pytest.mark.parametrize("place", ["before the node", "after the node"])
@pytest.mark.parametrize(("answer", "hit"), ANSWERS)
def test_tile_maps_answer_for_each_direction(layer, answer, hit, place):
    node, tiles, asked = make_node(width=10, height=10), make_node(NodeType="TiledMap"), []
    tiles.checkCollision = lambda *args: asked.append(args) or answer
    for each in (tiles, node) if place == "before the node" else (node, tiles):
        layer.AddGameNode(each)
    assert layer.checkCollision(node, 1, 2) is hit and asked == [(node, 1, 2)]


SCROLLS = [
    (1, "scrollPosX", [*range(-10, -101, -10), 100, 90]),
    (2, "scrollPosX", [*range(10, 101, 10), -100, -90]),
    (3, "scrollPosY", [*range(-10, -51, -10), 100, 90]),
    (4, "scrollPosY", [*range(10, 51, 10), -50, -40]),
]


@pytest.mark.parametrize(("kind", "attribute", "expected"), SCROLLS)
def test_automatic_scroll(layer, kind, attribute, expected):
    layer.SetAutoScroll(float(kind), 10)
    for value in expected:
        layer.update(1)
        assert repr(getattr(layer, attribute)) == repr(value)
    assert layer.scrollPosX == 0 or layer.scrollPosY == 0


SIZES = [((1, 2, 3), "too many values to unpack .expected 2"), ((1,), "not enough values")]


@pytest.mark.parametrize(("size", "text"), [*SIZES, (None, "iterable")])
def test_scenes_of_another_size_are_refused(layer, size, text):
    layer.SetAutoScroll(1, 10)
    layer.sceneInstance.size = size
    pytest.raises((ValueError, TypeError), layer.update, 1).match(text)
