// The base of all actions: timed jobs on a node, with their shared timing state.
#pragma once

#include "engine/core/messages.hpp"
#include "engine/host/class.hpp"

namespace tessora {

struct GAction : host::Object {
  host::Slot running, targetNode, runtime, over;

  void construct();
  void Run();
  void Pause();
  void Resume();
  void Stop();
  void update(PyObject* delay);

  // There is a target, and the action is running and not over.
  [[nodiscard]] bool is_playing() const;

  // The base class's part of a derived class's method. A script may have replaced it on GAction.
  void base_run();
  void base_update(PyObject* delay);
};

void register_action(PyObject* module);

}  // namespace tessora
