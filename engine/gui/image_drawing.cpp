// Drawing an image widget: its picture or background, then what lies over it.
#include "engine/gui/image.hpp"

namespace tessora {

namespace {

constexpr int kOpaque = 255;
constexpr int kHandleSize = 6;

using render::PictureRecipe;

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
  bool is_plain = flags.get() == plain.get() || host::equals(flags.get(), plain.get());
  return is_plain ? host::none() : flags;
}

// The drawn rectangle in machine numbers.
struct PlainBox {
  double left, top, width, height, scale_x, scale_y;
};

std::optional<PlainBox> plain_box(GUI_Image& widget) {
  PlainBox box{};
  if (widget.properties_override) return std::nullopt;
  const std::pair<const Slot*, double*> values[] = {
      {&widget.WX, &box.left},       {&widget.WY, &box.top},      {&widget.width, &box.width},
      {&widget.height, &box.height}, {&widget.WSX, &box.scale_x}, {&widget.WSY, &box.scale_y}};
  for (const auto& [slot, value] : values) {
    if (slot->object == nullptr || !host::small_number(slot->object, *value)) return std::nullopt;
  }
  return box;
}

// What the picture is made of, when machine numbers are all it takes.
std::optional<PictureRecipe> picture_recipe(GUI_Image& widget, const PlainBox& box, int opacity) {
  PictureRecipe recipe{0, 0, 0.0, opacity, false, 0};
  double angle = 0.0;
  if (widget.WAngle.object == nullptr || !PyFloat_CheckExact(widget.WAngle.object)) {
    return std::nullopt;
  }
  angle = PyFloat_AS_DOUBLE(widget.WAngle.object);
  if (!std::isfinite(angle)) return std::nullopt;
  if (angle != 0.0) recipe.angle = angle;
  if (!host::rect_integer(box.width * box.scale_x, recipe.width) ||
      !host::rect_integer(box.height * box.scale_y, recipe.height)) {
    return std::nullopt;
  }
  constexpr std::uint32_t kWhite = 0xFFFFFFFF;
  if (widget.is_default(widget.bgColor)) {
    recipe.tinted = true;
    recipe.color = kWhite;
    return recipe;
  }
  Ref color = widget.read(widget.bgColor);
  if (color.get() == Py_None) return recipe;
  std::optional<std::uint32_t> packed = render::plain_color(color.get());
  if (!packed) return std::nullopt;
  recipe.tinted = true;
  recipe.color = *packed;
  return recipe;
}

// Draws a kept picture, if there is one.
bool draw_kept(GUI_Image& widget, PyObject* screen, PyObject* picture, int opacity,
               PyObject* flags) {
  if (!render::is_plain_surface(picture) || !render::is_plain_surface(screen)) return false;
  std::optional<PlainBox> box = plain_box(widget);
  if (!box) return false;
  std::optional<PictureRecipe> recipe = picture_recipe(widget, *box, opacity);
  if (!recipe) return false;
  std::optional<render::Picture> kept = render::kept_picture(picture, *recipe, screen);
  if (!kept) return false;
  Ref surface = Ref::share(kept->surface);
  render::blit_plain(screen, surface.get(),
                     box->left + box->width / 2 * box->scale_x - kept->width / 2.0,
                     box->top + box->height / 2 * box->scale_y - kept->height / 2.0, flags);
  return true;
}

}  // namespace

void GUI_Image::draw_faded_or_plain(PyObject* screen, PyObject* picture, int opacity) {
  Ref flags = blit_flags(*this);
  if (draw_kept(*this, screen, picture, opacity, flags.get())) return;
  Ref source = Ref::share(picture);
  if (opacity != kOpaque) source = render::faded(picture, host::integer(opacity).get());
  Ref size = host::tuple((number(width) * number(WSX)).truncated(),
                         (number(height) * number(WSY)).truncated());
  Ref color = read(bgColor);
  Ref done = render::finished(source.get(), size, number(WAngle), color.get());
  render::blit_centered(screen, done, number(WX) + number(width) / Number(2) * number(WSX),
                        number(WY) + number(height) / Number(2) * number(WSY), flags.get());
}

void GUI_Image::drawimage(PyObject* screen, PyObject* picture) {
  Ref held = Ref::share(picture);
  draw_faded_or_plain(screen, picture, kOpaque);
}

void GUI_Image::draw_picture(PyObject* screen) {
  Ref picture = read(image);
  if (!is_set(style) || !is_set(blendtype) || !host::is_set(picture)) return;
  auto* self = static_cast<PyObject*>(this);
  Number opacity = number(alpha);
  bool opaque = opacity == Number(kOpaque);
  int level = kOpaque;
  bool whole = PyLong_CheckExact(opacity.object().get()) && host::rect_integer(opacity, level) &&
               level >= 0 && level <= kOpaque;
  if (whole && message::drawimage.direct<&GUI_Image::drawimage>(self) != nullptr) {
    draw_faded_or_plain(screen, picture.get(), level);
    return;
  }
  if (!opaque) picture = render::faded(picture.get(), read(alpha).get());
  message::drawimage(self, screen, picture);
}

