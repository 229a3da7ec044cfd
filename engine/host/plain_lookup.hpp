// Look-ups in plain containers, of which it is known that no script runs in them.
#pragma once

#include <optional>

#include "engine/host/call.hpp"

namespace tessora::host {

// The container behind a method that a script took from it: `owner.look = table.__getitem__`.
class PlainLookup {
 public:
  // Nothing unless the owner's attribute of this name is the `__getitem__` of a plain list or
  // dictionary, or the `get` of one with keys of plain types, and reading it runs no script.
  static std::optional<PlainLookup> find(Value owner, Value name);

  // What the method gives for this key; empty where it would raise.
  [[nodiscard]] Ref at(Py_ssize_t key) const;

 private:
  PlainLookup(Value container, bool gives_none) : container_(container), gives_none_(gives_none) {}

  Ref container_;
  bool gives_none_;
};

// The value of an int of one digit (less than 2**30 in size); false for everything else.
inline bool small_integer(PyObject* object, int& value) {
  if (!PyLong_CheckExact(object)) return false;
  auto* digits = reinterpret_cast<PyLongObject*>(object);
#if PY_VERSION_HEX >= 0x030C0000
  if (PyUnstable_Long_IsCompact(digits) == 0) return false;
  value = static_cast<int>(PyUnstable_Long_CompactValue(digits));
#else
  const Py_ssize_t size = Py_SIZE(object);
  if (size < -1 || size > 1) return false;
  value = static_cast<int>(size) * static_cast<int>(digits->ob_digit[0]);
#endif
  return true;
}

// Visits so many items of a plain list as machine integers, as long as they are such of less than
// 30 bits. Returns whether all were. The visit may not reach scripts.
template <class Visit>
bool each_small_integer(Value list, Py_ssize_t count, Visit visit) {
  if (!list.is_plain_list() || PyList_GET_SIZE(list.get()) < count) return false;
  for (Py_ssize_t index = 0; index < count; ++index) {
    int value = 0;
    if (!small_integer(PyList_GET_ITEM(list.get(), index), value)) return false;
    if (!visit(index, value)) return false;
  }
  return true;
}

// How many steps `range(count)` makes, at most as many as an index can count.
Py_ssize_t range_length(Value count);

// Appends the item so many times to a list, or to whatever stands in its place.
void append_times(Value list, Value item, Py_ssize_t times);

}  // namespace tessora::host
