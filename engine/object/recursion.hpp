// A limit to the engine's calls of itself and of the scripts that it calls on the way.
#pragma once

#include <cstdint>
#include <functional>

#include "engine/host/value.hpp"

namespace tessora::host {

struct ThreadStack {
  int depth = 0;
  int limit = 0;                    // the recursion limit as it was at the outermost call
  const char* stack_end = nullptr;  // the last address that may be used; null until it is known
};
inline constinit thread_local ThreadStack this_thread_stack{};

// Too deep is Python's RecursionError, long before the machine's stack is used up. Every thread
// counts for itself.
class RecursionGuard {
 public:
  RecursionGuard() : thread_(this_thread_stack) {
    char here = 0;
    if (++thread_.depth == 1) thread_.limit = Py_GetRecursionLimit();
    const bool deep = thread_.depth > thread_.limit || thread_.stack_end == nullptr ||
                      std::less<>()(static_cast<const char*>(&here), thread_.stack_end);
    if (deep) [[unlikely]]
      check_depth(&here);
  }
  ~RecursionGuard() { --thread_.depth; }
  RecursionGuard(const RecursionGuard&) = delete;
  RecursionGuard& operator=(const RecursionGuard&) = delete;

 private:
  void check_depth(const char* here);
  ThreadStack& thread_;
};

}  // namespace tessora::host
