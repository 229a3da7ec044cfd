// Drawing a map: grid lines, the cells' nodes, crosses over blocked cells, then what any node has.
#include <algorithm>

#include "engine/host/plain_lookup.hpp"
#include "engine/tilemap/visible_cells.hpp"

namespace tessora {

namespace {

// The map's numbers while its lines are drawn.
struct Frame {
  double left, top, scale_x, scale_y;
  double columns, rows, wide, high;

  explicit Frame(TiledMap& map)
      : left(Number(map.read(map.WX)).to_double()),
        top(Number(map.read(map.WY)).to_double()),
        scale_x(Number(map.read(map.WSX)).to_double()),
        scale_y(Number(map.read(map.WSY)).to_double()),
        columns(Number(map.read(map.Tile_Cow)).to_double()),
        rows(Number(map.read(map.Tile_Row)).to_double()),
        wide(Number(map.read(map.Tile_Width)).to_double()),
        high(Number(map.read(map.Tile_Height)).to_double()) {}
};

// Parallel lines: from one to the next, and from one end to the other, in pixels of the map.
struct Family {
  double step_x, step_y;
  double reach_x, reach_y;
};

void draw_family(const render::Canvas& canvas, Value color, const Frame& frame,
                 const Family& family, Py_ssize_t count) {
  const double reach_x = family.reach_x * frame.scale_x;
  const double reach_y = family.reach_y * frame.scale_y;
  const Bounds seen = drawable_part(canvas.surface());
  const Range across =
      steps_between(frame.left, family.step_x * frame.scale_x, seen.left - std::max(reach_x, 0.0),
                    seen.right - std::min(reach_x, 0.0), count);
  const Range down =
      steps_between(frame.top, family.step_y * frame.scale_y, seen.top - std::max(reach_y, 0.0),
                    seen.bottom - std::min(reach_y, 0.0), count);
  const Py_ssize_t end = std::min(across.end, down.end);
  for (Py_ssize_t index = std::max(across.first, down.first); index < end; ++index) {
    host::count_step();
    const auto step = static_cast<double>(index);
    const render::Point from{frame.left + step * family.step_x * frame.scale_x,
                             frame.top + step * family.step_y * frame.scale_y};
    canvas.line(color, from, {from.x + reach_x, from.y + reach_y});
  }
}

// A cross over the box of a cell.
class Marker {
 public:
  Marker(TiledMap& map, const Frame& frame, Value screen)
      : canvas_(screen),
        color_(host::modules::pygame["Color"_name](0, 255, 255, 255)),
        wide_(frame.wide * frame.scale_x),
        high_(frame.high * frame.scale_y),
        lattice_(Lattice::of(map.is_rectangular(), frame.wide, frame.high)
                     .drawn(frame.scale_x, frame.scale_y, frame.left, frame.top)) {
    const Bounds seen = drawable_part(screen);
    bounds_ = {seen.left - std::fabs(wide_), seen.top - std::fabs(high_),
               seen.right + std::fabs(wide_), seen.bottom + std::fabs(high_)};
  }

  // The columns of a row in which a cross may show.
  [[nodiscard]] Range columns(Py_ssize_t row, Py_ssize_t count) const {
    return lattice_.columns_between(bounds_, row, count);
  }

  void mark(Py_ssize_t column, Py_ssize_t row) const {
    const render::Point corner = lattice_.at(column, row);
    const double right = corner.x + wide_;
    const double bottom = corner.y + high_;
    canvas_.line(color_, corner, {right, bottom});
    canvas_.line(color_, {right, corner.y}, {corner.x, bottom});
  }

 private:
  render::Canvas canvas_;
  Ref color_;
  double wide_;
  double high_;
  Lattice lattice_;
  Bounds bounds_{};
};

// Only cells in sight are looked at, but a list that is too short is an error all the same.
void check_length(Value list, Py_ssize_t columns, Py_ssize_t rows) {
  if (columns == 0 || !list.is_plain_list() || rows <= list.length() / columns) return;
  host::raise(PyExc_IndexError, "list index out of range");
}

}  // namespace

void TiledMap::draw_lines(Value screen) {
  const Frame frame(*this);
  const Py_ssize_t rows = row_count();
  const Py_ssize_t columns = column_count();
  const render::Canvas canvas(screen);
  Ref color = read(Tile_Color);
  if (is_rectangular()) {
    draw_family(canvas, color, frame, {0.0, frame.high, frame.columns * frame.wide, 0.0}, rows + 1);
    draw_family(canvas, color, frame, {frame.wide, 0.0, 0.0, frame.rows * frame.high}, columns + 1);
    return;
  }
  const double wide = frame.wide * 0.5;
  const double high = frame.high * 0.5;
  // On a map that is not square the lines are no lattice: the interface has it so.
  draw_family(canvas, color, frame, {wide, high, frame.rows * wide, -frame.columns * high},
              rows + 1);
  draw_family(canvas, color, frame, {wide, -high, frame.rows * wide, frame.columns * high},
              columns + 1);
}

void TiledMap::draw_markers(Value screen) {
  const Frame frame(*this);
  const Marker marker(*this, frame, screen);
  const Py_ssize_t rows = row_count();
  const Py_ssize_t columns = column_count();
  check_length(Ref(read(Coll_Array)), columns, rows);
  for (Py_ssize_t row = 0; columns > 0 && row < rows; ++row) {
    const Range seen = marker.columns(row, columns);
    for (Py_ssize_t column = seen.first; column < seen.end; ++column) {
      host::count_step();
      Ref blocked = read(Coll_Array);
      Ref entry = blocked.item(row * columns + column);
      if (entry.equals_true()) marker.mark(column, row);
    }
  }
  Ref animated = read(Coll_Dict);
  if (animated.length() == 0) return;
  for (Ref cells : host::items(animated.call("values"_name))) {
    for (Ref each : host::items(cells)) {
      const Cell cell = unpack_pair(each);
      const auto column = Number(cell.column).whole();
      const auto row = Number(cell.row).whole();
      if (column && row) {
        marker.mark(static_cast<Py_ssize_t>(*column), static_cast<Py_ssize_t>(*row));
      }
    }
  }
}

void TiledMap::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  message::draw_begin(*this, offset_x, offset_y, scale);
  write(camera, host::tuple(offset_x, offset_y, scale));
  if (is_true(Tile_Visible)) draw_lines(screen);
  draw_cells(screen, offset_x, offset_y, scale);
  draw_markers(screen);
  finish_node_draw(screen, offset_x, offset_y, scale);
}

void declare_tile_drawing(MapDeclaration& map) {
  map.method<&TiledMap::draw>(
      "draw(screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, "
      "scale: float = 1.0) -> None",
      "Draw grid lines, the cells' nodes, crosses over blocked cells, overlays and children.\n\n"
      "`offsetX`, `offsetY` (pixels) and `scale` are the camera. The nodes are placed from the\n"
      "map's local position; the map's own `sx`, `sy` stretch lines and crosses only. Raises\n"
      "IndexError while the lists are shorter than the map.");
}

}  // namespace tessora
