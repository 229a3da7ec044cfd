"""Draws the pictures and plays the sounds of the tutorial's game into the folder `assets`.

The finished files are part of the game; run this only to change them. It needs pygame alone.
"""

import array
import math
import os
import random
import sys
import wave

import pygame

ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")
SIZE = WIDTH, HEIGHT = 640, 480
FINE = 4  # everything is drawn so many times larger, then scaled down
RATE = 11025  # samples per second

SKY = ((0, (24, 26, 68)), (190, (84, 62, 126)), (310, (206, 122, 134)), (390, (250, 186, 132)))
HILLS = (((104, 74, 122), 330, 26, 5), ((62, 52, 96), 372, 20, 3), ((34, 38, 70), 414, 14, 4))
MOON, GLOW, LIGHT = (255, 240, 206), (255, 214, 92), (255, 250, 206)
DARK, LEAF, WING = (30, 24, 48), (22, 34, 48), (226, 236, 255, 120)


class Sheet:
    """A picture under the brush; all numbers are in pixels of the picture before its zoom."""

    def __init__(self, width, height, edge=DARK, zoom=1.0):
        self.size = int(width * zoom), int(height * zoom)
        self.fine = FINE * zoom
        large = int(width * self.fine), int(height * self.fine)
        self.surface = pygame.Surface(large, pygame.SRCALPHA, 32)
        # What is transparent takes part in scaling, so it has the colour of what it borders on.
        self.surface.fill((*edge, 0))

    def ellipse(self, colour, x, y, radius_x, radius_y=None):
        radius_y = radius_x if radius_y is None else radius_y
        box = [(x - radius_x) * self.fine, (y - radius_y) * self.fine, 2 * radius_x * self.fine]
        pygame.draw.ellipse(self.surface, colour, pygame.Rect(*box, 2 * radius_y * self.fine))

    def polygon(self, colour, points):
        pygame.draw.polygon(
            self.surface, colour, [(x * self.fine, y * self.fine) for x, y in points]
        )

    def box(self, colour, x, y, width, height, radius=0.0, line=0.0):
        box = pygame.Rect(x * self.fine, y * self.fine, width * self.fine, height * self.fine)
        pygame.draw.rect(self.surface, colour, box, int(line * self.fine), int(radius * self.fine))

    def line(self, colour, points, thickness):
        points = [(x * self.fine, y * self.fine) for x, y in points]
        pygame.draw.lines(self.surface, colour, False, points, int(thickness * self.fine))

    def glow(self, colour, x, y, radius, strength):
        """Light that fades outwards, strongest in its middle."""
        for ring in range(40):
            share = 1 - ring / 40
            alpha = int(strength * (1 - share) ** 2)
            self.ellipse((*colour, alpha), x, y, radius * share)

    def save(self, name):
        done = pygame.transform.smoothscale(self.surface, self.size)
        pygame.image.save(done, os.path.join(ASSETS, name))


def sky_colour(y):
    for (top, high), (bottom, low) in zip(SKY, SKY[1:]):
        if y < bottom:
            share = (y - top) / (bottom - top)
            return [int(a + (b - a) * share) for a, b in zip(high, low)]
    return SKY[-1][1]


def write_meadow():
    rng = random.Random(8)
    sheet = Sheet(WIDTH, HEIGHT)
    for y in range(HEIGHT):
        sheet.box(sky_colour(y), 0, y, WIDTH, 1)
    for _ in range(70):
        y = rng.uniform(4, 230)
        shade = [int(part + (255 - part) * 0.75 * (1 - y / 260)) for part in sky_colour(y)]
        sheet.ellipse(shade, rng.uniform(4, 636), y, rng.choice((0.7, 0.9, 1.3)))
    sheet.ellipse(MOON, 520, 92, 34)
    for y in range(53, 115):  # what the night covers of it has the colours of the sky
        half = math.sqrt(31 * 31 - (y + 0.5 - 84) ** 2)
        sheet.box(sky_colour(y), 506 - half, y, 2 * half, 1)
    for colour, base, height, waves in HILLS:
        line = [(0, HEIGHT)]
        for x in range(0, WIDTH + 1, 4):
            turn = x / WIDTH * math.tau
            wave_height = math.sin(turn * waves / 2 + base) + 0.5 * math.sin(turn * waves + base)
            line.append((x, base - height * wave_height))
        sheet.polygon(colour, [*line, (WIDTH, HEIGHT)])
    for x, y, size in ((62, 392, 1.3), (106, 398, 0.9), (566, 384, 1.2), (606, 392, 1.6)):
        for part in range(4):
            wide, top = (9 + 7 * part) * size, y - (96 - 22 * part) * size
            points = [(x, top), (x + wide, top + 40 * size), (x - wide, top + 40 * size)]
            sheet.polygon(DARK, points)
        sheet.box(DARK, x - 3 * size, y - 10 * size, 6 * size, 40 * size)
    sheet.box((24, 30, 56), 0, 440, WIDTH, 40)
    sheet.save("meadow.png")


def write_grass():
    rng = random.Random(3)
    sheet = Sheet(WIDTH, 96, LEAF)
    for _ in range(420):
        x, height, lean = rng.uniform(-8, 648), rng.uniform(24, 66), rng.uniform(-14, 14)
        shade = rng.choice((LEAF, (28, 44, 58), (18, 26, 40)))
        middle = (x + lean * 0.35, 96 - height * 0.6)
        sheet.polygon(shade, [(x - 2.4, 96), middle, (x + lean, 96 - height), (x + 2.4, 96)])
    for x in (38, 150, 236, 470, 590):
        height = rng.uniform(66, 84)
        sheet.line(LEAF, [(x, 96), (x + 3, 96 - height)], 1.6)
        sheet.ellipse((58, 44, 56), x + 3, 96 - height, 2.8, 9)
    sheet.save("grass.png")


