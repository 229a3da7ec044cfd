"""Bars, lists and panels: still ones, long lists, and what making them costs."""

import gc
import tracemalloc

import pygame
import Tessora

from . import plain_panels
from .measure import Figure, Pair, at_most, clock, limit, times_faster
from .sprites import check_same_picture, display

MADE = 50
LINES = 10000


def bars(cls, count):
    def make(layer):
        for index in range(count):
            layer.AddGameNode(cls(None, 130 * (index % 9), 130 * (index // 9)))

    return make


def full_list(layer):
    box = Tessora.GUI_ListBox(None, 10, 10)
    # Without a border, which would lie over the first text.
    box.SetStyle("flat")
    box.SetLineGap(0)
    box.SetLineHeight(18)
    box.SetHeight(50 * 18)
    for index in range(200):
        box.AddTextLine(f"line {index}")
    layer.AddGameNode(box)


def visible_nodes(nodes):
    for node in nodes:
        if node.visible:
            yield node
            yield from visible_nodes(node.children)


def caption(label):
    """The finished text of a label that starts at its left edge, and its place."""
    top = int(label.WY + (label.height - label.font.size(label.text)[1]) * 0.5)
    face = label.font.render(label.text, True, label.textColor).convert_alpha()
    return face, (int(label.WX + label.textleftgap), top)


def still(make):
    """Against blits of the finished rectangles of all visible nodes, and of their texts."""
    screen = display()
    layer = Tessora.GameLayer()
    make(layer)
    layer.draw(screen)
    nodes = list(visible_nodes(layer.GameNodeDict.values()))
    texts = [node for node in nodes if getattr(node, "text", "")]
    for node in texts:
        node.textVisible = False
    screen.fill((40, 80, 120))
    layer.draw(screen)
    faces = []
    for node in nodes:
        place = pygame.Rect(node.WX, node.WY, node.width, node.height).clip(screen.get_rect())
        faces.append((screen.subsurface(place).copy(), place.topleft))
    for node in texts:
        node.textVisible = True
        faces.append(caption(node))
    frames = [lambda: layer.draw(screen), lambda: screen.blits(faces)]
    check_same_picture(screen, frames)
    return frames


def creations(name):
    def creator(cls):
        def create():
            for _ in range(MADE):
                cls()

        return create

    return creator(getattr(Tessora, name)), creator(getattr(plain_panels, name))


def adding_lines(effort):
    """A line of text to a list of 10,000, and to one of 1,000."""

    def times(count):
        box = Tessora.GUI_ListBox()
        for _ in range(count):
            box.AddTextLine("line")
        spans = []
        for _ in range(effort["rounds"]):
            begin = clock()
            for _ in range(20):
                box.AddTextLine("line")
            spans.append((clock() - begin) / 20)
        return sorted(spans)[len(spans) // 2]

    gc.collect()
    gc.disable()
    try:
        short = times(LINES // 10)
        return times(LINES), short
    finally:
        gc.enable()


def line_memory(effort):
    def bytes_each(add, count=1000):
        add()
        tracemalloc.start()
        try:
            before, _ = tracemalloc.get_traced_memory()
            kept = [add() for _ in range(count)]
            return (tracemalloc.get_traced_memory()[0] - before) / len(kept)
        finally:
            tracemalloc.stop()

    box = Tessora.GUI_ListBox()
    parent = Tessora.GameNode(None)
    return [
        bytes_each(lambda: box.AddTextLine("line")),
        bytes_each(lambda: plain_panels.GUI_CheckButton(parent, 0, 0, "line")),
    ]


def benchmarks():
    drawn = {
        "20 scroll bars": bars(Tessora.GUI_HScrollBar, 20),
        "20 upright scroll bars": bars(Tessora.GUI_VScrollBar, 20),
        "20 progress bars": bars(Tessora.GUI_HProgressBar, 20),
        "a list box of 50 lines": full_list,
    }
    for name, make in drawn.items():
        yield Pair(f"{name}: blits of their faces", lambda make=make: still(make), 1, at_most(1.5))
    yield Figure("AddTextLine at 10,000 lines: at 1,000", adding_lines, at_most(1.5))
    yield Figure("memory of a list line: plain Python", line_memory, limit(4096, "4096 B"), "B")
    classes = [cls for cls in vars(plain_panels).values() if isinstance(cls, type)]
    for name in [cls.__name__ for cls in classes if cls.__module__ == plain_panels.__name__]:
        if hasattr(Tessora, name):
            yield Pair(
                f"creating and dropping {name}: plain Python",
                lambda name=name: creations(name),
                MADE,
                times_faster(3),
            )
