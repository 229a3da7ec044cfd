// Interned host strings, written "GetWX"_name in the engine.
#pragma once

#include <algorithm>
#include <cstddef>

#include "engine/host/ref.hpp"

namespace tessora::host {

template <std::size_t Size>
struct FixedString {
  // NOLINTNEXTLINE(google-explicit-constructor): a literal turns into a template argument
  constexpr FixedString(const char (&text)[Size]) { std::copy_n(text, Size, chars); }
  char chars[Size] = {};
};

inline PyObject* intern(const char* chars) {
  PyObject* name = PyUnicode_InternFromString(chars);
  if (name == nullptr) throw HostError();
  return name;
}

inline namespace literals {

// The string lives as long as the process: names are few and used on every frame.
template <FixedString String>
PyObject* operator""_name() {
  static PyObject* const name = intern(String.chars);
  return name;
}

}  // namespace literals
}  // namespace tessora::host
