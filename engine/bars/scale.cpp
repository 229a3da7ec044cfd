#include "engine/bars/scale.hpp"

#include <algorithm>

#include "engine/object/wrong_attributes.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

constexpr double kTickLength = 4.0;
constexpr double kTickInset = 2.0;  // behind the border
// Ticks that stood nearer to each other would be one line.
constexpr double kLeastTickDistance = 3.0;

// A ruler in unscaled pixels of the scale.
struct Ruler {
  render::TextFace text;
  double text_left = 0.0;
  double text_top = 0.0;
  double tick_top = 0.0;
  double first_tick = 0.0;
  double tick_distance = 0.0;
  int ticks = 0;

  // How far it reaches beyond the widget, above as well as below.
  [[nodiscard]] double reach(double height) const {
    return std::max({0.0, -text_top, text_top + text.height - height});
  }

  void draw(const render::Canvas& canvas, Value color, const render::Point& corner,
            const render::Size& factor) const {
    for (int index = 0; index < ticks; ++index) {
      const double left = std::trunc(first_tick + index * tick_distance);
      canvas.fill(color, {corner.x + left * factor.width, corner.y + tick_top * factor.height,
                          std::max(1.0, factor.width), kTickLength * factor.height});
    }
    if (!text.picture) return;
    const render::NumberSize own = render::size_of(text.picture);
    const double wide = own.width.to_double() * factor.width;
    const double high = own.height.to_double() * factor.height;
    if (!pixels(wide) || !pixels(high)) return;
    canvas.text(text, {wide, high},
                {corner.x + text_left * factor.width, corner.y + text_top * factor.height});
  }
};

}  // namespace

void GUI_Scale::start_font() {
  constexpr int kFontSize = 16;
  write(font, font_when_needed("Arial"_name, host::integer(kFontSize)));
}

void GUI_Scale::make_button() {
  write(Button, make_bar_button(*this, 0, 0, "BtnPickDownFunction"_name));
}

void GUI_Scale::begin_sunken() {
  message::SetStyle(*this, "sunken"_name);
}

void GUI_Scale::pick_button(Value) {
  write(ButtonPicked, true);
}

Ref GUI_Scale::OnPickDownFunction(Value px, Value py) {
  return press_if_enabled(*this, px, py);
}

Ref GUI_Scale::OnPickUpFunction(Value px, Value py) {
  return release_value(*this, ButtonPicked, px, py);
}

Track GUI_Scale::track() {
  Ref button = message::GetWidth(Ref(read(Button)));
  return {0, read(width) - Number(button), button};
}

void GUI_Scale::draw_ruler(Value screen, const Track& track) {
  if (!is_true(rulerVisible)) return;
  const Number value = read(currvalue);
  const Number least = read(minvalue);
  const Number most = read(maxvalue);
  const Number stride = read(step);
  Ref color = read(textColor);
  Ref type = read(font);
  Ref place = read(textalign_V);
  const double gap = Number(read(texttopgap)).to_double();
  const double high = Number(read(height)).to_double();
  const bool is_above = place.is_text("top"_name);
  const bool is_below = place.is_text("bottom"_name);
  Ruler ruler;
  const double way = track.length.to_double();
  const double half = track.button.to_double() / 2;
  ruler.tick_top = is_above ? kTickInset : high - kTickInset - kTickLength;
  ruler.first_tick = half;
  ruler.tick_distance = share_of(least + stride, least, most).to_double() * way;
  if (ruler.tick_distance >= kLeastTickDistance) {
    ruler.ticks = static_cast<int>(std::min(way / ruler.tick_distance, 1e4)) + 1;
  }
  Ref shown = host::formatted("%S", value.object());
  ruler.text = render::text_face(type, shown, color);
  const double middle = half + share_of(value, least, most).to_double() * way;
  ruler.text_left = middle - ruler.text.width / 2;
  ruler.text_top = (high - ruler.text.height) / 2;
  if (is_above) ruler.text_top = -gap - ruler.text.height;
  if (is_below && !is_above) ruler.text_top = high + gap;
  const render::Canvas canvas(screen);
  const render::Size whole = drawn_size();
  const render::Size unscaled = unscaled_size();
  const render::Size factor{Number(read(WSX)).to_double(), Number(read(WSY)).to_double()};
  const double turn = drawn_angle();
  if (turn == 0.0) {
    const render::Box box = drawn_box();
    return ruler.draw(canvas, color, {box.left, box.top}, factor);
  }
  // Rotated about the widget's centre, on a sheet that has room for the text.
  const double reach = ruler.reach(high);
  const render::FaceKey key("ruler", render::FontPart{type}, shown, color, ruler.text_left,
                            ruler.text_top, ruler.tick_top, ruler.first_tick, ruler.tick_distance,
                            ruler.ticks);
  canvas.sheet(key, {unscaled.width, unscaled.height + 2 * reach},
               {whole.width, whole.height + 2 * reach * factor.height}, turn, drawn_center(),
               [&](const render::Canvas& sheet) { ruler.draw(sheet, color, {0, reach}, {1, 1}); });
}

