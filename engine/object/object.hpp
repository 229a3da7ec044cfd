// Engine objects are Python objects: the C++ class is the object's memory.
#pragma once

#include "engine/host/number.hpp"

namespace tessora::host {

struct Object;
struct Attribute;

// An attribute of an engine object: an owned reference, null while unset. Python's member
// descriptors read and write it, so a script sees what `__slots__` would give. Only Object and the
// classes' own machinery look inside.
class Slot {
  friend struct Object;
  friend struct Attribute;
  friend class SlotCopy;
  template <class SlotType>
  friend class Reading;
  PyObject* object_;
};

// An attribute whose default value is made when somebody first looks at it. Until then it holds a
// LazyDefault. It is exposed through an accessor that makes the value on demand.
class LazySlot : public Slot {};

// What a value is made of that nobody has looked at: a default, shared by all objects that have it,
// or a colour or vector of one object alone.
struct LazyDefault : PyObject {
  using Make = Ref (*)(const LazyDefault& standing);
  Make make;
  std::uint32_t detail;
  double x, y;
};
inline PyTypeObject* lazy_default_type = nullptr;
Ref new_lazy_default(LazyDefault::Make make, std::uint32_t detail, double x = 0, double y = 0);
// A pygame.Color of 0xRRGGBBAA, and a pygame.math.Vector2.
Ref make_color(const LazyDefault& standing);
Ref make_vector(const LazyDefault& standing);

// An attribute to be read when its value is needed; see Term.
template <class SlotType>
class Reading {
 public:
  using IsTerm = void;
  Reading(const Object& owner, SlotType& slot) noexcept : owner_(owner), slot_(slot) {}
  // NOLINTBEGIN(google-explicit-constructor): it stands for the value
  operator Ref() const;
  operator Number() const { return value(); }
  // NOLINTEND(google-explicit-constructor)
  [[nodiscard]] Number value() const;

 private:
  const Object& owner_;
  SlotType& slot_;
};

template <class SlotType>
Ref argument(const Reading<SlotType>& reading) {
  return reading;
}

struct Object : PyObject {
  PyObject* own_attributes;  // what a script set beyond the class's attributes; made by Python
  PyObject* weak_references;
  bool properties_override;  // a script subclass replaces an attribute by a property

  // Reading gives an owned reference: a callback may replace the attribute while it is in use.
  // An unset attribute is Python's AttributeError.
  [[nodiscard]] Reading<const Slot> read(const Slot& slot) const { return {*this, slot}; }
  [[nodiscard]] Reading<LazySlot> read(LazySlot& slot) const { return {*this, slot}; }
  // Whether nobody has looked at or replaced the attribute since construction.
  [[nodiscard]] bool is_default(const LazySlot& slot) const noexcept {
    return slot.object_ != nullptr && Py_TYPE(slot.object_) == lazy_default_type &&
           !properties_override;
  }
  // Whether there is no value: not yet, or because a script deleted it.
  [[nodiscard]] bool is_unset(const Slot& slot) const noexcept {
    return slot.object_ == nullptr && (!properties_override || !is_covered(slot));
  }

  void write(Slot& slot, Value value) {
    ++clocks.state;
    if (properties_override) [[unlikely]]
      return write_slow(slot, value);
    PyObject* old = std::exchange(slot.object_, Ref(value).release());
    // Dropping the last reference may run a script's finaliser.
    if (old != nullptr && Py_REFCNT(old) == 1 && !PyFloat_CheckExact(old) &&
        !PyLong_CheckExact(old)) {
      ++clocks.script;
    }
    Py_XDECREF(old);
  }
  void write(Slot& slot, const Number& value) {
    const std::optional<double> plain = value.is_real() ? value.plain() : std::nullopt;
    if (!properties_override && plain && overwrite(slot, *plain)) {
      ++clocks.state;
      return;
    }
    write(slot, value.object());
  }
  template <Term T>
  void write(Slot& slot, const T& term) {
    if constexpr (std::convertible_to<T, Ref>) {
      write(slot, Ref(term));
    } else {
      write(slot, term.value());
    }
  }
  // A flag is no number.
  template <std::same_as<bool> Flag>
  void write(Slot& slot, Flag value) {
    write(slot, Value(value));
  }
  void write(Slot& slot, int value) { write(slot, integer(value)); }
  // Lets the attribute hold the very object that another one holds, which is set.
  void share(Slot& slot, const Slot& other) {
    if (!holds(slot, peek(other))) write(slot, Value(peek(other)));
  }
  // A colour, as 0xRRGGBBAA, or a vector that becomes an object when somebody looks at it.
  void write_color(LazySlot& slot, std::uint32_t color) {
    write_pending(slot, &make_color, color, 0.0, 0.0);
  }
  void write_vector(LazySlot& slot, double x, double y) {
    write_pending(slot, &make_vector, 0, x, y);
  }
  // What stands for it while nobody has looked.
  [[nodiscard]] bool holds_color(const LazySlot& slot, std::uint32_t& color) const noexcept {
    const LazyDefault* standing = pending(slot, &make_color);
    if (standing != nullptr) color = standing->detail;
    return standing != nullptr;
  }
  [[nodiscard]] bool holds_vector(const LazySlot& slot, double& x, double& y) const noexcept {
    const LazyDefault* standing = pending(slot, &make_vector);
    if (standing == nullptr) return false;
    x = standing->x;
    y = standing->y;
    return true;
  }
  // Stores a value derived from others without advancing the state clock.
  void write_derived(Slot& slot, double value) {
    if (properties_override) [[unlikely]]
      return write_slow(slot, real(value));
    if (overwrite(slot, value)) return;
    PyObject* old = std::exchange(slot.object_, real(value).release());
    Py_XDECREF(old);
  }

