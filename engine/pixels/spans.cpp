#include "engine/pixels/spans.hpp"

#include <cstddef>
#include <cstring>

namespace tessora::render {

namespace {

// A kernel starts in about the time that it takes for this many pixels.
constexpr int kShortest = 16;
constexpr int kPixelBytes = 4;

Spans::Kind kind_of(const unsigned char* pixel) {
  std::uint32_t value = 0;
  std::memcpy(&value, pixel, kPixelBytes);
  const std::uint32_t alpha = value >> 24U;
  if (alpha == 0) return Spans::Kind::kEmpty;
  return alpha == 255 ? Spans::Kind::kOpaque : Spans::Kind::kMixed;
}

// Adds the spans of a row; returns how many of its pixels are marked empty or opaque.
int add_row(std::vector<Spans::Span>& spans, const unsigned char* row, int width) {
  const std::size_t first = spans.size();
  int marked = 0;
  for (int start = 0; start < width;) {
    Spans::Kind kind = kind_of(row + static_cast<std::ptrdiff_t>(start) * kPixelBytes);
    int end = start + 1;
    while (end < width && kind_of(row + static_cast<std::ptrdiff_t>(end) * kPixelBytes) == kind) {
      ++end;
    }
    if (end - start < kShortest) kind = Spans::Kind::kMixed;
    if (kind != Spans::Kind::kMixed) marked += end - start;
    if (spans.size() > first && spans.back().kind == kind) {
      spans.back().end = end;
    } else {
      spans.push_back({end, kind});
    }
    start = end;
  }
  return marked;
}

}  // namespace

Spans find_spans(const SurfaceMemory& picture) {
  constexpr std::uint32_t kUpperByte = 0xFF000000;
  constexpr std::int64_t kPaysFrom = 4;  // one pixel marked in so many
  Spans result;
  if (picture.pixel_bytes != kPixelBytes || picture.masks.alpha != kUpperByte ||
      picture.pixels == nullptr) {
    return result;
  }
  result.width = picture.width;
  result.height = picture.height;
  std::int64_t marked = 0;
  for (int row = 0; row < picture.height; ++row) {
    result.rows.push_back(static_cast<std::uint32_t>(result.spans.size()));
    marked +=
        add_row(result.spans, picture.pixels + static_cast<std::ptrdiff_t>(row) * picture.pitch,
                picture.width);
  }
  result.rows.push_back(static_cast<std::uint32_t>(result.spans.size()));
  if (marked * kPaysFrom < std::int64_t{picture.width} * picture.height) return {};
  return result;
}

}  // namespace tessora::render
