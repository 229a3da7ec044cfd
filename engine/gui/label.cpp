#include "engine/gui/label.hpp"

#include <algorithm>

#include "engine/object/wrong_attributes.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

// Where a length of text starts along one axis of the widget, in unscaled pixels.
double aligned(GUI_Label& label, const Slot& align, Value near_edge, Value far_edge,
               const Slot& gap, const Slot& extent, double length) {
  Ref where = label.read(align);
  if (where.is_text(near_edge)) return Number(label.read(gap)).to_double();
  const Number rest = label.read(extent) - Number(length);
  return where.is_text(far_edge) ? rest.to_double() : rest.to_double() * 0.5;
}

// The font of a new label.
void start_label_font(GUI_Label& label, Value, Value, Value, Value, Value name, Value size) {
  start_font(label, name, size);
}

void copy_font(host::Object& from, Value to, const host::CopyRow& row) {
  auto& label = static_cast<GUI_Label&>(from);
  if (label.is_unset(label.font)) return;
  Ref own = label.read(label.font);
  Ref name = message::GetFontName(label);
  to.call(row.name, own, name);
}

}  // namespace

Ref GUI_Label::displayed(Value content) {
  Ref character = read(showChar);
  return character.is_set() ? host::repeated(character, content.length()) : Ref(content);
}

render::Point GUI_Label::text_corner(const render::Size& size) {
  const double left =
      aligned(*this, HAlign, "left"_name, "right"_name, textleftgap, width, size.width);
  const double top =
      aligned(*this, VAlign, "top"_name, "bottom"_name, texttopgap, height, size.height);
  return {left, top};
}

void GUI_Label::drawText(Value screen, Value given, Value color) {
  if (!is_true(textVisible)) return;
  Ref shown = displayed(given);
  if (shown.length() == 0) return;
  Ref type = read(font);
  const render::TextFace face = render::text_face(type, shown, color);
  if (!face.picture) return;
  const PlacedText placed{shown, face, text_corner({face.width, face.height})};
  draw_texts(screen, type, color, {&placed, 1});
}

void GUI_Label::draw_texts(Value screen, Value type, Value color,
                           std::span<const PlacedText> texts) {
  const render::Canvas canvas(screen);
  const double turn = drawn_angle();
  if (turn != 0.0) {
    // Rotated text turns with the widget, about its centre, and is cut at its edges.
    render::FaceKey key("turned text", render::FontPart{type}, color);
    for (const PlacedText& each : texts) {
      key.add(Value(each.shown)).add(each.corner.x).add(each.corner.y);
    }
    const render::Size whole = unscaled_size();
    const render::Size drawn = drawn_size();
    return canvas.sheet(key, whole, drawn, turn, drawn_center(), [&](const render::Canvas& sheet) {
      for (const PlacedText& each : texts) sheet.blit(each.face.picture, each.corner);
    });
  }
  for (const PlacedText& each : texts) {
    // Some versions render more rows than size() promises.
    const render::NumberSize own = render::size_of(each.face.picture);
    const Number wide = own.width * read(WSX);
    const Number high = own.height * read(WSY);
    const Number across = read(WX) + Number(each.corner.x) * read(WSX);
    const Number down = read(WY) + Number(each.corner.y) * read(WSY);
    const render::Size size{wide.to_double(), high.to_double()};
    if (pixels(size.width) && pixels(size.height)) {
      canvas.text(each.face, size, {across.to_double(), down.to_double()});
    }
  }
}

void GUI_Label::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    begin_draw(offset_x, offset_y, scale);
    draw_picture_or_background(screen);
    message::drawText(*this, screen, read(text), read(textColor));
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

bool is_of_kind(Value widget, std::initializer_list<Value> kinds) {
  Ref kind = message::GetNodeType(widget);
  return std::ranges::any_of(kinds, [&](Value each) { return kind.is_text(each); });
}

void GUI_Label::CopyTo(Value other) {
  message::CopyTo.base<&GUI_Image::CopyTo>(*this, other);
  if (is_of_kind(other, {"Label"_name, "Button"_name})) {
    host::copy_rows(*this, other, host::class_info<GUI_Label>);
  }
}

