"""Engine objects look like ordinary host objects: attributes, vars(), copies, collection."""

import collections.abc
import copy
import gc
import pickle
import weakref

import pytest
import Tessora as T
from helpers import MAKERS, live_objects, make_node


@pytest.fixture(params=sorted(MAKERS))
def thing(request, screen):
    return MAKERS[request.param]()


def test_vars_is_a_mapping_in_the_order_of_construction(thing):
    values = vars(thing)
    names = list(values)
    assert isinstance(values, collections.abc.MutableMapping)
    assert values == vars(thing) == thing.__dict__ == dict(values) == values.copy()
    thing.own1, values["own2"] = 1, []
    assert list(values) == list(values.keys()) == [*names, "own1", "own2"]
    assert values.setdefault("own2", 5) is thing.own2 is list(values.items())[-1][1]


def test_vars_is_live(thing):
    values = vars(thing)
    thing.own = 1
    assert values["own"] == values.pop("own") == 1 and not hasattr(thing, "own")
    values.update(own="b")
    del values["own"]
    assert not hasattr(thing, "own") and values.get("own") is None
    for name in list(values):
        values[name] = 5
        assert getattr(thing, name) == 5
        delattr(thing, name)
        assert name not in values and not hasattr(thing, name)
        pytest.raises(AttributeError, delattr, thing, name).match(name)
    assert dict(values) == {} and len(values) == 0


@pytest.mark.parametrize("key", ["unknown", 5, None])
def test_unknown_keys(thing, key):
    assert key not in vars(thing)
    for method in ("pop", "__delitem__", "__getitem__"):
        pytest.raises(KeyError, getattr(vars(thing), method), key)


def test_the_mapping_outlives_its_object():
    values = vars(T.GameNode(None, 5))
    values[type("Name", (str,), {})("x")] += 1
    assert values["x"] == 6 and "'x': 6" in repr(values)


@pytest.mark.parametrize("base", [T.GameNode, type("Base", (T.GameNode,), {"visible": 3})])
def test_instance_attributes_win_over_plain_class_attributes(screen, base):
    values = {"visible": False, "x": 99, "running": "default", "angle": lambda self: 5}
    hero = type("Hero", (base,), values)(None, 1, 2)
    hero.draw(screen)
    assert hero.visible is True and hero.x == hero.WX == 1 and hero.running == "default"
    assert hero.angle == hero.GetWAngle() == 0.0 and "running" not in vars(hero)
    del hero.x
    assert hero.x == 99 and "x" not in vars(hero)


def test_a_property_wins_over_the_attribute_for_the_engine_too():
    log = []
    place = property(lambda node: 40, lambda node, value: log.append(value))
    node = type("Shaky", (T.GameNode,), {"x": place})(None, 3)
    node.SetXY(5, 0)
    assert log == [3, 5] and "x" not in vars(node)
    assert (node.x, node.GetXY(), T.GameNode(node, 2).GetWX()) == (40, (40, 0), 42)
    node.draw_begin(1, 0, 2)
    assert node.WX == 81


def test_a_descriptor_set_on_a_living_class():
    cls = type("Hero", (T.GameNode,), {})
    node = cls(None, 3)
    cls.x = type("Twice", (), {"__get__": lambda *a: 8, "__set__": lambda *a: None})()
    assert node.GetWX() == 8


@pytest.mark.parametrize("make", [lambda node: {"x": 7, "own": 1}, vars, lambda node: {}])
def test_the_mapping_can_be_replaced(make):
    node, other = make_node(None, x=7, own=1), T.GameNode(None)
    values = dict(make(node))
    other.old, other.__dict__ = 1, make(node)
    assert dict(vars(other)) == values and not hasattr(other, "old")
    assert other.GetX() == 7 if values else not hasattr(other, "x")
    node.__dict__ = vars(node)
    assert (node.x, node.own) == (7, 1)


def test_only_a_mapping_replaces_it():
    node = T.GameNode(None, 3)
    for value in (None, 5, [("x", 1, 2)], "text"):
        pytest.raises((TypeError, ValueError), setattr, node, "__dict__", value)
    pytest.raises(TypeError, delattr, node, "__dict__")
    assert node.x == 3


def test_a_finalizer_set_on_an_engine_class_runs(monkeypatch):
    gone = []
    monkeypatch.setattr(T.GAction, "__del__", lambda action: gone.append(action), raising=False)
    for cls in (T.GAction, T.MoveToAction, type("Script", (T.GAction,), {})):
        action = id(cls(*(1, 2, 3)[: 3 * (cls is T.MoveToAction)]))
        assert [id(each) for each in gone] == [action], cls
        gone.clear()


