"""Engine objects look like ordinary host objects: attributes, vars(), copies."""

import collections.abc

import pytest
import Tessora as T
from helpers import MAKERS


@pytest.fixture(params=sorted(MAKERS))
def thing(request, screen):
    return MAKERS[request.param]()


def test_every_attribute_reads_writes_and_deletes(thing):
    names = list(vars(thing))
    assert names
    for name in names:
        value = object()
        setattr(thing, name, value)
        assert getattr(thing, name) is value and vars(thing)[name] is value
        delattr(thing, name)
        assert not hasattr(thing, name) and name not in vars(thing)
        with pytest.raises(AttributeError, match=name):
            getattr(thing, name)
        with pytest.raises(AttributeError):
            delattr(thing, name)
    assert len(vars(thing)) == 0 and list(vars(thing)) == []
    thing.own = 1
    assert dict(vars(thing)) == {"own": 1}


def test_vars_is_a_live_mapping(thing):
    values = vars(thing)
    assert isinstance(values, collections.abc.MutableMapping)
    names = list(values)
    assert vars(thing) == values == thing.__dict__ == dict(values)
    first = names[0]
    values[first] = "written"
    assert getattr(thing, first) == "written"
    setattr(thing, first, "again")
    assert values[first] == "again"
    thing.own1, thing.own2 = 1, 2
    values["own3"] = 3
    assert thing.own3 == 3
    assert list(values) == [*names, "own1", "own2", "own3"] and len(values) == len(names) + 3
    assert list(values.keys()) == list(values) and list(values.items())[-1] == ("own3", 3)
    assert list(values.values())[-3:] == [1, 2, 3]
    assert "own2" in values and "nothing" not in values and 5 not in values
    assert values.get("nothing") is None and values.get("own1") == 1
    assert values.pop("own1") == 1 and not hasattr(thing, "own1")
    assert values.pop("nothing", 7) == 7
    assert values.setdefault("own4", []) is thing.own4
    values.update(own2="b", own5=5)
    assert (thing.own2, thing.own5) == ("b", 5)
    del values["own5"]
    assert not hasattr(thing, "own5")
    for missing in ("nothing", 5, None):
        with pytest.raises(KeyError):
            values[missing]
        with pytest.raises(KeyError):
            del values[missing]
    with pytest.raises(KeyError):
        values.pop("nothing")
    values.clear()
    assert dict(values) == {} and not hasattr(thing, first)


def test_deleted_attributes_come_back(thing):
    names = list(vars(thing))
    name = names[1]
    delattr(thing, name)
    assert name not in vars(thing) and len(vars(thing)) == len(names) - 1
    setattr(thing, name, 5)
    assert sorted(vars(thing)) == sorted(names) and vars(thing)[name] == 5


def test_the_mapping_outlives_its_object_and_shows_itself():
    node = T.GameNode(None, 5)
    values = vars(node)
    assert "'x': 5" in repr(values)
    del node
    assert values["x"] == 5
    values["x"] = 6
    assert values["x"] == 6


def test_changing_the_mapping_during_iteration_is_harmless():
    node = T.GameNode(None)
    try:
        for index, name in enumerate(vars(node)):
            setattr(node, f"own{index}", name)
            delattr(node, name)
            if index > 200:
                break
    except RuntimeError:
        pass
    node.x = 3
    assert node.GetX() == 3


def test_dunder_dict_assignment():
    node = T.GameNode(None, 5)
    try:
        node.__dict__ = {"x": 7}
    except (AttributeError, TypeError):
        assert node.x == 5
    else:
        assert node.x == 7 and not hasattr(node, "y")


def test_attributes_of_other_names(thing):
    for name in ("", "with space", "\u00e4", "a" * 1000, "__private"):
        setattr(thing, name, name)
        assert getattr(thing, name) == name
    with pytest.raises(TypeError):
        setattr(thing, 5, 1)


class Name(str):
    """A name that compares and hashes like the attribute but is no plain string."""


def test_names_from_elsewhere():
    node = T.GameNode(None, 5)
    assert getattr(node, "".join(["wid", "th"])) == 0
    assert getattr(node, Name("x")) == 5
    setattr(node, Name("x"), 6)
    assert node.x == 6 and vars(node)[Name("x")] == 6


def test_a_subclass_attribute_neither_hides_nor_blinds(screen):
    class Hero(T.GameNode):
        visible = False
        x = 99
        speed = 4

        def angle(self):
            return "method"

    class Child(Hero):
        visible = 3

    for cls in (Hero, Child):
        hero = cls(None, 1, 2)
        assert hero.visible is True and hero.x == 1 and hero.speed == 4 and hero.angle == 0.0
        assert vars(hero)["visible"] is True
        hero.draw(screen)
        assert hero.WX == 1
        hero.visible, hero.x, hero.angle = False, 5, 30
        assert hero.IsVisible() is False and hero.GetWX() == 5 and hero.GetWAngle() == 30
        hero.draw(screen)
        assert hero.WX == 1
        hero.speed = 5
        assert list(vars(hero))[-1] == "speed"


