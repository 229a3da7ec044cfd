#include "engine/host/paths.hpp"

#include "engine/host/modules.hpp"

namespace tessora::host {

Ref openable_path(Value path) {
  if (!path.is_text()) return path;
  Ref separator = modules::os["sep"_name];
  Value backslash = "\\"_name;
  return take(PyUnicode_Replace(path.get(), backslash.get(), separator.get(), -1));
}

bool is_path(Value value) {
  return value.is_text() || _PyType_Lookup(value.type(), "__fspath__"_name.get()) != nullptr;
}

Ref path_text(Value value) {
  if (value.is_text() || !is_path(value)) return value;
  Ref path = take(in_script([&] { return PyOS_FSPath(value.get()); }));
  if (PyBytes_Check(path.get()) == 0) return path;
  return take(PyUnicode_DecodeFSDefaultAndSize(PyBytes_AS_STRING(path.get()),
                                               PyBytes_GET_SIZE(path.get())));
}

}  // namespace tessora::host
