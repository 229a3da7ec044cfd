#include "engine/pixels/surface_memory.hpp"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "engine/pixels/once.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

// What pygame and SDL 2 lay out the same in all their releases, as far as it is needed here.
struct Format {
  std::uint32_t name = 0;
  void* palette = nullptr;
  std::uint8_t bits = 0;
  std::uint8_t bytes = 0;
  std::uint8_t padding[2] = {};
  PixelMasks masks;
};

struct BlitSide {
  std::uint8_t* pixels;
  int width, height, pitch, skip;
};

// Private to SDL: nothing but the comparison below says that it is so.
struct BlitState {
  void* destination;
  int identity;
  void* function;
  void* data;
  BlitSide source, target;
  void* source_format;
  void* target_format;
  std::uint8_t* table;
  std::uint32_t flags;
  std::uint32_t key;
  std::uint8_t red, green, blue, opacity;
};

struct SdlSurface {
  std::uint32_t flags;
  const Format* format;
  int width, height, pitch;
  unsigned char* pixels;
  void* user_data;
  int locked;
  void* list;
  int clip_left, clip_top, clip_width, clip_height;
  const BlitState* blit;
  int references;
};

struct SubsurfaceData {
  PyObject* owner;
  int numbers[3];  // left and top, in some releases after the offset in bytes
};

struct PygameSurface {
  PyObject base;
  const SdlSurface* surface;
  int owns_surface;
  const SubsurfaceData* subsurface;
  PyObject* others[3];
};

constexpr std::uint32_t kRunLength = 2;     // flag of the surface
constexpr std::uint32_t kBlendMask = 0xF0;  // flags of the blit
constexpr std::uint32_t kBlend = 0x10;
constexpr std::uint32_t kKeyed = 0x100;
constexpr std::uint32_t kWantsRunLength = 0x7000;

const PygameSurface& structure(Value surface) {
  return *reinterpret_cast<const PygameSurface*>(surface.get());
}

PixelBox box_of(int left, int top, int width, int height) {
  return {left, top, left + width, top + height};
}

std::optional<SurfaceMemory> from_structures(Value object) {
  const SdlSurface* surface = structure(object).surface;
  if (surface == nullptr) return std::nullopt;
  const BlitState& blit = *surface->blit;
  const SubsurfaceData* part = structure(object).subsurface;
  const bool keyed = (blit.flags & kKeyed) != 0;
  return SurfaceMemory{
      .pixels = surface->pixels,
      .pitch = surface->pitch,
      .width = surface->width,
      .height = surface->height,
      .pixel_bytes = surface->format->bytes,
      .masks = surface->format->masks,
      .clip =
          box_of(surface->clip_left, surface->clip_top, surface->clip_width, surface->clip_height),
      .locked = surface->locked != 0,
      .compressed = ((surface->flags & kRunLength) | (blit.flags & kWantsRunLength)) != 0,
      .blends = (blit.flags & kBlendMask) == kBlend,
      .keyed = keyed,
      .opacity = blit.opacity,
      .key = keyed ? blit.key : 0,
      .holder = part == nullptr ? object.get() : part->owner,
  };
}

Ref ask(Value surface, Value method) {
  return surface_call(surface, method);
}

long long whole(Value number) {
  return host::library_integer(number);
}

int item(Value tuple, Py_ssize_t index) {
  Ref part = host::library_item(tuple, index);
  return static_cast<int>(whole(part));
}

std::uint32_t mask(Value tuple, Py_ssize_t index) {
  // Signed in some releases where `long` has 32 bits.
  return static_cast<std::uint32_t>(item(tuple, index));
}

SurfaceMemory from_methods(Value surface) {
  constexpr long long kCompressed = 0x6000;
  constexpr long long kColorKey = 0x1000;
  constexpr long long kSourceAlpha = 0x10000;
  SurfaceMemory memory;
  const long long flags = whole(ask(surface, "get_flags"_name));
  memory.compressed = (flags & kCompressed) != 0;
  memory.blends = (flags & kSourceAlpha) != 0;
  memory.keyed = (flags & kColorKey) != 0;
  if (memory.keyed) {
    Ref color = ask(surface, "get_colorkey"_name);
    memory.key = static_cast<std::uint32_t>(whole(surface_call(surface, "map_rgb"_name, color)));
  }
  Ref opacity = ask(surface, "get_alpha"_name);
  if (!opacity.is_none()) memory.opacity = static_cast<int>(whole(opacity));
  memory.locked = whole(ask(surface, "get_locked"_name)) != 0;
  Ref size = ask(surface, "get_size"_name);
  memory.width = item(size, 0);
  memory.height = item(size, 1);
  memory.pitch = static_cast<int>(whole(ask(surface, "get_pitch"_name)));
  memory.pixel_bytes = static_cast<int>(whole(ask(surface, "get_bytesize"_name)));
  Ref masks = ask(surface, "get_masks"_name);
  memory.masks = {mask(masks, 0), mask(masks, 1), mask(masks, 2), mask(masks, 3)};
  Ref clip = ask(surface, "get_clip"_name);
  memory.clip = box_of(item(clip, 0), item(clip, 1), item(clip, 2), item(clip, 3));
  Ref address = host::library_attr(surface, "_pixels_address"_name);
  if (!address) host::raise(PyExc_AttributeError, "_pixels_address");
  memory.pixels = static_cast<unsigned char*>(PyLong_AsVoidPtr(address.get()));
  if (PyErr_Occurred() != nullptr) throw host::HostError();
  Ref owner = ask(surface, "get_parent"_name);
  memory.holder = owner.is_none() ? surface.get() : owner.get();  // held by the surface
  return memory;
}

