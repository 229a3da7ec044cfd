"""What the first game and the steps of the tutorial show: each plays itself in its own process."""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import pygame

DOCS = Path(__file__).resolve().parents[1]
GAMES = DOCS.parent / "examples" / "tutorial"
# Runs a script as if it had been started, with a line before it.
START = "import runpy, sys; sys.argv = ['the_game.py']; import autoplay; {}; "
START += "runpy.run_path({!r}, run_name='__main__')"


def play(*command):
    """What the game shows after some seconds."""
    paths = os.pathsep.join([str(GAMES), *(entry for entry in sys.path if entry)])
    env = dict(os.environ, TESSORA_HEADLESS="1", PYTHONPATH=paths)
    with tempfile.TemporaryDirectory() as folder:
        shutil.copy(str(DOCS / "assets" / "hero.png"), os.path.join(folder, "me.png"))
        subprocess.check_output([sys.executable, *command], cwd=folder, env=env)
        (picture,) = Path(folder).glob("*_*.png")
        return pygame.image.load(str(picture))


def pictures():
    made = {f"step_{n}": play(str(GAMES / f"step_{n}.py")) for n in (1, 2, 3, 4, 6, 7)}
    first = str(DOCS / "start" / "first_game.py")
    made["first_game"] = play("-c", START.format("autoplay.PICTURE_SECONDS = 1.12", first))
    last = str(GAMES / "step_8.py")
    made["menu"] = play("-c", START.format("autoplay.PICTURE_SECONDS = 0.5", last))
    return made
