// Construction, child list and lifecycle of a node.
#include "engine/core/scene_node.hpp"

#include "engine/core/binding_tables.hpp"
#include "engine/host/attributes.hpp"

namespace tessora {

namespace {

PyObject* new_dictionary() {
  return PyDict_New();
}

Py_ssize_t index_of(const Ref& list, PyObject* item) {
  return host::check(PySequence_Index(list.get(), item));
}

void write_empty_tables(GameNode& node) {
  for (LazySlot* table : {&node.KeyDownFunctionDict, &node.KeyUpFunctionDict, &node.BindingVarArray,
                          &node.BindingEventArray, &node.BindingPointArray}) {
    node.write(*table, host::lazy_default<&new_dictionary>());
  }
}

}  // namespace

GameNode* game_node(PyObject* object) {
  const host::TypeEntry& entry = host::type_entry(Py_TYPE(object));
  const host::ClassInfo* info = entry.engine_class;
  while (info != nullptr && info != &host::class_info<GameNode>) info = info->base;
  if (info == nullptr) return nullptr;
  auto* node = static_cast<GameNode*>(object);
  node->properties_override = entry.properties_override;
  return node;
}

namespace {

// Sends a setter of two attributes, or writes them where it would do just that.
template <auto First, auto Second>
void set_pair(const host::Message& setter, PyObject* receiver, const Number& first,
              const Number& second) {
  if (auto* node = setter.direct<GameNode>(receiver, &host::native_setter<First, Second>)) {
    node->write(node->*First, first);
    node->write(node->*Second, second);
  } else {
    setter(receiver, first.object(), second.object());
  }
}

}  // namespace

void set_position(PyObject* node, const Number& x, const Number& y) {
  set_pair<&GameNode::x, &GameNode::y>(message::SetXY, node, x, y);
}

void set_scale(PyObject* node, const Number& sx, const Number& sy) {
  set_pair<&GameNode::sx, &GameNode::sy>(message::SetSXY, node, sx, sy);
}

void GameNode::construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y) {
  static PyObject* const zero = host::integer(0).release();
  static PyObject* const minus_one = host::integer(-1).release();
  static PyObject* const minus_two = host::integer(-2).release();
  static PyObject* const zero_real = host::real(0.0).release();
  static PyObject* const one_real = host::real(1.0).release();

  write(NodeType, "GameNode"_name);
  write(sceneInstance, Py_None);
  write(parent, new_parent);
  write(children, host::list());
  write(sortIndex, zero);
  if (host::is_true(new_parent)) {
    Ref owner = Ref::share(new_parent);
    Ref scene = message::GetSceneInstance(owner);
    if (host::is_true(scene)) message::OnLoad(this, scene);
    message::AddChild(owner, static_cast<PyObject*>(this));
  }
  write_empty_tables(*this);
  write(InnerBindingEventArray, host::lazy_default<&make_node_events>());
  write(PickDownFunction, Py_None);
  write(Enable_PickDown, true);
  write(PickUpFunction, Py_None);
  write(Enable_PickUp, true);
  write(UpdateFunction, Py_None);
  write(x, new_x);
  write(y, new_y);
  for (Slot* scale : {&sx, &sy}) write(*scale, one_real);
  write(angle, zero_real);
  for (Slot* size : {&width, &height}) write(*size, zero);
  for (Slot* anchor : {&anchorx, &anchory}) write(*anchor, zero_real);
  write(instanceID, minus_one);
  write(visible, true);
  write(ActionPlayer, Py_None);
  for (Slot* flag : {&rectvisible, &anchorvisible, &lock_xysa}) write(*flag, false);
  for (Slot* scale : {&WSX, &WSY}) write(*scale, one_real);
  for (Slot* place : {&WAngle, &WX, &WY}) write(*place, zero_real);
  write(clicked, false);
  write(CheckPickDownChild, true);
  write(collisionType, minus_one);
  write(collisionInfo, Py_None);
  for (Slot* flag : {&editrectenable, &editrectvisible}) write(*flag, false);
  write(dragcornerindex, minus_two);
  for (Slot* place : {&dragbegin_x, &dragbegin_y}) write(*place, minus_one);
  write(focusIn, false);
  write(userData, Py_None);
}

bool GameNode::has_children() const {
  return properties_override || children.object == nullptr || !PyList_CheckExact(children.object) ||
         PyList_GET_SIZE(children.object) != 0;
}

void GameNode::AddChild(PyObject* child) {
  Ref list = read(children);
  message::SetSortIndex(child, host::integer(host::length(list.get())));
  list = read(children);
  if (PyList_CheckExact(list.get())) {
    ++host::clocks.state;
    host::check(PyList_Append(list.get(), child));
  } else {
    host::call_method(list, "append"_name, child);
  }
}

