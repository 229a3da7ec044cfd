"""Subclassing, monkeypatching, weak references and collection of engine types."""

import gc
import types
import weakref

import pytest
import Tessora as T
from helpers import live_objects


def test_basic_looks():
    node = T.GameNode(None)
    assert repr(node).startswith("<Tessora.GameNode object at 0x")
    assert node == node and node != T.GameNode(None) and hash(node) == hash(node)
    assert bool(node) and len({node, node}) == 1
    with pytest.raises(TypeError):
        node < node  # noqa: B015
    assert type(node) is T.GameNode and isinstance(T.GUI_Button(), T.GameNode)
    assert "GetX" in dir(node) and "x" in dir(node)


def test_bound_methods_behave_like_methods():
    node = T.GameNode(None, 5)
    bound = node.GetX
    assert bound() == 5 and bound.__self__ is node and bound.__name__ == "GetX"
    assert bound == node.GetX and bound != T.GameNode(None).GetX
    assert callable(T.GameNode.GetX) and T.GameNode.__name__ == "GameNode"


def test_subclasses_take_any_constructor():
    class Hero(T.GUI_Image):
        def __init__(self, name, *args, hp=10, **params):
            super().__init__(None, *args, **params)
            self.name, self.hp = name, hp

    hero = Hero("Ann", 3, y=4, hp=5)
    assert (hero.name, hero.hp, hero.GetXY()) == ("Ann", 5, (3, 4))
    assert list(vars(hero))[-2:] == ["name", "hp"]

    class Plain(T.GameNode):
        def __init__(self):
            pass

    with pytest.raises(AttributeError):
        Plain().GetX()


def test_multiple_bases():
    class Mixin:
        def update(self, delay):
            self.mixed = delay
            super().update(delay)

    class Hero(Mixin, T.GameNode):
        pass

    root, log = T.GameNode(None), []
    hero = Hero(root)
    hero.UpdateFunction = log.append
    root.update(2)
    assert hero.mixed == 2 and log == [2]
    assert issubclass(type("Two", (T.GUI_Image, T.GameNode), {}), T.GUI_Image)


def test_init_subclass_of_scripts_runs():
    class Base(T.GameNode):
        registry = []

        def __init_subclass__(cls, tag=None, **params):
            super().__init_subclass__(**params)
            Base.registry.append((cls.__name__, tag))

    class Child(Base, tag="t"):
        x = 5

    assert Base.registry == [("Child", "t")] and Child(None, 1).x == 1


def test_metaclasses_and_generated_types():
    class Meta(type):
        pass

    class Hero(T.GameNode, metaclass=Meta):
        pass

    made = type("Made", (Hero,), {"x": 7, "GetX": lambda self: "own"})
    assert type(made) is Meta and made(None, 3).GetX() == "own" and made(None, 3).x == 3
    other = types.new_class("Other", (T.GAction,))
    assert other().running is False


def test_classes_can_change_under_a_living_object():
    class Before(T.GameNode):
        def GetWX(self):
            return 1

    class After(T.GameNode):
        def GetWX(self):
            return 2

    node = Before(None)
    child = T.GameNode(node)
    assert child.GetWX() == 1
    node.__class__ = After
    assert child.GetWX() == 2 and type(node) is After
    node.__class__ = Before
    assert child.GetWX() == 1


def test_engine_classes_can_be_patched_and_restored(monkeypatch):
    parent = T.GameNode(None, 1)
    child = T.GUI_Image(parent, 2, 3)
    original = T.GameNode.GetWX
    for answer in (10, 20):
        with monkeypatch.context() as patch:
            patch.setattr(T.GameNode, "GetWX", lambda self, answer=answer: answer)
            assert child.GetWX() == answer and child.GetWPX() == answer
            child.draw_begin()
            assert answer == child.WX
        assert child.GetWX() == 3
    monkeypatch.setattr(T.GUI_Image, "GetWX", lambda self: original(self) + 100, raising=False)
    assert T.GameNode(child, 1).GetWX() == 104
    monkeypatch.setattr(T.GameNode, "Extra", lambda self: self.x, raising=False)
    assert child.Extra() == 2


