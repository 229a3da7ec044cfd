// The text of an edit, its window, and typing.
#include "engine/gui/edit.hpp"

#include <algorithm>

#include "engine/gui/text_ruler.hpp"

namespace tessora {

namespace {

using E = GUI_Edit;

bool is_one_of(Value key, std::initializer_list<Value> names) {
  return std::ranges::any_of(names, [&](Value each) { return key.is_text(each); });
}

bool is_modifier(Value key) {
  return is_one_of(key, {"left alt"_name, "right alt"_name, "left shift"_name, "right shift"_name,
                         "left ctrl"_name, "right ctrl"_name, "caps lock"_name});
}

void write_place(E& edit, Slot& slot, Py_ssize_t place) {
  if (!(edit.read(slot) == Number(place))) edit.write(slot, Number(place));
}

void begin_sunken(E& edit) {
  message::SetStyle(edit, "sunken"_name);
}

}  // namespace

void GUI_Edit::SetText(Value content) {
  const Py_ssize_t length = content.length();
  write(text, content);
  write(text_begin_index, 0);
  write(text_end_index, Number(length));
  if (read(cursorPos) > Number(length)) write(cursorPos, Number(length));
}

void GUI_Edit::SetWidth(Value w) {
  write(width, w);
  shown_text();
}

Py_ssize_t GUI_Edit::place_of(const Slot& slot, Py_ssize_t length) {
  const Number place = read(slot);
  if (!(place > Number(0))) return 0;
  if (place >= Number(length)) return length;
  return static_cast<Py_ssize_t>(std::clamp(place.to_double(), 0.0, static_cast<double>(length)));
}

double GUI_Edit::text_room() {
  const double gap = Number(read(textleftgap)).to_double();
  return Number(read(width)).to_double() - gap - std::max(gap, kCursorWidth);
}

Ref GUI_Edit::shown_text() {
  Ref content = read(text);
  Ref type = read(font);
  auto key = [&] {
    render::FaceKey parts("window", render::FontPart{type});
    for (const Slot* slot :
         {&showChar, &width, &textleftgap, &cursorPos, &text_begin_index, &text_end_index}) {
      Ref value = read(*slot);
      parts.add(Value(value));
    }
    return parts;
  };
  Ref known = read(window_text);
  if (known.is(content)) {
    const render::FaceKey now = key();
    if (now.is_known() && Ref(read(window_key)).bytes() == now.bytes()) return read(window_shown);
  }
  TextRuler ruler(*this, content);
  const Py_ssize_t length = ruler.length();
  const double room = text_room();
  const Py_ssize_t cursor = place_of(cursorPos, length);
  const Py_ssize_t old_begin = std::min(place_of(text_begin_index, length), cursor);
  const Py_ssize_t guess = place_of(text_end_index, length) - old_begin;
  Py_ssize_t begin = ruler.first_fitting(cursor, old_begin, room, guess);
  const Py_ssize_t end = std::max(cursor, ruler.last_fitting(begin, length, room, guess));
  // Nothing stays empty on the right while there is text on the left.
  if (end == length) begin = std::min(begin, ruler.first_fitting(length, 0, room, guess));
  write_place(*this, text_begin_index, begin);
  write_place(*this, text_end_index, end);
  Ref shown = content.slice(begin, end);
  const render::FaceKey found = key();
  write(window_key, host::bytes_object(found.is_known() ? found.bytes() : ""));
  write(window_text, content);
  write(window_shown, shown);
  return shown;
}

bool GUI_Edit::takes_keys() {
  return is_visible(*this) && is_true(enable) && is_true(focusIn);
}

void GUI_Edit::insert(Value piece) {
  Ref content = read(text);
  const Py_ssize_t length = content.length();
  if (!(Number(length) < Number(read(max_char_count)))) return;
  const Py_ssize_t place = place_of(cursorPos, length);
  Ref front = content.slice(0, place);
  Ref head = host::joined(front, piece);
  const Py_ssize_t behind = head.length();
  write(text, host::joined(head, content.slice(place, length)));
  write(cursorPos, Number(behind));
}

void GUI_Edit::call_return() {
  Ref callback = read(ReturnCallBackFunc);
  if (callback.is_set()) callback(*this);
}

void GUI_Edit::edit_text(Value key) {
  Ref content = read(text);
  const Py_ssize_t length = content.length();
  const Py_ssize_t place = place_of(cursorPos, length);
  if (key.is_text("right"_name)) {
    write(cursorPos, Number(std::min(place + 1, length)));
  } else if (key.is_text("left"_name)) {
    write(cursorPos, Number(std::max<Py_ssize_t>(place - 1, 0)));
  } else if (key.is_text("backspace"_name)) {
    if (place == 0) return;
    Ref front = content.slice(0, place - 1);
    write(text, host::joined(front, content.slice(place, length)));
    write(cursorPos, Number(place - 1));
  } else if (key.is_text("return"_name)) {
    call_return();
  } else if (key.is_text("space"_name)) {
    insert(" "_name);
  } else if (key.is_text("tab"_name)) {
    insert("    "_name);
  } else if (!is_modifier(key)) {
    insert(key);
  }
}

void GUI_Edit::OnKeyDownFunction(Value key) {
  if (!takes_keys()) {
    return message::OnKeyDownFunction.base<&GameNode::OnKeyDownFunction, GUI_Label>(*this, key);
  }
  edit_text(key);
  shown_text();
}

void register_edit(PyObject* module) {
  host::Declaration<E, GUI_Label> edit(
      module, "GUI_Edit",
      "A line of text to type into.\n\n"
      "The arguments are those of a label; a new edit is a dark grey, sunken box of 100 x 100 "
      "pixels with black text. A press gives it the focus and sets the cursor, a press elsewhere "
      "takes the focus away. Keys reach it by their names in pygame.key.name().\n\n"
      ">>> edit = Tessora.GUI_Edit(None, 10, 20, \"Ann\")\n"
      ">>> edit.SetReturnCallBackFunc(lambda edit: print(\"Hello\", edit.GetText()))");
  edit.constructor(kLabelParameters);
  edit.sets<&E::NodeType>("Edit");
  edit.attribute<&E::cursorColor>("cursorColor: pygame.Color", host::color(255, 255, 255),
                                  "Colour of the cursor.")
      .getter("GetCursorColor")
      .color_setter<host::Alpha::kOpaque>("SetCursorColor");
  edit.sets<&E::bgColor>(host::color(96, 96, 96));
  edit.attribute<&E::bgColor_focusIn>("bgColor_focusIn: pygame.Color", host::color(96, 96, 96),
                                      "Background colour while the edit has the focus.")
      .getter("GetBGColor_Focus")
      .color_setter<host::Alpha::kOpaque>("SetBGColor_Focus");
  edit.attribute<&E::image_focusIn>(
          "image_focusIn: pygame.Surface | None", nullptr,
          "Picture while the edit has the focus, or None for the usual one.")
      .getter("GetImage_focusIn");
  edit.attribute<&E::image_focusIn_File>("image_focusIn_File: str", "",
                                         "File name of the picture with the focus.")
      .getter("GetImageFile_focusIn");
  edit.attribute<&E::cursorPos>("cursorPos: int", 0, "Number of characters before the cursor.")
      .setter("SetCursorPosition", "cursorPos");
  edit.attribute<&E::cursorshowtime>("cursorshowtime: float", 0.5,
                                     "Seconds that the cursor shows, and that it hides.");
  edit.attribute<&E::cursorlasttime>(
      "cursorlasttime: float", 0.0,
      "When the cursor last appeared or vanished, in seconds of time.time().");
  edit.attribute<&E::cursorvisible>("cursorvisible: bool", false,
                                    "Whether the cursor shows at the moment.");
  edit.attribute<&E::text_begin_index>("text_begin_index: int", 0,
                                       "Index of the first character that is shown.");
  edit.attribute<&E::text_end_index>("text_end_index: int", 0,
                                     "Index behind the last character that is shown.");
  edit.attribute<&E::max_char_count>("max_char_count: int", 50,
                                     "Number of characters from which on keys insert nothing.")
      .setter("SetMaxCharCount", "count");
  edit.sets<&E::HAlign>("left").sets<&E::VAlign>("center");
  edit.attribute<&E::ReturnCallBackFunc>(
          "ReturnCallBackFunc: Callable[[GUI_Edit], Any] | None", nullptr,
          "Called with the edit when Return is pressed in it, or None.")
      .setter("SetReturnCallBackFunc", "func");
  edit.step<&begin_sunken>();
  edit.hidden<&E::window_key>().hidden<&E::window_text>().hidden<&E::window_shown>();
  edit.method<&load_picture<&E::image_focusIn, &E::image_focusIn_File>>(
          "SetImage_FocusIn(file: str) -> None",
          "Load `image_focusIn` through `Res` and record its file.\n\nA file that `Res` does not "
          "find leaves None; AttributeError while `Res` is not set.")
      .method<&E::SetText>(
          "SetText(text: str) -> None",
          "Set the text and show its begin; the cursor stays within it.\n\nRaises TypeError for "
          "what has no length.")
      .method<&E::SetWidth>("SetWidth(width: float) -> None",
                            "Set the width in pixels; the cursor stays in the part that shows.")
      .method<&E::OnKeyDownFunction>(
          "OnKeyDownFunction(keyname: Hashable) -> None",
          "Handle a key by its name, as of pygame.key.name(): with the focus it moves the cursor "
          "or changes the text, else the function registered for it is called.");
  declare_edit_drawing(edit);
  edit.finish();
}

}  // namespace tessora
