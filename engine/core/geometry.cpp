#include "engine/core/geometry.hpp"

#include "engine/object/module_rows.hpp"

namespace tessora {

using namespace host::literals;
using host::Number;
using host::Value;

namespace {

int point_in_edges(const Number& x, const Number& y, const Number& left, const Number& right,
                   const Number& top, const Number& bottom) {
  return x < left || x > right || y < top || y > bottom ? 0 : 1;
}

int edges_overlap(const Number& left1, const Number& right1, const Number& top1,
                  const Number& bottom1, const Number& left2, const Number& right2,
                  const Number& top2, const Number& bottom2) {
  return left1 > right2 || right1 < left2 || top1 > bottom2 || bottom1 < top2 ? 0 : 1;
}

// Assigning an edge moves a rectangle; pygame decides what becomes of fractions, which depends on
// the edge.
void move_along(Value rect, const Number& distance, Value far_edge, Value near_edge) {
  const bool forward = distance > Number(0);
  Value edge = forward ? far_edge : near_edge;
  const Number place = rect.attr(edge);
  const Number moved = place + distance;
  rect.set_attr(edge, moved.object());
}

}  // namespace

bool rects_collide(Value rect1, Value rect2, const Number& move_x, const Number& move_y) {
  move_along(rect2, move_x, "right"_name, "left"_name);
  move_along(rect2, move_y, "bottom"_name, "top"_name);
  return rect1.call("colliderect"_name, rect2).equals_true();
}

host::Ref rect_copy(Value rect) {
  host::Ref make = host::modules::pygame["Rect"_name];
  const bool is_plain =
      Value(rect.type()).is(make) || rect.is_plain_list() || rect.is_plain_tuple();
  constexpr Py_ssize_t kMost = 4;
  const Py_ssize_t count = is_plain || !rect.is_sequence() ? kMost + 1 : rect.length();
  if (count > kMost) return make(rect);
  // Some versions of pygame crash on a sequence whose items raise.
  host::Ref items = host::list();
  for (Py_ssize_t index = 0; index < count; ++index) items.append(rect.item(index));
  return make(items);
}

void register_geometry(PyObject* module) {
  host::add_function<&point_in_edges>(
      module,
      "checkPtInRect(x: float, y: float, left: float, right: float, top: float, bottom: float)"
      " -> int",
      "Return 1 if the point (x, y) lies within the four edges or on one of them, else 0.\n\nAll "
      "numbers are in the same unit, such as pixels.");
  host::add_function<&edges_overlap>(
      module,
      "checkRectInRect(left1: float, right1: float, top1: float, bottom1: float,"
      " left2: float, right2: float, top2: float, bottom2: float) -> int",
      "Return 1 if two rectangles, given by their edges, overlap or touch, else 0.\n\nDespite the "
      "name neither has to contain the other. All numbers are in the same unit, such as pixels.");
  host::add_function<&rects_collide>(
      module,
      "checkRectCollision(rect1: pygame.Rect, rect2: pygame.Rect, moveX: float = 0,"
      " moveY: float = 0) -> bool",
      "Move `rect2` by (moveX, moveY) pixels and return whether it collides with `rect1`.\n\nBoth "
      "are pygame.Rect objects, AttributeError for others. `rect2` is changed in place and stays "
      "moved: pass a copy to keep the original.");
}

}  // namespace tessora
