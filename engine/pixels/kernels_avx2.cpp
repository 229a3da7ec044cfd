// The kernels for processors with AVX2. Everything between the pragmas is compiled for it, so no
// other header may be included there: its functions would run on processors without.
#include "engine/pixels/kernels.hpp"

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

#include "engine/pixels/kernel_formulas.hpp"

namespace tessora::render {

namespace {

struct Avx2 {
  static constexpr int kPixels = 8;
  __m256i lanes;

  static Avx2 all(std::uint32_t pixel) { return {_mm256_set1_epi32(static_cast<int>(pixel))}; }
  static Avx2 load(const unsigned char* from) {
    return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(from))};
  }
  void store(unsigned char* to) const {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), lanes);
  }
  static Avx2 load_first(const unsigned char* from, int count) {
    return {_mm256_maskload_epi32(reinterpret_cast<const int*>(from), first(count))};
  }
  void store_first(unsigned char* to, int count) const {
    _mm256_maskstore_epi32(reinterpret_cast<int*>(to), first(count), lanes);
  }

 private:
  static __m256i first(int count) {
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(count), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
  }
};

Avx2 operator&(Avx2 a, Avx2 b) {
  return {_mm256_and_si256(a.lanes, b.lanes)};
}
Avx2 operator|(Avx2 a, Avx2 b) {
  return {_mm256_or_si256(a.lanes, b.lanes)};
}
Avx2 add16(Avx2 a, Avx2 b) {
  return {_mm256_add_epi16(a.lanes, b.lanes)};
}
Avx2 subtract16(Avx2 a, Avx2 b) {
  return {_mm256_sub_epi16(a.lanes, b.lanes)};
}
Avx2 multiply16(Avx2 a, Avx2 b) {
  return {_mm256_mullo_epi16(a.lanes, b.lanes)};
}
Avx2 upper_bytes16(Avx2 a) {
  return {_mm256_srli_epi16(a.lanes, 8)};
}
Avx2 divide16_by_255(Avx2 a) {
  const __m256i inverse = _mm256_set1_epi16(static_cast<short>(0x8081));
  return {_mm256_srli_epi16(_mm256_mulhi_epu16(a.lanes, inverse), 7)};
}
Avx2 add8(Avx2 a, Avx2 b) {
  return {_mm256_add_epi8(a.lanes, b.lanes)};
}
Avx2 add_capped(Avx2 a, Avx2 b) {
  return {_mm256_adds_epu8(a.lanes, b.lanes)};
}
Avx2 subtract_capped(Avx2 a, Avx2 b) {
  return {_mm256_subs_epu8(a.lanes, b.lanes)};
}
Avx2 is_zero32(Avx2 a) {
  return {_mm256_cmpeq_epi32(a.lanes, _mm256_setzero_si256())};
}
Avx2 choose(Avx2 mask, Avx2 a, Avx2 b) {
  return {_mm256_blendv_epi8(b.lanes, a.lanes, mask.lanes)};
}
template <int kBits>
Avx2 shift_right32(Avx2 a) {
  return {_mm256_srli_epi32(a.lanes, kBits)};
}
template <int kBits>
Avx2 shift_left32(Avx2 a) {
  return {_mm256_slli_epi32(a.lanes, kBits)};
}

}  // namespace

const KernelSet* avx2_kernels() {
  static const KernelSet set = kernels_of<Avx2>("avx2");
  return &set;
}

}  // namespace tessora::render

#ifdef __clang__
#pragma clang attribute pop
#elif defined(__GNUC__)
#pragma GCC pop_options
#endif

#else

namespace tessora::render {

const KernelSet* avx2_kernels() {
  return nullptr;
}

}  // namespace tessora::render

#endif
