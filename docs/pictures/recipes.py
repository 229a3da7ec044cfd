"""What the recipes look like: their own code, run from the pages, and drawn."""

import os
import re

import pygame
import scenes
import Tessora

PAGES = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "recipes")
# The recipe's mark on its page, the size of its picture, its ground, and where the mouse is.
RECIPES = {
    "buttons": ("looks", "recipe-button-style", (640, 270), scenes.NIGHT, (300, 148)),
    "panel": ("looks", "recipe-translucent-panel", (640, 230), scenes.SKY, (0, 0)),
    "health": ("looks", "recipe-health-bar", (640, 190), scenes.SKY, (0, 0)),
    "overlay": ("workshop", "recipe-debug-overlay", (640, 270), scenes.SKY, (0, 0)),
}


def code(page, mark):
    """The first lines of Python after a mark."""
    with open(os.path.join(PAGES, page + ".md"), encoding="utf-8") as file:
        text = file.read()
    return re.search(rf"\({mark}\)=.*?```python\n(.*?)```", text, re.S).group(1)


def draw(page, mark, size, color, mouse):
    screen = scenes.window(*size, color=color)
    pygame.mouse.get_pos = lambda: mouse
    layer = Tessora.GameLayer()
    names = {"pygame": pygame, "Tessora": Tessora, "screen": screen, "layer": layer}
    exec(code(page, mark), names)
    above = [names["above"]] if "above" in names else []
    # Some frames, so that there is a rate to tell.
    for _ in range(30):
        screen.fill(color)
        for plane in (layer, *above):
            plane.update(0)
            plane.draw(screen)
        pygame.time.wait(16)
    return screen.copy()


def pictures():
    return {name: draw(*values) for name, values in RECIPES.items()}
