// Errors that tell which attribute of an object has a value of a wrong type.
#pragma once

#include "engine/object/class.hpp"

namespace tessora::host {

// Throws on the pending error. If it says of which type a value should be and comes from no
// script, it gets the attributes in front whose values are not of the types that their rows tell.
[[noreturn]] void raise_naming_attributes(Object& owner);

// Runs `body`, which uses the attributes.
template <class Body>
void naming_attributes(Object& owner, Body&& body) {
  try {
    body();
  } catch (const HostError&) {
    raise_naming_attributes(owner);
  }
}

}  // namespace tessora::host
