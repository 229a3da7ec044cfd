// The extension module's entry point: imports, module values, functions and classes, in this order.
#include "engine/actions/action.hpp"
#include "engine/actions/action_player.hpp"
#include "engine/actions/concrete_actions.hpp"
#include "engine/core/geometry.hpp"
#include "engine/core/layer.hpp"
#include "engine/core/property_list.hpp"
#include "engine/core/scene_node.hpp"
#include "engine/gui/button.hpp"
#include "engine/gui/image.hpp"
#include "engine/gui/label.hpp"
#include "engine/resources/resource_manager.hpp"
#include "module/imports.hpp"

namespace {

using tessora::host::Ref;
namespace host = tessora::host;
using namespace host::literals;

bool initialised = false;

void bind(PyObject* module, const char* name, const Ref& value) {
  host::check(PyObject_SetAttrString(module, name, value.get()));
}

Ref color(int red, int green, int blue, int alpha = 255) {
  return host::call(host::modules::pygame["Color"_name], host::integer(red), host::integer(green),
                    host::integer(blue), host::integer(alpha));
}

void set_values(PyObject* module) {
  bind(module, "Res", host::none());
  bind(module, "BorderVisible", host::boolean(false));
  bind(module, "BorderColor", host::list(host::integer(255), host::integer(0), host::integer(0)));
  bind(module, "g_pygameControl_BorderColor", color(255, 0, 255));
  bind(module, "g_pygameControl_CollColor", color(0, 255, 255));
  bind(module, "g_EngineAPI", host::text("Pygame"));
  bind(module, "GUI_WINDOW_BGCOLOR", color(128, 128, 128, 128));
}

void add_classes(PyObject* module) {
  tessora::register_layer(module);
  tessora::register_scene_node(module);
  tessora::register_image(module);
  tessora::register_label(module);
  tessora::register_button(module);
  tessora::register_resource_manager(module);
  tessora::register_action(module);
  tessora::register_concrete_actions(module);
  tessora::register_action_player(module);
}

int execute(PyObject* module) {
  return host::guarded(-1, [&] {
    host::Message::intern_names();
    host::engine_module = module;
    Py_INCREF(module);
    tessora::import_libraries(module);
    set_values(module);
    tessora::register_geometry(module);
    tessora::register_property_list(module);
    add_classes(module);
    initialised = true;
    return 0;
  });
}

PyMethodDef functions[] = {
    {"__getattr__", &tessora::find_late_import, METH_O, nullptr},
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef_Slot slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(&execute)},
    {0, nullptr},
};

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT,
    "Tessora",
    "2D game engine on pygame: scene nodes in layers, actions, pictures, labels, buttons.",
    0,
    functions,
    slots,
    nullptr,
    nullptr,
    nullptr,
};

}  // namespace

PyMODINIT_FUNC PyInit_Tessora() {
  if (initialised) {
    PyErr_SetString(
        PyExc_RuntimeError,
        "Module 'Tessora' has already been imported. Re-initialisation is not supported.");
    return nullptr;
  }
  return PyModuleDef_Init(&definition);
}
