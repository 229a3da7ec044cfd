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
                  "The game's resource manager, through which widgets load their files; the game "
                  "sets it. Default None.");
  host::add_value(module, "BorderVisible: bool", false, "Free for scripts. Default False.");
  host::add_value(
      module, "BorderColor: list[int]", host::list(255, 0, 0),
      "Colour [red, green, blue] of size rectangles and anchor markers. Default [255, 0, 0].");
  host::add_value(module, "g_pygameControl_BorderColor: pygame.Color", color(255, 0, 255),
                  "Colour of focus borders and edit rectangles. Default (255, 0, 255, 255).");
  host::add_value(module, "g_pygameControl_CollColor: pygame.Color", color(0, 255, 255),
                  "Colour of the outlines of collision rectangles. Default (0, 255, 255, 255).");
  host::add_value(module, "g_EngineAPI: str", "Pygame"_name,
                  "Name of the drawing back end. Default \"Pygame\".");
  host::add_value(module, "GUI_WINDOW_BGCOLOR: pygame.Color", color(128, 128, 128, 128),
                  "Border colour of new widgets and background of new check and radio buttons. "
                  "Default (128, 128, 128, 128).");
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

constexpr const char* kDoc =
    "2D games on pygame: nodes in layers, actions, pictures, widgets, characters, maps, "
    "particles.\n\n"
    "A game makes a window with pygame, tells the engine where its files are and puts nodes into a "
    "layer:\n\n"
    "    import pygame\n"
    "    import Tessora\n\n"
    "    pygame.init()\n"
    "    screen = pygame.display.set_mode((640, 480))\n"
    "    Tessora.Res = Tessora.PyGameResManager(\".\")\n"
    "    layer = Tessora.GameLayer()\n"
    "    layer.AddGameNode(Tessora.GUI_Label(None, 20, 20, \"Hello\"))\n"
    "    clock = pygame.time.Clock()\n\n"
    "Then it runs a loop of its own, in which each frame hands over the input, the time and the "
    "screen:\n\n"
    "    while True:\n"
    "        for event in pygame.event.get():\n"
    "            if event.type == pygame.QUIT:\n"
    "                raise SystemExit\n"
    "            if event.type == pygame.MOUSEBUTTONDOWN:\n"
    "                layer.OnPickDownFunction(*event.pos)\n"
    "            if event.type == pygame.MOUSEBUTTONUP:\n"
    "                layer.OnPickUpFunction(*event.pos)\n"
    "        layer.update(clock.tick(60) / 1000)\n"
    "        screen.fill(\"white\")\n"
    "        layer.draw(screen)\n"
    "        pygame.display.flip()\n\n"
    "Places and sizes are in pixels, `y` downwards; times in seconds; angles in degrees, "
    "counter-clockwise.\n\n"
    "Where to look, by topic:\n\n"
    "- scene: GameLayer holds the nodes, GameNode is the base of all that is placed and drawn;\n"
    "- pictures and text: GUI_Image, GUI_Label;\n"
    "- input: GUI_Button, GUI_CheckButton, GUI_RadioButton, GUI_Edit, GUI_Text, GUI_Scale;\n"
    "- lists and dialogs: GUI_ListBox, GUI_ComboBox, GUI_Tree with TreeItemNode, GUI_MsgBox;\n"
    "- bars: GUI_VScrollBar, GUI_HScrollBar, GUI_HProgressBar, GUI_VProgressBar;\n"
    "- figures that play actions: GameCharacter;\n"
    "- tile maps: TiledMap;\n"
    "- particles: ParticleEmitter, Particle;\n"
    "- movement in time: GameNode.RunAction with MoveToAction, MoveByAction, ScaleToAction,\n"
    "  ScaleByAction, RotateToAction, RotateByAction, BlinkAction, CallBackAction; GAction is the\n"
    "  base of them, ActionPlayer plays them;\n"
    "- files: PyGameResManager, which a game stores in `Res`;\n"
    "- helpers: checkPtInRect, checkRectInRect, checkRectCollision, tree_to_dict, read_rect,\n"
    "  read_keyValue.\n\n"
    "The other names come from pygame.locals (QUIT, K_LEFT), pygame.math (Vector2) and the "
    "standard library: a script that says `from Tessora import *` has them, too.";

PyMethodDef functions[] = {
    {"__getattr__", &tessora::find_late_import, METH_O,
     "Return a module value that is imported at first use, AttributeError for other names."},
    {"__declarations__", &host::declarations, METH_NOARGS,
     "Return what the module offers, for tools that write stubs and documentation."},
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef_Slot slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(&execute)},
    {0, nullptr},
};

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "Tessora", kDoc, 0, functions, slots, nullptr, nullptr, nullptr,
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
