"""What the examples draw when they play by themselves, without a display."""

import os
import tempfile
from concurrent.futures import ThreadPoolExecutor

import pygame
from scenes import WIDEST

import examples


def drawn(name):
    with tempfile.TemporaryDirectory() as folder:
        surface = pygame.image.load(examples.draw(name, folder))
    if surface.get_width() > WIDEST:
        height = round(surface.get_height() * WIDEST / surface.get_width())
        surface = pygame.transform.smoothscale(surface.convert_alpha(), (WIDEST, height))
    return surface


def pictures():
    pygame.display.init()
    pygame.display.set_mode((1, 1))
    # Of the tutorial, the finished game.
    names = [name for name in examples.find() if not name.startswith("tutorial/")]
    names += [name for name in examples.find() if name.startswith("tutorial/")][-1:]
    with ThreadPoolExecutor(os.cpu_count() or 1) as pool:
        surfaces = pool.map(drawn, names)
        return {name.replace("/", "_"): surface for name, surface in zip(names, surfaces)}
