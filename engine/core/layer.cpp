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
  layer
      .attribute<&Layer::sceneInstance>(
          "sceneInstance: Any", nullptr,
          "The scene object that owns the layer, or None; OnLoad sets it.")
      .getter("GetSceneInstance");
  layer.attribute<&Layer::NodeType>("NodeType: str", "GameLayer", "Kind of object.")
      .getter("GetNodeType");
  layer
      .attribute<&Layer::LayerName>(
          "LayerName: str | None", nullptr,
          "Name of the layer, a part of the names of the scene's event methods, or None.")
      .pair("GetLayerName", "SetLayerName", "name");
  layer
      .attribute<&Layer::GameNodeDict>("GameNodeDict: dict[int, GameNode]", dict,
                                       "Registered nodes by their instance numbers.")
      .getter("GetAllGameNode");
  layer.attribute<&Layer::SortGameNodeInstanceIDArray>(
      "SortGameNodeInstanceIDArray: list[int]", list,
      "Instance numbers in draw order, the node at the bottom first.");
  layer.attribute<&Layer::GameNodeKeyArray>(
      "GameNodeKeyArray: list[int]", list,
      "Instance numbers that the last walk over the nodes visits.");
  layer.attribute<&Layer::AddGameNodeDict>(
      "AddGameNodeDict: dict[int, GameNode]", dict,
      "Nodes by instance number that wait for the end of the next draw to be added.");
  layer.attribute<&Layer::DelGameNodeArray>(
      "DelGameNodeArray: list[int]", list,
      "Instance numbers of nodes that the end of the next update removes.");
  layer.attribute<&Layer::BindingEventArray>(
      "BindingEventArray: dict[str, list[Any]]", dict,
      "Script events: event name to [function name, function code].");
  layer
      .attribute<&Layer::PointArray>(
          "PointArray: list[list[Any]]", list,
          "Debug points, each [name, type, x, y] in pixels of the screen.")
      .getter("GetPointArray");
  layer
      .attribute<&Layer::LineArray>(
          "LineArray: list[list[Any]]", list,
          "Debug lines, each [name, type, x1, y1, x2, y2] in pixels of the screen.")
      .getter("GetLineArray");
  layer
      .attribute<&Layer::RectArray>(
          "RectArray: list[list[Any]]", list,
          "Debug rectangles, each [name, type, x1, y1, x2, y2] in pixels of the screen.")
      .getter("GetRectArray");
  layer.attribute<&Layer::InnerBindingEventArray>(
      "InnerBindingEventArray: dict[str, list[Any]]", host::lazily(&make_layer_events),
      "Built-in events (\"Load\", \"Update\", \"Render\", \"Destroy\", \"PickDown\", \"PickUp\", "
      "\"PickTile\"): event name to [function name, function code]. Nothing is bound at first.");
  layer.attribute<&Layer::UserFunctionDict>("UserFunctionDict: dict[Any, Any]", dict,
                                            "Free for scripts.");
  layer.attribute<&Layer::instanceID>("instanceID: int", 0,
                                      "Instance number that the next node gets.");
  layer
      .attribute<&Layer::visible>("visible: bool", true,
                                  "Whether the layer updates, draws and takes input.")
      .pair("IsVisible", "SetVisible", "v");
  layer.attribute<&Layer::scrollType>(
      "scrollType: int", 0,
      "Direction of the automatic scroll: 0 none, 1 left, 2 right, 3 up, 4 down.");
  layer.attribute<&Layer::scrollSpeed>("scrollSpeed: float", 0,
                                       "Speed of the automatic scroll in pixels per second.");
  layer.pair<&Layer::scrollType, &Layer::scrollSpeed>("GetAutoScroll", "SetAutoScroll",
                                                      "(scrollType: int, scrollSpeed: float)");
  layer.attribute<&Layer::scrollPosX>(
      "scrollPosX: float", 0,
      "Horizontal scroll offset in pixels, with which the nodes are drawn.");
  layer.attribute<&Layer::scrollPosY>(
      "scrollPosY: float", 0, "Vertical scroll offset in pixels, with which the nodes are drawn.");
  layer.attribute<&Layer::font>("font: pygame.font.Font", host::unset(),
                                "Font of the labels of debug points, at first Arial of 18 pixels.");
  layer.step<&Layer::make_font>();
}

void declare_registry(LayerDeclaration& layer) {
  layer
      .method<&Layer::AddGameNode>(
          "AddGameNode(GameNode: GameNode, immMode: bool = True) -> int",
          "Register a node and return its instance number.\n\nWith `immMode` true the node is in "
          "the layer at once, otherwise from the end of the next draw. Raises AttributeError for "
          "what is no node.")
      .method<&Layer::GetGameNode>("GetGameNode(instanceID: int) -> GameNode | None",
                                   "Return the node of that instance number, or None.")
      .method<&Layer::ExistGameNode>("ExistGameNode(instanceID: int) -> bool",
                                     "Return whether a node has that instance number.")
      .method<&Layer::GetGameNodeCount>("GetGameNodeCount() -> int",
                                        "Return the number of registered nodes.")
      .method<&Layer::DelGameNode>(
          "DelGameNode(instanceID: int) -> None",
          "Queue a node and its registered descendants for removal at the end of the next "
          "update.\n\nAn unknown instance number is ignored.")
      .method<&Layer::CleanUpGameNode>(
          "CleanUpGameNode() -> None",
          "Queue every node for removal at the end of the next update.")
      .method<&Layer::LayerUpGameNode>(
          "LayerUpGameNode(instanceID: int) -> None",
          "Draw the node of that instance number one step later, so higher.\n\nUnknown numbers and "
          "the topmost node are ignored.")
      .method<&Layer::LayerDownGameNode>(
          "LayerDownGameNode(instanceID: int) -> None",
          "Draw the node of that instance number one step earlier, so lower.\n\nUnknown numbers "
          "and the lowest node are ignored.")
      .method<&Layer::CheckAllGameNode>(
          "CheckAllGameNode() -> bool",
          "Return whether every node has its instance number and stands once in the draw order.")
      .method<&Layer::OnLoad>("OnLoad(scene: Any) -> None",
                              "Store the scene and tell it to every registered node.")
      .method<&Layer::OnDestroy>(
          "OnDestroy() -> None",
          "Destroy every registered node and forget them; nodes that wait to be added stay.");
}

}  // namespace

void register_layer(PyObject* module) {
  LayerDeclaration layer(
      module, "GameLayer",
      "A plane of a scene: registered nodes, draw order, scroll, debug shapes, events.\n\n"
      "Each frame of a game calls update and then draw; input is handed to the methods On... . "
      "pygame's font module must be initialised: pygame.error otherwise.\n\n"
      ">>> layer = Tessora.GameLayer()\n"
      ">>> number = layer.AddGameNode(Tessora.GUI_Image(None, 10, 20))\n"
      ">>> layer.update(1 / 60)\n"
      ">>> layer.draw(screen)");
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
