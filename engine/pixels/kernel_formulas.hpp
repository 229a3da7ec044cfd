// The formulas of the kernels, over a vector of any width.
//
// A vector type V holds kPixels pixels. Its lanes have 16 bits where a name ends in 16, 32 where it
// ends in 32 and 8 in `add8`, `add_capped`, `subtract_capped`; sums and products drop what does not
// fit.
#pragma once

#include <cstring>

#include "engine/pixels/kernels.hpp"

// A call per vector would cost more than the formula.
#ifdef _MSC_VER
#define TESSORA_INLINE __forceinline
#else
#define TESSORA_INLINE [[gnu::always_inline]] inline
#endif

namespace tessora::render {

// The channels in lanes of 16 bits: blue and red, green and alpha.
template <class V>
struct Channels {
  V even, odd;

  explicit Channels(V pixels) : even(pixels & V::all(0x00FF00FF)), odd(upper_bytes16(pixels)) {}
  Channels(V even_lanes, V odd_lanes) : even(even_lanes), odd(odd_lanes) {}
  // Pixels from the upper byte of every lane.
  [[nodiscard]] V upper() const { return upper_bytes16(even) | (odd & V::all(0xFF00FF00)); }
};

// (s * c + 255) >> 8 in every channel.
template <class V>
TESSORA_INLINE V multiplied(V pixels, V color) {
  const Channels<V> s(pixels);
  const Channels<V> c(color);
  const V round = V::all(0x00FF00FF);
  return Channels<V>(add16(multiply16(s.even, c.even), round),
                     add16(multiply16(s.odd, c.odd), round))
      .upper();
}

// d + (((s - d) * a + s) >> 8) in every channel: in range, so that overflow on the way is no harm.
template <class V>
TESSORA_INLINE V mixed(V source, V target) {
  const Channels<V> s(source);
  const Channels<V> d(target);
  const V high = shift_right32<24>(source);
  const V alpha = high | shift_left32<16>(high);
  const Channels<V> change(add16(multiply16(subtract16(s.even, d.even), alpha), s.even),
                           add16(multiply16(subtract16(s.odd, d.odd), alpha), s.odd));
  return add8(target, change.upper());
}

// The alpha of both together, a + d - a * d / 255, in the upper byte. An empty target takes the
// source as it is.
template <class V>
TESSORA_INLINE V mixed_with_alpha(V source, V target) {
  const V a = shift_right32<24>(source);
  const V d = shift_right32<24>(target);
  const V alpha = subtract16(add16(a, d), divide16_by_255(multiply16(a, d)));
  const V pixels = (mixed(source, target) & V::all(0x00FFFFFF)) | shift_left32<24>(alpha);
  return choose(is_zero32(d), source, pixels);
}

template <Operation kOperation, class V>
TESSORA_INLINE V combined(V source, V target) {
  const V color = V::all(0x00FFFFFF);
  if constexpr (kOperation == Operation::kBlend) return mixed(source, target) & color;
  if constexpr (kOperation == Operation::kBlendAlpha) return mixed_with_alpha(source, target);
  if constexpr (kOperation == Operation::kAdd) return add_capped(target, source & color);
  if constexpr (kOperation == Operation::kSubtract) return subtract_capped(target, source & color);
  if constexpr (kOperation == Operation::kCover) return source & color;
  if constexpr (kOperation == Operation::kCoverAlpha) return source;
  if constexpr (kOperation == Operation::kClear) return target & color;
}

template <class V, Operation kOperation, int kFactors>
struct Painter {
  V factors[kMaximumFactors];

  explicit Painter(const std::uint32_t* colors) {
    for (int index = 0; index < kFactors; ++index) factors[index] = V::all(colors[index]);
  }
  TESSORA_INLINE V operator()(V source, V target) const {
    for (int index = 0; index < kFactors; ++index) source = multiplied(source, factors[index]);
    return combined<kOperation>(source, target);
  }
};

template <class V, Operation kOperation, int kFactors>
void paint_rows(const PixelRows& rows) {
  constexpr std::ptrdiff_t kPixelBytes = 4;
  constexpr std::ptrdiff_t kStep = V::kPixels * kPixelBytes;
  const Painter<V, kOperation, kFactors> painter(rows.factors);
  const std::ptrdiff_t row_bytes = rows.width * kPixelBytes;
  const int rest = rows.width % V::kPixels;
  for (int row = 0; row < rows.height; ++row) {
    const unsigned char* source = rows.source + row * rows.source_stride;
    unsigned char* target = rows.target + row * rows.target_stride;
    std::ptrdiff_t at = 0;
    for (; at + kStep <= row_bytes; at += kStep) {
      painter(V::load(source + at), V::load(target + at)).store(target + at);
    }
    if (rest == 0) continue;
    painter(V::load_first(source + at, rest), V::load_first(target + at, rest))
        .store_first(target + at, rest);
  }
}

template <class V, Operation kOperation>
void set_kernels(KernelSet& set) {
  Kernel* kernels = set.kernels[static_cast<int>(kOperation)];
  kernels[0] = &paint_rows<V, kOperation, 0>;
  kernels[1] = &paint_rows<V, kOperation, 1>;
  kernels[2] = &paint_rows<V, kOperation, 2>;
}

template <class V>
KernelSet kernels_of(const char* name) {
  KernelSet set{name, {}};
  set_kernels<V, Operation::kBlend>(set);
  set_kernels<V, Operation::kBlendAlpha>(set);
  set_kernels<V, Operation::kAdd>(set);
  set_kernels<V, Operation::kSubtract>(set);
  set_kernels<V, Operation::kCover>(set);
  set_kernels<V, Operation::kCoverAlpha>(set);
  set_kernels<V, Operation::kClear>(set);
  return set;
}

}  // namespace tessora::render
