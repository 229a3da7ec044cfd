// Tables of named things that scripts attach to nodes and layers: one set of functions for all.
#pragma once

#include "engine/core/messages.hpp"
#include "engine/object/declaration.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;
using host::Value;

template <auto Table>
using TableOwner = host::SlotOwner<Table>;

template <auto Table>
Ref get_entry(TableOwner<Table>& owner, Value name) {
  Ref table = owner.read(owner.*Table);
  return table.item(name);
}

template <auto Table>
void delete_entry(TableOwner<Table>& owner, Value name) {
  Ref table = owner.read(owner.*Table);
  table.delete_item(name);
}

template <auto Table>
void clear_entries(TableOwner<Table>& owner) {
  Ref table = owner.read(owner.*Table);
  table.call("clear"_name);
}

template <auto Table>
void set_entry(TableOwner<Table>& owner, Value name, Value value) {
  Ref table = owner.read(owner.*Table);
  table.set_item(name, value);
}

// An event's entry: the function's name and its code.
template <auto Table>
void set_event(TableOwner<Table>& owner, Value event, Value function, Value code) {
  set_entry<Table>(owner, event, host::list(function, code));
}

// A point's entry: position type, x and y.
template <auto Table>
void set_point(TableOwner<Table>& owner, Value name, Value type, Value x, Value y) {
  set_entry<Table>(owner, name, host::tuple(type, x, y));
}

// Declares Get..., Del..., CleanUp... and Get...Array for a table of `kind` with entries of `type`.
template <auto Table, class Declaration>
void declare_table(Declaration& owner, const char* kind, const char* parameter, const char* type) {
  const std::string word(kind);
  const std::string name = std::string("(") + parameter + ": str) -> ";
  const std::string table = "`" + word + "Array`";
  const std::string unknown = "Raises KeyError for an unknown one.";
  owner
      .template method<&get_entry<Table>>(
          owner.keep("Get" + word + name + type),
          owner.keep("Return the entry of that name in " + table + ".\n\n" + unknown))
      .template method<&delete_entry<Table>>(
          owner.keep("Del" + word + name + "None"),
          owner.keep("Delete the entry of that name from " + table + ".\n\n" + unknown))
      .template method<&clear_entries<Table>>(owner.keep("CleanUp" + word + "() -> None"),
                                              owner.keep("Empty " + table + " in place."));
  host::declare_getter<Table>(owner, owner.keep("Get" + word + "Array"),
                              std::string("dict[str, ") + type + "]",
                              table + ", the dictionary itself and no copy.");
}

template <auto Table, class Declaration>
void declare_events_table(Declaration& owner, const char* kind) {
  owner.template method<&set_event<Table>>(
      owner.keep(std::string("Set") + kind +
                 "(eventName: str, functionName: str | None, functionCode: Any) -> None"),
      owner.keep(std::string("Bind the event to the scene's method that is named after "
                             "`functionName`; None unbinds it.\n\nThe entry in `") +
                 kind + "Array` becomes [functionName, functionCode]; the code is for editors."));
  declare_table<Table>(owner, kind, "eventName", "list[Any]");
}

// Calls the scene's method for the event of this name in `table`, if one is bound: its name is
// "on_", the layer's name if there is one, and the function's name. `params` holds keyword
// arguments, or is none. `layer_name` is empty for the events of a node.
Ref call_bound_event(Value table, Value scene, Value event, Value params, Value layer_name = {});

// The parameters of a pick event: a position on the screen.
Ref point_params(Value px, Value py);

// Whether a function is bound to the event of this name.
bool is_bound(Value table, Value event);

// Raises a built-in event of a node or layer, if a script has bound a function to it.
template <class Owner>
void raise_inner_event(Owner& owner, Value event) {
  if (owner.is_default(owner.InnerBindingEventArray)) return;
  Ref table = owner.read(owner.InnerBindingEventArray);
  if (is_bound(table, event)) message::CallInnerEvent(owner, event);
}

// The same for an event at a position on the screen.
template <class Owner>
void raise_inner_event(Owner& owner, Value event, Value px, Value py) {
  if (owner.is_default(owner.InnerBindingEventArray)) return;
  Ref table = owner.read(owner.InnerBindingEventArray);
  if (is_bound(table, event)) message::CallInnerEvent(owner, event, point_params(px, py));
}

// The built-in events of a node or a layer, as a new dictionary.
Ref make_node_events(const host::LazyDefault&);
Ref make_layer_events(const host::LazyDefault&);

}  // namespace tessora
