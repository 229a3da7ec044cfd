"""The steps of the tutorial play themselves without a display, and so does the first game."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

import pygame
import pytest

ROOT = Path(__file__).resolve().parents[2]
TUTORIAL = ROOT / "examples" / "tutorial"
FIRST_GAME = ROOT / "docs" / "start" / "first_game.py"
JAR = pygame.Rect(275, 345, 90, 105)
# Nothing flies over these: a hill and the grass.
PLACES = {(150, 350): (104, 74, 122), (3, 476): (22, 34, 48)}
DAY, NIGHT = (255, 255, 255), (170, 170, 225)

# What the step's picture shows: the light, words, sounds so far, fireflies in the jar.
STEPS = [
    pytest.param(1, DAY, "", 0, 0, id="window"),
    pytest.param(2, DAY, "", 0, 0, id="move"),
    pytest.param(3, DAY, "", 0, 1, id="click"),
    pytest.param(4, DAY, "Fireflies: 15", 0, 8, id="score"),
    pytest.param(5, DAY, "Fireflies: 15", 15, 8, id="sound"),
    pytest.param(6, DAY, "Fireflies: 14, 15", 15, 8, id="menu"),
    pytest.param(7, NIGHT, "Night: 4 of 9, 18", 17, 3, id="levels"),
    pytest.param(8, NIGHT, "Night: 4 of 9, 18", 17, 3, id="packaging"),
]


def play(command, folder):
    paths = os.pathsep.join([str(TUTORIAL), *(entry for entry in sys.path if entry)])
    env = dict(os.environ, TESSORA_HEADLESS="1", PYTHONPATH=paths)
    options = {"cwd": str(folder), "env": env, "timeout": 300, "universal_newlines": True}
    return subprocess.check_output([sys.executable, *command], stderr=subprocess.STDOUT, **options)


def lights_in_jar(picture):
    """How many pixels have the colour of a firefly's light."""
    places = [(x, y) for x in range(JAR.left, JAR.right) for y in range(JAR.top, JAR.bottom)]
    colours = [picture.get_at(place) for place in places]
    return sum(red > 240 and green > 200 and blue < 215 for red, green, blue, _ in colours)


@pytest.mark.parametrize(("number", "light", "words", "sounds", "caught"), STEPS)
def test_each_step_is_a_game(tmp_path, number, light, words, sounds, caught):
    printed = play([str(TUTORIAL / f"step_{number}.py")], tmp_path)
    assert f"to be read: {words}\n" in printed
    assert f"sounds: {sounds}\n" in printed
    assert "not come to its end" not in printed
    picture = pygame.image.load(str(tmp_path / f"step_{number}.png"))
    for place, colour in PLACES.items():
        lit = [part * share // 255 for part, share in zip(colour, light)]
        assert tuple(picture.get_at(place))[:3] == pytest.approx(lit, abs=3)
    assert lights_in_jar(picture) >= 12 * caught
    assert caught or not lights_in_jar(picture)


def test_the_first_game_moves_its_picture_and_turns_it_on_a_click(tmp_path):
    assert sum(map(bool, FIRST_GAME.read_text(encoding="utf-8").splitlines())) <= 20
    shutil.copy(str(FIRST_GAME), str(tmp_path))
    me = pygame.Surface((40, 40))
    me.fill((200, 0, 0))
    me.fill((0, 0, 200), (0, 20, 40, 20))
    pygame.image.save(me, str(tmp_path / "me.png"))
    script = "import runpy, sys; sys.argv = ['first_game.py']; import autoplay; "
    script += "runpy.run_path('first_game.py', run_name='__main__')"
    play(["-c", script], tmp_path)
    picture = pygame.image.load(str(tmp_path / "first_game.png"))
    picture.set_colorkey(picture.get_at((0, 0)))
    x, y = picture.get_bounding_rect().center
    assert x > 100 and y == pytest.approx(240, abs=2)
    # Red was above, blue below.
    assert picture.get_at((x - 20, y - 4))[:3] == (200, 0, 0)
    assert picture.get_at((x + 20, y - 4))[:3] == (0, 0, 200)
