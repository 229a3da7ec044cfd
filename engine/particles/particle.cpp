#include "engine/particles/particle.hpp"

#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

using P = Particle;
using host::native_setter;

constexpr int kLargest = 255;

const host::MessageSet& life_messages() {
  static const host::MessageSet set{
      {&message::IsDead, &host::native<&P::IsDead>},
      {&message::SetWidth, &native_setter<&GameNode::width>},
      {&message::SetHeight, &native_setter<&GameNode::height>},
      {&message::SetBGColor, &host::set_color<&GUI_Image::bgColor, true>},
      {&message::SetAngle, &native_setter<&GameNode::angle>},
  };
  return set;
}

// A value over the life, where all are machine numbers.
bool plain_between(P& particle, const Slot& begin, const Slot& end, double progress,
                   double& value) {
  double first = 0;
  double last = 0;
  if (!particle.holds_number(begin, first) || !particle.holds_number(end, last)) return false;
  value = first + (last - first) * progress;
  return true;
}

// Component by component, cut towards zero; nothing that is no component of a colour.
bool mix_colors(std::uint32_t begin, std::uint32_t end, double progress, std::uint32_t& mixed) {
  mixed = 0;
  for (unsigned shift : {24U, 16U, 8U, 0U}) {
    const auto first = static_cast<int>(begin >> shift & 255U);
    const auto last = static_cast<int>(end >> shift & 255U);
    const double way = (last - first) * progress;
    if (!(way > -2.0 * kLargest && way < 2.0 * kLargest)) return false;
    const int part = first + static_cast<int>(way);
    if (part < 0 || part > kLargest) return false;
    mixed |= static_cast<std::uint32_t>(part) << shift;
  }
  return true;
}

Ref color_part(Value begin, Value end, Value name, const Number& progress) {
  Ref last = is_begin_marker(end) ? Ref(end) : end.attr(name);
  Ref first = begin.attr(name);
  if (is_begin_marker(last)) return first;
  const Number way = (Number(last) - Number(first)) * progress;
  return (Number(first) + Number(way.truncated())).object();
}

}  // namespace

bool is_begin_marker(Value value) {
  return value.is("Begin"_name) || (value.is_text() && value.equals("Begin"_name));
}

bool plain_color(host::Object& owner, LazySlot& slot, std::uint32_t& color) {
  if (owner.holds_color(slot, color)) return true;
  Ref value = owner.peek(slot);
  if (!value || owner.is_default(slot)) return false;
  const std::optional<std::uint32_t> packed = render::plain_color(value);
  color = packed.value_or(0);
  return packed.has_value();
}

Number between(const Number& begin, const Number& end, const Number& progress) {
  return begin + (end - begin) * progress;
}

void Particle::center() {
  message::SetImageAnchor(*this, "center"_name);
}

void Particle::SetBeginLife(Value life) {
  write(BeginLife, life);
  write(CurrLife, life);
}

void Particle::SetEndColor(Value red, Value green, Value blue, Value opacity) {
  write(EndColor,
        is_begin_marker(red) ? Ref("Begin"_name) : host::new_color(red, green, blue, opacity));
}

Ref Particle::GetLifeProgress() {
  write(lifeProgress, Number(1.0) - read(CurrLife) / read(BeginLife));
  return read(lifeProgress);
}

bool Particle::IsDead() {
  double left = 0;
  if (holds_number(CurrLife, left)) return left <= 0.0;
  const Number life = read(CurrLife);
  return life < Number(0.0) || life == Number(0.0);
}

bool Particle::color_at(double progress, std::uint32_t& color) {
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
  if (!plain_color(*this, BeginColor, begin)) return false;
  if (holds(EndColor, "Begin"_name)) {
    color = begin;
    return true;
  }
  return plain_color(*this, EndColor, end) && mix_colors(begin, end, progress, color);
}

