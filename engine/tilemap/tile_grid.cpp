// Pixels and cells: where a cell lies and which cell lies under a point.
#include <algorithm>
#include <optional>

#include "engine/host/plain_lookup.hpp"
#include "engine/tilemap/tiled_map.hpp"

namespace tessora {

namespace {

Number magnitude(const Number& value) {
  return value < Number(0) ? Number(0) - value : value;
}

// The formulas of the diamond grid, for machine numbers and for those of scripts.
template <class Real>
struct Diamond {
  Real width, height, half_width, half_height;

  Diamond(const Real& wide, const Real& high)
      : width(wide), height(high), half_width(wide * Real(0.5)), half_height(high * Real(0.5)) {}

  [[nodiscard]] Real center_x(const Real& row, const Real& column) const {
    return (row + column) * half_width + half_width;
  }
  [[nodiscard]] Real center_y(const Real& row, const Real& column) const {
    return row * half_height - column * half_height;
  }
};

bool contains(double px, double py, double wide, double high) {
  return std::fabs(px * high) + std::fabs(py * wide) <= wide * high * 0.5;
}

bool contains(const Number& px, const Number& py, const Number& wide, const Number& high) {
  const Number reach = magnitude(px * high) + magnitude(py * wide);
  return wide * high * Number(0.5) >= reach;
}

struct Place {
  Py_ssize_t column, row;
};

// The cell that a scan of all cells meets first, -1 and -1 for none; nothing where only the scan
// itself can tell.
std::optional<Place> first_diamond(double across, double down, double wide, double high,
                                   Py_ssize_t columns, Py_ssize_t rows) {
  // Beyond these sizes rounding is no longer small against a cell.
  constexpr double kLeast = 1e-3;
  constexpr double kMost = 1 << 30;
  if (!(wide > kLeast && wide < kMost && high > kLeast && high < kMost)) return std::nullopt;
  if (columns > (1 << 24) || rows > (1 << 24)) return std::nullopt;
  const Diamond<double> grid(wide, high);
  const double sum = across / grid.half_width - 1.0;
  const double difference = down / grid.half_height;
  const double row_at = (sum + difference) / 2.0;
  const double column_at = (sum - difference) / 2.0;
  // Not so for NaN either.
  if (!(std::fabs(row_at) < kMost && std::fabs(column_at) < kMost)) {
    if (std::isnan(row_at) || std::isnan(column_at)) return std::nullopt;
    return Place{-1, -1};
  }
  // A point is less than two cells away from the centre of one whose bounds it is in.
  constexpr Py_ssize_t kReach = 2;
  const auto near_row = static_cast<Py_ssize_t>(std::lround(row_at));
  const auto near_column = static_cast<Py_ssize_t>(std::lround(column_at));
  const Py_ssize_t last_row = std::min(rows, near_row + kReach);
  const Py_ssize_t last_column = std::min(columns, near_column + kReach);
  for (Py_ssize_t row = std::max<Py_ssize_t>(0, near_row - kReach); row <= last_row; ++row) {
    for (Py_ssize_t column = std::max<Py_ssize_t>(0, near_column - kReach); column <= last_column;
         ++column) {
      const auto r = static_cast<double>(row);
      const auto k = static_cast<double>(column);
      const double off_x = across - grid.center_x(r, k);
      const double off_y = down - grid.center_y(r, k);
      if (std::fabs(off_x) < wide && std::fabs(off_y) < high &&
          contains(off_x, off_y, wide, high)) {
        return Place{column, row};
      }
    }
  }
  return Place{-1, -1};
}

// How many steps a loop from 0 to this number, inclusive, makes.
Py_ssize_t inclusive(const Number& last) {
  return host::range_length((last + Number(1)).object());
}

}  // namespace

bool TiledMap::is_rectangular() {
  double known = 0.0;
  if (holds_number(ViewType, known)) return known == 0.0;
  Ref type = read(ViewType);
  return type.equals(host::integer(0));
}

bool TiledMap::IsValidTile(Value tile_x, Value tile_y) {
  const Number column(tile_x);
  if (column < Number(0) || column >= Number(read(Tile_Cow))) return false;
  const Number row(tile_y);
  return !(row < Number(0)) && !(row >= Number(read(Tile_Row)));
}

Ref TiledMap::GetTile_XY(Value tx, Value ty) {
  const Number left = read(x) + Number(tx) * read(Tile_Width);
  const Number top = read(y) + Number(ty) * read(Tile_Height);
  return host::tuple(left, top);
}

bool TiledMap::CheckPtInDiamond(Value px, Value py) {
  const Number wide = read(Tile_Width);
  const Number high = read(Tile_Height);
  return contains(Number(px), Number(py), wide, high);
}

Cell TiledMap::scan_diamonds(const Number& across, const Number& down) {
  const Number wide = read(Tile_Width);
  const Number high = read(Tile_Height);
  const Diamond<Number> grid(wide, high);
  const Py_ssize_t rows = inclusive(read(Tile_Row));
  const Py_ssize_t columns = inclusive(read(Tile_Cow));
  for (Py_ssize_t row = 0; row < rows; ++row) {
    for (Py_ssize_t column = 0; column < columns; ++column) {
      host::count_step();
      const Number off_x = across - grid.center_x(row, column);
      const Number off_y = down - grid.center_y(row, column);
      if (!(magnitude(off_x) < wide) || !(magnitude(off_y) < high)) continue;
      Ref inside = message::CheckPtInDiamond(*this, off_x, off_y);
      if (inside.equals_true()) return {host::integer(column), host::integer(row)};
    }
  }
  return {host::integer(-1), host::integer(-1)};
}

Ref TiledMap::GetTile_RC(Value px, Value py) {
  const Number across = Number(px) - read(x);
  const Number down = Number(py) - read(y);
  if (is_rectangular()) {
    const Number columns = across / read(Tile_Width);
    Ref column = columns.truncated();
    const Number rows = down / read(Tile_Height);
    Ref row = rows.truncated();
    return host::tuple(column, row);
  }
  double wide = 0.0;
  double high = 0.0;
  const std::optional<double> dx = across.plain();
  const std::optional<double> dy = down.plain();
  if (dx && dy && holds_number(Tile_Width, wide) && holds_number(Tile_Height, high) &&
      message::CheckPtInDiamond.direct<&TiledMap::CheckPtInDiamond>(*this) != nullptr) {
    const Py_ssize_t rows = row_count();
    const Py_ssize_t columns = column_count();
    // range() of a negative number and one more is empty, as it is of zero and less.
    const bool some = read(Tile_Row) >= Number(0) && read(Tile_Cow) >= Number(0);
    if (!some) return host::tuple(-1, -1);
    if (const auto place = first_diamond(*dx, *dy, wide, high, columns, rows)) {
      return host::tuple(place->column, place->row);
    }
  }
  const Cell found = scan_diamonds(across, down);
  return host::tuple(found.column, found.row);
}

void declare_tile_grid(MapDeclaration& map) {
  using M = TiledMap;
  map.method<&M::IsValidTile>("IsValidTile(tileX: int, tileY: int) -> bool",
                              "Return whether column `tileX`, row `tileY` lies on the map.")
      .method<&M::GetTile_XY>(
          "GetTile_XY(tx: int, ty: int) -> tuple[float, float]",
          "Return the left top corner of column `tx`, row `ty` as on a rectangular grid, in "
          "pixels of the parent.")
      .method<&M::GetTile_RC>(
          "GetTile_RC(px: float, py: float) -> tuple[int, int]",
          "Return column and row of the cell under a point, in pixels of the parent.\n\n"
          "On a rectangular grid places are cut towards zero: up to one cell left of the map is\n"
          "still column 0, and the result may lie outside the map. On a diamond grid one more row\n"
          "and column than the map has count, and (-1, -1) means none. Raises ZeroDivisionError,\n"
          "ValueError or OverflowError for what no division gives a cell.")
      .method<&M::CheckPtInDiamond>(
          "CheckPtInDiamond(px: float, py: float) -> bool",
          "Return whether a point, in pixels from the centre of a diamond cell, lies in it or on "
          "its edge.");
}

}  // namespace tessora