void GameNode::RemoveChild(PyObject* child) {
  if (!host::contains(read(children).get(), child)) return;
  Ref held = Ref::share(child);
  message::RemoveAllChildren(child);
  Ref index = message::GetSortIndex(child);
  host::call_method(read(children), "remove"_name, child);
  for (host::ListWalk walk(*this, children); PyObject* other = walk.next();) {
    Number place = Number(message::GetSortIndex(other).get());
    if (place > Number(index.get())) message::SetSortIndex(other, (place - Number(1)).object());
  }
}

void GameNode::RemoveAllChildren() {
  if (has_children()) {
    for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
      message::RemoveAllChildren(child);
    }
  }
  write(children, host::list());
}

Ref GameNode::GetAllChildrens() {
  Ref all = host::list();
  if (!has_children()) return all;
  for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
    Ref below = message::GetAllChildrens(child);
    host::check(PyList_SetSlice(all.get(), PyList_GET_SIZE(all.get()), PyList_GET_SIZE(all.get()),
                                below.get()));
    host::check(PyList_Append(all.get(), child));
  }
  return all;
}

void GameNode::ReSortAllChild() {
  Ref by_index = host::take(PyDict_New());
  long long count = 0;
  for (host::ListWalk walk(*this, children); PyObject* child = walk.next(); ++count) {
    host::set_item(by_index.get(), message::GetSortIndex(child).get(), child);
  }
  Ref sorted = host::list();
  for (long long index = 0; index < count; ++index) {
    Ref child = host::get_item(by_index.get(), host::integer(index).get());
    host::check(PyList_Append(sorted.get(), child.get()));
  }
  write(children, sorted);
}

void GameNode::swap_children(PyObject* child, Py_ssize_t step) {
  Ref list = read(children);
  if (!host::contains(list.get(), child)) return;
  Py_ssize_t from = index_of(list, child);
  Py_ssize_t to = from + step;
  if (to < 0 || to >= host::length(list.get())) return;
  Ref first = host::integer(from);
  Ref second = host::integer(to);
  Ref mine = host::get_item(list.get(), first.get());
  Ref other = host::get_item(list.get(), second.get());
  host::set_item(list.get(), first.get(), other.get());
  host::set_item(list.get(), second.get(), mine.get());
  message::SetSortIndex(mine, second);
  message::SetSortIndex(other, first);
}

void GameNode::LayerUpChild(PyObject* child) {
  swap_children(child, 1);
}
void GameNode::LayerDownChild(PyObject* child) {
  swap_children(child, -1);
}

void GameNode::SetParent(PyObject* p) {
  Ref owner = Ref::share(p);
  write(parent, owner);
  if (host::is_true(owner)) message::AddChild(owner, static_cast<PyObject*>(this));
}

void GameNode::OnLoad(PyObject* scene) {
  write(sceneInstance, scene);
  if (has_children()) {
    for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
      message::OnLoad(child, scene);
    }
  }
  // During construction the table of events does not exist yet.
  if (InnerBindingEventArray.object != nullptr) raise_inner_event("Load"_name);
}

void GameNode::OnDestroy() {
  raise_inner_event("Destroy"_name);
  if (has_children()) {
    for (host::ListWalk walk(*this, children); PyObject* child = walk.next();) {
      message::OnDestroy(child);
    }
  }
  write(children, host::list());
  write_empty_tables(*this);
  write(instanceID, Number(-1));
}

