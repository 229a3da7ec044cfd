// Adapters between Python's calling conventions and the engine's functions.
#pragma once

#include "engine/object/class.hpp"

namespace tessora::host {

// The engine object that a call from Python reaches. Its class may have changed since the last.
inline Object& entered(PyObject* self) {
  auto& object = *static_cast<Object*>(self);
  object.properties_override = type_record(Py_TYPE(self)).properties_override;
  return object;
}

// One record per native function: it belongs to one method of one class.
template <Native Code>
inline Method method_record;

template <Native Code>
PyObject* call_without_arguments(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    script_ran();
    return Code(entered(self), nullptr).release();
  });
}

// Reads only: nothing that was computed before loses its truth.
template <Native Code>
PyObject* call_getter(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] { return Code(entered(self), nullptr).release(); });
}

template <Native Code>
PyObject* call_with_arguments(PyObject* self, PyObject* const* args, Py_ssize_t count,
                              PyObject* kwnames) {
  return guarded<PyObject*>(nullptr, [&] {
    script_ran();
    Object& object = entered(self);
    const Method& method = method_record<Code>;
    if (kwnames == nullptr && method.fits(static_cast<std::size_t>(count))) {
      return Code(object, args).release();
    }
    Bound bound(method.arity());
    method.bind(args, count, kwnames, bound);
    return Code(object, bound.data()).release();
  });
}

}  // namespace tessora::host
