// Presses on a character and its parts, and collisions of its rectangles.
#include "engine/character/character.hpp"
#include "engine/core/binding_tables.hpp"
#include "engine/core/geometry.hpp"

namespace tessora {

namespace {

// The index of a part, or an empty reference.
Ref index_of_part(GameCharacter& character, Value part) {
  Ref parts = character.read(character.imageDict);
  for (Ref index : host::items(parts)) {
    Ref other = parts.find_item(index);
    if (other && other.is(part)) return index;
  }
  return {};
}

// The part on top of the others whose picture lies under the point.
Ref part_under(GameCharacter& character, Value px, Value py) {
  Ref found = host::none();
  Ref children = character.read(character.children);
  for (Ref child : host::items(children)) {
    if (index_of_part(character, child) && child.call("checkClick"_name, px, py).is_true()) {
      found = child;
    }
  }
  return found;
}

// Whether one of the rectangles hits one of the others, which are moved for good.
bool any_collide(Value mine, Value theirs, const Number& move_x, const Number& move_y) {
  for (Ref other : host::items(theirs)) {
    Number across = move_x;
    Number down = move_y;
    for (Ref own : host::items(mine)) {
      if (rects_collide(own, other, across, down)) return true;
      across = down = Number(0);
    }
  }
  return false;
}

}  // namespace

Ref GameCharacter::OnPickDownFunction(Value px, Value py) {
  write(PickedPartObj, nullptr);
  Ref taker =
      message::OnPickDownFunction.base<&GameNode::OnPickDownFunction, GUI_Image>(*this, px, py);
  if (!taker.is_set()) return taker;
  if (taker.is(*this)) {
    write(PickedPartObj, part_under(*this, px, py));
    return taker;
  }
  if (!index_of_part(*this, taker)) return taker;
  write(PickedPartObj, taker);
  if (!is_true(Enable_PickDown)) return taker;
  // A press on a part is one on the figure.
  Ref callback = read(PickDownFunction);
  if (callback.is_set()) callback(*this);
  write(clicked, true);
  raise_inner_event(*this, "PickDown"_name, px, py);
  return *this;
}

Ref GameCharacter::GetPickedPartObjIndex() {
  Ref part = read(PickedPartObj);
  Ref index = part.is_set() ? index_of_part(*this, part) : Ref();
  return index ? index : host::integer(-1);
}

Ref GameCharacter::collision_rects() {
  Ref rects = host::list();
  Ref lists = read(frame_rects);
  if (!lists) return rects;
  Ref make = host::modules::pygame["Rect"_name];
  for (Ref each : host::items(lists.call("values"_name))) {
    for (Ref rect : host::items(each)) {
      auto side = [&](Py_ssize_t index) { return Number(rect.item(index)); };
      const Number left = host::ask(message::GetWX, *this) + side(0) * read(WSX);
      const Number top = host::ask(message::GetWY, *this) + side(1) * read(WSY);
      const Number wide = side(2) * read(WSX);
      const Number high = side(3) * read(WSY);
      rects.append(make(left, top, wide, high));
    }
  }
  return rects;
}

Ref GameCharacter::GetSizeRect() {
  Ref rects = collision_rects();
  if (rects.length() == 0) {
    Ref parts = read(imageDict);
    for (Ref part : host::items(parts.call("values"_name))) {
      rects.append(message::GetSizeRect(part));
    }
  }
  if (rects.length() == 0)
    return message::GetSizeRect.base<&GameNode::GetSizeRect, GUI_Image>(*this);
  Ref first = rects.item(0);
  return first.call("unionall"_name, rects);
}

bool GameCharacter::checkCollision(Value node, Value move_x, Value move_y) {
  Ref mine = collision_rects();
  if (mine.length() == 0) mine.append(message::GetSizeRect(*this));
  auto* other = host::instance_of<GameCharacter>(node);
  Ref theirs = other != nullptr ? other->collision_rects() : host::list();
  if (theirs.length() == 0) theirs.append(message::GetSizeRect(node));
  return any_collide(mine, theirs, move_x, move_y);
}

bool GameCharacter::checkEventRectCollision(Value rect, Value move_x, Value move_y) {
  Ref mine = collision_rects();
  if (mine.length() == 0) mine.append(message::GetSizeRect(*this));
  // The trial move must not reach the caller's rectangle.
  Ref copy = rect_copy(rect);
  return any_collide(mine, host::list(copy), move_x, move_y);
}

void declare_picking(CharacterDeclaration& character) {
  using C = GameCharacter;
  character
      .method<&C::OnPickDownFunction>(
          "OnPickDownFunction(x: float, y: float) -> GameNode | None",
          "Handle a press at screen position `x`, `y` in pixels, as every node does; a press on a "
          "part is one on the character.\n\n`PickedPartObj` becomes the part hit, or None. Returns "
          "the node that took the press, or None.")
      .method<&C::GetPickedPartObjIndex>(
          "GetPickedPartObjIndex() -> int",
          "Return the index of the part hit by the last press, -1 without one.")
      .method<&C::GetSizeRect>(
          "GetSizeRect() -> pygame.Rect",
          "Return a new pygame.Rect around the frame's collision rectangles, without these around "
          "the parts, and without parts the node's own.\n\nAt GetWX(), GetWY() in the drawn size.")
      .method<&C::checkCollision>(
          "checkCollision(gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool",
          "Return whether one of the frame's collision rectangles, or the size rectangle without "
          "these, collides with the other node's when that is moved, in pixels.")
      .method<&C::checkEventRectCollision>(
          "checkEventRectCollision(objrect: _RectValue, moveX: float = 0, moveY: float = 0) -> "
          "bool",
          "Return whether one of the frame's collision rectangles, or the size rectangle without "
          "these, collides with a moved copy of `objrect`.");
}

}  // namespace tessora
