"""Draws the pictures of Star Catcher into the folder `assets`.

The finished files are part of the game; run this only to change them. It needs numpy and Pillow
besides pygame, whose TrueType file writes the title.
"""

import math
import os
import plistlib

import numpy as np
import pygame
from PIL import Image, ImageDraw, ImageFilter, ImageFont

ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")
FONT = os.path.join(os.path.dirname(pygame.__file__), pygame.font.get_default_font())
WIDTH, HEIGHT = 800, 480
INK = (74, 34, 66)


def rgb(text):
    return np.array([int(text[i : i + 2], 16) for i in (0, 2, 4)], float)


def gradient(at, stops):
    """Colour at each value of `at`; `stops` is a list of (value, "rrggbb")."""
    positions = [position for position, _ in stops]
    colours = np.array([rgb(colour) for _, colour in stops])
    return np.stack([np.interp(at, positions, colours[:, c]) for c in range(3)], axis=-1)


class Canvas:
    """Layers of premultiplied colour, painted through distance fields (negative is inside)."""

    def __init__(self, width, height):
        self.y, self.x = np.mgrid[0:height, 0:width] + 0.5
        self.colour = np.zeros((height, width, 3))
        self.alpha = np.zeros((height, width))

    def paint(self, coverage, colour):
        coverage = np.clip(coverage, 0, 1)
        self.colour = self.colour * (1 - coverage[..., None]) + coverage[..., None] * colour
        self.alpha = self.alpha * (1 - coverage) + coverage

    def fill(self, distance, colour, opacity=1.0):
        self.paint(np.clip(0.5 - distance, 0, 1) * opacity, np.asarray(colour, float))

    def glow(self, distance, colour, radius, opacity):
        falloff = np.exp(-np.square(np.maximum(distance, 0) / radius))
        # The tail of the bell is cut, so that frames keep a clear edge to be trimmed to.
        self.paint((falloff - 0.015) * opacity, np.asarray(colour, float))

    def ellipse(self, x, y, rx, ry):
        return (np.hypot((self.x - x) / rx, (self.y - y) / ry) - 1) * min(rx, ry)

    def box(self, x, y, half_width, half_height, radius):
        dx = np.abs(self.x - x) - half_width + radius
        dy = np.abs(self.y - y) - half_height + radius
        outside = np.hypot(np.maximum(dx, 0), np.maximum(dy, 0))
        return outside + np.minimum(np.maximum(dx, dy), 0) - radius

    def segment(self, x1, y1, x2, y2, radius):
        dx, dy = x2 - x1, y2 - y1
        t = np.clip(((self.x - x1) * dx + (self.y - y1) * dy) / (dx * dx + dy * dy), 0, 1)
        return np.hypot(self.x - x1 - t * dx, self.y - y1 - t * dy) - radius

    def polygon(self, points):
        distance = np.full(self.x.shape, np.inf)
        inside = np.zeros(self.x.shape, bool)
        for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
            distance = np.minimum(distance, self.segment(x1, y1, x2, y2, 0))
            if y1 != y2:
                crossing = x1 + (self.y - y1) * (x2 - x1) / (y2 - y1)
                inside ^= ((y1 > self.y) != (y2 > self.y)) & (self.x < crossing)
        return np.where(inside, -distance, distance)

    def star(self, x, y, points, outer, inner, angle=0.0):
        corners = []
        for i in range(2 * points):
            radius = inner if i % 2 else outer
            turn = math.radians(angle) + math.pi * i / points
            corners.append((x + radius * math.sin(turn), y - radius * math.cos(turn)))
        return self.polygon(corners)

    def image(self, premultiplied=False, step=4):
        """Values in steps of four cannot be told from smooth ones and pack to half the size."""
        colour = self.colour
        if not premultiplied:
            colour = colour / np.maximum(self.alpha, 1e-6)[..., None]
        pixels = np.dstack([colour, self.alpha * 255])
        pixels[self.alpha * 255 < 0.5] = 0
        pixels = np.clip(np.rint(pixels / step) * step, 0, 255)
        return Image.fromarray(pixels.astype(np.uint8), "RGBA")


