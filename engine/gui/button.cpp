#include "engine/gui/button.hpp"

namespace tessora {

namespace {

template <int Grey>
PyObject* new_grey() {
  return host::guarded<PyObject*>(nullptr, [] {
    Ref level = host::integer(Grey);
    return make_color(level.get(), level.get(), level.get(), host::integer(255).get()).release();
  });
}

Ref opaque(PyObject* r, PyObject* g, PyObject* b) {
  return make_color(r, g, b, host::integer(255).get());
}

}  // namespace

void GUI_Button::construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y,
                           PyObject* new_text, PyObject* font_name, PyObject* font_size) {
  GUI_Label::construct(new_parent, new_x, new_y, new_text, font_name, font_size);
  write(NodeType, "Button"_name);
  write(PickDownFunction, Py_None);
  write(PickUpFunction, Py_None);
  write(textColor, host::lazy_default<&new_black>());
  write(bgColor, host::lazy_default<&new_grey<168>>());
  write(textColor_hover, host::lazy_default<&new_black>());
  write(bgColor_hover, host::lazy_default<&new_grey<128>>());
  write(image_hover, Py_None);
  write(image_hover_File, Py_None);
  write(image_click_File, Py_None);
  write(textColor_click, host::lazy_default<&new_black>());
  write(bgColor_click, host::lazy_default<&new_grey<96>>());
  write(image_click, Py_None);
  write(borderVisible, true);
  host::call_method(static_cast<PyObject*>(this), "SetStyle"_name, host::text("raised"));
}

// A disabled button takes no press, for itself or its children.
Ref GUI_Button::OnPickDownFunction(PyObject* px, PyObject* py) {
  return is_true(enable) ? GUI_Label::OnPickDownFunction(px, py) : host::none();
}

// Disabled while it was pressed, it must not stay pressed.
Ref GUI_Button::OnPickUpFunction(PyObject* px, PyObject* py) {
  if (is_true(enable)) return GUI_Label::OnPickUpFunction(px, py);
  if (is_visible(this)) write(clicked, false);
  return host::none();
}

void GUI_Button::SetImage_Hover(PyObject* file) {
  Ref name = Ref::share(file);
  write(image_hover, load_image(file));
  write(image_hover_File, name);
}

void GUI_Button::SetImage_Click(PyObject* file) {
  Ref name = Ref::share(file);
  write(image_click, load_image(file));
  write(image_click_File, name);
}

void GUI_Button::SetBGColor_Hover(PyObject* r, PyObject* g, PyObject* b) {
  write(bgColor_hover, opaque(r, g, b));
}
void GUI_Button::SetBGColor_Click(PyObject* r, PyObject* g, PyObject* b) {
  write(bgColor_click, opaque(r, g, b));
}
void GUI_Button::SetTextColor_Hover(PyObject* r, PyObject* g, PyObject* b) {
  write(textColor_hover, opaque(r, g, b));
}
void GUI_Button::SetTextColor_Click(PyObject* r, PyObject* g, PyObject* b) {
  write(textColor_click, opaque(r, g, b));
}

bool GUI_Button::is_hovered() {
  if (!host::is_text(read(NodeType).get(), "Button"_name)) return false;
  Ref pointer = host::call(host::modules::mouse["get_pos"_name]);
  if (PyTuple_CheckExact(pointer.get()) && PyTuple_GET_SIZE(pointer.get()) == 2) {
    return drawn_rect_contains(PyTuple_GET_ITEM(pointer.get(), 0),
                               PyTuple_GET_ITEM(pointer.get(), 1));
  }
  return host::equals_true(host::call_method(drawn_rect(), "collidepoint"_name, pointer));
}

void GUI_Button::draw_state(PyObject* screen, LazySlot& background, const Slot& picture,
                            LazySlot& words) {
  auto* self = static_cast<PyObject*>(this);
  if (!is_hollow()) message::drawBGColor(self, screen, read(background));
  if (is_set(picture)) message::drawimage(self, screen, read(picture));
  message::drawText(self, screen, read(text), read(words));
}

void GUI_Button::draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale) {
  auto* self = static_cast<PyObject*>(this);
  if (!is_visible(self)) return;
  message::draw_begin(self, offset_x, offset_y, scale);
  if (is_set(style)) {
    if (is_true(clicked)) {
      draw_state(screen, bgColor_click, image_click, textColor_click);
    } else if (is_hovered()) {
      draw_state(screen, bgColor_hover, image_hover, textColor_hover);
    } else {
      draw_state(screen, bgColor, image, textColor);
    }
  }
  finish_draw(screen, offset_x, offset_y, scale);
}

