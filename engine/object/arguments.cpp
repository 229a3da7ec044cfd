#include "engine/object/arguments.hpp"

#include <algorithm>

#include "engine/host/items.hpp"

namespace tessora::host {

void Method::declare(const Signature& signature, Native function) {
  name = signature.name;
  native = function;
  names.clear();
  defaults.clear();
  for (const Parameter& parameter : signature.parameters) {
    names.push_back(intern(std::string(parameter.name).c_str()).get());
    defaults.push_back(parameter.default_value().release());
    last = parameter.kind;
  }
}

void Method::bind_positional(PyObject* const* args, Py_ssize_t count, Bound& bound) const {
  const std::size_t most = plain_arity();
  const auto given = static_cast<std::size_t>(count);
  for (std::size_t index = 0; index < std::min(given, most); ++index) bound[index] = args[index];
  if (last == Parameter::Kind::kRest) {
    const Py_ssize_t left = given > most ? static_cast<Py_ssize_t>(given - most) : 0;
    bound.rest = take(PyTuple_New(left));
    for (Py_ssize_t index = 0; index < left; ++index) {
      Ref item = Value(args[static_cast<Py_ssize_t>(most) + index]);
      PyTuple_SET_ITEM(bound.rest.get(), index, item.release());
    }
  } else if (given > most) {
    raise(PyExc_TypeError, "%s() takes at most %zd positional arguments but %zd were given",
          name.c_str(), static_cast<Py_ssize_t>(most), count);
  } else if (last == Parameter::Kind::kKeywords) {
    bound.rest = dictionary();
  }
  if (last != Parameter::Kind::kPlain) bound[most] = bound.rest.get();
}

void Method::bind_keyword(Value key, Value value, Bound& bound) const {
  if (!key.is_text()) {
    raise(PyExc_TypeError, "%s() keywords must be strings", name.c_str());
  }
  for (std::size_t index = 0; index < plain_arity(); ++index) {
    if (!key.is(names[index]) && !key.equals(names[index])) continue;
    if (bound[index] != nullptr) {
      raise(PyExc_TypeError, "%s() got multiple values for argument '%U'", name.c_str(), key);
    }
    bound[index] = value.get();
    return;
  }
  if (last == Parameter::Kind::kKeywords) return bound.rest.set_item(key, value);
  raise(PyExc_TypeError, "%s() got an unexpected keyword argument '%U'", name.c_str(), key);
}

void Method::fill_defaults(Bound& bound) const {
  for (std::size_t index = 0; index < plain_arity(); ++index) {
    if (bound[index] != nullptr) continue;
    if (defaults[index] == nullptr) {
      raise(PyExc_TypeError, "%s() missing required argument: '%U'", name.c_str(),
            Value(names[index]));
    }
    bound[index] = defaults[index];
  }
}

void Method::bind(PyObject* const* args, Py_ssize_t count, PyObject* kwnames, Bound& bound) const {
  bind_positional(args, count, bound);
  const Py_ssize_t keywords = kwnames == nullptr ? 0 : PyTuple_GET_SIZE(kwnames);
  for (Py_ssize_t index = 0; index < keywords; ++index) {
    bind_keyword(PyTuple_GET_ITEM(kwnames, index), args[count + index], bound);
  }
  fill_defaults(bound);
}

void Method::bind(PyObject* args, PyObject* kwargs, Bound& bound) const {
  bind_positional(PySequence_Fast_ITEMS(args), PyTuple_GET_SIZE(args), bound);
  if (kwargs != nullptr) {
    for (auto [key, value] : entries(kwargs)) bind_keyword(key, value, bound);
  }
  fill_defaults(bound);
}

}  // namespace tessora::host
