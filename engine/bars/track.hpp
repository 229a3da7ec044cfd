// What the scroll bars and the scale share: a button on a track stands for a value.
#pragma once

#include "engine/bars/axis.hpp"

namespace tessora {

// The way that the button can go, in unscaled pixels of its owner.
struct Track {
  Number begin;   // where it is at the least value
  Number length;  // how far it can go
  Number button;  // its own length
};

// The share of a range that a value has come; ZeroDivisionError for a range without extent.
Number share_of(const Number& value, const Number& least, const Number& most);

// Where the pointer holds the button, as a share of the track.
Number pointer_share(const BarAxis& axis, GameNode& owner, const Track& track);

// The value of a share of a range, in whole steps; beyond the ends it is that end.
Ref dragged_value(const Number& share, Value least, Value most, Value step);

// A child of 20 x 20 pixels that calls the owner's method of that name when it is pressed.
Ref make_bar_button(GUI_Image& owner, const Number& x, const Number& y, Value method);

// The rows of a value in a range that goes in steps.
template <class Bar>
void declare_range(host::Declaration<Bar, GUI_Image>& d, int value, int step) {
  d.template attribute<&Bar::minvalue>("minvalue: float", 0,
                                       "Value at the beginning of the track.");
  d.template attribute<&Bar::maxvalue>("maxvalue: float", 100, "Value at the end of the track.");
  d.template pair<&Bar::minvalue, &Bar::maxvalue>("GetRange", "SetRange",
                                                  "(minvalue: float, maxvalue: float)");
  d.template attribute<&Bar::currvalue>("currvalue: float", value,
                                        "The value; what is set is not limited to the range.")
      .pair("GetValue", "SetValue", "value");
  d.template attribute<&Bar::step>("step: float", step, "What one step adds or takes away.")
      .pair("GetStep", "SetStep", "step");
}

// A disabled widget takes no press, for itself or its children.
template <class Widget>
Ref press_if_enabled(Widget& widget, Value px, Value py) {
  if (!widget.is_true(widget.enable)) return host::none();
  return message::OnPickDownFunction.base<&GameNode::OnPickDownFunction, GUI_Image>(widget, px, py);
}

inline constexpr const char* kPressSignature =
    "OnPickDownFunction(x: float, y: float) -> GameNode | None";
inline constexpr const char* kPressDoc =
    "Handle a press as a node does; a disabled widget takes none.";
inline constexpr const char* kReleaseSignature =
    "OnPickUpFunction(px: float, py: float) -> GameNode | None";
inline constexpr const char* kImageParameters =
    "(parent: GameNode | None = None, x: float = 0, y: float = 0)";

// The release that ends a drag, wherever it happens. `PickUpFunction` is called for every release,
// so that a script learns the value, also one that the node's own handling has told of before.
template <class Widget>
Ref release_value(Widget& widget, Slot& picked, Value px, Value py) {
  if (!is_visible(widget) || !widget.is_true(widget.enable)) return host::none();
  widget.write(picked, false);
  Ref taker =
      message::OnPickUpFunction.base<&GameNode::OnPickUpFunction, GUI_Image>(widget, px, py);
  Ref callback = widget.read(widget.PickUpFunction);
  if (callback.is_set()) callback(widget);
  return taker;
}

}  // namespace tessora
