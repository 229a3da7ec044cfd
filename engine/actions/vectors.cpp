#include "engine/actions/vectors.hpp"

#include "engine/host/modules.hpp"
#include "engine/host/vector2.hpp"

namespace tessora {

using namespace host::literals;
using host::Components;
using host::Number;
using host::Ref;
using host::Value;

namespace {

Components mix(Components from, Components to, double time) {
  return {from.x * (1 - time) + to.x * time, from.y * (1 - time) + to.y * time};
}

// Compilers may fuse multiplications with additions: pygame's own result decides whether the same
// formula, compiled here, gives the same bits.
bool try_mixing() {
  constexpr int kTrials = 64;
  for (int trial = 1; trial <= kTrials; ++trial) {
    const Components from{trial / 7.0, -trial * 11.0 / 3.0};
    const Components to{100.0 / trial, trial * 0.1};
    const double time = trial / (kTrials + 3.0);
    Ref start = make_vector(host::real(from.x), host::real(from.y));
    Ref end = make_vector(host::real(to.x), host::real(to.y));
    if (!host::plain_vector(start)) return false;
    const auto expected = host::plain_vector(start.call("lerp"_name, end, time));
    const Components mixed = mix(from, to, time);
    if (!expected || mixed.x != expected->x || mixed.y != expected->y) return false;
  }
  return true;
}

// The share of the way, when mix() gives what the library's own lerp would.
std::optional<double> mixable(const Number& time) {
  static constinit std::optional<bool> mixes_alike;
  if (!mixes_alike) mixes_alike = try_mixing();
  const std::optional<double> share = time.is_real() ? time.plain() : std::nullopt;
  return *mixes_alike && share && *share >= 0.0 && *share <= 1.0 ? share : std::nullopt;
}

}  // namespace

Ref make_vector(Value x, Value y) {
  Ref type = host::modules::pygame["math"_name].attr("Vector2"_name);
  return type(x, y);
}

Point components(Value vector) {
  if (const auto plain = host::plain_vector(vector)) return {plain->x, plain->y};
  Number x = vector.attr("x"_name);
  return {x, vector.attr("y"_name)};
}

Point lerp(Value from, Value to, const Number& time) {
  if (const auto share = mixable(time)) {
    const auto start = from ? host::plain_vector(from) : Components{0.0, 0.0};
    const auto end = host::plain_vector(to);
    if (start && end) {
      const Components mixed = mix(*start, *end, *share);
      return {mixed.x, mixed.y};
    }
  }
  Ref start = from ? Ref(from) : make_vector(0_const, 0_const);
  return components(start.call("lerp"_name, to, time));
}

Point lerp(const Point& from, const Point& to, const Number& time) {
  const auto x = from.x.plain();
  const auto y = from.y.plain();
  const auto end_x = to.x.plain();
  const auto end_y = to.y.plain();
  const auto share = mixable(time);
  if (x && y && end_x && end_y && share) {
    const Components mixed = mix({*x, *y}, {*end_x, *end_y}, *share);
    return {mixed.x, mixed.y};
  }
  Ref start = make_vector(from.x.object(), from.y.object());
  Ref end = make_vector(to.x.object(), to.y.object());
  return lerp(start, end, time);
}

}  // namespace tessora
