// Types that the engine makes for itself: scripts can find them, but not make objects of them.
#pragma once

#include "engine/host/value.hpp"

namespace tessora::host {

inline PyObject* refuse_instances(PyTypeObject* type, PyObject*, PyObject*) {
  PyErr_Format(PyExc_TypeError, "cannot create '%s' instances", type->tp_name);
  return nullptr;
}

}  // namespace tessora::host
