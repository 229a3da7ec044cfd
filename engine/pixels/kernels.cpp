#include "engine/pixels/kernels.hpp"

#include <functional>
#include <string_view>

#include "engine/pixels/kernel_formulas.hpp"

#if defined(__x86_64__) || defined(_M_X64)
#define TESSORA_X86_64
#include <emmintrin.h>
#ifdef _MSC_VER
#include <immintrin.h>
#include <intrin.h>
#endif
#endif

namespace tessora::render {

namespace {

// One pixel; compilers make vectors of the loop.
struct Plain {
  static constexpr int kPixels = 1;
  std::uint32_t pixel;

  static Plain all(std::uint32_t value) { return {value}; }
  static Plain load(const unsigned char* from) {
    Plain result{};
    std::memcpy(&result.pixel, from, sizeof(result.pixel));
    return result;
  }
  void store(unsigned char* to) const { std::memcpy(to, &pixel, sizeof(pixel)); }
  static Plain load_first(const unsigned char* from, int /*count*/) { return load(from); }
  void store_first(unsigned char* to, int /*count*/) const { store(to); }
};

constexpr std::uint32_t kEvenBytes = 0x00FF00FF;

template <class Body>
Plain each_half(Plain a, Plain b, Body&& body) {
  return {(body(a.pixel & 0xFFFFU, b.pixel & 0xFFFFU) & 0xFFFFU) |
          body(a.pixel >> 16U, b.pixel >> 16U) << 16U};
}
Plain operator&(Plain a, Plain b) {
  return {a.pixel & b.pixel};
}
Plain operator|(Plain a, Plain b) {
  return {a.pixel | b.pixel};
}
Plain add16(Plain a, Plain b) {
  return each_half(a, b, std::plus());
}
Plain subtract16(Plain a, Plain b) {
  return each_half(a, b, std::minus());
}
Plain multiply16(Plain a, Plain b) {
  return each_half(a, b, std::multiplies());
}
Plain divide16_by_255(Plain a) {
  return each_half(a, {0x00FF00FF}, std::divides());
}
Plain upper_bytes16(Plain a) {
  return {a.pixel >> 8U & kEvenBytes};
}
Plain add8(Plain a, Plain b) {
  return {(((a.pixel & kEvenBytes) + (b.pixel & kEvenBytes)) & kEvenBytes) |
          (((a.pixel & ~kEvenBytes) + (b.pixel & ~kEvenBytes)) & ~kEvenBytes)};
}
// A sum that reaches the bit above its byte is all ones.
Plain add_capped(Plain a, Plain b) {
  auto half = [](std::uint32_t x, std::uint32_t y) {
    const std::uint32_t sum = x + y;
    const std::uint32_t over = sum >> 8U & 0x00010001;
    return (sum | ((over << 8U) - over)) & kEvenBytes;
  };
  return {half(a.pixel & kEvenBytes, b.pixel & kEvenBytes) |
          half(a.pixel >> 8U & kEvenBytes, b.pixel >> 8U & kEvenBytes) << 8U};
}
Plain subtract_capped(Plain a, Plain b) {
  return {~add_capped({~a.pixel}, b).pixel};
}
Plain is_zero32(Plain a) {
  return {a.pixel == 0 ? ~0U : 0U};
}
Plain choose(Plain mask, Plain a, Plain b) {
  return {(a.pixel & mask.pixel) | (b.pixel & ~mask.pixel)};
}
template <int kBits>
Plain shift_right32(Plain a) {
  return {a.pixel >> kBits};
}
template <int kBits>
Plain shift_left32(Plain a) {
  return {a.pixel << kBits};
}

const KernelSet* plain_kernels() {
  static const KernelSet set = kernels_of<Plain>("plain");
  return &set;
}

#ifdef TESSORA_X86_64

struct Sse2 {
  static constexpr int kPixels = 4;
  __m128i lanes;

