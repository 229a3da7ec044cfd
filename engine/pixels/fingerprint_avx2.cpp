// Fingerprints by AVX2. Everything between the pragmas is compiled for it, so no other header may
// be included there: its functions would run on processors without.
#include "engine/pixels/fingerprint.hpp"

// MinGW's GCC keeps 32-byte vectors on a stack of which Windows aligns only 16.
#if (defined(__x86_64__) || defined(_M_X64)) && !(defined(__MINGW32__) && !defined(__clang__))

#include <cstring>
#include <immintrin.h>

#ifdef __clang__
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#elif defined(__GNUC__)
#pragma GCC push_options
#pragma GCC target("avx2")
#endif

#include "engine/pixels/fingerprint_sums.hpp"

namespace tessora::render {

namespace {

class WideSums {
 public:
  WideSums() : keys_{load(kKeys), load(kKeys + kWords / 2)}, sums_{keys_[0], keys_[1]} {}

  void add(const unsigned char* stripe) {
    const __m256i step = _mm256_set1_epi64x(static_cast<long long>(kStep));
    for (std::size_t half = 0; half < 2; ++half) {
      const __m256i words = load(stripe + half * sizeof(__m256i));
      const __m256i mixed = _mm256_xor_si256(words, keys_[half]);
      const __m256i product = _mm256_mul_epu32(mixed, _mm256_srli_epi64(mixed, 32));
      const __m256i swapped = _mm256_shuffle_epi32(words, _MM_SHUFFLE(1, 0, 3, 2));
      sums_[half] = _mm256_add_epi64(sums_[half], _mm256_add_epi64(product, swapped));
      keys_[half] = _mm256_add_epi64(keys_[half], step);
    }
  }

  void store(std::uint64_t* result) const { std::memcpy(result, sums_, sizeof(sums_)); }

 private:
  static __m256i load(const void* from) {
    return _mm256_loadu_si256(static_cast<const __m256i*>(from));
  }
  // NOLINTBEGIN(modernize-use-default-member-init): loaded by the constructor
  __m256i keys_[2];
  __m256i sums_[2];
  // NOLINTEND(modernize-use-default-member-init)
};

}  // namespace

AddUp avx2_add_up() {
  return &add_up<WideSums>;
}

}  // namespace tessora::render

#ifdef __clang__
#pragma clang attribute pop
#elif defined(__GNUC__)
#pragma GCC pop_options
#endif

#else

#include "engine/pixels/fingerprint_sums.hpp"

namespace tessora::render {

AddUp avx2_add_up() {
  return nullptr;
}

}  // namespace tessora::render

#endif
