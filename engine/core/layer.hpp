// A layer: one plane of a scene, with its nodes, its scroll and its debug shapes.
#pragma once

#include "engine/core/scene_node.hpp"

namespace tessora {

struct GameLayer : host::Object {
  Slot sceneInstance, NodeType, LayerName;
  Slot GameNodeDict, SortGameNodeInstanceIDArray, GameNodeKeyArray, AddGameNodeDict,
      DelGameNodeArray;
  Slot BindingEventArray, PointArray, LineArray, RectArray;
  LazySlot InnerBindingEventArray;
  Slot UserFunctionDict;
  Slot instanceID, visible, scrollType, scrollSpeed, scrollPosX, scrollPosY, font;

  // Registry: layer.cpp
  void make_font();
  Ref AddGameNode(Value node, Value immediate);
  Ref GetGameNode(Value id);
  bool ExistGameNode(Value id);
  Ref GetGameNodeCount();
  void DelGameNode(Value id);
  void CleanUpGameNode();
  void LayerUpGameNode(Value id);
  void LayerDownGameNode(Value id);
  bool CheckAllGameNode();
  void OnLoad(Value scene);
  void OnDestroy();
  // Takes in the nodes that wait to be added.
  void take_in_deferred();
  void remove_queued();
  // The node of that number, or an empty reference.
  Ref registered(Value id);

  // Frame and input: layer_frame.cpp
  void update(Value delay);
  void draw(Value screen);
  void OnPickDownFunction(Value px, Value py);
  void OnPickUpFunction(Value px, Value py);
  void OnKeyDownFunction(Value key);
  void OnKeyUpFunction(Value key);
  void OnEditRectDraging(Value px, Value py);
  bool checkCollision(Value node, Value move_x, Value move_y);
  bool checkEventRectCollision(Value rect, Value move_x, Value move_y);
  Ref CallEvent(Value event, Value params);
  Ref CallInnerEvent(Value event, Value params);

  // Debug shapes: layer_shapes.cpp
  void draw_shapes(Value screen);

  // Calls `visit` for every registered node, in key order. Nodes that a handler removes are passed
  // over, nodes that it adds wait for the next walk.
  template <class Visit>
  void each_node(Visit visit) {
    Ref nodes = read(GameNodeDict);
    if (nodes.length() == 0) return;
    Ref keys = nodes.to_list();
    write(GameNodeKeyArray, keys);
    // The walk keeps a list of its own: a nested one replaces the attribute, a script may change
    // it.
    for (Ref key : host::items(keys.to_list())) {
      if (Ref node = registered(key)) visit(key, node);
    }
  }

 private:
  void take_in(Value id, Value node);
  void scroll(Value delay);
};

using LayerDeclaration = host::Declaration<GameLayer>;
void declare_layer_frame(LayerDeclaration& layer);
void declare_layer_shapes(LayerDeclaration& layer);
void register_layer(PyObject* module);

}  // namespace tessora
