// The label: one line of text over the widget's picture or background.
#pragma once

#include <span>

#include "engine/gui/fonts.hpp"

namespace tessora {

struct GUI_Label : GUI_Image {
  Slot text;
  LazySlot font;
  Slot fontname, fontsize;
  Slot fontbold, fontitalic, fontunderline, strikethrough;
  LazySlot textColor;
  Slot HAlign, VAlign, textleftgap, texttopgap, textVisible, showChar;

  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void drawText(Value screen, Value given, Value color);
  void CopyTo(Value other);

  // What is drawn of a text: with a password character, that character once per character.
  Ref displayed(Value content);
  // Where a text of this size starts inside the widget, in unscaled pixels.
  render::Point text_corner(const render::Size& size);
  // A text as it is displayed, and where it starts.
  struct PlacedText {
    Ref shown;
    render::TextFace face;
    render::Point corner;
  };
  // Draws texts of one font and colour as they lie in the widget.
  void draw_texts(Value screen, Value type, Value color, std::span<const PlacedText> texts);
};

namespace message {
inline Message drawText{"drawText"};
}  // namespace message

// The parameters of the label's constructor, which those derived from it share.
inline constexpr const char* kLabelParameters =
    "(parent: GameNode | None = None, x: float = 0, y: float = 0, text: str = \"\", "
    "fontname: str = \"Arial\", fontsize: int = 16)";

// Whether the widget's GetNodeType() is one of these.
bool is_of_kind(Value widget, std::initializer_list<Value> kinds);

void register_label(PyObject* module);

}  // namespace tessora
