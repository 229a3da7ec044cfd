#include "engine/host/class.hpp"

#include <cstring>
#include <unordered_map>

namespace tessora::host {

namespace {

std::unordered_map<PyTypeObject*, const ClassInfo*> engine_classes;
std::unordered_map<PyObject*, const Method*> engine_methods;

bool is_data_descriptor(PyObject* value) noexcept {
  return Py_TYPE(value)->tp_descr_set != nullptr;
}

// A plain attribute of a script's subclass that has the name of an engine attribute. On the class
// it keeps its value; on an instance the engine's attribute is read and written, and the class's
// value shows through only while that is unset, as with ordinary host objects.
struct ClassValue : PyObject {
  PyObject* descriptor;
  PyObject* value;
};

PyTypeObject* class_value_type = nullptr;

ClassValue& class_value(PyObject* object) noexcept {
  return *static_cast<ClassValue*>(object);
}

PyObject* class_value_get(PyObject* self, PyObject* instance, PyObject*) {
  ClassValue& mine = class_value(self);
  if (instance != nullptr && instance != Py_None) {
    PyObject* descriptor = mine.descriptor;
    PyObject* found =
        Py_TYPE(descriptor)
            ->tp_descr_get(descriptor, instance, reinterpret_cast<PyObject*>(Py_TYPE(instance)));
    if (found != nullptr || PyErr_ExceptionMatches(PyExc_AttributeError) == 0) return found;
    PyErr_Clear();
  }
  Py_INCREF(mine.value);
  return mine.value;
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
  Py_CLEAR(class_value(self).descriptor);
  Py_CLEAR(class_value(self).value);
  return 0;
}

void class_value_deallocate(PyObject* self) {
  PyTypeObject* type = Py_TYPE(self);
  PyObject_GC_UnTrack(self);
  class_value_clear(self);
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
      {0, nullptr},
  };
  static PyType_Spec blueprint = {"Tessora._ClassValue", static_cast<int>(sizeof(ClassValue)), 0,
                                  Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_GC, slots};
  return reinterpret_cast<PyTypeObject*>(take(PyType_FromSpec(&blueprint)).release());
}

void wrap_class_value(PyTypeObject* type, PyObject* name, PyObject* descriptor, PyObject* value) {
  if (class_value_type == nullptr) class_value_type = make_class_value_type();
  Ref wrapper = take(class_value_type->tp_alloc(class_value_type, 0));
  class_value(wrapper.get()).descriptor = Ref::share(descriptor).release();
  class_value(wrapper.get()).value = Ref::share(value).release();
  check(PyType_Type.tp_setattro(reinterpret_cast<PyObject*>(type), name, wrapper.get()));
}

PyObject* get_lazy(PyObject* self, void* closure) {
  return guarded<PyObject*>(nullptr, [&] {
    const auto& attribute = *static_cast<const Attribute*>(closure);
    Ref value = attribute_value(self, attribute);
    if (!value) {
      PyErr_SetObject(PyExc_AttributeError, attribute.name);
      throw HostError();
    }
    return value.release();
  });
}

int set_lazy(PyObject* self, PyObject* value, void* closure) {
  const auto& attribute = *static_cast<const Attribute*>(closure);
  script_ran();
  Slot& slot = attribute.of(self);
  PyObject* old = slot.object;
  if (value == nullptr && old == nullptr) {
    PyErr_SetObject(PyExc_AttributeError, attribute.name);
    return -1;
  }
  Py_XINCREF(value);
  slot.object = value;
  Py_XDECREF(old);
  return 0;
}

}  // namespace

struct ClassBuilderBase::Tables {
  std::deque<std::string> texts;
  std::deque<Attribute> lazy;
  std::vector<PyMemberDef> members;
  std::vector<PyMethodDef> methods;
  std::vector<PyGetSetDef> properties;
  std::vector<std::pair<const char*, const Method*>> records;
};

const Attribute* ClassInfo::find(PyObject* name) const {
  for (const Attribute& attribute : attributes) {
    if (attribute.name == name) return &attribute;
  }
  for (const Attribute& attribute : attributes) {
    if (equals(attribute.name, name)) return &attribute;
  }
  return nullptr;
}

