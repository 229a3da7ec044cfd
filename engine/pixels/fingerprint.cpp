#include "engine/pixels/fingerprint.hpp"

#include <cstring>

#include "engine/pixels/fingerprint_sums.hpp"
#include "engine/pixels/kernels.hpp"

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace tessora::render {

namespace {

#if defined(__SSE2__) || defined(_M_X64)

class Sums {
 public:
  Sums() {
    for (std::size_t pair = 0; pair < kPairs; ++pair) {
      keys_[pair] = load(kKeys + 2 * pair);
      sums_[pair] = keys_[pair];
    }
  }

  void add(const unsigned char* stripe) {
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

  void store(std::uint64_t* result) const { std::memcpy(result, sums_, sizeof(sums_)); }

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
  Sums() {
    std::memcpy(keys_, kKeys, sizeof(keys_));
    std::memcpy(sums_, kKeys, sizeof(sums_));
  }

  void add(const unsigned char* stripe) {
    std::uint64_t words[kWords];
    std::memcpy(words, stripe, kStripe);
    for (std::size_t word = 0; word < kWords; ++word) {
      const std::uint64_t mixed = words[word] ^ keys_[word];
      sums_[word] += (mixed & 0xFFFFFFFFULL) * (mixed >> 32U) + words[word ^ 1U];
      keys_[word] += kStep;
    }
  }

  void store(std::uint64_t* result) const { std::memcpy(result, sums_, sizeof(sums_)); }

 private:
  std::uint64_t keys_[kWords];
  std::uint64_t sums_[kWords];
};

#endif

}  // namespace

Fingerprint fingerprint(const Pixels& pixels) {
  static const AddUp chosen =
      kernel_set("avx2") != nullptr && avx2_add_up() != nullptr ? avx2_add_up() : &add_up<Sums>;
  Fingerprint print{};
  chosen(pixels, print.data());
  return print;
}

}  // namespace tessora::render
