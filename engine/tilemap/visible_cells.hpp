// Which cells of a grid can be seen, in machine numbers.
#pragma once

#include "engine/render/clip.hpp"
#include "engine/tilemap/tiled_map.hpp"

namespace tessora {

struct Range {
  Py_ssize_t first, end;
};

// The steps from 0 to `count` whose place `origin + step * length` lies between the bounds, and
// maybe some beside them; all steps where that cannot be said.
Range steps_between(double origin, double length, double low, double high, Py_ssize_t count);

struct Bounds {
  double left, top, right, bottom;
};

// The part of a target that can be drawn on; without bounds for what only stands in for a surface.
Bounds drawable_part(Value screen);

// Where the cells of a map lie: places from column to column and from row to row.
struct Lattice {
  double x, y;
  double column_x, column_y;
  double row_x, row_y;

  // Of the left top corners of the cells' boxes, relative to the map, for cells of this size.
  static Lattice of(bool rectangular, double wide, double high);
  // Seen through a camera.
  [[nodiscard]] Lattice drawn(double scale_x, double scale_y, double left, double top) const;

  [[nodiscard]] render::Point at(Py_ssize_t column, Py_ssize_t row) const;
  // The columns of a row whose places lie between the bounds.
  [[nodiscard]] Range columns_between(const Bounds& bounds, Py_ssize_t row,
                                      Py_ssize_t columns) const;
};

}  // namespace tessora
