import copy
import pickle

import pytest
import Tessora as T
from helpers import MAKERS


@pytest.fixture(params=sorted(MAKERS))
def thing(request, screen):
    return MAKERS[request.param]()


def test_shallow_copies(thing):
    thing.own = ["shared"]
    twin = copy.copy(thing)
    assert type(twin) is type(thing) and twin is not thing
    assert list(vars(twin)) == list(vars(thing))
    for name, value in vars(thing).items():
        assert vars(twin)[name] is value, name
    twin.own = 5
    assert thing.own == ["shared"]
    first = list(vars(thing))[0]
    setattr(twin, first, "changed")
    assert getattr(thing, first) != "changed"


def test_copies_of_subclasses_and_incomplete_objects():
    class Hero(T.GameNode):
        def __init__(self, parent, name):
            T.GameNode.__init__(self, parent)
            self.name = name

    hero = Hero(None, "Ann")
    del hero.angle
    twin = copy.copy(hero)
    assert type(twin) is Hero and twin.name == "Ann" and not hasattr(twin, "angle")
    assert twin.GetWX() == 0
    player = copy.copy(T.ActionPlayer())
    assert list(vars(player)) == ["ActionArray", "ActionIndex"]


def test_deep_copies():
    root = T.GameNode(None, 1, 2)
    child = T.GameNode(root, 3, 4)
    root.userData = {"list": [1], "me": root}
    twin = copy.deepcopy(root)
    assert twin.children[0] is not child and twin.children[0].parent is twin
    assert twin.userData["me"] is twin and twin.userData["list"] == [1]
    twin.userData["list"].append(2)
    twin.x = 100
    assert root.userData["list"] == [1] and child.GetWX() == 4
    assert twin.children[0].GetWX() == 103
    action = copy.deepcopy(T.MoveToAction(1, 2, 3))
    assert tuple(action.dstPostion) == (2, 3)


def test_pickling_works_or_is_refused_politely():
    node = T.GameNode(None, 5)
    node.OnDestroy()
    try:
        data = pickle.dumps(node, pickle.HIGHEST_PROTOCOL)
    except (TypeError, pickle.PicklingError):
        assert node.x == 5
    else:
        assert dict(vars(pickle.loads(data))) == dict(vars(node))
