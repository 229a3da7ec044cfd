// The attributes, frames and frame animation of the image widget.
#include "engine/image/image.hpp"

#include "engine/host/paths.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

bool is_atlas_name(Value files) {
  if (!files.is_text()) return false;
  Ref lowered = files.call("lower"_name);
  Ref ends = lowered.call("endswith"_name, ".plist"_name);
  return ends.is_true();
}

// What SetImage was given for one frame: a file to load, or the surface itself.
Ref frame_of(Value given) {
  return host::is_path(given) ? load_image(given) : Ref(given);
}

// What is left of an index that counts on past the last frame.
Number wrapped(const Number& index, const Number& count) {
  if (!(index >= count)) return index;
  const Number rest = index % count;
  if (rest < count) return rest;
  host::raise(PyExc_OverflowError, "imageIndex %S has no place among the frames", index.object());
}

}  // namespace

Ref resources_for(Value file) {
  Ref manager = host::engine_value("Res"_name);
  if (manager.is_none()) {
    host::raise(PyExc_AttributeError,
                "%R cannot be looked for: set Tessora.Res to a PyGameResManager first", file);
  }
  return manager;
}

Ref load_image(Value file) {
  Ref name = host::path_text(file);
  return resources_for(name).call("LoadImage"_name, name);
}

void GUI_Image::compute_place() {
  write(WX, message::GetWX(*this));
  write(WY, message::GetWY(*this));
}

void GUI_Image::show(Value surface) {
  write(image, surface);
  if (is_true(autosize)) message::AutoImageSize(*this, read(autosize));
}

void GUI_Image::set_frames(Value frames) {
  write(imageArray, frames);
  const Py_ssize_t count = frames.length();
  write(imageCount, Number(count));
  show(count == 0 ? host::none() : frames.item(0));
}

void GUI_Image::SetImage(Value files, Value switch_delay) {
  Ref name = host::path_text(files);
  if (is_atlas_name(name)) {
    message::LoadImageFramesPList(*this, name);
  } else if (files.is_none()) {
    set_frames(host::list());
    write(imageArray, Value(nullptr));
  } else {
    // A single surface of a script's own kind has no length; a sequence of files has.
    const bool is_one = name.is_text() || render::is_plain_surface(files) || !files.is_sequence();
    Ref frames = host::list();
    for (Ref each : host::items(is_one ? host::list(name) : files.to_list())) {
      frames.append(frame_of(each));
    }
    set_frames(frames);
  }
  write(imagefiles, files);
  write(imageSwitchDelay, switch_delay);
}

void GUI_Image::UseImage(Value original, Value auto_size) {
  write(originalImage, original);
  Ref source = read(originalImage);
  write(image, message::GetImage(source));
  message::AutoImageSize(*this, auto_size);
}

void GUI_Image::AutoImageSize(Value auto_size) {
  write(autosize, auto_size);
  if (!auto_size.equals_true()) return;
  Ref picture = read(image);
  if (!picture.is_set()) return;
  Ref rect = picture.call("get_rect"_name);
  write(width, rect.attr("width"_name));
  write(height, rect.attr("height"_name));
}

void GUI_Image::SwitchImage(Value index) {
  Ref frames = read(imageArray);
  // Only whole numbers within the frames count.
  if (!index.is_integer() || !frames.is_set()) return;
  const Number wanted(index);
  if (wanted < Number(0) || wanted >= Number(frames.length())) return;
  show(frames.item(index));
}

void GUI_Image::update(Value delay) {
  if (is_set(originalImage)) {
    Ref source = read(originalImage);
    show(message::GetImage(source));
  } else if (is_true(imageAutoSwitch) && read(imageCount) > Number(1)) {
    write(imageDelay, read(imageDelay) + Number(delay));
    if (read(imageDelay) >= read(imageSwitchDelay)) {
      const Number next = read(imageIndex) + Number(1);
      const Number count = read(imageCount);
      write(imageIndex, wrapped(next, count));
      message::SwitchImage(*this, read(imageIndex));
      write(imageDelay, read(imageDelay) - read(imageSwitchDelay));
    }
  }
  message::update.base<&GameNode::update>(*this, delay);
}

