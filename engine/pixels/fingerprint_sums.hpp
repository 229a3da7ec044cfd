// How a fingerprint adds up, for vectors of several widths. It is included where functions are
// compiled for other processors, so it includes nothing that has code of its own.
#pragma once

#include "engine/pixels/fingerprint.hpp"

namespace tessora::render {

inline constexpr std::size_t kStripe = 64;
inline constexpr std::size_t kWords = kStripe / sizeof(std::uint64_t);
// From the fractional parts of the golden ratio and of square roots: odd, with mixed bits.
inline constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15ULL;
inline constexpr std::uint64_t kKeys[kWords] = {
    0x6A09E667F3BCC909ULL, 0xBB67AE8584CAA73BULL, 0x3C6EF372FE94F82BULL, 0xA54FF53A5F1D36F1ULL,
    0x510E527FADE682D1ULL, 0x9B05688C2B3E6C1FULL, 0x1F83D9ABFB41BD6BULL, 0x5BE0CD19137E2179ULL};

// Adds whole stripes, then one that is filled up with zeros.
template <class Sums>
void add_bytes(Sums& sums, const unsigned char* from, std::size_t count) {
  for (; count >= kStripe; count -= kStripe, from += kStripe) sums.add(from);
  if (count == 0) return;
  unsigned char last[kStripe] = {};
  for (std::size_t index = 0; index < count; ++index) last[index] = from[index];
  sums.add(last);
}

template <class Sums>
void add_up(const Pixels& pixels, std::uint64_t* result) {
  Sums sums;
  // NOLINTNEXTLINE(modernize-use-integer-sign-comparison): a function of the library's, see above
  if (pixels.pitch >= 0 && static_cast<std::size_t>(pixels.pitch) == pixels.row_bytes) {
    add_bytes(sums, pixels.address, pixels.row_bytes * static_cast<std::size_t>(pixels.rows));
  } else {
    const unsigned char* from = pixels.address;
    for (int row = 0; row < pixels.rows; ++row, from += pixels.pitch) {
      add_bytes(sums, from, pixels.row_bytes);
    }
  }
  sums.store(result);
}

using AddUp = void (*)(const Pixels& pixels, std::uint64_t* result);

// The same sums by AVX2; null where the build has none. Not to be called without AVX2.
AddUp avx2_add_up();

}  // namespace tessora::render
