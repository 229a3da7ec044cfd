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
  node.attribute<&Node::NodeType>("NodeType: str", "GameNode", "kind of node, \"GameNode\" here")
      .getter("GetNodeType");
  node.attribute<&Node::sceneInstance>("sceneInstance: Any", nullptr, "the scene object, or None")
      .getter("GetSceneInstance");
  node.attribute<&Node::parent>("parent: GameNode | None", host::given("parent"),
                                "the owning node, or None")
      .getter("GetParent");
  node.attribute<&Node::children>("children: list[GameNode]", host::made<&host::new_list>(),
                                  "child nodes, the first drawn first");
  node.attribute<&Node::sortIndex>("sortIndex: int", 0, "place in the parent's children")
      .pair("GetSortIndex", "SetSortIndex", "i");
  node.step<&Node::announce_to_parent>();
}

void declare_bound(NodeDeclaration& node) {
  using Node = GameNode;
  using host::Copied;
  node.attribute<&Node::KeyDownFunctionDict>("KeyDownFunctionDict: dict[Any, Callable[[], Any]]",
                                             host::empty_dict(), "key to press callback")
      .copied<Copied::kCopied>();
  node.attribute<&Node::KeyUpFunctionDict>("KeyUpFunctionDict: dict[Any, Callable[[], Any]]",
                                           host::empty_dict(), "key to release callback")
      .copied<Copied::kCopied>();
  node.attribute<&Node::BindingVarArray>("BindingVarArray: dict[str, Any]", host::empty_dict(),
                                         "named script variables")
      .copied<Copied::kCopied>();
  node.attribute<&Node::BindingEventArray>("BindingEventArray: dict[str, list[Any]]",
                                           host::empty_dict(), "named script events")
      .copied<Copied::kTable>();
  node.attribute<&Node::BindingPointArray>("BindingPointArray: dict[str, tuple[Any, float, float]]",
                                           host::empty_dict(), "named attachment points")
      .copied<Copied::kCopied>();
  node.attribute<&Node::InnerBindingEventArray>("InnerBindingEventArray: dict[str, list[Any]]",
                                                host::lazily(&make_node_events), "built-in events")
      .copied<Copied::kTable>();
  node.attribute<&Node::PickDownFunction>("PickDownFunction: Callable[[Self], Any] | None", nullptr,
                                          "called with the node when it is pressed, or None")
      .setter("SetPickDownFunction", "f")
      .copied_by("SetPickDownFunction");
  node.attribute<&Node::Enable_PickDown>("Enable_PickDown: bool", true, "whether presses are taken")
      .setter("EnablePickDownEvent", "v")
      .copied_by("EnablePickDownEvent");
  node.attribute<&Node::PickUpFunction>("PickUpFunction: Callable[[Self], Any] | None", nullptr,
                                        "called with the node on a release over it, or None")
      .setter("SetPickUpFunction", "f")
      .copied_by("SetPickUpFunction");
  node.attribute<&Node::Enable_PickUp>("Enable_PickUp: bool", true, "whether releases are taken")
      .setter("EnablePickUpEvent", "v")
      .copied_by("EnablePickUpEvent");
  node.attribute<&Node::UpdateFunction>("UpdateFunction: Callable[[float], Any] | None", nullptr,
                                        "called with the delay on every update, or None")
      .setter("SetUpdateFunction", "f")
      .copied_by("SetUpdateFunction");
}

void declare_place(NodeDeclaration& node) {
  using Node = GameNode;
  node.attribute<&Node::x>("x: float", host::given("x"),
                           "left position of the anchor in the parent, pixels")
      .pair("GetX", "SetX", "x");
  node.attribute<&Node::y>("y: float", host::given("y"),
                           "top position of the anchor in the parent, pixels")
      .pair("GetY", "SetY", "y");
  node.pair<&Node::x, &Node::y>("GetXY", "SetXY", "(x: float, y: float)").copied_by("SetXY");
  node.attribute<&Node::sx>("sx: float", 1.0, "horizontal scale factor")
      .pair("GetSX", "SetSX", "sx");
  node.attribute<&Node::sy>("sy: float", 1.0, "vertical scale factor").pair("GetSY", "SetSY", "sy");
  node.pair<&Node::sx, &Node::sy>("GetSXY", "SetSXY", "(sx: float, sy: float)").copied_by("SetSXY");
  node.attribute<&Node::angle>("angle: float", 0.0, "rotation in degrees, counter-clockwise")
      .pair("GetAngle", "SetAngle", "angle")
      .copied_by("SetAngle");
  node.attribute<&Node::width>("width: float", 0, "unscaled width, pixels")
      .pair("GetWidth", "SetWidth", "w")
      .copied_by("SetWidth");
  node.attribute<&Node::height>("height: float", 0, "unscaled height, pixels")
      .pair("GetHeight", "SetHeight", "h")
      .copied_by("SetHeight");
  node.attribute<&Node::anchorx>("anchorx: float", 0.0, "anchor as a fraction of the width")
      .pair("GetAX", "SetAX", "ax");
  node.attribute<&Node::anchory>("anchory: float", 0.0, "anchor as a fraction of the height")
      .pair("GetAY", "SetAY", "ay");
  node.pair<&Node::anchorx, &Node::anchory>("GetAXY", "SetAXY", "(ax: float, ay: float)")
      .copied_by("SetAXY");
  node.property<&message::GetX, &message::SetX>("X: float",
                                                "Position of the anchor, through GetX and SetX.");
  node.property<&message::GetY, &message::SetY>("Y: float",
                                                "Position of the anchor, through GetY and SetY.");
}

