import contextlib
import random

import pygame
import pytest
import Tessora as T
from helpers import Recorder, ink, make_node
from pygame.math import Vector2

DEFAULTS = "plistFile=None particleMode='Gravity' ParticleTotal=250 ParticleCount=0"
DEFAULTS += " EmissionRate=20 EmitCounter=0 Duration=-1 LifeTime=0 ParticleArray=[] ParticleX=100"
DEFAULTS += " ParticleXVar=0 ParticleY=100 ParticleYVar=0 Life=100 LifeVar=10 Attenuation=10"
DEFAULTS += " BeginSize=20 BeginSizeVar=10 EndSize=10 EndSizeVar=5 BeginAngle=0 BeginAngleVar=0"
DEFAULTS += " EndAngle=0 EndAngleVar=0 Direction=90 DirectionVar=0 Speed=100 SpeedVar=0"
DEFAULTS += " BeginColor=(255,255,255,255) BeginColorVar=(0,0,0,255) EndColor=(255,255,255,255)"
DEFAULTS += " EndColorVar=(0,0,0,255) Imagefile=None ParticleMode='Gravity'"
DEFAULTS += " blendtype=pygame.BLEND_MULT BeginRadius=0 BeginRadiusVar=0 EndRadius=100"
DEFAULTS += " EndRadiusVar=0 RotateSpeed=0 RotateSpeedVar=0 Gravity=Vector2(0,1) Tangentialaccel=0"
DEFAULTS += " TangentialaccelVar=0 Radialaccel=0 RadialaccelVar=0 running=False"
DEFAULTS = {n: eval(v) for n, v in (pair.split("=") for pair in DEFAULTS.split())}
CLEANED = "ParticleXVar ParticleX ParticleY ParticleYVar Life LifeVar Attenuation EndAngle"
CLEANED += " BeginAngle BeginAngleVar EndAngleVar Direction DirectionVar Speed SpeedVar LifeTime"
CLEANED += " EndSize EndSizeVar ParticleTotal ParticleCount EmitCounter"


# Emits at once as many particles as are asked for.
def full(count=10, parent=None, cls=T.ParticleEmitter, **values):
    emitter = cls(parent, particleTotal=count)
    emitter.EmissionRate, emitter.running = 1e6, True
    emitter.ParticleX = emitter.ParticleY = 0
    for name, value in values.items():
        setattr(emitter, name, value)
    emitter.update(1.0)
    emitter.Pause()
    return emitter


def state(emitter):
    particles = emitter.ParticleArray
    children = [c for c in emitter.children if c in particles]
    places = [child.sortIndex for child in emitter.children]
    assert places == list(range(len(places)))
    assert children == particles and len(particles) == emitter.ParticleCount
    return len(particles), len(emitter.children)


def test_attributes_in_the_order_of_construction():
    emitter = T.ParticleEmitter(None)
    assert list(vars(emitter).items())[-len(DEFAULTS) :] == list(DEFAULTS.items())
    assert emitter.NodeType == "ParticleEmitter"
    other = T.ParticleEmitter(parent=None, x=1, y=2, particleMode="Circle", particleTotal=3)
    assert (other.GetXY(), other.particleMode, other.ParticleTotal) == ((1, 2), "Circle", 3)
    assert other.GetParticleMode() == "Gravity", "the active mode is another attribute"


def test_the_constructor_sets_the_modes_by_their_methods():
    class Mine(T.ParticleEmitter):
        def SetCircleMode(self, *args):
            self.circle = args

        def SetGravityMode(self, *args):
            self.gravity = args, hasattr(self, "blendtype"), hasattr(self, "running")

    mine = Mine(None)
    assert mine.circle == (0, 0, 100, 0, 0, 0)
    expected = (100, 0, 100, 0, Vector2(0, 1), 0, 0, 0, 0, 100, 0)
    assert mine.gravity == (expected, True, False)
    assert not hasattr(mine, "EndRadius") and mine.ParticleMode is None


def test_modes_store_each_argument():
    emitter, gravity = T.ParticleEmitter(None), Vector2(5, 5)
    emitter.SetGravityMode(1, 2, 3, 4, gravity, 6, 7, 8, 9, 10, 11)
    assert emitter.Gravity is gravity and emitter.ParticleMode == "Gravity"
    emitter.SetCircleMode(*range(12, 18))
    assert emitter.GetParticleMode() == "Circle"
    names = "ParticleX ParticleXVar ParticleY ParticleYVar Gravity Radialaccel RadialaccelVar"
    names += " Tangentialaccel TangentialaccelVar Speed SpeedVar BeginRadius BeginRadiusVar"
    names += " EndRadius EndRadiusVar RotateSpeed RotateSpeedVar"
    values = [getattr(emitter, name) for name in names.split()]
    assert values == [1, 2, 3, 4, gravity, *range(6, 18)]


