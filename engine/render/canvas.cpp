#include "engine/render/canvas.hpp"

#include <algorithm>
#include <numbers>

#include "engine/pixels/paint.hpp"
#include "engine/pixels/surface.hpp"
#include "engine/render/clip.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

// No surface is so large that a thicker line would show more.
constexpr int kThickest = 1 << 16;

// pygame's own function with one of its surfaces; a script's are called with the numbers as given.
bool is_native(Value function, Value surface) {
  return function.is_native_function() && is_surface(surface);
}

// Pygame itself says what is wrong with a colour, also where nothing is to be seen of it.
void check_color(Value surface, Value color) {
  if (plain_color(color)) return;
  Ref rect = host::modules::draw["rect"_name];
  rect(surface, color, host::tuple(0, 0, 0, 0), 0);
}

void draw_area(Value rect, Value surface, Value color, const Area& area, int thickness) {
  std::optional<std::uint32_t> packed = plain_color(color);
  if (thickness == 0 && packed &&
      fill(surface, *packed, area.left, area.top, area.width, area.height)) {
    return;
  }
  Ref box = host::tuple(area.left, area.top, area.width, area.height);
  // Only pygame's own colours are known to run no script.
  if (packed) {
    host::call_library(rect, surface, color, box, thickness);
  } else {
    rect(surface, color, box, thickness);
  }
}

void draw_rect(Value surface, Value color, const Box& box, int thickness) {
  Ref rect = host::modules::draw["rect"_name];
  if (is_native(rect, surface)) {
    const PixelBox clip = clip_of(surface);
    std::optional<Area> area = visible(box, clip, thickness + 1);
    return area ? draw_area(rect, surface, color, *area, thickness) : check_color(surface, color);
  }
  if (!is_placeable({box.left, box.top}) || !is_placeable({box.width, box.height})) return;
  rect(surface, color, host::tuple(box.left, box.top, box.width, box.height), thickness);
}

struct Line {
  double from_x, from_y, to_x, to_y;
};

// Cuts one end of a slanting line, at a share of its way, so that it stays on its course.
void shorten(Line& line, double low, double high, bool across) {
  double& from = across ? line.from_x : line.from_y;
  double& to = across ? line.to_x : line.to_y;
  double& from_other = across ? line.from_y : line.from_x;
  double& to_other = across ? line.to_y : line.to_x;
  const double slope = (to_other - from_other) / (to - from);
  auto cut = [&](double& end, double& other, double anchor, double anchor_other) {
    const double limit = std::clamp(end, low, high);
    if (limit == end) return;
    other = std::round(anchor_other + (limit - anchor) * slope);
    end = limit;
  };
  cut(from, from_other, to, to_other);
  cut(to, to_other, from, from_other);
}

// The line in whole pixels, no longer than it must be to look the same inside the clip. Nothing
// when it misses the clip.
std::optional<Line> visible(const Point& from, const Point& to, const PixelBox& clip, int reach) {
  // pygame walks along the whole line: beyond this, what cannot be seen is cut off.
  constexpr double kWalk = 32768.0;
  Line line{std::trunc(from.x), std::trunc(from.y), std::trunc(to.x), std::trunc(to.y)};
  const double left = clip.left - reach;
  const double top = clip.top - reach;
  const double right = clip.right + reach;
  const double bottom = clip.bottom + reach;
  auto misses = [](double first, double second, double low, double high) {
    return std::max(first, second) < low || std::min(first, second) > high;
  };
  auto is_outside = [&] {
    return misses(line.from_x, line.to_x, left, right) ||
           misses(line.from_y, line.to_y, top, bottom);
  };
  if (is_outside()) return std::nullopt;
  if (line.from_y == line.to_y || line.from_x == line.to_x) {
    return Line{std::clamp(line.from_x, left, right), std::clamp(line.from_y, top, bottom),
                std::clamp(line.to_x, left, right), std::clamp(line.to_y, top, bottom)};
  }
  shorten(line, left - kWalk, right + kWalk, true);
  if (line.from_y != line.to_y) shorten(line, top - kWalk, bottom + kWalk, false);
  if (is_outside()) return std::nullopt;
  return line;
}

// pygame looks at every pixel of what is round.
bool is_round(const Box& box) {
  constexpr double kLargest = 1 << 15;
  return is_placeable({box.left, box.top}) && box.width >= 1.0 && box.width <= kLargest &&
         box.height >= 1.0 && box.height <= kLargest;
}

}  // namespace

void Canvas::fill(Value color, const Box& box) const {
  draw_rect(surface_, color, box, 0);
}

void Canvas::outline(Value color, const Box& box, int thickness) const {
  // Zero would fill the box.
  if (thickness >= 1) draw_rect(surface_, color, box, std::min(thickness, kThickest));
}

