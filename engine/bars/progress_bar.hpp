// The progress bars: a value in a range as a filled bar, with a marker at its end.
#pragma once

#include "engine/bars/axis.hpp"
#include "engine/gui/label.hpp"

namespace tessora {

template <Along A>
struct ProgressBar : GUI_Label {
  Slot ProgressImage, PositionImage;
  Slot minvalue, maxvalue, currvalue;

  void make_fill();
  void make_marker();
  void begin_sunken();
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

 private:
  void place_fill();
};

using GUI_HProgressBar = ProgressBar<Along::kAcross>;
using GUI_VProgressBar = ProgressBar<Along::kDown>;

void register_progress_bars(PyObject* module);

}  // namespace tessora
