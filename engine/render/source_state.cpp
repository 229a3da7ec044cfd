#include "engine/render/source_state.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

// pygame's flags for compressed surfaces, whose pixels are not in memory as they look.
constexpr long kCompressed = 0x6000;
constexpr long kColorKey = 0x1000;
constexpr long kSourceAlpha = 0x10000;

// pygame's methods, called without looking them up on each surface.
PyObject* surface_method(PyObject* name) {
  Ref type = host::modules::pygame["Surface"_name];
  return host::get_attr(type, name).release();
}

long as_long(PyObject* value) {
  long result = PyLong_AsLong(value);
  if (result == -1 && PyErr_Occurred() != nullptr) throw host::HostError();
  return result;
}

std::uint64_t pack(const Ref& components) {
  std::uint64_t packed = 1;
  for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(components.get()); ++index) {
    packed = packed << 8U |
             static_cast<std::uint64_t>(PyLong_AsLong(PyTuple_GET_ITEM(components.get(), index)));
  }
  return packed;
}

// Null where the installed pygame does not tell.
const unsigned char* pixel_address(PyObject* surface) {
  static PyObject* const descriptor = _PyType_Lookup(Py_TYPE(surface), "_pixels_address"_name);
  if (descriptor == nullptr || Py_TYPE(descriptor)->tp_descr_get == nullptr) return nullptr;
  Ref address = host::take(
      Py_TYPE(descriptor)
          ->tp_descr_get(descriptor, surface, reinterpret_cast<PyObject*>(Py_TYPE(surface))));
  if (!PyLong_CheckExact(address.get())) return nullptr;
  return static_cast<const unsigned char*>(PyLong_AsVoidPtr(address.get()));
}

}  // namespace

bool SurfaceState::same_as(const SurfaceState& other) const {
  return width == other.width && height == other.height && flags == other.flags &&
         alpha == other.alpha && key == other.key && shifts && other.shifts &&
         host::check(PyObject_RichCompareBool(shifts.get(), other.shifts.get(), Py_EQ)) != 0;
}

std::optional<SurfaceState> read_state(PyObject* surface) {
  static PyObject* const get_flags = surface_method("get_flags"_name);
  static PyObject* const get_locked = surface_method("get_locked"_name);
  static PyObject* const get_alpha = surface_method("get_alpha"_name);
  static PyObject* const get_size = surface_method("get_size"_name);
  static PyObject* const get_shifts = surface_method("get_shifts"_name);
  static PyObject* const get_colorkey = surface_method("get_colorkey"_name);
  SurfaceState state;
  state.flags = as_long(host::call_library(get_flags, surface).get());
  if ((state.flags & kCompressed) != 0) return std::nullopt;
  state.locked = host::call_library(get_locked, surface).get() == Py_True;
  Ref size = host::call_library(get_size, surface);
  state.width = static_cast<int>(as_long(PyTuple_GET_ITEM(size.get(), 0)));
  state.height = static_cast<int>(as_long(PyTuple_GET_ITEM(size.get(), 1)));
  Ref alpha = host::call_library(get_alpha, surface);
  state.alpha = alpha.get() == Py_None ? -1 : static_cast<int>(as_long(alpha.get()));
  if ((state.flags & kColorKey) != 0) {
    Ref key = host::call_library(get_colorkey, surface);
    if (PyTuple_CheckExact(key.get())) state.key = pack(key);
  }
  state.shifts = host::call_library(get_shifts, surface);
  return state;
}

std::optional<Pixels> read_pixels(PyObject* surface, const SurfaceState& state) {
  static PyObject* const get_pitch = surface_method("get_pitch"_name);
  static PyObject* const get_bytesize = surface_method("get_bytesize"_name);
  auto bytes = as_long(host::call_library(get_bytesize, surface).get());
  if (bytes == 1 || state.width <= 0 || state.height <= 0) return std::nullopt;
  Pixels pixels{};
  pixels.row_bytes = static_cast<std::size_t>(bytes) * static_cast<std::size_t>(state.width);
  pixels.pitch = as_long(host::call_library(get_pitch, surface).get());
  pixels.rows = state.height;
  pixels.address = pixel_address(surface);
  if (pixels.address == nullptr) return std::nullopt;
  return pixels;
}

