#include "engine/host/fonts.hpp"

#include <unordered_map>

#include "engine/host/weak.hpp"

namespace tessora::host {

namespace {

struct KnownFont {
  Ref death_watch;
  unsigned run = 0;  // of pygame, counted by its ends
};

struct Fonts {
  std::unordered_map<PyObject*, KnownFont> known;
  std::unordered_map<PyObject*, PyObject*> watched;  // death watch to font
  unsigned run = 0;
  bool told_of_quit = false;
};

Fonts& the_fonts() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const fonts = new Fonts;
  return *fonts;
}

void font_died(PyObject* death_watch) {
  Fonts& fonts = the_fonts();
  auto watched = fonts.watched.find(death_watch);
  if (watched == fonts.watched.end()) return;
  fonts.known.erase(watched->second);
  fonts.watched.erase(watched);
}

PyObject* pygame_quits(PyObject*, PyObject*) {
  ++the_fonts().run;
  the_fonts().told_of_quit = false;
  return none().release();
}

// pygame forgets its listeners at every quit.
void listen_for_quit(Fonts& fonts) {
  if (fonts.told_of_quit) return;
  static PyMethodDef definition = {"pygame_quits", &pygame_quits, METH_NOARGS, nullptr};
  static PyObject* const listener = take(PyCFunction_New(&definition, nullptr)).release();
  call(modules::pygame["register_quit"_name], listener);
  fonts.told_of_quit = true;
}

}  // namespace

void note_font(PyObject* font) {
  Fonts& fonts = the_fonts();
  // What cannot be referred to weakly is no font of pygame's.
  if (fonts.known.contains(font) || !PyType_SUPPORTS_WEAKREFS(Py_TYPE(font))) return;
  listen_for_quit(fonts);
  Ref death_watch = watch_death<&font_died>(font);
  fonts.watched[death_watch.get()] = font;
  fonts.known[font] = {death_watch, fonts.run};
}

void check_font(PyObject* font) {
  Fonts& fonts = the_fonts();
  auto found = fonts.known.find(font);
  if (found == fonts.known.end()) return note_font(font);
  if (found->second.run == fonts.run) return;
  Ref error = modules::pygame["error"_name];
  raise(error.get(), "the font was made before pygame was quit; make a new one");
}

}  // namespace tessora::host
