#include "engine/host/modules.hpp"

namespace tessora::host {

Value Module::object() const {
  if (module_ == nullptr) module_ = take(PyImport_ImportModule(name_)).release();
  return module_;
}

Ref Module::operator[](Value attribute) const {
  Value module = object();
  if (PyModule_CheckExact(module.get())) {
    if (Ref found = Value(PyModule_GetDict(module.get())).find_item(attribute)) return found;
  }
  return module.attr(attribute);
}

Ref Module::call(Value function) const {
  Ref found = (*this)[function];
  const bool is_own =
      PyCFunction_Check(found.get()) != 0 && PyCFunction_GetSelf(found.get()) == object().get();
  return is_own ? call_library(found) : found();
}

Ref import(const char* module, Value attribute) {
  Ref imported = take(PyImport_ImportModule(module));
  return imported.attr(attribute);
}

Ref engine_value(Value name) {
  Ref found = Value(PyModule_GetDict(engine_module)).find_item(name);
  if (!found) raise(PyExc_NameError, "%U", name);
  return found;
}

}  // namespace tessora::host
