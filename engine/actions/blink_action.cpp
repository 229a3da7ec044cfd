#include "engine/actions/concrete_actions.hpp"

namespace tessora {

using host::number;
using host::Number;

void BlinkAction::construct(PyObject* seconds, PyObject* count) {
  construct_timed(seconds);
  write(blinkcount, count);
  write(delaytime, number(duration) / number(blinkcount));
  write(blinkindex, Number(0));
}

void BlinkAction::Run() {
  if (is_set(targetNode)) base_run();
}

void BlinkAction::update(PyObject* delay) {
  if (!is_playing()) return;
  base_update(delay);
  Number ratio = number(runtime) / (Number(0.5) * number(delaytime));
  Number half_periods = host::number(ratio.truncated());
  Number pairs = host::number((half_periods / Number(2)).truncated());
  if (!(half_periods - Number(2) * pairs == Number(0))) {
    message::SetVisible(read(targetNode), Py_True);
    return;
  }
  if (!host::equals_true(message::IsVisible(read(targetNode)))) return;
  if (number(blinkindex) + Number(1) == number(blinkcount)) write(over, true);
  write(blinkindex, number(blinkindex) + Number(1));
  message::SetVisible(read(targetNode), Py_False);
}

void register_blink_action(PyObject* module) {
  host::ClassBuilder<BlinkAction> builder("BlinkAction", &host::class_info<GAction>);
  builder.attribute("duration", &BlinkAction::duration, "Seconds that all blinks take.")
      .attribute("blinkcount", &BlinkAction::blinkcount, "Number of blinks, -1 for without end.")
      .attribute("delaytime", &BlinkAction::delaytime,
                 "Seconds per blink; negative when there is no end.")
      .attribute("blinkindex", &BlinkAction::blinkindex, "Number of blinks so far.")
      .constructor<&BlinkAction::construct>(
          {"duration", {"blinkcount", -1}},
          "Hides and shows a node `blinkcount` times in `duration` seconds.\n\n"
          "The node is left hidden. With a count of -1 it blinks once in every `duration`, until\n"
          "the action is stopped. Raises ZeroDivisionError for a count of 0.")
      .method<&BlinkAction::Run>(
          "Run", "Start the action; without a target nothing happens. Blinks so far are kept.")
      .method<&BlinkAction::update>(
          "update", {"delay"},
          "Add `delay` seconds and hide or show the node with SetVisible.\n\n"
          "Every hiding of a visible node counts as a blink.");
  builder.finish(module);
}

}  // namespace tessora
