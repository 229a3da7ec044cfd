#include "engine/render/picture_cache.hpp"

#include <algorithm>
#include <bit>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "engine/host/weak.hpp"
#include "engine/render/source_state.hpp"

namespace tessora::render {

namespace {

constexpr int kOpaque = 255;

struct Kept {
  PictureRecipe recipe;
  Ref surface;
  int width;
  int height;
  std::uint64_t last_drawn;
  [[nodiscard]] std::size_t bytes() const {
    constexpr std::size_t kPixelBytes = 4;
    return kPixelBytes * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  }
};

// A surface that pictures are made of, while it lives.
struct Source {
  PyObject* surface = nullptr;  // not owned
  Ref death_watch;              // weak reference that ends this record
  const PyObject* root = nullptr;
  SurfaceState state;
  Fingerprint print{};
  bool alpha_format = false;
  bool comparable = false;
  std::uint64_t verified_state = 0;  // ticks of the script clock
  std::uint64_t verified_pixels = 0;
  std::vector<Kept> pictures;
};

std::uint64_t mark_of(const Source& source, const PictureRecipe& recipe) {
  auto value = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(source.surface));
  auto mix = [&](std::uint64_t part) {
    value = (value ^ part) * 0x9E3779B97F4A7C15ULL;
    value ^= value >> 29U;
  };
  mix(static_cast<std::uint64_t>(recipe.width) << 32U | static_cast<std::uint32_t>(recipe.height));
  mix(std::bit_cast<std::uint64_t>(recipe.angle));
  mix(static_cast<std::uint64_t>(recipe.alpha) << 33U |
      static_cast<std::uint64_t>(recipe.tinted) << 32U | recipe.color);
  return value;
}

class PictureCache {
 public:
  std::optional<Picture> find(PyObject* surface, const PictureRecipe& recipe, PyObject* screen);
  void forget(PyObject* death_watch);

 private:
  Source& source_of(PyObject* surface);
  bool verify_state(Source& source);
  bool verify_pixels(Source& source);
  void drop_pictures(Source& source);
  void make_room();
  bool is_wanted_again(const Source& source, const PictureRecipe& recipe);
  std::optional<Picture> make(Source& source, const PictureRecipe& recipe);
  const PyObject* screen_root(PyObject* screen);

  std::unordered_map<PyObject*, Source> sources_;
  std::unordered_map<PyObject*, PyObject*> watched_;  // death watch to surface
  std::size_t bytes_ = 0;
  std::uint64_t draws_ = 0;
  std::uint64_t environment_ = 0;
  std::uint64_t screen_tick_ = 0;
  PyObject* screen_ = nullptr;
  const PyObject* screen_root_ = nullptr;
  // A picture is kept when it is asked for a second time: what changes on every frame is not.
  std::unordered_set<std::uint64_t> asked_;
  std::unordered_set<std::uint64_t> asked_before_;
};

PictureCache& the_cache() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const cache = new PictureCache;
  return *cache;
}

void surface_died(PyObject* death_watch) {
  the_cache().forget(death_watch);
}

bool is_identity(const Source& source, const PictureRecipe& recipe) {
  constexpr std::uint32_t kWhite = 0xFFFFFFFF;
  return source.alpha_format && !source.state.locked && recipe.angle == 0.0 &&
         recipe.alpha == kOpaque && recipe.width == source.state.width &&
         recipe.height == source.state.height &&
         (!recipe.tinted || (recipe.color == kWhite && white_is_identity()));
}

Source& PictureCache::source_of(PyObject* surface) {
  auto found = sources_.find(surface);
  if (found != sources_.end()) return found->second;
  Ref death_watch = host::watch_death<&surface_died>(surface);
  watched_[death_watch.get()] = surface;
  Source& source = sources_[surface];
  source.surface = surface;
  source.death_watch = death_watch;
  return source;
}

void PictureCache::forget(PyObject* death_watch) {
  auto watched = watched_.find(death_watch);
  if (watched == watched_.end()) return;
  auto found = sources_.find(watched->second);
  drop_pictures(found->second);
  sources_.erase(found);
  watched_.erase(watched);
}

bool PictureCache::verify_state(Source& source) {
  if (source.verified_state == host::clocks.script) return source.comparable;
  std::optional<SurfaceState> now = read_state(source.surface);
  source.verified_state = host::clocks.script;
  source.comparable = now.has_value();
  if (!now) {
    drop_pictures(source);
    source.state = SurfaceState();
    return false;
  }
  source.state.locked = now->locked;
  if (now->same_as(source.state)) return true;
  drop_pictures(source);
  source.state = *now;
  source.root = root_surface(source.surface);
  // A blit of a shared picture reads memory that another surface may be writing.
  source.alpha_format = source.root == source.surface && now->key == 0 &&
                        (now->alpha == -1 || now->alpha == kOpaque) &&
                        has_alpha_format(source.surface, *now);
  return true;
}

