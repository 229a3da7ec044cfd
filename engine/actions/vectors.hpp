// pygame.math.Vector2 values, which scripts may replace or change at any time.
#pragma once

#include "engine/host/number.hpp"

namespace tessora {

struct Point {
  host::Number x, y;
};

host::Ref make_vector(host::Value x, host::Value y);

// The members x and y of a vector.
Point components(host::Value vector);

// `from.lerp(to, time)`, bit by bit; without `from` the way begins at Vector2(0, 0).
Point lerp(host::Value from, host::Value to, const host::Number& time);
// The same for vectors of these components.
Point lerp(const Point& from, const Point& to, const host::Number& time);

}  // namespace tessora
