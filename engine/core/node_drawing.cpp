// Drawing a node: what lies over its picture, and its children.
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

constexpr double kAnchorArm = 5.0;

const host::MessageSet& overlay_messages() {
  static const host::MessageSet set{
      {&message::drawsize, &host::native<&GameNode::drawsize>},
      {&message::drawAnchor, &host::native<&GameNode::drawAnchor>},
      {&message::drawDragRect, &host::native<&GameNode::drawDragRect>},
  };
  return set;
}

}  // namespace

bool is_visible(Value node) {
  if (auto* known =
          message::IsVisible.direct<GameNode>(node, &host::native_getter<&GameNode::visible>)) {
    return known->is_true(known->visible);
  }
  Ref visible = message::IsVisible(node);
  return visible.equals_true();
}

void draw_visible(Value node, Value screen, Value offset_x, Value offset_y, Value scale) {
  if (is_visible(node)) message::draw(node, screen, offset_x, offset_y, scale);
}

void GameNode::draw_overlays(Value screen, Value scale) {
  if (overlay_messages().all_direct(*this)) {
    drawsize(screen);
    drawAnchor(screen, scale);
    if (is_true(editrectvisible)) drawDragRect(screen, 6_const, Ref(read(dragcornerindex)));
  } else {
    message::drawsize(*this, screen);
    message::drawAnchor(*this, screen, scale);
    message::drawDragRect(*this, screen, 6_const, read(dragcornerindex));
  }
}

void GameNode::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  message::draw_begin(*this, offset_x, offset_y, scale);
  finish_node_draw(screen, offset_x, offset_y, scale);
}

void GameNode::finish_node_draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  draw_overlays(screen, scale);
  message::draw_children(*this, screen, offset_x, offset_y, scale);
  if (is_set(sceneInstance)) message::CallInnerEvent(*this, "Render"_name);
}

void GameNode::draw_children(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (holds_empty_list(children)) return;
  host::ListWalk steps = walk_children();
  while (Value child = steps.next()) draw_visible(child, screen, offset_x, offset_y, scale);
}

void GameNode::drawsize(Value screen) {
  if (!is_true(rectvisible)) return;
  Ref color = host::engine_value("BorderColor"_name);
  render::Canvas(screen).outline(color, drawn_box(), 1);
}

void GameNode::drawAnchor(Value screen, Value scale) {
  if (!is_true(anchorvisible)) return;
  const Number across = read(WX) + read(anchorx) * read(width) * read(WSX);
  const Number down = read(WY) + read(anchory) * read(height) * read(WSY);
  const Number reach = Number(kAnchorArm) * Number(scale);
  const render::Point center{across.to_double(), down.to_double()};
  const double arm = reach.to_double();
  Ref color = host::engine_value("BorderColor"_name);
  const render::Canvas canvas(screen);
  canvas.line(color, {center.x - arm, center.y}, {center.x + arm, center.y});
  canvas.line(color, {center.x, center.y - arm}, {center.x, center.y + arm});
}

void GameNode::drawToSurface(Value surface, Value offset_x, Value offset_y, Value scale) {
  message::draw(*this, surface, offset_x, offset_y, scale);
}

void GameNode::drawToSurface_children(Value surface, Value offset_x, Value offset_y, Value scale) {
  message::draw_children(*this, surface, offset_x, offset_y, scale);
}

void declare_drawing(NodeDeclaration& node) {
  node.method<&GameNode::draw>(
          "draw(screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, "
          "scale: float = 1.0) -> None",
          "Draw the node and its subtree onto `screen`, if it is visible.\n\n"
          "`offsetX`, `offsetY` (pixels) and `scale` are the camera.")
      .method<&GameNode::draw_children>(
          "draw_children(screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, "
          "scale: float = 1.0) -> None",
          "Draw the visible children in list order, so that the last one is on top.\n\n`offsetX`, "
          "`offsetY` (pixels) and `scale` are the camera.")
      .method<&GameNode::drawsize>("drawsize(screen: pygame.Surface) -> None",
                                   "Outline the drawn rectangle while `rectvisible` is true.")
      .method<&GameNode::drawAnchor>(
          "drawAnchor(screen: pygame.Surface, scale: float = 1.0) -> None",
          "Mark the anchor while `anchorvisible` is true; `scale` multiplies the marker.")
      .method<&GameNode::drawToSurface>(
          "drawToSurface(surface: pygame.Surface, offsetX: float = 0, offsetY: float = 0, "
          "scale: float = 1.0) -> None",
          "Draw the node and its subtree into a surface of the script's.\n\n`offsetX`, `offsetY` "
          "(pixels) and `scale` are the camera. The world values are cached for that camera until "
          "the next draw.")
      .method<&GameNode::drawToSurface_children>(
          "drawToSurface_children(surface: pygame.Surface, offsetX: float = 0, "
          "offsetY: float = 0, scale: float = 1.0) -> None",
          "Draw the visible children into a surface of the script's.\n\n`offsetX`, `offsetY` "
          "(pixels) and `scale` are the camera.");
}

}  // namespace tessora
