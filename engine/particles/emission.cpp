// Birth of particles, and their time.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/host/caught.hpp"
#include "engine/particles/emitter.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

using E = ParticleEmitter;
using P = Particle;
using host::native_setter;

// What is told to a new particle, unless a script listens.
const host::MessageSet& birth_messages() {
  static const host::MessageSet set{
      {&message::SetBeginLife, &host::native<&P::SetBeginLife>},
      {&message::SetBeginSize, &native_setter<&P::BeginSize>},
      {&message::SetEndSize, &native_setter<&P::EndSize>},
      {&message::SetBeginAngle, &native_setter<&P::BeginAngle>},
      {&message::SetEndAngle, &native_setter<&P::EndAngle>},
      {&message::SetBeginColor, &host::set_color<&P::BeginColor, true>},
      {&message::SetEndColor, &host::native<&P::SetEndColor>},
      {&message::SetX, &native_setter<&GameNode::x>},
      {&message::SetY, &native_setter<&GameNode::y>},
      {&message::SetParticleMode, &native_setter<&P::ParticleMode>},
      {&message::SetModeA_Direction, &native_setter<&P::Direction>},
      {&message::SetModeA_RadialAccel, &native_setter<&P::RadialAccel>},
      {&message::SetModeA_TangentialAccel, &native_setter<&P::TangentialAccel>},
      {&message::SetModeB_BeginRaidus, &native_setter<&P::BeginRadius>},
      {&message::SetModeB_EndRaidus, &native_setter<&P::EndRadius>},
      {&message::SetModeB_RotateSpeed, &native_setter<&P::RotateSpeed>},
      {&message::SetModeB_RotateValue, &native_setter<&P::RotateValue>},
  };
  return set;
}

// Fills one new particle, in the order in which random numbers are drawn.
class Birth {
 public:
  Birth(E& emitter, Value particle)
      : emitter_(emitter), particle_(particle), known_(host::instance_of<P>(particle)) {}

  void fill() {
    life_and_size();
    Ref angle = lean(spread(emitter_.BeginAngle, emitter_.BeginAngleVar));
    tell(message::SetBeginAngle, &P::BeginAngle, angle);
    Ref last = spread_end(emitter_.EndAngle, emitter_.EndAngleVar, emitter_.BeginAngleVar);
    tell(message::SetEndAngle, &P::EndAngle, last);
    color(emitter_.BeginColor, emitter_.BeginColorVar, message::SetBeginColor, &P::BeginColor);
    color(emitter_.EndColor, emitter_.EndColorVar, message::SetEndColor, &P::EndColor);
    Ref across = lean(spread(emitter_.ParticleX, emitter_.ParticleXVar));
    tell(message::SetX, &P::x, across);
    Ref down = lean(spread(emitter_.ParticleY, emitter_.ParticleYVar));
    tell(message::SetY, &P::y, down);
    picture();
    Ref mode = emitter_.read(emitter_.ParticleMode);
    tell(message::SetParticleMode, &P::ParticleMode, mode);
    const Number way = spread(emitter_.Direction, emitter_.DirectionVar);
    Ref radians = in_radians(way);
    if (emitter_.is_gravity()) {
      fly(radians);
    } else {
      circle(radians);
    }
  }

 private:
  // What scripts may replace is looked at again after a script ran.
  void look() {
    if (tick_ == host::clocks.script) return;
    quiet_ = known_ != nullptr && birth_messages().all_direct(*known_);
    random_ = Ref();
    if (message::RandomAB.direct<&E::RandomAB>(emitter_) != nullptr) {
      Ref function = host::modules::random["random"_name];
      if (function.is_native_function()) random_ = function;
    }
    clamps_ = message::Clamp.direct<&clamp>(emitter_) != nullptr;
    tick_ = host::clocks.script;
  }