def face(c, x, y, size, blink=False, grumpy=False):
    for side in (-1, 1):
        ex = x + side * size * 0.34
        if blink:
            c.fill(c.segment(ex - size * 0.1, y, ex + size * 0.1, y, size * 0.045), INK)
        else:
            c.fill(c.ellipse(ex, y, size * 0.11, size * 0.15), INK)
            c.fill(
                c.ellipse(ex - size * 0.03, y - size * 0.06, size * 0.04, size * 0.05), [255] * 3
            )
        if grumpy:
            brow = c.segment(ex + side * size * 0.18, y - size * 0.3, x + side * size * 0.16,
                             y - size * 0.16, size * 0.05)  # fmt: skip
            c.fill(brow, INK)
        else:
            cheek = c.ellipse(x + side * size * 0.5, y + size * 0.2, size * 0.12, size * 0.08)
            c.fill(cheek, rgb("ff7a8a"), 0.55)
    ring = np.abs(np.hypot(c.x - x, c.y - y - size * (0.42 if grumpy else 0.06)) - size * 0.17)
    half = c.y < y + size * 0.32 if grumpy else c.y > y + size * 0.12
    c.fill(np.where(half, ring - size * 0.045, 9.0), INK)


def star_frame(phase, blink=False):
    c = Canvas(88, 88)
    swing = math.sin(math.tau * phase)
    size = 27 + 1.2 * swing
    body = c.star(44, 45, 5, size, size * 0.56, 5 * math.cos(math.tau * phase)) - 5
    c.glow(body, rgb("ffd76a"), 6.5 + 1.0 * swing, 0.55)
    c.fill(body - 1.6, rgb("d9772b"))
    shade = gradient((c.x + 2.2 * c.y) / 88, [(0.9, "fff6b8"), (1.6, "ffd84f"), (2.4, "ffab3d")])
    c.fill(body + 0.6, shade)
    c.fill(np.maximum(body + 4, c.ellipse(37, 31, 13, 9)), rgb("fffbe2"), 0.75)
    face(c, 44, 46, 24, blink)
    return c.image()


def comet_frame(phase):
    c = Canvas(120, 60)
    for i in range(18):
        x = 84 - 3.9 * i
        wave = 2.4 * math.sin(math.tau * (phase + i / 9)) * i / 18
        shade = gradient(np.array(i / 18), [(0, "8ff4ff"), (0.5, "6f9dff"), (1, "b37bff")])
        c.fill(c.ellipse(x, 30 + wave, 15 - 0.72 * i, 15 - 0.76 * i), shade, 0.26)
    body = c.star(88, 30, 6, 17, 13.5, 60 * phase) - 3
    c.glow(body, rgb("7fe9ff"), 5.0, 0.55)
    c.fill(body - 1.3, rgb("3a78d8"))
    c.fill(body + 0.4, gradient((c.x + 2 * c.y) / 60, [(1.8, "f0ffff"), (2.4, "9cf0ff"),
                                                      (3.0, "5cb8ff")]))  # fmt: skip
    face(c, 89, 29, 17)
    return c.image()


def grump_frame(phase):
    c = Canvas(84, 84)
    swing = math.sin(math.tau * phase)
    body = c.star(42, 42, 11, 28 + 1.4 * swing, 20, 8 * math.cos(math.tau * phase)) - 2
    c.glow(body, rgb("ff4f7d"), 6.0, 0.40 + 0.12 * swing)
    c.fill(body - 1.4, rgb("2a1038"))
    c.fill(body + 0.6, gradient((c.x + 2 * c.y) / 84, [(0.9, "b06be0"), (1.5, "7a3db8"),
                                                      (2.2, "4a2386")]))  # fmt: skip
    c.fill(c.ellipse(42, 43, 17, 16), rgb("a873dc"), 0.55)
    face(c, 42, 42, 22, grumpy=True)
    return c.image()


