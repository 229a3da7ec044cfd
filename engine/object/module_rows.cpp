#include "engine/object/module_rows.hpp"

#include "engine/object/class.hpp"

namespace tessora::host {

std::vector<ModuleRow>& module_rows() {
  static std::vector<ModuleRow> rows;
  return rows;
}

void add_native_function(PyObject* module, PyMethodDef& definition, const char* signature,
                         const char* doc) {
  Ref module_name = take(PyModule_GetNameObject(module));
  Ref function = take(PyCFunction_NewEx(&definition, module, module_name.get()));
  Value(module).set_attr(intern(definition.ml_name), function);
  module_rows().push_back({true, signature, doc});
}

void add_value(PyObject* module, const char* row, Value value, const char* doc) {
  const std::string_view text(row);
  Value(module).set_attr(intern(std::string(text.substr(0, text.find(':'))).c_str()), value);
  module_rows().push_back({false, row, doc});
}

namespace {

Ref words(std::string_view text) {
  return take(PyUnicode_FromStringAndSize(text.data(), static_cast<Py_ssize_t>(text.size())));
}

Ref row_of(const char* kind, std::string_view name, const char* key, std::string_view detail,
           std::string_view doc) {
  Ref row = dictionary();
  row.set_item("kind"_name, text(kind));
  row.set_item("name"_name, words(name));
  row.set_item(intern(key), words(detail));
  row.set_item("doc"_name, words(doc));
  return row;
}

// "name: type" or "name(arguments) -> type", taken apart.
Ref row_of(const char* kind, bool is_function, std::string_view text, const char* doc) {
  const auto end = text.find(is_function ? '(' : ':');
  const auto rest = text.substr(is_function ? end : end + 2);
  return row_of(kind, text.substr(0, end), is_function ? "signature" : "type", rest, doc);
}

Ref row_of(const ClassInfo& info) {
  Ref row = row_of("class", info.name, "signature", info.signature, info.doc);
  row.set_item("base"_name, info.base == nullptr ? none() : words(info.base->name));
  Ref members = list();
  for (const Member& member : info.members) {
    constexpr const char* kKinds[] = {"attribute", "method", "property"};
    members.append(row_of(kKinds[static_cast<int>(member.kind)],
                          member.kind == Member::Kind::kMethod, member.text, member.doc));
  }
  row.set_item("members"_name, members);
  return row;
}

}  // namespace

PyObject* declarations(PyObject*, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref rows = list();
    for (const ModuleRow& row : module_rows()) {
      rows.append(
          row_of(row.is_function ? "function" : "value", row.is_function, row.text, row.doc));
    }
    for (const ClassInfo* info : all_classes()) rows.append(row_of(*info));
    return rows.release();
  });
}

}  // namespace tessora::host
