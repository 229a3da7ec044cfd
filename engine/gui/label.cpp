#include "engine/gui/label.hpp"

#include "engine/host/fonts.hpp"

namespace tessora {

namespace {

constexpr int kTextGap = 2;

bool names_font_file(PyObject* name) {
  Ref lowered = host::call_method(name, "lower"_name);
  return host::contains(lowered.get(), host::text(".ttf").get()) ||
         host::contains(lowered.get(), host::text(".otf").get());
}

// What is displayed for a text: with a password character, that character once per character.
Ref displayed(const Ref& show_char, PyObject* text) {
  if (!host::is_set(show_char)) return Ref::share(text);
  return host::take(PyNumber_Multiply(show_char.get(), host::integer(host::length(text)).get()));
}

}  // namespace

PyObject* new_black() {
  return host::guarded<PyObject*>(nullptr, [] {
    return host::call(host::modules::pygame["Color"_name], host::text("black")).release();
  });
}

void GUI_Label::construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y,
                          PyObject* new_text, PyObject* font_name, PyObject* font_size) {
  Ref words = Ref::share(new_text);
  GUI_Image::construct(new_parent, new_x, new_y);
  write(NodeType, "Label"_name);
  write(text, words);
  CreateFont(font_name, font_size, Py_False, Py_False, Py_False, Py_False);
  write(textColor, host::lazy_default<&new_black>());
  write(HAlign, "center"_name);
  write(VAlign, "center"_name);
  for (Slot* gap : {&textleftgap, &texttopgap}) write(*gap, Number(kTextGap));
  write(textVisible, true);
  write(showChar, Py_None);
}

void GUI_Label::CreateFont(PyObject* name, PyObject* size, PyObject* bold, PyObject* italic,
                           PyObject* underline, PyObject* strike) {
  Ref made;
  if (names_font_file(name)) {
    made =
        host::call_method(host::engine_value("Res"_name), "GetFont"_name, name, size, bold, italic);
  } else {
    made = host::call(host::modules::font["SysFont"_name], name, size, bold, italic);
  }
  if (host::is_set(made)) host::note_font(made.get());
  write(font, made);
  write(fontname, name);
  write(fontsize, size);
  write(fontbold, bold);
  write(fontitalic, italic);
  write(fontunderline, underline);
  write(strikethrough, strike);
  host::call_method(made, "set_underline"_name, underline);
  // Older versions of pygame cannot strike text through.
  if (Ref setter = host::find_attr(made.get(), "set_strikethrough"_name))
    host::call(setter, strike);
}

void GUI_Label::SetFont(PyObject* ready, PyObject* name) {
  write(font, ready);
  write(fontname, name);
  host::note_font(read(font).get());
}

void GUI_Label::SetTextColor(PyObject* r, PyObject* g, PyObject* b, PyObject* a) {
  write(textColor, make_color(r, g, b, a));
}

Number GUI_Label::aligned(const Slot& align, PyObject* near_edge, PyObject* far_edge,
                          const Slot& gap, const Number& extent, const Number& length) {
  Ref where = read(align);
  if (host::is_text(where.get(), near_edge)) return number(gap);
  if (host::is_text(where.get(), far_edge)) return extent - length;
  return (extent - length) * Number(0.5);
}

void GUI_Label::drawText(PyObject* screen, PyObject* given, PyObject* color) {
  if (!is_true(textVisible)) return;
  Ref tint = Ref::share(color);
  Ref shown = displayed(read(showChar), given);
  if (host::length(shown.get()) == 0) return;
  Ref type = read(font);
  host::check_font(type.get());
  Ref size = host::call_method(type, "size"_name, shown);
  Ref picture = host::call_method(type, "render"_name, shown, Py_True, tint);
  picture = host::call_method(picture, "convert_alpha"_name);
  Number wide = host::number(host::get_item(size.get(), host::integer(0).get()));
  Number high = host::number(host::get_item(size.get(), host::integer(1).get()));
  Number left = aligned(HAlign, "left"_name, "right"_name, textleftgap, number(width), wide);
  Number top = aligned(VAlign, "top"_name, "bottom"_name, texttopgap, number(height), high);
  if (number(WAngle) == Number(0)) {
    // Some versions render more rows than size() promises.
    Ref own = host::call_method(picture, "get_size"_name);
    Ref own_width = host::get_item(own.get(), host::integer(0).get());
    Ref own_height = host::get_item(own.get(), host::integer(1).get());
    Ref drawn = host::tuple((host::number(own_width) * number(WSX)).truncated(),
                            (host::number(own_height) * number(WSY)).truncated());
    render::blit(screen, render::scaled(picture, drawn), number(WX) + left * number(WSX),
                 number(WY) + top * number(WSY), Py_None);
    return;
  }
  // Rotated text turns with the widget, about its centre, and is cut at its edges.
  Ref sheet =
      render::new_alpha_surface(host::tuple(number(width).truncated(), number(height).truncated()));
  Ref zero = host::integer(0);
  host::call_method(sheet, "fill"_name, host::tuple(zero, zero, zero, zero));
  render::blit(sheet.get(), picture, left, top, Py_None);
  blit_rotated(screen, sheet);
}

void GUI_Label::draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale) {
  auto* self = static_cast<PyObject*>(this);
  if (!is_visible(self)) return;
  if (number(alpha) > Number(0)) message::draw_begin(self, offset_x, offset_y, scale);
  draw_picture(screen);
  if (!is_set(image) && !is_hollow()) message::drawBGColor(self, screen, read(bgColor));
  message::drawText(self, screen, read(text), read(textColor));
  finish_draw(screen, offset_x, offset_y, scale);
}