def burst_frame(index):
    """Light to be added: premultiplied, so that clear pixels add nothing."""
    c = Canvas(104, 104)
    t = (index + 0.6) / 5.4
    fade = (1 - t) ** 0.8
    reach = 47 * (1 - (1 - t) ** 2.2)
    away = np.hypot(c.x - 52, c.y - 52)
    if index < 3:
        c.glow(away, rgb("ffcf80"), 30 * (1 - t) ** 2, (1 - t) ** 2)
    c.fill(np.abs(away - reach * 0.8) - 2.5 * fade, rgb("ff9a5c"), 0.6 * fade)
    for i in range(10):
        turn = math.tau * i / 10
        far = reach * (0.92 if i % 2 else 0.62)
        x, y = 52 + far * math.cos(turn), 52 + far * math.sin(turn)
        size = (9.0 if i % 2 else 6.5) * (0.3 + 0.7 * fade)
        c.fill(c.star(x, y, 4, size, size * 0.34, 45 * t), rgb("fff3c4"), fade**0.5)
    return c.image(premultiplied=True)


def net_frame():
    """A butterfly net; its ring lies at the centre, about which widgets turn."""
    c = Canvas(168, 168)
    c.fill(c.segment(103, 103, 160, 160, 4.2), rgb("4a2a3c"))
    c.fill(c.segment(103, 103, 160, 160, 2.6), rgb("d9935a"))
    c.fill(c.segment(140, 140, 160, 160, 3.4), rgb("ff7d92"))
    disc = np.hypot(c.x - 84, c.y - 84) - 28
    c.fill(disc, rgb("e9f4ff"), 0.13)
    mesh = np.minimum(np.abs((c.x + c.y) % 11 - 5.5), np.abs((c.x - c.y) % 11 - 5.5))
    c.fill(np.maximum(mesh * 0.7 - 0.25, disc), rgb("f2f8ff"), 0.5)
    c.fill(np.abs(disc) - 3.2, rgb("4a2a3c"))
    c.fill(np.abs(disc) - 1.8, rgb("ffe0a6"))
    return c.image()


def clock_frame():
    c = Canvas(40, 40)
    c.fill(c.ellipse(20, 20, 17, 17), rgb("4a2a5c"))
    c.fill(c.ellipse(20, 20, 14.5, 14.5), rgb("ff9db0"))
    c.fill(c.ellipse(20, 20, 11.5, 11.5), rgb("fff5e6"))
    c.fill(c.segment(20, 20, 20, 12, 1.5), INK)
    c.fill(c.segment(20, 20, 25, 22, 1.5), INK)
    return c.image()


def plist_size(width, height):
    return "{" + f"{width},{height}" + "}"


def plist_rect(x, y, width, height):
    return "{" + plist_size(x, y) + "," + plist_size(width, height) + "}"


