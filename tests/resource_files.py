"""Small resource files for tests, and scripts run in a process of their own."""

import os
import wave

import pygame
from helpers import run_script


def native(path):
    return path.replace("\\", os.sep)


def write_file(path, data=b""):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def write_png(path, surface=None):
    write_file(path)
    pygame.image.save(surface or pygame.Surface((8, 8), pygame.SRCALPHA), str(path))


def write_wav(path, seconds=20):
    write_file(path)
    with wave.open(str(path), "wb") as sound:
        sound.setparams((1, 2, 11025, 0, "NONE", "not compressed"))
        sound.writeframes(bytes(range(64)) * (seconds * 11025 * 2 // 64))


def default_font_file():
    """The TrueType file that pygame ships."""
    return os.path.join(os.path.dirname(pygame.__file__), pygame.font.get_default_font())


PRELUDE = """
import os, sys
import pygame
pygame.init()
screen = pygame.display.set_mode((320, 240))
import Tessora as T
"""


def run_isolated(body, *args, timeout=90):
    """Run a script with pygame and the engine started; returns what it printed.

    A crash or a hang ends that process instead of the test run.
    """
    arguments = f"sys.argv[1:] = {[str(arg) for arg in args]!r}\n"
    done = run_script(PRELUDE + arguments + body, timeout=timeout)
    assert done.returncode == 0, f"exit code {done.returncode}\n{done.stderr[-3000:]}"
    return done.stdout
