// Pictures, kept for as long as what they were made of stays the same.
#pragma once

#include "engine/pixels/paint.hpp"
#include "engine/render/canvas.hpp"
#include "engine/render/store.hpp"

namespace tessora::render {

// A picture to be drawn, and what it must be multiplied by on the way. Valid until a script runs.
struct Picture {
  Ref surface;
  int width = 0;
  int height = 0;
  std::optional<PaintSource> source;  // nothing when pygame must draw
  Shade shade;
};

// The picture that a source and a recipe give, pixel by pixel what faded() and finished() give; one
// that changes from frame to frame is made of the stages that stay. Nothing when these must be
// followed themselves. `target` is what it will be drawn on with these flags of pygame's.
std::optional<Picture> find_picture(Value surface, const SurfaceMemory& memory,
                                    const Recipe& recipe, const SurfaceMemory& target, int flags);

// Whether the loops can draw any picture so.
bool can_paint(const SurfaceMemory& target, int flags, const Shade& shade);

// For a surface that nobody but the engine reaches: its pixels stay as they are.
void trust_pixels(Value surface);

void drop_pictures();

}  // namespace tessora::render
