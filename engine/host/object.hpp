// Engine objects are host objects: the C++ class is the object's memory.
#pragma once

#include <cstdint>

#include "engine/host/number.hpp"

namespace tessora::host {

// An attribute of an engine object: an owned reference, null while unset. The host's member
// descriptors read and write it, so a script sees what `__slots__` would give.
struct Slot {
  PyObject* object;
};

// An attribute whose default value is made when somebody first looks at it. Until then it holds a
// LazyDefault. It is exposed through an accessor that makes the value on demand.
struct LazySlot : Slot {};

struct LazyDefault : PyObject {
  PyObject* (*make)();
};

// The shared object standing for "what `make` returns, when needed".
PyObject* lazy_default(PyObject* (*make)());

template <PyObject* (*Make)()>
PyObject* lazy_default() {
  static PyObject* const instance = lazy_default(Make);
  return instance;
}

struct Object : PyObject {
  PyObject* own_attributes;  // what a script set beyond the class's attributes; made by the host
  PyObject* weak_references;
  bool properties_override;  // a script subclass replaces an attribute by a property

  // Reading gives an owned reference: a callback may replace the attribute while it is in use.
  // An unset attribute is the host's AttributeError.
  [[nodiscard]] Ref read(const Slot& slot) const {
    if (properties_override || slot.object == nullptr) [[unlikely]]
      return read_slow(slot);
    return Ref::share(slot.object);
  }
  [[nodiscard]] Ref read(LazySlot& slot) const {
    if (is_default(slot)) materialise(slot);
    return read(static_cast<const Slot&>(slot));
  }
  // Whether nobody has looked at or replaced the attribute since construction.
  [[nodiscard]] bool is_default(const LazySlot& slot) const noexcept;

  void write(Slot& slot, PyObject* value) {
    ++clocks.state;
    if (properties_override) [[unlikely]]
      return write_slow(slot, value);
    PyObject* old = slot.object;
    Py_INCREF(value);
    slot.object = value;
    // Dropping the last reference may run a script's finaliser.
    if (old != nullptr && Py_REFCNT(old) == 1 && !PyFloat_CheckExact(old)) ++clocks.script;
    Py_XDECREF(old);
  }
  void write(Slot& slot, const Ref& value) { write(slot, value.get()); }
  void write(Slot& slot, const Number& value) {
    if (!properties_override && value.is_real() && overwrite(slot, value.plain())) {
      ++clocks.state;
      return;
    }
    write(slot, value.object());
  }
  // Stores a value derived from others without advancing the state clock.
  static void write_derived(Slot& slot, double value) {
    if (overwrite(slot, value)) return;
    PyObject* old = std::exchange(slot.object, real(value).release());
    Py_XDECREF(old);
  }
  void write(Slot& slot, bool value) { write(slot, value ? Py_True : Py_False); }

  [[nodiscard]] Number number(const Slot& slot) const {
    if (properties_override || slot.object == nullptr) [[unlikely]] {
      return Number(read_slow(slot).get());
    }
    return Number(slot.object);
  }
  // The flag tests: equality with true or false, inequality with none.
  [[nodiscard]] bool is_true(const Slot& slot) const {
    if (!properties_override && slot.object == Py_True) return true;
    if (!properties_override && slot.object == Py_False) return false;
    return equals_true(read(slot));
  }
  [[nodiscard]] bool is_false(const Slot& slot) const {
    if (!properties_override && slot.object == Py_False) return true;
    if (!properties_override && slot.object == Py_True) return false;
    return equals_false(read(slot));
  }
  [[nodiscard]] bool is_set(const Slot& slot) const {
    if (!properties_override && slot.object == Py_None) return false;
    return host::is_set(read(slot));
  }

  // Whether the instance carries an attribute of its own under this name.
  [[nodiscard]] bool carries(PyObject* name) const {
    if (own_attributes == nullptr || PyDict_GET_SIZE(own_attributes) == 0) return false;
    if (PyDict_GetItemWithError(own_attributes, name) != nullptr) return true;
    if (PyErr_Occurred() != nullptr) throw HostError();
    return false;
  }

  static void materialise(LazySlot& slot);

 private:
  // A float that nobody else refers to takes another value without becoming another object; one
  // that already has the value stays.
  static bool overwrite(Slot& slot, double value) noexcept {
    if (slot.object == nullptr || !PyFloat_CheckExact(slot.object)) return false;
    double& held = reinterpret_cast<PyFloatObject*>(slot.object)->ob_fval;
    if (held == value && std::signbit(held) == std::signbit(value)) return true;
    if (Py_REFCNT(slot.object) != 1) return false;
    held = value;
    return true;
  }
  [[nodiscard]] Ref read_slow(const Slot& slot) const;
  void write_slow(Slot& slot, PyObject* value);
};

// The type of LazyDefault objects; set when the module is made.
inline PyTypeObject* lazy_default_type = nullptr;

inline bool Object::is_default(const LazySlot& slot) const noexcept {
  return slot.object != nullptr && Py_TYPE(slot.object) == lazy_default_type &&
         !properties_override;
}

}  // namespace tessora::host
