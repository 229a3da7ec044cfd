// The tree: items that open and close, drawn row below row.
#pragma once

#include "engine/gui/fonts.hpp"

namespace tessora {

struct TreeItemNode : host::Object {
  Slot itemText, itemValue, itemImage, itemChildren, itemopen;
  Slot loaded_file, loaded_picture;  // the picture of `itemImage` when that names a file

  void AppendChildItem(Value item);
  void InsertChildItem(Value index, Value item);
  void ExpandChildItem();
  void CloseChildItem();
  Ref LookForItemNode(Value text);
  Ref draw(Value screen, Value tree, const Number& x, const Number& y);

 private:
  // The surface that `itemImage` is or names, or none.
  Ref picture();
};

struct GUI_Tree : GUI_Image {
  Slot RootItemNode;
  LazySlot font;
  Slot fontname, fontsize, fontbold, fontitalic, fontunderline, strikethrough;
  LazySlot textColor;
  // What can be clicked: (item, left, top, width, height) on the surface of the last draw, whose
  // corner lies here on the screen.
  Slot boxes;
  render::Point boxes_corner;

  void start_tree_font();
  void begin_sunken();
  Ref InsertItem(Value parent_text, Value text, Value value, Value picture, Value index);
  Ref OnPickDownFunction(Value px, Value py);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

  // Remembers where the box of an item was drawn, in pixels of the surface that is drawn on.
  void note_box(Value item, const render::Box& box);

 private:
  bool toggle_at(const Number& px, const Number& py);
};

void register_tree(PyObject* module);

}  // namespace tessora