const Attribute& ClassInfo::at(Py_ssize_t offset) const {
  for (const Attribute& attribute : attributes) {
    if (attribute.offset == offset) return attribute;
  }
  raise(PyExc_SystemError, "no attribute at this place");
}

const ClassInfo* engine_class_of(PyTypeObject* type) {
  for (; type != nullptr; type = type->tp_base) {
    auto found = engine_classes.find(type);
    if (found != engine_classes.end()) return found->second;
  }
  return nullptr;
}

const Method* engine_method(PyObject* descriptor) {
  auto found = engine_methods.find(descriptor);
  return found == engine_methods.end() ? nullptr : found->second;
}

bool settle_class_attributes(PyTypeObject* type, const ClassInfo& engine_class) {
  bool properties = false;
  for (std::size_t index = 0; index < engine_class.attributes.size(); ++index) {
    PyObject* name = engine_class.attributes[index].name;
    PyObject* expected = engine_class.descriptors[index];
    PyObject* found = _PyType_Lookup(type, name);
    if (found == expected || found == nullptr || Py_TYPE(found) == class_value_type) continue;
    if (is_data_descriptor(found)) {
      properties = true;
    } else {
      Ref value = Ref::share(found);
      wrap_class_value(type, name, expected, value.get());
    }
  }
  return properties;
}

Ref attribute_value(PyObject* object, const Attribute& attribute) {
  Slot& slot = attribute.of(object);
  if (attribute.lazy && slot.object != nullptr && Py_TYPE(slot.object) == lazy_default_type) {
    Object::materialise(static_cast<LazySlot&>(slot));
  }
  return Ref::share(slot.object);
}

int traverse(const ClassInfo& info, PyObject* self, visitproc visit, void* arg) {
#if PY_VERSION_HEX >= 0x03090000
  Py_VISIT(Py_TYPE(self));
#endif
  Py_VISIT(static_cast<Object*>(self)->own_attributes);
  for (const Attribute& attribute : info.attributes) Py_VISIT(attribute.of(self).object);
  for (const Attribute& attribute : info.hidden) Py_VISIT(attribute.of(self).object);
  return 0;
}

void clear(const ClassInfo& info, PyObject* self) {
  script_ran();
  Py_CLEAR(static_cast<Object*>(self)->own_attributes);
  for (const Attribute& attribute : info.attributes) Py_CLEAR(attribute.of(self).object);
  for (const Attribute& attribute : info.hidden) Py_CLEAR(attribute.of(self).object);
  script_ran();
}

PyObject* make_object(PyTypeObject* type, PyObject*, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref self = take(type->tp_alloc(type, 0));
    static_cast<Object*>(self.get())->properties_override = type_entry(type).properties_override;
    return self.release();
  });
}

ClassBuilderBase::ClassBuilderBase(ClassInfo& info, const ClassInfo* base, const char* name,
                                   Py_ssize_t size)
    : name_(name), info_(info), size_(size), tables_(new Tables) {
  info_.base = base;
  if (base != nullptr) {
    info_.attributes = base->attributes;
    info_.descriptors = base->descriptors;
    info_.hidden = base->hidden;
  } else {
    info_.attributes.clear();
    info_.descriptors.clear();
    info_.hidden.clear();
  }
}

const char* ClassBuilderBase::keep(std::string text) {
  return tables_->texts.emplace_back(std::move(text)).c_str();
}

void ClassBuilderBase::add_attribute(const char* name, Py_ssize_t offset, bool lazy,
                                     const char* doc) {
  Attribute attribute{intern(name), name, doc, offset, lazy};
  info_.attributes.push_back(attribute);
  if (lazy) {
    Attribute& kept = tables_->lazy.emplace_back(attribute);
    add_property(name, &get_lazy, &set_lazy, &kept, doc);
  } else {
    tables_->members.push_back({name, T_OBJECT_EX, offset, 0, doc});
  }
}

void ClassBuilderBase::add_hidden(Py_ssize_t offset) {
  info_.hidden.push_back({nullptr, nullptr, nullptr, offset, false});
}

void ClassBuilderBase::add_method(const char* name, Method& record, Native native,
                                  PyCFunction function, int flags, Parameters parameters,
                                  const char* doc) {
  record.declare(name, native, parameters);
  tables_->records.emplace_back(name, &record);
  add_function(name, function, flags, keep(documentation(name, true, parameters, doc)));
}

