// The label: one line of text over the widget's picture or background.
#pragma once

#include "engine/gui/image.hpp"

namespace tessora {

struct GUI_Label : GUI_Image {
  Slot text, font, fontname, fontsize;
  Slot fontbold, fontitalic, fontunderline, strikethrough;
  LazySlot textColor;
  Slot HAlign, VAlign, textleftgap, texttopgap, textVisible, showChar;

  void construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y, PyObject* new_text,
                 PyObject* font_name, PyObject* font_size);

  void CreateFont(PyObject* name, PyObject* size, PyObject* bold, PyObject* italic,
                  PyObject* underline, PyObject* strike);
  void SetFont(PyObject* ready, PyObject* name);
  void SetTextColor(PyObject* r, PyObject* g, PyObject* b, PyObject* a);
  void draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  void drawText(PyObject* screen, PyObject* given, PyObject* color);
  void CopyTo(PyObject* other);

 private:
  // Where a length of text starts along one axis of the widget, in unscaled pixels.
  Number aligned(const Slot& align, PyObject* near_edge, PyObject* far_edge, const Slot& gap,
                 const Number& extent, const Number& length);
};

namespace message {
inline const Message drawText{"drawText"};
inline const Message GetFontName{"GetFontName"};
}  // namespace message

PyObject* new_black();
void register_label(PyObject* module);

}  // namespace tessora
