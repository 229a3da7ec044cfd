#include "engine/character/tracks.hpp"

#include <array>

#include "engine/actions/vectors.hpp"

namespace tessora {

namespace {

Point pair_of(Value value) {
  Number x = value.item(0);
  return {x, value.item(1)};
}

Ref color_of(Value value) {
  Ref make = host::modules::pygame["Color"_name];
  if (value.is_text() || value.is_integer()) return make(value);
  Ref red = value.item(0);
  Ref green = value.item(1);
  Ref blue = value.item(2);
  return value.length() == 3 ? make(red, green, blue) : make(red, green, blue, value.item(3));
}

void apply_image(GameCharacter& character, Value part, Value value) {
  character.set_part_image(part, value);
  message::AutoImageSize(part, true);
}

void apply_blend(GameCharacter&, Value part, Value value) {
  message::SetBlendType(part, value);
}

void apply_anchor(GameCharacter&, Value part, Value value) {
  message::SetImageAnchor(part, value);
}

void apply_position(GameCharacter&, Value part, Value value) {
  const Point place = pair_of(value);
  set_position(part, place.x, place.y);
}

void apply_scale(GameCharacter&, Value part, Value value) {
  const Point scale = pair_of(value);
  set_scale(part, scale.x, scale.y);
}

void apply_rotate(GameCharacter&, Value part, Value value) {
  message::SetAngle(part, value);
}

void apply_color(GameCharacter&, Value part, Value value) {
  Ref color = color_of(value);
  message::SetBGColor(part, color.item(0), color.item(1), color.item(2), color.item(3));
}

void play_sound(GameCharacter&, Value, Value value) {
  resources_for(value).call("PlaySound"_name, value);
  host::print_line(host::formatted("PlaySound:%S", value));
}

void blend_position(Value part, Value from, Value to, const Number& time) {
  const Point start = pair_of(from);
  const Point place = lerp(start, pair_of(to), time);
  set_position(part, place.x, place.y);
}

void blend_scale(Value part, Value from, Value to, const Number& time) {
  const Point start = pair_of(from);
  const Point scale = lerp(start, pair_of(to), time);
  set_scale(part, scale.x, scale.y);
}

void blend_rotate(Value part, Value from, Value to, const Number& time) {
  const Number start(from);
  message::SetAngle(part, start + (Number(to) - start) * time);
}

void blend_color(Value part, Value from, Value to, const Number& time) {
  Ref start = color_of(from);
  Ref color = start.call("lerp"_name, color_of(to), time);
  message::SetBGColor(part, color.item(0), color.item(1), color.item(2), color.item(3));
}

}  // namespace

const Track kTracks[kTrackCount] = {
    {"Image", "_ImageFiles", "the picture, as SetImage takes it or the name of a frame of an atlas",
     Kind::kFiles, &apply_image, nullptr, true},
    {"Blend", "str", "the blend mode, as SetBlendType takes it", Kind::kText, &apply_blend, nullptr,
     false},
    {"Anchor", "str", "the anchor's keyword, as SetImageAnchor takes it", Kind::kText,
     &apply_anchor, nullptr, false},
    {"Position", "Sequence[float]", "the place (x, y) in the character, pixels", Kind::kPair,
     &apply_position, &blend_position, false},
    {"Scale", "Sequence[float]", "the scale factors (sx, sy)", Kind::kPair, &apply_scale,
     &blend_scale, false},
    {"Rotate", "float", "the rotation in degrees, counter-clockwise", Kind::kNumber, &apply_rotate,
     &blend_rotate, false},
    {"Color", "_ColorValue", "the tint (r, g, b) or (r, g, b, a), 0 to 255 each", Kind::kColor,
     &apply_color, &blend_color, false},
    {"Sound", "str", "the sound file that `Res` plays when the frame is entered", Kind::kText,
     &play_sound, nullptr, true},
    {"CBFunction", "Callable[[GameCharacter], Any] | str",
     "what is called with the character when the frame is entered: a function, the name of one in "
     "`UserFunctionDict`, or what follows \"on_\" in the name of a method of the scene",
     Kind::kText, nullptr, nullptr, true},
    {"RectList", "Sequence[_RectValue]",
     "collision rectangles, unscaled pixels from the character's top-left corner, until another "
     "key "
     "frame sets them",
     Kind::kRects, nullptr, nullptr, false},
    {"TileBlock", "Any", "what a tile map makes of the frame", Kind::kAny, nullptr, nullptr, false},
};

Value track_name(const Track& track) {
  static const std::array<Value, kTrackCount> names = [] {
    std::array<Value, kTrackCount> made;
    for (std::size_t index = 0; index < kTrackCount; ++index) {
      made[index] = host::intern(kTracks[index].name);
    }
    return made;
  }();
  return names[static_cast<std::size_t>(&track - kTracks)];
}

Number seconds(Value value) {
  if (!value.is_text()) {
    if (Number plain = value; plain.is_plain()) return plain;
  }
  return host::import("builtins", "float"_name)(value);
}

}  // namespace tessora