Ref box(int left, int top, int width, int height) {
  return host::tuple(left, top, width, height);
}

std::pair<int, int> offset_by_method(Value surface) {
  Ref offset = ask(surface, "get_offset"_name);
  return {item(offset, 0), item(offset, 1)};
}

// Where the left edge stands among a subsurface's numbers here.
int left_index = 0;

std::pair<int, int> offset_in_structure(Value surface) {
  const int* numbers = structure(surface).subsurface->numbers + left_index;
  return {numbers[0], numbers[1]};
}

// Surfaces of different sizes, formats and states, on which the structures must say what the
// methods do after every step. The pointers are followed once all surfaces agree in what lies
// beside them.
class LayoutProof {
 public:
  bool holds() {
    const Py_ssize_t size = reinterpret_cast<PyTypeObject*>(type_.get())->tp_basicsize;
    if (std::cmp_less(size, sizeof(PygameSurface))) return false;
    make_surfaces();
    if (!std::ranges::all_of(surfaces_, flat_fields_agree)) return false;
    const Ref& part = surfaces_.back();
    if (offset_in_structure(part.get()) != offset_by_method(part.get())) left_index = 1;
    return std::ranges::all_of(surfaces_, agrees) &&
           std::ranges::all_of(surfaces_, [&](const Ref& each) { return survives_states(each); });
  }

 private:
  void make_surfaces() {
    constexpr int kAlpha = 0x10000;
    const int kinds[][4] = {{13, 7, kAlpha, 32}, {5, 9, 0, 32}, {3, 4, 0, 24},
                            {6, 2, 0, 16},       {7, 5, 0, 8},  {1, 1, kAlpha, 16}};
    for (const auto& [width, height, flags, depth] : kinds) {
      Ref size = host::tuple(width, height);
      surfaces_.push_back(host::call_library(type_, size, flags, depth));
    }
    surfaces_.push_back(call(surfaces_[0], "subsurface"_name, box(2, 1, 9, 5)));
    surfaces_.push_back(call(surfaces_.back(), "subsurface"_name, box(3, 2, 4, 2)));
    surfaces_.push_back(call(surfaces_[2], "subsurface"_name, box(1, 1, 2, 3)));
  }

  // The fields beside the pointers tell other layouts before a pointer is followed.
  static bool flat_fields_agree(Value surface) {
    const SdlSurface* memory = structure(surface.get()).surface;
    if (memory == nullptr) return false;
    SurfaceMemory said = from_methods(surface);
    const bool is_part = said.holder != surface.get();
    if (is_part != (structure(surface.get()).subsurface != nullptr)) return false;
    return memory->pixels == said.pixels && memory->pitch == said.pitch &&
           memory->width == said.width && memory->height == said.height &&
           box_of(memory->clip_left, memory->clip_top, memory->clip_width, memory->clip_height) ==
               said.clip &&
           (memory->locked != 0) == said.locked;
  }

  static bool agrees(Value surface) {
    SurfaceMemory said = from_methods(surface);
    return from_structures(surface) == said &&
           (said.holder == surface.get() ||
            offset_in_structure(surface) == offset_by_method(surface));
  }

  bool survives_states(Value surface) {
    constexpr int kRunLengthFlag = 0x4000;
    Ref none = host::none();
    Ref color = host::tuple(8, 16, 248);
    Ref run_length = host::integer(kRunLengthFlag);
    const std::pair<Value, std::vector<Ref>> steps[] = {
        {"set_alpha"_name, {none}},
        {"set_alpha"_name, {host::integer(90)}},
        {"set_colorkey"_name, {color}},
        {"lock"_name, {}},
        {"lock"_name, {}},
        {"set_alpha"_name, {host::integer(255)}},
        {"unlock"_name, {}},
        {"set_clip"_name, {box(1, 0, 2, 1)}},
        {"unlock"_name, {}},
        {"set_colorkey"_name, {none}},
        {"set_alpha"_name, {host::integer(0), run_length}},
        {"set_colorkey"_name, {color, run_length}},
        {"set_clip"_name, {box(-3, 1, 90, 90)}},
        {"set_alpha"_name, {none}},
        {"set_colorkey"_name, {none}},
        {"set_clip"_name, {none}},
        {"set_alpha"_name, {host::integer(255)}},
    };
    bool same = true;
    for (const auto& [method, arguments] : steps) {
      if (arguments.empty()) call(surface, method);
      if (arguments.size() == 1) call(surface, method, arguments[0]);
      if (arguments.size() == 2) call(surface, method, arguments[0], arguments[1]);
      same = same && std::ranges::all_of(surfaces_, agrees);
    }
    return same;
  }