// The life step in machine numbers; false, with nothing done, where a script or Python's own
// arithmetic takes part.
bool Particle::age(double delay) {
  double life = 0;
  double loss = 0;
  double whole = 0;
  if (!holds_number(CurrLife, life) || !holds_number(Attenuation, loss)) return false;
  const double left = life - loss * delay;
  if (left <= 0.0) {
    write(CurrLife, Number(left));
    return true;
  }
  if (!holds_number(BeginLife, whole) || whole == 0.0) return false;
  const double progress = 1.0 - left / whole;
  const bool same_size = holds(EndSize, "Begin"_name);
  const bool same_angle = holds(EndAngle, "Begin"_name);
  double size = 0;
  double turned = 0;
  std::uint32_t color = 0;
  if (!color_at(progress, color) ||
      !(same_size ? static_cast<bool>(peek(BeginSize))
                  : plain_between(*this, BeginSize, EndSize, progress, size)) ||
      !(same_angle ? static_cast<bool>(peek(BeginAngle))
                   : plain_between(*this, BeginAngle, EndAngle, progress, turned))) {
    return false;
  }
  write(CurrLife, Number(left));
  write(lifeProgress, Number(progress));
  if (same_size) {
    share(width, BeginSize);
    share(height, BeginSize);
  } else {
    write(width, Number(size));
    write(height, Number(size));
  }
  write_color(bgColor, color);
  if (same_angle) {
    share(angle, BeginAngle);
  } else {
    write(angle, Number(turned));
  }
  return true;
}

void Particle::update(Value delay) {
  const Number time(delay);
  if (time.is_real() && life_messages().all_direct(*this) && age(*time.plain())) return;
  write(CurrLife, read(CurrLife) - read(Attenuation) * time);
  if (message::IsDead(*this).equals_true()) return;
  write(lifeProgress, Number(1.0) - read(CurrLife) / read(BeginLife));
  // An end value that is the marker leaves the begin value, whatever that is.
  auto value = [&](const Slot& begin, const Slot& end) -> Ref {
    Ref last = read(end);
    if (is_begin_marker(last)) return read(begin);
    const Number first = read(begin);
    const Number progress = read(lifeProgress);
    return between(first, last, progress).object();
  };
  Ref size = value(BeginSize, EndSize);
  message::SetWidth(*this, size);
  message::SetHeight(*this, size);
  Ref parts[4];
  Ref* part = parts;
  for (Value name : {"r"_name, "g"_name, "b"_name, "a"_name}) {
    Ref last = read(EndColor);
    Ref first = read(BeginColor);
    const Number progress = read(lifeProgress);
    *part++ = color_part(first, last, name, progress);
  }
  message::SetBGColor(*this, parts[0], parts[1], parts[2], parts[3]);
  Ref turned = value(BeginAngle, EndAngle);
  message::SetAngle(*this, turned);
}

void Particle::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  message::draw.base<&GUI_Image::draw>(*this, screen, offset_x, offset_y, scale);
}

