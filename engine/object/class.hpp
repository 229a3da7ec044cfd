// Engine classes as Python types: what is known of a class at run time.
#pragma once

#include "engine/object/type_record.hpp"

namespace tessora::host {

// One attribute, as its row declares it.
struct Attribute {
  PyObject* name;
  const char* chars;
  const char* type;  // for the stubs
  const char* doc;
  Py_ssize_t offset;
  bool lazy;

  [[nodiscard]] PyObject*& of(PyObject* object) const noexcept { return slot(object).object_; }
  [[nodiscard]] Slot& slot(PyObject* object) const noexcept {
    return *reinterpret_cast<Slot*>(reinterpret_cast<char*>(object) + offset);
  }
  // The value as a script reads it: a default is made; an empty reference when it is unset.
  [[nodiscard]] Ref value(PyObject* object) const;
};

// One step of construction. They run in the order of the declaration, which scripts can see.
struct Step {
  enum class Kind : std::uint8_t {
    kShared,
    kMade,
    kArgument,
    kModuleValue,
    kLibraryValue,
    kSame,
    kCode
  };
  using Make = Ref (*)();
  using Read = Ref (*)(Object& self);
  using Code = void (*)(Object& self, PyObject* const* args);
  Kind kind = Kind::kShared;
  Py_ssize_t offset = 0;
  PyObject* value = nullptr;  // what is shared, or the name of the value
  std::size_t argument = 0;
  Make make = nullptr;
  Read read = nullptr;
  Code code = nullptr;
};

// How CopyTo takes over an attribute, or several with one setter.
struct CopyRow {
  using Copy = void (*)(Object& from, Value to, const CopyRow& row);
  Copy copy = nullptr;
  PyObject* name = nullptr;       // of the setter or the attribute
  int rank = 0;                   // lower ones first, then in the order of the declaration
  PyObject* attribute = nullptr;  // the one that it takes over, if it is one
};

// One entry of the class's reference.
struct Member {
  enum class Kind : std::uint8_t { kAttribute, kMethod, kProperty };
  Kind kind;
  const char* text;  // "name: type", or a signature
  const char* doc;
};

struct ClassInfo {
  const char* name = nullptr;
  PyTypeObject* type = nullptr;
  const ClassInfo* base = nullptr;
  bool constructs_base = true;
  std::vector<Attribute> attributes;   // the base's first, in the order of construction
  std::vector<PyObject*> descriptors;  // of the attributes, in the same order
  std::vector<Attribute> hidden;       // the engine's own: neither attributes nor copied
  std::vector<Step> steps;
  std::vector<CopyRow> copies;
  Method constructor;
  initproc initialise = nullptr;
  const char* signature = nullptr;  // of the constructor
  std::string doc;
  std::vector<Member> members;

  [[nodiscard]] const Attribute* find(Value wanted) const;
  // Null for an attribute that scripts do not see.
  [[nodiscard]] const Attribute* at(Py_ssize_t offset) const;
  [[nodiscard]] bool derives_from(const ClassInfo& other) const noexcept;
};

template <class Class>
inline ClassInfo class_info;

// All classes, in the order in which they were declared.
const std::vector<const ClassInfo*>& all_classes();

const ClassInfo* engine_class_of(PyTypeObject* type);
// The engine's record of a method descriptor, and the class whose objects it takes; null for any
// other object.
struct EngineMethod {
  const Method* method;
  const ClassInfo* owner;
};
const EngineMethod* engine_method(PyObject* descriptor);

// Runs the constructors of the class's bases, then its own steps.
void construct(Object& self, const ClassInfo& info, PyObject* const* args);
// Hands the attributes that CopyTo takes over to `to`. Deleted ones are passed over.
void copy_rows(Object& from, Value to, const ClassInfo& info);

int traverse(const ClassInfo& info, PyObject* self, visitproc visit, void* arg);
void clear(const ClassInfo& info, PyObject* self);
void clear_attributes(const ClassInfo& info, PyObject* self);
// Runs __del__; false when that brought the object back to life.
bool finalise(PyObject* self);

PyObject* make_object(PyTypeObject* type, PyObject* args, PyObject* kwargs);
int construct_object(const ClassInfo& info, PyObject* self, PyObject* args, PyObject* kwargs);

template <class Class>
int initialise_class(PyObject* self, PyObject* args, PyObject* kwargs) {
  return construct_object(class_info<Class>, self, args, kwargs);
}

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
  if (!finalise(self)) return;
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

// A new object of the engine's class, as a script makes one.
template <class Class, class... Args>
Ref make(const Args&... args) {
  return Value(class_info<Class>.type)(args...);
}

// The object as the engine's class, or null when it is of another.
template <class Class>
Class* instance_of(Value value) {
  const TypeRecord& record = type_record(value.type());
  if (record.engine_class == nullptr || !record.engine_class->derives_from(class_info<Class>)) {
    return nullptr;
  }
  auto* object = static_cast<Class*>(value.get());
  object->properties_override = record.properties_override;
  return object;
}

// A new object of the engine's class, made without arguments.
template <class Class>
Ref new_object() {
  return Value(class_info<Class>.type)();
}

}  // namespace tessora::host
