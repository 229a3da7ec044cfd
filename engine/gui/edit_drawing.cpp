// Drawing an edit, and presses on it.
#include <cmath>
#include <numbers>

#include "engine/gui/edit.hpp"
#include "engine/gui/text_ruler.hpp"
#include "engine/object/wrong_attributes.hpp"

namespace tessora {

void GUI_Edit::draw_ground(Value screen) {
  if (!is_true(focusIn)) return draw_picture_or_background(screen);
  draw_picture_or_background(screen, is_set(image_focusIn) ? image_focusIn : image,
                             bgColor_focusIn);
}

void GUI_Edit::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    begin_draw(offset_x, offset_y, scale);
    draw_ground(screen);
    Ref shown = shown_text();
    message::drawText(*this, screen, shown, read(textColor));
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

bool GUI_Edit::blink() {
  Ref clock = host::modules::time.call("time"_name);
  const Number now = clock;
  const Number passed = now - read(cursorlasttime);
  // A clock that was set back must not stop the cursor.
  if (passed >= read(cursorshowtime) || passed < Number(0)) {
    write(cursorvisible, !is_true(cursorvisible));
    write(cursorlasttime, clock);
  }
  return is_true(cursorvisible);
}

void GUI_Edit::draw_cursor(Value screen, const CursorPlace& place) {
  const render::Size whole = unscaled_size();
  const double left = std::max(0.0, std::min(place.left, whole.width - kCursorWidth));
  Ref color = read(cursorColor);
  const render::Canvas canvas(screen);
  const double turn = drawn_angle();
  if (turn == 0.0) {
    const Number across = read(WX) + Number(left) * read(WSX);
    const Number down = read(WY) + Number(place.top) * read(WSY);
    const Number high = Number(place.height) * read(WSY);
    canvas.fill(color, {across.to_double(), down.to_double(), kCursorWidth, high.to_double()});
    return;
  }
  const render::FaceKey key("cursor", color, left, place.top, place.height);
  const render::Size drawn = drawn_size();
  canvas.sheet(key, whole, drawn, turn, drawn_center(), [&](const render::Canvas& sheet) {
    sheet.fill(color, {left, place.top, kCursorWidth, place.height});
  });
}

void GUI_Edit::drawFocusBorder(Value screen) {
  message::drawFocusBorder.base<&GUI_Image::drawFocusBorder>(*this, screen);
  if (!is_true(focusIn) || !blink()) return;
  Ref shown = shown_text();
  TextRuler ruler(*this, shown);
  Ref content = read(text);
  const Py_ssize_t length = content.length();
  const Py_ssize_t begin = place_of(text_begin_index, length);
  const double before = ruler.width(0, place_of(cursorPos, length) - begin);
  const double high = ruler.height();
  const render::Point corner = text_corner({ruler.width(0, ruler.length()), high});
  draw_cursor(screen, {corner.x + before, corner.y, high});
}

render::Point GUI_Edit::local_point(Value px, Value py) {
  constexpr double kDegree = std::numbers::pi / 180.0;
  const render::Point center = drawn_center();
  const double across = Number(px).to_double() - center.x;
  const double down = Number(py).to_double() - center.y;
  const double turn = drawn_angle() * kDegree;
  const double scale_x = Number(read(WSX)).to_double();
  const double scale_y = Number(read(WSY)).to_double();
  const render::Size size = unscaled_size();
  return {(across * std::cos(turn) - down * std::sin(turn)) / scale_x + size.width / 2,
          (across * std::sin(turn) + down * std::cos(turn)) / scale_y + size.height / 2};
}

Ref GUI_Edit::take_press(Value px, Value py) {
  Ref taker = is_true(enable)
                  ? message::OnPickDownFunction.base<&GameNode::OnPickDownFunction, GUI_Label>(
                        *this, px, py)
                  : host::none();
  if (taker.is(*this)) {
    message::SetFocusIn(*this, true);
  } else if (is_true(focusIn)) {
    message::SetFocusIn(*this, false);
  }
  return taker;
}

Ref GUI_Edit::OnPickDownFunction(Value px, Value py) {
  Ref taker = take_press(px, py);
  if (!taker.is(*this)) return taker;
  const render::Point point = local_point(px, py);
  Ref shown = shown_text();
  TextRuler ruler(*this, shown);
  const Py_ssize_t length = ruler.length();
  const render::Point corner = text_corner({ruler.width(0, length), ruler.height()});
  const Py_ssize_t place = ruler.nearest(0, length, point.x - corner.x);
  write(cursorPos, read(text_begin_index) + Number(place));
  return taker;
}

void declare_edit_drawing(host::Declaration<GUI_Edit, GUI_Label>& edit) {
  declare_draw<&GUI_Edit::draw>(
      edit,
      "Draw the picture or background, the part of the text that shows, border, cursor, overlays "
      "and children.")
      .method<&GUI_Edit::drawFocusBorder>(
          "drawFocusBorder(screen: pygame.Surface) -> None",
          "Outline the edit and draw the blinking cursor while it has the keyboard focus.")
      .method<&GUI_Edit::OnPickDownFunction>(
          "OnPickDownFunction(px: float, py: float) -> GameNode | None",
          "Handle a press as a node does.\n\nOne that the edit takes gives it the focus and sets "
          "the cursor, any other takes the focus away; a disabled edit takes none.");
}

}  // namespace tessora
