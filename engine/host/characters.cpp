#include "engine/host/characters.hpp"

#include <algorithm>
#include <cstring>

namespace tessora::host {

namespace {

// Long texts that are mostly the same are compared in blocks.
constexpr Py_ssize_t kBlock = 256;

}  // namespace

Characters::Characters(Value text) : text_(text) {
  if (!text.is_text()) raise(PyExc_TypeError, "a text must be a str, not %R", text);
#if PY_VERSION_HEX < 0x030C0000
  check(PyUnicode_READY(text.get()));
#endif
  kind_ = static_cast<int>(PyUnicode_KIND(text.get()));
  data_ = PyUnicode_DATA(text.get());
  length_ = PyUnicode_GET_LENGTH(text.get());
}

Py_ssize_t Characters::find(char32_t character, Py_ssize_t from) const noexcept {
  const Py_ssize_t found = PyUnicode_FindChar(text_.get(), character, from, length_, 1);
  return found < 0 ? length_ : found;
}

Py_ssize_t Characters::common_begin(const Characters& other) const noexcept {
  const Py_ssize_t most = std::min(length_, other.length_);
  const auto* mine = static_cast<const char*>(data_);
  const auto* theirs = static_cast<const char*>(other.data_);
  Py_ssize_t count = 0;
  const bool alike = kind_ == other.kind_;
  auto block_alike = [&] {
    const auto offset = static_cast<std::size_t>(count * kind_);
    return std::memcmp(mine + offset, theirs + offset, static_cast<std::size_t>(kBlock * kind_)) ==
           0;
  };
  while (alike && count + kBlock <= most && block_alike()) count += kBlock;
  while (count < most && (*this)[count] == other[count]) ++count;
  return count;
}

Py_ssize_t Characters::common_end(const Characters& other, Py_ssize_t most) const noexcept {
  const auto* mine = static_cast<const char*>(data_);
  const auto* theirs = static_cast<const char*>(other.data_);
  Py_ssize_t count = 0;
  const bool alike = kind_ == other.kind_;
  auto block_alike = [&] {
    const auto begin = static_cast<std::size_t>((length_ - count - kBlock) * kind_);
    const auto other_begin = static_cast<std::size_t>((other.length_ - count - kBlock) * kind_);
    return std::memcmp(mine + begin, theirs + other_begin,
                       static_cast<std::size_t>(kBlock * kind_)) == 0;
  };
  while (alike && count + kBlock <= most && block_alike()) count += kBlock;
  while (count < most && (*this)[length_ - 1 - count] == other[other.length_ - 1 - count]) ++count;
  return count;
}

}  // namespace tessora::host