def test_emission_waits_until_the_time_is_more_than_one_rate():
    emitter = T.ParticleEmitter(None)
    emitter.EmissionRate = 10
    emitter.Run()
    emitter.update(0.1)
    assert (emitter.ParticleCount, emitter.EmitCounter) == (0, 0.1)
    emitter.update(0.1)
    assert (emitter.ParticleCount, emitter.EmitCounter) == (1, 0.1)


def test_only_as_many_as_the_total_are_full():
    emitter = full(3)
    emitter.AddParticle()
    assert state(emitter) == (3, 3) and emitter.IsFull()
    emitter.SetParticleTotal(2)
    emitter.AddParticle()
    assert state(emitter) == (4, 4) and not emitter.IsFull(), "only equality is full"


def test_the_emission_ends_at_its_duration():
    emitter = T.ParticleEmitter(None)
    emitter.Duration, emitter.running = 1.0, True
    emitter.update(1.0)
    assert emitter.running is False and emitter.LifeTime == 1.0


@pytest.mark.parametrize(
    ("values", "error"),
    [({"EmissionRate": 0}, ZeroDivisionError), ({"EmissionRate": "fast"}, TypeError)]
    + [({"EmitCounter": float("inf")}, OverflowError), ({"EmissionRate": -1}, OverflowError)],
    ids=["no rate", "a text", "endless", "backwards"],
)
def test_emission_that_cannot_be(values, error):
    emitter = T.ParticleEmitter(None)
    emitter.AddParticle = lambda: None
    emitter.Run()
    vars(emitter).update(values)
    pytest.raises(error, emitter.update, 0.5)


def test_random_numbers_come_from_random_ab_in_order(monkeypatch):
    emitter, asked = T.ParticleEmitter(None), []
    emitter.RandomAB = lambda low, high: asked.append((low, high)) or len(asked)
    emitter.BeginAngleVar = emitter.EndAngleVar = emitter.ParticleXVar = emitter.SpeedVar = 1
    emitter.AddParticle()
    (particle,) = emitter.ParticleArray
    assert asked == [(-1, 1)] * 19
    assert (particle.BeginAngle, particle.EndAngle, particle.x) == (4, 5, 114)
    assert particle.Direction == Vector2(0, 117)
    del emitter.RandomAB
    monkeypatch.setattr(random, "random", lambda: 0.75)
    assert emitter.RandomAB(2, 4) == 3.5
    emitter.AddParticle()
    assert emitter.ParticleArray[-1].BeginAngle == 0.5


def test_particles_of_a_scripts_own_class(monkeypatch, screen):
    class Mine(T.Particle):
        def update(self, delay):
            self.seen = delay
            super().update(delay)

        def UpdateGravity(self, delay, gravity):
            self.pulled = gravity

        def SetBeginSize(self, value):
            super().SetBeginSize(7)

    monkeypatch.setattr(T, "Particle", Mine)
    emitter = full(3)
    seen = [(type(p), p.seen, p.pulled, p.BeginSize) for p in emitter.ParticleArray]
    assert seen == [(Mine, 1.0, Vector2(0, 1), 7)] * 3
    emitter.draw(screen)
    assert state(emitter) == (3, 3)


def test_replaced_methods_of_the_class(monkeypatch):
    seen = []
    emitter = full(2)
    monkeypatch.setattr(T.Particle, "update", lambda self, delay: seen.append(delay))
    monkeypatch.setattr(T.Particle, "UpdateCircle", lambda self, delay: seen.append(-delay))
    emitter.ParticleMode = None
    emitter.update(0.5)
    assert seen == [0.5, -0.5] * 2


def test_overridden_birth():
    class Mine(T.ParticleEmitter):
        def AddParticle(self):
            for _ in range(2):
                particle = T.Particle(self)
                self.initParticle(particle)
                self.ParticleArray.append(particle)
                self.ParticleCount += 1

        def initParticle(self, particle):
            particle.SetBeginLife(50)

    emitter = full(4, cls=Mine)
    assert [p.CurrLife for p in emitter.ParticleArray] == [40] * 4, "each is stepped once"
    assert state(emitter) == (4, 4)


