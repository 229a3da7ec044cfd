#include "engine/host/walk.hpp"

#include <algorithm>

namespace tessora::host {

ListWalk::ListWalk(const Object& owner, const Slot& list, Direction direction)
    : owner_(owner), list_(list), direction_(direction), state_(clocks.state) {
  Ref now = owner.read(list);
  if (!PyList_CheckExact(now.get())) {
    script_ran();
    now = take(PySequence_List(now.get()));
    script_ran();
  }
  count_ = PyList_GET_SIZE(now.get());
  if (count_ > kInline) {
    many_.reset(new PyObject*[static_cast<std::size_t>(count_)]);
    items_ = many_.get();
  }
  PyObject** entries = PySequence_Fast_ITEMS(now.get());
  if (direction == Direction::kForward) {
    std::copy_n(entries, count_, items_);
  } else {
    std::reverse_copy(entries, entries + count_, items_);
  }
  for (Py_ssize_t index = 0; index < count_; ++index) Py_INCREF(items_[index]);
}

ListWalk::~ListWalk() {
  for (Py_ssize_t index = 0; index < count_; ++index) Py_DECREF(items_[index]);
}

bool ListWalk::still_there(PyObject* entry) {
  Ref now = owner_.read(list_);
  if (!PyList_CheckExact(now.get())) return check(PySequence_Contains(now.get(), entry)) != 0;
  Py_ssize_t size = PyList_GET_SIZE(now.get());
  PyObject** entries = PySequence_Fast_ITEMS(now.get());
  auto at = [&](Py_ssize_t place) {
    return entries[direction_ == Direction::kForward ? place : size - 1 - place];
  };
  // In reverse, places count from the end. The entry is mostly at or next to where it was.
  for (Py_ssize_t distance = 0; distance <= std::max(size, cursor_); ++distance) {
    for (Py_ssize_t place : {cursor_ - distance, cursor_ + distance}) {
      if (place < 0 || place >= size || at(place) != entry) continue;
      cursor_ = place;
      return true;
    }
  }
  return false;
}

}  // namespace tessora::host
