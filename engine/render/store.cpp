#include "engine/render/store.hpp"

#include <vector>

#include "engine/host/quit.hpp"
#include "engine/render/environment.hpp"
#include "engine/render/face_cache.hpp"
#include "engine/render/font_state.hpp"
#include "engine/render/picture_cache.hpp"

namespace tessora::render {

namespace {

std::size_t bytes_of(const SurfaceMemory& memory, const Spans& spans) {
  return static_cast<std::size_t>(memory.pitch) * static_cast<std::size_t>(memory.height) +
         spans.spans.size() * sizeof(Spans::Span) + spans.rows.size() * sizeof(std::uint32_t);
}

void drop_everything() {
  drop_pictures();
  drop_faces();
}

void pygame_quits() {
  drop_everything();
  forget_fonts();
  forget_environment();
}

}  // namespace

std::optional<Store::Place> Store::put(host::Value surface, Owner& owner, const void* tag) {
  std::optional<SurfaceMemory> memory = surface_memory(surface);
  // A compressed surface is another one after its first blit.
  if (!memory || memory->pixels == nullptr || memory->compressed) return std::nullopt;
  Kept kept{surface, memory->width, memory->height, find_spans(*memory), std::nullopt};
  const std::size_t size = bytes_of(*memory, kept.spans);
  if (size > kPictureCacheBytes) return std::nullopt;
  while (bytes_ + size > kPictureCacheBytes) {
    auto oldest = std::prev(entries_.end());
    oldest->owner->lost(oldest);
    remove(oldest);
  }
  entries_.push_front({std::move(kept), size, &owner, tag});
  bytes_ += size;
  Kept& held = entries_.front().kept;
  held.source = paint_source(surface, &held.spans);
  return entries_.begin();
}

void Store::remove(Place place) {
  bytes_ -= place->bytes;
  // The surface goes last, when everything is in order again.
  host::Ref surface = std::move(place->kept.surface);
  entries_.erase(place);
}

bool Store::is_wanted_again(std::uint64_t mark) {
  constexpr std::size_t kGeneration = 16384;
  if (asked_.contains(mark) || asked_before_.contains(mark)) return true;
  if (asked_.size() >= kGeneration) {
    asked_before_.swap(asked_);
    asked_.clear();
  }
  asked_.insert(mark);
  return false;
}

Store& the_store() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const store = new Store;
  return *store;
}

bool can_keep() {
  static std::uint64_t known = 0;
  const std::uint64_t now = environment();
  if (now == 0) return false;
  if (now != known) {
    static const bool told = [] {
      host::tell_of_quit(&pygame_quits);
      return true;
    }();
    static_cast<void>(told);
    drop_everything();
    known = now;
  }
  host::listen_for_quit();
  return true;
}

}  // namespace tessora::render
