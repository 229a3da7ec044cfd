#include "engine/bars/progress_bar.hpp"

#include "engine/bars/track.hpp"
#include "engine/object/wrong_attributes.hpp"

namespace tessora {

namespace {

constexpr int kThick = 20;
constexpr int kLong = 100;
constexpr int kMarker = 2;

// A label as broad as the bar.
template <Along A>
Ref make_part(ProgressBar<A>& bar) {
  Ref made = host::make<GUI_Label>(bar);
  bar_axis<A>().settle_breadth(made, bar.read(bar.*bar_axis<A>().breadth));
  return made;
}

void set_background(Value label, int red, int green, int blue) {
  label.call("SetBGColor"_name, red, green, blue);
}

// The pictures of a part, in their own colours.
template <auto Part>
void set_part_images(host::SlotOwner<Part>& bar, Value files, Value switch_delay) {
  Ref part = bar.read(bar.*Part);
  part.call("SetImage"_name, files, switch_delay);
  part.call("DropBGColor"_name);
}

template <auto Part>
void set_part_visible(host::SlotOwner<Part>& bar, Value flag) {
  message::SetVisible(Ref(bar.read(bar.*Part)), flag);
}

}  // namespace

template <Along A>
void ProgressBar<A>::make_fill() {
  Ref fill = make_part(*this);
  // The two kinds differ in this colour.
  A == Along::kAcross ? set_background(fill, 64, 0, 0) : set_background(fill, 64, 64, 64);
  write(ProgressImage, fill);
}

template <Along A>
void ProgressBar<A>::make_marker() {
  Ref marker = make_part(*this);
  bar_axis<A>().settle_length(marker, kMarker);
  set_background(marker, 128, 128, 128);
  message::SetVisible(marker, false);
  write(PositionImage, marker);
}

template <Along A>
void ProgressBar<A>::begin_sunken() {
  message::SetStyle(*this, "sunken"_name);
}

template <Along A>
void ProgressBar<A>::place_fill() {
  const BarAxis& axis = bar_axis<A>();
  const Number value = read(currvalue);
  const Number least = read(minvalue);
  const Number most = read(maxvalue);
  const Number whole = read(this->*axis.length);
  Number filled = share_of(value, least, most) * whole;
  if (filled > whole) filled = whole;
  if (filled < Number(0)) filled = Number(0);
  const Number breadth = read(this->*axis.breadth);
  for (Slot* part : {&ProgressImage, &PositionImage})
    axis.settle_breadth(Ref(read(*part)), breadth);
  axis.settle_length(Ref(read(ProgressImage)), filled);
  // A parent's scale does not move its children.
  const Number scale = host::ask(axis.world_scale, *this);
  axis.settle_place(Ref(read(PositionImage)), (filled - Number(kMarker / 2)) * scale);
}

template <Along A>
void ProgressBar<A>::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] { place_fill(); });
  message::draw.base<&GUI_Label::draw>(*this, screen, offset_x, offset_y, scale);
  // The fill reaches into the border.
  message::drawStyle(*this, screen);
}

namespace {

template <Along A>
void register_progress_bar(PyObject* module, const char* name, const char* kind, const char* doc) {
  using Bar = ProgressBar<A>;
  const bool across = A == Along::kAcross;
  host::Declaration<Bar, GUI_Label> bar(module, name, doc);
  bar.constructor(kLabelParameters);
  bar.template sets<&Bar::NodeType>(kind);
  bar.template sets<&Bar::width>(across ? kLong : kThick);
  bar.template sets<&Bar::height>(across ? kThick : kLong);
  bar.template sets<&Bar::textColor>(host::color(255, 255, 255));
  bar.template attribute<&Bar::ProgressImage>("ProgressImage: GUI_Label", host::unset(),
                                              "The fill.")
      .getter("GetProgressImage");
  bar.template step<&Bar::make_fill>();
  bar.template attribute<&Bar::PositionImage>("PositionImage: GUI_Label", host::unset(),
                                              "The marker at the end of the fill.")
      .getter("GetPositionImages");
  bar.template step<&Bar::make_marker>();
  bar.template sets<&Bar::bgColor>(host::color(255, 255, 255));
  bar.template attribute<&Bar::minvalue>("minvalue: float", 0, "Value of an empty bar.");
  bar.template attribute<&Bar::maxvalue>("maxvalue: float", 100, "Value of a full bar.");
  bar.template pair<&Bar::minvalue, &Bar::maxvalue>("GetRange", "SetRange",
                                                    "(minvalue: float, maxvalue: float)");
  bar.template attribute<&Bar::currvalue>("currvalue: float", 50,
                                          "The value; what is set is not limited to the range.")
      .pair("GetValue", "SetValue", "value");
  bar.template step<&Bar::begin_sunken>();
  bar.template method<&set_part_images<&Bar::ProgressImage>>(
      "SetProgressImages(imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None",
      "Draw the fill as a picture, stretched to its size; see GUI_Image.SetImage.");
  bar.template method<&set_part_visible<&Bar::ProgressImage>>(
      "SetProgressImageVisible(flag: bool) -> None", "Show or hide the fill.");
  bar.template method<&set_part_images<&Bar::PositionImage>>(
      "SetPositionImages(imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None",
      "Draw the marker as a picture, stretched to its size; see GUI_Image.SetImage.");
  bar.template method<&set_part_visible<&Bar::PositionImage>>(
      "SetPositionImageVisible(flag: bool) -> None", "Show or hide the marker.");
  declare_draw<&Bar::draw>(
      bar,
      "Draw the bar with the fill for its value.\n\nRaises ZeroDivisionError when the ends of the "
      "range are equal.");
  bar.finish();
}

}  // namespace

void register_progress_bars(PyObject* module) {
  register_progress_bar<Along::kAcross>(module, "GUI_HProgressBar", "HProgressBar",
                                        "A value in a range as a bar that fills from the left.\n\n"
                                        "The arguments are those of a label; a new bar has 100 x "
                                        "20 pixels and the range 0 to 100.\n\n"
                                        ">>> life = Tessora.GUI_HProgressBar(None, 10, 20)\n"
                                        ">>> life.SetValue(75)");
  register_progress_bar<Along::kDown>(module, "GUI_VProgressBar", "VProgressBar",
                                      "A value in a range as a bar that fills from the top.\n\n"
                                      "The arguments are those of a label; a new bar has 20 x 100 "
                                      "pixels and the range 0 to 100.\n\n"
                                      ">>> depth = Tessora.GUI_VProgressBar(None, 10, 20)\n"
                                      ">>> depth.SetValue(75)");
}

}  // namespace tessora
