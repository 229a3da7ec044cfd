// The list box: check buttons without a box as lines, one of which is selected.
#pragma once

#include "engine/gui/fonts.hpp"

namespace tessora {

struct GUI_ListBox : GUI_Image {
  Slot lineArray, lineCount, selectedIndex;
  Slot lineHeight, linegap, showlineCount, lineIndex;
  LazySlot itemBGColor, textColor;
  Slot HAlign, VAlign;
  LazySlot font;
  Slot fontname, fontsize, fontbold, fontitalic, fontunderline, strikethrough;
  Slot VScrollBar, VScrollBarVisible;
  double agreed;  // first line on which list and scroll bar agreed last

  // Lines: list_lines.cpp
  Ref AddLine(Value text, Value files);
  Ref AddTextLine(Value text);
  Ref AddImageLine(Value files, Value switch_delay);
  Ref GetLineControl(Value index);
  void SetItemBGColor(Value r, Value g, Value b, Value a);
  void SetTextColor(Value r, Value g, Value b, Value a);
  void SetTextHAlign(Value align);
  void SetTextVAlign(Value align);
  void CreateFont(Value name, Value size, Value bold, Value italic, Value underline, Value strike);
  void SetFont(Value ready, Value name);
  void SetLineHeight(Value pixels);

  // The list: list_box.cpp
  void start_list_font();
  void make_scroll_bar();
  void begin_sunken();
  void count_shown_lines();
  void SetWidth(Value pixels);
  void SetHeight(Value pixels);
  void SetLineGap(Value gap);
  void SetSelectedIndex(Value index);
  Ref GetSelectedText();
  void ClickItemFunction(Value item);
  Ref OnPickDownFunction(Value px, Value py);
  Ref OnPickUpFunction(Value px, Value py);
  void let_go_of_lines();
  void OnKeyDownFunction(Value key);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void draw_children(Value screen, Value offset_x, Value offset_y, Value scale);

 private:
  Ref make_line(Value text);
  void color_line(Value line);
  void color_text(Value line);
  void show_picture(Value line, Value files, Value switch_delay);
  template <class Change>
  void change_lines(Change change);
  void reveal(Py_ssize_t index);
  void agree_on_first_line(Value bar, const Number& most);
  void place_lines();
};

// A node that was pressed is pressed no longer.
void let_go(Value node);

using ListDeclaration = host::Declaration<GUI_ListBox, GUI_Image>;
void declare_list_lines(ListDeclaration& list);
void register_list_box(PyObject* module);

namespace message {
inline Message GetValue{"GetValue"};
inline Message SetSelectedIndex{"SetSelectedIndex"};
}  // namespace message

}  // namespace tessora
