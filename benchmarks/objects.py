"""Creation of widgets, their memory, and the time of the import."""

import os
import subprocess
import sys
import tracemalloc
from statistics import median

import Tessora

from . import plain_widgets
from .measure import Figure, Pair, limit, times_faster

CREATED = 1000
ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

IMPORT = """
from benchmarks.measure import clock
begin = clock()
import pygame
between = clock()
import Tessora
print(clock() - between, between - begin)
"""


def creations():
    def creator(image_class):
        def create():
            for _ in range(CREATED):
                image_class(None, 1, 2)

        return create

    return creator(Tessora.GUI_Image), creator(plain_widgets.GUI_Image)


def bytes_each(make):
    make()
    kept = [None] * CREATED
    tracemalloc.start()
    try:
        before, _ = tracemalloc.get_traced_memory()
        for index in range(CREATED):
            kept[index] = make()
        after, _ = tracemalloc.get_traced_memory()
    finally:
        tracemalloc.stop()
    return (after - before) / CREATED


def memory(effort):
    return [
        bytes_each(lambda image_class=image_class: image_class(None, 1, 2))
        for image_class in (Tessora.GUI_Image, plain_widgets.GUI_Image)
    ]


def import_times(effort):
    """Of the module after pygame, and of pygame; the interpreter's own start does not count."""
    times = []
    for _ in range(effort["runs"] + 1):
        printed = subprocess.check_output([sys.executable, "-c", IMPORT], text=True, cwd=ROOT)
        times.append([float(text) for text in printed.splitlines()[-1].split()])
    # The first run brings the files into memory.
    return [median(column) for column in zip(*times[1:])]


def benchmarks():
    yield Pair("creating and dropping GUI_Image: plain Python", creations, CREATED, times_faster(3))
    yield Figure("memory of a GUI_Image: plain Python", memory, limit(3000, "3000 B"), "B")
    yield Figure("import Tessora: import pygame", import_times, limit(0.015, "15 ms"))
