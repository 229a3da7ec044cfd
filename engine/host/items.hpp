// Loops over the items of Python's containers.
#pragma once

#include "engine/host/call.hpp"

namespace tessora::host {

// The items of a list or tuple that nobody else changes, mostly a copy:
// for (Ref item : items(value.to_list())).
class Items {
 public:
  explicit Items(Ref sequence) noexcept : sequence_(std::move(sequence)) {}

  class Iterator {
   public:
    Iterator(PyObject* sequence, Py_ssize_t index) noexcept : sequence_(sequence), index_(index) {}
    Ref operator*() const { return Value(PySequence_Fast_GET_ITEM(sequence_, index_)); }
    Iterator& operator++() {
      ++index_;
      count_step();
      return *this;
    }
    // A list that shrinks all the same ends the loop.
    bool operator!=(const Iterator&) const noexcept {
      return index_ < PySequence_Fast_GET_SIZE(sequence_);
    }

   private:
    PyObject* sequence_;
    Py_ssize_t index_;
  };

  [[nodiscard]] Iterator begin() const noexcept { return {sequence_.get(), 0}; }
  [[nodiscard]] Iterator end() const noexcept { return {sequence_.get(), 0}; }
  [[nodiscard]] Py_ssize_t size() const noexcept {
    return PySequence_Fast_GET_SIZE(sequence_.get());
  }
  Ref operator[](Py_ssize_t index) const {
    return Value(PySequence_Fast_GET_ITEM(sequence_.get(), index));
  }

 private:
  Ref sequence_;
};

// The items as they are now: what the loop does to the container does not reach it.
inline Items items(Value container) {
  return Items(container.to_list());
}

// Whether the test says so of one of the items, as they are now.
template <class Test>
bool any_of(Value container, Test test) {
  bool found = false;
  for (Ref item : items(container)) found = found || test(item);
  return found;
}

template <class Test>
bool all_of(Value container, Test test) {
  return !any_of(container, [&](Value item) { return !test(item); });
}

// The items as a loop of a script's own meets them, when the container changes meanwhile.
template <class Visit>
void for_each(Value iterable, Visit visit) {
  Ref iterator = take(in_script([&] { return PyObject_GetIter(iterable.get()); }));
  auto next = [&] { return in_script([&] { return PyIter_Next(iterator.get()); }); };
  while (Ref item = Ref::steal(next())) visit(item);
  if (PyErr_Occurred() != nullptr) throw HostError();
}

struct Entry {
  Ref key;
  Ref value;
};

// The entries of a dictionary as they are now: for (auto [key, value] : entries(dict)).
class Entries {
 public:
  explicit Entries(Value dict) : pairs_(take(PyDict_Items(dict.get()))) {}

  class Iterator {
   public:
    explicit Iterator(Items::Iterator place) noexcept : place_(place) {}
    Entry operator*() const {
      Ref pair = *place_;
      return {Value(PyTuple_GET_ITEM(pair.get(), 0)), Value(PyTuple_GET_ITEM(pair.get(), 1))};
    }
    Iterator& operator++() {
      ++place_;
      return *this;
    }
    bool operator!=(const Iterator& other) const noexcept { return place_ != other.place_; }

   private:
    Items::Iterator place_;
  };

  [[nodiscard]] Iterator begin() const noexcept { return Iterator(pairs_.begin()); }
  [[nodiscard]] Iterator end() const noexcept { return Iterator(pairs_.end()); }
  [[nodiscard]] Py_ssize_t size() const noexcept { return pairs_.size(); }

 private:
  Items pairs_;
};

inline Entries entries(Value dict) {
  return Entries(dict);
}

}  // namespace tessora::host
