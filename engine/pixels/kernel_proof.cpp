#include "engine/pixels/kernel_proof.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>

#include "engine/pixels/once.hpp"

namespace tessora::render {

using host::Ref;

namespace {

constexpr int kPixelBytes = 4;
constexpr int kValues = 256;  // of a byte
constexpr int kLongestRow = 33;

struct Case {
  Operation operation;
  int factors;
  bool onto_alpha;
  // A single factor is an opacity, which pygame multiplies the other way round; of two, the first
  // is one.
  bool fades;

  [[nodiscard]] bool covers() const {
    return operation == Operation::kCover || operation == Operation::kCoverAlpha;
  }
};

int flags_of(Operation operation) {
  if (operation == Operation::kAdd) return 1;
  return operation == Operation::kSubtract ? 2 : 0;
}

std::uint32_t scrambled(std::uint32_t value) {
  value = (value ^ value >> 15U) * 0x2C1B3C6DU;
  value = (value ^ value >> 12U) * 0x297A2D39U;
  return value ^ value >> 15U;
}

std::uint32_t byte(std::uint32_t value) {
  return value & 255U;
}

// One pixel of both surfaces.
struct Relation {
  std::uint32_t source;
  std::uint32_t target;
};

// The same value in three channels, turned so that it meets three others.
std::uint32_t spread(std::uint32_t value) {
  return byte(value) | byte(value + 85) << 8U | byte(value + 170) << 16U;
}

// Every pair out of source, target and alpha of a channel stands at some (x, y) of a family, the
// third beside it at its edges, next to either of the pair, and anywhere.
constexpr int kFamilies = 4;
constexpr int kTurns = 3;
constexpr int kBlocks = kFamilies * kTurns;

Relation relation_at(int block, std::uint32_t x, std::uint32_t y) {
  constexpr std::uint32_t kFirst = 0xFF;
  constexpr std::uint32_t kSecond = 0xFF00;
  constexpr std::uint32_t kThird = 0xFF0000;
  constexpr std::uint32_t kAlpha = 0xFF000000;
  const int turn = block / kFamilies;
  const std::uint32_t any = scrambled((static_cast<std::uint32_t>(turn) << 16U) + (x << 8U) + y);
  const std::uint32_t pair = spread(x);
  std::uint32_t third = (pair & kSecond) | (any & kThird);
  if (turn == 1) third = kFirst | (spread(x + 1) & kSecond) | y << 16U;
  if (turn == 2) third = (any & kFirst) | (spread(x - 1) & kSecond) | (~pair & kThird);
  const std::uint32_t alphas[kTurns] = {any << 8U & kAlpha, 0x80000000, kAlpha};
  const std::uint32_t target_alpha = any >> 30U == 0 ? 0 : any & kAlpha;
  if (block % kFamilies == 0) return {pair | y << 24U, third | target_alpha};
  if (block % kFamilies == 1) return {third | y << 24U, pair | target_alpha};
  if (block % kFamilies == 2) return {pair | alphas[turn], spread(y) | (any & kAlpha)};
  return {(any & ~kAlpha) | y << 24U, (scrambled(any) & ~kAlpha) | x << 24U};
}

SurfaceMemory memory_of(host::Value surface) {
  std::optional<SurfaceMemory> memory = surface_memory(surface);
  if (!memory) host::raise(PyExc_RuntimeError, "a surface without memory");
  return *memory;
}

std::uint32_t* row_of(const SurfaceMemory& memory, int row) {
  return reinterpret_cast<std::uint32_t*>(memory.pixels +
                                          static_cast<std::ptrdiff_t>(row) * memory.pitch);
}

bool same_pixels(const SurfaceMemory& left, const SurfaceMemory& right) {
  for (int row = 0; row < left.height; ++row) {
    if (std::memcmp(row_of(left, row), row_of(right, row),
                    static_cast<std::size_t>(left.width) * kPixelBytes) != 0) {
      return false;
    }
  }
  return true;
}

// The surfaces of one comparison. Every row of the source is multiplied by colours of its own.
class Comparison {
 public:
  Comparison(const Case& compared, int width, int height)
      : case_(compared), width_(width), height_(height) {}

  bool is_equal(Kernel kernel, int block) {
    for (int row = 0; row < height_; ++row) {
      for (int column = 0; column < width_; ++column) set_pixel(column, row, block);
    }
    for (int row = 0; row < height_; ++row) {
      const std::uint32_t colors[] = {pixel_of(proved_masks(true), color_at(row, 0)),
                                      pixel_of(proved_masks(true), color_at(row, 1))};
      kernel({reinterpret_cast<unsigned char*>(row_of(picture_.memory, row)), picture_.memory.pitch,
              reinterpret_cast<unsigned char*>(row_of(target_.memory, row)), target_.memory.pitch,
              width_, 1, colors});
    }
    Ref picture = picture_.surface;
    for (int factor = 0; factor < case_.factors; ++factor) {
      Ref colors = library::new_surface(width_, height_, true);
      for (int row = 0; row < height_; ++row) {
        library::fill_row(colors, row, color_at(row, factor));
      }
      const bool fade = case_.fades && factor == 0;
      library::multiply(fade ? colors : picture, fade ? picture : colors);
      if (fade) picture = colors;
    }
    library::blit(expected_.surface, picture, flags_of(case_.operation));
    return same_pixels(target_.memory, expected_.memory);
  }

