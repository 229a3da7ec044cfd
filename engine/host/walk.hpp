// Walks over lists that callbacks may change.
#pragma once

#include <memory>

#include "engine/host/object.hpp"

namespace tessora::host {

// Visits each entry that was in the list when the walk began and is still there when its turn
// comes, once, in order; entries added meanwhile wait for the next walk. The list is an attribute,
// so replacing it counts as well as changing it.
class ListWalk {
 public:
  enum class Direction : std::uint8_t { kForward, kReverse };

  ListWalk(const Object& owner, const Slot& list, Direction direction = Direction::kForward);
  ~ListWalk();
  ListWalk(const ListWalk&) = delete;
  ListWalk& operator=(const ListWalk&) = delete;

  // The next entry, held until the walk ends, or null.
  PyObject* next() {
    while (position_ < count_) {
      PyObject* entry = items_[position_++];
      if (clocks.state == state_ || still_there(entry)) {
        ++cursor_;
        return entry;
      }
    }
    return nullptr;
  }

 private:
  static constexpr Py_ssize_t kInline = 6;

  bool still_there(PyObject* entry);

  const Object& owner_;
  const Slot& list_;
  Direction direction_;
  Py_ssize_t count_ = 0;
  Py_ssize_t position_ = 0;
  Py_ssize_t cursor_ = 0;  // where the next entry stands in the list as it is now
  std::uint64_t state_;
  PyObject* few_[kInline];
  std::unique_ptr<PyObject*[]> many_;
  PyObject** items_ = few_;
};

}  // namespace tessora::host
