"""The layer's registry, draw order, events and life cycle."""

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene

INNER = ["Load", "Update", "Render", "Destroy", "PickDown", "PickUp", "PickTile"]
DEFAULTS = [
    ("sceneInstance", None),
    ("NodeType", "GameLayer"),
    ("LayerName", None),
    ("GameNodeDict", {}),
    ("SortGameNodeInstanceIDArray", []),
    ("GameNodeKeyArray", []),
    ("AddGameNodeDict", {}),
    ("DelGameNodeArray", []),
    ("BindingEventArray", {}),
    ("PointArray", []),
    ("LineArray", []),
    ("RectArray", []),
    ("InnerBindingEventArray", {name: [None, []] for name in INNER}),
    ("UserFunctionDict", {}),
    ("instanceID", 0),
    ("visible", True),
    ("scrollType", 0),
    ("scrollSpeed", 0),
    ("scrollPosX", 0),
    ("scrollPosY", 0),
]


@pytest.fixture
def layer(screen):
    return T.GameLayer()


def fill(layer, count=3):
    nodes = [T.GameNode(None) for _ in range(count)]
    for node in nodes:
        layer.AddGameNode(node)
    return nodes


def test_attributes_in_order_with_their_defaults(layer):
    assert list(vars(layer)) == [name for name, _ in DEFAULTS] + ["font"]
    for name, value in DEFAULTS:
        found = getattr(layer, name)
        assert found == value and type(found) is type(value), name
    other = T.GameLayer()
    for name, value in DEFAULTS:
        if isinstance(value, (list, dict)):
            assert getattr(other, name) is not getattr(layer, name), name
    with pytest.raises(TypeError):
        T.GameLayer(None)


def test_the_font_is_asked_for_at_construction(screen, monkeypatch):
    calls = []
    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: calls.append(args) or "font")
    assert T.GameLayer().font == "font"
    assert calls == [("Arial", 18, False, False)]
    pygame.font.quit()
    monkeypatch.undo()
    with pytest.raises(pygame.error):
        T.GameLayer()
    pygame.font.init()
    assert T.GameLayer().font.get_height() > 0


@pytest.mark.parametrize(
    "getter, setter, arguments, attributes",
    [
        ("GetLayerName", "SetLayerName", ["name"], ["LayerName"]),
        ("IsVisible", "SetVisible", ["v"], ["visible"]),
        (
            "GetAutoScroll",
            "SetAutoScroll",
            ["scrollType", "scrollSpeed"],
            ["scrollType", "scrollSpeed"],
        ),
        ("GetSceneInstance", None, [], ["sceneInstance"]),
        ("GetNodeType", None, [], ["NodeType"]),
        ("GetAllGameNode", None, [], ["GameNodeDict"]),
        ("GetPointArray", None, [], ["PointArray"]),
        ("GetLineArray", None, [], ["LineArray"]),
        ("GetRectArray", None, [], ["RectArray"]),
    ],
)
def test_accessors(layer, getter, setter, arguments, attributes):
    for keywords in (False, True):
        values = [object() for _ in attributes]
        if not setter:
            setattr(layer, attributes[0], values[0])
        elif keywords:
            getattr(layer, setter)(**dict(zip(arguments, values)))
        else:
            assert getattr(layer, setter)(*values) is None
        assert [getattr(layer, name) for name in attributes] == values
        found = getattr(layer, getter)()
        assert found == tuple(values) if len(values) > 1 else found is values[0]


