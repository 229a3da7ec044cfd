// The drawn rectangle of a node, as its last draw cached it.
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

// pygame computes edges with 32 bits and lets them wrap: what comes near that it judges itself.
bool plain_side(const Number& value, std::int64_t& result) {
  constexpr double kFar = 1 << 30;
  const std::optional<double> plain = value.plain();
  if (!plain || !(*plain > -kFar && *plain < kFar)) return false;
  result = static_cast<std::int64_t>(*plain);
  return true;
}

// What the rectangle is made of.
struct Drawn {
  double left, top, width, height, sx, sy;
  [[nodiscard]] render::Size size() const { return {width * sx, height * sy}; }
};

// In machine numbers, where all are such: this is read for every picture on every frame.
std::optional<Drawn> plainly_drawn(const GameNode& node) {
  Drawn drawn{};
  const bool plain =
      node.holds_number(node.WX, drawn.left) && node.holds_number(node.WY, drawn.top) &&
      node.holds_number(node.width, drawn.width) && node.holds_number(node.height, drawn.height) &&
      node.holds_number(node.WSX, drawn.sx) && node.holds_number(node.WSY, drawn.sy);
  return plain ? std::optional(drawn) : std::nullopt;
}

}  // namespace

Ref GameNode::drawn_rect() {
  Ref left = read(WX);
  Ref top = read(WY);
  Ref make = host::modules::pygame["Rect"_name];
  return make(left, top, read(width) * read(WSX), read(height) * read(WSY));
}

bool GameNode::drawn_rect_contains(Value px, Value py) {
  std::int64_t left = 0;
  std::int64_t top = 0;
  std::int64_t wide = 0;
  std::int64_t high = 0;
  std::int64_t at_x = 0;
  std::int64_t at_y = 0;
  if (plain_side(read(WX), left) && plain_side(read(WY), top) &&
      plain_side(read(width) * read(WSX), wide) && plain_side(read(height) * read(WSY), high) &&
      plain_side(px, at_x) && plain_side(py, at_y)) {
    return at_x >= left && at_x < left + wide && at_y >= top && at_y < top + high;
  }
  Ref rect = drawn_rect();
  Ref inside = rect.call("collidepoint"_name, px, py);
  return inside.equals_true();
}

render::Box GameNode::drawn_box() {
  if (const auto drawn = plainly_drawn(*this)) {
    const render::Size size = drawn->size();
    return {drawn->left, drawn->top, size.width, size.height};
  }
  const Number left = read(WX);
  const Number top = read(WY);
  const Number wide = read(width) * read(WSX);
  const Number high = read(height) * read(WSY);
  return {left.to_double(), top.to_double(), wide.to_double(), high.to_double()};
}

render::Size GameNode::drawn_size() {
  if (const auto drawn = plainly_drawn(*this)) return drawn->size();
  const Number wide = read(width) * read(WSX);
  const Number high = read(height) * read(WSY);
  return {wide.to_double(), high.to_double()};
}

render::Size GameNode::unscaled_size() {
  const Number wide = read(width);
  const Number high = read(height);
  return {wide.to_double(), high.to_double()};
}

render::Point GameNode::drawn_center() {
  if (const auto drawn = plainly_drawn(*this)) {
    return {drawn->left + drawn->width / 2 * drawn->sx, drawn->top + drawn->height / 2 * drawn->sy};
  }
  const Number across = read(WX) + read(width) / Number(2) * read(WSX);
  const Number down = read(WY) + read(height) / Number(2) * read(WSY);
  return {across.to_double(), down.to_double()};
}

}  // namespace tessora