  template <class... Args>
  static Ref call(Value surface, Value method, const Args&... args) {
    return surface_call(surface, method, args...);
  }

  Ref type_ = host::modules::pygame["Surface"_name];
  std::vector<Ref> surfaces_;
};

std::pair<int, int> offset_in_owner(Value surface) {
  return reads_structures() ? offset_in_structure(surface) : offset_by_method(surface);
}

// Whether a subsurface still lies where its owner's pixels are now.
bool is_in_place(Value surface, const SurfaceMemory& part, const SurfaceMemory& owner) {
  auto [left, top] = offset_in_owner(surface);
  return owner.pixels != nullptr && part.pitch == owner.pitch &&
         part.pixel_bytes == owner.pixel_bytes && part.masks == owner.masks && left >= 0 &&
         top >= 0 && part.width <= owner.width - left && part.height <= owner.height - top &&
         part.pixels == owner.pixels + static_cast<std::ptrdiff_t>(top) * owner.pitch +
                            static_cast<std::ptrdiff_t>(left) * owner.pixel_bytes;
}

std::optional<SurfaceMemory> read_by_methods(Value surface) {
  std::optional<SurfaceMemory> memory;
  library::holds([&] {
    memory = from_methods(surface);
    return true;
  });
  return memory;
}

std::optional<SurfaceMemory> read(Value surface) {
  if (!is_plain_surface(surface)) return std::nullopt;
  return reads_structures() ? from_structures(surface) : read_by_methods(surface);
}

// Goes to the surface that holds a subsurface's pixels; false where they have come loose.
bool follow_owners(Value surface, SurfaceMemory& memory) {
  SurfaceMemory inner = memory;
  for (PyObject* part = surface.get(); inner.holder != part;) {
    std::optional<SurfaceMemory> owner = read(inner.holder);
    if (!owner || !is_in_place(part, inner, *owner)) return false;
    memory.locked |= owner->locked;
    memory.compressed |= owner->compressed;
    part = memory.holder = inner.holder;
    inner = *owner;
  }
  return true;
}

}  // namespace

bool reads_structures() {
  static constinit Once<bool> proved;
  return proved.get([] { return library::holds([] { return LayoutProof().holds(); }); });
}

std::optional<SurfaceMemory> surface_memory(Value surface) {
  std::optional<SurfaceMemory> memory = read(surface);
  if (memory && memory->holder != surface.get() && !follow_owners(surface, *memory)) memory.reset();
  return memory;
}

std::optional<SurfaceMemory> target_memory(Value surface) {
  std::optional<SurfaceMemory> memory = surface_memory(surface);
  if (!memory || memory->holder == surface.get()) return memory;
  std::optional<SurfaceMemory> holder = read(memory->holder);
  if (!holder || !holder->is_simple() || holder->blends != memory->blends) memory.reset();
  return memory;
}

std::optional<PixelBox> quick_clip(Value surface) {
  if (!is_plain_surface(surface) || !reads_structures()) return std::nullopt;
  const SdlSurface* memory = structure(surface).surface;
  if (memory == nullptr) return std::nullopt;
  return box_of(memory->clip_left, memory->clip_top, memory->clip_width, memory->clip_height);
}

bool share_memory(const SurfaceMemory& left, const SurfaceMemory& right) {
  auto end = [](const SurfaceMemory& memory) {
    return memory.pixels + static_cast<std::ptrdiff_t>(memory.pitch) * memory.height;
  };
  return left.holder == right.holder ||
         (std::less()(left.pixels, end(right)) && std::less()(right.pixels, end(left)));
}

namespace library {

Ref new_surface(int width, int height, bool with_alpha) {
  Ref size = host::tuple(width, height);
  Ref flags = host::modules::pygame["SRCALPHA"_name];
  return host::call_library(host::modules::pygame["Surface"_name], size,
                            with_alpha ? flags : host::integer(0), 32);
}

void fill_row(Value surface, int row, std::uint32_t color) {
  constexpr int kWide = 1 << 14;
  surface_call(surface, "fill"_name, unpacked_color(color), box(0, row, kWide, 1));
}

void blit(Value target, Value source, int flags) {
  host::call_library_method(target, "blit"_name, source, host::tuple(0, 0), nullptr, flags);
}

void multiply(Value target, Value source) {
  blit(target, source, static_cast<int>(whole(host::modules::pygame["BLEND_RGBA_MULT"_name])));
}

void draw_rect(Value target, std::uint32_t color, int left, int top, int width, int height) {
  Ref function = host::modules::draw["rect"_name];
  // A script's replacement proves nothing.
  if (!function.is_native_function()) host::raise(PyExc_TypeError, "not pygame's own rect");
  host::call_library(function, target, unpacked_color(color), box(left, top, width, height), 0);
}

std::string setting(const char* name) {
  Ref environment = host::modules::os["environ"_name];
  Ref value = environment.call("get"_name, name, "");
  return host::utf8(value);
}

}  // namespace library
}  // namespace tessora::render
