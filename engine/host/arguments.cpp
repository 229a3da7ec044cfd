#include "engine/host/arguments.hpp"

#include <algorithm>

namespace tessora::host {

Ref Literal::object() const {
  switch (kind) {
    case Kind::kBool:
      return boolean(integer != 0);
    case Kind::kInteger:
      return host::integer(integer);
    case Kind::kReal:
      return host::real(real);
    case Kind::kText:
      return Ref::share(intern(text));
    default:
      return none();
  }
}

void Method::declare(const char* method_name, Native function, Parameters parameters) {
  name = method_name;
  native = function;
  names.clear();
  defaults.clear();
  for (const Parameter& parameter : parameters) {
    names.push_back(intern(parameter.name));
    defaults.push_back(parameter.optional ? parameter.literal.object().release() : nullptr);
  }
}

void Method::bind_positional(PyObject* const* args, Py_ssize_t count, PyObject** bound) const {
  auto most = static_cast<Py_ssize_t>(arity());
  if (count > most) {
    PyErr_Format(PyExc_TypeError, "%s() takes at most %zd positional arguments but %zd were given",
                 name, most, count);
    throw HostError();
  }
  std::copy_n(args, count, bound);
}

void Method::bind_keyword(PyObject* key, PyObject* value, PyObject** bound) const {
  for (std::size_t index = 0; index < arity(); ++index) {
    if (key != names[index]) {
      int same = check(PyObject_RichCompareBool(key, names[index], Py_EQ));
      if (same == 0) continue;
    }
    if (bound[index] != nullptr) {
      PyErr_Format(PyExc_TypeError, "%s() got multiple values for argument '%U'", name, key);
      throw HostError();
    }
    bound[index] = value;
    return;
  }
  PyErr_Format(PyExc_TypeError, "%s() got an unexpected keyword argument '%S'", name, key);
  throw HostError();
}

void Method::fill_defaults(PyObject** bound) const {
  for (std::size_t index = 0; index < arity(); ++index) {
    if (bound[index] != nullptr) continue;
    if (defaults[index] == nullptr) {
      PyErr_Format(PyExc_TypeError, "%s() missing required argument: '%U'", name, names[index]);
      throw HostError();
    }
    bound[index] = defaults[index];
  }
}

void Method::bind(PyObject* const* args, Py_ssize_t count, PyObject* kwnames,
                  PyObject** bound) const {
  bind_positional(args, count, bound);
  Py_ssize_t keywords = kwnames == nullptr ? 0 : PyTuple_GET_SIZE(kwnames);
  for (Py_ssize_t index = 0; index < keywords; ++index) {
    bind_keyword(PyTuple_GET_ITEM(kwnames, index), args[count + index], bound);
  }
  fill_defaults(bound);
}

void Method::bind(PyObject* args, PyObject* kwargs, PyObject** bound) const {
  bind_positional(PySequence_Fast_ITEMS(args), PyTuple_GET_SIZE(args), bound);
  if (kwargs != nullptr) {
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(kwargs, &position, &key, &value) != 0) bind_keyword(key, value, bound);
  }
  fill_defaults(bound);
}

std::string documentation(const char* name, bool method, Parameters parameters, const char* doc) {
  std::string result = std::string(name) + (method ? "($self" : "(");
  bool first = !method;
  for (const Parameter& parameter : parameters) {
    result += first ? "" : ", ";
    first = false;
    result += parameter.name;
    if (parameter.optional) {
      Ref shown = take(PyObject_Repr(parameter.literal.object().get()));
      const char* chars = PyUnicode_AsUTF8(shown.get());
      if (chars == nullptr) throw HostError();
      result += std::string("=") + chars;
    }
  }
  return result + ")\n--\n\n" + doc;
}

}  // namespace tessora::host
