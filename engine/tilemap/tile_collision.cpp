// Collision: which cells are blocked, and what a moving node runs into.
#include <algorithm>

#include "engine/host/caught.hpp"
#include "engine/host/plain_lookup.hpp"
#include "engine/tilemap/tiled_map.hpp"

namespace tessora {

namespace {

constexpr int kBlocking = 1;

// Runs `body`; what fails in it is printed as a lost resource.
template <class Body>
void unless_lost(Value index, Body body) {
  if (host::caught(PyExc_Exception, body)) {
    host::print_line(host::formatted("Error:Resource [%S] loss", index));
  }
}

// The first number that is whole and not less.
Number ceiling(const Number& value) {
  const std::optional<double> plain = value.plain();
  if (plain && !value.is_real()) return value;
  if (plain && std::isfinite(*plain)) return std::ceil(*plain);
  Ref function = host::import("math", "ceil"_name);
  Ref whole = function(value);
  return whole;
}

// A node's rectangle, as it stands on the map.
struct Edges {
  Number left, top, right, bottom;
};

Edges edges_on(TiledMap& map, Value node) {
  const Number map_left = host::ask(message::GetWX, map);
  const Number map_top = host::ask(message::GetWY, map);
  Ref rect = message::GetSizeRect(node);
  auto edge = [&](Value name) {
    Ref value = rect.attr(name);
    return Number(value);
  };
  const Number left = edge("left"_name);
  const Number top = edge("top"_name);
  const Number right = edge("right"_name);
  const Number bottom = edge("bottom"_name);
  return {left - map_left, top - map_top, right - map_left, bottom - map_top};
}

// The cells of one direction from one pixel to another, cut to those on the map.
struct Cells {
  Py_ssize_t first, last;
};

// The index of the cell at a place, as int() cuts it.
Py_ssize_t cell_at(const Number& place, const Number& size, Py_ssize_t count) {
  const Number cells = place / size;
  Ref whole = cells.truncated();
  const Number index(whole);
  // What lies outside the map blocks nothing; -1 and `count` stand for all of it.
  if (index < Number(0)) return -1;
  if (index >= Number(count)) return count;
  return static_cast<Py_ssize_t>(index.whole().value_or(count));
}

// One direction of the map.
struct Lane {
  Number size;
  Py_ssize_t count = 0;

