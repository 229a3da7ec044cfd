// Finished texts.
#include "engine/host/fonts.hpp"
#include "engine/pixels/surface.hpp"
#include "engine/render/canvas.hpp"
#include "engine/render/face_cache.hpp"
#include "engine/render/font_state.hpp"
#include "engine/render/picture_cache.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

// A method of the font, in which no script runs when it is pygame's own and so are the arguments.
template <class... Args>
Ref ask(bool plain, Value font, Value method, const Args&... args) {
  return plain ? host::call_library_method(font, method, args...) : font.call(method, args...);
}

Size size_of_text(bool plain, Value font, Value text) {
  Ref size = ask(plain, font, "size"_name, text);
  Ref wide = size.item(0);
  Ref high = size.item(1);
  const double width = Number(wide).to_double();
  return {width, Number(high).to_double()};
}

TextFace render(bool plain, Value font, Value text, Value color) {
  const Size size = size_of_text(plain, font, text);
  TextFace face{{}, size.width, size.height};
  // pygame refuses to render what has no width.
  if (face.width == 0.0 && is_plain_font(font)) return face;
  Ref picture = ask(plain, font, "render"_name, text, true, color);
  face.picture = convert_alpha(picture);
  return face;
}

}  // namespace

Size text_size(Value font, Value text) {
  return size_of_text(is_plain_font(font) && text.is_plain_text(), font, text);
}

TextFace text_face(Value font, Value text, Value color) {
  host::check_font(font);
  const FaceKey key("text", FontPart{font}, text, color);
  if (const Face* face = find_face(key)) {
    return {face->kept->surface, face->width, face->height, true};
  }
  // A known key says that font, text and colour are pygame's and Python's own.
  const bool plain = key.is_known();
  TextFace made = render(plain, font, text, color);
  if (!made.picture || !is_face_wanted(key)) return made;
  made.is_kept = keep_face(key, made.picture, made.width, made.height) != nullptr;
  if (made.is_kept) trust_pixels(made.picture);
  return made;
}

Ref text_picture(Value font, Value text, Value color) {
  if (is_plain_font(font)) return text_face(font, text, color).picture;
  host::check_font(font);
  Ref picture = font.call("render"_name, text, true, color);
  return convert_alpha(picture);
}

void font_changed(Value font) {
  renew_font(font);
}

}  // namespace tessora::render
