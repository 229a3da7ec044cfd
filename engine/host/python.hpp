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
#if PY_VERSION_HEX < 0x030B0000
#include <longintrepr.h>
#endif

namespace tessora::host {

// The value of a float, or of an int of one digit (less than 2**30 in size), without a call. False
// for everything else.
inline bool small_number(PyObject* object, double& value) {
  if (PyFloat_CheckExact(object)) {
    value = PyFloat_AS_DOUBLE(object);
    return true;
  }
  if (!PyLong_CheckExact(object)) return false;
  auto* digits = reinterpret_cast<PyLongObject*>(object);
#if PY_VERSION_HEX >= 0x030C0000
  if (PyUnstable_Long_IsCompact(digits) == 0) return false;
  value = static_cast<double>(PyUnstable_Long_CompactValue(digits));
#else
  Py_ssize_t size = Py_SIZE(object);
  if (size < -1 || size > 1) return false;
  value = size == 0 ? 0.0 : static_cast<double>(size) * digits->ob_digit[0];
#endif
  return true;
}

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
