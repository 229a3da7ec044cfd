#include "engine/actions/concrete_actions.hpp"

namespace tessora {

namespace {

struct CallBackAction : TimedAction {
  Slot callbackFunc, callbackParams;

  void update(Value delay) {
    advance(delay, [&](const Number&, bool ends) {
      if (!ends) return;
      Ref function = read(callbackFunc);
      if (function.is_true()) function(read(callbackParams));
    });
  }
};

template <Course Way>
struct RotateAction : TimedAction {
  Slot srcAngle, dstAngle;

  void Run() {
    if (!is_set(targetNode)) return;
    write(srcAngle, message::GetAngle(read(targetNode)));
    message::Run.base<&GAction::Run>(*this);
  }

  void update(Value delay) {
    advance(delay, [&](const Number& time, bool ends) {
      Ref node = read(targetNode);
      message::SetAngle(node, angle_at(time, ends));
    });
  }

 private:
  // Not the formula of vectors: the two differ in the last bit.
  [[nodiscard]] Ref angle_at(const Number& time, bool ends) const {
    if constexpr (Way == Course::kTo) {
      if (ends) return read(dstAngle);
      return argument(read(srcAngle) + (read(dstAngle) - read(srcAngle)) * time);
    } else {
      if (ends) return argument(read(srcAngle) + read(dstAngle));
      return argument(read(srcAngle) + read(dstAngle) * time);
    }
  }
};

struct BlinkAction : TimedAction {
  Slot blinkcount, delaytime, blinkindex;

  void divide_time() { write(delaytime, read(duration) / read(blinkcount)); }

  void Run() {
    if (is_set(targetNode)) message::Run.base<&GAction::Run>(*this);
  }

  void update(Value delay) {
    if (!is_playing()) return;
    message::update.base<&GAction::update>(*this, delay);
    const Number ratio = read(runtime) / (0.5 * read(delaytime));
    const Number half_periods = ratio.truncated();
    const Number pairs = (half_periods / Number(2)).truncated();
    if (!(half_periods - Number(2) * pairs == Number(0))) {
      message::SetVisible(read(targetNode), true);
      return;
    }
    if (!message::IsVisible(read(targetNode)).equals_true()) return;
    if (read(blinkindex) + 1 == read(blinkcount)) write(over, true);
    write(blinkindex, read(blinkindex) + 1);
    message::SetVisible(read(targetNode), false);
  }
};

void declare_callback(PyObject* module) {
  using Action = CallBackAction;
  host::Declaration<Action, GAction> action(
      module, "CallBackAction",
      "Calls a function once, when `duration` seconds are over.\n\n"
      "The function gets one argument: the dictionary `callbackParams`.\n\n"
      ">>> node.RunAction(Tessora.CallBackAction(1, lambda params: print(params[\"text\"]), "
      "text=\"now\"))\n"
      ">>> node.update(1)\n"
      "now");
  action.constructor(
      "(duration: float, callbackFunc: Callable[[dict[str, Any]], Any] | None,"
      " **callbackParams: Any)");
  declare_duration(action, "Seconds until the call.");
  action.attribute<&Action::callbackFunc>("callbackFunc: Callable[[dict[str, Any]], Any] | None",
                                          host::given("callbackFunc"),
                                          "The function to call, or None.");
  action.attribute<&Action::callbackParams>(
      "callbackParams: dict[str, Any]", host::given("callbackParams"),
      "Dictionary with the constructor's other keyword arguments.");
  action.method<&Action::update>(
      "update(delay: float) -> None",
      "Add `delay` seconds and call the function when the time is up.\n\n"
      "An error in the function passes on, and it is called again at the next update.");
  action.finish();
}

template <Course Way>
void declare_rotation(PyObject* module, const char* name, const char* doc, const char* angle_is) {
  using Action = RotateAction<Way>;
  host::Declaration<Action, GAction> action(module, name, doc);
  action.constructor("(duration: float, angle: float)");
  declare_duration(action, "Seconds that the turn takes.");
  action.template attribute<&Action::srcAngle>(
      "srcAngle: float", 0, "The node's angle in degrees when the action was started.");
  action.template attribute<&Action::dstAngle>("dstAngle: float", host::given("angle"), angle_is);
  action.template method<&Action::Run>(
      "Run() -> None", "Start from the node's angle (GetAngle); without a target nothing happens.");
  action.template method<&Action::update>("update(delay: float) -> None",
                                          "Add `delay` seconds and turn the node with SetAngle.");
  action.finish();
}

void declare_blink(PyObject* module) {
  using Action = BlinkAction;
  host::Declaration<Action, GAction> action(
      module, "BlinkAction",
      "Hides and shows a node `blinkcount` times in `duration` seconds.\n\n"
      "The node is left hidden. With a count of -1 it blinks once in every `duration`, until the "
      "action is stopped. Raises ZeroDivisionError for a count of 0.\n\n"
      ">>> node.RunAction(Tessora.BlinkAction(1, 3))");
  action.constructor("(duration: float, blinkcount: int = -1)");
  declare_duration(action, "Seconds that all blinks take.");
  action.attribute<&Action::blinkcount>("blinkcount: int", host::given("blinkcount"),
                                        "Number of blinks, -1 for without end.");
  action.attribute<&Action::delaytime>("delaytime: float", host::unset(),
                                       "Seconds per blink; negative when there is no end.");
  action.step<&Action::divide_time>();
  action.attribute<&Action::blinkindex>("blinkindex: int", 0, "Number of blinks so far.");
  action
      .method<&Action::Run>(
          "Run() -> None",
          "Start the action; without a target nothing happens. Blinks so far are kept: an action\n"
          "that has ended never ends a second time.")
      .method<&Action::update>("update(delay: float) -> None",
                               "Add `delay` seconds and hide or show the node with SetVisible.\n\n"
                               "Every hiding of a visible node counts as a blink.");
  action.finish();
}

}  // namespace

void register_concrete_actions(PyObject* module) {
  declare_callback(module);
  register_vector_actions(module);
  declare_rotation<Course::kTo>(
      module, "RotateToAction",
      "Turns a node to `angle` degrees, counter-clockwise, in `duration` seconds.\n\n"
      "The turn is the plain difference of the two angles, never the shorter way round.\n\n"
      ">>> node.RunAction(Tessora.RotateToAction(1, 90))",
      "The angle in degrees at the end.");
  declare_rotation<Course::kBy>(
      module, "RotateByAction",
      "Turns a node by `angle` degrees, counter-clockwise, in `duration` seconds.\n\n"
      ">>> node.RunAction(Tessora.RotateByAction(1, 360))",
      "The whole turn in degrees.");
  declare_blink(module);
}

}  // namespace tessora
