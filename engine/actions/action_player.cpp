#include "engine/actions/action_player.hpp"

#include "engine/host/iterate.hpp"

namespace tessora {

using host::Number;
using host::Ref;

// The base's attributes stay unset until the player gets its target and is started.
void ActionPlayer::construct() {
  write(ActionArray, Py_None);
  write(ActionIndex, Number(0));
}

void ActionPlayer::add_actions(PyObject* groups) {
  write(ActionArray, groups);
  host::for_each(read(ActionArray).get(), [&](const Ref& group) {
    host::for_each(group.get(),
                   [&](const Ref& action) { message::SetTarget(action, read(targetNode)); });
  });
}

void ActionPlayer::CleanUp() {
  write(ActionArray, Py_None);
}

Ref ActionPlayer::first_group() const {
  static PyObject* const zero = host::integer(0).release();
  Ref groups = read(ActionArray);
  if (PyTuple_CheckExact(groups.get()) && PyTuple_GET_SIZE(groups.get()) > 0) {
    return Ref::share(PyTuple_GET_ITEM(groups.get(), 0));
  }
  return host::get_item(groups.get(), zero);
}

Ref ActionPlayer::current_action() const {
  Ref group = first_group();
  Number place = number(ActionIndex);
  if (PyTuple_CheckExact(group.get()) && place.is_plain() && !place.is_real() &&
      place.plain() >= 0 && place.plain() < static_cast<double>(PyTuple_GET_SIZE(group.get()))) {
    return Ref::share(PyTuple_GET_ITEM(group.get(), static_cast<Py_ssize_t>(place.plain())));
  }
  return host::get_item(group.get(), read(ActionIndex).get());
}

void ActionPlayer::Run() {
  if (!is_set(targetNode)) return;
  if (host::length(read(ActionArray).get()) > 0) {
    write(ActionIndex, Number(0));
    message::Run(current_action());
  }
  base_run();
}

void ActionPlayer::update(PyObject* delay) {
  if (!is_playing()) return;
  base_update(delay);
  if (!is_set(ActionArray)) return;
  message::update(current_action(), delay);
  // The action may have emptied the player or filled it anew.
  if (!is_set(ActionArray) || !host::equals_true(message::IsOver(current_action()))) return;
  write(ActionIndex, number(ActionIndex) + Number(1));
  if (number(ActionIndex) >= Number(host::integer(host::length(first_group().get())).get())) {
    write(over, true);
  } else {
    message::Run(current_action());
  }
}

namespace {

PyObject* add_action_groups(PyObject* self, PyObject* groups) {
  return host::guarded<PyObject*>(nullptr, [&] {
    host::script_ran();
    static_cast<ActionPlayer*>(self)->add_actions(groups);
    return host::none().release();
  });
}

}  // namespace

void register_action_player(PyObject* module) {
  host::ClassBuilder<ActionPlayer> builder("ActionPlayer", &host::class_info<GAction>);
  builder
      .attribute("ActionArray", &ActionPlayer::ActionArray,
                 "The groups of actions, of which the first is played, or None.")
      .attribute("ActionIndex", &ActionPlayer::ActionIndex,
                 "Place of the action that is playing in the first group.")
      .order({"ActionArray", "ActionIndex", "targetNode", "running", "runtime", "over"})
      .constructor<&ActionPlayer::construct>(
          {},
          "Plays a group of actions on a node, one after another; see GameNode.RunAction.\n\n"
          "Call SetTarget, AddActions and Run, in this order, before update: until then the\n"
          "attributes of the base class do not exist.")
      .function(
          "AddActions", &add_action_groups, METH_VARARGS,
          "AddActions($self, *groups)\n--\n\n"
          "Take the groups, each a sequence of actions, and give every action the player's "
          "target.\n\nOnly the first group is played. Raises AttributeError before SetTarget.")
      .method<&ActionPlayer::CleanUp>("CleanUp", "Forget all actions.")
      .method<&ActionPlayer::Run>(
          "Run",
          "Start the first group from its first action; without a target nothing happens.\n\n"
          "Raises IndexError if the group is empty and TypeError if there are no groups.")
      .method<&ActionPlayer::update>(
          "update", {"delay"},
          "Advance the action that is playing by `delay` seconds.\n\n"
          "When it is over the next one is started, and after the last one the player is over.");
  builder.finish(module);
}

}  // namespace tessora
