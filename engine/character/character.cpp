// The attributes of a character, and its game variables.
#include "engine/character/character.hpp"

#include "engine/core/binding_tables.hpp"

namespace tessora {

namespace {

using C = GameCharacter;

Ref make_variables(const host::LazyDefault&) {
  Ref variables = host::dictionary();
  variables.set_item("life"_name, 100_const);
  for (Value name : {"speed"_name, "jumpspeed"_name, "gravity"_name}) {
    variables.set_item(name, 0_const);
  }
  for (Value name : {"check_block"_name, "check_collision"_name, "check_eventrect"_name}) {
    variables.set_item(name, false);
  }
  return variables;
}

Ref no_direction() {
  return host::list(0, 0);
}

void declare_action_rows(CharacterDeclaration& d) {
  const auto dict = host::made<&host::dictionary>();
  d.attribute<&C::ActionArray>("ActionArray: dict[str, dict[int, dict[str, Any]]]", dict,
                               "Actions by name: frame index to a dictionary of \"ChangeMode\" and "
                               "\"Parts\" (part index to track name to value).");
  d.attribute<&C::ActionFpsDelayArray>("ActionFpsDelayArray: dict[str, float]", dict,
                                       "Seconds per frame by the action's name.");
  d.attribute<&C::ActionLoop>("ActionLoop: bool", false,
                              "Whether the action starts again at its end.");
  d.sets<&C::currActionName>(nullptr);
  d.attribute<&C::ActionPlaying>("ActionPlaying: bool", false, "Whether frames advance.");
  d.attribute<&C::currActionFrameIndex>("currActionFrameIndex: int", 0,
                                        "Index of the frame that is shown.")
      .getter("GetCurrFrameIndex")
      .setter("SetCurrFrame", "frameIndex");
  d.attribute<&C::currActionFrameTime>("currActionFrameTime: float", 0,
                                       "Seconds that have gone towards the next frame.");
  d.attribute<&C::currActionEndframe>("currActionEndframe: int", 0,
                                      "Index of the action's last frame.");
  d.attribute<&C::currActionEndCallBackFunction>(
      "currActionEndCallBackFunction: Callable[..., Any] | None", nullptr,
      "Called when the action has run past its last frame, or None.");
  d.attribute<&C::currActionEndCallBackParams>("currActionEndCallBackParams: dict[str, Any] | None",
                                               nullptr, "Keyword arguments of that call, or None.");
  d.attribute<&C::currOffsetX>("currOffsetX: float", 0,
                               "Horizontal shift in pixels with which the character is drawn.");
  d.attribute<&C::currOffsetY>("currOffsetY: float", 0,
                               "Vertical shift in pixels with which the character is drawn.");
  d.sets<&C::imagefiles>(host::made<&host::new_list>()).sets<&C::imageArray>(dict);
  d.attribute<&C::imageDict>("imageDict: dict[int, GUI_Image]", dict,
                             "Parts of the current action by their indexes.");
}

void declare_state_rows(CharacterDeclaration& d) {
  d.attribute<&C::PickedPartObj>("PickedPartObj: GUI_Image | None", nullptr,
                                 "Part that the last press hit, or None.")
      .getter("GetPickedPartObj");
  d.attribute<&C::moveDir>("moveDir: list[float]", host::made<&no_direction>(),
                           "Requested direction [x, y], each from -1.0 to 1.0; scripts move the "
                           "character by it. Default [0, 0].");
  d.attribute<&C::dropSpeed>(
       "dropSpeed: float", 0,
       "Vertical speed, negative while rising; scripts move the character by it.")
      .getter("GetDropSpeed");
  d.attribute<&C::isJumping>("isJumping: bool", false, "Whether a jump is in progress.")
      .getter("IsJumpState");
  d.attribute<&C::isPlayer>("isPlayer: bool", false, "Whether the character is the scene's player.")
      .getter("IsPlayer");
  d.attribute<&C::isDead>("isDead: bool", false, "Whether the character is dead; Dead sets it.")
      .getter("IsDead");
  d.attribute<&C::rectListVisible>("rectListVisible: bool", true,
                                   "Whether the frame's collision rectangles are outlined.")
      .setter("SetRectListVisible", "flag");
  d.attribute<&C::UserFunctionDict>("UserFunctionDict: dict[str, Callable[..., Any]]",
                                    host::empty_dict(),
                                    "Functions of scripts by the names that key frames call.");
  d.attribute<&C::CharacterBindingVarArray>(
      "CharacterBindingVarArray: dict[str, Any]", host::lazily(&make_variables),
      "Game variables: name to value. At first \"life\" is 100, \"speed\", \"jumpspeed\" and "
      "\"gravity\" are 0, and \"check_block\", \"check_collision\" and \"check_eventrect\" are "
      "False.");
  d.hidden<&C::entered_frame>().hidden<&C::frame_rects>().step<&C::reset_hidden>();
}

}  // namespace

void GameCharacter::reset_hidden() {
  write(entered_frame, Value());
  write(frame_rects, Value());
  flipped_x = flipped_y = holds_frame = false;
}

void register_character(PyObject* module) {
  CharacterDeclaration character(
      module, "GameCharacter",
      "A figure of several parts that plays key-framed actions, with the state of a figure in a "
      "game.\n\n"
      "`x` and `y` place the anchor relative to the parent's top-left corner, in pixels. The parts "
      "of the action that is played are children of the character.\n\n"
      ">>> hero = Tessora.GameCharacter(None, 10, 20)\n"
      ">>> hero.AddActionFromImageList(\"run\", [\"run_0.png\", \"run_1.png\"], 0.1)\n"
      ">>> hero.PlayAction(\"run\", True)\n"
      "run_0.png load:1");
  character.constructor("(parent: GameNode | None = None, x: float = 0, y: float = 0)");
  character.sets<&C::NodeType>("GameCharacter");
  declare_action_rows(character);
  declare_state_rows(character);
  declare_actions(character);
  declare_key_frames(character);
  declare_playing(character);
  declare_parts(character);
  declare_picking(character);
  declare_movement(character);
  declare_files(character);
  character.method<&set_entry<&C::CharacterBindingVarArray>>(
      "SetCharacterBindingVar(varname: str, varvalue: Any) -> None",
      "Store a value in `CharacterBindingVarArray` under the game variable's name.\n\nA layer that "
      "takes a waiting character in sets every variable again, with its own value.");
  declare_table<&C::CharacterBindingVarArray>(character, "CharacterBindingVar", "varname", "Any");
  character.finish();
}

}  // namespace tessora
