// Fonts of widgets: by name, at once or when somebody needs them.
#pragma once

#include "engine/host/fonts.hpp"
#include "engine/image/image.hpp"

namespace tessora {

// A system font or, with ".ttf" or ".otf" in the name, a font of the resource manager's.
Ref named_font(Value name, Value size, Value bold, Value italic);
// Sets what a font is told after it was made; errors name the font.
void finish_font(Value font, Value name, Value underline, Value strike);
// The font of a new widget. Most widgets show no text of their own, so a system font that was made
// before is made again only when the attribute is read.
Ref font_when_needed(Value name, Value size);

// The attributes and methods of a widget with a font. It has `LazySlot font` and slots for the
// rest.
template <class Widget>
void store_font(Widget& widget, Value font, Value name, Value size, Value bold, Value italic,
                Value underline, Value strike) {
  widget.write(widget.font, font);
  widget.write(widget.fontname, name);
  widget.write(widget.fontsize, size);
  widget.write(widget.fontbold, bold);
  widget.write(widget.fontitalic, italic);
  widget.write(widget.fontunderline, underline);
  widget.write(widget.strikethrough, strike);
}

template <class Widget>
void start_font(Widget& widget, Value name, Value size) {
  store_font(widget, font_when_needed(name, size), name, size, false, false, false, false);
}

template <class Widget>
void create_font(Widget& widget, Value name, Value size, Value bold, Value italic, Value underline,
                 Value strike) {
  Ref made = named_font(name, size, bold, italic);
  store_font(widget, made, name, size, bold, italic, underline, strike);
  finish_font(made, name, underline, strike);
}

template <class Widget>
void set_font(Widget& widget, Value ready, Value name) {
  widget.write(widget.font, ready);
  widget.write(widget.fontname, name);
  host::note_font(ready);
  render::font_changed(ready);
}

// Returns the row of the font itself.
template <class Widget, class Base>
auto declare_font_rows(host::Declaration<Widget, Base>& d) {
  const auto unset = host::unset();
  auto row = d.template attribute<&Widget::font>("font: pygame.font.Font", unset,
                                                 "pygame.font.Font that renders the text.");
  row.getter("GetFont");
  d.template attribute<&Widget::fontname>(
       "fontname: str", unset, "Name of the system font, or of the font's file. Default \"Arial\".")
      .getter("GetFontName");
  d.template attribute<&Widget::fontsize>("fontsize: int", unset,
                                          "Size of the font in pixels. Default 16.")
      .getter("GetFontSize");
  d.template attribute<&Widget::fontbold>("fontbold: bool", unset,
                                          "Whether the font was made bold. Default False.")
      .getter("GetFontBold");
  d.template attribute<&Widget::fontitalic>("fontitalic: bool", unset,
                                            "Whether the font was made italic. Default False.")
      .getter("GetFontItalic");
  d.template attribute<&Widget::fontunderline>(
       "fontunderline: bool", unset, "Whether the font was made to underline. Default False.")
      .getter("GetFontUnderline");
  d.template attribute<&Widget::strikethrough>(
       "strikethrough: bool", unset, "Whether the font was made to strike through. Default False.")
      .getter("GetFontStrikeThrough");
  return row;
}

inline constexpr const char* kCreateFont =
    "CreateFont(fontname: str, fontsize: int, bold: bool = False, italic: bool = False, "
    "underline: bool = False, strikethrough: bool = False) -> None";
inline constexpr const char* kCreateFontDoc =
    "Make and use a system font or, with \".ttf\" or \".otf\" in the name, a font file of the "
    "resources.\n\n`fontsize` is in pixels. Raises AttributeError when `Res` is not set or does "
    "not find the file.";
inline constexpr const char* kSetFont = "SetFont(font: pygame.font.Font, fontname: str) -> None";
inline constexpr const char* kSetFontDoc =
    "Use a ready font; its size and flags are not read.\n\nA font that is made bold, italic, "
    "underlined or struck through later shows at once. After its set_script() or "
    "set_direction(), which cannot be read back, hand it over again.";

namespace message {
inline Message CreateFont{"CreateFont"};
inline Message GetFontName{"GetFontName"};
inline Message SetFont{"SetFont"};
}  // namespace message

}  // namespace tessora
