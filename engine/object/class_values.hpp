// Plain class attributes of scripts that have the name of an engine attribute.
#pragma once

#include "engine/object/class.hpp"

namespace tessora::host {

// An attribute of the engine wins over a plain class attribute of a script's subclass or of a mixin
// in front of the engine's class; the class keeps its value. Returns whether properties take
// attributes over.
bool settle_class_values(PyTypeObject* type, const ClassInfo& engine_class);

}  // namespace tessora::host
