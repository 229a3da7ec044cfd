#include "engine/host/fonts.hpp"

#include <unordered_map>

#include "engine/host/quit.hpp"
#include "engine/host/weak.hpp"

namespace tessora::host {

namespace {

struct KnownFont {
  Ref death_watch;
  unsigned run = 0;  // of pygame, counted by its ends
  std::uint64_t number = 0;
};

struct Fonts {
  std::unordered_map<PyObject*, KnownFont> known;
  std::unordered_map<PyObject*, PyObject*> watched;  // death watch to font
  std::uint64_t count = 0;
};

Fonts& the_fonts() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const fonts = new Fonts;
  return *fonts;
}

void font_died(Value death_watch) {
  Fonts& fonts = the_fonts();
  auto watched = fonts.watched.find(death_watch.get());
  if (watched == fonts.watched.end()) return;
  fonts.known.erase(watched->second);
  fonts.watched.erase(watched);
}

}  // namespace

void note_font(Value font) {
  Fonts& fonts = the_fonts();
  // What cannot be referred to weakly is no font of pygame's.
  const bool weak = static_cast<bool>(PyType_SUPPORTS_WEAKREFS(font.type()));
  if (!weak || fonts.known.contains(font.get())) return;
  listen_for_quit();
  Ref death_watch = watch_death<&font_died>(font);
  fonts.watched[death_watch.get()] = font.get();
  fonts.known[font.get()] = {death_watch, quit_count(), ++fonts.count};
}

void raise_old_font() {
  Ref error = modules::pygame["error"_name];
  raise(error.get(), "the font was made before pygame was quit; make a new one");
}

std::uint64_t check_font(Value font) {
  Fonts& fonts = the_fonts();
  auto found = fonts.known.find(font.get());
  if (found == fonts.known.end()) {
    note_font(font);
    found = fonts.known.find(font.get());
    return found == fonts.known.end() ? 0 : found->second.number;
  }
  if (found->second.run == quit_count()) return found->second.number;
  raise_old_font();
}

bool makes_system_fonts() {
  Ref own = import("pygame.sysfont", "SysFont"_name);
  Ref used = modules::font["SysFont"_name];
  if (!own.is(used)) return false;
  Ref running = modules::font.call("get_init"_name);
  return running.is_true();
}

}  // namespace tessora::host