def test_a_class_attribute_shows_through_when_nothing_is_set():
    class Player(T.ActionPlayer):
        running = "default"
        over = False

    player = Player()
    assert "running" not in vars(player)
    assert player.running == "default" and player.over is False
    player.running = True
    assert player.running is True
    del player.running
    assert player.running == "default"

    class Named(T.GameNode):
        x = "fallback"

    node = Named(None, 3)
    assert node.x == 3
    del node.x
    assert node.x == "fallback" and "x" not in vars(node)
    node.x = 4
    assert node.GetX() == 4


def test_a_property_of_a_subclass_wins():
    class Shaky(T.GameNode):
        writes = []

        @property
        def x(self):
            return 40

        @x.setter
        def x(self, value):
            self.writes.append(value)

        @x.deleter
        def x(self):
            self.writes.append("deleted")

    node = Shaky(None, 3)
    node.SetX(4)
    node.SetXY(5, 0)
    node.x = 6
    del node.x
    assert node.writes == [3, 4, 5, 6, "deleted"]
    assert (node.x, node.GetX(), node.GetXY(), node.GetWX()) == (40, 40, (40, 0), 40)
    assert T.GameNode(node, 2).GetWX() == 42
    node.draw_begin(1, 0, 2)
    assert node.WX == 81

    class Deeper(Shaky):
        pass

    assert Deeper(None).GetWX() == 40


def test_a_property_set_and_removed_on_a_living_class():
    class Node(T.GameNode):
        pass

    node = Node(None, 3)
    child = T.GameNode(node, 1)
    Node.x = property(lambda self: 40)
    assert node.x == 40 and node.GetX() == 40 and child.GetWX() == 41
    with pytest.raises(AttributeError):
        node.SetX(5)
    del Node.x
    assert node.x == 3 and node.GetX() == 3 and child.GetWX() == 4
    node.SetX(6)
    assert vars(node)["x"] == 6


def test_a_property_for_flags_and_tables(screen):
    log = []

    class Moody(T.GameNode):
        @property
        def UpdateFunction(self):
            return log.append

        @UpdateFunction.setter
        def UpdateFunction(self, value):
            pass

        @property
        def children(self):
            log.append("children")
            return self.__dict__.setdefault("kept", [])

        @children.setter
        def children(self, value):
            vars(self)["kept"] = value

    node = Moody(None)
    child = T.GameNode(node)
    log.clear()
    node.update(3)
    assert log[0] == "children" and log[-1] == 3
    assert node.kept == [child] and node.GetAllChildrens() == [child]


def test_other_descriptors_of_a_subclass():
    class Twice:
        def __get__(self, instance, owner=None):
            return self if instance is None else vars(instance)["half"] * 2

        def __set__(self, instance, value):
            vars(instance)["half"] = value

    class Node(T.GameNode):
        x = Twice()

    node = Node(None, 4)
    assert node.x == 8 and node.GetX() == 8 and node.GetWX() == 8 and node.half == 4

    class Failing(T.GameNode):
        @property
        def sx(self):
            raise LookupError("sx")

        @sx.setter
        def sx(self, value):
            pass

    with pytest.raises(LookupError):
        Failing(None).GetWSX()


def test_getattr_hooks_of_a_subclass():
    class Lazy(T.GameNode):
        def __getattr__(self, name):
            return "made " + name

    node = Lazy(None, 3)
    assert node.x == 3 and node.unknown == "made unknown"
    del node.x
    assert node.x == "made x"

    class Spy(T.GameNode):
        seen = []

        def __getattribute__(self, name):
            Spy.seen.append(name)
            return T.GameNode.__getattribute__(self, name)

        def __setattr__(self, name, value):
            Spy.seen.append(("set", name))
            T.GameNode.__setattr__(self, name, value)

    spy = Spy(None, 3)
    Spy.seen.clear()
    assert spy.x == 3
    spy.y = 4
    assert Spy.seen == ["x", ("set", "y")]


def test_slots_of_a_subclass():
    class Slim(T.GameNode):
        __slots__ = ("speed", "visible_since")

    node = Slim(None, 3)
    node.speed = 5
    assert node.speed == 5 and node.x == 3 and node.GetWX() == 3
    node.extra = 1
    assert node.extra == 1


def test_uninitialised_objects(screen):
    for name, make in MAKERS.items():
        cls = getattr(T, name)
        empty = cls.__new__(cls)
        assert dict(vars(empty)) == {}
        for method in sorted(dir(cls)):
            if method.startswith("__") or not callable(getattr(cls, method)):
                continue
            for arguments in ((), (1,), (screen, 1), (1, 2, 3), (screen, 1, 2, 3)):
                try:
                    getattr(empty, method)(*arguments)
                except SystemError:
                    raise
                except Exception:  # noqa: S110
                    pass
        assert type(make()) is cls


def test_constructing_again_resets_the_attributes():
    node = T.GameNode(None, 3, 4)
    T.GameNode(node)
    node.own = 1
    node.__init__(None, 5)
    assert (node.x, node.y, node.children, node.own) == (5, 0, [], 1)
    with pytest.raises(TypeError):
        node.__init__()
    assert node.x == 5
