// Copying a node's state into another.
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

// Attributes that may be copied: all but those that tie a node to its place in a scene.
struct CopiedByMethod {
  const char* setter;
  std::vector<Slot GameNode::*> attributes;
};

void copy_through_setters(GameNode& from, PyObject* to) {
  static const std::vector<CopiedByMethod> setters = {
      {"SetXY", {&GameNode::x, &GameNode::y}},
      {"SetSXY", {&GameNode::sx, &GameNode::sy}},
      {"SetAngle", {&GameNode::angle}},
      {"SetWidth", {&GameNode::width}},
      {"SetHeight", {&GameNode::height}},
      {"SetAXY", {&GameNode::anchorx, &GameNode::anchory}},
      {"SetVisible", {&GameNode::visible}},
      {"SetSizeRectVisible", {&GameNode::rectvisible}},
      {"SetAnchorVisible", {&GameNode::anchorvisible}},
      {"SetEditRectEnable", {&GameNode::editrectenable}},
      {"SetEditRectVisible", {&GameNode::editrectvisible}},
      {"SetCollision", {&GameNode::collisionType, &GameNode::collisionInfo}},
      {"SetCheckPickDownChild", {&GameNode::CheckPickDownChild}},
      {"EnablePickDownEvent", {&GameNode::Enable_PickDown}},
      {"EnablePickUpEvent", {&GameNode::Enable_PickUp}},
      {"SetPickDownFunction", {&GameNode::PickDownFunction}},
      {"SetPickUpFunction", {&GameNode::PickUpFunction}},
      {"SetUpdateFunction", {&GameNode::UpdateFunction}},
      {"SetUserData", {&GameNode::userData}},
  };
  for (const CopiedByMethod& entry : setters) {
    Ref method = host::get_attr(to, Ref::steal(host::intern(entry.setter)).get());
    if (entry.attributes.size() == 1) {
      host::call(method, from.read(from.*entry.attributes[0]));
    } else {
      host::call(method, from.read(from.*entry.attributes[0]),
                 from.read(from.*entry.attributes[1]));
    }
  }
}

void copy_tables(GameNode& from, PyObject* to) {
  struct Table {
    PyObject* name;
    LazySlot GameNode::* attribute;
  };
  const Table tables[] = {
      {"KeyDownFunctionDict"_name, &GameNode::KeyDownFunctionDict},
      {"KeyUpFunctionDict"_name, &GameNode::KeyUpFunctionDict},
      {"BindingVarArray"_name, &GameNode::BindingVarArray},
      {"BindingEventArray"_name, &GameNode::BindingEventArray},
      {"BindingPointArray"_name, &GameNode::BindingPointArray},
      {"InnerBindingEventArray"_name, &GameNode::InnerBindingEventArray},
  };
  for (const Table& table : tables) {
    Ref copy =
        host::call(reinterpret_cast<PyObject*>(&PyDict_Type), from.read(from.*table.attribute));
    host::set_attr(to, table.name, copy.get());
  }
}

}  // namespace

void GameNode::CopyTo(PyObject* other) {
  Ref to = Ref::share(other);
  copy_through_setters(*this, other);
  copy_tables(*this, other);
}

}  // namespace tessora