  // Most values of nought are the same object: particles are many.
  static Ref lean(const Number& value) {
    const bool is_nought =
        value.is_real() && *value.plain() == 0.0 && !std::signbit(*value.plain());
    return is_nought ? Ref(0.0_const) : value.object();
  }

  template <class Class, class SlotType>
  void tell(const host::Message& setter, SlotType Class::* slot, Value value) {
    look();
    if (quiet_) {
      known_->write(known_->*slot, value);
    } else {
      setter(particle_, value);
    }
  }

  // RandomAB(-1, 1)
  Number chance() {
    look();
    if (!random_) return Ref(message::RandomAB(emitter_, -1, 1_const));
    return Number(-1) + Number(2) * Number(host::call_library(random_));
  }

  Number spread(const Slot& base, const Slot& variance) {
    const Number middle = emitter_.read(base);
    const Number reach = emitter_.read(variance);
    return middle + reach * chance();
  }

  // The same for an end value, which may be the marker, as its variance may.
  Ref spread_end(const Slot& end, const Slot& variance, const Slot& begin_variance) {
    Ref middle = emitter_.read(end);
    if (is_begin_marker(middle)) return "Begin"_name;
    Ref reach = emitter_.read(variance);
    if (is_begin_marker(reach)) reach = emitter_.read(begin_variance);
    return lean(Number(middle) + Number(reach) * chance());
  }

  Ref clamped(const Number& value, Value least, Value most) {
    look();
    if (!clamps_) return message::Clamp(emitter_, value, least, most);
    if (value < Number(least)) return least;
    return value > Number(most) ? Ref(most) : value.object();
  }

  void life_and_size() {
    const Number life = spread(emitter_.Life, emitter_.LifeVar);
    Ref given = clamped(life, 0_const, 100_const);
    tell(message::SetBeginLife, &P::BeginLife, given);
    if (quiet_) known_->write(known_->CurrLife, given);
    const Number size = spread(emitter_.BeginSize, emitter_.BeginSizeVar);
    Ref begin = clamped(size, 0.0001_const, 255_const);
    tell(message::SetBeginSize, &P::BeginSize, begin);
    Ref end = spread_end(emitter_.EndSize, emitter_.EndSizeVar, emitter_.BeginSizeVar);
    if (!is_begin_marker(end)) end = clamped(end, 0.0001_const, 255_const);
    tell(message::SetEndSize, &P::EndSize, end);
  }

  void color(LazySlot& base, LazySlot& variance, const host::Message& setter, LazySlot P::* slot) {
    look();
    std::uint32_t middle = 0;
    std::uint32_t reach = 0;
    if (quiet_ && random_ && clamps_ && plain_color(emitter_, base, middle) &&
        plain_color(emitter_, variance, reach)) {
      return known_->write_color(known_->*slot, spread_color(middle, reach));
    }
    Ref parts[4];
    Ref* part = parts;
    for (Value name : {"r"_name, "g"_name, "b"_name, "a"_name}) {
      *part++ = spread_part(base, variance, name);
    }
    setter(particle_, parts[0], parts[1], parts[2], parts[3]);
  }

  std::uint32_t spread_color(std::uint32_t middle, std::uint32_t reach) {
    constexpr int kMost = 255;
    std::uint32_t spread = 0;
    for (unsigned shift : {24U, 16U, 8U, 0U}) {
      const auto from = static_cast<int>(middle >> shift & 255U);
      const Number way = Number(static_cast<int>(reach >> shift & 255U)) * chance();
      const double plain = std::clamp(way.to_double(), -1.0 * kMost, 1.0 * kMost);
      const int part = std::clamp(from + static_cast<int>(plain), 0, kMost);
      spread |= static_cast<std::uint32_t>(part) << shift;
    }
    return spread;
  }

