"""Set-up of all tests: no screen, no sound, and the module that was just built."""

import os
import random
import sys
from types import SimpleNamespace

# pygame reads these when it is imported.
os.environ["SDL_VIDEODRIVER"] = "dummy"
os.environ["SDL_AUDIODRIVER"] = "dummy"
os.environ.setdefault("PYGAME_HIDE_SUPPORT_PROMPT", "1")

# The build names the folder of its module; without it the installed module is tested.
_MODULE_FOLDER = os.environ.get("TESSORA_MODULE_DIR")
if _MODULE_FOLDER:
    sys.path.insert(0, _MODULE_FOLDER)

import pygame  # noqa: E402
import pytest  # noqa: E402
import Tessora  # noqa: E402

if _MODULE_FOLDER and not os.path.samefile(os.path.dirname(Tessora.__file__), _MODULE_FOLDER):
    raise RuntimeError(
        f"the tests import {Tessora.__file__}, not the module built in {_MODULE_FOLDER}"
    )


def pytest_report_header(config):
    flavour = "pygame-ce" if getattr(pygame, "IS_CE", False) else "pygame"
    return f"{flavour} {pygame.version.ver}, {Tessora.__file__}"


@pytest.fixture(autouse=True)
def chance(request):
    """The same particles on every run: they ask `random` themselves."""
    random.seed(request.node.name)


@pytest.fixture
def screen():
    """The display's surface, 320 x 240 and black, whatever the test before left behind."""
    pygame.init()
    surface = pygame.display.set_mode((320, 240))
    surface.set_clip(None)
    surface.fill((0, 0, 0))
    pygame.event.clear()
    return surface


@pytest.fixture
def pointer(monkeypatch):
    """The mouse, away from every widget until a test sets its `place`."""
    pointer = SimpleNamespace(place=(-9, -9))
    monkeypatch.setattr(pygame.mouse, "get_pos", lambda: pointer.place)
    return pointer
