"""Draws the pictures of the story into the folder `assets`.

The finished files are part of the game; run this only to change them. It needs pygame alone.
"""

import math
import os
import random

import pygame

ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")
WIDTH, HEIGHT = 800, 480
FINE = 3  # everything is drawn so many times larger, then scaled down
INK = (46, 34, 58)


class Sheet:
    """A picture under the brush; all numbers are in its final pixels."""

    def __init__(self, width, height, edge=(*INK, 0)):
        self.size = width, height
        self.surface = pygame.Surface((width * FINE, height * FINE), pygame.SRCALPHA, 32)
        # What is transparent takes part in scaling, so it has the colour of what it borders on.
        self.surface.fill(edge)

    def gradient(self, top, bottom, stops):
        """Rows from y to y, through colours at equal distances."""
        first, last = top * FINE, bottom * FINE
        for row in range(first, last):
            at = (row - first) / (last - first) * (len(stops) - 1)
            below = min(int(at), len(stops) - 2)
            color = pygame.Color(*stops[below]).lerp(pygame.Color(*stops[below + 1]), at - below)
            pygame.draw.line(self.surface, color, (0, row), (self.size[0] * FINE, row))

    def ellipse(self, color, x, y, radius_x, radius_y=None):
        radius_y = radius_x if radius_y is None else radius_y
        area = pygame.Rect((x - radius_x) * FINE, (y - radius_y) * FINE, 0, 0)
        area.size = 2 * radius_x * FINE, 2 * radius_y * FINE
        self.blend(color, area, pygame.draw.ellipse)

    def box(self, color, x, y, width, height, radius=0):
        area = pygame.Rect(x * FINE, y * FINE, width * FINE, height * FINE)
        self.blend(color, area, pygame.draw.rect, 0, radius * FINE)

    def blend(self, color, area, shape, *more):
        """pygame draws colours solid; half-transparent ones go over a surface of their own."""
        if len(color) == 3:
            shape(self.surface, color, area, *more)
            return
        layer = pygame.Surface(area.size, pygame.SRCALPHA, 32)
        layer.fill((*color[:3], 0))
        shape(layer, color, layer.get_rect(), *more)
        self.surface.blit(layer, area)

    def polygon(self, color, points):
        pygame.draw.polygon(self.surface, color, [(x * FINE, y * FINE) for x, y in points])

    def line(self, color, points, thickness):
        points = [(x * FINE, y * FINE) for x, y in points]
        pygame.draw.lines(self.surface, color, False, points, int(thickness * FINE))
        for point in points:
            pygame.draw.circle(self.surface, color, point, thickness * FINE / 2)

    def arc(self, color, x, y, radius_x, radius_y, start, end, thickness):
        steps = [start + (end - start) * step / 12 for step in range(13)]
        self.line(
            color,
            [(x + radius_x * math.cos(turn), y - radius_y * math.sin(turn)) for turn in steps],
            thickness,
        )

    def done(self):
        return pygame.transform.smoothscale(self.surface, self.size)

    def save(self, name, opaque=False):
        surface = self.done()
        if opaque:
            surface = coarse(surface)
        pygame.image.save(surface, os.path.join(ASSETS, name))


def coarse(surface):
    """Values in steps of four cannot be told from smooth ones and pack to half the size."""
    pixels = bytes(part & 0xFC for part in pygame.image.tobytes(surface, "RGB"))
    return pygame.image.frombytes(pixels, surface.get_size(), "RGB")


def lighthouse(sheet, x, foot, height, lit):
    wide = height * 0.11
    for part in range(6):
        low, high = part / 6, (part + 1) / 6
        color = (214, 86, 78) if part % 2 else (240, 232, 226)
        if lit:
            color = tuple(int(each * 0.42) for each in color)
        left, right = wide * (1 - 0.35 * low), wide * (1 - 0.35 * high)
        bottom, top = foot - height * low, foot - height * high
        corners = [(x - left, bottom), (x + left, bottom), (x + right, top), (x - right, top)]
        sheet.polygon(color, corners)
    top = foot - height
    dark = (38, 30, 52) if lit else (70, 66, 88)
    sheet.box(dark, x - wide * 0.95, top - 5, wide * 1.9, 6, 2)
    sheet.box((255, 232, 160) if lit else (188, 216, 226), x - wide * 0.5, top - 25, wide, 20)
    sheet.box(dark, x - 1, top - 25, 2, 20)
    sheet.polygon(dark, [(x - wide * 0.7, top - 25), (x + wide * 0.7, top - 25), (x, top - 42)])


