"""The short examples run to their end without a display and draw what they promise."""

import os
import subprocess
import sys
from pathlib import Path

import pygame
import pytest

FOLDER = Path(__file__).resolve().parents[2] / "examples"
BACKGROUND = (36, 26, 72)


@pytest.fixture(scope="module")
def drawn(tmp_path_factory):
    """Runs an example once and returns the picture that it saved, and what it printed."""
    finished = {}

    def run(name):
        if name not in finished:
            folder = tmp_path_factory.mktemp(name)
            env = dict(os.environ, TESSORA_HEADLESS="1")
            env["PYTHONPATH"] = os.pathsep.join(entry for entry in sys.path if entry)
            done = subprocess.run(
                [sys.executable, str(FOLDER / (name + ".py"))],
                cwd=str(folder),
                env=env,
                capture_output=True,
                text=True,
                timeout=900,
            )
            assert done.returncode == 0, done.stdout + done.stderr
            finished[name] = pygame.image.load(str(folder / (name + ".png"))), done.stdout
        return finished[name]

    return run


def inked(picture, area):
    """How many pixels of the area are not the background's."""
    x, y, width, height = area
    pixels = [(a, b) for a in range(x, x + width) for b in range(y, y + height)]
    return sum(picture.get_at(pixel)[:3] != BACKGROUND for pixel in pixels)


def close(one, other):
    """Blits and multiplications of some pygames cost a step or two."""
    return all(abs(a - b) <= 3 for a, b in zip(one[:3], other[:3]))


def has_colour(picture, area, colour):
    x, y, width, height = area
    pixels = [(a, b) for a in range(x, x + width) for b in range(y, y + height)]
    return any(close(picture.get_at(pixel), colour) for pixel in pixels)


def test_every_tile_of_the_actions_is_in_play(drawn):
    picture, _ = drawn("actions")
    colours = {picture.get_at((x, y))[:3] for x in range(0, 640, 4) for y in range(0, 400, 4)}
    tiles = ("ff8a96", "ffab6b", "ffd666", "b9e07a", "6fd3b8", "6fbdf5", "a99bff", "e58be0")
    for tile in tiles:
        assert tuple(int(tile[i : i + 2], 16) for i in (0, 2, 4)) in colours, tile
    # Where an untouched tile would end: these have been turned.
    for x in (45, 192):
        assert picture.get_at((x + 2, 242))[:3] == BACKGROUND
    # Scaled about its centre, a tile reaches beyond its place.
    assert inked(picture, (480, 60, 120, 9)) > 100


@pytest.mark.parametrize("column", range(4))
@pytest.mark.parametrize("row", range(2))
def test_the_atlas_fills_its_eight_places(drawn, row, column):
    picture, _ = drawn("atlas_animation")
    x, y = 100 + 150 * column, (90, 260)[row]
    assert inked(picture, (x - 30, y - 30, 60, 60)) > 1000
    assert inked(picture, (x - 70, (150, 345)[row] - 10, 140, 20)) > 80


def test_the_atlas_s_tint_takes_light_away(drawn):
    picture, _ = drawn("atlas_animation")
    plain = pygame.transform.average_color(picture, pygame.Rect(240, 270, 20, 6))
    tinted = pygame.transform.average_color(picture, pygame.Rect(390, 270, 20, 6))
    assert tinted[0] < 0.7 * plain[0]


def test_buttons_show_their_states_and_count_clicks(drawn):
    picture, printed = drawn("buttons")
    assert picture.get_at((100, 130))[:3] == (96, 96, 96), "held down"
    assert picture.get_at((380, 130))[:3] == (255, 138, 150), "not touched now"
    assert picture.get_at((240, 330))[:3] == (168, 168, 168), "disabled"
    assert picture.get_at((460, 235))[:3] == BACKGROUND, "only text"
    assert has_colour(picture, (360, 230, 200, 56), (255, 214, 102))

    hover = pygame.image.load(str(FOLDER / "star_catcher" / "assets" / "button_hover.png"))
    # Left of the caption, on the opaque part of the picture.
    assert close(picture.get_at((72 + 40, 220 + 40)), hover.get_at((40, 40)))

    assert printed.count("OnPickUpFunction2") == 2, "the disabled button is not clicked"
