#include "engine/object/instance_dict.hpp"

#include "engine/host/items.hpp"
#include "engine/host/modules.hpp"

namespace tessora::host {

namespace {

PyObject* view_type = nullptr;

const ClassInfo& info_of(Value object) {
  return *type_record(object.type()).engine_class;
}

Object& object_of(Value node) {
  return *static_cast<Object*>(node.get());
}

Ref node_of(Value view) {
  Ref node = view.attr("_node"_name);
  if (engine_object(node) == nullptr) raise(PyExc_TypeError, "not a view of a node");
  return node;
}

// The script's own attributes, which may be replaced while they are used; empty without any.
Ref own_of(Value node) {
  return Value(object_of(node).own_attributes);
}

// The attribute of this name, or null when the name belongs to the script's own attributes.
const Attribute* attribute_named(Value object, Value name) {
  return name.is_text() ? info_of(object).find(name) : nullptr;
}

[[noreturn]] void raise_key_error(Value key) {
  PyErr_SetObject(PyExc_KeyError, key.get());
  throw HostError();
}

void store(Value node, Value name, Value value) {
  script_ran();
  if (const Attribute* attribute = attribute_named(node, name)) {
    Ref old = Ref::steal(std::exchange(attribute->of(node.get()), Ref(value).release()));
    return;
  }
  Object& object = object_of(node);
  if (object.own_attributes == nullptr) object.own_attributes = dictionary().release();
  own_of(node).set_item(name, value);
}

Ref view_get(Value view, Value name) {
  Ref node = node_of(view);
  Ref value;
  if (const Attribute* attribute = attribute_named(node, name)) {
    value = attribute->value(node.get());
  } else if (Ref own = own_of(node)) {
    value = Value(PyDict_GetItemWithError(own.get(), name.get()));
    if (!value && PyErr_Occurred() != nullptr) throw HostError();
  }
  if (!value) raise_key_error(name);
  return value;
}

void view_set(Value view, Value name, Value value) {
  Ref node = node_of(view);
  store(node, name, value);
}

void view_delete(Value view, Value name) {
  Ref node = node_of(view);
  script_ran();
  if (const Attribute* attribute = attribute_named(node, name)) {
    Ref old = Ref::steal(std::exchange(attribute->of(node.get()), nullptr));
    if (!old) raise_key_error(name);
    return;
  }
  Ref own = own_of(node);
  if (!own) raise_key_error(name);
  own.delete_item(name);
}

Ref names_of(Value node) {
  Ref names = list();
  for (const Attribute& attribute : info_of(node).attributes) {
    if (attribute.of(node.get()) != nullptr) names.append(attribute.name);
  }
  if (Ref own = own_of(node)) {
    for (Ref key : items(own)) names.append(key);
  }
  return names;
}

Ref view_iterate(Value view) {
  Ref node = node_of(view);
  Ref names = names_of(node);
  return take(PyObject_GetIter(names.get()));
}

Ref view_length(Value view) {
  Ref node = node_of(view);
  Ref names = names_of(node);
  return integer(names.length());
}

Ref view_copy(Value view) {
  return Value(&PyDict_Type)(view);
}

// A copy of a view is a plain dictionary.
Ref view_reduce(Value view, Value) {
  Ref copy = view_copy(view);
  return tuple(Value(&PyDict_Type), tuple(copy));
}

Ref view_refuse(Value) {
  raise(PyExc_TypeError, "cannot create 'Attributes' instances");
}

Ref view_repr(Value view) {
  Ref copy = view_copy(view);
  return take(PyObject_Repr(copy.get()));
}

template <class Result, class... Args>
struct Plain {
  template <Result (*Code)(Args...)>
  static PyObject* call(PyObject*, PyObject* args) {
    return guarded<PyObject*>(nullptr, [&] {
      if (PyTuple_GET_SIZE(args) != static_cast<Py_ssize_t>(sizeof...(Args))) {
        raise(PyExc_TypeError, "wrong number of arguments");
      }
      return invoke<Code>(args, std::index_sequence_for<Args...>()).release();
    });
  }

