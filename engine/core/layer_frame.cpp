// What a layer does in every frame: update, scroll, draw, input, events.
#include "engine/core/binding_tables.hpp"
#include "engine/core/layer.hpp"

namespace tessora {

namespace {

// Nodes of type -1 have no collision shape, but for tile maps, which collide by their cells.
bool takes_part_in_collisions(Value node) {
  Ref kind = node.find_attr("collisionType"_name);
  if (!kind || !kind.equals(host::integer(-1))) return true;
  Ref type = node.find_attr("NodeType"_name);
  return type && type.is_text("TiledMap"_name);
}

// A tile map answers for both directions.
bool is_hit(Value answer) {
  if (!answer.is_plain_tuple()) return answer.is_true();
  return host::any_of(answer, [](Value part) { return part.is_true(); });
}

// Whether a node other than `own` says yes.
template <class... Args>
bool any_hit(GameLayer& layer, Value own, const host::Message& test, const Args&... args) {
  bool hit = false;
  layer.each_node([&](Value, Value other) {
    if (hit || other.is(own) || !takes_part_in_collisions(other)) return;
    Ref answer = test(other, args...);
    hit = is_hit(answer);
  });
  return hit;
}

std::pair<Number, Number> scene_size(Value scene) {
  Ref size = scene.call("GetSceneSize"_name);
  const host::Items sides = host::items(size);
  if (sides.size() > 2) host::raise(PyExc_ValueError, "too many values to unpack (expected 2)");
  if (sides.size() < 2) {
    host::raise(PyExc_ValueError, "not enough values to unpack (expected 2, got %zd)",
                sides.size());
  }
  return {sides[0], sides[1]};
}

}  // namespace

void GameLayer::scroll(Value delay) {
  if (!is_set(sceneInstance) || !(read(scrollType) > Number(0))) return;
  Ref scene = read(sceneInstance);
  const auto [width, height] = scene_size(scene);
  const Number type = read(scrollType);
  const Number step = read(scrollSpeed) * Number(delay);
  const Number zero(0);
  if (type == Number(1)) {
    write(scrollPosX, read(scrollPosX) - step);
    if (read(scrollPosX) + width < zero) write(scrollPosX, zero + width);
  } else if (type == Number(2)) {
    write(scrollPosX, read(scrollPosX) + step);
    if (read(scrollPosX) > zero + width) write(scrollPosX, zero - width);
  } else if (type == Number(3)) {
    write(scrollPosY, read(scrollPosY) - step);
    // Upwards it starts again at the width, not at the height: games place their backgrounds so.
    if (read(scrollPosY) + height < zero) write(scrollPosY, zero + width);
  } else if (type == Number(4)) {
    write(scrollPosY, read(scrollPosY) + step);
    if (read(scrollPosY) > zero + height) write(scrollPosY, zero - height);
  }
}

void GameLayer::update(Value delay) {
  if (!is_visible(*this)) return;
  scroll(delay);
  each_node([&](Value, Value node) { message::update(node, delay); });
  remove_queued();
  raise_inner_event(*this, "Update"_name);
}

void GameLayer::draw(Value screen) {
  if (!is_visible(*this)) return;
  Ref order = read(SortGameNodeInstanceIDArray);
  for (Ref id : host::items(order)) {
    Ref node = registered(id);
    if (node) message::draw(node, screen, read(scrollPosX), read(scrollPosY), 1.0_const);
  }
  draw_shapes(screen);
  take_in_deferred();
  raise_inner_event(*this, "Render"_name);
}

namespace {

// Offers an input to every registered node: none of them stops the walk. False for a hidden layer.
template <class... Args>
bool forward(GameLayer& layer, const host::Message& handler, Args... args) {
  if (!is_visible(layer)) return false;
  layer.each_node([&](Value, Value node) { handler(node, args...); });
  return true;
}

}  // namespace

void GameLayer::OnPickDownFunction(Value px, Value py) {
  if (!forward(*this, message::OnPickDownFunction, px, py)) return;
  raise_inner_event(*this, "PickDown"_name, px, py);
}

void GameLayer::OnPickUpFunction(Value px, Value py) {
  if (!forward(*this, message::OnPickUpFunction, px, py)) return;
  raise_inner_event(*this, "PickUp"_name, px, py);
}

void GameLayer::OnKeyDownFunction(Value key) {
  forward(*this, message::OnKeyDownFunction, key);
}

void GameLayer::OnKeyUpFunction(Value key) {
  forward(*this, message::OnKeyUpFunction, key);
}

void GameLayer::OnEditRectDraging(Value px, Value py) {
  forward(*this, message::OnEditRectDraging, px, py);
}

bool GameLayer::checkCollision(Value node, Value move_x, Value move_y) {
  return any_hit(*this, node, message::checkCollision, node, move_x, move_y);
}

bool GameLayer::checkEventRectCollision(Value rect, Value move_x, Value move_y) {
  return any_hit(*this, rect, message::checkEventRectCollision, rect, move_x, move_y);
}

Ref GameLayer::CallEvent(Value event, Value params) {
  Ref table = read(BindingEventArray);
  Ref scene = read(sceneInstance);
  return call_bound_event(table, scene, event, params, Ref(read(LayerName)));
}

Ref GameLayer::CallInnerEvent(Value event, Value params) {
  Ref table = read(InnerBindingEventArray);
  Ref scene = read(sceneInstance);
  return call_bound_event(table, scene, event, params, Ref(read(LayerName)));
}

void declare_layer_frame(LayerDeclaration& layer) {
  using Layer = GameLayer;
  layer
      .method<&Layer::update>(
          "update(delay: float) -> None",
          "Advance the layer by `delay` seconds: scroll, update the nodes, remove queued "
          "ones.\n\nA hidden layer does nothing. The automatic scroll asks the scene for "
          "GetSceneSize(), (width, height) in pixels: AttributeError if it has none.")
      .method<&Layer::draw>(
          "draw(screen: pygame.Surface) -> None",
          "Draw the nodes in draw order with the scroll position as camera, then the debug shapes, "
          "then take in the nodes that wait to be added.")
      .method<&Layer::OnPickDownFunction>(
          "OnPickDownFunction(x: float, y: float) -> None",
          "Offer a press at `x`, `y` (pixels of the screen) to every node; none of them stops it.")
      .method<&Layer::OnPickUpFunction>("OnPickUpFunction(x: float, y: float) -> None",
                                        "Offer a release at `x`, `y` (pixels of the screen) to "
                                        "every node; none of them stops it.")
      .method<&Layer::OnKeyDownFunction>(
          "OnKeyDownFunction(key: Hashable) -> None",
          "Offer a pressed key to every node.\n\n`key` is what the scripts name keys by; edits "
          "know the names of pygame.key.name().")
      .method<&Layer::OnKeyUpFunction>(
          "OnKeyUpFunction(key: Hashable) -> None",
          "Offer a released key to every node; `key` is as for OnKeyDownFunction.")
      .method<&Layer::OnEditRectDraging>("OnEditRectDraging(x: float, y: float) -> None",
                                         "Tell the pointer's position (pixels of the screen) to "
                                         "every node, of which one may be dragged.")
      .method<&Layer::checkCollision>(
          "checkCollision(gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool",
          "Return whether `gameNode`, moved by `moveX` and `moveY` pixels, hits another node whose "
          "`collisionType` is not -1, or a tile map.")
      .method<&Layer::checkEventRectCollision>(
          "checkEventRectCollision(objrect: _RectValue, moveX: float = 0, moveY: float = 0) -> "
          "bool",
          "Return whether `objrect`, moved by `moveX` and `moveY` pixels, hits a node whose "
          "`collisionType` is not -1, or a tile map.")
      .method<&Layer::CallEvent>(
          "CallEvent(eventName: str, params: Mapping[str, Any] | None = None) -> Any",
          "Call the scene's method \"on_\" + layer name + \"_\" + function name that is bound to "
          "the event.\n\n`params` is a dictionary of keyword arguments. Returns the method's "
          "result, None when nothing is bound or the scene has no such method.")
      .method<&Layer::CallInnerEvent>(
          "CallInnerEvent(eventName: str, params: Mapping[str, Any] | None = None) -> Any",
          "Call the scene's method that is bound to a built-in event; arguments and result are "
          "those of CallEvent.");
}

}  // namespace tessora