def test_weak_references():
    for cls, arguments in (
        (T.GameNode, (None,)),
        (T.GAction, ()),
        (T.MoveToAction, (1, 2, 3)),
        (type("Hero", (T.GameNode,), {}), (None,)),
    ):
        seen = []
        thing = cls(*arguments)
        ref = weakref.ref(thing, seen.append)
        proxy = weakref.proxy(thing)
        assert ref() is thing and proxy.__class__ is cls
        table = weakref.WeakKeyDictionary({thing: 1})
        del thing
        gc.collect()
        assert ref() is None and seen == [ref] and len(table) == 0


def test_finalisers():
    log = []

    class Hero(T.GameNode):
        def __del__(self):
            log.append(self.x)

    Hero(None, 5)
    gc.collect()
    assert log == [5]
    hero = Hero(None, 6)
    hero.userData = hero
    del hero
    gc.collect()
    assert log == [5, 6]


def test_a_finaliser_may_bring_its_object_back():
    saved = []

    class Phoenix(T.GameNode):
        def __del__(self):
            saved.append(self)

    Phoenix(None, 5)
    gc.collect()
    assert saved[0].GetWX() == 5
    saved.clear()
    gc.collect()
    assert saved == []


def cycle_by_attribute(node):
    node.userData = node


def cycle_by_own_attribute(node):
    node.me = [node]


def cycle_by_callback(node):
    node.SetUpdateFunction(lambda delay: node)


def cycle_by_bound_method(node):
    node.draw = node.draw


def cycle_by_children(node):
    T.GameNode(T.GameNode(node))


def cycle_by_action(node):
    node.RunAction(T.CallBackAction(1, node.GetX, who=node))


def cycle_by_table(node):
    node.SetBindingVar("me", node)
    node.InnerBindingEventArray["Load"][2].append(node)


def cycle_by_mapping(node):
    node.values = vars(node)


def cycle_by_iterator(node):
    walk = iter(vars(node).values())
    next(walk)
    node.walk = walk


def cycle_by_class(node):
    class Own(T.GameNode):
        held = node

    node.userData = Own


CYCLES = [value for name, value in sorted(globals().items()) if name.startswith("cycle_by_")]


@pytest.mark.parametrize("cls", ["GameNode", "script", "slots"])
@pytest.mark.parametrize("tie", CYCLES)
def test_cycles_are_collected(tie, cls):
    made = {
        "GameNode": T.GameNode,
        "script": type("Script", (T.GameNode,), {}),
        "slots": type("Slots", (T.GameNode,), {"__slots__": ("walk", "me")}),
    }[cls]
    before = live_objects(T)
    for _ in range(3):
        node = made(None)
        tie(node)
        ref = weakref.ref(node)
    del node, made
    gc.collect()
    gc.collect()
    assert ref() is None
    assert live_objects(T) == before


def test_layers_and_actions_in_cycles(screen):
    before = live_objects(T)
    for _ in range(3):
        layer = T.GameLayer()
        node = T.GameNode(None)
        layer.AddGameNode(node)
        node.layer = layer
        layer.OnLoad(layer)
        player = T.ActionPlayer()
        player.SetTarget(player)
        player.AddActions([player])
    del layer, node, player
    assert live_objects(T) == before


def test_everything_an_object_holds_is_visible_to_the_collector(screen):
    marks = [object() for _ in range(3)]
    node = T.GameNode(None)
    node.userData, node.x, node.own = marks
    reached = {id(thing) for thing in gc.get_referents(node)}
    for thing in gc.get_referents(node):
        if isinstance(thing, dict):
            reached |= {id(value) for value in thing.values()}
    assert all(id(mark) in reached for mark in marks)
    assert gc.is_tracked(node)


def test_script_classes_are_freed():
    class Hero(T.GameNode):
        x = 5

        def draw(self, *args):
            pass

    Hero(None).draw()
    ref = weakref.ref(Hero)
    del Hero
    gc.collect()
    gc.collect()
    assert ref() is None
