// The extension module's entry point: imports, module values, functions and classes, in this order.
#include "engine/actions/action.hpp"
#include "engine/actions/action_player.hpp"
#include "engine/actions/concrete_actions.hpp"
#include "engine/bars/progress_bar.hpp"
#include "engine/bars/scale.hpp"
#include "engine/bars/scroll_bar.hpp"
#include "engine/character/character.hpp"
#include "engine/core/geometry.hpp"
#include "engine/core/layer.hpp"
#include "engine/core/property_list.hpp"
#include "engine/core/scene_node.hpp"
#include "engine/gui/button.hpp"
#include "engine/gui/check_button.hpp"
#include "engine/gui/edit.hpp"
#include "engine/gui/label.hpp"
#include "engine/gui/radio_button.hpp"
#include "engine/gui/text_box.hpp"
#include "engine/image/image.hpp"
#include "engine/object/module_rows.hpp"
#include "engine/panels/combo_box.hpp"
#include "engine/panels/list_box.hpp"
#include "engine/panels/message_box.hpp"
#include "engine/panels/tree.hpp"
#include "engine/particles/emitter.hpp"
#include "engine/resources/resource_manager.hpp"
#include "engine/tilemap/tiled_map.hpp"
#include "module/imports.hpp"

namespace {

using tessora::host::Ref;
using tessora::host::Value;
namespace host = tessora::host;
using namespace host::literals;

bool initialised = false;

Ref color(int red, int green, int blue, int alpha = 255) {
  Ref make = host::modules::pygame["Color"_name];
  return make(red, green, blue, alpha);
}

void set_values(PyObject* module) {
  host::add_value(module, "Res: PyGameResManager | Any", nullptr,
                  "The game's resource manager, through which widgets load their files.");
  host::add_value(module, "BorderVisible: bool", false, "Free for scripts.");
  host::add_value(module, "BorderColor: list[int]", host::list(255, 0, 0),
                  "Colour of size rectangles and anchor markers.");
  host::add_value(module, "g_pygameControl_BorderColor: pygame.Color", color(255, 0, 255),
                  "Colour of focus borders and edit rectangles.");
  host::add_value(module, "g_pygameControl_CollColor: pygame.Color", color(0, 255, 255),
                  "Colour of the outlines of collision rectangles.");
  host::add_value(module, "g_EngineAPI: str", "Pygame"_name, "Name of the drawing back end.");
  host::add_value(module, "GUI_WINDOW_BGCOLOR: pygame.Color", color(128, 128, 128, 128),
                  "Border colour of new widgets.");
}

void add_classes(PyObject* module) {
  tessora::register_layer(module);
  tessora::register_scene_node(module);
  tessora::register_image(module);
  tessora::register_label(module);
  tessora::register_button(module);
  tessora::register_check_button(module);
  tessora::register_radio_button(module);
  tessora::register_edit(module);
  tessora::register_text_box(module);
  tessora::register_scale(module);
  tessora::register_scroll_bars(module);
  tessora::register_list_box(module);
  tessora::register_combo_box(module);
  tessora::register_progress_bars(module);
  tessora::register_message_box(module);
  tessora::register_tree(module);
  tessora::register_character(module);
  tessora::register_tiled_map(module);
  tessora::register_emitter(module);
  tessora::register_particle(module);
  tessora::register_resource_manager(module);
  tessora::register_action(module);
  tessora::register_concrete_actions(module);
  tessora::register_action_player(module);
}

int execute(PyObject* module) {
  return host::guarded(-1, [&] {
    host::Message::intern_names();
    host::add_relevant_name("__getattribute__"_name);
    host::add_relevant_name("__setattr__"_name);
    host::engine_module = module;
    Py_INCREF(module);
    tessora::import_libraries(module);
    set_values(module);
    tessora::register_geometry(module);
    tessora::register_property_list(module);
    add_classes(module);
    Value(module).set_attr("__version__"_name, host::text(TESSORA_VERSION));
    initialised = true;
    return 0;
  });
}

PyMethodDef functions[] = {
    {"__getattr__", &tessora::find_late_import, METH_O, nullptr},
    {"__declarations__", &host::declarations, METH_NOARGS,
     "Return what the module offers, for tools that write stubs and documentation."},
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
