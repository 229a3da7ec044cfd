"""What is drawn at places and sizes that pygame's own functions cannot take."""

import random

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_same, noise

NAN, INFINITE = float("nan"), float("inf")
COLOR = T.BorderColor


def outlined(x, y, width, height):
    node = T.GameNode(None, x, y)
    node.width, node.height, node.rectvisible = width, height, True
    return node


def scenery():
    return noise((320, 240), 3, 0, 32)


# Boxes with an edge far away, and others that look alike on the screen.
FAR_EDGES = [((10, 20, far, far), (10, 20, 1000, 1000)) for far in (2.0**31, 1e12, 1e300)]
FAR_EDGES.append(((-1e12, -1e12, 1e12 + 50, 1e12 + 60), (-1000, -1000, 1050, 1060)))
# Nothing is drawn of a box without an end.
for size in (NAN, INFINITE, -INFINITE):
    FAR_EDGES += [((10, 10, *sides), (-9, -9, 1, 1)) for sides in ((size, 20), (20, size))]


@pytest.mark.parametrize(("box", "alike"), FAR_EDGES, ids=str)
def test_a_far_edge_leaves_the_visible_part_as_it_is(screen, box, alike):
    expected = scenery()
    pygame.draw.rect(expected, COLOR, alike, 1)
    screen.blit(scenery(), (0, 0))
    outlined(*box).draw(screen, 0, 0, 1.0)
    assert_same(screen, expected)


@pytest.mark.parametrize("seed", range(4))
def test_random_boxes_are_those_of_pygame(screen, seed):
    rng = random.Random(seed)
    for _ in range(100):
        clip = pygame.Rect([rng.randint(-20, 300) for _ in range(4)])
        box = [rng.choice((rng.uniform(-50, 350), rng.randint(-50, 350))) for _ in range(4)]
        box[2:] = [rng.choice((side, -side, 0, 0.5, side * 100)) for side in box[2:]]
        expected = scenery()
        screen.set_clip(None)
        screen.blit(expected, (0, 0))
        for target in (screen, expected):
            target.set_clip(clip)
        pygame.draw.rect(expected, COLOR, box, 1)

        outlined(*box).draw(screen, 0, 0, 1.0)

        assert_same(screen, expected)


LINES = [(-50, 10, 400, 10), (7, -1000, 7, 1000), (0.9, 0.9, 30.9, 20.9)]
LINES += [(-20, -30, 350, 260), (400, 0, 330, 239)]


@pytest.mark.parametrize("ends", LINES, ids=str)
def test_lines_are_those_of_pygame(screen, ends):
    layer, expected = T.GameLayer(), scenery()
    layer.AddLine("line", 0, *ends)
    pygame.draw.line(expected, pygame.Color("red"), ends[:2], ends[2:], 1)
    screen.blit(scenery(), (0, 0))

    layer.draw(screen)

    assert_same(screen, expected)


def test_a_line_with_far_ends_keeps_its_course(screen):
    layer = T.GameLayer()
    layer.AddLine("line", 0, -(10**9), -(10**9), 10**9, 10**9)

    layer.draw(screen)

    red = pygame.Color("red")
    places = [(x, y) for x in range(240) for y in range(240) if screen.get_at((x, y)) == red]
    assert places == [(x, x) for x in range(240)]


@pytest.mark.parametrize("place", (NAN, INFINITE, -INFINITE, 1e30))
def test_a_line_to_nowhere_draws_nothing(screen, place):
    layer = T.GameLayer()
    layer.AddLine("line", 0, 5, 5, place, place)

    layer.draw(screen)

    assert_same(screen, pygame.Surface((320, 240), 0, 32))


def test_a_replaced_pygame_function_is_called_by_name(screen, monkeypatch):
    calls = []
    monkeypatch.setattr(pygame.draw, "rect", lambda *args: calls.append(args))

    outlined(1, 2.5, 3, 4).draw(screen, 0, 0, 1.0)

    assert calls == [(screen, COLOR, (1.0, 2.5, 3.0, 4.0), 1)]


@pytest.fixture
def layer(screen):
    layer = T.GameLayer()
    layer.font = pygame.font.Font(None, 24)
    layer.AddPoint("point", 0, 30, 40)
    return layer


def text_of(layer, screen):
    screen.fill((0, 0, 0))
    layer.draw(screen)
    return screen.copy()


def test_the_text_of_a_point_follows_the_flags_of_the_font(screen, layer):
    plain = [text_of(layer, screen) for _ in range(3)][-1]

    layer.font.set_underline(True)
    underlined = [text_of(layer, screen) for _ in range(3)]
    layer.font.set_underline(False)

    expected = pygame.Surface(screen.get_size(), 0, screen)
    pygame.draw.rect(expected, "red", (28, 38, 5, 5), 0)
    expected.blit(layer.font.render("(30,40)", True, "red").convert_alpha(), (34, 38))
    assert_same(plain, expected)
    assert_same(text_of(layer, screen), plain)
    for surface in underlined[1:]:
        assert_same(surface, underlined[0])
    with pytest.raises(AssertionError):
        assert_same(underlined[0], plain)


# Paints over whatever is drawn on it.
class Painter(pygame.Surface):
    def blit(self, source, *args, **kwargs):
        super().blit(source, *args, **kwargs)
        source.fill((255, 0, 255))


def test_a_target_of_a_scripts_own_cannot_reach_a_kept_text(screen, layer):
    before = [text_of(layer, screen) for _ in range(3)][-1]

    for _ in range(3):
        layer.draw(Painter((320, 240)))

    assert_same(text_of(layer, screen), before)