namespace {

void declare_life(ParticleDeclaration& d) {
  d.attribute<&P::BeginLife>("BeginLife: float", 100, "Life at birth.").getter("GetBeginLife");
  d.attribute<&P::Attenuation>("Attenuation: float", 10, "Life that is lost per second.");
  d.attribute<&P::CurrLife>("CurrLife: float", 100, "Life that is left.").getter("GetCurrLife");
  d.attribute<&P::BeginSize>("BeginSize: float", 20, "Width and height at birth, in pixels.")
      .pair("GetBeginSize", "SetBeginSize", "value");
  d.attribute<&P::EndSize>("EndSize: float | str", 20,
                           "Width and height at death in pixels, or \"Begin\" for no change.")
      .pair("GetEndSize", "SetEndSize", "value");
  d.attribute<&P::BeginAngle>("BeginAngle: float", 0, "Angle at birth in degrees.")
      .pair("GetBeginAngle", "SetBeginAngle", "value");
  d.attribute<&P::EndAngle>("EndAngle: float | str", 0,
                            "Angle at death in degrees, or \"Begin\" for no change.")
      .pair("GetEndAngle", "SetEndAngle", "value");
  d.attribute<&P::BeginColor>("BeginColor: pygame.Color", host::color(255, 255, 255),
                              "Colour at birth.")
      .getter("GetBeginColor")
      .color_setter<host::Alpha::kGiven>("SetBeginColor");
  d.attribute<&P::EndColor>("EndColor: pygame.Color | str", host::color(0, 0, 0, 0),
                            "Colour at death, or \"Begin\" for no change.")
      .getter("GetEndColor");
  d.step<&P::center>();
  d.attribute<&P::lifeProgress>("lifeProgress: float", 0,
                                "Part of the life that has passed: 0 at birth, 1 at death.");
}

void declare_movement(ParticleDeclaration& d) {
  d.attribute<&P::Direction>("Direction: pygame.math.Vector2", host::zero_vector(),
                             "Velocity in \"Gravity\" mode, in pixels per second.")
      .pair("GetModeA_Direction", "SetModeA_Direction", "value");
  d.attribute<&P::RadialAccel>("RadialAccel: float", 0.0,
                               "Acceleration away from the emitter, in pixels per second squared.")
      .pair("GetModeA_RadialAccel", "SetModeA_RadialAccel", "value");
  d.attribute<&P::TangentialAccel>(
       "TangentialAccel: float", 0.0,
       "Acceleration across the way from the emitter, in pixels per second squared.")
      .pair("GetModeA_TangentialAccel", "SetModeA_TangentialAccel", "value");
  d.attribute<&P::BeginRadius>("BeginRadius: float", 0,
                               "Radius at birth in \"Circle\" mode, in pixels.")
      .pair("GetModeB_BeginRaidus", "SetModeB_BeginRaidus", "value");
  d.attribute<&P::EndRadius>("EndRadius: float | str", 100,
                             "Radius at death in pixels, or \"Begin\" for no change.")
      .pair("GetModeB_EndRaidus", "SetModeB_EndRaidus", "value");
  d.attribute<&P::RotateValue>("RotateValue: float", 0.0, "Angle on the circle in degrees.")
      .pair("GetModeB_RotateValue", "SetModeB_RotateValue", "value");
  d.attribute<&P::RotateSpeed>("RotateSpeed: float", 500.0,
                               "Speed on the circle in degrees per second.")
      .pair("GetModeB_RotateSpeed", "SetModeB_RotateSpeed", "value");
  d.attribute<&P::ParticleMode>(
       "ParticleMode: str | None", nullptr,
       "Movement mode, \"Gravity\" or \"Circle\", set by the emitter; None before.")
      .pair("GetParticleMode", "SetParticleMode", "value");
}

}  // namespace

void register_particle(PyObject* module) {
  ParticleDeclaration particle(
      module, "Particle",
      "A short-lived picture that an emitter creates, steps and draws.\n\n"
      "`parent` is the emitter; `x` and `y` place the centre relative to it, in pixels. Size, "
      "colour and angle run from their begin to their end values over the life; the end value "
      "\"Begin\" keeps the begin value.\n\n"
      ">>> spark = Tessora.Particle(Tessora.ParticleEmitter(None))\n"
      ">>> spark.SetBeginLife(50)");
  particle.constructor("(parent: GameNode | None, x: float = 0, y: float = 0)");
  declare_life(particle);
  declare_movement(particle);
  particle
      .method<&P::SetBeginLife>("SetBeginLife(value: float) -> None",
                                "Set `BeginLife` and `CurrLife`: the particle is newly born.")
      .method<&P::SetEndColor>(
          "SetEndColor(r: int | str, g: int | str, b: int | str, a: int | str = 255) -> None",
          "Set `EndColor`, components from 0 to 255; with \"Begin\" as `r` the colour stays what "
          "it is at birth.\n\nRaises ValueError for components out of range.")
      .method<&P::GetLifeProgress>("GetLifeProgress() -> float",
                                   "Compute `lifeProgress` anew and return it.\n\nRaises "
                                   "ZeroDivisionError if `BeginLife` is 0.")
      .method<&P::IsDead>("IsDead() -> bool", "Return whether no life is left.")
      .method<&P::update>(
          "update(delay: float) -> None",
          "Live for `delay` seconds: lose life, then set size, colour and angle for the life that "
          "is left.\n\nA dead particle keeps its looks. Children, actions and the update function "
          "are not run.");
  declare_motion(particle);
  declare_draw<&P::draw>(particle, "Draw the particle as an image.");
  particle.finish();
}

}  // namespace tessora
