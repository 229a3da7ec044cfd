// The combo box: an edit, a button, and a list that opens below them.
#pragma once

#include "engine/image/image.hpp"

namespace tessora {

struct GUI_ComboBox : GUI_Image {
  Slot Edit, Button, DropList;

  void make_edit();
  void make_button();
  void make_list();
  void SetWidth(Value pixels);
  void SetHeight(Value pixels);
  void SetTextColor(Value r, Value g, Value b, Value a);
  void CreateFont(Value name, Value size, Value bold, Value italic, Value underline, Value strike);
  void SetFont(Value ready, Value name);
  void ClickBtnFunction(Value node);
  void PickDropListFunction(Value node);
  Ref OnPickDownFunction(Value px, Value py);
  Ref OnPickUpFunction(Value px, Value py);
  void OnKeyDownFunction(Value key);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

 private:
  void place_parts();
};

namespace message {
inline Message IsFocusIn{"IsFocusIn"};
inline Message PickDropListFunction{"PickDropListFunction"};
}  // namespace message

void register_combo_box(PyObject* module);

}  // namespace tessora
