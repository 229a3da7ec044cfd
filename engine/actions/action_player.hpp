// Plays the actions of a node one after another.
#pragma once

#include "engine/actions/action.hpp"

namespace tessora {

struct ActionPlayer : GAction {
  Slot ActionArray, ActionIndex;

  void AddActions(host::Rest groups);
  void CleanUp();
  void Run();
  void update(Value delay);

 private:
  [[nodiscard]] Ref first_group() const;
  [[nodiscard]] Ref current_action() const;
};

void register_action_player(PyObject* module);

}  // namespace tessora
