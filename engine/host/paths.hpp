// Paths of files as this system opens them.
#pragma once

#include "engine/host/value.hpp"

namespace tessora::host {

// Resource paths are kept with backslashes. On a system with another separator they get that one
// just before the file is opened. What is no text stays as it is.
Ref openable_path(Value path);

// Whether the value names a file: a text, or a path object as pathlib makes them.
bool is_path(Value value);
// The text of a path object; anything else as it is.
Ref path_text(Value value);

}  // namespace tessora::host
