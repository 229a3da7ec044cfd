// The image widget: a picture, frames, an atlas, a border; base of all widgets.
#pragma once

#include "engine/core/scene_node.hpp"

namespace tessora {

struct GUI_Image : GameNode {
  LazySlot bgColor;
  Slot alpha, image, imageArray;
  LazySlot imageFrameRectArray;
  Slot imagefiles, imageCount, imageIndex, imageDelay, imageSwitchDelay, imageAutoSwitch;
  Slot plistFile, currActionName, originalImage, autosize, blendtype;
  Slot borderwidth, borderVisible, borderColor;
  LazySlot borderColor_LT, borderColor_RB;
  Slot imageAnchor, coll_visible;
  LazySlot coll_rectArray;
  Slot style, enable;

  Slot atlas_frames;  // frame name to surface, of the atlas read last; not for scripts

  // Frames: image.cpp
  void compute_place();
  void SetImage(Value files, Value switch_delay);
  void UseImage(Value original, Value auto_size);
  void AutoImageSize(Value auto_size);
  void SwitchImage(Value index);
  void update(Value delay);
  bool CheckInViewPort();
  // Makes a list of surfaces the frames and shows the first.
  void set_frames(Value frames);
  void show(Value surface);

  // Appearance: image_style.cpp
  void DropBGColor();
  void SetStyle(Value kind, Value border_visible);
  void SetBlendType(Value blend);
  void SetImageAnchor(Value anchor);
  void AddCollRect(Value name, Value rect);
  void CleanCollRect(Value name);
  Ref GetCollRect(Value name);
  void CopyTo(Value other);

  // Atlases: image_atlas.cpp
  void LoadImageFramesPList(Value plist_file, Value image_file);
  void LoadAnimationPlist(Value plist_file, Value action_name);

  // Drawing: image_drawing.cpp
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void drawimage(Value screen, Value picture);
  void drawBGColor(Value screen, Value color);
  // Steps that the other widgets share with draw().
  void begin_draw(Value offset_x, Value offset_y, Value scale);
  void draw_picture_or_background(Value screen);
  void draw_picture_or_background(Value screen, const Slot& shown, LazySlot& background);
  void finish_draw(Value screen, Value offset_x, Value offset_y, Value scale);
  [[nodiscard]] bool is_hollow();
  // The picture as the last draw_begin() placed it.
  void draw_shown(Value screen, Value picture, int opacity);
  // The angle of the last draw; 0 is not rotated.
  [[nodiscard]] double drawn_angle();

  // Tells the scene, if there is one, that the widget has been drawn.
  void tell_scene();

  // Borders: image_border.cpp
  void drawStyle(Value screen);
  void drawFocusBorder(Value screen);
  void drawCollInfo(Value screen);
  // Outlines a rectangle given in unscaled pixels from the top-left corner.
  void outline_rect(Value screen, Value color, Value rect);
};

namespace message {
inline Message AutoImageSize{"AutoImageSize"};
inline Message drawBGColor{"drawBGColor"};
inline Message drawCollInfo{"drawCollInfo"};
inline Message drawFocusBorder{"drawFocusBorder"};
inline Message drawimage{"drawimage"};
inline Message drawStyle{"drawStyle"};
inline Message GetImage{"GetImage"};
inline Message GetNodeType{"GetNodeType"};
inline Message LoadImageFramesPList{"LoadImageFramesPList"};
inline Message SetBGColor{"SetBGColor"};
inline Message SetBlendType{"SetBlendType"};
inline Message SetImage{"SetImage"};
inline Message SetImageAnchor{"SetImageAnchor"};
inline Message SetStyle{"SetStyle"};
inline Message SwitchImage{"SwitchImage"};
}  // namespace message

// A length in whole pixels, cut towards zero; nothing when no picture is so large. ValueError for a
// negative one and for NaN, OverflowError for infinity.
std::optional<int> pixels(double length);

// A colour's components, 0xRRGGBBAA; pygame's error for what is no colour.
std::uint32_t packed_color(Value color);
// The name under which SetBlendType selects the flag.
Ref blend_name(Value flag);

// The resource manager, which is to find `file`; AttributeError while Tessora.Res is not set.
Ref resources_for(Value file);
// What it loads from a file, named by a text or a path.
Ref load_image(Value file);

// The animations of a property-list file among the resources: name to a dictionary of "frames" and
// "delay".
Ref read_animations(Value file);
// A number, also where it is written as a text.
Ref number_of(Value value);

// A method that loads a file into one attribute and records its name in another, if there is one.
template <auto Picture, auto... File>
void load_picture(host::SlotOwner<Picture>& widget, Value file) {
  Ref loaded = load_image(file);
  widget.write(widget.*Picture, loaded);
  (widget.write(widget.*File, file), ...);
}

// Declares a widget's draw().
template <auto Draw, class Declaration>
Declaration& declare_draw(Declaration& widget, const char* doc) {
  return widget.template method<Draw>(
      "draw(screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, "
      "scale: float = 1.0) -> None",
      widget.keep(std::string(doc) +
                  "\n\n`offsetX`, `offsetY` (pixels) and `scale` are the camera."));
}

using ImageDeclaration = host::Declaration<GUI_Image, GameNode>;
void declare_image_style(ImageDeclaration& image);
void declare_image_atlas(ImageDeclaration& image);
void declare_image_drawing(ImageDeclaration& image);
void declare_image_border(ImageDeclaration& image);
void register_image(PyObject* module);

}  // namespace tessora
