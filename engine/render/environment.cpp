#include "engine/render/environment.hpp"

#include "engine/pixels/once.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

struct Environment {
  std::uint64_t tick = 0;  // of the script clock
  std::uint64_t number = 0;
  bool usable = false;
  Ref display;
  Ref smoothscale;
  Ref rotozoom;
  std::int64_t display_bits = 0;
  PixelMasks alpha_masks;
};

Environment& the_environment() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const environment = new Environment;
  return *environment;
}

// The display, if pictures can be kept for it: a script's replacements are called every time.
Ref find_display(Value smoothscale, Value rotozoom) {
  Ref get_surface = host::modules::display["get_surface"_name];
  Ref type = host::modules::pygame["Surface"_name];
  if (!get_surface.is_native_function() || !smoothscale.is_native_function() ||
      !rotozoom.is_native_function()) {
    return {};
  }
  Ref display = host::call_library(get_surface);
  return is_plain_surface(display) && type.is(Value(display.type())) ? display : Ref();
}

void refresh(Environment& now) {
  now.tick = host::clocks.script;
  Ref smoothscale = host::modules::transform["smoothscale"_name];
  Ref rotozoom = host::modules::transform["rotozoom"_name];
  Ref display = find_display(smoothscale, rotozoom);
  now.usable = static_cast<bool>(display);
  if (!now.usable) return;
  const std::int64_t bits = host::library_integer(surface_call(display, "get_bitsize"_name));
  if (display.is(now.display) && bits == now.display_bits && smoothscale.is(now.smoothscale) &&
      rotozoom.is(now.rotozoom)) {
    return;
  }
  Ref probe = new_alpha_surface(host::tuple(1, 1));
  std::optional<SurfaceMemory> memory = surface_memory(probe);
  now.usable = memory.has_value();
  if (!now.usable) return;
  now.alpha_masks = memory->masks;
  ++now.number;
  now.display = display;
  now.display_bits = bits;
  now.smoothscale = smoothscale;
  now.rotozoom = rotozoom;
}

// A column of pixels of every value, and a row of them: pygame multiplies long rows another way.
bool multiplying_by_white_keeps(bool column) {
  constexpr int kValues = 256;
  Ref size = column ? host::tuple(1, kValues) : host::tuple(kValues, 1);
  Ref picture = new_alpha_surface(size);
  Ref expected = new_alpha_surface(size);
  for (int value = 0; value < kValues; ++value) {
    Ref place = column ? host::tuple(0, value) : host::tuple(value, 0);
    Ref color = host::tuple(value, value, value, value);
    surface_call(picture, "set_at"_name, place, color);
    surface_call(expected, "set_at"_name, place, color);
  }
  Ref white = new_alpha_surface(size);
  surface_call(white, "fill"_name, unpacked_color(0xFFFFFFFF));
  Ref flags = host::modules::pygame["BLEND_RGBA_MULT"_name];
  surface_call(picture, "blit"_name, white, host::tuple(0, 0), nullptr, flags);
  std::optional<SurfaceMemory> left = surface_memory(picture);
  std::optional<SurfaceMemory> right = surface_memory(expected);
  return left && right && fingerprint(*left) == fingerprint(*right);
}

}  // namespace

std::uint64_t environment() {
  Environment& now = the_environment();
  if (now.tick != host::clocks.script) refresh(now);
  return now.usable ? now.number : 0;
}

void forget_environment() {
  Environment& now = the_environment();
  now.tick = 0;
  now.usable = false;
  Ref display = std::exchange(now.display, Ref());
}

bool has_alpha_format(const SurfaceMemory& memory) {
  return memory.is_simple() && memory.blends && memory.pixel_bytes == 4 &&
         memory.masks == the_environment().alpha_masks;
}

bool white_is_identity() {
  static Once<bool> identity;
  return identity.get(
      [] { return multiplying_by_white_keeps(true) && multiplying_by_white_keeps(false); });
}

Fingerprint fingerprint(const SurfaceMemory& memory) {
  const auto row_bytes =
      static_cast<std::size_t>(memory.width) * static_cast<std::size_t>(memory.pixel_bytes);
  return fingerprint(Pixels{memory.pixels, row_bytes, memory.pitch, memory.height});
}

}  // namespace tessora::render
