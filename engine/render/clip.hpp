// What of a drawing can be seen on its target, in numbers that pygame can take.
#pragma once

#include "engine/pixels/surface_memory.hpp"
#include "engine/render/canvas.hpp"

namespace tessora::render {

// Within these pygame's own arithmetic holds. False for NaN.
inline bool is_placeable(double place) {
  constexpr double kFarthest = 1073741824.0;
  return place >= -kFarthest && place <= kFarthest;
}
inline bool is_placeable(const Point& point) {
  return is_placeable(point.x) && is_placeable(point.y);
}

// The part of a surface, of pygame's or of a subclass, that can be drawn on.
PixelBox clip_of(Value surface);

// A box in whole pixels, cut so near the clip that nothing changes inside it: its edges outside lie
// at least `reach` pixels away. Nothing when it misses the clip.
struct Area {
  int left, top, width, height;
};
std::optional<Area> visible(const Box& box, const PixelBox& clip, int reach);

// Whether a picture with its corner here shows.
bool is_visible(double left, double top, double width, double height, const PixelBox& clip);

}  // namespace tessora::render
