#include "engine/object/dispatch.hpp"

#include <unordered_set>

namespace tessora::host {

namespace {

std::vector<Message*>& messages() {
  static std::vector<Message*> all;
  return all;
}

std::unordered_set<PyObject*> message_names;
std::size_t set_count = 0;

}  // namespace

const Method Message::replaced{};

Message::Message(const char* name) : chars_(name), number_(messages().size()) {
  messages().push_back(this);
}

void Message::intern_names() {
  for (Message* message : messages()) {
    message->name_ = intern(message->chars_).get();
    message_names.insert(message->name_);
    add_relevant_name(message->name_);
  }
}

bool Message::exists(PyObject* name) {
  return message_names.contains(name);
}

const Method* Message::resolve(TypeRecord& record) const {
  if (record.methods.size() < messages().size()) record.methods.resize(messages().size());
  PyObject* found = record.hooked ? nullptr : _PyType_Lookup(record.type, name_);
  const EngineMethod* method = found == nullptr ? nullptr : engine_method(found);
  // A method borrowed from a class of another kind refuses the object: Python says how.
  bool fits = method != nullptr && record.engine_class != nullptr &&
              record.engine_class->derives_from(*method->owner);
  record.methods[number_] = fits ? method->method : &replaced;
  return record.methods[number_];
}

bool Message::is_known_to(Value receiver) const {
  const ClassInfo* known = type_record(receiver.type()).engine_class;
  return known != nullptr && _PyType_Lookup(known->type, name_) != nullptr;
}

Ref Message::send(Value receiver, PyObject** args, std::size_t count) const {
  RecursionGuard guard;
  if (const Method* method = find(receiver)) {
    auto& object = *static_cast<Object*>(receiver.get());
    if (method->fits(count)) return method->native(object, args);
    Bound bound(method->arity());
    method->bind(args, static_cast<Py_ssize_t>(count), nullptr, bound);
    return method->native(object, bound.data());
  }
  args[-1] = receiver.get();
  return take(in_script([&] { return call_method_array(args - 1, count + 1, name_); }));
}

MessageSet::MessageSet(std::initializer_list<Entry> entries)
    : entries_(entries), number_(set_count++) {}

bool MessageSet::resolve(TypeRecord& record) const {
  if (record.sets.size() < set_count) record.sets.resize(set_count);
  bool direct = record.engine_class != nullptr;
  for (const auto& [message, native] : entries_) {
    if (!direct) break;
    const Method* method = message->find_in(record);
    direct = method != nullptr && method->native == native;
  }
  record.sets[number_] = direct ? TypeRecord::Answer::kYes : TypeRecord::Answer::kNo;
  return direct;
}

bool MessageSet::carries_message_slow(const Object& object) {
  Ref own = Value(object.own_attributes);
  Py_ssize_t position = 0;
  PyObject* key = nullptr;
  PyObject* value = nullptr;
  while (PyDict_Next(own.get(), &position, &key, &value) != 0) {
    // Names set as attributes are interned; others come from writes through the mapping.
    if (!PyUnicode_CheckExact(key)) return true;
    if (PyUnicode_CHECK_INTERNED(key) == 0 || Message::exists(key)) return true;
  }
  return false;
}

}  // namespace tessora::host