 private:
  template <Result (*Code)(Args...), std::size_t... Index>
  static Ref invoke(PyObject* args, std::index_sequence<Index...>) {
    if constexpr (std::is_void_v<Result>) {
      Code(Value(PyTuple_GET_ITEM(args, static_cast<Py_ssize_t>(Index)))...);
      return none();
    } else {
      return Code(Value(PyTuple_GET_ITEM(args, static_cast<Py_ssize_t>(Index)))...);
    }
  }
};

PyMethodDef view_methods[] = {
    {"__getitem__", &Plain<Ref, Value, Value>::call<&view_get>, METH_VARARGS, nullptr},
    {"__setitem__", &Plain<void, Value, Value, Value>::call<&view_set>, METH_VARARGS, nullptr},
    {"__delitem__", &Plain<void, Value, Value>::call<&view_delete>, METH_VARARGS, nullptr},
    {"__iter__", &Plain<Ref, Value>::call<&view_iterate>, METH_VARARGS, nullptr},
    {"__len__", &Plain<Ref, Value>::call<&view_length>, METH_VARARGS, nullptr},
    {"__repr__", &Plain<Ref, Value>::call<&view_repr>, METH_VARARGS, nullptr},
    {"__reduce_ex__", &Plain<Ref, Value, Value>::call<&view_reduce>, METH_VARARGS, nullptr},
    {"__new__", &Plain<Ref, Value>::call<&view_refuse>, METH_VARARGS, nullptr},
    {"copy", &Plain<Ref, Value>::call<&view_copy>, METH_VARARGS, nullptr},
};

PyObject* make_view_type() {
  Ref mapping = import("collections.abc", "MutableMapping"_name);
  Ref space = dictionary();
  for (PyMethodDef& definition : view_methods) {
    Ref function = take(PyCFunction_New(&definition, nullptr));
    Value name = intern(definition.ml_name);
    // Python makes a static method of __new__ by itself only where it is written in Python.
    Ref method = name.is("__new__"_name) ? take(PyStaticMethod_New(function.get()))
                                         : take(PyInstanceMethod_New(function.get()));
    space.set_item(name, method);
  }
  space.set_item("__slots__"_name, tuple("_node"_name));
  space.set_item("__module__"_name, "Tessora"_name);
  space.set_item(
      "__doc__"_name,
      text("Live mapping of an engine object's attributes, in the order of construction."));
  Ref bases = tuple(mapping);
  return Value(mapping.type())(text("Attributes"), bases, space).release();
}

PyObject* get_dict(PyObject* self, void*) {
  return guarded<PyObject*>(nullptr, [&] {
    if (view_type == nullptr) view_type = make_view_type();
    Ref view = Value(&PyBaseObject_Type).call("__new__"_name, view_type);
    view.set_attr("_node"_name, self);
    return view.release();
  });
}

int set_dict(PyObject* self, PyObject* value, void*) {
  return guarded(-1, [&] {
    if (value == nullptr) raise(PyExc_TypeError, "__dict__ cannot be deleted");
    // Taken apart first: the value may be a view of the same object.
    Ref given = Value(&PyDict_Type)(value);
    clear_attributes(info_of(self), self);
    // Emptied, not replaced: a key's comparison may come here in the middle of a look-up.
    if (Ref own = own_of(self)) PyDict_Clear(own.get());
    for (auto [key, item] : entries(given)) store(self, key, item);
    return 0;
  });
}

// copy, deepcopy and pickle: a new object without its constructor, then the attributes.
PyObject* reduce(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref make = import("copyreg", "__newobj__"_name);
    Ref state;
    Ref hook = Value(self).find_attr("__getstate__"_name);
    Value name = "__getstate__"_name;
    PyObject* plain = _PyType_Lookup(&PyBaseObject_Type, name.get());
    if (hook && _PyType_Lookup(Py_TYPE(self), name.get()) != plain) {
      state = hook();
    } else {
      Ref view = Value(self).attr("__dict__"_name);
      state = Value(&PyDict_Type)(view);
    }
    return tuple(make, tuple(Value(Py_TYPE(self))), state).release();
  });
}

PyObject* directory(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref names = Value(&PyBaseObject_Type).call("__dir__"_name, self);
    if (Ref own = own_of(self)) {
      for (Ref key : items(own)) names.append(key);
    }
    return names.release();
  });
}

}  // namespace

void add_object_protocol(std::vector<PyGetSetDef>& properties, std::vector<PyMethodDef>& methods) {
  properties.push_back({"__dict__", &get_dict, &set_dict,
                        "Live mapping of all attributes, in the order in which they were set.",
                        nullptr});
  methods.push_back({"__reduce_ex__", &reduce, METH_O, "Support for copying and pickling."});
  methods.push_back({"__dir__", &directory, METH_NOARGS, "Names for completion."});
}

}  // namespace tessora::host
