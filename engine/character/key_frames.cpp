// Key frames: reading and changing them, and the values of their tracks.
#include "engine/character/tracks.hpp"

namespace tessora {

namespace {

constexpr auto kNoMode = 0;

Ref new_frame(Value change_mode) {
  Ref frame = host::dictionary();
  frame.set_item("ChangeMode"_name, change_mode);
  frame.set_item("Parts"_name, host::dictionary());
  return frame;
}

Ref known_action(GameCharacter& character, Value action) {
  Ref actions = character.read(character.ActionArray);
  return actions.item(action);
}

// The key frame, which is made if there is none at that place.
Ref frame_at(GameCharacter& character, Value action, Value index) {
  Ref frames = known_action(character, action);
  Ref frame = frames.find_item(index);
  if (!frame) {
    frame = new_frame(host::integer(kNoMode));
    frames.set_item(index, frame);
  }
  return frame;
}

// The key frame, or an empty reference.
Ref find_frame(GameCharacter& character, Value action, Value index) {
  Ref frames = character.find_action(action);
  return frames ? frames.find_item(index) : Ref();
}

template <std::size_t Index>
void set_track(GameCharacter& character, Value action, Value index, Value value, Value part) {
  Ref frame = frame_at(character, action, index);
  Ref parts = frame.item("Parts"_name);
  Ref values = parts.find_item(part);
  if (!values) {
    values = host::dictionary();
    parts.set_item(part, values);
  }
  values.set_item(track_name(kTracks[Index]), value);
  if constexpr (Index == 0) character.note_files(value);
}

template <std::size_t Index>
Ref get_track(GameCharacter& character, Value action, Value index, Value part) {
  Ref frame = find_frame(character, action, index);
  return frame ? track_value(frame, part, track_name(kTracks[Index])) : host::none();
}

}  // namespace

Ref track_value(Value frame, Value part, Value track) {
  Ref parts = frame.item("Parts"_name);
  Ref values = parts.find_item(part);
  Ref value = values ? values.find_item(track) : Ref();
  return value ? value : host::none();
}

Neighbours neighbours(Value frames, Value index) {
  const Number place(index);
  Neighbours found;
  for (Ref key : host::items(frames)) {
    const Number other(key);
    if (other < place) {
      if (!found.before || other > Number(found.before)) found.before = key;
    } else if (other > place) {
      if (!found.after || other < Number(found.after)) found.after = key;
    }
  }
  return found;
}

Ref parts_of(Value frames) {
  Ref known = host::dictionary();
  for (Ref frame : host::items(frames.call("values"_name))) {
    for (Ref part : host::items(frame.item("Parts"_name))) known.set_item(part, nullptr);
  }
  return host::import("builtins", "sorted"_name)(known);
}

Ref GameCharacter::find_action(Value name) {
  Ref actions = read(ActionArray);
  return actions.find_item(name);
}

void GameCharacter::note_files(Value picture) {
  Ref files = read(imagefiles);
  if (!files.is_list()) return;
  const bool is_many = picture.is_list() || picture.is_tuple();
  Ref names = is_many ? Ref(picture) : host::list(picture);
  for (Ref name : host::items(names)) {
    if (name.is_text() && !files.contains(name)) files.append(name);
  }
}

void GameCharacter::AddKeyFrame(Value action, Value index, Value change_mode) {
  Ref frames = known_action(*this, action);
  if (Ref frame = frames.find_item(index)) {
    frame.set_item("ChangeMode"_name, change_mode);
  } else {
    frames.set_item(index, new_frame(change_mode));
  }
}

void GameCharacter::DelKeyFrame(Value action, Value index) {
  Ref frames = find_action(action);
  if (frames && frames.contains(index)) frames.delete_item(index);
}

bool GameCharacter::IsKeyFrame(Value action, Value index) {
  return static_cast<bool>(find_frame(*this, action, index));
}

Ref GameCharacter::GetLastKeyFrame(Value action, Value index) {
  Ref frames = known_action(*this, action);
  Ref before = neighbours(frames, index).before;
  return before ? before : host::none();
}

Ref GameCharacter::GetNextKeyFrame(Value action, Value index) {
  Ref frames = known_action(*this, action);
  Ref after = neighbours(frames, index).after;
  return after ? after : host::none();
}

void GameCharacter::SetKeyFrame_ChangeMode(Value action, Value index, Value change_mode) {
  Ref frame = frame_at(*this, action, index);
  frame.set_item("ChangeMode"_name, change_mode);
}

Ref GameCharacter::GetKeyFrame_ChangeMode(Value action, Value index) {
  Ref frame = find_frame(*this, action, index);
  Ref mode = frame ? frame.find_item("ChangeMode"_name) : Ref();
  return mode ? mode : host::none();
}

void GameCharacter::DelKeyFrame_Image(Value action, Value index, Value part) {
  Ref frame = find_frame(*this, action, index);
  if (!frame) return;
  Ref parts = frame.item("Parts"_name);
  Ref values = parts.find_item(part);
  if (!values || !values.contains("Image"_name)) return;
  values.delete_item("Image"_name);
  if (values.length() == 0) parts.delete_item(part);
}

namespace {

template <std::size_t Index>
void declare_track(CharacterDeclaration& character) {
  const Track& track = kTracks[Index];
  const std::string word = std::string("KeyFrame_") + track.name;
  const std::string value_type = std::string(track.type) + " | None";
  const std::string about = std::string(track.doc) + ".";
  character.method<&set_track<Index>>(
      character.keep("Set" + word + "(actionName: str, frameIndex: int, value: " + value_type +
                     ", partIndex: int = 0) -> None"),
      character.keep("Set what a key frame says of a part: " + about +
                     "\n\n`value` None means nothing, `partIndex` counts the parts from 0. A frame "
                     "that is no key frame becomes one. Raises KeyError for an unknown action."));
  character.method<&get_track<Index>>(
      character.keep("Get" + word +
                     "(actionName: str | None, frameIndex: int, "
                     "partIndex: int = 0) -> " +
                     value_type),
      character.keep("Return what a key frame says of a part: " + about +
                     "\n\nNone if it says nothing, and where there is no such action or key "
                     "frame."));
}

template <std::size_t... Index>
void declare_tracks(CharacterDeclaration& character, std::index_sequence<Index...>) {
  (declare_track<Index>(character), ...);
}

}  // namespace

void declare_key_frames(CharacterDeclaration& character) {
  using C = GameCharacter;
  character
      .method<&C::AddKeyFrame>(
          "AddKeyFrame(actionName: str, frameIndex: int, changeMode: int = 0) -> None",
          "Make a frame a key frame; one that is so already keeps its values.\n\n`changeMode` is "
          "how values pass on to the next key frame: with 1 position, scale, rotation and colour "
          "change linearly, else they stay. KeyError for an unknown action.")
      .method<&C::DelKeyFrame>("DelKeyFrame(actionName: str, frameIndex: int) -> None",
                               "Delete a key frame; what is none is ignored.")
      .method<&C::IsKeyFrame>("IsKeyFrame(actionName: str | None, frameIndex: int) -> bool",
                              "Return whether the frame is a key frame of the action.")
      .method<&C::GetLastKeyFrame>(
          "GetLastKeyFrame(actionName: str, frameIndex: int) -> int | None",
          "Return the nearest key frame before the frame, or None; KeyError for an unknown action.")
      .method<&C::GetNextKeyFrame>(
          "GetNextKeyFrame(actionName: str, frameIndex: int) -> int | None",
          "Return the nearest key frame after the frame, or None; KeyError for an unknown action.")
      .method<&C::SetKeyFrame_ChangeMode>(
          "SetKeyFrame_ChangeMode(actionName: str, frameIndex: int, changeMode: int) -> None",
          "Set how values pass on to the next key frame; see AddKeyFrame.\n\nA frame that is no "
          "key frame becomes one. KeyError for an unknown action.")
      .method<&C::GetKeyFrame_ChangeMode>(
          "GetKeyFrame_ChangeMode(actionName: str | None, frameIndex: int) -> int | None",
          "Return how values pass on to the next key frame, None for what is no key frame.")
      .method<&C::DelKeyFrame_Image>(
          "DelKeyFrame_Image(actionName: str, frameIndex: int, partIndex: int = 0) -> None",
          "Delete the picture that a key frame gives a part, if there is one.");
  declare_tracks(character, std::make_index_sequence<kTrackCount>());
}

}  // namespace tessora
