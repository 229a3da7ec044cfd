#include "engine/actions/action.hpp"

namespace tessora {

void GAction::Run() {
  write(running, true);
  write(runtime, 0);
  write(over, false);
}

void GAction::Pause() {
  write(running, false);
}

void GAction::Resume() {
  write(running, true);
}

void GAction::Stop() {
  write(running, false);
  Value(*this).set_attr("time"_name, 0_const);
}

void GAction::update(Value delay) {
  if (is_true(running) && is_false(over)) write(runtime, read(runtime) + delay);
}

bool GAction::is_playing() const {
  return is_set(targetNode) && is_true(running) && is_false(over);
}

void register_action(PyObject* module) {
  host::Declaration<GAction> action(
      module, "GAction",
      "A timed job on a node; the base of all actions.\n\n"
      "Give actions to a node's RunAction, which plays them one after another. A class of one's "
      "own overrides update and sets `over` at the end.\n\n"
      ">>> node.RunAction(Tessora.MoveToAction(2, 300, 50), Tessora.BlinkAction(1, 3))\n"
      ">>> node.update(0.5)");
  action.constructor("()");
  action
      .attribute<&GAction::running>(
          "running: bool", false,
          "Whether the action was started and is not paused. It stays true at the end.")
      .getter("IsRunning");
  action
      .attribute<&GAction::targetNode>("targetNode: GameNode | None", nullptr,
                                       "The node that the action works on, or None.")
      .setter("SetTarget", "targetNode");
  action.attribute<&GAction::runtime>("runtime: float", 0, "Seconds since the last Run.")
      .getter("GetRunTime");
  action.attribute<&GAction::over>("over: bool", false, "Whether the action has finished.")
      .getter("IsOver");
  action
      .method<&GAction::Run>("Run() -> None",
                             "Start the action, or start it again from the beginning.")
      .method<&GAction::Pause>("Pause() -> None", "Hold the action where it is.")
      .method<&GAction::Resume>("Resume() -> None", "Go on after Pause or Stop.")
      .method<&GAction::Stop>("Stop() -> None",
                              "Hold the action where it is and set an attribute `time` to 0.\n\n"
                              "`runtime` is kept until the next Run.")
      .method<&GAction::update>(
          "update(delay: float) -> None",
          "Add `delay` seconds to the run time, unless the action is paused or over.");
  action.finish();
}

}  // namespace tessora
