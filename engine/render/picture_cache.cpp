#include "engine/render/picture_cache.hpp"

#include <bit>
#include <list>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "engine/render/source_state.hpp"

namespace tessora::render {

namespace {

struct Source;

struct Entry {
  Source* source;
  PictureSpec spec;
  Ref surface;
  int width;
  int height;
  std::size_t bytes;
};

using Entries = std::list<Entry>;  // the most recently drawn first

struct Source {
  PyObject* surface = nullptr;  // not owned: `weak` tells whether it still lives
  Ref weak;
  const PyObject* root = nullptr;
  SurfaceState state;
  PixelCopy copy;
  bool alpha_format = false;
  bool comparable = false;
  std::uint64_t verified_state = 0;   // ticks of the script clock
  std::uint64_t verified_pixels = 0;
  std::vector<Entries::iterator> pictures;
};

std::uint64_t fingerprint(const Source& source, const PictureSpec& spec) {
  std::uint64_t value = reinterpret_cast<std::uintptr_t>(source.surface);
  auto mix = [&](std::uint64_t part) {
    value = (value ^ part) * 0x9E3779B97F4A7C15ULL;
    value ^= value >> 29U;
  };
  mix(static_cast<std::uint64_t>(spec.width) << 32U | static_cast<std::uint32_t>(spec.height));
  mix(std::bit_cast<std::uint64_t>(spec.angle));
  mix(static_cast<std::uint64_t>(spec.alpha) << 33U |
      static_cast<std::uint64_t>(spec.tinted) << 32U | spec.color);
  return value;
}

class PictureCache {
 public:
  std::optional<Picture> find(PyObject* surface, const PictureSpec& spec, PyObject* screen);

 private:
  Source* source_of(PyObject* surface);
  bool verify_state(Source& source);
  bool verify_pixels(Source& source);
  void drop_pictures(Source& source);
  void drop(Entries::iterator entry);
  void forget(Source& source);
  void forget_all();
  void sweep();
  bool is_wanted_again(const Source& source, const PictureSpec& spec);
  std::optional<Picture> make(Source& source, const PictureSpec& spec);
  const PyObject* screen_root(PyObject* screen);

