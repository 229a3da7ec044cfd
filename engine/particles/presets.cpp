// Ready-made effects, one row each.
#include "engine/particles/emitter.hpp"

namespace tessora {

namespace {

using E = ParticleEmitter;

struct Spread {
  Number middle = 0;
  Number variance = 0;
};

struct Gravity {
  Spread x, y;
  double pull_x, pull_y;
  Spread radial, tangential, speed;
};

struct Circle {
  Spread begin, end, turning;
};

struct Colors {
  std::uint32_t begin, begin_var, end, end_var;  // 0xRRGGBBAA
};

struct Preset {
  Spread life;
  Number total, rate, duration;
  Spread size;
  std::optional<Number> end_size;  // none is "Begin"
  Spread direction;
  std::optional<Gravity> gravity;  // else a circle
  Circle circle;
  Colors colors{};
};

enum Name { kComet, kGalaxy, kExplosion, kFlower, kSun, kRain, kSnow, kSmoke, kFire, kFireWork };

// A particle loses 10 of its life per second.
const Preset& preset(int name) {
  constexpr auto kBegin = std::nullopt;
  // NOLINTBEGIN(readability-magic-numbers)
  static const Preset presets[] = {
      // A head that leaves its tail behind, up and to the right.
      {{3, 1},
       500,
       100.0,
       -1,
       {60.0, 10.0},
       kBegin,
       {90, 360},
       Gravity{{0, 3}, {0, 3}, 3600, -2000, {0, 0}, {0, 0}, {30, 30}},
       {},
       {0xFFF4D0FF, 0x00000000, 0x3060FF20, 0x20202000}},
      // One arm that winds outwards.
      {{5, 2},
       500,
       100.0,
       -1,
       {40.0, 10.0},
       kBegin,
       {90, 360},
       std::nullopt,
       {{2, 2}, {130, 12}, {900, 20}},
       {0xFFF0D8FF, 0x10101000, 0x6848FF38, 0x30202000}},
      {{3, 1},
       100,
       100,
       1.0,
       {15.0, 10.0},
       kBegin,
       {90, 360},
       Gravity{{0, 10}, {0, 10}, 0, 0, {0, 0}, {0, 0}, {150, 130}},
       {},
       {0xFFF0B0FF, 0x00101000, 0xF03000B0, 0x0F200000}},
      // Petals gather where the way outwards ends, around a centre of fresh ones.
      {{5, 1},
       500,
       100.0,
       -1,
       {30.0, 10.0},
       kBegin,
       {-90, 360},
       Gravity{{0, 0}, {0, 0}, 0, 0, {-560, 0}, {60, 0}, {270, 10}},
       {},
       {0xFFD820FF, 0x00100000, 0xFF3C96FF, 0x00202000}},
      {{5, 1},
       500,
       100.0,
       -1,
       {30.0, 10.0},
       kBegin,
       {90, 360},
       Gravity{{0, 12}, {0, 12}, 0, 0, {0, 30}, {0, 0}, {50, 40}},
       {},
       {0xFFF4B0FF, 0x00000000, 0xFF900078, 0x00200000}},
      {{40, 10.0},
       500,
       20.0,
       -1,
       {10.0, 5.0},
       kBegin,
       {90, 5},
       Gravity{{0, 280}, {0, 0}, 8, 14, {0, 0}, {0, 0}, {115, 15}},
       {},
       {0xB4D8FFFF, 0x10101000, 0x60A0FFFF, 0x00000000}},
      {{40, 10.0},
       500,
       100.0,
       -1,
       {10.0, 5.0},
       kBegin,
       {90, 0},
       Gravity{{0, 400}, {0, 0}, 0, 4, {0, 2}, {0, 24}, {70, 30}},
       {},
       {0xFFFFFFFF, 0x00000000, 0xE8F0FF80, 0x00000000}},
      {{40, 10.0},
       250,
       30,
       -1,
       {60.0, 10.0},
       kBegin,
       {-90, 5},
       Gravity{{0, 10}, {0, 4}, 8, -6, {0, 0}, {0, 8}, {55, 15}},
       {},
       {0x686868A0, 0x00000010, 0xC8C8C800, 0x00000000}},
      {{40, 10.0},
       250,
       30,
       -1,
       {54.0, 10.0},
       0.0,
       {-90, 10},
       Gravity{{0, 22}, {0, 6}, 0, -14, {0, 0}, {0, 0}, {36, 14}},
       {},
       {0xFFC040B0, 0x00200020, 0xE0180060, 0x20100000}},
      // A fountain of sparks in every colour.
      {{30.0, 10.0},
       250,
       60,
       -1,
       {10.0, 2.0},
       kBegin,
       {-90, 20},
       Gravity{{0, 4}, {0, 2}, 0, 190, {0, 0}, {0, 0}, {320, 50}},
       {},
       {0xC8AA96FF, 0x37556900, 0xFF7828A0, 0x00464600}},
  };
  // NOLINTEND(readability-magic-numbers)
  return presets[name];
}

}  // namespace

template <int Which>
void ParticleEmitter::use_preset() {
  const Preset& from = preset(Which);
  message::CleanUp(*this);
  auto set = [this](Slot& base, Slot& variance, const Spread& spread) {
    write(base, spread.middle);
    write(variance, spread.variance);
  };
  set(Life, LifeVar, from.life);
  write(ParticleTotal, from.total);
  write(EmissionRate, from.rate);
  write(Duration, from.duration);
  set(BeginSize, BeginSizeVar, from.size);
  write(EndSize, from.end_size ? from.end_size->object() : Ref("Begin"_name));
  write(EndSizeVar, 0);
  set(Direction, DirectionVar, from.direction);
  if (const auto& g = from.gravity) {
    Ref pull = vector_type()(g->pull_x, g->pull_y);
    message::SetGravityMode(*this, g->x.middle, g->x.variance, g->y.middle, g->y.variance, pull,
                            g->radial.middle, g->radial.variance, g->tangential.middle,
                            g->tangential.variance, g->speed.middle, g->speed.variance);
  } else {
    const Circle& c = from.circle;
    message::SetCircleMode(*this, c.begin.middle, c.begin.variance, c.end.middle, c.end.variance,
                           c.turning.middle, c.turning.variance);
  }
  write_color(BeginColor, from.colors.begin);
  write_color(BeginColorVar, from.colors.begin_var);
  write_color(EndColor, from.colors.end);
  write_color(EndColorVar, from.colors.end_var);
  for (Slot* zero : {&BeginAngle, &BeginAngleVar, &EndAngle, &EndAngleVar}) write(*zero, 0);
  write(Imagefile, "fire.png"_name);
  write(blendtype, host::modules::pygame["BLEND_MULT"_name]);
}

namespace {

template <int Which>
void declare_preset(EmitterDeclaration& emitter, const char* signature, const char* about) {
  emitter.method<&E::use_preset<Which>>(
      signature,
      emitter.keep(std::string(about) +
                   "\n\nRemoves the particles and replaces all parameters; the picture is the "
                   "game's \"fire.png\". Emission begins with Run()."));
}

}  // namespace

void declare_presets(EmitterDeclaration& emitter) {
  declare_preset<kComet>(emitter, "InitPS_Comet() -> None",
                         "A comet: a bright head with a tail to the upper right.");
  declare_preset<kGalaxy>(emitter, "InitPS_Galaxy() -> None",
                          "A galaxy: a spiral arm that winds outwards.");
  declare_preset<kExplosion>(emitter, "InitPS_Explosion() -> None",
                             "An explosion: sparks in all directions for one second.");
  declare_preset<kFlower>(emitter, "InitPS_Flower() -> None",
                          "A flower: a yellow centre amid pink petals.");
  declare_preset<kSun>(emitter, "InitPS_Sun() -> None", "A sun: a glowing ball.");
  declare_preset<kRain>(emitter, "InitPS_Rain() -> None",
                        "Rain: drops that fall from a line 560 pixels wide.");
  declare_preset<kSnow>(emitter, "InitPS_Snow() -> None",
                        "Snow: flakes that sink and drift from a line 800 pixels wide.");
  declare_preset<kSmoke>(emitter, "InitPS_Smoke() -> None", "Smoke: a grey column that rises.");
  declare_preset<kFire>(emitter, "InitPS_Fire() -> None", "A fire: flames that narrow upwards.");
  declare_preset<kFireWork>(emitter, "InitPS_FireWork() -> None",
                            "A firework: a fountain of coloured sparks.");
}

}  // namespace tessora
