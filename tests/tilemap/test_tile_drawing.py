"""What a map paints, what it calls, and what it leaves behind."""

import random

import pygame
import pytest
import Tessora as T
from helpers import Recorder
from picture_oracle import assert_draws
from tile_stage import QuietStage, Stage, draw_cells_plainly, fill, look, make_map, tile

CYAN = (0, 255, 255, 255)
WORLD = "x y WX WY WSX WSY WAngle".split()


LOOKS = {
    "plain": [{}, {}, {}],
    "anchored": [{"anchorx": 0.5, "anchory": 1.0}, {}, {"sx": 2.0, "anchorx": 1}],
    "turned": [{"angle": 30}, {"angle": 45.5}, {}],
    "odd sizes": [{"width": 40, "height": 7}, {"width": 0}, {"sx": 0.5}],
    "hidden": [{"visible": False}, {"alpha": 0}, {"alpha": 100}],
    "tinted": [{"bgColor": None}, {"bgColor": pygame.Color(255, 90, 10, 255)}, {}],
    "bordered": [{"borderVisible": True}, {"anchorvisible": True}, {"focusIn": True}],
}


def nodes_of(look_name):
    return [tile(seed, **values) for seed, values in enumerate(LOOKS[look_name])]


# Where nodes stand, and in which kind of number.
def places_of(nodes):
    places = [[getattr(node, name) for name in WORLD] for node in nodes]
    return [[(type(value), value) for value in place] for place in places]


def assert_drawn(tilemap, screen, look_up, camera):
    def plainly(target):
        draw_cells_plainly(tilemap, look_up, target, camera)

    assert_draws(tilemap, screen, plainly, camera)


@pytest.mark.parametrize("stage", [Stage, QuietStage])
@pytest.mark.parametrize("view", [0, 1])
@pytest.mark.parametrize(
    "camera", [(0, 0, 1.0), (-37, 11.5, 1.0), (90, 60, 0.5), (-900, 0, 2), (5, 5, -1.0)]
)
@pytest.mark.parametrize("look_name", LOOKS)
def test_cells_show_their_nodes_and_leave_them_as_a_full_walk_does(
    screen, stage, view, camera, look_name
):
    screen.set_clip((20, 10, 150, 120))
    nodes, twins = nodes_of(look_name), nodes_of(look_name)
    tilemap = make_map(scene=stage(nodes), rows=14, columns=17, view=view, x=7, y=30)
    rng = random.Random(4)
    tilemap.Tile_Array[:] = [rng.randrange(-1, 3) for _ in tilemap.Tile_Array]
    assert_drawn(tilemap, screen, twins.__getitem__, camera)
    assert places_of(nodes) == places_of(twins)


def test_the_scene_is_asked_for_every_tile_in_order(screen):
    tilemap = fill(make_map([tile(1)] * 5, x=-5000), [4, -1, 0, 2], [-1] * 4, [-7, 3, 3, 1])
    tilemap.draw(screen, 0, 0, 1.0)
    assert tilemap.sceneInstance.asked == [4, 0, 2, 3, 3, 1]
    tilemap.update(0.1)
    assert tilemap.sceneInstance.asked == [4, 0, 2, 3, 3, 1] * 2


def test_nodes_of_scripts_get_place_and_camera_as_they_are(screen):
    node = Recorder()
    tilemap = fill(make_map([node], x=10, y=2.5), [-1] * 6 + [0] + [-1] * 5)
    tilemap.SetParent(T.GameNode(None, 100, 100))
    tilemap.draw(screen, 1, 2, 2.0)
    assert node.calls == [("SetXY", (32, 16)), ("draw", (screen, 21.0, 7.0, 2.0))]
    assert [type(part) for part in node.calls[0][1]] == [int, int]


# A scene that changes what it hands out while the map is drawn.
class Meddler(Stage):
    def __init__(self, nodes, act):
        super().__init__(nodes)
        self.act = act

    def GetLayerResNode(self, index):
        node = super().GetLayerResNode(index)
        self.act(self, node)
        return node


@pytest.mark.parametrize(
    "act",
    [
        lambda scene, node: node.SetAXY(0.5, 0.1 * (len(scene.asked) % 7)),
        lambda scene, node: setattr(node, "width", 10 + len(scene.asked) % 30),
        lambda scene, node: setattr(node, "image", tile(len(scene.asked) % 4).image),
        lambda scene, node: node.SetVisible(len(scene.asked) % 3 != 0),
        lambda scene, node: setattr(node, "alpha", len(scene.asked) % 2 * 255),
        lambda scene, node: node.SetImage([tile(9).image]),
        lambda scene, node: setattr(node, "x", -3),
    ],
)
def test_a_look_up_may_change_the_node_every_time(screen, act):
    tilemap = make_map(scene=Meddler([tile(1), tile(2)], act), rows=20, columns=25)
    tilemap.Tile_Array[:] = [index % 2 for index in range(500)]
    twin = Meddler([tile(1), tile(2)], act)
    assert_drawn(tilemap, screen, twin.GetLayerResNode, (-30, -20, 1.0))
    assert places_of(tilemap.sceneInstance.nodes) == places_of(twin.nodes)


