"""Draws the pictures of the platform game into the folder `assets`.

The finished files are part of the game; run this only to change them. It needs pygame alone.
"""

import math
import os
import random

import pygame

ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")
FINE = 4  # everything is drawn so many times larger, then scaled down
TILE = 32

OUTLINE = (52, 34, 44)
FUR, FUR_DARK, CREAM = (232, 119, 54), (190, 84, 40), (255, 236, 208)
EARTH, EARTH_DARK, EARTH_LIGHT = (134, 92, 66), (108, 72, 54), (158, 114, 82)
GRASS, GRASS_LIGHT, GRASS_DARK = (104, 176, 74), (150, 212, 96), (66, 128, 62)
STONE, STONE_DARK, STONE_LIGHT = (128, 132, 150), (96, 98, 118), (166, 170, 184)
WOOD, WOOD_DARK, WOOD_LIGHT = (186, 132, 80), (136, 90, 54), (220, 170, 112)
GOLD, GOLD_LIGHT, GOLD_DARK = (246, 186, 54), (255, 232, 140), (190, 122, 30)


class Sheet:
    """A picture under the brush; all numbers are in its final pixels."""

    def __init__(self, width, height, edge=OUTLINE):
        self.size = width, height
        self.surface = pygame.Surface((width * FINE, height * FINE), pygame.SRCALPHA, 32)
        # What is transparent takes part in scaling, so it has the colour of what it borders on.
        self.surface.fill((*edge, 0))

    def ellipse(self, colour, x, y, radius_x, radius_y=None, outline=0.0):
        radius_y = radius_x if radius_y is None else radius_y
        if outline:
            self.ellipse(OUTLINE, x, y, radius_x + outline, radius_y + outline)
        box = [(x - radius_x) * FINE, (y - radius_y) * FINE, 2 * radius_x * FINE]
        pygame.draw.ellipse(self.surface, colour, pygame.Rect(*box, 2 * radius_y * FINE))

    def polygon(self, colour, points):
        pygame.draw.polygon(self.surface, colour, [(x * FINE, y * FINE) for x, y in points])

    def box(self, colour, x, y, width, height, radius=0.0):
        box = pygame.Rect(x * FINE, y * FINE, width * FINE, height * FINE)
        pygame.draw.rect(self.surface, colour, box, 0, int(radius * FINE))

    def line(self, colour, points, thickness):
        points = [(x * FINE, y * FINE) for x, y in points]
        pygame.draw.lines(self.surface, colour, False, points, int(thickness * FINE))

    def save(self, name):
        done = pygame.transform.smoothscale(self.surface, self.size)
        pygame.image.save(done, os.path.join(ASSETS, name))


def earth(sheet, seed, stones=5):
    rng = random.Random(seed)
    sheet.box(EARTH, 0, 0, TILE, TILE)
    for _ in range(stones):
        x, y, size = rng.uniform(4, 28), rng.uniform(4, 28), rng.uniform(1.2, 2.8)
        sheet.ellipse(rng.choice((EARTH_DARK, EARTH_LIGHT)), x, y, size, size * 0.7)


def grass(sheet, seed, left, right):
    rng = random.Random(seed)
    earth(sheet, seed)
    sheet.box(GRASS_DARK, 0, 0, TILE, 11)
    for x in range(0, TILE, 4):
        sheet.polygon(GRASS_DARK, [(x, 10), (x + 4, 10), (x + 2, 13 + rng.uniform(0, 3))])
    sheet.box(GRASS, 0, 0, TILE, 8)
    for x in range(0, TILE, 4):
        sheet.polygon(GRASS, [(x, 7), (x + 4, 7), (x + 2, 9 + rng.uniform(0, 2))])
    sheet.box(GRASS_LIGHT, 0, 0, TILE, 2.5)
    if left:
        sheet.box(EARTH_DARK, 0, 9, 2, TILE)
        sheet.box(GRASS_DARK, 0, 0, 2, 13)
    if right:
        sheet.box(EARTH_DARK, TILE - 2, 9, 2, TILE)
        sheet.box(GRASS_DARK, TILE - 2, 0, 2, 13)


