// The scene node: base of everything that is placed, drawn and hit-tested.
#pragma once

#include "engine/core/messages.hpp"
#include "engine/host/items.hpp"
#include "engine/host/modules.hpp"
#include "engine/object/declaration.hpp"
#include "engine/object/walk.hpp"
#include "engine/render/canvas.hpp"

namespace tessora {

using namespace host::literals;
using host::LazySlot;
using host::Number;
using host::Ref;
using host::Slot;
using host::Value;

struct GameNode : host::Object {
  Slot NodeType, sceneInstance, parent, children, sortIndex;
  LazySlot KeyDownFunctionDict, KeyUpFunctionDict;
  LazySlot BindingVarArray, BindingEventArray, BindingPointArray, InnerBindingEventArray;
  Slot PickDownFunction, Enable_PickDown, PickUpFunction, Enable_PickUp, UpdateFunction;
  Slot x, y, sx, sy, angle, width, height, anchorx, anchory;
  Slot instanceID, visible, ActionPlayer, rectvisible, anchorvisible;
  Slot lock_xysa, WSX, WSY, WAngle, WX, WY;
  Slot clicked, CheckPickDownChild, collisionType, collisionInfo;
  Slot editrectenable, editrectvisible, dragcornerindex, dragbegin_x, dragbegin_y;
  Slot focusIn, userData;

  // World values without the camera.
  struct World {
    double x, y, sx, sy, angle;
  };
  struct {
    std::uint64_t state;  // the tick of the clock at which the values were computed
    World values;
  } world_memo;
  // While a derived class has raised the event of a press by itself.
  bool tells_presses_itself;
  // The attributes and queries of one direction.
  struct Axis;

  // The node's own list of children that it steps and draws itself and leaves out of its input: the
  // walks over the children pass over these. Null for nodes that lead nobody.
  const Slot* led;

  // Child list and lifecycle: scene_node.cpp
  void announce_to_parent();
  void AddChild(Value child);
  void RemoveChild(Value child);
  void RemoveAllChildren();
  Ref GetAllChildrens();
  void ReSortAllChild();
  void LayerUpChild(Value child);
  void LayerDownChild(Value child);
  void SetParent(Value p);
  void OnLoad(Value scene);
  void OnDestroy();
  void CopyTo(Value other);

  // Children that leave together, and those that are led: node_children.cpp
  // What RemoveChild does for each entry of a list of the caller's own, in one pass.
  void remove_children(Value gone);
  // A walk over the children that are not led.
  host::ListWalk walk_children(
      host::ListWalk::Direction direction = host::ListWalk::Direction::kForward);

  // World values: node_transform.cpp
  Number GetAXW();
  Number GetAYH();
  Number GetPAXW();
  Number GetPAYH();
  Number GetWX();
  Number GetWY();
  Ref GetWXY();
  Number GetWPX();
  Number GetWPY();
  Ref GetWPXY();
  Number GetWSX();
  Number GetWSY();
  Ref GetWSXY();
  Number GetWPSX();
  Number GetWPSY();
  Ref GetWPSXY();
  Number GetWAngle();
  Number GetWPAngle();
  Number GetCenterX();
  Number GetCenterY();
  Ref GetCenterXY();
  Ref GetLeft();
  Ref GetTop();
  Ref GetRight();
  Ref GetBottom();
  Ref GetSizeRect();
  void draw_begin(Value offset_x, Value offset_y, Value scale);
  // The world values, or null where a script takes part in them or they are no plain floats; the
  // general formulas must then be followed call by call.
  const World* world();

  // The drawn rectangle: drawn_rectangle.cpp
  // It is what the last draw cached: (WX, WY, width * WSX, height * WSY).
  Ref drawn_rect();
  bool drawn_rect_contains(Value px, Value py);
  // The same for drawing.
  render::Box drawn_box();
  render::Size drawn_size();
  render::Size unscaled_size();
  render::Point drawn_center();