void ClassBuilderBase::add_function(const char* name, PyCFunction function, int flags,
                                    const char* doc) {
  tables_->methods.push_back({name, function, flags, doc});
}

void ClassBuilderBase::add_property(const char* name, getter get, setter set, void* closure,
                                    const char* doc) {
  tables_->properties.push_back({name, get, set, doc, closure});
}

void ClassBuilderBase::finish(PyObject* module, std::string doc) {
#if PY_VERSION_HEX >= 0x03090000
  if (info_.base == nullptr) {
    tables_->members.push_back({"__dictoffset__", T_PYSSIZET,
                                static_cast<Py_ssize_t>(sizeof(PyObject)), READONLY, nullptr});
    tables_->members.push_back({"__weaklistoffset__", T_PYSSIZET,
                                static_cast<Py_ssize_t>(sizeof(PyObject) + sizeof(PyObject*)),
                                READONLY, nullptr});
  }
#endif
  tables_->members.push_back({nullptr, 0, 0, 0, nullptr});
  tables_->methods.push_back({nullptr, nullptr, 0, nullptr});
  tables_->properties.push_back({nullptr, nullptr, nullptr, nullptr, nullptr});
  add_slot(Py_tp_members, tables_->members.data());
  add_slot(Py_tp_methods, tables_->methods.data());
  add_slot(Py_tp_getset, tables_->properties.data());
  [[maybe_unused]] const std::size_t doc_size = doc.size() + 1;
  const char* doc_text = keep(std::move(doc));
  add_slot(Py_tp_doc, const_cast<char*>(doc_text));
  slots_.push_back({0, nullptr});
  PyType_Spec blueprint = {keep(std::string("Tessora.") + name_), static_cast<int>(size_), 0,
                           Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE | Py_TPFLAGS_HAVE_GC,
                           slots_.data()};
  Ref bases = info_.base == nullptr ? tuple(reinterpret_cast<PyObject*>(&PyBaseObject_Type))
                                    : tuple(reinterpret_cast<PyObject*>(info_.base->type));
  Ref made = take(PyType_FromSpecWithBases(&blueprint, bases.get()));
  auto* type = reinterpret_cast<PyTypeObject*>(made.get());
#if PY_VERSION_HEX < 0x03090000
  if (info_.base == nullptr) {
    type->tp_dictoffset = static_cast<Py_ssize_t>(sizeof(PyObject));
    type->tp_weaklistoffset = static_cast<Py_ssize_t>(sizeof(PyObject) + sizeof(PyObject*));
    PyType_Modified(type);
  }
  // This host keeps the text without the signature in front.
  auto* kept = static_cast<char*>(PyObject_Malloc(doc_size));
  if (kept == nullptr) throw std::bad_alloc();
  std::memcpy(kept, doc_text, doc_size);
  PyObject_Free(const_cast<char*>(type->tp_doc));
  type->tp_doc = kept;
#endif
  info_.type = type;
  engine_classes[type] = &info_;
  for (const auto& [name, record] : tables_->records) {
    Ref descriptor = take(PyDict_GetItemString(type->tp_dict, name) == nullptr
                              ? nullptr
                              : Ref::share(PyDict_GetItemString(type->tp_dict, name)).release());
    engine_methods[descriptor.release()] = record;
  }
  for (std::size_t index = info_.descriptors.size(); index < info_.attributes.size(); ++index) {
    PyObject* descriptor = _PyType_Lookup(type, info_.attributes[index].name);
    info_.descriptors.push_back(Ref::share(descriptor).release());
  }
  // Both lists follow the order of construction.
  for (std::size_t place = 0; place < order_.size(); ++place) {
    for (std::size_t index = place; index < info_.attributes.size(); ++index) {
      if (std::strcmp(info_.attributes[index].chars, order_[place]) != 0) continue;
      std::swap(info_.attributes[place], info_.attributes[index]);
      std::swap(info_.descriptors[place], info_.descriptors[index]);
    }
  }
  check(PyObject_SetAttrString(module, name_, made.get()));
  made.release();
}

}  // namespace tessora::host
