// What a row of attributes holds, to be compared with later.
#pragma once

#include <algorithm>
#include <vector>

#include "engine/object/object.hpp"

namespace tessora::host {

// Attributes that stand one after another in an object. Numbers, texts and flags are the same as
// long as the objects are: the copy shares them, so that none is overwritten in place.
class SlotCopy {
 public:
  SlotCopy(const Slot& first, const Slot& last) : objects_(objects(first), objects(last) + 1) {
    for (PyObject* object : objects_) Py_XINCREF(object);
  }
  ~SlotCopy() {
    for (PyObject* object : objects_) Py_XDECREF(object);
  }
  SlotCopy(const SlotCopy&) = delete;
  SlotCopy& operator=(const SlotCopy&) = delete;

  // Whether the row that begins here holds the same objects.
  [[nodiscard]] bool matches(const Slot& first) const noexcept {
    return std::equal(objects_.begin(), objects_.end(), objects(first));
  }

 private:
  static PyObject* const* objects(const Slot& slot) noexcept { return &slot.object_; }
  std::vector<PyObject*> objects_;
};

}  // namespace tessora::host
