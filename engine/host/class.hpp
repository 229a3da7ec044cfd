// Engine classes as host types, built from one declaration per class.
#pragma once

#include <deque>

#include "engine/host/bindings.hpp"

namespace tessora::host {

struct Attribute {
  PyObject* name;
  const char* chars;
  const char* doc;
  Py_ssize_t offset;
  bool lazy;

  [[nodiscard]] Slot& of(PyObject* object) const noexcept {
    return *reinterpret_cast<Slot*>(reinterpret_cast<char*>(object) + offset);
  }
};

struct ClassInfo {
  PyTypeObject* type = nullptr;
  const ClassInfo* base = nullptr;
  std::vector<Attribute> attributes;   // the base's first, in the order of construction
  std::vector<PyObject*> descriptors;  // of the attributes, in the same order
  std::vector<Attribute> hidden;       // the engine's own: neither attributes nor copied

  [[nodiscard]] const Attribute* find(PyObject* name) const;
  [[nodiscard]] const Attribute& at(Py_ssize_t offset) const;
};

template <class Class>
inline ClassInfo class_info;

const ClassInfo* engine_class_of(PyTypeObject* type);
// The engine's record of a method descriptor, or null for any other object.
const Method* engine_method(PyObject* descriptor);
// An attribute of the engine wins over a plain class attribute of a script's subclass, which stays
// the value of the class itself. Returns whether properties take attributes over.
bool settle_class_attributes(PyTypeObject* type, const ClassInfo& engine_class);
// An attribute's value as a script reads it: a default is made; null when it is unset.
Ref attribute_value(PyObject* object, const Attribute& attribute);

int traverse(const ClassInfo& info, PyObject* self, visitproc visit, void* arg);
void clear(const ClassInfo& info, PyObject* self);

template <class Class>
int traverse_class(PyObject* self, visitproc visit, void* arg) {
  return traverse(class_info<Class>, self, visit, arg);
}

template <class Class>
int clear_class(PyObject* self) {
  clear(class_info<Class>, self);
  return 0;
}

template <class Class>
void deallocate_class(PyObject* self) {
  PyTypeObject* type = Py_TYPE(self);
  PyObject_GC_UnTrack(self);
  Py_TRASHCAN_BEGIN(
      self, deallocate_class<Class>) if (static_cast<Object*>(self)->weak_references != nullptr)
      PyObject_ClearWeakRefs(self);
  clear(class_info<Class>, self);
  type->tp_free(self);
  Py_DECREF(type);
  Py_TRASHCAN_END
}

PyObject* make_object(PyTypeObject* type, PyObject* args, PyObject* kwargs);

// Collects the declaration of a class; finish() makes the type and puts it into the module.
class ClassBuilderBase {
 public:
  ClassBuilderBase(ClassInfo& info, const ClassInfo* base, const char* name, Py_ssize_t size);

  // Keeps a text that was put together for as long as the class lives.
  [[nodiscard]] const char* keep(std::string text);

 protected:
  void add_attribute(const char* name, Py_ssize_t offset, bool lazy, const char* doc);
  void add_hidden(Py_ssize_t offset);
  void add_method(const char* name, Method& record, Native native, PyCFunction function, int flags,
                  Parameters parameters, const char* doc);
  void add_function(const char* name, PyCFunction function, int flags, const char* doc);
  void add_property(const char* name, getter get, setter set, void* closure, const char* doc);
  void add_slot(int slot, void* function) { slots_.push_back({slot, function}); }
  void reorder(std::initializer_list<const char*> names) { order_.assign(names); }
  [[nodiscard]] const Attribute& attribute_at(Py_ssize_t offset) const { return info_.at(offset); }
  void finish(PyObject* module, std::string doc);

  const char* name_;

 private:
  struct Tables;  // what the host keeps pointers to
  ClassInfo& info_;
  Py_ssize_t size_;
  Tables* tables_;
  std::vector<PyType_Slot> slots_;
  std::vector<const char*> order_;
};

template <class Class>
class ClassBuilder : ClassBuilderBase {
 public:
  using ClassBuilderBase::keep;

  ClassBuilder(const char* name, const ClassInfo* base)
      : ClassBuilderBase(class_info<Class>, base, name, static_cast<Py_ssize_t>(sizeof(Class))) {}

  template <class Owner, class SlotType>
  ClassBuilder& attribute(const char* name, SlotType Owner::* member, const char* doc) {
    add_attribute(name, offset(member), std::is_same_v<SlotType, LazySlot>, doc);
    return *this;
  }

