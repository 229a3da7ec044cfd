// World position, scale and angle of a node.
#include "engine/core/scene_node.hpp"

namespace tessora {

const GameNode::Axis kHorizontal = {&GameNode::x,     &GameNode::sx,   &GameNode::anchorx,
                                    &GameNode::width, &GameNode::WX,   &GameNode::WSX,
                                    message::GetWX,   message::GetWPX, message::GetWSX,
                                    message::GetWPSX, message::GetAXW};
const GameNode::Axis kVertical = {&GameNode::y,      &GameNode::sy,   &GameNode::anchory,
                                  &GameNode::height, &GameNode::WY,   &GameNode::WSY,
                                  message::GetWY,    message::GetWPY, message::GetWSY,
                                  message::GetWPSY,  message::GetAYH};

namespace {

using host::ask;
using host::native;

// The formulas, for machine numbers and for those of scripts.
auto anchor_offset(const auto& anchor, const auto& size) {
  return anchor * size;
}
auto world_edge(const auto& parent, const auto& place, const auto& anchored, const auto& scale) {
  return parent + place - anchored * scale;
}
auto seen_by_camera(const auto& place, const auto& zoom, const auto& shift) {
  return place * zoom + shift;
}

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

// What the parent adds: its own answer to `query`, or `otherwise` without a parent.
Number parent_value(GameNode& node, const host::Message& query, double otherwise) {
  Ref owner = node.read(node.parent);
  if (!owner.is_set()) return otherwise;
  return ask(query, owner);
}

Ref pair(GameNode& node, const host::Message& first, const host::Message& second) {
  return host::tuple(ask(first, node), ask(second, node));
}

}  // namespace

const GameNode::World* GameNode::world() {
  if (world_memo.state == host::clocks.state) return &world_memo.values;
  return compute_world();
}

const GameNode::World* GameNode::compute_world() {
  if (!holds(lock_xysa, false) || is_unset(parent)) return nullptr;
  if (!transform_messages().all_direct(*this)) return nullptr;
  World above{0.0, 0.0, 1.0, 1.0, 0.0};
  if (!holds(parent, nullptr)) {
    auto* owner = host::instance_of<GameNode>(peek(parent));
    if (owner == nullptr || !Value(*owner).compares_natively()) return nullptr;
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
  double scale_x = 0;
  double scale_y = 0;
  // With scales that are floats, machine arithmetic gives Python's results.
  if (!holds_real(sx, scale_x) || !holds_real(sy, scale_y) || !holds_number(x, left) ||
      !holds_number(y, top) || !holds_number(angle, turn) || !holds_number(anchorx, anchor_x) ||
      !holds_number(anchory, anchor_y) || !holds_number(width, wide) ||
      !holds_number(height, high)) {
    return nullptr;
  }
  world_memo.values = {world_edge(above.x, left, anchor_offset(anchor_x, wide), scale_x),
                       world_edge(above.y, top, anchor_offset(anchor_y, high), scale_y),
                       above.sx * scale_x, above.sy * scale_y, above.angle + turn};
  world_memo.state = host::clocks.state;
  return &world_memo.values;
}

Number GameNode::world_place(const Axis& axis) {
  if (is_true(lock_xysa)) return read(this->*axis.cached_place);
  return world_edge(ask(axis.parent_place, *this), read(this->*axis.place),
                    ask(axis.anchor_offset, *this), read(this->*axis.scale));
}

Number GameNode::world_scale(const Axis& axis) {
  if (is_true(lock_xysa)) return read(this->*axis.cached_scale);
  return ask(axis.parent_scale, *this) * read(this->*axis.scale);
}

Number GameNode::world_center(const Axis& axis) {
  return ask(axis.world_place, *this) +
         ask(axis.anchor_offset, *this) * read(this->*axis.cached_scale);
}

Number GameNode::GetAXW() {
  return anchor_offset(read(anchorx), read(width));
}
Number GameNode::GetAYH() {
  return anchor_offset(read(anchory), read(height));
}
Number GameNode::GetPAXW() {
  return parent_value(*this, message::GetAXW, 0.0);
}
Number GameNode::GetPAYH() {
  return parent_value(*this, message::GetAYH, 0.0);
}

Number GameNode::GetWX() {
  if (const World* known = world()) return known->x;
  return world_place(kHorizontal);
}
Number GameNode::GetWY() {
  if (const World* known = world()) return known->y;
  return world_place(kVertical);
}
Number GameNode::GetWSX() {
  if (const World* known = world()) return known->sx;
  return world_scale(kHorizontal);
}
Number GameNode::GetWSY() {
  if (const World* known = world()) return known->sy;
  return world_scale(kVertical);
}
Number GameNode::GetWAngle() {
  if (const World* known = world()) return known->angle;
  if (is_true(lock_xysa)) return read(WAngle);
  return ask(message::GetWPAngle, *this) + read(angle);
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
  return pair(*this, message::GetWX, message::GetWY);
}
Ref GameNode::GetWPXY() {
  return pair(*this, message::GetWPX, message::GetWPY);
}
Ref GameNode::GetWSXY() {
  return pair(*this, message::GetWSX, message::GetWSY);
}
Ref GameNode::GetWPSXY() {
  return pair(*this, message::GetWPSX, message::GetWPSY);
}

Number GameNode::GetCenterX() {
  return world_center(kHorizontal);
}
Number GameNode::GetCenterY() {
  return world_center(kVertical);
}
Ref GameNode::GetCenterXY() {
  return pair(*this, message::GetCenterX, message::GetCenterY);
}

Ref GameNode::GetSizeRect() {
  Ref make = host::modules::pygame["Rect"_name];
  return make(ask(message::GetWX, *this), ask(message::GetWY, *this), read(width) * read(WSX),
              read(height) * read(WSY));
}

Ref GameNode::extreme_edge(const host::Message& edge, const Number& own, bool larger) {
  Ref result = own.object();
  host::walk(*this, children, [&](Value child) {
    Ref value = edge(child);
    const Number candidate(value);
    const Number best(result);
    if (larger ? candidate > best : candidate < best) result = value;
  });
  return result;
}

Ref GameNode::GetLeft() {
  return extreme_edge(message::GetLeft, read(WX), false);
}
Ref GameNode::GetTop() {
  return extreme_edge(message::GetTop, read(WY), false);
}
Ref GameNode::GetRight() {
  return extreme_edge(message::GetRight, read(WX) + read(width) * read(WSX), true);
}
// Keeps the smaller edge, unlike GetRight: scripts rely on the asymmetry.
Ref GameNode::GetBottom() {
  return extreme_edge(message::GetBottom, read(WY) + read(height) * read(WSY), false);
}

void GameNode::draw_begin(Value offset_x, Value offset_y, Value scale) {
  if (!is_false(lock_xysa)) return;
  const Number zoom(scale);
  const Number shift_x(offset_x);
  const Number shift_y(offset_y);
  const World* known = world();
  const std::optional<double> factor = zoom.plain();
  const std::optional<double> left = shift_x.plain();
  const std::optional<double> top = shift_y.plain();
  if (known != nullptr && factor && left && top) {
    const World here = *known;
    write_derived(WSX, here.sx * *factor);
    write_derived(WSY, here.sy * *factor);
    write_derived(WAngle, here.angle);
    write_derived(WX, seen_by_camera(here.x, *factor, *left));
    write_derived(WY, seen_by_camera(here.y, *factor, *top));
    return;
  }
  write(WSX, ask(message::GetWSX, *this) * zoom);
  write(WSY, ask(message::GetWSY, *this) * zoom);
  write(WAngle, message::GetWAngle(*this));
  write(WX, seen_by_camera(ask(message::GetWX, *this), zoom, shift_x));
  write(WY, seen_by_camera(ask(message::GetWY, *this), zoom, shift_y));
}

void declare_transform(NodeDeclaration& node) {
  using Node = GameNode;
  node.method<&Node::GetAXW>("GetAXW() -> float",
                             "Return the anchor's distance from the left edge, in unscaled pixels.")
      .method<&Node::GetAYH>("GetAYH() -> float",
                             "Return the anchor's distance from the top edge, in unscaled pixels.")
      .method<&Node::GetPAXW>("GetPAXW() -> float",
                              "Return the parent's GetAXW() in pixels, or 0.0 without a parent.")
      .method<&Node::GetPAYH>("GetPAYH() -> float",
                              "Return the parent's GetAYH() in pixels, or 0.0 without a parent.")
      .method<&Node::GetWX>("GetWX() -> float",
                            "Return the world position of the left edge in pixels, without the "
                            "camera; the cached `WX` while `lock_xysa` is true.")
      .method<&Node::GetWY>("GetWY() -> float",
                            "Return the world position of the top edge in pixels, without the "
                            "camera; the cached `WY` while `lock_xysa` is true.")
      .method<&Node::GetWXY>("GetWXY() -> tuple[float, float]",
                             "Return the pair GetWX(), GetWY(), in pixels.")
      .method<&Node::GetWPX>("GetWPX() -> float",
                             "Return the parent's GetWX() in pixels, or 0.0 without a parent.")
      .method<&Node::GetWPY>("GetWPY() -> float",
                             "Return the parent's GetWY() in pixels, or 0.0 without a parent.")
      .method<&Node::GetWPXY>("GetWPXY() -> tuple[float, float]",
                              "Return the pair GetWPX(), GetWPY(), in pixels.")
      .method<&Node::GetWSX>("GetWSX() -> float",
                             "Return the horizontal world scale factor, the product down the tree; "
                             "the cached `WSX` while `lock_xysa` is true.")
      .method<&Node::GetWSY>("GetWSY() -> float",
                             "Return the vertical world scale factor, the product down the tree; "
                             "the cached `WSY` while `lock_xysa` is true.")
      .method<&Node::GetWSXY>("GetWSXY() -> tuple[float, float]",
                              "Return the pair GetWSX(), GetWSY(), scale factors.")
      .method<&Node::GetWPSX>("GetWPSX() -> float",
                              "Return the parent's GetWSX(), or 1.0 without a parent.")
      .method<&Node::GetWPSY>("GetWPSY() -> float",
                              "Return the parent's GetWSY(), or 1.0 without a parent.")
      .method<&Node::GetWPSXY>("GetWPSXY() -> tuple[float, float]",
                               "Return the pair GetWPSX(), GetWPSY(), scale factors.")
      .method<&Node::GetWAngle>("GetWAngle() -> float",
                                "Return the world angle in degrees, the sum down the tree; the "
                                "cached `WAngle` while `lock_xysa` is true.")
      .method<&Node::GetWPAngle>(
          "GetWPAngle() -> float",
          "Return the parent's GetWAngle() in degrees, or 0.0 without a parent.")
      .method<&Node::GetCenterX>(
          "GetCenterX() -> float",
          "Return the horizontal world position of the anchor, despite the name, in pixels.")
      .method<&Node::GetCenterY>(
          "GetCenterY() -> float",
          "Return the vertical world position of the anchor, despite the name, in pixels.")
      .method<&Node::GetCenterXY>("GetCenterXY() -> tuple[float, float]",
                                  "Return the pair GetCenterX(), GetCenterY(), in pixels.")
      .method<&Node::GetLeft>("GetLeft() -> float",
                              "Return the smallest left edge in the subtree, in pixels of the "
                              "screen as of the last draw.")
      .method<&Node::GetTop>("GetTop() -> float",
                             "Return the smallest top edge in the subtree, in pixels of the screen "
                             "as of the last draw.")
      .method<&Node::GetRight>("GetRight() -> float",
                               "Return the largest right edge in the subtree, in pixels of the "
                               "screen as of the last draw.")
      .method<&Node::GetBottom>(
          "GetBottom() -> float",
          "Return the smallest bottom edge in the subtree, in pixels of the screen as of the last "
          "draw.\n\nUnlike GetRight it does not return the largest one.")
      .method<&Node::GetSizeRect>(
          "GetSizeRect() -> pygame.Rect",
          "Return a new pygame.Rect at GetWX(), GetWY() in the size of the last draw, in pixels.")
      .method<&Node::draw_begin>(
          "draw_begin(offsetX: float = 0, offsetY: float = 0, scale: float = 1.0) -> None",
          "Cache the world values for this frame, unless `lock_xysa` is true.\n\nPositions are "
          "multiplied by `scale` and then shifted by `offsetX` and `offsetY`, in pixels.");
}

}  // namespace tessora
