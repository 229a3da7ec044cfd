"""Characters of several parts, playing."""

import random

import Tessora

from .measure import Goal, Pair
from .sprites import SHARED, SIDE, check_same_picture, display, random_picture

CHARACTERS = 100
PARTS = 8
KEY_FRAMES = (0, 4, 8, 12)
DELAY = 1 / 60

# 1.5 times the blits, and a microsecond for what a part does beside.
GOAL = Goal("<= 1.5 x + 1 us", lambda row: row.ours <= 1.5 * row.baseline + 1e-6)


class Troupe:
    """Characters well inside the screen, whose parts move and change their pictures."""

    def __init__(self):
        rng = random.Random(8)
        self.screen = display()
        pictures = [random_picture(rng, SIDE) for _ in range(SHARED)]
        self.layer = Tessora.GameLayer()
        self.blits = []
        for _ in range(CHARACTERS):
            x, y = rng.randrange(100, 1000), rng.randrange(100, 700)
            character = Tessora.GameCharacter(None, x, y)
            character.AddAction("walk", 0.1)
            for part in range(PARTS):
                for frame in KEY_FRAMES:
                    picture, place = rng.choice(pictures), (rng.randrange(90), rng.randrange(90))
                    character.SetKeyFrame_Image("walk", frame, picture, part)
                    character.SetKeyFrame_Position("walk", frame, place, part)
                    if frame == 0:
                        self.blits.append((picture, (x + place[0], y + place[1])))
            for frame in KEY_FRAMES:
                character.SetKeyFrame_ChangeMode("walk", frame, 1)
            character.PlayAction("walk", True)
            self.layer.AddGameNode(character)
        self.layer.update(0)

    def frame(self):
        self.layer.update(DELAY)
        self.layer.draw(self.screen)


def playing():
    troupe = Troupe()
    screen, blits = troupe.screen, troupe.blits
    check_same_picture(screen, [lambda: troupe.layer.draw(screen), lambda: screen.blits(blits)])
    return troupe.frame, (lambda: screen.blits(blits))


def benchmarks():
    yield Pair(
        "characters of 8 parts, update and draw: Surface.blits",
        playing,
        CHARACTERS * PARTS,
        GOAL,
    )
