#include "engine/image/plain_picture.hpp"

#include "engine/object/wrong_attributes.hpp"
#include "engine/pixels/surface.hpp"
#include "engine/render/clip.hpp"

namespace tessora {

namespace {

constexpr int kOpaque = 255;

// Whatever draw() and SetXY() send on the way to a still picture.
const host::MessageSet& plain_messages() {
  using host::native;
  static const host::MessageSet set{
      {&message::IsVisible, &host::native_getter<&GameNode::visible>},
      {&message::SetXY, &host::native_setter<&GameNode::x, &GameNode::y>},
      {&message::GetWX, &native<&GameNode::GetWX>},
      {&message::GetWY, &native<&GameNode::GetWY>},
      {&message::GetWPX, &native<&GameNode::GetWPX>},
      {&message::GetWPY, &native<&GameNode::GetWPY>},
      {&message::GetWSX, &native<&GameNode::GetWSX>},
      {&message::GetWSY, &native<&GameNode::GetWSY>},
      {&message::GetWPSX, &native<&GameNode::GetWPSX>},
      {&message::GetWPSY, &native<&GameNode::GetWPSY>},
      {&message::GetWAngle, &native<&GameNode::GetWAngle>},
      {&message::GetWPAngle, &native<&GameNode::GetWPAngle>},
      {&message::GetAXW, &native<&GameNode::GetAXW>},
      {&message::GetAYH, &native<&GameNode::GetAYH>},
      {&message::draw, &native<&GUI_Image::draw>},
      {&message::draw_begin, &native<&GameNode::draw_begin>},
      {&message::drawimage, &native<&GUI_Image::drawimage>},
      {&message::drawStyle, &native<&GUI_Image::drawStyle>},
      {&message::drawFocusBorder, &native<&GUI_Image::drawFocusBorder>},
      {&message::drawDragRect, &native<&GameNode::drawDragRect>},
      {&message::drawAnchor, &native<&GameNode::drawAnchor>},
      {&message::drawCollInfo, &native<&GUI_Image::drawCollInfo>},
      {&message::draw_children, &native<&GameNode::draw_children>},
      {&message::CallInnerEvent, &native<&GameNode::CallInnerEvent>},
  };
  return set;
}

// Whether a picture, and only a picture, is seen of the widget.
bool shows_picture_only(GUI_Image& widget) {
  for (const Slot* flag : {&widget.lock_xysa, &widget.editrectvisible, &widget.anchorvisible,
                           &widget.focusIn, &widget.borderVisible, &widget.coll_visible}) {
    if (!widget.holds(*flag, false)) return false;
  }
  for (const Slot* value : {&widget.style, &widget.image, &widget.blendtype, &widget.alpha}) {
    if (!widget.peek(*value) || widget.holds(*value, nullptr)) return false;
  }
  return widget.holds(widget.visible, true) && widget.holds(widget.parent, nullptr) &&
         static_cast<bool>(widget.peek(widget.sceneInstance)) &&
         widget.is_default(widget.InnerBindingEventArray);
}

// Whether pygame blits the picture without complaint.
bool is_drawable(GUI_Image& widget) {
  constexpr int kLeastBytes = 3;
  double opacity = 0.0;
  const bool opaque = widget.holds_number(widget.alpha, opacity) && opacity > 0.0 &&
                      opacity <= kOpaque && widget.peek(widget.alpha).is_plain_integer();
  if (!opaque || !widget.peek(widget.blendtype).is_plain_integer()) return false;
  if (!widget.is_default(widget.bgColor) && !widget.holds(widget.bgColor, nullptr) &&
      (widget.is_unset(widget.bgColor) || !render::plain_color(widget.peek(widget.bgColor)))) {
    return false;
  }
  const auto memory = render::surface_memory(widget.peek(widget.image));
  return memory && memory->pixels != nullptr && memory->pixel_bytes >= kLeastBytes &&
         !memory->locked && memory->width > 0 && memory->height > 0;
}

// A length in whole pixels, as drawing takes it; nothing for what it refuses.
std::optional<double> whole_pixels(double length) {
  if (!(length >= 0.0 && length < 1 << 30)) return std::nullopt;
  return std::trunc(length);
}

}  // namespace

std::optional<PlainView> PlainView::of(Value screen, Value offset_x, Value offset_y, Value scale) {
  const std::optional<double> shift_x = Number(offset_x).plain();
  const std::optional<double> shift_y = Number(offset_y).plain();
  const std::optional<double> zoom = Number(scale).plain();
  const std::optional<render::PixelBox> clip = render::quick_clip(screen);
  if (!shift_x || !shift_y || !zoom || !clip) return std::nullopt;
  return PlainView{*clip, *shift_x, *shift_y, *zoom};
}

PlainPicture::PlainPicture(GUI_Image& widget)
    : widget_(widget),
      held_(widget),
      above_(widget.sceneInstance, widget.InnerBindingEventArray),
      shape_(widget.sx, widget.lock_xysa),
      look_(widget.bgColor, widget.enable) {}

std::unique_ptr<PlainPicture> PlainPicture::of(Value node, double scale) {
  auto* widget = host::instance_of<GUI_Image>(node);
  if (widget == nullptr || !plain_messages().all_direct(*widget) || !shows_picture_only(*widget) ||
      !is_drawable(*widget)) {
    return nullptr;
  }
  std::unique_ptr<PlainPicture> made(new PlainPicture(*widget));
  if (!made->measure(scale) || !made->is_current()) return nullptr;
  return made;
}

bool PlainPicture::measure(double scale) {
  double wide = 0.0;
  double high = 0.0;
  double scale_x = 0.0;
  double scale_y = 0.0;
  double anchor_x = 0.0;
  double anchor_y = 0.0;
  GUI_Image& w = widget_;
  // With scales that are floats, machine arithmetic gives Python's results.
  if (!w.holds_number(w.width, wide) || !w.holds_number(w.height, high) ||
      !w.holds_real(w.sx, scale_x) || !w.holds_real(w.sy, scale_y) ||
      !w.holds_number(w.anchorx, anchor_x) || !w.holds_number(w.anchory, anchor_y) ||
      !w.holds_number(w.angle, turn_)) {
    return false;
  }
  turn_ += 0.0;
  const double zoom_x = scale_x * scale;
  const double zoom_y = scale_y * scale;
  const auto drawn_width = whole_pixels(wide * zoom_x);
  const auto drawn_height = whole_pixels(high * zoom_y);
  if (!drawn_width || !drawn_height || !std::isfinite(turn_)) return false;
  render::TurnedSize size{*drawn_width, *drawn_height};
  if (turn_ != 0.0) size = render::turned_size(size.width, size.height, turn_);
  across_ = {anchor_x * wide * scale_x, zoom_x, wide / 2 * zoom_x, size.width};
  down_ = {anchor_y * high * scale_y, zoom_y, high / 2 * zoom_y, size.height};
  return true;
}

bool PlainPicture::is_current() const {
  return plain_messages().all_direct(widget_) && shape_.matches(widget_.sx) &&
         look_.matches(widget_.bgColor) && above_.matches(widget_.sceneInstance) &&
         widget_.holds_empty_list(widget_.children) && widget_.holds(widget_.focusIn, false) &&
         widget_.holds(widget_.editrectvisible, false);
}

render::Box PlainPicture::reach() const {
  auto start = [](const Extent& extent) {
    return extent.middle - extent.length / 2.0 - std::fabs(extent.anchored * extent.zoom);
  };
  auto length = [](const Extent& extent) {
    return extent.length + 2.0 * std::fabs(extent.anchored * extent.zoom);
  };
  return {start(across_), start(down_), length(across_), length(down_)};
}

bool PlainPicture::shows(const PlainView& view, render::Point place) const {
  const double left = across_.corner(across_.edge(place.x, view.scale, view.offset_x));
  const double top = down_.corner(down_.edge(place.y, view.scale, view.offset_y));
  return render::is_visible(left, top, across_.length, down_.length, view.clip);
}

void PlainPicture::put(const PlainView& view, Value left, Value top, render::Point place) {
  GUI_Image& w = widget_;
  w.write(w.x, left);
  w.write(w.y, top);
  w.write_derived(w.WSX, across_.zoom);
  w.write_derived(w.WSY, down_.zoom);
  w.write_derived(w.WAngle, turn_);
  w.write_derived(w.WX, across_.edge(place.x, view.scale, view.offset_x));
  w.write_derived(w.WY, down_.edge(place.y, view.scale, view.offset_y));
}

void PlainPicture::draw(Value screen) {
  GUI_Image& w = widget_;
  host::naming_attributes(w, [&] {
    Ref picture = w.read(w.image);
    const double opacity = Number(w.read(w.alpha)).to_double();
    w.draw_shown(screen, picture, static_cast<int>(opacity));
  });
  if (has_scene()) w.tell_scene();
}

}  // namespace tessora