def write_atlas():
    frames = {f"star_{i}": star_frame(i / 6) for i in range(6)}
    frames["star_blink"] = star_frame(0, blink=True)
    frames.update({f"comet_{i}": comet_frame(i / 4) for i in range(4)})
    frames.update({f"grump_{i}": grump_frame(i / 4) for i in range(4)})
    frames.update({f"burst_{i}": burst_frame(i) for i in range(5)})
    frames.update({"net": net_frame(), "clock": clock_frame()})

    entries, x, y, row, sheet = {}, 1, 1, 0, Image.new("RGBA", (512, 1024))
    for name, image in sorted(frames.items(), key=lambda item: -item[1].height):
        width, height = image.size
        left, top, right, bottom = image.getbbox()
        # Cut alike on both sides, so that the frame stays centred in its full size.
        cut_x, cut_y = min(left, width - right), min(top, height - bottom)
        image = image.crop((cut_x, cut_y, width - cut_x, height - cut_y))
        turned = name.startswith("comet") or name == "net"
        area = image.transpose(Image.Transpose.ROTATE_270) if turned else image
        if x + area.width + 1 > sheet.width:
            x, y, row = 1, y + row + 1, 0
        sheet.paste(area, (x, y))
        entries[name] = {
            "frame": plist_rect(x, y, *image.size),
            "offset": "{0,0}",
            "rotated": turned,
            "sourceColorRect": plist_rect(cut_x, cut_y, *image.size),
            "sourceSize": plist_size(width, height),
        }
        x, row = x + area.width + 1, max(row, area.height)
    sheet = sheet.crop((0, 0, 512, y + row + 1))
    sheet.save(os.path.join(ASSETS, "sprites.png"), optimize=True)

    beat = [f"star_{i}" for i in range(6)]
    animations = {
        "star": {"frames": beat * 2 + ["star_blink"] + beat[1:], "delay": 0.11},
        "comet": {"frames": [f"comet_{i}" for i in range(4)], "delay": 0.08},
        "grump": {"frames": [f"grump_{i}" for i in range(4)], "delay": 0.12},
        "burst": {"frames": [f"burst_{i}" for i in range(5)], "delay": 0.07},
        "net": {"frames": ["net"], "delay": 1.0},
        "clock": {"frames": ["clock"], "delay": 1.0},
    }
    size = plist_size(*sheet.size)
    metadata = {"format": 2, "textureFileName": "sprites.png", "size": size}
    ordered = {name: entries[name] for name in frames}
    for file, content in (
        ("sprites.plist", {"frames": ordered, "metadata": metadata}),
        ("animations.plist", {"animations": animations}),
    ):
        with open(os.path.join(ASSETS, file), "wb") as out:
            plistlib.dump(content, out, sort_keys=False)


def save(canvas, name, mode="RGBA", step=4):
    canvas.image(step=step).convert(mode).save(os.path.join(ASSETS, name), optimize=True)


def write_sky():
    c = Canvas(WIDTH, HEIGHT)
    stops = [(0, "15123c"), (130, "2a2160"), (250, "57357f"), (340, "a0548f"), (410, "ee8a92"),
             (480, "ffc79a")]  # fmt: skip
    c.paint(np.ones_like(c.alpha), gradient(c.y, stops))
    rng = np.random.RandomState(7)
    for _ in range(110):
        x, y = rng.uniform(0, WIDTH), 300 * rng.uniform(0, 1) ** 1.5
        light = rng.uniform(0.25, 0.9) * (1 - y / 340)
        c.glow(np.hypot(c.x - x, c.y - y), rgb("fff4e0"), rng.uniform(0.8, 1.6), light)
    mx, my = 712, 88
    moon = np.hypot(c.x - mx, c.y - my) - 46
    c.glow(moon, rgb("ffd9c0"), 90, 0.11)
    c.glow(moon, rgb("ffe9d0"), 18, 0.35)
    c.fill(moon, gradient(c.x - mx + c.y - my, [(-62, "fffaf0"), (62, "ffdcb8")]))
    for x, y, r in ((-13, -13, 11), (17, 13, 14), (-8, 21, 7), (24, -16, 6)):
        crater = np.hypot(c.x - mx - x, c.y - my - y) - r
        c.fill(np.maximum(crater, moon), rgb("f3c7a6"), 0.45)
    save(c, "sky.png", "RGB", step=1)


def ridge(c, base, waves, seed):
    """A skyline that repeats after the canvas's width."""
    rng = np.random.RandomState(seed)
    turn = math.tau * c.x[0] / c.x.shape[1]
    return base + sum(size * np.sin(n * turn + rng.uniform(0, math.tau)) for n, size in waves)


