#include "engine/host/call.hpp"

#include <chrono>
#include <thread>

namespace tessora::host {

namespace {

bool is_plain_container(PyObject* container) noexcept {
  return PyDict_CheckExact(container) || PyList_CheckExact(container) ||
         PyTuple_CheckExact(container);
}

// The item of a list or tuple, or an empty reference where Python has to look.
Ref quick_item(Value container, Py_ssize_t index) noexcept {
  if (index < 0 || !(container.is_plain_list() || container.is_plain_tuple())) return {};
  PyObject* items = container.get();
  if (index >= PySequence_Fast_GET_SIZE(items)) return {};
  return Value(PySequence_Fast_GET_ITEM(items, index));
}

bool is_plain_key(PyObject* key) noexcept {
  return PyUnicode_CheckExact(key) || PyLong_CheckExact(key);
}

bool rich_compare(PyObject* left, PyObject* right, int operation) {
  auto body = [&] { return PyObject_RichCompare(left, right, operation); };
  // Either side may be asked.
  const bool is_native = Value(left).compares_natively() && Value(right).compares_natively();
  Ref result = take(is_native ? in_library(body) : in_script(body));
  return result.is_true();
}

bool is_method_descriptor(PyObject* found) noexcept {
  return static_cast<bool>(PyType_HasFeature(Py_TYPE(found), Py_TPFLAGS_METHOD_DESCRIPTOR));
}

}  // namespace

PyObject* call_array(PyObject* callable, PyObject* const* args, std::size_t count,
                     PyObject* kwnames) {
  return vectorcall(callable, args, count | PY_VECTORCALL_ARGUMENTS_OFFSET, kwnames);
}

void Ref::drop_last(PyObject* object) {
  Outside outside;
  Py_DECREF(object);
  outside.returned();
}

void Outside::stop_this_thread() noexcept {
  for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
}

#if PY_VERSION_HEX < 0x03090000

PyObject* call_method_array(PyObject* const* receiver_and_args, std::size_t count, PyObject* name,
                            PyObject* kwnames) {
  PyObject* receiver = receiver_and_args[0];
  PyTypeObject* type = Py_TYPE(receiver);
  // Without a replacement on the instance, a method descriptor is called with the receiver as its
  // first argument: no bound method is made.
  if (type->tp_getattro == PyObject_GenericGetAttr) {
    PyObject* found = _PyType_Lookup(type, name);
    if (found != nullptr && is_method_descriptor(found)) {
      Ref method = Value(found);
      PyObject** place = _PyObject_GetDictPtr(receiver);
      Ref own = place == nullptr ? Ref() : Ref(Value(*place));
      const int hidden = own ? PyDict_Contains(own.get(), name) : 0;
      if (hidden < 0) return nullptr;
      if (hidden == 0) return vectorcall(method.get(), receiver_and_args, count, kwnames);
    }
  }
  Ref method = Ref::steal(PyObject_GetAttr(receiver, name));
  if (!method) return nullptr;
  return vectorcall(method.get(), receiver_and_args + 1,
                    (count - 1) | PY_VECTORCALL_ARGUMENTS_OFFSET, kwnames);
}

#else

PyObject* call_method_array(PyObject* const* receiver_and_args, std::size_t count, PyObject* name,
                            PyObject* kwnames) {
  return PyObject_VectorcallMethod(name, receiver_and_args, count | PY_VECTORCALL_ARGUMENTS_OFFSET,
                                   kwnames);
}

#endif

Ref call_with_keywords(Value callable, Value keywords) {
  Ref empty = tuple();
  Ref given = Value(&PyDict_Type)(keywords);
  return take(in_script([&] { return PyObject_Call(callable.get(), empty.get(), given.get()); }));
}

Ref call_method_with(Value receiver, Value name, std::initializer_list<Value> args, Value keyword,
                     Value value) {
  constexpr std::size_t kMost = 8;
  PyObject* array[kMost + 3] = {nullptr, receiver.get()};
  std::size_t count = 1;
  for (Value arg : args) array[++count] = arg.get();
  array[count + 1] = value.get();
  Ref names = tuple(keyword);
  auto body = [&] { return call_method_array(array + 1, count, name.get(), names.get()); };
  return take(in_script(body));
}

bool Value::compares_natively() const noexcept {
  return is_plain_integer() || is_plain_real() || is_plain_text() || PyBool_Check(object_) ||
         PyFunction_Check(object_) || PyMethod_Check(object_) ||
         type()->tp_richcompare == PyBaseObject_Type.tp_richcompare;
}

Ref Value::attr(Value name) const {
  return take(in_script([&] { return PyObject_GetAttr(object_, name.get()); }));
}

void Value::set_attr(Value name, Value value) const {
  check(in_script([&] { return PyObject_SetAttr(object_, name.get(), value.get()); }));
}

Ref Value::find_attr(Value name) const {
  PyTypeObject* type = Py_TYPE(object_);
  // Only a look-up of Python's own that finds nothing is known to run no script.
  bool plain = type->tp_getattro == PyObject_GenericGetAttr &&
               _PyType_Lookup(type, "__getattr__"_name.get()) == nullptr;
  if (!plain) script_ran();
  PyObject* result = nullptr;
  check(in_library([&] { return optional_attr(object_, name.get(), &result); }));
  if (result != nullptr || !plain) script_ran();
  return Ref::steal(result);
}

void Value::call_if_any(Value name) const {
  // Where the type itself has the method, Python need not be asked whether there is one.
  PyTypeObject* known = type();
  PyObject* found = _PyType_Lookup(known, name.get());
  Value lookup = "__getattribute__"_name;
  const bool in_type = found != nullptr && is_method_descriptor(found);
  if (in_type && known->tp_getattro == PyObject_GenericGetAttr) {
    call(name);
  } else if (in_type && _PyType_Lookup(known, lookup.get()) ==
                            _PyType_Lookup(&PyBaseObject_Type, lookup.get())) {
    // The detour over __getattr__ is for what is not found.
    take(in_script([&] { return PyObject_GenericGetAttr(object_, name.get()); }))();
  } else if (Ref method = find_attr(name)) {
    method();
  }
}

bool Value::is_true() const {
  if (object_ == Py_True) return true;
  if (object_ == Py_False || object_ == Py_None) return false;
  return check(in_script([&] { return PyObject_IsTrue(object_); })) != 0;
}

bool Value::equals_true() const {
  if (object_ == Py_True) return true;
  if (object_ == Py_False || object_ == Py_None) return false;
  return rich_compare(object_, Py_True, Py_EQ);
}

bool Value::equals_false() const {
  if (object_ == Py_False) return true;
  if (object_ == Py_True || object_ == Py_None) return false;
  return rich_compare(object_, Py_False, Py_EQ);
}

bool Value::is_set() const {
  if (object_ == Py_None) return false;
  if (compares_natively() || is_plain_tuple()) return true;
  return rich_compare(object_, Py_None, Py_NE);
}

bool Value::equals(Value other) const {
  return rich_compare(object_, other.get(), Py_EQ);
}

bool Value::is_text(Value name) const {
  if (object_ == name.get()) return true;
  return is_text() && equals(name);
}

Ref Value::item(Value key) const {
  double place = -1.0;
  if (key.is_plain_integer() && small_number(key.get(), place)) {
    if (Ref found = quick_item(*this, static_cast<Py_ssize_t>(place))) return found;
  }
  auto body = [&] { return PyObject_GetItem(object_, key.get()); };
  bool plain = is_plain_container(object_) && is_plain_key(key.get());
  return take(plain ? body() : in_script(body));
}

Ref Value::item(Py_ssize_t index) const {
  if (Ref found = quick_item(*this, index)) return found;
  return item(integer(index));
}

Ref Value::find_item(Value key) const {
  if (is_plain_dict() && is_plain_key(key.get())) {
    Ref found = Value(PyDict_GetItemWithError(object_, key.get()));
    if (!found && PyErr_Occurred() != nullptr) throw HostError();
    return found;
  }
  return contains(key) ? item(key) : Ref();
}

void Value::set_item(Value key, Value value) const {
  check(in_script([&] { return PyObject_SetItem(object_, key.get(), value.get()); }));
}

void Value::delete_item(Value key) const {
  check(in_script([&] { return PyObject_DelItem(object_, key.get()); }));
}

bool Value::contains(Value item) const {
  return check(in_script([&] { return PySequence_Contains(object_, item.get()); })) != 0;
}

Py_ssize_t Value::length() const {
  if (is_plain_text()) return PyUnicode_GET_LENGTH(object_);
  if (is_plain_list()) return PyList_GET_SIZE(object_);
  if (is_plain_tuple()) return PyTuple_GET_SIZE(object_);
  return check(in_script([&] { return PyObject_Size(object_); }));
}

void Value::append(Value item) const {
  if (is_plain_list()) {
    ++clocks.state;
    check(PyList_Append(object_, item.get()));
  } else {
    call("append"_name, item);
  }
}

Ref Value::to_list() const {
  auto body = [&] { return PySequence_List(object_); };
  return take(is_plain_container(object_) ? body() : in_script(body));
}

Ref Value::slice(Py_ssize_t from, Py_ssize_t to) const {
  auto body = [&] { return PySequence_GetSlice(object_, from, to); };
  return take(is_plain_container(object_) || is_plain_text() ? body() : in_script(body));
}

std::string_view Value::bytes() const {
  char* start = nullptr;
  Py_ssize_t size = 0;
  check(PyBytes_AsStringAndSize(object_, &start, &size));
  return {start, static_cast<std::size_t>(size)};
}

Py_ssize_t index_of(Value list, Value item) {
  return check(in_script([&] { return PySequence_Index(list.get(), item.get()); }));
}

Py_ssize_t count_of(Value list, Value item) {
  return check(in_script([&] { return PySequence_Count(list.get(), item.get()); }));
}

std::string utf8(Value text) {
  Py_ssize_t length = 0;
  const char* characters = PyUnicode_AsUTF8AndSize(text.get(), &length);
  if (characters == nullptr) throw HostError();
  return {characters, static_cast<std::size_t>(length)};
}

void append_characters(std::string& bytes, Value text) {
#if PY_VERSION_HEX < 0x030C0000
  check(PyUnicode_READY(text.get()));
#endif
  const Py_ssize_t length = PyUnicode_GET_LENGTH(text.get());
  const auto width = static_cast<std::size_t>(PyUnicode_KIND(text.get()));
  bytes.push_back(static_cast<char>(width));
  bytes.append(reinterpret_cast<const char*>(&length), sizeof(length));
  bytes.append(static_cast<const char*>(PyUnicode_DATA(text.get())),
               width * static_cast<std::size_t>(length));
}

Ref bytes_object(std::string_view content) {
  return take(PyBytes_FromStringAndSize(content.data(), static_cast<Py_ssize_t>(content.size())));
}

Ref joined(Value left, Value right) {
  auto body = [&] { return PyNumber_Add(left.get(), right.get()); };
  return take(left.is_plain_text() && right.is_plain_text() ? body() : in_script(body));
}

Ref joined_all(Value texts) {
  static PyObject* const nothing = intern("").get();
  return take(in_script([&] { return PyUnicode_Join(nothing, texts.get()); }));
}

void replace_slice(Value list, Py_ssize_t from, Py_ssize_t to, Value items) {
  check(in_script([&] { return PyList_SetSlice(list.get(), from, to, items.get()); }));
}

Ref repeated(Value text, Py_ssize_t times) {
  Ref count = integer(times);
  return take(in_script([&] { return PyNumber_Multiply(text.get(), count.get()); }));
}

void print_line(Value line) {
  Ref out = Value(PySys_GetObject("stdout"));
  if (!out || out.is_none()) return;
  check(in_script([&] {
    const int status = PyFile_WriteObject(line.get(), out.get(), Py_PRINT_RAW);
    return status < 0 ? status : PyFile_WriteString("\n", out.get());
  }));
}

void check_signals() {
  check(in_script([] { return PyErr_CheckSignals(); }));
}

}  // namespace tessora::host
