// Python values: borrowed (Value), owned (Ref), and the exception that a failed call travels as.
//
// Who holds what: the caller holds the arguments of a call until it returns. The boundary does so
// for calls from Python, a message for calls of the engine's own. A function that takes a Value
// may therefore use it to its end, whatever scripts do meanwhile, and makes a Ref of it only to
// keep it longer. What is read from attributes, containers or calls comes as a Ref. A Value is a
// parameter, never a local variable.
#pragma once

#include <concepts>
#include <exception>
#include <string_view>
#include <utility>

#include "engine/host/python.hpp"

namespace tessora::host {

// A call into Python failed: the interpreter's error indicator is set and says why.
struct HostError final : std::exception {
  [[nodiscard]] const char* what() const noexcept override { return "host error"; }
};

class Ref;

class Value {
 public:
  constexpr Value() noexcept = default;
  // NOLINTBEGIN(google-explicit-constructor): whatever is a Python value can be handed over
  constexpr Value(PyObject* object) noexcept : object_(object) {}
  Value(const PyObject& object) noexcept : object_(const_cast<PyObject*>(&object)) {}
  // A pointer is no flag.
  template <std::same_as<bool> Flag>
  Value(Flag value) noexcept : object_(value ? Py_True : Py_False) {}
  Value(std::nullptr_t) noexcept : object_(Py_None) {}
  // NOLINTEND(google-explicit-constructor)
  explicit Value(PyTypeObject* type) noexcept : object_(reinterpret_cast<PyObject*>(type)) {}

  [[nodiscard]] PyObject* get() const noexcept { return object_; }
  // Whether there is a value at all; None is one.
  explicit operator bool() const noexcept { return object_ != nullptr; }

  [[nodiscard]] bool is(Value other) const noexcept { return object_ == other.object_; }
  [[nodiscard]] bool is_none() const noexcept { return object_ == Py_None; }
  [[nodiscard]] bool is_text() const noexcept { return PyUnicode_Check(object_); }
  [[nodiscard]] bool is_integer() const noexcept { return PyLong_Check(object_); }
  [[nodiscard]] bool is_dict() const noexcept { return PyDict_Check(object_); }
  [[nodiscard]] bool is_list() const noexcept { return PyList_Check(object_); }
  [[nodiscard]] bool is_tuple() const noexcept { return PyTuple_Check(object_); }
  [[nodiscard]] bool is_iterator() const noexcept { return PyIter_Check(object_) != 0; }
  [[nodiscard]] bool is_sequence() const noexcept { return PySequence_Check(object_) != 0; }
  [[nodiscard]] bool is_plain_text() const noexcept { return PyUnicode_CheckExact(object_); }
  [[nodiscard]] bool is_plain_integer() const noexcept { return PyLong_CheckExact(object_); }
  [[nodiscard]] bool is_plain_real() const noexcept { return PyFloat_CheckExact(object_); }
  [[nodiscard]] bool is_plain_dict() const noexcept { return PyDict_CheckExact(object_); }
  [[nodiscard]] bool is_plain_list() const noexcept { return PyList_CheckExact(object_); }
  [[nodiscard]] bool is_plain_tuple() const noexcept { return PyTuple_CheckExact(object_); }
  [[nodiscard]] bool is_flag() const noexcept { return PyBool_Check(object_); }
  // A function written in C, which no script has replaced.
  [[nodiscard]] bool is_native_function() const noexcept { return PyCFunction_Check(object_); }
  [[nodiscard]] PyTypeObject* type() const noexcept { return Py_TYPE(object_); }
  // Of just this type; of it or of one derived from it, as the type itself says.
  [[nodiscard]] bool is_exactly(Value wanted) const noexcept {
    return reinterpret_cast<PyObject*>(type()) == wanted.object_;
  }
  [[nodiscard]] bool is_kind_of(PyTypeObject* wanted) const noexcept {
    return PyObject_TypeCheck(object_, wanted);
  }
  [[nodiscard]] bool is_kind_of(Value wanted) const noexcept {
    return is_kind_of(reinterpret_cast<PyTypeObject*>(wanted.object_));
  }
  // Of a type that is written in C, whose methods no script can replace.
  [[nodiscard]] bool has_native_type() const noexcept {
    return !static_cast<bool>(PyType_HasFeature(type(), Py_TPFLAGS_HEAPTYPE));
  }
  // Only to be compared: it says nothing once the value is gone.
  [[nodiscard]] const void* identity() const noexcept { return object_; }
  // Whether its comparisons run no script.
  [[nodiscard]] bool compares_natively() const noexcept;

  [[nodiscard]] bool is_true() const;
  // The flag tests of the interface: `value == True`, `value == False`, `value != None`.
  [[nodiscard]] bool equals_true() const;
  [[nodiscard]] bool equals_false() const;
  [[nodiscard]] bool is_set() const;
  [[nodiscard]] bool equals(Value other) const;
  // A text with these characters; an object of another type is none.
  [[nodiscard]] bool is_text(Value name) const;

