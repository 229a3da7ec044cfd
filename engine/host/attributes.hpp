// Members that every root class of the engine exposes; see ClassBuilder.
#pragma once

#include "engine/host/class.hpp"

namespace tessora::host {

extern getter attributes_get;
extern setter attributes_set;
extern PyCFunction object_reduce;
extern PyCFunction object_directory;

template <class Class>
void add_object_protocol(ClassBuilder<Class>& builder) {
  builder
      .property("__dict__", attributes_get, attributes_set,
                "Live mapping of all attributes, in the order in which they were set.")
      .function("__reduce_ex__", object_reduce, METH_O, "Support for copying and pickling.")
      .function("__dir__", object_directory, METH_NOARGS, "Names for completion.");
}

}  // namespace tessora::host
