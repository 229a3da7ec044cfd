// The message box: a text, an OK button and a close button.
#pragma once

#include "engine/gui/label.hpp"

namespace tessora {

struct GUI_MsgBox : GUI_Label {
  Slot Title, OKButton, CloseButton;
  double placed_sx, placed_sy;  // the scale for which the parts were placed

  void make_title();
  void make_ok_button();
  void make_close_button();
  void begin_raised();
  void SetText(Value given);
  void OnLoad(Value scene);
  void Button_6_onCommand(Value node);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

 private:
  void place_parts();
};

void register_message_box(PyObject* module);

}  // namespace tessora
