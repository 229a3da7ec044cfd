"""Single cells: reading, writing, deleting, pressing, and nodes that are lost."""

import pytest
import Tessora as T
from helpers import Scene
from tile_stage import Stage, make_map, tile

LOST = "Error:Resource [{}] loss\n"


def blocking(kind=1, info=None):
    node = T.GameNode(None)
    node.SetCollision(kind, info)
    return node


def blocked(tilemap):
    columns = tilemap.Tile_Cow
    return [(i % columns, i // columns) for i, flag in enumerate(tilemap.Coll_Array) if flag]


def test_cells_are_named_by_column_and_row_or_by_pixels():
    tilemap = make_map([blocking(-1)] * 9, x=100)
    tilemap.SetTileObject(1, 2, 5, True)
    tilemap.SetTileObject(150, 5, 7, False)
    tilemap.SetTileObject(150, 20, 8, 0)
    assert tilemap.Tile_Array == [-1, -1, -1, 7, -1, -1, -1, 8, -1, 5, -1, -1]
    assert tilemap.GetTileObject(1, 2, True) == tilemap.GetTileObject(120, 40, False) == 5
    assert tilemap.GetTileObject(1, 2, None) == 5
    assert tilemap.GetTileObject(-1, 0, True) == tilemap.GetTileObject(4, 0, True) == -1
    tilemap.SetTileObject(0, 3, 9, True)
    assert tilemap.GetTileObjectCount() == 3


@pytest.mark.parametrize(
    ("info", "cells"),
    [(None, [(2, 1)]), ((1, 1), [(2, 1)]), ((2, 2), [(2, 1), (3, 1), (2, 2), (3, 2)])]
    + [([9, 1], [(2, 1), (3, 1)]), ((1, 2**70), [(2, 1), (2, 2)]), ((0, 5), [])],
)
def test_a_block_is_counted_right_and_down_and_cut_at_the_edge(info, cells):
    tilemap = make_map([blocking(1, info), blocking(0)])
    tilemap.SetTileObject(2, 1, 0, True)
    tilemap.SetTileObject(0, 0, 1, True)
    assert blocked(tilemap) == cells
    asked = [*cells, (0, 0), (4, 1)]
    answers = [tilemap.GetTileCollision(k, r) for k, r in asked]
    assert answers == [True] * len(cells) + [False] * 2


def test_deleting_frees_the_cell_itself_only():
    tilemap = make_map([blocking(1, (2, 1))])
    tilemap.SetTileObject(1, 1, 0, True)
    tilemap.SetTileObject(1, 1, -1, True)
    assert blocked(tilemap) == [(1, 1), (2, 1)], "overwriting frees nothing"
    tilemap.SetTileObject(1, 1, 0, True)
    tilemap.DelTileObject(1, 1, True)
    assert blocked(tilemap) == [(2, 1)] and tilemap.IsEmpty()
    held = tilemap.Coll_Array
    tilemap.UpdateTileCollision()
    assert tilemap.Coll_Array == [0] * 12
    assert tilemap.Coll_Array is not held


@pytest.mark.parametrize("info", [5, (1,), (1, 2, 3), ("a", 1), (1.5, 1), object()])
def test_a_node_whose_information_makes_no_sense_is_lost(info, capsys):
    tilemap = make_map([blocking(1, info)])
    tilemap.SetTileObject(0, 0, 0, True)
    assert capsys.readouterr().out == LOST.format(0)
    assert (tilemap.Tile_Array[0], blocked(tilemap)) == (0, [])
    tilemap.Coll_Array[0] = True
    tilemap.DelTileObject(0, 0, True)
    assert blocked(tilemap) == [] and capsys.readouterr().out == "", "only its type counts here"


def test_a_lost_node_is_told_and_its_cell_kept(capsys):
    tilemap = make_map([])
    tilemap.SetTileObject(0, 0, 4, True)
    assert tilemap.Tile_Array[0] == 4
    tilemap.UpdateTileCollision()
    tilemap.DelTileObject(0, 0, True)
    assert tilemap.Tile_Array[0] == -1
    T.TiledMap(None).SetTileObject(0, 0, 1, True)
    assert capsys.readouterr().out == LOST.format(4) * 3 + LOST.format(1)


def test_what_is_no_failure_of_a_node_is_not_caught():
    def interrupted(index):
        raise KeyboardInterrupt

    stage = Stage([])
    stage.GetLayerResNode = interrupted
    with pytest.raises(KeyboardInterrupt):
        make_map(scene=stage).SetTileObject(0, 0, 1, True)


@pytest.mark.parametrize(
    ("array", "error"), [([], IndexError), (None, TypeError), ((-1,) * 12, TypeError)]
)
@pytest.mark.parametrize("name", ["Tile_Array", "Coll_Array"])
def test_short_and_strange_lists_fail_at_the_point_of_use(name, array, error):
    tilemap = make_map([blocking()])
    setattr(tilemap, name, array)
    pytest.raises(error, tilemap.SetTileObject, 3, 2, 0, True)


def test_children_are_hit_relative_to_the_map():
    tilemap = make_map(x=50)
    node = T.GameNode(tilemap, 0, 0)
    node.width = node.height = 10
    assert (tilemap.CheckInsObj(55, 5), tilemap.CheckInsObj(65, 5)) == (True, False)


EVENT = ("on_tile", {"tx": 2, "ty": 1})


# A map with one tile, in column 2, row 1, and what its scene is told of presses.
def map_in_a_scene(**shape):
    scene, node = Scene(), tile(1)
    scene.GetLayerResNode = lambda index: node
    tilemap = make_map(scene=scene, **shape)
    tilemap.SetInnerBindingEvent("PickDown", "tile", None)
    tilemap.Tile_Array[6] = 0
    return tilemap, scene.calls


PRESSES = [((40, 20), None, {}, True), ((50, 20), None, {}, False)]
PRESSES += [((40, 20), (0, 0, 1.0), {}, True), ((40, 20), (0, 0, 0), {}, False)]
PRESSES += [((240, 30), (200, 10, 1.0), {}, True), ((40, 20), (200, 10, 1.0), {}, False)]
PRESSES += [((110, 45), (30, 0, 2.0), {}, True)]
PRESSES += [((150, 0), (22, 16, 1.0), {"view": 1, "size": (64, 32)}, True)]


@pytest.mark.parametrize(("place", "camera", "shape", "hit"), PRESSES)
def test_a_press_reports_the_tile_under_the_pointer(screen, place, camera, shape, hit):
    tilemap, calls = map_in_a_scene(**shape)
    if camera is not None:
        tilemap.draw(screen, *camera)
    assert tilemap.OnPickDownFunction(*place) is (tilemap if hit else None)
    assert calls == [EVENT] * hit


def test_a_hidden_map_takes_no_press():
    tilemap, _ = map_in_a_scene()
    tilemap.SetVisible(False)
    assert tilemap.OnPickDownFunction(40, 20) is None
    tilemap.SetVisible(True)
    tilemap.EnablePickDownEvent(False)
    assert tilemap.OnPickDownFunction(40, 20) is None


def test_a_press_before_any_draw_finds_no_camera_behind_a_property():
    class Map(T.TiledMap):
        userData = property(lambda self: 1, lambda self, value: None)

    tilemap = Map(None)
    tilemap.OnLoad(Stage([tile(1)]))
    tilemap.Tile_Array[0] = 0
    assert tilemap.OnPickDownFunction(px=2, py=2) is tilemap


def test_children_take_the_press_after_the_event():
    tilemap, calls = map_in_a_scene()
    child = T.GameNode(tilemap, 0, 0)
    child.width = child.height = 50
    child.SetPickDownFunction(lambda node: calls.append("child"))
    assert tilemap.OnPickDownFunction(34, 18) is child
    tilemap.RemoveChild(child)
    tilemap.width = tilemap.height = 50
    assert tilemap.OnPickDownFunction(34, 18) is tilemap
    assert calls == [EVENT, "child", EVENT], "the map's own press raises no second event"