void declare_tree(NodeBuilder& builder) {
  builder
      .method<&GameNode::AddChild>(
          "AddChild", {"child"},
          "Append `child` to the children and give it its place as sort index.\n\nThe child's "
          "parent is not changed; see SetParent.")
      .method<&GameNode::RemoveChild>(
          "RemoveChild", {"child"},
          "Remove `child`, emptying its whole subtree, and close the gap in the sort indices.\n\n"
          "A node that is no child is ignored.")
      .method<&GameNode::RemoveAllChildren>("RemoveAllChildren",
                                            "Empty the whole subtree, depth first.")
      .method<&GameNode::GetAllChildrens>(
          "GetAllChildrens",
          "Return a new flat list of all descendants, leaves before their parents.")
      .method<&GameNode::ReSortAllChild>(
          "ReSortAllChild",
          "Rebuild the children in the order of their sort indices, which must be 0 to n - 1.\n\n"
          "Raises KeyError for a gap or a double index; the children are then unchanged.")
      .method<&GameNode::LayerUpChild>(
          "LayerUpChild", {"child"},
          "Move `child` one step later in the list: it is drawn later and so seen higher.")
      .method<&GameNode::LayerDownChild>("LayerDownChild", {"child"},
                                         "Move `child` one step earlier in the list.")
      .accessors<&GameNode::parent>("GetParent", nullptr, "p")
      .method<&GameNode::SetParent>(
          "SetParent", {"p"},
          "Set `parent` and, unless it is None, join its children.\n\nThe node stays in the list "
          "of a previous parent, too.")
      .method<&GameNode::OnLoad>("OnLoad", {"sceneInstance"},
                                 "Store the scene and tell it to the whole subtree.")
      .method<&GameNode::OnDestroy>(
          "OnDestroy",
          "Destroy the subtree, then drop children, key functions and bindings and reset "
          "`instanceID` to -1.")
      .method<&GameNode::CopyTo>(
          "CopyTo", {"other"},
          "Copy what does not tie the node to its place in the scene into `other`, through its "
          "setters: position, scale, angle, size, anchor, flags, callbacks, bindings, user data.");
}

namespace {

template <const host::Message* Getter>
PyObject* get_position(PyObject* self, void*) {
  return host::guarded<PyObject*>(nullptr, [&] { return (*Getter)(self).release(); });
}

template <const host::Message* Setter>
int set_position(PyObject* self, PyObject* value, void*) {
  return host::guarded(-1, [&] {
    if (value == nullptr) host::raise(PyExc_AttributeError, "a position cannot be deleted");
    (*Setter)(self, value);
    return 0;
  });
}

}  // namespace

