"""Random calls with random values and callbacks that misbehave."""

# TESSORA_FUZZ_STEPS sets the number of steps, TESSORA_FUZZ_SEED repeats one run, and
# TESSORA_FUZZ_LOG names a file that gets every step before it is made, for runs that crash.
import collections
import contextlib
import copy
import gc
import inspect
import os
import random
import sys
from functools import partial

import pygame
import pytest
import Tessora as T
from helpers import Recorder, engine_classes, live_objects

STEPS = int(os.environ.get("TESSORA_FUZZ_STEPS", "3000"))
SEEDS = [int(s) for s in os.environ.get("TESSORA_FUZZ_SEED", "11,12,13").split(",")]
LOG = os.environ.get("TESSORA_FUZZ_LOG", os.devnull)
SMALL = [0, 1, -1, 2, 3.5, -2.25, 0.1, 30, True, False]
SCALES = [0, 1, 1.0, -1, 0.5, 1.5, float("nan"), "text", None]
FAR = [float("nan"), float("inf"), -float("inf"), 1e30, -1e30, 2.0**31, -(2**31), 2**31 - 1]
ODD = [*FAR, 10**30, -(10**30), 1e300, 2**40]
LARGE = [330, 400.5, 1000]
JUNK = [None, "", "text", "Begin", "center", "a.png", "effect.plist", b"x"]
JUNK += [(), (1, 2), [1, 2, 3, 4], len, object]
# Loops or allocations of pygame and of the game's own numbers grow with these.
BOUNDED = "border image size count gap switch font row cow total emi".split()
SCALED = ("sx", "sy", "wsx", "wsy", "scale")
KEYS = "a xyz space tab backspace return left right up down".split()
TEXTS = ["", "a", "some words in a line", "unbroken" * 9, "lines\n\nof text\n", "é你\t ш"]
ERRORS = [LookupError, ValueError, RecursionError, StopIteration]


# A scene whose maps show what else there is, and whose look-ups misbehave now and then.
class Stage:
    def __init__(self, fuzz):
        self.fuzz = fuzz
        if fuzz.rng.random() < 0.4:
            nodes = [T.GUI_Image(None), *fuzz.things, None]
            table = dict(enumerate(nodes))
            looks = [nodes.__getitem__, table.__getitem__, table.get]
            self.GetLayerResNode = fuzz.rng.choice(looks)

    def GetLayerResNode(self, index):
        return self.fuzz.misbehave() if self.fuzz.rng.random() < 0.1 else self.fuzz.thing()


def methods(cls):
    names = [n for n in dir(cls) if n == "__init__" or n[0] != "_"]
    return [n for n in names if callable(getattr(cls, n))]


