// Single cells: reading, writing, deleting them, and presses on them.
#include "engine/core/binding_tables.hpp"
#include "engine/host/caught.hpp"
#include "engine/tilemap/tiled_map.hpp"

namespace tessora {

namespace {

// The cell that a script names by column and row or, unless `is_tile`, by a place in pixels.
Cell addressed(TiledMap& map, Value tx, Value ty, Value is_tile) {
  if (!is_tile.equals_false()) return {tx, ty};
  Ref cell = message::GetTile_RC(map, tx, ty);
  return unpack_pair(cell);
}

bool is_valid(TiledMap& map, const Cell& cell) {
  Ref valid = message::IsValidTile(map, cell.column, cell.row);
  return valid.equals_true();
}

// Where a press on the screen lies, as the last draw showed the cells; nothing when that draw
// showed them in no size.
std::optional<std::pair<Ref, Ref>> uncovered(TiledMap& map, Value px, Value py) {
  Ref camera = map.read(map.camera);
  if (!camera) return std::pair{Ref(px), Ref(py)};
  const Number offset_x = camera.item(0);
  const Number offset_y = camera.item(1);
  const Number scale = camera.item(2);
  if (scale == Number(0)) return std::nullopt;
  if (offset_x == Number(0) && offset_y == Number(0) && scale == Number(1)) {
    return std::pair{Ref(px), Ref(py)};
  }
  const Number left = (Number(px) - offset_x) / scale;
  const Number top = (Number(py) - offset_y) / scale;
  return std::pair{left.object(), top.object()};
}

// Raises the event of a press on a tile; false where there is none.
bool pick_tile(TiledMap& map, Value px, Value py) {
  Ref content = message::GetTileObject(map, px, py, false);
  if (!holds_tile(content)) return false;
  Ref place = message::GetTile_RC(map, px, py);
  const Cell cell = unpack_pair(place);
  Ref params = host::dictionary();
  params.set_item("tx"_name, cell.column);
  params.set_item("ty"_name, cell.row);
  message::CallInnerEvent(map, "PickDown"_name, params);
  return true;
}

}  // namespace

Ref TiledMap::flat_index(Value column, Value row) {
  const Number index = Number(row) * read(Tile_Cow) + Number(column);
  return index.object();
}

Ref TiledMap::resource(Value index) {
  Ref scene = read(sceneInstance);
  return scene.call("GetLayerResNode"_name, index);
}

Ref TiledMap::GetTileObject(Value tx, Value ty, Value is_tile) {
  const Cell cell = addressed(*this, tx, ty, is_tile);
  if (!is_valid(*this, cell)) return host::integer(-1);
  Ref index = flat_index(cell.column, cell.row);
  Ref tiles = read(Tile_Array);
  return tiles.item(index);
}

void TiledMap::SetTileObject(Value tx, Value ty, Value index, Value is_tile) {
  const Cell cell = addressed(*this, tx, ty, is_tile);
  if (!is_valid(*this, cell)) return;
  Ref place = flat_index(cell.column, cell.row);
  Ref tiles = read(Tile_Array);
  tiles.set_item(place, index);
  if (holds_tile(index)) mark_covered(cell.column, cell.row, index);
}

void TiledMap::DelTileObject(Value tx, Value ty, Value is_tile) {
  const Cell cell = addressed(*this, tx, ty, is_tile);
  if (!is_valid(*this, cell)) return;
  Ref place = flat_index(cell.column, cell.row);
  Ref tiles = read(Tile_Array);
  Ref index = tiles.item(place);
  if (holds_tile(index) && is_blocking(index)) {
    Ref blocked = read(Coll_Array);
    blocked.set_item(place, host::integer(0));
  }
  tiles = read(Tile_Array);
  tiles.set_item(place, host::integer(-1));
}

bool TiledMap::CheckInsObj(Value px, Value py) {
  const Number left = Number(px) - read(x);
  const Number top = Number(py) - read(y);
  Ref across = left.object();
  Ref down = top.object();
  bool hit = false;
  host::walk(*this, children, [&](Value child) {
    if (hit) return;
    Ref clicked_it = message::checkClick(child, across, down);
    hit = clicked_it.equals_true();
  });
  return hit;
}

Ref TiledMap::OnPickDownFunction(Value px, Value py) {
  if (!is_visible(*this)) return host::none();
  bool hit = false;
  if (is_true(Enable_PickDown)) {
    if (const auto place = uncovered(*this, px, py))
      hit = pick_tile(*this, place->first, place->second);
  }
  // The event of this press was the tile's.
  const bool told_before = std::exchange(tells_presses_itself, true);
  Ref taker;
  auto press = [&] {
    taker = message::OnPickDownFunction.base<&GameNode::OnPickDownFunction>(*this, px, py);
  };
  host::with_cleanup(press, [&] { tells_presses_itself = told_before; });
  return taker.is_set() || !hit ? taker : Ref(*this);
}

void declare_tile_objects(MapDeclaration& map) {
  using M = TiledMap;
  map.method<&M::GetTileObject>(
         "GetTileObject(tx: float, ty: float, isTile: bool) -> int",
         "Return what a cell holds, -1 outside the map.\n\n"
         "With `isTile` true the cell is column `tx`, row `ty`, else the one under a point in\n"
         "pixels of the parent.")
      .method<&M::SetTileObject>(
          "SetTileObject(tx: float, ty: float, resIndex: int, isTile: bool) -> None",
          "Put a resource into a cell, named as for GetTileObject; nothing outside the map.\n\n"
          "Where the resource's node has `collisionType` 1, the cells that its `collisionInfo`\n"
          "names are blocked: a pair of columns and rows, counted right and down from this cell,\n"
          "or None for the cell alone. Collision that was there stays; UpdateTileCollision()\n"
          "cleans up. A node that cannot be had is printed as lost; the cell keeps the index.")
      .method<&M::DelTileObject>(
          "DelTileObject(tx: float, ty: float, isTile: bool) -> None",
          "Empty a cell, named as for GetTileObject, and unblock it if its resource collides.")
      .method<&M::CheckInsObj>(
          "CheckInsObj(px: float, py: float) -> bool",
          "Return whether a child is hit at the point, taken relative to the map's place.")
      .method<&M::OnPickDownFunction>(
          "OnPickDownFunction(px: float, py: float) -> GameNode | None",
          "Handle a press at screen position `px`, `py` in pixels.\n\n"
          "If the cell that the last draw showed there holds a tile, the event \"PickDown\" is\n"
          "raised with the keywords `tx` (column) and `ty` (row). Then children and the map "
          "itself\n"
          "take the press as any node. Returns the node that took it, the map for a tile, or "
          "None.");
}

}  // namespace tessora
