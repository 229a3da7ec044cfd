// Named events, points and variables of a node, and calling the scene's event methods.
#include "engine/core/binding_tables.hpp"
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

Ref events(std::initializer_list<Value> names, Ref (*make)(Value name)) {
  Ref table = host::dictionary();
  for (Value name : names) table.set_item(name, make(name));
  return table;
}

Ref node_event(Value name) {
  const bool pick = name.is("PickDown"_name) || name.is("PickUp"_name);
  Ref parameters = pick ? host::list("px"_name, "py"_name) : host::list();
  return host::list(nullptr, parameters, host::list());
}

Ref layer_event(Value) {
  return host::list(nullptr, host::list());
}

}  // namespace

Ref make_node_events(const host::LazyDefault&) {
  return events(
      {"Load"_name, "Update"_name, "Render"_name, "Destroy"_name, "PickDown"_name, "PickUp"_name},
      &node_event);
}

Ref make_layer_events(const host::LazyDefault&) {
  return events({"Load"_name, "Update"_name, "Render"_name, "Destroy"_name, "PickDown"_name,
                 "PickUp"_name, "PickTile"_name},
                &layer_event);
}

Ref point_params(Value px, Value py) {
  Ref params = host::dictionary();
  params.set_item("px"_name, px);
  params.set_item("py"_name, py);
  return params;
}

bool is_bound(Value table, Value event) {
  Ref entry = table.find_item(event);
  if (!entry) return false;
  Ref function = entry.item(0);
  return function.is_set();
}

Ref call_bound_event(Value table, Value scene, Value event, Value params, Value layer_name) {
  Ref entry = table.find_item(event);
  if (!entry) return host::none();
  Ref function = entry.item(0);
  if (!function.is_set() || !scene.is_set()) return host::none();
  Ref name = "on_"_name;
  if (layer_name) {
    name = host::joined(name, layer_name);
    name = host::joined(name, "_"_name);
  }
  name = host::joined(name, function);
  Ref method = scene.find_attr(name);
  if (!method) return host::none();
  if (!params.is_set() || !params.is_true()) return method();
  return host::call_with_keywords(method, params);
}

Ref GameNode::CallEvent(Value event, Value params) {
  Ref table = read(BindingEventArray);
  Ref scene = read(sceneInstance);
  return call_bound_event(table, scene, event, params);
}

Ref GameNode::CallInnerEvent(Value event, Value params) {
  if (is_default(InnerBindingEventArray)) return host::none();
  Ref table = read(InnerBindingEventArray);
  Ref scene = read(sceneInstance);
  return call_bound_event(table, scene, event, params);
}

void declare_bindings(NodeDeclaration& node) {
  declare_events_table<&GameNode::BindingEventArray>(node, "BindingEvent");
  declare_events_table<&GameNode::InnerBindingEventArray>(node, "InnerBindingEvent");
  node.method<&set_point<&GameNode::BindingPointArray>>(
      "SetBindingPoint(pointName: str, posType: Any, x: float, y: float) -> None",
      "Store the triple (`posType`, `x`, `y`) in `BindingPointArray` under the point's name.");
  declare_table<&GameNode::BindingPointArray>(node, "BindingPoint", "pointName",
                                              "tuple[Any, float, float]");
  node.method<&set_entry<&GameNode::BindingVarArray>>(
      "SetBindingVar(varname: str, varvalue: Any) -> None",
      "Store a value in `BindingVarArray` under the variable's name.");
  declare_table<&GameNode::BindingVarArray>(node, "BindingVar", "varname", "Any");
  node.method<&GameNode::CallEvent>(
          "CallEvent(eventName: str, params: Mapping[str, Any] | None = None) -> Any",
          "Call the scene's method \"on_\" + function name that is bound to the event.\n\n"
          "`params` is a dictionary of keyword arguments. Returns the method's result, None when "
          "nothing is bound or the scene has no such method.")
      .method<&GameNode::CallInnerEvent>(
          "CallInnerEvent(eventName: str, params: Mapping[str, Any] | None = None) -> Any",
          "Call the scene's method that is bound to a built-in event; arguments and result are "
          "those of CallEvent.");
}

}  // namespace tessora
