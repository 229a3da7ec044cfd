// World position, scale and angle of a node.
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

using host::native;

// A node on which none of these is replaced follows the engine's formulas throughout.
const host::MessageSet& transform_messages() {
  static const host::MessageSet set{
      {&message::GetWX, &native<&GameNode::GetWX>},
      {&message::GetWY, &native<&GameNode::GetWY>},
      {&message::GetWPX, &native<&GameNode::GetWPX>},
      {&message::GetWPY, &native<&GameNode::GetWPY>},
      {&message::GetWSX, &native<&GameNode::GetWSX>},
      {&message::GetWSY, &native<&GameNode::GetWSY>},
      {&message::GetWPSX, &native<&GameNode::GetWPSX>},
      {&message::GetWPSY, &native<&GameNode::GetWPSY>},
      {&message::GetWAngle, &native<&GameNode::GetWAngle>},
      {&message::GetWPAngle, &native<&GameNode::GetWPAngle>},
      {&message::GetAXW, &native<&GameNode::GetAXW>},
      {&message::GetAYH, &native<&GameNode::GetAYH>},
  };
  return set;
}

// Whether the attribute is set, to a float or a small int.
bool read_plain(const Slot& slot, double& value) {
  return slot.object != nullptr && host::small_number(slot.object, value);
}

bool is_real(const Slot& slot) {
  return slot.object != nullptr && PyFloat_CheckExact(slot.object);
}

// What the parent adds: its own answer to `query`, or `otherwise` without a parent.
Number parent_value(GameNode& node, const host::Message& query, double otherwise) {
  Ref owner = node.read(node.parent);
  if (!host::is_set(owner)) return otherwise;
  return Number(query(owner).get());
}

Ref pair(const Number& first, const Number& second) {
  return host::tuple(first.object(), second.object());
}

Number ask(const host::Message& query, GameNode& node) {
  return Number(query(static_cast<PyObject*>(&node)).get());
}

}  // namespace

const GameNode::World* GameNode::world() {
  if (world_memo.state == host::clocks.state) return &world_memo.values;
  return compute_world();
}

const GameNode::World* GameNode::compute_world() {
  if (properties_override || lock_xysa.object != Py_False || parent.object == nullptr) {
    return nullptr;
  }
  if (!transform_messages().all_direct(this)) return nullptr;
  World above{0.0, 0.0, 1.0, 1.0, 0.0};
  if (parent.object != Py_None) {
    GameNode* owner = game_node(parent.object);
    if (owner == nullptr) return nullptr;
    host::RecursionGuard guard;
    const World* known = owner->world();
    if (known == nullptr) return nullptr;
    above = *known;
  }
  double left = 0;
  double top = 0;
  double turn = 0;
  double anchor_x = 0;
  double anchor_y = 0;
  double wide = 0;
  double high = 0;
  // With scales that are floats, machine arithmetic gives the host's results.
  if (!is_real(sx) || !is_real(sy) || !read_plain(x, left) || !read_plain(y, top) ||
      !read_plain(angle, turn) || !read_plain(anchorx, anchor_x) ||
      !read_plain(anchory, anchor_y) || !read_plain(width, wide) || !read_plain(height, high)) {
    return nullptr;
  }
  double scale_x = PyFloat_AS_DOUBLE(sx.object);
  double scale_y = PyFloat_AS_DOUBLE(sy.object);
  world_memo.values = {above.x + left - anchor_x * wide * scale_x,
                       above.y + top - anchor_y * high * scale_y, above.sx * scale_x,
                       above.sy * scale_y, above.angle + turn};
  world_memo.state = host::clocks.state;
  return &world_memo.values;
}

Number GameNode::GetAXW() {
  return number(anchorx) * number(width);
}
Number GameNode::GetAYH() {
  return number(anchory) * number(height);
}
Number GameNode::GetPAXW() {
  return parent_value(*this, message::GetAXW, 0.0);
}
Number GameNode::GetPAYH() {
  return parent_value(*this, message::GetAYH, 0.0);
}

Number GameNode::GetWX() {
  if (const World* known = world()) return known->x;
  if (is_true(lock_xysa)) return number(WX);
  return ask(message::GetWPX, *this) + number(x) - ask(message::GetAXW, *this) * number(sx);
}

