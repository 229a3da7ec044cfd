// The looks of button-like widgets: what each state (normal, hovered, pressed, checked, ...) is
// drawn with. A look is a row of a table, and its attributes are declared by LookRows:
//
//   const LookRows hovered(button, "_hover", "_Hover", ", pointer inside");
//   hovered.text_color<&B::textColor_hover>(host::color(0, 0, 0));
//   hovered.background<&B::bgColor_hover>(host::color(128, 128, 128));
//   hovered.picture<&B::image_hover, &B::image_hover_File>();
//   hovered.file<&B::image_hover_File>();
//   hovered.box<&B::image_box_hover>("box", "Box");
#pragma once

#include "engine/gui/label.hpp"

namespace tessora {

template <class Widget>
struct Look {
  LazySlot Widget::* background;
  Slot Widget::* picture;
  LazySlot Widget::* text_color;
  Slot Widget::* box = nullptr;  // picture of a check or radio button's box
};

// Draws the background and the picture of a look.
template <class Widget>
void draw_look(Widget& widget, Value screen, const Look<Widget>& look) {
  if (!widget.is_hollow()) {
    message::drawBGColor(widget, screen, widget.read(widget.*look.background));
  }
  if (widget.is_set(widget.*look.picture)) {
    message::drawimage(widget, screen, widget.read(widget.*look.picture));
  }
}

template <auto Member>
Ref value_or_none(host::SlotOwner<Member>& widget) {
  return widget.is_unset(widget.*Member) ? host::none() : Ref(widget.read(widget.*Member));
}

// The attributes of a look, in the order in which the rows are written, with their accessors.
// CopyTo takes over all text colours first, then the backgrounds, then the recorded files.
template <class Declaration>
class LookRows {
 public:
  // `suffix` ends the names of the attributes, `method_suffix` those of their accessors; `when`
  // the look is shown completes the docs, `like` names the suffix of the colours that those of the
  // look are at first.
  LookRows(Declaration& widget, std::string suffix, std::string method_suffix, std::string when,
           std::string like = "")
      : widget_(widget),
        suffix_(std::move(suffix)),
        method_suffix_(std::move(method_suffix)),
        when_(std::move(when)),
        like_(std::move(like)) {}

  template <auto Member>
  void text_color(const host::Default& value) const {
    add_color<Member>("textColor", "TextColor", "Text colour", value, 0);
  }
  template <auto Member>
  void background(const host::Default& value) const {
    add_color<Member>("bgColor", "BGColor", "Background colour", value, 1);
  }
  // Loaded from a file, whose name is recorded where there is an attribute for that.
  template <auto Member, auto... File>
  void picture() const {
    add_picture<Member, File...>("", "", "Picture" + when_, nullptr)
        .getter(keep("GetImage" + method_suffix_));
  }
  // The picture of a check or radio button's box.
  template <auto Member>
  void box(const std::string& name, const std::string& method) const {
    add_picture<Member>("_" + name, "_" + method, "Picture of the box" + when_, nullptr)
        .getter(keep("GetImage_" + method + method_suffix_));
  }
  // One that is never drawn and no attribute before it is set; until then its getter gives None.
  template <auto Member>
  void spare_box(const std::string& name, const std::string& method) const {
    add_picture<Member>("_" + name, "_" + method,
                        "Picture of the box that is kept for the script, not drawn; unset at first",
                        host::unset());
    widget_.template method<&value_or_none<Member>>(
        keep("GetImage_" + method + method_suffix_ + "() -> pygame.Surface | None"),
        keep("Return `image_" + name + suffix_ + "`, or None before it is set."));
  }
  template <auto Member>
  void file() const {
    constexpr auto kReload = [](host::Object& from, Value to, const host::CopyRow& row) {
      auto& slot = host::slot_of<Member>(from);
      if (!from.is_unset(slot) && from.is_set(slot)) to.call(row.name, from.read(slot));
    };
    add<Member>("image" + suffix_ + "_File: str | None",
                "File name of the picture" + when_ + ", or None.")
        .getter(keep("GetImageFile" + method_suffix_))
        .copies(kReload, keep("SetImage" + method_suffix_), 2);
  }

 private:
  template <auto Member>
  auto add(std::string row, std::string doc, const host::Default& value = nullptr) const {
    return widget_.template attribute<Member>(keep(std::move(row)), value, keep(std::move(doc)));
  }
  template <auto Member, auto... File>
  auto add_picture(const std::string& part, const std::string& method_part, const std::string& what,
                   const host::Default& value) const {
    const std::string name = "image" + part + suffix_;
    const std::string optional = value.is_none_at_all ? "" : ", or None";
    widget_.template method<&load_picture<Member, File...>>(
        keep("SetImage" + method_part + method_suffix_ + "(imagefile: str) -> None"),
        keep("Load `" + name + "` through `Res`" +
             (sizeof...(File) == 0 ? "." : " and record its file.") +
             "\n\nA file that `Res` does not find leaves None; AttributeError while `Res` is not "
             "set."));
    return add<Member>(name + ": pygame.Surface | None", what + optional + ".", value);
  }
  template <auto Member>
  void add_color(const char* name, const char* method, const char* what, const host::Default& value,
                 int rank) const {
    const char* setter = keep(std::string("Set") + method + method_suffix_);
    const bool is_shared = value.step().kind == host::Step::Kind::kSame;
    const std::string first = is_shared ? ", at first the one in `" + (name + like_) + "`." : ".";
    add<Member>(name + suffix_ + ": pygame.Color", what + when_ + first, value)
        .getter(keep(std::string("Get") + method + method_suffix_))
        .template color_setter<host::Alpha::kOpaque>(setter)
        .template color_copied_by<host::Alpha::kOpaque>(setter, rank);
  }
  [[nodiscard]] const char* keep(std::string text) const { return widget_.keep(std::move(text)); }

  Declaration& widget_;
  std::string suffix_, method_suffix_, when_, like_;
};

}  // namespace tessora
