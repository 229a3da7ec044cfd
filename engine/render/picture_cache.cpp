#include "engine/render/picture_cache.hpp"

#include <bit>
#include <unordered_map>

#include "engine/host/weak.hpp"
#include "engine/pixels/once.hpp"
#include "engine/render/environment.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

constexpr int kOpaque = 255;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

struct RecipeHash {
  static std::uint64_t mixed(std::uint64_t value, const Recipe& recipe) {
    auto mix = [&](std::uint64_t part) {
      value = (value ^ part) * 0x9E3779B97F4A7C15ULL;
      value ^= value >> 29U;
    };
    mix(static_cast<std::uint64_t>(recipe.width) << 32U |
        static_cast<std::uint32_t>(recipe.height));
    mix(std::bit_cast<std::uint64_t>(recipe.angle));
    mix(static_cast<std::uint64_t>(recipe.opacity) << 33U |
        static_cast<std::uint64_t>(recipe.tinted) << 32U | recipe.color);
    return value;
  }
  std::size_t operator()(const Recipe& recipe) const {
    return static_cast<std::size_t>(mixed(0, recipe));
  }
};

// A surface that pictures are made of, while it lives.
class Source final : public Store::Owner {
 public:
  Ref death_watch;  // weak reference that ends this record
  SurfaceMemory state;
  Fingerprint print{};
  bool has_print = false;
  bool trusted = false;
  std::uint64_t verified = 0;  // tick of the script clock

  Source() = default;
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source() { drop(); }

  void lost(Store::Place place) override {
    pictures_.erase(pictures_.find(*static_cast<const Recipe*>(place->tag)));
  }

  [[nodiscard]] const Kept* find(const Recipe& recipe) const {
    auto found = pictures_.find(recipe);
    if (found == pictures_.end()) return nullptr;
    the_store().touch(found->second);
    return &found->second->kept;
  }

  const Kept* keep(const Recipe& recipe, Value picture) {
    if (const Kept* known = find(recipe)) return known;
    // The recipe's place in the table is told to the store.
    auto made = pictures_.try_emplace(recipe).first;
    std::optional<Store::Place> place = the_store().put(picture, *this, &made->first);
    if (!place) {
      pictures_.erase(made);
      return nullptr;
    }
    made->second = *place;
    return &(*place)->kept;
  }

  void drop() {
    Pictures pictures;
    pictures.swap(pictures_);
    for (const auto& [recipe, place] : pictures) the_store().remove(place);
  }

  [[nodiscard]] bool is_empty() const { return pictures_.empty(); }

 private:
  using Pictures = std::unordered_map<Recipe, Store::Place, RecipeHash>;
  Pictures pictures_;
};

struct Sources {
  std::unordered_map<const void*, Source> known;
  std::unordered_map<const void*, const void*> watched;  // death watch to surface
};

Sources& the_sources() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const sources = new Sources;
  return *sources;
}

void surface_died(Value death_watch) {
  Sources& sources = the_sources();
  auto watched = sources.watched.find(death_watch.identity());
  if (watched == sources.watched.end()) return;
  auto source = sources.known.extract(watched->second);
  sources.watched.erase(watched);
}

Source& source_of(Value surface) {
  Sources& sources = the_sources();
  auto found = sources.known.find(surface.identity());
  if (found != sources.known.end()) return found->second;
  Ref death_watch = host::watch_death<&surface_died>(surface);
  sources.watched[death_watch.identity()] = surface.identity();
  Source& source = sources.known[surface.identity()];
  source.death_watch = death_watch;
  return source;
}

// What of a surface decides the pictures made of it, beside its pixels.
SurfaceMemory state_of(const SurfaceMemory& memory) {
  SurfaceMemory state = memory;
  state.clip = {};
  state.locked = false;
  return state;
}

// Drops what was made of other pixels than the source has now.
void verify(Source& source, const SurfaceMemory& memory) {
  const SurfaceMemory state = state_of(memory);
  if (!(source.state == state)) {
    source.drop();
    source.state = state;
    source.has_print = false;
  }
  if (source.verified == host::clocks.script || source.is_empty() || source.trusted) return;
  const Fingerprint print = fingerprint(memory);
  source.verified = host::clocks.script;
  if (source.has_print && print == source.print) return;
  source.drop();
  source.print = print;
  source.has_print = true;
}

// To be taken before a picture is made: painting while it is made must show later.
void take_print(Source& source, const SurfaceMemory& memory) {
  if (source.trusted || (source.has_print && source.verified == host::clocks.script)) return;
  source.print = fingerprint(memory);
  source.has_print = true;
  source.verified = host::clocks.script;
}

std::uint64_t mark_of(Value surface, const Recipe& recipe) {
  return RecipeHash::mixed(reinterpret_cast<std::uintptr_t>(surface.identity()), recipe);
}

