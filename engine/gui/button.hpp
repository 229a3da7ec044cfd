// The button: a label with a normal, a hovered and a pressed look.
#pragma once

#include "engine/gui/looks.hpp"

namespace tessora {

struct GUI_Button : GUI_Label {
  LazySlot textColor_hover, bgColor_hover;
  Slot image_hover, image_hover_File, image_click_File;
  LazySlot textColor_click, bgColor_click;
  Slot image_click;

  void begin_raised();
  Ref OnPickDownFunction(Value px, Value py);
  Ref OnPickUpFunction(Value px, Value py);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void CopyTo(Value other);

  // Pressed, or with the pointer inside while NodeType is still `kind`: the place in a table of
  // three looks, normal, hovered, pressed.
  std::size_t state(Value kind);
  // What check and radio buttons have in common.
  // Pressed and about to be released on the widget itself.
  bool is_click(Value px, Value py);

 private:
  bool is_hovered(Value kind);
};

void register_button(PyObject* module);

}  // namespace tessora
