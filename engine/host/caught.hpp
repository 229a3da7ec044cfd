// Errors of the host that the engine handles itself.
#pragma once

#include "engine/host/ref.hpp"

namespace tessora::host {

// The pending error as an exception object; the interpreter's error indicator is clear afterwards.
inline Ref take_error() {
#if PY_VERSION_HEX >= 0x030C0000
  return Ref::steal(PyErr_GetRaisedException());
#else
  PyObject* type = nullptr;
  PyObject* value = nullptr;
  PyObject* trace = nullptr;
  PyErr_Fetch(&type, &value, &trace);
  PyErr_NormalizeException(&type, &value, &trace);
  Py_XDECREF(type);
  Py_XDECREF(trace);
  return Ref::steal(value);
#endif
}

// Runs `body`. An error of the given type is taken from the host and returned; without one the
// result is empty.
template <class Body>
Ref caught(PyObject* type, Body&& body) {
  try {
    body();
  } catch (const HostError&) {
    if (PyErr_ExceptionMatches(type) == 0) throw;
    return take_error();
  }
  return {};
}

}  // namespace tessora::host
