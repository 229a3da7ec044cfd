// Music, sounds and fonts by file name.
#include "engine/host/fonts.hpp"
#include "engine/host/modules.hpp"
#include "engine/host/paths.hpp"
#include "engine/resources/resource_manager.hpp"

namespace tessora {

using namespace host::literals;
using host::Number;
using host::Ref;

namespace {

Ref mixer_attribute(PyObject* name) {
  return host::get_attr(host::modules::pygame["mixer"_name], name);
}

Ref music_function(PyObject* name) {
  return host::get_attr(mixer_attribute("music"_name), name);
}

}  // namespace

void ResourceManager::PlayMusic(PyObject* name, PyObject* loops) {
  Ref path = message::GetResPath(this, name);
  if (!host::is_set(path)) return;
  host::call(music_function("load"_name), host::openable_path(path.get()));
  host::call(music_function("play"_name), loops, host::integer(0));
}

void ResourceManager::StopMusic() {
  host::call(music_function("stop"_name));
}

Ref ResourceManager::PlaySound(PyObject* name) {
  Ref path = message::GetResPath(this, name);
  if (!host::is_set(path)) return host::integer(-1);
  Ref sound = host::call(mixer_attribute("Sound"_name), host::openable_path(path.get()));
  host::set_item(read(soundDict).get(), read(soundPlayCount).get(), sound.get());
  host::call_method(sound, "play"_name);
  write(soundPlayCount, number(soundPlayCount) + Number(1));
  return (number(soundPlayCount) - Number(1)).object();
}

void ResourceManager::StopSound(PyObject* id) {
  Ref sounds = read(soundDict);
  if (!host::contains(sounds.get(), id)) return;
  host::call_method(host::get_item(sounds.get(), id), "stop"_name);
}

Ref ResourceManager::GetFont(PyObject* name, PyObject* size, PyObject* bold, PyObject* italic) {
  Ref path = message::GetResPath(this, name);
  if (!host::is_set(path)) return host::none();
  Ref make = host::get_attr(host::modules::pygame["font"_name], "Font"_name);
  Ref font = host::call(make, host::openable_path(path.get()), size);
  host::note_font(font.get());
  if (host::equals_true(bold)) host::call_method(font, "set_bold"_name, Py_True);
  if (host::equals_true(italic)) host::call_method(font, "set_italic"_name, Py_True);
  return font;
}

void declare_media(ResourceBuilder& builder) {
  builder
      .method<&ResourceManager::PlayMusic>(
          "PlayMusic", {"fileName", {"loopcount", 0}},
          "Play a music file in place of the one that is playing; an unknown name does nothing.\n\n"
          "`loopcount` is how often it is repeated after the first time, -1 for without end.\n"
          "Raises pygame.error for a file that does not play.")
      .method<&ResourceManager::StopMusic>("StopMusic", "Stop the music.")
      .method<&ResourceManager::PlaySound>(
          "PlaySound", {"fileName"},
          "Play a sound file and return its number for StopSound, or -1 for an unknown name.\n\n"
          "Every call loads the file again and keeps the sound. Raises pygame.error for a file\n"
          "that does not play.")
      .method<&ResourceManager::StopSound>(
          "StopSound", {"soundID"}, "Stop the sound of that number; unknown numbers are ignored.")
      .method<&ResourceManager::GetFont>(
          "GetFont", {"ttfFile", "fontSize", {"bold", false}, {"italic", false}},
          "Return a new pygame.font.Font from a font file, or None for an unknown name.\n\n"
          "`fontSize` is its height in pixels. Errors of pygame pass on.");
}

}  // namespace tessora
