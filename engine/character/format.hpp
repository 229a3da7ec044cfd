// The characters' files: values and actions as JSON, and what of these is accepted.
#pragma once

#include "engine/character/character.hpp"

namespace tessora {

// What a value must be to be written to a file or read from one.
enum class Kind : std::uint8_t {
  kAny,
  kNumber,  // or a flag
  kText,
  kPair,
  kColor,
  kFiles,  // a name, or a list of names
  kRects,
  kTable,
};
bool is_of_kind(Kind kind, Value value);

// Values that JSON has no form for become dictionaries of one entry, whose key begins with "$".
// TypeError for what cannot be written, ValueError for what cannot be read.
Ref encoded(Value value);
Ref decoded(Value json);

// The actions of those names as a list for a file, with their speeds if `speeds` is a dictionary.
Ref encoded_actions(Value actions, Value names, Value speeds);
// The actions of a file by name; their speeds go into `speeds`.
Ref decoded_actions(Value json, Value speeds);

// Writes and reads the dictionary of a file that says what it is.
void write_json(Value path, const char* format, Value content);
Ref read_json(Value path, const char* format);

// An entry of a dictionary from a file; ValueError where there is none of that kind.
Ref entry_of(Value table, Value key, Kind kind);
Ref list_at(Value table, Value key);

}  // namespace tessora
