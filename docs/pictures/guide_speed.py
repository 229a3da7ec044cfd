"""A wood whose trees have few or many different sizes: one cannot tell which."""

import random

from parts.looks import quiet
from scenes import image, layer, play, sheet, window


def wood(steps):
    random.seed(4)
    screen = window(356, 190, (150, 200, 240))
    screen.fill((108, 180, 92), (0, 120, 356, 70))
    nodes, sizes = [], set()
    for y in sorted(random.uniform(118, 184) for _ in range(40)):
        tree = image("tree.png", random.uniform(-10, 350), y, anchor="s")
        tree.DropBGColor()
        scale = random.uniform(0.5, 1.0) * y / 184
        if steps:
            scale = round(scale * steps) / steps
        tree.SetSXY(scale, scale)
        sizes.add((int(tree.GetWidth() * scale), int(tree.GetHeight() * scale)))
        nodes.append(tree)
    return f"40 trees in {len(sizes)} sizes", play(screen, layer(*nodes))


def picture():
    with quiet():
        return sheet([wood(0), wood(12)], 2)