bool GUI_Image::CheckInViewPort() {
  Ref scene = read(sceneInstance);
  Ref port = scene.call("GetViewPort"_name);
  const host::Items sides = host::items(port);
  if (sides.size() != 4) {
    host::raise(PyExc_ValueError, "a viewport has four values: x, y, width, height");
  }
  const Number left = sides[0];
  const Number top = sides[1];
  const auto wx = host::ask(message::GetWX, *this);
  const auto wy = host::ask(message::GetWY, *this);
  return !(wx > left + Number(sides[2])) && !(wy > top + Number(sides[3])) &&
         !(wx + read(width) * read(WSX) < left) && !(wy + read(height) * read(WSY) < top);
}

namespace {

using I = GUI_Image;

// CopyTo calls these setters first, in this order.
enum CopyRank : std::uint8_t { kVisible, kWidth, kColor, kBlend };

void copy_blend_type(host::Object& from, Value to, const host::CopyRow& row) {
  auto& widget = static_cast<I&>(from);
  if (widget.is_unset(widget.blendtype)) return;
  Ref flag = widget.read(widget.blendtype);
  to.call(row.name, blend_name(flag));
}

void declare_frames(ImageDeclaration& d) {
  d.attribute<&I::bgColor>(
       "bgColor: pygame.Color | None", host::color(255, 255, 255),
       "Tint of the picture, or the background's colour without a picture; None for neither.")
      .getter("GetBGColor")
      .color_setter<host::Alpha::kGiven>("SetBGColor");
  d.attribute<&I::alpha>("alpha: float", 255, "Opacity of the picture, 0 to 255.");
  d.attribute<&I::image>("image: pygame.Surface | None", nullptr,
                         "The surface that is shown, or None.")
      .getter("GetImage");
  d.attribute<&I::imageArray>("imageArray: list[pygame.Surface | None] | None", nullptr,
                              "The frames, or None.");
  d.attribute<&I::imageFrameRectArray>(
      "imageFrameRectArray: dict[str, pygame.Rect]", host::empty_dict(),
      "Frames of the atlas: name to rectangle in the sheet, in pixels.");
  d.attribute<&I::imagefiles>("imagefiles: _ImageFiles", nullptr, "What SetImage was given.")
      .getter("GetImageFiles");
  d.attribute<&I::imageCount>("imageCount: int", 0, "Number of frames.").getter("GetImageCount");
  d.attribute<&I::imageIndex>("imageIndex: int", 0, "Frame of the animation, counted from 0.");
  d.attribute<&I::imageDelay>("imageDelay: float", 0,
                              "Seconds that have gone towards the next frame.");
  d.attribute<&I::imageSwitchDelay>("imageSwitchDelay: float", 0.1, "Seconds that a frame lasts.")
      .pair("GetSwitchImageDelay", "SetSwitchImageDelay", "delay");
  d.attribute<&I::imageAutoSwitch>("imageAutoSwitch: bool", false,
                                   "Whether the frame animation runs.")
      .setter("SetAutoSwitch", "flag");
  d.attribute<&I::plistFile>("plistFile: str | None", nullptr,
                             "Atlas that the frames came from, or None.")
      .getter("GetPlistFile");
  d.attribute<&I::currActionName>("currActionName: str | None", nullptr,
                                  "Name of the current animation, or None.")
      .getter("GetCurrActionName");
  d.attribute<&I::originalImage>("originalImage: GUI_Image | None", nullptr,
                                 "Widget whose picture is mirrored, or None.")
      .getter("GetOriginalImage");
  d.attribute<&I::autosize>("autosize: bool", false, "Whether the size follows the picture.")
      .getter("IsAutoImageSize");
  d.attribute<&I::blendtype>("blendtype: int", host::library_value("BLEND_MULT"),
                             "Flag with which the picture is blitted, as SetBlendType chooses it.")
      .getter("GetBlendType")
      .copies(&copy_blend_type, "SetBlendType", kBlend);
}

void declare_border_rows(ImageDeclaration& d) {
  d.attribute<&I::borderwidth>("borderwidth: int", 2, "Thickness of the border in pixels.")
      .pair("GetBorderWidth", "SetBorderWidth", "width")
      .copied_by("SetBorderWidth", kWidth);
  d.attribute<&I::borderVisible>("borderVisible: bool", false, "Whether the border is drawn.")
      .pair("IsBorderVisible", "SetBorderVisible", "flag")
      .copied_by("SetBorderVisible", kVisible);
  d.attribute<&I::borderColor>("borderColor: pygame.Color",
                               host::module_value("GUI_WINDOW_BGCOLOR"),
                               "Colour of the border in the style \"solid\".")
      .getter("GetBorderColor")
      .color_setter<host::Alpha::kOpaque>("SetBorderColor")
      .color_copied_by<host::Alpha::kOpaque>("SetBorderColor", kColor);
  d.attribute<&I::borderColor_LT>(
      "borderColor_LT: pygame.Color", host::color(218, 218, 218),
      "Light edge of the relief, left and top in the style \"raised\".");
  d.attribute<&I::borderColor_RB>(
      "borderColor_RB: pygame.Color", host::color(64, 64, 64),
      "Dark edge of the relief, right and bottom in the style \"raised\".");
  d.attribute<&I::imageAnchor>("imageAnchor: str", "wn",
                               "Keyword of the anchor, as SetImageAnchor takes it, in lower case.")
      .getter("GetImageAnchor");
  d.attribute<&I::coll_visible>("coll_visible: bool", false,
                                "Whether the collision rectangles are outlined.")
      .setter("SetCollInfoVisible", "flag");
  d.attribute<&I::coll_rectArray>(
       "coll_rectArray: dict[str, list[Any]]", host::empty_dict(),
       "Collision rectangles: name to a list of them, in unscaled pixels from the top-left corner.")
      .getter("GetCollRectArray");
  d.attribute<&I::style>("style: str | None", "flat",
                         "Style of the border: \"flat\", \"raised\", \"sunken\", \"solid\" or "
                         "\"hollow\" (no background), or None (no picture).")
      .getter("GetStyle");
  d.sets<&I::WSX, &I::WSY>(1.0).sets<&I::WAngle>(0.0).step<&I::compute_place>();
  d.attribute<&I::enable>("enable: bool", true, "Whether the widget takes input.")
      .pair("IsEnable", "SetEnable", "flag");
  d.hidden<&I::atlas_frames>();
}

void declare_frame_methods(ImageDeclaration& image) {
  image
      .method<&I::SetImage>(
          "SetImage(imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None",
          "Set the picture: a file name, a list of files (the frames), an atlas (\".plist\"), a "
          "surface, or None.\n\nFiles are loaded through `Res`: a file that it does not find "
          "leaves no picture, and AttributeError is raised while `Res` is not set. `switchdelay` "
          "is the time per frame in seconds. The running frame index is kept.")
      .method<&I::UseImage>("UseImage(originalImage: GUI_Image, autoSize: bool) -> None",
                            "Mirror the picture of another widget from now on; see AutoImageSize "
                            "for `autoSize`.\n\nRaises AttributeError for what is no widget.")
      .method<&I::AutoImageSize>(
          "AutoImageSize(autosize: bool) -> None",
          "Store the flag; while it is true the size follows the picture, from now on.")
      .method<&I::SwitchImage>(
          "SwitchImage(index: int) -> None",
          "Show frame `index`; an index out of range changes nothing. `imageIndex` is kept.")
      .method<&I::update>(
          "update(delay: float) -> None",
          "Advance the frame animation by `delay` seconds, at most one frame, then the node.\n\n"
          "Raises OverflowError for an `imageIndex` that is infinite.")
      .method<&I::CheckInViewPort>(
          "CheckInViewPort() -> bool",
          "Return whether the widget overlaps the scene's GetViewPort() (x, y, width, height); "
          "touching edges count.\n\nRaises AttributeError without a scene that has a viewport.");
}

}  // namespace

void register_image(PyObject* module) {
  ImageDeclaration image(
      module, "GUI_Image",
      "A widget with a picture, a frame animation or a plain background, and a border.\n\n"
      "`x` and `y` place the anchor relative to the parent's top-left corner, in pixels. Without a "
      "picture it is a white box of 100 x 100 pixels.\n\n"
      ">>> image = Tessora.GUI_Image(None, 10, 20)\n"
      ">>> image.SetImage(\"hero.png\")\n"
      "hero.png load:1\n"
      ">>> image.AutoImageSize(True)");
  image.constructor("(parent: GameNode | None = None, x: float = 0, y: float = 0)");
  image.sets<&I::NodeType>("Image");
  declare_frames(image);
  image.sets<&I::width, &I::height>(100);
  declare_border_rows(image);
  image.copies_rest();
  declare_frame_methods(image);
  declare_image_style(image);
  declare_image_atlas(image);
  declare_image_drawing(image);
  declare_image_border(image);
  image.finish();
}

}  // namespace tessora
