#include "engine/pixels/paint.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "engine/pixels/kernel_proof.hpp"

namespace tessora::render {

namespace {

constexpr std::ptrdiff_t kPixelBytes = 4;
constexpr int kOpaque = 255;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kColorBytes = 0xFFFFFF00;

// What a shade comes down to.
struct Factors {
  std::uint32_t pixels[kMaximumFactors] = {};
  int count = 0;
  int asked = 0;  // how many multiplications pygame would do
  bool opaque = true;
};

Factors factors_of(const Shade& shade, const PixelMasks& masks) {
  Factors result;
  std::uint32_t colors[kMaximumFactors] = {};
  if (shade.opacity != kOpaque) {
    colors[result.count++] = kColorBytes | static_cast<std::uint32_t>(shade.opacity);
  }
  result.asked = result.count + (shade.tinted ? 1 : 0);
  if (shade.tinted && shade.color != kWhite) {
    // An opaque colour leaves the alpha as the opacity has made it.
    const bool leaves_alpha = result.count == 1 && (shade.color & 255U) == kOpaque;
    if (leaves_alpha) {
      colors[0] = (shade.color & kColorBytes) | static_cast<std::uint32_t>(shade.opacity);
    } else {
      colors[result.count++] = shade.color;
    }
  }
  for (int index = 0; index < result.count; ++index) {
    result.opaque &= (colors[index] & 255U) == kOpaque;
    result.pixels[index] = pixel_of(masks, colors[index]);
  }
  return result;
}

bool is_source(const SurfaceMemory& memory) {
  return memory.is_simple() && memory.blends && memory.pixel_bytes == kPixelBytes &&
         memory.masks == proved_masks(true) && memory.masks.alpha == 0xFF000000;
}

bool is_target(const SurfaceMemory& memory) {
  const bool with_alpha = memory.masks.alpha != 0;
  return memory.is_simple() && memory.blends == with_alpha && memory.pixel_bytes == kPixelBytes &&
         memory.masks == proved_masks(with_alpha);
}

// The part of a box that lies in the clip; places may be anywhere.
PixelBox clipped(const PixelBox& clip, int left, int top, int width, int height) {
  auto cut = [](std::int64_t place, int low, int high) {
    return static_cast<int>(std::clamp<std::int64_t>(place, low, std::max(low, high)));
  };
  return {cut(left, clip.left, clip.right), cut(top, clip.top, clip.bottom),
          cut(std::int64_t{left} + width, clip.left, clip.right),
          cut(std::int64_t{top} + height, clip.top, clip.bottom)};
}

bool is_empty(const PixelBox& box) {
  return box.left >= box.right || box.top >= box.bottom;
}

template <class Byte>
Byte* address(Byte* pixels, int pitch, std::int64_t column, std::int64_t row) {
  return pixels + static_cast<std::ptrdiff_t>(row) * pitch +
         static_cast<std::ptrdiff_t>(column) * kPixelBytes;
}

// The loops for the stretches of a marked picture.
class SpanKernels {
 public:
  SpanKernels(Kernel mixed, Operation operation, const Factors& factors) {
    const bool with_alpha = operation == Operation::kBlendAlpha;
    auto& [empty, any, opaque] = kernels_;
    any = mixed;
    // An empty pixel of the target takes over an empty one's colour.
    empty = with_alpha ? nullptr : proved_kernel(Operation::kClear, 0, false);
    opaque = !factors.opaque
                 ? nullptr
                 : proved_kernel(with_alpha ? Operation::kCoverAlpha : Operation::kCover,
                                 factors.count, with_alpha);
    if (empty == nullptr) empty = mixed;
    if (opaque == nullptr) opaque = mixed;
  }
  [[nodiscard]] Kernel of(const Spans::Span& span) const {
    return kernels_[static_cast<int>(span.kind)];
  }

