// Construction, frames and frame animation of the image widget.
#include "engine/gui/image.hpp"

#include "engine/host/attributes.hpp"

namespace tessora {

namespace {

PyObject* new_dictionary() {
  return PyDict_New();
}

template <int Red, int Green, int Blue>
PyObject* new_color() {
  return host::guarded<PyObject*>(nullptr, [] {
    return make_color(host::integer(Red).get(), host::integer(Green).get(),
                      host::integer(Blue).get(), host::integer(255).get())
        .release();
  });
}

constexpr int kDefaultSize = 100;
constexpr int kBorderWidth = 2;
constexpr double kSwitchDelay = 0.1;

bool is_atlas_name(PyObject* files) {
  if (!PyUnicode_Check(files)) return false;
  Ref lowered = host::call_method(files, "lower"_name);
  return host::is_true(host::call_method(lowered, "endswith"_name, host::text(".plist")));
}

Ref as_surface(PyObject* file) {
  return PyUnicode_Check(file) ? load_image(file) : Ref::share(file);
}

}  // namespace

Ref make_color(PyObject* r, PyObject* g, PyObject* b, PyObject* a) {
  return host::call(host::modules::pygame["Color"_name], r, g, b, a);
}

Ref load_image(PyObject* file) {
  return host::call_method(host::engine_value("Res"_name), "LoadImage"_name, file);
}

void GUI_Image::construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y) {
  static PyObject* const full = host::integer(255).release();
  static PyObject* const zero = host::integer(0).release();
  static PyObject* const size = host::integer(kDefaultSize).release();
  static PyObject* const border = host::integer(kBorderWidth).release();
  static PyObject* const delay = host::real(kSwitchDelay).release();
  static PyObject* const one_real = host::real(1.0).release();
  static PyObject* const zero_real = host::real(0.0).release();

  GameNode::construct(new_parent, new_x, new_y);
  write(NodeType, "Image"_name);
  write(bgColor, host::lazy_default<&new_color<255, 255, 255>>());
  write(alpha, full);
  write(image, Py_None);
  write(imageArray, Py_None);
  write(imageFrameRectArray, host::lazy_default<&new_dictionary>());
  write(imagefiles, Py_None);
  for (Slot* count : {&imageCount, &imageIndex, &imageDelay}) write(*count, zero);
  write(imageSwitchDelay, delay);
  write(imageAutoSwitch, false);
  for (Slot* unset : {&plistFile, &currActionName, &originalImage}) write(*unset, Py_None);
  write(autosize, false);
  write(blendtype, host::modules::pygame["BLEND_MULT"_name]);
  for (Slot* length : {&width, &height}) write(*length, size);
  write(borderwidth, border);
  write(borderVisible, false);
  write(borderColor, host::engine_value("GUI_WINDOW_BGCOLOR"_name));
  write(borderColor_LT, host::lazy_default<&new_color<218, 218, 218>>());
  write(borderColor_RB, host::lazy_default<&new_color<64, 64, 64>>());
  write(imageAnchor, "wn"_name);
  write(coll_visible, false);
  write(coll_rectArray, host::lazy_default<&new_dictionary>());
  write(style, "flat"_name);
  for (Slot* scale : {&WSX, &WSY}) write(*scale, one_real);
  write(WAngle, zero_real);
  write(WX, message::GetWX(static_cast<PyObject*>(this)));
  write(WY, message::GetWY(static_cast<PyObject*>(this)));
  write(enable, true);
}

void GUI_Image::show(const Ref& surface) {
  write(image, surface);
  if (is_true(autosize)) message::AutoImageSize(static_cast<PyObject*>(this), read(autosize));
}

void GUI_Image::set_frames(const Ref& frames) {
  write(imageArray, frames);
  Py_ssize_t count = host::length(frames.get());
  write(imageCount, Number(host::integer(count).get()));
  show(count == 0 ? host::none() : host::get_item(frames.get(), host::integer(0).get()));
}

void GUI_Image::SetImage(PyObject* files, PyObject* switch_delay) {
  Ref given = Ref::share(files);
  if (is_atlas_name(files)) {
    message::LoadImageFramesPList(static_cast<PyObject*>(this), files);
  } else if (files == Py_None) {
    set_frames(host::list());
    write(imageArray, Py_None);
  } else if (PyUnicode_Check(files) || render::is_plain_surface(files)) {
    set_frames(host::list(as_surface(files)));
  } else {
    Ref frames = host::list();
    Ref names = host::list(files);
    // A single surface of a script's own kind has no length; a sequence of files has.
    if (PySequence_Check(files) != 0) names = host::take(PySequence_List(files));
    for (Py_ssize_t index = 0; index < PyList_GET_SIZE(names.get()); ++index) {
      Ref frame = as_surface(Ref::share(PyList_GET_ITEM(names.get(), index)).get());
      host::check(PyList_Append(frames.get(), frame.get()));
    }
    set_frames(frames);
  }
  write(imagefiles, given);
  write(imageSwitchDelay, switch_delay);
}

