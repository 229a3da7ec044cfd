// Loops over 32-bit pixels with alpha in the upper byte. They know no Python, and nothing here says
// that their bytes are pygame's: paint() uses none before the proof (kernel_proof.hpp).
#pragma once

#include <cstddef>
#include <cstdint>

namespace tessora::render {

enum class Operation : std::uint8_t {
  kBlend,       // onto pixels without alpha
  kBlendAlpha,  // onto pixels with alpha
  kAdd,         // the target's upper byte stays, as with the next
  kSubtract,
  kCover,       // copies to pixels without alpha: what kBlend does with opaque ones
  kCoverAlpha,  // what kBlendAlpha does with opaque ones
  kClear,       // what kBlend does with empty ones: it clears the target's upper byte
};
inline constexpr int kOperations = 7;
// A source is multiplied on the way by none, one or two colours, one after the other.
inline constexpr int kMaximumFactors = 2;

// Rows of pixels that do not overlap, all inside their surfaces. Strides are bytes.
struct PixelRows {
  const unsigned char* source;
  std::ptrdiff_t source_stride;
  unsigned char* target;
  std::ptrdiff_t target_stride;
  int width;
  int height;
  const std::uint32_t* factors;  // colours as pixels
};

using Kernel = void (*)(const PixelRows& rows);

struct KernelSet {
  const char* name;
  Kernel kernels[kOperations][kMaximumFactors + 1];

  [[nodiscard]] Kernel of(Operation operation, int factors) const {
    return kernels[static_cast<int>(operation)][factors];
  }
};

// The set of the widest vectors that this processor has, or, given a name ("avx2", "sse2",
// "plain"), that one if it can run here; null for others.
const KernelSet* kernel_set(const char* name = nullptr);

// The set for AVX2; null where the build has none. Not to be called without AVX2.
const KernelSet* avx2_kernels();

// Sets every pixel of a box.
void fill_rows(unsigned char* target, std::ptrdiff_t stride, int width, int height,
               std::uint32_t pixel);

}  // namespace tessora::render