  // The flag tests: equality with true or false, inequality with none.
  [[nodiscard]] bool is_true(const Slot& slot) const {
    if (!properties_override && slot.object_ == Py_True) return true;
    if (!properties_override && slot.object_ == Py_False) return false;
    return Ref(read(slot)).equals_true();
  }
  [[nodiscard]] bool is_false(const Slot& slot) const {
    if (!properties_override && slot.object_ == Py_False) return true;
    if (!properties_override && slot.object_ == Py_True) return false;
    return Ref(read(slot)).equals_false();
  }
  [[nodiscard]] bool is_set(const Slot& slot) const {
    if (!properties_override && slot.object_ == Py_None) return false;
    return Ref(read(slot)).is_set();
  }

  // Looks that run no script: whether the attribute holds just this, and no property hides it.
  [[nodiscard]] bool holds(const Slot& slot, Value value) const noexcept {
    return !properties_override && slot.object_ == value.get();
  }
  [[nodiscard]] bool holds_real(const Slot& slot, double& value) const noexcept {
    if (properties_override || slot.object_ == nullptr || !PyFloat_CheckExact(slot.object_)) {
      return false;
    }
    value = PyFloat_AS_DOUBLE(slot.object_);
    return true;
  }
  // A float, or an int of less than 30 bits.
  [[nodiscard]] bool holds_number(const Slot& slot, double& value) const noexcept {
    return !properties_override && slot.object_ != nullptr && small_number(slot.object_, value);
  }
  [[nodiscard]] bool holds_empty_list(const Slot& slot) const noexcept {
    return !properties_override && slot.object_ != nullptr && PyList_CheckExact(slot.object_) &&
           PyList_GET_SIZE(slot.object_) == 0;
  }
  // The value without a new reference, for use before control leaves the engine; null if unset or
  // hidden by a property.
  [[nodiscard]] Value peek(const Slot& slot) const noexcept {
    return properties_override ? Value() : Value(slot.object_);
  }

  // Whether the instance carries an attribute of its own under this name.
  [[nodiscard]] bool carries(Value name) const {
    return own_attributes != nullptr && PyDict_GET_SIZE(own_attributes) != 0 && carries_slow(name);
  }

 private:
  template <class SlotType>
  friend class Reading;

  // A float that nobody else refers to takes another value without becoming another object; one
  // that already has the value stays.
  static bool overwrite(Slot& slot, double value) noexcept {
    if (slot.object_ == nullptr || !PyFloat_CheckExact(slot.object_)) return false;
    double& held = reinterpret_cast<PyFloatObject*>(slot.object_)->ob_fval;
    if (held == value && std::signbit(held) == std::signbit(value)) return true;
    if (Py_REFCNT(slot.object_) != 1) return false;
    held = value;
    return true;
  }
  [[nodiscard]] const LazyDefault* pending(const LazySlot& slot,
                                           LazyDefault::Make make) const noexcept {
    if (!is_default(slot)) return nullptr;
    const auto* standing = static_cast<const LazyDefault*>(slot.object_);
    return standing->make == make ? standing : nullptr;
  }
  void write_pending(LazySlot& slot, LazyDefault::Make make, std::uint32_t detail, double x,
                     double y);
  static void materialise(LazySlot& slot);
  // Whether a script's class stands between Python and the slot.
  [[nodiscard]] bool is_covered(const Slot& slot) const noexcept;
  [[nodiscard]] Ref read_slow(const Slot& slot) const;
  void write_slow(Slot& slot, Value value);
  [[nodiscard]] bool carries_slow(Value name) const;

  friend struct Attribute;
};

template <class SlotType>
Reading<SlotType>::operator Ref() const {
  if constexpr (std::is_same_v<SlotType, LazySlot>) {
    if (owner_.is_default(slot_)) Object::materialise(slot_);
  }
  if (owner_.properties_override || slot_.object_ == nullptr) [[unlikely]]
    return owner_.read_slow(slot_);
  return Value(slot_.object_);
}

template <class SlotType>
Number Reading<SlotType>::value() const {
  if constexpr (!std::is_same_v<SlotType, LazySlot>) {
    if (!owner_.properties_override && slot_.object_ != nullptr) [[likely]]
      return Value(slot_.object_);
  }
  return Ref(*this);
}

}  // namespace tessora::host
