// The animated character: actions of key-framed parts, and the state of a figure in a game.
//
// An action is a dictionary of key frames by frame index. A key frame is a dictionary: "ChangeMode"
// says how values pass on to the next one (1: linearly), "Parts" holds by part index the values of
// the tracks by their names.
#pragma once

#include "engine/image/image.hpp"

namespace tessora {

struct GameCharacter : GUI_Image {
  Slot ActionArray, ActionFpsDelayArray, ActionLoop, ActionPlaying;
  Slot currActionFrameIndex, currActionFrameTime, currActionEndframe;
  Slot currActionEndCallBackFunction, currActionEndCallBackParams;
  Slot currOffsetX, currOffsetY, imageDict, PickedPartObj;
  Slot moveDir, dropSpeed, isJumping, isPlayer, isDead, rectListVisible;
  LazySlot UserFunctionDict, CharacterBindingVarArray;

  Slot entered_frame;  // what the parts show; unset until a frame of the action is entered
  Slot frame_rects;    // collision rectangles by part index, as the key frames set them; or unset
  bool flipped_x, flipped_y;
  bool holds_frame;     // the next updateFrames() is for a frame that was entered before
  std::uint64_t plays;  // tells whether a callback has started or deleted the action

  void reset_hidden();

  // Actions: actions.cpp
  void AddAction(Value name, Value speed);
  void AddActionFromImageList(Value name, Value images, Value speed);
  void DelAction(Value name);
  void CleanUpAction();
  Py_ssize_t GetActionCount();
  Ref GetActionName(Value index);
  Ref GetActionNameList();
  Ref GetActionInfo(Value name);
  void SetActionSpeed(Value name, Value speed);
  Ref GetActionSpeed(Value name);
  Number GetEndFrame(Value name);

  // Key frames: key_frames.cpp
  void AddKeyFrame(Value action, Value index, Value change_mode);
  void DelKeyFrame(Value action, Value index);
  bool IsKeyFrame(Value action, Value index);
  Ref GetLastKeyFrame(Value action, Value index);
  Ref GetNextKeyFrame(Value action, Value index);
  void SetKeyFrame_ChangeMode(Value action, Value index, Value change_mode);
  Ref GetKeyFrame_ChangeMode(Value action, Value index);
  void DelKeyFrame_Image(Value action, Value index, Value part);
  // The key frames of an action; an empty reference for an unknown one.
  Ref find_action(Value name);
  // Remembers the files that a picture is loaded from.
  void note_files(Value picture);

  // Playing: playing.cpp
  void PlayAction(Value name, Value loop, Value callback, host::Keywords params);
  void StopAction();
  void update(Value delay);
  void updateFrames(Value index);
  // What callbacks of the action before have yet to do counts no more.
  void begin_anew();
  // No action is played any more, its parts are taken down.
  void forget_current_action();
  // Gives the parts what the key frames up to the current frame have said.
  void restore_parts(Value frames);

  // Parts: parts.cpp
  void show_parts(Value frames);
  void take_down_parts();
  // Gives a part its picture: a frame of an atlas, or whatever SetImage takes.
  void set_part_image(Value part, Value picture);
  void SetFlipX(Value flag);
  void SetFlipY(Value flag);
  void SetImageAnchor(Value anchor);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void drawList(Value screen);
  void CopyTo(Value other);

  // Picking and collisions: picking.cpp
  Ref OnPickDownFunction(Value px, Value py);
  Ref GetPickedPartObjIndex();
  Ref GetSizeRect();
  bool checkCollision(Value node, Value move_x, Value move_y);
  bool checkEventRectCollision(Value rect, Value move_x, Value move_y);

  // Movement and the player: movement.cpp
  void SetPlayer();
  void UnsetPlayer();
  void Dead();
  bool IsUpState();
  void Jump(Value speed);
  void StopJump();
  void StopMove();
  void Move_Right();
  void Move_Left();
  void Move_Down();
  void Move_Up();
  bool isMoveState();

  // Files: files.cpp
  void SaveToFile(Value path);
  void LoadFromFile(Value path);
  void SaveAnimationToFile(Value path, Value name);
  void LoadAnimationFromFile(Value path, Value name);
  void LoadAllAnimationsFromPlist(Value plist_file, Value atlas_file, Value image_file);
  void Tessora_ReLoadImage();

 private:
  void advance(Value delay);
  bool finish_action();
  void show_frame(Value index, bool enters);
  void apply_key_frame(Value frame, bool enters);
  void call_frame_functions(Value callbacks);
  void mirror_parts(bool across, bool down);
  Ref collision_rects();
  void set_rects(Value part_index, Value rects);
  // Everything that a file holds, in place of what there is.
  void read_state(Value json);
  void take_state(GameCharacter& other);
  void add_actions(Value actions, Value speeds, Value pictures, Value atlases);
};

namespace message {
inline Message drawList{"drawList"};
inline Message GetEndFrame{"GetEndFrame"};
inline Message updateFrames{"updateFrames"};
}  // namespace message

// The key frames next to a frame, on either side; empty references where there are none.
struct Neighbours {
  Ref before, after;
};
Neighbours neighbours(Value frames, Value index);
// Applies what lies between two key frames.
void blend_frames(GameCharacter& character, Value frames, Value index);
// The part indexes of an action, in order.
Ref parts_of(Value frames);
// A value of a track, None where it is not set.
Ref track_value(Value frame, Value part, Value track);
// Key frames that show pictures one after another.
Ref frames_of_images(Value images);
// What float() makes of a value.
Number seconds(Value value);

using CharacterDeclaration = host::Declaration<GameCharacter, GUI_Image>;
void declare_actions(CharacterDeclaration& character);
void declare_key_frames(CharacterDeclaration& character);
void declare_playing(CharacterDeclaration& character);
void declare_parts(CharacterDeclaration& character);
void declare_picking(CharacterDeclaration& character);
void declare_movement(CharacterDeclaration& character);
void declare_files(CharacterDeclaration& character);
void register_character(PyObject* module);

}  // namespace tessora
