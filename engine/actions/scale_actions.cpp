#include "engine/actions/concrete_actions.hpp"
#include "engine/core/scene_node.hpp"

namespace tessora {

using host::Ref;

void ScaleAction::Run() {
  if (!is_set(targetNode)) return;
  Ref sx = message::GetSX(read(targetNode));
  start_at(sx, message::GetSY(read(targetNode)));
}

void ScaleAction::set_scale(const Point& scale) {
  tessora::set_scale(read(targetNode).get(), scale.x, scale.y);
}

void ScaleToAction::construct(PyObject* seconds, PyObject* sx, PyObject* sy) {
  construct_vectors(seconds, 1, sx, sy);
}

void ScaleToAction::update(PyObject* delay) {
  advance_to(delay, [&](const Point& scale) { set_scale(scale); });
}

void ScaleByAction::construct(PyObject* seconds, PyObject* sx, PyObject* sy) {
  construct_vectors(seconds, 0, sx, sy);
}

void ScaleByAction::update(PyObject* delay) {
  advance_by(delay, [&](const Point& scale) { set_scale(scale); });
}

namespace {

template <class Action>
void register_scale(PyObject* module, const char* name, const char* doc, const char* way_doc) {
  host::ClassBuilder<Action> builder(name, &host::class_info<GAction>);
  builder.attribute("duration", &Action::duration, "Seconds that the change takes.")
      .attribute("srcScale", &Action::source,
                 "pygame.math.Vector2: the node's scale when the action was started.")
      .attribute("dstScale", &Action::destination, way_doc)
      .template constructor<&Action::construct>({"duration", "sx", "sy"}, doc)
      .template method<&Action::Run>(
          "Run", "Start from the node's scale (GetSX, GetSY); without a target nothing happens.")
      .template method<&Action::update>("update", {"delay"},
                                        "Add `delay` seconds and scale the node with SetSXY.\n\n"
                                        "Raises ValueError for a time before the start.");
  builder.finish(module);
}

}  // namespace

void register_scale_actions(PyObject* module) {
  register_scale<ScaleToAction>(module, "ScaleToAction",
                                "Scales a node to (`sx`, `sy`) in `duration` seconds.",
                                "pygame.math.Vector2: the scale at the end.");
  register_scale<ScaleByAction>(
      module, "ScaleByAction",
      "Adds (`sx`, `sy`) to a node's scale in the course of `duration` seconds.",
      "pygame.math.Vector2: what is added to the scale.");
}

}  // namespace tessora
