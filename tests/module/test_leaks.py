"""Repeating any operation leaves no memory and no reference behind."""

import contextlib
import copy
import gc
import sys
import xml.etree.ElementTree as ElementTree

import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene, engine_classes, make_node

CHUNK, CHUNKS = 1000, 10
# What the host itself may keep: a grown table, a cached frame or method.
TOLERANCE = 200
PLIST = ElementTree.fromstring("<dict><key>a</key><array><real>1.5</real></array></dict>")
BROKEN_PLIST = ElementTree.fromstring("<dict><key>a</key><integer>x</integer></dict>")
PICTURE = pygame.Surface((8, 8))
PAIRS = {"SetXY", "SetSXY", "SetAXY", "SetCollision"}
SCRIPT = type("Script", (T.GameNode,), {"GetWX": lambda self: 1.5})


# What the operations work on.
class World:
    def __init__(self, screen):
        self.screen, self.scene, self.layer = screen, Scene(), T.GameLayer()
        self.root = make_node(None, x=1.5, width=40, height=30, editrectenable=True)
        self.middle, self.loop = make_node(self.root, x=3, width=40, anchorx=0.5), make_node()
        self.node, self.layer.LayerName = T.GUI_Image(self.middle, 5, 6), "sky"
        self.layer.OnLoad(self.scene)
        self.layer.AddGameNode(self.root)
        self.layer.AddRect("r", 0, 1, 1, 9, 9)
        self.loop.children.append(self.loop)


def accessors(node):
    for name in [name for name in dir(T.GameNode) if name.startswith(("Set", "Get", "Is"))]:
        values = () if name[0] != "S" else (7000, 80000.5) if name in PAIRS else (90000.25,)
        with contextlib.suppress(TypeError, KeyError, AttributeError):
            getattr(node, name)(*values)


def attributes(node):
    for name, value in list(vars(node).items()):
        delattr(node, name)
        setattr(node, name, value)
    vars(node)["more"] = vars(node).pop("x")
    node.x = vars(node).pop("more")


def play(node):
    steps = [T.MoveToAction(1, 5, 6), T.ScaleByAction(1, 0, 0), T.RotateByAction(1, 0.5)]
    node.RunAction(*steps, T.BlinkAction(1, 1), T.CallBackAction(0, [].append, a=70000))
    for _ in range(9):
        node.update(0.5)
    node.visible, node.angle = True, 0


# Calls that fail.
REFUSED = [lambda w: T.GameNode(), lambda w: T.GameNode(None, 1, 2, 3), lambda w: w.node.SetX()]
REFUSED += [lambda w: T.GameNode(None, no=1), lambda w: T.GameNode(object()), lambda w: w.node.no]
REFUSED += [lambda w: w.node.SetX(1, 2), lambda w: w.node.SetX(y=1), lambda w: w.loop.GetLeft()]
REFUSED += [lambda w: w.node.Clamp("a", 1, 2), lambda w: w.node.GetBindingVar("none")]
REFUSED += [lambda w: w.node.OnKeyDownFunction([]), lambda w: w.root.OnPickDownFunction("a", 1)]
REFUSED += [lambda w: T.GameNode(None, "x").GetWX(), lambda w: T.GameNode.GetX(5)]
REFUSED += [lambda w: T.MoveToAction(1, "a", 2), lambda w: T.ActionPlayer().Run()]
REFUSED += [lambda w: T.checkPtInRect("a", 0, 0, 0, 0, 0), lambda w: T.tree_to_dict(BROKEN_PLIST)]
REFUSED += [lambda w: make_node(UpdateFunction=lambda delay: [].pop()).update(1)]
REFUSED += [lambda w: make_node(children=[5]).OnPickDownFunction(1, 1)]


def refuse(w, *calls):
    for call in calls:
        with contextlib.suppress(Exception):
            call(w)


def picture(w):
    widget = T.GUI_Image()
    widget.image = PICTURE
    widget.draw(w.screen, 0, 0, 1.0)


def foreign(w):
    node = SCRIPT(Recorder(5))
    node.children.append(Recorder())
    make_node(node).GetWXY(), node.update(1)


def cycle(w):
    node = SCRIPT(None)
    node.update, node.userData = node.draw, [node, vars(node), node.GetX]
    make_node(node).GetWXY()


EVENT = ("e", {"a": 70000})
OPERATIONS = {
    "picture": picture,
    "foreign": foreign,
    "no constructor": lambda w: T.GameNode.__init__(T.GameNode.__new__(T.GameNode), None, 70000),
    "constructor again": lambda w: T.GameNode.__init__(make_node(), None, 70000),
    "button": lambda w: T.GUI_Button(None, 1, 2, "text"),
    "script class": lambda w: type("Hero", (T.GameNode,), {"x": 1})(None),
    "copies": lambda w: (copy.copy(w.node), copy.deepcopy(T.GAction())),
    "copying": lambda w: w.middle.CopyTo(T.GameNode(None, 70000, 2.5)),
    "draw": lambda w: (w.root.draw(w.screen, 5, 6, 1.5), w.root.OnLoad(w.scene)),
    "update": lambda w: w.root.update(0.5),
    "property list": lambda w: T.tree_to_dict(PLIST),
    "actions": lambda w: play(w.node),
    "attributes": lambda w: attributes(w.middle),
    "accessors": lambda w: accessors(SCRIPT(None)),
    "bindings": lambda w: (w.root.SetKeyDownFunction("a", int), w.root.OnKeyDownFunction("a")),
    "events": lambda w: (w.root.SetBindingEvent("e", "go", "c"), w.root.CallEvent(*EVENT)),
    "press": lambda w: (w.root.OnPickDownFunction(1, 1), w.root.OnEditRectDraging(2, 3)),
    "layer": lambda w: (w.layer.DelGameNode(w.layer.AddGameNode(make_node())), w.layer.update(0)),
    "cycle": cycle,
    "refused": lambda w: refuse(w, *REFUSED),
    "recursion": lambda w: refuse(w, lambda w: w.loop.update(1)),
}
# Costly ones are repeated less often.
SLOW = {"recursion": 20, "accessors": 5, "script class": 10, "button": 5, "refused": 20}
SLOW.update(draw=2, actions=2, copies=2, events=2)
COUNTED = [None, True, False, "", (), 0, 1, -1, PICTURE, *engine_classes(T)]


@pytest.mark.parametrize("name", OPERATIONS)
def test_repetition_keeps_no_memory(screen, capsys, name):
    world, operation, chunk = World(screen), OPERATIONS[name], CHUNK // SLOW.get(name, 1)

    def repeat():
        for _ in range(chunk):
            operation(world)
        world.scene.calls.clear()
        capsys.readouterr()
        gc.collect()
        gc.collect()

    repeat()
    # Reference counts that an unbalanced count in the engine would move.
    blocks, counts = sys.getallocatedblocks(), [sys.getrefcount(value) for value in COUNTED]
    for _ in range(CHUNKS):
        repeat()
    grown = sys.getallocatedblocks() - blocks
    assert grown < TOLERANCE, f"{grown} blocks in {CHUNKS * chunk} repetitions"
    moved = [sys.getrefcount(value) - count for value, count in zip(COUNTED, counts)]
    assert max(map(abs, moved)) < chunk, moved
