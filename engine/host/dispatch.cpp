#include "engine/host/dispatch.hpp"

#include <unordered_set>

#include "engine/host/class.hpp"

namespace tessora::host {

namespace {

std::vector<Message*>& messages() {
  static std::vector<Message*> all;
  return all;
}

std::unordered_set<PyObject*> message_names;

// The host's own limit may be raised by a script beyond what the stack of a thread holds, which
// is two megabytes on some systems.
constexpr std::ptrdiff_t kStackLimit = std::ptrdiff_t{900} * 1024;
const char* stack_base = nullptr;
PyThreadState* stack_owner = nullptr;

bool stack_is_used_up(bool outermost) noexcept {
  char here = 0;
  if (outermost) {
    stack_base = &here;
    stack_owner = PyThreadState_Get();
  }
  if (stack_owner != PyThreadState_Get()) return false;
  std::ptrdiff_t used = stack_base - &here;
  return used > kStackLimit || -used > kStackLimit;
}

bool overrides(PyTypeObject* type, PyObject* method) {
  return _PyType_Lookup(type, method) != _PyType_Lookup(&PyBaseObject_Type, method);
}

}  // namespace

const Method Message::replaced{};

Message::Message(const char* name) : chars_(name), index_(messages().size()) {
  messages().push_back(this);
}

void Message::intern_names() {
  if (messages().size() > kMaxMessages) raise(PyExc_SystemError, "too many messages");
  for (Message* message : messages()) {
    message->name_ = intern(message->chars_);
    message_names.insert(message->name_);
  }
}

bool Message::exists(PyObject* name) {
  return message_names.contains(name);
}

const Method* Message::resolve(TypeEntry& entry) const {
  PyObject* found = entry.hooked ? nullptr : _PyType_Lookup(entry.type, name_);
  const Method* method = found == nullptr ? nullptr : engine_method(found);
  entry.methods[index_] = method == nullptr ? &replaced : method;
  return entry.methods[index_];
}

Ref Message::send(const Method& method, PyObject* receiver, PyObject** args, std::size_t count) {
  RecursionGuard guard;
  auto& object = *static_cast<Object*>(receiver);
  if (count == method.arity()) return method.native(object, args);
  std::array<PyObject*, 16> bound{};
  method.bind(args, static_cast<Py_ssize_t>(count), nullptr, bound.data());
  return method.native(object, bound.data());
}

MessageSet::MessageSet(std::initializer_list<Member> members) : members_(members) {
  static unsigned sets = 0;
  bit_ = std::uint32_t{1} << sets++;
}

void MessageSet::resolve(TypeEntry& entry) const {
  bool direct = entry.engine_class != nullptr;
  for (const auto& [message, native] : members_) {
    direct = direct && message->find_in(entry)->native == native;
  }
  entry.sets_known |= bit_;
  if (direct) entry.sets_direct |= bit_;
}

bool MessageSet::carries_message_slow(const Object& object) {
  Py_ssize_t position = 0;
  PyObject* key = nullptr;
  PyObject* value = nullptr;
  while (PyDict_Next(object.own_attributes, &position, &key, &value) != 0) {
    // Names set as attributes are interned; others come from writes through the mapping.
    if (!PyUnicode_CheckExact(key)) return true;
    if (PyUnicode_CHECK_INTERNED(key) == 0 || Message::exists(key)) return true;
  }
  return false;
}

TypeEntry& load_type_entry(PyTypeObject* type) {
  const ClassInfo* engine_class = engine_class_of(type);
  bool hooked = engine_class != nullptr && overrides(type, "__getattribute__"_name);
  bool properties = engine_class != nullptr && settle_class_attributes(type, *engine_class);
  properties = properties || hooked || overrides(type, "__setattr__"_name);
  // A look-up makes the host number the type's version.
  _PyType_Lookup(type, "__class__"_name);
  static TypeEntry unversioned;
  bool versioned = has_version(type);
  TypeEntry& entry = versioned ? type_entries[type->tp_version_tag % kTypeEntries] : unversioned;
  entry.type = type;
  entry.version = type->tp_version_tag;
  entry.engine_class = engine_class;
  entry.hooked = hooked;
  entry.properties_override = properties;
  entry.sets_known = 0;
  entry.sets_direct = 0;
  entry.methods.fill(nullptr);
  return entry;
}

void RecursionGuard::check_depth() {
  if (depth == 1) limit = Py_GetRecursionLimit();
  if (depth <= limit && !stack_is_used_up(depth == 1)) return;
  --depth;
  raise(PyExc_RecursionError, "maximum recursion depth exceeded in a tree of nodes");
}

}  // namespace tessora::host
