// Methods of the interface: binding of positional and keyword arguments, and the adapters that make
// a C++ function callable from Python.
#pragma once

#include <type_traits>

#include "engine/object/object.hpp"
#include "engine/object/signature.hpp"

namespace tessora::host {

// The last parameter of a function may take what is left: a tuple of all further positional
// arguments, or a dictionary of the keyword arguments that name no parameter.
struct Rest : Value {
  explicit Rest(Value value) : Value(value) {}
};
struct Keywords : Value {
  explicit Keywords(Value value) : Value(value) {}
};

// The engine's own side of a method: takes as many arguments as the method has parameters.
using Native = Ref (*)(Object& self, PyObject* const* args);

// The arguments of one call, for as long as it lasts.
class Bound {
 public:
  explicit Bound(std::size_t count) : values_(count > kFew ? new PyObject*[count]() : few_) {}
  ~Bound() {
    if (values_ != few_) delete[] values_;
  }
  Bound(const Bound&) = delete;
  Bound& operator=(const Bound&) = delete;
  PyObject*& operator[](std::size_t index) noexcept { return values_[index]; }
  [[nodiscard]] PyObject* const* data() const noexcept { return values_; }
  // What was made for this call alone.
  Ref rest;

 private:
  static constexpr std::size_t kFew = 8;
  PyObject* few_[kFew] = {};
  PyObject** values_;
};

struct Method {
  std::string name;
  Native native = nullptr;
  std::vector<PyObject*> names;     // interned names of the parameters
  std::vector<PyObject*> defaults;  // null for a required parameter
  Parameter::Kind last = Parameter::Kind::kPlain;

  void declare(const Signature& signature, Native function);
  [[nodiscard]] std::size_t arity() const noexcept { return names.size(); }
  // Whether so many positional arguments are all that there is to know.
  [[nodiscard]] bool fits(std::size_t count) const noexcept {
    return count == arity() && last == Parameter::Kind::kPlain;
  }
  // Completes `bound`, of arity() entries, with values that the caller holds.
  void bind(PyObject* const* args, Py_ssize_t count, PyObject* kwnames, Bound& bound) const;
  // `kwargs` belongs to the call alone, or is null.
  void bind(PyObject* args, PyObject* kwargs, Bound& bound) const;

 private:
  // Parameters that are bound one by one.
  [[nodiscard]] std::size_t plain_arity() const noexcept {
    return arity() - (last == Parameter::Kind::kPlain ? 0 : 1);
  }
  void bind_positional(PyObject* const* args, Py_ssize_t count, Bound& bound) const;
  void bind_keyword(Value key, Value value, Bound& bound) const;
  void fill_defaults(Bound& bound) const;
};

template <class Type>
struct Function;

// Calls a member function, or a free one whose first parameter is the object.
template <class Result, class Class, class... Args>
struct BoundFunction {
  using Owner = Class;
  static constexpr std::size_t kArity = sizeof...(Args);

  template <auto Code, std::size_t... Index>
  static Ref invoke(Class& self, [[maybe_unused]] PyObject* const* args,
                    std::index_sequence<Index...>) {
    auto run = [&] {
      if constexpr (std::is_member_function_pointer_v<decltype(Code)>) {
        return (self.*Code)(Args(Value(args[Index]))...);
      } else {
        return Code(self, Args(Value(args[Index]))...);
      }
    };
    if constexpr (std::is_void_v<Result>) {
      run();
      return none();
    } else if constexpr (std::is_same_v<Result, Ref>) {
      return run();
    } else {
      return argument(run());
    }
  }
};
template <class Result, class Class, class... Args>
struct Function<Result (Class::*)(Args...)>
    : BoundFunction<Result, Class, std::remove_cvref_t<Args>...> {};
template <class Result, class Class, class... Args>
struct Function<Result (Class::*)(Args...) const>
    : BoundFunction<Result, Class, std::remove_cvref_t<Args>...> {};
template <class Result, class Class, class... Args>
struct Function<Result (*)(Class&, Args...)>
    : BoundFunction<Result, Class, std::remove_cvref_t<Args>...> {};

template <auto Code>
using Traits = Function<decltype(Code)>;

template <auto Code>
Ref native(Object& self, PyObject* const* args) {
  return Traits<Code>::template invoke<Code>(static_cast<typename Traits<Code>::Owner&>(self), args,
                                             std::make_index_sequence<Traits<Code>::kArity>());
}

template <class Member>
struct MemberSlot;
template <class Class, class SlotType>
struct MemberSlot<SlotType Class::*> {
  using Owner = Class;
  using Type = SlotType;
};
template <auto Member>
using SlotOwner = typename MemberSlot<decltype(Member)>::Owner;

template <auto Member>
auto& slot_of(Object& self) {
  return static_cast<SlotOwner<Member>&>(self).*Member;
}

// Reads one attribute, or several as a tuple.
template <auto... Members>
Ref native_getter(Object& self, PyObject* const*) {
  if constexpr (sizeof...(Members) == 1) {
    return (argument(self.read(slot_of<Members>(self))), ...);
  } else {
    return tuple(self.read(slot_of<Members>(self))...);
  }
}

template <auto... Members>
Ref native_setter(Object& self, PyObject* const* args) {
  (self.write(slot_of<Members>(self), Value(*args++)), ...);
  return none();
}

}  // namespace tessora::host
