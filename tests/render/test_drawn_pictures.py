"""Every pixel of a drawn widget comes from the plain sequence of pygame calls."""

import random
from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from picture_oracle import (
    LOOK,
    WHITE,
    Place,
    assert_draws,
    assert_same,
    assert_widget,
    draw_image,
    draw_widget,
    dress,
    noise,
    scenery,
)

ALPHA, RLE, KEY = pygame.SRCALPHA, pygame.RLEACCEL, (255, 0, 255)
TINT = pygame.Color(120, 255, 40, 200)
# Flags, depth, and then perhaps: has a colour key, opacity, flags of these two.
SOURCES = [(ALPHA, 32), (0, 32), (0, 24), (0, 16), (ALPHA, 16), (0, 8), (0, 8, True)]
SOURCES += [(0, 16, True), (0, 24, True), (0, 32, True), (0, 32, True, None, RLE)]
SOURCES += [(0, 32, False, 90), (0, 24, False, 1), (ALPHA, 32, False, 90), (ALPHA, 32, False, 0)]
SOURCES += [(0, 32, True, 200), (0, 32, False, 90, RLE)]
VIEWS = {
    "whole": lambda s: s,
    "display format": lambda s: s.convert(),
    "display format with alpha": lambda s: s.convert_alpha(),
    "subsurface": lambda s: s.subsurface((2, 3, 15, 9)),
    "subsurface twice": lambda s: s.subsurface((2, 3, 15, 9)).subsurface((1, 1, 9, 5)),
    "one pixel": lambda s: s.subsurface((1, 1, 1, 1)),
    "one row": lambda s: s.subsurface((0, 5, 21, 1)),
}


def picture(flags=ALPHA, depth=32, keyed=False, alpha=None, speed=0):
    surface = noise((21, 17), 1, flags, depth)
    if keyed:
        surface.fill(KEY, (3, 3, 9, 9))
        surface.set_colorkey(KEY, speed)
    if alpha is not None:
        surface.set_alpha(alpha, speed)
    return surface


@pytest.mark.parametrize("source", SOURCES, ids=str)
@pytest.mark.parametrize("view", sorted(VIEWS))
def test_source_formats(screen, source, view):
    image = VIEWS[view](picture(*source))
    width, height = image.get_size()
    widget = dress(T.GUI_Image(None, 30, 20), image=image)
    for alpha in (255, 128):
        assert_widget(widget, screen, alpha=alpha, width=width, height=height, angle=0.0)
        assert_widget(widget, screen, width=9, height=9, angle=30.0)
        assert_widget(widget, screen, bgColor=TINT, width=50, blendtype=pygame.BLEND_ADD)
        assert_widget(widget, screen, bgColor=None, angle=-90, blendtype=pygame.BLEND_SUB)
        dress(widget, bgColor=WHITE, blendtype=pygame.BLEND_MULT)


NAN, INFINITE = float("nan"), float("inf")
COLORS = [None, pygame.Color(0, 0, 0, 0), pygame.Color(255, 255, 255, 254), (1, 2, 3), "red"]
COLORS += [pygame.Color(255, 255, 255, 0), [255, 128, 0, 255], "#ff800040", 0xFFFFFFFF, (1, 2)]
VALUES = {
    "sx": (0, 0.001, 0.0099, 0.01, 0.5, 1, 1.999, 3.0, -1, -0.005, NAN, INFINITE, "text", None),
    "angle": (-0.0, 1e-9, 30, 90.0, 180.0, 270, 360, -45.5, 1e6, (1, 2), None),
    "width": (0, 1, 2, 33.7, 90, NAN, INFINITE, [], None),
    "height": (0, 1, 40.2, "text"),
    "alpha": (1, 127, 128, 254, 255.0, 128.5, True, 256, 1000, 2**70),
    "bgColor": (*COLORS, (300, 0, 0), "no such color", 3.5),
    "x": (-0.5, -0.999, -1.5, -20.25, 0.999, 7.49, 319.5, 400, "text", None),
    "y": (-0.5, -1.5, 0.75, 239.5),
    "anchorx": (0.5, 1.0, 0.333, -1, "text"),
    "anchory": (0.75, 2, None),
    "style": ("raised", "hollow", None, "unknown"),
    "blendtype": (0, None, pygame.BLEND_MIN, pygame.BLEND_RGBA_ADD, pygame.BLEND_PREMULTIPLIED),
    "image": ("text", (1, 2), pygame.Surface((0, 0)), pygame.Surface((5, 0), ALPHA)),
}
BASES = [{}, {"width": 20, "height": 18, "angle": 15}, {"anchorx": 0.5, "sx": 1.5, "bgColor": TINT}]
CAMERAS = [(0, 0, 1.0), (7, -9, 1), (0.5, 0.25, 0.5), (-40, 11, 2.5), (0, 0, 0)]


@pytest.mark.parametrize("name", sorted(VALUES))
@pytest.mark.parametrize("base", BASES, ids=str)
def test_every_look(screen, name, base):
    """What pygame refuses is refused with the same error, and the next draw is exact again."""
    widget = T.GUI_Image(None, 60.5, 50.25)
    for index, value in enumerate(VALUES[name]):
        for image in (picture(), picture(0, 24), None):
            if isinstance(value, pygame.Surface):
                base = {"width": value.get_width(), "height": 0}
            camera = CAMERAS[index % len(CAMERAS)]
            good = {**LOOK, "x": 60.5, "y": 50.25, **base, "image": image}
            assert_widget(widget, screen, camera, **{**good, name: value})
        assert_widget(widget, screen, **good)


