// Signatures of the interface, written once and in Python's own words:
// "SetBGColor(r: int, g: int, b: int, a: int = 255) -> None". From them come the names and defaults
// of the arguments, what help() and inspect show, and the type stubs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/host/value.hpp"

namespace tessora::host {

struct Parameter {
  enum class Kind : std::uint8_t { kPlain, kRest, kKeywords };
  std::string_view name;
  std::string_view type;
  std::string_view fallback;  // as written; empty when the argument must be given
  Kind kind = Kind::kPlain;

  // The default value, shared by all calls; an empty reference without one.
  [[nodiscard]] Ref default_value() const;
};

struct Signature {
  std::string_view name;
  std::vector<Parameter> parameters;
  std::string_view result;

  // `text` lives as long as the process.
  explicit Signature(std::string_view text);
  // "name($self, x, y=0)\n--\n\n" in front of the documentation is what inspect and help() read.
  [[nodiscard]] std::string documentation(bool method, std::string_view doc) const;
};

}  // namespace tessora::host
