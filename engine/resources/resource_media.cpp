// Numbered frames, music, sounds and fonts by file name.
#include "engine/host/fonts.hpp"
#include "engine/host/modules.hpp"
#include "engine/host/paths.hpp"
#include "engine/resources/resource_manager.hpp"

namespace tessora {

namespace {

constexpr Py_ssize_t kExtensionLength = 4;

Ref mixer(Value name) {
  return host::modules::pygame["mixer"_name].attr(name);
}

bool is_number(Value digits) {
  return digits.call("isdigit"_name).is_true();
}

// What stands before the number of a frame, or an empty reference when there is no number.
Ref prefix_of(Value path) {
  Ref parts = path.call("rpartition"_name, "_"_name);
  if (parts.item(1).length() > 0) {
    Ref tail = parts.item(2);
    Ref number = tail.slice(0, std::max<Py_ssize_t>(tail.length() - kExtensionLength, 0));
    return is_number(number) ? parts.item(0_const) : Ref();
  }
  Ref stem = path.call("rpartition"_name, "."_name).item(0_const);
  const Py_ssize_t end = stem.length();
  if (end == 0) {
    host::raise(PyExc_UnboundLocalError,
                "%R: a path with neither an underscore nor an extension "
                "has no place for the number of a frame",
                path);
  }
  Py_ssize_t start = end;
  while (start > 0 && is_number(stem.slice(start - 1, start))) --start;
  return start < end ? stem.slice(0, start) : Ref();
}

// The path of a file as this system opens it, or None.
Ref find(ResourceManager& manager, Value name) {
  return host::openable_path(message::GetResPath(manager, host::path_text(name)));
}

}  // namespace

Ref ResourceManager::GetImageListFiles(Value name) {
  Ref path = message::GetResPath(*this, host::path_text(name));
  if (!path.is_set()) {
    host::print_line("ImageList"_name);
    return host::list();
  }
  Ref prefix = prefix_of(path);
  if (!prefix) return host::list(path);
  Ref pattern = host::joined(prefix, "*.png"_name);
  host::print_line(pattern);
  return host::modules::glob["glob"_name](host::openable_path(pattern));
}

void ResourceManager::PlayMusic(Value name, Value loops) {
  Ref path = find(*this, name);
  if (!path.is_set()) return;
  Ref music = mixer("music"_name);
  music.call("load"_name, path);
  music.call("play"_name, loops, 0);
}

void ResourceManager::StopMusic() {
  mixer("music"_name).call("stop"_name);
}

Ref ResourceManager::PlaySound(Value name) {
  Ref path = find(*this, name);
  if (!path.is_set()) return host::integer(-1);
  Ref sound = mixer("Sound"_name)(path);
  Ref(read(soundDict)).set_item(Ref(read(soundPlayCount)), sound);
  sound.call("play"_name);
  write(soundPlayCount, read(soundPlayCount) + 1);
  return argument(read(soundPlayCount) - 1);
}

void ResourceManager::StopSound(Value id) {
  Ref sound = Ref(read(soundDict)).find_item(id);
  if (sound) sound.call("stop"_name);
}

Ref ResourceManager::GetFont(Value name, Value size, Value bold, Value italic) {
  Ref path = find(*this, name);
  if (!path.is_set()) return host::none();
  Ref make = host::modules::pygame["font"_name].attr("Font"_name);
  Ref font = make(path, size);
  host::note_font(font);
  if (bold.equals_true()) font.call("set_bold"_name, true);
  if (italic.equals_true()) font.call("set_italic"_name, true);
  return font;
}

void declare_media(ResourceDeclaration& manager) {
  using Manager = ResourceManager;
  manager
      .method<&Manager::GetImageListFiles>(
          "GetImageListFiles(fileName: _File) -> list[str]",
          "Return the paths of the PNG files that number the frames of one sequence.\n\n"
          "`fileName` is one of them, such as walk_02.png. Every PNG file whose path begins like\n"
          "the part before the number counts, in the order of the file system: sort the list if\n"
          "the order matters. A file without a number is returned alone, an unknown one gives an\n"
          "empty list. Raises UnboundLocalError for a path without underscore and extension.")
      .method<&Manager::PlayMusic>(
          "PlayMusic(fileName: _File, loopcount: int = 0) -> None",
          "Play a music file in place of the one that is playing; an unknown name does nothing.\n\n"
          "`loopcount` is how often it is repeated after the first time, -1 for without end.\n"
          "Raises pygame.error for a file that does not play.")
      .method<&Manager::StopMusic>(
          "StopMusic() -> None",
          "Stop the music.\n\nRaises pygame.error while pygame.mixer is not initialised.")
      .method<&Manager::PlaySound>(
          "PlaySound(fileName: _File) -> int",
          "Play a sound file and return its number for StopSound, or -1 for an unknown name.\n\n"
          "Every call loads the file again and keeps the sound. Raises pygame.error for a file\n"
          "that does not play.")
      .method<&Manager::StopSound>("StopSound(soundID: int) -> None",
                                   "Stop the sound of that number; unknown numbers are ignored.")
      .method<&Manager::GetFont>(
          "GetFont(ttfFile: _File, fontSize: int, bold: bool = False,"
          " italic: bool = False) -> pygame.font.Font | None",
          "Return a new pygame.font.Font from a font file, or None for an unknown name.\n\n"
          "`fontSize` is its height in pixels. Errors of pygame pass on.");
}

}  // namespace tessora