  Ref spread_part(LazySlot& base, LazySlot& variance, Value name) {
    Ref middle = part_of(base, name);
    if (is_begin_marker(middle)) return middle;
    Ref reach = part_of(variance, name);
    if (is_begin_marker(reach)) reach = part_of(emitter_.BeginColorVar, name);
    const Number way = Number(reach) * chance();
    return clamped(Number(middle) + Number(way.truncated()), 0_const, 255_const);
  }

  // A component, or the marker that stands for the whole colour.
  Ref part_of(LazySlot& slot, Value name) {
    Ref whole = emitter_.read(slot);
    return is_begin_marker(whole) ? whole : whole.attr(name);
  }

  void picture() {
    Ref file = emitter_.read(emitter_.Imagefile);
    const bool as_it_is =
        file.is_none() && message::SetImage.direct<&GUI_Image::SetImage>(particle_) != nullptr;
    if (!as_it_is) message::SetImage(particle_, file);
    Ref flag = emitter_.read(emitter_.blendtype);
    if (known_ != nullptr) {
      known_->write(known_->blendtype, flag);
    } else {
      particle_.set_attr("blendtype"_name, flag);
    }
  }

  static Ref in_radians(const Number& degrees) {
    const std::optional<double> plain = degrees.plain();
    if (plain && math_is_native()) return host::real(*plain * (std::numbers::pi / 180.0));
    return host::modules::math["radians"_name](degrees);
  }

  void fly(Value radians) {
    double angle = 0;
    double plain_speed = 0;
    host::Components way{0, 0};
    Ref towards;
    const bool plain =
        math_is_native() && host::plain_number(radians, angle) && std::isfinite(angle);
    if (plain) {
      way = {std::cos(angle), std::sin(angle)};
    } else {
      Ref cosine = host::modules::math["cos"_name](radians);
      Ref sine = host::modules::math["sin"_name](radians);
      towards = vector_type()(cosine, sine);
    }
    Ref speed = spread(emitter_.Speed, emitter_.SpeedVar).object();
    look();
    if (plain && quiet_ && host::plain_number(speed, plain_speed)) {
      known_->write_vector(known_->Direction, way.x * plain_speed, way.y * plain_speed);
    } else {
      if (plain) towards = vector_type()(way.x, way.y);
      Ref velocity = (Number(towards) * Number(speed)).object();
      message::SetModeA_Direction(particle_, velocity);
    }
    Ref radial = lean(spread(emitter_.Radialaccel, emitter_.RadialaccelVar));
    tell(message::SetModeA_RadialAccel, &P::RadialAccel, radial);
    Ref tangential = lean(spread(emitter_.Tangentialaccel, emitter_.TangentialaccelVar));
    tell(message::SetModeA_TangentialAccel, &P::TangentialAccel, tangential);
  }

  void circle(Value radians) {
    Ref begin = lean(spread(emitter_.BeginRadius, emitter_.BeginRadiusVar));
    Ref end = spread_end(emitter_.EndRadius, emitter_.EndRadiusVar, emitter_.BeginRadiusVar);
    tell(message::SetModeB_BeginRaidus, &P::BeginRadius, begin);
    tell(message::SetModeB_EndRaidus, &P::EndRadius, end);
    Ref turning = lean(spread(emitter_.RotateSpeed, emitter_.RotateSpeedVar));
    tell(message::SetModeB_RotateSpeed, &P::RotateSpeed, turning);
    // Radians, although the step reads degrees: effects are made for what that gives.
    tell(message::SetModeB_RotateValue, &P::RotateValue, radians);
  }

  E& emitter_;
  Value particle_;
  P* known_;
  bool quiet_ = false;   // the setters of the particle only write its attributes
  bool clamps_ = false;  // Clamp is the engine's
  Ref random_;           // random.random, where that runs no script; else empty
  std::uint64_t tick_ = 0;
};

}  // namespace

Ref ParticleEmitter::RandomAB(Value low, Value high) {
  const Number span = Number(high) - Number(low);
  Ref chance = host::modules::random["random"_name]();
  return (Number(low) + span * Number(chance)).object();
}

