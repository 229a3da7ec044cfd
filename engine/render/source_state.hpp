// Source surfaces: whether their pixels and state are still what they were.
#pragma once

#include <vector>

#include "engine/render/surface.hpp"

namespace tessora::render {

// A surface as pygame describes it. The pixels are only valid until the next host call.
struct SurfaceState {
  const unsigned char* pixels = nullptr;
  int width = 0;
  int height = 0;
  int pitch = 0;
  int pixel_bytes = 0;
  long flags = 0;
  int alpha = 0;  // -1 when the surface has none
  std::uint64_t key = 0;  // the colour key, with a bit above the colour; 0 for none

  [[nodiscard]] std::size_t row_bytes() const {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(pixel_bytes);
  }
  [[nodiscard]] bool same_as(const SurfaceState& other) const {
    return width == other.width && height == other.height && pixel_bytes == other.pixel_bytes &&
           flags == other.flags && alpha == other.alpha && key == other.key;
  }
};

// The state of a plain surface; nothing when its pixels cannot be compared (compressed, with a
// palette, or without a readable address).
std::optional<SurfaceState> read_state(PyObject* surface);

// The surface whose memory this one shares: itself unless it is a subsurface.
PyObject* root_surface(PyObject* surface);

// Whether the surface has exactly the format that convert_alpha() gives.
bool has_alpha_format(PyObject* surface, const SurfaceState& state);

// Bumps when kept pictures may no longer be what pygame would give: another display, or functions
// of pygame's that a script has replaced. Zero while there is no display.
std::uint64_t environment();

// Whether multiplying by white changes no pixel in the installed pygame.
bool white_is_identity();

// Pixels as they were when they were last compared.
class PixelCopy {
 public:
  // Whether the surface still holds the same pixels; takes a new copy if not.
  bool matches(const SurfaceState& state);
  [[nodiscard]] std::size_t bytes() const { return copy_.size(); }

 private:
  void take(const SurfaceState& state);
  std::vector<unsigned char> copy_;
};

}  // namespace tessora::render
