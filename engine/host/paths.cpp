#include "engine/host/paths.hpp"

#include "engine/host/modules.hpp"

namespace tessora::host {

Ref openable_path(PyObject* path) {
  if (!PyUnicode_Check(path)) return Ref::share(path);
  Ref separator = modules::os["sep"_name];
  return take(PyUnicode_Replace(path, "\\"_name, separator.get(), -1));
}

}  // namespace tessora::host