bool PictureCache::verify_pixels(Source& source) {
  if (source.verified_pixels == host::clocks.script) return true;
  std::optional<Pixels> pixels = read_pixels(source.surface, source.state);
  if (!pixels) {
    drop_pictures(source);
    return false;
  }
  Fingerprint print = fingerprint(*pixels);
  source.verified_pixels = host::clocks.script;
  if (print == source.print) return true;
  drop_pictures(source);
  source.print = print;
  return true;
}

void PictureCache::drop_pictures(Source& source) {
  for (const Kept& kept : source.pictures) bytes_ -= kept.bytes();
  source.pictures.clear();
}

// Makes a quarter of the room at once, so that a full cache is not searched for every picture.
void PictureCache::make_room() {
  std::vector<std::uint64_t> ages;
  for (const auto& [surface, source] : sources_) {
    for (const Kept& kept : source.pictures) ages.push_back(kept.last_drawn);
  }
  auto quarter = ages.begin() + static_cast<std::ptrdiff_t>(ages.size() / 4);
  std::nth_element(ages.begin(), quarter, ages.end());
  const std::uint64_t oldest_to_stay = *quarter;
  for (auto& [surface, source] : sources_) {
    std::erase_if(source.pictures, [&](const Kept& kept) {
      bool goes = kept.last_drawn <= oldest_to_stay;
      if (goes) bytes_ -= kept.bytes();
      return goes;
    });
  }
}

bool PictureCache::is_wanted_again(const Source& source, const PictureRecipe& recipe) {
  constexpr std::size_t kGeneration = 16384;
  std::uint64_t mark = mark_of(source, recipe);
  if (asked_.contains(mark) || asked_before_.contains(mark)) return true;
  if (asked_.size() >= kGeneration) {
    asked_before_.swap(asked_);
    asked_.clear();
  }
  asked_.insert(mark);
  return false;
}

const PyObject* PictureCache::screen_root(PyObject* screen) {
  if (screen != screen_ || screen_tick_ != host::clocks.script) {
    screen_root_ = root_surface(screen);
    screen_ = screen;
    screen_tick_ = host::clocks.script;
  }
  return screen_root_;
}

std::optional<Picture> PictureCache::make(Source& source, const PictureRecipe& recipe) {
  if (!is_wanted_again(source, recipe) || !verify_pixels(source)) return std::nullopt;
  const std::uint64_t before = host::clocks.script;
  Ref image = Ref::share(source.surface);
  if (recipe.alpha != kOpaque) image = faded(image.get(), host::integer(recipe.alpha).get());
  Ref color = host::none();
  if (recipe.tinted) {
    color =
        host::tuple(host::integer(recipe.color >> 24U), host::integer(recipe.color >> 16U & 255U),
                    host::integer(recipe.color >> 8U & 255U), host::integer(recipe.color & 255U));
  }
  Ref size = host::tuple(host::integer(recipe.width), host::integer(recipe.height));
  Ref picture = finished(image.get(), size, Number(recipe.angle), color.get());
  // pygame's own functions ran, nothing else: what was verified still is.
  host::clocks.script = before;
  if (!is_plain_surface(picture.get())) return std::nullopt;
  std::optional<SurfaceState> made = read_state(picture.get());
  if (!made) return std::nullopt;
  if (bytes_ >= kPictureCacheBytes) make_room();
  source.pictures.push_back({recipe, picture, made->width, made->height, ++draws_});
  bytes_ += source.pictures.back().bytes();
  return Picture{picture.get(), made->width, made->height};
}

std::optional<Picture> PictureCache::find(PyObject* surface, const PictureRecipe& recipe,
                                          PyObject* screen) {
  std::uint64_t number = environment();
  if (number == 0) return std::nullopt;
  if (number != environment_) {
    for (auto& [each, source] : sources_) {
      drop_pictures(source);
      source.state = SurfaceState();
      source.verified_state = 0;
    }
    screen_ = nullptr;
    environment_ = number;
  }
  Source& source = source_of(surface);
  // What is drawn onto changes while it is drawn onto.
  if (!verify_state(source) || source.root == screen_root(screen)) return std::nullopt;
  if (is_identity(source, recipe)) return Picture{surface, recipe.width, recipe.height};
  if (!source.pictures.empty()) verify_pixels(source);
  for (Kept& kept : source.pictures) {
    if (!(kept.recipe == recipe)) continue;
    kept.last_drawn = ++draws_;
    return Picture{kept.surface.get(), kept.width, kept.height};
  }
  return make(source, recipe);
}

}  // namespace

std::optional<Picture> kept_picture(PyObject* source, const PictureRecipe& recipe,
                                    PyObject* screen) {
  if (recipe.width <= 0 || recipe.height <= 0) return std::nullopt;
  return the_cache().find(source, recipe, screen);
}

}  // namespace tessora::render
