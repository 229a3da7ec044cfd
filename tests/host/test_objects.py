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


def test_vars_is_a_live_mapping(thing):
    values = vars(thing)
    names = list(values)
    assert isinstance(values, collections.abc.MutableMapping)
    assert vars(thing) == values == thing.__dict__ == dict(values) == values.copy()
    thing.own1, values["own2"] = 1, []
    assert list(values) == list(values.keys()) == [*names, "own1", "own2"]
    assert values.setdefault("own2", 5) is thing.own2 is list(values.items())[-1][1]
    assert values.pop("own1") == 1 and not hasattr(thing, "own1") and values.get("own1") is None
    values.update(own2="b", own3=3)
    del values["own2"]
    for missing in ("own2", 5, None):
        assert missing not in values and pytest.raises(KeyError, values.pop, missing)
        pytest.raises(KeyError, values.__delitem__, missing)
    for name in names:
        values[name] = 5
        assert getattr(thing, name) == 5
        delattr(thing, name)
        assert name not in values and not hasattr(thing, name)
        pytest.raises(AttributeError, delattr, thing, name).match(name)
    assert dict(vars(thing)) == {"own3": 3} and len(values) == 1
    values.clear()
    assert dict(values) == {} and not hasattr(thing, "own3")
    # The mapping outlives its object.
    values = vars(T.GameNode(None, 5))
    values[type("Name", (str,), {})("x")] += 1
    assert values["x"] == 6 and "'x': 6" in repr(values)


def test_class_attributes_and_properties(screen):
    log, body = [], {"visible": False, "x": 99, "running": "default", "angle": lambda self: 5}
    for base in (T.GameNode, type("Base", (T.GameNode,), {"visible": 3})):
        hero = type("Hero", (base,), body)(None, 1, 2)
        hero.draw(screen)
        assert hero.visible is True and hero.x == hero.WX == 1 and hero.running == "default"
        assert hero.angle == hero.GetWAngle() == 0.0 and "running" not in vars(hero)
        del hero.x
        assert hero.x == 99 and "x" not in vars(hero)
    # A property wins, for the engine too.
    place = property(lambda node: 40, lambda node, value: log.append(value))
    cls = type("Shaky", (T.GameNode,), {"x": place})
    node = cls(None, 3)
    node.SetXY(5, 0)
    assert log == [3, 5] and "x" not in vars(node)
    assert (node.x, node.GetXY(), T.GameNode(node, 2).GetWX()) == (40, (40, 0), 42)
    node.draw_begin(1, 0, 2)
    assert node.WX == 81
    # A descriptor written by hand, set on a living class.
    cls.x = type("Twice", (), {"__get__": lambda *a: 8, "__set__": lambda *a: None})()
    assert node.GetWX() == 8


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
