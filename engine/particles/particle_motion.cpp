// How particles move: by velocity and accelerations, or on a circle.
#include <cmath>
#include <numbers>

#include "engine/particles/particle.hpp"

namespace tessora {

namespace {

using host::Components;
using host::native_getter;
using host::native_setter;

const host::MessageSet& place_messages() {
  static const host::MessageSet set{
      {&message::GetX, &native_getter<&GameNode::x>},
      {&message::GetY, &native_getter<&GameNode::y>},
      {&message::SetX, &native_setter<&GameNode::x>},
      {&message::SetY, &native_setter<&GameNode::y>},
  };
  return set;
}

// The direction away from the origin; nothing for what has no length that machine numbers know.
bool normalise(Components& vector) {
  if (vector.x == 0.0 && vector.y == 0.0) return true;
  const double length = std::sqrt(vector.x * vector.x + vector.y * vector.y);
  if (length == 0.0) return false;
  vector = {vector.x / length, vector.y / length};
  return true;
}

// Compilers may fuse multiplications with additions: pygame's own results decide whether the same
// formula, compiled here, gives the same bits.
bool try_normalising() {
  constexpr int kTrials = 64;
  Ref type = vector_type();
  for (int trial = 1; trial <= kTrials; ++trial) {
    Components vector{trial / 7.0, -trial * trial / 3.0};
    Ref expected = type(vector.x, vector.y).call("normalize"_name);
    const std::optional<Components> plain = host::plain_vector(expected);
    if (!plain || !normalise(vector) || vector.x != plain->x || vector.y != plain->y) return false;
  }
  return true;
}

bool normalises_alike() {
  static constinit std::optional<bool> alike;
  if (!alike) alike = try_normalising();
  return *alike;
}

// The velocity, where it is one of pygame's own.
bool plain_velocity(Particle& particle, Components& velocity) {
  if (particle.holds_vector(particle.Direction, velocity.x, velocity.y)) return true;
  Ref held = particle.peek(particle.Direction);
  if (!held || particle.is_default(particle.Direction)) return false;
  const std::optional<Components> plain = host::plain_vector(held);
  if (plain) velocity = *plain;
  return plain.has_value();
}

}  // namespace

Ref vector_type() {
  return host::modules::pygame["math"_name].attr("Vector2"_name);
}

bool math_is_native() {
  constexpr int kFunctions = 3;
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const own = new Ref[kFunctions];
  static std::uint64_t tick = 0;
  static bool native = false;
  if (tick == host::clocks.script) return native;
  native = true;
  Ref* known = own;
  for (Value name : {"radians"_name, "cos"_name, "sin"_name}) {
    Ref function = host::modules::math[name];
    if (!*known && function.is_native_function()) *known = function;
    native = native && function.is(*known);
    ++known;
  }
  tick = host::clocks.script;
  return native;
}

bool Particle::fall(double delay, Components gravity) {
  double across = 0;
  double down = 0;
  double radial = 0;
  double tangential = 0;
  Components velocity{0, 0};
  if (!normalises_alike() || !place_messages().all_direct(*this) || !holds_number(x, across) ||
      !holds_number(y, down) || !holds_number(RadialAccel, radial) ||
      !holds_number(TangentialAccel, tangential) || !plain_velocity(*this, velocity)) {
    return false;
  }
  Components away{across, down};
  if (!normalise(away)) return false;
  const double pull_x = away.x * radial + -away.y * tangential + gravity.x;
  const double pull_y = away.y * radial + away.x * tangential + gravity.y;
  velocity = {velocity.x + pull_x * delay, velocity.y + pull_y * delay};
  write_vector(Direction, velocity.x, velocity.y);
  write(x, Number(across + velocity.x * delay));
  write(y, Number(down + velocity.y * delay));
  return true;
}

void Particle::UpdateGravity(Value delay, Value gravity) {
  const Number time(delay);
  const std::optional<Components> plain = host::plain_vector(gravity);
  if (plain && time.is_real() && fall(*time.plain(), *plain)) return;
  Ref make = vector_type();
  // A vector's components, each times a factor.
  auto times = [&](Value vector, const auto& factor) {
    const Number wide = Number(vector.attr("x"_name)) * factor;
    const Number high = Number(vector.attr("y"_name)) * factor;
    return make(wide, high);
  };
  Ref px = message::GetX(*this);
  Ref py = message::GetY(*this);
  Ref radial = make(0, 0);
  Ref place = make(px, py);
  if (!(Number(place.attr("x"_name)) == Number(0)) ||
      !(Number(place.attr("y"_name)) == Number(0))) {
    radial = place.call("normalize"_name);
  }
  const Number turned_x = Number(-1) * Number(radial.attr("y"_name));
  Ref tangential = make(turned_x, radial.attr("x"_name));
  radial = times(radial, read(RadialAccel));
  tangential = times(tangential, read(TangentialAccel));
  Ref pull = (Number(radial) + Number(tangential) + Number(gravity)).object();
  pull = times(pull, time);
  write(Direction, (Number(Ref(read(Direction))) + Number(pull)).object());
  Ref step = times(Ref(read(Direction)), time);
  message::SetX(*this, host::ask(message::GetX, *this) + Number(step.attr("x"_name)));
  message::SetY(*this, host::ask(message::GetY, *this) + Number(step.attr("y"_name)));
}

bool Particle::turn(double delay) {
  double angle_now = 0;
  double speed = 0;
  double begin = 0;
  double end = 0;
  double progress = 0;
  if (!math_is_native() || !place_messages().all_direct(*this) ||
      !holds_number(RotateValue, angle_now) || !holds_number(RotateSpeed, speed) ||
      !holds_number(BeginRadius, begin) || !holds_number(lifeProgress, progress)) {
    return false;
  }
  const bool same = holds(EndRadius, "Begin"_name);
  if (!same && !holds_number(EndRadius, end)) return false;
  const double turned = angle_now + speed * delay;
  if (!std::isfinite(turned)) return false;
  const double radians = turned * (std::numbers::pi / 180.0);
  const double radius = same ? begin : begin + (end - begin) * progress;
  write(RotateValue, Number(turned));
  write(x, Number(-std::cos(radians) * radius));
  write(y, Number(-std::sin(radians) * radius));
  return true;
}

void Particle::UpdateCircle(Value delay) {
  const Number time(delay);
  if (time.is_real() && turn(*time.plain())) return;
  write(RotateValue, read(RotateValue) + read(RotateSpeed) * time);
  Ref radians = host::modules::math["radians"_name](read(RotateValue));
  Ref end = read(EndRadius);
  Ref radius = read(BeginRadius);
  if (!is_begin_marker(end)) {
    const Number progress = read(lifeProgress);
    radius = between(radius, end, progress).object();
  }
  const Number cosine = host::modules::math["cos"_name](radians);
  message::SetX(*this, Number(-1) * cosine * Number(radius));
  const Number sine = host::modules::math["sin"_name](radians);
  message::SetY(*this, Number(-1) * sine * Number(radius));
}

void declare_motion(ParticleDeclaration& particle) {
  particle
      .method<&Particle::UpdateGravity>(
          "UpdateGravity(delay: float, gravity: pygame.math.Vector2) -> None",
          "Move for `delay` seconds by the velocity `Direction`, which `gravity` and the radial "
          "and "
          "tangential accelerations change first.")
      .method<&Particle::UpdateCircle>(
          "UpdateCircle(delay: float) -> None",
          "Move for `delay` seconds on the circle about the emitter, whose radius follows "
          "`lifeProgress`.");
}

}  // namespace tessora