void GUI_Image::UseImage(PyObject* original, PyObject* auto_size) {
  write(originalImage, original);
  write(image, message::GetImage(read(originalImage)));
  message::AutoImageSize(static_cast<PyObject*>(this), auto_size);
}

void GUI_Image::AutoImageSize(PyObject* auto_size) {
  write(autosize, auto_size);
  if (!host::equals_true(auto_size)) return;
  Ref picture = read(image);
  if (!host::is_set(picture)) return;
  Ref rect = host::call_method(picture, "get_rect"_name);
  write(width, host::get_attr(rect, "width"_name));
  write(height, host::get_attr(rect, "height"_name));
}

void GUI_Image::SwitchImage(PyObject* index) {
  Ref frames = read(imageArray);
  // Only whole numbers within the frames count.
  if (!PyLong_Check(index) || !host::is_set(frames)) return;
  Number wanted(index);
  Py_ssize_t count = host::length(frames.get());
  if (wanted < Number(0) || wanted >= Number(host::integer(count).get())) return;
  show(host::get_item(frames.get(), index));
}

void GUI_Image::update(PyObject* delay) {
  if (is_set(originalImage)) {
    show(message::GetImage(read(originalImage)));
  } else if (is_true(imageAutoSwitch) && number(imageCount) > Number(1)) {
    write(imageDelay, number(imageDelay) + Number(delay));
    if (number(imageDelay) >= number(imageSwitchDelay)) {
      Number index = number(imageIndex) + Number(1);
      Number count = number(imageCount);
      while (index >= count) index = index - count;
      write(imageIndex, index);
      message::SwitchImage(static_cast<PyObject*>(this), read(imageIndex));
      write(imageDelay, number(imageDelay) - number(imageSwitchDelay));
    }
  }
  GameNode::update(delay);
}

bool GUI_Image::CheckInViewPort() {
  Ref port = host::call_method(read(sceneInstance), "GetViewPort"_name);
  Ref sides = host::take(PySequence_List(port.get()));
  if (PyList_GET_SIZE(sides.get()) != 4) {
    host::raise(PyExc_ValueError, "a viewport has four values: x, y, width, height");
  }
  auto side = [&](Py_ssize_t index) { return Number(PyList_GET_ITEM(sides.get(), index)); };
  auto ask = [&](const host::Message& query) {
    return Number(query(static_cast<PyObject*>(this)).get());
  };
  return !(ask(message::GetWX) > side(0) + side(2)) && !(ask(message::GetWY) > side(1) + side(3)) &&
         !(ask(message::GetWX) + number(width) * number(WSX) < side(0)) &&
         !(ask(message::GetWY) + number(height) * number(WSY) < side(1));
}

namespace {

void declare_frames(ImageBuilder& builder) {
  builder.accessors<&GUI_Image::image>("GetImage", nullptr, "image")
      .accessors<&GUI_Image::originalImage>("GetOriginalImage", nullptr, "image")
      .accessors<&GUI_Image::imageCount>("GetImageCount", nullptr, "count")
      .accessors<&GUI_Image::imagefiles>("GetImageFiles", nullptr, "files")
      .accessors<&GUI_Image::plistFile>("GetPlistFile", nullptr, "file")
      .accessors<&GUI_Image::currActionName>("GetCurrActionName", nullptr, "name")
      .accessors<&GUI_Image::imageAnchor>("GetImageAnchor", nullptr, "anchor")
      .accessors<&GUI_Image::blendtype>("GetBlendType", nullptr, "blendtype")
      .accessors<&GUI_Image::autosize>("IsAutoImageSize", nullptr, "flag")
      .accessors<&GUI_Image::imageSwitchDelay>("GetSwitchImageDelay", "SetSwitchImageDelay",
                                               "delay")
      .accessors<&GUI_Image::imageAutoSwitch>(nullptr, "SetAutoSwitch", "flag")
      .accessors<&GUI_Image::enable>("IsEnable", "SetEnable", "flag");
  builder
      .method<&GUI_Image::SetImage>(
          "SetImage", {"imagefiles", {"switchdelay", 0.1}},
          "Set the picture: a file name, a list of files (the frames), an atlas (\".plist\"), a "
          "surface, or None.\n\nFiles are loaded through `Res`; `switchdelay` is the time per "
          "frame in seconds. The running frame index is kept.")
      .method<&GUI_Image::UseImage>(
          "UseImage", {"originalImage", "autoSize"},
          "Mirror the picture of another widget from now on; see AutoImageSize for `autoSize`.")
      .method<&GUI_Image::AutoImageSize>(
          "AutoImageSize", {"autosize"},
          "Store the flag; while it is true the size follows the picture, from now on.")
      .method<&GUI_Image::SwitchImage>(
          "SwitchImage", {"index"},
          "Show frame `index`; an index out of range changes nothing. `imageIndex` is kept.")
      .method<&GUI_Image::update>(
          "update", {"delay"},
          "Advance the frame animation by `delay` seconds, at most one frame, then the node.")
      .method<&GUI_Image::CheckInViewPort>(
          "CheckInViewPort",
          "Return whether the widget overlaps the scene's GetViewPort() (x, y, width, height); "
          "touching edges count.\n\nRaises AttributeError without a scene that has a viewport.");
}

}  // namespace