def test_a_failed_birth_leaves_nothing_behind(monkeypatch):
    emitter = T.ParticleEmitter(None)
    emitter.SetImage("fire.png")
    monkeypatch.setattr(T, "Res", None)
    with pytest.raises(AttributeError, match="fire.png"):
        emitter.AddParticle()
    assert state(emitter) == (0, 0)


def test_particles_are_children_that_are_stepped_and_drawn_once(screen):
    calls = []
    emitter = full(2)
    for name in ("update", "draw"):
        for particle in emitter.ParticleArray:
            setattr(particle, name, lambda *args, name=name: calls.append(name))
        child = T.GameNode(emitter)
        setattr(child, name, lambda *args, name=name: calls.append("child " + name))
    emitter.UpdateFunction = lambda delay: calls.append("function")
    emitter.update(0.1)
    emitter.draw(screen)
    assert calls == ["child update", "function", "update", "update", "draw", "draw", "child draw"]
    assert len(emitter.GetAllChildrens()) == 4


def test_presses_go_past_the_particles(screen, capsys):
    emitter = full(2)
    emitter.width = emitter.height = 50
    emitter.draw(screen)
    button = make_node(emitter, width=5, height=5, x=20, y=20)
    button.draw(screen)
    assert emitter.OnPickDownFunction(1, 1) is emitter and not emitter.ParticleArray[0].clicked
    assert emitter.OnPickDownFunction(21, 21) is button


def test_thousands_die_in_one_frame(screen):
    emitter = full(4000, Life=5.0, LifeVar=0)
    before, after = T.GameNode(None), T.GameNode(emitter)
    emitter.children.insert(0, before)
    emitter.ReSortAllChild = None
    for index, child in enumerate(emitter.children):
        child.SetSortIndex(index)
    survivors = emitter.ParticleArray[::1000]
    for particle in survivors:
        particle.SetBeginLife(90)
    emitter.update(1.0)
    assert emitter.ParticleCount == 4000, "the dead go when they are drawn"
    emitter.draw(screen)
    assert emitter.ParticleArray == survivors and state(emitter) == (4, 6)
    assert emitter.children == [before, *survivors, after]


def test_the_dead_leave_before_a_script_may_look(screen):
    emitter, counts = full(4, Life=5.0, LifeVar=0), []
    last = emitter.ParticleArray[-1]
    last.SetBeginLife(90)
    last.drawimage = None
    last.draw = lambda *args: counts.append(len(emitter.ParticleArray))
    emitter.update(1.0)
    emitter.draw(screen)
    assert counts == [1] and state(emitter) == (1, 1)


ACTS = {
    "remove": lambda e: e.ParticleArray.remove(e.ParticleArray[0]),
    "remove child": lambda e: e.RemoveChild(e.children[-1]),
    "clear": lambda e: e.ParticleArray.clear(),
    "clean up": lambda e: e.CleanUp(),
    "add": lambda e: e.AddParticle(),
    "replace": lambda e: setattr(e, "ParticleArray", []),
    "no list": lambda e: setattr(e, "ParticleArray", tuple(e.ParticleArray)),
    "children": lambda e: e.RemoveAllChildren(),
    "draw": lambda e: e.draw(pygame.Surface((9, 9))) if e.ParticleCount > 2 else None,
    "kill": lambda e: [p.SetBeginLife(0) for p in e.ParticleArray],
    "fail": lambda e: 1 / 0,
}


@pytest.mark.parametrize("act", list(ACTS.values()), ids=list(ACTS))
@pytest.mark.parametrize("where", ["update", "draw", "UpdateGravity", "IsDead", "Clamp"])
def test_callbacks_in_the_middle_of_a_walk(screen, act, where):
    budget = [3]

    def misbehave(*args):
        budget[0] -= 1
        if budget[0] >= 0:
            act(emitter)
        return 5

    emitter = full(8, SetX=None)
    del emitter.SetX
    for index in (0, 3, 7):
        target = emitter if where == "Clamp" else emitter.ParticleArray[index]
        setattr(target, where, misbehave)
    emitter.ParticleArray[5].SetBeginLife(0)
    emitter.Run()
    for _ in range(4):
        with contextlib.suppress(ZeroDivisionError, ValueError, AttributeError, IndexError):
            emitter.update(0.1)
            emitter.draw(screen)
    if where == "Clamp":
        del emitter.Clamp
    emitter.CleanUp()
    emitter.RemoveAllChildren()
    emitter.ParticleTotal, emitter.Life, emitter.EmissionRate = 5, 90, 1e6
    emitter.Run()
    emitter.update(0.1)
    emitter.draw(screen)
    assert state(emitter) == (5, 5)


