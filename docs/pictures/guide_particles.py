"""Every preset of an emitter, and what single parameters do."""

import random
import sys

import pygame
import Tessora
from parts.looks import ROOT, point, quiet, use
from scenes import sheet, window

sys.path.insert(0, str(ROOT / "examples"))
NIGHT = (14, 12, 26)
CELL = WIDTH, HEIGHT = 226, 170


def glow(size=32, black=False):
    """A soft white spot, see-through around it, or on black for "ADD"."""
    made = pygame.Surface((size, size), pygame.SRCALPHA)
    made.fill((0, 0, 0, 255) if black else (255, 255, 255, 0))
    for radius in range(size // 2, 0, -1):
        part = int(255 * (1 - 2 * radius / size) ** 1.5)
        color = (part, part, part, 255) if black else (255, 255, 255, part)
        pygame.draw.circle(made, color, (size // 2, size // 2), radius)
    return made


def preset(name):
    from particles import picture_of

    return pygame.transform.smoothscale(picture_of(name), CELL)


def presets():
    from particles import PRESETS

    random.seed(7)
    use("star_catcher/assets")
    # Where the emitters' counters do not show.
    point(-500, -500)
    with quiet():
        return sheet([(f"InitPS_{name}", preset(name)) for name in PRESETS], 3)


def effect(seconds=3.0, x=WIDTH // 2, y=HEIGHT // 2, blend="MULT", circle=None, gravity=(0, 0),
           **values):  # fmt: skip
    """What an emitter with these attributes shows after some seconds."""
    random.seed(3)
    canvas = pygame.Surface(CELL)
    emitter = Tessora.ParticleEmitter(None, x, y)
    emitter.SetImage(glow(black=blend == "ADD"))
    emitter.SetBlendType(blend)
    emitter.ParticleX = emitter.ParticleY = 0
    emitter.EmissionRate, emitter.ParticleTotal = 60, 200
    emitter.Life, emitter.LifeVar = 12, 3
    emitter.BeginSize, emitter.BeginSizeVar, emitter.EndSize, emitter.EndSizeVar = 18, 4, 6, 2
    emitter.BeginColor = pygame.Color(255, 220, 130, 255)
    emitter.EndColor = pygame.Color(220, 60, 60, 0)
    emitter.BeginColorVar = emitter.EndColorVar = pygame.Color(0, 0, 0, 0)
    emitter.Gravity = pygame.math.Vector2(gravity)
    emitter.Speed, emitter.Direction = 60, -90
    for name, value in values.items():
        setattr(emitter, name, value)
    if circle:
        emitter.SetCircleMode(*circle)
    emitter.Run()
    for _ in range(round(seconds * 60)):
        emitter.update(1 / 60)
        canvas.fill(NIGHT)
        emitter.draw(canvas)
    canvas.fill(NIGHT)
    for particle in emitter.ParticleArray:
        particle.draw(canvas)
    return canvas


def parameters():
    window(8, 8)
    low = HEIGHT - 20
    black = {"EndColor": pygame.Color(0, 0, 0, 255)}
    parts = [
        ("Direction = -90", effect(y=low)),
        ("DirectionVar = 25", effect(y=low, DirectionVar=25, Speed=90)),
        ("and Gravity (0, 120)",
         effect(y=low, DirectionVar=25, Speed=150, Life=24, gravity=(0, 120))),
        ("DirectionVar = 180", effect(DirectionVar=180)),
        ("and Tangentialaccel = 400", effect(DirectionVar=180, Tangentialaccel=400)),
        ("SetCircleMode(70, 0, 0, 0, 90, 0)",
         effect(circle=(70, 0, 0, 0, 90, 0), DirectionVar=9000, Life=30)),
        ("ParticleXVar = 90", effect(y=low, ParticleXVar=90)),
        ('blend "ADD", end colour black', effect(DirectionVar=180, blend="ADD", **black)),
        ("BeginSize 30, EndSize 1",
         effect(y=low, DirectionVar=25, Speed=90, BeginSize=30, EndSize=1, EndSizeVar=0)),
    ]  # fmt: skip
    return sheet(parts, 3)


def pictures():
    return {"presets": presets(), "parameters": parameters()}
