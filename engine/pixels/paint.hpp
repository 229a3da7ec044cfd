// Painting pictures and boxes by the engine's own loops, byte for byte what pygame would give.
#pragma once

#include "engine/pixels/spans.hpp"

namespace tessora::render {

// A picture with per-pixel alpha, as it lies in memory. Kept pictures never move; the memory of a
// script's own surface is read anew after a script ran.
struct PaintSource {
  SurfaceMemory memory;
  const Spans* spans = nullptr;  // of exactly these pixels
};

// The source for one of pygame's own surfaces; nothing when it cannot be painted by these loops.
std::optional<PaintSource> paint_source(host::Value picture, const Spans* spans = nullptr);

// What the picture is multiplied by on the way, colours as 0xRRGGBBAA: first by white of this
// opacity, as faded() does, then by the colour, as finished() does.
struct Shade {
  int opacity = 255;
  std::uint32_t color = 0xFFFFFFFF;
  bool tinted = false;
};

// pygame's flags that the loops know; 0 is the plain blit.
// Draws with the picture's top left corner at the place, inside the target's clip. False, with
// nothing drawn, when pygame itself must: other formats, states and flags, memory that source and
// target share, and wherever the installed pygame gives other bytes than these loops.
bool paint(host::Value target, const PaintSource& source, int left, int top, int flags,
           const Shade& shade = {});
bool paint(const SurfaceMemory& target, const PaintSource& source, int left, int top, int flags,
           const Shade& shade = {});

// Fills a box as pygame.draw.rect(target, color, (left, top, width, height), 0) does; `color` is
// 0xRRGGBBAA. False, with nothing drawn, when pygame itself must.
bool fill(host::Value target, std::uint32_t color, int left, int top, int width, int height);
bool fill(const SurfaceMemory& target, std::uint32_t color, int left, int top, int width,
          int height);

}  // namespace tessora::render
