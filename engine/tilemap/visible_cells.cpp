#include "engine/tilemap/visible_cells.hpp"

#include <algorithm>
#include <limits>

#include "engine/pixels/surface.hpp"

namespace tessora {

Range steps_between(double origin, double length, double low, double high, Py_ssize_t count) {
  const Range all{0, count};
  if (!std::isfinite(origin) || !std::isfinite(length)) return all;
  // Rounding never moves a place by more than this.
  const double slack = 2.0 + (std::fabs(origin) + std::fabs(length)) * 1e-9;
  low -= slack;
  high += slack;
  if (length == 0.0) return origin >= low && origin <= high ? all : Range{0, 0};
  double from = (low - origin) / length;
  double to = (high - origin) / length;
  if (from > to) std::swap(from, to);
  const auto limit = static_cast<double>(count);
  if (std::isnan(from) || std::isnan(to)) return all;
  if (to < 0.0 || from > limit) return {0, 0};
  return {from <= 0.0 ? 0 : static_cast<Py_ssize_t>(from),
          to + 2.0 >= limit ? count : static_cast<Py_ssize_t>(to + 2.0)};
}

Bounds drawable_part(Value screen) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  if (!render::is_surface(screen)) return {-kInfinite, -kInfinite, kInfinite, kInfinite};
  const render::PixelBox clip = render::clip_of(screen);
  return {static_cast<double>(clip.left), static_cast<double>(clip.top),
          static_cast<double>(clip.right), static_cast<double>(clip.bottom)};
}

Lattice Lattice::of(bool rectangular, double wide, double high) {
  if (rectangular) return {0.0, 0.0, wide, 0.0, 0.0, high};
  wide *= 0.5;
  high *= 0.5;
  return {0.0, -high, wide, -high, wide, high};
}

Lattice Lattice::drawn(double scale_x, double scale_y, double left, double top) const {
  return {x * scale_x + left, y * scale_y + top, column_x * scale_x,
          column_y * scale_y, row_x * scale_x,   row_y * scale_y};
}

render::Point Lattice::at(Py_ssize_t column, Py_ssize_t row) const {
  const auto k = static_cast<double>(column);
  const auto r = static_cast<double>(row);
  return {x + (k * column_x + r * row_x), y + (k * column_y + r * row_y)};
}

Range Lattice::columns_between(const Bounds& bounds, Py_ssize_t row, Py_ssize_t columns) const {
  const render::Point start = at(0, row);
  const Range across = steps_between(start.x, column_x, bounds.left, bounds.right, columns);
  const Range down = steps_between(start.y, column_y, bounds.top, bounds.bottom, columns);
  return {std::max(across.first, down.first), std::min(across.end, down.end)};
}

}  // namespace tessora
