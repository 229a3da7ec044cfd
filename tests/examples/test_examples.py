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
FIGURES = {(395, 200): (110, 64, 40), (395, 232): (244, 196, 160), (5, 390): (84, 70, 140)}
EXAMPLES += [("character", "collidepoint", FIGURES)]
EXAMPLES += [("particles", "wrote", {(310, 10): (0, 0, 0), (1, 200): (0, 0, 0)})]
WIDGETS = {(700, 96): (64, 64, 64), (700, 335): (64, 64, 64), (60, 368): (64, 0, 0)}
EXAMPLES += [("widgets", "collidepoint", WIDGETS)]
EXAMPLES += [("buttons", "OnPickUpFunction2", BUTTONS), ("star_catcher/main", "collidepoint", {})]
# A planted tree, water and grass; stone, earth and the night behind them.
ISLAND = {(160, 155): (52, 116, 80), (350, 205): (78, 150, 206), (5, 5): GROUND}
MEADOW = {(232, 246): (128, 132, 150), (4, 398): (134, 92, 66), (5, 5): GROUND}
# A switch that is on, the knob and the track of one that is off, a bar that was hurt.
OWN = {(42, 72): (92, 190, 120), (318, 114): (255, 250, 240), (370, 114): (96, 84, 140)}
EXAMPLES += [("own_widget", "collidepoint", {**OWN, (120, 208): (24, 18, 46), (5, 5): GROUND})]
EXAMPLES += [("diamond_map", "wrote", ISLAND), ("tmx_map", "wrote", MEADOW)]


@pytest.mark.parametrize(("name", "printed", "places"), EXAMPLES)
def test_examples_run_to_their_end(tmp_path, name, printed, places):
    if name == "tmx_map":
        # It installs pygame, which cannot stand beside pygame-ce.
        pytest.importorskip("pytmx")
    paths = os.pathsep.join(entry for entry in sys.path if entry)
    env = dict(os.environ, TESSORA_HEADLESS="1", PYTHONPATH=paths)
    command = [sys.executable, str(FOLDER / (name + ".py"))]
    options = {"cwd": str(tmp_path), "env": env, "timeout": 600, "universal_newlines": True}
    assert printed in subprocess.check_output(command, stderr=subprocess.STDOUT, **options)
    picture = pygame.image.load(str(tmp_path / (name if places else "demo")) + ".png")
    assert {place: tuple(picture.get_at(place))[:3] for place in places} == places
    spots = [(x, y) for x in range(0, 640, 4) for y in range(0, 400, 4)]
    assert len({tuple(picture.get_at(spot)) for spot in spots}) > 15


def test_the_platform_game_plays_itself_to_its_end(tmp_path):
    paths = os.pathsep.join(entry for entry in sys.path if entry)
    env = dict(os.environ, TESSORA_HEADLESS="1", PYTHONPATH=paths)
    command = [sys.executable, str(FOLDER / "platformer" / "main.py")]
    options = {"cwd": str(tmp_path), "env": env, "timeout": 600, "universal_newlines": True}
    printed = subprocess.check_output(command, stderr=subprocess.STDOUT, **options)
    assert "home with " in printed
    for name in ("platformer.png", "platformer_end.png"):
        picture = pygame.image.load(str(tmp_path / name))
        spots = [(x, y) for x in range(0, 800, 4) for y in range(0, 480, 4)]
        assert len({tuple(picture.get_at(spot)) for spot in spots}) > 50


def test_the_level_of_the_platform_game_is_a_map_with_a_start_and_an_end():
    rows = (FOLDER / "platformer" / "level.txt").read_text(encoding="utf-8").split()
    assert len(rows) >= 20 and {len(row) for row in rows} == {len(rows[0])} and len(rows[0]) >= 120
    letters = "".join(rows)
    assert letters.count("P") == letters.count("H") == 1
