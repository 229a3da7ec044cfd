"""Deep trees, labels and buttons."""

import random

import pygame
import Tessora

from . import plain, plain_widgets
from .measure import Pair, at_most
from .sprites import SPRITES, Scene, check_same_picture, display

DEPTH = 64


def tree(layer_class, node_class, depth):
    """A layer of 1,000 nodes in chains of that depth."""
    layer = layer_class()
    rng = random.Random(3)
    last = None
    for index in range(SPRITES):
        parent = last if index % depth else None
        last = node_class(parent, rng.randrange(10), rng.randrange(10))
        if parent is None:
            layer.AddGameNode(last)
    return layer


def chains_against_flat(library, depth=DEPTH):
    screen = display()
    layers = [tree(library.GameLayer, library.GameNode, levels) for levels in (depth, 1)]
    return [lambda layer=layer: layer.draw(screen) for layer in layers]


def nodes_against_plain():
    screen = display()
    layers = [tree(library.GameLayer, library.GameNode, 1) for library in (Tessora, plain)]
    return [lambda layer=layer: layer.draw(screen) for layer in layers]


def widgets(make, count):
    screen = display()
    layers = []
    for library, classes in ((Tessora, Tessora), (plain, plain_widgets)):
        layer = library.GameLayer()
        for index in range(count):
            layer.AddGameNode(make(classes, index))
        layers.append(layer)
    frames = [lambda layer=layer: layer.draw(screen) for layer in layers]
    check_same_picture(screen, frames)
    return frames


def label(classes, index):
    widget = classes.GUI_Label(None, 110 * (index % 10), 30 * (index // 10), f"label {index}")
    widget.height = 28
    return widget


def button(classes, index):
    widget = classes.GUI_Button(None, 110 * (index % 10), 30 * (index // 10), f"button {index}")
    widget.height = 28
    return widget


def faces_against_blits(make, count, size):
    """Still widgets of a game's scene, against blits of what they look like."""
    screen = display()
    layer = Tessora.GameLayer()
    for index in range(count):
        layer.AddGameNode(make(Tessora, index))
    layer.OnLoad(Scene())
    screen.fill((40, 80, 120))
    layer.draw(screen)
    finished = []
    for node in layer.GameNodeDict.values():
        place = pygame.Rect((node.x, node.y), size)
        finished.append((screen.subsurface(place).copy(), place.topleft))
    check_same_picture(screen, [lambda: layer.draw(screen), lambda: screen.blits(finished)])
    return (lambda: layer.draw(screen)), (lambda: screen.blits(finished))


def benchmarks():
    yield Pair("chains 64 deep: flat", lambda: chains_against_flat(Tessora), SPRITES, at_most(1.5))
    yield Pair("chains 64 deep, plain Python: flat", lambda: chains_against_flat(plain), SPRITES)
    yield Pair("drawing nodes: plain Python", nodes_against_plain, SPRITES)
    for name, make in (("labels", label), ("buttons", button)):
        yield Pair(
            f"200 still {name}: blits of their faces",
            lambda make=make: faces_against_blits(make, 200, (100, 28)),
            200,
            at_most(1.5),
        )
        yield Pair(f"{name}: plain Python", lambda make=make: widgets(make, 200), 200)
