#include "engine/gui/button.hpp"

#include "engine/object/wrong_attributes.hpp"

namespace tessora {

namespace {

using Button = GUI_Button;

constexpr Look<Button> kLooks[] = {
    {&Button::bgColor, &Button::image, &Button::textColor},
    {&Button::bgColor_hover, &Button::image_hover, &Button::textColor_hover},
    {&Button::bgColor_click, &Button::image_click, &Button::textColor_click},
};

}  // namespace

void GUI_Button::begin_raised() {
  message::SetStyle(*this, "raised"_name);
}

// A disabled button takes no press, for itself or its children.
Ref GUI_Button::OnPickDownFunction(Value px, Value py) {
  if (!is_true(enable)) return host::none();
  return message::OnPickDownFunction.base<&GameNode::OnPickDownFunction, GUI_Label>(*this, px, py);
}

// Disabled while it was pressed, it must not stay pressed.
Ref GUI_Button::OnPickUpFunction(Value px, Value py) {
  if (is_true(enable)) {
    return message::OnPickUpFunction.base<&GameNode::OnPickUpFunction, GUI_Label>(*this, px, py);
  }
  if (is_visible(*this)) write(clicked, false);
  return host::none();
}

bool GUI_Button::is_hovered(Value kind) {
  Ref own = read(NodeType);
  if (!own.is_text(kind)) return false;
  Ref pointer = host::modules::mouse.call("get_pos"_name);
  if (pointer.is_plain_tuple() && pointer.length() == 2) {
    return drawn_rect_contains(pointer.item(0), pointer.item(1));
  }
  Ref inside = drawn_rect().call("collidepoint"_name, pointer);
  return inside.equals_true();
}

bool GUI_Button::is_click(Value px, Value py) {
  return is_true(clicked) && is_visible(*this) && is_true(enable) && is_true(Enable_PickUp) &&
         drawn_rect_contains(px, py);
}

std::size_t GUI_Button::state(Value kind) {
  enum : std::size_t { kNormal, kHovered, kPressed };
  if (is_true(clicked)) return kPressed;
  return is_hovered(kind) ? kHovered : kNormal;
}

void GUI_Button::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    message::draw_begin(*this, offset_x, offset_y, scale);
    if (is_set(style)) {
      const Look<Button>& look = kLooks[state("Button"_name)];
      draw_look(*this, screen, look);
      message::drawText(*this, screen, read(text), read(this->*look.text_color));
    }
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

void GUI_Button::CopyTo(Value other) {
  message::CopyTo.base<&GUI_Label::CopyTo>(*this, other);
  if (is_of_kind(other, {"Button"_name, "CheckButton"_name, "RadioButton"_name})) {
    host::copy_rows(*this, other, host::class_info<Button>);
  }
}

void register_button(PyObject* module) {
  using Declaration = host::Declaration<Button, GUI_Label>;
  Declaration button(module, "GUI_Button",
                     "A label that reacts to the mouse: normal, hovered and pressed.\n\n"
                     "The arguments are those of a label. A new button is a grey, raised box of "
                     "100 x 100 pixels. Set `PickDownFunction` or `PickUpFunction` to learn of "
                     "presses and releases; either is called with the button.\n\n"
                     ">>> button = Tessora.GUI_Button(None, 10, 20, \"Start\")\n"
                     ">>> button.SetPickUpFunction(lambda button: button.SetText(\"Started\"))");
  button.constructor(kLabelParameters);
  const auto black = host::color(0, 0, 0);
  auto grey = [](int level) { return host::color(level, level, level); };
  const LookRows hovered(button, "_hover", "_Hover", " while the pointer is inside");
  const LookRows pressed(button, "_click", "_Click", " while pressed");
  button.sets<&Button::NodeType>("Button");
  button.sets<&Button::PickDownFunction, &Button::PickUpFunction>(nullptr);
  button.sets<&Button::textColor>(black).sets<&Button::bgColor>(grey(168));
  hovered.text_color<&Button::textColor_hover>(black);
  hovered.background<&Button::bgColor_hover>(grey(128));
  hovered.picture<&Button::image_hover, &Button::image_hover_File>();
  hovered.file<&Button::image_hover_File>();
  pressed.file<&Button::image_click_File>();
  pressed.text_color<&Button::textColor_click>(black);
  pressed.background<&Button::bgColor_click>(grey(96));
  pressed.picture<&Button::image_click, &Button::image_click_File>();
  button.sets<&Button::borderVisible>(true).step<&Button::begin_raised>();
  host::declare_getter<&Button::clicked>(button, "IsClicked", "bool",
                                         "`clicked`: whether the button is being pressed.");
  declare_draw<&Button::draw>(
      button, "Draw the look of the current state, the border, overlays and children.")
      .method<&Button::OnPickDownFunction>(
          "OnPickDownFunction(x: float, y: float) -> GameNode | None",
          "Handle a press as a node does; a disabled button takes none.")
      .method<&Button::OnPickUpFunction>(
          "OnPickUpFunction(x: float, y: float) -> GameNode | None",
          "Handle a release as a node does; a disabled button only stops being pressed.")
      .method<&Button::CopyTo>(
          "CopyTo(other: GameNode) -> None",
          "Copy the label part and, into a button, the colours and pictures of its states.");
  button.finish();
}

}  // namespace tessora
