// Tables of named things that scripts attach to nodes and layers: one set of functions for all.
#pragma once

#include "engine/core/messages.hpp"
#include "engine/host/class.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;

template <auto Table>
Ref get_entry(host::Object& self, PyObject* const* args) {
  auto& owner = static_cast<host::SlotOwner<Table>&>(self);
  return host::get_item(owner.read(owner.*Table).get(), args[0]);
}

template <auto Table>
Ref delete_entry(host::Object& self, PyObject* const* args) {
  auto& owner = static_cast<host::SlotOwner<Table>&>(self);
  host::del_item(owner.read(owner.*Table).get(), args[0]);
  return host::none();
}

template <auto Table>
Ref clear_entries(host::Object& self, PyObject* const*) {
  auto& owner = static_cast<host::SlotOwner<Table>&>(self);
  host::call_method(owner.read(owner.*Table), "clear"_name);
  return host::none();
}

template <auto Table>
Ref set_entry(host::Object& self, PyObject* const* args) {
  auto& owner = static_cast<host::SlotOwner<Table>&>(self);
  host::set_item(owner.read(owner.*Table).get(), args[0], args[1]);
  return host::none();
}

// An event's entry: the function's name and its code.
template <auto Table>
Ref set_event(host::Object& self, PyObject* const* args) {
  auto& owner = static_cast<host::SlotOwner<Table>&>(self);
  host::set_item(owner.read(owner.*Table).get(), args[0], host::list(args[1], args[2]).get());
  return host::none();
}

// A point's entry: position type, x and y.
template <auto Table>
Ref set_point(host::Object& self, PyObject* const* args) {
  auto& owner = static_cast<host::SlotOwner<Table>&>(self);
  host::set_item(owner.read(owner.*Table).get(), args[0],
                 host::tuple(args[1], args[2], args[3]).get());
  return host::none();
}

// Declares Get..., Del..., CleanUp... and Get...Array for a table of `kind`.
template <auto Table, class Builder>
void declare_table(Builder& builder, const char* kind, const char* parameter) {
  std::string word(kind);
  builder
      .template native_method<&get_entry<Table>, 1>(
          builder.keep("Get" + word), {parameter},
          builder.keep("Return the entry of that name; KeyError for an unknown one."))
      .template native_method<&delete_entry<Table>, 1>(
          builder.keep("Del" + word), {parameter},
          "Delete the entry of that name; KeyError for an unknown one.")
      .template native_method<&clear_entries<Table>, 0>(builder.keep("CleanUp" + word), {},
                                                        "Empty the table in place.")
      .template native_method<&host::native_getter<Table>, 0>(builder.keep("Get" + word + "Array"),
                                                              {}, "Return the table itself.");
}

template <auto Table, class Builder>
void declare_events_table(Builder& builder, const char* kind) {
  builder.template native_method<&set_event<Table>, 3>(
      builder.keep(std::string("Set") + kind), {"eventName", "functionName", "functionCode"},
      "Bind the event to the scene's method that is named after `functionName`.\n\n"
      "`functionCode` is kept beside it for editors.");
  declare_table<Table>(builder, kind, "eventName");
}

// Calls the scene's method for the event of this name in `table`, if one is bound: its name is
// "on_", the layer's name if there is one, and the function's name. `params` holds keyword
// arguments, or is none. `layer_name` is null for the events of a node.
Ref call_bound_event(const Ref& table, const Ref& scene, PyObject* event, PyObject* params,
                     PyObject* layer_name);

// The parameters of a pick event: a position on the screen.
Ref point_params(PyObject* px, PyObject* py);

// Whether a function is bound to the event of this name.
bool is_bound(const Ref& table, PyObject* event);

// The built-in events of a node, as a new dictionary.
PyObject* make_node_events();
// The built-in events of a layer, as a new dictionary.
PyObject* make_layer_events();

}  // namespace tessora
