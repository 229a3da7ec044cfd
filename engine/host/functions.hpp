// Functions of the module, declared in the same way as the methods of the classes.
#pragma once

#include "engine/host/arguments.hpp"

namespace tessora::host {

template <class Function>
struct FreeFunction;
template <class Result, class... Args>
struct FreeFunction<Result (*)(Args...)> {
  static constexpr std::size_t kArity = sizeof...(Args);

  template <Result (*Function)(Args...), std::size_t... Index>
  static Ref invoke(PyObject* const* args, std::index_sequence<Index...>) {
    if constexpr (std::is_same_v<Result, bool>) {
      return boolean(Function(args[Index]...));
    } else {
      return Function(args[Index]...);
    }
  }
};

template <auto Function>
inline Method function_record;

template <auto Function>
PyObject* call_function(PyObject*, PyObject* const* args, Py_ssize_t count, PyObject* kwnames) {
  using Shape = FreeFunction<decltype(Function)>;
  return guarded<PyObject*>(nullptr, [&] {
    script_ran();
    PyObject* bound[Shape::kArity] = {};
    function_record<Function>.bind(args, count, kwnames, bound);
    return Shape::template invoke<Function>(bound, std::make_index_sequence<Shape::kArity>())
        .release();
  });
}

template <auto Function>
void add_function(PyObject* module, const char* name, Parameters parameters, const char* doc) {
  static const std::string text = documentation(name, false, parameters, doc);
  static PyMethodDef definition = {
      name, reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(&call_function<Function>)),
      METH_FASTCALL | METH_KEYWORDS, text.c_str()};
  function_record<Function>.declare(name, nullptr, parameters);
  Ref module_name = take(PyModule_GetNameObject(module));
  Ref function = take(PyCFunction_NewEx(&definition, module, module_name.get()));
  check(PyObject_SetAttrString(module, name, function.get()));
}

}  // namespace tessora::host
