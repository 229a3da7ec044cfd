"""What a widget has to look like: the plain calls, made with the installed pygame."""

import random
from functools import lru_cache

import pygame

CAMERA = (0, 0, 1.0)
WHITE = pygame.Color(255, 255, 255, 255)
LOOK = {"image": None, "x": 0, "y": 0, "width": 100, "height": 100, "sx": 1.0, "sy": 1.0}
LOOK.update(angle=0.0, anchorx=0.0, anchory=0.0, alpha=255, bgColor=WHITE, style="flat")
LOOK["blendtype"] = pygame.BLEND_MULT


# A surface of reproducible random pixels; 8-bit ones get a random palette too.
def noise(size, seed, flags=pygame.SRCALPHA, depth=32):
    rng = random.Random(seed)
    surface = pygame.Surface(size, flags, depth)
    if depth == 8:
        surface.set_palette([[rng.randrange(256) for _ in range(3)] for _ in range(256)])
    length = surface.get_buffer().length
    if length:
        surface.get_buffer().write(rng.getrandbits(8 * length).to_bytes(length, "little"), 0)
    return surface


@lru_cache(maxsize=None)
def ground(size):
    return noise(size, 7, 0, 32)


def pixels(surface):
    return surface.get_size(), pygame.image.tobytes(surface, "RGBA")


# None, or the type of the exception raised.
def outcome(function, *args):
    try:
        function(*args)
    except Exception as error:
        return type(error)
    return None


# The first, multiplied by the second.
def multiplied(below, above):
    below.blit(above, (0, 0), special_flags=pygame.BLEND_RGBA_MULT)
    return below


def block(size, color):
    surface = pygame.Surface(size).convert_alpha()
    surface.fill(color)
    return surface


def faded(image, alpha):
    return multiplied(block(image.get_size(), (255, 255, 255, alpha)), image)


# World values of a root node with the given look, seen through the camera.
class Place:
    def __init__(self, look, camera=CAMERA):
        offset_x, offset_y, scale = camera
        self.WSX, self.WSY = 1.0 * look["sx"] * scale, 1.0 * look["sy"] * scale
        self.WAngle = 0.0 + look["angle"]
        self.width, self.height = look["width"], look["height"]
        left = 0.0 + look["x"] - look["anchorx"] * self.width * look["sx"]
        top = 0.0 + look["y"] - look["anchory"] * self.height * look["sy"]
        self.WX, self.WY = left * scale + offset_x, top * scale + offset_y
        self.rect = self.WX, self.WY, self.width * self.WSX, self.height * self.WSY

    def size(self):
        return int(self.width * self.WSX), int(self.height * self.WSY)

    def corner(self, picture):
        width, height = picture.get_size()
        left = self.WX + self.width / 2 * self.WSX - width / 2
        return left, self.WY + self.height / 2 * self.WSY - height / 2


# The scaled, turned and tinted picture, ready to be blitted.
def finished(place, image, color):
    picture = pygame.transform.smoothscale(image, place.size())
    if place.WAngle != 0:
        picture = pygame.transform.rotozoom(picture, place.WAngle, 1)
    picture = picture.convert_alpha()
    if color is None:
        return picture
    return multiplied(picture.copy(), block(picture.get_size(), color))


def draw_background(target, place, color):
    if place.WAngle == 0:
        pygame.draw.rect(target, color, place.rect, 0)
        return
    picture = pygame.transform.rotozoom(block(place.size(), color), place.WAngle, 1)
    target.blit(picture, place.corner(picture))


# The picture of a root image widget without border and overlays.
def draw_widget(target, camera=CAMERA, place=None, **changes):
    look = dict(LOOK, **changes)
    place = place or Place(look, camera)
    image, alpha = look["image"], look["alpha"]
    if image is None:
        if look["style"] != "hollow" and look["bgColor"] is not None:
            draw_background(target, place, look["bgColor"])
    elif look["style"] is not None and look["blendtype"] is not None:
        image = image if alpha == 255 else faded(image, alpha)
        picture, blend = finished(place, image, look["bgColor"]), look["blendtype"]
        flags = {} if blend == pygame.BLEND_MULT else {"special_flags": blend}
        target.blit(picture, place.corner(picture), **flags)


def dress(widget, **changes):
    for name, value in changes.items():
        setattr(widget, name, value)
    return widget


# Equal pixel by pixel; names the first difference.
def assert_same(got, expected):
    if pixels(got) != pixels(expected):
        places = [(x, y) for y in range(got.get_height()) for x in range(got.get_width())]
        assert [(p, got.get_at(p)) for p in places] == [(p, expected.get_at(p)) for p in places]


