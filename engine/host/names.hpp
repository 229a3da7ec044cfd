// Shared values, written "GetWX"_name, 255_const and 1.0_const in the engine.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "engine/host/value.hpp"

namespace tessora::host {

template <std::size_t Size>
struct FixedString {
  // NOLINTNEXTLINE(google-explicit-constructor): a literal turns into a template argument
  constexpr FixedString(const char (&text)[Size]) { std::copy_n(text, Size, chars); }
  char chars[Size] = {};
};

inline Value intern(const char* chars) {
  PyObject* name = PyUnicode_InternFromString(chars);
  if (name == nullptr) throw HostError();
  return name;
}

inline namespace literals {

// The values live as long as the process: they are few and used on every frame.
template <FixedString String>
Value operator""_name() {
  static PyObject* const name = intern(String.chars).get();
  return name;
}

template <char... Chars>
Value operator""_const() {
  static PyObject* const number = [] {
    constexpr char kChars[] = {Chars..., '\0'};
    constexpr bool kIsReal = ((Chars == '.') || ...);
    Ref value =
        kIsReal ? real(std::strtod(kChars, nullptr)) : take(PyLong_FromString(kChars, nullptr, 10));
    return value.release();
  }();
  return number;
}

}  // namespace literals
}  // namespace tessora::host
