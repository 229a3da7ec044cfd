// The edit: one line of text to type into, a cursor, and a window onto a longer text.
#pragma once

#include "engine/gui/label.hpp"

namespace tessora {

inline constexpr double kCursorWidth = 2.0;

struct GUI_Edit : GUI_Label {
  LazySlot cursorColor, bgColor_focusIn;
  Slot image_focusIn, image_focusIn_File;
  Slot cursorPos, cursorshowtime, cursorlasttime, cursorvisible;
  Slot text_begin_index, text_end_index, max_char_count, ReturnCallBackFunc;

  // For what the window was found, and what it shows; not for scripts.
  Slot window_key, window_text, window_shown;

  // Text, window and keys: edit.cpp
  void SetText(Value content);
  void SetWidth(Value w);
  void OnKeyDownFunction(Value key);
  // Visible, enabled and focused.
  bool takes_keys();
  // Moves the cursor, removes or inserts, as the key says.
  void edit_text(Value key);
  void insert(Value piece);
  void call_return();
  // A place that scripts may have set to any number, within a text of that length.
  Py_ssize_t place_of(const Slot& slot, Py_ssize_t length);
  // Pixels between the gap on the left and that on the right, where the cursor finds room.
  double text_room();
  // Finds the part of the text that shows, with the cursor in it; returns that part.
  Ref shown_text();

  // Drawing and presses: edit_drawing.cpp
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void drawFocusBorder(Value screen);
  Ref OnPickDownFunction(Value px, Value py);
  // Background or picture, with focus or without.
  void draw_ground(Value screen);
  // Handles a press as a node; gives the focus for one that the edit takes, else takes it away.
  Ref take_press(Value px, Value py);
  // A point of the screen in the widget's unscaled and unrotated pixels.
  render::Point local_point(Value px, Value py);
  // Draws the cursor while it is to be seen, its corner and height in unscaled pixels.
  struct CursorPlace {
    double left, top, height;
  };
  void draw_cursor(Value screen, const CursorPlace& place);
  // Whether the cursor shows now; blinks.
  bool blink();
};

namespace message {
inline Message SetFocusIn{"SetFocusIn"};
inline Message SetText{"SetText"};
}  // namespace message

void declare_edit_drawing(host::Declaration<GUI_Edit, GUI_Label>& edit);
void register_edit(PyObject* module);

}  // namespace tessora
