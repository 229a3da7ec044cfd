"""Sprites: still ones in every look, and looks that change on every frame."""

import random

import pygame
import Tessora

from . import plain, plain_widgets
from .measure import NO_GOAL, Pair, at_most

SCREEN_SIZE = (1280, 960)
SPRITES = 1000
SIDE = 64
SMALL = 16
SHARED = 20

LOOKS = {
    "plain size": {},
    "scale 0.75": {"sx": 0.75, "sy": 0.75},
    "rotation 30": {"angle": 30.0},
    "tint": {"bgColor": pygame.Color(255, 160, 64, 255)},
    "opacity 128": {"alpha": 128},
    "all four": {
        "sx": 0.75,
        "sy": 0.75,
        "angle": 30.0,
        "bgColor": pygame.Color(255, 160, 64, 255),
        "alpha": 128,
    },
}


def display():
    screen = pygame.display.get_surface()
    if screen is None or screen.get_size() != SCREEN_SIZE:
        screen = pygame.display.set_mode(SCREEN_SIZE)
    return screen


def random_picture(rng, side):
    picture = pygame.Surface((side, side), pygame.SRCALPHA, 32).convert_alpha()
    pixels = rng.getrandbits(8 * side * side * 4).to_bytes(side * side * 4, "little")
    picture.get_buffer().write(pixels, 0)
    return picture


class Scenery:
    """Places and pictures of sprites, the same for every class they are made of."""

    def __init__(self, distinct, count=SPRITES, side=SIDE, scene=None):
        rng = random.Random(20)
        self.screen = display()
        self.side = side
        self.scene = scene
        pictures = [random_picture(rng, side) for _ in range(distinct)]
        # Well inside the screen, so that no blit is clipped.
        self.sprites = [
            (pictures[index % distinct], rng.randrange(32, 1150), rng.randrange(32, 830))
            for index in range(count)
        ]

    def layer(self, layer_class, image_class, look):
        layer = layer_class()
        for picture, x, y in self.sprites:
            sprite = image_class(None, x, y)
            sprite.width = sprite.height = self.side
            sprite.image = picture
            for name, value in look.items():
                setattr(sprite, name, value)
            layer.AddGameNode(sprite)
        if self.scene is not None:
            layer.OnLoad(self.scene())
        return layer

    def blits(self, look):
        """The finished surfaces with their positions, as Surface.blits takes them."""
        side = self.side
        size = (int(side * look.get("sx", 1.0)), int(side * look.get("sy", 1.0)))
        angle = look.get("angle", 0.0)
        color = look.get("bgColor", pygame.Color(255, 255, 255, 255))
        alpha = look.get("alpha", 255)
        done = {}
        result = []
        for picture, x, y in self.sprites:
            if id(picture) not in done:
                source = picture if alpha == 255 else plain_widgets.faded(picture, alpha)
                done[id(picture)] = plain_widgets.finished(source, size, angle, color)
            surface = done[id(picture)]
            width, height = surface.get_size()
            left = x + side / 2 * look.get("sx", 1.0) - width / 2
            top = y + side / 2 * look.get("sy", 1.0) - height / 2
            result.append((surface, (int(left), int(top))))
        return result


def painted(screen, draw):
    screen.fill((40, 80, 120))
    draw()
    return pygame.image.tobytes(screen, "RGB")


def check_same_picture(screen, draws):
    """All functions paint the same, when drawing for the first time and later on."""
    for _ in range(3):
        pictures = [painted(screen, draw) for draw in draws]
        if any(picture != pictures[0] for picture in pictures):
            raise AssertionError("the pictures to be compared differ")


