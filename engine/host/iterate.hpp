// The host's own iteration, for containers and iterables of any kind.
#pragma once

#include "engine/host/call.hpp"

namespace tessora::host {

// Calls `visit` with each item; a list that changes meanwhile is met as by a script's own loop.
template <class Visit>
void for_each(PyObject* iterable, Visit visit) {
  script_ran();
  Ref iterator = take(PyObject_GetIter(iterable));
  while (Ref item = Ref::steal(PyIter_Next(iterator.get()))) {
    script_ran();
    visit(item);
  }
  script_ran();
  if (PyErr_Occurred() != nullptr) throw HostError();
}

}  // namespace tessora::host