void GUI_Label::CopyTo(PyObject* other) {
  Ref to = Ref::share(other);
  GUI_Image::CopyTo(other);
  Ref kind = message::GetNodeType(to);
  if (!host::is_text(kind.get(), "Label"_name) && !host::is_text(kind.get(), "Button"_name)) return;
  host::call_method(to, "SetText"_name, read(text));
  host::call_method(to, "SetShowChar"_name, read(showChar));
  host::call_method(to, "SetFont"_name, read(font),
                    message::GetFontName(static_cast<PyObject*>(this)));
  host::call_method(to, "SetTextVisible"_name, read(textVisible));
  host::call_method(to, "SetTextHAlign"_name, read(HAlign));
  host::call_method(to, "SetTextVAlign"_name, read(VAlign));
  Ref color = read(textColor);
  host::call_method(to, "SetTextColor"_name, host::get_attr(color, "r"_name),
                    host::get_attr(color, "g"_name), host::get_attr(color, "b"_name),
                    host::get_attr(color, "a"_name));
  host::call_method(to, "SetTextLeftGap"_name, read(textleftgap));
  host::call_method(to, "SetTextTopGap"_name, read(texttopgap));
}

void register_label(PyObject* module) {
  host::ClassBuilder<GUI_Label> builder("GUI_Label", &host::class_info<GUI_Image>);
  builder.attribute("text", &GUI_Label::text, "the string shown")
      .attribute("font", &GUI_Label::font, "pygame font that renders the text")
      .attribute("fontname", &GUI_Label::fontname, "name of the font or its file")
      .attribute("fontsize", &GUI_Label::fontsize, "size of the font, pixels")
      .attribute("fontbold", &GUI_Label::fontbold, "bold text")
      .attribute("fontitalic", &GUI_Label::fontitalic, "italic text")
      .attribute("fontunderline", &GUI_Label::fontunderline, "underlined text")
      .attribute("strikethrough", &GUI_Label::strikethrough, "text struck through")
      .attribute("textColor", &GUI_Label::textColor, "colour of the text")
      .attribute("HAlign", &GUI_Label::HAlign, "\"left\", \"center\" or \"right\"")
      .attribute("VAlign", &GUI_Label::VAlign, "\"top\", \"center\" or \"bottom\"")
      .attribute("textleftgap", &GUI_Label::textleftgap, "distance from the left edge, pixels")
      .attribute("texttopgap", &GUI_Label::texttopgap, "distance from the top edge, pixels")
      .attribute("textVisible", &GUI_Label::textVisible, "whether the text is drawn")
      .attribute("showChar", &GUI_Label::showChar, "character shown in place of each one, or None");
  builder.constructor<&GUI_Label::construct>(
      {{"parent", nullptr},
       {"x", 0},
       {"y", 0},
       {"text", ""},
       {"fontname", "Arial"},
       {"fontsize", 16}},
      "An image widget with one line of text.\n\n`fontname` is a system font, or a \".ttf\" or "
      "\".otf\" file that `Res` finds; `fontsize` is in pixels.");
  builder
      .method<&GUI_Label::CreateFont>(
          "CreateFont",
          {"fontname",
           "fontsize",
           {"bold", false},
           {"italic", false},
           {"underline", false},
           {"strikethrough", false}},
          "Make and use a system font or, with \".ttf\" or \".otf\" in the name, a font file of "
          "the resources.\n\nRaises AttributeError when `Res` does not find the file.")
      .method<&GUI_Label::SetFont>("SetFont", {"font", "fontname"},
                                   "Use a ready font; its size and flags are not read.")
      .accessors<&GUI_Label::font>("GetFont", nullptr, "font")
      .accessors<&GUI_Label::fontname>("GetFontName", nullptr, "name")
      .accessors<&GUI_Label::fontsize>("GetFontSize", nullptr, "size")
      .accessors<&GUI_Label::fontbold>("GetFontBold", nullptr, "flag")
      .accessors<&GUI_Label::fontitalic>("GetFontItalic", nullptr, "flag")
      .accessors<&GUI_Label::fontunderline>("GetFontUnderline", nullptr, "flag")
      .accessors<&GUI_Label::strikethrough>("GetFontStrikeThrough", nullptr, "flag")
      .accessors<&GUI_Label::text>("GetText", "SetText", "text")
      .accessors<&GUI_Label::textColor>("GetTextColor", nullptr, "color")
      .method<&GUI_Label::SetTextColor>("SetTextColor", {"r", "g", "b", {"a", 255}},
                                        "Set the text colour; components from 0 to 255.")
      .accessors<&GUI_Label::HAlign>("GetTextHAlign", "SetTextHAlign", "align")
      .accessors<&GUI_Label::VAlign>("GetTextVAlign", "SetTextVAlign", "align")
      .accessors<&GUI_Label::textleftgap>("GetTextLeftGap", "SetTextLeftGap", "gap")
      .accessors<&GUI_Label::texttopgap>("GetTextTopGap", "SetTextTopGap", "gap")
      .accessors<&GUI_Label::textVisible>("IsTextVisible", "SetTextVisible", "flag")
      .accessors<&GUI_Label::showChar>("GetShowChar", "SetShowChar", "char")
      .method<&GUI_Label::drawText>(
          "drawText", {"screen", "text", "textColor"},
          "Draw a text in a colour inside the widget, aligned, scaled and rotated with it.")
      .method<&GUI_Label::draw>(
          "draw", {"screen", {"offsetX", 0}, {"offsetY", 0}, {"scale", 1.0}},
          "Draw the picture or background, the text, border, overlays and children.\n\n"
          "`offsetX`, `offsetY` (pixels) and `scale` are the camera.")
      .method<&GUI_Label::CopyTo>(
          "CopyTo", {"other"},
          "Copy the image part and, into a label or button, the text and how it is shown.");
  builder.finish(module);
}

}  // namespace tessora
