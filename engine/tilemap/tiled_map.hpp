// A tile map: a rectangular or diamond grid whose cells show nodes of the scene's, with collision.
#pragma once

#include <optional>

#include "engine/core/scene_node.hpp"

namespace tessora {

// Columns come before rows, as x before y; a flat index counts row by row.
struct Cell {
  Ref column, row;
};

// So many cells to the right and down.
struct Block {
  Py_ssize_t columns, rows;
};
// The block that collision information names: a pair, or None for one cell.
Block read_block(Value information);

struct TiledMap : GameNode {
  Slot LayerName, ViewType, Tile_Cow, Tile_Row, Tile_Width, Tile_Height, Tile_Visible;
  LazySlot Tile_Color;
  Slot Tile_Array, Coll_Array, Coll_Dict;

  Slot camera;  // offsets and scale of the last draw; not for scripts

  // Shape and content: tiled_map.cpp
  void start_empty();
  void SetTiledMapInfo(Value layer_name, Value row, Value cow, Value tile_w, Value tile_h,
                       Value view_type);
  Ref GetTiledMapInfo();
  void CleanAllObjects();
  bool IsEmpty();
  Ref GetTileObjectCount();
  // The number of rows or columns, as range() takes it.
  [[nodiscard]] Py_ssize_t row_count();
  [[nodiscard]] Py_ssize_t column_count();

  // Calls `visit(column, row, flat index, content)` for every cell that holds a tile, row by row.
  template <class Visit>
  void each_tile(Visit visit, Py_ssize_t from = 0);

  // Pixels and cells: tile_grid.cpp
  bool IsValidTile(Value tile_x, Value tile_y);
  Ref GetTile_XY(Value tx, Value ty);
  Ref GetTile_RC(Value px, Value py);
  bool CheckPtInDiamond(Value px, Value py);
  [[nodiscard]] bool is_rectangular();

  // Single cells: tile_objects.cpp
  Ref GetTileObject(Value tx, Value ty, Value is_tile);
  void SetTileObject(Value tx, Value ty, Value index, Value is_tile);
  void DelTileObject(Value tx, Value ty, Value is_tile);
  bool CheckInsObj(Value px, Value py);
  Ref OnPickDownFunction(Value px, Value py);
  // The place of a cell in the arrays.
  Ref flat_index(Value column, Value row);
  // The scene's node for a tile.
  Ref resource(Value index);

  // Collision: tile_collision.cpp
  bool GetTileCollision(Value tile_x, Value tile_y);
  void UpdateTileCollision();
  Ref checkCollision(Value node, Value move_x, Value move_y);
  // What the node of a tile covers; nothing if it does not collide or, which is printed, is lost.
  template <class Body>
  void if_blocking(Value index, Body body);
  bool is_blocking(Value index);
  std::optional<Block> block_of(Value index);
  // Blocks the cells that the node of the tile in this cell covers.
  void mark_covered(Value column, Value row, Value index);
  // The cells of a block with this cell at its left top corner, as far as they lie on the map:
  // pairs of column and row.
  Ref covered_cells(Value column, Value row, const Block& block);

  // Time: tile_time.cpp
  void update(Value delay);

  // Drawing: tile_drawing.cpp
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void draw_lines(Value screen);
  void draw_markers(Value screen);

  // The cells' nodes: tile_cells.cpp
  void draw_cells(Value screen, Value offset_x, Value offset_y, Value scale);

 private:
  Cell scan_diamonds(const Number& across, const Number& down);
};

namespace message {
inline Message checkClick{"checkClick"};
inline Message CheckPtInDiamond{"CheckPtInDiamond"};
inline Message CleanAllObjects{"CleanAllObjects"};
inline Message GetCollision{"GetCollision"};
inline Message GetCurrActionName{"GetCurrActionName"};
inline Message GetCurrFrameIndex{"GetCurrFrameIndex"};
inline Message GetKeyFrame_TileBlock{"GetKeyFrame_TileBlock"};
inline Message GetTile_RC{"GetTile_RC"};
inline Message GetTileCollision{"GetTileCollision"};
inline Message GetTileObject{"GetTileObject"};
inline Message IsValidTile{"IsValidTile"};
}  // namespace message

// The two items of a pair; ValueError for anything longer or shorter.
Cell unpack_pair(Value pair);

// Whether what an array holds for a cell is a tile.
inline bool holds_tile(Value content) {
  const Number index(content);
  const std::optional<double> plain = index.plain();
  return plain ? *plain >= 0.0 : index >= Number(0);
}

// Raises MemoryError for a map of more cells than a game can hold.
void check_cell_count(const Number& cells);

template <class Visit>
void TiledMap::each_tile(Visit visit, Py_ssize_t from) {
  const Py_ssize_t rows = row_count();
  const Py_ssize_t columns = column_count();
  if (columns == 0) return;
  for (Py_ssize_t row = from / columns; row < rows; ++row) {
    // Small numbers cannot get beyond what an index holds: a list is never so long.
    Py_ssize_t column = row == from / columns ? from % columns : 0;
    for (; column < columns; ++column) {
      host::count_step();
      const Py_ssize_t index = row * columns + column;
      Ref tiles = read(Tile_Array);
      Ref content = tiles.item(index);
      if (holds_tile(content)) visit(column, row, index, content);
    }
  }
}

using MapDeclaration = host::Declaration<TiledMap, GameNode>;
void declare_tile_grid(MapDeclaration& map);
void declare_tile_objects(MapDeclaration& map);
void declare_tile_collision(MapDeclaration& map);
void declare_tile_drawing(MapDeclaration& map);
void register_tiled_map(PyObject* module);

}  // namespace tessora
