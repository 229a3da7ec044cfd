// What every engine object has beside its class's own attributes and methods: `__dict__` as a live
// mapping, and support for copying.
#include "engine/host/attributes.hpp"

#include "engine/host/modules.hpp"

namespace tessora::host {

namespace {

PyObject* view_type = nullptr;

Object& viewed(const Ref& node) {
  return *static_cast<Object*>(node.get());
}

Ref node_of(PyObject* view) {
  Ref node = take(PyObject_GetAttr(view, "_node"_name));
  if (engine_object(node.get()) == nullptr) raise(PyExc_TypeError, "not a view of a node");
  return node;
}

const ClassInfo& info_of(PyObject* object) {
  return *type_entry(Py_TYPE(object)).engine_class;
}

// The attribute of this name, or null when the name belongs to the script's own attributes.
const Attribute* attribute_named(PyObject* object, PyObject* name) {
  return PyUnicode_Check(name) ? info_of(object).find(name) : nullptr;
}

[[noreturn]] void raise_key_error(PyObject* key) {
  PyErr_SetObject(PyExc_KeyError, key);
  throw HostError();
}

template <std::size_t Count>
void parse(PyObject* args, PyObject* (&values)[Count]) {
  if (PyTuple_GET_SIZE(args) != static_cast<Py_ssize_t>(Count)) {
    raise(PyExc_TypeError, "wrong number of arguments");
  }
  std::copy_n(PySequence_Fast_ITEMS(args), Count, values);
}

PyObject* view_get(PyObject*, PyObject* args) {
  return guarded<PyObject*>(nullptr, [&] {
    PyObject* values[2];
    parse(args, values);
    Ref node = node_of(values[0]);
    Ref value;
    if (const Attribute* attribute = attribute_named(node.get(), values[1])) {
      value = attribute_value(node.get(), *attribute);
    } else if (PyObject* own = viewed(node).own_attributes) {
      value = Ref::share(PyDict_GetItemWithError(own, values[1]));
      if (!value && PyErr_Occurred() != nullptr) throw HostError();
    }
    if (!value) raise_key_error(values[1]);
    return value.release();
  });
}

void store(Object& node, PyObject* name, PyObject* value) {
  if (const Attribute* attribute = attribute_named(&node, name)) {
    Slot& slot = attribute->of(&node);
    script_ran();
    Ref old = Ref::steal(std::exchange(slot.object, Ref::share(value).release()));
    return;
  }
  if (node.own_attributes == nullptr) node.own_attributes = take(PyDict_New()).release();
  check(PyDict_SetItem(node.own_attributes, name, value));
  script_ran();
}

PyObject* view_set(PyObject*, PyObject* args) {
  return guarded<PyObject*>(nullptr, [&] {
    PyObject* values[3];
    parse(args, values);
    Ref node = node_of(values[0]);
    store(viewed(node), values[1], values[2]);
    return none().release();
  });
}

PyObject* view_delete(PyObject*, PyObject* args) {
  return guarded<PyObject*>(nullptr, [&] {
    PyObject* values[2];
    parse(args, values);
    Ref node = node_of(values[0]);
    script_ran();
    if (const Attribute* attribute = attribute_named(node.get(), values[1])) {
      Ref old = Ref::steal(std::exchange(attribute->of(node.get()).object, nullptr));
      if (!old) raise_key_error(values[1]);
      return none().release();
    }
    PyObject* own = viewed(node).own_attributes;
    if (own == nullptr) raise_key_error(values[1]);
    check(PyDict_DelItem(own, values[1]));
    return none().release();
  });
}

Ref names_of(PyObject* node) {
  Ref names = take(PyList_New(0));
  for (const Attribute& attribute : info_of(node).attributes) {
    if (attribute.of(node).object != nullptr) check(PyList_Append(names.get(), attribute.name));
  }
  if (PyObject* own = static_cast<Object*>(node)->own_attributes) {
    Ref keys = take(PyDict_Keys(own));
    check(PyList_SetSlice(names.get(), PyList_GET_SIZE(names.get()), PyList_GET_SIZE(names.get()),
                          keys.get()));
  }
  return names;
}

PyObject* view_iterate(PyObject*, PyObject* args) {
  return guarded<PyObject*>(nullptr, [&] {
    PyObject* values[1];
    parse(args, values);
    return take(PyObject_GetIter(names_of(node_of(values[0]).get()).get())).release();
  });
}

PyObject* view_length(PyObject*, PyObject* args) {
  return guarded<PyObject*>(nullptr, [&] {
    PyObject* values[1];
    parse(args, values);
    return integer(PyList_GET_SIZE(names_of(node_of(values[0]).get()).get())).release();
  });
}

PyObject* view_copy(PyObject*, PyObject* args) {
  return guarded<PyObject*>(nullptr, [&] {
    PyObject* values[1];
    parse(args, values);
    return call(reinterpret_cast<PyObject*>(&PyDict_Type), values[0]).release();
  });
}

PyObject* view_repr(PyObject*, PyObject* args) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref copy = take(view_copy(nullptr, args));
    return take(PyObject_Repr(copy.get())).release();
  });
}

PyMethodDef view_methods[] = {
    {"__getitem__", &view_get, METH_VARARGS, nullptr},
    {"__setitem__", &view_set, METH_VARARGS, nullptr},
    {"__delitem__", &view_delete, METH_VARARGS, nullptr},
    {"__iter__", &view_iterate, METH_VARARGS, nullptr},
    {"__len__", &view_length, METH_VARARGS, nullptr},
    {"__repr__", &view_repr, METH_VARARGS, nullptr},
    {"copy", &view_copy, METH_VARARGS, nullptr},
};

