// Parameters of the interface's methods: names, defaults, binding of positional and keyword
// arguments, and the adapters that make a C++ member function callable from the host.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "engine/host/object.hpp"

namespace tessora::host {

// A default value as it is written in a declaration.
struct Literal {
  enum class Kind : std::uint8_t { kNone, kBool, kInteger, kReal, kText };
  Literal(std::nullptr_t) : kind(Kind::kNone) {}                      // NOLINT
  Literal(bool value) : kind(Kind::kBool), integer(value ? 1 : 0) {}  // NOLINT
  Literal(int value) : kind(Kind::kInteger), integer(value) {}        // NOLINT
  Literal(double value) : kind(Kind::kReal), real(value) {}           // NOLINT
  Literal(const char* value) : kind(Kind::kText), text(value) {}      // NOLINT
  [[nodiscard]] Ref object() const;
  Kind kind;
  int integer = 0;
  double real = 0.0;
  const char* text = nullptr;
};

struct Parameter {
  Parameter(const char* required) : name(required) {}  // NOLINT(google-explicit-constructor)
  Parameter(const char* given, Literal value) : name(given), optional(true), literal(value) {}
  const char* name;
  bool optional = false;
  Literal literal = nullptr;
};
using Parameters = std::initializer_list<Parameter>;

// The engine's own side of a method: takes as many arguments as the method has parameters.
using Native = Ref (*)(Object& self, PyObject* const* args);

struct Method {
  const char* name = nullptr;
  Native native = nullptr;
  std::vector<PyObject*> names;     // interned parameter names
  std::vector<PyObject*> defaults;  // null for a required parameter

  void declare(const char* method_name, Native function, Parameters parameters);
  [[nodiscard]] std::size_t arity() const noexcept { return names.size(); }
  // Completes `bound`, of arity() entries, with borrowed references.
  void bind(PyObject* const* args, Py_ssize_t count, PyObject* kwnames, PyObject** bound) const;
  void bind(PyObject* args, PyObject* kwargs, PyObject** bound) const;

 private:
  void bind_keyword(PyObject* key, PyObject* value, PyObject** bound) const;
  void fill_defaults(PyObject** bound) const;
  void bind_positional(PyObject* const* args, Py_ssize_t count, PyObject** bound) const;
};

// "name($self, x, y=0)\n--\n\n" in front of the documentation is what inspect and help() read.
std::string documentation(const char* name, bool method, Parameters parameters, const char* doc);

template <class Function>
struct MemberFunction;
template <class Result, class Class, class... Args>
struct MemberFunction<Result (Class::*)(Args...)> {
  using Owner = Class;
  static constexpr std::size_t kArity = sizeof...(Args);

  template <auto Function, std::size_t... Index>
  static Ref invoke(Class& self, [[maybe_unused]] PyObject* const* args,
                    std::index_sequence<Index...>) {
    if constexpr (std::is_void_v<Result>) {
      (self.*Function)(args[Index]...);
      return none();
    } else if constexpr (std::is_same_v<Result, bool>) {
      return boolean((self.*Function)(args[Index]...));
    } else if constexpr (std::is_same_v<Result, Number>) {
      return (self.*Function)(args[Index]...).object();
    } else {
      return (self.*Function)(args[Index]...);
    }
  }
};
template <class Result, class Class, class... Args>
struct MemberFunction<Result (Class::*)(Args...) const>
    : MemberFunction<Result (Class::*)(Args...)> {};

template <auto Function>
using Traits = MemberFunction<decltype(Function)>;

template <auto Function>
Ref native(Object& self, PyObject* const* args) {
  return Traits<Function>::template invoke<Function>(
      static_cast<typename Traits<Function>::Owner&>(self), args,
      std::make_index_sequence<Traits<Function>::kArity>());
}

template <class Member>
struct MemberSlot;
template <class Class, class SlotType>
struct MemberSlot<SlotType Class::*> {
  using Owner = Class;
};
template <auto Member>
using SlotOwner = typename MemberSlot<decltype(Member)>::Owner;

// Reads one attribute, or several as a tuple.
template <auto... Members>
Ref native_getter(Object& self, PyObject* const*) {
  if constexpr (sizeof...(Members) == 1) {
    return (self.read(static_cast<SlotOwner<Members>&>(self).*Members), ...);
  } else {
    return tuple(self.read(static_cast<SlotOwner<Members>&>(self).*Members)...);
  }
}

template <auto... Members>
Ref native_setter(Object& self, PyObject* const* args) {
  (self.write(static_cast<SlotOwner<Members>&>(self).*Members, *args++), ...);
  return none();
}

}  // namespace tessora::host