def headland(sheet, colors, left, horizon):
    points = [(left, horizon + 4), (left + 60, horizon - 34), (left + 130, horizon - 58)]
    points += [(left + 220, horizon - 66), (WIDTH, horizon - 84), (WIDTH, horizon + 4)]
    sheet.polygon(colors[0], points)
    sheet.polygon(colors[1], [(x, y if y > horizon else y + 12) for x, y in points])


def clouds(sheet, places):
    for x, y, size in places:
        for dx, dy, radius in ((-34, 4, 16), (-14, -5, 20), (12, -3, 18), (34, 5, 13), (0, 6, 22)):
            sheet.ellipse((255, 255, 255, 120), x + dx * size, y + dy * size, radius * size)


def beach():
    rng = random.Random(3)
    sheet = Sheet(WIDTH, HEIGHT)
    sheet.gradient(0, 240, [(122, 178, 220), (176, 214, 232), (250, 232, 206)])
    for size in range(80, 36, -6):
        sheet.ellipse((255, 246, 214, 22), 180, 96, size)
    sheet.ellipse((255, 250, 232), 180, 96, 36)
    clouds(sheet, ((370, 84, 1.1), (90, 160, 0.8), (520, 150, 0.7)))
    headland(sheet, ((112, 148, 106), (128, 110, 104)), 470, 240)
    lighthouse(sheet, 650, 176, 118, lit=False)
    sheet.gradient(240, 340, [(62, 130, 168), (96, 168, 188), (150, 206, 204)])
    for _ in range(70):
        y = rng.uniform(246, 330)
        x, wide = rng.uniform(0, WIDTH), rng.uniform(10, 44) * (y - 220) / 90
        sheet.ellipse((255, 255, 255, 70), x, y, wide, 1.2)
    sheet.gradient(340, HEIGHT, [(226, 202, 158), (242, 220, 176), (214, 184, 140)])
    for step in range(17):
        sheet.ellipse((255, 255, 255), step * 52, 341 + 4 * math.sin(step * 1.7), 34, 5)
    for _ in range(90):
        x, y, size = rng.uniform(0, WIDTH), rng.uniform(362, HEIGHT), rng.uniform(1.2, 3.4)
        sheet.ellipse(rng.choice(((196, 168, 130), (232, 208, 170))), x, y, size * 1.6, size)
    sheet.save("beach.png", opaque=True)


def night():
    rng = random.Random(5)
    sheet = Sheet(WIDTH, HEIGHT)
    sheet.gradient(0, 320, [(14, 16, 44), (34, 34, 84), (84, 66, 120)])
    for _ in range(150):
        x, y = rng.uniform(0, WIDTH), 300 * rng.random() ** 1.4
        sheet.ellipse((255, 250, 230, rng.randint(80, 220)), x, y, rng.uniform(0.5, 1.3))
    for size in range(74, 34, -6):
        sheet.ellipse((255, 244, 220, 10), 150, 92, size)
    sheet.ellipse((250, 240, 220), 150, 92, 34)
    sheet.ellipse((236, 222, 204), 140, 84, 8)
    sheet.ellipse((236, 222, 204), 160, 102, 6)
    sheet.gradient(320, HEIGHT, [(44, 46, 96), (26, 28, 70), (14, 14, 44)])
    for _ in range(90):
        y = rng.uniform(326, 476)
        x = 150 + rng.gauss(0, 26 + (y - 320) * 0.3)
        sheet.ellipse((250, 236, 210, 60), x, y, rng.uniform(6, 24), 1.1)
    headland(sheet, ((24, 22, 50), (18, 16, 40)), 380, 322)
    sheet.polygon((18, 16, 40), [(380, 320), (WIDTH, 320), (WIDTH, 400), (520, 352)])
    lighthouse(sheet, 600, 254, 150, lit=True)
    sheet.save("night.png", opaque=True)


