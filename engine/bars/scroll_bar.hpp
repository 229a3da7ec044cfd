// The scroll bars: a track with a button at either end and a thumb between them.
#pragma once

#include "engine/bars/track.hpp"

namespace tessora {

template <Along A>
struct ScrollBar : GUI_Image {
  Slot first_button, MidButton, MidButtonPicked, last_button;
  Slot minvalue, maxvalue, currvalue, step, rulerVisible;

  void make_first_button();
  void make_thumb();
  void make_last_button();
  void begin_raised();

  void step_back(Value node);
  void step_on(Value node);
  void pick_thumb(Value node);
  Ref OnPickDownFunction(Value px, Value py);
  Ref OnPickUpFunction(Value px, Value py);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

 private:
  Track track();
  void place_thumb(const Track& track, const Number& scale);
};

using GUI_HScrollBar = ScrollBar<Along::kAcross>;
using GUI_VScrollBar = ScrollBar<Along::kDown>;

void register_scroll_bars(PyObject* module);

}  // namespace tessora
