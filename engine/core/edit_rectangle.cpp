// The edit rectangle: nine handles with which a node is moved and sized by the mouse.
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

// Handles stand row by row, from 0 at the left top to 8 at the right bottom. The middle one moves
// the node; the others size it and leave the opposite edges where they are.
constexpr int kColumns = 3;
constexpr int kHandles = kColumns * kColumns;
constexpr int kMiddle = 4;
constexpr int kNoHandle = -2;
constexpr double kHandleSize = 6.0;

struct Handle {
  Number left;
  Number top;
};

Number handle_side(GameNode& node, const GameNode::Axis& axis, double fraction,
                   const Number& half) {
  return node.read(node.*axis.cached_place) +
         node.read(node.*axis.size) * node.read(node.*axis.cached_scale) * Number(fraction) - half;
}

Handle handle_at(GameNode& node, int index, const Number& size) {
  const Number half = size * Number(0.5);
  const int row = index / kColumns;
  return {handle_side(node, kHorizontal, 0.5 * (index % kColumns), half),
          handle_side(node, kVertical, 0.5 * row, half)};
}

bool in_handle(const Handle& handle, const Number& px, const Number& py) {
  const Number size(kHandleSize);
  return px >= handle.left && px < handle.left + size && py >= handle.top && py < handle.top + size;
}

// One axis of a drag. `place` counts in the parent's pixels, `size` in unscaled ones.
struct DraggedAxis {
  Number place;
  Number size;
  Number anchor;
  Number own_scale;
  Number world_scale;   // without the camera
  Number screen_scale;  // with it

  DraggedAxis(GameNode& node, const GameNode::Axis& axis)
      : place(node.read(node.*axis.place)),
        size(node.read(node.*axis.size)),
        anchor(node.read(node.*axis.anchor)),
        own_scale(node.read(node.*axis.scale)),
        world_scale(host::ask(axis.world_scale, node)),
        screen_scale(node.read(node.*axis.cached_scale)) {}

  void move(const Number& distance) {
    if (screen_scale == Number(0)) return;
    place = place + distance * world_scale / screen_scale;
  }
  // `side` 0 drags the near edge, 2 the far one.
  void resize(const Number& distance, int side) {
    if (side == 1 || screen_scale == Number(0)) return;
    Number change = distance / screen_scale;
    if (side == 0) change = Number(0) - change;
    Number resized = size + change;
    if (resized < Number(0)) resized = Number(0.0);
    change = resized - size;
    size = resized;
    place = place + change * anchor * own_scale;
    if (side == 0) place = place - change * world_scale;
  }
};

}  // namespace

int GameNode::checkDragRect(Value px, Value py) {
  if (!is_true(editrectenable)) return kNoHandle;
  for (int index = 0; index < kHandles; ++index) {
    if (in_handle(handle_at(*this, index, Number(kHandleSize)), px, py)) return index;
  }
  return kNoHandle;
}

void GameNode::drawDragRect(Value screen, Value size, Value index) {
  if (!is_true(editrectvisible)) return;
  Ref color = host::engine_value("g_pygameControl_BorderColor"_name);
  Ref active = host::engine_value("g_pygameControl_CollColor"_name);
  const render::Canvas canvas(screen);
  canvas.outline(color, drawn_box(), 1);
  const double side = Number(size).to_double();
  for (int handle = 0; handle < kHandles; ++handle) {
    const Handle corner = handle_at(*this, handle, size);
    const double left = corner.left.to_double();
    const bool dragged = index.equals(host::integer(handle));
    canvas.fill(dragged ? active : color, {left, corner.top.to_double(), side, side});
  }
}

void GameNode::OnEditRectDraging(Value px, Value py) {
  host::walk(*this, children, [&](Value child) { message::OnEditRectDraging(child, px, py); });
  const std::optional<std::int64_t> dragged = Number(read(dragcornerindex)).whole();
  if (!is_true(editrectenable) || !dragged || *dragged < 0 || *dragged >= kHandles) return;
  const int handle = static_cast<int>(*dragged);
  const Number moved_x = Number(px) - read(dragbegin_x);
  const Number moved_y = Number(py) - read(dragbegin_y);
  DraggedAxis horizontal(*this, kHorizontal);
  DraggedAxis vertical(*this, kVertical);
  if (handle == kMiddle) {
    horizontal.move(moved_x);
    vertical.move(moved_y);
  } else {
    horizontal.resize(moved_x, handle % kColumns);
    vertical.resize(moved_y, handle / kColumns);
    message::SetWidth(*this, horizontal.size);
    message::SetHeight(*this, vertical.size);
  }
  message::SetXY(*this, horizontal.place, vertical.place);
  write(dragbegin_x, px);
  write(dragbegin_y, py);
}

void declare_edit_rectangle(NodeDeclaration& node) {
  node.method<&GameNode::checkDragRect>(
          "checkDragRect(x: float, y: float) -> int",
          "Return the index of the edit rectangle's handle under the point (pixels of the screen), "
          "or -2.\n\nHandles are numbered row by row from 0 (left top) to 8 (right bottom).")
      .method<&GameNode::drawDragRect>(
          "drawDragRect(screen: pygame.Surface, size: float, dragcornerindex: int) -> None",
          "Draw the edit rectangle with handles of `size` pixels while `editrectvisible` is "
          "true.\n\nThe handle `dragcornerindex` is drawn in another colour.")
      .method<&GameNode::OnEditRectDraging>(
          "OnEditRectDraging(x: float, y: float) -> None",
          "Move or resize the node with the handle being dragged; the pointer is at `x`, `y` in "
          "pixels of the screen.");
}

}  // namespace tessora
