#include "engine/actions/concrete_actions.hpp"
#include "engine/core/scene_node.hpp"

namespace tessora {

using host::Ref;

void MoveAction::Run() {
  if (!is_set(targetNode)) return;
  Ref x = message::GetWX(read(targetNode));
  start_at(x, message::GetWY(read(targetNode)));
}

void MoveAction::set_position(const Point& position) {
  tessora::set_position(read(targetNode).get(), position.x, position.y);
}

void MoveToAction::construct(PyObject* seconds, PyObject* x, PyObject* y) {
  construct_vectors(seconds, 0, x, y);
}

void MoveToAction::update(PyObject* delay) {
  advance_to(delay, [&](const Point& position) { set_position(position); });
}

void MoveByAction::construct(PyObject* seconds, PyObject* x, PyObject* y) {
  construct_vectors(seconds, 0, x, y);
}

void MoveByAction::update(PyObject* delay) {
  advance_by(delay, [&](const Point& position) { set_position(position); });
}

namespace {

template <class Action>
void register_move(PyObject* module, const char* name, const char* doc, const char* way_doc) {
  host::ClassBuilder<Action> builder(name, &host::class_info<GAction>);
  builder.attribute("duration", &Action::duration, "Seconds that the movement takes.")
      .attribute("srcPostion", &Action::source,
                 "pygame.math.Vector2: the node's world position when the action was started.")
      .attribute("dstPostion", &Action::destination, way_doc)
      .template constructor<&Action::construct>({"duration", "x", "y"}, doc)
      .template method<&Action::Run>(
          "Run",
          "Start from the node's world position (GetWX, GetWY); without a target nothing happens.")
      .template method<&Action::update>("update", {"delay"},
                                        "Add `delay` seconds and move the node with SetXY.\n\n"
                                        "Raises ValueError for a time before the start.");
  builder.finish(module);
}

}  // namespace

void register_move_actions(PyObject* module) {
  register_move<MoveToAction>(
      module, "MoveToAction",
      "Moves a node to the position (`x`, `y`) in pixels, in `duration` seconds.\n\n"
      "The way begins at the node's world position but is set as its local one: the two agree for\n"
      "a node without an anchor whose parent, if any, is at the origin.",
      "pygame.math.Vector2: where the movement ends.");
  register_move<MoveByAction>(module, "MoveByAction",
                              "Moves a node by (`x`, `y`) pixels in `duration` seconds.\n\n"
                              "Started again, it moves on from where the node is by then.",
                              "pygame.math.Vector2: the whole way in pixels.");
}

}  // namespace tessora
