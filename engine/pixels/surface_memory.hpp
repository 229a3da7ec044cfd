// pygame surfaces as memory: where their pixels are and in what state, for loops of the engine's
// own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/host/value.hpp"

namespace tessora::render {

struct PixelBox {
  int left = 0;
  int top = 0;
  int right = 0;  // exclusive, as the bottom
  int bottom = 0;
  bool operator==(const PixelBox&) const = default;
};

struct PixelMasks {
  std::uint32_t red = 0;
  std::uint32_t green = 0;
  std::uint32_t blue = 0;
  std::uint32_t alpha = 0;
  bool operator==(const PixelMasks&) const = default;
};

// Valid until a script runs: nothing else moves or reshapes a surface.
struct SurfaceMemory {
  unsigned char* pixels = nullptr;
  int pitch = 0;  // bytes from row to row
  int width = 0;
  int height = 0;
  int pixel_bytes = 0;
  PixelMasks masks;
  PixelBox clip;               // inside the surface
  bool locked = false;         // somebody has the pixels open
  bool compressed = false;     // run-length encoded, or to be at the next blit
  bool blends = false;         // a plain blit of it mixes by its alpha
  bool keyed = false;          // has a colour key
  int opacity = 255;           // of the whole surface
  std::uint32_t key = 0;       // the colour key as a pixel
  PyObject* holder = nullptr;  // the surface whose pixels they are: itself unless a subsurface

  bool operator==(const SurfaceMemory&) const = default;
  // Nothing but pixels and their alpha decides what a blit of it or onto it gives.
  [[nodiscard]] bool is_simple() const {
    return pixels != nullptr && !locked && !compressed && !keyed && opacity == 255;
  }
};

// The memory of one of pygame's own surfaces; nothing for other objects, for surfaces of a display
// that is gone, and for subsurfaces that have come loose from their owner's pixels. A subsurface is
// locked or compressed when one of its owners is.
//
// A surface is read from the structures of pygame and SDL 2, once these said in this process the
// same as pygame's methods, for surfaces of many sizes, formats and states; else through the
// methods. Opacity, colour key and blending stand in one that SDL keeps to itself, so they too are
// seen without a call. Measured: 6 ns, 20 for a subsurface; through the methods 430 to 550.
std::optional<SurfaceMemory> surface_memory(host::Value surface);

// The same for a surface to be blitted onto: pygame writes to the holder, whose state counts then.
std::optional<SurfaceMemory> target_memory(host::Value surface);

// The part of one of pygame's own surfaces that can be drawn on, for those who look often; nothing
// where that takes a call.
std::optional<PixelBox> quick_clip(host::Value surface);

// Whether a pixel of one may be a pixel of the other. pygame itself corrupts memory when it blits
// between surfaces that begin at the same byte.
bool share_memory(const SurfaceMemory& left, const SurfaceMemory& right);

// Whether surfaces are read from their structures here, not through pygame's methods.
bool reads_structures();

// What proofs ask of pygame; HostError when it refuses. Colours are 0xRRGGBBAA.
namespace library {

host::Ref new_surface(int width, int height, bool with_alpha);  // of 32 bits
void fill_row(host::Value surface, int row, std::uint32_t color);
void blit(host::Value target, host::Value source, int flags);
void multiply(host::Value target, host::Value source);
void draw_rect(host::Value target, std::uint32_t color, int left, int top, int width, int height);
// What the environment says under this name; empty when it says nothing.
std::string setting(const char* name);

// Whether `body` returns true and pygame refuses nothing.
template <class Body>
bool holds(Body&& body) {
  try {
    return body();
  } catch (const host::HostError&) {
    PyErr_Clear();
    return false;
  }
}

}  // namespace library
}  // namespace tessora::render
