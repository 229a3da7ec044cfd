"""Every pixel of a drawn widget comes from the plain sequence of pygame calls."""

import random
from functools import partial
from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from picture_oracle import LOOK, Place, assert_draws, assert_widget, draw_widget, dress, noise

ALPHA, RLE, KEY, TINT = pygame.SRCALPHA, pygame.RLEACCEL, (255, 0, 255), (120, 255, 40, 200)
# Flags, depth, and then perhaps: has a colour key, opacity, flags of these two.
SOURCES = [(ALPHA, 32), (0, 32), (0, 24), (0, 16), (ALPHA, 16), (0, 8), (0, 8, True)]
SOURCES += [(0, 16, True), (0, 24, True), (0, 32, True), (0, 32, True, None, RLE)]
SOURCES += [(0, 32, False, 90), (0, 24, False, 1), (ALPHA, 32, False, 90), (ALPHA, 32, False, 0)]
SOURCES += [(0, 32, True, 200), (0, 32, False, 90, RLE)]
VIEWS = [lambda s: s, lambda s: s.convert(), lambda s: s.subsurface((1, 1, 1, 1))]
VIEWS += [lambda s: s.subsurface((2, 3, 15, 9)).subsurface((1, 1, 9, 5))]


def picture(flags=ALPHA, depth=32, keyed=False, alpha=None, speed=0):
    surface = noise((21, 17), 1, flags, depth)
    if keyed:
        surface.fill(KEY, (3, 3, 9, 9))
        surface.set_colorkey(KEY, speed)
    if alpha is not None:
        surface.set_alpha(alpha, speed)
    return surface


@pytest.mark.parametrize("source", SOURCES, ids=str)
@pytest.mark.parametrize("view", range(len(VIEWS)))
def test_source_formats(screen, source, view):
    image, in_place = VIEWS[view](picture(*source)), pygame.Color(0, 0, 0)
    for look in ({}, {"alpha": 128}):
        widget = dress(T.GUI_Image(None, 30, 20), image=image, **look)
        assert_widget(widget, screen, width=image.get_width(), height=image.get_height())
        assert_widget(widget, screen, width=9, height=9, angle=30.0)
        assert_widget(widget, screen, bgColor=TINT, width=50, blendtype=pygame.BLEND_ADD)
        assert_widget(widget, screen, bgColor=None, angle=-90, blendtype=pygame.BLEND_SUB)
        for color in ((255, 255, 255), (90, 255, 255), (90, 255, 255, 90)):
            in_place.update(color)
            assert_widget(widget, screen, bgColor=in_place, blendtype=pygame.BLEND_MULT)


NAN, INFINITE = float("nan"), float("inf")
COLORS = [None, pygame.Color(0, 0, 0, 0), pygame.Color(255, 255, 255, 254), (1, 2, 3), "red"]
COLORS += [[255, 128, 0, 255], "#ff800040", 0xFFFFFFFF, (1, 2), (300, 0, 0), "no color", 3.5]
VALUES = {
    "sx": (0, 0.0099, 0.01, 0.5, 1, 1.999, 3.0, -1, -0.005, NAN, INFINITE, "text", None),
    "angle": (-0.0, 1e-9, 30, 90.0, 180.0, 270, 360, -45.5, 1e6, (1, 2), None),
    "width": (0, 1, 2, 33.7, 90, NAN, INFINITE, [], None),
    "alpha": (1, 127, 128, 254, 255.0, 128.5, True, 256, 1000, 2**70),
    "bgColor": COLORS,
    "x": (-0.5, -0.999, -1.5, -20.25, 0.999, 7.49, 319.5, 400, "text", None),
    "anchorx": (0.5, 1.0, 0.333, -1, "text"),
    "style": ("raised", "hollow", None, "unknown"),
    "blendtype": (0, None, pygame.BLEND_MIN, pygame.BLEND_RGBA_ADD, pygame.BLEND_PREMULTIPLIED),
    "image": ("text", (1, 2), 5),
}
BASES = [{}, {"width": 20, "height": 18, "angle": 15}, {"anchory": 0.5, "sx": 1.5, "bgColor": TINT}]
CAMERAS = [(0, 0, 1.0), (7, -9, 1), (0.5, 0.25, 0.5), (-40, 11, 2.5), (0, 0, 0)]


