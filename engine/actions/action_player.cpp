#include "engine/actions/action_player.hpp"

#include "engine/core/action_group.hpp"
#include "engine/host/items.hpp"

namespace tessora {

void ActionPlayer::AddActions(host::Rest groups) {
  host::for_each(groups, [](Value group) { check_actions(group); });
  write(ActionArray, groups);
  host::for_each(read(ActionArray), [&](Value group) {
    host::for_each(group, [&](Value action) { message::SetTarget(action, read(targetNode)); });
  });
}

void ActionPlayer::CleanUp() {
  write(ActionArray, nullptr);
}

Ref ActionPlayer::first_group() const {
  Ref groups = read(ActionArray);
  return groups.item(Py_ssize_t{0});
}

Ref ActionPlayer::current_action() const {
  Ref group = first_group();
  Ref place = read(ActionIndex);
  return group.item(place);
}

void ActionPlayer::Run() {
  if (!is_set(targetNode)) return;
  Ref groups = read(ActionArray);
  if (groups.length() > 0) {
    write(ActionIndex, 0);
    message::Run(current_action());
  }
  message::Run.base<&GAction::Run>(*this);
}

void ActionPlayer::update(Value delay) {
  if (!is_playing()) return;
  message::update.base<&GAction::update>(*this, delay);
  if (!is_set(ActionArray)) return;
  message::update(current_action(), delay);
  // The action may have emptied the player or filled it anew.
  if (!is_set(ActionArray) || !message::IsOver(current_action()).equals_true()) return;
  write(ActionIndex, read(ActionIndex) + 1);
  Number next = read(ActionIndex);
  if (next >= Number(first_group().length())) {
    write(over, true);
  } else {
    message::Run(current_action());
  }
}

void register_action_player(PyObject* module) {
  host::Declaration<ActionPlayer, GAction> player(
      module, "ActionPlayer",
      "Plays a group of actions on a node, one after another; see GameNode.RunAction.\n\n"
      "Call SetTarget, AddActions and Run, in this order, before update: until then the attributes "
      "of the base class do not exist.\n\n"
      ">>> player = Tessora.ActionPlayer()\n"
      ">>> player.SetTarget(node)\n"
      ">>> player.AddActions([Tessora.MoveByAction(1, 50, 0), Tessora.RotateByAction(1, 90)])\n"
      ">>> player.Run()");
  player.constructor_alone("()");
  player.attribute<&ActionPlayer::ActionArray>(
      "ActionArray: tuple[Sequence[GAction], ...] | None", nullptr,
      "The groups of actions, of which the first is played, or None.");
  player.attribute<&ActionPlayer::ActionIndex>(
      "ActionIndex: int", 0, "Place of the action that is playing in the first group.");
  player.order({"ActionArray", "ActionIndex", "targetNode", "running", "runtime", "over"});
  player
      .method<&ActionPlayer::AddActions>(
          "AddActions(*groups: Sequence[GAction]) -> None",
          "Take the groups, each a sequence of actions, and give every action the player's "
          "target.\n\nOnly the first group is played. Raises AttributeError before SetTarget, and\n"
          "TypeError for what is no action: the player is then left as it was.")
      .method<&ActionPlayer::CleanUp>("CleanUp() -> None", "Forget all actions.")
      .method<&ActionPlayer::Run>(
          "Run() -> None",
          "Start the first group from its first action; without a target nothing happens.\n\n"
          "Raises IndexError if the group is empty and TypeError if there are no groups.")
      .method<&ActionPlayer::update>(
          "update(delay: float) -> None",
          "Advance the action that is playing by `delay` seconds.\n\n"
          "When it is over the next one is started, and after the last one the player is over.");
  player.finish();
}

}  // namespace tessora