 private:
  Kernel kernels_[3] = {};
};

void paint_spans(const PixelRows& rows, const Spans& spans, const SpanKernels& kernels,
                 int first_column, int first_row) {
  const int end_column = first_column + rows.width;
  PixelRows part = rows;
  part.height = 1;
  for (int row = 0; row < rows.height; ++row) {
    const Spans::Span* span = spans.spans.data() + spans.rows[first_row + row];
    while (span->end <= first_column) ++span;
    for (int column = first_column; column < end_column;) {
      const Kernel kernel = kernels.of(*span);
      int end = span->end;
      while (++span, end < end_column && kernels.of(*span) == kernel) end = span->end;
      end = std::min(end, end_column);
      const std::ptrdiff_t offset = (column - first_column) * kPixelBytes;
      part.source = rows.source + row * rows.source_stride + offset;
      part.target = rows.target + row * rows.target_stride + offset;
      part.width = end - column;
      kernel(part);
      column = end;
    }
  }
}

std::optional<Operation> operation_of(int flags, bool with_alpha) {
  if (flags == 0) return with_alpha ? Operation::kBlendAlpha : Operation::kBlend;
  if (flags == 1) return Operation::kAdd;
  if (flags == 2) return Operation::kSubtract;
  return std::nullopt;
}

}  // namespace

std::optional<PaintSource> paint_source(host::Value picture, const Spans* spans) {
  std::optional<SurfaceMemory> memory = surface_memory(picture);
  if (!memory || !is_source(*memory)) return std::nullopt;
  return PaintSource{*memory, spans};
}

bool paint(const SurfaceMemory& target, const PaintSource& source, int left, int top, int flags,
           const Shade& shade) {
  const SurfaceMemory& picture = source.memory;
  if (!is_target(target) || share_memory(target, picture)) return false;
  const bool onto_alpha = target.masks.alpha != 0;
  std::optional<Operation> operation = operation_of(flags, onto_alpha);
  if (!operation) return false;
  const Factors factors = factors_of(shade, picture.masks);
  const Kernel kernel = proved_kernel(*operation, factors.count, onto_alpha);
  if (kernel == nullptr) return false;
  // That multiplying by white changes nothing is a part of the proof, too.
  if (proved_kernel(*operation, factors.asked, onto_alpha) == nullptr) return false;
  const PixelBox box = clipped(target.clip, left, top, picture.width, picture.height);
  if (is_empty(box)) return true;
  const int first_column = static_cast<int>(std::int64_t{box.left} - left);
  const int first_row = static_cast<int>(std::int64_t{box.top} - top);
  const PixelRows rows{address(picture.pixels, picture.pitch, first_column, first_row),
                       picture.pitch,
                       address(target.pixels, target.pitch, box.left, box.top),
                       target.pitch,
                       box.right - box.left,
                       box.bottom - box.top,
                       factors.pixels};
  const Spans* spans = source.spans;
  if (flags == 0 && spans != nullptr && spans->pays() && spans->width == picture.width &&
      spans->height == picture.height) {
    paint_spans(rows, *spans, SpanKernels(kernel, *operation, factors), first_column, first_row);
  } else {
    kernel(rows);
  }
  return true;
}

bool paint(host::Value target, const PaintSource& source, int left, int top, int flags,
           const Shade& shade) {
  std::optional<SurfaceMemory> memory = target_memory(target);
  return memory && paint(*memory, source, left, top, flags, shade);
}

bool fill(const SurfaceMemory& target, std::uint32_t color, int left, int top, int width,
          int height) {
  if (width < 0 || height < 0 || !is_target(target) || !fills_alike(target.masks.alpha != 0)) {
    return false;
  }
  const PixelBox box = clipped(target.clip, left, top, width, height);
  if (is_empty(box)) return true;
  fill_rows(address(target.pixels, target.pitch, box.left, box.top), target.pitch,
            box.right - box.left, box.bottom - box.top, pixel_of(target.masks, color));
  return true;
}

bool fill(host::Value target, std::uint32_t color, int left, int top, int width, int height) {
  std::optional<SurfaceMemory> memory = surface_memory(target);
  return memory && fill(*memory, color, left, top, width, height);
}

}  // namespace tessora::render
