"""Particles: birth, time, drawing, and what one keeps."""

import contextlib
import gc
import io
import math
import os
import random
import subprocess
import sys
import tempfile
from statistics import median

import pygame
import Tessora

from . import plain_particles
from .measure import Figure, at_most, clock, limit
from .sprites import display

POOL = 500
LARGE = 5000
DELAY = 1e-4
PLACE = 640, 480


def glow(side):
    dot = pygame.Surface((side, side), pygame.SRCALPHA, 32)
    for x in range(side):
        for y in range(side):
            away = math.hypot(x + 0.5 - side / 2, y + 0.5 - side / 2) / (side / 2)
            dot.set_at((x, y), (255, 255, 255, int(255 * max(0.0, 1.0 - away))))
    return dot


def full(preset, count, library=Tessora, **values):
    """A preset with a full pool, in which no particle dies, well inside the screen."""
    emitter = Tessora.ParticleEmitter(None, *PLACE)
    getattr(emitter, "InitPS_" + preset)()
    emitter.ParticleTotal, emitter.Life, emitter.LifeVar = count, 80.0, 10.0
    emitter.EmissionRate = 1e9
    emitter.ParticleXVar, emitter.ParticleYVar = 500, 350
    emitter.SetImage(glow(64))
    for name, value in values.items():
        setattr(emitter, name, value)
    emitter.Run()
    random.seed(1)
    if library is plain_particles:
        emitter = plain_particles.ParticleEmitter(emitter)
    emitter.update(DELAY)
    emitter.running = False
    return emitter


def updates(preset, count):
    def measure(effort):
        sides = []
        for library in (Tessora, plain_particles):
            emitter = full(preset, count, library)
            repeats = 3 if library is plain_particles else 40
            times = []
            for _ in range(effort["rounds"]):
                begin = clock()
                for _ in range(repeats):
                    emitter.update(DELAY)
                times.append((clock() - begin) / repeats / count)
            sides.append(min(times))
        return sides

    return measure


def finished(emitter):
    """The pictures of the particles as they are now, as Surface.blits takes them."""
    result, scaled = [], {}
    for particle in emitter.ParticleArray:
        side = int(particle.width)
        if side not in scaled:
            picture = pygame.transform.smoothscale(particle.image, (side, side))
            scaled[side] = picture.convert_alpha()
        picture = scaled[side].copy()
        picture.fill(particle.bgColor, special_flags=pygame.BLEND_RGBA_MULT)
        left, top = particle.WX + particle.width / 2, particle.WY + particle.width / 2
        result.append((picture, (int(left - side / 2), int(top - side / 2))))
    return result


def draws(preset, count, **values):
    """Size, place and colour of every particle are new in each frame; that step is not measured."""

    def measure(effort):
        screen = display()
        emitter = full(preset, count, **values)
        emitter.update(2.0)
        emitter.draw(screen)
        emitter.draw(screen)
        blits = finished(emitter)
        times = []
        for _ in range(4 * effort["rounds"]):
            # So near to the last frame that the pictures are of the same sizes.
            emitter.update(1e-9)
            begin = clock()
            emitter.draw(screen)
            drawn = clock()
            screen.blits(blits)
            times.append((drawn - begin, clock() - drawn))
        return [median(side) / count for side in zip(*times)]

    return measure


def emission(picture):
    """Creating and filling one; the line that is printed of a file is taken off."""

    def measure(effort):
        folder = tempfile.mkdtemp()
        pygame.image.save(glow(64), os.path.join(folder, "fire.png"))
        Tessora.Res = Tessora.PyGameResManager(folder)
        given = {"file": "fire.png", "surface": glow(64)}[picture]
        sides = []
        with contextlib.redirect_stdout(io.StringIO()):
            for library in (Tessora, plain_particles):
                best = 1.0
                for _ in range(effort["rounds"]):
                    gc.collect()
                    gc.disable()
                    emitter = Tessora.ParticleEmitter(None)
                    emitter.InitPS_Fire()
                    emitter.SetImage(given)
                    if library is plain_particles:
                        emitter = plain_particles.ParticleEmitter(emitter)
                    emitter.ParticleTotal = POOL
                    begin = clock()
                    for _ in range(POOL):
                        emitter.AddParticle()
                    best = min(best, (clock() - begin) / POOL)
                    gc.enable()
                sides.append(best)
        if picture == "file":
            sides[0] -= printing(effort)
        return sides

    return measure


def printing(effort):
    manager, best = Tessora.Res, 1.0
    with contextlib.redirect_stdout(io.StringIO()):
        for _ in range(effort["rounds"]):
            begin = clock()
            for _ in range(POOL):
                manager.ManageImageMemory("fire.png")
            best = min(best, (clock() - begin) / POOL)
    return best


MEMORY = """
import gc
from benchmarks import particles

def resident():
    with open("/proc/self/statm") as file:
        return int(file.read().split()[1]) * particles.os.sysconf("SC_PAGE_SIZE")

particles.display()
small = particles.full("Snow", 10, EndSize=5.0)
gc.disable()
before = resident()
emitter = particles.full("Snow", 20000, EndSize=5.0)
emitter.update(particles.DELAY)
emitter.draw(particles.display())
print((resident() - before) / 20000)
"""


def kept_memory(_effort):
    # In a process whose memory is not in use yet.
    script = "import pygame; pygame.init()\n" + MEMORY
    output = subprocess.check_output([sys.executable, "-c", script])
    return float(output.split()[-1]), 2048


def rain_frame(effort):
    """A whole frame of rain over the full screen: time, drawing, removal, birth."""
    screen = display()
    emitter = full("Rain", LARGE, ParticleX=0, ParticleXVar=640, ParticleYVar=480)
    emitter.EmissionRate, emitter.running = LARGE / 4.0, True
    times = []
    for _ in range(20 * effort["rounds"]):
        begin = clock()
        emitter.update(1 / 60)
        screen.fill((0, 0, 0))
        emitter.draw(screen)
        times.append(clock() - begin)
    return sorted(times)[len(times) // 2], 1 / 60


def benchmarks():
    for preset, count in (("Fire", POOL), ("Galaxy", POOL), ("Snow", POOL), ("Snow", LARGE)):
        goal = limit(0.25e-6, "0.25 us")
        yield Figure(f"particles, {preset} of {count}: update", updates(preset, count), goal)
    for preset, count in (("Fire", POOL), ("Smoke", POOL), ("Snow", POOL), ("Snow", LARGE)):
        name = f"particles, {preset} of {count}: draw against blits"
        yield Figure(name, draws(preset, count), at_most(1.2))
    turning = draws("Smoke", POOL, EndAngle=90.0)
    yield Figure("particles, turning: draw against blits", turning, at_most(3))
    for picture in ("surface", "file"):
        goal = limit(3e-6, "3 us")
        yield Figure(f"particles, birth with a {picture}", emission(picture), goal)
    if os.path.exists("/proc/self/statm"):
        yield Figure("particles, memory of one", kept_memory, limit(2048, "2048 B"), "B")
    yield Figure("particles, frame of a rain of 5000 against 1/60 s", rain_frame, at_most(1))
