// Pictures on the canvas.
#include "engine/pixels/surface.hpp"
#include "engine/render/clip.hpp"
#include "engine/render/face_cache.hpp"
#include "engine/render/picture_cache.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

constexpr int kOpaque = 255;

// pygame's flags as a machine number; nothing when pygame itself must say what it makes of them.
std::optional<int> plain_flags(Value flags) {
  int result = 0;
  if (flags.is_none()) return result;
  if (!flags.is_plain_integer() || !host::rect_integer(flags, result)) return std::nullopt;
  return result;
}

// The blit of one of pygame's own surfaces onto another.
void blit_plain(Value surface, Value picture, const Point& corner, Value flags) {
  static const host::Lasting method(surface_method("blit"_name));
  Ref place = host::tuple(static_cast<int>(corner.x), static_cast<int>(corner.y));
  if (flags.is_none()) {
    host::call_library(method, surface, picture, place);
  } else {
    host::call_library(method, surface, picture, place, nullptr, flags);
  }
}

// The blit method of whatever stands in for a surface.
void blit_by_name(Value surface, Value picture, const Point& corner, Value flags) {
  // Nobody else may paint on what is kept.
  Ref given = is_kept_face(picture) ? picture.call("copy"_name) : Ref(picture);
  Ref place = host::tuple(corner.x, corner.y);
  if (flags.is_none()) {
    surface.call("blit"_name, given, place);
  } else {
    host::call_method_with(surface, "blit"_name, {given, place}, "special_flags"_name, flags);
  }
}

// Draws by the engine's own loops, else by pygame.
void draw(Value surface, const SurfaceMemory& target, const Picture& picture, const Point& corner,
          int flags) {
  if (!is_visible(corner.x, corner.y, picture.width, picture.height, target.clip)) return;
  const auto left = static_cast<int>(corner.x);
  const auto top = static_cast<int>(corner.y);
  if (picture.source && paint(target, *picture.source, left, top, flags, picture.shade)) return;
  Ref given = flags == 0 ? host::none() : host::integer(flags);
  blit_plain(surface, picture.surface, corner, given);
}

Picture picture_of(const Kept& kept) {
  return {kept.surface, kept.width, kept.height, kept.source, {}};
}

Point corner_of(const Point& center, double width, double height) {
  return {center.x - width / 2.0, center.y - height / 2.0};
}

// Whether a picture so finished shows; one that pygame would refuse counts as visible.
bool shows(const SurfaceMemory& source, const Recipe& recipe, const Point& center,
           const PixelBox& clip) {
  constexpr int kLeastBytes = 3;
  if (recipe.width < 0 || recipe.height < 0) return true;
  if (source.pixel_bytes < kLeastBytes || source.locked) return true;
  if (source.width == 0 || source.height == 0) return false;
  const TurnedSize size = turned_size(recipe.width, recipe.height, recipe.angle);
  const Point corner = corner_of(center, size.width, size.height);
  return recipe.width != 0 && recipe.height != 0 &&
         is_visible(corner.x, corner.y, size.width, size.height, clip);
}

bool is_plain(const Recipe& recipe) {
  return recipe.width >= 0 && recipe.height >= 0 && recipe.opacity >= 0 &&
         recipe.opacity <= kOpaque && std::isfinite(recipe.angle);
}

enum class Place : bool { kCenter, kCorner };

// Draws from what is kept, if that can be done.
bool draw_kept(Value surface, Value source, const Recipe& recipe, Place place, const Point& point,
               Value flags) {
  std::optional<int> plain = plain_flags(flags);
  if (!plain || !is_plain(recipe) || !is_plain_surface(source) || !is_plain_surface(surface) ||
      !can_keep()) {
    return false;
  }
  std::optional<SurfaceMemory> memory = surface_memory(source);
  std::optional<SurfaceMemory> target = target_memory(surface);
  // What is drawn onto changes while it is drawn onto.
  if (!memory || !target || share_memory(*memory, *target)) return false;
  if (place == Place::kCenter && !shows(*memory, recipe, point, target->clip)) return true;
  std::optional<Picture> picture = find_picture(source, *memory, recipe, *target, *plain);
  if (!picture) return false;
  // Making it may have set a finaliser off.
  target = target_memory(surface);
  if (!target) return false;
  const Point corner =
      place == Place::kCorner ? point : corner_of(point, picture->width, picture->height);
  draw(surface, *target, *picture, corner, *plain);
  return true;
}

Ref whole_size(const Size& size) {
  Ref width = Number(size.width).truncated();
  Ref height = Number(size.height).truncated();
  return host::tuple(width, height);
}

