"""Pictures reach a surface with the bytes of pygame's own calls, whoever draws them."""

import random
from functools import partial

import pygame
import pytest
import Tessora as T
from picture_oracle import draw_widget, dress, noise, outcome

ALPHA = pygame.SRCALPHA
TARGETS = {"opaque": 0, "alpha": ALPHA}
BLENDS = {"blend": pygame.BLEND_MULT, "add": pygame.BLEND_ADD, "subtract": pygame.BLEND_SUB}


def surface_of(size, pixels, flags=ALPHA):
    surface = pygame.Surface(size, flags, 32)
    surface.get_buffer().write(bytes(pixels), 0)
    return surface


# A picture with empty, opaque and mixed stretches, as the pictures of games have them, in another
# order of its bytes than the display's: what is drawn is kept beside it.
def figure(size, seed):
    rng, picture = random.Random(seed), noise(size, seed)
    for _ in range(size[1]):
        box = (rng.randint(-9, size[0]), rng.randrange(size[1]), rng.randint(1, 60), 3)
        alpha = rng.choice((0, 255, 0, 255, 1, 254))
        picture.fill([rng.choice((0, 255, 80)) for _ in range(3)] + [alpha], box)
    return pygame.image.frombuffer(bytearray(picture.get_buffer().raw), size, "RGBA")


# Draw the widget twice, so that a kept picture is used; every byte must be what the calls give.
def assert_bytes(widget, target, whole=None, **look):
    dress(widget, width=look["image"].get_width(), height=look["image"].get_height(), **look)
    names = ("image", "x", "y", "width", "height", "alpha", "bgColor", "blendtype")
    look = {name: getattr(widget, name) for name in names}
    whole = whole or target
    before = whole.get_buffer().raw
    wanted = outcome(partial(draw_widget, target, **look))
    expected = whole.get_buffer().raw
    for _ in range(2):
        whole.get_buffer().write(before, 0)
        assert outcome(widget.draw, target) == wanted
        assert whole.get_buffer().raw == expected


@pytest.fixture
def widget(screen):
    return dress(T.GUI_Image(None, 0, 0), bgColor=None)


# Every colour with every alpha.
@pytest.fixture(scope="module")
def all_pairs():
    return surface_of((256, 256), (v for a in range(256) for s in range(256) for v in (s, s, s, a)))


@pytest.mark.parametrize("kind", TARGETS)
def test_every_source_target_and_alpha(widget, all_pairs, kind):
    for value in range(256):
        pixel = (value, (value + 85) % 256, (value + 170) % 256, value * 37 % 256)
        target = surface_of((256, 256), pixel * 65536, TARGETS[kind])
        assert_bytes(widget, target, image=all_pairs)


@pytest.mark.parametrize("kind", TARGETS)
@pytest.mark.parametrize("blend", ["add", "subtract"])
def test_every_source_and_target(widget, all_pairs, kind, blend):
    pixels = (v for d in range(256) for s in range(256) for v in (d, d, d, s))
    target = surface_of((256, 256), pixels, TARGETS[kind])
    assert_bytes(widget, target, image=all_pairs, blendtype=BLENDS[blend])


@pytest.mark.parametrize("kind", TARGETS)
@pytest.mark.parametrize("blend", BLENDS)
def test_every_tint_and_opacity(widget, all_pairs, kind, blend):
    rng = random.Random(3)
    ground = noise((256, 256), 3, TARGETS[kind])
    look = {"image": all_pairs, "blendtype": BLENDS[blend]}
    for value in range(0, 256, 3):
        three = [value, min(value + 1, 255), min(value + 2, 255)]
        color = pygame.Color(*rng.sample(three, 3), rng.choice((255, 255, value)))
        assert_bytes(widget, ground.copy(), bgColor=color, alpha=255, **look)
        assert_bytes(widget, ground.copy(), bgColor=None, alpha=max(value, 1), **look)
        assert_bytes(widget, ground.copy(), bgColor=color, alpha=rng.randint(1, 254), **look)


def test_every_row_length(widget):
    for width in range(1, 70):
        image = noise((width, 3), width)
        for kind in TARGETS.values():
            for blend in BLENDS.values():
                target = noise((width + 5, 5), width + 70, kind)
                assert_bytes(widget, target, image=image, x=width % 4, y=1, blendtype=blend)


def random_target(rng):
    size = rng.randint(1, 90), rng.randint(1, 50)
    whole = noise(size, rng.random(), rng.choice((0, ALPHA)))
    target = whole
    for _ in range(rng.choice((0, 1, 1, 2))):
        width, height = target.get_size()
        left, top = rng.randrange(width), rng.randrange(height)
        box = (left, top, rng.randint(1, width - left), rng.randint(1, height - top))
        target = target.subsurface(box)
    if rng.random() < 0.5:
        box = [rng.randint(-10, 60), rng.randint(-10, 40), rng.randint(0, 60), rng.randint(0, 60)]
        target.set_clip(box)
    return whole, target