void ParticleEmitter::initParticle(Value particle) {
  Birth(*this, particle).fill();
}

void ParticleEmitter::AddParticle() {
  if (read(ParticleCount) == read(ParticleTotal)) return;
  Ref type = host::engine_value("Particle"_name);
  Ref particle = type(*this);
  bool filled = false;
  auto fill = [&] {
    message::initParticle(*this, particle);
    filled = true;
  };
  // A particle that was never finished would stay among the children for good.
  host::with_cleanup(fill, [&] {
    if (!filled) message::RemoveChild(*this, particle);
  });
  Ref(read(ParticleArray)).append(particle);
  write(ParticleCount, read(ParticleCount) + Number(1));
}

void ParticleEmitter::emit(const Number& delay) {
  const Number rate = Number(1.0) / read(EmissionRate);
  auto has_room = [&] { return read(ParticleCount) < read(ParticleTotal); };
  if (has_room()) write(EmitCounter, read(EmitCounter) + delay);
  while (has_room() && read(EmitCounter) > rate) {
    host::count_step();
    const Number count = read(ParticleCount);
    const Number counter = read(EmitCounter);
    message::AddParticle(*this);
    write(EmitCounter, read(EmitCounter) - rate);
    // Neither the pool nor the counter would ever end the loop.
    if (!(read(ParticleCount) > count) && !(read(EmitCounter) < counter)) {
      host::raise(PyExc_OverflowError, "EmitCounter %S does not come down by one emission",
                  Ref(read(EmitCounter)));
    }
  }
  write(LifeTime, read(LifeTime) + delay);
  if (!(read(Duration) == Number(-1)) && read(LifeTime) >= read(Duration)) write(running, false);
}

void ParticleEmitter::step_particles(Value delay) {
  const Number time(delay);
  std::optional<host::Components> pull;
  std::uint64_t tick = 0;
  host::walk(*this, ParticleArray, [&](Value particle) {
    if (auto* known = message::update.direct<&P::update>(particle)) {
      known->update(delay);
    } else {
      message::update(particle, delay);
    }
    if (!is_gravity()) {
      message::UpdateCircle(particle, delay);
      return;
    }
    auto* known = message::UpdateGravity.direct<&P::UpdateGravity>(particle);
    if (tick != host::clocks.script) {
      pull = host::plain_vector(Ref(read(Gravity)));
      tick = host::clocks.script;
    }
    if (known != nullptr && pull && time.is_real() && known->fall(*time.plain(), *pull)) return;
    message::UpdateGravity(particle, delay, read(Gravity));
  });
}

void ParticleEmitter::update(Value delay) {
  message::update.base<&GameNode::update>(*this, delay);
  if (is_true(running)) emit(Number(delay));
  step_particles(delay);
}

void declare_emission(EmitterDeclaration& emitter) {
  emitter
      .method<&E::AddParticle>("AddParticle() -> None",
                               "Create a particle, fill it by initParticle and put it into the "
                               "pool, unless IsFull().\n\n"
                               "It is made by `Tessora.Particle`, which a script may replace.")
      .method<&E::initParticle>(
          "initParticle(particle: Particle) -> None",
          "Fill a new particle with values drawn from the parameters.\n\nThe random numbers are "
          "drawn in this order: life, size, end size, angles, colours by component, x, y, "
          "direction, then what the movement mode needs; none for an end value \"Begin\".")
      .method<&E::RandomAB>("RandomAB(a: float, b: float) -> float",
                            "Return a random number from `a` up to but not including `b`, by "
                            "random.random().")
      .method<&E::update>(
          "update(delay: float) -> None",
          "Advance by `delay` seconds: other children, actions, update function; then emit while "
          "`running` is true, and step every particle.\n\nRaises ZeroDivisionError for an "
          "`EmissionRate` of 0 while running.");
}

}  // namespace tessora
