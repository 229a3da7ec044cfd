// The image widget: a picture, frames, an atlas, a border; base of all widgets.
#pragma once

#include "engine/core/scene_node.hpp"
#include "engine/render/picture_cache.hpp"

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

  void construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y);

  // Frames and state: image.cpp
  void SetImage(PyObject* files, PyObject* switch_delay);
  void UseImage(PyObject* original, PyObject* auto_size);
  void AutoImageSize(PyObject* auto_size);
  void SwitchImage(PyObject* index);
  void update(PyObject* delay);
  bool CheckInViewPort();
  // Makes a list of surfaces the frames and shows the first.
  void set_frames(const Ref& frames);
  void show(const Ref& surface);

  // Appearance: image_style.cpp
  void SetBGColor(PyObject* r, PyObject* g, PyObject* b, PyObject* a);
  void DropBGColor();
  void SetBorderColor(PyObject* r, PyObject* g, PyObject* b);
  void SetBlendType(PyObject* blend);
  void SetImageAnchor(PyObject* anchor);
  void AddCollRect(PyObject* name, PyObject* rect);
  void CleanCollRect(PyObject* name);
  Ref GetCollRect(PyObject* name);
  void CopyTo(PyObject* other);

  // Atlases: image_atlas.cpp
  void LoadImageFramesPList(PyObject* plist_file, PyObject* image_file);
  void LoadAnimationPlist(PyObject* plist_file, PyObject* action_name);

  // Drawing: image_drawing.cpp, image_border.cpp
  void draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  void drawimage(PyObject* screen, PyObject* picture);
  void drawBGColor(PyObject* screen, PyObject* color);
  void drawStyle(PyObject* screen);
  void drawFocusBorder(PyObject* screen);
  void drawCollInfo(PyObject* screen);

  // Steps that the other widgets share with draw().
  void draw_picture(PyObject* screen);
  void finish_draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  [[nodiscard]] bool is_hollow();
  // The drawn rectangle for pygame.draw, as floats.
  Ref drawn_box();
  // Blits `picture`, made in the unscaled size, scaled and rotated like the widget.
  void blit_rotated(PyObject* screen, const Ref& picture);

 private:
  void draw_faded_or_plain(PyObject* screen, PyObject* picture, int opacity);
};

namespace message {
inline const Message AutoImageSize{"AutoImageSize"};
inline const Message drawBGColor{"drawBGColor"};
inline const Message drawCollInfo{"drawCollInfo"};
inline const Message drawFocusBorder{"drawFocusBorder"};
inline const Message drawimage{"drawimage"};
inline const Message drawStyle{"drawStyle"};
inline const Message GetImage{"GetImage"};
inline const Message GetNodeType{"GetNodeType"};
inline const Message LoadImageFramesPList{"LoadImageFramesPList"};
inline const Message SwitchImage{"SwitchImage"};
}  // namespace message

// pygame.Color(r, g, b, a).
Ref make_color(PyObject* r, PyObject* g, PyObject* b, PyObject* a);
// A loader of `Res`, the module's resource manager.
Ref load_image(PyObject* file);

using ImageBuilder = host::ClassBuilder<GUI_Image>;
void declare_image_style(ImageBuilder& builder);
void declare_image_atlas(ImageBuilder& builder);
void declare_image_drawing(ImageBuilder& builder);
void register_image(PyObject* module);

}  // namespace tessora
