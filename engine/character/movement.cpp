// Movement, jumps and the player's role of a character.
#include "engine/character/character.hpp"

namespace tessora {

namespace {

void tell_player(GameCharacter& character, Value player) {
  Ref scene = character.read(character.sceneInstance);
  if (scene.is_set()) scene.call("SetPlayer"_name, player);
}

void move_along(GameCharacter& character, Value axis, Value direction) {
  Ref wanted = character.read(character.moveDir);
  wanted.set_item(axis, direction);
}

}  // namespace

void GameCharacter::SetPlayer() {
  write(isPlayer, true);
  tell_player(*this, *this);
}

void GameCharacter::UnsetPlayer() {
  write(isPlayer, false);
  tell_player(*this, nullptr);
}

void GameCharacter::Dead() {
  write(isDead, true);
}

bool GameCharacter::IsUpState() {
  return read(dropSpeed) < Number(0);
}

void GameCharacter::Jump(Value speed) {
  if (speed.is_set()) {
    write(dropSpeed, speed);
  } else {
    Ref variables = read(CharacterBindingVarArray);
    write(dropSpeed, variables.item("jumpspeed"_name));
  }
  write(isJumping, true);
}

void GameCharacter::StopJump() {
  write(isJumping, false);
  write(dropSpeed, 0);
}

void GameCharacter::StopMove() {
  write(moveDir, host::list(0, 0));
}

void GameCharacter::Move_Right() {
  move_along(*this, 0_const, 1.0_const);
}
void GameCharacter::Move_Left() {
  move_along(*this, 0_const, host::real(-1.0));
}
void GameCharacter::Move_Down() {
  move_along(*this, 1_const, 1.0_const);
}
void GameCharacter::Move_Up() {
  move_along(*this, 1_const, host::real(-1.0));
}

bool GameCharacter::isMoveState() {
  Ref wanted = read(moveDir);
  return host::any_of(wanted, [](Value direction) { return !direction.equals(0_const); });
}

void declare_movement(CharacterDeclaration& character) {
  using C = GameCharacter;
  character
      .method<&C::SetPlayer>(
          "SetPlayer() -> None",
          "Make the character the player and tell it to the scene's SetPlayer(), if there is a "
          "scene.\n\nRaises AttributeError when the scene has no such method.")
      .method<&C::UnsetPlayer>(
          "UnsetPlayer() -> None",
          "Make the character no player and call the scene's SetPlayer(None), if there is a "
          "scene.\n\nRaises AttributeError when the scene has no such method.")
      .method<&C::Dead>("Dead() -> None",
                        "Set `isDead` to True; what follows from it is the script's.")
      .method<&C::IsUpState>("IsUpState() -> bool",
                             "Return whether the character rises: `dropSpeed` is negative.")
      .method<&C::Jump>(
          "Jump(jumpspeed: float | None = None) -> None",
          "Start a jump: `dropSpeed` becomes `jumpspeed`, by default the game variable of that "
          "name, whose sign is kept.\n\nRaises KeyError when there is no such variable.")
      .method<&C::StopJump>("StopJump() -> None", "End the jump and set `dropSpeed` to 0.")
      .method<&C::StopMove>("StopMove() -> None", "Set `moveDir` to a new list [0, 0].")
      .method<&C::Move_Right>("Move_Right() -> None",
                              "Set the horizontal direction in `moveDir` to 1.0.")
      .method<&C::Move_Left>("Move_Left() -> None",
                             "Set the horizontal direction in `moveDir` to -1.0.")
      .method<&C::Move_Down>("Move_Down() -> None",
                             "Set the vertical direction in `moveDir` to 1.0.")
      .method<&C::Move_Up>("Move_Up() -> None", "Set the vertical direction in `moveDir` to -1.0.")
      .method<&C::isMoveState>("isMoveState() -> bool",
                               "Return whether a direction in `moveDir` is not 0.");
}

}  // namespace tessora
