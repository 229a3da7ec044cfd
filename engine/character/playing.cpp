// Playing actions: starting, advancing frames, applying key frames and what lies between them.
#include "engine/character/tracks.hpp"
#include "engine/host/caught.hpp"

namespace tessora {

namespace {

// Empty where the value is missing or none.
Ref set_value(Value values, Value track) {
  Ref value = values.find_item(track);
  return value && value.is_set() ? value : Ref();
}

// Visits the parts, passing over those that a script has taken down meanwhile.
template <class Visit>
void each_part(GameCharacter& character, Visit visit) {
  Ref parts = character.read(character.imageDict);
  for (Ref index : host::items(parts)) {
    if (Ref part = parts.find_item(index)) visit(index, part);
  }
}

// A function, or the name of one of the character's or of the scene's.
Ref find_function(GameCharacter& character, Value given) {
  if (!given.is_text()) return given;
  Ref functions = character.read(character.UserFunctionDict);
  if (Ref own = functions.find_item(given)) return own;
  Ref scene = character.read(character.sceneInstance);
  return scene.is_set() ? scene.find_attr(host::joined("on_"_name, given)) : Ref();
}

}  // namespace

void blend_frames(GameCharacter& character, Value frames, Value index) {
  const Neighbours around = neighbours(frames, index);
  if (!around.before || !around.after) return;
  Ref from = frames.item(around.before);
  Ref mode = from.find_item("ChangeMode"_name);
  if (!mode || !mode.equals(1_const)) return;
  Ref to = frames.item(around.after);
  Ref parts_from = from.item("Parts"_name);
  Ref parts_to = to.item("Parts"_name);
  const Number start(around.before);
  const Number time = (Number(index) - start) / (Number(around.after) - start);
  each_part(character, [&](Value part_index, Value part) {
    Ref values_from = parts_from.find_item(part_index);
    Ref values_to = parts_to.find_item(part_index);
    if (!values_from || !values_to) return;
    for (const Track& track : kTracks) {
      if (track.blend == nullptr) continue;
      Ref first = set_value(values_from, track_name(track));
      Ref second = first ? set_value(values_to, track_name(track)) : Ref();
      if (second) track.blend(part, first, second, time);
    }
  });
}

void GameCharacter::PlayAction(Value name, Value loop, Value callback, host::Keywords params) {
  Ref frames = find_action(name);
  if (!frames) return;
  begin_anew();
  write(currActionName, name);
  write(currActionFrameIndex, 0);
  write(currActionFrameTime, 0);
  write(ActionLoop, loop);
  write(ActionPlaying, true);
  write(currActionEndframe, message::GetEndFrame(*this, name));
  write(currActionEndCallBackFunction, callback);
  write(currActionEndCallBackParams, params);
  show_parts(frames);
  Ref speeds = read(ActionFpsDelayArray);
  Ref current = read(currActionName);
  write(imageSwitchDelay, speeds.item(current));
}

void GameCharacter::StopAction() {
  write(ActionPlaying, false);
}

void GameCharacter::begin_anew() {
  ++plays;
  write(entered_frame, Value());
  write(frame_rects, Value());
}

void GameCharacter::forget_current_action() {
  begin_anew();
  write(ActionPlaying, false);
  write(currActionName, nullptr);
  for (Slot* number : {&currActionFrameIndex, &currActionFrameTime, &currActionEndframe}) {
    write(*number, 0);
  }
  take_down_parts();
}

void GameCharacter::update(Value delay) {
  message::update.base<&GUI_Image::update>(*this, delay);
  if (is_true(ActionPlaying)) advance(delay);
}

void GameCharacter::advance(Value delay) {
  Ref name = read(currActionName);
  Ref speeds = read(ActionFpsDelayArray);
  const Number frame_delay = seconds(speeds.item(name));
  write(currActionFrameTime, read(currActionFrameTime) + Number(delay));
  bool enters = false;
  if (read(currActionFrameTime) >= frame_delay) {
    if (!Ref(read(entered_frame))) {
      // A long first update must not pass over the frame that the action begins with.
      const std::uint64_t before = plays;
      show_frame(Ref(read(currActionFrameIndex)), true);
      if (plays != before) return;
    }
    write(currActionFrameTime, read(currActionFrameTime) - frame_delay);
    write(currActionFrameIndex, read(currActionFrameIndex) + Number(1));
    enters = true;
  }
  if (read(currActionFrameIndex) > read(currActionEndframe)) enters = finish_action();
  Ref index = read(currActionFrameIndex);
  Ref shown = read(entered_frame);
  holds_frame = !enters && shown && shown.equals(index);
  host::with_cleanup([&] { message::updateFrames(*this, index); }, [&] { holds_frame = false; });
}

// Returns whether the action begins again.
bool GameCharacter::finish_action() {
  const std::uint64_t before = plays;
  Ref callback = read(currActionEndCallBackFunction);
  if (callback.is_set()) {
    Ref params = read(currActionEndCallBackParams);
    host::call_with_keywords(callback, params.call("copy"_name));
    // What the callback has started begins at its first frame.
    if (plays != before) return false;
  }
  if (is_true(ActionLoop)) {
    write(currActionFrameIndex, 0);
    return true;
  }
  write(currActionFrameIndex, read(currActionEndframe));
  write(ActionPlaying, false);
  return false;
}

void GameCharacter::updateFrames(Value index) {
  const bool enters = !std::exchange(holds_frame, false);
  show_frame(index, enters);
}

void GameCharacter::show_frame(Value index, bool enters) {
  Ref name = read(currActionName);
  Ref frames = name.is_set() ? find_action(name) : Ref();
  if (!frames) return;
  if (enters) write(entered_frame, index);
  if (Ref frame = frames.find_item(index)) {
    apply_key_frame(frame, enters);
  } else {
    blend_frames(*this, frames, index);
  }
}

void GameCharacter::apply_key_frame(Value frame, bool enters) {
  Ref parts = frame.item("Parts"_name);
  const std::uint64_t before = plays;
  Ref callbacks;
  each_part(*this, [&](Value index, Value part) {
    Ref values = parts.find_item(index);
    // What a script does meanwhile may have ended the action.
    if (!values || plays != before) return;
    for (const Track& track : kTracks) {
      if (track.apply == nullptr || (track.on_entry && !enters)) continue;
      if (Ref value = set_value(values, track_name(track))) track.apply(*this, part, value);
    }
    if (Ref rects = set_value(values, "RectList"_name)) set_rects(index, rects);
    Ref callback = enters ? set_value(values, "CBFunction"_name) : Ref();
    if (!callback) return;
    if (!callbacks) callbacks = host::list();
    callbacks.append(callback);
  });
  if (callbacks && plays == before) call_frame_functions(callbacks);
}

void GameCharacter::set_rects(Value part_index, Value rects) {
  Ref all = read(frame_rects);
  if (!all) {
    all = host::dictionary();
    write(frame_rects, all);
  }
  all.set_item(part_index, rects);
}

void GameCharacter::restore_parts(Value frames) {
  Ref current = read(currActionFrameIndex);
  Ref reached = host::list();
  for (Ref index : host::items(host::import("builtins", "sorted"_name)(frames))) {
    if (Number(current) >= Number(index)) reached.append(index);
  }
  each_part(*this, [&](Value part_index, Value part) {
    Ref latest = host::dictionary();
    for (Ref index : host::items(reached)) {
      Ref parts = frames.item(index).item("Parts"_name);
      Ref values = parts.find_item(part_index);
      if (!values) continue;
      for (const host::Entry& each : host::entries(values)) {
        if (each.value.is_set()) latest.set_item(each.key, each.value);
      }
    }
    for (const Track& track : kTracks) {
      // What happens at once belongs to the past.
      Ref value = track_name(track).is("Sound"_name) ? Ref() : set_value(latest, track_name(track));
      if (value && track.apply != nullptr) track.apply(*this, part, value);
    }
    if (Ref rects = set_value(latest, "RectList"_name)) set_rects(part_index, rects);
  });
  if (!frames.contains(current)) blend_frames(*this, frames, current);
  if (reached.length() > 0) write(entered_frame, current);
}

void GameCharacter::call_frame_functions(Value callbacks) {
  const std::uint64_t before = plays;
  for (Ref given : host::items(callbacks)) {
    Ref function = find_function(*this, given);
    if (function) function(*this);
    if (plays != before) return;
  }
}

void declare_playing(CharacterDeclaration& character) {
  using C = GameCharacter;
  character
      .method<&C::PlayAction>(
          "PlayAction(actionName: str, isLoop: bool = False, "
          "callbackfun: Callable[..., Any] | None = None, **params: Any) -> None",
          "Play an action from its first frame; an unknown name is ignored.\n\nIts parts become "
          "children in place of those of the action before, with the first key frame's pictures; "
          "the other values come with the first update. `callbackfun` is called with the keyword "
          "arguments each time when the last frame has passed; it may start another action.")
      .method<&C::StopAction>("StopAction() -> None",
                              "Stop advancing frames; the current frame stays.")
      .method<&C::update>(
          "update(delay: float) -> None",
          "Advance the node and its parts by `delay` seconds and the action by at most one "
          "frame.\n\n"
          "Sounds, callbacks and pictures of a key frame take effect when it is entered, its other "
          "values on every update while it lasts.")
      .method<&C::updateFrames>(
          "updateFrames(frameIndex: int) -> None",
          "Apply a frame of the current action: all that a key frame says, or what lies between "
          "two key frames of change mode 1.");
}

}  // namespace tessora
