// The resource manager: finds files by their bare names, and loads images, fonts, sounds and music.
#pragma once

#include "engine/host/class.hpp"

namespace tessora {

struct ResourceManager : host::Object {
  host::Slot resdir, fontdir, fileDict, ImageDict, soundDict;
  host::Slot ImageDict_MemManage_List, ImageDict_MemManage_Total, ImageDict_MemManage_Count;
  host::Slot SceneJsonDict, soundPlayCount;

  void construct(PyObject* directory);

  // The index of files: resource_manager.cpp
  void FoundAllResFile(PyObject* directory, PyObject* type);
  void AddNewResFile(PyObject* path);
  host::Ref GetResPath(PyObject* name);

  // Images: resource_manager.cpp
  host::Ref LoadImage(PyObject* name);
  void ManageImageMemory(PyObject* name);
  void ReleaseAllImageMemeory();

  // Numbered frames: image_sequence.cpp
  host::Ref GetImageListFiles(PyObject* name);

  // Sound and fonts: resource_media.cpp
  void PlayMusic(PyObject* name, PyObject* loops);
  void StopMusic();
  host::Ref PlaySound(PyObject* name);
  void StopSound(PyObject* id);
  host::Ref GetFont(PyObject* name, PyObject* size, PyObject* bold, PyObject* italic);

 private:
  void add_file(PyObject* directory, PyObject* name, PyObject* path, PyObject* type);
};

namespace message {

inline const host::Message FoundAllResFile{"FoundAllResFile"};
inline const host::Message GetResPath{"GetResPath"};
inline const host::Message LoadImage{"LoadImage"};
inline const host::Message ManageImageMemory{"ManageImageMemory"};

}  // namespace message

// Registration, one part per file, so that a method is declared beside its code.
using ResourceBuilder = host::ClassBuilder<ResourceManager>;
void declare_image_sequences(ResourceBuilder& builder);
void declare_media(ResourceBuilder& builder);
void register_resource_manager(PyObject* module);

}  // namespace tessora
