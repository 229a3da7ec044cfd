// Files of the game's own data.
#pragma once

#include "engine/host/value.hpp"

namespace tessora::host {

// Writes a text as UTF-8, whole or not at all: into a new file beside the old one, which it then
// replaces. An error of any kind leaves the old file as it was.
void write_whole_file(Value path, Value text);

// The text of a UTF-8 file of at most `limit` bytes; ValueError if it is longer or no UTF-8.
Ref read_whole_file(Value path, Py_ssize_t limit);

}  // namespace tessora::host
