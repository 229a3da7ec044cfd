"""python -m benchmarks [--quick] [--json FILE] [NAME ...]"""

import argparse
import json
import os
import platform
import sys

os.environ.setdefault("SDL_VIDEODRIVER", "dummy")
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")
os.environ.setdefault("PYGAME_HIDE_SUPPORT_PROMPT", "1")

import pygame  # noqa: E402

pygame.init()

from . import (  # noqa: E402
    characters,
    drawing,
    edits,
    measure,
    nodes,
    objects,
    panels,
    particles,
    sprites,
    tiles,
)

MODULES = (sprites, particles, characters, drawing, edits, panels, tiles, nodes, objects)


def selected(names):
    for module in MODULES:
        for benchmark in module.benchmarks():
            if not names or any(name.lower() in benchmark.name.lower() for name in names):
                yield benchmark


def main():
    parser = argparse.ArgumentParser(prog="python -m benchmarks", description=measure.__doc__)
    parser.add_argument("names", nargs="*", metavar="NAME", help="only those whose name has this")
    parser.add_argument("--quick", action="store_true", help="fewer and shorter runs")
    parser.add_argument("--json", metavar="FILE", help="write the figures to a file, too")
    parser.add_argument("--list", action="store_true", help="print the names only")
    options = parser.parse_args()
    if options.list:
        for benchmark in selected(options.names):
            print(benchmark.name)
        return 0
    effort = measure.QUICK if options.quick else measure.FULL
    host = f"Python {platform.python_version()}, pygame {pygame.version.ver}"
    print(f"{host}, {platform.machine()}; times per element, medians of {effort['rounds']} runs")
    print(measure.line(measure.HEADING))
    rows = []
    for benchmark in selected(options.names):
        rows.append(benchmark.run(effort))
        print(measure.line(rows[-1].cells()), flush=True)
    if not rows:
        parser.error("no benchmark has such a name")
    missed = sum(row.verdict == "missed" for row in rows)
    print(f"{missed} of {sum(bool(row.goal) for row in rows)} goals missed")
    if options.json:
        report = {"host": host, "rows": [row.as_dict() for row in rows]}
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump(report, file, indent=2)
    return 0


if __name__ == "__main__":
    sys.exit(main())