class Fuzz:
    def __init__(self, seed, screen, folder):
        self.rng, self.screen, self.folder = random.Random(seed), screen, folder
        self.classes, self.things = engine_classes(T), []
        self.budget, self.taken, self.trail = 0, 0, collections.deque(maxlen=25)
        files = [os.path.join(folder, name) for name in ("x.json", "y.json", "a.png")]
        # Names of arguments, how often they get a value that fits, and what gives it.
        self.fitting = [
            ("text", 0.8, partial(self.rng.choice, TEXTS)),
            ("key keyname", 0.8, partial(self.rng.choice, KEYS)),
            ("x y wx wy px py offsetx offsety", 0.2, partial(self.rng.choice, FAR)),
            ("width height w h", 0.4, partial(self.rng.choice, LARGE)),
            ("filename plistfile atlasfile", 0.9, partial(self.rng.choice, files)),
            ("actionname curractionname", 0.9, partial(self.rng.choice, ["walk", "run"])),
            ("callbackfun", 0.7, self.callback),
            ("frameindex partindex", 0.9, partial(self.rng.randrange, 4)),
            ("screen surface picture image", 0.8, self.surface),
            ("child gamenode parent other p", 0.8, self.thing),
        ]

    def callback(self):
        return lambda *args, **params: self.misbehave()

    def surface(self):
        return self.rng.choice([self.screen, pygame.Surface((5, 9), pygame.SRCALPHA)])

    def thing(self):
        return self.rng.choice(self.things) if self.things else None

    def value(self, name):
        rng, name = self.rng, name.lower()
        if name in SCALED or "scale" in name:
            return rng.choice(SCALES)
        for names, chance, make in self.fitting:
            if name in names.split() and rng.random() < chance:
                return make()
        odd = SMALL if any(word in name for word in BOUNDED) else ODD
        # Lists among them are filled by whoever gets them.
        makers = [lambda: rng.choice(SMALL), lambda: rng.choice(odd)]
        makers += [lambda: copy.copy(rng.choice(JUNK)), self.thing, self.callback]
        makers += [lambda: rng.choice([[], {}, self.screen]), lambda: Recorder(rng.choice(SCALES))]
        if name.endswith("array") and rng.random() < 0.5:
            return [makers[0]() for _ in range(rng.randrange(20))]
        if name.startswith("sceneinstance") and rng.random() < 0.7:
            return Stage(self)
        return rng.choices(makers, [45, 7, 15, 15, 10, 5, 3])[0]()

    # About the right number of values, most of the time.
    def arguments(self, function, name):
        parameters = []
        with contextlib.suppress(TypeError, ValueError):
            parameters = list(inspect.signature(function).parameters.values())
        names = [p.name for p in parameters if p.kind <= p.POSITIONAL_OR_KEYWORD]
        names = names[names[:1] == ["self"] :]
        if not names or any(p.kind == p.VAR_POSITIONAL for p in parameters):
            names += ["value"] * self.rng.randint(0, 4)
        if self.rng.random() < 0.1:
            names = names[: self.rng.randint(0, len(names))] + ["more"] * self.rng.randint(0, 1)
        # The name of the method stands in where the argument's own name says too little.
        hint = "border" if "border" in name.lower() or "font" in name.lower() else ""
        return [self.value(n if n.lower() in SCALED else hint + n) for n in names]

    def note(self, *what):
        self.trail.append(" ".join(w if isinstance(w, str) else type(w).__name__ for w in what))
        with open(LOG, "a") as log:
            log.write(self.trail[-1] + "\n")

    def create(self):
        rng, cls = self.rng, self.rng.choice(self.classes)
        if rng.random() < 0.3:
            names = [n for n in rng.sample(dir(cls), 2) if not n.startswith("__")]
            cls = type("Script", (cls,), {n: self.callback() for n in names})
        arguments = self.arguments(cls, cls.__name__)
        if issubclass(cls, T.GameNode):
            arguments = [self.thing() if rng.random() < 0.5 else None, *arguments[1:3]]
        elif issubclass(cls, T.PyGameResManager):
            arguments = [self.folder]
        self.note("create", cls.__name__)
        self.things.append(cls(*arguments))
        if issubclass(cls, T.TiledMap) and rng.random() < 0.8:
            self.set_stage(self.things[-1])
        del self.things[:-14]

    # A small map of tiles of which most can be had.
    def set_stage(self, tilemap):
        rng = self.rng
        tilemap.OnLoad(Stage(self))
        size = rng.randrange(9), rng.randrange(9)
        tilemap.SetTiledMapInfo("stage", *size, 16, 9, rng.randrange(2))
        tilemap.Tile_Array[:] = [rng.randrange(-1, 4) for _ in tilemap.Tile_Array]

    def call(self):
        thing = self.thing()
        name = self.rng.choice(methods(type(thing)))
        if isinstance(thing, T.PyGameResManager) and name == "__init__":
            return
        self.note("call", thing, name)
        method, arguments = getattr(thing, name), self.arguments(getattr(type(thing), name), name)
        if name == "SaveToFile":
            arguments = [os.path.join(self.folder, "effect.plist")]
        method(*arguments)
        self.taken += 1

    def change_attribute(self):
        thing = self.thing()
        names = [n for n in vars(thing) if isinstance(n, str)]
        if names and self.rng.random() < 0.1:
            delattr(thing, self.rng.choice(names))
        name = self.rng.choice([*names, *[n for n in dir(type(thing)) if n[0] != "_"][:5]])
        self.note("set", thing, name)
        setattr(thing, name, self.value(name))
        self.things[0] = copy.copy(thing)

    def frame(self):
        self.note("frame")
        x, y = self.rng.choice(SMALL), self.rng.choice(SMALL + FAR)
        calls = [("OnPickDownFunction", x, 5), ("OnKeyDownFunction", self.rng.choice(KEYS))]
        calls += [("OnPickUpFunction", 3, y), ("update", x)]
        for thing in list(self.things):
            camera = () if isinstance(thing, T.GameLayer) else (0, y, 1.0)
            for name, *arguments in [*calls, ("draw", self.screen, *camera)]:
                with self.ordinary():
                    getattr(thing, name)(*arguments)

    def patch_class(self):
        cls = self.rng.choice(self.classes)
        name = self.rng.choice([n for n in methods(cls) if n in vars(cls) and n[0] != "_"])
        self.note("patch", cls.__name__, name)
        with pytest.MonkeyPatch.context() as patch:
            patch.setattr(cls, name, self.callback())
            self.frame()

    # What a callback does: change the trees and tables that the engine is walking over.
    def misbehave(self):
        rng, thing, other = self.rng, self.thing(), self.thing()
        self.budget -= 1
        roll = rng.random() if self.budget >= 0 else 2
        if roll < 0.15:
            raise rng.choice(ERRORS)("callback")
        if roll < 0.35:
            return rng.choice([*SCALES, thing])
        acts = [lambda: self.things.pop(0), gc.collect, *[self.call] * 8]
        if roll < 0.7 and isinstance(thing, T.GameNode):
            acts = [thing.RemoveAllChildren, thing.OnDestroy, thing.children.clear]
            acts += [lambda: thing.AddChild(other), lambda: thing.RemoveChild(other)]
            acts += [lambda: other.SetParent(thing), lambda: thing.RunAction(T.GAction())]
            acts += [vars(thing).clear]
        elif roll < 0.8 and isinstance(thing, T.GameLayer):
            acts = [thing.OnDestroy, thing.CleanUpGameNode, thing.GameNodeDict.clear]
        return rng.choice(acts)() if roll < 1 else None

    # Keeps trees small: shared children multiply the walks, scales multiply the pictures.
    def tame(self):
        values = [vars(t) for t in self.things if isinstance(t, T.GameNode)]
        lists = [v["children"] for v in values if type(v.get("children")) is list]
        total = sum(min(len(children), 5) for children in lists)
        for children in lists:
            del children[5 if total <= 16 else 0 :]
        for held in values:
            if self.rng.random() < 0.05 and "parent" in held:
                held["parent"] = None
            for name in ("width", "height"):
                if isinstance(held.get(name), (int, float)) and 1000 < held[name] < 1e12:
                    held[name] = 20

    @contextlib.contextmanager
    def ordinary(self):
        try:
            yield
        except SystemError as error:
            # pygame itself answers a colour like 10**30 so; from the engine it is a fault.
            if not any(word in str(error) for word in ("pygame", "function rect", "function line")):
                raise
        except Exception:  # every other error is the host's own answer
            pass

    def run(self, steps):
        choices = [self.create, self.call, self.change_attribute, self.frame, self.patch_class]
        for step in range(steps):
            self.tame()
            self.budget = 6
            with self.ordinary():
                self.rng.choices(choices, [20, 54, 18, 5, 3])[0]()
            if step % 500 == 499:
                self.things.clear()


# Raises when a run leaves objects behind or keeps memory.
def run(seed, folder):
    pygame.init()
    screen = pygame.display.set_mode((320, 240))
    pygame.image.save(pygame.Surface((6, 4)), os.path.join(folder, "a.png"))
    T.ParticleEmitter(None).SaveToFile(os.path.join(folder, "effect.plist"))
    T.Res = T.PyGameResManager(folder)
    before, steps = live_objects(T), max(1, STEPS // len(SEEDS))
    for turn in range(2):
        blocks, fuzz = sys.getallocatedblocks(), Fuzz(seed, screen, folder)
        try:
            fuzz.run(steps)
        except BaseException:
            print("last steps:", *fuzz.trail, sep="\n", file=sys.stderr)
            raise
        # A run in which nearly every call is refused would test nothing.
        assert steps < 500 or fuzz.taken > steps / 20
        del fuzz
        assert live_objects(T) == before, "objects are left behind"
        grown = sys.getallocatedblocks() - blocks
        assert turn == 0 or grown < 1000, f"{grown} blocks are kept"
    assert T.GameNode(T.GameNode(None, 3), 4).GetWX() == 7
