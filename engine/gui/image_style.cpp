// Colours, blend mode, anchor and collision rectangles of the image widget, and copying it.
#include "engine/gui/image.hpp"

namespace tessora {

namespace {

struct AnchorKeyword {
  const char* keyword;
  double x;
  double y;
};

constexpr AnchorKeyword kAnchors[] = {
    {"wn", 0, 0},    {"n", 0.5, 0},  {"en", 1.0, 0},  {"w", 0, 0.5},    {"center", 0.5, 0.5},
    {"e", 1.0, 0.5}, {"ws", 0, 1.0}, {"s", 0.5, 1.0}, {"es", 1.0, 1.0},
};

// Whole fractions stay the integers that scripts write.
Ref fraction(double value) {
  return value == 0 ? host::integer(0) : host::real(value);
}

Ref blend_flag(PyObject* blend) {
  PyObject* name = "BLEND_MULT"_name;
  if (host::equals(blend, host::text("ADD").get())) name = "BLEND_ADD"_name;
  if (host::equals(blend, host::text("SUB").get())) name = "BLEND_SUB"_name;
  return host::modules::pygame[name];
}

Ref blend_name(const Ref& flag) {
  for (const char* name : {"ADD", "SUB"}) {
    Ref text = host::text(name);
    if (host::equals(flag.get(), blend_flag(text.get()).get())) return text;
  }
  return host::text("MULT");
}

}  // namespace

void GUI_Image::SetBGColor(PyObject* r, PyObject* g, PyObject* b, PyObject* a) {
  write(bgColor, make_color(r, g, b, a));
}

void GUI_Image::DropBGColor() {
  write(bgColor, Py_None);
}

void GUI_Image::SetBorderColor(PyObject* r, PyObject* g, PyObject* b) {
  write(borderColor, make_color(r, g, b, host::integer(255).get()));
}

void GUI_Image::SetBlendType(PyObject* blend) {
  write(blendtype, blend_flag(blend));
}

void GUI_Image::SetImageAnchor(PyObject* anchor) {
  Ref keyword = host::call_method(anchor, "lower"_name);
  write(imageAnchor, keyword);
  AnchorKeyword chosen{nullptr, 0, 0};
  for (const AnchorKeyword& known : kAnchors) {
    if (host::equals(keyword.get(), host::text(known.keyword).get())) chosen = known;
  }
  message::SetAXY(static_cast<PyObject*>(this), fraction(chosen.x), fraction(chosen.y));
}

void GUI_Image::AddCollRect(PyObject* name, PyObject* rect) {
  Ref rects = read(coll_rectArray);
  if (!host::contains(rects.get(), name)) host::set_item(rects.get(), name, host::list().get());
  host::call_method(host::get_item(rects.get(), name), "append"_name, rect);
}

void GUI_Image::CleanCollRect(PyObject* name) {
  Ref rects = read(coll_rectArray);
  if (host::contains(rects.get(), name)) {
    host::call_method(host::get_item(rects.get(), name), "clear"_name);
  }
}

Ref GUI_Image::GetCollRect(PyObject* name) {
  return host::get_item(read(coll_rectArray).get(), name);
}

namespace {

void call_setter(PyObject* other, PyObject* setter, const auto&... args) {
  host::call_method(other, setter, args...);
}

Ref copy_of(const Ref& value) {
  return host::call(host::import("copy", "copy"_name), value);
}

// A dictionary of lists, down to the lists.
Ref copy_of_table(const Ref& table) {
  Ref copy = copy_of(table);
  Ref keys = host::take(PySequence_List(copy.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(keys.get()); ++index) {
    PyObject* key = PyList_GET_ITEM(keys.get(), index);
    Ref entry = host::get_item(copy.get(), key);
    host::set_item(copy.get(), key, copy_of(entry).get());
  }
  return copy;
}

}  // namespace

void GUI_Image::CopyTo(PyObject* other) {
  Ref to = Ref::share(other);
  GameNode::CopyTo(other);
  call_setter(other, "SetBorderVisible"_name, read(borderVisible));
  call_setter(other, "SetBorderWidth"_name, read(borderwidth));
  Ref border = read(borderColor);
  call_setter(other, "SetBorderColor"_name, host::get_attr(border, "r"_name),
              host::get_attr(border, "g"_name), host::get_attr(border, "b"_name));
  call_setter(other, "SetBlendType"_name, blend_name(read(blendtype)));
  // Surfaces are shared; what scripts change in place is not.
  auto give = [&](const char* name, const Ref& value) {
    host::set_attr(other, Ref::steal(host::intern(name)).get(), value.get());
  };
  give("bgColor", copy_of(read(bgColor)));
  give("alpha", read(alpha));
  give("image", read(image));
  give("imageArray", copy_of(read(imageArray)));
  give("imageFrameRectArray", copy_of(read(imageFrameRectArray)));
  give("imagefiles",
       PyList_Check(imagefiles.object) ? copy_of(read(imagefiles)) : read(imagefiles));
  give("imageCount", read(imageCount));
  give("imageIndex", read(imageIndex));
  give("imageDelay", read(imageDelay));
  give("imageSwitchDelay", read(imageSwitchDelay));
  give("imageAutoSwitch", read(imageAutoSwitch));
  give("plistFile", read(plistFile));
  give("currActionName", read(currActionName));
  give("originalImage", read(originalImage));
  give("autosize", read(autosize));
  give("borderColor_LT", copy_of(read(borderColor_LT)));
  give("borderColor_RB", copy_of(read(borderColor_RB)));
  give("imageAnchor", read(imageAnchor));
  give("coll_visible", read(coll_visible));
  give("coll_rectArray", copy_of_table(read(coll_rectArray)));
  give("style", read(style));
  give("enable", read(enable));
}

namespace {

// Stores the style and whether the border is shown, in this order.
void set_style(GUI_Image& widget, PyObject* style, PyObject* border_visible) {
  widget.write(widget.style, style);
  widget.write(widget.borderVisible, border_visible);
}

Ref set_style_native(host::Object& self, PyObject* const* args) {
  set_style(static_cast<GUI_Image&>(self), args[0], args[1]);
  return host::none();
}

}  // namespace

void declare_image_style(ImageBuilder& builder) {
  builder.accessors<&GUI_Image::bgColor>("GetBGColor", nullptr, "color")
      .accessors<&GUI_Image::borderColor>("GetBorderColor", nullptr, "color")
      .accessors<&GUI_Image::borderwidth>("GetBorderWidth", "SetBorderWidth", "width")
      .accessors<&GUI_Image::borderVisible>("IsBorderVisible", "SetBorderVisible", "flag")
      .accessors<&GUI_Image::style>("GetStyle", nullptr, "style")
      .accessors<&GUI_Image::coll_visible>(nullptr, "SetCollInfoVisible", "flag")
      .accessors<&GUI_Image::coll_rectArray>("GetCollRectArray", nullptr, "rects");
  builder
      .method<&GUI_Image::SetBGColor>(
          "SetBGColor", {"r", "g", "b", {"a", 255}},
          "Set the tint or background colour; components from 0 to 255.")
      .method<&GUI_Image::DropBGColor>("DropBGColor", "Use no tint and no background.")
      .method<&GUI_Image::SetBorderColor>("SetBorderColor", {"r", "g", "b"},
                                          "Set the opaque border colour of the solid style.")
      .native_method<&set_style_native, 2>(
          "SetStyle", {"style", {"borderVisible", true}},
          "Set the border style and, by default, show the border.\n\nStyles: \"flat\", "
          "\"raised\", \"sunken\", \"solid\", \"hollow\" (no background).")
      .method<&GUI_Image::SetBlendType>(
          "SetBlendType", {"blendtype"},
          "\"ADD\" and \"SUB\" select pygame's BLEND_ADD and BLEND_SUB, anything else BLEND_MULT, "
          "which is drawn as a plain blit.")
      .method<&GUI_Image::SetImageAnchor>(
          "SetImageAnchor", {"anchor"},
          "Set the anchor by keyword: \"wn\", \"n\", \"en\", \"w\", \"center\", \"e\", \"ws\", "
          "\"s\", \"es\" in any case; others give the top-left corner.")
      .method<&GUI_Image::AddCollRect>(
          "AddCollRect", {"collName", "rect"},
          "Add a collision rectangle (unscaled pixels from the top-left corner) under a name.")
      .method<&GUI_Image::CleanCollRect>("CleanCollRect", {"collName"},
                                         "Empty the list of that name.")
      .method<&GUI_Image::GetCollRect>(
          "GetCollRect", {"collName"},
          "Return the list of rectangles of that name; KeyError for an unknown one.")
      .method<&GUI_Image::CopyTo>(
          "CopyTo", {"other"},
          "Copy the widget's state into `other`; surfaces are shared, lists and colours copied.");
}

}  // namespace tessora
