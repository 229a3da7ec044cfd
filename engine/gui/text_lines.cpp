// The lines of a text box and the window onto them.
#include "engine/gui/text_box.hpp"

namespace tessora {

render::FaceKey GUI_Text::line_key() {
  Ref type = read(font);
  render::FaceKey key("lines", render::FontPart{type});
  for (const Slot* slot : {&showChar, &width, &textleftgap}) {
    Ref value = read(*slot);
    key.add(Value(value));
  }
  return key;
}

bool GUI_Text::are_lines_for(Value content) {
  Ref known = read(broken_text);
  if (!known.is(content)) return false;
  const render::FaceKey key = line_key();
  return key.is_known() && Ref(read(broken_key)).bytes() == key.bytes();
}

void GUI_Text::CalculationLineCount() {
  Ref content = read(text);
  LineBreaks breaks(*this, content, text_room());
  const render::FaceKey key = line_key();
  Ref known = read(broken_text);
  Ref known_lines = read(broken_lines);
  Ref lines = is_unset(lineArray) ? host::none() : Ref(read(lineArray));
  const bool usable = known && known.is_text() && known_lines.is(lines) && lines.is_plain_list() &&
                      lines.length() == memo.count && are_lines_for(known);
  // What fails halfway must not be taken for lines later on.
  write(broken_text, nullptr);
  if (usable) {
    const host::Characters old(known);
    const LineChange change = changed_lines(breaks, old, lines, memo.near);
    host::replace_slice(lines, change.first.row, change.last, change.lines);
    memo.near = change.first;
  } else {
    lines = host::list();
    breaks.append_lines(0, lines, [](Py_ssize_t) { return false; });
    memo.near = {0, 0};
    write(lineArray, lines);
  }
  memo.count = lines.length();
  write(lineCount, Number(memo.count));
  write(broken_lines, lines);
  write(broken_key, host::bytes_object(key.is_known() ? key.bytes() : ""));
  write(broken_text, content);
}

double GUI_Text::line_step() {
  const Number step = read(lineHeight) + read(linegap);
  return step.to_double();
}

void GUI_Text::count_rows() {
  const Number rows = (read(height) - read(texttopgap)) / (read(lineHeight) + read(linegap));
  write(showlineCount, rows.truncated());
}

void GUI_Text::fit_rows() {
  count_rows();
  message::CalculationLineCount(*this);
  find_row();
  limit_window();
}

void GUI_Text::follow_font() {
  Ref content = read(text);
  const double natural = TextRuler(*this, content).height();
  if (natural == memo.line_height || !(read(lineHeight) == Number(memo.line_height))) return;
  memo.line_height = natural;
  write(lineHeight, Number(natural).truncated());
  count_rows();
}

void GUI_Text::limit_window() {
  const Number count = read(lineCount);
  const Number last = count - read(showlineCount);
  if (!(count > Number(0)) || !(read(lineIndex) > last)) return;
  write(lineIndex, last > Number(0) ? last : Number(0));
}

void GUI_Text::adopt_lines() {
  Ref lines = read(lineArray);
  Ref known = read(broken_lines);
  const bool are_own = known && !(known.is(lines) && lines.length() == memo.count);
  if (are_own) write(text, host::joined_all(lines));
}

RowPlace GUI_Text::refresh() {
  Ref content = read(text);
  if (!are_lines_for(content)) {
    message::CalculationLineCount(*this);
    follow_font();
    limit_window();
  }
  return find_row();
}

RowPlace GUI_Text::find_row() {
  Ref content = read(text);
  const Py_ssize_t place = place_of(cursorPos, content.length());
  Ref lines = read(lineArray);
  memo.near = row_of(lines, place, memo.near);
  if (!(read(cursorRow) == Number(memo.near.row))) write(cursorRow, Number(memo.near.row));
  return memo.near;
}

void GUI_Text::begin_lines() {
  constexpr int kGap = 2;
  Ref content = read(text);
  memo.line_height = TextRuler(*this, content).height();
  write(lineHeight, Number(memo.line_height).truncated());
  write(linegap, kGap);
  fit_rows();
}

void GUI_Text::SetText(Value content) {
  message::SetText.base<&GUI_Edit::SetText>(*this, content);
  message::CalculationLineCount(*this);
  find_row();
  limit_window();
}

void GUI_Text::SetWidth(Value w) {
  write(width, w);
  message::CalculationLineCount(*this);
  find_row();
  limit_window();
}

void GUI_Text::SetHeight(Value h) {
  write(height, h);
  fit_rows();
}

void GUI_Text::SetLineHeight(Value h) {
  write(lineHeight, h);
  fit_rows();
}

void GUI_Text::SetLineGap(Value gap) {
  write(linegap, gap);
  fit_rows();
}

void declare_text_lines(host::Declaration<GUI_Text, GUI_Edit>& box) {
  using B = GUI_Text;
  box.attribute<&B::lineArray>("lineArray: list[str]",
                               host::replaced(host::made<&host::new_list>()),
                               "The lines with their spaces and line breaks; joined, the text.");
  box.attribute<&B::lineCount>("lineCount: int", host::replaced(0), "Number of lines.");
  box.attribute<&B::lineIndex>("lineIndex: int", 0, "First line that is shown, counted from 0.");
  box.attribute<&B::showlineCount>("showlineCount: int", host::replaced(0),
                                   "Number of lines that fit into the height.");
  box.attribute<&B::cursorRow>("cursorRow: int", 0, "Line of the cursor, counted from 0.");
  box.attribute<&B::lineHeight>("lineHeight: float", host::replaced(0),
                                "Height of a line in pixels; the font's until it is set.")
      .getter("GetLineHeight");
  box.attribute<&B::linegap>("linegap: float", host::replaced(0),
                             "Distance between lines in pixels. Default 2.")
      .getter("GetLineGap");
  box.hidden<&B::broken_text>().hidden<&B::broken_lines>().hidden<&B::broken_key>();
  box.step<&B::begin_lines>();
  box.method<&B::SetText>("SetText(text: str) -> None",
                          "Set the text and break it into lines; cursor and window stay within it.")
      .method<&B::SetWidth>("SetWidth(width: float) -> None",
                            "Set the width in pixels and break the text again.")
      .method<&B::SetHeight>("SetHeight(height: float) -> None",
                             "Set the height in pixels and show as many whole lines as fit.\n\n"
                             "Raises ZeroDivisionError when a line takes no room.")
      .method<&B::SetLineHeight>("SetLineHeight(height: float) -> None",
                                 "Set the height of a line in pixels, which the font no longer "
                                 "changes, and show as many whole lines as fit.")
      .method<&B::SetLineGap>("SetLineGap(gap: float) -> None",
                              "Set the distance between lines in pixels and show as many whole "
                              "lines as fit.")
      .method<&B::CalculationLineCount>(
          "CalculationLineCount() -> None",
          "Break the text into `lineArray`, by width and at line breaks, and count the lines.");
}

}  // namespace tessora