void Canvas::ring(Value color, const Box& box, int thickness) const {
  constexpr double kQuarter = std::numbers::pi / 2;
  if (!is_round(box)) return;
  Ref arc = host::modules::draw["arc"_name];
  auto draw_arcs = [&](double inset, double extent) {
    Ref around = host::tuple(box.left + inset, box.top + inset, extent, extent);
    for (int quarter = 0; quarter < 4; ++quarter) {
      const double start = kQuarter * quarter + kQuarter / 2;
      arc(surface_, color, around, start, start + kQuarter, 1);
    }
  };
  // An arc has gaps between it and the next smaller one, which another closes.
  const double extent = std::min(box.width, box.height);
  for (int inset = 0; inset < thickness && extent - 2 * inset >= 2.0; ++inset) {
    draw_arcs(inset, extent - 2 * inset);
    draw_arcs(inset, extent - 2 * inset - 1);
  }
}

void Canvas::disc(Value color, const Point& center, double radius) const {
  const double side = radius * 2;
  if (!is_round({center.x - radius, center.y - radius, side, side})) return;
  Ref circle = host::modules::draw["circle"_name];
  circle(surface_, color, host::tuple(center.x, center.y), radius);
}

void Canvas::line(Value color, const Point& from, const Point& to, int thickness) const {
  if (thickness < 1) return;
  Ref function = host::modules::draw["line"_name];
  const int width = std::min(thickness, kThickest);
  if (!is_native(function, surface_)) {
    if (!is_placeable(from) || !is_placeable(to)) return;
    Ref start = host::tuple(from.x, from.y);
    Ref end = host::tuple(to.x, to.y);
    function(surface_, color, start, end, width);
    return;
  }
  // Further away the course of a slanting line is lost in rounding.
  constexpr double kFarthest = 1e15;
  auto is_near = [](const Point& end) {
    return std::fabs(end.x) <= kFarthest && std::fabs(end.y) <= kFarthest;
  };
  const bool finite = is_near(from) && is_near(to);
  const PixelBox clip = clip_of(surface_);
  std::optional<Line> line = finite ? visible(from, to, clip, width + 1) : std::nullopt;
  if (!line) return check_color(surface_, color);
  auto whole = [](double place) { return static_cast<int>(place); };
  Ref start = host::tuple(whole(line->from_x), whole(line->from_y));
  Ref end = host::tuple(whole(line->to_x), whole(line->to_y));
  function(surface_, color, start, end, width);
}

void Canvas::relief(Value left_top, Value right_bottom, const Box& box, int thickness) const {
  const double left = std::trunc(box.left);
  const double top = std::trunc(box.top);
  const double width = std::trunc(box.width);
  const double height = std::trunc(box.height);
  if (!(width >= 1.0 && height >= 1.0) || thickness < 1) return;
  const double across = std::min(static_cast<double>(thickness), width);
  const double down = std::min(static_cast<double>(thickness), height);
  const double right = left + width;
  const double bottom = top + height;
  // Lines of one pixel side by side are bands.
  Ref line_function = host::modules::draw["line"_name];
  Ref rect_function = host::modules::draw["rect"_name];
  if (is_native(line_function, surface_) && is_native(rect_function, surface_)) {
    fill(left_top, {left, top, across, height});
    fill(left_top, {left, top, width, down});
    fill(right_bottom, {right - across, top, across, height});
    fill(right_bottom, {left, bottom - down, width, down});
    return;
  }
  constexpr int kMostLines = 4096;
  const double last_x = right - 1.0;
  const double last_y = bottom - 1.0;
  for (int inset = 0; inset < std::min(thickness, kMostLines); ++inset) {
    if (inset < across) line(left_top, {left + inset, top}, {left + inset, last_y});
    if (inset < down) line(left_top, {left, top + inset}, {last_x, top + inset});
  }
  for (int inset = 0; inset < std::min(thickness, kMostLines); ++inset) {
    if (inset < across) line(right_bottom, {last_x - inset, top}, {last_x - inset, last_y});
    if (inset < down) line(right_bottom, {left, last_y - inset}, {last_x, last_y - inset});
  }
}

Ref Canvas::narrow_clip(const Box& box) const {
  if (!is_surface(surface_)) return {};
  static const host::Lasting method(surface_method("get_clip"_name));
  Ref before = host::call_library(method, surface_);
  const Area area = visible(box, clip_of(surface_), 0).value_or(Area{});
  set_clip(host::tuple(area.left, area.top, area.width, area.height));
  return before;
}

void Canvas::set_clip(Value rect) const {
  static const host::Lasting method(surface_method("set_clip"_name));
  if (rect) host::call_library(method, surface_, rect);
}

}  // namespace tessora::render
