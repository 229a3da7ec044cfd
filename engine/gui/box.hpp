// The box that check and radio buttons show left of their text.
#pragma once

#include "engine/gui/button.hpp"
#include "engine/object/wrong_attributes.hpp"

namespace tessora {

namespace message {
inline Message drawBoxAndText{"drawBoxAndText"};
}  // namespace message

// How a box without a picture looks: `paint` draws it on a square sheet, `detail` times as large
// so that what is round becomes smooth.
struct DrawnBox {
  const char* kind;  // tells boxes of different making apart
  int detail;
  bool marked;
  void (*paint)(const render::Canvas& sheet, Value color, double side, int thickness, bool marked);
};

// Draws the box, with the picture if there is one, and the text to its right; a hidden box leaves
// the text where a label's is.
void draw_box_and_text(GUI_Button& button, Value screen, const Slot& visible, Value picture,
                       Value text_color, const DrawnBox& drawn);

// The rest of a draw(): the look of the state, with its box, and what lies over it.
template <class Widget>
void draw_boxed(Widget& widget, Value screen, Value offset_x, Value offset_y, Value scale,
                const Look<Widget>& (*current)(Widget&)) {
  if (!is_visible(widget)) return;
  host::naming_attributes(widget, [&] {
    message::draw_begin(widget, offset_x, offset_y, scale);
    if (widget.is_set(widget.style)) {
      const Look<Widget>& look = current(widget);
      draw_look(widget, screen, look);
      message::drawBoxAndText(widget, screen, widget.read(widget.*look.box),
                              widget.read(widget.*look.text_color));
    }
    widget.finish_draw(screen, offset_x, offset_y, scale);
  });
}

template <auto Draw, auto DrawBox, class Declaration>
void declare_boxed_drawing(Declaration& widget) {
  declare_draw<Draw>(widget,
                     "Draw the look of the current state with its box and text, the border, "
                     "overlays and children.")
      .template method<DrawBox>(
          "drawBoxAndText(screen: pygame.Surface, checkimage: pygame.Surface | None, "
          "textColor: _ColorValue) -> None",
          "Draw the box, from a picture if there is one, and the text right of it.");
}

}  // namespace tessora
