#include "engine/render/fingerprint.hpp"

#include <cstring>
#include <utility>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace tessora::render {

namespace {

constexpr std::size_t kStripe = 64;
constexpr std::size_t kWords = kStripe / sizeof(std::uint64_t);
// From the fractional parts of the golden ratio and of square roots: odd, with mixed bits.
constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15ULL;
constexpr std::array<std::uint64_t, kWords> kKeys = {
    0x6A09E667F3BCC909ULL, 0xBB67AE8584CAA73BULL, 0x3C6EF372FE94F82BULL, 0xA54FF53A5F1D36F1ULL,
    0x510E527FADE682D1ULL, 0x9B05688C2B3E6C1FULL, 0x1F83D9ABFB41BD6BULL, 0x5BE0CD19137E2179ULL};

#if defined(__SSE2__) || defined(_M_X64)

class Sums {
 public:
  Sums() {
    for (std::size_t pair = 0; pair < kPairs; ++pair) {
      keys_[pair] = load(kKeys.data() + 2 * pair);
      sums_[pair] = keys_[pair];
    }
  }

  void add(const unsigned char* stripe) {
    // Read once on every frame: it must not drive the finished pictures out of the caches.
    constexpr std::uintptr_t kAhead = 512;
    const std::uintptr_t ahead = reinterpret_cast<std::uintptr_t>(stripe) + kAhead;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): only a hint, possibly past the pixels
    _mm_prefetch(reinterpret_cast<const char*>(ahead), _MM_HINT_NTA);
    const __m128i step = _mm_set1_epi64x(static_cast<long long>(kStep));
    for (std::size_t pair = 0; pair < kPairs; ++pair) {
      const __m128i words = load(stripe + pair * sizeof(__m128i));
      const __m128i mixed = _mm_xor_si128(words, keys_[pair]);
      const __m128i product = _mm_mul_epu32(mixed, _mm_srli_epi64(mixed, 32));
      const __m128i swapped = _mm_shuffle_epi32(words, _MM_SHUFFLE(1, 0, 3, 2));
      sums_[pair] = _mm_add_epi64(sums_[pair], _mm_add_epi64(product, swapped));
      keys_[pair] = _mm_add_epi64(keys_[pair], step);
    }
  }

  [[nodiscard]] Fingerprint result() const {
    Fingerprint print{};
    std::memcpy(print.data(), sums_, sizeof(sums_));
    return print;
  }

 private:
  static constexpr std::size_t kPairs = kWords / 2;
  static __m128i load(const void* from) {
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
  }
  __m128i keys_[kPairs];
  __m128i sums_[kPairs];
};

#else

class Sums {
 public:
  void add(const unsigned char* stripe) {
    std::uint64_t words[kWords];
    std::memcpy(words, stripe, kStripe);
    for (std::size_t word = 0; word < kWords; ++word) {
      const std::uint64_t mixed = words[word] ^ keys_[word];
      sums_[word] += (mixed & 0xFFFFFFFFULL) * (mixed >> 32U) + words[word ^ 1U];
      keys_[word] += kStep;
    }
  }

  [[nodiscard]] Fingerprint result() const { return sums_; }

 private:
  std::array<std::uint64_t, kWords> keys_ = kKeys;
  Fingerprint sums_ = kKeys;
};

#endif

void add_bytes(Sums& sums, const unsigned char* from, std::size_t count) {
  for (; count >= kStripe; count -= kStripe, from += kStripe) sums.add(from);
  if (count == 0) return;
  unsigned char last[kStripe] = {};
  std::memcpy(last, from, count);
  sums.add(last);
}

}  // namespace

Fingerprint fingerprint(const Pixels& pixels) {
  Sums sums;
  auto rows = static_cast<std::size_t>(pixels.rows);
  if (std::cmp_equal(pixels.pitch, pixels.row_bytes)) {
    add_bytes(sums, pixels.address, pixels.row_bytes * rows);
    return sums.result();
  }
  const unsigned char* from = pixels.address;
  for (std::size_t row = 0; row < rows; ++row, from += pixels.pitch) {
    add_bytes(sums, from, pixels.row_bytes);
  }
  return sums.result();
}

}  // namespace tessora::render