def test_numbers_are_never_reused(layer):
    first, second, third = (T.GameNode(None) for _ in range(3))
    assert layer.AddGameNode(first) == 0 and layer.AddGameNode(GameNode=second) == 1
    assert (first.instanceID, second.GetInstanceID()) == (0, 1)
    layer.DelGameNode(0)
    layer.update(0)
    assert layer.AddGameNode(third, immMode=True) == 2
    assert layer.GetAllGameNode() == {1: second, 2: third}
    assert layer.SortGameNodeInstanceIDArray == [1, 2] and layer.instanceID == 3
    assert layer.GetGameNodeCount() == 2
    assert layer.GetGameNode(instanceID=2) is third and layer.GetGameNode(0) is None
    assert layer.ExistGameNode(instanceID=1) is True and layer.ExistGameNode(0) is False
    assert layer.GetGameNode("none") is None and layer.ExistGameNode(None) is False
    for unhashable in (layer.GetGameNode, layer.ExistGameNode):
        with pytest.raises(TypeError):
            unhashable([])


def test_adding_at_once(layer):
    scene, log = Scene(), []
    layer.OnLoad(scene)

    class Node(T.GameNode):
        def SetInstanceID(self, i):
            log.append((i, layer.ExistGameNode(i)))
            T.GameNode.SetInstanceID(self, i)

        def OnLoad(self, sceneInstance):
            log.append((sceneInstance, self.instanceID, list(layer.SortGameNodeInstanceIDArray)))

    layer.AddGameNode(Node(None))
    assert log == [(0, True), (scene, 0, [])] and layer.SortGameNodeInstanceIDArray == [0]


def test_adding_a_node_from_the_load_hook_of_another(layer):
    inner = T.GameNode(None)

    class Outer(T.GameNode):
        def OnLoad(self, sceneInstance):
            layer.AddGameNode(inner)

    outer = Outer(None)
    number = layer.AddGameNode(outer)
    assert layer.GetGameNode(number) is outer and outer.instanceID == number
    assert layer.GetGameNode(inner.instanceID) is inner and inner.instanceID != number
    assert sorted(layer.SortGameNodeInstanceIDArray) == [0, 1]
    assert layer.AddGameNode(T.GameNode(None)) == 2


@pytest.mark.parametrize("mode", [False, 0, 2, None, "yes"])
def test_adding_later(layer, screen, mode):
    layer.OnLoad("scene")
    node, log = T.GameNode(None), []
    node.draw = lambda *args: log.append(args)
    assert layer.AddGameNode(node, mode) == 0 and node.instanceID == -1
    assert layer.GetGameNodeCount() == 0 and layer.AddGameNodeDict == {0: node}
    layer.update(1)
    assert layer.GetGameNode(0) is None
    layer.draw(screen)
    assert layer.GetGameNode(0) is node and node.instanceID == 0 and layer.AddGameNodeDict == {}
    assert node.sceneInstance == "scene" and log == []
    layer.draw(screen)
    assert log == [(screen, 0, 0, 1.0)]
    layer.DelGameNode(0)
    layer.update(1)
    assert layer.GetGameNodeCount() == 0 and layer.SortGameNodeInstanceIDArray == []


def test_truth_of_the_mode_is_an_equality(layer):
    assert layer.AddGameNode(T.GameNode(None), 1.0) == 0
    assert layer.GetGameNodeCount() == 1


def test_a_hidden_layer_takes_nothing_in(layer, screen):
    layer.AddGameNode(T.GameNode(None), False)
    layer.SetVisible(False)
    layer.draw(screen)
    assert layer.GetGameNodeCount() == 0
    layer.SetVisible(True)
    layer.draw(screen)
    assert layer.GetGameNodeCount() == 1


def test_a_deferred_node_that_defers_another(layer, screen):
    late = T.GameNode(None)

    class Early(T.GameNode):
        def OnLoad(self, sceneInstance):
            layer.AddGameNode(late, False)

    layer.AddGameNode(Early(None), False)
    layer.draw(screen)
    layer.draw(screen)
    assert layer.GetGameNode(1) is late and layer.GetGameNodeCount() == 2