  [[nodiscard]] Ref attr(Value name) const;
  // The attribute, or an empty reference when there is none of that name.
  [[nodiscard]] Ref find_attr(Value name) const;
  void set_attr(Value name, Value value) const;

  // Item `key` of a mapping or sequence; Python's error when there is none.
  [[nodiscard]] Ref item(Value key) const;
  [[nodiscard]] Ref item(Py_ssize_t index) const;
  // The item, or an empty reference when `key in` says that there is none.
  [[nodiscard]] Ref find_item(Value key) const;
  void set_item(Value key, Value value) const;
  void delete_item(Value key) const;
  [[nodiscard]] bool contains(Value item) const;
  [[nodiscard]] Py_ssize_t length() const;
  // Appends to a list, or to whatever stands in its place.
  void append(Value item) const;
  // A new list of the items.
  [[nodiscard]] Ref to_list() const;
  // The part of a sequence from one place up to another.
  [[nodiscard]] Ref slice(Py_ssize_t from, Py_ssize_t to) const;
  // The content of a bytes object.
  [[nodiscard]] std::string_view bytes() const;

  template <class... Args>
  Ref operator()(const Args&... args) const;
  // Calls the method of that name.
  template <class... Args>
  Ref call(Value name, const Args&... args) const;
  // Calls the method of that name, which takes nothing, if there is one.
  void call_if_any(Value name) const;

 protected:
  PyObject* object_ = nullptr;
};

// An owned reference; empty, or a value.
class Ref : public Value {
 public:
  Ref() noexcept = default;
  // NOLINTBEGIN(google-explicit-constructor): keeping a value is sharing it
  Ref(Value value) noexcept : Value(value) { Py_XINCREF(object_); }
  Ref(const PyObject& object) noexcept : Ref(Value(object)) {}
  // NOLINTEND(google-explicit-constructor)
  Ref(const Ref& other) noexcept : Value(other) { Py_XINCREF(object_); }
  Ref(Ref&& other) noexcept : Value(std::exchange(other.object_, nullptr)) {}
  Ref& operator=(const Ref& other) noexcept {
    Ref copy(other);
    return *this = std::move(copy);
  }
  Ref& operator=(Ref&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Ref() {
    if (object_ == nullptr) return;
    if (Py_REFCNT(object_) == 1 && !PyFloat_CheckExact(object_)) {
      drop_last(object_);
    } else {
      Py_DECREF(object_);
    }
  }

  // Takes over a reference that the caller owns; null stays empty.
  static Ref steal(PyObject* object) noexcept {
    Ref result;
    result.object_ = object;
    return result;
  }
  PyObject* release() noexcept { return std::exchange(object_, nullptr); }

 private:
  // Gives up the last reference, whose finaliser may run a script. Not noexcept: a thread that ends
  // in the finaliser must meet what stops it before it meets the destructor.
  static void drop_last(PyObject* object);
};

// A value that lives as long as the process, for static objects: these end after the interpreter.
class Lasting : public Value {
 public:
  explicit Lasting(Ref value) noexcept : Value(value.release()) {}
};

// The result of a call that returns a new reference, or null with an error set.
inline Ref take(PyObject* object) {
  if (object == nullptr) throw HostError();
  return Ref::steal(object);
}

template <class Status>
Status check(Status status) {
  if (status < 0) throw HostError();
  return status;
}

inline Ref none() noexcept {
  return Value(nullptr);
}
inline Ref boolean(bool value) noexcept {
  return Value(value);
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
inline Ref dictionary() {
  return take(PyDict_New());
}

// Raises an error of this type; the message has PyErr_Format's placeholders, `%R` and `%S` for
// values.
template <class... Args>
[[noreturn]] void raise(PyObject* type, const char* message, const Args&... args) {
  [[maybe_unused]] auto plain = [](const auto& arg) {
    if constexpr (std::is_base_of_v<Value, std::decay_t<decltype(arg)>>) {
      return arg.get();
    } else {
      return arg;
    }
  };
  PyErr_Format(type, message, plain(args)...);
  throw HostError();
}

// Runs `body` and turns whatever it throws into the interpreter's error indicator.
// This is the only place where C++ exceptions meet Python.
template <class Result, class Body>
Result guarded(Result failure, Body&& body) noexcept {
  try {
    return body();
  } catch (const HostError&) {
    if (PyErr_Occurred() == nullptr) {
      PyErr_SetString(PyExc_SystemError, "a call failed without an error");
    }
  } catch (const std::bad_alloc&) {
    PyErr_NoMemory();
  } catch (const std::exception& error) {
    PyErr_SetString(PyExc_RuntimeError, error.what());
  }
  return failure;
}

}  // namespace tessora::host
