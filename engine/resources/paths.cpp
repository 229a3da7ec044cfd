#include "engine/resources/paths.hpp"

#include "engine/host/modules.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;

Ref openable_path(PyObject* path) {
  if (!PyUnicode_Check(path)) return Ref::share(path);
  Ref separator = host::modules::os["sep"_name];
  return host::take(PyUnicode_Replace(path, "\\"_name, separator.get(), -1));
}

}  // namespace tessora
