// The tracks of a key frame, as a table: what each is called, what it holds and what it does.
#pragma once

#include "engine/character/format.hpp"

namespace tessora {

struct Track {
  const char* name;
  const char* type;  // of its values, for the stubs
  const char* doc;
  Kind kind;  // None, which sets nothing, is always one
  // Gives a part the value of a key frame; null for what is no matter of the part.
  void (*apply)(GameCharacter& character, Value part, Value value);
  // Gives a part what lies between two key frames; null for what stays as it is until the next.
  void (*blend)(Value part, Value from, Value to, const Number& time);
  // Takes effect when the frame is entered, not while it lasts.
  bool on_entry;
};

// Key frames apply them in this order.
inline constexpr std::size_t kTrackCount = 11;
extern const Track kTracks[kTrackCount];

Value track_name(const Track& track);

}  // namespace tessora
