// Plays the actions of a node one after another.
#pragma once

#include "engine/actions/action.hpp"

namespace tessora {

struct ActionPlayer : GAction {
  host::Slot ActionArray, ActionIndex;

  void construct();
  void add_actions(PyObject* groups);
  void CleanUp();
  void Run();
  void update(PyObject* delay);

 private:
  [[nodiscard]] host::Ref first_group() const;
  [[nodiscard]] host::Ref current_action() const;
};

void register_action_player(PyObject* module);

}  // namespace tessora
