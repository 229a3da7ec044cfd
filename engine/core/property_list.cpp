#include "engine/core/property_list.hpp"

#include <string>

#include "engine/host/dispatch.hpp"
#include "engine/host/functions.hpp"
#include "engine/host/modules.hpp"
#include "engine/host/paths.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;

namespace {

constinit host::Module element_tree{"xml.etree.ElementTree"};
constinit host::Module builtins{"builtins"};

// A list of its own: what the host converts on the way may change the tree.
Ref children_of(PyObject* element) {
  host::script_ran();
  Ref children = host::take(PySequence_List(element));
  host::script_ran();
  return children;
}

Ref text_of(PyObject* element) {
  return host::get_attr(element, "text"_name);
}

// The value of an element without children, or an empty reference for any other tag.
Ref simple_value(PyObject* element, PyObject* tag) {
  if (host::is_text(tag, "string"_name)) return text_of(element);
  if (host::is_text(tag, "true"_name)) return host::boolean(true);
  if (host::is_text(tag, "false"_name)) return host::boolean(false);
  if (host::is_text(tag, "integer"_name)) {
    return host::call(reinterpret_cast<PyObject*>(&PyLong_Type), text_of(element));
  }
  if (host::is_text(tag, "real"_name)) {
    return host::call(reinterpret_cast<PyObject*>(&PyFloat_Type), text_of(element));
  }
  return {};
}

Ref array_value(PyObject* array) {
  Ref values = host::list();
  Ref children = children_of(array);
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(children.get()); ++index) {
    PyObject* child = PyList_GET_ITEM(children.get(), index);
    Ref value = simple_value(child, host::get_attr(child, "tag"_name).get());
    if (value) host::check(PyList_Append(values.get(), value.get()));
  }
  return values;
}

Ref value_of(PyObject* element) {
  Ref tag = host::get_attr(element, "tag"_name);
  if (host::is_text(tag.get(), "array"_name)) return array_value(element);
  if (host::is_text(tag.get(), "dict"_name)) return tree_to_dict(element);
  return simple_value(element, tag.get());
}

// Whatever the encoding: those that the parser knows write these characters as in ASCII, or as
// two bytes of which one is zero.
bool declares_entities(const Ref& data) {
  char* bytes = nullptr;
  Py_ssize_t size = 0;
  host::check(PyBytes_AsStringAndSize(data.get(), &bytes, &size));
  std::string plain(bytes, static_cast<std::size_t>(size));
  std::erase(plain, '\0');
  return plain.find("<!ENTITY") != std::string::npos;
}

Ref read_file(PyObject* path) {
  Ref file = host::call(builtins["open"_name], host::openable_path(path), host::text("rb"));
  Ref data = host::call_method(file, "read"_name);
  host::call_method(file, "close"_name);
  return data;
}

Ref read_rect(PyObject* dict) {
  return host::list(host::get_item(dict, "x"_name), host::get_item(dict, "y"_name),
                    host::get_item(dict, "width"_name), host::get_item(dict, "height"_name));
}

Ref read_key_value(PyObject* dict, PyObject* key, PyObject* fallback) {
  return host::contains(dict, key) ? host::get_item(dict, key) : Ref::share(fallback);
}

}  // namespace

Ref tree_to_dict(PyObject* tree) {
  host::RecursionGuard guard;
  Ref result = host::take(PyDict_New());
  Ref children = children_of(tree);
  Py_ssize_t count = PyList_GET_SIZE(children.get());
  for (Py_ssize_t index = 0; index < count; ++index) {
    PyObject* child = PyList_GET_ITEM(children.get(), index);
    if (!host::is_text(host::get_attr(child, "tag"_name).get(), "key"_name)) continue;
    Ref key = text_of(child);
    if (index + 1 == count) host::raise(PyExc_IndexError, "child index out of range");
    Ref value = value_of(PyList_GET_ITEM(children.get(), index + 1));
    if (value) host::set_item(result.get(), key.get(), value.get());
  }
  return result;
}

Ref parse_property_list(PyObject* path) {
  Ref data = read_file(path);
  // Entities may expand without end, and a property list needs none.
  if (declares_entities(data)) {
    host::raise(PyExc_ValueError, "a property list must not declare entities");
  }
  Ref root = host::call(element_tree["fromstring"_name], data);
  Ref top = host::call_method(root, "find"_name, "dict"_name);
  if (top.get() == Py_None) {
    host::raise(PyExc_ValueError, "the top level of the property list is no dict");
  }
  return tree_to_dict(top.get());
}

void register_property_list(PyObject* module) {
  host::add_function<&tree_to_dict>(
      module, "tree_to_dict", {"tree"},
      "Return a new dictionary with the entries of a property list's `dict` element.\n\n"
      "`tree` is an xml.etree.ElementTree element: for a whole file, the `dict` child of its\n"
      "root. Strings, booleans, integers, reals, arrays of these and nested dicts are read;\n"
      "other values are left out. Raises IndexError for a key without a value and the\n"
      "conversion's error for a malformed number.");
  host::add_function<&read_rect>(
      module, "read_rect", {"dict"},
      "Return [x, y, width, height] of a dictionary, with the values as they are stored.\n\n"
      "Raises KeyError if one of them is missing.");
  host::add_function<&read_key_value>(
      module, "read_keyValue", {"dict", "key", "defaultvalue"},
      "Return `dict[key]`, or `defaultvalue` if there is no such key.");
}

}  // namespace tessora
