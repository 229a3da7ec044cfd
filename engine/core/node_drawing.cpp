// Drawing and per-frame update of a node.
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

constexpr int kHandleSize = 6;
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

bool is_visible(PyObject* node) {
  if (auto* known =
          message::IsVisible.direct<GameNode>(node, &host::native_getter<&GameNode::visible>)) {
    return known->is_true(known->visible);
  }
  return host::equals_true(message::IsVisible(node));
}

void draw_visible(PyObject* node, PyObject* screen, PyObject* offset_x, PyObject* offset_y,
                  PyObject* scale) {
  if (is_visible(node)) message::draw(node, screen, offset_x, offset_y, scale);
}

void GameNode::draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale) {
  auto* self = static_cast<PyObject*>(this);
  if (!is_visible(self)) return;
  message::draw_begin(self, offset_x, offset_y, scale);
  static PyObject* const handle_size = host::integer(kHandleSize).release();
  if (overlay_messages().all_direct(self)) {
    drawsize(screen);
    drawAnchor(screen, scale);
    drawDragRect(screen, handle_size, read(dragcornerindex).get());
  } else {
    message::drawsize(self, screen);
    message::drawAnchor(self, screen, scale);
    message::drawDragRect(self, screen, handle_size, read(dragcornerindex));
  }
  message::draw_children(self, screen, offset_x, offset_y, scale);
  if (is_set(sceneInstance)) message::CallInnerEvent(self, "Render"_name);
}

void GameNode::draw_children(PyObject* screen, PyObject* offset_x, PyObject* offset_y,
                             PyObject* scale) {
  if (!has_children()) return;
  for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
    draw_visible(child, screen, offset_x, offset_y, scale);
  }
}

void GameNode::drawsize(PyObject* screen) {
  if (!is_true(rectvisible)) return;
  host::call(host::modules::draw["rect"_name], screen, host::engine_value("BorderColor"_name),
             drawn_rect(), Number(1).object());
}

void GameNode::drawAnchor(PyObject* screen, PyObject* scale) {
  if (!is_true(anchorvisible)) return;
  Number center_x = number(WX) + number(anchorx) * number(width) * number(WSX);
  Number center_y = number(WY) + number(anchory) * number(height) * number(WSY);
  Number arm = Number(kAnchorArm) * Number(scale);
  Ref color = host::engine_value("BorderColor"_name);
  Ref line = host::modules::draw["line"_name];
  auto point = [](const Number& px, const Number& py) {
    return host::tuple(px.object(), py.object());
  };
  host::call(line, screen, color, point(center_x - arm, center_y), point(center_x + arm, center_y));
  host::call(line, screen, color, point(center_x, center_y - arm), point(center_x, center_y + arm));
}

void GameNode::drawToSurface(PyObject* surface, PyObject* offset_x, PyObject* offset_y,
                             PyObject* scale) {
  message::draw(static_cast<PyObject*>(this), surface, offset_x, offset_y, scale);
}

void GameNode::drawToSurface_children(PyObject* surface, PyObject* offset_x, PyObject* offset_y,
                                      PyObject* scale) {
  message::draw_children(static_cast<PyObject*>(this), surface, offset_x, offset_y, scale);
}

void GameNode::update(PyObject* delay) {
  if (has_children()) {
    for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
      message::update(child, delay);
    }
  }
  if (is_set(ActionPlayer)) message::update(read(ActionPlayer), delay);
  if (is_set(UpdateFunction)) host::call(read(UpdateFunction), delay);
  raise_inner_event("Update"_name);
}

void GameNode::run_actions(PyObject* actions) {
  auto* self = static_cast<PyObject*>(this);
  if (!is_set(ActionPlayer)) {
    Ref player = host::call(host::engine_value("ActionPlayer"_name));
    write(ActionPlayer, player);
    message::SetTarget(player, self);
  }
  message::CleanUp(read(ActionPlayer));
  message::AddActions(read(ActionPlayer), actions);
  message::Run(read(ActionPlayer));
}

namespace {

PyObject* run_action(PyObject* self, PyObject* actions) {
  return host::guarded<PyObject*>(nullptr, [&] {
    host::script_ran();
    static_cast<GameNode*>(self)->run_actions(actions);
    return host::none().release();
  });
}

}  // namespace

void declare_drawing(NodeBuilder& builder) {
  const host::Parameters camera = {"screen", {"offsetX", 0}, {"offsetY", 0}, {"scale", 1.0}};
  builder
      .method<&GameNode::draw>("draw", camera,
                               "Draw the node and its subtree onto `screen`, if it is visible.\n\n"
                               "`offsetX`, `offsetY` (pixels) and `scale` are the camera.")
      .method<&GameNode::draw_children>("draw_children", camera,
                                        "Draw the visible children in list order.")
      .method<&GameNode::drawsize>("drawsize", {"screen"},
                                   "Outline the drawn rectangle while `rectvisible` is true.")
      .method<&GameNode::drawAnchor>("drawAnchor", {"screen", {"scale", 1.0}},
                                     "Mark the anchor while `anchorvisible` is true; `scale` "
                                     "multiplies the marker.")
      .method<&GameNode::drawToSurface>(
          "drawToSurface", {"surface", {"offsetX", 0}, {"offsetY", 0}, {"scale", 1.0}},
          "Draw the node and its subtree into a surface of the script's.\n\nThe world values are "
          "cached for that camera until the next draw.")
      .method<&GameNode::drawToSurface_children>(
          "drawToSurface_children", {"surface", {"offsetX", 0}, {"offsetY", 0}, {"scale", 1.0}},
          "Draw the visible children into a surface of the script's.")
      .method<&GameNode::update>("update", {"delay"},
                                 "Advance the subtree by `delay` seconds: children first, then the "
                                 "running actions, then the update function.")
      .function("RunAction", &run_action, METH_VARARGS,
                "RunAction($self, *actions)\n--\n\nPlay the actions one after another, in place of "
                "those that were running.\n\nRaises IndexError without any action.")
      .accessors<&GameNode::UpdateFunction>(nullptr, "SetUpdateFunction", "f");
}

}  // namespace tessora
