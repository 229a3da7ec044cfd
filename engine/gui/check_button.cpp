#include "engine/gui/check_button.hpp"

#include "engine/gui/box.hpp"

namespace tessora {

namespace {

using Check = GUI_CheckButton;
constexpr std::size_t kStates = 3;

constexpr Look<Check> kLooks[] = {
    {&Check::bgColor, &Check::image, &Check::textColor, &Check::image_checkbox},
    {&Check::bgColor_hover, &Check::image_hover, &Check::textColor_hover,
     &Check::image_checkbox_hover},
    {&Check::bgColor_click, &Check::image_click, &Check::textColor_click,
     &Check::image_checkbox_click},
    {&Check::bgColor_checked, &Check::image_checked, &Check::textColor_checked,
     &Check::image_checkbox_checked},
    {&Check::bgColor_hover_checked, &Check::image_hover_checked, &Check::textColor_hover_checked,
     &Check::image_checkbox_hover_checked},
    {&Check::bgColor_click_checked, &Check::image_click_checked, &Check::textColor_click_checked,
     &Check::image_checkbox_click_checked},
};

const Look<Check>& current_look(Check& check) {
  const std::size_t first = check.is_true(check.CheckValue) ? kStates : 0;
  return kLooks[first + check.state("CheckButton"_name)];
}

// Whether a script has made the checked looks others than the unchecked ones.
bool is_checked_look_own(Check& check) {
  auto differs = [&](LazySlot Check::* unchecked, LazySlot Check::* checked) {
    Ref first = check.read(check.*unchecked);
    Ref second = check.read(check.*checked);
    return !first.is(second) && !first.equals(second);
  };
  for (std::size_t index = 0; index < kStates; ++index) {
    const Look<Check>& unchecked = kLooks[index];
    const Look<Check>& checked = kLooks[index + kStates];
    if (check.is_set(check.*unchecked.box) || check.is_set(check.*checked.box) ||
        check.is_set(check.*checked.picture) || differs(unchecked.background, checked.background) ||
        differs(unchecked.text_color, checked.text_color)) {
      return true;
    }
  }
  return false;
}

void paint_box(const render::Canvas& sheet, Value color, double side, int thickness, bool marked) {
  const double near = side * 0.1;
  const double far = side - near - 1;
  sheet.line(color, {near, near}, {far, near}, thickness);
  sheet.line(color, {near, near}, {near, far}, thickness);
  sheet.line(color, {far, near}, {far, far}, thickness);
  sheet.line(color, {near, far}, {far, far}, thickness);
  if (!marked) return;
  const double inner = side * 0.2;
  const double outer = side - inner - 1;
  const double tip = side * 0.4;
  sheet.line(color, {inner, side * 0.5}, {tip, outer}, thickness);
  sheet.line(color, {tip, outer}, {outer, inner}, thickness);
}

void show_box(Check& check) {
  message::SetCheckBoxVisible(check, true);
  message::SetStyle(check, "flat"_name);
}

}  // namespace

Ref GUI_CheckButton::OnPickUpFunction(Value px, Value py) {
  if (is_click(px, py)) {
    Ref checked = message::IsChecked(*this);
    message::SetChecked(*this, !checked.is_true());
  }
  return message::OnPickUpFunction.base<&GUI_Button::OnPickUpFunction>(*this, px, py);
}

void GUI_CheckButton::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  draw_boxed(*this, screen, offset_x, offset_y, scale, &current_look);
}

void GUI_CheckButton::drawBoxAndText(Value screen, Value picture, Value text_color) {
  const bool marked = is_true(CheckValue) && is_checked_look_own(*this);
  draw_box_and_text(*this, screen, checkboxVisible, picture, text_color,
                    {"check box", 1, marked, &paint_box});
}

void register_check_button(PyObject* module) {
  using Declaration = host::Declaration<Check, GUI_Button>;
  Declaration check(module, "GUI_CheckButton",
                    "A button that a click checks and unchecks, with a box and a text.\n\n"
                    "The arguments are those of a label; a new one has 120 x 20 pixels. The mark "
                    "shows while it is checked, once a checked colour or a picture is set.\n\n"
                    ">>> sound = Tessora.GUI_CheckButton(None, 10, 20, \"Sound\")\n"
                    ">>> sound.SetChecked(True)");
  check.constructor(kLabelParameters);
  check.sets<&Check::NodeType>("CheckButton").sets<&Check::width>(120).sets<&Check::height>(20);
  check.sets<&Check::bgColor>(host::module_value("GUI_WINDOW_BGCOLOR"));
  check.sets<&Check::PickDownFunction, &Check::PickUpFunction>(nullptr);
  check.attribute<&Check::CheckValue>("CheckValue: bool", false, "Whether the button is checked.")
      .pair("IsChecked", "SetChecked", "value");
  check.sets<&Check::HAlign>("left").sets<&Check::VAlign>("center");
  const LookRows normal(check, "", "", "");
  const LookRows hovered(check, "_hover", "_Hover", " while the pointer is inside");
  const LookRows pressed(check, "_click", "_Click", " while pressed");
  const LookRows checked(check, "_checked", "_Checked", " while checked");
  const LookRows hovered_checked(check, "_hover_checked", "_Hover_Checked",
                                 " while checked, with the pointer inside", "_hover");
  const LookRows pressed_checked(check, "_click_checked", "_Click_Checked",
                                 " while checked and pressed", "_click");
  checked.text_color<&Check::textColor_checked>(host::same_as<&Check::textColor>());
  checked.background<&Check::bgColor_checked>(host::same_as<&Check::bgColor>());
  checked.picture<&Check::image_checked>();
  hovered_checked.text_color<&Check::textColor_hover_checked>(
      host::same_as<&Check::textColor_hover>());
  hovered_checked.background<&Check::bgColor_hover_checked>(host::same_as<&Check::bgColor_hover>());
  hovered_checked.picture<&Check::image_hover_checked>();
  pressed_checked.text_color<&Check::textColor_click_checked>(
      host::same_as<&Check::textColor_click>());
  pressed_checked.background<&Check::bgColor_click_checked>(host::same_as<&Check::bgColor_click>());
  pressed_checked.picture<&Check::image_click_checked>();
  check.attribute<&Check::checkboxVisible>("checkboxVisible: bool", true, "Whether the box shows.")
      .pair("IsCheckBoxVisible", "SetCheckBoxVisible", "flag");
  normal.box<&Check::image_checkbox>("checkbox", "CheckBox");
  hovered.box<&Check::image_checkbox_hover>("checkbox", "CheckBox");
  pressed.box<&Check::image_checkbox_click>("checkbox", "CheckBox");
  checked.box<&Check::image_checkbox_checked>("checkbox", "CheckBox");
  hovered_checked.box<&Check::image_checkbox_hover_checked>("checkbox", "CheckBox");
  pressed_checked.box<&Check::image_checkbox_click_checked>("checkbox", "CheckBox");
  check.sets<&Check::borderVisible>(true).step<&show_box>();
  declare_boxed_drawing<&Check::draw, &Check::drawBoxAndText>(check);
  check.method<&Check::OnPickUpFunction>(
      "OnPickUpFunction(x: float, y: float) -> GameNode | None",
      "Handle a release as a button does; one that ends a click calls SetChecked first.");
  check.finish();
}

}  // namespace tessora
