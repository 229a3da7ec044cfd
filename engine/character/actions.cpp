// The actions of a character: names, speeds, ends.
#include "engine/character/character.hpp"
#include "engine/host/paths.hpp"

namespace tessora {

void GameCharacter::AddAction(Value name, Value speed) {
  Ref actions = read(ActionArray);
  if (!actions.contains(name)) actions.set_item(name, host::dictionary());
  SetActionSpeed(name, speed);
}

Ref frames_of_images(Value images) {
  Ref frames = host::dictionary();
  Py_ssize_t index = 0;
  for (Ref picture : host::items(host::is_path(images) ? host::list(images) : images.to_list())) {
    Ref values = host::dictionary();
    values.set_item("Image"_name, picture);
    Ref parts = host::dictionary();
    parts.set_item(0_const, values);
    Ref frame = host::dictionary();
    frame.set_item("ChangeMode"_name, 0_const);
    frame.set_item("Parts"_name, parts);
    frames.set_item(host::integer(index++), frame);
  }
  return frames;
}

void GameCharacter::AddActionFromImageList(Value name, Value images, Value speed) {
  Ref frames = frames_of_images(images);
  Ref actions = read(ActionArray);
  actions.set_item(name, frames);
  note_files(images);
  SetActionSpeed(name, speed);
}

void GameCharacter::DelAction(Value name) {
  Ref actions = read(ActionArray);
  if (!actions.contains(name)) return;
  actions.delete_item(name);
  Ref speeds = read(ActionFpsDelayArray);
  if (speeds.contains(name)) speeds.delete_item(name);
  if (Ref(read(currActionName)).equals(name)) forget_current_action();
}

void GameCharacter::CleanUpAction() {
  for (Slot* table : {&ActionArray, &ActionFpsDelayArray, &imageArray, &imagefiles}) {
    // An image that was set on the character itself has taken the place of the last two.
    Ref held = read(*table);
    if (held.is_dict() || held.is_list()) held.call("clear"_name);
  }
  forget_current_action();
}

Py_ssize_t GameCharacter::GetActionCount() {
  Ref actions = read(ActionArray);
  return actions.length();
}

Ref GameCharacter::GetActionName(Value index) {
  return GetActionNameList().item(index);
}

Ref GameCharacter::GetActionNameList() {
  Ref actions = read(ActionArray);
  return actions.to_list();
}

Ref GameCharacter::GetActionInfo(Value name) {
  Ref actions = read(ActionArray);
  Ref frames = actions.item(name);
  Ref info = host::dictionary();
  info.set_item("fpsdelay"_name, GetActionSpeed(name));
  info.set_item("endframe"_name, Ref(message::GetEndFrame(*this, name)));
  info.set_item("keyframes"_name, host::import("builtins", "sorted"_name)(frames));
  info.set_item("parts"_name, parts_of(frames));
  return info;
}

void GameCharacter::SetActionSpeed(Value name, Value speed) {
  Ref speeds = read(ActionFpsDelayArray);
  speeds.set_item(name, speed);
}

Ref GameCharacter::GetActionSpeed(Value name) {
  Ref speeds = read(ActionFpsDelayArray);
  return speeds.item(name);
}

Number GameCharacter::GetEndFrame(Value name) {
  Ref actions = read(ActionArray);
  Ref frames = actions.item(name);
  Number end(0);
  for (Ref index : host::items(frames)) {
    const Number place(index);
    if (place > end) end = place;
  }
  return end;
}

void declare_actions(CharacterDeclaration& character) {
  using C = GameCharacter;
  character
      .method<&C::AddAction>("AddAction(actionName: str, fpsdelay: float = 0.3) -> None",
                             "Add an action without key frames, played at `fpsdelay` seconds per "
                             "frame.\n\nAn action of that name keeps its key frames.")
      .method<&C::AddActionFromImageList>(
          "AddActionFromImageList(actionName: str, imageList: _ImageFiles, "
          "fpsdelay: float = 0.3) -> None",
          "Add an action of one part that shows the images one after another.\n\n"
          "`imageList` holds file names or surfaces, one for each frame; it replaces an action of "
          "that name. `fpsdelay` is in seconds per frame.")
      .method<&C::DelAction>("DelAction(actionName: str) -> None",
                             "Delete an action, ending it if it is played. An unknown name is "
                             "ignored.")
      .method<&C::CleanUpAction>(
          "CleanUpAction() -> None",
          "Delete all actions, ending the one that is played, and forget their images.")
      .method<&C::GetActionCount>("GetActionCount() -> int", "Return the number of actions.")
      .method<&C::GetActionName>("GetActionName(index: int) -> str",
                                 "Return the name of an action by its place, counted from "
                                 "0.\n\nRaises IndexError for an unknown one.")
      .method<&C::GetActionNameList>("GetActionNameList() -> list[str]",
                                     "Return a new list of the actions' names.")
      .method<&C::GetActionInfo>("GetActionInfo(actionName: str) -> dict[str, Any]",
                                 "Return a new dictionary about an action: \"fpsdelay\" (seconds "
                                 "per frame), \"endframe\", \"keyframes\" and \"parts\" (sorted "
                                 "lists of indexes).\n\nRaises KeyError for an unknown one.")
      .method<&C::SetActionSpeed>("SetActionSpeed(actionName: str, fpsdelay: float = 0.3) -> None",
                                  "Set the time that each frame of the action lasts, in seconds.")
      .method<&C::GetActionSpeed>(
          "GetActionSpeed(actionName: str) -> float",
          "Return the seconds per frame of the action.\n\nRaises KeyError for an unknown one.")
      .method<&C::GetEndFrame>("GetEndFrame(actionName: str) -> int",
                               "Return the action's last key frame, 0 for one without key "
                               "frames.\n\nRaises KeyError for an unknown action.");
}

}  // namespace tessora