void GUI_Scale::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    // The pointer is compared with where the scale is now.
    message::draw_begin(*this, offset_x, offset_y, scale);
    const Track way = track();
    if (is_true(ButtonPicked)) {
      const Number share = pointer_share(kBarAcross, *this, way);
      Ref least = read(minvalue);
      Ref most = read(maxvalue);
      write(currvalue, dragged_value(share, least, most, Ref(read(step))));
    }
    const Number value = read(currvalue);
    const Number least = read(minvalue);
    const Number most = read(maxvalue);
    // A parent's scale does not move its children.
    const Number world_scale = host::ask(message::GetWSX, *this);
    kBarAcross.settle_place(Ref(read(Button)),
                            share_of(value, least, most) * way.length * world_scale);
    draw_picture_or_background(screen);
    draw_ruler(screen, way);
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

void register_scale(PyObject* module) {
  using S = GUI_Scale;
  host::Declaration<S, GUI_Image> scale(
      module, "GUI_Scale",
      "A slider: a value that goes in steps, a button to drag, a ruler.\n\n"
      "`x` and `y` place the anchor in the parent, in pixels; a new scale has 120 x 20. Set "
      "`PickUpFunction` to learn of a new value.\n\n"
      ">>> volume = Tessora.GUI_Scale(None, 10, 20)\n"
      ">>> volume.SetRange(0, 10)\n"
      ">>> volume.SetValue(7)");
  scale.constructor(kImageParameters);
  scale.sets<&S::NodeType>("Scale").sets<&S::width>(120).sets<&S::height>(20);
  scale.attribute<&S::font>(
      "font: pygame.font.Font", host::unset(),
      "pygame.font.Font that renders the value, at first Arial of 16 pixels.");
  scale.step<&S::start_font>();
  scale
      .attribute<&S::textColor>("textColor: pygame.Color", host::color(255, 255, 255),
                                "Colour of the value and the ruler.")
      .color_setter<host::Alpha::kGiven>("SetTextColor");
  scale.attribute<&S::texttopgap>("texttopgap: float", 2,
                                  "Distance of the value from the scale in pixels.");
  scale
      .attribute<&S::textalign_V>(
          "textalign_V: str", "bottom",
          "Where the value stands: above (\"top\"), below (\"bottom\") or inside (anything else).")
      .pair("GetTextAlign", "SetTextAlign", "align");
  scale.sets<&S::bgColor>(host::color(168, 168, 168));
  scale.attribute<&S::Button>("Button: GUI_Button", host::unset(), "The button to drag.")
      .getter("GetButton");
  scale.step<&S::make_button>();
  scale.attribute<&S::ButtonPicked>("ButtonPicked: bool", false,
                                    "Whether the button follows the pointer.");
  declare_range(scale, 50, 20);
  scale.attribute<&S::rulerVisible>("rulerVisible: bool", true,
                                    "Whether the ruler and the value are drawn.");
  scale.step<&S::begin_sunken>();
  scale
      .method<&S::pick_button>("BtnPickDownFunction(node: GameNode | None = None) -> None",
                               "Let the button follow the pointer until a release.")
      .method<&S::OnPickDownFunction>(kPressSignature, kPressDoc)
      .method<&S::OnPickUpFunction>(
          kReleaseSignature,
          "End the drag of the button, handle the release as a node does and call "
          "`PickUpFunction`.\n\nA hidden or disabled scale does nothing.");
  declare_draw<&S::draw>(
      scale,
      "Follow the pointer during a drag, place the button and draw the scale, its ruler and "
      "value.\n\nRaises ZeroDivisionError when the ends of the range are equal.");
  scale.finish();
}

}  // namespace tessora
