// The characters of a text.
#pragma once

#include "engine/host/value.hpp"

namespace tessora::host {

// Looks into a text that somebody holds for as long. TypeError for what is no text.
class Characters {
 public:
  explicit Characters(Value text);

  [[nodiscard]] Py_ssize_t length() const noexcept { return length_; }
  char32_t operator[](Py_ssize_t index) const noexcept {
    return PyUnicode_READ(kind_, data_, index);
  }
  // The first place of the character from `from` on, or the length.
  [[nodiscard]] Py_ssize_t find(char32_t character, Py_ssize_t from) const noexcept;
  // How many characters both begin with, and how many, up to `most`, both end with.
  [[nodiscard]] Py_ssize_t common_begin(const Characters& other) const noexcept;
  [[nodiscard]] Py_ssize_t common_end(const Characters& other, Py_ssize_t most) const noexcept;

 private:
  Value text_;
  int kind_;
  const void* data_;
  Py_ssize_t length_;
};

}  // namespace tessora::host
