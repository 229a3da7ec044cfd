// Weak references with a function of the engine's that is told when the object dies.
#pragma once

#include "engine/host/value.hpp"

namespace tessora::host {

// Told with the weak reference, when nothing can be asked of the object any more.
using DeathNotice = void (*)(Value weak_reference);

template <DeathNotice Notice>
Ref watch_death(Value object) {
  constexpr PyCFunction kTold = [](PyObject*, PyObject* weak_reference) -> PyObject* {
    return guarded<PyObject*>(nullptr, [&] {
      Notice(weak_reference);
      return none().release();
    });
  };
  static PyMethodDef definition = {"object_died", kTold, METH_O, nullptr};
  static PyObject* const callback = take(PyCFunction_New(&definition, nullptr)).release();
  return take(PyWeakref_NewRef(object.get(), callback));
}

}  // namespace tessora::host
