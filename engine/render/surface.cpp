#include "engine/render/surface.hpp"

namespace tessora::render {

using namespace host::literals;

namespace {

PyTypeObject* library_type(PyObject* name) {
  return reinterpret_cast<PyTypeObject*>(host::modules::pygame[name].release());
}

Ref white(PyObject* alpha) {
  static PyObject* const full = host::integer(255).release();
  return host::tuple(full, full, full, alpha);
}

Ref transform(PyObject* function, const auto&... args) {
  return host::call(host::modules::transform[function], args...);
}

Ref size_of(PyObject* image) {
  if (is_plain_surface(image)) return surface_call(image, "get_size"_name);
  return host::get_attr(host::call_method(image, "get_rect"_name), "size"_name);
}

void multiply(const Ref& target, PyObject* image) {
  static PyObject* const origin = host::tuple(host::integer(0), host::integer(0)).release();
  Ref flags = host::modules::pygame["BLEND_RGBA_MULT"_name];
  if (is_plain_surface(image)) {
    surface_call(target.get(), "blit"_name, image, origin, Py_None, flags);
  } else {
    host::call_method(target, "blit"_name, image, origin, Py_None, flags);
  }
}

}  // namespace

bool is_plain_surface(PyObject* object) {
  static PyTypeObject* const type = library_type("Surface"_name);
  return Py_TYPE(object) == type;
}

std::optional<std::uint32_t> plain_color(PyObject* object) {
  static PyTypeObject* const type = library_type("Color"_name);
  if (Py_TYPE(object) != type) return std::nullopt;
  // As a number, a colour is its four bytes.
  Ref packed = host::take(PyNumber_Long(object));
  return static_cast<std::uint32_t>(PyLong_AsUnsignedLongLongMask(packed.get()));
}

Ref new_alpha_surface(const Ref& size) {
  Ref surface = host::call(host::modules::pygame["Surface"_name], size);
  return host::call_method(surface, "convert_alpha"_name);
}

Ref faded(PyObject* image, PyObject* alpha) {
  Ref result = new_alpha_surface(size_of(image));
  host::call_method(result, "fill"_name, white(alpha));
  multiply(result, image);
  return result;
}

Ref scaled(const Ref& image, const Ref& size) {
  return transform("smoothscale"_name, image, size);
}

Ref rotated(const Ref& image, const Number& angle) {
  static PyObject* const zoom = host::integer(1).release();
  return transform("rotozoom"_name, image, angle.object(), zoom);
}

Ref finished(PyObject* image, const Ref& size, const Number& angle, PyObject* color) {
  Ref picture = scaled(Ref::share(image), size);
  if (!(angle == Number(0))) picture = rotated(picture, angle);
  picture = host::call_method(picture, "convert_alpha"_name);
  if (!host::is_set(color)) return picture;
  Ref tint = new_alpha_surface(size_of(picture.get()));
  host::call_method(tint, "fill"_name, color);
  multiply(picture, tint.get());
  return picture;
}

void blit_plain(PyObject* screen, PyObject* image, double left, double top, PyObject* flags) {
  static PyObject* const method =
      host::get_attr(host::modules::pygame["Surface"_name], "blit"_name).release();
  int column = 0;
  int row = 0;
  bool whole = host::rect_integer(left, column) && host::rect_integer(top, row);
  Ref place = whole ? host::tuple(host::integer(column), host::integer(row))
                    : host::tuple(host::real(left), host::real(top));
  if (flags == Py_None) {
    host::call_library(method, screen, image, place);
  } else {
    host::call_library(method, screen, image, place, Py_None, flags);
  }
}

void blit(PyObject* screen, const Ref& image, const Number& left, const Number& top,
          PyObject* flags) {
  if (is_plain_surface(screen) && is_plain_surface(image.get()) && left.is_plain() &&
      top.is_plain()) {
    blit_plain(screen, image.get(), left.plain(), top.plain(), flags);
    return;
  }
  Ref place = host::tuple(left.object(), top.object());
  if (flags == Py_None) {
    host::call_method(screen, "blit"_name, image, place);
    return;
  }
  static PyObject* const keyword = host::tuple("special_flags"_name).release();
  // The host may use the place before the first argument.
  PyObject* args[] = {nullptr, screen, image.get(), place.get(), flags};
  host::script_ran();
  host::call_method_array(args + 1, 3, "blit"_name, keyword);
  host::script_ran();
}

void blit_centered(PyObject* screen, const Ref& image, const Number& center_x,
                   const Number& center_y, PyObject* flags) {
  Ref size = size_of(image.get());
  Ref wide = host::get_item(size.get(), host::integer(0).get());
  Ref high = host::get_item(size.get(), host::integer(1).get());
  blit(screen, image, center_x - host::number(wide) / Number(2),
       center_y - host::number(high) / Number(2), flags);
}

}  // namespace tessora::render