void register_scene_node(PyObject* module) {
  NodeBuilder builder("GameNode", nullptr);
  builder.attribute("NodeType", &GameNode::NodeType, "kind of node, \"GameNode\" here")
      .attribute("sceneInstance", &GameNode::sceneInstance, "the scene object, or None")
      .attribute("parent", &GameNode::parent, "the owning node, or None")
      .attribute("children", &GameNode::children, "child nodes, the first drawn first")
      .attribute("sortIndex", &GameNode::sortIndex, "place in the parent's children")
      .attribute("KeyDownFunctionDict", &GameNode::KeyDownFunctionDict, "key to press callback")
      .attribute("KeyUpFunctionDict", &GameNode::KeyUpFunctionDict, "key to release callback")
      .attribute("BindingVarArray", &GameNode::BindingVarArray, "named script variables")
      .attribute("BindingEventArray", &GameNode::BindingEventArray, "named script events")
      .attribute("BindingPointArray", &GameNode::BindingPointArray, "named attachment points")
      .attribute("InnerBindingEventArray", &GameNode::InnerBindingEventArray, "built-in events")
      .attribute("PickDownFunction", &GameNode::PickDownFunction,
                 "called with the node when it is pressed, or None")
      .attribute("Enable_PickDown", &GameNode::Enable_PickDown, "whether presses are taken")
      .attribute("PickUpFunction", &GameNode::PickUpFunction,
                 "called with the node on a release over it, or None")
      .attribute("Enable_PickUp", &GameNode::Enable_PickUp, "whether releases are taken")
      .attribute("UpdateFunction", &GameNode::UpdateFunction,
                 "called with the delay on every update, or None")
      .attribute("x", &GameNode::x, "left position of the anchor in the parent, pixels")
      .attribute("y", &GameNode::y, "top position of the anchor in the parent, pixels")
      .attribute("sx", &GameNode::sx, "horizontal scale factor")
      .attribute("sy", &GameNode::sy, "vertical scale factor")
      .attribute("angle", &GameNode::angle, "rotation in degrees, counter-clockwise")
      .attribute("width", &GameNode::width, "unscaled width, pixels")
      .attribute("height", &GameNode::height, "unscaled height, pixels")
      .attribute("anchorx", &GameNode::anchorx, "anchor as a fraction of the width")
      .attribute("anchory", &GameNode::anchory, "anchor as a fraction of the height")
      .attribute("instanceID", &GameNode::instanceID, "number in the layer, -1 for none")
      .attribute("visible", &GameNode::visible, "whether the subtree is drawn and can be hit")
      .attribute("ActionPlayer", &GameNode::ActionPlayer, "player of the node's actions, or None")
      .attribute("rectvisible", &GameNode::rectvisible, "draw the size rectangle")
      .attribute("anchorvisible", &GameNode::anchorvisible, "draw the anchor marker")
      .attribute("lock_xysa", &GameNode::lock_xysa, "freeze the cached world values")
      .attribute("WSX", &GameNode::WSX, "cached horizontal world scale")
      .attribute("WSY", &GameNode::WSY, "cached vertical world scale")
      .attribute("WAngle", &GameNode::WAngle, "cached world rotation, degrees")
      .attribute("WX", &GameNode::WX, "cached left edge on the screen, pixels")
      .attribute("WY", &GameNode::WY, "cached top edge on the screen, pixels")
      .attribute("clicked", &GameNode::clicked, "pressed at the moment")
      .attribute("CheckPickDownChild", &GameNode::CheckPickDownChild,
                 "whether a press or release that a child takes is answered with the child; if "
                 "false, with the "
                 "node itself")
      .attribute("collisionType", &GameNode::collisionType, "kind of collision shape, -1 for none")
      .attribute("collisionInfo", &GameNode::collisionInfo, "data of the collision shape")
      .attribute("editrectenable", &GameNode::editrectenable, "edit rectangle can be dragged")
      .attribute("editrectvisible", &GameNode::editrectvisible, "edit rectangle is drawn")
      .attribute("dragcornerindex", &GameNode::dragcornerindex,
                 "handle being dragged, negative for none")
      .attribute("dragbegin_x", &GameNode::dragbegin_x,
                 "x of the pointer where a drag began, pixels")
      .attribute("dragbegin_y", &GameNode::dragbegin_y,
                 "y of the pointer where a drag began, pixels")
      .attribute("focusIn", &GameNode::focusIn, "has the keyboard focus")
      .attribute("userData", &GameNode::userData, "free for scripts");
  builder.constructor<&GameNode::construct>(
      {"parent", {"x", 0}, {"y", 0}},
      "A placed object of the scene: position, scale, angle, size, children, events.\n\n"
      "`parent` is the owning node or None, `x` and `y` place the anchor relative to the parent's "
      "top-left corner, in pixels.");
  host::add_object_protocol(builder);
  builder.accessors<&GameNode::x>("GetX", "SetX", "x")
      .accessors<&GameNode::y>("GetY", "SetY", "y")
      .accessors<&GameNode::x, &GameNode::y>("GetXY", "SetXY", "x", "y")
      .accessors<&GameNode::sx>("GetSX", "SetSX", "sx")
      .accessors<&GameNode::sy>("GetSY", "SetSY", "sy")
      .accessors<&GameNode::sx, &GameNode::sy>("GetSXY", "SetSXY", "sx", "sy")
      .accessors<&GameNode::angle>("GetAngle", "SetAngle", "angle")
      .accessors<&GameNode::anchorx>("GetAX", "SetAX", "ax")
      .accessors<&GameNode::anchory>("GetAY", "SetAY", "ay")
      .accessors<&GameNode::anchorx, &GameNode::anchory>("GetAXY", "SetAXY", "ax", "ay")
      .accessors<&GameNode::width>("GetWidth", "SetWidth", "w")
      .accessors<&GameNode::height>("GetHeight", "SetHeight", "h")
      .accessors<&GameNode::visible>("IsVisible", "SetVisible", "v")
      .accessors<&GameNode::anchorvisible>("IsAnchorVisible", "SetAnchorVisible", "v")
      .accessors<&GameNode::rectvisible>("IsSizeRectVisible", "SetSizeRectVisible", "v")
      .accessors<&GameNode::focusIn>("IsFocusIn", "SetFocusIn", "v")
      .accessors<&GameNode::collisionType, &GameNode::collisionInfo>("GetCollision", "SetCollision",
                                                                     "type", "info")
      .accessors<&GameNode::CheckPickDownChild>("GetCheckPickDownChild", "SetCheckPickDownChild",
                                                "v")
      .accessors<&GameNode::userData>("GetUserData", "SetUserData", "d")
      .accessors<&GameNode::sortIndex>("GetSortIndex", "SetSortIndex", "i")
      .accessors<&GameNode::instanceID>("GetInstanceID", "SetInstanceID", "i")
      .accessors<&GameNode::sceneInstance>("GetSceneInstance", nullptr, "sceneInstance")
      .accessors<&GameNode::NodeType>("GetNodeType", nullptr, "type")
      .property("X", &get_position<&message::GetX>, &set_position<&message::SetX>,
                "Position of the anchor, through GetX and SetX.")
      .property("Y", &get_position<&message::GetY>, &set_position<&message::SetY>,
                "Position of the anchor, through GetY and SetY.");
  declare_tree(builder);
  declare_transform(builder);
  declare_drawing(builder);
  declare_edit_rectangle(builder);
  declare_events(builder);
  declare_bindings(builder);
  builder.finish(module);
}

}  // namespace tessora
