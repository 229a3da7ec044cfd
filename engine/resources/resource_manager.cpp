// The index of resource files and the image cache.
#include "engine/resources/resource_manager.hpp"

#include "engine/host/attributes.hpp"
#include "engine/host/caught.hpp"
#include "engine/host/iterate.hpp"
#include "engine/host/modules.hpp"
#include "engine/host/paths.hpp"

namespace tessora {

using namespace host::literals;
using host::Number;
using host::Ref;

namespace {

constexpr int kImageLimit = 100;

Ref join(PyObject* left, PyObject* right) {
  host::script_ran();
  Ref joined = host::take(PyNumber_Add(left, right));
  host::script_ran();
  return joined;
}

Ref in_folder(PyObject* folder, PyObject* name) {
  return join(join(folder, "\\"_name).get(), name);
}

Ref lower(PyObject* name) {
  return host::call_method(name, "lower"_name);
}

Ref path_function(PyObject* name) {
  return host::get_attr(host::modules::os["path"_name], name);
}

bool exists(PyObject* path) {
  return host::equals_true(host::call(path_function("exists"_name), host::openable_path(path)));
}

bool is_folder(PyObject* path) {
  return host::is_true(host::call(path_function("isdir"_name), host::openable_path(path)));
}

bool is_hidden(PyObject* name) {
  return host::contains(name, "__pycache__"_name) || host::contains(name, ".git"_name);
}

Ref part(const Ref& parts, int index) {
  return host::get_item(parts.get(), host::integer(index).get());
}

Ref load_image(PyObject* path) {
  Ref load = host::get_attr(host::modules::pygame["image"_name], "load"_name);
  return host::call_method(host::call(load, host::openable_path(path)), "convert_alpha"_name);
}

}  // namespace

void ResourceManager::construct(PyObject* directory) {
  write(resdir, directory);
  write(fontdir, Py_None);
  for (host::Slot* table : {&fileDict, &ImageDict, &soundDict}) {
    write(*table, host::take(PyDict_New()));
  }
  write(ImageDict_MemManage_List, host::list());
  write(ImageDict_MemManage_Total, Number(kImageLimit));
  write(ImageDict_MemManage_Count, Number(0));
  write(SceneJsonDict, host::list());
  write(soundPlayCount, Number(0));
  host::call(path_function("split"_name), directory);
  message::FoundAllResFile(this, directory);
}

void ResourceManager::FoundAllResFile(PyObject* directory, PyObject* type) {
  host::RecursionGuard guard;
  if (!exists(directory)) return;
  Ref names = host::call(host::modules::os["listdir"_name], host::openable_path(directory));
  // Set by a folder, the type stays as it is for the entries that follow.
  Ref type_now = Ref::share(type);
  host::for_each(names.get(), [&](const Ref& name) {
    if (is_hidden(name.get())) return;
    Ref path = in_folder(directory, name.get());
    if (is_folder(path.get())) {
      type_now = host::equals(read(resdir).get(), directory) ? name : host::none();
      message::FoundAllResFile(this, path, type_now);
    } else {
      add_file(directory, name.get(), path.get(), type_now.get());
    }
  });
}

void ResourceManager::add_file(PyObject* directory, PyObject* name, PyObject* path,
                               PyObject* type) {
  host::set_item(read(fileDict).get(), lower(name).get(), path);
  if (!host::equals(type, "Scene"_name)) return;
  Ref base = part(host::call(path_function("splitext"_name), name), 0);
  Ref resources = join(in_folder(directory, base.get()).get(), "_Res.Json"_name);
  if (exists(resources.get())) host::call_method(read(SceneJsonDict), "append"_name, base);
}

void ResourceManager::AddNewResFile(PyObject* path) {
  Ref name = part(host::call(path_function("split"_name), host::openable_path(path)), -1);
  host::set_item(read(fileDict).get(), lower(name.get()).get(), path);
}

Ref ResourceManager::GetResPath(PyObject* name) {
  Ref key = lower(name);
  Ref files = read(fileDict);
  if (!host::contains(files.get(), key.get())) return host::none();
  return host::get_item(files.get(), key.get());
}

Ref ResourceManager::LoadImage(PyObject* name) {
  Ref path = message::GetResPath(this, name);
  if (!host::is_set(path)) return host::none();
  if (host::contains(read(ImageDict).get(), name)) {
    message::ManageImageMemory(this, name);
    return host::get_item(read(ImageDict).get(), name);
  }
  Ref surface;
  Ref error = host::caught(PyExc_Exception, [&] {
    surface = load_image(path.get());
    host::set_item(read(ImageDict).get(), name, surface.get());
    message::ManageImageMemory(this, name);
  });
  if (!error) return surface;
  host::print_line(error);
  return host::none();
}

void ResourceManager::ManageImageMemory(PyObject* name) {
  Ref names = read(ImageDict_MemManage_List);
  for (Py_ssize_t index = 0; index < host::length(names.get()); ++index) {
    Ref place = host::integer(index);
    if (!host::equals(host::get_item(names.get(), place.get()).get(), name)) continue;
    host::print_line(host::take(PyUnicode_FromFormat("%S load:%zd -> %S", name, index,
                                                     read(ImageDict_MemManage_Count).get())));
    host::del_item(names.get(), place.get());
    host::call_method(names, "append"_name, name);
    return;
  }
  host::call_method(names, "append"_name, name);
  write(ImageDict_MemManage_Count, number(ImageDict_MemManage_Count) + Number(1));
  host::print_line(
      host::take(PyUnicode_FromFormat("%S load:%S", name, read(ImageDict_MemManage_Count).get())));
}

void ResourceManager::ReleaseAllImageMemeory() {
  host::call_method(read(ImageDict), "clear"_name);
  if (is_set(ImageDict_MemManage_List)) {
    host::call_method(read(ImageDict_MemManage_List), "clear"_name);
  }
  write(ImageDict_MemManage_List, host::list());
  write(ImageDict_MemManage_Total, Number(kImageLimit));
  write(ImageDict_MemManage_Count, Number(0));
}

void register_resource_manager(PyObject* module) {
  using Manager = ResourceManager;
  ResourceBuilder builder("PyGameResManager", nullptr);
  builder.attribute("resdir", &Manager::resdir, "Root folder of the resources.")
      .attribute("fontdir", &Manager::fontdir, "Folder of the fonts; stored for scripts.")
      .attribute("fileDict", &Manager::fileDict,
                 "Full paths by lower-case file name, which includes the extension.")
      .attribute("ImageDict", &Manager::ImageDict,
                 "Loaded surfaces by the names under which they were asked for.")
      .attribute("soundDict", &Manager::soundDict, "pygame.mixer.Sound objects by sound number.")
      .attribute("ImageDict_MemManage_List", &Manager::ImageDict_MemManage_List,
                 "Names of the loaded images, least recently used first.")
      .attribute("ImageDict_MemManage_Total", &Manager::ImageDict_MemManage_Total,
                 "Intended number of cached images; nothing is ever dropped for it.")
      .attribute("ImageDict_MemManage_Count", &Manager::ImageDict_MemManage_Count,
                 "Number of images loaded since the last release.")
      .attribute("SceneJsonDict", &Manager::SceneJsonDict, "List of the scenes' names.")
      .attribute("soundPlayCount", &Manager::soundPlayCount, "The next sound's number.")
      .constructor<&Manager::construct>(
          {"resdir"},
          "Finds every file below a folder and loads files by their bare names.\n\n"
          "Case does not matter. A folder that does not exist gives an empty index. Of files\n"
          "that share a name the one met last counts.")
      .accessors<&Manager::fontdir>(nullptr, "SetFontDir", "path")
      .method<&Manager::FoundAllResFile>(
          "FoundAllResFile", {"parentDir", {"dirType", nullptr}},
          "Add the files of a folder and of all folders below it to the index.\n\n"
          "`dirType` is the name of the top-level folder that is being read: files in \"Scene\"\n"
          "that have a \"_Res.Json\" file beside them are scenes.")
      .method<&Manager::AddNewResFile>("AddNewResFile", {"filePath"},
                                       "Add one file to the index, which need not exist yet.")
      .method<&Manager::GetResPath>(
          "GetResPath", {"filename"},
          "Return the full path of a file named without its folder, or None if it is unknown.")
      .accessors<&Manager::SceneJsonDict>("GetSceneList", nullptr, nullptr)
      .method<&Manager::LoadImage>(
          "LoadImage", {"fileName"},
          "Return an image file as a surface with per-pixel alpha; later calls share it.\n\n"
          "Returns None for an unknown name, and for a file that does not load: the error is\n"
          "printed then.")
      .method<&Manager::ManageImageMemory>(
          "ManageImageMemory", {"fileName"},
          "Note an image's use: its name moves to the end of the list of recent images.\n\n"
          "Prints a line about it.")
      .method<&Manager::ReleaseAllImageMemeory>(
          "ReleaseAllImageMemeory", "Forget all loaded images and count them from 0 again.");
  declare_image_sequences(builder);
  declare_media(builder);
  host::add_object_protocol(builder);
  builder.finish(module);
}

}  // namespace tessora
