// The engine's own module: its functions and values, declared like the members of classes.
#pragma once

#include "engine/host/modules.hpp"
#include "engine/object/arguments.hpp"

namespace tessora::host {

template <class Result, class... Args>
struct FreeFunction {
  static constexpr std::size_t kArity = sizeof...(Args);

  template <Result (*Code)(Args...), std::size_t... Index>
  static Ref invoke([[maybe_unused]] PyObject* const* args, std::index_sequence<Index...>) {
    return argument(Code(Value(args[Index])...));
  }
};
template <class Result, class... Args>
FreeFunction<Result, Args...> shape_of(Result (*)(Args...));

template <auto Code>
inline Method function_record;

template <auto Code>
PyObject* call_function(PyObject*, PyObject* const* args, Py_ssize_t count, PyObject* kwnames) {
  using Shape = decltype(shape_of(Code));
  return guarded<PyObject*>(nullptr, [&] {
    script_ran();
    Bound bound(Shape::kArity);
    function_record<Code>.bind(args, count, kwnames, bound);
    Ref result =
        Shape::template invoke<Code>(bound.data(), std::make_index_sequence<Shape::kArity>());
    return result.release();
  });
}

// What the module's reference tells of a function or value.
struct ModuleRow {
  bool is_function;
  const char* text;  // a signature, or "name: type"
  const char* doc;
};
std::vector<ModuleRow>& module_rows();

void add_native_function(PyObject* module, PyMethodDef& definition, const char* signature,
                         const char* doc);

template <auto Code>
void add_function(PyObject* module, const char* signature, const char* doc) {
  static const std::string name(Signature(signature).name);
  static const std::string text = Signature(signature).documentation(false, doc);
  static PyMethodDef definition = {
      name.c_str(), reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(&call_function<Code>)),
      METH_FASTCALL | METH_KEYWORDS, text.c_str()};
  function_record<Code>.declare(Signature(signature), nullptr);
  add_native_function(module, definition, signature, doc);
}

void add_value(PyObject* module, const char* row, Value value, const char* doc);

// The reference of the module, for the tools that write stubs and documentation: a list of
// dictionaries in the order of declaration.
PyObject* declarations(PyObject* module, PyObject* unused);

}  // namespace tessora::host
