// Source surfaces: whether their pixels and state are still what they were.
#pragma once

#include "engine/render/fingerprint.hpp"
#include "engine/render/surface.hpp"

namespace tessora::render {

// What pygame says of a surface, beside its pixels.
struct SurfaceState {
  int width = 0;
  int height = 0;
  long flags = 0;
  int alpha = 0;          // -1 when the surface has none
  std::uint64_t key = 0;  // the colour key, with a bit above the colour; 0 for none
  bool locked = false;    // somebody has its pixels open: it cannot be blitted
  Ref shifts;             // of the colour channels: with the flags, they tell the pixel format

  [[nodiscard]] bool same_as(const SurfaceState& other) const;
};

// The state of a plain surface; nothing when its pixels are compressed.
std::optional<SurfaceState> read_state(PyObject* surface);

// The pixels, valid until the next host call.
// Nothing for surfaces with a palette, without pixels, or where pygame does not give the address.
std::optional<Pixels> read_pixels(PyObject* surface, const SurfaceState& state);

// The surface whose memory this one shares: itself unless it is a subsurface.
PyObject* root_surface(PyObject* surface);

// Whether the surface has exactly the format that convert_alpha() gives.
bool has_alpha_format(PyObject* surface, const SurfaceState& state);

// Bumps when kept pictures may no longer be what pygame would give: another display, or functions
// of pygame's that a script has replaced. Zero while there is no display.
std::uint64_t environment();

// Whether multiplying by white changes no pixel in the installed pygame.
bool white_is_identity();

}  // namespace tessora::render
