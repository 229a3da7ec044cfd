// The lines of a list box and what they look like.
#include "engine/gui/check_button.hpp"
#include "engine/panels/list_box.hpp"

namespace tessora {

namespace {

using List = GUI_ListBox;

constexpr int kWhite = 255;
constexpr int kSelected = 64;
// How bright a line is in its states, in percent of its background.
constexpr int kPlain = 100;
constexpr int kHovered = 88;
constexpr int kPressed = 75;

struct Rgb {
  int red, green, blue;

  explicit Rgb(std::uint32_t color)
      : red(static_cast<int>(color >> 24U)),
        green(static_cast<int>(color >> 16U & 0xFFU)),
        blue(static_cast<int>(color >> 8U & 0xFFU)) {}

  void give(Value widget, Value setter, int percent = kPlain) const {
    auto part = [&](int level) { return level * percent / 100; };
    widget.call(setter, part(red), part(green), part(blue));
  }
};

}  // namespace

template <class Change>
void List::change_lines(Change change) {
  Ref lines = read(lineArray);
  for (Ref line : host::items(lines)) change(line);
}

void List::color_line(Value line) {
  Ref background = read(itemBGColor);
  const Rgb ground(packed_color(background));
  ground.give(line, "SetBGColor"_name);
  ground.give(line, "SetBGColor_Hover"_name, kHovered);
  ground.give(line, "SetBGColor_Click"_name, kPressed);
}

Ref List::make_line(Value text) {
  const Number line_height = read(lineHeight);
  Ref lines = read(lineArray);
  const Number top = Number(lines.length()) * (line_height + read(linegap));
  Ref line = host::make<GUI_CheckButton>(*this, 0, top, text);
  message::SetAXY(line, 0.0, 0.0);
  message::SetCheckBoxVisible(line, false);
  line.call("SetTextColor_Checked"_name, kWhite, kWhite, kWhite);
  color_line(line);
  line.call("SetBGColor_Checked"_name, kSelected, kSelected, kSelected);
  line.call("SetBGColor_Click_Checked"_name, kSelected, kSelected, kSelected);
  message::SetWidth(line, read(width));
  message::SetHeight(line, line_height);
  // Every line shows the list's own font.
  message::SetFont(line, read(font), read(fontname));
  constexpr int kTextGap = 4;
  line.call("SetTextLeftGap"_name, kTextGap);
  line.call("SetTextHAlign"_name, read(HAlign));
  line.call("SetTextVAlign"_name, read(VAlign));
  if (!is_default(textColor)) color_text(line);
  Ref click = Value(*this).attr("ClickItemFunction"_name);
  line.call("SetPickUpFunction"_name, click);
  lines = read(lineArray);
  lines.append(line);
  write(lineCount, Number(lines.length()));
  return line;
}

void List::color_text(Value line) {
  Ref color = read(textColor);
  const Rgb ink(packed_color(color));
  for (Value setter : {"SetTextColor"_name, "SetTextColor_Hover"_name, "SetTextColor_Click"_name}) {
    ink.give(line, setter);
  }
}

// All six looks of the line show the picture.
void List::show_picture(Value line, Value files, Value switch_delay) {
  line.call("SetImage"_name, files, switch_delay);
  message::AutoImageSize(line, true);
  auto* known = host::instance_of<GUI_CheckButton>(line);
  if (known == nullptr) return;
  Ref picture = known->read(known->image);
  for (Slot* look : {&known->image_hover, &known->image_click, &known->image_checked,
                     &known->image_hover_checked, &known->image_click_checked}) {
    known->write(*look, picture);
  }
}

Ref List::AddLine(Value text, Value files) {
  Ref line = make_line(text);
  if (!files.is_none()) show_picture(line, files, 0.1_const);
  return line;
}

Ref List::AddTextLine(Value text) {
  return make_line(text);
}

Ref List::AddImageLine(Value files, Value switch_delay) {
  Ref line = make_line(""_name);
  show_picture(line, files, switch_delay);
  return line;
}

Ref List::GetLineControl(Value index) {
  return Ref(read(lineArray)).item(index);
}

void List::SetItemBGColor(Value r, Value g, Value b, Value a) {
  write(itemBGColor, host::new_color(r, g, b, a));
  change_lines([&](Value line) { color_line(line); });
}

void List::SetTextColor(Value r, Value g, Value b, Value a) {
  write(textColor, host::new_color(r, g, b, a));
  change_lines([&](Value line) { color_text(line); });
}

void List::SetTextHAlign(Value align) {
  write(HAlign, align);
  change_lines([&](Value line) { line.call("SetTextHAlign"_name, align); });
}

void List::SetTextVAlign(Value align) {
  write(VAlign, align);
  change_lines([&](Value line) { line.call("SetTextVAlign"_name, align); });
}

void List::CreateFont(Value name, Value size, Value bold, Value italic, Value underline,
                      Value strike) {
  create_font(*this, name, size, bold, italic, underline, strike);
  change_lines([&](Value line) { message::SetFont(line, read(font), name); });
}

void List::SetFont(Value ready, Value name) {
  set_font(*this, ready, name);
  change_lines([&](Value line) { message::SetFont(line, ready, name); });
}

void List::SetLineHeight(Value pixels) {
  write(lineHeight, pixels);
  count_shown_lines();
  change_lines([&](Value line) { message::SetHeight(line, pixels); });
}

void declare_list_lines(ListDeclaration& list) {
  list.method<&List::AddLine>(
          "AddLine(text: str = \"\", imagefiles: _ImageFiles = None) -> GUI_CheckButton",
          "Append a line of text, with a picture unless `imagefiles` is None; return it.")
      .method<&List::AddTextLine>("AddTextLine(text: str) -> GUI_CheckButton",
                                  "Append a line of text and return it.")
      .method<&List::AddImageLine>(
          "AddImageLine(imagefiles: _ImageFiles, switchdelay: float = 0.1) -> GUI_CheckButton",
          "Append a line that shows a picture, in the picture's size; return it.")
      .method<&List::GetLineControl>(
          "GetLineControl(index: int) -> GUI_CheckButton",
          "Return the widget of a line; IndexError when there is no such line.")
      .method<&List::SetItemBGColor>(
          "SetItemBGColor(r: int, g: int, b: int, a: int = 255) -> None",
          "Set `itemBGColor`: background of the lines that are not selected, a little darker under "
          "the pointer and while pressed; components from 0 to 255.")
      .method<&List::SetTextColor>(
          "SetTextColor(r: int, g: int, b: int, a: int = 255) -> None",
          "Set `textColor`: colour of the texts of lines that are not selected; components from 0 "
          "to 255.")
      .method<&List::SetTextHAlign>("SetTextHAlign(align: str) -> None",
                                    "Set `HAlign`, for all lines: \"left\", \"center\", \"right\".")
      .method<&List::SetTextVAlign>("SetTextVAlign(align: str) -> None",
                                    "Set `VAlign`, for all lines: \"top\", \"center\", \"bottom\".")
      .method<&List::CreateFont>(kCreateFont, kCreateFontDoc)
      .method<&List::SetFont>(kSetFont, kSetFontDoc)
      .method<&List::SetLineHeight>("SetLineHeight(height: float) -> None",
                                    "Set `lineHeight`, for all lines, in pixels.");
}

}  // namespace tessora
