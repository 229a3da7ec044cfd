// The scale: a slider on a ruler, with its value as text.
#pragma once

#include "engine/bars/track.hpp"
#include "engine/gui/fonts.hpp"

namespace tessora {

struct GUI_Scale : GUI_Image {
  LazySlot font, textColor;
  Slot texttopgap, textalign_V;
  Slot Button, ButtonPicked;
  Slot minvalue, maxvalue, currvalue, step, rulerVisible;

  void start_font();
  void make_button();
  void begin_sunken();
  void pick_button(Value node);
  Ref OnPickDownFunction(Value px, Value py);
  Ref OnPickUpFunction(Value px, Value py);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

 private:
  Track track();
  void draw_ruler(Value screen, const Track& track);
};

void register_scale(PyObject* module);

}  // namespace tessora
