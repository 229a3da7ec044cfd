"""Several layers: a sky, drifting clouds, hills at two depths, a world and a display above it all.

The arrow keys (or A and D) fly the star. The camera follows it, and what is far moves less.
"""

import random

import pygame
import Tessora
from example_window import FONT, HEIGHT, WIDTH, run

WORLD_WIDTH = 2400
SPEED = 260.0  # pixels per second
# How much of the camera's way a layer goes along: 0 stays, 1 is the world itself.
DEPTHS = {"far": 0.15, "near": 0.4, "world": 1.0, "front": 1.5}
LAYERS = ("sky", "clouds", "far", "near", "world", "front", "display")
INK = (255, 244, 222)


def picture(layer, x, y, surface):
    """A still picture, from a file or painted, in its own size."""
    made = Tessora.GUI_Image(None, x, y)
    made.SetImage(surface if isinstance(surface, str) else [surface])
    made.AutoImageSize(True)
    made.DropBGColor()
    layer.AddGameNode(made)
    return made


def cloud(rng):
    surface = pygame.Surface((150, 60), pygame.SRCALPHA)
    surface.fill((255, 236, 244, 0))
    for _ in range(9):
        x, radius = rng.uniform(30, 120), rng.uniform(12, 20)
        pygame.draw.circle(surface, (255, 236, 244, 70), (x, 44 - radius * 0.8), radius)
    return pygame.transform.smoothscale(surface, (150, 44))


def light():
    surface = pygame.Surface((48, 48), pygame.SRCALPHA)
    surface.fill((255, 220, 130, 0))
    for radius in range(23, 5, -1):
        alpha = int(150 * ((23 - radius) / 17) ** 2)
        pygame.draw.circle(surface, (255, 220, 130, alpha), (24, 24), radius)
    pygame.draw.circle(surface, (255, 246, 214), (24, 24), 6)
    return surface


def grass(rng):
    surface = pygame.Surface((120, 60), pygame.SRCALPHA)
    surface.fill((22, 12, 46, 0))
    for _ in range(26):
        x, lean = rng.uniform(14, 106), rng.uniform(-14, 14)
        top = rng.uniform(0, 34)
        pygame.draw.polygon(surface, (22, 12, 46), [(x - 5, 60), (x + lean, top), (x + 5, 60)])
    return surface


class Voyage:
    """Fills the layers, and moves the star and the camera."""

    def __init__(self, *layers):
        self.layers = dict(zip(LAYERS, layers))
        self.held = set()
        rng = random.Random(4)
        picture(self.layers["sky"], 0, -80, "sky.png")
        # An automatic scroll runs from the scene's width to minus that width, and begins anew.
        for x in range(-WIDTH, 2 * WIDTH, 160):
            picture(self.layers["clouds"], x + rng.uniform(0, 60), rng.uniform(16, 130), cloud(rng))
        self.layers["clouds"].SetAutoScroll(1, 14)
        for name, file, y in (("far", "hills_far.png", 210), ("near", "hills_near.png", 286)):
            for x in (0, 1600):
                picture(self.layers[name], x, y, file)
        for x in range(0, int(WORLD_WIDTH * DEPTHS["front"]), 150):
            picture(self.layers["front"], x + rng.uniform(0, 90), HEIGHT - 48, grass(rng))
        self.build_world(rng)
        self.build_display()

    def build_world(self, rng):
        self.lights = []
        glow = light()
        for x in range(420, WORLD_WIDTH - 100, 130):
            self.lights.append(picture(self.layers["world"], x, rng.uniform(70, 240), glow))
        star = Tessora.GUI_Image(None, 160, 190)
        star.LoadImageFramesPList("sprites.plist")
        star.LoadAnimationPlist("animations.plist", "star")
        star.SetAutoSwitch(True)
        star.AutoImageSize(True)
        star.SetImageAnchor("center")
        ways = (("left", -1, 0), ("right", 1, 0), ("up", 0, -1), ("down", 0, 1), ("a", -1, 0))
        for key, x, y in (*ways, ("d", 1, 0)):
            star.SetKeyDownFunction(key, lambda way=(x, y): self.held.add(way))
            star.SetKeyUpFunction(key, lambda way=(x, y): self.held.discard(way))
        star.SetUpdateFunction(self.fly)
        self.layers["world"].AddGameNode(star)
        self.star = star

    def build_display(self):
        self.label = Tessora.GUI_Label(None, 12, 8, "", FONT, 20)
        self.label.SetWidth(616)
        self.label.SetHeight(28)
        self.label.SetStyle("hollow", False)
        self.label.SetTextColor(*INK)
        self.label.SetTextHAlign("left")
        self.layers["display"].AddGameNode(self.label)
        self.way = Tessora.GUI_HProgressBar(None, 440, 16)
        self.way.SetWidth(184)
        self.way.SetHeight(12)
        self.layers["display"].AddGameNode(self.way)

    def fly(self, delay):
        x, y = self.star.GetXY()
        x += sum(way[0] for way in self.held) * SPEED * delay
        y += sum(way[1] for way in self.held) * SPEED * delay
        self.star.SetXY(min(max(x, 40), WORLD_WIDTH - 40), min(max(y, 60), HEIGHT - 60))
        for light in [light for light in self.lights if self.star.checkCollision(light)]:
            self.lights.remove(light)
            self.layers["world"].DelGameNode(light.GetInstanceID())
        self.label.SetText(f"Lights left: {len(self.lights)}")
        self.way.SetValue(100 * self.star.GetX() / WORLD_WIDTH)
        # The camera keeps the star at two fifths of the window, and inside the world.
        camera = min(max(self.star.GetX() - 0.4 * WIDTH, 0), WORLD_WIDTH - WIDTH)
        for name, depth in DEPTHS.items():
            self.layers[name].scrollPosX = -camera * depth


SCRIPT = (
    (0.1, pygame.KEYDOWN, pygame.K_RIGHT),
    (1.2, pygame.KEYDOWN, pygame.K_UP),
    (1.4, pygame.KEYUP, pygame.K_UP),
)

if __name__ == "__main__":
    run("layers", Voyage, SCRIPT, layers=len(LAYERS))
