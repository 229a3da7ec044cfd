#include "module/imports.hpp"

#include "engine/host/caught.hpp"
#include "engine/host/items.hpp"
#include "engine/host/modules.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;
using host::Value;

namespace {

void bind(Value module, const char* name, Value value) {
  module.set_attr(host::intern(name), value);
}

Ref imported(const char* name) {
  return host::take(PyImport_ImportModule(name));
}

// `from name import *`.
void import_all(Value module, const char* name) {
  Ref source = imported(name);
  Ref names = source.find_attr("__all__"_name);
  const bool listed = static_cast<bool>(names);
  if (!listed) names = Value(PyModule_GetDict(source.get()));
  for (Ref each : host::items(names)) {
    if (!listed && PyUnicode_READ_CHAR(each.get(), 0) == '_') continue;
    module.set_attr(each, source.attr(each));
  }
}

// Games that have the helper module get it; nothing depends on it.
void import_helper(Value module) {
  Ref absent = host::caught(PyExc_Exception, [&] { bind(module, "Kovrin", imported("Kovrin")); });
}

struct LateImport {
  const char* name;
  const char* module;
  const char* attribute;
};

constexpr LateImport kLateImports[] = {
    {"Pass", "ast", "Pass"}, {"c", "calendar", "c"}, {"theNULL", "telnetlib", "theNULL"}};

// Versions that are about to drop a module say so by a warning, which is not the script's concern.
Ref import_quietly(const char* name) {
  Ref make = host::import("warnings", "catch_warnings"_name);
  Ref catcher = make();
  catcher.call("__enter__"_name);
  Ref ignore = host::import("warnings", "simplefilter"_name);
  ignore("ignore"_name);
  Ref found;
  Ref error = host::caught(PyExc_Exception, [&] { found = imported(name); });
  catcher.call("__exit__"_name, nullptr, nullptr, nullptr);
  return found;
}

}  // namespace

void import_libraries(PyObject* module) {
  const Value into(module);
  for (const char* name : {"sys", "os", "pygame", "math", "random"})
    bind(into, name, imported(name));
  import_all(into, "pygame.locals");
  import_all(into, "pygame.math");
  for (const char* name : {"glob", "time", "copy"}) bind(into, name, imported(name));
  bind(into, "XMLElementTree", imported("xml.etree.ElementTree"));
  import_helper(into);
  for (const char* name : {"json", "threading"}) bind(into, name, imported(name));
}

PyObject* find_late_import(PyObject*, PyObject* name) {
  return host::guarded<PyObject*>(nullptr, [&] {
    for (const LateImport& late : kLateImports) {
      if (!Value(name).is_text(host::intern(late.name))) continue;
      Ref module = import_quietly(late.module);
      Ref value;
      if (module) value = module.find_attr(host::intern(late.attribute));
      if (!value) break;
      return value.release();
    }
    host::raise(PyExc_AttributeError, "module 'Tessora' has no attribute '%U'", Value(name));
  });
}

}  // namespace tessora
