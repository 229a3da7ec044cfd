"""Scripts that do the worst: Python's ordinary errors, never a crash."""

import pytest
from helpers import failures, outcomes, script_output

BORROWED_METHODS = {
    "drawn by a parent": """
parent = T.GameNode(None)
type("Hero", (T.GameNode,), {"draw": T.GUI_Image.draw})(parent)
parent.draw(screen, 0, 0, 1.0)
""",
    "as a step of drawing": """
type("Picture", (T.GUI_Image,), {"drawStyle": T.GUI_Button.draw})(None).draw(screen, 0, 0, 1.0)
""",
    "of another family": """
type("Move", (T.MoveToAction,), {"Run": T.ActionPlayer.Run})(1, 2, 3).Run()
""",
    "on every node": """
T.GameNode.draw = T.GUI_Button.draw
T.GameNode(None).draw(screen, 0, 0, 1.0)
""",
}
TYPES_AND_ARGUMENTS = {
    "types that the engine keeps to itself": """
import gc
class A(T.GameNode):
    x = 5
things = [A(None), T.GameLayer(), T.GUI_Button(), T.GAction(), vars(T.GAction()), A.__dict__["x"]]
for kind in {type(inner) for thing in things for inner in (thing, *gc.get_referents(thing))}:
    if kind.__module__ == "Tessora" and getattr(T, kind.__name__, None) is not kind:
        try:
            kind()
        except TypeError:
            continue
        raise AssertionError(kind)
""",
    "a keyword that is no text": """
import functools
make = functools.partial(T.GameNode, None, 1)
make.keywords[5] = 6
make()
""",
    "a keyword that equals a name": """
import functools
class Strange:
    def __hash__(self):
        return hash("x")
    def __eq__(self, other):
        return True
make = functools.partial(T.GameNode, None, 1)
make.keywords[Strange()] = 6
make()
""",
    "keywords cleared by the parent": """
class Parent:
    def GetSceneInstance(self):
        return None
    def AddChild(self, child):
        values.clear()
        self.junk = [float(n) for n in range(1000)]
values = {"parent": Parent(), "x": float("1234.5"), "y": float("2345.5")}
node = T.GameNode(**values)
assert (node.x, node.y) == (1234.5, 2345.5)
""",
    "keywords cleared by a key": """
class Key(str):
    __hash__ = str.__hash__
    def __eq__(self, other):
        values.clear()
        return str.__eq__(self, other)
for make in (T.GameNode, T.GUI_Button, T.CallBackAction, T.MoveToAction):
    values = dict.fromkeys(map(Key, ("parent", "x", "y", "duration", "callbackFunc", "a")))
    try:
        make(**values)
    except TypeError:
        pass
""",
    "attributes replaced by a key": """
class Key(str):
    def __hash__(self):
        return hash(name)
    def __eq__(self, other):
        node.__dict__ = {}
        junk.append([{n: n} for n in range(crowd)])
        return False
junk = []
for crowd, name in ((c, n) for c in (0, 50) for n in ("own", "update", "GetWX")):
    for look in (
        lambda: getattr(node, name), lambda: vars(node)[name], lambda: vars(node).pop(name),
        lambda: setattr(node, name, 1), lambda: parent.update(1), lambda: child.GetWX(),
    ):
        parent = T.GameNode(None)
        node = T.GameNode(parent)
        child = T.GameNode(node)
        vars(node)[Key(name)] = [1]
        try:
            look()
        except (AttributeError, KeyError, RuntimeError):
            pass
""",
}
SHOW = """
PICTURE = pygame.Surface((100, 100), pygame.SRCALPHA)
def show(picture, **changes):
    widget = T.GUI_Image(None, 5, 5)
    widget.SetImage(picture)
    vars(widget).update(changes)
    for _ in range(3):
        widget.draw(screen, 0, 0, 1.0)
"""
NO_PIXELS = {
    "no width": "show(pygame.Surface((0, 20)))",
    "no height": "show(pygame.Surface((20, 0), pygame.SRCALPHA), angle=30)",
    "neither": "show(pygame.Surface((0, 0)), alpha=100, bgColor=None)",
}
TOO_LARGE = {
    "2**31 bytes": "show(PICTURE, sx=250.0, sy=250.0)",
    "turned": "show(PICTURE, sx=250.0, sy=250.0, angle=45)",
}
ATTACKS = {
    "borrowed methods": ("", BORROWED_METHODS, {"TypeError"}),
    "types and arguments": ("", TYPES_AND_ARGUMENTS, {"fine", "TypeError"}),
    "pictures without pixels": (SHOW, NO_PIXELS, {"fine"}),
    "pictures too large": (SHOW, TOO_LARGE, {"fine", "ValueError", "OverflowError", "MemoryError"}),
}


@pytest.mark.parametrize("name", ATTACKS)
def test_ordinary_errors_at_most(name):
    prelude, pieces, allowed = ATTACKS[name]
    assert failures(pieces, prelude, allowed) == {}


ENDLESS = {
    "frame at infinity": "animated(float('inf'))",
    "frame at 1e300": "animated(1e300)",
    "a tree that fans out": """
node = T.GameNode(None)
for _ in range(9):
    above = T.GameNode(None)
    above.children = [node] * 100
    node = above
interrupt_soon()
node.update(1)
""",
}
INTERRUPT = """
import signal
def interrupt(*args):
    raise KeyboardInterrupt
def interrupt_soon():
    # Systems without timers can only do without endless walks.
    if hasattr(signal, "setitimer"):
        signal.signal(signal.SIGALRM, interrupt)
        signal.setitimer(signal.ITIMER_REAL, 0.5)
def animated(index):
    widget = T.GUI_Image()
    widget.SetImage([pygame.Surface((4, 4)) for _ in range(3)])
    widget.SetAutoSwitch(True)
    widget.imageIndex = index
    interrupt_soon()
    widget.update(5.0)
"""


def test_long_walks_can_be_interrupted():
    found = outcomes(ENDLESS, INTERRUPT, timeout=8)
    assert "no end" not in found.values(), found


def test_daemon_threads_may_be_inside_the_engine_when_the_interpreter_ends():
    script = """
import threading, time
import Tessora as T
class Slow:
    def __del__(self):
        time.sleep(0.001)
node = T.GameNode(None)
node.SetUpdateFunction(lambda delay: Slow())
def work():
    while True:
        node.update(0.01)
for _ in range(3):
    threading.Thread(target=work, daemon=True).start()
time.sleep(0.05)
"""
    assert [script_output(script) for _ in range(3)] == [[]] * 3
