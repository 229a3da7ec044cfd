// The registry of a layer: numbers, draw order, addition and removal of nodes.
#include "engine/core/layer.hpp"

#include "engine/core/binding_tables.hpp"
#include "engine/host/attributes.hpp"
#include "engine/host/fonts.hpp"

namespace tessora {

void GameLayer::construct() {
  write(sceneInstance, Py_None);
  write(NodeType, "GameLayer"_name);
  write(LayerName, Py_None);
  write(GameNodeDict, host::take(PyDict_New()));
  write(SortGameNodeInstanceIDArray, host::list());
  write(GameNodeKeyArray, host::list());
  write(AddGameNodeDict, host::take(PyDict_New()));
  write(DelGameNodeArray, host::list());
  write(BindingEventArray, host::take(PyDict_New()));
  write(PointArray, host::list());
  write(LineArray, host::list());
  write(RectArray, host::list());
  write(InnerBindingEventArray, host::take(make_layer_events()));
  write(UserFunctionDict, host::take(PyDict_New()));
  write(instanceID, Number(0));
  write(visible, true);
  for (Slot* number : {&scrollType, &scrollSpeed, &scrollPosX, &scrollPosY}) {
    write(*number, Number(0));
  }
  Ref label_font = host::call(host::modules::font["SysFont"_name], host::text("Arial"),
                              host::integer(18), Py_False, Py_False);
  host::note_font(label_font.get());
  write(font, label_font);
}

Ref GameLayer::fresh_keys() {
  Ref nodes = read(GameNodeDict);
  Ref keys = host::take(PyDict_CheckExact(nodes.get()) ? PyDict_Keys(nodes.get())
                                                       : PySequence_List(nodes.get()));
  write(GameNodeKeyArray, keys);
  // The walk keeps a list of its own: a nested one replaces the attribute, a script may change it.
  return host::take(PyList_GetSlice(keys.get(), 0, PyList_GET_SIZE(keys.get())));
}

Ref GameLayer::registered(PyObject* id) {
  Ref nodes = read(GameNodeDict);
  if (PyDict_CheckExact(nodes.get())) {
    PyObject* found = PyDict_GetItemWithError(nodes.get(), id);
    if (found == nullptr && PyErr_Occurred() != nullptr) throw host::HostError();
    return Ref::share(found);
  }
  return host::contains(nodes.get(), id) ? host::get_item(nodes.get(), id) : Ref();
}

void GameLayer::take_in(PyObject* id, PyObject* node) {
  host::set_item(read(GameNodeDict).get(), id, node);
  message::SetInstanceID(node, id);
  message::OnLoad(node, read(sceneInstance));
  host::call_method(read(SortGameNodeInstanceIDArray), "append"_name, id);
}

Ref GameLayer::AddGameNode(PyObject* node, PyObject* immediate) {
  Ref held = Ref::share(node);
  // The number is taken first: a node may add others when it is loaded.
  Ref id = read(instanceID);
  Number next = Number(id.get()) + Number(1);
  write(instanceID, next);
  if (host::equals_true(immediate)) {
    take_in(id.get(), node);
  } else {
    host::set_item(read(AddGameNodeDict).get(), id.get(), node);
  }
  return id;
}

void GameLayer::take_in_deferred() {
  Ref waiting = read(AddGameNodeDict);
  if (host::length(waiting.get()) == 0) return;
  Ref keys = host::take(PySequence_List(waiting.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(keys.get()); ++index) {
    Ref id = Ref::share(PyList_GET_ITEM(keys.get(), index));
    if (!host::contains(waiting.get(), id.get())) continue;
    Ref node = host::get_item(waiting.get(), id.get());
    host::del_item(waiting.get(), id.get());
    take_in(id.get(), node.get());
  }
}

Ref GameLayer::GetGameNode(PyObject* id) {
  Ref node = registered(id);
  return node ? node : host::none();
}

bool GameLayer::ExistGameNode(PyObject* id) {
  return static_cast<bool>(registered(id));
}

Ref GameLayer::GetGameNodeCount() {
  return host::integer(host::length(read(GameNodeDict).get()));
}

void GameLayer::DelGameNode(PyObject* id) {
  Ref number = Ref::share(id);
  Ref node = registered(id);
  if (!node || host::contains(read(DelGameNodeArray).get(), id)) return;
  Ref below = message::GetAllChildrens(node);
  Ref descendants = host::take(PySequence_List(below.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(descendants.get()); ++index) {
    Ref descendant = Ref::share(PyList_GET_ITEM(descendants.get(), index));
    Ref own = message::GetInstanceID(descendant);
    if (Number(own.get()) >= Number(0)) {
      host::call_method(read(DelGameNodeArray), "append"_name, own);
    }
  }
  host::call_method(read(DelGameNodeArray), "append"_name, number);
}

void GameLayer::CleanUpGameNode() {
  each_node([&](const Ref& id, const Ref&) { DelGameNode(id.get()); });
}

void GameLayer::remove_queued() {
  Ref queue = read(DelGameNodeArray);
  if (host::length(queue.get()) == 0) return;
  Ref numbers = host::take(PySequence_List(queue.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(numbers.get()); ++index) {
    Ref id = Ref::share(PyList_GET_ITEM(numbers.get(), index));
    // A node may be queued twice: by itself and with an ancestor.
    if (registered(id.get())) host::call_method(read(GameNodeDict), "pop"_name, id);
    Ref order = read(SortGameNodeInstanceIDArray);
    if (host::contains(order.get(), id.get())) host::call_method(order, "remove"_name, id);
  }
  write(DelGameNodeArray, host::list());
}

void GameLayer::swap_in_order(PyObject* id, Py_ssize_t step) {
  Ref order = read(SortGameNodeInstanceIDArray);
  if (!host::contains(order.get(), id)) return;
  Py_ssize_t from = host::check(PySequence_Index(order.get(), id));
  Py_ssize_t to = from + step;
  if (to < 0 || to >= host::length(order.get())) return;
  Ref first = host::integer(from);
  Ref second = host::integer(to);
  Ref mine = host::get_item(order.get(), first.get());
  Ref other = host::get_item(order.get(), second.get());
  host::set_item(order.get(), first.get(), other.get());
  host::set_item(order.get(), second.get(), mine.get());
}

void GameLayer::LayerUpGameNode(PyObject* id) {
  swap_in_order(id, 1);
}
void GameLayer::LayerDownGameNode(PyObject* id) {
  swap_in_order(id, -1);
}

bool GameLayer::CheckAllGameNode() {
  bool consistent = true;
  each_node([&](const Ref& id, const Ref& node) {
    Ref order = read(SortGameNodeInstanceIDArray);
    consistent = consistent && host::equals(message::GetInstanceID(node).get(), id.get()) &&
                 host::check(PySequence_Count(order.get(), id.get())) == 1;
  });
  return consistent;
}

void GameLayer::OnLoad(PyObject* scene) {
  write(sceneInstance, scene);
  each_node([&](const Ref&, const Ref& node) { message::OnLoad(node, scene); });
  raise_inner_event("Load"_name);
}

void GameLayer::OnDestroy() {
  raise_inner_event("Destroy"_name);
  each_node([](const Ref&, const Ref& node) { message::OnDestroy(node); });
  write(GameNodeDict, host::take(PyDict_New()));
  write(GameNodeKeyArray, host::list());
  write(DelGameNodeArray, host::list());
}

namespace {

void declare_registry(LayerBuilder& builder) {
  builder
      .method<&GameLayer::AddGameNode>(
          "AddGameNode", {"GameNode", {"immMode", true}},
          "Register a node and return its instance number.\n\nWith `immMode` true the node is in "
          "the layer at once, otherwise from the end of the next draw.")
      .method<&GameLayer::GetGameNode>("GetGameNode", {"instanceID"},
                                       "Return the node of that number, or None.")
      .method<&GameLayer::ExistGameNode>("ExistGameNode", {"instanceID"},
                                         "Return whether a node has that number.")
      .accessors<&GameLayer::GameNodeDict>("GetAllGameNode", nullptr, "nodes")
      .method<&GameLayer::GetGameNodeCount>("GetGameNodeCount",
                                            "Return the number of registered nodes.")
      .method<&GameLayer::DelGameNode>(
          "DelGameNode", {"instanceID"},
          "Queue a node and its registered descendants for removal at the end of the next update.")
      .method<&GameLayer::CleanUpGameNode>("CleanUpGameNode", "Queue every node for removal.")
      .method<&GameLayer::LayerUpGameNode>("LayerUpGameNode", {"instanceID"},
                                           "Draw the node one step later, so higher.")
      .method<&GameLayer::LayerDownGameNode>("LayerDownGameNode", {"instanceID"},
                                             "Draw the node one step earlier, so lower.")
      .method<&GameLayer::CheckAllGameNode>(
          "CheckAllGameNode",
          "Return whether every node has its number and stands once in the draw order.")
      .method<&GameLayer::OnLoad>("OnLoad", {"scene"},
                                  "Store the scene and tell it to every registered node.")
      .method<&GameLayer::OnDestroy>("OnDestroy", "Destroy every registered node and forget them.");
}

}  // namespace

void register_layer(PyObject* module) {
  LayerBuilder builder("GameLayer", nullptr);
  builder.attribute("sceneInstance", &GameLayer::sceneInstance, "the owning scene, or None")
      .attribute("NodeType", &GameLayer::NodeType, "kind of object, \"GameLayer\"")
      .attribute("LayerName", &GameLayer::LayerName, "name in the scene's event methods, or None")
      .attribute("GameNodeDict", &GameLayer::GameNodeDict, "instance number to node")
      .attribute("SortGameNodeInstanceIDArray", &GameLayer::SortGameNodeInstanceIDArray,
                 "instance numbers in draw order")
      .attribute("GameNodeKeyArray", &GameLayer::GameNodeKeyArray, "keys of the last walk")
      .attribute("AddGameNodeDict", &GameLayer::AddGameNodeDict, "nodes to be added")
      .attribute("DelGameNodeArray", &GameLayer::DelGameNodeArray, "numbers to be removed")
      .attribute("BindingEventArray", &GameLayer::BindingEventArray, "named script events")
      .attribute("PointArray", &GameLayer::PointArray, "debug points")
      .attribute("LineArray", &GameLayer::LineArray, "debug lines")
      .attribute("RectArray", &GameLayer::RectArray, "debug rectangles")
      .attribute("InnerBindingEventArray", &GameLayer::InnerBindingEventArray, "built-in events")
      .attribute("UserFunctionDict", &GameLayer::UserFunctionDict, "free for scripts")
      .attribute("instanceID", &GameLayer::instanceID, "the next instance number")
      .attribute("visible", &GameLayer::visible, "whether the layer updates, draws, takes input")
      .attribute("scrollType", &GameLayer::scrollType, "0 none, 1 left, 2 right, 3 up, 4 down")
      .attribute("scrollSpeed", &GameLayer::scrollSpeed, "scroll speed, pixels per second")
      .attribute("scrollPosX", &GameLayer::scrollPosX, "horizontal scroll offset, pixels")
      .attribute("scrollPosY", &GameLayer::scrollPosY, "vertical scroll offset, pixels")
      .attribute("font", &GameLayer::font, "font of the labels of debug points");
  builder.constructor<&GameLayer::construct>(
      {},
      "A plane of a scene: registered nodes, draw order, scroll, debug shapes, events.\n\n"
      "pygame's font module must be initialised.");
  host::add_object_protocol(builder);
  builder.accessors<&GameLayer::LayerName>("GetLayerName", "SetLayerName", "name")
      .accessors<&GameLayer::visible>("IsVisible", "SetVisible", "v")
      .accessors<&GameLayer::scrollType, &GameLayer::scrollSpeed>("GetAutoScroll", "SetAutoScroll",
                                                                  "scrollType", "scrollSpeed")
      .accessors<&GameLayer::sceneInstance>("GetSceneInstance", nullptr, "scene")
      .accessors<&GameLayer::NodeType>("GetNodeType", nullptr, "type");
  declare_registry(builder);
  declare_layer_frame(builder);
  declare_layer_shapes(builder);
  declare_events_table<&GameLayer::BindingEventArray>(builder, "BindingEvent");
  declare_events_table<&GameLayer::InnerBindingEventArray>(builder, "InnerBindingEvent");
  builder.finish(module);
}

}  // namespace tessora