PyObject* make_view_type() {
  Ref mapping = import("collections.abc", "MutableMapping"_name);
  Ref space = take(PyDict_New());
  for (PyMethodDef& definition : view_methods) {
    Ref function = take(PyCFunction_New(&definition, nullptr));
    Ref method = take(PyInstanceMethod_New(function.get()));
    check(PyDict_SetItemString(space.get(), definition.ml_name, method.get()));
  }
  check(PyDict_SetItemString(space.get(), "__slots__", tuple("_node"_name).get()));
  check(PyDict_SetItemString(space.get(), "__module__", text("Tessora").get()));
  check(PyDict_SetItemString(
      space.get(), "__doc__",
      text("Live mapping of an engine object's attributes, in the order of construction.").get()));
  return call(Ref::share(reinterpret_cast<PyObject*>(Py_TYPE(mapping.get()))), text("Attributes"),
              tuple(mapping), space)
      .release();
}

PyObject* get_dict(PyObject* self, void*) {
  return guarded<PyObject*>(nullptr, [&] {
    if (view_type == nullptr) view_type = make_view_type();
    Ref view = call_method(view_type, "__new__"_name, view_type);
    check(PyObject_SetAttr(view.get(), "_node"_name, self));
    return view.release();
  });
}

int set_dict(PyObject* self, PyObject* value, void*) {
  return guarded(-1, [&] {
    if (value == nullptr) raise(PyExc_TypeError, "__dict__ cannot be deleted");
    // Taken apart first: the value may be a view of the same object.
    Ref items = call(reinterpret_cast<PyObject*>(&PyDict_Type), value);
    clear(info_of(self), self);
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* item = nullptr;
    while (PyDict_Next(items.get(), &position, &key, &item) != 0) {
      store(*static_cast<Object*>(self), key, item);
    }
    return 0;
  });
}

// copy, deepcopy and pickle: a new object without its constructor, then the attributes.
PyObject* reduce(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref make = import("copyreg", "__newobj__"_name);
    Ref state;
    Ref hook = find_attr(self, "__getstate__"_name);
    PyObject* plain = _PyType_Lookup(&PyBaseObject_Type, "__getstate__"_name);
    if (hook && _PyType_Lookup(Py_TYPE(self), "__getstate__"_name) != plain) {
      state = call(hook);
    } else {
      state = call(reinterpret_cast<PyObject*>(&PyDict_Type), get_attr(self, "__dict__"_name));
    }
    return tuple(make, tuple(reinterpret_cast<PyObject*>(Py_TYPE(self))), state).release();
  });
}

PyObject* directory(PyObject* self, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref names = call_method(reinterpret_cast<PyObject*>(&PyBaseObject_Type), "__dir__"_name, self);
    if (PyObject* own = static_cast<Object*>(self)->own_attributes) {
      Ref keys = take(PyDict_Keys(own));
      check(PyList_SetSlice(names.get(), PyList_GET_SIZE(names.get()), PyList_GET_SIZE(names.get()),
                            keys.get()));
    }
    return names.release();
  });
}

void lazy_default_deallocate(PyObject* self) {
  PyTypeObject* type = Py_TYPE(self);
  type->tp_free(self);
  Py_DECREF(type);
}

}  // namespace

getter attributes_get = &get_dict;
setter attributes_set = &set_dict;
PyCFunction object_reduce = &reduce;
PyCFunction object_directory = &directory;

PyObject* lazy_default(PyObject* (*make)()) {
  if (lazy_default_type == nullptr) {
    static PyType_Slot slots[] = {
        {Py_tp_dealloc, reinterpret_cast<void*>(&lazy_default_deallocate)}, {0, nullptr}};
    static PyType_Spec blueprint = {"Tessora._LazyDefault", static_cast<int>(sizeof(LazyDefault)),
                                    0, Py_TPFLAGS_DEFAULT, slots};
    lazy_default_type =
        reinterpret_cast<PyTypeObject*>(take(PyType_FromSpec(&blueprint)).release());
  }
  Ref made = take(lazy_default_type->tp_alloc(lazy_default_type, 0));
  static_cast<LazyDefault*>(made.get())->make = make;
  return made.release();
}

void Object::materialise(LazySlot& slot) {
  Ref holder = Ref::share(slot.object);
  Ref value = take(static_cast<LazyDefault*>(holder.get())->make());
  // Making the value may have run a script that set the attribute.
  if (slot.object != holder.get()) return;
  slot.object = value.release();
  Py_DECREF(holder.get());
}

Ref Object::read_slow(const Slot& slot) const {
  auto* self = const_cast<Object*>(this);
  auto offset = reinterpret_cast<const char*>(&slot) - reinterpret_cast<const char*>(this);
  const Attribute& attribute = info_of(self).at(offset);
  // The host's look-up also finds a property, and what it says of an unset attribute.
  return get_attr(self, attribute.name);
}

void Object::write_slow(Slot& slot, PyObject* value) {
  auto offset = reinterpret_cast<const char*>(&slot) - reinterpret_cast<const char*>(this);
  set_attr(this, info_of(this).at(offset).name, value);
}

}  // namespace tessora::host
