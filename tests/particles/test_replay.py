"""The engine's particles against the same formulas in plain Python, number by number."""

import random
import sys
from pathlib import Path

import pygame
import pytest
import Tessora as T

sys.path.append(str(Path(__file__).resolve().parents[2]))
from benchmarks import plain_particles  # noqa: E402

PRESETS = "Comet Galaxy Explosion Flower Sun Rain Snow Smoke Fire FireWork".split()
NAMES = list(vars(plain_particles.Particle(None)))[1:]
BASES = "BeginSize EndSize BeginAngle EndAngle BeginRadius EndRadius ParticleX ParticleY Direction"
BASES += " Speed RotateSpeed Radialaccel Tangentialaccel"
PARAMETERS = {name + var for name in BASES.split() for var in ("", "Var")}
MARKED = ("EndSize", "EndSizeVar", "EndAngle", "EndAngleVar", "EndRadius", "EndRadiusVar")
NUMBERS = [0, 1, 2.5, -3, 40.0, 250.5, -90, 12]


# Parameters of all kinds: ints, reals, markers, both modes.
def random_emitter(seed):
    rng, emitter = random.Random(seed), T.ParticleEmitter(None, particleTotal=60)
    for name in list(vars(emitter)):
        if type(getattr(emitter, name)) in (int, float) and name in PARAMETERS:
            setattr(emitter, name, rng.choice(NUMBERS))
    for name in MARKED:
        setattr(emitter, name, rng.choice([*NUMBERS, "Begin", "".join(["Be", "gin"])]))
    for name in ("BeginColor", "BeginColorVar", "EndColor", "EndColorVar"):
        marker = name.startswith("End") and rng.random() < 0.3
        color = pygame.Color(*(rng.randrange(256) for _ in range(4)))
        setattr(emitter, name, "Begin" if marker else color)
    emitter.Life, emitter.LifeVar = rng.choice([(2, 1), (3.5, 3), (100, 30)])
    emitter.Gravity = pygame.math.Vector2(rng.choice(NUMBERS), rng.choice(NUMBERS))
    emitter.ParticleMode = rng.choice(["Gravity", "Circle", None])
    emitter.EmissionRate = rng.choice([30, 61.0, 1000])
    emitter.Run()
    return emitter


def preset(name):
    emitter = T.ParticleEmitter(None)
    getattr(emitter, "InitPS_" + name)()
    emitter.SetImage(None)
    emitter.Run()
    return emitter


MAKERS = [(preset, name) for name in PRESETS] + [(random_emitter, seed) for seed in range(12)]


def values(particle):
    return [(name, type(getattr(particle, name)), getattr(particle, name)) for name in NAMES]


@pytest.mark.parametrize(("make", "argument"), MAKERS, ids=[str(m[1]) for m in MAKERS])
@pytest.mark.parametrize("looks", [False, True], ids=["unseen", "looked at"])
def test_the_same_seed_gives_the_same_particles(screen, make, argument, looks):
    emitter = make(argument)
    plain = plain_particles.ParticleEmitter(emitter)
    for frame in range(45):
        delay = [0.016, 0.033, 0.1, 1][frame % 4 if frame % 9 == 8 else frame % 2]
        random.seed(frame)
        plain.update(delay)
        random.seed(frame)
        emitter.update(delay)
        if looks or frame > 40:
            assert len(emitter.ParticleArray) == len(plain.ParticleArray)
            for ours, theirs in zip(emitter.ParticleArray, plain.ParticleArray):
                assert values(ours) == values(theirs)
        for name in ("ParticleCount", "EmitCounter", "LifeTime", "running"):
            assert getattr(emitter, name) == getattr(plain, name)
        plain.remove_dead()
        emitter.draw(screen)
    assert emitter.LifeTime > 0
