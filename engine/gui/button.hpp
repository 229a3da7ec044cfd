// The button: a label with a normal, a hovered and a pressed look.
#pragma once

#include "engine/gui/label.hpp"

namespace tessora {

struct GUI_Button : GUI_Label {
  LazySlot textColor_hover, bgColor_hover;
  Slot image_hover, image_hover_File, image_click_File;
  LazySlot textColor_click, bgColor_click;
  Slot image_click;

  void construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y, PyObject* new_text,
                 PyObject* font_name, PyObject* font_size);

  Ref OnPickDownFunction(PyObject* px, PyObject* py);
  Ref OnPickUpFunction(PyObject* px, PyObject* py);
  void SetImage_Hover(PyObject* file);
  void SetImage_Click(PyObject* file);
  void SetBGColor_Hover(PyObject* r, PyObject* g, PyObject* b);
  void SetBGColor_Click(PyObject* r, PyObject* g, PyObject* b);
  void SetTextColor_Hover(PyObject* r, PyObject* g, PyObject* b);
  void SetTextColor_Click(PyObject* r, PyObject* g, PyObject* b);
  void draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  void CopyTo(PyObject* other);

 private:
  bool is_hovered();
  void draw_state(PyObject* screen, LazySlot& background, const Slot& picture, LazySlot& words);
};

void register_button(PyObject* module);

}  // namespace tessora
