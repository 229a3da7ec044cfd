import pygame
import pytest
import Tessora as T
from pygame.math import Vector2

DEFAULTS = {
    "BeginLife": 100,
    "Attenuation": 10,
    "CurrLife": 100,
    "BeginSize": 20,
    "EndSize": 20,
    "BeginAngle": 0,
    "EndAngle": 0,
    "BeginColor": pygame.Color(255, 255, 255, 255),
    "EndColor": pygame.Color(0, 0, 0, 0),
    "lifeProgress": 0,
    "Direction": Vector2(0, 0),
    "RadialAccel": 0.0,
    "TangentialAccel": 0.0,
    "BeginRadius": 0,
    "EndRadius": 100,
    "RotateValue": 0.0,
    "RotateSpeed": 500.0,
    "ParticleMode": None,
}
PAIRS = [("BeginSize", "BeginSize"), ("EndSize", "EndSize"), ("BeginAngle", "BeginAngle")]
PAIRS += [("EndAngle", "EndAngle"), ("ParticleMode", "ParticleMode")]
PAIRS += [("ModeA_Direction", "Direction"), ("ModeA_RadialAccel", "RadialAccel")]
PAIRS += [("ModeA_TangentialAccel", "TangentialAccel"), ("ModeB_BeginRaidus", "BeginRadius")]
PAIRS += [("ModeB_EndRaidus", "EndRadius"), ("ModeB_RotateValue", "RotateValue")]
PAIRS += [("ModeB_RotateSpeed", "RotateSpeed"), ("BeginLife", "BeginLife")]


def test_attributes_in_the_order_of_construction():
    own = list(vars(T.Particle(None)).items())[-len(DEFAULTS) :]
    assert own == list(DEFAULTS.items())
    assert [type(value) for _, value in own] == [type(value) for value in DEFAULTS.values()]


def test_the_anchor_is_set_between_the_colours_and_the_progress():
    seen = []

    class Mine(T.Particle):
        def SetImageAnchor(self, anchor):
            seen.append((anchor, [hasattr(self, n) for n in ("EndColor", "lifeProgress")]))

    Mine(None)
    assert seen == [("center", [True, False])]
    particle = T.Particle(parent=None, x=3, y=4)
    assert (particle.GetAXY(), particle.GetXY(), particle.NodeType) == ((0.5, 0.5), (3, 4), "Image")


@pytest.mark.parametrize(("pair", "attribute"), PAIRS, ids=[pair for pair, _ in PAIRS])
def test_accessors_read_and_write_one_attribute(pair, attribute):
    particle, value = T.Particle(None), object()
    assert getattr(particle, "Set" + pair)(value=value) is None
    assert getattr(particle, attribute) is getattr(particle, "Get" + pair)() is value
    assert (particle.GetCurrLife() is value) == (pair == "BeginLife")


def test_colours_by_component():
    particle = T.Particle(None)
    particle.SetBeginColor(1, 2, 3)
    particle.SetEndColor(r=4, g=5, b=6, a=7)
    assert (particle.GetBeginColor(), particle.GetEndColor()) == ((1, 2, 3, 255), (4, 5, 6, 7))
    particle.SetEndColor("Begin", 0, 0, 0)
    assert particle.EndColor == "Begin"
    with pytest.raises(ValueError):
        particle.SetEndColor(0, "Begin", 0, 0)


def test_half_of_a_life():
    particle = T.Particle(None)
    particle.EndSize, particle.EndAngle = 10, 90
    particle.SetEndColor(0, 55, 255, 0)
    particle.update(5)
    assert (particle.CurrLife, particle.lifeProgress, particle.IsDead()) == (50, 0.5, False)
    assert (particle.width, particle.height, particle.angle) == (15, 15, 45)
    assert particle.bgColor == (128, 155, 255, 128), "components are cut, not rounded"
    particle.update(5.0)
    assert particle.IsDead() and particle.CurrLife == 0
    assert (particle.width, particle.lifeProgress) == (15, 0.5), "the dead keep their looks"
    assert particle.GetLifeProgress() == 1.0 == particle.lifeProgress


def test_born_without_life():
    particle = T.Particle(None)
    particle.SetBeginLife(0)
    particle.update(0.1)
    assert (particle.width, particle.lifeProgress) == (100, 0)
    with pytest.raises(ZeroDivisionError):
        particle.GetLifeProgress()


class Components:
    def __init__(self, *parts):
        self.r, self.g, self.b, self.a = parts