  // The cells that a rectangle from `near` to `far` covers.
  [[nodiscard]] Cells covered(const Number& near, const Number& far) const {
    const Number end = ceiling(far) - Number(1);
    const Py_ssize_t first = cell_at(near, size, count);
    return {first, end > near ? cell_at(end, size, count) : first};
  }
  // The cells that the leading edge of the rectangle meets on its way, if there is one: those
  // behind the one where it is, or that one.
  [[nodiscard]] std::optional<Cells> entered(const Number& near, const Number& far,
                                             const Number& move) const {
    const Number none(0);
    if (move > none) {
      const Cells now = covered(near, far);
      const Cells then = covered(near + move, far + move);
      return Cells{std::min(now.last + 1, then.last), then.last};
    }
    if (move < none) {
      const Py_ssize_t now = cell_at(near, size, count);
      const Py_ssize_t then = cell_at(near + move, size, count);
      return Cells{then, std::max(now - 1, then)};
    }
    return std::nullopt;
  }
};

bool any_blocked(TiledMap& map, const Cells& columns, const Cells& rows, const Lane& across,
                 const Lane& down) {
  const Py_ssize_t last_row = std::min(rows.last, down.count - 1);
  const Py_ssize_t last_column = std::min(columns.last, across.count - 1);
  for (Py_ssize_t row = std::max<Py_ssize_t>(rows.first, 0); row <= last_row; ++row) {
    for (Py_ssize_t column = std::max<Py_ssize_t>(columns.first, 0); column <= last_column;
         ++column) {
      host::count_step();
      Ref blocked = message::GetTileCollision(map, column, row);
      if (blocked.equals_true()) return true;
    }
  }
  return false;
}

}  // namespace

Block read_block(Value information) {
  if (!information.is_set()) return {1, 1};
  const Cell size = unpack_pair(information);
  const Py_ssize_t columns = host::range_length(size.column);
  return {columns, host::range_length(size.row)};
}

template <class Body>
void TiledMap::if_blocking(Value index, Body body) {
  unless_lost(index, [&] {
    Ref node = resource(index);
    Ref collision = message::GetCollision(node);
    const Cell pair = unpack_pair(collision);
    if (pair.column.equals(host::integer(kBlocking))) body(pair.row);
  });
}

bool TiledMap::is_blocking(Value index) {
  bool found = false;
  if_blocking(index, [&](Value) { found = true; });
  return found;
}

std::optional<Block> TiledMap::block_of(Value index) {
  std::optional<Block> block;
  if_blocking(index, [&](Value information) { block = read_block(information); });
  return block;
}

Ref TiledMap::covered_cells(Value column, Value row, const Block& block) {
  Ref cells = host::list();
  const std::int64_t left = Number(column).whole().value_or(0);
  const std::int64_t top = Number(row).whole().value_or(0);
  auto end = [](std::int64_t start, Py_ssize_t length, Py_ssize_t count) {
    return length < count - start ? start + length : static_cast<std::int64_t>(count);
  };
  const std::int64_t bottom = end(top, block.rows, row_count());
  const std::int64_t right = end(left, block.columns, column_count());
  for (std::int64_t r = std::max<std::int64_t>(top, 0); r < bottom; ++r) {
    for (std::int64_t k = std::max<std::int64_t>(left, 0); k < right; ++k) {
      host::count_step();
      cells.append(host::tuple(host::integer(k), host::integer(r)));
    }
  }
  return cells;
}

void TiledMap::mark_covered(Value column, Value row, Value index) {
  const std::optional<Block> block = block_of(index);
  if (!block) return;
  Ref cells = covered_cells(column, row, *block);
  for (Ref each : host::items(cells)) {
    const Cell cell = unpack_pair(each);
    Ref place = flat_index(cell.column, cell.row);
    Ref blocked = read(Coll_Array);
    blocked.set_item(place, true);
  }
}

bool TiledMap::GetTileCollision(Value tile_x, Value tile_y) {
  Ref valid = message::IsValidTile(*this, tile_x, tile_y);
  if (!valid.equals_true()) return false;
  Ref index = flat_index(tile_x, tile_y);
  Ref blocked = read(Coll_Array);
  Ref entry = blocked.item(index);
  return entry.equals_true();
}

void TiledMap::UpdateTileCollision() {
  const Number cells = read(Tile_Cow) * read(Tile_Row);
  check_cell_count(cells);
  Ref fresh = host::list();
  host::append_times(fresh, host::integer(0), host::range_length(cells.object()));
  write(Coll_Array, fresh);
  each_tile([&](Py_ssize_t column, Py_ssize_t row, Py_ssize_t, Value index) {
    mark_covered(host::integer(column), host::integer(row), index);
  });
}

Ref TiledMap::checkCollision(Value node, Value move_x, Value move_y) {
  const Edges now = edges_on(*this, node);
  const Lane across{read(Tile_Width), column_count()};
  const Lane down{read(Tile_Height), row_count()};
  const Number right(move_x);
  bool blocked_across = false;
  Number led_to(0);
  if (const auto columns = across.entered(now.left, now.right, right)) {
    const Cells rows = down.covered(now.top, now.bottom);
    blocked_across = any_blocked(*this, *columns, rows, across, down);
    if (!blocked_across) led_to = right;
  }
  bool blocked_down = false;
  if (const auto rows = down.entered(now.top, now.bottom, Number(move_y))) {
    const Cells columns = across.covered(now.left + led_to, now.right + led_to);
    blocked_down = any_blocked(*this, columns, *rows, across, down);
  }
  return host::tuple(blocked_across, blocked_down);
}

void declare_tile_collision(MapDeclaration& map) {
  using M = TiledMap;
  map.method<&M::GetTileCollision>(
         "GetTileCollision(tileX: int, tileY: int) -> bool",
         "Return whether column `tileX`, row `tileY` is blocked; false outside the map.")
      .method<&M::UpdateTileCollision>(
          "UpdateTileCollision() -> None",
          "Make a new `Coll_Array` in which exactly the cells are blocked that the map's tiles "
          "cover.\n\nNodes that cannot be had are printed as lost.")
      .method<&M::checkCollision>(
          "checkCollision(gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> Any",
          "Return whether blocked cells stop the node's move by `moveX` and by `moveY` pixels.\n\n"
          "The node's GetSizeRect() counts, and every cell that its leading edge meets on the "
          "way.\n"
          "The horizontal part is tested first and alone, the vertical one from where a free\n"
          "horizontal part leads to, so that a node on the ground walks and one along a wall\n"
          "falls. Not for diamond grids. The tuple itself is always true: test its parts.")
      .method<&M::update>(
          "update(delay: float) -> None",
          "Advance the map's children, actions and update function by `delay` seconds, then note "
          "in `Coll_Dict` what animated tiles cover in their current frame.\n\n"
          "These are cells whose resource is a GameCharacter with a `TileBlock` at that frame.");
}

}  // namespace tessora