def write_tiles():
    for name, left, right in (("grass", 0, 0), ("grass_l", 1, 0), ("grass_r", 0, 1)):
        sheet = Sheet(TILE, TILE)
        grass(sheet, 3, left, right)
        sheet.save(name + ".png")
    for number, stones in ((1, 0), (2, 4), (3, 2)):
        sheet = Sheet(TILE, TILE)
        earth(sheet, 10 + number, stones)
        sheet.save(f"earth{number}.png")

    sheet = Sheet(TILE, TILE)
    sheet.box(STONE_DARK, 0, 0, TILE, TILE)
    for x, y, width in ((0.5, 0.5, 18), (19.5, 0.5, 12), (0.5, 16.5, 9), (10.5, 16.5, 21)):
        sheet.box(STONE, x, y, width, 15, 2.5)
        sheet.box(STONE_LIGHT, x + 1.5, y + 1, width - 3, 2.5, 1)
    sheet.save("stone.png")

    sheet = Sheet(TILE, TILE)
    for y in (0, 7.5):
        sheet.box(WOOD_DARK, 0, y, TILE, 7.5, 2)
        sheet.box(WOOD, 0, y, TILE, 6, 2)
        sheet.box(WOOD_LIGHT, 1, y + 0.8, TILE - 2, 1.4, 0.7)
    for x in (4, 28):
        sheet.ellipse(WOOD_DARK, x, 3.4, 1.1)
    sheet.save("plank.png")

    sheet = Sheet(TILE, TILE)
    for x, y, colour in ((8, 18, (244, 120, 142)), (17, 12, (255, 214, 102)), (25, 20, CREAM)):
        sheet.line(GRASS_DARK, [(x, 32), (x, y)], 1.4)
        for turn in range(5):
            angle = turn * math.tau / 5
            sheet.ellipse(colour, x + 3 * math.cos(angle), y + 3 * math.sin(angle), 2.2)
        sheet.ellipse(GOLD_DARK, x, y, 1.8)
    sheet.save("flowers.png")

    sheet = Sheet(TILE, TILE)
    for x, y, size in ((9, 24, 9), (22, 23, 10), (16, 17, 10)):
        sheet.ellipse(GRASS_DARK, x, y, size)
    for x, y, size in ((9, 22, 6), (22, 20, 7), (16, 13.5, 7)):
        sheet.ellipse(GRASS, x, y, size)
    sheet.ellipse(GRASS_LIGHT, 14, 11, 3, 2)
    sheet.save("bush.png")


def write_fox():
    sheet = Sheet(26, 24)  # body
    sheet.ellipse(FUR, 13, 12, 10, 9, 1.4)
    sheet.ellipse(CREAM, 16, 14.5, 5.4, 6)
    sheet.save("fox_body.png")

    sheet = Sheet(34, 32)  # head, looking to the right
    for x in (9, 24):
        sheet.polygon(OUTLINE, [(x - 6, 13), (x - 2 + (x > 15) * 4, 0), (x + 7, 11)])
        sheet.polygon(FUR_DARK, [(x - 4, 12), (x - 1.6 + (x > 15) * 3.4, 3.4), (x + 4.6, 11)])
    sheet.ellipse(FUR, 17, 18, 13, 11, 1.4)
    sheet.ellipse(CREAM, 22, 22.5, 8.6, 6)
    sheet.ellipse(OUTLINE, 29.5, 19.5, 2.4, 1.9)
    for x in (14, 23):
        sheet.ellipse(OUTLINE, x, 16.5, 2.3, 3.1)
        sheet.ellipse((255, 255, 255), x + 0.8, 15.4, 0.9)
    sheet.line(OUTLINE, [(21, 25), (24, 26.2), (27, 25)], 0.9)
    sheet.save("fox_head.png")

    sheet = Sheet(10, 18)  # leg, hanging from its upper end
    sheet.box(OUTLINE, 1.2, 0, 7.2, 17.6, 3.4)
    sheet.box(FUR_DARK, 2.4, 0.8, 4.8, 15.4, 2.4)
    sheet.box(OUTLINE, 1.2, 12, 8.2, 5.6, 2.6)
    sheet.save("fox_leg.png")

    sheet = Sheet(24, 24)  # tail
    sheet.ellipse(FUR, 12, 12, 9.6, 5.4, 1.4)
    sheet.ellipse(CREAM, 5, 12, 3.6, 3.8)
    sheet.save("fox_tail.png")


