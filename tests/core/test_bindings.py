"""The tables of named events, points and variables, on nodes and layers."""

import pytest
import Tessora as T
from helpers import Scene

NODE_EVENTS = ["Load", "Update", "Render", "Destroy", "PickDown", "PickUp"]


@pytest.fixture(params=["node", "layer"])
def owner(request, screen):
    if request.param == "node":
        return T.GameNode(None)
    layer = T.GameLayer()
    layer.SetLayerName("sky")
    return layer


FAMILIES = [
    # name, table, argument names, arguments, what is stored
    (
        "BindingEvent",
        "BindingEventArray",
        ["eventName", "functionName", "functionCode"],
        ["e", "f", "code"],
        ["f", "code"],
    ),
    (
        "InnerBindingEvent",
        "InnerBindingEventArray",
        ["eventName", "functionName", "functionCode"],
        ["PickDown", "f", "code"],
        ["f", "code"],
    ),
    (
        "BindingPoint",
        "BindingPointArray",
        ["pointName", "posType", "x", "y"],
        ["p", 1, 2, 3],
        (1, 2, 3),
    ),
    ("BindingVar", "BindingVarArray", ["varname", "varvalue"], ["v", 5], 5),
]


@pytest.mark.parametrize("family, table, names, arguments, stored", FAMILIES)
def test_families(owner, family, table, names, arguments, stored):
    if not hasattr(owner, table):
        assert not hasattr(owner, "Set" + family)
        return
    values = getattr(owner, table)
    before = dict(values)

    def call(verb, *args, **params):
        name = verb + family if verb != "Array" else "Get" + family + "Array"
        return getattr(owner, name)(*args, **params)

    assert call("Array") is values
    assert call("Set", *arguments) is None
    found = values[arguments[0]]
    assert found == stored and type(found) is type(stored)
    assert call("Get", arguments[0]) is found
    assert call("Get", **{names[0]: arguments[0]}) is found
    call("Set", **dict(zip(names, arguments)))
    assert values[arguments[0]] == stored
    assert call("Del", **{names[0]: arguments[0]}) is None
    assert arguments[0] not in values and values == {
        k: v for k, v in before.items() if k != arguments[0]
    }
    for verb in ("Get", "Del"):
        with pytest.raises(KeyError):
            call(verb, "unknown")
        with pytest.raises(TypeError):
            call(verb, [])
    with pytest.raises(TypeError):
        call("Set", [], *arguments[1:])
    call("Set", *arguments)
    assert call("CleanUp") is None
    assert getattr(owner, table) is values and values == {}


def test_inner_entries_lose_their_parameter_names():
    node = T.GameNode(None)
    assert node.GetInnerBindingEvent("PickDown") == [None, ["px", "py"], []]
    node.SetInnerBindingEvent("PickDown", "f", None)
    assert node.GetInnerBindingEvent("PickDown") == ["f", None]
    assert list(node.InnerBindingEventArray) == NODE_EVENTS


def test_layer_entries(screen):
    table = T.GameLayer().InnerBindingEventArray
    assert list(table) == NODE_EVENTS + ["PickTile"]
    assert list(table.values()) == [[None, []]] * 7


@pytest.mark.parametrize("inner", [False, True])
def test_calling_events(owner, inner):
    scene = Scene()
    bind = owner.SetInnerBindingEvent if inner else owner.SetBindingEvent
    call = owner.CallInnerEvent if inner else owner.CallEvent
    prefix = "on_sky_" if isinstance(owner, T.GameLayer) else "on_"
    event = "Update" if inner else "hit"
    bind(event, "boom", ["code"])
    assert call(event) is None
    owner.OnLoad(scene)
    scene.calls.clear()
    call(event)
    call(event, {"a": 1})
    call(eventName=event, params={"b": 2})
    call("unknown")
    assert scene.calls == [(prefix + "boom", {}), (prefix + "boom", {"a": 1})] + [
        (prefix + "boom", {"b": 2})
    ]
    bind(event, None, None)
    call(event)
    assert len(scene.calls) == 3


def test_events_answer_and_fail_like_the_scenes_method(owner):
    class Game:
        pass

    game = Game()
    owner.OnLoad(game)
    owner.SetBindingEvent("e", "go", None)
    assert owner.CallEvent("e") is None
    name = "on_sky_go" if isinstance(owner, T.GameLayer) else "on_go"
    setattr(game, name, lambda: "result")
    assert owner.CallEvent("e") == "result"
    setattr(game, name, lambda: 1 / 0)
    with pytest.raises(ZeroDivisionError):
        owner.CallEvent("e")
    setattr(game, name, 5)
    with pytest.raises(TypeError):
        owner.CallEvent("e")
    with pytest.raises(TypeError):
        owner.CallEvent("e", {"unexpected": 1})
    owner.SetBindingEvent("e", 5, None)
    with pytest.raises(TypeError):
        owner.CallEvent("e")


def test_a_layer_without_a_name_cannot_name_its_events(screen):
    layer = T.GameLayer()
    layer.OnLoad(Scene())
    layer.SetBindingEvent("e", "go", None)
    with pytest.raises(TypeError):
        layer.CallEvent("e")
    layer.SetLayerName(name="sky")
    layer.CallEvent("e")
    assert layer.sceneInstance.calls == [("on_sky_go", {})]


@pytest.mark.parametrize("entry", [[], 5, "", ()])
def test_malformed_entries(owner, entry):
    owner.OnLoad(Scene())
    owner.BindingEventArray["e"] = entry
    with pytest.raises((TypeError, IndexError)):
        owner.CallEvent("e")
    owner.SetBindingEvent("e", "fine", None)
    owner.CallEvent("e")
    assert len(owner.sceneInstance.calls) == 1
