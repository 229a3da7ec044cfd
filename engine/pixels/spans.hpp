// The empty and the opaque stretches of a picture, so that the former cost nothing.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/pixels/surface_memory.hpp"

namespace tessora::render {

// Stretches of a kept picture's rows. Without rows where marking them would not pay.
struct Spans {
  enum class Kind : std::uint8_t { kEmpty, kMixed, kOpaque };
  struct Span {
    int end;  // column after the last
    Kind kind;
  };
  int width = 0;  // of the picture
  int height = 0;
  std::vector<Span> spans;
  std::vector<std::uint32_t> rows;  // index of each row's first span, and one past the last

  [[nodiscard]] bool pays() const { return !rows.empty(); }
};

// For 32-bit pictures with alpha in the upper byte; none for all others.
Spans find_spans(const SurfaceMemory& picture);

}  // namespace tessora::render
