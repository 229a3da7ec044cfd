// The actions that scripts create: timed changes of one property of a node.
#pragma once

#include "engine/actions/action.hpp"

namespace tessora {

// Whether an action goes to a value or by an amount.
enum class Course : std::uint8_t { kTo, kBy };

// What the actions with a course through time have in common; scripts see GAction as their base.
struct TimedAction : GAction {
  Slot duration;

 protected:
  // The body of `update`: calls `apply` with the time, of which 1 is the end, and whether it is
  // reached. An error of `apply` leaves the action unfinished.
  template <class Apply>
  void advance(Value delay, Apply apply) {
    if (!is_playing()) return;
    message::update.base<&GAction::update>(*this, delay);
    Number time = 1.0;
    if (read(duration) > 0.0) time = read(runtime) / read(duration);
    const bool ends = time >= Number(1.0);
    apply(time, ends);
    if (ends) write(over, true);
  }
};

template <class Action>
void declare_duration(host::Declaration<Action, GAction>& action, const char* doc) {
  action.template attribute<&Action::duration>("duration: float", host::given("duration"), doc);
}

// Moves and scales.
void register_vector_actions(PyObject* module);
// All of them.
void register_concrete_actions(PyObject* module);

}  // namespace tessora
