#include "engine/panels/message_box.hpp"

#include "engine/gui/button.hpp"

namespace tessora {

namespace {

constexpr int kPaper = 239;

struct Part {
  int left, top, width, height;
  const char* text;
};
constexpr Part kTitle{20, 30, 120, 23, ""};
// "OK" in Chinese.
constexpr Part kOk{60, 66, 60, 23, "\xE7\xA1\xAE\xE5\xAE\x9A"};
constexpr Part kClose{129, 1, 30, 23, "X"};

template <class Widget>
Ref make_part(GUI_MsgBox& box, const Part& part) {
  constexpr int kFontSize = 13;
  Ref made =
      host::make<Widget>(box, part.left, part.top, part.text, "Microsoft YaHei UI"_name, kFontSize);
  message::SetWidth(made, part.width);
  message::SetHeight(made, part.height);
  made.call("SetBGColor"_name, kPaper, kPaper, kPaper);
  made.call("SetTextColor"_name, 0, 0, 0);
  return made;
}

Ref make_button(GUI_MsgBox& box, const Part& part) {
  Ref made = make_part<GUI_Button>(box, part);
  Ref command = Value(box).attr("Button_6_onCommand"_name);
  made.call("SetPickDownFunction"_name, command);
  return made;
}

}  // namespace

void GUI_MsgBox::make_title() {
  Ref title = make_part<GUI_Label>(*this, kTitle);
  write(Title, title);
  title.call("SetText"_name, read(text));
}

void GUI_MsgBox::make_ok_button() {
  write(OKButton, make_button(*this, kOk));
}

void GUI_MsgBox::make_close_button() {
  Ref close = make_button(*this, kClose);
  write(CloseButton, close);
  message::SetStyle(close, "flat"_name);
  close.call("SetBGColor_Hover"_name, 255, 66, 66);
}

void GUI_MsgBox::begin_raised() {
  placed_sx = placed_sy = 1.0;
  message::SetStyle(*this, "raised"_name);
}

void GUI_MsgBox::SetText(Value given) {
  write(text, given);
  if (!is_unset(Title)) Ref(read(Title)).call("SetText"_name, given);
}

// A constructor tells of the scene before the box has its parts.
void GUI_MsgBox::OnLoad(Value scene) {
  if (scene.is_none()) {
    message::OnLoad.base<&GameNode::OnLoad, GUI_Label>(*this, read(sceneInstance));
  } else {
    message::OnLoad.base<&GameNode::OnLoad, GUI_Label>(*this, scene);
  }
}

void GUI_MsgBox::Button_6_onCommand(Value) {
  message::SetVisible(*this, false);
}

// A parent's scale does not move its children. Where a script has put a part itself, it stays until
// the scale changes.
void GUI_MsgBox::place_parts() {
  const double across = Number(host::ask(message::GetWSX, *this)).to_double();
  const double down = Number(host::ask(message::GetWSY, *this)).to_double();
  if (across == placed_sx && down == placed_sy) return;
  placed_sx = across;
  placed_sy = down;
  set_position(Ref(read(Title)), kTitle.left * across, kTitle.top * down);
  set_position(Ref(read(OKButton)), kOk.left * across, kOk.top * down);
  set_position(Ref(read(CloseButton)), kClose.left * across, kClose.top * down);
}

void GUI_MsgBox::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  place_parts();
  message::draw.base<&GUI_Label::draw>(*this, screen, offset_x, offset_y, scale);
  // The close button reaches into the border.
  message::drawStyle(*this, screen);
}

void register_message_box(PyObject* module) {
  using Box = GUI_MsgBox;
  host::Declaration<Box, GUI_Label> box(
      module, "GUI_MsgBox",
      "A small dialog: a text, an OK button and a close button, both of which hide it.\n\n"
      "The arguments are those of a label; a new box has 160 x 100 pixels and is visible. The text "
      "is shown by the label `Title`. To learn of a button, override Button_6_onCommand.\n\n"
      ">>> box = Tessora.GUI_MsgBox(None, 80, 60, \"Game saved\")\n"
      ">>> box.SetVisible(True)");
  box.constructor(kLabelParameters);
  box.sets<&Box::NodeType>("MsgBox").sets<&Box::width>(160).sets<&Box::height>(100);
  box.sets<&Box::bgColor>(host::color(kPaper, kPaper, kPaper)).sets<&Box::textVisible>(false);
  box.attribute<&Box::Title>("Title: GUI_Label", host::unset(), "Label that shows the text.");
  box.step<&Box::make_title>();
  box.attribute<&Box::OKButton>("OKButton: GUI_Button", host::unset(),
                                "The OK button, which hides the box.");
  box.step<&Box::make_ok_button>();
  box.attribute<&Box::CloseButton>("CloseButton: GUI_Button", host::unset(),
                                   "The close button, which hides the box.");
  box.step<&Box::make_close_button>();
  box.step<&Box::begin_raised>();
  box.method<&Box::SetText>("SetText(text: str) -> None", "Set the text that the box shows.")
      .method<&Box::OnLoad>("OnLoad(sceneInstance: Any = None) -> None",
                            "Store the scene and tell it to the whole subtree; None keeps the "
                            "scene that is known.")
      .method<&Box::Button_6_onCommand>("Button_6_onCommand(node: GameNode | None = None) -> None",
                                        "Hide the box; called with the button that is pressed.");
  declare_draw<&Box::draw>(box, "Draw the box and its parts, which move with its scale.");
  box.finish();
}

}  // namespace tessora