Recipe without_tint(const Recipe& recipe) {
  return {recipe.width, recipe.height, recipe.angle, recipe.opacity, false, 0};
}

class Maker {
 public:
  Maker(Value surface, const SurfaceMemory& memory)
      : surface_(surface), memory_(memory), simple_(has_alpha_format(memory)) {}

  // The source itself is what the recipe gives, but for opacity and tint.
  [[nodiscard]] bool is_stage(const Recipe& recipe) const {
    return simple_ && recipe.angle == 0.0 && recipe.width == memory_.width &&
           recipe.height == memory_.height;
  }

  Picture find(const Recipe& recipe) {
    if (is_stage(recipe) && recipe.opacity == kOpaque && !recipe.tinted) {
      return {surface_, memory_.width, memory_.height, paint_source(surface_), {}};
    }
    Source& source = source_of(surface_);
    verify(source, memory_);
    if (const Kept* kept = source.find(recipe)) return picture_of(*kept);
    if (!the_store().is_wanted_again(mark_of(surface_, recipe))) return picture_of(make(recipe));
    take_print(source, memory_);
    const Fingerprint print = source.print;
    Ref made = make(recipe);
    // Other threads may have run meanwhile, and have ended the record.
    Source& now = source_of(surface_);
    const bool same = now.state == state_of(memory_) && now.print == print;
    const Kept* kept = same ? now.keep(recipe, made) : nullptr;
    return kept != nullptr ? picture_of(*kept) : picture_of(made);
  }

 private:
  static Picture picture_of(Value made) {
    const PixelSize size = surface_size(made);
    return {made, size.width, size.height, paint_source(made), {}};
  }

  static Picture picture_of(const Kept& kept) {
    return {kept.surface, kept.width, kept.height, kept.source, {}};
  }

  // Runs no script: all surfaces are pygame's own.
  Ref make(const Recipe& recipe) {
    Ref size = host::tuple(recipe.width, recipe.height);
    if (recipe.tinted) {
      Picture plain = find(without_tint(recipe));
      return tinted(plain.surface, recipe.color);
    }
    // pygame turns what it scaled; from that to per-pixel alpha is a step only for other formats.
    if (recipe.angle != 0.0 && (simple_ || recipe.opacity != kOpaque)) {
      Recipe level = recipe;
      level.angle = 0.0;
      Picture upright = find(level);
      Ref turned = rotated(upright.surface, Number(recipe.angle));
      return convert_alpha(turned);
    }
    Ref image = surface_;
    if (recipe.opacity != kOpaque) {
      Ref opacity = host::integer(recipe.opacity);
      image = faded(image, opacity);
    }
    return finished(image, size, Number(recipe.angle), nullptr);
  }

  Ref surface_;
  const SurfaceMemory& memory_;
  bool simple_;
};

}  // namespace

bool can_paint(const SurfaceMemory& target, int flags, const Shade& shade) {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const made = new Once<Ref>;
  const Ref& probe = made->get([] { return new_alpha_surface(host::tuple(1, 1)); });
  if (!probe) return false;
  constexpr int kOutside = -2;
  std::optional<PaintSource> source = paint_source(probe);
  // Outside of the target nothing but the question is left.
  return source && paint(target, *source, kOutside, kOutside, flags, shade);
}

std::optional<Picture> find_picture(Value surface, const SurfaceMemory& memory,
                                    const Recipe& recipe, const SurfaceMemory& target, int flags) {
  if (memory.pixels == nullptr || memory.pixel_bytes == 1 || memory.compressed || memory.locked) {
    return std::nullopt;
  }
  Maker maker(surface, memory);
  Recipe wanted = recipe;
  if (wanted.angle == 0.0) wanted.angle = 0.0;  // which -0.0 is not, bit by bit
  if (wanted.tinted && wanted.color == kWhite && white_is_identity()) {
    wanted.tinted = false;
    wanted.color = 0;
  }
  // Opacity comes before the size; it is left for the way where that does not change.
  Recipe stage = without_tint(wanted);
  Shade shade{kOpaque, wanted.color, wanted.tinted};
  if (maker.is_stage(stage)) std::swap(stage.opacity, shade.opacity);
  const bool shaded = shade.tinted || shade.opacity != kOpaque;
  if (shaded && can_paint(target, flags, shade)) {
    Picture picture = maker.find(stage);
    picture.shade = shade;
    if (picture.source) return picture;
  }
  return maker.find(wanted);
}

void trust_pixels(Value surface) {
  source_of(surface).trusted = true;
}

void drop_pictures() {
  Sources& sources = the_sources();
  std::unordered_map<const void*, Source> known;
  known.swap(sources.known);
  sources.watched.clear();
}

}  // namespace tessora::render