bool GUI_Image::is_hollow() {
  Ref kind = read(style);
  return kind.get() != "flat"_name && host::is_text(kind.get(), "hollow"_name);
}

void GUI_Image::finish_draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y,
                            PyObject* scale) {
  static PyObject* const handle_size = host::integer(kHandleSize).release();
  static PyObject* const marker_scale = host::real(1.0).release();
  auto* self = static_cast<PyObject*>(this);
  if (overlay_messages().all_direct(self)) {
    drawStyle(screen);
    drawFocusBorder(screen);
    drawDragRect(screen, handle_size, read(dragcornerindex).get());
    drawAnchor(screen, marker_scale);
    drawCollInfo(screen);
  } else {
    message::drawStyle(self, screen);
    message::drawFocusBorder(self, screen);
    message::drawDragRect(self, screen, handle_size, read(dragcornerindex));
    message::drawAnchor(self, screen);
    message::drawCollInfo(self, screen);
  }
  message::draw_children(self, screen, offset_x, offset_y, scale);
  if (!is_set(sceneInstance)) return;
  Ref counter = host::find_attr(read(sceneInstance).get(), "AddBatchCount"_name);
  if (counter) host::call(counter);
  message::CallInnerEvent(self, "Render"_name);
}

void GUI_Image::draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale) {
  auto* self = static_cast<PyObject*>(this);
  if (!is_visible(self)) return;
  if (number(alpha) > Number(0)) message::draw_begin(self, offset_x, offset_y, scale);
  draw_picture(screen);
  if (!is_set(image) && !is_hollow()) message::drawBGColor(self, screen, read(bgColor));
  finish_draw(screen, offset_x, offset_y, scale);
}

Ref GUI_Image::drawn_box() {
  return host::tuple(read(WX), read(WY), (number(width) * number(WSX)).object(),
                     (number(height) * number(WSY)).object());
}

void GUI_Image::blit_rotated(PyObject* screen, const Ref& picture) {
  Ref size = host::tuple((number(width) * number(WSX)).truncated(),
                         (number(height) * number(WSY)).truncated());
  Ref turned = render::rotated(render::scaled(picture, size), number(WAngle));
  render::blit_centered(screen, turned, number(WX) + number(width) / Number(2) * number(WSX),
                        number(WY) + number(height) / Number(2) * number(WSY), Py_None);
}

void GUI_Image::drawBGColor(PyObject* screen, PyObject* color) {
  if (!host::is_set(color)) return;
  Ref held = Ref::share(color);
  if (number(WAngle) == Number(0)) {
    host::call(host::modules::draw["rect"_name], screen, color, drawn_box(), host::integer(0));
    return;
  }
  Ref size = host::tuple((number(width) * number(WSX)).truncated(),
                         (number(height) * number(WSY)).truncated());
  // Without per-pixel alpha the rotation would leave black corners.
  Ref box = render::new_alpha_surface(size);
  host::call_method(box, "fill"_name, color);
  Ref turned = render::rotated(box, number(WAngle));
  render::blit_centered(screen, turned, number(WX) + number(width) / Number(2) * number(WSX),
                        number(WY) + number(height) / Number(2) * number(WSY), Py_None);
}

void declare_image_drawing(ImageBuilder& builder) {
  builder
      .method<&GUI_Image::draw>(
          "draw", {"screen", {"offsetX", 0}, {"offsetY", 0}, {"scale", 1.0}},
          "Draw the picture or background, border, focus border, overlays and children.\n\n"
          "`offsetX`, `offsetY` (pixels) and `scale` are the camera.")
      .method<&GUI_Image::drawimage>(
          "drawimage", {"screen", "image"},
          "Draw a surface scaled to the drawn size, rotated and tinted with `bgColor`, centred on "
          "the drawn rectangle.")
      .method<&GUI_Image::drawBGColor>(
          "drawBGColor", {"screen", "bgColor"},
          "Fill the drawn rectangle with a colour; None draws nothing.")
      .method<&GUI_Image::drawStyle>("drawStyle", {"screen"},
                                     "Draw the border of the style while `borderVisible` is true.")
      .method<&GUI_Image::drawFocusBorder>("drawFocusBorder", {"screen"},
                                           "Outline the widget while it has the keyboard focus.")
      .method<&GUI_Image::drawCollInfo>(
          "drawCollInfo", {"screen"},
          "Outline the collision rectangles while `coll_visible` is true.");
}

}  // namespace tessora