def tower():
    sheet = Sheet(WIDTH, HEIGHT)
    sheet.gradient(0, 360, [(38, 28, 48), (70, 48, 58), (104, 68, 62)])
    for x in (40, 240, 440, 640):
        sheet.box((30, 22, 40), x - 8, 40, 136, 216, 6)
        for row in range(200):
            shade = row / 200
            color = (20 + int(50 * shade), 22 + int(36 * shade), 58 + int(56 * shade))
            sheet.box(color, x, 48 + row, 120, 1.5)
        sheet.box((30, 22, 40), x + 56, 48, 8, 200)
        sheet.box((30, 22, 40), x, 144, 120, 8)
    for x, y in ((70, 80), (280, 70), (330, 120), (470, 90), (540, 66), (690, 100), (720, 70)):
        sheet.ellipse((255, 250, 230), x, y, 1.4)
    sheet.gradient(360, HEIGHT, [(66, 44, 42), (40, 28, 34)])
    for x in range(-200, 1000, 90):
        sheet.line((46, 30, 34), [(400 + (x - 400) * 0.7, 360), (x, HEIGHT)], 2)
    # The lamp: a lens of rings on an iron foot.
    for size in range(210, 90, -10):
        sheet.ellipse((255, 218, 140, 9), 400, 190, size, size * 0.94)
    sheet.polygon((52, 44, 60), [(340, 310), (460, 310), (490, 420), (310, 420)])
    sheet.box((70, 60, 78), 318, 296, 164, 18, 6)
    sheet.ellipse((120, 108, 96), 400, 190, 84, 112)
    for ring in range(8):
        color = (255, 236 - 8 * ring, 190 - 16 * ring) if ring % 2 else (226, 178, 104)
        sheet.ellipse(color, 400, 190, 76 - 9 * ring, 104 - 12.5 * ring)
    sheet.box((70, 60, 78), 330, 68, 140, 16, 6)
    sheet.polygon((52, 44, 60), [(340, 68), (460, 68), (400, 30)])
    sheet.save("tower.png", opaque=True)


