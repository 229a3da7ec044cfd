// The host's headers, included from here only, and what differs between its versions.
#pragma once

// The standard header must come first: Windows builds of the host redefine a name that it declares.
#include <cmath>

#if defined(__MINGW64__) && !defined(MS_WIN64)
#define MS_WIN64
#endif
#define PY_SSIZE_T_CLEAN
#include <Python.h>
#include <structmember.h>

namespace tessora::host {

#if PY_VERSION_HEX < 0x03090000
inline PyObject* vectorcall(PyObject* callable, PyObject* const* args, size_t nargsf,
                            PyObject* kwnames) {
  return _PyObject_Vectorcall(callable, args, nargsf, kwnames);
}
#else
inline PyObject* vectorcall(PyObject* callable, PyObject* const* args, size_t nargsf,
                            PyObject* kwnames) {
  return PyObject_Vectorcall(callable, args, nargsf, kwnames);
}
#endif

// Finds an attribute without raising when it is absent: 1 found, 0 absent, -1 error.
#if PY_VERSION_HEX < 0x030D0000
inline int optional_attr(PyObject* object, PyObject* name, PyObject** result) {
  return _PyObject_LookupAttr(object, name, result);
}
#else
inline int optional_attr(PyObject* object, PyObject* name, PyObject** result) {
  return PyObject_GetOptionalAttr(object, name, result);
}
#endif

}  // namespace tessora::host
