// The radio button: a round box and a text; one of its parent's radio buttons is chosen.
#pragma once

#include "engine/gui/button.hpp"

namespace tessora {

struct GUI_RadioButton : GUI_Button {
  Slot RadioValue, radioboxVisible;
  Slot image_radiobox, image_radiobox_hover, image_radiobox_click;
  Slot image_radiobox_checked, image_radiobox_hover_checked, image_radiobox_click_checked;

  Ref OnPickUpFunction(Value px, Value py);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void drawBoxAndText(Value screen, Value picture, Value text_color);

 private:
  void choose();
};

namespace message {
inline Message SetRadioBoxVisible{"SetRadioBoxVisible"};
inline Message SetRadioValue{"SetRadioValue"};
}  // namespace message

void register_radio_button(PyObject* module);

}  // namespace tessora
