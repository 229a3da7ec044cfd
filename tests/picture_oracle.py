"""What a widget has to look like: the plain calls, made with the installed pygame."""

import random
from functools import lru_cache

import pygame

CAMERA = (0, 0, 1.0)
WHITE = pygame.Color(255, 255, 255, 255)
LOOK = {"image": None, "x": 0, "y": 0, "width": 100, "height": 100, "sx": 1.0, "sy": 1.0}
LOOK.update(angle=0.0, anchorx=0.0, anchory=0.0, alpha=255, bgColor=WHITE, style="flat")
LOOK["blendtype"] = pygame.BLEND_MULT


def noise(size, seed, flags=pygame.SRCALPHA, depth=32):
    """A surface of reproducible random pixels; 8-bit ones get a random palette too."""
    rng = random.Random(seed)
    surface = pygame.Surface(size, flags, depth)
    if depth == 8:
        surface.set_palette([[rng.randrange(256) for _ in range(3)] for _ in range(256)])
    buffer = surface.get_buffer()
    if buffer.length:
        buffer.write(rng.getrandbits(8 * buffer.length).to_bytes(buffer.length, "little"), 0)
    return surface


@lru_cache(maxsize=None)
def ground(size, seed):
    return pygame.image.tobytes(noise(size, seed, 0, 32), "RGB")


def scenery(surface, seed=7):
    """Fill the whole surface with noise, so that every misplaced or missing pixel shows."""
    size = surface.get_size()
    surface.blit(pygame.image.frombytes(ground(size, seed), size, "RGB"), (0, 0))
    return surface


def pixels(surface):
    return surface.get_size(), pygame.image.tobytes(surface, "RGBA")


def outcome(function, *args):
    """None, or the type of the exception raised."""
    try:
        function(*args)
    except Exception as error:
        return type(error)
    return None


def multiplied(size, color, picture, onto_color):
    block = pygame.Surface(size).convert_alpha()
    block.fill(color)
    below, above = (block, picture) if onto_color else (picture.copy(), block)
    below.blit(above, (0, 0), special_flags=pygame.BLEND_RGBA_MULT)
    return below


def faded(image, alpha):
    return multiplied(image.get_size(), (255, 255, 255, alpha), image, onto_color=True)


class Place:
    """World values of a root node with the given look, seen through the camera."""

    def __init__(self, look, camera=CAMERA):
        offset_x, offset_y, scale = camera
        self.WSX = 1.0 * look["sx"] * scale
        self.WSY = 1.0 * look["sy"] * scale
        self.WAngle = 0.0 + look["angle"]
        left = 0.0 + look["x"] - look["anchorx"] * look["width"] * look["sx"]
        top = 0.0 + look["y"] - look["anchory"] * look["height"] * look["sy"]
        self.WX = left * scale + offset_x
        self.WY = top * scale + offset_y
        self.width = look["width"]
        self.height = look["height"]

    @property
    def size(self):
        return int(self.width * self.WSX), int(self.height * self.WSY)

    @property
    def rect(self):
        return self.WX, self.WY, self.width * self.WSX, self.height * self.WSY

    def corner(self, picture):
        width, height = picture.get_size()
        left = self.WX + self.width / 2 * self.WSX - width / 2
        return left, self.WY + self.height / 2 * self.WSY - height / 2


def finished(place, image, color):
    """The scaled, turned and tinted picture, ready to be blitted."""
    picture = pygame.transform.smoothscale(image, place.size)
    if place.WAngle != 0:
        picture = pygame.transform.rotozoom(picture, place.WAngle, 1)
    picture = picture.convert_alpha()
    if color is None:
        return picture
    return multiplied(picture.get_size(), color, picture, onto_color=False)


def draw_image(target, place, image, color, blendtype=pygame.BLEND_MULT):
    picture = finished(place, image, color)
    flags = {} if blendtype == pygame.BLEND_MULT else {"special_flags": blendtype}
    target.blit(picture, place.corner(picture), **flags)


def draw_background(target, place, color):
    if color is None:
        return
    if place.WAngle == 0:
        pygame.draw.rect(target, color, place.rect, 0)
        return
    block = pygame.Surface(place.size).convert_alpha()
    block.fill(color)
    block = pygame.transform.rotozoom(block, place.WAngle, 1)
    target.blit(block, place.corner(block))


def draw_widget(target, camera=CAMERA, place=None, **changes):
    """The picture of a root image widget without border and overlays."""
    look = dict(LOOK, **changes)
    place = place or Place(look, camera)
    image, alpha = look["image"], look["alpha"]
    if image is None:
        if look["style"] != "hollow":
            draw_background(target, place, look["bgColor"])
    elif look["style"] is not None and look["blendtype"] is not None:
        image = image if alpha == 255 else faded(image, alpha)
        draw_image(target, place, image, look["bgColor"], look["blendtype"])


def dress(widget, **changes):
    for name, value in changes.items():
        setattr(widget, name, value)
    return widget


def assert_same(got, expected):
    """Equal pixel by pixel; names the first difference."""
    if pixels(got) == pixels(expected):
        return
    assert got.get_size() == expected.get_size()
    for y in range(got.get_height()):
        for x in range(got.get_width()):
            assert got.get_at((x, y)) == expected.get_at((x, y)), f"at {x}, {y}"


def assert_draws(widget, screen, expected, camera=CAMERA):
    """Draw the widget on the screen and compare with what expected(surface) paints on a copy."""
    reference = screen.copy()
    wanted = outcome(expected, reference)
    assert outcome(widget.draw, screen, *camera) == wanted
    assert_same(screen, reference)


def assert_widget(widget, screen, camera=CAMERA, place=None, **changes):
    """Dress the widget, draw it on scenery and compare with the plain calls."""
    dress(widget, **changes)
    look = {name: getattr(widget, name) for name in LOOK}
    scenery(screen)
    assert_draws(widget, screen, lambda target: draw_widget(target, camera, place, **look), camera)


def ink_box(surface, background):
    """The smallest rectangle holding everything that is not background."""
    probe = pygame.Surface(surface.get_size(), 0, 32)
    probe.blit(surface, (0, 0))
    probe.set_colorkey(background)
    return probe.get_bounding_rect()