void declare_state(NodeDeclaration& node) {
  using Node = GameNode;
  node.attribute<&Node::instanceID>("instanceID: int", -1, "number in the layer, -1 for none")
      .pair("GetInstanceID", "SetInstanceID", "i");
  node.attribute<&Node::visible>("visible: bool", true,
                                 "whether the subtree is drawn and can be hit")
      .pair("IsVisible", "SetVisible", "v")
      .copied_by("SetVisible");
  node.attribute<&Node::ActionPlayer>("ActionPlayer: _ActionPlayer | None", nullptr,
                                      "player of the node's actions, or None");
  node.attribute<&Node::rectvisible>("rectvisible: bool", false, "draw the size rectangle")
      .pair("IsSizeRectVisible", "SetSizeRectVisible", "v")
      .copied_by("SetSizeRectVisible");
  node.attribute<&Node::anchorvisible>("anchorvisible: bool", false, "draw the anchor marker")
      .pair("IsAnchorVisible", "SetAnchorVisible", "v")
      .copied_by("SetAnchorVisible");
  node.attribute<&Node::lock_xysa>("lock_xysa: bool", false, "freeze the cached world values");
  node.attribute<&Node::WSX>("WSX: float", 1.0, "cached horizontal world scale");
  node.attribute<&Node::WSY>("WSY: float", 1.0, "cached vertical world scale");
  node.attribute<&Node::WAngle>("WAngle: float", 0.0, "cached world rotation, degrees");
  node.attribute<&Node::WX>("WX: float", 0.0, "cached left edge on the screen, pixels");
  node.attribute<&Node::WY>("WY: float", 0.0, "cached top edge on the screen, pixels");
  node.attribute<&Node::clicked>("clicked: bool", false, "pressed at the moment");
  node.attribute<&Node::CheckPickDownChild>(
          "CheckPickDownChild: bool", true,
          "whether a press or release that a child takes is answered with the child; if false, "
          "with the node itself")
      .pair("GetCheckPickDownChild", "SetCheckPickDownChild", "v")
      .copied_by("SetCheckPickDownChild");
  node.attribute<&Node::collisionType>("collisionType: int", -1,
                                       "kind of collision shape, -1 for none");
  node.attribute<&Node::collisionInfo>("collisionInfo: Any", nullptr,
                                       "data of the collision shape");
  node.pair<&Node::collisionType, &Node::collisionInfo>("GetCollision", "SetCollision",
                                                        "(type: int, info: Any)")
      .copied_by("SetCollision");
  node.attribute<&Node::editrectenable>("editrectenable: bool", false,
                                        "edit rectangle can be dragged")
      .setter("SetEditRectEnable", "v")
      .copied_by("SetEditRectEnable");
  node.attribute<&Node::editrectvisible>("editrectvisible: bool", false, "edit rectangle is drawn")
      .setter("SetEditRectVisible", "v")
      .copied_by("SetEditRectVisible");
  node.attribute<&Node::dragcornerindex>("dragcornerindex: int", -2,
                                         "handle being dragged, negative for none");
  node.attribute<&Node::dragbegin_x>("dragbegin_x: float", -1,
                                     "x of the pointer where a drag began, pixels");
  node.attribute<&Node::dragbegin_y>("dragbegin_y: float", -1,
                                     "y of the pointer where a drag began, pixels");
  node.attribute<&Node::focusIn>("focusIn: bool", false, "has the keyboard focus")
      .pair("IsFocusIn", "SetFocusIn", "v");
  node.attribute<&Node::userData>("userData: Any", nullptr, "free for scripts")
      .pair("GetUserData", "SetUserData", "d")
      .copied_by("SetUserData");
}

}  // namespace

void register_scene_node(PyObject* module) {
  NodeDeclaration node(
      module, "GameNode",
      "A placed object of the scene: position, scale, angle, size, children, events.\n\n"
      "`parent` is the owning node or None, `x` and `y` place the anchor relative to the parent's "
      "top-left corner, in pixels.");
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
