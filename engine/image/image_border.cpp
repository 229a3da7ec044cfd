// Borders and outlines of a widget.
#include "engine/host/caught.hpp"
#include "engine/image/image.hpp"

namespace tessora {

namespace {

using render::Canvas;

constexpr int kFocusWidth = 2;

struct Border {
  Ref left_top, right_bottom;
  bool outlined = false;  // in one colour
  int thickness = 0;

  explicit Border(GUI_Image& widget) {
    // What a border can hold in pixels: more would draw nothing new.
    constexpr int kMost = 4096;
    const Number given = widget.read(widget.borderwidth);
    if (given > Number(0))
      thickness = given > Number(kMost) ? kMost : static_cast<int>(given.to_double());
    Ref kind = widget.read(widget.style);
    if (kind.is_text("solid"_name)) {
      outlined = true;
      left_top = right_bottom = widget.read(widget.borderColor);
    } else if (kind.is_text("raised"_name)) {
      left_top = widget.read(widget.borderColor_LT);
      right_bottom = widget.read(widget.borderColor_RB);
    } else if (kind.is_text("sunken"_name)) {
      left_top = widget.read(widget.borderColor_RB);
      right_bottom = widget.read(widget.borderColor_LT);
    } else {
      thickness = 0;
    }
  }

  void draw(const Canvas& canvas, const render::Box& box) const {
    if (outlined) {
      canvas.outline(left_top, box, thickness);
    } else {
      canvas.relief(left_top, right_bottom, box, thickness);
    }
  }

  // A colour that the border does not have, to become transparent.
  [[nodiscard]] Ref ground() const {
    auto rgb = [](Value color) { return packed_color(color) >> 8U; };
    std::uint32_t blue = 0;
    while (blue == rgb(left_top) || blue == rgb(right_bottom)) ++blue;
    return host::tuple(0, 0, static_cast<int>(blue));
  }
};

}  // namespace

void GUI_Image::drawStyle(Value screen) {
  if (!is_true(borderVisible) || !is_visible(*this) || holds(style, "flat"_name)) return;
  const Border border(*this);
  if (border.thickness == 0) return;
  const Canvas canvas(screen);
  const double turn = drawn_angle();
  if (turn == 0.0) return border.draw(canvas, drawn_box());
  const render::Size unscaled = unscaled_size();
  const render::FaceKey key("border", border.outlined, border.left_top, border.right_bottom,
                            border.thickness);
  const render::Size drawn = drawn_size();
  canvas.keyed_sheet(
      key, border.ground(), unscaled, drawn, turn, drawn_center(),
      [&](const Canvas& sheet) { border.draw(sheet, {0, 0, unscaled.width, unscaled.height}); });
}

void GUI_Image::drawFocusBorder(Value screen) {
  if (!is_true(focusIn)) return;
  const Canvas canvas(screen);
  Ref color = host::engine_value("g_pygameControl_BorderColor"_name);
  const double turn = drawn_angle();
  if (turn == 0.0) return canvas.outline(color, drawn_box(), kFocusWidth);
  const render::Size unscaled = unscaled_size();
  const render::Size drawn = drawn_size();
  canvas.sheet(render::FaceKey("focus", color), unscaled, drawn, turn, drawn_center(),
               [&](const Canvas& sheet) {
                 const auto [wide, high] = unscaled;
                 const double right = wide - kFocusWidth;
                 const double bottom = high - kFocusWidth;
                 sheet.line(color, {0, 0}, {wide, 0}, kFocusWidth);
                 sheet.line(color, {0, 0}, {0, high}, kFocusWidth);
                 sheet.line(color, {right, 0}, {right, high}, kFocusWidth);
                 sheet.line(color, {0, bottom}, {wide, bottom}, kFocusWidth);
               });
}

void GUI_Image::outline_rect(Value screen, Value color, Value rect) {
  auto side = [&](Py_ssize_t index) { return Number(rect.item(index)); };
  const Number left = read(WX) + side(0) * read(WSX);
  const Number top = read(WY) + side(1) * read(WSY);
  const Number wide = side(2) * read(WSX);
  const Number high = side(3) * read(WSY);
  Canvas(screen).outline(
      color, {left.to_double(), top.to_double(), wide.to_double(), high.to_double()}, 1);
}

void GUI_Image::drawCollInfo(Value screen) {
  if (!is_true(coll_visible) || is_default(coll_rectArray)) return;
  Ref color = host::engine_value("g_pygameControl_CollColor"_name);
  Ref table = read(coll_rectArray);
  host::with_place("coll_rectArray"_name, [&] {
    for (Ref rects : host::items(table.call("values"_name))) {
      for (Ref rect : host::items(rects)) outline_rect(screen, color, rect);
    }
  });
}

void declare_image_border(ImageDeclaration& image) {
  image
      .method<&GUI_Image::drawStyle>("drawStyle(screen: pygame.Surface) -> None",
                                     "Draw the border of the style while `borderVisible` is true.")
      .method<&GUI_Image::drawFocusBorder>("drawFocusBorder(screen: pygame.Surface) -> None",
                                           "Outline the widget while it has the keyboard focus.")
      .method<&GUI_Image::drawCollInfo>(
          "drawCollInfo(screen: pygame.Surface) -> None",
          "Outline the collision rectangles while `coll_visible` is true.");
}

}  // namespace tessora
