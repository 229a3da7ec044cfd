// What a tile map is: its attributes, its shape, and its arrays as a whole.
#include "engine/tilemap/tiled_map.hpp"

#include "engine/host/plain_lookup.hpp"

namespace tessora {

namespace {

// A list of more places than this is refused: it would not fit into a game's memory.
constexpr std::int64_t kMostCells = 1 << 27;

void clear(TiledMap& map, const Slot& container) {
  Ref held = map.read(container);
  held.call("clear"_name);
}

void fill(TiledMap& map, const Slot& array, Value item, Py_ssize_t count) {
  Ref held = map.read(array);
  host::append_times(held, item, count);
}

// Visits what the array holds, as a loop of a script's own would, until the visit returns false.
template <class Visit>
void each_content(TiledMap& map, Visit visit) {
  Ref tiles = map.read(map.Tile_Array);
  bool goes_on = true;
  const bool plain =
      host::each_small_integer(tiles, tiles.length(), [](Py_ssize_t, int) { return true; });
  if (plain) {
    host::each_small_integer(tiles, tiles.length(),
                             [&](Py_ssize_t, int content) { return visit(content >= 0); });
    return;
  }
  for (Py_ssize_t index = 0; goes_on && index < tiles.length(); ++index) {
    host::count_step();
    goes_on = visit(holds_tile(tiles.item(index)));
  }
}

}  // namespace

Cell unpack_pair(Value pair) {
  const host::Items items = host::items(pair);
  if (items.size() > 2) host::raise(PyExc_ValueError, "too many values to unpack (expected 2)");
  if (items.size() < 2) {
    host::raise(PyExc_ValueError, "not enough values to unpack (expected 2, got %zd)",
                items.size());
  }
  return {items[0], items[1]};
}

void check_cell_count(const Number& cells) {
  if (cells > Number(static_cast<Py_ssize_t>(kMostCells))) {
    host::raise(PyExc_MemoryError, "a tile map of %S cells is too large", cells.object());
  }
}

void TiledMap::start_empty() {
  message::CleanAllObjects(*this);
}

Py_ssize_t TiledMap::row_count() {
  return host::range_length(Ref(read(Tile_Row)));
}

Py_ssize_t TiledMap::column_count() {
  return host::range_length(Ref(read(Tile_Cow)));
}

void TiledMap::SetTiledMapInfo(Value layer_name, Value row, Value cow, Value tile_w, Value tile_h,
                               Value view_type) {
  write(LayerName, layer_name);
  write(Tile_Row, row);
  write(Tile_Cow, cow);
  write(Tile_Width, tile_w);
  write(Tile_Height, tile_h);
  write(ViewType, view_type);
  message::CleanAllObjects(*this);
}

Ref TiledMap::GetTiledMapInfo() {
  return host::list(read(ViewType), read(Tile_Row), read(Tile_Cow), read(Tile_Width),
                    read(Tile_Height));
}

void TiledMap::CleanAllObjects() {
  clear(*this, Coll_Array);
  clear(*this, Coll_Dict);
  clear(*this, Tile_Array);
  const Number cells = read(Tile_Cow) * read(Tile_Row);
  check_cell_count(cells);
  const Py_ssize_t count = host::range_length(cells.object());
  fill(*this, Tile_Array, host::integer(-1), count);
  fill(*this, Coll_Array, false, count);
}

bool TiledMap::IsEmpty() {
  bool empty = true;
  each_content(*this, [&](bool occupied) { return empty = !occupied; });
  return empty;
}

Ref TiledMap::GetTileObjectCount() {
  Py_ssize_t count = 0;
  each_content(*this, [&](bool occupied) {
    count += occupied ? 1 : 0;
    return true;
  });
  return host::integer(count);
}

namespace {

void declare_rows(MapDeclaration& d) {
  using M = TiledMap;
  const auto list = host::made<&host::new_list>();
  d.sets<&M::NodeType>("TiledMap");
  d.attribute<&M::LayerName>(
      "LayerName: str | None", nullptr,
      "Name of the layer whose resources fill the cells, or None; for scripts.");
  d.attribute<&M::ViewType>("ViewType: int", 0,
                            "Kind of grid: 0 is rectangular, anything else diamonds.");
  d.attribute<&M::Tile_Cow>("Tile_Cow: int", 20, "Number of columns.");
  d.attribute<&M::Tile_Row>("Tile_Row: int", 20, "Number of rows.");
  d.attribute<&M::Tile_Width>("Tile_Width: float", 64, "Width of a cell in pixels.");
  d.attribute<&M::Tile_Height>("Tile_Height: float", 64, "Height of a cell in pixels.");
  d.attribute<&M::Tile_Visible>("Tile_Visible: bool", true, "Whether the grid lines are drawn.")
      .pair("IsTileVisible", "SetTileVisible", "value");
  d.attribute<&M::Tile_Color>("Tile_Color: pygame.Color", host::color(255, 255, 255),
                              "Colour of the grid lines.")
      .pair("GetTileLineColor", "SetTileLineColor", "value");
  d.attribute<&M::Tile_Array>(
       "Tile_Array: list[int]", host::replaced(list),
       "Index of each cell's resource row by row, -1 for an empty cell. All are empty at first.")
      .getter("GetTileArray");
  d.attribute<&M::Coll_Array>("Coll_Array: list[Any]", host::replaced(list),
                              "Whether each cell is blocked, row by row. None is at first.");
  d.attribute<&M::Coll_Dict>("Coll_Dict: dict[int, list[tuple[int, int]]]",
                             host::made<&host::dictionary>(),
                             "Cells (column, row) that the current frame of an animated tile "
                             "covers, by the tile's place in `Tile_Array`.");
  d.hidden<&M::camera>();
  d.step<&M::start_empty>();
}

void declare_shape(MapDeclaration& d) {
  using M = TiledMap;
  d.method<&M::SetTiledMapInfo>(
       "SetTiledMapInfo(LayerName: str | None, Row: int, Cow: int, TileW: float, TileH: float, "
       "ViewType: int) -> None",
       "Give the map so many rows and columns of cells of TileW x TileH pixels, all empty.\n\n"
       "`ViewType` 0 is a rectangular grid, any other value one of diamonds. Raises MemoryError\n"
       "for more than 2**27 cells.")
      .method<&M::GetTiledMapInfo>(
          "GetTiledMapInfo() -> list[Any]",
          "Return a new list of `ViewType`, `Tile_Row`, `Tile_Cow`, `Tile_Width`, `Tile_Height`.")
      .method<&M::CleanAllObjects>(
          "CleanAllObjects() -> None",
          "Empty all cells and their collision, in lists of the map's size.\n\n"
          "The lists and the dictionary stay the same objects.")
      .method<&M::IsEmpty>("IsEmpty() -> bool", "Return whether no cell holds a tile.")
      .method<&M::GetTileObjectCount>("GetTileObjectCount() -> int",
                                      "Return how many cells hold a tile.");
}

}  // namespace

void register_tiled_map(PyObject* module) {
  MapDeclaration map(
      module, "TiledMap",
      "A grid of equal cells, rectangular or diamond, filled with nodes that are shared.\n\n"
      "`x` and `y` are its place in the parent, in pixels. A cell holds the index of a resource, "
      "-1 for none. To draw and to update, the map asks `sceneInstance.GetLayerResNode(index)` for "
      "the node of every occupied cell, row by row; None is passed over, and AttributeError is "
      "raised without such a scene. A node stands for many cells: it is put in place, drawn, and "
      "put in the next place.\n\n"
      "A map of many cells is fastest with a look-up that calls no script: `scene.GetLayerResNode "
      "= nodes.__getitem__`, of a plain list or dictionary, or its `get`. Cells of still pictures "
      "(a GUI_Image without children, border and scripts) outside the window then cost next to "
      "nothing.\n\n"
      ">>> ground = Tessora.TiledMap(None)\n"
      ">>> ground.SetTiledMapInfo(\"ground\", 15, 20, 32, 32, 0)\n"
      ">>> ground.GetTile_XY(3, 2)\n"
      "(96, 64)");
  map.constructor("(parent: GameNode | None, x: float = 0, y: float = 0)");
  declare_rows(map);
  declare_shape(map);
  declare_tile_grid(map);
  declare_tile_objects(map);
  declare_tile_collision(map);
  declare_tile_drawing(map);
  map.finish();
}

}  // namespace tessora
