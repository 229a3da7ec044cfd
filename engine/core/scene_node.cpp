// A node's attributes, its child list and its life in a scene.
#include "engine/core/scene_node.hpp"

#include "engine/core/binding_tables.hpp"

namespace tessora {

namespace {

// Sends a setter of two attributes, or writes them where it would do just that.
template <auto First, auto Second>
void set_pair(const host::Message& setter, Value receiver, const Number& first,
              const Number& second) {
  if (auto* node = setter.direct<GameNode>(receiver, &host::native_setter<First, Second>)) {
    node->write(node->*First, first);
    node->write(node->*Second, second);
  } else {
    setter(receiver, first, second);
  }
}

}  // namespace

Ref clamp(GameNode&, Value value, Value min, Value max) {
  const Number given(value);
  if (given < Number(min)) return min;
  if (given > Number(max)) return max;
  return value;
}

void set_position(Value node, const Number& x, const Number& y) {
  set_pair<&GameNode::x, &GameNode::y>(message::SetXY, node, x, y);
}

void set_scale(Value node, const Number& sx, const Number& sy) {
  set_pair<&GameNode::sx, &GameNode::sy>(message::SetSXY, node, sx, sy);
}

Swapped swap_with_neighbour(Value list, Value item, Py_ssize_t step) {
  if (!list.contains(item)) return {};
  const Py_ssize_t from = host::index_of(list, item);
  const Py_ssize_t to = from + step;
  if (to < 0 || to >= list.length()) return {};
  Ref mine = list.item(from);
  Ref other = list.item(to);
  list.set_item(host::integer(from), other);
  list.set_item(host::integer(to), mine);
  return {true, from, to};
}

// The parent learns of the node before its other attributes exist.
void GameNode::announce_to_parent() {
  Ref owner = read(parent);
  if (!owner.is_true()) return;
  Ref scene = message::GetSceneInstance(owner);
  if (scene.is_true()) message::OnLoad(*this, scene);
  message::AddChild(owner, *this);
}

void GameNode::empty_tables() {
  for (LazySlot* table : {&KeyDownFunctionDict, &KeyUpFunctionDict, &BindingVarArray,
                          &BindingEventArray, &BindingPointArray}) {
    write(*table, host::lazy_dict());
  }
}

void GameNode::AddChild(Value child) {
  Ref list = read(children);
  message::SetSortIndex(child, list.length());
  list = read(children);
  list.append(child);
}

void GameNode::RemoveChild(Value child) {
  Ref list = read(children);
  if (!list.contains(child)) return;
  message::RemoveAllChildren(child);
  const Number index = host::ask(message::GetSortIndex, child);
  list = read(children);
  list.call("remove"_name, child);
  host::walk(*this, children, [&](Value other) {
    const Number place = host::ask(message::GetSortIndex, other);
    if (place > index) message::SetSortIndex(other, place - Number(1));
  });
}

void GameNode::RemoveAllChildren() {
  host::walk(*this, children, [](Value child) { message::RemoveAllChildren(child); });
  write(children, host::list());
}

Ref GameNode::GetAllChildrens() {
  Ref all = host::list();
  host::walk(*this, children, [&](Value child) {
    Ref below = message::GetAllChildrens(child);
    for (Ref node : host::items(below)) all.append(node);
    all.append(child);
  });
  return all;
}

void GameNode::ReSortAllChild() {
  Ref by_index = host::dictionary();
  Py_ssize_t count = 0;
  host::walk(*this, children, [&](Value child) {
    Ref index = message::GetSortIndex(child);
    by_index.set_item(index, child);
    ++count;
  });
  Ref sorted = host::list();
  for (Py_ssize_t index = 0; index < count; ++index) {
    sorted.append(by_index.item(host::integer(index)));
  }
  write(children, sorted);
}

void GameNode::swap_children(Value child, Py_ssize_t step) {
  Ref list = read(children);
  const Swapped swapped = swap_with_neighbour(list, child, step);
  if (!swapped.done) return;
  Ref mine = list.item(swapped.to);
  Ref other = list.item(swapped.from);
  message::SetSortIndex(mine, swapped.to);
  message::SetSortIndex(other, swapped.from);
}

void GameNode::LayerUpChild(Value child) {
  swap_children(child, 1);
}
void GameNode::LayerDownChild(Value child) {
  swap_children(child, -1);
}

void GameNode::SetParent(Value p) {
  write(parent, p);
  if (p.is_true()) message::AddChild(p, *this);
}

void GameNode::OnLoad(Value scene) {
  write(sceneInstance, scene);
  host::walk(*this, children, [&](Value child) { message::OnLoad(child, scene); });
  // During construction the table of events does not exist yet.
  if (!is_unset(InnerBindingEventArray)) raise_inner_event(*this, "Load"_name);
}

void GameNode::OnDestroy() {
  raise_inner_event(*this, "Destroy"_name);
  host::walk(*this, children, [](Value child) { message::OnDestroy(child); });
  write(children, host::list());
  empty_tables();
  write(instanceID, -1);
}

void GameNode::CopyTo(Value other) {
  host::copy_rows(*this, other, host::class_info<GameNode>);
}

void declare_tree(NodeDeclaration& node) {
  node.method<&GameNode::AddChild>(
          "AddChild(child: GameNode) -> None",
          "Append `child` to the children and give it its place as sort index.\n\nThe child's "
          "parent is not changed; see SetParent.")
      .method<&GameNode::RemoveChild>(
          "RemoveChild(child: GameNode) -> None",
          "Remove `child`, emptying its whole subtree, and close the gap in the sort indices.\n\n"
          "A node that is no child is ignored.")
      .method<&GameNode::RemoveAllChildren>("RemoveAllChildren() -> None",
                                            "Empty the whole subtree, depth first.")
      .method<&GameNode::GetAllChildrens>(
          "GetAllChildrens() -> list[GameNode]",
          "Return a new flat list of all descendants, leaves before their parents.")
      .method<&GameNode::ReSortAllChild>(
          "ReSortAllChild() -> None",
          "Rebuild the children in the order of their sort indices, which must be 0 to n - 1.\n\n"
          "Raises KeyError for a gap or a double index; the children are then unchanged.")
      .method<&GameNode::LayerUpChild>(
          "LayerUpChild(child: GameNode) -> None",
          "Move `child` one step later in the list: it is drawn later and so seen higher.")
      .method<&GameNode::LayerDownChild>("LayerDownChild(child: GameNode) -> None",
                                         "Move `child` one step earlier in the list.")
      .method<&GameNode::SetParent>(
          "SetParent(p: GameNode | None) -> None",
          "Set `parent` and, unless it is None, join its children.\n\nThe node stays in the list "
          "of a previous parent, too.")
      .method<&GameNode::OnLoad>("OnLoad(sceneInstance: Any) -> None",
                                 "Store the scene and tell it to the whole subtree.")
      .method<&GameNode::OnDestroy>(
          "OnDestroy() -> None",
          "Destroy the subtree, then drop children, key functions and bindings and reset "
          "`instanceID` to -1.")
      .method<&GameNode::CopyTo>(
          "CopyTo(other: GameNode) -> None",
          "Copy what does not tie the node to its place in the scene into `other`, through its "
          "setters: position, scale, angle, size, anchor, flags, callbacks, bindings, user data.")
      .method<&clamp>("Clamp(value: _T, min: _T, max: _T) -> _T",
                      "Return `value` limited to the range from `min` to `max`.");
}

namespace {

void declare_identity(NodeDeclaration& node) {
  using Node = GameNode;
  node.attribute<&Node::NodeType>("NodeType: str", "GameNode",
                                  "Kind of node; every class of nodes has its own.")
      .getter("GetNodeType");
  node.attribute<&Node::sceneInstance>("sceneInstance: Any", nullptr,
                                       "The scene object, or None; OnLoad sets it.")
      .getter("GetSceneInstance");
  node.attribute<&Node::parent>("parent: GameNode | None", host::given("parent"),
                                "The owning node, or None.")
      .getter("GetParent");
  node.attribute<&Node::children>("children: list[GameNode]", host::made<&host::new_list>(),
                                  "Child nodes in draw order, the first drawn first.");
  node.attribute<&Node::sortIndex>("sortIndex: int", 0,
                                   "Place among the parent's children, counted from 0.")
      .pair("GetSortIndex", "SetSortIndex", "i");
  node.step<&Node::announce_to_parent>();
}

void declare_bound(NodeDeclaration& node) {
  using Node = GameNode;
  using host::Copied;
  node.attribute<&Node::KeyDownFunctionDict>(
          "KeyDownFunctionDict: dict[Any, Callable[[], Any]]", host::empty_dict(),
          "Functions to call without arguments when a key is pressed, by the key's name.")
      .copied<Copied::kCopied>();
  node.attribute<&Node::KeyUpFunctionDict>(
          "KeyUpFunctionDict: dict[Any, Callable[[], Any]]", host::empty_dict(),
          "Functions to call without arguments when a key is released, by the key's name.")
      .copied<Copied::kCopied>();
  node.attribute<&Node::BindingVarArray>("BindingVarArray: dict[str, Any]", host::empty_dict(),
                                         "Variables of scripts: name to value.")
      .copied<Copied::kCopied>();
  node.attribute<&Node::BindingEventArray>(
          "BindingEventArray: dict[str, list[Any]]", host::empty_dict(),
          "Script events: event name to [function name, function code].")
      .copied<Copied::kTable>();
  node.attribute<&Node::BindingPointArray>("BindingPointArray: dict[str, tuple[Any, float, float]]",
                                           host::empty_dict(),
                                           "Attachment points: point name to (type, x, y).")
      .copied<Copied::kCopied>();
  node.attribute<&Node::InnerBindingEventArray>(
          "InnerBindingEventArray: dict[str, list[Any]]", host::lazily(&make_node_events),
          "Built-in events (\"Load\", \"Update\", \"Render\", \"Destroy\", \"PickDown\", "
          "\"PickUp\"): event name to [function name, parameter names, extra list], or [function "
          "name, function code] once bound. Nothing is bound at first.")
      .copied<Copied::kTable>();
  node.attribute<&Node::PickDownFunction>("PickDownFunction: Callable[[Self], Any] | None", nullptr,
                                          "Called with the node when it is pressed, or None.")
      .setter("SetPickDownFunction", "f")
      .copied_by("SetPickDownFunction");
  node.attribute<&Node::Enable_PickDown>(
          "Enable_PickDown: bool", true,
          "Whether the node itself takes presses; children take theirs in any case.")
      .setter("EnablePickDownEvent", "v")
      .copied_by("EnablePickDownEvent");
  node.attribute<&Node::PickUpFunction>("PickUpFunction: Callable[[Self], Any] | None", nullptr,
                                        "Called with the node on a release over it, or None.")
      .setter("SetPickUpFunction", "f")
      .copied_by("SetPickUpFunction");
  node.attribute<&Node::Enable_PickUp>(
          "Enable_PickUp: bool", true,
          "Whether the node itself takes releases; children take theirs in any case.")
      .setter("EnablePickUpEvent", "v")
      .copied_by("EnablePickUpEvent");
  node.attribute<&Node::UpdateFunction>(
          "UpdateFunction: Callable[[float], Any] | None", nullptr,
          "Called on every update with the seconds since the last one, or None.")
      .setter("SetUpdateFunction", "f")
      .copied_by("SetUpdateFunction");
}

void declare_place(NodeDeclaration& node) {
  using Node = GameNode;
  node.attribute<&Node::x>("x: float", host::given("x"),
                           "Horizontal place of the anchor, in pixels from the parent's left edge.")
      .pair("GetX", "SetX", "x");
  node.attribute<&Node::y>(
          "y: float", host::given("y"),
          "Vertical place of the anchor, in pixels down from the parent's top edge.")
      .pair("GetY", "SetY", "y");
  node.pair<&Node::x, &Node::y>("GetXY", "SetXY", "(x: float, y: float)").copied_by("SetXY");
  node.attribute<&Node::sx>("sx: float", 1.0,
                            "Horizontal scale factor; it multiplies down the tree.")
      .pair("GetSX", "SetSX", "sx");
  node.attribute<&Node::sy>("sy: float", 1.0, "Vertical scale factor; it multiplies down the tree.")
      .pair("GetSY", "SetSY", "sy");
  node.pair<&Node::sx, &Node::sy>("GetSXY", "SetSXY", "(sx: float, sy: float)").copied_by("SetSXY");
  node.attribute<&Node::angle>("angle: float", 0.0,
                               "Rotation in degrees, counter-clockwise; it adds up down the tree.")
      .pair("GetAngle", "SetAngle", "angle")
      .copied_by("SetAngle");
  node.attribute<&Node::width>("width: float", 0, "Width in pixels before scaling.")
      .pair("GetWidth", "SetWidth", "w")
      .copied_by("SetWidth");
  node.attribute<&Node::height>("height: float", 0, "Height in pixels before scaling.")
      .pair("GetHeight", "SetHeight", "h")
      .copied_by("SetHeight");
  node.attribute<&Node::anchorx>(
          "anchorx: float", 0.0,
          "Anchor as a fraction of the width: 0 is the left edge, 1 the right one.")
      .pair("GetAX", "SetAX", "ax");
  node.attribute<&Node::anchory>(
          "anchory: float", 0.0,
          "Anchor as a fraction of the height: 0 is the top edge, 1 the bottom one.")
      .pair("GetAY", "SetAY", "ay");
  node.pair<&Node::anchorx, &Node::anchory>("GetAXY", "SetAXY", "(ax: float, ay: float)")
      .copied_by("SetAXY");
  node.property<&message::GetX, &message::SetX>(
      "X: float", "Horizontal place of the anchor in pixels, read by GetX and set by SetX.");
  node.property<&message::GetY, &message::SetY>(
      "Y: float", "Vertical place of the anchor in pixels, read by GetY and set by SetY.");
}

void declare_state(NodeDeclaration& node) {
  using Node = GameNode;
  node.attribute<&Node::instanceID>("instanceID: int", -1,
                                    "Instance number in the layer, -1 for none.")
      .pair("GetInstanceID", "SetInstanceID", "i");
  node.attribute<&Node::visible>(
          "visible: bool", true,
          "Whether the node and its subtree are drawn and can be hit; hidden nodes are updated.")
      .pair("IsVisible", "SetVisible", "v")
      .copied_by("SetVisible");
  node.attribute<&Node::ActionPlayer>(
      "ActionPlayer: _ActionPlayer | None", nullptr,
      "Player of the node's actions, None before the first RunAction.");
  node.attribute<&Node::rectvisible>("rectvisible: bool", false,
                                     "Whether the drawn rectangle is outlined.")
      .pair("IsSizeRectVisible", "SetSizeRectVisible", "v")
      .copied_by("SetSizeRectVisible");
  node.attribute<&Node::anchorvisible>("anchorvisible: bool", false,
                                       "Whether the anchor is marked.")
      .pair("IsAnchorVisible", "SetAnchorVisible", "v")
      .copied_by("SetAnchorVisible");
  node.attribute<&Node::lock_xysa>(
      "lock_xysa: bool", false,
      "Whether the cached world values (`WX`, `WY`, `WSX`, `WSY`, `WAngle`) stay as they are.");
  node.attribute<&Node::WSX>("WSX: float", 1.0,
                             "Horizontal world scale factor as of the last draw.");
  node.attribute<&Node::WSY>("WSY: float", 1.0, "Vertical world scale factor as of the last draw.");
  node.attribute<&Node::WAngle>("WAngle: float", 0.0,
                                "World rotation in degrees as of the last draw.");
  node.attribute<&Node::WX>("WX: float", 0.0,
                            "Left edge in pixels of the screen as of the last draw.");
  node.attribute<&Node::WY>("WY: float", 0.0,
                            "Top edge in pixels of the screen as of the last draw.");
  node.attribute<&Node::clicked>("clicked: bool", false, "Whether the node is being pressed.");
  node.attribute<&Node::CheckPickDownChild>(
          "CheckPickDownChild: bool", true,
          "Whether a press or release that a child takes is answered with the child; if false, "
          "with the node itself.")
      .pair("GetCheckPickDownChild", "SetCheckPickDownChild", "v")
      .copied_by("SetCheckPickDownChild");
  node.attribute<&Node::collisionType>("collisionType: int", -1,
                                       "Kind of collision shape, -1 for none.");
  node.attribute<&Node::collisionInfo>(
      "collisionInfo: Any", nullptr,
      "Data of the collision shape; see TiledMap.SetTileObject for nodes on tiles.");
  node.pair<&Node::collisionType, &Node::collisionInfo>("GetCollision", "SetCollision",
                                                        "(type: int, info: Any)")
      .copied_by("SetCollision");
  node.attribute<&Node::editrectenable>(
          "editrectenable: bool", false,
          "Whether the edit rectangle can be dragged with the pointer.")
      .setter("SetEditRectEnable", "v")
      .copied_by("SetEditRectEnable");
  node.attribute<&Node::editrectvisible>("editrectvisible: bool", false,
                                         "Whether the edit rectangle is drawn.")
      .setter("SetEditRectVisible", "v")
      .copied_by("SetEditRectVisible");
  node.attribute<&Node::dragcornerindex>(
      "dragcornerindex: int", -2,
      "Handle of the edit rectangle that is being dragged, 0 to 8; negative for none.");
  node.attribute<&Node::dragbegin_x>(
      "dragbegin_x: float", -1,
      "Horizontal position of the pointer where the last drag began, in pixels of the screen.");
  node.attribute<&Node::dragbegin_y>(
      "dragbegin_y: float", -1,
      "Vertical position of the pointer where the last drag began, in pixels of the screen.");
  node.attribute<&Node::focusIn>("focusIn: bool", false, "Whether the node has the keyboard focus.")
      .pair("IsFocusIn", "SetFocusIn", "v");
  node.attribute<&Node::userData>("userData: Any", nullptr, "Free for scripts.")
      .pair("GetUserData", "SetUserData", "d")
      .copied_by("SetUserData");
}

}  // namespace

void register_scene_node(PyObject* module) {
  NodeDeclaration node(
      module, "GameNode",
      "A placed object of the scene: position, scale, angle, size, children, events.\n\n"
      "`parent` is the owning node or None; a node without one is given to a layer. `x` and `y` "
      "place the anchor relative to the parent's top-left corner, in pixels, `y` downwards. A node "
      "of this class shows nothing itself. Raises AttributeError for a parent that is no node.\n\n"
      ">>> parent = Tessora.GameNode(None, 100, 50)\n"
      ">>> Tessora.GameNode(parent, 10, 20).GetWXY()\n"
      "(110.0, 70.0)");
  node.constructor("(parent: GameNode | None, x: float = 0, y: float = 0)");
  declare_identity(node);
  declare_bound(node);
  declare_place(node);
  declare_state(node);
  declare_tree(node);
  declare_transform(node);
  declare_drawing(node);
  declare_time(node);
  declare_edit_rectangle(node);
  declare_events(node);
  declare_bindings(node);
  node.finish();
}

}  // namespace tessora
