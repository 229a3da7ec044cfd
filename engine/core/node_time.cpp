// What a node does as time passes.
#include "engine/core/action_group.hpp"
#include "engine/core/binding_tables.hpp"
#include "engine/core/scene_node.hpp"
#include "engine/host/caught.hpp"

namespace tessora {

void GameNode::update(Value delay) {
  if (!holds_empty_list(children)) {
    host::ListWalk steps = walk_children();
    while (Value child = steps.next()) message::update(child, delay);
  }
  if (is_set(ActionPlayer)) {
    Ref player = read(ActionPlayer);
    message::update(player, delay);
  }
  if (is_set(UpdateFunction)) {
    Ref function = read(UpdateFunction);
    function(delay);
  }
  raise_inner_event(*this, "Update"_name);
}

void GameNode::RunAction(host::Rest actions) {
  Ref player;
  const bool is_new = !is_set(ActionPlayer);
  if (is_new) {
    Ref make = host::engine_value("ActionPlayer"_name);
    player = make();
  } else {
    player = read(ActionPlayer);
  }
  check_actions_for(player, actions);
  const Ref error = host::caught(PyExc_Exception, [&] {
    if (is_new) {
      write(ActionPlayer, player);
      message::SetTarget(player, *this);
    }
    // Each step may put another player in its place.
    message::CleanUp(Ref(read(ActionPlayer)));
    message::AddActions(Ref(read(ActionPlayer)), actions);
    message::Run(Ref(read(ActionPlayer)));
  });
  if (!error) return;
  // A new player that did not come to run would fail in every update. Without any action it stays.
  if (is_new && !error.is_kind_of(PyExc_IndexError) && holds(ActionPlayer, player)) {
    write(ActionPlayer, host::none());
  }
  host::raise_again(error);
}

void declare_time(NodeDeclaration& node) {
  node.method<&GameNode::update>("update(delay: float) -> None",
                                 "Advance the subtree by `delay` seconds: children first, then the "
                                 "running actions, then the update function.")
      .method<&GameNode::RunAction>(
          "RunAction(*actions: GAction) -> None",
          "Play the actions one after another, in place of those that were running.\n\n"
          "Raises IndexError without any action, and TypeError for what is no action; what was\n"
          "running then goes on.");
}

}  // namespace tessora
