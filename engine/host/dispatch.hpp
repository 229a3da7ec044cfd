// Messages: calls of methods by name, on engine objects and on anything else.
//
// The receiver may be an engine object, an instance of a script's subclass that overrides the
// method, an engine object that carries a replacement, or any object with that method. A message
// calls the engine's function directly where nothing replaces it, and else the host's method.
#pragma once

#include <array>

#include "engine/host/arguments.hpp"

namespace tessora::host {

struct ClassInfo;

inline constexpr std::size_t kMaxMessages = 160;

// What is known about one version of a type. The host gives a type a new version number whenever
// the type or one of its bases changes, so an entry never goes stale.
struct TypeEntry {
  PyTypeObject* type = nullptr;
  unsigned version = 0;
  const ClassInfo* engine_class = nullptr;  // null for types that are not the engine's
  bool hooked = false;                      // a script's __getattribute__ sees every look-up
  bool properties_override = false;         // attributes are not read and written in place
  std::uint32_t sets_known = 0;   // one bit for each MessageSet: answered for this version
  std::uint32_t sets_direct = 0;  // and the answer
  std::array<const Method*, kMaxMessages> methods{};  // null until first asked for
};

TypeEntry& load_type_entry(PyTypeObject* type);

inline constexpr std::size_t kTypeEntries = 256;
inline std::array<TypeEntry, kTypeEntries> type_entries;

inline bool has_version(const PyTypeObject* type) noexcept {
#if PY_VERSION_HEX < 0x030D0000
  if ((type->tp_flags & Py_TPFLAGS_VALID_VERSION_TAG) == 0) return false;
#endif
  return type->tp_version_tag != 0;
}

inline TypeEntry& type_entry(PyTypeObject* type) {
  TypeEntry& entry = type_entries[type->tp_version_tag % kTypeEntries];
  if (entry.type == type && entry.version == type->tp_version_tag && has_version(type)) [[likely]] {
    return entry;
  }
  return load_type_entry(type);
}

// The engine object behind a host object, or null when it is none.
inline Object* engine_object(PyObject* object) {
  return type_entry(Py_TYPE(object)).engine_class != nullptr ? static_cast<Object*>(object)
                                                             : nullptr;
}

class Message {
 public:
  explicit Message(const char* name);

  [[nodiscard]] PyObject* name() const noexcept { return name_; }

  template <class... Args>
  Ref operator()(PyObject* receiver, const Args&... args) const {
    if (const Method* method = find(receiver)) {
      PyObject* array[sizeof...(Args) + 1] = {raw(args)...};
      return send(*method, receiver, array, sizeof...(Args));
    }
    return call_method(receiver, name_, args...);
  }
  template <class... Args>
  Ref operator()(const Ref& receiver, const Args&... args) const {
    return (*this)(receiver.get(), args...);
  }

  // The receiver, when the message would reach exactly this function of the engine: the caller
  // may then call its C++ counterpart.
  template <class Class>
  Class* direct(PyObject* receiver, Native native) const {
    const Method* method = find(receiver);
    return method != nullptr && method->native == native ? static_cast<Class*>(receiver) : nullptr;
  }
  template <auto Function>
  auto direct(PyObject* receiver) const {
    return direct<typename Traits<Function>::Owner>(receiver, &native<Function>);
  }

  // The engine's method that the receiver would run, or null when a script's takes its place.
  [[nodiscard]] const Method* find(PyObject* receiver) const {
    TypeEntry& entry = type_entry(Py_TYPE(receiver));
    if (entry.engine_class == nullptr) return nullptr;
    auto* object = static_cast<Object*>(receiver);
    object->properties_override = entry.properties_override;
    const Method* method = find_in(entry);
    return method == &replaced || object->carries(name_) ? nullptr : method;
  }

  // What the receiver's type makes of the message, without a look at the instance.
  [[nodiscard]] const Method* find_in(TypeEntry& entry) const {
    const Method* method = entry.methods[index_];
    return method == nullptr ? resolve(entry) : method;
  }

  static void intern_names();
  // Whether some message has this interned name.
  static bool exists(PyObject* name);

 private:
  [[nodiscard]] const Method* resolve(TypeEntry& entry) const;
  static Ref send(const Method& method, PyObject* receiver, PyObject** args, std::size_t count);

  static const Method replaced;

  const char* chars_;
  PyObject* name_ = nullptr;
  std::size_t index_;
};

// Several messages that are mostly sent together, so that one test covers them all.
class MessageSet {
 public:
  using Member = std::pair<const Message*, Native>;
  explicit MessageSet(std::initializer_list<Member> members);

  // Whether every message of the set would reach exactly the engine's function named with it.
  [[nodiscard]] bool all_direct(PyObject* receiver) const {
    TypeEntry& entry = type_entry(Py_TYPE(receiver));
    if ((entry.sets_known & bit_) == 0) resolve(entry);
    static_cast<Object*>(receiver)->properties_override = entry.properties_override;
    return (entry.sets_direct & bit_) != 0 && !carries_message(*static_cast<Object*>(receiver));
  }

 private:
  void resolve(TypeEntry& entry) const;
  static bool carries_message(const Object& object) {
    return object.own_attributes != nullptr && PyDict_GET_SIZE(object.own_attributes) != 0 &&
           carries_message_slow(object);
  }
  static bool carries_message_slow(const Object& object);

  std::vector<Member> members_;
  std::uint32_t bit_;
};

// Counts the engine's own calls of each other: too deep is the host's RecursionError, long before
// the machine's stack is used up.
class RecursionGuard {
 public:
  RecursionGuard() {
    ++depth;
    if (depth > limit || depth % kStackCheckInterval == 1) check_depth();
  }
  ~RecursionGuard() { --depth; }
  RecursionGuard(const RecursionGuard&) = delete;
  RecursionGuard& operator=(const RecursionGuard&) = delete;

 private:
  static constexpr int kStackCheckInterval = 32;
  static void check_depth();
  static inline int depth = 0;
  static inline int limit = 0;
};

}  // namespace tessora::host