  Entries entries_;
  std::unordered_map<PyObject*, std::unique_ptr<Source>> sources_;
  std::size_t bytes_ = 0;
  std::size_t sweep_at_ = 256;
  std::uint64_t environment_ = 0;
  std::uint64_t screen_tick_ = 0;
  PyObject* screen_ = nullptr;
  const PyObject* screen_root_ = nullptr;
  // A picture is kept when it is asked for a second time: what changes on every frame is not.
  std::unordered_set<std::uint64_t> asked_;
  std::unordered_set<std::uint64_t> asked_before_;
};

bool is_identity(const Source& source, const PictureSpec& spec) {
  constexpr std::uint32_t kWhite = 0xFFFFFFFF;
  constexpr int kOpaque = 255;
  return source.alpha_format && spec.angle == 0.0 && spec.alpha == kOpaque &&
         spec.width == source.state.width && spec.height == source.state.height &&
         (!spec.tinted || (spec.color == kWhite && white_is_identity()));
}

Source* PictureCache::source_of(PyObject* surface) {
  auto found = sources_.find(surface);
  if (found != sources_.end()) {
    if (PyWeakref_GET_OBJECT(found->second->weak.get()) == surface) return found->second.get();
    // Another surface lived at this address.
    forget(*found->second);
  }
  if (sources_.size() >= sweep_at_) sweep();
  auto source = std::make_unique<Source>();
  source->surface = surface;
  source->weak = host::take(PyWeakref_NewRef(surface, nullptr));
  return (sources_[surface] = std::move(source)).get();
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
  if (now->same_as(source.state)) return true;
  drop_pictures(source);
  source.state = *now;
  source.root = root_surface(source.surface);
  // A blit of a shared picture reads memory that another surface may be writing.
  source.alpha_format = source.root == source.surface && now->key == 0 &&
                        (now->alpha == -1 || now->alpha == 255) && has_alpha_format(*now);
  return true;
}

bool PictureCache::verify_pixels(Source& source) {
  if (source.verified_pixels == host::clocks.script) return true;
  std::optional<Pixels> pixels = read_pixels(source.surface, source.state);
  if (!pixels) {
    drop_pictures(source);
    return false;
  }
  std::size_t before = source.copy.bytes();
  bool same = source.copy.matches(*pixels);
  bytes_ += source.copy.bytes() - before;
  source.verified_pixels = host::clocks.script;
  if (!same) drop_pictures(source);
  return true;
}

void PictureCache::drop(Entries::iterator entry) {
  bytes_ -= entry->bytes;
  std::erase(entry->source->pictures, entry);
  entries_.erase(entry);
}

void PictureCache::drop_pictures(Source& source) {
  while (!source.pictures.empty()) drop(source.pictures.back());
}

void PictureCache::forget(Source& source) {
  drop_pictures(source);
  bytes_ -= source.copy.bytes();
  sources_.erase(source.surface);
}

void PictureCache::forget_all() {
  entries_.clear();
  sources_.clear();
  bytes_ = 0;
  screen_ = nullptr;
}

// Forgets surfaces that no longer live.
void PictureCache::sweep() {
  std::vector<Source*> gone;
  for (auto& [surface, source] : sources_) {
    if (PyWeakref_GET_OBJECT(source->weak.get()) != surface) gone.push_back(source.get());
  }
  for (Source* source : gone) forget(*source);
  sweep_at_ = std::max<std::size_t>(256, sources_.size() * 2);
}

bool PictureCache::is_wanted_again(const Source& source, const PictureSpec& spec) {
  constexpr std::size_t kGeneration = 16384;
  std::uint64_t mark = fingerprint(source, spec);
  if (asked_.count(mark) != 0 || asked_before_.count(mark) != 0) return true;
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

std::optional<Picture> PictureCache::make(Source& source, const PictureSpec& spec) {
  if (!is_wanted_again(source, spec) || !verify_pixels(source)) return std::nullopt;
  Ref image = Ref::share(source.surface);
  const std::uint64_t before = host::clocks.script;
  if (spec.alpha != 255) image = faded(image.get(), host::integer(spec.alpha).get());
  Ref color = host::none();
  if (spec.tinted) {
    color = host::tuple(host::integer(spec.color >> 24U), host::integer(spec.color >> 16U & 255U),
                        host::integer(spec.color >> 8U & 255U), host::integer(spec.color & 255U));
  }
  Ref size = host::tuple(host::integer(spec.width), host::integer(spec.height));
  Ref picture = finished(image.get(), size, Number(spec.angle), color.get());
  // pygame's own functions ran, nothing else: what was verified still is.
  host::clocks.script = before;
  if (!is_plain_surface(picture.get())) return std::nullopt;
  std::optional<SurfaceState> made = read_state(picture.get());
  if (!made) return std::nullopt;
  constexpr std::size_t kPixelBytes = 4;
  std::size_t bytes = kPixelBytes * static_cast<std::size_t>(made->width) *
                      static_cast<std::size_t>(made->height);
  entries_.push_front({&source, spec, picture, made->width, made->height, bytes});
  source.pictures.push_back(entries_.begin());
  bytes_ += bytes;
  while (bytes_ > kPictureCacheBytes && entries_.size() > 1) {
    Source* owner = entries_.back().source;
    drop(std::prev(entries_.end()));
    if (owner->pictures.empty() && owner != &source) forget(*owner);
  }
  return Picture{picture.get(), made->width, made->height};
}

std::optional<Picture> PictureCache::find(PyObject* surface, const PictureSpec& spec,
                                          PyObject* screen) {
  std::uint64_t number = environment();
  if (number == 0) return std::nullopt;
  if (number != environment_) {
    forget_all();
    environment_ = number;
  }
  Source& source = *source_of(surface);
  // What is drawn onto changes while it is drawn onto.
  if (!verify_state(source) || source.root == screen_root(screen)) return std::nullopt;
  if (is_identity(source, spec)) return Picture{surface, spec.width, spec.height};
  if (!source.pictures.empty()) verify_pixels(source);
  for (Entries::iterator entry : source.pictures) {
    if (!(entry->spec == spec)) continue;
    entries_.splice(entries_.begin(), entries_, entry);
    return Picture{entry->surface.get(), entry->width, entry->height};
  }
  return make(source, spec);
}

}  // namespace

std::optional<Picture> kept_picture(PyObject* source, const PictureSpec& spec, PyObject* screen) {
  if (spec.width <= 0 || spec.height <= 0) return std::nullopt;
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const cache = new PictureCache;
  return cache->find(source, spec, screen);
}

}  // namespace tessora::render
