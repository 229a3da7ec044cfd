// Debug shapes of a layer: labelled points, lines and rectangles in screen coordinates.
#include "engine/core/layer.hpp"
#include "engine/host/fonts.hpp"

namespace tessora {

namespace {

constexpr int kMarker = 5;
constexpr int kMarkerReach = 2;
constexpr int kLineWidth = 1;

Ref item(const Ref& shape, int index) {
  return host::get_item(shape.get(), host::integer(index).get());
}

Ref point_text(const Ref& px, const Ref& py) {
  return host::take(PyUnicode_FromFormat("(%S,%S)", px.get(), py.get()));
}

void draw_point(const Ref& shape, PyObject* screen, const Ref& color, const Ref& font) {
  Ref px = item(shape, 2);
  Ref py = item(shape, 3);
  Number left = host::number(px) - Number(kMarkerReach);
  Number top = host::number(py) - Number(kMarkerReach);
  Ref marker =
      host::tuple(left.object(), top.object(), host::integer(kMarker), host::integer(kMarker));
  host::call(host::modules::draw["rect"_name], screen, color, marker, host::integer(0));
  host::check_font(font.get());
  Ref label = host::call_method(font, "render"_name, point_text(px, py), Py_True, color);
  label = host::call_method(label, "convert_alpha"_name);
  Ref place = host::tuple((left + Number(kMarker + kLineWidth)).object(), top.object());
  host::call_method(screen, "blit"_name, label, place);
}

void draw_line(const Ref& shape, PyObject* screen, const Ref& color) {
  host::call(host::modules::draw["line"_name], screen, color,
             host::tuple(item(shape, 2), item(shape, 3)),
             host::tuple(item(shape, 4), item(shape, 5)), host::integer(kLineWidth));
}

// The shape holds two corners; pygame wants the smaller one and a size.
void draw_rect(const Ref& shape, PyObject* screen, const Ref& color) {
  Number corners[] = {host::number(item(shape, 2)), host::number(item(shape, 3)),
                      host::number(item(shape, 4)), host::number(item(shape, 5))};
  if (corners[2] < corners[0]) std::swap(corners[0], corners[2]);
  if (corners[3] < corners[1]) std::swap(corners[1], corners[3]);
  Ref box = host::tuple(corners[0].object(), corners[1].object(),
                        (corners[2] - corners[0]).object(), (corners[3] - corners[1]).object());
  host::call(host::modules::draw["rect"_name], screen, color, box, host::integer(kLineWidth));
}

template <class Draw>
void each_shape(const Ref& shapes, Draw draw) {
  if (host::length(shapes.get()) == 0) return;
  Ref copy = host::take(PySequence_List(shapes.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(copy.get()); ++index) {
    draw(Ref::share(PyList_GET_ITEM(copy.get(), index)));
  }
}

template <auto Shapes>
Ref add_point(host::Object& self, PyObject* const* args) {
  auto& layer = static_cast<GameLayer&>(self);
  host::call_method(layer.read(layer.*Shapes), "append"_name,
                    host::list(args[0], args[1], args[2], args[3]));
  return host::none();
}

template <auto Shapes>
Ref add_box(host::Object& self, PyObject* const* args) {
  auto& layer = static_cast<GameLayer&>(self);
  host::call_method(layer.read(layer.*Shapes), "append"_name,
                    host::list(args[0], args[1], args[2], args[3], args[4], args[5]));
  return host::none();
}

template <auto Shapes>
Ref delete_shape(host::Object& self, PyObject* const* args) {
  auto& layer = static_cast<GameLayer&>(self);
  Ref shapes = layer.read(layer.*Shapes);
  Number index(args[0]);
  if (index >= Number(0) && index < Number(host::integer(host::length(shapes.get())).get())) {
    host::call_method(shapes, "pop"_name, args[0]);
  }
  return host::none();
}

}  // namespace

void GameLayer::draw_shapes(PyObject* screen) {
  auto is_empty = [&](const Slot& shapes) { return host::length(read(shapes).get()) == 0; };
  if (is_empty(PointArray) && is_empty(LineArray) && is_empty(RectArray)) return;
  Ref color = host::call(host::modules::pygame["Color"_name], "red"_name);
  each_shape(read(PointArray),
             [&](const Ref& shape) { draw_point(shape, screen, color, read(font)); });
  each_shape(read(LineArray), [&](const Ref& shape) { draw_line(shape, screen, color); });
  each_shape(read(RectArray), [&](const Ref& shape) { draw_rect(shape, screen, color); });
}

void declare_layer_shapes(LayerBuilder& builder) {
  builder
      .native_method<&add_point<&GameLayer::PointArray>, 4>(
          "AddPoint", {"pointName", "pointType", "px", "py"},
          "Add a debug point at screen pixels `px`, `py`.")
      .native_method<&add_box<&GameLayer::LineArray>, 6>(
          "AddLine", {"lineName", "lineType", "x1", "y1", "x2", "y2"},
          "Add a debug line between two points, screen pixels.")
      .native_method<&add_box<&GameLayer::RectArray>, 6>(
          "AddRect", {"rectName", "rectType", "x1", "y1", "x2", "y2"},
          "Add a debug rectangle with two opposite corners, screen pixels.")
      .accessors<&GameLayer::PointArray>("GetPointArray", nullptr, "points")
      .accessors<&GameLayer::LineArray>("GetLineArray", nullptr, "lines")
      .accessors<&GameLayer::RectArray>("GetRectArray", nullptr, "rects")
      .native_method<&delete_shape<&GameLayer::PointArray>, 1>(
          "DelPoint", {"index"},
          "Remove the debug point at that position; positions out of range are ignored.")
      .native_method<&delete_shape<&GameLayer::LineArray>, 1>(
          "DelLine", {"index"},
          "Remove the debug line at that position; positions out of range are ignored.")
      .native_method<&delete_shape<&GameLayer::RectArray>, 1>(
          "DelRect", {"index"},
          "Remove the debug rectangle at that position; positions out of range are ignored.");
}

}  // namespace tessora
