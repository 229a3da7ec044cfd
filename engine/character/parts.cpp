// The parts of the action that is played: making, mirroring and drawing them.
#include "engine/character/tracks.hpp"

namespace tessora {

namespace {

using C = GameCharacter;

Ref mirrored(Value picture, bool across, bool down) {
  return picture.is_set() ? host::modules::transform["flip"_name](picture, across, down)
                          : Ref(picture);
}

// Mirrors what a part shows, and its other frames.
void mirror(Value part, bool across, bool down) {
  Ref shown = part.attr("image"_name);
  Ref frames = part.attr("imageArray"_name);
  Ref picture = mirrored(shown, across, down);
  if (frames.is_list()) {
    Ref others = host::list();
    for (Ref frame : host::items(frames)) {
      others.append(frame.is(shown) ? picture : mirrored(frame, across, down));
    }
    part.set_attr("imageArray"_name, others);
  }
  part.set_attr("image"_name, picture);
}

Ref first_frame(Value frames) {
  Ref first;
  for (Ref index : host::items(frames)) {
    if (!first || Number(index) < Number(first)) first = index;
  }
  return first ? frames.item(first) : first;
}

// Containers are copied, what they hold is shared.
Ref copy_of(Value value) {
  host::RecursionGuard guard;
  if (value.is_list()) {
    Ref copy = host::list();
    for (Ref item : host::items(value)) copy.append(copy_of(item));
    return copy;
  }
  if (!value.is_dict()) return value;
  Ref copy = host::dictionary();
  for (const host::Entry& each : host::entries(value)) copy.set_item(each.key, copy_of(each.value));
  return copy;
}

}  // namespace

void GameCharacter::take_down_parts() {
  Ref parts = read(imageDict);
  for (Ref index : host::items(parts)) {
    if (Ref part = parts.find_item(index)) message::RemoveChild(*this, part);
  }
  parts.call("clear"_name);
}

void GameCharacter::show_parts(Value frames) {
  take_down_parts();
  Ref first = first_frame(frames);
  Ref make = host::engine_value("GUI_Image"_name);
  for (Ref index : host::items(parts_of(frames))) {
    Ref part = make(*this);
    Ref picture = track_value(first, index, "Image"_name);
    if (picture.is_set()) set_part_image(part, picture);
    message::SetSX(part, read(sx));
    message::SetSY(part, read(sy));
    message::SetImageAnchor(part, read(imageAnchor));
    message::SetStyle(part, "hollow"_name);
    message::AutoImageSize(part, true);
    Ref parts = read(imageDict);
    parts.set_item(index, part);
  }
}

void GameCharacter::set_part_image(Value part, Value picture) {
  Ref pictures = read(imageArray);
  const bool can_be_known = picture.is_text() && pictures.is_dict();
  Ref known = can_be_known ? pictures.find_item(picture) : Ref();
  message::SetImage(part, known ? known : Ref(picture));
  if (flipped_x || flipped_y) mirror(part, flipped_x, flipped_y);
}

void GameCharacter::mirror_parts(bool across, bool down) {
  Ref parts = read(imageDict);
  for (Ref index : host::items(parts)) {
    if (Ref part = parts.find_item(index)) mirror(part, across, down);
  }
}

void GameCharacter::SetFlipX(Value flag) {
  const bool wanted = flag.equals_true();
  if (std::exchange(flipped_x, wanted) != wanted) mirror_parts(true, false);
}

void GameCharacter::SetFlipY(Value flag) {
  const bool wanted = flag.equals_true();
  if (std::exchange(flipped_y, wanted) != wanted) mirror_parts(false, true);
}

void GameCharacter::SetImageAnchor(Value anchor) {
  message::SetImageAnchor.base<&GUI_Image::SetImageAnchor>(*this, anchor);
  Ref parts = read(imageDict);
  for (Ref index : host::items(parts)) {
    if (Ref part = parts.find_item(index)) message::SetImageAnchor(part, anchor);
  }
}

void GameCharacter::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  const Number across = Number(offset_x) + read(currOffsetX) * Number(scale);
  const Number down = Number(offset_y) + read(currOffsetY) * Number(scale);
  Ref camera_x = across.object();
  Ref camera_y = down.object();
  begin_draw(camera_x, camera_y, scale);
  // A figure has no background of its own.
  if (is_set(image)) draw_picture_or_background(screen);
  finish_draw(screen, camera_x, camera_y, scale);
  message::drawList(*this, screen);
}

void GameCharacter::drawList(Value screen) {
  Ref lists = read(frame_rects);
  if (!lists || !is_true(rectListVisible)) return;
  Ref color = host::engine_value("g_pygameControl_CollColor"_name);
  for (Ref rects : host::items(lists.call("values"_name))) {
    for (Ref rect : host::items(rects)) outline_rect(screen, color, rect);
  }
}

void GameCharacter::CopyTo(Value other) {
  message::CopyTo.base<&GUI_Image::CopyTo>(*this, other);
  auto* twin = host::instance_of<GameCharacter>(other);
  if (twin == nullptr || twin == this) return;
  // There is one player, and each has parts of its own.
  for (auto slot : {&C::ActionArray, &C::ActionFpsDelayArray, &C::ActionLoop, &C::ActionPlaying,
                    &C::currActionFrameIndex, &C::currActionFrameTime, &C::currActionEndframe,
                    &C::currActionEndCallBackFunction, &C::currActionEndCallBackParams,
                    &C::currOffsetX, &C::currOffsetY, &C::moveDir, &C::dropSpeed, &C::isJumping,
                    &C::isDead, &C::rectListVisible}) {
    if (!is_unset(this->*slot)) twin->write(twin->*slot, copy_of(Ref(read(this->*slot))));
  }
  for (auto slot : {&C::UserFunctionDict, &C::CharacterBindingVarArray}) {
    if (!is_unset(this->*slot)) twin->write(twin->*slot, copy_of(Ref(read(this->*slot))));
  }
  twin->flipped_x = flipped_x;
  twin->flipped_y = flipped_y;
  twin->begin_anew();
  twin->take_down_parts();
  Ref name = twin->read(twin->currActionName);
  Ref frames = name.is_set() ? twin->find_action(name) : Ref();
  if (!frames) return;
  twin->show_parts(frames);
  twin->restore_parts(frames);
}

void declare_parts(CharacterDeclaration& character) {
  declare_draw<&C::draw>(character,
                         "Draw the character's own picture if it has one, overlays, the parts, and "
                         "the frame's collision rectangles.")
      .method<&C::drawList>("drawList(screen: pygame.Surface) -> None",
                            "Outline the frame's collision rectangles while `rectListVisible` is "
                            "true.")
      .method<&C::SetFlipX>("SetFlipX(flag: bool) -> None",
                            "Mirror the pictures of the parts left to right, in their places.")
      .method<&C::SetFlipY>("SetFlipY(flag: bool) -> None",
                            "Mirror the pictures of the parts upside down, in their places.")
      .method<&C::SetImageAnchor>("SetImageAnchor(anchor: str) -> None",
                                  "Set the anchor of the character and of its parts by keyword, "
                                  "as for an image.")
      .method<&C::CopyTo>("CopyTo(other: GameNode) -> None",
                          "Copy the image part and, into a character, actions, state and game "
                          "variables; it then shows parts of its own. It does not become the "
                          "player.");
}

}  // namespace tessora
