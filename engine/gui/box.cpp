#include "engine/gui/box.hpp"

#include <numbers>

#include "engine/host/caught.hpp"

namespace tessora {

namespace {

constexpr int kThickest = 64;
// Larger boxes are smooth enough.
constexpr double kLargeSide = 128.0;

int line_thickness(GUI_Button& button) {
  const Number given = button.read(button.borderwidth);
  if (!(given > Number(0))) return 0;
  return given > Number(kThickest) ? kThickest : static_cast<int>(given.to_double());
}

// The middle of a box at the left edge, `wide` by `high` pixels on the screen. It turns with the
// widget, about the widget's centre.
render::Point box_center(GUI_Button& button, double side, int wide, int high, double turn) {
  constexpr double kDegree = std::numbers::pi / 180.0;
  if (turn == 0.0) {
    const Number down = button.read(button.WY) + (button.read(button.height) - Number(side)) *
                                                     Number(0.5) * button.read(button.WSY);
    const Number left = button.read(button.WX);
    return {left.to_double() + wide / 2.0, down.to_double() + high / 2.0};
  }
  const Number reach =
      (button.read(button.width) - Number(side)) * Number(0.5) * button.read(button.WSX);
  const render::Point middle = button.drawn_center();
  const double away = reach.to_double();
  return {middle.x - away * std::cos(turn * kDegree), middle.y + away * std::sin(turn * kDegree)};
}

void draw_box(GUI_Button& button, Value screen, Value picture, double side, const DrawnBox& drawn) {
  const Number across = Number(side) * button.read(button.WSX);
  const Number down = Number(side) * button.read(button.WSY);
  const std::optional<int> wide = pixels(across.to_double());
  const std::optional<int> high = pixels(down.to_double());
  if (!wide || !high) return;
  const double turn = button.drawn_angle();
  const render::Point center = box_center(button, side, *wide, *high, turn);
  const render::Canvas canvas(screen);
  if (picture.is_set()) {
    canvas.picture(picture, {*wide, *high, turn, 255, false, 0}, center, nullptr);
    return;
  }
  Ref color = button.read(button.borderColor_RB);
  const int thickness = line_thickness(button);
  const render::FaceKey key(drawn.kind, drawn.marked, color, thickness);
  const render::Size size{static_cast<double>(*wide), static_cast<double>(*high)};
  const int detail = side < kLargeSide ? drawn.detail : 1;
  const double fine = side * detail;
  canvas.sheet(key, {fine, fine}, size, turn, center, [&](const render::Canvas& sheet) {
    drawn.paint(sheet, color, fine, thickness * detail, drawn.marked);
  });
}

}  // namespace

void draw_box_and_text(GUI_Button& button, Value screen, const Slot& visible, Value picture,
                       Value text_color, const DrawnBox& drawn) {
  auto draw_text = [&] { message::drawText(button, screen, button.read(button.text), text_color); };
  if (!button.is_true(visible)) return draw_text();
  const Number side = button.read(button.height) - button.read(button.texttopgap);
  if (!(side > Number(0))) return draw_text();
  draw_box(button, screen, picture, side.to_double(), drawn);
  Ref left_gap = button.read(button.textleftgap);
  Ref top_gap = button.read(button.texttopgap);
  button.write(button.textleftgap, Number(left_gap) + side);
  host::with_cleanup(draw_text, [&] {
    button.write(button.textleftgap, left_gap);
    button.write(button.texttopgap, top_gap);
  });
}

}  // namespace tessora