def test_foreign_nodes(layer, screen):
    node = Recorder(GetAllChildrens=[], GetInstanceID=0)
    layer.OnLoad("scene")
    layer.AddGameNode(node)
    layer.update(0.5)
    layer.draw(screen)
    layer.OnPickDownFunction(x=1, y=2)
    layer.OnPickUpFunction(x=3, y=4)
    layer.OnKeyDownFunction(key="a")
    layer.OnKeyUpFunction(key="b")
    assert layer.CheckAllGameNode() is True
    layer.DelGameNode(0)
    layer.OnDestroy()
    assert node.calls == [
        ("SetInstanceID", (0,)),
        ("OnLoad", ("scene",)),
        ("update", (0.5,)),
        ("draw", (screen, 0, 0, 1.0)),
        ("OnPickDownFunction", (1, 2)),
        ("OnPickUpFunction", (3, 4)),
        ("OnKeyDownFunction", ("a",)),
        ("OnKeyUpFunction", ("b",)),
        ("GetInstanceID", ()),
        ("GetAllChildrens", ()),
        ("OnDestroy", ()),
    ]


def test_a_node_without_the_methods(layer):
    with pytest.raises(AttributeError):
        layer.AddGameNode(object())
    node = T.GameNode(None)
    number = layer.AddGameNode(node)
    assert layer.GetGameNode(number) is node and number >= 0


def test_deleting_queues_registered_descendants(layer):
    nodes = fill(layer)
    inner = T.GameNode(T.GameNode(nodes[0]))
    layer.AddGameNode(inner)
    assert layer.DelGameNode(instanceID=0) is None
    assert layer.DelGameNodeArray == [3, 0] and layer.GetGameNodeCount() == 4
    layer.DelGameNode(0)
    layer.DelGameNode(77)
    assert layer.DelGameNodeArray == [3, 0]
    layer.update(1)
    assert layer.SortGameNodeInstanceIDArray == [1, 2] and list(layer.GameNodeDict) == [1, 2]
    assert layer.DelGameNodeArray == []
    assert nodes[0].instanceID == 0 and inner.parent.parent is nodes[0]


def test_a_number_queued_twice(layer, screen):
    (root,) = fill(layer, 1)
    child = T.GameNode(root)
    layer.AddGameNode(child)
    layer.DelGameNode(1)
    layer.DelGameNode(0)
    layer.update(1)
    assert layer.GetGameNodeCount() == 0
    nodes = fill(layer)
    layer.AddGameNode(T.GameNode(nodes[2]))
    layer.CleanUpGameNode()
    assert layer.GetGameNodeCount() == 4
    layer.update(1)
    layer.update(1)
    layer.draw(screen)
    assert layer.GameNodeDict == {} and layer.SortGameNodeInstanceIDArray == []


def test_a_deleted_node_is_drawn_until_the_update(layer, screen):
    node, log = fill(layer, 1)[0], []
    node.draw = lambda *args: log.append("draw")
    node.update = lambda delay: log.append("update")
    layer.DelGameNode(0)
    layer.draw(screen)
    layer.SetVisible(False)
    layer.update(1)
    layer.draw(screen)
    assert log == ["draw"] and layer.DelGameNodeArray == [0]
    layer.SetVisible(True)
    layer.update(1)
    layer.draw(screen)
    assert log == ["draw", "update"] and layer.GetGameNodeCount() == 0


@pytest.mark.parametrize(
    "method, number, expected",
    [
        ("LayerUpGameNode", 0, [1, 0, 2]),
        ("LayerUpGameNode", 2, [0, 1, 2]),
        ("LayerDownGameNode", 0, [0, 1, 2]),
        ("LayerDownGameNode", 2, [0, 2, 1]),
        ("LayerUpGameNode", 9, [0, 1, 2]),
        ("LayerDownGameNode", "x", [0, 1, 2]),
    ],
)
def test_draw_order(layer, screen, method, number, expected):
    log = []
    for index, node in enumerate(fill(layer)):
        node.draw = lambda *args, index=index: log.append(("draw", index))
        node.update = lambda delay, index=index: log.append(("update", index))
    assert getattr(layer, method)(instanceID=number) is None
    layer.draw(screen)
    layer.update(1)
    assert log == [("draw", i) for i in expected] + [("update", i) for i in (0, 1, 2)]


