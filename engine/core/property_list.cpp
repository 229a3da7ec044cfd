#include "engine/core/property_list.hpp"

#include <string>

#include "engine/host/caught.hpp"
#include "engine/host/items.hpp"
#include "engine/host/paths.hpp"
#include "engine/object/module_rows.hpp"
#include "engine/object/recursion.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;
using host::Value;

namespace {

constinit host::Module element_tree{"xml.etree.ElementTree"};
constinit host::Module builtins{"builtins"};

// The bound of newer Pythons: the time for the conversion grows with the square of the length.
constexpr Py_ssize_t kMostDigits = 4300;

// The value of an element without children, or an empty reference for any other tag.
Ref simple_value(Value element, Value tag) {
  if (tag.is_text("true"_name)) return host::boolean(true);
  if (tag.is_text("false"_name)) return host::boolean(false);
  if (tag.is_text("string"_name)) return element.attr("text"_name);
  if (tag.is_text("integer"_name)) return integer_of(element.attr("text"_name));
  if (tag.is_text("real"_name)) return builtins["float"_name](element.attr("text"_name));
  return {};
}

Ref array_value(Value array) {
  Ref values = host::list();
  for (Ref child : host::items(array)) {
    Ref tag = child.attr("tag"_name);
    if (Ref value = simple_value(child, tag)) values.append(value);
  }
  return values;
}

Ref value_of(Value element) {
  Ref tag = element.attr("tag"_name);
  if (tag.is_text("array"_name)) return array_value(element);
  if (tag.is_text("dict"_name)) return tree_to_dict(element);
  return simple_value(element, tag);
}

// Entities and default attributes multiply what is written in a file, and a property list needs
// none. Whatever the encoding: those that the parser knows write these characters as in ASCII, or
// as two bytes of which one is zero.
bool declares_contents(Value data) {
  std::string plain(data.bytes());
  std::erase(plain, '\0');
  return plain.find("<!ENTITY") != std::string::npos ||
         plain.find("<!ATTLIST") != std::string::npos;
}

Ref read_file(Value path) {
  Ref file = builtins["open"_name](host::openable_path(path), "rb");
  Ref data = file.call("read"_name);
  file.call("close"_name);
  return data;
}

Ref read_rect(Value dict) {
  Ref values = host::list();
  for (Value key : {"x"_name, "y"_name, "width"_name, "height"_name}) values.append(dict.item(key));
  return values;
}

Ref read_key_value(Value dict, Value key, Value fallback) {
  Ref found = dict.find_item(key);
  return found ? found : Ref(fallback);
}

}  // namespace

Ref integer_of(Value text) {
  if (text.is_text() && text.length() > kMostDigits) {
    host::raise(PyExc_ValueError, "an integer of %zd characters; %zd are the most that is read",
                text.length(), kMostDigits);
  }
  return builtins["int"_name](text);
}

Ref tree_to_dict(Value tree) {
  host::RecursionGuard guard;
  Ref result = host::dictionary();
  // A list of its own: what the host converts on the way may change the tree.
  const host::Items children = host::items(tree);
  for (Py_ssize_t index = 0; index < children.size(); ++index) {
    Ref child = children[index];
    if (!child.attr("tag"_name).is_text("key"_name)) continue;
    Ref key = child.attr("text"_name);
    if (index + 1 == children.size())
      host::raise(PyExc_IndexError, "there is no value for key %R", key);
    if (Ref value = value_of(children[index + 1])) result.set_item(key, value);
  }
  return result;
}

Ref parse_property_list(Value path) {
  Ref file = host::path_text(path);
  Ref data = read_file(file);
  return host::with_place(file, [&] {
    if (declares_contents(data)) {
      host::raise(PyExc_ValueError, "a property list must declare neither entities nor attributes");
    }
    Ref root = element_tree["fromstring"_name](data);
    Ref top = root.call("find"_name, "dict"_name);
    if (top.is_none()) {
      host::raise(PyExc_ValueError, "the top level of the property list is no dict");
    }
    return tree_to_dict(top);
  });
}

void register_property_list(PyObject* module) {
  host::add_function<&tree_to_dict>(
      module, "tree_to_dict(tree: _ElementTree.Element) -> dict[str, Any]",
      "Return a new dictionary with the entries of a property list's `dict` element.\n\n"
      "`tree` is an xml.etree.ElementTree element: for a whole file, the `dict` child of its\n"
      "root. Strings, booleans, integers, reals, arrays of these and nested dicts are read;\n"
      "other values are left out. Raises IndexError for a key without a value and the\n"
      "conversion's error for a malformed number.");
  host::add_function<&read_rect>(
      module, "read_rect(dict: Mapping[str, _T]) -> list[_T]",
      "Return [x, y, width, height] of a dictionary, with the values as they are stored.\n\n"
      "Raises KeyError if one of them is missing.");
  host::add_function<&read_key_value>(
      module,
      "read_keyValue(dict: Mapping[_Key, _Value], key: _Key, defaultvalue: _T) -> _Value | _T",
      "Return `dict[key]`, or `defaultvalue` if there is no such key.\n\nRaises TypeError for a "
      "key that cannot be hashed.");
}

}  // namespace tessora