# The bytes around a subsurface and outside the clip are compared too.
@pytest.mark.parametrize("seed", range(6))
def test_random_places_clips_and_subsurfaces(widget, seed):
    rng = random.Random(seed)
    for _ in range(100):
        whole, target = random_target(rng)
        size = rng.randint(1, 130), rng.randint(1, 40)
        image = rng.choice((noise, figure))(size, rng.random())
        look = {"x": rng.randint(-130, 90), "y": rng.randint(-40, 50)}
        look["alpha"] = rng.choice((255, 255, 1, 254, rng.randint(1, 255)))
        color = [rng.choice((0, 255, rng.randint(0, 255))) for _ in range(4)]
        look["bgColor"] = rng.choice((None, pygame.Color("white"), pygame.Color(*color)))
        look["blendtype"] = rng.choice(list(BLENDS.values()) + [pygame.BLEND_MULT] * 3)
        assert_bytes(widget, target, whole, image=image, **look)


def state(method, *args):
    return lambda surface: getattr(surface, method)(*args)


STATES = {
    "opacity": state("set_alpha", 90),
    "no blending": state("set_alpha", None),
    "blending": state("set_alpha", 255),
    "colour key": state("set_colorkey", (0, 0, 0)),
    "compressed": state("set_alpha", 255, pygame.RLEACCEL),
    "compressed with a key": state("set_colorkey", (0, 0, 0), pygame.RLEACCEL),
    "no colour key": state("set_colorkey", None),
    "locked": state("lock"),
    "unlocked": state("unlock"),
    "clip": state("set_clip", (3, 2, 9, 8)),
    "no clip": state("set_clip", None),
    "another size": state("__init__", (25, 12), 0, 32),
    "another depth": state("__init__", (25, 12), 0, 24),
}


# Drawn before the change too, so that whatever is remembered of the surfaces is out of date.
@pytest.mark.parametrize("kind", TARGETS)
@pytest.mark.parametrize("name", STATES)
@pytest.mark.parametrize("side", ["source", "target"])
def test_states_that_change_between_two_draws(widget, side, name, kind):
    look, pairs = {"width": 20, "height": 15, "bgColor": None}, []
    for _ in range(2):
        pairs.append((noise((20, 15), 6), noise((30, 20), 7, TARGETS[kind])))
        pairs[-1][0].set_at((4, 4), (0, 0, 0, 255))
    (image, target), (same_image, wanted) = pairs
    dress(widget, image=image, **look)
    for step in ("clip", "no clip", name, "clip", name):
        for pair in pairs:
            STATES[step](pair[side == "target"])
        for _ in range(2):
            expected = outcome(partial(draw_widget, wanted, image=same_image, **look))
            assert outcome(widget.draw, target) == expected
            assert target.get_buffer().raw == wanted.get_buffer().raw


def test_locked_owners_and_parts(widget):
    image = noise((9, 9), 7)
    dress(widget, image=image, width=9, height=9)
    for locked in range(3):
        target = noise((30, 20), locked, 0)
        part = target.subsurface((2, 2, 20, 15))
        family = [target, part, part.subsurface((1, 1, 10, 10))]
        family[locked].lock()
        before = target.get_buffer().raw
        for each in family:
            assert outcome(widget.draw, each) == outcome(each.blit, image, (0, 0))
        family[locked].unlock()
        assert target.get_buffer().raw == before or locked == 2


def test_surfaces_over_the_same_bytes(widget):
    memory = bytearray(random.Random(8).getrandbits(8 * 3600).to_bytes(3600, "little"))
    expected, look = bytearray(memory), {"x": 3, "y": 2, "width": 30, "height": 30}
    target, image = [pygame.image.frombuffer(memory, (30, 30), "BGRA") for _ in range(2)]
    wanted, same = [pygame.image.frombuffer(expected, (30, 30), "BGRA") for _ in range(2)]
    dress(widget, image=image, **look)
    for _ in range(3):
        result = outcome(partial(draw_widget, wanted, image=same, bgColor=None, **look))
        assert outcome(widget.draw, target) == result and memory == expected


def test_a_part_of_a_display_that_is_gone(screen):
    widget = dress(T.GUI_Image(None, 2, 2), image=noise((9, 9), 9), width=9, height=9)
    part = screen.subsurface((20, 10, 100, 80))
    for _ in range(2):
        widget.draw(part)
    for size in ((320, 240), (640, 480), (320, 240)):
        shown = pygame.display.set_mode(size)
        shown.fill((9, 90, 200))
        wanted = shown.copy()
        widget.draw(wanted.subsurface((20, 10, 100, 80)))
        widget.draw(part)
        assert shown.get_buffer().raw == wanted.get_buffer().raw


def test_without_a_display_nothing_is_drawn_onto_it(screen):
    widget = dress(T.GUI_Image(None, 2, 2), image=noise((9, 9), 1), width=9, height=9)
    for _ in range(3):
        widget.draw(screen)
    pygame.quit()
    assert outcome(widget.draw, screen) == pygame.error
