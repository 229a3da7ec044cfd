"""Shape of a map, and conversions between pixels and cells."""

import itertools
import math

import pygame
import pytest
import Tessora as T
from tile_stage import make_map

INFINITE, NAN = float("inf"), float("nan")


def test_attributes_follow_those_of_a_node_in_order():
    white = pygame.Color(255, 255, 255, 255)
    own = {"LayerName": None, "ViewType": 0, "Tile_Cow": 20, "Tile_Row": 20, "Tile_Width": 64}
    own.update(Tile_Height=64, Tile_Visible=True, Tile_Color=white, Tile_Array=[-1] * 400)
    own.update(Coll_Array=[False] * 400, Coll_Dict={})
    expected = {**vars(T.GameNode(None, 3, 4)), "NodeType": "TiledMap", **own}
    assert list(vars(T.TiledMap(None, 3, 4)).items()) == list(expected.items())


def test_the_shape_is_set_rows_first_and_told_type_first():
    tilemap = T.TiledMap(None)
    arrays = tilemap.GetTileArray(), tilemap.Coll_Array, tilemap.Coll_Dict
    tilemap.Tile_Array[3], tilemap.Coll_Dict[1] = 7, [(0, 0)]
    tilemap.SetTiledMapInfo(LayerName="a", Row=3, Cow=5, TileW=32, TileH=16, ViewType=0)
    assert tilemap.GetTiledMapInfo() == [0, 3, 5, 32, 16]
    assert tilemap.LayerName == "a"
    now = tilemap.GetTileArray(), tilemap.Coll_Array, tilemap.Coll_Dict
    assert all(a is b for a, b in zip(arrays, now)), "the lists are cleared in place"
    assert now == ([-1] * 15, [False] * 15, {})


def test_a_subclass_may_replace_what_the_constructor_calls():
    class Stacked(T.TiledMap):
        def CleanAllObjects(self):
            super().CleanAllObjects()
            self.Tile_Array[0] = 5

    assert Stacked(None).Tile_Array[:2] == [5, -1]


@pytest.mark.parametrize(
    ("rows", "error"),
    [(1.5, TypeError), ("2", TypeError), (NAN, TypeError)]
    + [(2**40, MemoryError), (10**30, MemoryError)],
)
def test_a_shape_without_sense_is_an_ordinary_error(rows, error):
    with pytest.raises(error):
        make_map(rows=rows, columns=1)


def test_a_negative_shape_has_no_cells():
    tilemap = make_map(rows=-3, columns=4, view=1)
    assert tilemap.Tile_Array == []
    assert tilemap.GetTile_RC(1, 1) == (-1, -1)


def test_accessors_of_the_grid_lines():
    tilemap = T.TiledMap(None)
    tilemap.SetTileVisible(0)
    tilemap.SetTileLineColor((1, 2, 3))
    assert tilemap.IsTileVisible() is tilemap.Tile_Visible == 0
    assert tilemap.GetTileLineColor() is tilemap.Tile_Color == (1, 2, 3)


def test_valid_tiles():
    tilemap = make_map(rows=3, columns=5)
    inside = [(k, r) for k in range(-2, 8) for r in range(-2, 8) if tilemap.IsValidTile(k, r)]
    assert inside == [(k, r) for k in range(5) for r in range(3)]
    assert tilemap.IsValidTile(4.9, 0) is True
    assert tilemap.IsValidTile(5, "never compared") is False
    pytest.raises(TypeError, tilemap.IsValidTile, "1", 0)


def test_places_of_cells_keep_their_kind():
    x, y = make_map(x=10, y=20.5, size=(32, 16)).GetTile_XY(3, 2)
    assert (x, type(x), y, type(y)) == (106, int, 52.5, float)


@pytest.mark.parametrize(
    ("place", "cell"),
    [((140, 90), (2, 1)), ((-20, 20), (0, 0)), ((-54.5, 20), (-1, 0)), ((2**80, 0), (2**74, 0))],
)
def test_rectangular_cells_are_cut_towards_zero(place, cell):
    assert T.TiledMap(None, 10, 20).GetTile_RC(*place) == cell