def test_a_finalizer_may_keep_the_object(monkeypatch):
    kept = []
    monkeypatch.setattr(T.GUI_Button, "__del__", lambda w: kept.append(w), raising=False)
    widget = T.GUI_Button(None, 5)
    del widget
    assert len(kept) == 1 and kept.pop().GetX() == 5


def spying(name, seen):
    return lambda self, *args: (seen.append(args), getattr(T.GameNode, name)(self, *args))[1]


def test_attribute_hooks_and_slots():
    seen = []
    body = {name: spying(name, seen) for name in ("__getattribute__", "__setattr__")}
    body.update(__slots__=("speed",), __getattr__=lambda self, name: "made " + name)
    parent = T.GameNode(None)
    spy = type("Spy", (T.GameNode,), body)(parent, 3)
    seen.clear()
    spy.y = spy.speed = spy.x + 1
    del spy.x
    assert spy.x == "made x" and spy.speed == 4
    assert seen == [("x",), ("y", 4), ("speed", 4), ("x",), ("speed",)]
    parent.update(1)
    assert ("update",) in seen[5:]


def test_classes_change_under_living_objects_and_unfinished_ones_refuse():
    classes = [type("C", (T.GameNode,), {"GetWX": lambda self, i=i: i}) for i in range(2)]
    node = classes[1](None)
    child = T.GameNode(node)
    for index in (0, 1, 0):
        node.__class__ = classes[index]
        assert child.GetWX() == index
    for name in MAKERS:
        empty = getattr(T, name).__new__(getattr(T, name))
        for method in [n for n in dir(empty) if not n.startswith("__")]:
            for arguments in ((), (1,), ("x", 1), (1, 2, 3)):
                try:
                    getattr(empty, method)(*arguments)
                except Exception as error:
                    assert not isinstance(error, SystemError)


def test_copies(thing):
    thing.own, first = ["shared"], list(vars(thing))[0]
    delattr(thing, first)
    twin = copy.copy(thing)
    assert type(twin) is type(thing) and list(vars(twin)) == list(vars(thing))
    assert all(vars(twin)[name] is value for name, value in vars(thing).items())
    twin.own = 5
    assert thing.own == ["shared"] and not hasattr(twin, first)
    root = make_node(None, x=1)
    child, root.userData = T.GameNode(root, 3, 4), {"me": root}
    twin = copy.deepcopy(root)
    assert twin.children[0] is not child and twin.children[0].parent is twin
    try:
        twin = pickle.loads(pickle.dumps(twin, 4))
    except (TypeError, pickle.PicklingError):
        pass
    twin.userData["me"].x = 100
    assert child.GetWX() == 4 and twin.children[0].GetWX() == 103


TIES = {
    "attribute": lambda n: setattr(n, "userData", [n]),
    "callback": lambda n: n.SetUpdateFunction(lambda delay: n),
    "bound method": lambda n: setattr(n, "draw", n.draw),
    "action": lambda n: n.RunAction(T.CallBackAction(1, n.GetX, who=n)),
    "table": lambda n: n.InnerBindingEventArray["Load"][2].append(n),
    "mapping": lambda n: setattr(n, "walk", vars(n)),
    "iterator": lambda n: setattr(n, "walk", iter(vars(n).values())),
    "class": lambda n: setattr(n, "userData", type("Own", (T.GameNode,), {"held": n})),
    "layer": lambda n: (setattr(n, "userData", T.GameLayer()), n.userData.AddGameNode(n)),
    "player": lambda n: (n.RunAction(T.GAction()), n.ActionPlayer.AddActions([n.ActionPlayer])),
}


@pytest.mark.parametrize("tie", TIES)
def test_cycles_are_collected(screen, tie):
    before, log = live_objects(T), []
    for body in (None, {}, {"__slots__": ("walk",)}, {"__del__": lambda self: log.append(self.x)}):
        cls = T.GameNode if body is None else type("Script", (T.GameNode,), body)
        node, cls_ref = cls(None, 6), weakref.ref(cls)
        TIES[tie](node)
        ref, table = weakref.ref(node, log.append), weakref.WeakKeyDictionary({node: 1})
        del node, cls
        gc.collect()
        assert ref() is None and len(table) == 0
    assert live_objects(T) == before and cls_ref() is None and len(log) == 5 and 6 in log
