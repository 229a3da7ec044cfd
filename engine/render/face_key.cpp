#include "engine/render/face_key.hpp"

#include "engine/host/items.hpp"
#include "engine/pixels/surface.hpp"
#include "engine/render/font_state.hpp"

namespace tessora::render {

namespace {

// Components of a colour, in a tuple or list.
bool is_color_list(host::Value part) {
  constexpr Py_ssize_t kMost = 4;
  if (!(part.is_plain_tuple() || part.is_plain_list()) || part.length() > kMost) return false;
  bool numbers = true;
  for (host::Ref item : host::Items(part)) {
    numbers = numbers && (item.is_plain_integer() || item.is_plain_real());
  }
  return numbers;
}

}  // namespace

FaceKey& FaceKey::add(host::Value part) {
  if (part.is_none()) return append('n', char{0});
  if (part.is_plain_text()) {
    bytes_.push_back('t');
    host::append_characters(bytes_, part);
    return *this;
  }
  if (part.is_flag()) return append('b', part.equals_true());
  if (part.is_plain_real() || part.is_plain_integer()) {
    const host::Number number(part);
    if (std::optional<double> plain = number.plain()) {
      return number.is_real() ? append('d', *plain) : append('i', *number.whole());
    }
  }
  if (std::optional<std::uint32_t> color = plain_color(part)) return append('c', *color);
  if (is_color_list(part)) {
    const host::Items items(part);
    append('l', items.size());
    for (host::Ref item : items) add(host::Value(item));
    return *this;
  }
  known_ = false;
  return *this;
}

FaceKey& FaceKey::add(const FontPart& part) {
  known_ = known_ && is_plain_font(part.font);
  if (!known_) return *this;
  const std::string& state = font_state(part.font);
  known_ = !state.empty();
  append('f', state.size());
  bytes_ += state;
  return *this;
}

}  // namespace tessora::render
