from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from pygame import Color
from pygame.math import Vector2

DEFAULTS = {"BeginLife": 100, "Attenuation": 10, "CurrLife": 100, "BeginSize": 20, "EndSize": 20}
DEFAULTS.update(BeginAngle=0, EndAngle=0, BeginColor=Color("white"), EndColor=Color(0, 0, 0, 0))
DEFAULTS.update(lifeProgress=0, Direction=Vector2(0, 0), RadialAccel=0.0, TangentialAccel=0.0)
DEFAULTS.update(BeginRadius=0, EndRadius=100, RotateValue=0.0, RotateSpeed=500.0)
DEFAULTS.update(ParticleMode=None)
PAIRS = {n: n for n in "BeginLife BeginSize EndSize BeginAngle EndAngle ParticleMode".split()}
PAIRS.update({"ModeA_" + n: n for n in ("Direction", "RadialAccel", "TangentialAccel")})
PAIRS.update({"ModeB_" + n: n for n in ("RotateValue", "RotateSpeed")})
PAIRS.update(ModeB_BeginRaidus="BeginRadius", ModeB_EndRaidus="EndRadius")


def test_attributes_in_the_order_of_construction():
    own = list(vars(T.Particle(None)).items())[-len(DEFAULTS) :]
    assert own == list(DEFAULTS.items())
    assert [type(value) for _, value in own] == [type(value) for value in DEFAULTS.values()]


def test_the_anchor_is_set_between_the_colours_and_the_progress():
    class Mine(T.Particle):
        def SetImageAnchor(self, anchor):
            self.seen = anchor, hasattr(self, "EndColor"), hasattr(self, "lifeProgress")

    assert Mine(None).seen == ("center", True, False)
    particle = T.Particle(parent=None, x=3, y=4)
    assert (particle.GetAXY(), particle.GetXY(), particle.NodeType) == ((0.5, 0.5), (3, 4), "Image")


@pytest.mark.parametrize("pair", PAIRS)
def test_accessors_read_and_write_one_attribute(pair):
    particle, value = T.Particle(None), object()
    assert getattr(particle, "Set" + pair)(value=value) is None
    assert getattr(particle, PAIRS[pair]) is getattr(particle, "Get" + pair)() is value
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


def test_the_life_that_is_left():
    particle = T.Particle(None)
    particle.update(5)
    assert (particle.CurrLife, particle.lifeProgress, particle.IsDead()) == (50, 0.5, False)
    particle.update(5.0)
    assert (particle.CurrLife, particle.lifeProgress, particle.IsDead()) == (0, 0.5, True)
    assert particle.GetLifeProgress() == 1.0 == particle.lifeProgress


def test_born_without_life():
    particle = T.Particle(None)
    particle.SetBeginLife(0)
    particle.update(0.1)
    assert (particle.width, particle.lifeProgress) == (100, 0)
    with pytest.raises(ZeroDivisionError):
        particle.GetLifeProgress()


def test_a_marker_in_one_component_keeps_that_one():
    particle = T.Particle(None)
    particle.SetBeginColor(9, 8, 7, 6)
    particle.EndColor = SimpleNamespace(r="Begin", g=108, b="Begin", a=206)
    particle.update(5.0)
    assert particle.bgColor == (9, 58, 7, 106)


@pytest.mark.parametrize(
    ("life", "error"), [(1000, ValueError), (float("nan"), ValueError), ("long", TypeError)]
)
def test_what_is_no_component_fails_as_pygame_says(life, error):
    particle = T.Particle(None)
    particle.CurrLife, particle.EndColor = life, Color(0, 0, 0, 0)
    with pytest.raises(error):
        particle.update(0.5)


def test_accelerations_at_the_origin():
    particle, given = T.Particle(None), Vector2(3, 0)
    particle.SetModeA_Direction(given)
    particle.RadialAccel, particle.TangentialAccel = 10, 4
    particle.UpdateGravity(0.5, Vector2(0, 2))
    assert (particle.GetXY(), particle.Direction) == ((1.5, 0.5), Vector2(3, 1))
    assert given == (3, 0), "the velocity is a new vector"


def test_a_vector_without_a_length_fails_as_pygame_says():
    with pytest.raises(ValueError):
        T.Particle(None, 1e-200, 0).UpdateGravity(0.5, Vector2(0, 0))


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
    expected = [("IsDead",), ("SetWidth", 20.0), ("SetHeight", 20.0)]
    expected += [("SetBGColor", 128, 128, 128, 128), ("SetAngle", 0.0)]
    assert calls == [*expected, ("SetX", 0.5), ("SetY", 1.0)]
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
