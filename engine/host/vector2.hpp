// pygame's own vectors of two components.
#pragma once

#include <optional>

#include "engine/host/value.hpp"

namespace tessora::host {

struct Components {
  double x, y;
};

// The components of a pygame.math.Vector2, which no script can replace; nothing for an object of
// any other type.
std::optional<Components> plain_vector(Value value);

}  // namespace tessora::host
