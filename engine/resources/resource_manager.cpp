// The index of resource files and the image cache.
#include "engine/resources/resource_manager.hpp"

#include "engine/host/caught.hpp"
#include "engine/host/items.hpp"
#include "engine/host/modules.hpp"
#include "engine/host/paths.hpp"

namespace tessora {

namespace {

constexpr int kImageLimit = 100;

Ref in_folder(Value folder, Value name) {
  return host::joined(host::joined(folder, "\\"_name), name);
}

// Calls a function of a library with a path.
Ref with_file(Value function, Value path) {
  return function(host::openable_path(path));
}

bool exists(Value path) {
  return with_file(host::modules::path["exists"_name], path).equals_true();
}

bool is_hidden(Value name) {
  return name.contains("__pycache__"_name) || name.contains(".git"_name);
}

}  // namespace

void ResourceManager::read_root(Value directory) {
  Ref folder = host::path_text(directory);
  if (!folder.is(directory)) write(resdir, folder);
  host::modules::path["split"_name](folder);
  message::FoundAllResFile(*this, folder);
}

void ResourceManager::FoundAllResFile(Value directory, Value type) {
  host::RecursionGuard guard;
  Ref folder = host::path_text(directory);
  if (!exists(folder)) return;
  // Set by a folder, the type stays as it is for the entries that follow.
  Ref type_now = type;
  host::for_each(with_file(host::modules::os["listdir"_name], folder), [&](Value name) {
    if (is_hidden(name)) return;
    Ref path = in_folder(folder, name);
    if (with_file(host::modules::path["isdir"_name], path).is_true()) {
      const bool top = Ref(read(resdir)).equals(folder);
      type_now = top ? name : Value(nullptr);
      message::FoundAllResFile(*this, path, type_now);
    } else {
      add_file(folder, name, path, type_now);
    }
  });
}

void ResourceManager::add_file(Value directory, Value name, Value path, Value type) {
  Ref key = name.call("lower"_name);
  Ref(read(fileDict)).set_item(key, path);
  if (!type.equals("Scene"_name)) return;
  Ref base = host::modules::path["splitext"_name](name).item(0_const);
  Ref resources = host::joined(in_folder(directory, base), "_Res.Json"_name);
  if (exists(resources)) Ref(read(SceneJsonDict)).append(base);
}

void ResourceManager::AddNewResFile(Value path) {
  Ref text = host::path_text(path);
  Ref name = with_file(host::modules::path["split"_name], text).item(-1);
  Ref key = name.call("lower"_name);
  Ref(read(fileDict)).set_item(key, text);
}

Ref ResourceManager::GetResPath(Value name) {
  Ref key = host::path_text(name).call("lower"_name);
  Ref path = Ref(read(fileDict)).find_item(key);
  return path ? path : host::none();
}

Ref ResourceManager::LoadImage(Value file) {
  Ref name = host::path_text(file);
  Ref path = message::GetResPath(*this, name);
  if (!path.is_set()) return host::none();
  if (Ref(read(ImageDict)).contains(name)) {
    message::ManageImageMemory(*this, name);
    return Ref(read(ImageDict)).item(name);
  }
  Ref surface;
  Ref error = host::caught(PyExc_Exception, [&] {
    Ref load = host::modules::pygame["image"_name].attr("load"_name);
    surface = with_file(load, path).call("convert_alpha"_name);
    Ref(read(ImageDict)).set_item(name, surface);
    message::ManageImageMemory(*this, name);
  });
  if (!error) return surface;
  host::print_line(error);
  return host::none();
}

void ResourceManager::ManageImageMemory(Value file) {
  Ref name = host::path_text(file);
  Ref names = read(ImageDict_MemManage_List);
  for (Py_ssize_t index = 0; index < names.length(); ++index) {
    if (!names.item(index).equals(name)) continue;
    host::print_line(
        host::formatted("%S load:%zd -> %S", name, index, Ref(read(ImageDict_MemManage_Count))));
    names.delete_item(host::integer(index));
    names.append(name);
    return;
  }
  names.append(name);
  write(ImageDict_MemManage_Count, read(ImageDict_MemManage_Count) + 1);
  host::print_line(host::formatted("%S load:%S", name, Ref(read(ImageDict_MemManage_Count))));
}

void ResourceManager::ReleaseAllImageMemeory() {
  Ref(read(ImageDict)).call("clear"_name);
  if (is_set(ImageDict_MemManage_List)) Ref(read(ImageDict_MemManage_List)).call("clear"_name);
  write(ImageDict_MemManage_List, host::list());
  write(ImageDict_MemManage_Total, kImageLimit);
  write(ImageDict_MemManage_Count, 0);
}

void register_resource_manager(PyObject* module) {
  using Manager = ResourceManager;
  ResourceDeclaration manager(
      module, "PyGameResManager",
      "Finds every file below a folder and loads files by their bare names.\n\n"
      "Case does not matter. A folder that does not exist gives an empty index. Of files that "
      "share a name the one met last counts. Raises TypeError for what is no path.\n\n"
      ">>> Tessora.Res = Tessora.PyGameResManager(\".\")\n"
      ">>> hero = Tessora.Res.LoadImage(\"hero.png\")\n"
      "hero.png load:1");
  manager.constructor("(resdir: _File)");
  manager.attribute<&Manager::resdir>("resdir: str", host::given("resdir"),
                                      "Root folder of the resources.");
  manager
      .attribute<&Manager::fontdir>("fontdir: str | None", nullptr,
                                    "Folder of the fonts; stored for scripts.")
      .setter("SetFontDir", "path");
  manager.attribute<&Manager::fileDict>(
      "fileDict: dict[str, str]", host::made<&host::dictionary>(),
      "Full paths by lower-case file name, which includes the extension.");
  manager.attribute<&Manager::ImageDict>(
      "ImageDict: dict[str, pygame.Surface]", host::made<&host::dictionary>(),
      "Loaded surfaces by the names under which they were asked for.");
  manager.attribute<&Manager::soundDict>("soundDict: dict[int, pygame.mixer.Sound]",
                                         host::made<&host::dictionary>(),
                                         "Loaded sounds by their numbers.");
  manager.attribute<&Manager::ImageDict_MemManage_List>(
      "ImageDict_MemManage_List: list[str]", host::made<&host::new_list>(),
      "Names of the loaded images, least recently used first.");
  manager.attribute<&Manager::ImageDict_MemManage_Total>(
      "ImageDict_MemManage_Total: int", kImageLimit,
      "Intended number of cached images; nothing is ever dropped for it.");
  manager.attribute<&Manager::ImageDict_MemManage_Count>(
      "ImageDict_MemManage_Count: int", 0, "Number of images loaded since the last release.");
  manager
      .attribute<&Manager::SceneJsonDict>("SceneJsonDict: list[str]", host::made<&host::new_list>(),
                                          "The scenes' names.")
      .getter("GetSceneList");
  manager.attribute<&Manager::soundPlayCount>("soundPlayCount: int", 0,
                                              "Number that the next sound gets.");
  manager.step<&Manager::read_root>();
  manager
      .method<&Manager::FoundAllResFile>(
          "FoundAllResFile(parentDir: _File, dirType: str | None = None) -> None",
          "Add the files of a folder and of all folders below it to the index.\n\n"
          "`dirType` is the name of the top-level folder that is being read: files in \"Scene\"\n"
          "that have a \"_Res.Json\" file beside them are scenes.")
      .method<&Manager::AddNewResFile>("AddNewResFile(filePath: _File) -> None",
                                       "Add one file to the index, which need not exist yet.")
      .method<&Manager::GetResPath>(
          "GetResPath(filename: _File) -> str | None",
          "Return the full path of a file named without its folder, or None if it is unknown.")
      .method<&Manager::LoadImage>(
          "LoadImage(fileName: _File) -> pygame.Surface | None",
          "Return an image file as a surface with per-pixel alpha; later calls share it.\n\n"
          "Returns None for an unknown name, and for a file that does not load: the error is\n"
          "printed then.")
      .method<&Manager::ManageImageMemory>(
          "ManageImageMemory(fileName: _File) -> None",
          "Note an image's use: its name moves to the end of the list of recent images.\n\n"
          "Prints a line about it.")
      .method<&Manager::ReleaseAllImageMemeory>(
          "ReleaseAllImageMemeory() -> None",
          "Forget all loaded images and count them from 0 again.");
  declare_media(manager);
  manager.finish();
}

}  // namespace tessora
