// Python's modules, looked up at call time through their module objects, as a script does:
// games and tests replace what is in them.
#pragma once

#include "engine/host/call.hpp"

namespace tessora::host {

// A module, imported at its first use.
class Module {
 public:
  constexpr explicit Module(const char* name) : name_(name) {}
  Ref operator[](Value attribute) const;
  // Calls a function of the module. One that is written in C and takes nothing runs no script.
  Ref call(Value function) const;
  [[nodiscard]] Value object() const;

 private:
  const char* name_;
  mutable PyObject* module_ = nullptr;
};

// An attribute of a module that is needed once.
Ref import(const char* module, Value attribute);

// The engine's own module: its values are read when they are used.
inline PyObject* engine_module = nullptr;
Ref engine_value(Value name);

namespace modules {
inline constinit Module pygame{"pygame"};
inline constinit Module draw{"pygame.draw"};
inline constinit Module transform{"pygame.transform"};
inline constinit Module mouse{"pygame.mouse"};
inline constinit Module font{"pygame.font"};
inline constinit Module display{"pygame.display"};
inline constinit Module os{"os"};
inline constinit Module path{"os.path"};
inline constinit Module time{"time"};
inline constinit Module glob{"glob"};
inline constinit Module math{"math"};
inline constinit Module random{"random"};
}  // namespace modules

}  // namespace tessora::host
