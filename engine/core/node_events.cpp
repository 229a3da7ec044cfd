// Presses, releases, keys and collision tests of a node.
#include "engine/core/binding_tables.hpp"
#include "engine/core/geometry.hpp"
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

void run_key_function(GameNode& node, LazySlot& table, PyObject* key) {
  bool hashable = PyUnicode_CheckExact(key) || PyLong_CheckExact(key);
  if (hashable && node.is_default(table)) return;
  Ref functions = node.read(table);
  if (!host::contains(functions.get(), key)) return;
  host::call(host::get_item(functions.get(), key));
}

}  // namespace

Ref GameNode::drawn_rect() {
  return host::call(host::modules::pygame["Rect"_name], read(WX), read(WY),
                    (number(width) * number(WSX)).object(),
                    (number(height) * number(WSY)).object());
}

bool GameNode::drawn_rect_contains(PyObject* px, PyObject* py) {
  int left = 0;
  int top = 0;
  int wide = 0;
  int high = 0;
  int point_x = 0;
  int point_y = 0;
  // The rules of pygame.Rect for plain numbers; it judges the others itself.
  if (host::rect_integer(number(WX), left) && host::rect_integer(number(WY), top) &&
      host::rect_integer(number(width) * number(WSX), wide) &&
      host::rect_integer(number(height) * number(WSY), high) &&
      host::rect_integer(Number(px), point_x) && host::rect_integer(Number(py), point_y)) {
    using Wide = std::int64_t;
    return point_x >= left && point_x < Wide{left} + wide && point_y >= top &&
           point_y < Wide{top} + high;
  }
  return host::equals_true(host::call_method(drawn_rect(), "collidepoint"_name, px, py));
}

Ref GameNode::offer_to_children(const host::Message& handler, PyObject* px, PyObject* py) {
  if (!has_children()) return host::none();
  for (host::ListWalk walk(*this, children, host::ListWalk::Direction::kReverse);
       PyObject* child = walk.next();) {
    Ref taker = handler(child, px, py);
    if (!host::is_set(taker)) continue;
    return is_true(CheckPickDownChild) ? taker : Ref::share(this);
  }
  return host::none();
}

Ref GameNode::OnPickDownFunction(PyObject* px, PyObject* py) {
  if (!is_visible(this)) return host::none();
  Ref taker = offer_to_children(message::OnPickDownFunction, px, py);
  if (host::is_set(taker)) return taker;
  if (!is_true(Enable_PickDown)) return host::none();
  Ref handle = message::checkDragRect(static_cast<PyObject*>(this), px, py);
  write(dragcornerindex, handle);
  if (Number(handle.get()) >= Number(0)) {
    write(dragbegin_x, px);
    write(dragbegin_y, py);
    return Ref::share(this);
  }
  if (!drawn_rect_contains(px, py)) return host::none();
  host::print_line("collidepoint"_name);
  Ref callback = read(PickDownFunction);
  if (host::is_set(callback)) host::call(callback, static_cast<PyObject*>(this));
  write(clicked, true);
  if (!is_default(InnerBindingEventArray)) {
    raise_inner_event("PickDown"_name, point_params(px, py).get());
  }
  return Ref::share(this);
}

Ref GameNode::OnPickUpFunction(PyObject* px, PyObject* py) {
  if (!is_visible(this)) return host::none();
  write(clicked, false);
  if (number(dragcornerindex) >= Number(0)) write(dragcornerindex, Number(-1));
  Ref taker = offer_to_children(message::OnPickUpFunction, px, py);
  if (host::is_set(taker)) return taker;
  if (!is_true(Enable_PickUp) || !drawn_rect_contains(px, py)) return host::none();
  host::print_line("collidepoint"_name);
  Ref callback = read(PickUpFunction);
  if (host::is_set(callback)) {
    host::print_line("OnPickUpFunction2"_name);
    host::call(callback, static_cast<PyObject*>(this));
  }
  if (!is_default(InnerBindingEventArray)) {
    raise_inner_event("PickUp"_name, point_params(px, py).get());
  }
  return Ref::share(this);
}

void GameNode::OnKeyDownFunction(PyObject* key) {
  run_key_function(*this, KeyDownFunctionDict, key);
}

void GameNode::OnKeyUpFunction(PyObject* key) {
  run_key_function(*this, KeyUpFunctionDict, key);
}

bool GameNode::checkClick(PyObject* px, PyObject* py) {
  return is_visible(this) && drawn_rect_contains(px, py);
}

bool GameNode::checkCollision(PyObject* node, PyObject* move_x, PyObject* move_y) {
  Ref other = Ref::share(node);
  Ref mine = message::GetSizeRect(static_cast<PyObject*>(this));
  Ref theirs = message::GetSizeRect(other);
  return rects_collide(mine.get(), theirs.get(), move_x, move_y);
}

bool GameNode::checkEventRectCollision(PyObject* rect, PyObject* move_x, PyObject* move_y) {
  Ref mine = message::GetSizeRect(static_cast<PyObject*>(this));
  // The trial move must not reach the caller's rectangle.
  Ref copy = host::call(host::modules::pygame["Rect"_name], rect);
  return rects_collide(mine.get(), copy.get(), move_x, move_y);
}

void declare_events(NodeBuilder& builder) {
  builder.accessors<&GameNode::PickDownFunction>(nullptr, "SetPickDownFunction", "f")
      .accessors<&GameNode::PickUpFunction>(nullptr, "SetPickUpFunction", "f")
      .accessors<&GameNode::Enable_PickDown>(nullptr, "EnablePickDownEvent", "v")
      .accessors<&GameNode::Enable_PickUp>(nullptr, "EnablePickUpEvent", "v")
      .native_method<&set_entry<&GameNode::KeyDownFunctionDict>, 2>(
          "SetKeyDownFunction", {"keyname", "function"},
          "Call `function` without arguments when the key is pressed.")
      .native_method<&set_entry<&GameNode::KeyUpFunctionDict>, 2>(
          "SetKeyUpFunction", {"keyname", "function"},
          "Call `function` without arguments when the key is released.")
      .method<&GameNode::OnPickDownFunction>(
          "OnPickDownFunction", {"x", "y"},
          "Handle a press at screen position `x`, `y` in pixels.\n\nChildren are asked first, the "
          "topmost before the others; then a handle of the edit rectangle or the drawn rectangle "
          "takes it. Returns the node that took the press, or None.")
      .method<&GameNode::OnPickUpFunction>(
          "OnPickUpFunction", {"x", "y"},
          "Handle a release at screen position `x`, `y` in pixels.\n\nReturns the node that took "
          "the release, or None.")
      .method<&GameNode::OnKeyDownFunction>("OnKeyDownFunction", {"key"},
                                            "Run the callable registered for the pressed key.")
      .method<&GameNode::OnKeyUpFunction>("OnKeyUpFunction", {"key"},
                                          "Run the callable registered for the released key.")
      .method<&GameNode::checkClick>(
          "checkClick", {"px", "py"},
          "Return whether the node is visible and the point lies in its drawn rectangle.")
      .method<&GameNode::checkCollision>(
          "checkCollision", {"gameNode", {"moveX", 0}, {"moveY", 0}},
          "Return whether the size rectangles collide when the other node is moved, in pixels.")
      .method<&GameNode::checkEventRectCollision>(
          "checkEventRectCollision", {"objrect", {"moveX", 0}, {"moveY", 0}},
          "Return whether the size rectangle collides with a moved copy of `objrect`.");
}

}  // namespace tessora
