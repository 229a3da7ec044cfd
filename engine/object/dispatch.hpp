// Messages: calls of methods by name, on engine objects and on anything else.
//
// The receiver may be an engine object, an instance of a script's subclass that overrides the
// method, an engine object that carries a replacement, or any object with that method. A message
// calls the engine's function directly where nothing replaces it, and else Python's method.
//
// What scripts may override is a message. What they may not is a C++ call. Objects that are never
// the engine's own (scene, surfaces, fonts) and the resource manager are called by name.
#pragma once

#include "engine/object/class.hpp"
#include "engine/object/recursion.hpp"

namespace tessora::host {

class Message {
 public:
  explicit Message(const char* name);
  ~Message() = default;
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

  [[nodiscard]] Value name() const noexcept { return name_; }

  // The values of Terms are computed in their order; then the message is sent.
  template <class... Args>
  Ref operator()(Value receiver, const Args&... args) const {
    return send(receiver, detail::arguments(args...));
  }

  // The receiver, when the message would reach exactly this function of the engine: the caller
  // may then call its C++ counterpart.
  template <class Class>
  Class* direct(Value receiver, Native native) const {
    const Method* method = find(receiver);
    return method != nullptr && method->native == native ? static_cast<Class*>(receiver.get())
                                                         : nullptr;
  }
  template <auto Code>
  auto direct(Value receiver) const {
    return direct<typename Traits<Code>::Owner>(receiver, &native<Code>);
  }

  // The base class's part of a derived class's method. A script may have replaced it there. `Base`
  // is named where the base itself inherits the function.
  template <auto Code, class Base = typename Traits<Code>::Owner, class... Args>
  auto base(typename Traits<Code>::Owner& self, const Args&... args) const {
    const ClassInfo& owner = class_info<Base>;
    TypeRecord& record = type_record(owner.type);
    const Method* method = find_in(record);
    using Result = decltype((self.*Code)(Value(args)...));
    if (method != nullptr && method->native == &native<Code>) return (self.*Code)(Value(args)...);
    RecursionGuard guard;
    Ref result = Value(owner.type).call(name_, self, args...);
    if constexpr (!std::is_void_v<Result>) return Result(result);
  }

  // The engine's method that the receiver would run, or null when a script's takes its place.
  [[nodiscard]] const Method* find(Value receiver) const {
    TypeRecord& record = type_record(receiver.type());
    if (record.engine_class == nullptr) return nullptr;
    auto* object = static_cast<Object*>(receiver.get());
    object->properties_override = record.properties_override;
    const Method* method = find_in(record);
    return method == nullptr || object->carries(name_) ? nullptr : method;
  }

  // What the receiver's type makes of the message, without a look at the instance.
  [[nodiscard]] const Method* find_in(TypeRecord& record) const {
    const Method* method = number_ < record.methods.size() ? record.methods[number_] : nullptr;
    if (method == nullptr) method = resolve(record);
    return method == &replaced ? nullptr : method;
  }

  // Whether the receiver is of an engine class with such a method, whoever may have replaced it.
  [[nodiscard]] bool is_known_to(Value receiver) const;

  // At start-up, when Python's strings can be made.
  static void intern_names();
  // Whether some message has this interned name.
  static bool exists(PyObject* name);

 private:
  [[nodiscard]] const Method* resolve(TypeRecord& record) const;
  template <std::size_t Count>
  Ref send(Value receiver, const detail::Arguments<Count>& arguments) const {
    auto array = arguments.raw();
    return send(receiver, array.data() + 1, Count);
  }
  // `args` follow a place that belongs to the callee.
  Ref send(Value receiver, PyObject** args, std::size_t count) const;

  static const Method replaced;

  const char* chars_;
  PyObject* name_ = nullptr;
  std::size_t number_;
};

// Several messages that are mostly sent together, so that one test covers them all.
class MessageSet {
 public:
  using Entry = std::pair<const Message*, Native>;
  explicit MessageSet(std::initializer_list<Entry> entries);

  // Whether every message of the set would reach exactly the engine's function named with it.
  [[nodiscard]] bool all_direct(Object& receiver) const {
    TypeRecord& record = type_record(Py_TYPE(&receiver));
    receiver.properties_override = record.properties_override;
    const auto answer =
        number_ < record.sets.size() ? record.sets[number_] : TypeRecord::Answer::kUnknown;
    bool direct = answer == TypeRecord::Answer::kUnknown ? resolve(record)
                                                         : answer == TypeRecord::Answer::kYes;
    return direct && !carries_message(receiver);
  }

 private:
  [[nodiscard]] bool resolve(TypeRecord& record) const;
  static bool carries_message(const Object& object) {
    return object.own_attributes != nullptr && PyDict_GET_SIZE(object.own_attributes) != 0 &&
           carries_message_slow(object);
  }
  static bool carries_message_slow(const Object& object);

  std::vector<Entry> entries_;
  std::size_t number_;
};

// A query to be asked when its answer is needed; see Term.
class Asked {
 public:
  using IsTerm = void;
  Asked(const Message& query, Value receiver) noexcept : query_(query), receiver_(receiver) {}
  [[nodiscard]] Number value() const {
    Ref answer = query_(receiver_);
    return answer;
  }
  operator Number() const { return value(); }  // NOLINT(google-explicit-constructor)

 private:
  const Message& query_;
  Value receiver_;
};

inline Asked ask(const Message& query, Value receiver) noexcept {
  return {query, receiver};
}

}  // namespace tessora::host
