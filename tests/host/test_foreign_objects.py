"""Any object with the right methods can stand in a tree."""

import pytest
import Tessora as T
from helpers import Recorder


def test_foreign_parents():
    class Dock:
        def __init__(self):
            self.added = []

        def GetSceneInstance(self):
            return "scene"

        def AddChild(self, child):
            self.added.append(child)

        def GetWX(self):
            return 100

        GetWY = GetWSX = GetWSY = GetWAngle = GetAXW = GetAYH = GetWX

    dock = Dock()
    node = T.GameNode(dock, 1, 2)
    assert dock.added == [node] and node.sceneInstance == "scene"
    assert node.GetWXY() == (101, 102) and node.GetWSXY() == (100, 100)
    assert (node.GetWAngle(), node.GetPAXW(), node.GetPAYH()) == (100, 100, 100)
    node.draw_begin()
    assert node.WX == 101
    del Dock.GetWY
    with pytest.raises(AttributeError):
        node.GetWXY()
    node.parent = object()
    with pytest.raises(AttributeError):
        node.GetWX()


def test_foreign_children_of_a_tree(screen):
    parent = T.GameNode(None)
    child = Recorder(IsVisible=1)
    parent.AddChild(child)
    parent.draw(screen, 1, 2, 3)
    parent.update(0.5)
    parent.OnLoad("scene")
    parent.OnEditRectDraging(1, 2)
    parent.OnDestroy()
    assert child.calls == [
        ("SetSortIndex", (0,)),
        ("IsVisible", ()),
        ("draw", (screen, 1, 2, 3)),
        ("update", (0.5,)),
        ("OnLoad", ("scene",)),
        ("OnEditRectDraging", (1, 2)),
        ("OnDestroy", ()),
    ]
    parent.AddChild(Recorder(IsVisible=2))
    parent.draw(screen)
    assert parent.children[0].names() == ["SetSortIndex", "IsVisible"]


def test_engine_objects_of_another_kind_in_a_nodes_place(screen):
    parent = T.GameNode(None)
    parent.children = [T.GAction()]
    parent.children[0].Run()
    parent.update(2)
    assert parent.children[0].runtime == 2
    with pytest.raises(AttributeError):
        parent.draw(screen)
    parent.children = [T.GameLayer()]
    parent.update(1)
    with pytest.raises(TypeError):
        parent.draw(screen)
    node = T.GameNode(None)
    node.ActionPlayer = T.GameNode(None)
    node.ActionPlayer.UpdateFunction = lambda delay: node.SetUserData(delay)
    node.update(7)
    assert node.userData == 7
