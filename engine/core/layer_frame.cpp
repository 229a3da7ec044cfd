// What a layer does in every frame: update, scroll, draw, input, events.
#include "engine/core/binding_tables.hpp"
#include "engine/core/layer.hpp"

namespace tessora {

namespace {

// The collision kind of a node that takes part in no collision.
constexpr int kNoCollision = -1;

bool takes_part_in_collisions(PyObject* node) {
  Ref kind = host::find_attr(node, "collisionType"_name);
  return !kind || !host::equals(kind.get(), host::integer(kNoCollision).get());
}

std::pair<Ref, Ref> scene_size(const Ref& scene) {
  Ref size = host::call_method(scene, "GetSceneSize"_name);
  Ref items = host::take(PySequence_List(size.get()));
  Py_ssize_t count = PyList_GET_SIZE(items.get());
  if (count > 2) host::raise(PyExc_ValueError, "too many values to unpack (expected 2)");
  if (count < 2) {
    PyErr_Format(PyExc_ValueError, "not enough values to unpack (expected 2, got %zd)", count);
    throw host::HostError();
  }
  return {Ref::share(PyList_GET_ITEM(items.get(), 0)), Ref::share(PyList_GET_ITEM(items.get(), 1))};
}

}  // namespace

void GameLayer::scroll(PyObject* delay) {
  if (!is_set(sceneInstance) || !(number(scrollType) > Number(0))) return;
  auto [wide, high] = scene_size(read(sceneInstance));
  Number width(wide.get());
  Number height(high.get());
  Ref type = read(scrollType);
  Number step = number(scrollSpeed) * Number(delay);
  Number zero(0);
  auto is = [&](int kind) { return Number(type.get()) == Number(kind); };
  if (is(1)) {
    write(scrollPosX, number(scrollPosX) - step);
    if (number(scrollPosX) + width < zero) write(scrollPosX, zero + width);
  } else if (is(2)) {
    write(scrollPosX, number(scrollPosX) + step);
    if (number(scrollPosX) > zero + width) write(scrollPosX, zero - width);
  } else if (is(3)) {
    write(scrollPosY, number(scrollPosY) - step);
    // Upwards it starts again at the width, not at the height: games place their backgrounds so.
    if (number(scrollPosY) + height < zero) write(scrollPosY, zero + width);
  } else if (is(4)) {
    write(scrollPosY, number(scrollPosY) + step);
    if (number(scrollPosY) > zero + height) write(scrollPosY, zero - height);
  }
}

void GameLayer::update(PyObject* delay) {
  if (!is_visible(this)) return;
  scroll(delay);
  if (host::length(read(GameNodeDict).get()) != 0) {
    each_node([&](const Ref&, const Ref& node) { message::update(node, delay); });
  }
  remove_queued();
  raise_inner_event("Update"_name);
}

void GameLayer::draw(PyObject* screen) {
  if (!is_visible(this)) return;
  static PyObject* const scale = host::real(1.0).release();
  Ref order = read(SortGameNodeInstanceIDArray);
  Ref numbers = host::take(PySequence_List(order.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(numbers.get()); ++index) {
    Ref node = registered(PyList_GET_ITEM(numbers.get(), index));
    if (node) message::draw(node, screen, read(scrollPosX), read(scrollPosY), scale);
  }
  draw_shapes(screen);
  take_in_deferred();
  raise_inner_event("Render"_name);
}

namespace {

// Offers an input to every registered node: none of them stops the walk.
template <class... Args>
bool forward(GameLayer& layer, const host::Message& handler, Args... args) {
  if (!is_visible(&layer)) return false;
  if (host::length(layer.read(layer.GameNodeDict).get()) == 0) return true;
  layer.each_node([&](const Ref&, const Ref& node) { handler(node, args...); });
  return true;
}

}  // namespace

void GameLayer::OnPickDownFunction(PyObject* px, PyObject* py) {
  if (!forward(*this, message::OnPickDownFunction, px, py)) return;
  raise_inner_event("PickDown"_name, point_params(px, py).get());
}

void GameLayer::OnPickUpFunction(PyObject* px, PyObject* py) {
  if (!forward(*this, message::OnPickUpFunction, px, py)) return;
  raise_inner_event("PickUp"_name, point_params(px, py).get());
}

void GameLayer::OnKeyDownFunction(PyObject* key) {
  forward(*this, message::OnKeyDownFunction, key);
}

void GameLayer::OnKeyUpFunction(PyObject* key) {
  forward(*this, message::OnKeyUpFunction, key);
}

void GameLayer::OnEditRectDraging(PyObject* px, PyObject* py) {
  forward(*this, message::OnEditRectDraging, px, py);
}

bool GameLayer::checkCollision(PyObject* node, PyObject* move_x, PyObject* move_y) {
  bool hit = false;
  each_node([&](const Ref&, const Ref& other) {
    if (hit || other.get() == node || !takes_part_in_collisions(other.get())) return;
    hit = host::is_true(message::checkCollision(other, node, move_x, move_y));
  });
  return hit;
}

bool GameLayer::checkEventRectCollision(PyObject* rect, PyObject* move_x, PyObject* move_y) {
  bool hit = false;
  each_node([&](const Ref&, const Ref& other) {
    if (hit || !takes_part_in_collisions(other.get())) return;
    hit = host::is_true(message::checkEventRectCollision(other, rect, move_x, move_y));
  });
  return hit;
}

Ref GameLayer::CallEvent(PyObject* event, PyObject* params) {
  return call_bound_event(read(BindingEventArray), read(sceneInstance), event, params,
                          read(LayerName).get());
}

Ref GameLayer::CallInnerEvent(PyObject* event, PyObject* params) {
  return call_bound_event(read(InnerBindingEventArray), read(sceneInstance), event, params,
                          read(LayerName).get());
}

void GameLayer::raise_inner_event(PyObject* event, PyObject* params) {
  auto* self = static_cast<PyObject*>(this);
  if (!is_bound(read(InnerBindingEventArray), event)) return;
  if (params == nullptr) {
    message::CallInnerEvent(self, event);
  } else {
    message::CallInnerEvent(self, event, params);
  }
}

void declare_layer_frame(LayerBuilder& builder) {
  builder
      .method<&GameLayer::update>(
          "update", {"delay"},
          "Advance the layer by `delay` seconds: scroll, update the nodes, remove queued ones.\n\n"
          "A hidden layer does nothing.")
      .method<&GameLayer::draw>(
          "draw", {"screen"},
          "Draw the nodes in draw order with the scroll position as camera, then the debug shapes, "
          "then take in the nodes that wait to be added.")
      .method<&GameLayer::OnPickDownFunction>("OnPickDownFunction", {"x", "y"},
                                              "Offer a press (screen pixels) to every node.")
      .method<&GameLayer::OnPickUpFunction>("OnPickUpFunction", {"x", "y"},
                                            "Offer a release (screen pixels) to every node.")
      .method<&GameLayer::OnKeyDownFunction>("OnKeyDownFunction", {"key"},
                                             "Offer a pressed key to every node.")
      .method<&GameLayer::OnKeyUpFunction>("OnKeyUpFunction", {"key"},
                                           "Offer a released key to every node.")
      .method<&GameLayer::OnEditRectDraging>(
          "OnEditRectDraging", {"x", "y"},
          "Tell the pointer's position to every node, of which one may be dragged.")
      .method<&GameLayer::checkCollision>(
          "checkCollision", {"gameNode", {"moveX", 0}, {"moveY", 0}},
          "Return whether `gameNode`, moved by so many pixels, hits another node whose "
          "`collisionType` is not -1.")
      .method<&GameLayer::checkEventRectCollision>(
          "checkEventRectCollision", {"objrect", {"moveX", 0}, {"moveY", 0}},
          "Return whether the moved rectangle hits a node whose `collisionType` is not -1.")
      .method<&GameLayer::CallEvent>(
          "CallEvent", {"eventName", {"params", nullptr}},
          "Call the scene's method \"on_\" + layer name + \"_\" + function name that is bound to "
          "the event.\n\n`params` is a dictionary of keyword arguments. Returns the method's "
          "result, None when nothing is bound or the scene has no such method.")
      .method<&GameLayer::CallInnerEvent>(
          "CallInnerEvent", {"eventName", {"params", nullptr}},
          "Call the scene's method that is bound to a built-in event, as CallEvent does.");
}

}  // namespace tessora