Number GameNode::GetWY() {
  if (const World* known = world()) return known->y;
  if (is_true(lock_xysa)) return number(WY);
  return ask(message::GetWPY, *this) + number(y) - ask(message::GetAYH, *this) * number(sy);
}

Number GameNode::GetWSX() {
  if (const World* known = world()) return known->sx;
  if (is_true(lock_xysa)) return number(WSX);
  return ask(message::GetWPSX, *this) * number(sx);
}

Number GameNode::GetWSY() {
  if (const World* known = world()) return known->sy;
  if (is_true(lock_xysa)) return number(WSY);
  return ask(message::GetWPSY, *this) * number(sy);
}

Number GameNode::GetWAngle() {
  if (const World* known = world()) return known->angle;
  if (is_true(lock_xysa)) return number(WAngle);
  return ask(message::GetWPAngle, *this) + number(angle);
}

Number GameNode::GetWPX() {
  return parent_value(*this, message::GetWX, 0.0);
}
Number GameNode::GetWPY() {
  return parent_value(*this, message::GetWY, 0.0);
}
Number GameNode::GetWPSX() {
  return parent_value(*this, message::GetWSX, 1.0);
}
Number GameNode::GetWPSY() {
  return parent_value(*this, message::GetWSY, 1.0);
}
Number GameNode::GetWPAngle() {
  return parent_value(*this, message::GetWAngle, 0.0);
}

Ref GameNode::GetWXY() {
  return pair(ask(message::GetWX, *this), ask(message::GetWY, *this));
}
Ref GameNode::GetWPXY() {
  return pair(ask(message::GetWPX, *this), ask(message::GetWPY, *this));
}
Ref GameNode::GetWSXY() {
  return pair(ask(message::GetWSX, *this), ask(message::GetWSY, *this));
}
Ref GameNode::GetWPSXY() {
  return pair(ask(message::GetWPSX, *this), ask(message::GetWPSY, *this));
}

Number GameNode::GetCenterX() {
  return ask(message::GetWX, *this) + ask(message::GetAXW, *this) * number(WSX);
}
Number GameNode::GetCenterY() {
  return ask(message::GetWY, *this) + ask(message::GetAYH, *this) * number(WSY);
}
Ref GameNode::GetCenterXY() {
  return pair(ask(message::GetCenterX, *this), ask(message::GetCenterY, *this));
}

Ref GameNode::GetSizeRect() {
  Number left = ask(message::GetWX, *this);
  Number top = ask(message::GetWY, *this);
  return host::call(host::modules::pygame["Rect"_name], left.object(), top.object(),
                    (number(width) * number(WSX)).object(),
                    (number(height) * number(WSY)).object());
}

Ref GameNode::extreme_edge(const host::Message& edge, const Number& own, bool larger) {
  Ref result = own.object();
  if (!has_children()) return result;
  for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
    Ref value = edge(child);
    Number candidate(value.get());
    Number best(result.get());
    if (larger ? candidate > best : candidate < best) result = value;
  }
  return result;
}

Ref GameNode::GetLeft() {
  return extreme_edge(message::GetLeft, number(WX), false);
}
Ref GameNode::GetTop() {
  return extreme_edge(message::GetTop, number(WY), false);
}
Ref GameNode::GetRight() {
  return extreme_edge(message::GetRight, number(WX) + number(width) * number(WSX), true);
}
// Keeps the smaller edge, unlike GetRight: scripts rely on the asymmetry.
Ref GameNode::GetBottom() {
  return extreme_edge(message::GetBottom, number(WY) + number(height) * number(WSY), false);
}

Ref GameNode::Clamp(PyObject* value, PyObject* min, PyObject* max) {
  Number given(value);
  if (given < Number(min)) return Ref::share(min);
  if (given > Number(max)) return Ref::share(max);
  return Ref::share(value);
}

void GameNode::draw_begin(PyObject* offset_x, PyObject* offset_y, PyObject* scale) {
  if (!is_false(lock_xysa)) return;
  Number zoom(scale);
  Number shift_x(offset_x);
  Number shift_y(offset_y);
  const World* known = world();
  if (known != nullptr && zoom.is_plain() && shift_x.is_plain() && shift_y.is_plain()) {
    double factor = zoom.plain();
    write_derived(WSX, known->sx * factor);
    write_derived(WSY, known->sy * factor);
    write_derived(WAngle, known->angle);
    write_derived(WX, known->x * factor + shift_x.plain());
    write_derived(WY, known->y * factor + shift_y.plain());
    return;
  }
  write(WSX, ask(message::GetWSX, *this) * zoom);
  write(WSY, ask(message::GetWSY, *this) * zoom);
  write(WAngle, message::GetWAngle(static_cast<PyObject*>(this)));
  write(WX, ask(message::GetWX, *this) * zoom + shift_x);
  write(WY, ask(message::GetWY, *this) * zoom + shift_y);
}

