#include "engine/panels/list_box.hpp"

#include "engine/bars/scroll_bar.hpp"
#include "engine/gui/check_button.hpp"
#include "engine/object/wrong_attributes.hpp"

namespace tessora {

namespace {

using List = GUI_ListBox;

constexpr int kBarWidth = 20;

void settle_visible(Value node, bool wanted) {
  auto* known =
      message::SetVisible.direct<GameNode>(node, &host::native_setter<&GameNode::visible>);
  if (known == nullptr || !known->holds(known->visible, wanted)) message::SetVisible(node, wanted);
}

bool is_bar_dragged(Value bar) {
  auto* known = host::instance_of<GUI_VScrollBar>(bar);
  return known != nullptr && known->is_true(known->MidButtonPicked);
}

void settle_range(Value bar, const Number& most) {
  auto* known = host::instance_of<GUI_VScrollBar>(bar);
  double begin = 0.0;
  double end = 0.0;
  if (known != nullptr && known->holds_number(known->minvalue, begin) && begin == 0.0 &&
      known->holds_number(known->maxvalue, end) && most.plain() == end) {
    return;
  }
  bar.call("SetRange"_name, 0, most);
}

}  // namespace

void List::start_list_font() {
  constexpr int kFontSize = 16;
  start_font(*this, "Arial"_name, host::integer(kFontSize));
}

void List::make_scroll_bar() {
  const Number left = read(width) - Number(kBarWidth);
  Ref bar = host::make<GUI_VScrollBar>(*this, left, 0);
  message::SetHeight(bar, read(height));
  message::SetVisible(bar, false);
  bar.call("SetStep"_name, 1);
  write(VScrollBar, bar);
}

void List::begin_sunken() {
  message::SetStyle(*this, "sunken"_name);
}

void List::count_shown_lines() {
  const Number lines = read(height) / (read(lineHeight) + read(linegap));
  write(showlineCount, lines.truncated());
}

void let_go(Value node) {
  auto* known = host::instance_of<GameNode>(node);
  if (known != nullptr && known->is_true(known->clicked)) known->write(known->clicked, false);
}

void List::SetWidth(Value pixels) {
  write(width, pixels);
}

void List::SetHeight(Value pixels) {
  write(height, pixels);
  count_shown_lines();
}

void List::SetLineGap(Value gap) {
  write(linegap, gap);
  count_shown_lines();
}

// Scrolls as little as shows the line.
void List::reveal(Py_ssize_t index) {
  const Number place(index);
  const Number shown = read(showlineCount);
  if (!(shown > Number(0))) return;
  const Number last = place - shown + Number(1);
  if (read(lineIndex) > place) write(lineIndex, place);
  if (read(lineIndex) < last) write(lineIndex, last);
}

void List::SetSelectedIndex(Value index) {
  write(selectedIndex, index);
  const bool is_number = index.is_integer() || index.is_plain_real();
  const std::optional<std::int64_t> wanted = is_number ? Number(index).whole() : std::nullopt;
  Ref lines = read(lineArray);
  Py_ssize_t place = 0;
  for (Ref line : host::items(lines)) {
    const bool selected = wanted == place;
    message::SetChecked(line, selected);
    if (selected) reveal(place);
    ++place;
  }
}

Ref List::GetSelectedText() {
  const Number index = read(selectedIndex);
  if (!(index >= Number(0)) || !(index < Number(read(lineCount)))) return ""_name;
  Ref line = Ref(read(lineArray)).item(index.object());
  return line.call("GetText"_name);
}

void List::ClickItemFunction(Value item) {
  Ref lines = read(lineArray);
  Py_ssize_t place = 0;
  std::optional<Py_ssize_t> found;
  for (Ref line : host::items(lines)) {
    if (line.is(item)) {
      found = place;
    } else {
      message::SetChecked(line, false);
    }
    ++place;
  }
  if (!found) return;
  write(selectedIndex, Number(*found));
  // A click on the selected line must not unselect it.
  message::SetChecked(item, true);
}

// Lines that reach beyond the list take no press there.
Ref List::OnPickDownFunction(Value px, Value py) {
  if (!is_true(enable) || !is_visible(*this)) return host::none();
  if (!is_true(editrectenable) && !drawn_rect_contains(px, py)) return host::none();
  // The scroll bar lies over lines that are wider than their room.
  Ref bar = read(VScrollBar);
  auto* known = host::instance_of<GUI_VScrollBar>(bar);
  if (known != nullptr && is_visible(bar) && known->drawn_rect_contains(px, py)) {
    return message::OnPickDownFunction(bar, px, py);
  }
  return message::OnPickDownFunction.base<&GameNode::OnPickDownFunction, GUI_Image>(*this, px, py);
}

// The lines would take the release that ends a drag of the scroll bar, which they lie beside.
Ref List::OnPickUpFunction(Value px, Value py) {
  if (!is_visible(*this)) return host::none();
  Ref bar = read(VScrollBar);
  if (is_bar_dragged(bar)) {
    write(clicked, false);
    return message::OnPickUpFunction(bar, px, py);
  }
  Ref taker = host::none();
  if (is_true(enable)) {
    taker = message::OnPickUpFunction.base<&GameNode::OnPickUpFunction, GUI_Image>(*this, px, py);
  }
  bool is_line = false;
  Ref lines = read(lineArray);
  for (Ref line : host::items(lines)) is_line = is_line || line.is(taker);
  // The release stopped at the line under the pointer, not at the pressed one.
  let_go_of_lines();
  Ref callback = read(PickUpFunction);
  if (is_line && callback.is_set()) callback(*this);
  return taker;
}

void List::let_go_of_lines() {
  Ref lines = read(lineArray);
  for (Ref line : host::items(lines)) let_go(line);
}

void List::OnKeyDownFunction(Value key) {
  if (is_visible(*this) && is_true(enable)) {
    const Number selected = read(selectedIndex);
    const bool is_down = key.is_text("down"_name);
    if (is_down && selected < read(lineCount) - Number(1)) {
      message::SetSelectedIndex(*this, selected + Number(1));
    }
    if (!is_down && key.is_text("up"_name) && selected > Number(0)) {
      message::SetSelectedIndex(*this, selected - Number(1));
    }
  }
  message::OnKeyDownFunction.base<&GameNode::OnKeyDownFunction, GUI_Image>(*this, key);
}

// Whichever of the two moved since they agreed tells the other.
void List::agree_on_first_line(Value bar, const Number& most) {
  Number first = read(lineIndex);
  const Number shown = host::ask(message::GetValue, bar);
  if (!(shown == Number(agreed))) first = Number(shown.truncated());
  if (first > most) first = most;
  if (!(first >= Number(0))) first = 0;
  double now = 0.0;
  if (!holds_number(lineIndex, now) || first.plain() != now) write(lineIndex, first);
  agreed = first.to_double();
  if (most > Number(0)) settle_range(bar, most);
  if (!(shown == first)) bar.call("SetValue"_name, first);
}

void List::place_lines() {
  Ref lines = read(lineArray);
  const host::Items all = host::items(lines);
  const Number count = read(showlineCount);
  const Number most = Number(all.size()) - count;
  Ref bar = read(VScrollBar);
  agree_on_first_line(bar, most);
  const bool scrolls = is_true(VScrollBarVisible) && most > Number(0);
  settle_visible(bar, scrolls);
  const Number across = host::ask(message::GetWSX, *this);
  const Number down = host::ask(message::GetWSY, *this);
  const Number room = scrolls ? read(width) - Number(kBarWidth) : Number(read(width));
  // A parent's scale does not move its children.
  kBarAcross.settle_place(bar, (read(width) - Number(kBarWidth)) * across);
  kBarAcross.settle_breadth(bar, read(height));
  const Number pitch = read(lineHeight) + read(linegap);
  const double begin = Number(read(lineIndex)).to_double();
  const double end = begin + count.to_double();
  double place = 0.0;
  for (Ref line : all) {
    const bool shown = place >= begin && place < end;
    settle_visible(line, shown);
    if (shown) {
      kBarDown.settle_place(line, Number(place - begin) * pitch * down);
      auto* known = host::instance_of<GUI_Image>(line);
      if (known == nullptr || !known->is_true(known->autosize)) {
        kBarAcross.settle_length(line, room);
      }
    }
    ++place;
  }
}

void List::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    begin_draw(offset_x, offset_y, scale);
    place_lines();
    draw_picture_or_background(screen);
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

// Lines are cut at the list's edges and at its scroll bar; its border lies over them.
void List::draw_children(Value screen, Value offset_x, Value offset_y, Value scale) {
  Ref bar = read(VScrollBar);
  auto draw_lines = [&] {
    host::walk(*this, children, [&](Value child) {
      if (!child.is(bar)) draw_visible(child, screen, offset_x, offset_y, scale);
    });
  };
  if (drawn_angle() == 0.0) {
    render::Box box = drawn_box();
    if (bar.is_set() && is_visible(bar)) box.width -= kBarWidth * Number(read(WSX)).to_double();
    render::Canvas(screen).within(box, draw_lines);
  } else {
    draw_lines();
  }
  if (bar.is_set()) draw_visible(bar, screen, offset_x, offset_y, scale);
  message::drawStyle(*this, screen);
}

namespace {

void declare_rows(ListDeclaration& list) {
  list.attribute<&List::lineArray>("lineArray: list[GUI_CheckButton]",
                                   host::made<&host::new_list>(), "The lines from the top.");
  list.attribute<&List::lineCount>("lineCount: int", 0, "Number of lines.");
  list.attribute<&List::selectedIndex>("selectedIndex: int", -1,
                                       "The selected line, counted from 0; -1 for none.")
      .getter("GetSelectedIndex");
  list.attribute<&List::lineHeight>("lineHeight: float", 20, "Height of a line in pixels.")
      .getter("GetLineHeight");
  list.attribute<&List::linegap>("linegap: float", 2, "Distance between lines in pixels.")
      .getter("GetLineGap");
  list.attribute<&List::showlineCount>("showlineCount: int", host::unset(),
                                       "Number of lines that fit into the height.");
  list.step<&List::count_shown_lines>();
  list.attribute<&List::lineIndex>("lineIndex: int", 0,
                                   "First line that is shown, counted from 0.");
  list.attribute<&List::itemBGColor>("itemBGColor: pygame.Color", host::color(255, 255, 255),
                                     "Background of the lines that are not selected.")
      .getter("GetItemBGColor");
  list.attribute<&List::textColor>("textColor: pygame.Color", host::color(0, 0, 0),
                                   "Colour of the texts of lines that are not selected.")
      .getter("GetTextColor");
  list.attribute<&List::HAlign>(
          "HAlign: str", "left",
          "Horizontal alignment of the texts: \"left\", \"center\" or \"right\".")
      .getter("GetTextHAlign");
  list.attribute<&List::VAlign>(
          "VAlign: str", "center",
          "Vertical alignment of the texts: \"top\", \"center\" or \"bottom\".")
      .getter("GetTextVAlign");
  declare_font_rows(list);
  list.step<&List::start_list_font>();
  list.attribute<&List::VScrollBar>("VScrollBar: GUI_VScrollBar", host::unset(),
                                    "The scroll bar, whose value is the first line shown.");
  list.step<&List::make_scroll_bar>();
  list.attribute<&List::VScrollBarVisible>("VScrollBarVisible: bool", true,
                                           "Whether the scroll bar shows when not all lines fit.")
      .pair("GetVScrollBarVisible", "SetVScrollBarVisible", "flag");
  list.step<&List::begin_sunken>();
}

}  // namespace

void register_list_box(PyObject* module) {
  ListDeclaration list(module, "GUI_ListBox",
                       "A vertical list of lines, one of which is selected by click, by \"up\" and "
                       "\"down\" or by SetSelectedIndex.\n\n"
                       "`x` and `y` place the anchor in the parent, in pixels; a new list has 120 "
                       "x 100. Whole lines are shown; a scroll bar brings the others into view.\n\n"
                       ">>> levels = Tessora.GUI_ListBox(None, 10, 20)\n"
                       ">>> line = levels.AddTextLine(\"Easy\")\n"
                       ">>> levels.SetSelectedIndex(0)");
  list.constructor("(parent: GameNode | None = None, x: float = 0, y: float = 0)");
  list.sets<&List::NodeType>("ListBox").sets<&List::width>(120).sets<&List::height>(100);
  declare_rows(list);
  declare_list_lines(list);
  list.method<&List::SetHeight>("SetHeight(height: float) -> None",
                                "Set `height` in pixels and count the lines that fit.")
      .method<&List::SetWidth>("SetWidth(width: float) -> None", "Set `width` in pixels.")
      .method<&List::SetLineGap>("SetLineGap(gap: float) -> None",
                                 "Set `linegap`: distance between lines in pixels.")
      .method<&List::SetSelectedIndex>(
          "SetSelectedIndex(index: int) -> None",
          "Select a line, counted from 0, and show it; an index without a line selects none.")
      .method<&List::GetSelectedText>("GetSelectedText() -> str",
                                      "Return the text of the selected line, \"\" without one.")
      .method<&List::ClickItemFunction>(
          "ClickItemFunction(item: GUI_CheckButton) -> None",
          "Select a line, and no other; called with the line that is clicked.")
      .method<&List::OnPickDownFunction>(
          "OnPickDownFunction(px: float, py: float) -> GameNode | None",
          "Handle a press as a node does, but inside its rectangle only; a disabled list takes "
          "none.")
      .method<&List::OnPickUpFunction>(
          "OnPickUpFunction(px: float, py: float) -> GameNode | None",
          "Handle a release as a node does; `PickUpFunction` is called for one over a line, too.")
      .method<&List::OnKeyDownFunction>(
          "OnKeyDownFunction(keyname: Hashable) -> None",
          "Select the next line on \"down\" and the previous one on \"up\", unless the list is "
          "hidden or disabled; then run what is registered for the key.")
      .method<&List::draw_children>(
          "draw_children(screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, "
          "scale: float = 1.0) -> None",
          "Draw the lines, cut at the edges of the list, and over them the border.");
  declare_draw<&List::draw>(
      list, "Place the lines and draw the picture or background, the lines, border and overlays.");
  list.finish();
}

}  // namespace tessora