def beam():
    """Light to be added, as wide to the left as to the right: black adds nothing."""
    width, height = 900, 200
    surface = pygame.Surface((width, height))
    for x in range(width):
        away = abs(x - width / 2) / (width / 2)
        half = 5 + 80 * away
        light = 0.62 * (1 - away) ** 0.8
        for y in range(height):
            across = abs(y - height / 2) / half
            if across < 1:
                strength = light * (1 - across * across) ** 1.5
                color = [int(part * strength) // 4 * 4 for part in (255, 236, 180)]
                surface.set_at((x, y), color)
    pygame.image.save(surface, os.path.join(ASSETS, "beam.png"))


def face(sheet, x, y, mood, brow, mouth):
    """Eyes, brows and mouth for a mood, about the middle of a face."""
    for side in (-1, 1):
        eye_x, eye_y = x + side * 24, y
        if mood == "glad":
            sheet.arc(INK, eye_x, eye_y + 3, 9, 8, 0.3, math.pi - 0.3, 3.2)
        else:
            size = 1.25 if mood == "startled" else 1.0
            sheet.ellipse((255, 255, 255), eye_x, eye_y, 9.5 * size, 9 * size)
            sheet.ellipse(INK, eye_x + 1, eye_y + 1, 5.6, 6.4)
            sheet.ellipse((255, 255, 255), eye_x + 3, eye_y - 2, 1.9)
        lift = {"startled": -9, "glad": -3, "sad": -2, "calm": -3}.get(mood, 0)
        inner = {"sad": -6, "stern": 6, "calm": -1}.get(mood, 0)
        near, far = (eye_x - side * 11, eye_y - 16 + lift + inner), (eye_x + side * 12, eye_y - 16)
        sheet.line(brow, [near, (far[0], far[1] + lift)], 4.5)
    if mood == "startled":
        sheet.ellipse(mouth, x, y + 40, 8, 11)
    elif mood == "glad":
        sheet.arc(mouth, x, y + 30, 19, 15, math.pi + 0.25, 2 * math.pi - 0.25, 4.5)
    elif mood == "sad":
        sheet.arc(mouth, x, y + 48, 15, 10, 0.5, math.pi - 0.5, 4)
    elif mood == "calm":
        sheet.arc(mouth, x, y + 32, 14, 7, math.pi + 0.4, 2 * math.pi - 0.4, 4)
    else:
        sheet.line(mouth, [(x - 12, y + 40), (x + 12, y + 40)], 4)


def mira(mood):
    skin, hair, coat, shade = (196, 136, 100), (58, 36, 44), (246, 190, 66), (214, 150, 48)
    sheet = Sheet(280, 340, (*shade, 0))
    for x, y, radius in (
        (86, 120, 46),
        (194, 120, 46),
        (100, 66, 46),
        (180, 66, 46),
        (140, 50, 50),
    ):
        sheet.ellipse(hair, x, y, radius)
    sheet.ellipse(hair, 82, 164, 30)
    sheet.ellipse(hair, 198, 164, 30)
    sheet.ellipse(coat, 140, 330, 118, 116)
    sheet.box(coat, 22, 320, 236, 30)
    sheet.ellipse(shade, 140, 224, 78, 34)
    sheet.box(skin, 118, 176, 44, 50, 14)
    sheet.ellipse((74, 150, 130), 140, 222, 56, 22)
    sheet.box((74, 150, 130), 158, 222, 30, 74, 10)
    sheet.ellipse(skin, 140, 130, 66, 72)
    sheet.polygon(
        hair, [(76, 116), (92, 60), (150, 52), (204, 76), (206, 116), (176, 84), (120, 88)]
    )
    sheet.line(shade, [(140, 246), (140, 340)], 3)
    for y in (272, 308):
        sheet.ellipse((120, 84, 50), 124, y, 5)
    for side in (-1, 1):
        sheet.ellipse((232, 130, 106, 110), 140 + side * 40, 160, 13, 8)
    sheet.arc((160, 100, 76), 140, 146, 7, 6, math.pi, 2 * math.pi - 0.6, 2.6)
    face(sheet, 140, 134, mood, hair, (146, 60, 62))
    sheet.save(f"mira_{mood}.png")


def tobin(mood):
    skin, beard, wool, shade = (232, 186, 160), (236, 232, 228), (52, 66, 104), (40, 50, 84)
    sheet = Sheet(280, 340, (*shade, 0))
    sheet.ellipse(wool, 140, 326, 130, 110)
    sheet.box(wool, 10, 320, 260, 30)
    for x in range(60, 230, 16):
        sheet.line(shade, [(140 + (x - 140) * 0.8, 244), (x, 340)], 2)
    sheet.ellipse(shade, 140, 236, 62, 26)
    sheet.ellipse(wool, 140, 228, 58, 22)
    sheet.ellipse(beard, 140, 186, 76, 62)
    for x in range(80, 210, 20):
        sheet.ellipse(beard, x, 220 + 14 * math.sin(x), 18, 24)
    sheet.ellipse(skin, 140, 126, 68, 66)
    for side in (-1, 1):
        sheet.ellipse(skin, 140 + side * 70, 130, 12, 18)
        sheet.ellipse(beard, 140 + side * 62, 158, 22, 30)
        sheet.ellipse((224, 140, 120, 110), 140 + side * 40, 150, 14, 9)
    sheet.ellipse(beard, 140, 182, 58, 28)
    sheet.ellipse((222, 164, 138), 140, 146, 13, 11)
    for side in (-1, 1):
        sheet.ellipse((250, 248, 244), 140 + side * 20, 161, 24, 7)
    face(sheet, 140, 130, mood, (176, 166, 164), (150, 80, 76))
    sheet.ellipse(shade, 140, 64, 78, 38)
    sheet.box(wool, 66, 60, 148, 24, 10)
    sheet.ellipse((30, 34, 54), 140, 90, 66, 12)
    sheet.ellipse((226, 184, 92), 140, 68, 10)
    sheet.save(f"tobin_{mood}.png")


def panels():
    sheet = Sheet(760, 150, (255, 238, 206, 0))
    sheet.box((255, 238, 206, 230), 0, 0, 760, 150, 18)
    sheet.box((30, 24, 56), 3, 3, 754, 144, 16)
    # Let the place shine through.
    sheet.surface.fill((255, 255, 255, 226), special_flags=pygame.BLEND_RGBA_MULT)
    sheet.save("box.png")
    looks = {"": (92, 74, 140), "_hover": (228, 140, 90), "_click": (170, 84, 70)}
    for look, color in looks.items():
        sheet = Sheet(360, 48, (255, 238, 206, 0))
        sheet.box((255, 238, 206), 0, 0, 360, 48, 22)
        sheet.box(color, 2.5, 2.5, 355, 43, 20)
        sheet.save(f"button{look}.png")
    sheet = Sheet(24, 18, (255, 214, 102, 0))
    sheet.polygon((255, 214, 102), [(2, 2), (22, 2), (12, 16)])
    sheet.save("next.png")


if __name__ == "__main__":
    os.makedirs(ASSETS, exist_ok=True)
    for place in (beach, night, tower, beam, panels):
        place()
    for mood in ("calm", "glad", "startled"):
        mira(mood)
    for mood in ("stern", "sad", "glad"):
        tobin(mood)
