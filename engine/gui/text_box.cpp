// Typing into a text box, and drawing it.
#include "engine/gui/text_box.hpp"

#include <algorithm>
#include <cmath>

#include "engine/object/wrong_attributes.hpp"

namespace tessora {

namespace {

// The part of a line that is drawn.
Ref without_break(Value line) {
  const host::Characters characters(line);
  const Py_ssize_t length = characters.length();
  const bool broken = length > 0 && characters[length - 1] == U'\n';
  return broken ? line.slice(0, length - 1) : Ref(line);
}

}  // namespace

double GUI_Text::line_left(double length) {
  return text_corner({length, 0.0}).x;
}

double GUI_Text::cursor_x(const RowPlace& place) {
  Ref lines = read(lineArray);
  if (place.row >= lines.length()) return line_left(0.0);
  Ref line = without_break(lines.item(place.row));
  TextRuler ruler(*this, line);
  const Py_ssize_t column = place_of(cursorPos, place.start + ruler.length()) - place.start;
  const double before = ruler.width(0, column);
  return line_left(ruler.width(0, ruler.length())) + before;
}

void GUI_Text::place_cursor(Py_ssize_t row, double across) {
  Ref lines = read(lineArray);
  const Py_ssize_t count = lines.length();
  if (row >= count) return;
  RowPlace place = memo.near;
  while (place.row > row) place.start -= lines.item(--place.row).length();
  while (place.row < row) place.start += lines.item(place.row++).length();
  Ref whole = lines.item(row);
  Ref line = without_break(whole);
  TextRuler ruler(*this, line);
  const Py_ssize_t length = ruler.length();
  // Behind a line that goes on below, the cursor would stand there.
  const bool goes_on = row + 1 < count && length == whole.length();
  const Py_ssize_t last = goes_on ? std::max<Py_ssize_t>(0, length - 1) : length;
  const Py_ssize_t column = ruler.nearest(0, last, across - line_left(ruler.width(0, length)));
  write(cursorPos, Number(place.start + column));
}

void GUI_Text::move_row(Py_ssize_t step) {
  const RowPlace place = refresh();
  const Py_ssize_t row = place.row + step;
  if (row < 0 || !(Number(row) < Number(read(lineCount)))) return;
  if (!memo.has_column) memo.column = cursor_x(place);
  place_cursor(row, memo.column);
  memo.has_column = true;
}

void GUI_Text::scroll_to_cursor() {
  const RowPlace place = refresh();
  const Number count = read(lineCount);
  const Py_ssize_t lines = static_cast<Py_ssize_t>(count.whole().value_or(0));
  const Py_ssize_t first = place_of(lineIndex, lines);
  const Py_ssize_t shown = std::max<Py_ssize_t>(1, place_of(showlineCount, lines));
  if (place.row < first) write(lineIndex, Number(place.row));
  if (place.row >= first + shown) write(lineIndex, Number(place.row - shown + 1));
}

void GUI_Text::OnKeyDownFunction(Value key) {
  if (!takes_keys()) {
    return message::OnKeyDownFunction.base<&GameNode::OnKeyDownFunction, GUI_Label>(*this, key);
  }
  adopt_lines();
  const bool down = key.is_text("down"_name);
  const bool up = key.is_text("up"_name);
  // On the way over shorter lines the column is kept.
  if (!down && !up) memo.has_column = false;
  if (down || up) {
    move_row(down ? 1 : -1);
  } else if (key.is_text("return"_name)) {
    insert("\n"_name);
    scroll_to_cursor();
    call_return();
  } else {
    edit_text(key);
  }
  scroll_to_cursor();
}

Ref GUI_Text::OnPickDownFunction(Value px, Value py) {
  Ref taker = take_press(px, py);
  if (!taker.is(*this)) return taker;
  refresh();
  memo.has_column = false;
  const render::Point point = local_point(px, py);
  const double down = point.y - Number(read(texttopgap)).to_double();
  const double below = std::max(0.0, std::floor(down / line_step()));
  Ref lines = read(lineArray);
  const Py_ssize_t last = std::max<Py_ssize_t>(0, lines.length() - 1);
  const Py_ssize_t first = place_of(lineIndex, last);
  const bool is_inside = below < static_cast<double>(last - first);
  place_cursor(is_inside ? first + static_cast<Py_ssize_t>(below) : last, point.x);
  refresh();
  return taker;
}

void GUI_Text::draw_lines(Value screen) {
  if (!is_true(textVisible)) return;
  refresh();
  Ref lines = read(lineArray);
  const Py_ssize_t count = lines.length();
  const Py_ssize_t first = place_of(lineIndex, count);
  const Py_ssize_t shown = place_of(showlineCount, count - first);
  Ref type = read(font);
  Ref color = read(textColor);
  double top = Number(read(texttopgap)).to_double();
  const double step = line_step();
  std::vector<PlacedText> texts;
  texts.reserve(static_cast<std::size_t>(shown));
  for (Py_ssize_t row = first; row < first + shown; ++row, top += step) {
    Ref line = displayed(without_break(lines.item(row)));
    if (line.length() == 0) continue;
    const render::TextFace face = render::text_face(type, line, color);
    if (face.picture) texts.push_back({line, face, {line_left(face.width), top}});
  }
  draw_texts(screen, type, color, texts);
}

void GUI_Text::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    begin_draw(offset_x, offset_y, scale);
    draw_ground(screen);
    draw_lines(screen);
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

void GUI_Text::drawFocusBorder(Value screen) {
  message::drawFocusBorder.base<&GUI_Image::drawFocusBorder>(*this, screen);
  if (!is_true(focusIn) || !blink()) return;
  const RowPlace place = refresh();
  Ref lines = read(lineArray);
  const Py_ssize_t count = lines.length();
  const Py_ssize_t first = place_of(lineIndex, count);
  const Py_ssize_t shown = std::max<Py_ssize_t>(1, place_of(showlineCount, count));
  if (place.row < first || place.row >= first + shown) return;
  const double left = cursor_x(place);
  const double above = Number(read(texttopgap)).to_double();
  const double high = Number(read(lineHeight)).to_double();
  draw_cursor(screen, {left, above + line_step() * static_cast<double>(place.row - first), high});
}

void register_text_box(PyObject* module) {
  using B = GUI_Text;
  host::Declaration<B, GUI_Edit> box(
      module, "GUI_Text",
      "A text of many lines to type into.\n\n"
      "The arguments are those of a label. The text is broken by width, behind spaces where there "
      "are any, and at line breaks; a window of whole lines follows the cursor.\n\n"
      ">>> text = Tessora.GUI_Text(None, 10, 20, \"Dear diary,\\ntoday\")\n"
      ">>> text.SetWidth(300)");
  box.constructor(kLabelParameters);
  box.sets<&B::NodeType>("Text");
  declare_text_lines(box);
  declare_draw<&B::draw>(
      box,
      "Draw the picture or background, the lines that show, border, cursor, overlays and children.")
      .method<&B::drawFocusBorder>(
          "drawFocusBorder(screen: pygame.Surface) -> None",
          "Outline the box and draw the blinking cursor while it has the keyboard focus.")
      .method<&B::OnPickDownFunction>(
          "OnPickDownFunction(px: float, py: float) -> GameNode | None",
          "Handle a press as an edit does; the cursor goes to the line and place pressed.")
      .method<&B::OnKeyDownFunction>(
          "OnKeyDownFunction(keyname: Hashable) -> None",
          "Handle a key as an edit does; \"up\" and \"down\" move between lines, \"return\" begins "
          "a line before it calls `ReturnCallBackFunc`.");
  box.finish();
}

}  // namespace tessora