# What pygame refuses is refused with the same error, and the next draw is exact again.
@pytest.mark.parametrize("name", VALUES)
@pytest.mark.parametrize("base", BASES, ids=str)
def test_every_look(screen, name, base):
    widget = T.GUI_Image(None, 60.5, 50.25)
    for index, value in enumerate(VALUES[name]):
        for image in (picture(), picture(0, 24), None):
            good = {**LOOK, "x": 60.5, "y": -5.25, **base, "image": image}
            assert_widget(widget, screen, CAMERAS[index % 5], **{**good, name: value})
        assert_widget(widget, screen, **good)


@pytest.mark.parametrize("alpha", [0, -300.5])
def test_without_opacity_the_place_stays_as_it_was(screen, alpha):
    widget = dress(T.GUI_Image(None, 10, 20), alpha=alpha, sx=2.0, x=80)
    stale = Place(dict(LOOK, x=10, y=20))
    assert_widget(widget, screen, (5, 5, 2.0), stale, image=picture())
    assert_widget(widget, screen, (5, 5, 2.0), stale, image=None, angle=40.0)


def random_look(rng, sources):
    number = rng.uniform if rng.random() < 0.5 else rng.randint
    color = pygame.Color(*[rng.choice((0, 90, 254, 255, 255)) for _ in range(4)])
    look = {"image": rng.choice(sources), "x": number(-60, 330), "y": number(-60, 250)}
    look.update({name: rng.choice((1, 0.5, 0.75, rng.uniform(0, 3))) for name in ("sx", "sy")})
    look.update({name: rng.choice((0, 0.5, rng.random())) for name in ("anchorx", "anchory")})
    look.update({name: rng.choice((16, number(0, 60))) for name in ("width", "height")})
    look["angle"] = rng.choice((0, 0.0, 0, 90, 30.5, rng.uniform(-720, 720)))
    look["alpha"] = rng.choice((255, 255, 255, 128, rng.randint(1, 254)))
    look["bgColor"] = rng.choice((None, pygame.Color("white"), color))
    look["blendtype"] = rng.choice([pygame.BLEND_MULT] * 4 + [pygame.BLEND_ADD, 0])
    return dict(look, style=rng.choice(("flat",) * 5 + ("hollow", None)))


# Widgets change and share pictures that are painted between the frames.
@pytest.mark.parametrize("seed", range(12))
def test_random_frames(screen, seed):
    rng, layer = random.Random(seed), T.GameLayer()
    sources = [None, *(picture(*source) for source in SOURCES[:7]), noise((40, 33), seed)]
    sources.append(sources[-1].subsurface((3, 3, 20, 20)))
    widgets, looks = [T.GUI_Image(None) for _ in range(25)], [{}] * 25
    for widget in widgets:
        layer.AddGameNode(widget)
    one_by_one = SimpleNamespace(draw=lambda *args: [widget.draw(*args) for widget in widgets])
    screen.blit(noise((320, 240), seed, 0, 32), (0, 0))
    for turn in range(6):
        for index, widget in enumerate(widgets):
            if turn == 0 or rng.random() > 0.6:
                looks[index] = random_look(rng, sources)
            dress(widget, **looks[index])
        color = [rng.randrange(256) for _ in range(4)]
        rng.choice(sources[1:]).fill(color, (rng.randint(-2, 20), 4, 5, rng.randint(1, 9)))
        seen = (0, 0, 1.0) if turn % 2 else (rng.uniform(-50, 50), 3, rng.choice((0.5, 1.7)))
        drawn, camera = (layer, ()) if turn % 2 else (one_by_one, seen)
        frame = [partial(draw_widget, camera=seen, **look) for look in looks]
        assert_draws(drawn, screen, lambda t, f=frame: [draw(t) for draw in f], camera)
