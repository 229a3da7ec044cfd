import pygame
import pytest
import Tessora as T
from helpers import ink

COLUMNS = "Life LifeVar ParticleTotal EmissionRate Duration BeginSize BeginSizeVar EndSize"
COLUMNS += " EndSizeVar Direction DirectionVar"
ROWS = {
    "Comet": (3, 1, 500, 100.0, -1, 60.0, 10.0, "Begin", 0, 90, 360),
    "Galaxy": (5, 2, 500, 100.0, -1, 40.0, 10.0, "Begin", 0, 90, 360),
    "Explosion": (3, 1, 100, 100, 1.0, 15.0, 10.0, "Begin", 0, 90, 360),
    "Flower": (5, 1, 500, 100.0, -1, 30.0, 10.0, "Begin", 0, -90, 360),
    "Sun": (5, 1, 500, 100.0, -1, 30.0, 10.0, "Begin", 0, 90, 360),
    "Rain": (40, 10.0, 500, 20.0, -1, 10.0, 5.0, "Begin", 0, 90, 5),
    "Snow": (40, 10.0, 500, 100.0, -1, 10.0, 5.0, "Begin", 0, 90, 0),
    "Smoke": (40, 10.0, 250, 30, -1, 60.0, 10.0, "Begin", 0, -90, 5),
    "Fire": (40, 10.0, 250, 30, -1, 54.0, 10.0, 0.0, 0, -90, 10),
    "FireWork": (30.0, 10.0, 250, 60, -1, 10.0, 2.0, "Begin", 0, -90, 20),
}


def started(name):
    emitter = T.ParticleEmitter(None, 160, 100)
    getattr(emitter, "InitPS_" + name)()
    return emitter


@pytest.mark.parametrize("name", list(ROWS))
def test_every_preset_sets_its_row(name):
    emitter = started(name)
    values = [getattr(emitter, column) for column in COLUMNS.split()]
    assert values == list(ROWS[name])
    assert [type(value) for value in values] == [type(value) for value in ROWS[name]]
    for angle in ("BeginAngle", "EndAngle"):
        assert (getattr(emitter, angle), getattr(emitter, angle + "Var")) == (0, 0)
    assert (emitter.GetImage(), emitter.GetBlendType()) == ("fire.png", pygame.BLEND_MULT)
    assert emitter.running is False and emitter.ParticleArray == []
    assert emitter.ParticleMode in ("Gravity", "Circle")


def test_presets_clean_up_first():
    emitter = started("Snow")
    emitter.SetImage(None)
    emitter.AddParticle()
    emitter.InitPS_Explosion()
    assert (emitter.children, emitter.ParticleCount) == ([], 0)


@pytest.mark.parametrize("name", list(ROWS))
def test_every_preset_shows_what_it_promises(screen, name):
    emitter, dot = started(name), pygame.Surface((8, 8), pygame.SRCALPHA)
    dot.fill((255, 255, 255))
    emitter.SetImage(dot)
    emitter.Run()
    for _ in range(60 if name == "Explosion" else 150):
        emitter.update(1 / 60)
        emitter.draw(screen)
    screen.fill((0, 0, 0))
    for particle in emitter.ParticleArray:
        particle.draw(screen)
    drawn = ink(screen)
    assert drawn.width > 30 and drawn.height > 30
    if name in ("Smoke", "Fire", "FireWork"):
        assert drawn.bottom < 140, "it rises"
    if name in ("Rain", "Snow"):
        assert drawn.top > 80 and drawn.width > 200, "it falls all along a line"
