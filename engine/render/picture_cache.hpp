// Finished pictures, kept for as long as what they were made of stays the same.
#pragma once

#include "engine/render/surface.hpp"

namespace tessora::render {

// What a picture is made of, beside its source.
struct PictureRecipe {
  int width;
  int height;
  double angle;         // degrees; 0 is not rotated
  int alpha;            // 0 to 255
  bool tinted;          // multiplied by `color`
  std::uint32_t color;  // 0xRRGGBBAA
  bool operator==(const PictureRecipe&) const = default;
};

struct Picture {
  PyObject* surface;  // owned by the cache, or the source itself; valid until a script runs
  int width;
  int height;
};

// At most this many bytes of finished pictures are held. The least recently drawn go first.
inline constexpr std::size_t kPictureCacheBytes = std::size_t{256} << 20U;

// The finished picture for a source drawn onto `screen`, pixel by pixel what faded() and finished()
// give; nothing when those must be followed themselves.
std::optional<Picture> kept_picture(PyObject* source, const PictureRecipe& recipe,
                                    PyObject* screen);

}  // namespace tessora::render
