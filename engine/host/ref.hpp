// Owned references and the exception that a failed host call travels as.
#pragma once

#include <exception>
#include <utility>

#include "engine/host/python.hpp"

namespace tessora::host {

// A host call failed: the error indicator of the interpreter is set and says why.
struct HostError final : std::exception {
  [[nodiscard]] const char* what() const noexcept override { return "host error"; }
};

class Ref {
 public:
  Ref() = default;
  Ref(const Ref& other) noexcept : object_(other.object_) { Py_XINCREF(object_); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Ref& operator=(const Ref& other) noexcept {
    Ref copy(other);
    return *this = std::move(copy);
  }
  Ref& operator=(Ref&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Ref() { Py_XDECREF(object_); }

  // Takes over a reference that the caller owns; null stays null.
  static Ref steal(PyObject* object) noexcept { return Ref(object); }
  static Ref share(PyObject* object) noexcept {
    Py_XINCREF(object);
    return Ref(object);
  }

  [[nodiscard]] PyObject* get() const noexcept { return object_; }
  PyObject* release() noexcept { return std::exchange(object_, nullptr); }
  explicit operator bool() const noexcept { return object_ != nullptr; }

 private:
  explicit Ref(PyObject* object) noexcept : object_(object) {}
  PyObject* object_ = nullptr;
};

// The result of a host call that returns a new reference, or null with an error set.
inline Ref take(PyObject* object) {
  if (object == nullptr) throw HostError();
  return Ref::steal(object);
}

inline int check(int status) {
  if (status < 0) throw HostError();
  return status;
}

inline Py_ssize_t check(Py_ssize_t status) {
  if (status < 0) throw HostError();
  return status;
}

inline PyObject* raw(PyObject* object) noexcept {
  return object;
}
inline PyObject* raw(const Ref& ref) noexcept {
  return ref.get();
}

inline Ref none() noexcept {
  return Ref::share(Py_None);
}
inline Ref boolean(bool value) noexcept {
  return Ref::share(value ? Py_True : Py_False);
}
inline Ref integer(long long value) {
  return take(PyLong_FromLongLong(value));
}
inline Ref real(double value) {
  return take(PyFloat_FromDouble(value));
}
inline Ref text(const char* value) {
  return take(PyUnicode_FromString(value));
}

template <class... Items>
Ref tuple(const Items&... items) {
  return take(PyTuple_Pack(static_cast<Py_ssize_t>(sizeof...(Items)), raw(items)...));
}

template <class... Items>
Ref list(const Items&... items) {
  Ref result = take(PyList_New(static_cast<Py_ssize_t>(sizeof...(Items))));
  Py_ssize_t index = 0;
  (PyList_SET_ITEM(result.get(), index++, Ref::share(raw(items)).release()), ...);
  return result;
}

// Raises `type` with `message` in the host.
[[noreturn]] inline void raise(PyObject* type, const char* message) {
  PyErr_SetString(type, message);
  throw HostError();
}

// Runs `body` and turns whatever it throws into the host's error indicator.
// This is the only place where C++ exceptions meet the host.
template <class Result, class Body>
Result guarded(Result failure, Body&& body) noexcept {
  try {
    return body();
  } catch (const HostError&) {
    if (PyErr_Occurred() == nullptr) {
      PyErr_SetString(PyExc_SystemError, "a host call failed without an error");
    }
  } catch (const std::bad_alloc&) {
    PyErr_NoMemory();
  } catch (const std::exception& error) {
    PyErr_SetString(PyExc_RuntimeError, error.what());
  }
  return failure;
}

}  // namespace tessora::host
