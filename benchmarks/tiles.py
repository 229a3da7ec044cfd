"""Tile maps: drawing, updating, asking for cells and collisions."""

import random
from statistics import median

import pygame
import Tessora

from .measure import NO_GOAL, Figure, Pair, at_most, enough_repeats, limit, time_of
from .sprites import SIDE, check_same_picture, random_picture

WINDOW = (1280, 720)
KINDS = 16
CELLS = 50
MANY = 1000
CAMERA = (0, 0, 1.0)


class Scene:
    def __init__(self, nodes):
        self.nodes = nodes

    def GetLayerResNode(self, index):
        return self.nodes[index]


class EmptyScene(Scene):
    """Does what the other does, and shows nothing."""

    def GetLayerResNode(self, index):
        self.nodes[index]


class QuietScene:
    def __init__(self, nodes):
        self.GetLayerResNode = nodes.__getitem__


def window():
    screen = pygame.display.get_surface()
    if screen is None or screen.get_size() != WINDOW:
        screen = pygame.display.set_mode(WINDOW)
    return screen


def tiles():
    rng = random.Random(9)
    nodes = []
    for _ in range(KINDS):
        node = Tessora.GUI_Image(None)
        node.image = random_picture(rng, SIDE)
        node.width = node.height = SIDE
        nodes.append(node)
    return nodes


def tile_map(scene, side=CELLS, view=0):
    rng = random.Random(6)
    made = Tessora.TiledMap(None)
    made.SetTiledMapInfo("tiles", side, side, SIDE, SIDE // (1 if view == 0 else 2), view)
    made.SetTileVisible(False)
    made.Tile_Array[:] = [rng.randrange(KINDS) for _ in range(side * side)]
    made.OnLoad(scene)
    return made


def visible_blits(made, nodes):
    return [
        (nodes[made.Tile_Array[row * made.Tile_Cow + column]].image, (column * SIDE, row * SIDE))
        for row in range(-(-WINDOW[1] // SIDE))
        for column in range(-(-WINDOW[0] // SIDE))
    ]


def calls(made, scene):
    contents = list(made.Tile_Array)

    def ask():
        for index in contents:
            scene.GetLayerResNode(index)

    return ask


def map_against_blits(scene_class):
    screen, nodes = window(), tiles()
    scene = scene_class(nodes)
    made = tile_map(scene)
    blits = visible_blits(made, nodes)
    ask = calls(made, scene) if scene_class is Scene else lambda: None

    def baseline():
        ask()
        screen.blits(blits)

    check_same_picture(screen, [lambda: made.draw(screen, *CAMERA), baseline])
    return (lambda: made.draw(screen, *CAMERA)), baseline


def difference(effort, count, first, second):
    """What the first takes longer than the second per element, and what the second takes."""
    repeats = [enough_repeats(function, effort["slice"]) for function in (first, second)]
    times = [
        [
            time_of(function, number) / number / count
            for function, number in zip((first, second), repeats)
        ]
        for _ in range(effort["rounds"])
    ]
    return median(a - b for a, b in times), median(b for _, b in times)


def beyond_the_call(act):
    """What a cell costs beyond the call of the script's look-up."""

    def measure(effort):
        nodes = tiles()
        maps = [tile_map(scene(nodes)) for scene in (Scene, EmptyScene)]
        return difference(effort, CELLS * CELLS, *[lambda made=made: act(made) for made in maps])

    return measure


def draw_outside(made):
    made.draw(window(), -100 * SIDE, 0, 1.0)


def update(made):
    made.update(0.016)


def cells_outside(effort):
    """A cell outside the window of a large map, drawn and updated."""
    screen, nodes = window(), tiles()
    made = tile_map(QuietScene(nodes), MANY)
    blits = visible_blits(made, nodes)

    def frame():
        made.draw(screen, *CAMERA)
        made.update(0.016)

    return difference(effort, MANY * MANY, frame, lambda: screen.blits(blits))


def plain_scan(made, px, py):
    wide, high = made.Tile_Width, made.Tile_Height
    half_wide, half_high = wide * 0.5, high * 0.5
    dx, dy = px - made.x, py - made.y
    for row in range(made.Tile_Row + 1):
        for column in range(made.Tile_Cow + 1):
            off_x = dx - ((row + column) * half_wide + half_wide)
            off_y = dy - (row * half_high - column * half_high)
            near = abs(off_x) < wide and abs(off_y) < high
            if near and abs(off_x * high) + abs(off_y * wide) <= wide * high * 0.5:
                return column, row
    return -1, -1


def cell_under_a_point():
    made = tile_map(None, view=1)
    place = 40 * SIDE, -3.5
    assert made.GetTile_RC(*place) == plain_scan(made, *place)
    return (lambda: made.GetTile_RC(*place)), (lambda: plain_scan(made, *place))


def collision():
    """A figure on a floor, against the rectangles of the blocked cells of a map of 120 x 20."""
    rng = random.Random(8)
    made = Tessora.TiledMap(None)
    made.SetTiledMapInfo("tiles", 20, 120, 32, 32, 0)
    made.Coll_Array[:] = [index >= 16 * 120 or rng.random() < 0.05 for index in range(2400)]
    figure = Tessora.GameNode(None, 100, 15 * 32 - 8)
    figure.width, figure.height = 24, 40
    walls = [
        pygame.Rect(index % 120 * 32, index // 120 * 32, 32, 32)
        for index, blocked in enumerate(made.Coll_Array)
        if blocked
    ]

    def baseline():
        pygame.Rect(figure.x + 3, figure.y + 2, figure.width, figure.height).collidelist(walls)

    return (lambda: made.checkCollision(figure, 3, 2)), baseline


def benchmarks():
    yield Pair(
        "50 x 50 tiles, script look-up: blits and calls",
        lambda: map_against_blits(Scene),
        CELLS * CELLS,
        at_most(1.25),
    )
    yield Pair(
        "50 x 50 tiles, plain look-up: visible blits",
        lambda: map_against_blits(QuietScene),
        CELLS * CELLS,
        NO_GOAL,
    )
    yield Figure(
        "tile outside the window, beyond its call",
        beyond_the_call(draw_outside),
        limit(20e-9, "20 ns"),
    )
    yield Figure("updating a tile, beyond its call", beyond_the_call(update), limit(30e-9, "30 ns"))
    yield Figure("1000 x 1000 tiles, a cell outside", cells_outside, limit(5e-9, "5 ns"))
    yield Pair("diamond under a point: plain Python", cell_under_a_point, 1, limit(2e-6, "2 us"))
    yield Pair("collision with a map: Rect.collidelist", collision, 1, at_most(3))