namespace {

using LabelDeclaration = host::Declaration<GUI_Label, GUI_Image>;

// CopyTo calls the setters in this order.
enum CopyRank : std::uint8_t { kText, kShowChar, kFont, kVisible, kAlign, kColor, kGap };

void declare_rows(LabelDeclaration& d) {
  using L = GUI_Label;
  d.attribute<&L::text>("text: str", host::given("text"), "The text that is shown.")
      .pair("GetText", "SetText", "text")
      .copied_by("SetText", kText);
  declare_font_rows(d).copies(&copy_font, "SetFont", kFont);
  d.step<&start_label_font>();
  d.attribute<&L::textColor>("textColor: pygame.Color", host::color(0, 0, 0), "Colour of the text.")
      .getter("GetTextColor")
      .color_setter<host::Alpha::kGiven>("SetTextColor")
      .color_copied_by<host::Alpha::kGiven>("SetTextColor", kColor);
  d.attribute<&L::HAlign>("HAlign: str", "center",
                          "Horizontal alignment of the text: \"left\", \"right\" or \"center\", "
                          "which others count as.")
      .pair("GetTextHAlign", "SetTextHAlign", "align")
      .copied_by("SetTextHAlign", kAlign);
  d.attribute<&L::VAlign>(
       "VAlign: str", "center",
       "Vertical alignment of the text: \"top\", \"bottom\" or \"center\", which others count as.")
      .pair("GetTextVAlign", "SetTextVAlign", "align")
      .copied_by("SetTextVAlign", kAlign);
  d.attribute<&L::textleftgap>(
       "textleftgap: float", 2,
       "Distance of left-aligned text from the left edge, in unscaled pixels.")
      .pair("GetTextLeftGap", "SetTextLeftGap", "gap")
      .copied_by("SetTextLeftGap", kGap);
  d.attribute<&L::texttopgap>("texttopgap: float", 2,
                              "Distance of top-aligned text from the top edge, in unscaled pixels.")
      .pair("GetTextTopGap", "SetTextTopGap", "gap")
      .copied_by("SetTextTopGap", kGap);
  d.attribute<&L::textVisible>("textVisible: bool", true, "Whether the text is drawn.")
      .pair("IsTextVisible", "SetTextVisible", "flag")
      .copied_by("SetTextVisible", kVisible);
  d.attribute<&L::showChar>("showChar: str | None", nullptr,
                            "Character shown in place of each one, as for a password, or None.")
      .pair("GetShowChar", "SetShowChar", "char")
      .copied_by("SetShowChar", kShowChar);
}

}  // namespace

void register_label(PyObject* module) {
  LabelDeclaration label(
      module, "GUI_Label",
      "An image widget with one line of text.\n\n"
      "`x` and `y` place the anchor in the parent, in pixels. `fontname` is a system font, or a "
      "\".ttf\" or \".otf\" file that `Res` finds: AttributeError if it does not. `fontsize` is in "
      "pixels. A label is as white and large as an image: the style \"hollow\" leaves the text "
      "alone.\n\n"
      ">>> label = Tessora.GUI_Label(None, 10, 20, \"Score: 0\")\n"
      ">>> label.SetText(\"Score: 1\")");
  label.constructor(kLabelParameters);
  label.sets<&GUI_Label::NodeType>("Label");
  declare_rows(label);
  declare_draw<&GUI_Label::draw>(
      label, "Draw the picture or background, the text, border, overlays and children.")
      .method<&create_font<GUI_Label>>(kCreateFont, kCreateFontDoc)
      .method<&set_font<GUI_Label>>(kSetFont, kSetFontDoc)
      .method<&GUI_Label::drawText>(
          "drawText(screen: pygame.Surface, text: str, textColor: _ColorValue) -> None",
          "Draw a text in a colour inside the widget, aligned, scaled and rotated with it.")
      .method<&GUI_Label::CopyTo>(
          "CopyTo(other: GameNode) -> None",
          "Copy the image part and, into a label or button, the text and how it is shown.");
  label.finish();
}

}  // namespace tessora
