#include "module/imports.hpp"

#include <cstring>

#include "engine/host/modules.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;

namespace {

void bind(PyObject* module, const char* name, const Ref& value) {
  host::check(PyObject_SetAttrString(module, name, value.get()));
}

void import_module(PyObject* module, const char* name, const char* bound_name) {
  Ref imported = host::take(PyImport_ImportModule(name));
  bind(module, bound_name, imported);
}

// `from name import *`.
void import_all(PyObject* module, const char* name) {
  Ref imported = host::take(PyImport_ImportModule(name));
  Ref names = host::find_attr(imported.get(), "__all__"_name);
  bool listed = static_cast<bool>(names);
  if (!listed) names = host::take(PyMapping_Keys(PyModule_GetDict(imported.get())));
  names = host::take(PySequence_List(names.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(names.get()); ++index) {
    PyObject* each = PyList_GET_ITEM(names.get(), index);
    if (!listed && PyUnicode_READ_CHAR(each, 0) == '_') continue;
    host::check(PyObject_SetAttr(module, each, host::get_attr(imported, each).get()));
  }
}

// Games that have the helper module get it; nothing depends on it.
void import_helper(PyObject* module) {
  Ref imported = Ref::steal(PyImport_ImportModule("Kovrin"));
  if (!imported) {
    if (PyErr_ExceptionMatches(PyExc_Exception) == 0) throw host::HostError();
    PyErr_Clear();
    return;
  }
  bind(module, "Kovrin", imported);
}

struct LateImport {
  const char* name;
  const char* module;
  const char* attribute;
};

constexpr LateImport kLateImports[] = {
    {"Pass", "ast", "Pass"}, {"c", "calendar", "c"}, {"theNULL", "telnetlib", "theNULL"}};

// Hosts that are about to drop a module say so by a warning, which is not the script's concern.
Ref import_quietly(const char* name) {
  Ref catcher = host::call(host::import("warnings", "catch_warnings"_name));
  host::call_method(catcher, "__enter__"_name);
  Ref ignore = host::import("warnings", "simplefilter"_name);
  host::call(ignore, host::text("ignore"));
  Ref imported = Ref::steal(PyImport_ImportModule(name));
  PyObject* type = nullptr;
  PyObject* value = nullptr;
  PyObject* trace = nullptr;
  PyErr_Fetch(&type, &value, &trace);
  host::call_method(catcher, "__exit__"_name, Py_None, Py_None, Py_None);
  PyErr_Restore(type, value, trace);
  return imported;
}

}  // namespace

void import_libraries(PyObject* module) {
  for (const char* name : {"sys", "os", "pygame", "math", "random"}) {
    import_module(module, name, name);
  }
  import_all(module, "pygame.locals");
  import_all(module, "pygame.math");
  for (const char* name : {"glob", "time", "copy"}) import_module(module, name, name);
  import_module(module, "xml.etree.ElementTree", "XMLElementTree");
  import_helper(module);
  for (const char* name : {"json", "threading"}) import_module(module, name, name);
}

PyObject* find_late_import(PyObject*, PyObject* name) {
  return host::guarded<PyObject*>(nullptr, [&] {
    const char* chars = PyUnicode_AsUTF8(name);
    if (chars == nullptr) throw host::HostError();
    for (const LateImport& late : kLateImports) {
      if (std::strcmp(chars, late.name) != 0) continue;
      Ref imported = import_quietly(late.module);
      Ref value;
      if (imported) value = Ref::steal(PyObject_GetAttrString(imported.get(), late.attribute));
      if (!value) {
        if (PyErr_ExceptionMatches(PyExc_Exception) == 0) throw host::HostError();
        PyErr_Clear();
        break;
      }
      return value.release();
    }
    PyErr_Format(PyExc_AttributeError, "module 'Tessora' has no attribute '%U'", name);
    throw host::HostError();
  });
}

}  // namespace tessora
