// The check button: a box that is checked or not, and a text; six looks.
#pragma once

#include "engine/gui/button.hpp"

namespace tessora {

struct GUI_CheckButton : GUI_Button {
  Slot CheckValue;
  LazySlot textColor_checked, bgColor_checked;
  Slot image_checked;
  LazySlot textColor_hover_checked, bgColor_hover_checked;
  Slot image_hover_checked;
  LazySlot textColor_click_checked, bgColor_click_checked;
  Slot image_click_checked;
  Slot checkboxVisible;
  Slot image_checkbox, image_checkbox_hover, image_checkbox_click;
  Slot image_checkbox_checked, image_checkbox_hover_checked, image_checkbox_click_checked;

  Ref OnPickUpFunction(Value px, Value py);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void drawBoxAndText(Value screen, Value picture, Value text_color);
};

namespace message {
inline Message IsChecked{"IsChecked"};
inline Message SetChecked{"SetChecked"};
inline Message SetCheckBoxVisible{"SetCheckBoxVisible"};
}  // namespace message

void register_check_button(PyObject* module);

}  // namespace tessora
