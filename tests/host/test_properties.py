"""A script's property over one attribute leaves all others as they are."""

from types import SimpleNamespace

import pytest
import Tessora as T
from helpers import engine_classes

NODES = [cls for cls in engine_classes(T) if issubclass(cls, T.GameNode)]


def with_property(cls):
    unrelated = property(lambda self: None, lambda self, value: None)
    return type("Own" + cls.__name__, (cls,), {"userData": unrelated})


@pytest.mark.parametrize("cls", NODES)
def test_under_a_parent_that_knows_its_scene(screen, cls):
    parent = T.GameNode(None)
    parent.OnLoad(SimpleNamespace())
    node = with_property(cls)(parent)
    assert node.sceneInstance is parent.sceneInstance and parent.children == [node]
    assert node.OnPickDownFunction(500, 500) is None, "before the first draw"


def copied(cls, target, missing):
    node = cls(None)
    delattr(node, missing)
    try:
        node.CopyTo(target(None))
    except Exception as error:
        return type(error)


@pytest.mark.parametrize("cls", NODES)
def test_copying_passes_over_the_same_attributes(screen, cls):
    own = with_property(cls)
    for name in vars(cls(None)):
        if name != "userData":
            assert copied(own, cls, name) is copied(cls, cls, name), name