  // Drawing: node_drawing.cpp
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);
  // What draw() does after draw_begin() and the picture: overlays, children, the event.
  void finish_node_draw(Value screen, Value offset_x, Value offset_y, Value scale);
  void draw_children(Value screen, Value offset_x, Value offset_y, Value scale);
  void draw_overlays(Value screen, Value scale);
  void drawsize(Value screen);
  void drawAnchor(Value screen, Value scale);
  void drawToSurface(Value surface, Value offset_x, Value offset_y, Value scale);
  void drawToSurface_children(Value surface, Value offset_x, Value offset_y, Value scale);

  // Time: node_time.cpp
  void update(Value delay);
  void RunAction(host::Rest actions);

  // The edit rectangle: edit_rectangle.cpp
  void drawDragRect(Value screen, Value size, Value index);
  int checkDragRect(Value px, Value py);
  void OnEditRectDraging(Value px, Value py);

  // Input and collision: node_events.cpp
  Ref OnPickDownFunction(Value px, Value py);
  Ref OnPickUpFunction(Value px, Value py);
  void OnKeyDownFunction(Value key);
  void OnKeyUpFunction(Value key);
  bool checkClick(Value px, Value py);
  bool checkCollision(Value node, Value move_x, Value move_y);
  bool checkEventRectCollision(Value rect, Value move_x, Value move_y);

  // Named events: node_bindings.cpp
  Ref CallEvent(Value event, Value params);
  Ref CallInnerEvent(Value event, Value params);

 private:
  const World* compute_world();
  Number world_place(const Axis& axis);
  Number world_scale(const Axis& axis);
  Number world_center(const Axis& axis);
  void empty_tables();
  void swap_children(Value child, Py_ssize_t step);
  Ref offer_to_children(const host::Message& handler, Value px, Value py);
  Ref extreme_edge(const host::Message& edge, const Number& own, bool larger);
};

struct GameNode::Axis {
  Slot GameNode::*place, GameNode::*scale, GameNode::*anchor, GameNode::*size;
  Slot GameNode::*cached_place, GameNode::*cached_scale;
  const host::Message &world_place, &parent_place, &world_scale, &parent_scale, &anchor_offset;
};
extern const GameNode::Axis kHorizontal;
extern const GameNode::Axis kVertical;

// What Clamp() does.
Ref clamp(GameNode& node, Value value, Value min, Value max);

// `IsVisible()` equals true.
bool is_visible(Value node);

// `SetXY` and `SetSXY` of a node.
void set_position(Value node, const Number& x, const Number& y);
void set_scale(Value node, const Number& sx, const Number& sy);

// Draws a child as its parent does: only when it is visible.
void draw_visible(Value node, Value screen, Value offset_x, Value offset_y, Value scale);

// Exchanges two neighbours in a list; nothing when there is no neighbour on that side. Returns
// whether it did, and the two places.
struct Swapped {
  bool done;
  Py_ssize_t from, to;
};
Swapped swap_with_neighbour(Value list, Value item, Py_ssize_t step);

// Copies the base's part, then the rows of the class.
template <auto BaseCopyTo, class Class>
void copy_class(Class& from, Value other) {
  message::CopyTo.base<BaseCopyTo>(from, other);
  host::copy_rows(from, other, host::class_info<Class>);
}

// Declaration, one part per file, so that a method is declared beside its code.
using NodeDeclaration = host::Declaration<GameNode>;
void declare_tree(NodeDeclaration& node);
void declare_transform(NodeDeclaration& node);
void declare_drawing(NodeDeclaration& node);
void declare_time(NodeDeclaration& node);
void declare_edit_rectangle(NodeDeclaration& node);
void declare_events(NodeDeclaration& node);
void declare_bindings(NodeDeclaration& node);
void register_scene_node(PyObject* module);

}  // namespace tessora