  // A reference that scripts do not see, null until set.
  template <class Owner>
  ClassBuilder& hidden(Slot Owner::* member) {
    add_hidden(offset(member));
    return *this;
  }

  template <auto Function>
  ClassBuilder& method(const char* name, Parameters parameters, const char* doc) {
    return native_method<&native<Function>, Traits<Function>::kArity>(name, parameters, doc);
  }
  template <auto Function>
  ClassBuilder& method(const char* name, const char* doc) {
    return method<Function>(name, {}, doc);
  }

  // A method whose engine side is a plain function.
  template <Native Function, std::size_t Arity>
  ClassBuilder& native_method(const char* name, Parameters parameters, const char* doc) {
    if constexpr (Arity == 0) {
      add_method(name, method_record<Function>, Function, &call_without_arguments<Function>,
                 METH_NOARGS, parameters, doc);
    } else {
      add_method(name, method_record<Function>, Function,
                 reinterpret_cast<PyCFunction>(
                     reinterpret_cast<void*>(&call_with_arguments<Function, Arity>)),
                 METH_FASTCALL | METH_KEYWORDS, parameters, doc);
    }
    return *this;
  }

  // A pair of accessors; either name may be null.
  template <auto Member>
  ClassBuilder& accessors(const char* getter_name, const char* setter_name, const char* parameter) {
    const Attribute& attribute = attribute_at(offset(Member));
    std::string about = std::string("`") + attribute.chars + "`: " + attribute.doc;
    return accessor_pair<Member>(getter_name, setter_name, {parameter}, about);
  }
  template <auto First, auto Second>
  ClassBuilder& accessors(const char* getter_name, const char* setter_name, Parameter first,
                          Parameter second) {
    const Attribute& left = attribute_at(offset(First));
    const Attribute& right = attribute_at(offset(Second));
    std::string about = std::string("`") + left.chars + "` and `" + right.chars + "`.";
    return accessor_pair<First, Second>(getter_name, setter_name, {first, second}, about);
  }

  template <auto Function>
  ClassBuilder& constructor(Parameters parameters, const char* doc) {
    constexpr Native kFunction = &native<Function>;
    method_record<kFunction>.declare(name_, kFunction, parameters);
    add_slot(Py_tp_init, slot_pointer(&call_constructor<kFunction, Traits<Function>::kArity>));
    doc_ = documentation(name_, false, parameters, doc);
    return *this;
  }

  // Anything that is not a plain method: variable arguments, class methods.
  ClassBuilder& function(const char* name, PyCFunction code, int flags, const char* doc) {
    add_function(name, code, flags, doc);
    return *this;
  }
  ClassBuilder& property(const char* name, getter get, setter set, const char* doc) {
    add_property(name, get, set, nullptr, doc);
    return *this;
  }
  ClassBuilder& initialiser(initproc init, std::string doc) {
    add_slot(Py_tp_init, slot_pointer(init));
    doc_ = std::move(doc);
    return *this;
  }

  // The order in which the constructors set the attributes, where it is not the base's first.
  ClassBuilder& order(std::initializer_list<const char*> names) {
    reorder(names);
    return *this;
  }

  void finish(PyObject* module) {
    add_slot(Py_tp_new, slot_pointer(&make_object));
    add_slot(Py_tp_dealloc, slot_pointer(&deallocate_class<Class>));
    add_slot(Py_tp_traverse, slot_pointer(&traverse_class<Class>));
    add_slot(Py_tp_clear, slot_pointer(&clear_class<Class>));
    ClassBuilderBase::finish(module, doc_);
  }

 private:
  template <class Function>
  static void* slot_pointer(Function* function) {
    return reinterpret_cast<void*>(function);
  }

  template <class Owner, class SlotType>
  static Py_ssize_t offset(SlotType Owner::* member) {
    alignas(Class) static char storage[sizeof(Class)];
    auto* object = reinterpret_cast<Class*>(storage);
    return reinterpret_cast<char*>(&(object->*member)) - storage;
  }

  template <auto... Members>
  ClassBuilder& accessor_pair(const char* getter_name, const char* setter_name,
                              Parameters parameters, const std::string& about) {
    if (getter_name != nullptr) {
      constexpr Native kGetter = &native_getter<Members...>;
      add_method(getter_name, method_record<kGetter>, kGetter, &call_getter<kGetter>, METH_NOARGS,
                 {}, keep("Return " + about));
    }
    if (setter_name != nullptr) {
      native_method<&native_setter<Members...>, sizeof...(Members)>(setter_name, parameters,
                                                                    keep("Set " + about));
    }
    return *this;
  }

  std::string doc_;
};

}  // namespace tessora::host
