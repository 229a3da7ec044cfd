#include "engine/gui/radio_button.hpp"

#include "engine/gui/box.hpp"

namespace tessora {

namespace {

using Radio = GUI_RadioButton;
constexpr int kDetail = 4;

constexpr Look<Radio> kLooks[] = {
    {&Radio::bgColor, &Radio::image, &Radio::textColor, &Radio::image_radiobox},
    {&Radio::bgColor_hover, &Radio::image_hover, &Radio::textColor_hover,
     &Radio::image_radiobox_hover},
    {&Radio::bgColor_click, &Radio::image_click, &Radio::textColor_click,
     &Radio::image_radiobox_click},
};

const Look<Radio>& current_look(Radio& radio) {
  return kLooks[radio.state("RadioButton"_name)];
}

void paint_box(const render::Canvas& sheet, Value color, double side, int thickness, bool chosen) {
  const double margin = side * 0.1;
  const double middle = side * 0.5;
  sheet.ring(color, {margin, margin, side - 2 * margin, side - 2 * margin}, thickness);
  if (chosen) sheet.disc(color, {middle, middle}, middle - margin - side * 0.2);
}

void show_box(Radio& radio) {
  message::SetRadioBoxVisible(radio, true);
  message::SetStyle(radio, "flat"_name);
}

}  // namespace

void GUI_RadioButton::choose() {
  message::SetRadioValue(*this, true);
  Ref group = read(parent);
  auto* owner = host::instance_of<GameNode>(group);
  if (owner == nullptr) return;
  host::walk(*owner, owner->children, [&](Value child) {
    if (!child.is(*this) && host::instance_of<Radio>(child) != nullptr) {
      message::SetRadioValue(child, false);
    }
  });
}

Ref GUI_RadioButton::OnPickUpFunction(Value px, Value py) {
  if (is_click(px, py)) choose();
  return message::OnPickUpFunction.base<&GUI_Button::OnPickUpFunction>(*this, px, py);
}

void GUI_RadioButton::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  draw_boxed(*this, screen, offset_x, offset_y, scale, &current_look);
}

void GUI_RadioButton::drawBoxAndText(Value screen, Value picture, Value text_color) {
  draw_box_and_text(*this, screen, radioboxVisible, picture, text_color,
                    {"radio box", kDetail, is_true(RadioValue), &paint_box});
}

void register_radio_button(PyObject* module) {
  using Declaration = host::Declaration<Radio, GUI_Button>;
  Declaration radio(module, "GUI_RadioButton",
                    "A button with a round box and a text; a click chooses it among the radio "
                    "buttons of its parent.\n\n"
                    "The arguments are those of a label; a new one has 120 x 20 pixels.\n\n"
                    ">>> levels = Tessora.GameNode(None, 10, 20)\n"
                    ">>> easy = Tessora.GUI_RadioButton(levels, 0, 0, \"Easy\")\n"
                    ">>> hard = Tessora.GUI_RadioButton(levels, 0, 24, \"Hard\")");
  radio.constructor(kLabelParameters);
  radio.sets<&Radio::NodeType>("RadioButton").sets<&Radio::width>(120).sets<&Radio::height>(20);
  radio.sets<&Radio::bgColor>(host::module_value("GUI_WINDOW_BGCOLOR"));
  radio.sets<&Radio::PickDownFunction, &Radio::PickUpFunction>(nullptr);
  radio
      .attribute<&Radio::RadioValue>("RadioValue: bool", false,
                                     "Whether the button is the chosen one.")
      .pair("GetRadioValue", "SetRadioValue", "value");
  radio.sets<&Radio::HAlign>("left").sets<&Radio::VAlign>("center");
  radio.attribute<&Radio::radioboxVisible>("radioboxVisible: bool", true, "Whether the box shows.")
      .pair("IsRadioBoxVisible", "SetRadioBoxVisible", "flag");
  const LookRows normal(radio, "", "", "");
  const LookRows hovered(radio, "_hover", "_Hover", " while the pointer is inside");
  const LookRows pressed(radio, "_click", "_Click", " while pressed");
  normal.box<&Radio::image_radiobox>("radiobox", "RadioBox");
  hovered.box<&Radio::image_radiobox_hover>("radiobox", "RadioBox");
  pressed.box<&Radio::image_radiobox_click>("radiobox", "RadioBox");
  const LookRows checked(radio, "_checked", "_Checked", "");
  const LookRows hovered_checked(radio, "_hover_checked", "_Hover_Checked", "");
  const LookRows pressed_checked(radio, "_click_checked", "_Click_Checked", "");
  checked.spare_box<&Radio::image_radiobox_checked>("radiobox", "RadioBox");
  hovered_checked.spare_box<&Radio::image_radiobox_hover_checked>("radiobox", "RadioBox");
  pressed_checked.spare_box<&Radio::image_radiobox_click_checked>("radiobox", "RadioBox");
  radio.sets<&Radio::borderVisible>(true).step<&show_box>();
  declare_boxed_drawing<&Radio::draw, &Radio::drawBoxAndText>(radio);
  radio.method<&Radio::OnPickUpFunction>(
      "OnPickUpFunction(x: float, y: float) -> GameNode | None",
      "Handle a release as a button does; one that ends a click chooses the button first.");
  radio.finish();
}

}  // namespace tessora
