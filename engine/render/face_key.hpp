// Keys of kept faces: everything that a finished text, border or background depends on.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

#include "engine/host/value.hpp"

namespace tessora::render {

// A font that the key tells by identity and by what can be read of its state.
struct FontPart {
  host::Value font;
};

// Parts are numbers, flags, enumerators, FontPart and Python values: texts, numbers, pygame's own
// colours, tuples and lists of components, None. Another value makes a key under which nothing is
// kept: nobody knows when it changes.
class FaceKey {
 public:
  // `kind` tells faces of different making apart.
  template <class... Parts>
  explicit FaceKey(const char* kind, const Parts&... parts) : bytes_(kind) {
    constexpr std::size_t kUsual = 128;
    bytes_.reserve(kUsual);
    (add(parts), ...);
  }

  template <class Part>
    requires std::integral<Part> || std::is_enum_v<Part>
  FaceKey& add(Part part) {
    return append('i', static_cast<std::int64_t>(part));
  }
  FaceKey& add(double part) { return append('d', part); }
  FaceKey& add(host::Value part);
  FaceKey& add(const FontPart& part);

  // Whether faces can be kept under it.
  [[nodiscard]] bool is_known() const { return known_; }
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  template <class Part>
  FaceKey& append(char type, const Part& part) {
    static_assert(std::is_trivially_copyable_v<Part>);
    bytes_.push_back(type);
    bytes_.append(reinterpret_cast<const char*>(&part), sizeof(part));
    return *this;
  }

  std::string bytes_;
  bool known_ = true;
};

}  // namespace tessora::render