void declare_transform(NodeBuilder& builder) {
  builder
      .method<&GameNode::GetAXW>("GetAXW",
                                 "Return the anchor's offset from the left, unscaled pixels.")
      .method<&GameNode::GetAYH>("GetAYH",
                                 "Return the anchor's offset from the top, unscaled pixels.")
      .method<&GameNode::GetPAXW>("GetPAXW", "Return the parent's GetAXW(), or 0.0 without one.")
      .method<&GameNode::GetPAYH>("GetPAYH", "Return the parent's GetAYH(), or 0.0 without one.")
      .method<&GameNode::GetWX>("GetWX",
                                "Return the world position of the left edge, without the camera; "
                                "the cached `WX` while `lock_xysa` is true.")
      .method<&GameNode::GetWY>("GetWY",
                                "Return the world position of the top edge, without the camera; "
                                "the cached `WY` while `lock_xysa` is true.")
      .method<&GameNode::GetWXY>("GetWXY", "Return the pair GetWX(), GetWY().")
      .method<&GameNode::GetWPX>("GetWPX", "Return the parent's GetWX(), or 0.0 without one.")
      .method<&GameNode::GetWPY>("GetWPY", "Return the parent's GetWY(), or 0.0 without one.")
      .method<&GameNode::GetWPXY>("GetWPXY", "Return the pair GetWPX(), GetWPY().")
      .method<&GameNode::GetWSX>("GetWSX",
                                 "Return the horizontal world scale: the product down the tree.")
      .method<&GameNode::GetWSY>("GetWSY",
                                 "Return the vertical world scale: the product down the tree.")
      .method<&GameNode::GetWSXY>("GetWSXY", "Return the pair GetWSX(), GetWSY().")
      .method<&GameNode::GetWPSX>("GetWPSX", "Return the parent's GetWSX(), or 1.0 without one.")
      .method<&GameNode::GetWPSY>("GetWPSY", "Return the parent's GetWSY(), or 1.0 without one.")
      .method<&GameNode::GetWPSXY>("GetWPSXY", "Return the pair GetWPSX(), GetWPSY().")
      .method<&GameNode::GetWAngle>("GetWAngle",
                                    "Return the world angle in degrees: the sum down the tree.")
      .method<&GameNode::GetWPAngle>("GetWPAngle",
                                     "Return the parent's GetWAngle(), or 0.0 without one.")
      .method<&GameNode::GetCenterX>("GetCenterX", "Return the world position of the anchor, x.")
      .method<&GameNode::GetCenterY>("GetCenterY", "Return the world position of the anchor, y.")
      .method<&GameNode::GetCenterXY>("GetCenterXY", "Return the pair GetCenterX(), GetCenterY().")
      .method<&GameNode::GetLeft>("GetLeft", "Return the smallest left edge in the subtree.")
      .method<&GameNode::GetTop>("GetTop", "Return the smallest top edge in the subtree.")
      .method<&GameNode::GetRight>("GetRight", "Return the largest right edge in the subtree.")
      .method<&GameNode::GetBottom>("GetBottom", "Return the smallest bottom edge in the subtree.")
      .method<&GameNode::GetSizeRect>(
          "GetSizeRect", "Return a new pygame.Rect at GetWX(), GetWY() in the drawn size.")
      .method<&GameNode::Clamp>("Clamp", {"value", "min", "max"},
                                "Return `value` limited to the range from `min` to `max`.")
      .method<&GameNode::draw_begin>(
          "draw_begin", {{"offsetX", 0}, {"offsetY", 0}, {"scale", 1.0}},
          "Cache the world values for this frame, unless `lock_xysa` is true.\n\nPositions are "
          "multiplied by `scale` and then shifted by `offsetX` and `offsetY`, in pixels.");
}

}  // namespace tessora
