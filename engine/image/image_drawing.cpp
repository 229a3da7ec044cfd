// Drawing an image widget: its picture or background, then what lies over it.
#include "engine/host/caught.hpp"
#include "engine/image/image.hpp"
#include "engine/object/wrong_attributes.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

using render::Canvas;

constexpr int kOpaque = 255;

const host::MessageSet& overlay_messages() {
  static const host::MessageSet set{
      {&message::drawStyle, &host::native<&GUI_Image::drawStyle>},
      {&message::drawFocusBorder, &host::native<&GUI_Image::drawFocusBorder>},
      {&message::drawDragRect, &host::native<&GameNode::drawDragRect>},
      {&message::drawAnchor, &host::native<&GameNode::drawAnchor>},
      {&message::drawCollInfo, &host::native<&GUI_Image::drawCollInfo>},
  };
  return set;
}

// The flags for the picture's blit: none for the default blend mode.
Ref blit_flags(GUI_Image& widget) {
  Ref flags = widget.read(widget.blendtype);
  Ref plain = host::modules::pygame["BLEND_MULT"_name];
  return flags.is(plain) || flags.equals(plain) ? host::none() : flags;
}

}  // namespace

std::optional<int> pixels(double length) {
  // Python says what it makes of infinity and NaN.
  if (!std::isfinite(length)) Ref refused = Number(length).truncated();
  int whole = 0;
  if (!host::rect_integer(length, whole)) return std::nullopt;
  if (whole < 0) host::raise(PyExc_ValueError, "Cannot scale to negative size");
  return whole;
}

std::uint32_t packed_color(Value color) {
  if (auto packed = render::plain_color(color)) return *packed;
  // Whatever pygame takes for a colour is what it fills a surface with.
  Ref dot = render::new_alpha_surface(host::tuple(1, 1));
  dot.call("fill"_name, color);
  Ref found = dot.call("get_at"_name, host::tuple(0, 0));
  return render::plain_color(found).value_or(0);
}

double GUI_Image::drawn_angle() {
  const Number turn = read(WAngle);
  return turn.to_double();
}

void GUI_Image::draw_shown(Value screen, Value picture, int opacity) {
  constexpr std::uint32_t kWhite = 0xFFFFFFFF;
  Ref flags = blit_flags(*this);
  const render::Size size = drawn_size();
  const std::optional<int> wide = pixels(size.width);
  const std::optional<int> high = pixels(size.height);
  render::Recipe recipe{wide.value_or(0), high.value_or(0), drawn_angle(), opacity, true, kWhite};
  if (!holds_color(bgColor, recipe.color)) {
    Ref color = read(bgColor);
    recipe.tinted = color.is_set();
    recipe.color = recipe.tinted ? packed_color(color) : 0;
  }
  if (wide && high) Canvas(screen).picture(picture, recipe, drawn_center(), flags);
}

void GUI_Image::drawimage(Value screen, Value picture) {
  draw_shown(screen, picture, kOpaque);
}

bool GUI_Image::is_hollow() {
  if (holds(style, "flat"_name)) return false;
  Ref kind = read(style);
  return kind.is_text("hollow"_name);
}

void GUI_Image::draw_picture_or_background(Value screen) {
  draw_picture_or_background(screen, image, bgColor);
}

void GUI_Image::draw_picture_or_background(Value screen, const Slot& shown, LazySlot& background) {
  Ref picture = read(shown);
  if (picture.is_set()) {
    if (!is_set(style) || !is_set(blendtype)) return;
    const Number opacity = read(alpha);
    const std::optional<double> level = opacity.is_real() ? std::nullopt : opacity.plain();
    const bool is_level = level && *level >= 0 && *level <= kOpaque;
    if (is_level && message::drawimage.direct<&GUI_Image::drawimage>(*this) != nullptr) {
      draw_shown(screen, picture, static_cast<int>(*level));
      return;
    }
    auto fade = [&] { return render::faded(picture, opacity.object()); };
    if (!(opacity == Number(kOpaque))) {
      picture = is_level ? fade() : host::with_place("alpha"_name, fade);
    }
    message::drawimage(*this, screen, picture);
  }
  if (!is_set(shown) && !is_hollow()) message::drawBGColor(*this, screen, read(background));
}

void GUI_Image::begin_draw(Value offset_x, Value offset_y, Value scale) {
  if (!(read(alpha) > Number(0))) return;
  if (message::draw_begin.direct<&GameNode::draw_begin>(*this) != nullptr) {
    draw_begin(offset_x, offset_y, scale);
  } else {
    message::draw_begin(*this, offset_x, offset_y, scale);
  }
}

void GUI_Image::finish_draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (overlay_messages().all_direct(*this)) {
    if (!holds(borderVisible, false)) drawStyle(screen);
    if (!holds(focusIn, false)) drawFocusBorder(screen);
    if (!holds(editrectvisible, false)) drawDragRect(screen, 6_const, Ref(read(dragcornerindex)));
    if (!holds(anchorvisible, false)) drawAnchor(screen, 1.0_const);
    if (!holds(coll_visible, false)) drawCollInfo(screen);
  } else {
    message::drawStyle(*this, screen);
    message::drawFocusBorder(*this, screen);
    message::drawDragRect(*this, screen, 6_const, read(dragcornerindex));
    message::drawAnchor(*this, screen);
    message::drawCollInfo(*this, screen);
  }
  if (!holds_empty_list(children) ||
      message::draw_children.direct<&GameNode::draw_children>(*this) == nullptr) {
    message::draw_children(*this, screen, offset_x, offset_y, scale);
  }
  tell_scene();
}

void GUI_Image::tell_scene() {
  if (!is_set(sceneInstance)) return;
  Ref scene = read(sceneInstance);
  scene.call_if_any("AddBatchCount"_name);
  message::CallInnerEvent(*this, "Render"_name);
}

void GUI_Image::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    begin_draw(offset_x, offset_y, scale);
    draw_picture_or_background(screen);
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

void GUI_Image::drawBGColor(Value screen, Value color) {
  if (!color.is_set()) return;
  const Canvas canvas(screen);
  const double turn = drawn_angle();
  if (turn == 0.0) return canvas.fill(color, drawn_box());
  const render::Size size = drawn_size();
  // Kept with per-pixel alpha: without it the rotation would leave black corners.
  canvas.sheet(render::FaceKey("background", color), size, size, turn, drawn_center(),
               [&](const Canvas& sheet) { sheet.surface().call("fill"_name, color); });
}

void declare_image_drawing(ImageDeclaration& image) {
  declare_draw<&GUI_Image::draw>(
      image, "Draw the picture or background, border, focus border, overlays and children.")
      .method<&GUI_Image::drawimage>(
          "drawimage(screen: pygame.Surface, image: pygame.Surface) -> None",
          "Draw a surface scaled to the drawn size, rotated and tinted with `bgColor`, centred on "
          "the drawn rectangle.")
      .method<&GUI_Image::drawBGColor>(
          "drawBGColor(screen: pygame.Surface, bgColor: _ColorValue | None) -> None",
          "Fill the drawn rectangle with a colour; None draws nothing.");
}

}  // namespace tessora
