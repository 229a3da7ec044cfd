// The registry of a layer: numbers, draw order, addition and removal of nodes.
#include "engine/core/layer.hpp"

#include "engine/core/binding_tables.hpp"
#include "engine/host/fonts.hpp"

namespace tessora {

void GameLayer::make_font() {
  constexpr int kSize = 18;
  Ref make = host::modules::font["SysFont"_name];
  Ref label_font = make("Arial"_name, kSize, false, false);
  host::note_font(label_font);
  write(font, label_font);
}

Ref GameLayer::registered(Value id) {
  Ref nodes = read(GameNodeDict);
  return nodes.find_item(id);
}

void GameLayer::take_in(Value id, Value node) {
  Ref nodes = read(GameNodeDict);
  nodes.set_item(id, node);
  message::SetInstanceID(node, id);
  message::OnLoad(node, read(sceneInstance));
  Ref order = read(SortGameNodeInstanceIDArray);
  order.append(id);
}

Ref GameLayer::AddGameNode(Value node, Value immediate) {
  // The number is taken first: a node may add others when it is loaded.
  Ref id = read(instanceID);
  write(instanceID, Number(id) + Number(1));
  if (immediate.equals_true()) {
    take_in(id, node);
  } else {
    Ref waiting = read(AddGameNodeDict);
    waiting.set_item(id, node);
  }
  return id;
}

namespace {

// A node with game variables hears of each when it is taken in late.
void bind_variables(Value node) {
  if (!message::SetCharacterBindingVar.is_known_to(node)) return;
  Ref variables = message::GetCharacterBindingVarArray(node);
  for (Ref name : host::items(variables)) {
    if (Ref value = variables.find_item(name)) message::SetCharacterBindingVar(node, name, value);
  }
}

}  // namespace

void GameLayer::take_in_deferred() {
  Ref waiting = read(AddGameNodeDict);
  if (waiting.length() == 0) return;
  for (Ref id : host::items(waiting)) {
    Ref node = waiting.find_item(id);
    if (!node) continue;
    waiting.delete_item(id);
    take_in(id, node);
    bind_variables(node);
  }
}

Ref GameLayer::GetGameNode(Value id) {
  Ref node = registered(id);
  return node ? node : host::none();
}

bool GameLayer::ExistGameNode(Value id) {
  return static_cast<bool>(registered(id));
}

Ref GameLayer::GetGameNodeCount() {
  Ref nodes = read(GameNodeDict);
  return host::integer(nodes.length());
}

void GameLayer::DelGameNode(Value id) {
  Ref node = registered(id);
  auto queue = [&]() -> Ref { return read(DelGameNodeArray); };
  if (!node || queue().contains(id)) return;
  Ref below = message::GetAllChildrens(node);
  for (Ref descendant : host::items(below)) {
    Ref own = message::GetInstanceID(descendant);
    if (Number(own) >= Number(0)) queue().append(own);
  }
  queue().append(id);
}

void GameLayer::CleanUpGameNode() {
  each_node([&](Value id, Value) { DelGameNode(id); });
}

void GameLayer::remove_queued() {
  Ref queue = read(DelGameNodeArray);
  if (queue.length() == 0) return;
  for (Ref id : host::items(queue)) {
    // A node may be queued twice: by itself and with an ancestor.
    Ref nodes = read(GameNodeDict);
    if (nodes.contains(id)) nodes.call("pop"_name, id);
    Ref order = read(SortGameNodeInstanceIDArray);
    if (order.contains(id)) order.call("remove"_name, id);
  }
  write(DelGameNodeArray, host::list());
}

void GameLayer::LayerUpGameNode(Value id) {
  swap_with_neighbour(Ref(read(SortGameNodeInstanceIDArray)), id, 1);
}
void GameLayer::LayerDownGameNode(Value id) {
  swap_with_neighbour(Ref(read(SortGameNodeInstanceIDArray)), id, -1);
}

bool GameLayer::CheckAllGameNode() {
  bool consistent = true;
  each_node([&](Value id, Value node) {
    if (!consistent) return;
    Ref own = message::GetInstanceID(node);
    Ref order = read(SortGameNodeInstanceIDArray);
    consistent = own.equals(id) && host::count_of(order, id) == 1;
  });
  return consistent;
}

void GameLayer::OnLoad(Value scene) {
  write(sceneInstance, scene);
  each_node([&](Value, Value node) { message::OnLoad(node, scene); });
  raise_inner_event(*this, "Load"_name);
}

void GameLayer::OnDestroy() {
  raise_inner_event(*this, "Destroy"_name);
  each_node([](Value, Value node) { message::OnDestroy(node); });
  write(GameNodeDict, host::dictionary());
  write(GameNodeKeyArray, host::list());
  write(DelGameNodeArray, host::list());
}

namespace {

using Layer = GameLayer;

void declare_rows(LayerDeclaration& layer) {
  const auto list = host::made<&host::new_list>();
  const auto dict = host::made<&host::dictionary>();
  layer.attribute<&Layer::sceneInstance>("sceneInstance: Any", nullptr, "the owning scene, or None")
      .getter("GetSceneInstance");
  layer.attribute<&Layer::NodeType>("NodeType: str", "GameLayer", "kind of object, \"GameLayer\"")
      .getter("GetNodeType");
  layer
      .attribute<&Layer::LayerName>("LayerName: str | None", nullptr,
                                    "name in the scene's event methods, or None")
      .pair("GetLayerName", "SetLayerName", "name");
  layer
      .attribute<&Layer::GameNodeDict>("GameNodeDict: dict[int, GameNode]", dict,
                                       "instance number to node")
      .getter("GetAllGameNode");
  layer.attribute<&Layer::SortGameNodeInstanceIDArray>("SortGameNodeInstanceIDArray: list[int]",
                                                       list, "instance numbers in draw order");
  layer.attribute<&Layer::GameNodeKeyArray>("GameNodeKeyArray: list[int]", list,
                                            "keys of the last walk");
  layer.attribute<&Layer::AddGameNodeDict>("AddGameNodeDict: dict[int, GameNode]", dict,
                                           "nodes to be added");
  layer.attribute<&Layer::DelGameNodeArray>("DelGameNodeArray: list[int]", list,
                                            "numbers to be removed");
  layer.attribute<&Layer::BindingEventArray>("BindingEventArray: dict[str, list[Any]]", dict,
                                             "named script events");
  layer.attribute<&Layer::PointArray>("PointArray: list[list[Any]]", list, "debug points")
      .getter("GetPointArray");
  layer.attribute<&Layer::LineArray>("LineArray: list[list[Any]]", list, "debug lines")
      .getter("GetLineArray");
  layer.attribute<&Layer::RectArray>("RectArray: list[list[Any]]", list, "debug rectangles")
      .getter("GetRectArray");
  layer.attribute<&Layer::InnerBindingEventArray>("InnerBindingEventArray: dict[str, list[Any]]",
                                                  host::lazily(&make_layer_events),
                                                  "built-in events");
  layer.attribute<&Layer::UserFunctionDict>("UserFunctionDict: dict[Any, Any]", dict,
                                            "free for scripts");
  layer.attribute<&Layer::instanceID>("instanceID: int", 0, "the next instance number");
  layer
      .attribute<&Layer::visible>("visible: bool", true,
                                  "whether the layer updates, draws, takes input")
      .pair("IsVisible", "SetVisible", "v");
  layer.attribute<&Layer::scrollType>("scrollType: int", 0,
                                      "0 none, 1 left, 2 right, 3 up, 4 down");
  layer.attribute<&Layer::scrollSpeed>("scrollSpeed: float", 0, "scroll speed, pixels per second");
  layer.pair<&Layer::scrollType, &Layer::scrollSpeed>("GetAutoScroll", "SetAutoScroll",
                                                      "(scrollType: int, scrollSpeed: float)");
  layer.attribute<&Layer::scrollPosX>("scrollPosX: float", 0, "horizontal scroll offset, pixels");
  layer.attribute<&Layer::scrollPosY>("scrollPosY: float", 0, "vertical scroll offset, pixels");
  layer.attribute<&Layer::font>("font: pygame.font.Font", host::unset(),
                                "font of the labels of debug points");
  layer.step<&Layer::make_font>();
}

void declare_registry(LayerDeclaration& layer) {
  layer
      .method<&Layer::AddGameNode>(
          "AddGameNode(GameNode: GameNode, immMode: bool = True) -> int",
          "Register a node and return its instance number.\n\nWith `immMode` true the node is in "
          "the layer at once, otherwise from the end of the next draw.")
      .method<&Layer::GetGameNode>("GetGameNode(instanceID: int) -> GameNode | None",
                                   "Return the node of that number, or None.")
      .method<&Layer::ExistGameNode>("ExistGameNode(instanceID: int) -> bool",
                                     "Return whether a node has that number.")
      .method<&Layer::GetGameNodeCount>("GetGameNodeCount() -> int",
                                        "Return the number of registered nodes.")
      .method<&Layer::DelGameNode>(
          "DelGameNode(instanceID: int) -> None",
          "Queue a node and its registered descendants for removal at the end of the next update.")
      .method<&Layer::CleanUpGameNode>("CleanUpGameNode() -> None", "Queue every node for removal.")
      .method<&Layer::LayerUpGameNode>("LayerUpGameNode(instanceID: int) -> None",
                                       "Draw the node one step later, so higher.")
      .method<&Layer::LayerDownGameNode>("LayerDownGameNode(instanceID: int) -> None",
                                         "Draw the node one step earlier, so lower.")
      .method<&Layer::CheckAllGameNode>(
          "CheckAllGameNode() -> bool",
          "Return whether every node has its number and stands once in the draw order.")
      .method<&Layer::OnLoad>("OnLoad(scene: Any) -> None",
                              "Store the scene and tell it to every registered node.")
      .method<&Layer::OnDestroy>("OnDestroy() -> None",
                                 "Destroy every registered node and forget them.");
}

}  // namespace

void register_layer(PyObject* module) {
  LayerDeclaration layer(
      module, "GameLayer",
      "A plane of a scene: registered nodes, draw order, scroll, debug shapes, events.\n\n"
      "pygame's font module must be initialised.");
  layer.constructor("()");
  declare_rows(layer);
  declare_registry(layer);
  declare_layer_frame(layer);
  declare_layer_shapes(layer);
  declare_events_table<&Layer::BindingEventArray>(layer, "BindingEvent");
  declare_events_table<&Layer::InnerBindingEventArray>(layer, "InnerBindingEvent");
  layer.finish();
}

}  // namespace tessora
