"""Drawing: sprites, deep trees, labels and buttons."""

import random

import pygame
import Tessora

from . import plain, plain_widgets
from .measure import NO_GOAL, Pair, at_most

SCREEN_SIZE = (1280, 960)
SPRITES = 1000
SIDE = 64
SHARED = 20
DEPTH = 64

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


def random_picture(rng):
    picture = pygame.Surface((SIDE, SIDE), pygame.SRCALPHA, 32).convert_alpha()
    pixels = rng.getrandbits(8 * SIDE * SIDE * 4).to_bytes(SIDE * SIDE * 4, "little")
    picture.get_buffer().write(pixels, 0)
    return picture


class Scenery:
    """Places and pictures of sprites, the same for every class they are made of."""

    def __init__(self, distinct, count=SPRITES):
        rng = random.Random(20)
        self.screen = display()
        pictures = [random_picture(rng) for _ in range(distinct)]
        # Well inside the screen, so that no blit is clipped.
        self.sprites = [
            (pictures[index % distinct], rng.randrange(32, 1150), rng.randrange(32, 830))
            for index in range(count)
        ]

    def layer(self, layer_class, image_class, look):
        layer = layer_class()
        for picture, x, y in self.sprites:
            sprite = image_class(None, x, y)
            sprite.width = sprite.height = SIDE
            sprite.image = picture
            for name, value in look.items():
                setattr(sprite, name, value)
            layer.AddGameNode(sprite)
        return layer

    def blits(self, look):
        """The finished surfaces with their positions, as Surface.blits takes them."""
        size = (int(SIDE * look.get("sx", 1.0)), int(SIDE * look.get("sy", 1.0)))
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
            left = x + SIDE / 2 * look.get("sx", 1.0) - width / 2
            top = y + SIDE / 2 * look.get("sy", 1.0) - height / 2
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


def sprites_against_blits(distinct, look):
    scenery = Scenery(distinct)
    screen = scenery.screen
    ours = scenery.layer(Tessora.GameLayer, Tessora.GUI_Image, look)
    theirs = scenery.layer(plain.GameLayer, plain_widgets.GUI_Image, look)
    # A script may paint into a picture at any time, here after two frames of which none is new.
    painted(screen, lambda: ours.draw(screen))
    painted(screen, lambda: ours.draw(screen))
    scenery.sprites[0][0].set_at((SIDE // 2, SIDE // 2), (1, 200, 3, 250))
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


class QuietScene:
    def GetSceneSize(self):
        return SCREEN_SIZE


def sprites_in_scene(scene_class):
    scenery = Scenery(SHARED)
    screen = scenery.screen
    ours = scenery.layer(Tessora.GameLayer, Tessora.GUI_Image, {})
    theirs = scenery.layer(plain.GameLayer, plain_widgets.GUI_Image, {})
    for layer in (ours, theirs):
        layer.OnLoad(scene_class())
    check_same_picture(screen, [lambda: ours.draw(screen), lambda: theirs.draw(screen)])
    finished = scenery.blits({})
    return (lambda: ours.draw(screen)), (lambda: screen.blits(finished))


def tree(layer_class, node_class, depth):
    """A layer of 1,000 nodes in chains of that depth."""
    layer = layer_class()
    rng = random.Random(3)
    last = None
    for index in range(SPRITES):
        parent = last if index % depth else None
        last = node_class(parent, rng.randrange(10), rng.randrange(10))
        if parent is None:
            layer.AddGameNode(last)
    return layer


def chains_against_flat(library, depth=DEPTH):
    screen = display()
    layers = [tree(library.GameLayer, library.GameNode, levels) for levels in (depth, 1)]
    return [lambda layer=layer: layer.draw(screen) for layer in layers]


def nodes_against_plain():
    screen = display()
    layers = [tree(library.GameLayer, library.GameNode, 1) for library in (Tessora, plain)]
    return [lambda layer=layer: layer.draw(screen) for layer in layers]


def widgets(make, count):
    screen = display()
    layers = []
    for library, classes in ((Tessora, Tessora), (plain, plain_widgets)):
        layer = library.GameLayer()
        for index in range(count):
            layer.AddGameNode(make(classes, index))
        layers.append(layer)
    frames = [lambda layer=layer: layer.draw(screen) for layer in layers]
    check_same_picture(screen, frames)
    return frames


def label(classes, index):
    widget = classes.GUI_Label(None, 110 * (index % 10), 30 * (index // 10), f"label {index}")
    widget.height = 28
    return widget


def button(classes, index):
    widget = classes.GUI_Button(None, 110 * (index % 10), 30 * (index // 10), f"button {index}")
    widget.height = 28
    return widget


def benchmarks():
    for distinct, ratio in ((SHARED, 1.25), (SPRITES, 1.5)):
        for name, look in LOOKS.items():
            yield Pair(
                f"sprites, {distinct} pictures, {name}: Surface.blits",
                lambda distinct=distinct, look=look: sprites_against_blits(distinct, look),
                SPRITES,
                at_most(ratio),
            )
    for name, scene in (("quiet", QuietScene), ("counting", Scene)):
        yield Pair(
            f"sprites, 20 pictures, {name} scene: Surface.blits",
            lambda scene=scene: sprites_in_scene(scene),
            SPRITES,
        )
    yield Pair("chains 64 deep: flat", lambda: chains_against_flat(Tessora), SPRITES, at_most(1.5))
    yield Pair("chains 64 deep, plain Python: flat", lambda: chains_against_flat(plain), SPRITES)
    yield Pair("drawing nodes: plain Python", nodes_against_plain, SPRITES)
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
    yield Pair("labels: plain Python", lambda: widgets(label, 200), 200)
    yield Pair("buttons: plain Python", lambda: widgets(button, 200), 200)
