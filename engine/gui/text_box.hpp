// The text box: an edit of many lines, and a window of whole lines onto them.
#pragma once

#include "engine/gui/edit.hpp"
#include "engine/gui/line_breaks.hpp"

namespace tessora {

struct GUI_Text : GUI_Edit {
  Slot lineArray, lineCount, lineIndex, showlineCount, cursorRow, lineHeight, linegap;

  // For what the lines were made; not for scripts.
  Slot broken_text, broken_lines, broken_key;
  struct {
    Py_ssize_t count;    // of the lines made
    RowPlace near;       // a row and where it begins
    double line_height;  // of the font
    double column;       // pixels; where "up" and "down" go
    bool has_column;
  } memo;

  // Lines: text_lines.cpp
  void SetText(Value content);
  void SetWidth(Value w);
  void SetHeight(Value h);
  void SetLineHeight(Value h);
  void SetLineGap(Value gap);
  void CalculationLineCount();
  void begin_lines();
  // Makes lines, row and cursor fit the text and the font as they are now.
  RowPlace refresh();
  // The row of the cursor.
  RowPlace find_row();
  // Lines are as high as the font until a script says otherwise.
  void follow_font();
  // As many whole lines as the height has room for.
  void fit_rows();
  void count_rows();
  void limit_window();
  // The lines are what the text becomes when a script has changed them.
  void adopt_lines();
  // Pixels from one line to the next.
  double line_step();

  // Cursor, keys and drawing: text_box.cpp
  void OnKeyDownFunction(Value key);
  Ref OnPickDownFunction(Value px, Value py);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void drawFocusBorder(Value screen);
  void scroll_to_cursor();
  void move_row(Py_ssize_t step);
  // Sets the cursor into a row, as near to `across` unscaled pixels as it can.
  void place_cursor(Py_ssize_t row, double across);
  // Where the cursor stands in the row, unscaled pixels.
  double cursor_x(const RowPlace& place);

 private:
  bool are_lines_for(Value content);
  render::FaceKey line_key();
  double line_left(double length);
  void draw_lines(Value screen);
};

namespace message {
inline Message CalculationLineCount{"CalculationLineCount"};
}  // namespace message

void declare_text_lines(host::Declaration<GUI_Text, GUI_Edit>& box);
void register_text_box(PyObject* module);

}  // namespace tessora
