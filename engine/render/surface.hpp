// pygame surfaces: the calls that pictures are made of.
#pragma once

#include <optional>

#include "engine/host/modules.hpp"
#include "engine/host/number.hpp"

namespace tessora::render {

using host::Number;
using host::Ref;

// pygame's own Surface type, not a subclass: its methods run no script.
bool is_plain_surface(PyObject* object);
// The components of pygame's own Color, packed, or nothing for anything else.
std::optional<std::uint32_t> plain_color(PyObject* object);

// Calls a method of a plain surface.
template <class... Args>
Ref surface_call(PyObject* surface, PyObject* method, const Args&... args) {
  return host::call_library_method(surface, method, args...);
}

// A new surface with per-pixel alpha in the display's format; its pixels are opaque black.
Ref new_alpha_surface(const Ref& size);

// `image` multiplied by white of the given opacity, on a surface of its size.
Ref faded(PyObject* image, PyObject* alpha);

// Scaled to `size`, rotated by `angle` degrees unless it is 0, with per-pixel alpha and, unless
// `color` is none, multiplied by the colour: the sequence that fixes every pixel of a picture.
Ref finished(PyObject* image, const Ref& size, const Number& angle, PyObject* color);

// Scaled and rotated, for borders and backgrounds.
Ref scaled(const Ref& image, const Ref& size);
Ref rotated(const Ref& image, const Number& angle);

// Blits at a position in floats, which pygame cuts towards zero. `flags` is none for a plain blit.
void blit(PyObject* screen, const Ref& image, const Number& left, const Number& top,
          PyObject* flags);
// Blits one of pygame's own surfaces onto another; the position is cut towards zero.
void blit_plain(PyObject* screen, PyObject* image, double left, double top, PyObject* flags);
// Blits with the centre at this position.
void blit_centered(PyObject* screen, const Ref& image, const Number& center_x,
                   const Number& center_y, PyObject* flags);

}  // namespace tessora::render
