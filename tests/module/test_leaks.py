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


REFUSED = """
T.GameNode(); T.GameNode(None, 1, 2, 3); T.GameNode(None, nonsense=1); T.GameNode(object())
w.node.SetX(); w.node.SetX(1, 2); w.node.SetX(y=1); w.node.unknown; w.node.Clamp("a", 1, 2)
T.GameNode(None, "x").GetWX(); T.GameNode.GetX(5); w.node.GetBindingVar("none"); w.loop.GetLeft()
w.node.OnKeyDownFunction([]); T.MoveToAction(1, "a", 2); T.ActionPlayer().Run(); T.checkPtInRect(1)
T.checkPtInRect("a", 0, 0, 0, 0, 0); T.tree_to_dict(BROKEN_PLIST); w.root.OnPickDownFunction("a", 1)
make_node(UpdateFunction=lambda delay: [].pop()).update(1); w.layer.AddPoint(); T.read_rect({})
make_node(make_node(), OnPickDownFunction=lambda x, y: int("x")).parent.OnPickDownFunction(1, 1)
"""
OPERATIONS = """
node: T.GameNode(None, 70000, 2.5); make_node(T.GameNode(None)).parent.OnDestroy()
image: T.GUI_Image(None, 70000, 2.5)
picture: i = T.GUI_Image(); i.image = PICTURE; i.draw(w.screen, 0, 0, 1.0)
button: T.GUI_Button(None, 1, 2, "text")
script class: type("Hero", (T.GameNode,), {"x": 1})(None)
no constructor: T.GameNode.__new__(T.GameNode); T.GameNode.__init__(make_node(), None, 70000)
copies: copy.copy(w.node); copy.deepcopy(T.GAction()); w.middle.CopyTo(T.GameNode(None))
world values: w.node.GetWXY(); w.node.GetSizeRect(); w.node.GetCenterXY(); w.root.GetLeft()
frame: w.root.draw(w.screen, 5, 6, 1.5); w.root.update(0.5); w.root.OnLoad(w.scene)
helpers: T.tree_to_dict(PLIST); T.checkRectCollision(T.Rect(0, 0, 5, 5), T.Rect(1, 1, 5, 5), 1, 1)
overlays: make_node(rectvisible=1, anchorvisible=1, width=9, x=5.5).draw(w.screen)
children: n = make_node(w.root); w.root.LayerDownChild(n); w.root.RemoveChild(n)
actions: play(w.node)
attributes: attributes(w.middle)
accessors: accessors(SCRIPT(None))
keys: w.root.SetKeyDownFunction("a", int); w.root.OnKeyDownFunction("a"); \
w.root.SetBindingPoint("p", 0, 70000, 2)
events: w.root.SetBindingEvent("e", "go", "c"); w.root.CallEvent("e", {"a": 70000})
inner: w.layer.SetInnerBindingEvent("Load", "go", []); w.layer.CallInnerEvent("Load")
clean: w.root.CleanUpBindingEvent(); w.root.checkCollision(w.node, 1, 1)
press: w.root.OnPickDownFunction(1, 1); w.root.OnEditRectDraging(2, 3); \
w.root.OnPickUpFunction(9, 9); w.root.GetAllChildrens()
layer: w.layer.DelGameNode(w.layer.AddGameNode(make_node())); w.layer.update(0)
later: n = w.layer.AddGameNode(make_node(), False); w.layer.draw(w.screen); \
w.layer.DelGameNode(n); w.layer.update(0)
scroll: w.layer.LayerDownGameNode(0); w.layer.SetAutoScroll(1, 70000.5); w.layer.update(0.5)
foreign: n = SCRIPT(Recorder(5)); n.children.append(Recorder()); make_node(n).GetWXY(); n.update(1)
cycle: n = SCRIPT(None); n.update = n.draw; n.userData = [n, vars(n), n.GetX]; make_node(n).GetWXY()
refused: refused(*REFUSED)
recursion: refused(RECURSION)
"""
OPERATIONS = dict(line.split(": ", 1) for line in OPERATIONS.strip().splitlines())
REFUSED = [compile(c.strip(), "", "eval") for c in REFUSED.replace("\n", ";").split(";") if c]
RECURSION = compile("w.loop.update(1)", "", "eval")
# Costly ones are repeated less often.
SLOW = {"recursion": 20, "accessors": 5, "script class": 10, "button": 5, "refused": 20}
SLOW.update(later=2, frame=2, actions=2, copies=2)
COUNTED = [None, True, False, "", (), 0, 1, -1, PICTURE, *engine_classes(T)]


@pytest.mark.parametrize("name", OPERATIONS)
def test_repetition_keeps_no_memory(screen, capsys, name):
    def refused(*codes):
        for code in codes:
            with pytest.raises(Exception):  # noqa: B017
                eval(code, globals(), names)

    names = {"w": World(screen), "refused": refused, "copy": copy, "Recorder": Recorder}
    operation, chunk = compile(OPERATIONS[name], name, "exec"), CHUNK // SLOW.get(name, 1)

    def repeat():
        for _ in range(chunk):
            exec(operation, globals(), names)
        names["w"].scene.calls.clear()
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
