#include "engine/bars/scroll_bar.hpp"

#include "engine/object/wrong_attributes.hpp"

namespace tessora {

namespace {

constexpr int kThick = 20;
constexpr int kLong = 120;

// What the two kinds are called, and what is called after their ends.
struct Names {
  const char *kind, *type, *first, *last;
};
template <Along A>
constexpr Names kNames{};
template <>
constexpr Names kNames<Along::kAcross>{"HScrollBar", "GUI_HScrollBar", "Left", "Right"};
template <>
constexpr Names kNames<Along::kDown>{"VScrollBar", "GUI_VScrollBar", "Up", "Down"};

Ref press_method(const char* button) {
  return host::formatted("%sBtnPickDownFunction", button);
}

template <Along A>
Ref make_button(GUI_Image& bar, const Number& place, const char* button) {
  Ref method = press_method(button);
  return A == Along::kAcross ? make_bar_button(bar, place, 0, method)
                             : make_bar_button(bar, 0, place, method);
}

}  // namespace

template <Along A>
void ScrollBar<A>::make_first_button() {
  write(first_button, make_button<A>(*this, 0, kNames<A>.first));
}

template <Along A>
void ScrollBar<A>::make_thumb() {
  write(MidButton, make_button<A>(*this, kThick, "Mid"));
}

template <Along A>
void ScrollBar<A>::make_last_button() {
  const Number place = read(this->*bar_axis<A>().length) - Number(kThick);
  write(last_button, make_button<A>(*this, place, kNames<A>.last));
}

template <Along A>
void ScrollBar<A>::begin_raised() {
  message::SetStyle(*this, "raised"_name);
}

template <Along A>
Track ScrollBar<A>::track() {
  const host::Message& length_of = bar_axis<A>().get_length;
  Ref first = length_of(Ref(read(first_button)));
  Ref last = length_of(Ref(read(last_button)));
  Ref thumb = length_of(Ref(read(MidButton)));
  const Number whole = read(this->*bar_axis<A>().length);
  return {first, whole - Number(first) - Number(last) - Number(thumb), thumb};
}

template <Along A>
void ScrollBar<A>::place_thumb(const Track& track, const Number& scale) {
  const Number value = read(currvalue);
  const Number least = read(minvalue);
  const Number most = read(maxvalue);
  const Number place = track.begin + share_of(value, least, most) * track.length;
  bar_axis<A>().settle_place(Ref(read(MidButton)), place * scale);
}

template <Along A>
void ScrollBar<A>::step_back(Value) {
  if (read(currvalue) > read(minvalue)) {
    write(currvalue, read(currvalue) - read(step));
    if (read(currvalue) < read(minvalue)) write(currvalue, read(minvalue));
  }
  place_thumb(track(), 1);
}

template <Along A>
void ScrollBar<A>::step_on(Value) {
  if (read(currvalue) < read(maxvalue)) {
    write(currvalue, read(currvalue) + read(step));
    if (read(currvalue) > read(maxvalue)) write(currvalue, read(maxvalue));
  }
  place_thumb(track(), 1);
}

template <Along A>
void ScrollBar<A>::pick_thumb(Value) {
  write(MidButtonPicked, true);
}

template <Along A>
Ref ScrollBar<A>::OnPickDownFunction(Value px, Value py) {
  return press_if_enabled(*this, px, py);
}

template <Along A>
Ref ScrollBar<A>::OnPickUpFunction(Value px, Value py) {
  return release_value(*this, MidButtonPicked, px, py);
}

template <Along A>
void ScrollBar<A>::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    const BarAxis& axis = bar_axis<A>();
    // The pointer is compared with where the bar is now.
    message::draw_begin(*this, offset_x, offset_y, scale);
    const Track way = track();
    if (is_true(MidButtonPicked)) {
      const Number share = pointer_share(axis, *this, way);
      Ref least = read(minvalue);
      Ref most = read(maxvalue);
      write(currvalue, dragged_value(share, least, most, Ref(read(step))));
    }
    // A parent's scale does not move its children.
    const Number world_scale = host::ask(axis.world_scale, *this);
    place_thumb(way, world_scale);
    const Number last = way.begin + way.length + way.button;
    axis.settle_place(Ref(read(last_button)), last * world_scale);
    draw_picture_or_background(screen);
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

namespace {

template <Along A>
void register_scroll_bar(PyObject* module, const char* doc) {
  using Bar = ScrollBar<A>;
  constexpr Names kName = kNames<A>;
  const bool across = A == Along::kAcross;
  host::Declaration<Bar, GUI_Image> bar(module, kName.type, doc);
  auto text = [&](std::string chars) { return bar.keep(std::move(chars)); };
  auto button = [&](const char* name) { return text(std::string(name) + "Button: GUI_Button"); };
  auto press = [&](const char* name) {
    return text(std::string(name) + "BtnPickDownFunction(node: GameNode | None = None) -> None");
  };
  bar.constructor(kImageParameters);
  bar.template sets<&Bar::NodeType>(kName.kind);
  bar.template sets<&Bar::width>(across ? kLong : kThick);
  bar.template sets<&Bar::height>(across ? kThick : kLong);
  bar.template sets<&Bar::bgColor>(host::color(168, 168, 168));
  bar.template attribute<&Bar::first_button>(button(kName.first), host::unset(),
                                             "Button that takes a step back.");
  bar.template step<&Bar::make_first_button>();
  bar.template attribute<&Bar::MidButton>("MidButton: GUI_Button", host::unset(),
                                          "The thumb, a button to drag.")
      .getter("GetButton");
  bar.template step<&Bar::make_thumb>();
  bar.template attribute<&Bar::MidButtonPicked>("MidButtonPicked: bool", false,
                                                "Whether the thumb follows the pointer.");
  bar.template attribute<&Bar::last_button>(button(kName.last), host::unset(),
                                            "Button that takes a step on.");
  bar.template step<&Bar::make_last_button>();
  declare_range(bar, 0, 10);
  bar.template attribute<&Bar::rulerVisible>("rulerVisible: bool", true, "Free for scripts.");
  bar.template step<&Bar::begin_raised>();
  bar.template method<&Bar::step_back>(press(kName.first),
                                       "Take a step back, to `minvalue` at most.");
  bar.template method<&Bar::pick_thumb>(press("Mid"),
                                        "Let the thumb follow the pointer until a release.");
  bar.template method<&Bar::step_on>(press(kName.last), "Take a step on, to `maxvalue` at most.");
  bar.template method<&Bar::OnPickDownFunction>(kPressSignature, kPressDoc);
  bar.template method<&Bar::OnPickUpFunction>(
      kReleaseSignature,
      "End the drag of the thumb, handle the release as a node does and call "
      "`PickUpFunction`.\n\nA hidden or disabled bar does nothing.");
  declare_draw<&Bar::draw>(
      bar,
      "Follow the pointer during a drag, place the thumb and draw the bar and its "
      "buttons.\n\nRaises ZeroDivisionError when the ends of the range are equal.");
  bar.finish();
}

}  // namespace

void register_scroll_bars(PyObject* module) {
  register_scroll_bar<Along::kDown>(
      module,
      "An upright scroll bar: a value that goes in steps and a thumb to drag.\n\n"
      "`x` and `y` place the anchor in the parent, in pixels; a new bar has 20 x 120 and the range "
      "0 to 100. Set `PickUpFunction` to learn of a new value.\n\n"
      ">>> bar = Tessora.GUI_VScrollBar(None, 10, 20)\n"
      ">>> bar.SetRange(0, 40)");
  register_scroll_bar<Along::kAcross>(
      module,
      "A horizontal scroll bar: a value that goes in steps and a thumb to drag.\n\n"
      "`x` and `y` place the anchor in the parent, in pixels; a new bar has 120 x 20 and the range "
      "0 to 100. Set `PickUpFunction` to learn of a new value.\n\n"
      ">>> bar = Tessora.GUI_HScrollBar(None, 10, 20)\n"
      ">>> bar.SetRange(0, 40)");
}

}  // namespace tessora