PyObject* root_surface(PyObject* surface) {
  static PyObject* const get_abs_parent = surface_method("get_abs_parent"_name);
  return host::call_library(get_abs_parent, surface).get();
}

namespace {

Ref masks_of(PyObject* surface) {
  return surface_call(surface, "get_masks"_name);
}

struct Environment {
  std::uint64_t tick = 0;  // of the script clock
  std::uint64_t number = 0;
  bool usable = false;
  Ref display;
  Ref smoothscale;
  Ref rotozoom;
  long display_bits = 0;
  Ref alpha_masks;
};

Environment& the_environment() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const environment = new Environment;
  return *environment;
}

void refresh(Environment& now) {
  now.tick = host::clocks.script;
  Ref display = host::call_library(host::modules::display["get_surface"_name]);
  Ref smoothscale = host::modules::transform["smoothscale"_name];
  Ref rotozoom = host::modules::transform["rotozoom"_name];
  Ref surface = host::modules::pygame["Surface"_name];
  // A script's replacements are called every time.
  now.usable = is_plain_surface(display.get()) && PyCFunction_Check(smoothscale.get()) &&
               PyCFunction_Check(rotozoom.get()) &&
               surface.get() == reinterpret_cast<PyObject*>(Py_TYPE(display.get()));
  if (!now.usable) return;
  long bits = as_long(surface_call(display.get(), "get_bitsize"_name).get());
  if (display.get() == now.display.get() && bits == now.display_bits &&
      smoothscale.get() == now.smoothscale.get() && rotozoom.get() == now.rotozoom.get()) {
    return;
  }
  ++now.number;
  now.display = display;
  now.display_bits = bits;
  now.smoothscale = smoothscale;
  now.rotozoom = rotozoom;
  Ref one = host::integer(1);
  now.alpha_masks = masks_of(new_alpha_surface(host::tuple(one, one)).get());
  now.tick = host::clocks.script;
}

// A column of pixels of every value, and a row of them: pygame multiplies long rows another way.
bool multiplying_by_white_keeps(bool column) {
  Ref span = host::integer(256);
  Ref one = host::integer(1);
  Ref size = column ? host::tuple(one, span) : host::tuple(span, one);
  Ref picture = new_alpha_surface(size);
  Ref expected = new_alpha_surface(size);
  for (int value = 0; value < 256; ++value) {
    Ref number = host::integer(value);
    Ref zero = host::integer(0);
    Ref place = column ? host::tuple(zero, number) : host::tuple(number, zero);
    Ref color = host::tuple(number, number, number, number);
    surface_call(picture.get(), "set_at"_name, place, color);
    surface_call(expected.get(), "set_at"_name, place, color);
  }
  Ref white = new_alpha_surface(size);
  Ref full = host::integer(255);
  surface_call(white.get(), "fill"_name, host::tuple(full, full, full, full));
  Ref origin = host::tuple(host::integer(0), host::integer(0));
  surface_call(picture.get(), "blit"_name, white, origin, Py_None,
               host::modules::pygame["BLEND_RGBA_MULT"_name]);
  auto pixels_of = [](const Ref& surface) -> std::optional<Pixels> {
    std::optional<SurfaceState> state = read_state(surface.get());
    return state ? read_pixels(surface.get(), *state) : std::nullopt;
  };
  std::optional<Pixels> left = pixels_of(picture);
  std::optional<Pixels> right = pixels_of(expected);
  if (!left || !right) return false;
  return fingerprint(*left) == fingerprint(*right);
}

}  // namespace

bool has_alpha_format(PyObject* surface, const SurfaceState& state) {
  return (state.flags & kSourceAlpha) != 0 &&
         host::check(PyObject_RichCompareBool(masks_of(surface).get(),
                                              the_environment().alpha_masks.get(), Py_EQ)) != 0;
}

std::uint64_t environment() {
  Environment& now = the_environment();
  if (now.tick != host::clocks.script) refresh(now);
  return now.usable ? now.number : 0;
}

bool white_is_identity() {
  static const bool identity =
      multiplying_by_white_keeps(true) && multiplying_by_white_keeps(false);
  return identity;
}

}  // namespace tessora::render
