"""What a frame costs without drawing, and what scripts pay for attributes and accessors."""

import Tessora

from . import plain
from .measure import Pair, at_most, times_faster

NODES = 10000
MOVING = 1000
DELAY = 0.016


def registered(library, count):
    layer = library.GameLayer()
    for index in range(count):
        node = library.GameNode(None, index % 640, index % 480)
        node.width = node.height = 32
        layer.AddGameNode(node)
    return layer


def updates():
    layers = [registered(library, NODES) for library in (Tessora, plain)]
    return [lambda layer=layer: layer.update(DELAY) for layer in layers]


def children(library, count):
    root = library.GameNode(None)
    for _ in range(count):
        library.GameNode(root)
    return root


def child_updates():
    roots = [children(library, NODES) for library in (Tessora, plain)]
    return [lambda root=root: root.update(DELAY) for root in roots]


def presses():
    layers = [registered(library, NODES) for library in (Tessora, plain)]
    # No node is there, all are asked.
    return [lambda layer=layer: layer.OnPickDownFunction(-7, -7) for layer in layers]


def moves():
    layers = [registered(library, MOVING) for library in (Tessora, plain)]
    for library, layer in zip((Tessora, plain), layers):
        for node in layer.GameNodeDict.values():
            # Long enough to be running throughout.
            node.RunAction(library.MoveToAction(1e9, 500, 400))
    return [lambda layer=layer: layer.update(DELAY) for layer in layers]


STATEMENTS = (
    ("node.x", "node.x"),
    ("node.x = a", "node.x = a"),
    ("node.GetX()", "node.GetX()"),
    ("node.SetX(a)", "node.SetX(a)"),
    ("node.GetXY()", "node.GetXY()"),
    ("node.SetXY(a, b)", "node.SetXY(a, b)"),
    ("node.IsVisible()", "node.IsVisible()"),
    ("node.children", "node.children"),
)
UNROLLED = 50
LOOPS = 200


class SmallNode:
    """The least that a plain class needs for the same attributes and accessors."""

    def __init__(self):
        self.x = 0
        self.y = 0
        self.visible = True
        self.children = []

    GetX = plain.GameNode.GetX
    SetX = plain.GameNode.SetX
    GetXY = plain.GameNode.GetXY
    SetXY = plain.GameNode.SetXY
    IsVisible = plain.GameNode.IsVisible


def repeated(statement, node):
    """The statement many times over, in code of its own for this object."""
    body = "\n".join(["        " + statement] * UNROLLED)
    source = f"def run(node, a=1.5, b=2.5):\n    for _ in range({LOOPS}):\n{body}\n"
    # Functions of a shared source would share what the host learns about the types it meets.
    names = {}
    exec(compile(source, f"<{statement}>", "exec"), names)
    run = names["run"]
    return lambda: run(node)


def script_node(library):
    class Hero(library.GameNode):
        def __init__(self):
            library.GameNode.__init__(self, None, 1, 2)
            self.hits = 3

    return Hero()


def access(statement, make_baseline):
    return [repeated(statement, node) for node in (Tessora.GameNode(None, 1, 2), make_baseline())]


def access_in_subclass(statement):
    return [repeated(statement, script_node(library)) for library in (Tessora, plain)]


def benchmarks():
    yield Pair("updating 10,000 nodes: plain Python", updates, NODES, times_faster(10))
    yield Pair("updating 10,000 children: plain Python", child_updates, NODES, times_faster(10))
    yield Pair("a press offered to 10,000 nodes: plain Python", presses, NODES, times_faster(12))
    yield Pair("updating 1,000 moving nodes: plain Python", moves, MOVING, times_faster(8))
    count = UNROLLED * LOOPS
    for name, statement in STATEMENTS:
        yield Pair(
            f"{name}: plain Python",
            lambda statement=statement: access(statement, lambda: plain.GameNode(None, 1, 2)),
            count,
            at_most(1.0),
        )
    for name, statement in STATEMENTS:
        yield Pair(
            f"{name}: plain Python, smallest class",
            lambda statement=statement: access(statement, SmallNode),
            count,
        )
    for statement in ("node.x", "node.SetXY(a, b)", "node.hits", "node.hits = a"):
        yield Pair(
            f"{statement}, script subclass: plain Python",
            lambda statement=statement: access_in_subclass(statement),
            count,
            at_most(1.0),
        )