def test_clean_up_keeps_what_it_does_not_name():
    emitter = full(3, BeginColor=pygame.Color(1, 2, 3, 4), EndColorVar=pygame.Color(1, 2, 3, 4))
    child = T.GameNode(emitter)
    emitter.SetCircleMode(*range(1, 7))
    emitter.SetImage("x.png")
    emitter.SetBlendType("ADD")
    emitter.CleanUp()
    assert emitter.children == [child] and child.sortIndex == 0 and state(emitter) == (0, 1)
    expected = dict.fromkeys(CLEANED.split(), 0)
    expected.update(BeginSize=20, BeginSizeVar=10, EmissionRate=20, Duration=-1, running=False)
    expected.update(BeginColor=(255, 255, 255, 255), EndColorVar=(0, 0, 0, 255), Imagefile="x.png")
    expected.update(blendtype=pygame.BLEND_MULT, ParticleMode="Circle", RotateSpeedVar=6)
    assert {name: getattr(emitter, name) for name in expected} == expected


@pytest.mark.parametrize(
    ("given", "flag"),
    [("SUB", pygame.BLEND_SUB), ("add", pygame.BLEND_MULT), (5, 5), (None, None)],
)
def test_blend_types_reach_living_particles(given, flag):
    emitter = full(2)
    emitter.SetBlendType(given)
    assert [emitter.GetBlendType()] + [p.blendtype for p in emitter.ParticleArray] == [flag] * 3


def test_the_counter_stands_at_the_mouse(screen, monkeypatch):
    monkeypatch.setattr(pygame.mouse, "get_pos", lambda: (100, 50))
    emitter = full(3, Life=0, LifeVar=0, visible=True)
    emitter.draw(pygame.Surface((9, 9)))
    emitter.draw(screen)
    text = pygame.font.SysFont("Arial", 16).render("ParticleTotal:0 / 3 ", 0, pygame.Color("red"))
    expected = pygame.Surface((320, 240))
    expected.blit(text, (100, 50))
    assert pygame.image.tobytes(screen, "RGB") == pygame.image.tobytes(expected, "RGB")


def test_a_script_that_makes_the_fonts_is_asked_on_every_draw(screen, monkeypatch):
    font, asked = Recorder(pygame.Surface((4, 4))), []
    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: asked.append(args) or font)
    monkeypatch.setattr(pygame.mouse, "get_pos", lambda: asked.append("mouse") or (0, 0))
    emitter = T.ParticleEmitter(None)
    for total in (250, 9.5):
        emitter.SetParticleTotal(total)
        emitter.draw(screen)
    assert asked == [("Arial", 16), "mouse"] * 2
    red = pygame.Color("red")
    texts = ["ParticleTotal:0 / 250 ", "ParticleTotal:0 / 9 "]
    assert font.calls == [("render", (text, 0, red)) for text in texts]
    emitter.ParticleTotal = "many"
    with pytest.raises(TypeError):
        emitter.draw(screen)


def test_the_counter_after_pygame_was_quit(screen):
    emitter = T.ParticleEmitter(None)
    emitter.draw(screen)
    pygame.quit()
    with pytest.raises(pygame.error, match="not initialized"):
        emitter.draw(pygame.Surface((9, 9)))
    pygame.init()
    screen = pygame.display.set_mode((320, 240))
    emitter.draw(screen)
    assert ink(screen).width > 50
    pygame.font.quit()
    pygame.font.init()
    emitter.SetParticleTotal(7)
    emitter.draw(screen)


def test_a_hidden_emitter_draws_nothing(screen):
    emitter = full(3, Life=0, LifeVar=0, visible=False)
    emitter.draw(screen)
    assert ink(screen).size == (0, 0) and state(emitter) == (3, 3)


def test_drawing_raises_render_last(screen):
    emitter, scene = full(2), Recorder()
    emitter.OnLoad(scene)
    emitter.SetInnerBindingEvent("Render", "rendered", "")
    emitter.draw(screen)
    assert scene.names() == ["AddBatchCount", "AddBatchCount", "on_rendered"]
