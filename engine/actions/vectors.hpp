// pygame.math.Vector2 values, which scripts may replace or change at any time.
#pragma once

#include "engine/host/number.hpp"

namespace tessora {

struct Point {
  host::Number x, y;
};

host::Ref make_vector(PyObject* x, PyObject* y);

// The members x and y of a vector.
Point components(PyObject* vector);

// `from.lerp(to, time)`, bit by bit.
Point lerp(PyObject* from, PyObject* to, const host::Number& time);

// `Vector2(0, 0).lerp(to, time)`.
Point lerp_from_origin(PyObject* to, const host::Number& time);

}  // namespace tessora
