#include "engine/host/call.hpp"

namespace tessora::host {

namespace {

// Types whose comparison and truth are the host's own and run no script.
bool compares_natively(PyObject* value) noexcept {
  PyTypeObject* type = Py_TYPE(value);
  return PyLong_CheckExact(value) || PyFloat_CheckExact(value) || PyUnicode_CheckExact(value) ||
         PyTuple_CheckExact(value) || PyFunction_Check(value) || PyMethod_Check(value) ||
         type->tp_richcompare == PyBaseObject_Type.tp_richcompare;
}

bool is_plain_container(PyObject* container) noexcept {
  return PyDict_CheckExact(container) || PyList_CheckExact(container) ||
         PyTuple_CheckExact(container);
}

bool is_plain_key(PyObject* key) noexcept {
  return PyUnicode_CheckExact(key) || PyLong_CheckExact(key);
}

bool rich_compare(PyObject* left, PyObject* right, int operation) {
  if (!compares_natively(left)) script_ran();
  Ref result = take(PyObject_RichCompare(left, right, operation));
  bool truth = is_true(result.get());
  if (!compares_natively(left)) script_ran();
  return truth;
}

}  // namespace

Ref call_array(PyObject* callable, PyObject* const* args, std::size_t count, PyObject* kwnames) {
  return take(vectorcall(callable, args, count | PY_VECTORCALL_ARGUMENTS_OFFSET, kwnames));
}

#if PY_VERSION_HEX < 0x03090000

Ref call_method_array(PyObject* const* receiver_and_args, std::size_t count, PyObject* name,
                      PyObject* kwnames) {
  PyObject* receiver = receiver_and_args[0];
  PyTypeObject* type = Py_TYPE(receiver);
  // Without a replacement on the instance, a method descriptor is called with the receiver as its
  // first argument: no bound method is made.
  if (type->tp_getattro == PyObject_GenericGetAttr && type->tp_dictoffset == 0) {
    PyObject* found = _PyType_Lookup(type, name);
    if (found != nullptr && PyType_HasFeature(Py_TYPE(found), Py_TPFLAGS_METHOD_DESCRIPTOR)) {
      Ref method = Ref::share(found);
      return take(vectorcall(method.get(), receiver_and_args, count, kwnames));
    }
  }
  Ref method = take(PyObject_GetAttr(receiver, name));
  return take(vectorcall(method.get(), receiver_and_args + 1,
                         (count - 1) | PY_VECTORCALL_ARGUMENTS_OFFSET, kwnames));
}

#else

Ref call_method_array(PyObject* const* receiver_and_args, std::size_t count, PyObject* name,
                      PyObject* kwnames) {
  return take(PyObject_VectorcallMethod(name, receiver_and_args,
                                        count | PY_VECTORCALL_ARGUMENTS_OFFSET, kwnames));
}

#endif

Ref get_attr(PyObject* object, PyObject* name) {
  script_ran();
  Ref result = take(PyObject_GetAttr(object, name));
  script_ran();
  return result;
}

void set_attr(PyObject* object, PyObject* name, PyObject* value) {
  script_ran();
  check(PyObject_SetAttr(object, name, value));
  script_ran();
}

Ref find_attr(PyObject* object, PyObject* name) {
  PyTypeObject* type = Py_TYPE(object);
  // Only a look-up of the host's own that finds nothing is known to run no script.
  bool plain = type->tp_getattro == PyObject_GenericGetAttr &&
               _PyType_Lookup(type, "__getattr__"_name) == nullptr;
  if (!plain) script_ran();
  PyObject* result = nullptr;
  check(optional_attr(object, name, &result));
  if (result != nullptr || !plain) script_ran();
  return Ref::steal(result);
}

bool is_true(PyObject* value) {
  if (value == Py_True) return true;
  if (value == Py_False || value == Py_None) return false;
  script_ran();
  bool truth = check(PyObject_IsTrue(value)) != 0;
  script_ran();
  return truth;
}

bool equals_true(PyObject* value) {
  if (value == Py_True) return true;
  if (value == Py_False || value == Py_None) return false;
  return rich_compare(value, Py_True, Py_EQ);
}

bool equals_false(PyObject* value) {
  if (value == Py_False) return true;
  if (value == Py_True || value == Py_None) return false;
  return rich_compare(value, Py_False, Py_EQ);
}

bool is_set(PyObject* value) {
  if (value == Py_None) return false;
  if (compares_natively(value)) return true;
  return rich_compare(value, Py_None, Py_NE);
}

bool equals(PyObject* left, PyObject* right) {
  return rich_compare(left, right, Py_EQ);
}

Ref get_item(PyObject* container, PyObject* key) {
  bool plain = is_plain_container(container) && is_plain_key(key);
  if (!plain) script_ran();
  Ref item = take(PyObject_GetItem(container, key));
  if (!plain) script_ran();
  return item;
}

void set_item(PyObject* container, PyObject* key, PyObject* value) {
  script_ran();
  check(PyObject_SetItem(container, key, value));
  script_ran();
}

void del_item(PyObject* container, PyObject* key) {
  script_ran();
  check(PyObject_DelItem(container, key));
  script_ran();
}

bool contains(PyObject* container, PyObject* item) {
  script_ran();
  bool found = check(PySequence_Contains(container, item)) != 0;
  script_ran();
  return found;
}

Py_ssize_t length(PyObject* container) {
  if (PyList_CheckExact(container)) return PyList_GET_SIZE(container);
  if (PyTuple_CheckExact(container)) return PyTuple_GET_SIZE(container);
  script_ran();
  Py_ssize_t size = check(PyObject_Size(container));
  script_ran();
  return size;
}

void print_line(PyObject* text) {
  PyObject* out = PySys_GetObject("stdout");
  if (out == nullptr || out == Py_None) return;
  Ref held = Ref::share(out);
  script_ran();
  check(PyFile_WriteObject(text, out, Py_PRINT_RAW));
  check(PyFile_WriteString("\n", out));
  script_ran();
}

}  // namespace tessora::host
