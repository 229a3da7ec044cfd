// Walks over lists that callbacks may change.
#pragma once

#include <memory>

#include "engine/object/object.hpp"

namespace tessora::host {

// Visits each entry that was in the list when the walk began and is still there when its turn
// comes, once, in order; entries added meanwhile wait for the next walk. The list is an attribute,
// so replacing it counts as well as changing it.
class ListWalk {
 public:
  enum class Direction : std::uint8_t { kForward, kReverse };

  ListWalk(const Object& owner, const Slot& list, Direction direction = Direction::kForward);
  // Visits only these of the list's entries, which a plain list of the caller's holds.
  ListWalk(const Object& owner, const Slot& list, Direction direction, Value entries);
  ~ListWalk();
  ListWalk(const ListWalk&) = delete;
  ListWalk& operator=(const ListWalk&) = delete;

  // The next entry, held until the walk ends, or nothing.
  Value next() {
    while (position_ < count_) {
      count_step();
      PyObject* entry = items_[position_++];
      if (clocks.state == state_ || still_there(entry)) {
        ++cursor_;
        return entry;
      }
    }
    return {};
  }

 private:
  static constexpr Py_ssize_t kInline = 6;

  void begin(Value now);
  bool still_there(Value entry);

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

// Calls `visit` for every entry; an empty list costs nothing.
template <class Visit>
void walk(const Object& owner, const Slot& list, Visit visit) {
  if (owner.holds_empty_list(list)) return;
  ListWalk steps(owner, list);
  while (Value entry = steps.next()) visit(entry);
}

namespace detail {
// Drops the entries from this place on.
void cut_list(Value list, Py_ssize_t from);
}  // namespace detail

// Takes those entries out of a plain list for which `goes` holds, which runs no script; the others
// keep their order. Returns how many went.
template <class Test>
Py_ssize_t erase_if(Value list, Test goes) {
  const Py_ssize_t size = PyList_GET_SIZE(list.get());
  PyObject** entries = PySequence_Fast_ITEMS(list.get());
  Py_ssize_t kept = 0;
  for (Py_ssize_t place = 0; place < size; ++place) {
    if (!goes(Value(entries[place]))) std::swap(entries[kept++], entries[place]);
  }
  if (kept < size) detail::cut_list(list, kept);
  return size - kept;
}

// The entries of a plain list that are not in another one, by identity, as a new list.
Ref without(Value list, Value others);

// Those entries of another list that are in a plain one, by identity, as a new list.
Ref among(Value list, Value wanted);

// Takes each entry of another list out of a plain list, once, by identity. Returns how many went.
Py_ssize_t erase_each(Value list, Value leaving);

}  // namespace tessora::host