@pytest.mark.parametrize("stage", [Stage, QuietStage])
@pytest.mark.parametrize("order", [(0, 1), (1, 0), (2, 1, 0), (0, 2)])
def test_one_node_under_several_numbers_stays_at_its_last_cell(screen, stage, order):
    node, other = tile(1), tile(2)
    nodes = [node, node, other]
    tilemap = make_map(scene=stage(nodes), rows=1, columns=len(order), y=-500)
    fill(tilemap, order).draw(screen, 0, 0, 1.0)
    last = max(index for index, kind in enumerate(order) if nodes[kind] is node)
    assert (node.GetXY(), node.WX, node.WY) == ((last * 16, 0), last * 16, -500)


def test_a_walk_that_fails_leaves_nodes_where_it_came_to(screen):
    node = tile(1)
    tilemap = make_map([node], rows=1, columns=5, y=-500)
    with pytest.raises(IndexError):
        fill(tilemap, [0, 0, 0, 7, 0]).draw(screen, 0, 0, 1.0)
    assert (node.GetXY(), node.WX) == ((32, 0), 32)


def test_a_node_that_a_look_up_hides_keeps_what_it_was_passed_with(screen):
    act = lambda scene, node: len(scene.asked) == 3 and node.SetVisible(False)  # noqa: E731
    node = tile(1)
    tilemap = make_map(scene=Meddler([node], act), rows=1, columns=4, y=-500)
    fill(tilemap, [0] * 4).draw(screen, 0, 0, 1.0)
    assert (node.GetXY(), node.WX) == ((48, 0), 16)


def test_a_look_up_may_set_the_clip(screen):
    clips = [(0, 0, 10, 10), (100, 0, 60, 60)]
    act = lambda scene, node: screen.set_clip(clips[len(scene.asked) > 6])  # noqa: E731
    tilemap = make_map(scene=Meddler([tile(1)], act), rows=1, columns=12)
    fill(tilemap, [0] * 12).draw(screen, 0, 0, 1.0)
    screen.set_clip(None)
    assert look(screen.subsurface((10, 0, 86, 16))) == bytes(86 * 16 * 3)
    assert len(set(look(screen.subsurface((100, 0, 60, 16))))) > 20


@pytest.mark.parametrize("quiet", [False, True])
def test_counting_scenes_are_told_of_every_tile(screen, quiet):
    class Counting(Stage):
        count = 0

        def AddBatchCount(self):
            self.count += 1

    scene = Counting([tile(1)])
    scene.nodes[0].OnLoad(scene)
    if quiet:
        scene.GetLayerResNode = scene.nodes.__getitem__
    fill(make_map(scene=scene, x=-999), [0] * 12).draw(screen, 0, 0, 1.0)
    assert scene.count == 12


@pytest.mark.parametrize("look_up", [{0: None}.__getitem__, {0: None}.get, [None].__getitem__])
def test_none_is_no_node(screen, look_up):
    stage = Stage([None])
    fill(make_map(scene=stage), [0] * 12).draw(screen, 0, 0, 1.0)
    stage.GetLayerResNode = look_up
    fill(make_map(scene=stage), [0] * 12).draw(screen, 0, 0, 1.0)


UNFIT = [([0] * 11, IndexError), ([0] * 11 + [1], IndexError), ([0] * 11 + [2**70], IndexError)]
UNFIT += [((), IndexError), ([0, None] * 6, TypeError), (None, TypeError)]


@pytest.mark.parametrize(("array", "error"), UNFIT)
@pytest.mark.parametrize("stage", [Stage, QuietStage])
def test_arrays_that_do_not_fit_are_ordinary_errors(screen, array, error, stage):
    tilemap = make_map(scene=stage([tile(1)]), x=-500)
    tilemap.Tile_Array = array
    pytest.raises(error, tilemap.draw, screen, 0, 0, 1.0)
    pytest.raises(error, tilemap.update, 1)


def test_too_few_collision_flags_are_an_index_error(screen):
    tilemap = make_map(x=-500)
    tilemap.Coll_Array.pop()
    pytest.raises(IndexError, tilemap.draw, screen, 0, 0, 1.0)


def test_a_walk_survives_its_lists(screen):
    def act(scene, node):
        tilemap.CleanAllObjects()
        tilemap.OnDestroy()
        tilemap.Tile_Array = [0]

    tilemap = make_map(scene=Meddler([tile(1)], act))
    for _ in range(2):
        fill(tilemap, [0] * 12)
        pytest.raises(IndexError, tilemap.draw, screen, 0, 0, 1.0)


def lines_of(monkeypatch, tilemap, screen, camera=(0, 0, 1.0)):
    calls, line = [], pygame.draw.line
    monkeypatch.setattr(pygame.draw, "line", lambda *args: calls.append(args[1:4]) or line(*args))
    tilemap.draw(screen, *camera)
    return calls


