"""Tools that several test folders share."""

import collections
import gc
import os
import subprocess
import sys

import pygame
import pytest
import Tessora as T

# One object of every shape that the engine has.
MAKERS = {
    "GameNode": lambda: T.GameNode(None, 1, 2),
    "GameLayer": T.GameLayer,
    "GAction": T.GAction,
    "MoveToAction": lambda: T.MoveToAction(1, 2, 3),
    "ActionPlayer": T.ActionPlayer,
    "GUI_Image": lambda: T.GUI_Image(None, 1, 2),
    "GUI_Label": T.GUI_Label,
    "GUI_Button": lambda: T.GUI_Button(None, 1, 2, "text"),
    "GameCharacter": lambda: T.GameCharacter(None, 1, 2),
    "TiledMap": lambda: T.TiledMap(None, 1, 2),
    "GUI_CheckButton": lambda: T.GUI_CheckButton(None, 1, 2, "text"),
    "GUI_RadioButton": lambda: T.GUI_RadioButton(None, 1, 2, "text"),
    "GUI_Edit": lambda: T.GUI_Edit(None, 1, 2, "text"),
    "GUI_Text": lambda: T.GUI_Text(None, 1, 2, "text"),
    "Particle": lambda: T.Particle(None, 1, 2),
    "ParticleEmitter": lambda: T.ParticleEmitter(None, 1, 2),
    "PyGameResManager": lambda: T.PyGameResManager("no such folder"),
}


# A game's scene: a size, and a record of the "on_" methods that were called.
class Scene:
    def __init__(self, size=(100, 50)):
        self.size = size
        self.calls = []

    def GetSceneSize(self):
        return self.size

    def __getattr__(self, name):
        if not name.startswith("on_"):
            raise AttributeError(name)
        return lambda **params: self.calls.append((name, params))


# Stands in for any object: every method called on it is noted and returns `result`.
class Recorder:
    def __init__(self, result=None, **results):
        self.calls, self.result, self.results = [], result, results

    def __getattr__(self, name):
        if name.startswith("_"):
            raise AttributeError(name)

        def method(*args, **params):
            self.calls.append((name, args) if not params else (name, args, params))
            return self.results.get(name, self.result)

        return method

    def names(self):
        return [call[0] for call in self.calls]


def make_node(parent=None, **values):
    node = T.GameNode(parent)
    for name, value in values.items():
        setattr(node, name, value)
    return node


# Sets the action going on a node, which it returns.
def started(action, node=None):
    node = T.GameNode(None) if node is None else node
    action.SetTarget(node)
    action.Run()
    return node


# Runs a script in a fresh interpreter that finds the same modules.
def run_script(source, *options, timeout=240):
    env = dict(os.environ, PYTHONPATH=os.pathsep.join(entry for entry in sys.path if entry))
    env.setdefault("SDL_VIDEODRIVER", "dummy")
    env.setdefault("SDL_AUDIODRIVER", "dummy")
    command = [sys.executable, *options, "-c", source]
    return subprocess.run(command, env=env, capture_output=True, text=True, timeout=timeout)


# Lines that a script printed; fails with its error text when it did not end well.
def script_output(source, *options):
    done = run_script(source, *options)
    assert done.returncode == 0, f"exit code {done.returncode}\n{done.stdout}{done.stderr}"
    return [line for line in done.stdout.splitlines() if "pygame" not in line]


# Runs named pieces of script in one fresh interpreter, after a crash the rest in another one.
# Returns by name "fine", the name of the exception, or how the interpreter ended.
def outcomes(pieces, prelude="", timeout=60):
    found, rest = {}, list(pieces.items())
    while rest:
        ending = "no end"
        try:
            done = run_script(RUNNER.format(prelude=prelude, pieces=rest), timeout=timeout)
            printed, ending = done.stdout, f"exit code {done.returncode}"
        except subprocess.TimeoutExpired as error:
            printed = error.stdout or ""
            printed = printed if isinstance(printed, str) else printed.decode()
        ended = [line.split("\t") for line in printed.splitlines() if "\t" in line]
        found.update(ended)
        rest = rest[len(ended) :]
        if rest or ending != "exit code 0":
            found[rest.pop(0)[0] if rest else "leaving"] = ending
    return found


# The pieces that did not end well, and how.
def failures(pieces, prelude="", allowed=("fine",)):
    found = {**dict.fromkeys(pieces), **outcomes(pieces, prelude)}
    return {name: how for name, how in found.items() if how not in allowed}


RUNNER = """
import pygame
import Tessora as T
pygame.init()
screen = pygame.display.set_mode((64, 48))
{prelude}
for name, piece in {pieces!r}:
    try:
        exec(piece, dict(globals()))
        result = "fine"
    except BaseException as error:
        result = type(error).__name__
    print(name, result, sep="\\t", flush=True)
"""


# The memory that a script keeps; the sanitizers keep more, and other systems tell it otherwise.
def kept_megabytes(monkeypatch, prepare, act):
    if not os.path.exists("/proc/self/statm") or "ASAN_OPTIONS" in os.environ:
        pytest.skip("memory is measured on Linux, without sanitizers")
    # So that what is freed leaves the process.
    monkeypatch.setenv("MALLOC_MMAP_THRESHOLD_", "65536")
    pages = "int(open('/proc/self/statm').read().split()[1])"
    script = f"{prepare}\nstart = {pages}\n{act}\nprint({pages} - start)"
    return int(script_output(script)[-1]) * os.sysconf("SC_PAGE_SIZE") / 1e6


# Smallest rectangle around everything that is not the background.
def ink(surface, background=(0, 0, 0)):
    copy = pygame.Surface(surface.get_size(), 0, 32)
    copy.blit(surface, (0, 0))
    copy.set_colorkey(background)
    return copy.get_bounding_rect()


def engine_classes(module):
    values = vars(module).values()
    return [v for v in values if isinstance(v, type) and v.__module__ == module.__name__]


# How many engine objects exist, by class name.
def live_objects(module):
    gc.collect()
    gc.collect()
    classes = tuple(engine_classes(module))
    return collections.Counter(type(t).__name__ for t in gc.get_objects() if isinstance(t, classes))