void register_image(PyObject* module) {
  ImageBuilder builder("GUI_Image", &host::class_info<GameNode>);
  builder.attribute("bgColor", &GUI_Image::bgColor, "tint or background colour, or None")
      .attribute("alpha", &GUI_Image::alpha, "opacity of the picture, 0 to 255")
      .attribute("image", &GUI_Image::image, "the current surface, or None")
      .attribute("imageArray", &GUI_Image::imageArray, "the frames, or None")
      .attribute("imageFrameRectArray", &GUI_Image::imageFrameRectArray,
                 "frame name to its rectangle in the atlas")
      .attribute("imagefiles", &GUI_Image::imagefiles, "what SetImage was given")
      .attribute("imageCount", &GUI_Image::imageCount, "number of frames")
      .attribute("imageIndex", &GUI_Image::imageIndex, "frame of the animation")
      .attribute("imageDelay", &GUI_Image::imageDelay, "time towards the next frame, seconds")
      .attribute("imageSwitchDelay", &GUI_Image::imageSwitchDelay, "time per frame, seconds")
      .attribute("imageAutoSwitch", &GUI_Image::imageAutoSwitch, "frame animation on or off")
      .attribute("plistFile", &GUI_Image::plistFile, "atlas that the frames came from, or None")
      .attribute("currActionName", &GUI_Image::currActionName, "current animation, or None")
      .attribute("originalImage", &GUI_Image::originalImage, "widget that is mirrored, or None")
      .attribute("autosize", &GUI_Image::autosize, "the size follows the picture")
      .attribute("blendtype", &GUI_Image::blendtype, "blend flag of the picture's blit")
      .attribute("borderwidth", &GUI_Image::borderwidth, "border thickness, pixels")
      .attribute("borderVisible", &GUI_Image::borderVisible, "whether the border is drawn")
      .attribute("borderColor", &GUI_Image::borderColor, "border colour of the solid style")
      .attribute("borderColor_LT", &GUI_Image::borderColor_LT, "light edge of the relief")
      .attribute("borderColor_RB", &GUI_Image::borderColor_RB, "dark edge of the relief")
      .attribute("imageAnchor", &GUI_Image::imageAnchor, "anchor keyword")
      .attribute("coll_visible", &GUI_Image::coll_visible, "draw the collision rectangles")
      .attribute("coll_rectArray", &GUI_Image::coll_rectArray,
                 "collision rectangles: name to a list")
      .attribute("style", &GUI_Image::style,
                 "\"flat\", \"raised\", \"sunken\", \"solid\", \"hollow\" or None")
      .attribute("enable", &GUI_Image::enable, "accepts input")
      .hidden(&GUI_Image::atlas_frames);
  builder.constructor<&GUI_Image::construct>(
      {{"parent", nullptr}, {"x", 0}, {"y", 0}},
      "A widget with a picture, a frame animation or a plain background, and a border.\n\n"
      "`x` and `y` place the anchor relative to the parent's top-left corner, in pixels. Without "
      "a picture it is a white box of 100 x 100 pixels.");
  declare_frames(builder);
  declare_image_style(builder);
  declare_image_atlas(builder);
  declare_image_drawing(builder);
  builder.finish(module);
}

}  // namespace tessora
