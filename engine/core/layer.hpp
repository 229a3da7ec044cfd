// A layer: one plane of a scene, with its nodes, its scroll and its debug shapes.
#pragma once

#include "engine/core/scene_node.hpp"

namespace tessora {

struct GameLayer : host::Object {
  Slot sceneInstance, NodeType, LayerName;
  Slot GameNodeDict, SortGameNodeInstanceIDArray, GameNodeKeyArray, AddGameNodeDict,
      DelGameNodeArray;
  Slot BindingEventArray, PointArray, LineArray, RectArray, InnerBindingEventArray,
      UserFunctionDict;
  Slot instanceID, visible, scrollType, scrollSpeed, scrollPosX, scrollPosY, font;

  void construct();

  // Registry: layer.cpp
  Ref AddGameNode(PyObject* node, PyObject* immediate);
  Ref GetGameNode(PyObject* id);
  bool ExistGameNode(PyObject* id);
  Ref GetGameNodeCount();
  void DelGameNode(PyObject* id);
  void CleanUpGameNode();
  void LayerUpGameNode(PyObject* id);
  void LayerDownGameNode(PyObject* id);
  bool CheckAllGameNode();
  void OnLoad(PyObject* scene);
  void OnDestroy();

  // Frame and input: layer_frame.cpp
  void update(PyObject* delay);
  void draw(PyObject* screen);
  void OnPickDownFunction(PyObject* px, PyObject* py);
  void OnPickUpFunction(PyObject* px, PyObject* py);
  void OnKeyDownFunction(PyObject* key);
  void OnKeyUpFunction(PyObject* key);
  void OnEditRectDraging(PyObject* px, PyObject* py);
  bool checkCollision(PyObject* node, PyObject* move_x, PyObject* move_y);
  bool checkEventRectCollision(PyObject* rect, PyObject* move_x, PyObject* move_y);
  Ref CallEvent(PyObject* event, PyObject* params);
  Ref CallInnerEvent(PyObject* event, PyObject* params);

  // Debug shapes: layer_shapes.cpp
  void draw_shapes(PyObject* screen);

  // Calls `visit` for every registered node, in key order. Nodes that a handler removes are passed
  // over, nodes that it adds wait for the next walk.
  template <class Visit>
  void each_node(Visit visit) {
    Ref keys = fresh_keys();
    for (Py_ssize_t index = 0; index < PyList_GET_SIZE(keys.get()); ++index) {
      Ref key = Ref::share(PyList_GET_ITEM(keys.get(), index));
      if (Ref node = registered(key.get())) visit(key, node);
    }
  }
  // The node of that number, or an empty reference.
  Ref registered(PyObject* id);
  void raise_inner_event(PyObject* event, PyObject* params = nullptr);

 private:
  Ref fresh_keys();
  void take_in(PyObject* id, PyObject* node);
  void take_in_deferred();
  void scroll(PyObject* delay);
  void remove_queued();
  void swap_in_order(PyObject* id, Py_ssize_t step);
};

using LayerBuilder = host::ClassBuilder<GameLayer>;
void declare_layer_frame(LayerBuilder& builder);
void declare_layer_shapes(LayerBuilder& builder);
void register_layer(PyObject* module);

}  // namespace tessora