def test_grid_lines_of_rectangles(screen, monkeypatch):
    tilemap = make_map(rows=1, columns=2, x=10, y=20)
    tilemap.sx = 1.5
    tilemap.SetTileVisible(1)
    tilemap.SetTileLineColor((9, 8, 7))
    lines = lines_of(monkeypatch, tilemap, screen, (100, 0, 2.0))
    across = [((9, 8, 7), (120, y), (216, y)) for y in (40, 72)]
    assert lines == across + [((9, 8, 7), (x, 40), (x, 72)) for x in (120, 168, 216)]


def test_grid_lines_of_diamonds_reach_by_rows_across_and_columns_down(screen, monkeypatch):
    tilemap = make_map(rows=2, columns=1, view=1, x=10, y=100, size=(20, 11))
    tilemap.SetTileVisible(True)
    ends = [(start, end) for _, start, end in lines_of(monkeypatch, tilemap, screen)]
    firsts = [((10 + i * 10, 100 + i * 5.5), (30 + i * 10, 94.5 + i * 5.5)) for i in range(3)]
    others = [((10 + i * 10, 100 - i * 5.5), (30 + i * 10, 105.5 - i * 5.5)) for i in range(2)]
    assert ends == firsts + others


def test_crosses_lie_over_blocked_cells_of_both_kinds(screen):
    tilemap = make_map([tile(1)], rows=3, columns=3, size=(20, 20))
    tilemap.Coll_Array[4], tilemap.Coll_Array[8] = 1, 2
    tilemap.Coll_Dict[0] = [(2, 0), (9, 9)]
    fill(tilemap, [0] * 9).draw(screen, 0, 0, 1.0)
    # Corners and centres.
    crossed = [(20, 20), (40, 20), (40, 40), (20, 40), (30, 30)]
    crossed += [(40, 0), (60, 0), (60, 20), (50, 10)]
    assert [screen.get_at(place) for place in crossed] == [CYAN] * 9
    assert CYAN not in [screen.get_at(place) for place in ((50, 50), (10, 10))]


def test_crosses_of_diamonds_lie_in_the_box_of_the_cell(screen):
    tilemap = make_map(rows=2, columns=2, view=1, y=40, size=(40, 20))
    tilemap.Coll_Array[3] = True
    tilemap.draw(screen, 0, 0, 1.0)
    corners = [screen.get_at(place) for place in ((40, 30), (80, 30), (40, 50), (80, 50))]
    assert corners == [CYAN] * 4


@pytest.mark.parametrize("value", [5, [3], [(1, 2, 3)], ["ab"], None])
def test_crosses_of_senseless_entries_are_ordinary_errors(screen, value):
    tilemap = make_map()
    tilemap.Coll_Dict[0] = value
    pytest.raises((TypeError, ValueError), tilemap.draw, screen, 0, 0, 1.0)


def test_a_map_of_endless_rows_draws_what_can_be_seen(screen):
    tilemap = T.TiledMap(None)
    tilemap.Tile_Row, tilemap.Tile_Cow = 2**60, 0
    tilemap.draw(screen, 0, 0, 1.0)
    tilemap.Tile_Width = float("nan")
    tilemap.draw(screen, 0, float("inf"), 1.0)


def test_order_of_drawing(screen):
    calls = []
    expected = {"draw_begin": (1, 2, 3.0), "drawsize": (screen,), "drawAnchor": (screen, 3.0)}
    expected.update(drawDragRect=(screen, 6, -2), draw_children=(screen, 1, 2, 3.0))
    expected["CallInnerEvent"] = ("Render",)
    Map = type("Map", (T.TiledMap,), {})
    for name in expected:
        setattr(Map, name, lambda self, *args, name=name: calls.append((name, args)))
    tilemap = Map(None)
    tilemap.OnLoad(Recorder())
    tilemap.draw(screen, 1, 2, 3.0)
    tilemap.SetVisible(False)
    tilemap.draw(screen, 1, 2, 3.0)
    assert calls == list(expected.items())


def test_animated_tiles_block_by_their_frames(screen):
    gate = T.GameCharacter(None)
    gate.AddAction("open", 1.0)
    for frame, block in enumerate([(1, 2), None, (2, 1)]):
        gate.SetKeyFrame_TileBlock("open", frame, block)
    tilemap = fill(make_map([gate]), [-1] * 4, [-1, 0, -1, 0], [-1] * 4)
    held, seen = tilemap.Coll_Dict, []
    held[77] = "gone"
    tilemap.update(0.1)
    assert held == {}
    gate.PlayAction("open")
    for frame in range(3):
        gate.SetCurrFrame(frame)
        tilemap.update(0.1)
        seen.append(dict(held))
    last = {5: [(1, 1), (2, 1)], 7: [(3, 1)]}
    assert seen == [{5: [(1, 1), (1, 2)], 7: [(3, 1), (3, 2)]}, {}, last]
    assert tilemap.Coll_Dict is held
    tilemap.draw(screen, 0, 0, 1.0)
    assert screen.get_at((32, 16)) == CYAN
    assert not tilemap.GetTileCollision(1, 1), "what is recorded is not collided with"
