#include "engine/host/modules.hpp"

namespace tessora::host {

PyObject* Module::object() const {
  if (module_ == nullptr) module_ = take(PyImport_ImportModule(name_)).release();
  return module_;
}

Ref Module::operator[](PyObject* attribute) const {
  PyObject* space = PyModule_CheckExact(object()) ? PyModule_GetDict(module_) : nullptr;
  if (space != nullptr) {
    PyObject* found = PyDict_GetItemWithError(space, attribute);
    if (found != nullptr) return Ref::share(found);
    if (PyErr_Occurred() != nullptr) throw HostError();
  }
  return get_attr(module_, attribute);
}

Ref import(const char* module, PyObject* attribute) {
  Ref imported = take(PyImport_ImportModule(module));
  return take(PyObject_GetAttr(imported.get(), attribute));
}

Ref engine_value(PyObject* name) {
  PyObject* found = PyDict_GetItemWithError(PyModule_GetDict(engine_module), name);
  if (found != nullptr) return Ref::share(found);
  if (PyErr_Occurred() == nullptr) PyErr_SetObject(PyExc_NameError, name);
  throw HostError();
}

}  // namespace tessora::host
