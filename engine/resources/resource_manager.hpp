// The resource manager: finds files by their bare names, and loads images, fonts, sounds and music.
#pragma once

#include "engine/object/declaration.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;
using host::Slot;
using host::Value;

struct ResourceManager : host::Object {
  Slot resdir, fontdir, fileDict, ImageDict, soundDict;
  Slot ImageDict_MemManage_List, ImageDict_MemManage_Total, ImageDict_MemManage_Count;
  Slot SceneJsonDict, soundPlayCount;

  void read_root(Value directory);

  // The index of files, and images: resource_manager.cpp
  void FoundAllResFile(Value directory, Value type);
  void AddNewResFile(Value path);
  Ref GetResPath(Value name);
  Ref LoadImage(Value file);
  void ManageImageMemory(Value file);
  void ReleaseAllImageMemeory();

  // Numbered frames, sounds, music, fonts: resource_media.cpp
  Ref GetImageListFiles(Value name);
  void PlayMusic(Value name, Value loops);
  void StopMusic();
  Ref PlaySound(Value name);
  void StopSound(Value id);
  Ref GetFont(Value name, Value size, Value bold, Value italic);

 private:
  void add_file(Value directory, Value name, Value path, Value type);
};

namespace message {

inline host::Message FoundAllResFile{"FoundAllResFile"};
inline host::Message GetResPath{"GetResPath"};
inline host::Message ManageImageMemory{"ManageImageMemory"};

}  // namespace message

// Registration, one part per file, so that a method is declared beside its code.
using ResourceDeclaration = host::Declaration<ResourceManager>;
void declare_media(ResourceDeclaration& manager);
void register_resource_manager(PyObject* module);

}  // namespace tessora
