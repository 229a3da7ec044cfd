#include "engine/core/geometry.hpp"

#include "engine/host/functions.hpp"

namespace tessora {

using namespace host::literals;
using host::number;
using host::Number;
using host::Ref;

namespace {

Ref point_in_edges(PyObject* x, PyObject* y, PyObject* left, PyObject* right, PyObject* top,
                   PyObject* bottom) {
  bool outside = number(x) < number(left) || number(x) > number(right) || number(y) < number(top) ||
                 number(y) > number(bottom);
  return host::integer(outside ? 0 : 1);
}

Ref edges_overlap(PyObject* left1, PyObject* right1, PyObject* top1, PyObject* bottom1,
                  PyObject* left2, PyObject* right2, PyObject* top2, PyObject* bottom2) {
  bool apart = number(left1) > number(right2) || number(right1) < number(left2) ||
               number(top1) > number(bottom2) || number(bottom1) < number(top2);
  return host::integer(apart ? 0 : 1);
}

// Assigning an edge moves a rectangle; pygame decides what becomes of fractions, which depends on
// the edge.
void move_along(PyObject* rect, PyObject* distance, PyObject* far_edge, PyObject* near_edge) {
  PyObject* edge = number(distance) > Number(0) ? far_edge : near_edge;
  Number moved = number(host::get_attr(rect, edge)) + number(distance);
  host::set_attr(rect, edge, moved.object().get());
}

}  // namespace

bool rects_collide(PyObject* rect1, PyObject* rect2, PyObject* moveX, PyObject* moveY) {
  move_along(rect2, moveX, "right"_name, "left"_name);
  move_along(rect2, moveY, "bottom"_name, "top"_name);
  return host::equals_true(host::call_method(rect1, "colliderect"_name, rect2));
}

void register_geometry(PyObject* module) {
  host::add_function<&point_in_edges>(
      module, "checkPtInRect", {"x", "y", "left", "right", "top", "bottom"},
      "Return 1 if the point (x, y) lies within the four edges or on one of them, else 0.");
  host::add_function<&edges_overlap>(
      module, "checkRectInRect",
      {"left1", "right1", "top1", "bottom1", "left2", "right2", "top2", "bottom2"},
      "Return 1 if two rectangles, given by their edges, overlap or touch, else 0.\n\n"
      "Despite the name neither has to contain the other.");
  host::add_function<&rects_collide>(
      module, "checkRectCollision", {"rect1", "rect2", {"moveX", 0}, {"moveY", 0}},
      "Move `rect2` by (moveX, moveY) pixels and return whether it collides with `rect1`.\n\n"
      "Both are pygame.Rect objects. `rect2` is changed in place and stays moved: pass a copy to\n"
      "keep the original.");
}

}  // namespace tessora
