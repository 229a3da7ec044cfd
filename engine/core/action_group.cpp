#include "engine/core/action_group.hpp"

#include "engine/core/messages.hpp"
#include "engine/host/items.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;
using host::Value;

void check_actions(Value group) {
  if (group.is_iterator()) return;
  host::for_each(group, [](Value action) {
    const bool is_class = host::is_engine_class(action);
    const bool is_action = !is_class && (message::SetTarget.find(action) != nullptr ||
                                         action.find_attr("SetTarget"_name));
    if (is_action) return;
    const char* advice = is_class ? " (call the class to make one)" : "";
    if (action.is_list() || action.is_tuple()) advice = " (hand over its items: *actions)";
    host::raise(PyExc_TypeError, "no action, which would have a method SetTarget: %R%s", action,
                advice);
  });
}

void check_actions_for(Value player, Value actions) {
  if (message::AddActions.find(player) != nullptr) check_actions(actions);
}

}  // namespace tessora