def write_flyers():
    for number, lift in ((1, 9), (2, 3)):
        sheet = Sheet(64, 64, GLOW, 1.25)
        sheet.glow(GLOW, 32, 36, 28, 235)
        for side in (-1, 1):
            tip = (32 + side * 20, 28 - lift)
            points = [(32, 27), tip, (32 + side * 22, 33 - lift), (32 + side * 3, 32)]
            sheet.polygon(WING, points)
        sheet.ellipse(DARK, 32, 24, 4)
        sheet.ellipse((70, 46, 60), 32, 30, 4.4, 6)
        sheet.ellipse(GLOW, 32, 39, 5, 7.4)
        sheet.ellipse(LIGHT, 32, 40, 3, 5)
        for side in (-1, 1):
            sheet.line(DARK, [(32 + side * 2, 21), (32 + side * 6, 15)], 0.8)
        sheet.save(f"firefly_{number}.png")

    for number, lift in ((1, 8), (2, -2)):
        sheet = Sheet(64, 64, (176, 152, 170), 1.1)
        for side in (-1, 1):
            upper = [(32, 28), (32 + side * 26, 18 - lift), (32 + side * 25, 34 - lift), (32, 36)]
            lower = [(32, 33), (32 + side * 19, 37 - lift / 2), (32 + side * 13, 50 - lift / 3)]
            sheet.polygon((146, 122, 146), lower)
            sheet.polygon((176, 152, 170), upper)
            sheet.ellipse((112, 84, 116), 32 + side * 17, 27 - lift * 0.7, 3.4)
        sheet.ellipse((86, 62, 88), 32, 36, 4, 11)
        sheet.ellipse((112, 84, 106), 32, 26, 4.4)
        for side in (-1, 1):
            sheet.ellipse((255, 120, 110), 32 + side * 2, 25, 1.3)
            sheet.line((86, 62, 88), [(32 + side, 23), (32 + side * 8, 14)], 1)
        sheet.save(f"moth_{number}.png")


def write_jar():
    sheet = Sheet(110, 140, (200, 226, 240))
    sheet.box((190, 220, 240, 46), 8, 24, 94, 112, 22)
    sheet.box((222, 240, 250, 150), 8, 24, 94, 112, 22, 2)
    sheet.box((190, 220, 240, 70), 20, 14, 70, 14, 5)
    sheet.box((222, 240, 250, 170), 20, 14, 70, 14, 5, 2)
    sheet.box((255, 255, 255, 120), 18, 42, 7, 58, 3.5)
    sheet.box((255, 255, 255, 90), 18, 106, 7, 12, 3.5)
    sheet.save("jar.png")


def write_buttons():
    looks = {"": (58, 52, 104), "_over": (92, 78, 148), "_down": (38, 34, 74)}
    for name, colour in looks.items():
        sheet = Sheet(200, 56, GLOW)
        sheet.box(GLOW, 0, 0, 200, 56, 26)
        sheet.box(colour, 2.5, 2.5, 195, 51, 24)
        sheet.save(f"button{name}.png")


def tone(pitch, seconds, decay, bend=0.0):
    """`bend` is the share of its pitch that the tone gains in a second."""
    samples = []
    for index in range(int(RATE * seconds)):
        time = index / RATE
        phase = math.tau * pitch * (time + 0.5 * bend * time * time)
        sound = math.sin(phase) + 0.25 * math.sin(2 * phase) * math.exp(-time * decay)
        fade = min(time / 0.006, (seconds - time) / 0.03, 1.0)
        samples.append(sound * math.exp(-time * decay) * fade)
    return samples


def write_sound(name, seconds, *notes):
    """Notes are (start in seconds, samples, volume)."""
    mixed = [0.0] * int(RATE * seconds)
    for start, samples, volume in notes:
        for index, value in enumerate(samples, int(start * RATE)):
            mixed[index % len(mixed)] += volume * value
    values = array.array("h", (int(32000 * max(-1.0, min(1.0, value))) for value in mixed))
    if sys.byteorder == "big":
        values.byteswap()
    with wave.open(os.path.join(ASSETS, name), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(values.tobytes())


def write_sounds():
    def note(steps):
        return 261.63 * 2 ** (steps / 12)

    write_sound(
        "catch.wav", 0.5, (0, tone(note(12), 0.2, 12), 0.3), (0.08, tone(note(19), 0.4, 9), 0.3)
    )
    write_sound("click.wav", 0.12, (0, tone(note(7), 0.1, 30), 0.35))
    write_sound("oops.wav", 0.5, (0, tone(note(-4), 0.45, 5, -1.0), 0.4))
    tune = ((0, 7), (0.14, 12), (0.28, 16), (0.42, 19))
    write_sound("win.wav", 1.3, *((at, tone(note(steps), 0.8, 4), 0.2) for at, steps in tune))
    chirps = [
        (0.5 * turn + 0.045 * beat, 3400 + 90 * (turn % 2))
        for turn in range(8)
        for beat in range(4)
    ]
    write_sound("night.wav", 4.0, *((at, tone(pitch, 0.035, 20), 0.06) for at, pitch in chirps))


if __name__ == "__main__":
    os.makedirs(ASSETS, exist_ok=True)
    write_meadow()
    write_grass()
    write_flyers()
    write_jar()
    write_buttons()
    write_sounds()
