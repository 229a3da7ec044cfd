#include "engine/render/clip.hpp"

#include <algorithm>

#include "engine/pixels/surface.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

PixelBox read_clip(Value surface) {
  static const host::Lasting get_clip(surface_method("get_clip"_name));
  Ref rect = host::call_library(get_clip, surface);
  auto side = [&](Py_ssize_t index) {
    return static_cast<int>(host::library_integer(host::library_item(rect, index)));
  };
  const int left = side(0);
  const int top = side(1);
  const int width = side(2);
  return {left, top, left + width, top + side(3)};
}

struct Span {
  int start, length;
};

std::optional<Span> visible_span(double start, double length, int low, int high, int reach) {
  start = std::trunc(start);
  const double end = start + std::trunc(length);
  // Not so for NaN either.
  if (!(start < high && end > low && start < end)) return std::nullopt;
  const double first = std::max(start, static_cast<double>(low) - reach);
  const double last = std::min(end, static_cast<double>(high) + reach);
  return Span{static_cast<int>(first), static_cast<int>(last - first)};
}

}  // namespace

PixelBox clip_of(Value surface) {
  if (std::optional<SurfaceMemory> memory = surface_memory(surface)) return memory->clip;
  return read_clip(surface);
}

std::optional<Area> visible(const Box& box, const PixelBox& clip, int reach) {
  if (!std::isfinite(box.left) || !std::isfinite(box.top) || !std::isfinite(box.width) ||
      !std::isfinite(box.height)) {
    return std::nullopt;
  }
  std::optional<Span> across = visible_span(box.left, box.width, clip.left, clip.right, reach);
  std::optional<Span> down = visible_span(box.top, box.height, clip.top, clip.bottom, reach);
  if (!across || !down) return std::nullopt;
  return Area{across->start, down->start, across->length, down->length};
}

bool is_visible(double left, double top, double width, double height, const PixelBox& clip) {
  // A place between -1 and 0 is cut to 0.
  return left < clip.right && top < clip.bottom && left + width > clip.left - 1.0 &&
         top + height > clip.top - 1.0 && width >= 1.0 && height >= 1.0 && clip.left < clip.right &&
         clip.top < clip.bottom;
}

}  // namespace tessora::render
