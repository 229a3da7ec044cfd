"""The examples run to their end without a display and draw what they promise."""

import os
import subprocess
import sys
from pathlib import Path

import pygame
import pytest

FOLDER = Path(__file__).resolve().parents[2] / "examples"
GROUND = (36, 26, 72)
# Per example words that it prints, and places with the colours expected there.
BUTTONS = {(100, 130): (96, 96, 96), (380, 130): (255, 138, 150), (240, 330): (168, 168, 168)}
TILES = {(47, 242): GROUND, (490, 244): (229, 139, 224)}
EXAMPLES = [("actions", "wrote", TILES), ("atlas_animation", "wrote", {(5, 5): GROUND})]
EXAMPLES += [("buttons", "OnPickUpFunction2", BUTTONS), ("star_catcher/main", "collidepoint", {})]


@pytest.mark.parametrize(("name", "printed", "places"), EXAMPLES)
def test_examples_run_to_their_end(tmp_path, name, printed, places):
    paths = os.pathsep.join(entry for entry in sys.path if entry)
    env = dict(os.environ, TESSORA_HEADLESS="1", PYTHONPATH=paths)
    command = [sys.executable, str(FOLDER / (name + ".py"))]
    options = {"cwd": str(tmp_path), "env": env, "timeout": 600, "universal_newlines": True}
    assert printed in subprocess.check_output(command, stderr=subprocess.STDOUT, **options)
    picture = pygame.image.load(str(tmp_path / (name if places else "demo")) + ".png")
    assert {place: tuple(picture.get_at(place))[:3] for place in places} == places
    spots = [(x, y) for x in range(0, 640, 4) for y in range(0, 400, 4)]
    assert len({tuple(picture.get_at(spot)) for spot in spots}) > 15
