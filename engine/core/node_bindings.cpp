// Named events, points and variables of a node, and calling the scene's event methods.
#include "engine/core/binding_tables.hpp"
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

// The event's entry, or an empty reference when the table has none of that name.
Ref find_entry(const Ref& table, PyObject* event) {
  if (PyDict_CheckExact(table.get()) && PyUnicode_CheckExact(event)) {
    PyObject* found = PyDict_GetItemWithError(table.get(), event);
    if (found == nullptr && PyErr_Occurred() != nullptr) throw host::HostError();
    return Ref::share(found);
  }
  if (!host::contains(table.get(), event)) return {};
  return host::get_item(table.get(), event);
}

Ref function_name(const Ref& entry) {
  if (PyList_CheckExact(entry.get()) && PyList_GET_SIZE(entry.get()) > 0) {
    return Ref::share(PyList_GET_ITEM(entry.get(), 0));
  }
  return host::get_item(entry.get(), host::integer(0).get());
}

Ref events(PyObject* const (&names)[7], std::size_t count, Ref (*make)(PyObject* name)) {
  Ref table = host::take(PyDict_New());
  for (std::size_t index = 0; index < count; ++index) {
    host::check(PyDict_SetItem(table.get(), names[index], make(names[index]).get()));
  }
  return table;
}

Ref node_event(PyObject* name) {
  bool pick = name == "PickDown"_name || name == "PickUp"_name;
  return host::list(Py_None, pick ? host::list("px"_name, "py"_name) : host::list(), host::list());
}

Ref layer_event(PyObject*) {
  return host::list(Py_None, host::list());
}

PyObject* make_events(std::size_t count, Ref (*make)(PyObject* name)) {
  return host::guarded<PyObject*>(nullptr, [&] {
    PyObject* const names[] = {"Load"_name,     "Update"_name, "Render"_name,  "Destroy"_name,
                               "PickDown"_name, "PickUp"_name, "PickTile"_name};
    return events(names, count, make).release();
  });
}

}  // namespace

PyObject* make_node_events() {
  return make_events(6, &node_event);
}
PyObject* make_layer_events() {
  return make_events(7, &layer_event);
}

Ref point_params(PyObject* px, PyObject* py) {
  Ref params = host::take(PyDict_New());
  host::check(PyDict_SetItem(params.get(), "px"_name, px));
  host::check(PyDict_SetItem(params.get(), "py"_name, py));
  return params;
}

bool is_bound(const Ref& table, PyObject* event) {
  Ref entry = find_entry(table, event);
  return entry && host::is_set(function_name(entry));
}

Ref call_bound_event(const Ref& table, const Ref& scene, PyObject* event, PyObject* params,
                     PyObject* layer_name) {
  Ref entry = find_entry(table, event);
  if (!entry) return host::none();
  Ref function = function_name(entry);
  if (!host::is_set(function) || !host::is_set(scene)) return host::none();
  Ref name = host::text("on_");
  if (layer_name != nullptr) {
    name = host::take(PyNumber_Add(name.get(), layer_name));
    name = host::take(PyNumber_Add(name.get(), host::text("_").get()));
  }
  name = host::take(PyNumber_Add(name.get(), function.get()));
  Ref method = host::find_attr(scene.get(), name.get());
  if (!method) return host::none();
  if (!host::is_set(params) || !host::is_true(params)) return host::call(method);
  host::script_ran();
  Ref keywords = host::call(reinterpret_cast<PyObject*>(&PyDict_Type), params);
  Ref result = host::take(PyObject_Call(method.get(), host::tuple().get(), keywords.get()));
  host::script_ran();
  return result;
}

Ref GameNode::CallEvent(PyObject* event, PyObject* params) {
  return call_bound_event(read(BindingEventArray), read(sceneInstance), event, params, nullptr);
}

Ref GameNode::CallInnerEvent(PyObject* event, PyObject* params) {
  if (is_default(InnerBindingEventArray)) return host::none();
  return call_bound_event(read(InnerBindingEventArray), read(sceneInstance), event, params,
                          nullptr);
}

void GameNode::raise_inner_event(PyObject* event, PyObject* params) {
  if (is_default(InnerBindingEventArray)) return;
  if (!is_bound(read(InnerBindingEventArray), event)) return;
  auto* self = static_cast<PyObject*>(this);
  if (params == nullptr) {
    message::CallInnerEvent(self, event);
  } else {
    message::CallInnerEvent(self, event, params);
  }
}

void declare_bindings(NodeBuilder& builder) {
  declare_events_table<&GameNode::BindingEventArray>(builder, "BindingEvent");
  declare_events_table<&GameNode::InnerBindingEventArray>(builder, "InnerBindingEvent");
  builder.native_method<&set_point<&GameNode::BindingPointArray>, 4>(
      "SetBindingPoint", {"pointName", "posType", "x", "y"},
      "Store the triple `posType`, `x`, `y` under the point's name.");
  declare_table<&GameNode::BindingPointArray>(builder, "BindingPoint", "pointName");
  builder.native_method<&set_entry<&GameNode::BindingVarArray>, 2>(
      "SetBindingVar", {"varname", "varvalue"}, "Store a value under the variable's name.");
  declare_table<&GameNode::BindingVarArray>(builder, "BindingVar", "varname");
  builder
      .method<&GameNode::CallEvent>(
          "CallEvent", {"eventName", {"params", nullptr}},
          "Call the scene's method \"on_\" + function name that is bound to the event.\n\n"
          "`params` is a dictionary of keyword arguments. Returns the method's result, None when "
          "nothing is bound or the scene has no such method.")
      .method<&GameNode::CallInnerEvent>(
          "CallInnerEvent", {"eventName", {"params", nullptr}},
          "Call the scene's method that is bound to a built-in event, as CallEvent does.");
}

}  // namespace tessora