def write_things():
    for number, lift in ((1, 0), (2, 2)):
        sheet = Sheet(38, 28)
        for x in (9, 19, 29):
            step = lift if x == 19 else 2 - lift
            sheet.line(OUTLINE, [(x, 18), (x - 2, 27 - step)], 2.4)
        sheet.ellipse((118, 82, 160), 19, 14, 15, 11, 1.4)
        sheet.ellipse((156, 120, 196), 15, 9.5, 8, 4.5)
        sheet.line(OUTLINE, [(19, 3.5), (19, 24)], 1.2)
        sheet.ellipse((84, 58, 116), 32, 17, 5.4, 5.6, 1.2)
        sheet.ellipse((255, 255, 255), 33, 15.5, 2.2)
        sheet.ellipse(OUTLINE, 33.8, 15.8, 1.2)
        sheet.save(f"beetle{number}.png")

    for number, width in enumerate((9, 6.5, 2.5, 6.5), 1):
        sheet = Sheet(24, 24)
        sheet.ellipse(GOLD_DARK, 12, 12, width + 1.4, 10.4)
        sheet.ellipse(GOLD, 12, 12, width, 9)
        if width > 3:
            sheet.ellipse(GOLD_LIGHT, 12, 12, width * 0.62, 6)
            sheet.ellipse(GOLD, 12.4, 12.4, width * 0.5, 5)
        sheet.save(f"coin{number}.png")

    sheet = Sheet(96, 112)  # the fox's home
    sheet.box(OUTLINE, 14, 44, 68, 68, 6)
    sheet.box((196, 160, 118), 16, 46, 64, 66, 5)
    sheet.polygon(OUTLINE, [(0, 52), (48, 4), (96, 52)])
    sheet.polygon((196, 84, 72), [(6, 49.6), (48, 7.6), (90, 49.6)])
    sheet.polygon((222, 112, 92), [(20, 35), (48, 7.6), (76, 35), (48, 24)])
    sheet.box(OUTLINE, 33, 66, 30, 46, 14)
    sheet.box((120, 78, 54), 35, 68, 26, 44, 12)
    sheet.ellipse(GOLD, 56, 92, 2.2)
    sheet.ellipse(OUTLINE, 48, 38, 8.6)
    sheet.ellipse((255, 226, 140), 48, 38, 6.8)
    sheet.line(OUTLINE, [(48, 31), (48, 45)], 1.4)
    sheet.line(OUTLINE, [(41, 38), (55, 38)], 1.4)
    sheet.save("home.png")


def blend(low, high, share):
    return tuple(int(a + (b - a) * share) for a, b in zip(low, high))


def write_background():
    sky = pygame.Surface((1, 480))
    for y in range(480):
        low, high = ((98, 178, 228), (182, 224, 238)) if y < 300 else ((182, 224, 238), CREAM)
        sky.set_at((0, y), blend(low, high, y / 300 if y < 300 else (y - 300) / 180))
    sky = pygame.transform.scale(sky, (800, 480))
    sun = pygame.Surface((800, 480), pygame.SRCALPHA, 32)
    for radius in range(120, 30, -2):
        pygame.draw.circle(sun, (255, 244, 200, int(90 * (1 - radius / 120))), (620, 130), radius)
    pygame.draw.circle(sun, (255, 250, 224), (620, 130), 34)
    sky.blit(pygame.transform.smoothscale(sun, (800, 480)), (0, 0))
    pygame.image.save(sky, os.path.join(ASSETS, "sky.png"))

    sheet = Sheet(800, 260, (150, 196, 196))  # hills that meet themselves at both ends
    for colour, base, waves in (
        ((150, 196, 196), 70, ((1, 34), (3, 14))),
        ((112, 170, 150), 130, ((2, 26), (5, 8))),
        ((78, 138, 116), 190, ((1, 16), (4, 10), (9, 3))),
    ):
        line = [(-1, 261)]
        for x in range(-1, 802):
            turn = x / 800 * math.tau
            line.append((x, base - sum(size * math.sin(n * turn + base) for n, size in waves)))
        sheet.polygon(colour, [*line, (801, 261)])
    sheet.save("hills.png")


if __name__ == "__main__":
    os.makedirs(ASSETS, exist_ok=True)
    write_tiles()
    write_fox()
    write_things()
    write_background()
