// The one place from which lines, boxes, borders, texts and pictures reach a surface.
//
// Positions and sizes are in pixels and cut towards zero, as pygame cuts them. What misses the
// target's clip, and what pygame cannot place (NaN, infinity, beyond 2**30 pixels), draws nothing.
#pragma once

#include "engine/host/caught.hpp"
#include "engine/host/modules.hpp"
#include "engine/render/face_key.hpp"

namespace tessora::render {

using host::Ref;
using host::Value;

struct Point {
  double x, y;
};
struct Size {
  double width, height;
};
struct Box {
  double left, top, width, height;
};

// What a picture is made of, beside its source.
struct Recipe {
  int width, height;
  double angle;         // degrees; 0 is not rotated
  int opacity;          // 0 to 255
  bool tinted;          // multiplied by `color`
  std::uint32_t color;  // 0xRRGGBBAA
  bool operator==(const Recipe&) const = default;
};

// The finished text of a font, with per-pixel alpha. `width` and `height` are what the font's
// size() says; some versions of pygame render more rows than that.
struct TextFace {
  Ref picture;  // empty when there is nothing to see
  double width = 0.0;
  double height = 0.0;
  bool is_kept = false;
};

class Canvas;

// What paints a sheet; refers to a function of the caller's.
class SheetPainter {
 public:
  template <class Draw>
  // NOLINTNEXTLINE(google-explicit-constructor): a lambda is handed over as it is
  SheetPainter(const Draw& draw)
      : draw_(&draw), call_([](const void* function, const Canvas& canvas) {
          (*static_cast<const Draw*>(function))(canvas);
        }) {}
  void operator()(const Canvas& canvas) const { call_(draw_, canvas); }

 private:
  const void* draw_;
  void (*call_)(const void*, const Canvas&);
};

class Canvas {
 public:
  // The target: a surface, or any object that is drawn on in its place.
  explicit Canvas(Value surface) : surface_(surface) {}
  [[nodiscard]] Value surface() const { return surface_; }

  // Colours are whatever pygame takes for one.
  void fill(Value color, const Box& box) const;
  // `thickness` pixels inside the box; less than 1 draws nothing.
  void outline(Value color, const Box& box, int thickness) const;
  // A circle inside a square, of arcs; a filled one about a point.
  void ring(Value color, const Box& box, int thickness) const;
  void disc(Value color, const Point& center, double radius) const;
  void line(Value color, const Point& from, const Point& to, int thickness = 1) const;
  // A raised border, or with the colours exchanged a sunken one, of one-pixel lines inside the box.
  // The right and bottom edges own the shared corners.
  void relief(Value left_top, Value right_bottom, const Box& box, int thickness) const;

  // The picture as it is. `flags` are those of Surface.blit, None for none.
  void blit(Value picture, const Point& corner, Value flags = nullptr) const;
  void blit_centered(Value picture, const Point& center, Value flags = nullptr) const;

  // The source faded, scaled, rotated and tinted, centred on the point: pixel by pixel what faded()
  // and finished() give. Kept while the source's pixels stay the same.
  void picture(Value source, const Recipe& recipe, const Point& center, Value flags) const;

  // What `draw` paints on a transparent sheet of `sheet` pixels, scaled to `size`, rotated by
  // `angle` degrees unless that is 0, centred on the point. Kept under the key, which tells
  // everything that `draw` depends on.
  void sheet(const FaceKey& key, Size sheet, Size size, double angle, const Point& center,
             SheetPainter draw_on) const;
  // The same on a sheet without alpha, as pygame.Surface() makes it: what stays of `ground`, a
  // colour that `draw` does not use, becomes transparent. The key need not tell the ground.
  void keyed_sheet(const FaceKey& key, Value ground, Size sheet, Size size, double angle,
                   const Point& center, SheetPainter draw_on) const;

  // A text scaled to `size`, its corner at the point; the scaled text is kept.
  void text(const TextFace& face, Size size, const Point& corner) const;

  // Runs `draw` while nothing outside the box can be drawn on, if the target is a surface.
  template <class Draw>
  void within(const Box& box, Draw&& draw) const {
    Ref before = narrow_clip(box);
    host::with_cleanup(draw, [&] { set_clip(before); });
  }

 private:
  // Returns the clip as it was, or an empty reference when there is none.
  [[nodiscard]] Ref narrow_clip(const Box& box) const;
  void set_clip(Value rect) const;

  Ref surface_;
};

// The text in a colour, rendered smooth; kept while it is asked for again and again.
// Raises pygame.error for a font that was made before pygame was quit.
TextFace text_face(Value font, Value text, Value color);

// The picture of the text alone: a font of a script's own is not asked for its size.
Ref text_picture(Value font, Value text, Value color);

// What the font's size() says of a text, in pixels.
Size text_size(Value font, Value text);

// Forgets the texts of a font that may render otherwise from now on. What a font tells (bold,
// italic, underline, ...) is looked at by itself; what cannot be asked (set_script, set_direction)
// counts from the font's next hand-over to a widget.
void font_changed(Value font);

}  // namespace tessora::render
