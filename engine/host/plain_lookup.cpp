#include "engine/host/plain_lookup.hpp"

#include "engine/host/names.hpp"

namespace tessora::host {

namespace {

// The function in C behind a plain container's method.
PyCFunction method_of(Value container, Value name) {
  Ref bound = take(PyObject_GetAttr(container.get(), name.get()));
  return PyCFunction_Check(bound.get()) ? PyCFunction_GET_FUNCTION(bound.get()) : nullptr;
}

struct Known {
  PyCFunction list_item = method_of(take(PyList_New(0)), "__getitem__"_name);
  PyCFunction dict_item = method_of(dictionary(), "__getitem__"_name);
  PyCFunction dict_get = method_of(dictionary(), "get"_name);
};

// The attribute, if Python finds it without running a script; else empty.
Ref quiet_attr(Value owner, Value name) {
  if (owner.type()->tp_getattro != PyObject_GenericGetAttr) return {};
  PyObject* found = _PyType_Lookup(owner.type(), name.get());
  if (found != nullptr && Py_TYPE(found)->tp_descr_get != nullptr) return {};
  PyObject* result = nullptr;
  check(optional_attr(owner.get(), name.get(), &result));
  return Ref::steal(result);
}

bool has_plain_keys(Value dict) {
  Py_ssize_t position = 0;
  PyObject* key = nullptr;
  while (PyDict_Next(dict.get(), &position, &key, nullptr) != 0) {
    if (!PyLong_CheckExact(key) && !PyUnicode_CheckExact(key)) return false;
  }
  return true;
}

}  // namespace

std::optional<PlainLookup> PlainLookup::find(Value owner, Value name) {
  static const Known known;
  Ref method = quiet_attr(owner, name);
  if (!method || !PyCFunction_Check(method.get())) return std::nullopt;
  const PyCFunction function = PyCFunction_GET_FUNCTION(method.get());
  Ref container = Value(PyCFunction_GET_SELF(method.get()));
  if (!container || function == nullptr) return std::nullopt;
  if (container.is_plain_list() && function == known.list_item) {
    return PlainLookup(container, false);
  }
  if (!container.is_plain_dict() || !has_plain_keys(container)) return std::nullopt;
  if (function == known.dict_item) return PlainLookup(container, false);
  if (function == known.dict_get) return PlainLookup(container, true);
  return std::nullopt;
}

Ref PlainLookup::at(Py_ssize_t key) const {
  if (container_.is_plain_list()) {
    if (key < 0 || key >= container_.length()) return {};
    return container_.item(key);
  }
  Ref found = container_.find_item(integer(key));
  return found || !gives_none_ ? found : none();
}

Py_ssize_t range_length(Value count) {
  double small = 0.0;
  if (count.is_plain_integer() && small_number(count.get(), small)) {
    return small < 0.0 ? 0 : static_cast<Py_ssize_t>(small);
  }
  Ref whole = take(in_script([&] { return PyNumber_Index(count.get()); }));
  // A longer range is as good as endless: it is cut to what an index holds.
  const Py_ssize_t length = PyNumber_AsSsize_t(whole.get(), nullptr);
  if (length == -1 && PyErr_Occurred() != nullptr) throw HostError();
  return length < 0 ? 0 : length;
}

void append_times(Value list, Value item, Py_ssize_t times) {
  if (list.is_plain_list()) {
    Ref one = take(PyList_New(1));
    PyList_SET_ITEM(one.get(), 0, Ref(item).release());
    Ref more = take(PySequence_Repeat(one.get(), times));
    const Py_ssize_t end = list.length();
    check(PyList_SetSlice(list.get(), end, end, more.get()));
    ++clocks.state;
    return;
  }
  for (Py_ssize_t step = 0; step < times; ++step) {
    count_step();
    list.append(item);
  }
}

}  // namespace tessora::host
