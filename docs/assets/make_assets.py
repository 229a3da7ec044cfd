"""Draws the pictures and plays the sound that the manual's code uses, into this folder.

The finished files are part of the repository; run this only to change them. It needs pygame.
"""

import math
import os
import plistlib
import random
import struct
import wave

import pygame

HERE = os.path.dirname(os.path.abspath(__file__))
INK = (58, 40, 72)
# Shapes are drawn this many times larger and scaled down, for smooth edges.
FINE = 8


def drawn(width, height, paint):
    """A picture of that size; `paint` draws it with `FINE` pixels for one."""
    large = pygame.Surface((width * FINE, height * FINE), pygame.SRCALPHA)
    paint(large)
    return pygame.transform.smoothscale(large, (width, height))


def circle(surface, color, x, y, radius):
    pygame.draw.circle(surface, color, (x * FINE, y * FINE), radius * FINE)


def box(surface, color, x, y, width, height, radius=0):
    rect = pygame.Rect(x * FINE, y * FINE, width * FINE, height * FINE)
    pygame.draw.rect(surface, color, rect, border_radius=int(radius * FINE))


def polygon(surface, color, points):
    pygame.draw.polygon(surface, color, [(x * FINE, y * FINE) for x, y in points])


def line(surface, color, start, end, width):
    """A stroke with round ends."""
    (x1, y1), (x2, y2) = start, end
    length = math.hypot(x2 - x1, y2 - y1) or 1
    dx, dy = -(y2 - y1) / length * width / 2, (x2 - x1) / length * width / 2
    corners = [(x1 + dx, y1 + dy), (x2 + dx, y2 + dy), (x2 - dx, y2 - dy), (x1 - dx, y1 - dy)]
    polygon(surface, color, corners)
    circle(surface, color, x1, y1, width / 2)
    circle(surface, color, x2, y2, width / 2)


def hero(surface, stride=0.0, lift=0.0):
    """A round-headed figure that looks to the right; `stride` sets the legs apart, in pixels."""
    up = -lift
    for side, shade in ((-1, (60, 66, 120)), (1, (78, 86, 150))):
        foot = 24 + side * stride
        line(surface, shade, (24, 44 + up), (foot, 58), 7)
        line(surface, INK, (foot, 60), (foot + 4, 60), 6)
    line(surface, (226, 120, 70), (20, 32 + up), (20 - stride * 0.8, 42 + up), 6)
    box(surface, INK, 13, 25 + up, 22, 23, 9)
    box(surface, (240, 140, 80), 15, 27 + up, 18, 19, 8)
    circle(surface, INK, 25, 16 + up, 15)
    circle(surface, (255, 220, 180), 25, 16 + up, 13)
    polygon(surface, (120, 70, 50), [(12, 15 + up), (14, 6 + up), (25, 2 + up), (37, 10 + up)])
    circle(surface, INK, 27, 18 + up, 2)
    circle(surface, INK, 34, 18 + up, 2)
    line(surface, (220, 110, 110), (28, 23 + up), (33, 23 + up), 1.6)
    line(surface, (240, 140, 80), (28, 32 + up), (29 + stride * 0.8, 41 + up), 6)


def coin(surface):
    circle(surface, (190, 120, 30), 16, 16, 15)
    circle(surface, (255, 205, 70), 16, 16, 13)
    circle(surface, (232, 168, 48), 16, 16, 10)
    circle(surface, (255, 216, 96), 16, 16, 8.6)
    box(surface, (190, 120, 30), 14, 10, 4, 12, 2)
    circle(surface, (255, 244, 200), 11, 9, 2)


def tree(surface):
    box(surface, (104, 70, 50), 27, 60, 11, 36, 3)
    for x, y, radius in ((32, 26, 24), (18, 46, 17), (46, 46, 17), (32, 52, 18)):
        circle(surface, (38, 96, 66), x, y, radius)
    for x, y, radius in ((32, 25, 21), (18, 45, 14), (46, 45, 14), (32, 51, 15)):
        circle(surface, (66, 144, 84), x, y, radius)
    for x, y, radius in ((26, 18, 8), (14, 41, 5), (40, 39, 5)):
        circle(surface, (112, 184, 100), x, y, radius)


