#include "engine/panels/combo_box.hpp"

#include "engine/bars/axis.hpp"
#include "engine/gui/button.hpp"
#include "engine/gui/edit.hpp"
#include "engine/object/wrong_attributes.hpp"
#include "engine/panels/list_box.hpp"

namespace tessora {

namespace {

using Combo = GUI_ComboBox;
using host::FixedString;

// Height of the edit, and both sides of the button.
constexpr int kRow = 20;

// Methods that hand over to the method of that name of a part.
template <auto Part, FixedString Name>
Ref ask_part(Combo& combo) {
  return Ref(combo.read(combo.*Part)).call(host::operator""_name < Name>());
}
template <auto Part, FixedString Name>
Ref tell_part(Combo& combo, Value value) {
  return Ref(combo.read(combo.*Part)).call(host::operator""_name < Name>(), value);
}

Ref add_line(Combo& combo, Value text, Value files) {
  return Ref(combo.read(combo.DropList)).call("AddLine"_name, text, files);
}
Ref add_image_line(Combo& combo, Value files, Value switch_delay) {
  return Ref(combo.read(combo.DropList)).call("AddImageLine"_name, files, switch_delay);
}
void set_item_background(Combo& combo, Value r, Value g, Value b, Value a) {
  Ref(combo.read(combo.DropList)).call("SetItemBGColor"_name, r, g, b, a);
}

}  // namespace

void Combo::make_edit() {
  constexpr int kWhite = 255;
  Ref edit = host::make<GUI_Edit>(*this, 0, 0);
  message::SetHeight(edit, kRow);
  message::SetWidth(edit, read(width) - Number(kRow));
  edit.call("SetBGColor"_name, kWhite, kWhite, kWhite);
  // Black text must stay readable while it is typed.
  edit.call("SetBGColor_Focus"_name, kWhite, kWhite, kWhite);
  edit.call("SetCursorColor"_name, 0, 0, 0);
  write(Edit, edit);
}

void Combo::make_button() {
  Ref made = host::make<GUI_Button>(*this, read(width) - Number(kRow), 0);
  message::SetWidth(made, kRow);
  message::SetHeight(made, kRow);
  Ref click = Value(*this).attr("ClickBtnFunction"_name);
  made.call("SetPickUpFunction"_name, click);
  write(Button, made);
}

void Combo::make_list() {
  Ref list = host::make<GUI_ListBox>(*this, 0, kRow);
  message::SetWidth(list, read(width));
  message::SetHeight(list, read(height) - Number(kRow));
  message::SetVisible(list, false);
  Ref pick = Value(*this).attr("PickDropListFunction"_name);
  list.call("SetPickUpFunction"_name, pick);
  list.call("SetVScrollBarVisible"_name, true);
  message::SetStyle(list, "solid"_name);
  write(DropList, list);
}

void Combo::SetWidth(Value pixels) {
  write(width, pixels);
  const Number edit_width = Number(pixels) - Number(kRow);
  message::SetWidth(Ref(read(Edit)), edit_width);
  message::SetX(Ref(read(Button)), edit_width);
  message::SetWidth(Ref(read(DropList)), pixels);
}

void Combo::SetHeight(Value pixels) {
  write(height, pixels);
  message::SetHeight(Ref(read(DropList)), Number(pixels) - Number(kRow));
}

void Combo::SetTextColor(Value r, Value g, Value b, Value a) {
  for (Slot* part : {&Edit, &DropList}) {
    Ref(read(*part)).call("SetTextColor"_name, r, g, b, a);
  }
}

void Combo::CreateFont(Value name, Value size, Value bold, Value italic, Value underline,
                       Value strike) {
  for (Slot* part : {&Edit, &DropList}) {
    message::CreateFont(Ref(read(*part)), name, size, bold, italic, underline, strike);
  }
}

void Combo::SetFont(Value ready, Value name) {
  for (Slot* part : {&Edit, &DropList}) message::SetFont(Ref(read(*part)), ready, name);
}

void Combo::ClickBtnFunction(Value) {
  Ref list = read(DropList);
  message::SetVisible(list, !is_visible(list));
}

void Combo::PickDropListFunction(Value) {
  Ref list = read(DropList);
  Ref text = list.call("GetSelectedText"_name);
  message::SetText(Ref(read(Edit)), text);
  list = read(DropList);
  message::SetVisible(list, false);
}

// A press elsewhere closes the list and ends the typing.
Ref Combo::OnPickDownFunction(Value px, Value py) {
  if (!is_visible(*this) || !is_true(enable)) return host::none();
  if (drawn_rect_contains(px, py)) {
    return message::OnPickDownFunction.base<&GameNode::OnPickDownFunction, GUI_Image>(*this, px,
                                                                                      py);
  }
  message::SetFocusIn(Ref(read(Edit)), false);
  message::SetVisible(Ref(read(DropList)), false);
  return host::none();
}

// A disabled combo box opens and chooses nothing, but what was pressed must not stay pressed.
Ref Combo::OnPickUpFunction(Value px, Value py) {
  if (is_true(enable)) {
    return message::OnPickUpFunction.base<&GameNode::OnPickUpFunction, GUI_Image>(*this, px, py);
  }
  if (!is_visible(*this)) return host::none();
  write(clicked, false);
  let_go(Ref(read(Button)));
  Ref list = read(DropList);
  if (auto* known = host::instance_of<GUI_ListBox>(list)) known->let_go_of_lines();
  return host::none();
}

// Keys reach registered nodes only, so the combo box hands them on. What moves in an open list is
// not typed.
void Combo::OnKeyDownFunction(Value key) {
  message::OnKeyDownFunction.base<&GameNode::OnKeyDownFunction, GUI_Image>(*this, key);
  if (!is_visible(*this) || !is_true(enable)) return;
  Ref list = read(DropList);
  const bool is_open = is_visible(list);
  const bool is_choice = is_open && key.is_text("return"_name);
  const bool is_move = is_open && (key.is_text("down"_name) || key.is_text("up"_name));
  if (!is_choice && !is_move) {
    Ref edit = read(Edit);
    Ref focused = message::IsFocusIn(edit);
    if (focused.equals_true()) message::OnKeyDownFunction(edit, key);
  }
  if (is_choice) {
    message::PickDropListFunction(*this);
  } else if (is_open) {
    message::OnKeyDownFunction(list, key);
  }
}

// A parent's scale does not move its children.
void Combo::place_parts() {
  const Number across = host::ask(message::GetWSX, *this);
  const Number down = host::ask(message::GetWSY, *this);
  kBarAcross.settle_place(Ref(read(Button)), (read(width) - Number(kRow)) * across);
  kBarDown.settle_place(Ref(read(DropList)), Number(kRow) * down);
}

// Without a background: it would cover what lies below a closed combo box.
void Combo::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    begin_draw(offset_x, offset_y, scale);
    place_parts();
    if (is_set(image)) draw_picture_or_background(screen);
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

namespace {

using ComboDeclaration = host::Declaration<Combo, GUI_Image>;

void declare_handed_on(ComboDeclaration& combo) {
  constexpr auto kList = &Combo::DropList;
  constexpr auto kEdit = &Combo::Edit;
  combo
      .method<&add_line>(
          "AddLine(text: str = \"\", imagefiles: _ImageFiles = None) -> GUI_CheckButton",
          "Append a line to the list and return it; see GUI_ListBox.AddLine.")
      .method<&tell_part<kList, "AddTextLine">>("AddTextLine(text: str) -> GUI_CheckButton",
                                                "Append a line of text to the list; return it.")
      .method<&add_image_line>(
          "AddImageLine(imagefiles: _ImageFiles, switchdelay: float = 0.1) -> GUI_CheckButton",
          "Append a line that shows a picture to the list and return it.")
      .method<&ask_part<kList, "GetSelectedIndex">>(
          "GetSelectedIndex() -> int", "Return the selected line of the list, -1 for none.")
      .method<&tell_part<kList, "SetSelectedIndex">>(
          "SetSelectedIndex(index: int) -> None",
          "Select a line of the list. The text of the edit stays as it is.")
      .method<&ask_part<kEdit, "GetTextColor">>("GetTextColor() -> pygame.Color",
                                                "Return the colour of the edit's text.")
      .method<&set_item_background>("SetItemBGColor(r: int, g: int, b: int, a: int = 255) -> None",
                                    "Set the background of the lines; components from 0 to 255.")
      .method<&ask_part<kList, "GetItemBGColor">>("GetItemBGColor() -> pygame.Color",
                                                  "Return the background of the lines.")
      .method<&ask_part<kList, "GetLineGap">>("GetLineGap() -> float",
                                              "Return the distance between lines in pixels.")
      .method<&tell_part<kList, "SetLineGap">>("SetLineGap(gap: float) -> None",
                                               "Set the distance between lines in pixels.")
      .method<&ask_part<kList, "GetLineHeight">>("GetLineHeight() -> float",
                                                 "Return the height of a line in pixels.")
      .method<&tell_part<kList, "SetLineHeight">>("SetLineHeight(height: float) -> None",
                                                  "Set the height of a line in pixels.")
      .method<&ask_part<kList, "GetVScrollBarVisible">>(
          "GetVScrollBarVisible() -> bool",
          "Return whether the list shows a scroll bar when not all lines fit.")
      .method<&tell_part<kList, "SetVScrollBarVisible">>(
          "SetVScrollBarVisible(flag: bool) -> None",
          "Let the list show a scroll bar when not all lines fit, or not.")
      .method<&ask_part<kEdit, "GetFont">>("GetFont() -> pygame.font.Font",
                                           "Return the font of the edit.")
      .method<&ask_part<kEdit, "GetFontName">>("GetFontName() -> str",
                                               "Return the name of the edit's font.")
      .method<&ask_part<kEdit, "GetFontSize">>("GetFontSize() -> int",
                                               "Return the size of the edit's font in pixels.")
      .method<&ask_part<kEdit, "GetFontBold">>("GetFontBold() -> bool",
                                               "Return whether the edit's font was made bold.")
      .method<&ask_part<kEdit, "GetFontItalic">>("GetFontItalic() -> bool",
                                                 "Return whether the edit's font was made italic.")
      .method<&ask_part<kEdit, "GetFontUnderline">>(
          "GetFontUnderline() -> bool", "Return whether the edit's font was made to underline.")
      .method<&ask_part<kEdit, "GetFontStrikeThrough">>(
          "GetFontStrikeThrough() -> bool",
          "Return whether the edit's font was made to strike through.");
}

}  // namespace

void register_combo_box(PyObject* module) {
  ComboDeclaration combo(module, "GUI_ComboBox",
                         "An edit and a list to choose its text from.\n\n"
                         "`x` and `y` place the anchor in the parent, in pixels. The button opens "
                         "and closes the list. Give a layer its combo boxes last: an open list is "
                         "drawn over what the layer draws before it.\n\n"
                         ">>> levels = Tessora.GUI_ComboBox(None, 10, 20)\n"
                         ">>> line = levels.AddTextLine(\"Easy\")\n"
                         ">>> levels.Edit.SetText(\"Easy\")");
  combo.constructor("(parent: GameNode | None = None, x: float = 0, y: float = 0)");
  combo.sets<&Combo::NodeType>("ComboBox").sets<&Combo::width, &Combo::height>(120);
  combo.sets<&Combo::enable>(true);
  combo.attribute<&Combo::Edit>("Edit: GUI_Edit", host::unset(),
                                "Edit with the text that was chosen.");
  combo.step<&Combo::make_edit>();
  combo.attribute<&Combo::Button>("Button: GUI_Button", host::unset(),
                                  "Button that opens and closes the list.");
  combo.step<&Combo::make_button>();
  combo.attribute<&Combo::DropList>("DropList: GUI_ListBox", host::unset(),
                                    "The list; it is closed while it is hidden.");
  combo.step<&Combo::make_list>();
  declare_handed_on(combo);
  combo
      .method<&Combo::SetWidth>("SetWidth(w: float) -> None",
                                "Set `width` in pixels, for the edit and the list, too.")
      .method<&Combo::SetHeight>("SetHeight(h: float) -> None",
                                 "Set `height` in pixels, that of the edit and the open list.")
      .method<&Combo::SetTextColor>(
          "SetTextColor(r: int, g: int, b: int, a: int = 255) -> None",
          "Set the colour of the edit's text and of the lines; components from 0 to 255.")
      .method<&Combo::CreateFont>(kCreateFont, kCreateFontDoc)
      .method<&Combo::SetFont>(kSetFont, kSetFontDoc)
      .method<&Combo::ClickBtnFunction>(
          "ClickBtnFunction(node: GameNode | None = None) -> None",
          "Open or close the list; called when the button is clicked.")
      .method<&Combo::PickDropListFunction>(
          "PickDropListFunction(node: GameNode | None = None) -> None",
          "Put the text of the selected line into the edit and close the list; called when a line "
          "is clicked.")
      .method<&Combo::OnPickDownFunction>(
          "OnPickDownFunction(px: float, py: float) -> GameNode | None",
          "Handle a press as a node does. One elsewhere closes the list and takes the focus from "
          "the edit; a disabled combo box does nothing.")
      .method<&Combo::OnPickUpFunction>(
          "OnPickUpFunction(x: float, y: float) -> GameNode | None",
          "Handle a release as a node does; a disabled combo box neither opens nor chooses.")
      .method<&Combo::OnKeyDownFunction>(
          "OnKeyDownFunction(key: Hashable) -> None",
          "Run what is registered for the key; then it goes to the list while that is open, and to "
          "the edit while that has the focus. In an open list \"up\" and \"down\" select and "
          "\"return\" takes the selection over; these are not typed.");
  declare_draw<&Combo::draw>(combo,
                             "Draw the edit, the button and the open list, without a background.");
  combo.finish();
}

}  // namespace tessora
