// Style, blend mode, anchor and collision rectangles of the image widget, and copying it.
#include "engine/image/image.hpp"

namespace tessora {

namespace {

Ref blend_flag(Value name) {
  for (const char* known : {"ADD", "SUB"}) {
    if (name.equals(host::text(known)))
      return host::modules::pygame[host::formatted("BLEND_%s", known)];
  }
  return host::modules::pygame["BLEND_MULT"_name];
}

}  // namespace

Ref blend_name(Value flag) {
  for (Value name : {"ADD"_name, "SUB"_name}) {
    if (flag.equals(blend_flag(name))) return name;
  }
  return "MULT"_name;
}

void GUI_Image::SetBlendType(Value blend) {
  write(blendtype, blend_flag(blend));
}

void GUI_Image::DropBGColor() {
  write(bgColor, Value(nullptr));
}

void GUI_Image::SetStyle(Value kind, Value border_visible) {
  write(style, kind);
  write(borderVisible, border_visible);
}

void GUI_Image::SetImageAnchor(Value anchor) {
  // Row by row, in halves of the size; the whole fraction stays the integer that scripts write.
  Ref keyword = anchor.call("lower"_name);
  write(imageAnchor, keyword);
  int place = 0;
  int index = 0;
  for (Value known : {"wn"_name, "n"_name, "en"_name, "w"_name, "center"_name, "e"_name, "ws"_name,
                      "s"_name, "es"_name}) {
    if (keyword.equals(known)) place = index;
    ++index;
  }
  auto fraction = [](int halves) { return halves == 0 ? Number(0) : Number(0.5 * halves); };
  message::SetAXY(*this, fraction(place % 3), fraction(place / 3));
}

void GUI_Image::AddCollRect(Value name, Value rect) {
  Ref rects = read(coll_rectArray);
  if (!rects.contains(name)) rects.set_item(name, host::list());
  rects.item(name).append(rect);
}

void GUI_Image::CleanCollRect(Value name) {
  Ref rects = read(coll_rectArray);
  if (rects.contains(name)) rects.item(name).call("clear"_name);
}

Ref GUI_Image::GetCollRect(Value name) {
  Ref rects = read(coll_rectArray);
  return rects.item(name);
}

void GUI_Image::CopyTo(Value other) {
  copy_class<&GameNode::CopyTo>(*this, other);
}

void declare_image_style(ImageDeclaration& image) {
  image
      .method<&GUI_Image::DropBGColor>("DropBGColor() -> None",
                                       "Use no tint and no background: `bgColor` becomes None.")
      .method<&GUI_Image::SetStyle>(
          "SetStyle(style: str | None, borderVisible: bool = True) -> None",
          "Set the border style and, by default, show the border.\n\nStyles: \"flat\", \"raised\", "
          "\"sunken\", \"solid\", \"hollow\" (no background); others are kept and draw no relief. "
          "None draws no picture either.")
      .method<&GUI_Image::SetBlendType>(
          "SetBlendType(blendtype: str) -> None",
          "Set how the picture is blitted: \"ADD\" and \"SUB\" select pygame's BLEND_ADD and "
          "BLEND_SUB, anything else BLEND_MULT, which is drawn as a plain blit.")
      .method<&GUI_Image::SetImageAnchor>(
          "SetImageAnchor(anchor: str) -> None",
          "Set the anchor by keyword: \"wn\", \"n\", \"en\", \"w\", \"center\", \"e\", \"ws\", "
          "\"s\", \"es\" in any case; others give the top-left corner.")
      .method<&GUI_Image::AddCollRect>(
          "AddCollRect(collName: str, rect: _RectValue) -> None",
          "Add a collision rectangle (unscaled pixels from the top-left corner) under a name.")
      .method<&GUI_Image::CleanCollRect>(
          "CleanCollRect(collName: str) -> None",
          "Empty the list of collision rectangles of that name; an unknown name is ignored.")
      .method<&GUI_Image::GetCollRect>("GetCollRect(collName: str) -> list[Any]",
                                       "Return the list of collision rectangles of that "
                                       "name.\n\nRaises KeyError for an unknown one.")
      .method<&GUI_Image::CopyTo>(
          "CopyTo(other: GameNode) -> None",
          "Copy the widget's state into `other`; surfaces are shared, lists and colours copied.");
}

}  // namespace tessora
