"""Draws the pictures of one module without a screen: picture.py MODULE.py FOLDER

The module defines `picture()`, which returns a surface, or `pictures()`, which returns a dictionary
from names to surfaces. They become MODULE.png, or MODULE_NAME.png each, in the folder.
"""

import importlib
import os
import sys
from pathlib import Path

os.environ.update(SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy", PYGAME_HIDE_SUPPORT_PROMPT="1")

import pygame  # noqa: E402

# What a page shows beside its contents without scaling it down.
WIDEST = 760


def surfaces(name):
    """The module's pictures by the names of their files, without the extension."""
    module = importlib.import_module(name)
    if hasattr(module, "pictures"):
        return {f"{name}_{key}": surface for key, surface in module.pictures().items()}
    return {name: module.picture()}


def main():
    path, folder = Path(sys.argv[1]), Path(sys.argv[2])
    sys.path.insert(0, str(path.resolve().parent))
    found = surfaces(path.stem)
    if not found:
        sys.exit("no picture")
    folder.mkdir(parents=True, exist_ok=True)
    for name, surface in found.items():
        if surface.get_width() > WIDEST:
            sys.exit(f"{name} is {surface.get_width()} pixels wide; at most {WIDEST} fit.")
        pygame.image.save(surface, str(folder / (name + ".png")))


if __name__ == "__main__":
    main()
