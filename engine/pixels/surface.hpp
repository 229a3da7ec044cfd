// pygame surfaces: the calls that pictures are made of.
#pragma once

#include <optional>

#include "engine/host/modules.hpp"
#include "engine/host/number.hpp"

namespace tessora::render {

using host::Number;
using host::Ref;
using host::Value;

// pygame's own Surface type, not a subclass: its methods run no script.
bool is_plain_surface(Value object);
// A surface of pygame's or of a subclass.
bool is_surface(Value object);
// The components of pygame's own Color, 0xRRGGBBAA, or nothing for anything else.
std::optional<std::uint32_t> plain_color(Value object);
// The tuple of components for a packed colour.
Ref unpacked_color(std::uint32_t color);

// A method of pygame's own Surface, to be called with the surface first: what a subclass makes of
// it does not count.
Ref surface_method(Value name);
// Calls a method of a plain surface.
template <class... Args>
Ref surface_call(Value surface, Value method, const Args&... args) {
  return host::call_library_method(surface, method, args...);
}

struct PixelSize {
  int width = 0;
  int height = 0;
};
// The size of a picture once it is rotated, at most.
struct TurnedSize {
  double width, height;
};
TurnedSize turned_size(double width, double height, double angle);
// Of a surface of pygame's or of a subclass.
PixelSize surface_size(Value surface);

// Pictures of this many bytes and more are refused: pygame counts them in 32 bits.
inline constexpr double kPictureBytes = 2147483648.0;
// Raises ValueError for a picture of so many pixels that is too large.
void check_picture_size(double width, double height);

// The conversion of that name, as the surface has it.
Ref convert_alpha(Value surface);

// A new surface with per-pixel alpha in the display's format; its pixels are opaque black.
Ref new_alpha_surface(Value size);

// `image` multiplied by white of the given opacity, on a surface of its size.
Ref faded(Value image, Value alpha);

// Scaled to `size`, rotated by `angle` degrees unless it is 0, with per-pixel alpha and, unless
// `color` is none, multiplied by the colour: the sequence that fixes every pixel of a picture.
// ValueError for pictures of 2**31 bytes or more; one without pixels gives one without pixels.
Ref finished(Value image, Value size, const Number& angle, Value color);

// A copy of a plain picture, multiplied by the colour.
Ref tinted(Value picture, std::uint32_t color);

// Scaled and rotated, for borders and backgrounds; the same limits.
Ref scaled(Value image, Value size);
Ref rotated(Value image, const Number& angle);

// The size of a surface or of what stands in for one.
struct NumberSize {
  Number width;
  Number height;
};
NumberSize size_of(Value image);

}  // namespace tessora::render
