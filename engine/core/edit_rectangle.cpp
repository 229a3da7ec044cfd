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

Handle handle_at(GameNode& node, int index, const Number& size) {
  const int row_index = index / kColumns;
  Number column(0.5 * (index % kColumns));
  Number row(0.5 * row_index);
  Number half = size * Number(0.5);
  return {node.number(node.WX) + node.number(node.width) * node.number(node.WSX) * column - half,
          node.number(node.WY) + node.number(node.height) * node.number(node.WSY) * row - half};
}

bool in_handle(const Handle& handle, PyObject* px, PyObject* py) {
  Number point_x(px);
  Number point_y(py);
  Number size(kHandleSize);
  return point_x >= handle.left && point_x < handle.left + size && point_y >= handle.top &&
         point_y < handle.top + size;
}

// One axis of a drag. `place` counts in the parent's pixels, `size` in unscaled ones.
struct Axis {
  Number place;
  Number size;
  Number anchor;
  Number own_scale;
  Number world_scale;   // without the camera
  Number screen_scale;  // with it

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

Number GameNode::checkDragRect(PyObject* px, PyObject* py) {
  if (!is_true(editrectenable)) return kNoHandle;
  for (int index = 0; index < kHandles; ++index) {
    if (in_handle(handle_at(*this, index, Number(kHandleSize)), px, py)) return index;
  }
  return kNoHandle;
}

void GameNode::drawDragRect(PyObject* screen, PyObject* size, PyObject* index) {
  if (!is_true(editrectvisible)) return;
  Ref color = host::engine_value("g_pygameControl_BorderColor"_name);
  Ref active = host::engine_value("g_pygameControl_CollColor"_name);
  Ref rect = host::modules::draw["rect"_name];
  host::call(rect, screen, color, drawn_rect(), Number(1).object());
  for (int handle = 0; handle < kHandles; ++handle) {
    Handle corner = handle_at(*this, handle, Number(size));
    Ref box = host::tuple(corner.left.object(), corner.top.object(), size, size);
    bool dragged = host::equals(index, host::integer(handle).get());
    host::call(rect, screen, dragged ? active : color, box, Number(0).object());
  }
}

void GameNode::OnEditRectDraging(PyObject* px, PyObject* py) {
  if (has_children()) {
    for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
      message::OnEditRectDraging(child, px, py);
    }
  }
  Number dragged = number(dragcornerindex);
  if (!is_true(editrectenable) || !(dragged >= Number(0)) || !(dragged < Number(kHandles))) return;
  int handle = static_cast<int>(dragged.plain());
  auto* self = static_cast<PyObject*>(this);
  Number moved_x = Number(px) - number(dragbegin_x);
  Number moved_y = Number(py) - number(dragbegin_y);
  Axis horizontal{
      number(x),  number(width), number(anchorx), number(sx), Number(message::GetWSX(self).get()),
      number(WSX)};
  Axis vertical{
      number(y),  number(height), number(anchory), number(sy), Number(message::GetWSY(self).get()),
      number(WSY)};
  if (handle == kMiddle) {
    horizontal.move(moved_x);
    vertical.move(moved_y);
  } else {
    horizontal.resize(moved_x, handle % kColumns);
    vertical.resize(moved_y, handle / kColumns);
    message::SetWidth(self, horizontal.size.object());
    message::SetHeight(self, vertical.size.object());
  }
  message::SetXY(self, horizontal.place.object(), vertical.place.object());
  write(dragbegin_x, px);
  write(dragbegin_y, py);
}

void declare_edit_rectangle(NodeBuilder& builder) {
  builder.accessors<&GameNode::editrectenable>(nullptr, "SetEditRectEnable", "v")
      .accessors<&GameNode::editrectvisible>(nullptr, "SetEditRectVisible", "v")
      .method<&GameNode::checkDragRect>(
          "checkDragRect", {"x", "y"},
          "Return the index of the edit rectangle's handle under the point, or -2.\n\nHandles are "
          "numbered row by row from 0 (left top) to 8 (right bottom).")
      .method<&GameNode::drawDragRect>(
          "drawDragRect", {"screen", "size", "dragcornerindex"},
          "Draw the edit rectangle with handles of `size` pixels while `editrectvisible` is true.")
      .method<&GameNode::OnEditRectDraging>(
          "OnEditRectDraging", {"x", "y"},
          "Move or resize the node with the handle being dragged; the pointer is at `x`, `y`.");
}

}  // namespace tessora
