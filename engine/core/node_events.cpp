// Presses, releases, keys and collision tests of a node.
#include "engine/core/binding_tables.hpp"
#include "engine/core/geometry.hpp"
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

void run_key_function(GameNode& node, LazySlot& table, Value key) {
  const bool hashable = key.is_plain_text() || key.is_plain_integer();
  if (hashable && node.is_default(table)) return;
  Ref functions = node.read(table);
  if (Ref function = functions.find_item(key)) function();
}

}  // namespace

Ref GameNode::offer_to_children(const host::Message& handler, Value px, Value py) {
  if (holds_empty_list(children)) return host::none();
  host::ListWalk steps = walk_children(host::ListWalk::Direction::kReverse);
  while (Value child = steps.next()) {
    Ref taker = handler(child, px, py);
    if (!taker.is_set()) continue;
    return is_true(CheckPickDownChild) ? taker : Ref(*this);
  }
  return host::none();
}

Ref GameNode::OnPickDownFunction(Value px, Value py) {
  if (!is_visible(*this)) return host::none();
  Ref taker = offer_to_children(message::OnPickDownFunction, px, py);
  if (taker.is_set()) return taker;
  if (!is_true(Enable_PickDown)) return host::none();
  Ref handle = message::checkDragRect(*this, px, py);
  write(dragcornerindex, handle);
  if (Number(handle) >= Number(0)) {
    write(dragbegin_x, px);
    write(dragbegin_y, py);
    return *this;
  }
  if (!drawn_rect_contains(px, py)) return host::none();
  host::print_line("collidepoint"_name);
  Ref callback = read(PickDownFunction);
  if (callback.is_set()) callback(*this);
  write(clicked, true);
  if (!tells_presses_itself) raise_inner_event(*this, "PickDown"_name, px, py);
  return *this;
}

Ref GameNode::OnPickUpFunction(Value px, Value py) {
  if (!is_visible(*this)) return host::none();
  write(clicked, false);
  if (read(dragcornerindex) >= Number(0)) write(dragcornerindex, -1);
  Ref taker = offer_to_children(message::OnPickUpFunction, px, py);
  if (taker.is_set()) return taker;
  if (!is_true(Enable_PickUp) || !drawn_rect_contains(px, py)) return host::none();
  host::print_line("collidepoint"_name);
  Ref callback = read(PickUpFunction);
  if (callback.is_set()) {
    host::print_line("OnPickUpFunction2"_name);
    callback(*this);
  }
  raise_inner_event(*this, "PickUp"_name, px, py);
  return *this;
}

void GameNode::OnKeyDownFunction(Value key) {
  run_key_function(*this, KeyDownFunctionDict, key);
}

void GameNode::OnKeyUpFunction(Value key) {
  run_key_function(*this, KeyUpFunctionDict, key);
}

bool GameNode::checkClick(Value px, Value py) {
  return is_visible(*this) && drawn_rect_contains(px, py);
}

bool GameNode::checkCollision(Value node, Value move_x, Value move_y) {
  Ref mine = message::GetSizeRect(*this);
  Ref theirs = message::GetSizeRect(node);
  return rects_collide(mine, theirs, move_x, move_y);
}

bool GameNode::checkEventRectCollision(Value rect, Value move_x, Value move_y) {
  Ref mine = message::GetSizeRect(*this);
  // The trial move must not reach the caller's rectangle.
  Ref copy = rect_copy(rect);
  return rects_collide(mine, copy, move_x, move_y);
}

void declare_events(NodeDeclaration& node) {
  node.method<&set_entry<&GameNode::KeyDownFunctionDict>>(
          "SetKeyDownFunction(keyname: Hashable, function: Callable[[], Any]) -> None",
          "Call `function` without arguments when the key is pressed.\n\n`keyname` is what the "
          "script hands to the layer's OnKeyDownFunction.")
      .method<&set_entry<&GameNode::KeyUpFunctionDict>>(
          "SetKeyUpFunction(keyname: Hashable, function: Callable[[], Any]) -> None",
          "Call `function` without arguments when the key is released.\n\n`keyname` is what the "
          "script hands to the layer's OnKeyUpFunction.")
      .method<&GameNode::OnPickDownFunction>(
          "OnPickDownFunction(x: float, y: float) -> GameNode | None",
          "Handle a press at screen position `x`, `y` in pixels.\n\nChildren are asked first, the "
          "topmost before the others; then a handle of the edit rectangle or the drawn rectangle "
          "takes it. Returns the node that took the press, or None.")
      .method<&GameNode::OnPickUpFunction>(
          "OnPickUpFunction(x: float, y: float) -> GameNode | None",
          "Handle a release at screen position `x`, `y` in pixels: end a press or drag of the "
          "node, whatever the position, and offer the release to children as OnPickDownFunction "
          "does.\n\nReturns the node that took the release, or None.")
      .method<&GameNode::OnKeyDownFunction>(
          "OnKeyDownFunction(key: Hashable) -> None",
          "Call the function registered for the pressed key; a key without one is ignored.")
      .method<&GameNode::OnKeyUpFunction>(
          "OnKeyUpFunction(key: Hashable) -> None",
          "Call the function registered for the released key; a key without one is ignored.")
      .method<&GameNode::checkClick>("checkClick(px: float, py: float) -> bool",
                                     "Return whether the node is visible and the point (pixels of "
                                     "the screen) lies in its drawn rectangle.")
      .method<&GameNode::checkCollision>(
          "checkCollision(gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool",
          "Return whether the size rectangles collide when the other node is moved by `moveX` and "
          "`moveY` pixels; see GetSizeRect.")
      .method<&GameNode::checkEventRectCollision>(
          "checkEventRectCollision(objrect: _RectValue, moveX: float = 0, moveY: float = 0) -> "
          "bool",
          "Return whether the size rectangle collides with a copy of `objrect` moved by `moveX` "
          "and `moveY` pixels; see GetSizeRect.");
}

}  // namespace tessora