# Draw the widget on the screen and compare with what expected(surface) paints on a copy.
def assert_draws(widget, screen, expected, camera=CAMERA):
    reference = screen.copy()
    reference.set_clip(screen.get_clip())
    wanted = outcome(expected, reference)
    assert outcome(widget.draw, screen, *camera) == wanted
    assert_same(screen, reference)


# Dress the widget, draw it on scenery and compare with the plain calls.
def assert_widget(widget, screen, camera=CAMERA, place=None, **changes):
    dress(widget, **changes)
    look = {name: getattr(widget, name) for name in LOOK}
    # Noise, so that every misplaced or missing pixel shows.
    screen.blit(ground(screen.get_size()), (0, 0))
    assert_draws(widget, screen, lambda target: draw_widget(target, camera, place, **look), camera)


# Every character is a solid block, so that text can be measured exactly.
class BlockFont:
    def __init__(self):
        self.rendered = []

    def size(self, text):
        return 6 * len(text), 10

    def render(self, text, antialias, color, *background):
        self.rendered.append((text, color))
        surface = pygame.Surface(self.size(text), pygame.SRCALPHA, 32)
        surface.fill(color)
        return surface


LIGHT, DARK = (218, 218, 218, 255), (64, 64, 64, 255)


# A border of two pixels inside the rectangle; the right and bottom edges own the shared corners.
def draw_relief(target, rect, style):
    near, far = (LIGHT, DARK) if style == "raised" else (DARK, LIGHT)
    left, top, width, height = (int(side) for side in rect)
    right, bottom = left + width - 1, top + height - 1
    for color, sides in ((near, ((left, 1), (top, 1))), (far, ((right, -1), (bottom, -1)))):
        for step in range(2):
            x, y = (start + step * way for start, way in sides)
            pygame.draw.line(target, color, (x, top), (x, bottom))
            pygame.draw.line(target, color, (left, y), (right, y))


# What `paint` draws on a sheet of the unscaled size, turned with the widget.
def draw_turned(target, place, paint, keyed=False):
    sheet = pygame.Surface((int(place.width), int(place.height)))
    if keyed:
        sheet.set_colorkey((0, 0, 0))
    else:
        sheet = sheet.convert_alpha()
        sheet.fill((0, 0, 0, 0))
    paint(sheet)
    picture = pygame.transform.smoothscale(sheet.convert_alpha(), place.size())
    picture = pygame.transform.rotozoom(picture, place.WAngle, 1)
    target.blit(picture, place.corner(picture))


def draw_border(target, place, style):
    if style is not None and place.WAngle == 0:
        draw_relief(target, place.rect, style)
    elif style is not None:
        rect = (0, 0, place.width, place.height)
        draw_turned(target, place, lambda sheet: draw_relief(sheet, rect, style), keyed=True)


# A part of a widget: its place inside, in unscaled pixels, its background and its border.
def part_place(widget, part, camera=CAMERA):
    left, top, width, height = part[:4]
    look = {name: getattr(widget, name) for name in ("sx", "sy", "angle")}
    look.update(x=widget.x + left * widget.sx, y=widget.y + top * widget.sy)
    return Place(dict(LOOK, width=width, height=height, **look), camera)


def draw_parts(target, widget, parts, camera=CAMERA):
    for part in parts:
        place = part_place(widget, part, camera)
        draw_background(target, place, part[4])
        draw_border(target, place, part[5])


LOOKS = {"still": {}, "scaled": {"sx": 1.5, "sy": 0.75}, "turned": {"angle": 30.0}}
LOOKS["scaled and turned"] = {"sx": 1.25, "sy": 1.5, "angle": -70.0}


# The widget, in every look and through two cameras, is what `draw(target, camera)` paints.
def assert_painted(widget, screen, look, draw):
    dress(widget, **LOOKS[look])
    for camera in (CAMERA, (7, -3, 1.5), CAMERA):
        screen.blit(ground(screen.get_size()), (0, 0))
        assert_draws(widget, screen, lambda target, camera=camera: draw(target, camera), camera)


# With `framed`, the border of the first part lies over the others.
def assert_parts(widget, screen, look, parts, framed=False):
    def draw(target, camera):
        draw_parts(target, widget, parts, camera)
        if framed:
            draw_border(target, part_place(widget, parts[0], camera), parts[0][5])

    assert_painted(widget, screen, look, draw)
