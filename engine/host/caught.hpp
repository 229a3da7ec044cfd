// Errors of Python's that the engine handles itself.
#pragma once

#include "engine/host/call.hpp"

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

// The pending error with its traceback, set aside.
class PendingError {
 public:
#if PY_VERSION_HEX >= 0x030C0000
  PendingError() : error_(Ref::steal(PyErr_GetRaisedException())) {}
  void restore() const { PyErr_SetRaisedException(Ref(error_).release()); }

 private:
  Ref error_;
#else
  PendingError() {
    PyObject* parts[3] = {};
    PyErr_Fetch(&parts[0], &parts[1], &parts[2]);
    for (int index = 0; index < 3; ++index) parts_[index] = Ref::steal(parts[index]);
  }
  void restore() const {
    PyErr_Restore(Ref(parts_[0]).release(), Ref(parts_[1]).release(), Ref(parts_[2]).release());
  }

 private:
  Ref parts_[3];
#endif
};

// Raises an error that was taken.
[[noreturn]] inline void raise_again(Value error) {
  PyErr_SetObject(reinterpret_cast<PyObject*>(error.type()), error.get());
  throw HostError();
}

// Puts "place: " before the text of the pending error, which else stays what it is. An error of the
// system's tells the name of a file instead: the place, if it has none yet.
[[noreturn]] inline void raise_with_place(Value place) {
  Ref error = take_error();
  if (Ref number = error.find_attr("errno"_name); number && !number.is_none()) {
    if (error.attr("filename"_name).is_none()) error.set_attr("filename"_name, place);
    raise_again(error);
  }
  Ref message = formatted("%S: %S", place, error);
  error.set_attr("args"_name, tuple(message));
  // A syntax error, such as those of XML, keeps its text here as well.
  if (error.find_attr("msg"_name)) error.set_attr("msg"_name, message);
  raise_again(error);
}

// Runs `body`; the texts of its errors get the place in front.
template <class Body>
auto with_place(Value place, Body&& body) {
  try {
    return body();
  } catch (const HostError&) {
    if (PyErr_ExceptionMatches(PyExc_Exception) == 0) throw;
    raise_with_place(place);
  }
}

// Runs `body`. An error of the given type is taken from Python and returned; without one the
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

// Runs `body`, then `after`, also when `body` failed: its error then comes after that.
template <class Body, class After>
void with_cleanup(Body&& body, After&& after) {
  try {
    body();
  } catch (const HostError&) {
    const PendingError pending;
    after();
    pending.restore();
    throw;
  }
  after();
}

}  // namespace tessora::host