Ref new_sheet(Value size, Value ground) {
  if (ground.is_none()) {
    Ref sheet = new_alpha_surface(size);
    sheet.call("fill"_name, host::tuple(0, 0, 0, 0));
    return sheet;
  }
  Ref type = host::modules::pygame["Surface"_name];
  Ref sheet = type(size);
  sheet.call("fill"_name, ground);
  Ref flags = host::modules::pygame["SRCCOLORKEY"_name];
  sheet.call("set_colorkey"_name, ground, flags);
  return sheet;
}

Ref make_sheet(Value ground, const Size& sheet_size, const Size& size, double angle,
               SheetPainter paint_on) {
  Ref pixels = whole_size(sheet_size);
  Ref target = whole_size(size);
  check_picture_size(sheet_size.width, sheet_size.height);
  Ref sheet = new_sheet(pixels, ground);
  paint_on(Canvas(sheet));
  // A rotation drops the colour key; per-pixel alpha survives it.
  if (!ground.is_none()) sheet = sheet.call("convert_alpha"_name);
  Ref picture = scaled(sheet, target);
  return angle == 0.0 ? picture : rotated(picture, Number(angle));
}

}  // namespace

void Canvas::blit(Value picture, const Point& corner, Value flags) const {
  if (!is_placeable(corner)) return;
  if (!is_plain_surface(surface_) || !is_plain_surface(picture)) {
    return blit_by_name(surface_, picture, corner, flags);
  }
  std::optional<int> plain = plain_flags(flags);
  std::optional<SurfaceMemory> memory = surface_memory(picture);
  std::optional<SurfaceMemory> target = target_memory(surface_);
  // pygame corrupts memory when two surfaces begin at the same byte of a script's buffer.
  if (memory && target && memory->pixels == target->pixels && memory->holder != target->holder) {
    Ref copy = surface_call(picture, "copy"_name);
    return blit_plain(surface_, copy, corner, flags);
  }
  if (plain && memory && target && !memory->locked) {
    draw(surface_, *target, {picture, memory->width, memory->height, paint_source(picture), {}},
         corner, *plain);
    return;
  }
  blit_plain(surface_, picture, corner, flags);
}

void Canvas::blit_centered(Value picture, const Point& center, Value flags) const {
  const NumberSize size = size_of(picture);
  const double width = size.width.to_double();
  const double height = size.height.to_double();
  blit(picture, corner_of(center, width, height), flags);
}

void Canvas::picture(Value source, const Recipe& recipe, const Point& center, Value flags) const {
  if (draw_kept(surface_, source, recipe, Place::kCenter, center, flags)) return;
  Ref image = source;
  if (recipe.opacity != kOpaque) {
    Ref opacity = host::integer(recipe.opacity);
    image = faded(image, opacity);
  }
  Ref size = host::tuple(recipe.width, recipe.height);
  Ref color = recipe.tinted ? unpacked_color(recipe.color) : host::none();
  Ref done = finished(image, size, Number(recipe.angle), color);
  blit_centered(done, center, flags);
}

void Canvas::text(const TextFace& face, Size size, const Point& corner) const {
  if (!face.picture) return;
  Recipe recipe{0, 0, 0.0, kOpaque, false, 0};
  const bool whole = host::rect_integer(size.width, recipe.width) &&
                     host::rect_integer(size.height, recipe.height);
  if (whole && is_placeable(corner)) {
    std::optional<SurfaceMemory> memory = surface_memory(face.picture);
    const bool same_size =
        memory && memory->width == recipe.width && memory->height == recipe.height;
    if (same_size && is_plain_surface(surface_) && can_keep()) return blit(face.picture, corner);
    if (face.is_kept &&
        draw_kept(surface_, face.picture, recipe, Place::kCorner, corner, nullptr)) {
      return;
    }
  }
  Ref done = scaled(face.picture, whole_size(size));
  blit(done, corner);
}

void Canvas::sheet(const FaceKey& key, Size sheet, Size size, double angle, const Point& center,
                   SheetPainter draw_on) const {
  keyed_sheet(key, nullptr, sheet, size, angle, center, draw_on);
}

void Canvas::keyed_sheet(const FaceKey& key, Value ground, Size sheet, Size size, double angle,
                         const Point& center, SheetPainter draw_on) const {
  FaceKey whole = key;
  whole.add(ground.is_none()).add(sheet.width).add(sheet.height);
  whole.add(size.width).add(size.height).add(angle);
  const bool plain = is_plain_surface(surface_);
  std::optional<SurfaceMemory> target = plain ? target_memory(surface_) : std::nullopt;
  const Face* face = target ? find_face(whole) : nullptr;
  if (face == nullptr) {
    Ref made = make_sheet(ground, sheet, size, angle, draw_on);
    if (target && is_plain_surface(made) && is_face_wanted(whole)) {
      const PixelSize pixels = surface_size(made);
      keep_face(whole, made, pixels.width, pixels.height);
    }
    return blit_centered(made, center);
  }
  draw(surface_, target.value(), picture_of(*face->kept),
       corner_of(center, face->width, face->height), 0);
}

}  // namespace tessora::render