def test_markers_keep_what_the_particle_began_with():
    particle = T.Particle(None)
    particle.BeginAngle = 12
    particle.EndSize = particle.EndAngle = particle.EndColor = "Begin"
    particle.SetBeginColor(9, 8, 7, 6)
    particle.update(2.5)
    assert (particle.width, particle.angle, particle.bgColor) == (20, 12, (9, 8, 7, 6))
    particle.EndColor = Components("Begin", 108, "Begin", 206)
    particle.update(2.5)
    assert particle.bgColor == (9, 58, 7, 106)


def test_what_is_no_component_fails_as_pygame_says():
    particle = T.Particle(None)
    particle.CurrLife, particle.EndColor = 1000, pygame.Color(0, 0, 0, 0)
    with pytest.raises(ValueError):
        particle.update(0.5)
    particle.CurrLife = float("nan")
    with pytest.raises(ValueError):
        particle.update(0.5)
    particle.CurrLife = "long"
    with pytest.raises(TypeError):
        particle.update(0.5)


def test_accelerations_at_and_away_from_the_origin():
    particle, given = T.Particle(None), Vector2(3, 0)
    particle.SetModeA_Direction(given)
    particle.RadialAccel, particle.TangentialAccel = 10, 4
    particle.UpdateGravity(0.5, Vector2(0, 2))
    assert (particle.GetXY(), particle.Direction) == ((1.5, 0.5), Vector2(3, 1))
    assert given == (3, 0), "the velocity is a new vector"
    particle.SetXY(2, 0)
    particle.UpdateGravity(1, Vector2(0, 0))
    assert particle.Direction == (13, 5) and particle.GetXY() == (15, 5)


def test_a_vector_without_a_length_fails_as_pygame_says():
    particle = T.Particle(None, 1e-200, 0)
    with pytest.raises(ValueError):
        particle.UpdateGravity(0.5, Vector2(0, 0))


def test_a_quarter_of_a_circle():
    particle = T.Particle(None)
    particle.lifeProgress = 0.5
    particle.UpdateCircle(0.18)
    assert particle.RotateValue == 90
    assert particle.GetXY() == pytest.approx((0, -50))
    particle.EndRadius, particle.BeginRadius = "Begin", 20
    particle.UpdateCircle(0.18)
    assert particle.GetXY() == pytest.approx((20, 0))


def test_math_of_a_scripts_own(monkeypatch):
    particle = T.Particle(None)
    particle.UpdateCircle(0.1)
    monkeypatch.setattr("math.cos", lambda angle: 1)
    monkeypatch.setattr("math.sin", lambda angle: 2)
    particle.lifeProgress = 1
    particle.UpdateCircle(0.1)
    assert particle.GetXY() == (-100, -200)


def test_overridden_setters_are_called_in_order():
    calls = []

    class Mine(T.Particle):
        pass

    for name in ("SetWidth", "SetHeight", "SetBGColor", "SetAngle", "SetX", "SetY", "IsDead"):
        setattr(Mine, name, lambda self, *args, name=name: calls.append((name, *args)))
    particle = Mine(None)
    particle.update(5.0)
    particle.UpdateGravity(0.5, Vector2(2, 4))
    assert calls == [
        ("IsDead",),
        ("SetWidth", 20.0),
        ("SetHeight", 20.0),
        ("SetBGColor", 128, 128, 128, 128),
        ("SetAngle", 0.0),
        ("SetX", 0.5),
        ("SetY", 1.0),
    ]
    assert particle.Direction == (1, 2)


def test_values_that_were_looked_at_stay_what_they_are():
    particle = T.Particle(None)
    particle.update(1.0)
    color, direction = particle.bgColor, particle.Direction
    assert color is particle.bgColor and direction is particle.Direction
    particle.update(1.0)
    particle.UpdateGravity(1.0, Vector2(1, 1))
    assert (color, direction) == ((230, 230, 230, 230), (0, 0))
    assert (particle.bgColor, particle.Direction) == ((205, 205, 205, 205), (1, 1))


def test_draws_a_tinted_picture(screen):
    particle = T.Particle(None, 50, 40)
    particle.image = pygame.Surface((8, 8), pygame.SRCALPHA)
    particle.image.fill((255, 255, 255))
    particle.EndSize = 20
    particle.SetEndColor(255, 0, 0, 255)
    particle.update(9.99)
    particle.draw(screen)
    assert screen.get_at((50, 40))[:3] == (255, 1, 1)
    assert screen.get_at((41, 31))[:3] == (255, 1, 1) and screen.get_at((61, 40))[:3] == (0, 0, 0)
