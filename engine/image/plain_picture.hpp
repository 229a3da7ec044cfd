// Still pictures that are drawn by the thousand in changing places, such as tiles.
#pragma once

#include "engine/image/image.hpp"
#include "engine/object/slot_copy.hpp"
#include "engine/pixels/surface_memory.hpp"

namespace tessora {

// A target and a camera in machine numbers.
struct PlainView {
  render::PixelBox clip;
  double offset_x, offset_y, scale;

  // Nothing where the target is no surface of pygame's, or a number none that the machine has.
  static std::optional<PlainView> of(Value screen, Value offset_x, Value offset_y, Value scale);
};

// A widget of which draw() shows the picture and nothing else, and runs no script but the scene's.
// What it looks like is worked out once; a look at its attributes tells whether that still holds.
class PlainPicture {
 public:
  // Nothing for any other object.
  static std::unique_ptr<PlainPicture> of(Value node, double scale);

  [[nodiscard]] bool is_of(Value node) const { return held_.is(node); }
  [[nodiscard]] bool is_current() const;
  // Whether drawing it is told to a scene.
  [[nodiscard]] bool has_scene() const { return !widget_.holds(widget_.sceneInstance, nullptr); }
  // Where it shows, relative to its place, both in drawn pixels.
  [[nodiscard]] render::Box reach() const;

  // Whether the picture shows anything of itself at a place.
  [[nodiscard]] bool shows(const PlainView& view, render::Point place) const;
  // SetXY() and what draw() caches. The place is given as the widget takes it, and as machine
  // numbers.
  void put(const PlainView& view, Value left, Value top, render::Point place);
  // The rest of draw(): what is seen, and what the scene is told.
  void draw(Value screen);
  void tell_scene() { widget_.tell_scene(); }

 private:
  // One direction.
  struct Extent {
    double anchored;  // from the place to the edge, unscaled as the world is
    double zoom;      // what WSX or WSY becomes
    double middle;    // from the drawn edge to the centre
    double length;    // of the drawn picture

    [[nodiscard]] double edge(double place, double scale, double offset) const {
      return (0.0 + place - anchored) * scale + offset;
    }
    [[nodiscard]] double corner(double edge) const { return edge + middle - length / 2.0; }
  };

  explicit PlainPicture(GUI_Image& widget);
  bool measure(double scale);

  GUI_Image& widget_;
  Ref held_;
  host::SlotCopy above_, shape_, look_;
  Extent across_{}, down_{};
  double turn_ = 0.0;
};

}  // namespace tessora
