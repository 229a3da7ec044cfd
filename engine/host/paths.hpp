// Paths of files as this host's system opens them.
#pragma once

#include "engine/host/ref.hpp"

namespace tessora::host {

// Resource paths are kept with backslashes. On a system with another separator they get that one
// just before the file is opened. What is no text stays as it is.
Ref openable_path(PyObject* path);

}  // namespace tessora::host
