#include "engine/object/class_values.hpp"

#include "engine/object/internal_type.hpp"

namespace tessora::host {

namespace {

// Stands in a script's class for a plain attribute that has the name of an engine attribute. On an
// instance the engine's attribute is read and written, and the class's value shows through only
// while that is unset, as with ordinary Python objects.
struct ClassValue : PyObject {
  PyObject* descriptor;  // of the engine's attribute
  PyObject* name;
  PyObject* value;  // null where the value is a mixin's, found anew each time
};

PyTypeObject* class_value_type = nullptr;

ClassValue& class_value(PyObject* object) noexcept {
  return *static_cast<ClassValue*>(object);
}

// What a class shows under the name when the stand-ins are taken away.
Ref shown_by_class(const ClassValue& mine, PyTypeObject* type, PyObject* instance) {
  if (mine.value != nullptr) return Value(mine.value);
  Ref order = Value(type->tp_mro);
  for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(order.get()); ++index) {
    auto* each = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(order.get(), index));
    if (each->tp_dict == nullptr) continue;
    Ref found = Value(PyDict_GetItemWithError(each->tp_dict, mine.name));
    if (!found) {
      if (PyErr_Occurred() != nullptr) throw HostError();
      continue;
    }
    if (found.type() == class_value_type) {
      if (PyObject* value = class_value(found.get()).value) return Value(value);
      continue;
    }
    descrgetfunc get = found.type()->tp_descr_get;
    if (get == nullptr) return found;
    return take(get(found.get(), instance, reinterpret_cast<PyObject*>(type)));
  }
  raise(PyExc_AttributeError, "%U", Value(mine.name));
}

PyObject* class_value_get(PyObject* self, PyObject* instance, PyObject* owner) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref held = Value(self);
    const ClassValue& mine = class_value(self);
    if (instance != nullptr && instance != Py_None) {
      PyObject* descriptor = mine.descriptor;
      auto* type = reinterpret_cast<PyObject*>(Py_TYPE(instance));
      PyObject* found = Py_TYPE(descriptor)->tp_descr_get(descriptor, instance, type);
      if (found != nullptr) return found;
      if (PyErr_ExceptionMatches(PyExc_AttributeError) == 0) throw HostError();
      PyErr_Clear();
      owner = type;
    }
    if (owner == nullptr || !PyType_Check(owner)) raise(PyExc_TypeError, "a class is missing");
    return shown_by_class(mine, reinterpret_cast<PyTypeObject*>(owner), instance).release();
  });
}

int class_value_set(PyObject* self, PyObject* instance, PyObject* value) {
  PyObject* descriptor = class_value(self).descriptor;
  return Py_TYPE(descriptor)->tp_descr_set(descriptor, instance, value);
}

int class_value_traverse(PyObject* self, visitproc visit, void* arg) {
#if PY_VERSION_HEX >= 0x03090000
  Py_VISIT(Py_TYPE(self));
#endif
  Py_VISIT(class_value(self).descriptor);
  Py_VISIT(class_value(self).value);
  return 0;
}

int class_value_clear(PyObject* self) {
  Py_CLEAR(class_value(self).value);
  return 0;
}

void class_value_deallocate(PyObject* self) {
  PyTypeObject* type = Py_TYPE(self);
  PyObject_GC_UnTrack(self);
  class_value_clear(self);
  Py_CLEAR(class_value(self).descriptor);
  type->tp_free(self);
  Py_DECREF(type);
}

PyTypeObject* make_class_value_type() {
  static PyType_Slot slots[] = {
      {Py_tp_descr_get, reinterpret_cast<void*>(&class_value_get)},
      {Py_tp_descr_set, reinterpret_cast<void*>(&class_value_set)},
      {Py_tp_traverse, reinterpret_cast<void*>(&class_value_traverse)},
      {Py_tp_clear, reinterpret_cast<void*>(&class_value_clear)},
      {Py_tp_dealloc, reinterpret_cast<void*>(&class_value_deallocate)},
      {Py_tp_new, reinterpret_cast<void*>(&refuse_instances)},
      {0, nullptr},
  };
  static PyType_Spec blueprint = {"Tessora._ClassValue", static_cast<int>(sizeof(ClassValue)), 0,
                                  Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_GC, slots};
  return reinterpret_cast<PyTypeObject*>(take(PyType_FromSpec(&blueprint)).release());
}

void put_stand_in(PyTypeObject* type, PyObject* name, PyObject* descriptor, PyObject* value) {
  Ref stand_in = take(class_value_type->tp_alloc(class_value_type, 0));
  class_value(stand_in.get()).descriptor = Ref(Value(descriptor)).release();
  class_value(stand_in.get()).name = name;
  class_value(stand_in.get()).value = Ref(Value(value)).release();
  check(PyType_Type.tp_setattro(reinterpret_cast<PyObject*>(type), name, stand_in.get()));
}

// The class in whose dictionary the name is found first.
PyTypeObject* home_of(PyTypeObject* type, PyObject* name) {
  for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(type->tp_mro); ++index) {
    auto* each = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(type->tp_mro, index));
    if (each->tp_dict != nullptr && PyDict_GetItemWithError(each->tp_dict, name) != nullptr) {
      return each;
    }
  }
  return nullptr;
}

}  // namespace

bool settle_class_values(PyTypeObject* type, const ClassInfo& engine_class) {
  if (class_value_type == nullptr) class_value_type = make_class_value_type();
  bool properties = false;
  for (std::size_t index = 0; index < engine_class.attributes.size(); ++index) {
    PyObject* name = engine_class.attributes[index].name;
    PyObject* expected = engine_class.descriptors[index];
    PyObject* found = _PyType_Lookup(type, name);
    if (found == expected || found == nullptr || Py_TYPE(found) == class_value_type) continue;
    if (Py_TYPE(found)->tp_descr_set != nullptr) {
      properties = true;
      continue;
    }
    Ref value = Value(found);
    PyTypeObject* home = home_of(type, name);
    if (home == nullptr) continue;
    // A mixin is a class of its own: its value stays where it is, and is looked up there.
    bool is_ours = engine_class_of(home) != nullptr;
    put_stand_in(is_ours ? home : type, name, expected, is_ours ? value.get() : nullptr);
  }
  return properties;
}

}  // namespace tessora::host