  static Sse2 all(std::uint32_t pixel) { return {_mm_set1_epi32(static_cast<int>(pixel))}; }
  static Sse2 load(const unsigned char* from) {
    return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))};
  }
  void store(unsigned char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), lanes); }
  static Sse2 load_first(const unsigned char* from, int count) {
    if (count == 1) return {load_one(from)};
    const __m128i pair = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from));
    return {count == 2 ? pair : _mm_unpacklo_epi64(pair, load_one(from + 8))};
  }
  void store_first(unsigned char* to, int count) const {
    if (count == 1) return store_one(to, lanes);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), lanes);
    if (count == 3) store_one(to + 8, _mm_unpackhi_epi64(lanes, lanes));
  }

 private:
  static __m128i load_one(const unsigned char* from) {
    int pixel = 0;
    std::memcpy(&pixel, from, sizeof(pixel));
    return _mm_cvtsi32_si128(pixel);
  }
  static void store_one(unsigned char* to, __m128i from) {
    const int pixel = _mm_cvtsi128_si32(from);
    std::memcpy(to, &pixel, sizeof(pixel));
  }
};

Sse2 operator&(Sse2 a, Sse2 b) {
  return {_mm_and_si128(a.lanes, b.lanes)};
}
Sse2 operator|(Sse2 a, Sse2 b) {
  return {_mm_or_si128(a.lanes, b.lanes)};
}
Sse2 add16(Sse2 a, Sse2 b) {
  return {_mm_add_epi16(a.lanes, b.lanes)};
}
Sse2 subtract16(Sse2 a, Sse2 b) {
  return {_mm_sub_epi16(a.lanes, b.lanes)};
}
Sse2 multiply16(Sse2 a, Sse2 b) {
  return {_mm_mullo_epi16(a.lanes, b.lanes)};
}
Sse2 upper_bytes16(Sse2 a) {
  return {_mm_srli_epi16(a.lanes, 8)};
}
Sse2 divide16_by_255(Sse2 a) {
  const __m128i inverse = _mm_set1_epi16(static_cast<short>(0x8081));
  return {_mm_srli_epi16(_mm_mulhi_epu16(a.lanes, inverse), 7)};
}
Sse2 add8(Sse2 a, Sse2 b) {
  return {_mm_add_epi8(a.lanes, b.lanes)};
}
Sse2 add_capped(Sse2 a, Sse2 b) {
  return {_mm_adds_epu8(a.lanes, b.lanes)};
}
Sse2 subtract_capped(Sse2 a, Sse2 b) {
  return {_mm_subs_epu8(a.lanes, b.lanes)};
}
Sse2 is_zero32(Sse2 a) {
  return {_mm_cmpeq_epi32(a.lanes, _mm_setzero_si128())};
}
Sse2 choose(Sse2 mask, Sse2 a, Sse2 b) {
  return {_mm_or_si128(_mm_and_si128(mask.lanes, a.lanes), _mm_andnot_si128(mask.lanes, b.lanes))};
}
template <int kBits>
Sse2 shift_right32(Sse2 a) {
  return {_mm_srli_epi32(a.lanes, kBits)};
}
template <int kBits>
Sse2 shift_left32(Sse2 a) {
  return {_mm_slli_epi32(a.lanes, kBits)};
}

const KernelSet* sse2_kernels() {
  static const KernelSet set = kernels_of<Sse2>("sse2");
  return &set;
}

bool has_avx2() {
#if defined(_MSC_VER) && !defined(__clang__)
  int words[4];
  __cpuid(words, 0);
  if (words[0] < 7) return false;
  __cpuid(words, 1);
  constexpr int kSystemKeepsVectors = 1 << 27;
  constexpr unsigned long long kWideVectors = 6;
  if ((words[2] & kSystemKeepsVectors) == 0) return false;
  if ((_xgetbv(0) & kWideVectors) != kWideVectors) return false;
  __cpuidex(words, 7, 0);
  return (words[1] & 1 << 5) != 0;
#else
  return __builtin_cpu_supports("avx2");
#endif
}

#endif

}  // namespace

const KernelSet* kernel_set(const char* name) {
  const KernelSet* sets[3] = {};
#ifdef TESSORA_X86_64
  sets[0] = has_avx2() ? avx2_kernels() : nullptr;
  sets[1] = sse2_kernels();
#endif
  sets[2] = plain_kernels();
  for (const KernelSet* set : sets) {
    if (set != nullptr && (name == nullptr || std::string_view(name) == set->name)) return set;
  }
  return nullptr;
}

void fill_rows(unsigned char* target, std::ptrdiff_t stride, int width, int height,
               std::uint32_t pixel) {
  constexpr std::size_t kPixelBytes = 4;
  for (int row = 0; row < height; ++row, target += stride) {
    for (int column = 0; column < width; ++column) {
      std::memcpy(target + kPixelBytes * static_cast<std::size_t>(column), &pixel, kPixelBytes);
    }
  }
}

}  // namespace tessora::render
