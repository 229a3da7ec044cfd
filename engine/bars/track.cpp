#include "engine/bars/track.hpp"

#include "engine/gui/button.hpp"

namespace tessora {

Number share_of(const Number& value, const Number& least, const Number& most) {
  return (value - least) / (most - least);
}

Number pointer_share(const BarAxis& axis, GameNode& owner, const Track& track) {
  Ref pointer = host::modules::mouse.call("get_pos"_name);
  Ref at = pointer.item(axis.pointer);
  const Number inside =
      (Number(at) - owner.read(owner.*axis.cached_place)) / owner.read(owner.*axis.cached_scale);
  return (inside - track.button / Number(2) - track.begin) / track.length;
}

Ref dragged_value(const Number& share, Value least, Value most, Value step) {
  if (share < Number(0.0)) return least;
  if (share > Number(1.0)) return most;
  const Number range = Number(most) - Number(least);
  Ref steps = (share * range / Number(step)).truncated();
  return (Number(least) + Number(steps) * Number(step)).object();
}

Ref make_bar_button(GUI_Image& owner, const Number& x, const Number& y, Value method) {
  constexpr int kSide = 20;
  Ref made = host::make<GUI_Button>(owner, x, y);
  message::SetWidth(made, kSide);
  message::SetHeight(made, kSide);
  Ref callback = Value(owner).attr(method);
  made.call("SetPickDownFunction"_name, callback);
  return made;
}

}  // namespace tessora
