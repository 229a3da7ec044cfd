"""Figures that stand, walk, fall, jump into corners and slide along walls."""

import pygame
import pytest
import Tessora as T
from helpers import Recorder
from tile_stage import make_map

SIDE, FAR = 32, float("inf")


# A map drawn in text: "#" is blocked.
def level(*rows, **shape):
    tilemap = make_map(rows=len(rows), columns=len(rows[0]), size=(SIDE, SIDE), **shape)
    tilemap.Coll_Array[:] = [cell == "#" for row in rows for cell in row]
    return tilemap


def figure(left, top, width=SIDE, height=SIDE):
    node = T.GameNode(None, left, top)
    node.width, node.height = width, height
    return node


ROOM = ("#####", "#...#", "#...#", "#####")
IN_ROOM = [((64, 64), (0, 0), (False, False)), ((64, 64), (5, 0), (False, False))]
IN_ROOM += [((64, 60), (0, 4), (False, False)), ((64, 60), (0, 4.5), (False, True))]
IN_ROOM += [((64, 60), (0, 0.5), (False, False)), ((96, 64), (0.25, 0), (True, False))]
IN_ROOM += [((96, 64), (1, 1), (True, True)), ((96, 40), (1, 10), (True, False))]
IN_ROOM += [((32, 64), (-0.5, 0), (True, False)), ((33, 64), (-1, 0), (False, False))]
IN_ROOM += [((64, 32), (0, -3), (False, True)), ((64, 40), (-3, -8), (False, False))]
IN_ROOM += [((64, 64), (10**9, 0), (True, False)), ((64, 64), (True, False), (False, False))]
IN_ROOM += [((96, 64), (float("nan"), 1), (False, True))]


@pytest.mark.parametrize(("place", "move", "answer"), IN_ROOM)
def test_a_figure_of_one_cell_in_a_room(place, move, answer):
    assert level(*ROOM).checkCollision(figure(*place), *move) == answer


def test_moves_have_defaults_and_names():
    tilemap, node = level(*ROOM), figure(64, 64)
    assert tilemap.checkCollision(node) == (False, False)
    assert tilemap.checkCollision(gameNode=node, moveY=1) == (False, True)


ONE, WIDE, ROW = ("...", ".#.", "..."), ("....", "..#.", "...."), ("..#....",)
MOVES = {
    "into the cell in the corner": (ONE, (0, 0), (8, 8), (False, True)),
    "past the cell in the corner": (ONE, (0, 0), (8, 0), (False, False)),
    "a high figure on both sides of a block": (WIDE, (0, 0, 64, 96), (4, 0), (True, False)),
    "a wide figure on both sides of a block": (WIDE, (32, -60, 96, 64), (0, 40), (False, True)),
    "a leap over a wall": (ROW, (0, 0), (150, 0), (True, False)),
    "a leap back over a wall": (ROW, (160, 0), (-150, 0), (True, False)),
    "out of a block": (ROW, (50, 0), (-40, 0), (False, False)),
}


@pytest.mark.parametrize("name", MOVES)
def test_a_figure_near_a_block(name):
    rows, place, move, answer = MOVES[name]
    assert level(*rows).checkCollision(figure(*place), *move) == answer


def test_a_map_elsewhere_collides_where_it_lies():
    tilemap = level(*ROOM, x=1000, y=-500)
    assert tilemap.checkCollision(figure(64, 64), 0, 1) == (False, False)
    assert tilemap.checkCollision(figure(1064, -436), 0, 1) == (False, True)


# Moves as a game does: each part that is free.
def step(tilemap, node, move_x, move_y):
    stopped = tilemap.checkCollision(node, move_x, move_y)
    node.x += 0 if stopped[0] else move_x
    node.y += 0 if stopped[1] else move_y
    return stopped


@pytest.mark.parametrize("speed", [1, 3, 0.9, 2.37, 31, 0.015625])
@pytest.mark.parametrize("direction", [-1, 1])
def test_a_walk_ends_at_the_wall_and_the_way_back_is_free(speed, direction):
    tilemap, node = level(*ROOM), figure(64, 64)
    for _ in range(4000):
        if step(tilemap, node, direction * speed, 5)[0]:
            break
    gap = 96 - node.x if direction > 0 else node.x - 32
    # Rectangles hold whole pixels: less than one may be lost on either side.
    assert -1 < gap < speed + 1
    assert node.y == 64
    assert step(tilemap, node, -direction * speed, 5)[0] is False


@pytest.mark.parametrize("speed", [1, 0.9, 2.37])
def test_a_figure_slides_along_a_wall_while_it_falls(speed):
    tilemap, node = level("#.#", "#.#", "#.#", "###"), figure(32, 0)
    for _ in range(200):
        stopped = step(tilemap, node, 1, speed)
        assert stopped[0] is True
    assert -1 < 64 - node.y < speed
    assert tilemap.checkCollision(node, 0, -speed) == (False, False)


@pytest.mark.parametrize(
    ("move", "error"),
    [((FAR, 0), OverflowError), ((0, -FAR), OverflowError), (("1", 0), TypeError)],
)
def test_moves_without_sense_are_ordinary_errors(move, error):
    with pytest.raises(error):
        level(*ROOM).checkCollision(figure(64, 64), *move)


def test_a_cell_without_width_is_a_division_by_zero():
    tilemap = level(*ROOM)
    tilemap.Tile_Width = 0
    with pytest.raises(ZeroDivisionError):
        tilemap.checkCollision(figure(64, 64), 1, 0)


def test_any_rectangle_will_do_and_a_script_may_answer_for_cells():
    node, tilemap, asked = Recorder(pygame.Rect(0, 0, 40, 10)), level("...", "..."), []
    tilemap.GetTileCollision = lambda k, r: asked.append((k, r)) or 1
    assert tilemap.checkCollision(node, 0, 30) == (False, True)
    assert (node.names(), asked) == (["GetSizeRect"], [(0, 1)])


def test_a_layer_asks_its_maps(screen):
    layer = T.GameLayer()
    layer.AddGameNode(level(*ROOM))
    assert layer.checkCollision(figure(64, 64), 0, 1) is True
    assert layer.checkCollision(figure(64, 64), 1, 0) is False
