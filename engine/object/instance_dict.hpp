// What every engine object has beside its class's own attributes and methods: `__dict__` as a live
// mapping, and support for copying.
#pragma once

#include "engine/object/class.hpp"

namespace tessora::host {

void add_object_protocol(std::vector<PyGetSetDef>& properties, std::vector<PyMethodDef>& methods);

}  // namespace tessora::host