def sprites_against_blits(distinct, look, side, scene):
    scenery = Scenery(distinct, SPRITES, side, scene)
    screen = scenery.screen
    ours = scenery.layer(Tessora.GameLayer, Tessora.GUI_Image, look)
    theirs = scenery.layer(plain.GameLayer, plain_widgets.GUI_Image, look)
    # A script may paint into a picture at any time, here after two frames of which none is new.
    painted(screen, lambda: ours.draw(screen))
    painted(screen, lambda: ours.draw(screen))
    scenery.sprites[0][0].set_at((side // 2, side // 2), (1, 200, 3, 250))
    finished = scenery.blits(look)
    check_same_picture(
        screen,
        [lambda: ours.draw(screen), lambda: screen.blits(finished), lambda: theirs.draw(screen)],
    )
    return (lambda: ours.draw(screen)), (lambda: screen.blits(finished))


def sprites_against_plain(look, count, change=None):
    scenery = Scenery(SHARED, count)
    screen = scenery.screen
    layers = [
        scenery.layer(Tessora.GameLayer, Tessora.GUI_Image, look),
        scenery.layer(plain.GameLayer, plain_widgets.GUI_Image, look),
    ]

    def frame(layer):
        sprites = list(layer.GameNodeDict.values())
        angles = random.Random(5)

        def draw():
            if change is not None:
                change(sprites, angles)
            layer.draw(screen)

        return draw

    frames = [frame(layer) for layer in layers]
    check_same_picture(screen, frames)
    return frames


def turn(sprites, rng):
    for sprite in sprites:
        sprite.angle = rng.uniform(1.0, 359.0)


class Scene:
    """A scene that counts what is drawn, as the engine asks it to."""

    def __init__(self):
        self.batches = 0

    def GetSceneSize(self):
        return SCREEN_SIZE

    def AddBatchCount(self):
        self.batches += 1


def changing(name, values):
    """Sprites whose attribute changes on every frame, against blits of still ones."""

    def setup(distinct):
        scenery = Scenery(distinct, SPRITES, SIDE, Scene)
        screen = scenery.screen
        layer = scenery.layer(Tessora.GameLayer, Tessora.GUI_Image, {})
        sprites = list(layer.GameNodeDict.values())
        finished = scenery.blits({})
        turn = [0]

        def ours():
            turn[0] += 1
            value = values[turn[0] % len(values)]
            for sprite in sprites:
                setattr(sprite, name, value)
            layer.draw(screen)

        def theirs():
            # What a script does is the same on both sides.
            turn[0] += 1
            value = values[turn[0] % len(values)]
            for sprite in sprites:
                setattr(sprite, name, value)
            screen.blits(finished)

        return ours, theirs

    return setup


def fading_cover():
    """One picture as large as a screen whose opacity changes on every frame."""
    screen = display()
    rng = random.Random(7)
    size = (1280, 720)
    picture = pygame.Surface(size, pygame.SRCALPHA, 32).convert_alpha()
    picture.get_buffer().write(
        rng.getrandbits(8 * 1280 * 720 * 4).to_bytes(1280 * 720 * 4, "little"), 0
    )
    cover = Tessora.GUI_Image(None, 0, 0)
    cover.image = picture
    cover.width, cover.height = size
    own = picture.copy()
    turn = [0]

    def ours():
        turn[0] += 1
        cover.alpha = 1 + turn[0] % 254
        cover.draw(screen)

    def theirs():
        turn[0] += 1
        own.set_alpha(1 + turn[0] % 254)
        screen.blit(own, (0, 0))

    return ours, theirs


COLORS = [pygame.Color(255, 255 - index, index, 255) for index in range(200)]


def benchmarks():
    # pygame-ce blits faster than pygame, so a ratio to its blits is harder to reach.
    ce = getattr(pygame, "IS_CE", False)
    for side, goals in (
        (SIDE, {SHARED: (0.8, 1.0), SPRITES: (1.1, 1.3)}),
        (SMALL, {SHARED: (1.0, 1.0), SPRITES: (1.3, 1.3)}),
    ):
        for distinct, ratios in goals.items():
            for name, look in LOOKS.items():
                # With opacity and another size the stages cannot be shared.
                goal = ratios[ce] if name != "all four" else {SHARED: 1.25, SPRITES: 1.5}[distinct]
                for scene in (None, Scene):
                    where = "in a scene" if scene else "alone"
                    yield Pair(
                        f"sprites {side}, {distinct} pictures, {name}, {where}: blits",
                        lambda d=distinct, k=look, s=side, c=scene: sprites_against_blits(
                            d, k, s, c
                        ),
                        SPRITES,
                        at_most(goal),
                    )
    for distinct, ratios in ((SHARED, (1.0, 1.2)), (SPRITES, (1.3, 1.5))):
        for name, values in (("bgColor", COLORS), ("alpha", list(range(1, 255)))):
            yield Pair(
                f"sprites, {distinct} pictures, {name} changes every frame: blits",
                lambda d=distinct, n=name, v=values: changing(n, v)(d),
                SPRITES,
                at_most(ratios[ce]),
            )
    yield Pair("cover 1280 x 720 that fades: set_alpha and blit", fading_cover, 1, at_most(1.2))
    for name in ("plain size", "all four"):
        yield Pair(
            f"sprites, 20 pictures, {name}: plain Python",
            lambda name=name: sprites_against_plain(LOOKS[name], SPRITES),
            SPRITES,
        )
    yield Pair(
        "sprites turning on every frame: plain Python",
        lambda: sprites_against_plain({}, 200, turn),
        200,
        NO_GOAL,
    )
