#include "engine/render/face_cache.hpp"

#include <functional>
#include <unordered_map>

namespace tessora::render {

namespace {

struct KeptFace {
  Store::Place place;
  Face face;
};

class FaceCache final : public Store::Owner {
 public:
  void lost(Store::Place place) override {
    surfaces_.erase(place->kept.surface.identity());
    faces_.erase(faces_.find(*static_cast<const std::string*>(place->tag)));
  }

  const Face* find(const std::string& key) {
    auto found = faces_.find(key);
    if (found == faces_.end()) return nullptr;
    the_store().touch(found->second.place);
    return &found->second.face;
  }

  const Face* keep(const std::string& key, host::Value surface, double width, double height) {
    if (const Face* known = find(key)) return known;
    // The key's place in the table is told to the store.
    auto entry = faces_.try_emplace(key).first;
    std::optional<Store::Place> place = the_store().put(surface, *this, &entry->first);
    if (!place) {
      faces_.erase(entry);
      return nullptr;
    }
    surfaces_.insert(surface.identity());
    entry->second = {*place, {&(*place)->kept, width, height}};
    return &entry->second.face;
  }

  [[nodiscard]] bool holds(host::Value surface) const {
    return surfaces_.contains(surface.identity());
  }

  void drop() {
    std::unordered_map<std::string, KeptFace> faces;
    faces.swap(faces_);
    surfaces_.clear();
    for (auto& [key, face] : faces) the_store().remove(face.place);
  }

 private:
  std::unordered_map<std::string, KeptFace> faces_;
  std::unordered_set<const void*> surfaces_;
};

FaceCache& the_faces() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const faces = new FaceCache;
  return *faces;
}

}  // namespace

const Face* find_face(const FaceKey& key) {
  return key.is_known() && can_keep() ? the_faces().find(key.bytes()) : nullptr;
}

bool is_face_wanted(const FaceKey& key) {
  return key.is_known() && can_keep() &&
         the_store().is_wanted_again(std::hash<std::string>()(key.bytes()));
}

const Face* keep_face(const FaceKey& key, host::Value surface, double width, double height) {
  return the_faces().keep(key.bytes(), surface, width, height);
}

bool is_kept_face(host::Value surface) {
  return the_faces().holds(surface);
}

void drop_faces() {
  the_faces().drop();
}

}  // namespace tessora::render