def write_hills():
    c = Canvas(2 * WIDTH, 200)
    for base, colours, seed in ((62, ("a9609a", "e08c98"), 5), (112, ("6d3f86", "b0628f"), 8)):
        line = ridge(c, base, [(3, 22), (5, 14), (8, 9), (13, 4)], seed)
        stops = [(base - 50, colours[0]), (base + 90, colours[1])]
        c.fill(line[None, :] - c.y, gradient(c.y, stops))
    save(c, "hills_far.png", step=2)

    c = Canvas(2 * WIDTH, 130)
    line = ridge(c, 62, [(2, 12), (4, 9), (7, 5)], 21)
    dark = gradient(c.y, [(10, "3a2468"), (130, "1c1240")])
    c.fill(line[None, :] - c.y, dark)
    rng = np.random.RandomState(4)
    for x in np.sort(rng.uniform(20, 2 * WIDTH - 20, 46)):
        foot, tall = line[int(x)] + 4, rng.uniform(16, 36)
        for step in range(3):
            top = foot - tall * (1 - 0.25 * step)
            wide, bottom = tall * (0.16 + 0.07 * step), top + tall * 0.42
            c.fill(c.polygon([(x, top), (x + wide, bottom), (x - wide, bottom)]), dark)
    for x in (210, 248, 760, 1190, 1228, 1260):
        foot = line[x] + 3
        c.fill(c.box(x, foot - 9, 13, 11, 1), rgb("2a1a55"))
        roof = [(x - 18, foot - 19), (x, foot - 34), (x + 18, foot - 19)]
        c.fill(c.polygon(roof), rgb("4a2a70"))
        c.glow(c.box(x, foot - 9, 4, 4, 0.5), rgb("ffb45e"), 5, 0.5)
        c.fill(c.box(x, foot - 9, 4, 4, 0.5), rgb("ffdf8e"))
    save(c, "hills_near.png", step=2)


def write_glow():
    """The soft white dot that particles tint."""
    c = Canvas(64, 64)
    away = np.hypot(c.x - 32, c.y - 32) / 31
    c.paint(np.clip(1 - away, 0, 1) ** 1.3, np.array([255.0] * 3))
    save(c, "fire.png")


def write_widgets():
    looks = {
        "button.png": ("ff9fa8", "d8558f", 0.10),
        "button_hover.png": ("ffc4a0", "f0698f", 0.55),
        "button_click.png": ("b8447f", "8a3478", 0.10),
    }
    for name, (light, dark, shine) in looks.items():
        c = Canvas(216, 76)
        pill = c.box(108, 36, 94, 25, 25)
        c.glow(c.box(108, 40, 94, 25, 25), rgb("140a30"), 6, 0.45)
        c.glow(pill, rgb("ffd0a8"), 7, shine)
        c.fill(pill, rgb("fff0dc"))
        c.fill(pill + 2.5, gradient(c.y, [(14, light), (58, dark)]))
        if name != "button_click.png":
            gloss = c.box(108, 24, 84, 9, 9)
            c.fill(gloss, [255] * 3, 0.16)
        save(c, name)

    c = Canvas(460, 330)
    box = c.box(230, 165, 216, 151, 26)
    c.glow(box, rgb("120a30"), 9, 0.5)
    c.fill(box, rgb("ffd7a8"), 0.9)
    c.fill(box + 2.5, gradient(c.y, [(10, "3c2a72"), (320, "221650")]), 1.0)
    save(c, "panel.png")

    c = Canvas(580, 128)

    def letters(shift, stroke):
        drawn = Image.new("L", (2 * 580, 2 * 128))
        place, font = (580, 124 + shift), ImageFont.truetype(FONT, 164)
        ImageDraw.Draw(drawn).text(place, "Star Catcher", 255, font, "mm", stroke_width=stroke)
        return drawn.resize((580, 128), Image.Resampling.LANCZOS)

    halo = letters(4, 8).filter(ImageFilter.GaussianBlur(9))
    c.paint(np.asarray(halo, float) / 255 * 0.7 - 0.02, rgb("120a30"))
    c.paint(np.asarray(letters(8, 13), float) / 255, rgb("43206a"))
    shade = gradient(c.y, [(34, "fff8cf"), (62, "ffd65a"), (94, "ff9a4d")])
    c.paint(np.asarray(letters(0, 0), float) / 255, shade)
    save(c, "title.png")


if __name__ == "__main__":
    os.makedirs(ASSETS, exist_ok=True)
    write_atlas()
    write_sky()
    write_hills()
    write_glow()
    write_widgets()
