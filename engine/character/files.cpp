// Characters and their actions in files.
#include "engine/character/format.hpp"
#include "engine/host/caught.hpp"
#include "engine/host/paths.hpp"

namespace tessora {

namespace {

constexpr const char* kCharacterFormat = "Tessora character";
constexpr const char* kAnimationFormat = "Tessora animation";

// The attributes that a character's file holds, and what they must be.
struct Saved {
  const char* name = nullptr;
  Kind kind = Kind::kTable;
  bool or_none = false;
};
constexpr Saved kSaved[] = {
    {"BindingVarArray", Kind::kTable},
    {"BindingEventArray", Kind::kTable},
    {"BindingPointArray", Kind::kTable},
    {"InnerBindingEventArray", Kind::kTable},
    {"Enable_PickDown", Kind::kNumber, true},
    {"Enable_PickUp", Kind::kNumber, true},
    {"x", Kind::kNumber},
    {"y", Kind::kNumber},
    {"sx", Kind::kNumber},
    {"sy", Kind::kNumber},
    {"angle", Kind::kNumber},
    {"width", Kind::kNumber},
    {"height", Kind::kNumber},
    {"anchorx", Kind::kNumber},
    {"anchory", Kind::kNumber},
    {"visible", Kind::kNumber, true},
    {"rectvisible", Kind::kNumber, true},
    {"anchorvisible", Kind::kNumber, true},
    {"lock_xysa", Kind::kNumber, true},
    {"WSX", Kind::kNumber},
    {"WSY", Kind::kNumber},
    {"WAngle", Kind::kNumber},
    {"WX", Kind::kNumber},
    {"WY", Kind::kNumber},
    {"CheckPickDownChild", Kind::kNumber, true},
    {"collisionType", Kind::kNumber, true},
    {"collisionInfo", Kind::kAny},
    {"editrectenable", Kind::kNumber, true},
    {"editrectvisible", Kind::kNumber, true},
    {"userData", Kind::kAny},
    {"bgColor", Kind::kColor, true},
    {"alpha", Kind::kNumber},
    {"imageIndex", Kind::kNumber},
    {"imageDelay", Kind::kNumber},
    {"imageSwitchDelay", Kind::kAny},
    {"imageAutoSwitch", Kind::kNumber, true},
    {"autosize", Kind::kNumber, true},
    {"blendtype", Kind::kNumber, true},
    {"borderwidth", Kind::kNumber},
    {"borderVisible", Kind::kNumber, true},
    {"borderColor", Kind::kColor},
    {"borderColor_LT", Kind::kColor},
    {"borderColor_RB", Kind::kColor},
    {"imageAnchor", Kind::kText},
    {"coll_visible", Kind::kNumber, true},
    {"coll_rectArray", Kind::kTable},
    {"style", Kind::kText, true},
    {"enable", Kind::kNumber, true},
    {"imagefiles", Kind::kFiles, true},
    {"ActionFpsDelayArray", Kind::kTable},
    {"ActionLoop", Kind::kNumber, true},
    {"currActionName", Kind::kAny},
    {"ActionPlaying", Kind::kNumber, true},
    {"currActionFrameIndex", Kind::kNumber},
    {"currActionFrameTime", Kind::kNumber},
    {"currActionEndframe", Kind::kNumber},
    {"currOffsetX", Kind::kNumber},
    {"currOffsetY", Kind::kNumber},
    {"moveDir", Kind::kPair},
    {"dropSpeed", Kind::kNumber},
    {"isJumping", Kind::kNumber, true},
    {"isPlayer", Kind::kNumber, true},
    {"isDead", Kind::kNumber, true},
    {"rectListVisible", Kind::kNumber, true},
    {"CharacterBindingVarArray", Kind::kTable},
};

const Saved* find_saved(Value name) {
  for (const Saved& saved : kSaved) {
    if (name.is_text(host::intern(saved.name))) return &saved;
  }
  return nullptr;
}

void check(const Saved& saved, Value value) {
  if (is_of_kind(saved.kind, value) || (saved.or_none && value.is_none())) return;
  host::raise(PyExc_ValueError, "%s is %.200R", saved.name, value);
}

bool is_atlas(Value file) {
  return file.is_text() && file.call("lower"_name).call("endswith"_name, ".plist"_name).is_true();
}

// The atlases among the files, each once.
Ref atlases_among(Value files) {
  Ref atlases = host::list();
  if (!files.is_list()) return atlases;
  for (Ref file : host::items(files)) {
    if (is_atlas(file) && !atlases.contains(file)) atlases.append(file);
  }
  return atlases;
}

// Cuts the frames of atlases: name to surface.
Ref cut_atlases(Value atlases, Value image_file = nullptr) {
  Ref pictures = host::dictionary();
  for (Ref atlas : host::items(atlases)) {
    Ref cutter = host::new_object<GUI_Image>();
    auto& widget = *host::instance_of<GUI_Image>(cutter);
    widget.LoadImageFramesPList(atlas, image_file);
    pictures.call("update"_name, Ref(widget.read(widget.atlas_frames)));
  }
  return pictures;
}

// A picture of the character's own, and not only of its parts, takes the place of these.
bool has_own_picture(GameCharacter& character) {
  return !Ref(character.read(character.imageArray)).is_dict();
}

Ref encoded_attributes(Value character) {
  Ref attributes = host::dictionary();
  for (const Saved& saved : kSaved) {
    host::with_place(host::formatted("%s", saved.name), [&] {
      Ref name = host::intern(saved.name);
      Ref value = character.find_attr(name);
      // A script has deleted it.
      if (!value) return;
      Ref json = encoded(value);
      check(saved, value);
      attributes.set_item(name, json);
    });
  }
  return attributes;
}

Ref decoded_attributes(Value json) {
  Ref attributes = host::dictionary();
  for (const host::Entry& each : host::entries(json)) {
    const Saved* saved = find_saved(each.key);
    if (saved == nullptr) host::raise(PyExc_ValueError, "unknown attribute %.200R", each.key);
    host::with_place(each.key, [&] {
      Ref value = decoded(each.value);
      check(*saved, value);
      attributes.set_item(each.key, value);
    });
  }
  return attributes;
}

// What a file's content becomes.
Ref saved_values(Value character) {
  Ref values = host::dictionary();
  auto save = [&](Value name) {
    if (Ref value = character.find_attr(name)) values.set_item(name, value);
  };
  for (const Saved& saved : kSaved) save(host::intern(saved.name));
  save("ActionArray"_name);
  save("image"_name);
  save("imageArray"_name);
  save("imageCount"_name);
  return values;
}

void set_values(Value character, Value values) {
  for (const host::Entry& each : host::entries(values)) character.set_attr(each.key, each.value);
}

void check_speeds(Value speeds) {
  for (Ref speed : host::items(speeds.call("values"_name))) {
    if (!is_of_kind(Kind::kNumber, Ref(number_of(speed)))) {
      host::raise(PyExc_ValueError, "%.200R is no number of seconds", speed);
    }
  }
}

}  // namespace

void GameCharacter::SaveToFile(Value path) {
  host::with_place(host::path_text(path), [&] {
    Ref actions = read(ActionArray);
    Ref content = host::dictionary();
    content.set_item("attributes"_name, encoded_attributes(*this));
    content.set_item("flip"_name, host::list(flipped_x, flipped_y));
    content.set_item("own_picture"_name, has_own_picture(*this));
    content.set_item("actions"_name, encoded_actions(actions, actions.to_list(), nullptr));
    write_json(path, kCharacterFormat, content);
  });
}

void GameCharacter::read_state(Value json) {
  Ref attributes = decoded_attributes(entry_of(json, "attributes"_name, Kind::kTable));
  Ref speeds = host::dictionary();
  Ref actions = decoded_actions(list_at(json, "actions"_name), speeds);
  Ref flips = list_at(json, "flip"_name);
  if (!is_of_kind(Kind::kPair, flips)) host::raise(PyExc_ValueError, "\"flip\" is two flags");
  flipped_x = flips.item(0).is_true();
  flipped_y = flips.item(1).is_true();
  set_values(*this, attributes);
  write(ActionArray, actions);
  check_speeds(Ref(read(ActionFpsDelayArray)));
  Ref files = read(imagefiles);
  if (entry_of(json, "own_picture"_name, Kind::kNumber).is_true()) {
    Ref delay = read(imageSwitchDelay);
    SetImage(files, delay);
  } else {
    write(imageArray, cut_atlases(atlases_among(files)));
    write(image, nullptr);
    write(imageCount, 0);
  }
  Ref name = read(currActionName);
  Ref frames = name.is_none() ? Ref() : find_action(name);
  if (!frames) return;
  show_parts(frames);
  restore_parts(frames);
}

void GameCharacter::take_state(GameCharacter& other) {
  Ref before = saved_values(*this);
  Ref error = host::caught(PyExc_BaseException, [&] { set_values(*this, saved_values(other)); });
  if (error) {
    // A property of a script's class has refused a value.
    Ref ignored = host::caught(PyExc_Exception, [&] { set_values(*this, before); });
    host::raise_again(error);
  }
  ++plays;
  flipped_x = other.flipped_x;
  flipped_y = other.flipped_y;
  write(entered_frame, Ref(other.read(other.entered_frame)));
  write(frame_rects, Ref(other.read(other.frame_rects)));
  // What was to be called at the end of another action.
  write(currActionEndCallBackFunction, nullptr);
  write(currActionEndCallBackParams, nullptr);
  write(PickedPartObj, nullptr);
  take_down_parts();
  Ref parts = read(imageDict);
  Ref scene = read(sceneInstance);
  for (const host::Entry& each : host::entries(Ref(other.read(other.imageDict)))) {
    message::SetParent(each.value, *this);
    if (scene.is_set()) message::OnLoad(each.value, scene);
    parts.set_item(each.key, each.value);
  }
}

void GameCharacter::LoadFromFile(Value path) {
  host::with_place(host::path_text(path), [&] {
    Ref json = read_json(path, kCharacterFormat);
    // Another character takes all of it first, with its pictures: then nothing can fail any more.
    Ref trial = host::new_object<GameCharacter>();
    auto& other = *host::instance_of<GameCharacter>(trial);
    // What the file does not tell stays as it is.
    set_values(other, saved_values(*this));
    other.read_state(json);
    take_state(other);
  });
}

void GameCharacter::SaveAnimationToFile(Value path, Value name) {
  host::with_place(host::path_text(path), [&] {
    Ref actions = read(ActionArray);
    Ref speeds = read(ActionFpsDelayArray);
    Ref names = name.is_set() ? host::list(name) : actions.to_list();
    Ref content = host::dictionary();
    content.set_item("atlases"_name, atlases_among(Ref(read(imagefiles))));
    content.set_item("actions"_name, encoded_actions(actions, names, speeds));
    write_json(path, kAnimationFormat, content);
  });
}

void GameCharacter::add_actions(Value actions, Value speeds, Value pictures, Value atlases) {
  Ref current = read(currActionName);
  if (!current.is_none() && actions.contains(current)) forget_current_action();
  Ref own_actions = read(ActionArray);
  Ref own_speeds = read(ActionFpsDelayArray);
  own_actions.call("update"_name, actions);
  own_speeds.call("update"_name, speeds);
  Ref own_pictures = read(imageArray);
  if (own_pictures.is_dict()) own_pictures.call("update"_name, pictures);
  note_files(atlases);
  for (Ref frames : host::items(actions.call("values"_name))) {
    for (Ref frame : host::items(frames.call("values"_name))) {
      for (Ref values : host::items(frame.item("Parts"_name).call("values"_name))) {
        Ref picture = values.find_item("Image"_name);
        if (!picture || (picture.is_text() && pictures.contains(picture))) continue;
        note_files(picture);
      }
    }
  }
}

void GameCharacter::LoadAnimationFromFile(Value path, Value name) {
  host::with_place(host::path_text(path), [&] {
    Ref json = read_json(path, kAnimationFormat);
    Ref atlases = list_at(json, "atlases"_name);
    if (!is_of_kind(Kind::kFiles, atlases)) host::raise(PyExc_ValueError, "\"atlases\" are names");
    Ref speeds = host::dictionary();
    Ref actions = decoded_actions(list_at(json, "actions"_name), speeds);
    if (name.is_set()) {
      Ref chosen = host::dictionary();
      chosen.set_item(name, actions.item(name));
      actions = chosen;
      chosen = host::dictionary();
      chosen.set_item(name, speeds.item(name));
      speeds = chosen;
    }
    Ref pictures = cut_atlases(atlases_among(atlases));
    add_actions(actions, speeds, pictures, atlases);
  });
}

void GameCharacter::LoadAllAnimationsFromPlist(Value plist_file, Value atlas_file,
                                               Value image_file) {
  Ref file = host::path_text(plist_file);
  Ref animations = read_animations(file);
  Ref atlases = atlas_file.is_set() ? host::list(host::path_text(atlas_file)) : host::list();
  Ref pictures = cut_atlases(atlases, image_file);
  Ref actions = host::dictionary();
  Ref speeds = host::dictionary();
  for (const host::Entry& each : host::entries(animations)) {
    host::with_place(host::formatted("%S: animation %R", file, each.key), [&] {
      if (!each.value.is_dict()) host::raise(PyExc_TypeError, "an animation is a dictionary");
      Ref frames = entry_of(each.value, "frames"_name, Kind::kFiles);
      Ref speed = entry_of(each.value, "delay"_name, Kind::kAny);
      actions.set_item(each.key, frames_of_images(frames));
      speeds.set_item(each.key, number_of(speed));
    });
  }
  add_actions(actions, speeds, pictures, atlases);
}

void GameCharacter::Tessora_ReLoadImage() {
  Ref files = read(imagefiles);
  if (has_own_picture(*this)) {
    message::SetImage(*this, files, read(imageSwitchDelay));
  } else {
    Ref pictures = cut_atlases(atlases_among(files));
    Ref own_pictures = read(imageArray);
    own_pictures.call("update"_name, pictures);
  }
  Ref name = read(currActionName);
  Ref frames = name.is_set() ? find_action(name) : Ref();
  if (frames) restore_parts(frames);
}

void declare_files(CharacterDeclaration& character) {
  using C = GameCharacter;
  character
      .method<&C::SaveToFile>(
          "SaveToFile(fileName: _File) -> None",
          "Write the character to a file, as JSON, whole or not at all.\n\n"
          "The file is a dictionary: \"format\" is \"Tessora character\", \"version\" 1;\n"
          "\"attributes\" holds place, look, state, bindings, game variables and `userData` by "
          "the\n"
          "attributes' names; \"flip\" the two flags of SetFlipX and SetFlipY; \"own_picture\"\n"
          "whether `imagefiles` is a picture of the character itself; \"actions\" a list of\n"
          "dictionaries with \"name\" and \"keyframes\". A key frame has \"frame\" (its index),\n"
          "\"ChangeMode\" and \"parts\", a list of dictionaries with \"part\" (its index) and\n"
          "\"tracks\", the values by the names of the tracks.\n\n"
          "Numbers, texts, flags, None, lists and dictionaries with texts for keys are written as\n"
          "such. Other values are dictionaries of one entry: \"$tuple\" and its items, \"$dict\" "
          "and\n"
          "a list of pairs of key and value, \"$color\" [r, g, b, a], \"$rect\" [x, y, width,\n"
          "height], \"$vector\" [x, y]. Anything else cannot be written (TypeError), and no\n"
          "functions are: `PickDownFunction` and its like, `UserFunctionDict`, the function at an\n"
          "action's end, which LoadFromFile drops. `CBFunction` is written where it is a name.\n\n"
          "Errors name the file, which is then as it was before: TypeError and ValueError for "
          "values\n"
          "that cannot be written, OSError.")
      .method<&C::LoadFromFile>("LoadFromFile(fileName: _File) -> None",
                                "Become what SaveToFile wrote: attributes, actions, and the "
                                "current action with its parts "
                                "as they were.\n\nOther functions stay as they are. Pictures come "
                                "from `Res`. Every error "
                                "(OSError, ValueError for a file that is no such thing or has more "
                                "than 16 MiB) names the "
                                "file and leaves the character as it was.")
      .method<&C::SaveAnimationToFile>(
          "SaveAnimationToFile(fileName: _File, actionName: str | None = None) -> None",
          "Write an action, or all, with their speeds to a file, as SaveToFile does.\n\n"
          "\"format\" is \"Tessora animation\"; \"actions\" is as in a character's file, with a\n"
          "\"speed\" (seconds per frame) each; \"atlases\" lists the atlases of their pictures.\n"
          "KeyError for an unknown action.")
      .method<&C::LoadAnimationFromFile>(
          "LoadAnimationFromFile(fileName: _File, actionName: str | None = None) -> None",
          "Add an action, or all, from a file that SaveAnimationToFile wrote.\n\nThey replace "
          "actions of the same names; one that is played ends. KeyError for an action that is not "
          "in the file; errors are those of LoadFromFile.")
      .method<&C::LoadAllAnimationsFromPlist>(
          "LoadAllAnimationsFromPlist(plistFile: _File, atlasFile: _File | None = None, "
          "imageFile: _File | None = None) -> None",
          "Add every animation of a property list as an action of one part: picture names under "
          "\"frames\", seconds per frame under \"delay\".\n\nThe names are those of frames of "
          "`atlasFile`, whose sheet is `imageFile` (as in LoadImageFramesPList), or else of image "
          "files. `Res` finds the files. Errors name the file and leave the character as it was.")
      .method<&C::Tessora_ReLoadImage>(
          "Tessora_ReLoadImage() -> None",
          "Ask `Res` again for the atlases and for the pictures of the parts, after "
          "ReleaseAllImageMemeory or with another `Res`.");
}

}  // namespace tessora