def test_every_node_is_offered_every_press(layer, screen, capsys):
    nodes = fill(layer)
    for node in nodes:
        node.SetWidth(9)
        node.SetHeight(9)
        node.SetKeyDownFunction("a", lambda node=node: node.SetUserData("down"))
        node.SetKeyUpFunction("a", lambda node=node: node.SetUserData("up"))
    layer.OnPickDownFunction(1, 1)
    layer.OnKeyDownFunction("a")
    assert [(n.clicked, n.userData) for n in nodes] == [(True, "down")] * 3
    layer.SetVisible(False)
    layer.OnPickUpFunction(1, 1)
    layer.OnKeyUpFunction("a")
    assert [(n.clicked, n.userData) for n in nodes] == [(True, "down")] * 3
    layer.SetVisible(1)
    layer.OnPickUpFunction(1, 1)
    layer.OnKeyUpFunction("a")
    assert [(n.clicked, n.userData) for n in nodes] == [(False, "up")] * 3


def test_walks_rebuild_the_key_list(layer):
    fill(layer)
    assert layer.GameNodeKeyArray == []
    layer.update(1)
    keys = layer.GameNodeKeyArray
    assert keys == [0, 1, 2]
    layer.OnKeyDownFunction("a")
    assert layer.GameNodeKeyArray == keys and layer.GameNodeKeyArray is not keys


def test_load_and_destroy(layer, screen):
    nodes = fill(layer)
    later = T.GameNode(None)
    layer.AddGameNode(later, False)
    layer.SetVisible(False)
    layer.OnLoad(scene="scene")
    assert [n.sceneInstance for n in nodes] == ["scene"] * 3 and later.sceneInstance is None
    layer.DelGameNode(0)
    kept = {n: getattr(layer, n) for n in ("GameNodeDict", "GameNodeKeyArray", "DelGameNodeArray")}
    assert layer.OnDestroy() is None
    for name, value in kept.items():
        assert getattr(layer, name) == type(value)() and getattr(layer, name) is not value
    assert [n.instanceID for n in nodes] == [-1] * 3 and layer.instanceID == 4
    assert layer.sceneInstance == "scene" and layer.AddGameNodeDict == {3: later}
    layer.SetVisible(True)
    layer.draw(screen)
    assert layer.GetGameNode(3) is later and later.sceneInstance == "scene"


def test_consistency_check(layer):
    assert layer.CheckAllGameNode() is True
    nodes = fill(layer)
    assert layer.CheckAllGameNode() is True
    nodes[1].SetInstanceID(5)
    assert layer.CheckAllGameNode() is False
    nodes[1].SetInstanceID(1)
    layer.SortGameNodeInstanceIDArray.append(1)
    assert layer.CheckAllGameNode() is False


def test_collision_with_registered_nodes(layer):
    wall, ghost, hero = fill(layer)
    for node in (wall, ghost, hero):
        node.SetWidth(10)
        node.SetHeight(10)
    hero.SetXY(15, 0)
    ghost.SetXY(15, 0)
    wall.SetCollision(0, None)
    hero.SetCollision(0, None)
    assert layer.checkCollision(hero) is False
    assert layer.checkCollision(hero, -10) is True and hero.GetX() == 15
    assert layer.checkCollision(gameNode=hero, moveX=-10, moveY=20) is False
    assert layer.checkEventRectCollision(pygame.Rect(12, 0, 2, 2)) is False
    rect = pygame.Rect(12, 0, 2, 2)
    assert layer.checkEventRectCollision(objrect=rect, moveX=-5, moveY=0) is True
    assert rect.x == 12
