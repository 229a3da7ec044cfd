// The scene node: base of everything that is placed, drawn and hit-tested.
#pragma once

#include "engine/core/messages.hpp"
#include "engine/host/class.hpp"
#include "engine/host/modules.hpp"
#include "engine/host/walk.hpp"

namespace tessora {

using namespace host::literals;
using host::LazySlot;
using host::Number;
using host::Ref;
using host::Slot;

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

  void construct(PyObject* new_parent, PyObject* new_x, PyObject* new_y);

  // Child list and lifecycle: scene_node.cpp
  void AddChild(PyObject* child);
  void RemoveChild(PyObject* child);
  void RemoveAllChildren();
  Ref GetAllChildrens();
  void ReSortAllChild();
  void LayerUpChild(PyObject* child);
  void LayerDownChild(PyObject* child);
  void SetParent(PyObject* p);
  void OnLoad(PyObject* scene);
  void OnDestroy();
  void CopyTo(PyObject* other);

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
  Ref Clamp(PyObject* value, PyObject* min, PyObject* max);

  // Drawing and time: node_drawing.cpp
  void draw(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  void draw_begin(PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  void draw_children(PyObject* screen, PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  void drawsize(PyObject* screen);
  void drawAnchor(PyObject* screen, PyObject* scale);
  void drawToSurface(PyObject* surface, PyObject* offset_x, PyObject* offset_y, PyObject* scale);
  void drawToSurface_children(PyObject* surface, PyObject* offset_x, PyObject* offset_y,
                              PyObject* scale);
  void update(PyObject* delay);
  void run_actions(PyObject* actions);

  // The edit rectangle: edit_rectangle.cpp
  void drawDragRect(PyObject* screen, PyObject* size, PyObject* index);
  Number checkDragRect(PyObject* px, PyObject* py);
  void OnEditRectDraging(PyObject* px, PyObject* py);

  // Input and collision: node_events.cpp
  Ref OnPickDownFunction(PyObject* px, PyObject* py);
  Ref OnPickUpFunction(PyObject* px, PyObject* py);
  void OnKeyDownFunction(PyObject* key);
  void OnKeyUpFunction(PyObject* key);
  bool checkClick(PyObject* px, PyObject* py);
  bool checkCollision(PyObject* node, PyObject* move_x, PyObject* move_y);
  bool checkEventRectCollision(PyObject* rect, PyObject* move_x, PyObject* move_y);

  // Named events: node_bindings.cpp
  Ref CallEvent(PyObject* event, PyObject* params);
  Ref CallInnerEvent(PyObject* event, PyObject* params);

  // Whether a script has bound a function to one of the built-in events; if so the event is
  // raised, with its parameters if it has any.
  void raise_inner_event(PyObject* event, PyObject* params = nullptr);

  // The world values, or null where a script takes part in them or they are no plain floats; the
  // general formulas must then be followed call by call.
  const World* world();
  // The drawn rectangle, as cached by the last draw: (WX, WY, width * WSX, height * WSY).
  Ref drawn_rect();
  bool drawn_rect_contains(PyObject* px, PyObject* py);
  [[nodiscard]] bool has_children() const;

 private:
  const World* compute_world();
  void swap_children(PyObject* child, Py_ssize_t step);
  Ref offer_to_children(const host::Message& handler, PyObject* px, PyObject* py);
  Ref extreme_edge(const host::Message& edge, const Number& own, bool larger);
};

// The engine node behind a host object, or null.
GameNode* game_node(PyObject* object);

// `IsVisible()` equals true.
bool is_visible(PyObject* node);

// `SetXY` and `SetSXY` of a node.
void set_position(PyObject* node, const Number& x, const Number& y);
void set_scale(PyObject* node, const Number& sx, const Number& sy);

// Draws a child as its parent does: only when it is visible.
void draw_visible(PyObject* node, PyObject* screen, PyObject* offset_x, PyObject* offset_y,
                  PyObject* scale);

// Registration, one part per file, so that a method is declared beside its code.
using NodeBuilder = host::ClassBuilder<GameNode>;
void declare_tree(NodeBuilder& builder);
void declare_transform(NodeBuilder& builder);
void declare_drawing(NodeBuilder& builder);
void declare_edit_rectangle(NodeBuilder& builder);
void declare_events(NodeBuilder& builder);
void declare_bindings(NodeBuilder& builder);
void register_scene_node(PyObject* module);

}  // namespace tessora