@pytest.mark.parametrize(
    ("place", "size", "error"),
    [((1, 1), (0, 16), ZeroDivisionError), ((1, 1), (16, 0.0), ZeroDivisionError)]
    + [((1, 1), (None, 16), TypeError), (("1", 1), (16, 16), TypeError)]
    + [((NAN, 1), (16, 16), ValueError), ((1, INFINITE), (16, 16), OverflowError)],
)
def test_rectangular_cells_fail_as_python_divides(place, size, error):
    with pytest.raises(error):
        make_map(size=size).GetTile_RC(*place)


def test_the_diamond_holds_its_edge():
    tilemap = make_map(size=(64, 32))
    places = [(32, 0), (17, 8), (-16, -8)]
    assert [tilemap.CheckPtInDiamond(*place) for place in places] == [True, False, True]
    tilemap.Tile_Width = tilemap.Tile_Height = 2**60
    places = [(2**59, 0), (2**59 + 1, 0)]
    assert [tilemap.CheckPtInDiamond(*place) for place in places] == [True, False]


# The scan of all cells, as plain Python makes it.
def scanned(tilemap, px, py):
    wide, high = tilemap.Tile_Width, tilemap.Tile_Height
    dx, dy, hw, hh = px - tilemap.x, py - tilemap.y, wide * 0.5, high * 0.5
    for r in range(tilemap.Tile_Row + 1):
        for k in range(tilemap.Tile_Cow + 1):
            ox, oy = dx - ((r + k) * hw + hw), dy - (r * hh - k * hh)
            near = abs(ox) < wide and abs(oy) < high
            if near and abs(ox * high) + abs(oy * wide) <= wide * high * 0.5:
                return k, r
    return -1, -1


@pytest.mark.parametrize(
    ("size", "rows", "columns"),
    [((64, 32), 4, 3), ((64, 32), 0, 2), ((7, 5), 5, 6), ((10.7, 3.3), 4, 4), ((1, 90), 3, 3),
     ((1e-9, 1e-9), 2, 2), ((-64, 32), 2, 2), ((0, 32), 2, 2), ((NAN, 5), 1, 1)],
)  # fmt: skip
def test_diamond_cells_are_those_of_the_scan(size, rows, columns):
    tilemap = make_map(rows=rows, columns=columns, view=1, x=3, y=-2.5, size=size)
    reach = [abs(side) if math.isfinite(side) else 1 for side in size]
    steps = [[-1.3 + 0.125 * step for step in range(60)] for side in reach]
    for u, v in itertools.product(*steps):
        place = 3 + u * reach[0], -2.5 + (v - 2) * reach[1]
        assert tilemap.GetTile_RC(*place) == scanned(tilemap, *place), place


@pytest.mark.parametrize("place", [(0, NAN), (INFINITE, 0), (1e300, -1e300), (10**40, 5)])
def test_no_diamond_lies_in_nowhere(place):
    assert make_map(view=1).GetTile_RC(*place) == (-1, -1)


def test_a_script_may_say_what_a_diamond_is():
    tilemap = make_map(view=1, rows=2, columns=2)
    tilemap.CheckPtInDiamond = lambda px, py: px > 8
    assert tilemap.GetTile_RC(20, 0) == (0, 0)
    tilemap.CheckPtInDiamond = lambda px, py: False
    assert tilemap.GetTile_RC(8, 0) == (-1, -1)


@pytest.mark.parametrize("array", [[5], (), [-1] * 12, [NAN, 3], [-1, 0.0, 2**70]])
def test_arrays_of_scripts_are_counted_as_they_are(array):
    tilemap = make_map()
    tilemap.Tile_Array = array
    count = sum(1 for content in array if content >= 0)
    assert (tilemap.GetTileObjectCount(), tilemap.IsEmpty()) == (count, count == 0)


@pytest.mark.parametrize("array", ["text", None, [None] * 12, ["a"] * 12])
def test_arrays_that_cannot_be_counted(array):
    tilemap = make_map()
    tilemap.Tile_Array = array
    pytest.raises(TypeError, tilemap.GetTileObjectCount)
    pytest.raises(TypeError, tilemap.IsEmpty)
