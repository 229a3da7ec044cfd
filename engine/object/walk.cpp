#include "engine/object/walk.hpp"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "engine/host/items.hpp"

namespace tessora::host {

ListWalk::ListWalk(const Object& owner, const Slot& list, Direction direction)
    : owner_(owner), list_(list), direction_(direction), state_(clocks.state) {
  Ref now = owner.read(list);
  begin(now.is_plain_list() ? now : now.to_list());
}

ListWalk::ListWalk(const Object& owner, const Slot& list, Direction direction, Value entries)
    : owner_(owner), list_(list), direction_(direction), state_(clocks.state) {
  begin(entries);
}

void ListWalk::begin(Value now) {
  count_ = PyList_GET_SIZE(now.get());
  if (count_ > kInline) {
    many_.reset(new PyObject*[static_cast<std::size_t>(count_)]);
    items_ = many_.get();
  }
  PyObject** entries = PySequence_Fast_ITEMS(now.get());
  if (direction_ == Direction::kForward) {
    std::copy_n(entries, count_, items_);
  } else {
    std::reverse_copy(entries, entries + count_, items_);
  }
  for (Py_ssize_t index = 0; index < count_; ++index) Py_INCREF(items_[index]);
}

ListWalk::~ListWalk() {
  for (Py_ssize_t index = 0; index < count_; ++index) Py_DECREF(items_[index]);
}

bool ListWalk::still_there(Value entry) {
  Ref now = owner_.read(list_);
  if (!now.is_plain_list()) return now.contains(entry);
  Py_ssize_t size = PyList_GET_SIZE(now.get());
  PyObject** entries = PySequence_Fast_ITEMS(now.get());
  auto at = [&](Py_ssize_t place) {
    return entries[direction_ == Direction::kForward ? place : size - 1 - place];
  };
  cursor_ = std::min(cursor_, size);
  // In reverse, places count from the end. The entry is mostly at or next to where it was.
  for (Py_ssize_t distance = 0; distance <= size; ++distance) {
    for (Py_ssize_t place : {cursor_ - distance, cursor_ + distance}) {
      if (place < 0 || place >= size || at(place) != entry.get()) continue;
      cursor_ = place;
      return true;
    }
  }
  return false;
}

void detail::cut_list(Value list, Py_ssize_t from) {
  // Who goes may have a finaliser.
  check(in_script(
      [&] { return PyList_SetSlice(list.get(), from, PyList_GET_SIZE(list.get()), nullptr); }));
}

namespace {

// Goes through entries beside a second list, which mostly stands in the same order.
class Beside {
 public:
  explicit Beside(Value list) : list_(Ref(list)) {}
  // Whether the entry is the next one of the second list.
  bool meets(Value entry) {
    if (is_through() || !entry.is(list_[met_])) return false;
    ++met_;
    return true;
  }
  [[nodiscard]] bool is_through() const { return met_ == list_.size(); }
  // How often the others of the second list stand there.
  [[nodiscard]] std::unordered_map<PyObject*, Py_ssize_t> others() const {
    std::unordered_map<PyObject*, Py_ssize_t> counts;
    for (Py_ssize_t index = met_; index < list_.size(); ++index) ++counts[list_[index].get()];
    return counts;
  }

 private:
  Items list_;
  Py_ssize_t met_ = 0;
};

bool have_common(const Items& entries, const Items& others) {
  std::unordered_set<PyObject*> known;
  for (Ref entry : entries) known.insert(entry.get());
  bool found = false;
  for (Ref entry : others) found = found || known.contains(entry.get());
  return found;
}

}  // namespace

Ref without(Value list, Value others) {
  const Items entries{Ref(list)};
  const Items left_out{Ref(others)};
  Ref rest = host::list();
  Beside beside(others);
  for (Ref entry : entries) {
    if (!beside.meets(entry)) rest.append(entry);
  }
  if (PyList_GET_SIZE(rest.get()) == 0 || !have_common(Items(rest), left_out)) return rest;
  std::unordered_set<PyObject*> known;
  for (Ref entry : left_out) known.insert(entry.get());
  rest = host::list();
  for (Ref entry : entries) {
    if (!known.contains(entry.get())) rest.append(entry);
  }
  return rest;
}

Ref among(Value list, Value wanted) {
  Ref found = host::list();
  Beside beside(wanted);
  for (Ref entry : Items(Ref(list))) {
    if (beside.meets(entry)) found.append(entry);
  }
  auto others = beside.others();
  if (others.empty()) return found;
  for (Ref entry : Items(Ref(list))) {
    auto other = others.find(entry.get());
    if (other != others.end() && other->second-- > 0) found.append(entry);
  }
  return found;
}

Py_ssize_t erase_each(Value list, Value leaving) {
  Beside beside(leaving);
  Py_ssize_t gone = erase_if(list, [&](Value entry) { return beside.meets(entry); });
  auto others = beside.others();
  if (others.empty()) return gone;
  return gone + erase_if(list, [&](Value entry) {
           auto other = others.find(entry.get());
           return other != others.end() && other->second-- > 0;
         });
}

}  // namespace tessora::host
