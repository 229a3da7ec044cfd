// Adapters between the host's calling conventions and the engine's functions.
#pragma once

#include "engine/host/dispatch.hpp"

namespace tessora::host {

// The engine object that a call from the host reaches. Its class may have changed since the last.
inline Object& entered(PyObject* self) {
  auto& object = *static_cast<Object*>(self);
  object.properties_override = type_entry(Py_TYPE(self)).properties_override;
  return object;
}

// One record per native function: it belongs to one method of one class.
template <Native Function>
inline Method method_record;

template <Native Function>
PyObject* call_without_arguments(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    script_ran();
    return Function(entered(self), nullptr).release();
  });
}

// Reads only: nothing that was computed before loses its truth.
template <Native Function>
PyObject* call_getter(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] { return Function(entered(self), nullptr).release(); });
}

template <Native Function, std::size_t Arity>
PyObject* call_with_arguments(PyObject* self, PyObject* const* args, Py_ssize_t count,
                              PyObject* kwnames) {
  return guarded<PyObject*>(nullptr, [&] {
    script_ran();
    Object& object = entered(self);
    if (kwnames == nullptr && std::cmp_equal(count, Arity)) {
      return Function(object, args).release();
    }
    PyObject* bound[Arity] = {};
    method_record<Function>.bind(args, count, kwnames, bound);
    return Function(object, bound).release();
  });
}

template <Native Function, std::size_t Arity>
int call_constructor(PyObject* self, PyObject* args, PyObject* kwargs) {
  return guarded(-1, [&] {
    script_ran();
    PyObject* bound[Arity + 1] = {};
    method_record<Function>.bind(args, kwargs, bound);
    Function(entered(self), bound);
    return 0;
  });
}

}  // namespace tessora::host