@pytest.mark.parametrize("alpha", [0, 0.0, -1, -300])
def test_without_opacity_the_place_stays_as_it_was(screen, alpha):
    widget = dress(T.GUI_Image(None, 10, 20), alpha=alpha, sx=2.0, x=80)
    stale = Place(dict(LOOK, x=10, y=20))
    assert_widget(widget, screen, (5, 5, 2.0), stale, image=picture())
    assert_widget(widget, screen, (5, 5, 2.0), stale, image=None, angle=40.0)
    assert (widget.WX, widget.WY, widget.WSX, widget.WAngle) == (10, 20, 1.0, 0.0)


def test_a_color_changed_in_place(screen):
    widget, color, colors = T.GUI_Image(None, 20, 30), pygame.Color(255, 255, 255), [255] * 3
    for image in (picture(), None):
        assert_widget(widget, screen, image=image, bgColor=color)
        for channel in "rgba":
            setattr(color, channel, getattr(color, channel) - 80)
            assert_widget(widget, screen)
        assert_widget(widget, screen, bgColor=colors)
        colors[1] -= 90
        assert_widget(widget, screen)


def test_children_are_drawn_over_their_parent_and_translated_only(screen):
    parent = dress(T.GUI_Image(None, 40, 30), sx=2.0, angle=15.0, image=noise((50, 50), 1))
    child = dress(T.GUI_Image(parent, 20, 10), angle=5.0, image=noise((20, 20), 2))
    camera = (6, 3, 1.25)

    def expected(target):
        for node, x, y, sx, angle in ((parent, 40, 30, 2.0, 15.0), (child, 60, 40, 2.0, 20.0)):
            place = Place(dict(LOOK, x=x, y=y, sx=sx, angle=angle), camera)
            draw_image(target, place, node.image, WHITE)

    assert_draws(parent, screen, expected, camera)
    for visible in (False, 0, None, 2, "yes"):
        assert_draws(dress(parent, visible=visible), screen, lambda target: None)


@pytest.mark.parametrize("flags", [0, ALPHA])
def test_drawing_into_an_off_screen_surface(screen, flags):
    target = noise((90, 80), 9, flags, 32)
    target.set_clip((10, 10, 50, 40))
    reference = target.copy()
    reference.set_clip((10, 10, 50, 40))
    widget = dress(T.GUI_Image(None, 10, 5), image=picture(), angle=20)
    draw_widget(reference, (4, 2, 0.5), x=10, y=5, image=widget.image, angle=20)
    widget.drawToSurface(target, 4, 2, 0.5)
    assert_same(target, reference)


def random_look(rng, sources):
    number = rng.uniform if rng.random() < 0.5 else rng.randint
    color = pygame.Color(*[rng.choice((0, 90, 254, 255, 255)) for _ in range(4)])
    look = {"image": rng.choice(sources), "x": number(-60, 330), "y": number(-60, 250)}
    look.update({name: rng.choice((1, 0.5, 0.75, rng.uniform(0, 3))) for name in ("sx", "sy")})
    look.update({name: rng.choice((0, 0.5, 1, rng.random())) for name in ("anchorx", "anchory")})
    look.update(angle=rng.choice((0, 0.0, 0, 90, 30.5, rng.uniform(-720, 720))))
    look.update(width=rng.choice((16, number(0, 60))), height=rng.choice((16, number(0, 60))))
    look.update(alpha=rng.choice((255, 255, 255, 128, rng.randint(1, 254))))
    look.update(bgColor=rng.choice((None, WHITE, color)))
    look.update(blendtype=rng.choice([pygame.BLEND_MULT] * 4 + [pygame.BLEND_ADD, 0]))
    look.update(style=rng.choice(("flat",) * 5 + ("hollow", None)))
    return look


@pytest.mark.parametrize("seed", range(12))
def test_random_frames(screen, seed):
    """Widgets change and share pictures that are painted between the frames."""
    rng = random.Random(seed)
    sources = [None, *(picture(*source) for source in SOURCES[:7]), noise((40, 33), seed)]
    sources.append(sources[-1].subsurface((3, 3, 20, 20)))
    widgets = [T.GUI_Image(None) for _ in range(25)]
    looks = [random_look(rng, sources) for _ in widgets]
    layer, one_by_one = T.GameLayer(), SimpleNamespace()
    one_by_one.draw = lambda *args: [widget.draw(*args) for widget in widgets]
    for widget in widgets:
        layer.AddGameNode(widget)
    for turn in range(6):
        camera = rng.choice(((0, 0, 1.0), (rng.uniform(-50, 50), 3, rng.choice((0.5, 1.7)))))
        for index, widget in enumerate(widgets):
            if rng.random() < 0.4:
                fresh = random_look(rng, sources)
                name = rng.choice(list(LOOK))
                looks[index].update(rng.choice((fresh, {name: fresh[name]})))
            dress(widget, **looks[index])
        color = [rng.randrange(256) for _ in range(4)]
        rng.choice(sources[1:]).fill(color, (rng.randint(-2, 20), 4, 5, rng.randint(1, 9)))

        def frame(target, seen_from):
            for look in looks:
                draw_widget(target, seen_from, **look)

        scenery(screen, seed)
        if turn % 2:
            assert_draws(layer, screen, lambda target: frame(target, (0, 0, 1.0)), ())
        else:
            assert_draws(one_by_one, screen, lambda target, c=camera: frame(target, c), camera)
