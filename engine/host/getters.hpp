// Attributes that one of the library's objects computes when it is asked.
#pragma once

#include <vector>

#include "engine/host/call.hpp"

namespace tessora::host {

// The getters of an object's type, written in C, in the order in which it declares them. They live
// as long as the type.
std::vector<Ref> getters_of(Value object);

// What a getter gives; no script runs.
Ref get_with(Value getter, Value object);

}  // namespace tessora::host
