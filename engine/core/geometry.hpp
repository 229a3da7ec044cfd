// Tests on rectangles given by their edges or as pygame.Rect objects.
#pragma once

#include "engine/host/number.hpp"

namespace tessora {

// Moves `rect2` by (move_x, move_y), in place and for good, and tests it against `rect1`.
bool rects_collide(host::Value rect1, host::Value rect2, const host::Number& move_x,
                   const host::Number& move_y);

// A pygame.Rect made of a script's rectangle, whatever pygame takes for one.
host::Ref rect_copy(host::Value rect);

void register_geometry(PyObject* module);

}  // namespace tessora