def sky():
    surface = pygame.Surface((640, 480))
    for y in range(480):
        part = y / 480
        color = [round(a + (b - a) * part) for a, b in ((96, 214), (168, 238), (232, 250))]
        surface.fill(color, (0, y, 640, 1))
    chance = random.Random(4)
    for x, y in ((90, 80), (330, 130), (520, 60), (210, 240)):
        cloud = pygame.Surface((180, 80), pygame.SRCALPHA)
        for step in range(7):
            at = (30 + 20 * step, 48 - chance.randint(0, 10))
            pygame.draw.circle(cloud, (255, 255, 255), at, 16 + 9 * (step in (2, 3, 4)))
        cloud.set_alpha(170)
        surface.blit(cloud, (x - 60, y - 30))
    return surface


def tiles(surface):
    """Four tiles of 32 x 32 pixels in a row: earth, grass, stone, water."""
    chance = random.Random(7)
    colors = ((146, 98, 66), (146, 98, 66), (136, 140, 158), (84, 158, 214))
    for column, color in enumerate(colors):
        left = 32 * column
        box(surface, color, left, 0, 32, 32)
        darker = [part - 22 for part in color]
        for _ in range(6 if column < 3 else 0):
            at = left + chance.randint(4, 28), chance.randint(12, 28)
            circle(surface, darker, at[0], at[1], chance.choice((1.5, 2, 3)))
    box(surface, (96, 176, 84), 32, 0, 32, 9)
    for step in range(4):
        circle(surface, (96, 176, 84), 36 + 8 * step, 9, 3.5)
    for row in (10, 21):
        for step in range(2):
            start = 101 + 14 * step + (row == 21) * 2
            line(surface, (190, 226, 246), (start, row), (start + 7, row), 2)


def run_frames():
    steps = ((9, 0), (2, 1), (-9, 0), (-2, 1))
    return [drawn(48, 64, lambda large, step=step: hero(large, *step)) for step in steps]


def write_sprites():
    """The frames side by side, with the list that names their places and an animation."""
    frames = run_frames()
    sheet = pygame.Surface((4 * 50 - 2, 64), pygame.SRCALPHA)
    entries = {}
    for index, frame in enumerate(frames):
        sheet.blit(frame, (50 * index, 0))
        entries[f"run_{index}"] = {
            "frame": f"{{{{{50 * index},0}},{{48,64}}}}",
            "offset": "{0,0}",
            "rotated": False,
            "sourceColorRect": "{{0,0},{48,64}}",
            "sourceSize": "{48,64}",
        }
    save(sheet, "sprites.png")
    names = list(entries)
    write_list("sprites.plist", {"frames": entries, "metadata": {"textureFileName": "sprites.png"}})
    write_list("animations.plist", {"animations": {"run": {"delay": 0.12, "frames": names}}})


def write_list(name, content):
    with open(os.path.join(HERE, name), "wb") as file:
        plistlib.dump(content, file)


def write_click():
    rate, seconds = 22050, 0.08
    count = int(rate * seconds)
    samples = [
        int(14000 * math.sin(math.tau * 880 * i / rate) * (1 - i / count) ** 3)
        for i in range(count)
    ]
    with wave.open(os.path.join(HERE, "click.wav"), "wb") as file:
        file.setparams((1, 2, rate, 0, "NONE", ""))
        file.writeframes(struct.pack(f"<{count}h", *samples))


def save(surface, name):
    pygame.image.save(surface, os.path.join(HERE, name))


def main():
    save(drawn(48, 64, hero), "hero.png")
    save(drawn(32, 32, coin), "coin.png")
    save(drawn(64, 96, tree), "tree.png")
    save(sky(), "sky.png")
    save(drawn(128, 32, tiles), "tiles.png")
    write_sprites()
    write_click()


if __name__ == "__main__":
    main()
