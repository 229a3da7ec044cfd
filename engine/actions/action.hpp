// The base of all actions: timed jobs on a node, with their shared timing state.
#pragma once

#include "engine/core/messages.hpp"
#include "engine/object/declaration.hpp"

namespace tessora {

using namespace host::literals;
using host::Number;
using host::Ref;
using host::Slot;
using host::Value;

struct GAction : host::Object {
  Slot running, targetNode, runtime, over;

  void Run();
  void Pause();
  void Resume();
  void Stop();
  void update(Value delay);

  // There is a target, and the action is running and not over.
  [[nodiscard]] bool is_playing() const;
};

void register_action(PyObject* module);

}  // namespace tessora