 private:
  struct Canvas {
    Ref surface;
    SurfaceMemory memory;
    Canvas(int width, int height, bool with_alpha)
        : surface(library::new_surface(width, height, with_alpha)), memory(memory_of(surface)) {}
  };

  // Narrow ones take from all blocks.
  void set_pixel(int column, int row, int block) {
    constexpr std::uint32_t kAlpha = 0xFF000000;
    const bool narrow = width_ < kValues;
    const std::uint32_t any = scrambled(static_cast<std::uint32_t>(64 * row + column));
    const std::uint32_t x = narrow ? any : static_cast<std::uint32_t>(column);
    const std::uint32_t y = narrow ? any >> 8U : static_cast<std::uint32_t>(row);
    Relation pixel = relation_at(narrow ? row % kBlocks : block, byte(x), byte(y));
    if (case_.covers()) pixel.source |= kAlpha;
    if (case_.operation == Operation::kClear) pixel.source &= ~kAlpha;
    row_of(picture_.memory, row)[column] = pixel.source;
    row_of(target_.memory, row)[column] = pixel.target;
    row_of(expected_.memory, row)[column] = pixel.target;
  }

  std::uint32_t color_at(int row, int factor) const {
    const auto value = static_cast<std::uint32_t>((width_ < kValues ? 41 : 1) * row + 19 * factor);
    const std::uint32_t alpha = case_.covers() ? 255 : byte(5 * value);
    if (case_.fades && factor == 0) return 0xFFFFFF00U | alpha;
    return byte(value) << 24U | byte(value + 85) << 16U | byte(value + 170) << 8U | alpha;
  }

  Case case_;
  int width_;
  int height_;
  Canvas picture_{width_, height_, true};
  Canvas target_{width_, height_, case_.onto_alpha};
  Canvas expected_{width_, height_, case_.onto_alpha};
};

bool holds(Kernel kernel, const Case& compared) {
  Comparison wide(compared, kValues, kValues);
  const int blocks = compared.factors == 0 ? kBlocks : kFamilies;
  for (int block = 0; block < blocks; ++block) {
    if (!wide.is_equal(kernel, block)) return false;
  }
  for (int width = 1; width <= kLongestRow; ++width) {
    if (!Comparison(compared, width, kBlocks).is_equal(kernel, 0)) return false;
  }
  return true;
}

// The kernels that are used here: those that the environment names, else the widest.
const KernelSet* chosen_set() {
  static constinit Once<const KernelSet*> chosen;
  return chosen.get([] {
    std::string name;
    library::holds([&] {
      name = library::setting("TESSORA_KERNELS");
      return true;
    });
    return kernel_set(name.empty() ? nullptr : name.c_str());
  });
}

// Boxes of all places and sizes on a small surface, those outside and without pixels included.
bool boxes_are_alike(bool with_alpha) {
  constexpr int kSide = 9;
  const std::uint32_t colors[] = {0x01FE80FF, 0xFF007F00, 0x123456A5};
  for (int width = 0; width <= kLongestRow; ++width) {
    Ref ours = library::new_surface(kLongestRow + 2, kSide, with_alpha);
    Ref theirs = library::new_surface(kLongestRow + 2, kSide, with_alpha);
    SurfaceMemory memory = memory_of(ours);
    const std::uint32_t color = colors[width % 3];
    const int height = width % kSide;
    library::draw_rect(theirs, color, 1, 1, width, height);
    if (width > 0 && height > 0) {
      fill_rows(reinterpret_cast<unsigned char*>(row_of(memory, 1) + 1), memory.pitch, width,
                std::min(height, kSide - 1), pixel_of(memory.masks, color));
    }
    if (!same_pixels(memory, memory_of(theirs))) return false;
  }
  return true;
}

}  // namespace

std::uint32_t pixel_of(const PixelMasks& masks, std::uint32_t color) {
  auto placed = [](std::uint32_t value, std::uint32_t mask) {
    return mask == 0 ? 0 : (value & 255U) << static_cast<unsigned>(std::countr_zero(mask));
  };
  return placed(color >> 24U, masks.red) | placed(color >> 16U, masks.green) |
         placed(color >> 8U, masks.blue) | placed(color, masks.alpha);
}

const PixelMasks& proved_masks(bool with_alpha) {
  static constinit Once<PixelMasks> known[2];
  return known[with_alpha ? 1 : 0].get([&] {
    PixelMasks found;
    library::holds([&] {
      found = memory_of(library::new_surface(1, 1, with_alpha)).masks;
      return true;
    });
    return found;
  });
}

Kernel proved_kernel(Operation operation, int factors, bool onto_alpha) {
  static constinit Once<Kernel> known[kOperations][kMaximumFactors + 1][2];
  return known[static_cast<int>(operation)][factors][onto_alpha ? 1 : 0].get([&]() -> Kernel {
    const KernelSet* set = chosen_set();
    if (set == nullptr) return nullptr;
    const Kernel kernel = set->of(operation, factors);
    auto agrees = [&](bool fades) {
      return holds(kernel, Case{operation, factors, onto_alpha, fades});
    };
    const bool proved =
        library::holds([&] { return agrees(factors == 2) && (factors != 1 || agrees(true)); });
    return proved ? kernel : nullptr;
  });
}

bool fills_alike(bool with_alpha) {
  static constinit Once<bool> known[2];
  return known[with_alpha ? 1 : 0].get([&] {
    return chosen_set() != nullptr && library::holds([&] { return boxes_are_alike(with_alpha); });
  });
}

}  // namespace tessora::render
