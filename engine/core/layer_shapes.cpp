// Debug shapes of a layer: labelled points, lines and rectangles in screen coordinates.
#include "engine/core/layer.hpp"

namespace tessora {

namespace {

using render::Box;
using render::Canvas;
using render::Point;

constexpr int kMarker = 5;
constexpr int kMarkerReach = 2;
constexpr int kLineWidth = 1;

double number_at(Value shape, Py_ssize_t index) {
  Ref value = shape.item(index);
  return Number(value).to_double();
}

// Both corners of a line or rectangle.
struct Corners {
  double x1, y1, x2, y2;
  explicit Corners(Value shape)
      : x1(number_at(shape, 2)),
        y1(number_at(shape, 3)),
        x2(number_at(shape, 4)),
        y2(number_at(shape, 5)) {}
};

Ref point_text(Value shape) {
  Ref px = shape.item(2);
  Ref py = shape.item(3);
  return host::formatted("(%S,%S)", px, py);
}

void draw_point(const Canvas& canvas, Value shape, Value color, Value font) {
  const double left = number_at(shape, 2) - kMarkerReach;
  const double top = number_at(shape, 3) - kMarkerReach;
  canvas.fill(color, {left, top, kMarker, kMarker});
  Ref words = point_text(shape);
  Ref label = render::text_picture(font, words, color);
  if (label) canvas.blit(label, {left + kMarker + kLineWidth, top});
}

void draw_line(const Canvas& canvas, Value shape, Value color) {
  const Corners ends(shape);
  canvas.line(color, {ends.x1, ends.y1}, {ends.x2, ends.y2}, kLineWidth);
}

// The shape holds two opposite corners, in any order.
void draw_rect(const Canvas& canvas, Value shape, Value color) {
  const Corners box(shape);
  const double left = std::min(box.x1, box.x2);
  const double top = std::min(box.y1, box.y2);
  const Box outline{left, top, std::max(box.x1, box.x2) - left, std::max(box.y1, box.y2) - top};
  canvas.outline(color, outline, kLineWidth);
}

template <auto Shapes>
void add_point(GameLayer& layer, Value name, Value type, Value px, Value py) {
  Ref shapes = layer.read(layer.*Shapes);
  shapes.append(host::list(name, type, px, py));
}

template <auto Shapes>
void add_box(GameLayer& layer, Value name, Value type, Value x1, Value y1, Value x2, Value y2) {
  Ref shapes = layer.read(layer.*Shapes);
  shapes.append(host::list(name, type, x1, y1, x2, y2));
}

template <auto Shapes>
void delete_shape(GameLayer& layer, Value index) {
  Ref shapes = layer.read(layer.*Shapes);
  const Number place(index);
  if (place >= Number(0) && place < Number(shapes.length())) shapes.call("pop"_name, index);
}

}  // namespace

void GameLayer::draw_shapes(Value screen) {
  auto is_empty = [&](const Slot& shapes) {
    if (holds_empty_list(shapes)) return true;
    Ref list = read(shapes);
    return list.length() == 0;
  };
  if (is_empty(PointArray) && is_empty(LineArray) && is_empty(RectArray)) return;
  Ref make = host::modules::pygame["Color"_name];
  Ref color = make("red"_name);
  const Canvas canvas(screen);
  auto each = [&](const Slot& shapes, auto draw_shape) {
    Ref list = read(shapes);
    for (Ref shape : host::items(list)) draw_shape(shape);
  };
  each(PointArray, [&](Value shape) { draw_point(canvas, shape, color, Ref(read(font))); });
  each(LineArray, [&](Value shape) { draw_line(canvas, shape, color); });
  each(RectArray, [&](Value shape) { draw_rect(canvas, shape, color); });
}

void declare_layer_shapes(LayerDeclaration& layer) {
  using Layer = GameLayer;
  constexpr const char* kRemove =
      "Remove the one at position `index`, counted from 0; others are ignored.";
  layer
      .method<&add_point<&Layer::PointArray>>(
          "AddPoint(pointName: str, pointType: Any, px: float, py: float) -> None",
          "Add a debug point at `px`, `py`, in pixels of the screen.\n\nIts coordinates are "
          "written beside it; name and type are kept for scripts.")
      .method<&add_box<&Layer::LineArray>>(
          "AddLine(lineName: str, lineType: Any, x1: float, y1: float, x2: float, y2: float) -> "
          "None",
          "Add a debug line between two points, in pixels of the screen.\n\nName and type are kept "
          "for scripts.")
      .method<&add_box<&Layer::RectArray>>(
          "AddRect(rectName: str, rectType: Any, x1: float, y1: float, x2: float, y2: float) -> "
          "None",
          "Add a debug rectangle with two opposite corners, in pixels of the screen.\n\nName and "
          "type are kept for scripts.")
      .method<&delete_shape<&Layer::PointArray>>("DelPoint(index: int) -> None", kRemove)
      .method<&delete_shape<&Layer::LineArray>>("DelLine(index: int) -> None", kRemove)
      .method<&delete_shape<&Layer::RectArray>>("DelRect(index: int) -> None", kRemove);
}

}  // namespace tessora
