// Fingerprints of pixels, to find out whether a script has painted into a surface.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessora::render {

// Pixels in memory, row by row.
struct Pixels {
  const unsigned char* address;
  std::size_t row_bytes;
  std::ptrdiff_t pitch;  // from row to row
  int rows;
};

using Fingerprint = std::array<std::uint64_t, 8>;

// Eight 64-bit sums over 64-byte stripes; to each, every word adds the product of its halves, taken
// after mixing it with a key that differs from stripe to stripe, and its neighbour adds itself. One
// changed word always shows. That several changes cancel out in all sums they reach has a chance of
// about 2**-64, less than that of a memory fault; comparing with a kept copy would touch twice the
// memory. The accumulation is that of the XXH3 hash (Yann Collet, 2019).
Fingerprint fingerprint(const Pixels& pixels);

}  // namespace tessora::render
