// The two axes along which bars lie.
#pragma once

#include "engine/image/image.hpp"

namespace tessora {

enum class Along : std::uint8_t { kAcross, kDown };

namespace message {
inline Message GetHeight{"GetHeight"};
inline Message GetWidth{"GetWidth"};
}  // namespace message

// Sends a setter of one number, unless it is the engine's own and the attribute has that value.
template <const host::Message& Setter, auto Member>
void settle(Value widget, const Number& wanted) {
  auto* known =
      Setter.template direct<host::SlotOwner<Member>>(widget, &host::native_setter<Member>);
  double now = 0.0;
  if (known != nullptr && known->holds_number(known->*Member, now) && wanted.plain() == now) return;
  Setter(widget, wanted);
}

struct BarAxis {
  Slot GameNode::* length;  // width or height
  Slot GameNode::* breadth;
  Slot GameNode::*cached_place, GameNode::*cached_scale;
  const host::Message &world_scale, &get_length;
  void (*settle_place)(Value widget, const Number& wanted);
  void (*settle_length)(Value widget, const Number& wanted);
  void (*settle_breadth)(Value widget, const Number& wanted);
  Py_ssize_t pointer;  // its place in the position of the mouse
};

inline const BarAxis kBarAcross = {
    &GameNode::width,
    &GameNode::height,
    &GameNode::WX,
    &GameNode::WSX,
    message::GetWSX,
    message::GetWidth,
    &settle<message::SetX, &GameNode::x>,
    &settle<message::SetWidth, &GameNode::width>,
    &settle<message::SetHeight, &GameNode::height>,
    0,
};
inline const BarAxis kBarDown = {
    &GameNode::height,
    &GameNode::width,
    &GameNode::WY,
    &GameNode::WSY,
    message::GetWSY,
    message::GetHeight,
    &settle<message::SetY, &GameNode::y>,
    &settle<message::SetHeight, &GameNode::height>,
    &settle<message::SetWidth, &GameNode::width>,
    1,
};

template <Along A>
constexpr const BarAxis& bar_axis() {
  return A == Along::kAcross ? kBarAcross : kBarDown;
}

}  // namespace tessora