void GUI_Button::CopyTo(PyObject* other) {
  Ref to = Ref::share(other);
  GUI_Label::CopyTo(other);
  Ref kind = message::GetNodeType(to);
  bool known = false;
  for (PyObject* type : {"Button"_name, "CheckButton"_name, "RadioButton"_name}) {
    known = known || host::is_text(kind.get(), type);
  }
  if (!known) return;
  auto copy_color = [&](PyObject* setter, const Ref& color) {
    host::call_method(to, setter, host::get_attr(color, "r"_name), host::get_attr(color, "g"_name),
                      host::get_attr(color, "b"_name));
  };
  copy_color("SetTextColor_Hover"_name, read(textColor_hover));
  copy_color("SetTextColor_Click"_name, read(textColor_click));
  copy_color("SetBGColor_Hover"_name, read(bgColor_hover));
  copy_color("SetBGColor_Click"_name, read(bgColor_click));
  if (is_set(image_hover_File))
    host::call_method(to, "SetImage_Hover"_name, read(image_hover_File));
  if (is_set(image_click_File))
    host::call_method(to, "SetImage_Click"_name, read(image_click_File));
}

void register_button(PyObject* module) {
  host::ClassBuilder<GUI_Button> builder("GUI_Button", &host::class_info<GUI_Label>);
  builder.attribute("textColor_hover", &GUI_Button::textColor_hover, "text colour, pointer inside")
      .attribute("bgColor_hover", &GUI_Button::bgColor_hover, "background, pointer inside")
      .attribute("image_hover", &GUI_Button::image_hover, "picture, pointer inside, or None")
      .attribute("image_hover_File", &GUI_Button::image_hover_File,
                 "file name of the hovered state's picture, or None")
      .attribute("image_click_File", &GUI_Button::image_click_File,
                 "file name of the pressed state's picture, or None")
      .attribute("textColor_click", &GUI_Button::textColor_click, "text colour while pressed")
      .attribute("bgColor_click", &GUI_Button::bgColor_click, "background while pressed")
      .attribute("image_click", &GUI_Button::image_click, "picture while pressed, or None");
  builder.constructor<&GUI_Button::construct>(
      {{"parent", nullptr},
       {"x", 0},
       {"y", 0},
       {"text", ""},
       {"fontname", "Arial"},
       {"fontsize", 16}},
      "A label that reacts to the mouse: normal, hovered and pressed.\n\nAssign "
      "`PickDownFunction` or `PickUpFunction` to learn of presses and releases.");
  builder.accessors<&GUI_Button::clicked>("IsClicked", nullptr, "flag")
      .method<&GUI_Button::SetImage_Hover>(
          "SetImage_Hover", {"imagefile"},
          "Load the picture of the hovered state through `Res` and record its file.")
      .accessors<&GUI_Button::image_hover>("GetImage_Hover", nullptr, "image")
      .accessors<&GUI_Button::image_hover_File>("GetImageFile_Hover", nullptr, "file")
      .method<&GUI_Button::SetBGColor_Hover>("SetBGColor_Hover", {"r", "g", "b"},
                                             "Set the opaque background of the hovered state.")
      .accessors<&GUI_Button::bgColor_hover>("GetBGColor_Hover", nullptr, "color")
      .method<&GUI_Button::SetTextColor_Hover>("SetTextColor_Hover", {"r", "g", "b"},
                                               "Set the opaque text colour of the hovered state.")
      .accessors<&GUI_Button::textColor_hover>("GetTextColor_Hover", nullptr, "color")
      .method<&GUI_Button::SetImage_Click>(
          "SetImage_Click", {"imagefile"},
          "Load the picture of the pressed state through `Res` and record its file.")
      .accessors<&GUI_Button::image_click>("GetImage_Click", nullptr, "image")
      .accessors<&GUI_Button::image_click_File>("GetImageFile_Click", nullptr, "file")
      .method<&GUI_Button::SetBGColor_Click>("SetBGColor_Click", {"r", "g", "b"},
                                             "Set the opaque background of the pressed state.")
      .accessors<&GUI_Button::bgColor_click>("GetBGColor_Click", nullptr, "color")
      .method<&GUI_Button::SetTextColor_Click>("SetTextColor_Click", {"r", "g", "b"},
                                               "Set the opaque text colour of the pressed state.")
      .accessors<&GUI_Button::textColor_click>("GetTextColor_Click", nullptr, "color")
      .method<&GUI_Button::OnPickDownFunction>(
          "OnPickDownFunction", {"x", "y"},
          "Handle a press as a node does; a disabled button takes none.")
      .method<&GUI_Button::OnPickUpFunction>(
          "OnPickUpFunction", {"x", "y"},
          "Handle a release as a node does; a disabled button only stops being pressed.")
      .method<&GUI_Button::draw>(
          "draw", {"screen", {"offsetX", 0}, {"offsetY", 0}, {"scale", 1.0}},
          "Draw the look of the current state, the border, overlays and children.\n\n"
          "`offsetX`, `offsetY` (pixels) and `scale` are the camera.")
      .method<&GUI_Button::CopyTo>(
          "CopyTo", {"other"},
          "Copy the label part and, into a button, the colours and pictures of its states.");
  builder.finish(module);
}

}  // namespace tessora
