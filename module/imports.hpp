// What the module takes over from the host's library into its own name space.
#pragma once

#include "engine/host/value.hpp"

namespace tessora {

void import_libraries(PyObject* module);
// The module's `__getattr__`: names that nothing in the engine uses are imported when asked for.
PyObject* find_late_import(PyObject* module, PyObject* name);

}  // namespace tessora
