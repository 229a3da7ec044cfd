// Finished pictures and faces, held within a bound; the least recently drawn go first.
#pragma once

#include <list>
#include <memory>
#include <unordered_set>

#include "engine/pixels/paint.hpp"

namespace tessora::render {

// At most this many bytes of finished pictures and faces are held. A larger one is not kept.
inline constexpr std::size_t kPictureCacheBytes = std::size_t{256} << 20U;

// A finished picture. Nobody but the engine reaches its surface.
struct Kept {
  host::Ref surface;
  int width = 0;
  int height = 0;
  Spans spans;
  std::optional<PaintSource> source;  // for the engine's own loops; nothing when pygame must draw
};

class Store {
 public:
  struct Entry;
  using Place = std::list<Entry>::iterator;

  // Whose entries these are; told when the store makes room.
  class Owner {
   public:
    virtual void lost(Place place) = 0;

   protected:
    ~Owner() = default;
  };

  struct Entry {
    Kept kept;
    std::size_t bytes = 0;
    Owner* owner = nullptr;
    const void* tag = nullptr;  // the owner's
  };

  // Nothing when the surface cannot be kept.
  std::optional<Place> put(host::Value surface, Owner& owner, const void* tag);
  void touch(Place place) { entries_.splice(entries_.begin(), entries_, place); }
  // Gives the surface up without telling the owner.
  void remove(Place place);

  // What is asked for once is not kept: it may change on every frame. `mark` tells the wish.
  bool is_wanted_again(std::uint64_t mark);

  [[nodiscard]] std::size_t bytes() const { return bytes_; }

 private:
  std::list<Entry> entries_;
  std::size_t bytes_ = 0;
  std::unordered_set<std::uint64_t> asked_;
  std::unordered_set<std::uint64_t> asked_before_;
};

Store& the_store();

// Whether everything kept still is what pygame would give, after dropping what is not. False while
// nothing can be kept.
bool can_keep();

}  // namespace tessora::render
