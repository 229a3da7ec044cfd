// What the engine knows about a type: which of its methods and attributes a script replaces.
#pragma once

#include "engine/object/arguments.hpp"

namespace tessora::host {

struct ClassInfo;

// Kept with the type, for as long as it lives. A type that changes keeps its record; what a script
// replaces is looked up again, and only if something that the engine cares about has changed are
// the methods forgotten.
struct TypeRecord {
  PyTypeObject* type = nullptr;
  const ClassInfo* engine_class = nullptr;  // null for types that are not the engine's
  bool hooked = false;                      // a script's __getattribute__ sees every look-up
  bool properties_override = false;         // attributes are not read and written in place

  // By the numbers of messages and of sets of them; null and kUnknown until first asked for.
  std::vector<const Method*> methods;
  enum class Answer : std::uint8_t { kUnknown, kNo, kYes };
  std::vector<Answer> sets;

  // Whether nothing can have changed since the record was made.
  [[nodiscard]] bool is_current() const noexcept {
    if (engine_class == nullptr) return true;
    if (version_ != 0) [[likely]]
      return version_ == type->tp_version_tag && has_version(type);
    return is_current_unversioned();
  }
  void refresh();

  static bool has_version(const PyTypeObject* type) noexcept {
#if PY_VERSION_HEX < 0x030D0000
    if ((type->tp_flags & Py_TPFLAGS_VALID_VERSION_TAG) == 0) return false;
#endif
    return type->tp_version_tag != 0;
  }

 private:
  // What a script's class puts in place of something of the engine's.
  struct Replacement {
    PyObject* name;
    const Method* method;  // an engine method under another name, or null
    bool is_data;
    bool operator==(const Replacement&) const = default;
  };
  [[nodiscard]] bool is_current_unversioned() const noexcept;
  [[nodiscard]] std::vector<Replacement> find_replacements() const;
  void note_version();

  // Python numbers the versions of a type, but stops after many changes on newer hosts. Then its
  // dictionaries are watched; without watchers the record holds for one tick of the script clock.
  unsigned version_ = 0;
  std::uint64_t unversioned_tick_ = 0;
  std::vector<PyObject*> order_;  // of method resolution
  std::uint64_t watched_changes_seen_ = 0;
  std::vector<Replacement> replacements_;
  std::uint64_t base_generation_ = 0;
  std::uint64_t generation_ = 0;
};

// Finds the record that is_current() was asked about last, or looks further.
TypeRecord& find_type_record(PyTypeObject* type);

struct RecordCache {
  static constexpr std::size_t kSets = 512;
  struct Set {
    PyTypeObject* types[2];
    TypeRecord* records[2];
  };
  Set sets[kSets];
};
inline constinit RecordCache record_cache{};

inline std::size_t cache_set(const PyTypeObject* type) noexcept {
  const auto address = reinterpret_cast<std::uintptr_t>(type);
  return (address >> 4U ^ address >> 13U) % RecordCache::kSets;
}

inline TypeRecord& type_record(PyTypeObject* type) {
  const RecordCache::Set& set = record_cache.sets[cache_set(type)];
  if (set.types[0] == type && set.records[0]->is_current()) [[likely]]
    return *set.records[0];
  return find_type_record(type);
}

// The engine object behind a Python object, or null when it is none.
inline Object* engine_object(Value value) {
  return type_record(value.type()).engine_class != nullptr ? static_cast<Object*>(value.get())
                                                           : nullptr;
}

// Whether it is one of the engine's classes itself, or a script's subclass.
inline bool is_engine_class(Value value) {
  return PyType_Check(value.get()) != 0 &&
         type_record(reinterpret_cast<PyTypeObject*>(value.get())).engine_class != nullptr;
}

// Names that decide what the engine does when a script's class defines them.
void add_relevant_name(Value name);

}  // namespace tessora::host
