#include "engine/pixels/surface.hpp"

#include <algorithm>
#include <numbers>

namespace tessora::render {

using namespace host::literals;

namespace {

constexpr double kPixelBytes = 4.0;

Value surface_type() {
  static const host::Lasting type(host::modules::pygame["Surface"_name]);
  return type;
}

Ref size_tuple(Value image) {
  if (is_plain_surface(image)) return surface_call(image, "get_size"_name);
  Ref box = image.call("get_rect"_name);
  return box.attr("size"_name);
}

void multiply(Value target, Value image) {
  static const host::Lasting origin(host::tuple(0, 0));
  Ref flags = host::modules::pygame["BLEND_RGBA_MULT"_name];
  if (is_plain_surface(image)) {
    surface_call(target, "blit"_name, image, origin, nullptr, flags);
  } else {
    target.call("blit"_name, image, origin, nullptr, flags);
  }
}

// A size that pygame's scaling can be asked for; nothing when pygame itself must say what is wrong.
std::optional<PixelSize> plain_size(Value size) {
  PixelSize result;
  if (!size.is_plain_tuple() || size.length() != 2) return std::nullopt;
  Ref width = size.item(0);
  Ref height = size.item(1);
  if (!width.is_plain_integer() || !height.is_plain_integer()) return std::nullopt;
  if (!host::rect_integer(width, result.width) || !host::rect_integer(height, result.height) ||
      result.width < 0 || result.height < 0) {
    return std::nullopt;
  }
  return result;
}

// A function of pygame's, in which no script runs unless one has taken its place.
template <class... Args>
Ref call_transform(Value function, Value image, const Args&... args) {
  if (function.is_native_function() && is_plain_surface(image)) {
    return host::call_library(function, image, args...);
  }
  return function(image, args...);
}

Ref new_surface(Value size) {
  Ref type = host::modules::pygame["Surface"_name];
  const bool plain = type.is(surface_type()) && plain_size(size);
  return plain ? host::call_library(type, size) : type(size);
}

// Fills and multiplies as it takes the surface for, by name unless it is pygame's own.
void fill_surface(Value surface, Value color) {
  if (is_plain_surface(surface) && plain_color(color)) {
    surface_call(surface, "fill"_name, color);
  } else {
    surface.call("fill"_name, color);
  }
}

// pygame steps through rows and columns with 16 bits behind the point, and multiplies the lengths.
void check_scale(int from, int to) {
  constexpr int kLongest = 32767;
  constexpr double kLimit = 2147483648.0;
  const bool shrinks = to < from;
  if ((shrinks && from > kLongest) || static_cast<double>(from) * to >= kLimit) {
    host::raise(PyExc_ValueError, "a picture of %d pixels is too long to be scaled to %d", from,
                to);
  }
}

}  // namespace

bool is_plain_surface(Value object) {
  return object.is_exactly(surface_type());
}

bool is_surface(Value object) {
  return object.is_kind_of(surface_type());
}

std::optional<std::uint32_t> plain_color(Value object) {
  static const host::Lasting type(host::modules::pygame["Color"_name]);
  if (!object.is_exactly(type)) return std::nullopt;
  return static_cast<std::uint32_t>(host::library_integer(object));
}

Ref unpacked_color(std::uint32_t color) {
  auto part = [&](unsigned shift) { return static_cast<int>(color >> shift & 255U); };
  return host::tuple(part(24), part(16), part(8), part(0));
}

Ref surface_method(Value name) {
  return surface_type().attr(name);
}

PixelSize surface_size(Value surface) {
  static const host::Lasting get_size(surface_method("get_size"_name));
  Ref size = host::call_library(get_size, surface);
  Ref width = size.item(0);
  Ref height = size.item(1);
  return {static_cast<int>(host::library_integer(width)),
          static_cast<int>(host::library_integer(height))};
}

void check_picture_size(double width, double height) {
  if (width * height * kPixelBytes < kPictureBytes) return;
  Ref wide = host::real(width);
  Ref high = host::real(height);
  host::raise(PyExc_ValueError, "a picture of %S x %S pixels is too large", wide, high);
}

TurnedSize turned_size(double width, double height, double angle) {
  if (angle == 0.0) return {width, height};
  constexpr double kHalfTurn = 180.0;
  constexpr double kRoom = 4.0;  // pygame rounds up
  const double turn = angle * std::numbers::pi / kHalfTurn;
  const double across = std::fabs(std::cos(turn));
  const double up = std::fabs(std::sin(turn));
  return {width * across + height * up + kRoom, width * up + height * across + kRoom};
}

Ref new_alpha_surface(Value size) {
  if (std::optional<PixelSize> plain = plain_size(size)) {
    check_picture_size(plain->width, plain->height);
  }
  Ref surface = new_surface(size);
  return convert_alpha(surface);
}

Ref convert_alpha(Value surface) {
  return is_plain_surface(surface) ? surface_call(surface, "convert_alpha"_name)
                                   : surface.call("convert_alpha"_name);
}

Ref faded(Value image, Value alpha) {
  Ref size = size_tuple(image);
  Ref result = new_alpha_surface(size);
  Ref white = host::tuple(255_const, 255_const, 255_const, alpha);
  if (alpha.is_plain_integer() && is_plain_surface(result)) {
    surface_call(result, "fill"_name, white);
  } else {
    result.call("fill"_name, white);
  }
  multiply(result, image);
  return result;
}

Ref scaled(Value image, Value size) {
  Ref smoothscale = host::modules::transform["smoothscale"_name];
  std::optional<PixelSize> target = plain_size(size);
  if (!target || !smoothscale.is_native_function() || !is_surface(image)) {
    return smoothscale(image, size);
  }
  const PixelSize source = surface_size(image);
  // pygame divides by the lengths.
  if (source.width == 0 || source.height == 0) {
    return new_surface(host::tuple(0, 0));
  }
  check_picture_size(target->width, std::max(source.height, target->height));
  check_scale(source.width, target->width);
  check_scale(source.height, target->height);
  return call_transform(smoothscale, image, size);
}

Ref rotated(Value image, const Number& angle) {
  Ref rotozoom = host::modules::transform["rotozoom"_name];
  if (rotozoom.is_native_function() && is_surface(image)) {
    const PixelSize size = surface_size(image);
    if (size.width == 0 || size.height == 0) return image;
    const TurnedSize turned = turned_size(size.width, size.height, angle.to_double());
    check_picture_size(turned.width, turned.height);
  }
  if (!angle.is_plain()) return rotozoom(image, angle, 1);
  return call_transform(rotozoom, image, angle, 1);
}

namespace {

void tint(Value picture, Value color) {
  Ref size = size_tuple(picture);
  Ref block = new_alpha_surface(size);
  fill_surface(block, color);
  multiply(picture, block);
}

}  // namespace

Ref finished(Value image, Value size, const Number& angle, Value color) {
  Ref picture = scaled(image, size);
  if (!(angle == Number(0))) picture = rotated(picture, angle);
  picture = convert_alpha(picture);
  if (color.is_set()) tint(picture, color);
  return picture;
}

Ref tinted(Value picture, std::uint32_t color) {
  Ref copy = surface_call(picture, "copy"_name);
  Ref block = new_alpha_surface(size_tuple(copy));
  surface_call(block, "fill"_name, unpacked_color(color));
  multiply(copy, block);
  return copy;
}

NumberSize size_of(Value image) {
  if (is_plain_surface(image)) {
    const PixelSize size = surface_size(image);
    return {size.width, size.height};
  }
  Ref size = size_tuple(image);
  Ref width = size.item(0);
  Ref height = size.item(1);
  return {width, height};
}

}  // namespace tessora::render
