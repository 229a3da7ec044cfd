#include "engine/actions/concrete_actions.hpp"

namespace tessora {

using host::number;
using host::Number;

void RotateAction::construct_angles(PyObject* seconds, PyObject* angle) {
  construct_timed(seconds);
  write(srcAngle, Number(0));
  write(dstAngle, angle);
}

void RotateAction::Run() {
  if (!is_set(targetNode)) return;
  write(srcAngle, message::GetAngle(read(targetNode)));
  base_run();
}

void RotateAction::set_angle(const Number& angle) {
  message::SetAngle(read(targetNode), angle.object());
}

void RotateToAction::construct(PyObject* seconds, PyObject* angle) {
  construct_angles(seconds, angle);
}

void RotateToAction::update(PyObject* delay) {
  advance(
      delay, [&] { message::SetAngle(read(targetNode), read(dstAngle)); },
      [&](const Number& time) {
        set_angle(number(srcAngle) + (number(dstAngle) - number(srcAngle)) * time);
      });
}

void RotateByAction::construct(PyObject* seconds, PyObject* angle) {
  construct_angles(seconds, angle);
}

void RotateByAction::update(PyObject* delay) {
  advance(
      delay, [&] { set_angle(number(srcAngle) + number(dstAngle)); },
      [&](const Number& time) { set_angle(number(srcAngle) + number(dstAngle) * time); });
}

namespace {

template <class Action>
void register_rotate(PyObject* module, const char* name, const char* doc, const char* way_doc) {
  host::ClassBuilder<Action> builder(name, &host::class_info<GAction>);
  builder.attribute("duration", &Action::duration, "Seconds that the turn takes.")
      .attribute("srcAngle", &Action::srcAngle,
                 "The node's angle in degrees when the action was started.")
      .attribute("dstAngle", &Action::dstAngle, way_doc)
      .template constructor<&Action::construct>({"duration", "angle"}, doc)
      .template method<&Action::Run>(
          "Run", "Start from the node's angle (GetAngle); without a target nothing happens.")
      .template method<&Action::update>("update", {"delay"},
                                        "Add `delay` seconds and turn the node with SetAngle.");
  builder.finish(module);
}

}  // namespace

void register_rotate_actions(PyObject* module) {
  register_rotate<RotateToAction>(
      module, "RotateToAction",
      "Turns a node to `angle` degrees in `duration` seconds.\n\n"
      "The turn is the plain difference of the two angles, never the shorter way round.",
      "The angle in degrees at the end.");
  register_rotate<RotateByAction>(module, "RotateByAction",
                                  "Turns a node by `angle` degrees in `duration` seconds.",
                                  "The whole turn in degrees.");
}

}  // namespace tessora
