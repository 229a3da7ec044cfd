// Tests on rectangles given by their edges or as pygame.Rect objects.
#pragma once

#include "engine/host/ref.hpp"

namespace tessora {

// Moves `rect2` by (moveX, moveY), in place and for good, and tests it against `rect1`.
bool rects_collide(PyObject* rect1, PyObject* rect2, PyObject* moveX, PyObject* moveY);

void register_geometry(PyObject* module);

}  // namespace tessora
