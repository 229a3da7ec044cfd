#include "engine/particles/emitter.hpp"

namespace tessora {

namespace {

using E = ParticleEmitter;

}  // namespace

Ref emitter_blend_flag(Value blend) {
  if (!blend.is_text()) return blend;
  for (const char* known : {"ADD", "SUB"}) {
    if (blend.equals(host::text(known))) {
      return host::modules::pygame[host::formatted("BLEND_%s", known)];
    }
  }
  return host::modules::pygame["BLEND_MULT"_name];
}

void ParticleEmitter::lead_particles() {
  led = &ParticleArray;
}

void ParticleEmitter::set_first_modes() {
  message::SetCircleMode(*this, 0, 0, 100, 0, 0, 0);
  Ref make = host::modules::pygame["math"_name].attr("Vector2"_name);
  Ref down = make(0, 1);
  message::SetGravityMode(*this, 100, 0, 100, 0, down, 0, 0, 0, 0, 100, 0);
}

void ParticleEmitter::SetCircleMode(Value begin, Value begin_var, Value end, Value end_var,
                                    Value speed, Value speed_var) {
  write(BeginRadius, begin);
  write(BeginRadiusVar, begin_var);
  write(EndRadius, end);
  write(EndRadiusVar, end_var);
  write(RotateSpeed, speed);
  write(RotateSpeedVar, speed_var);
  write(ParticleMode, "Circle"_name);
}

void ParticleEmitter::SetGravityMode(Value px, Value x_var, Value py, Value y_var, Value gravity,
                                     Value radial, Value radial_var, Value tangential,
                                     Value tangential_var, Value speed, Value speed_var) {
  write(ParticleX, px);
  write(ParticleXVar, x_var);
  write(ParticleY, py);
  write(ParticleYVar, y_var);
  write(Gravity, gravity);
  write(Tangentialaccel, tangential);
  write(TangentialaccelVar, tangential_var);
  write(Radialaccel, radial);
  write(RadialaccelVar, radial_var);
  write(Speed, speed);
  write(SpeedVar, speed_var);
  write(ParticleMode, "Gravity"_name);
}

bool ParticleEmitter::is_gravity() {
  if (holds(ParticleMode, "Gravity"_name)) return true;
  Ref mode = read(ParticleMode);
  return mode.equals("Gravity"_name);
}

void ParticleEmitter::SetBlendType(Value blend) {
  write(blendtype, emitter_blend_flag(blend));
  host::walk(*this, ParticleArray, [&](Value particle) {
    Ref flag = read(blendtype);
    particle.set_attr("blendtype"_name, flag);
  });
}

void ParticleEmitter::Run() {
  write(running, true);
}

void ParticleEmitter::Pause() {
  write(running, false);
}

bool ParticleEmitter::IsFull() {
  return read(ParticleCount) == read(ParticleTotal);
}

void ParticleEmitter::CleanUp() {
  Ref gone = Ref(read(ParticleArray)).to_list();
  write(ParticleTotal, 0);
  write(ParticleCount, 0);
  write(ParticleArray, host::list());
  remove_children(gone);
  write(running, false);
  write(EmissionRate, 20);
  write(EmitCounter, 0);
  write(Duration, -1);
  for (Slot* zero : {&LifeTime, &ParticleX, &ParticleXVar, &ParticleY, &ParticleYVar, &Life,
                     &LifeVar, &Attenuation, &BeginAngle, &BeginAngleVar, &EndAngle, &EndAngleVar,
                     &Direction, &DirectionVar, &Speed, &SpeedVar, &EndSize, &EndSizeVar}) {
    write(*zero, 0);
  }
  write(BeginSize, 20);
  write(BeginSizeVar, 10);
  constexpr std::uint32_t kWhite = 0xFFFFFFFF;
  constexpr std::uint32_t kBlack = 0x000000FF;
  write_color(BeginColor, kWhite);
  write_color(BeginColorVar, kBlack);
  write_color(EndColor, kWhite);
  write_color(EndColorVar, kBlack);
  write(blendtype, host::modules::pygame["BLEND_MULT"_name]);
}

namespace {

void declare_pool(EmitterDeclaration& d) {
  d.sets<&E::NodeType>("ParticleEmitter");
  d.step<&E::lead_particles>();
  d.attribute<&E::plistFile>("plistFile: str | None", nullptr,
                             "Path of the definition file loaded last, or None.")
      .getter("GetPlistFile");
  d.attribute<&E::particleMode>(
      "particleMode: str", host::given("particleMode"),
      "What the constructor was given; `ParticleMode` is the active mode.");
  d.attribute<&E::ParticleTotal>("ParticleTotal: int", host::given("particleTotal"),
                                 "Most particles at once.")
      .pair("GetParticleTotal", "SetParticleTotal", "value");
  d.attribute<&E::ParticleCount>("ParticleCount: int", 0, "Number of particles now.");
  d.attribute<&E::EmissionRate>("EmissionRate: float", 20, "Particles emitted per second.");
  d.attribute<&E::EmitCounter>("EmitCounter: float", 0,
                               "Seconds that have gone towards the next particle.");
  d.attribute<&E::Duration>("Duration: float", -1, "Seconds of emission, -1 for no limit.");
  d.attribute<&E::LifeTime>("LifeTime: float", 0, "Seconds emitted so far.");
  d.attribute<&E::ParticleArray>("ParticleArray: list[Particle]", host::made<&host::new_list>(),
                                 "The particles, oldest first.");
}

void declare_birth(EmitterDeclaration& d) {
  d.attribute<&E::ParticleX>("ParticleX: float", host::replaced(0),
                             "Horizontal birth place in pixels from the emitter. Default 100.");
  d.attribute<&E::ParticleXVar>("ParticleXVar: float", host::replaced(100),
                                "Variance of `ParticleX` in pixels. Default 0.");
  d.attribute<&E::ParticleY>("ParticleY: float", host::replaced(0),
                             "Vertical birth place in pixels from the emitter. Default 100.");
  d.attribute<&E::ParticleYVar>("ParticleYVar: float", host::replaced(100),
                                "Variance of `ParticleY` in pixels. Default 0.");
  d.attribute<&E::Life>("Life: float", 100,
                        "Life at birth, 0 to 100; a particle loses 10 per second.");
  d.attribute<&E::LifeVar>("LifeVar: float", 10, "Variance of `Life`.");
  d.attribute<&E::Attenuation>("Attenuation: float", 10,
                               "Free for scripts: particles keep a loss of their own.");
  d.attribute<&E::BeginSize>("BeginSize: float", 20, "Width and height at birth, in pixels.");
  d.attribute<&E::BeginSizeVar>("BeginSizeVar: float", 10, "Variance of `BeginSize` in pixels.");
  d.attribute<&E::EndSize>("EndSize: float | str", 10,
                           "Width and height at death in pixels, or \"Begin\" for no change.");
  d.attribute<&E::EndSizeVar>("EndSizeVar: float | str", 5,
                              "Variance of `EndSize` in pixels; \"Begin\" is that of `BeginSize`.");
  d.attribute<&E::BeginAngle>("BeginAngle: float", 0, "Angle at birth in degrees.");
  d.attribute<&E::BeginAngleVar>("BeginAngleVar: float", 0, "Variance of `BeginAngle` in degrees.");
  d.attribute<&E::EndAngle>("EndAngle: float | str", 0,
                            "Angle at death in degrees, or \"Begin\" for no change.");
  d.attribute<&E::EndAngleVar>(
      "EndAngleVar: float | str", 0,
      "Variance of `EndAngle` in degrees; \"Begin\" is that of `BeginAngle`.");
  d.attribute<&E::Direction>("Direction: float", 90,
                             "Direction of emission in degrees: 0 is right, 90 is down.");
  d.attribute<&E::DirectionVar>("DirectionVar: float", 0, "Variance of `Direction` in degrees.");
  d.attribute<&E::Speed>("Speed: float", 100,
                         "Speed at birth in \"Gravity\" mode, in pixels per second.");
  d.attribute<&E::SpeedVar>("SpeedVar: float", 0, "Variance of `Speed` in pixels per second.");
  const host::Default white = host::color(255, 255, 255);
  const host::Default black = host::color(0, 0, 0);
  d.attribute<&E::BeginColor>("BeginColor: pygame.Color", white, "Colour at birth.");
  d.attribute<&E::BeginColorVar>("BeginColorVar: pygame.Color", black,
                                 "Variance of each component of `BeginColor`.");
  d.attribute<&E::EndColor>("EndColor: pygame.Color | str", white,
                            "Colour at death, or \"Begin\" for no change.");
  d.attribute<&E::EndColorVar>(
      "EndColorVar: pygame.Color | str", black,
      "Variance of each component of `EndColor`; \"Begin\" is that of `BeginColor`.");
  d.attribute<&E::Imagefile>("Imagefile: _ImageFiles", nullptr,
                             "Picture of every particle, as GUI_Image.SetImage takes it, or None.")
      .pair("GetImage", "SetImage", "value");
  d.attribute<&E::ParticleMode>(
       "ParticleMode: str | None", host::replaced(nullptr),
       "Active movement mode: \"Gravity\", anything else is a circle. Default \"Gravity\".")
      .pair("GetParticleMode", "SetParticleMode", "value");
  d.attribute<&E::blendtype>("blendtype: int", host::library_value("BLEND_MULT"),
                             "Flag with which every particle is blitted.")
      .getter("GetBlendType");
}

void declare_modes(EmitterDeclaration& d) {
  d.attribute<&E::BeginRadius>("BeginRadius: float", host::unset(),
                               "Radius at birth in \"Circle\" mode, in pixels. Default 0.");
  d.attribute<&E::BeginRadiusVar>("BeginRadiusVar: float", host::unset(),
                                  "Variance of `BeginRadius` in pixels. Default 0.");
  d.attribute<&E::EndRadius>(
      "EndRadius: float | str", host::unset(),
      "Radius at death in \"Circle\" mode in pixels, or \"Begin\" for no change. Default 100.");
  d.attribute<&E::EndRadiusVar>(
      "EndRadiusVar: float | str", host::unset(),
      "Variance of `EndRadius` in pixels; \"Begin\" is that of `BeginRadius`. Default 0.");
  d.attribute<&E::RotateSpeed>("RotateSpeed: float", host::unset(),
                               "Speed on the circle in degrees per second. Default 0.");
  d.attribute<&E::RotateSpeedVar>("RotateSpeedVar: float", host::unset(),
                                  "Variance of `RotateSpeed` in degrees per second. Default 0.");
  d.attribute<&E::Gravity>("Gravity: pygame.math.Vector2", host::unset(),
                           "Acceleration of all particles in \"Gravity\" mode, in pixels per "
                           "second squared. Default (0, 1).");
  d.attribute<&E::Tangentialaccel>(
      "Tangentialaccel: float", host::unset(),
      "Acceleration across the way from the emitter, in pixels per second squared. Default 0.");
  d.attribute<&E::TangentialaccelVar>(
      "TangentialaccelVar: float", host::unset(),
      "Variance of `Tangentialaccel` in pixels per second squared. Default 0.");
  d.attribute<&E::Radialaccel>(
      "Radialaccel: float", host::unset(),
      "Acceleration away from the emitter, in pixels per second squared. Default 0.");
  d.attribute<&E::RadialaccelVar>(
      "RadialaccelVar: float", host::unset(),
      "Variance of `Radialaccel` in pixels per second squared. Default 0.");
  d.step<&E::set_first_modes>();
  d.attribute<&E::running>("running: bool", false, "Whether particles are emitted.");
}

}  // namespace

void register_emitter(PyObject* module) {
  EmitterDeclaration emitter(
      module, "ParticleEmitter",
      "A node that emits particles, moves and draws them and removes the dead ones.\n\n"
      "`x` and `y` are its place in the parent, in pixels; `particleTotal` is the most particles "
      "at once. `particleMode` is kept for scripts: a new emitter is in \"Gravity\" mode. Every "
      "random parameter is its value plus its variance times a number from -1 to 1. Emission "
      "begins with Run().\n\n"
      ">>> fire = Tessora.ParticleEmitter(None, 160, 200)\n"
      ">>> fire.InitPS_Fire()\n"
      ">>> fire.Run()");
  emitter.constructor(
      "(parent: GameNode | None, x: float = 0, y: float = 0, particleMode: str = \"Gravity\", "
      "particleTotal: int = 250)");
  declare_pool(emitter);
  declare_birth(emitter);
  declare_modes(emitter);
  emitter
      .method<&E::SetCircleMode>(
          "SetCircleMode(BeginRadius: float, startRadiusvar: float, endRadius: float | str, "
          "endRadiusvar: float | str, rotateSpeed: float, rotateSpeedvar: float) -> None",
          "Move particles on circles about the emitter: radii in pixels, speed in degrees per "
          "second, each with its variance.")
      .method<&E::SetGravityMode>(
          "SetGravityMode(posx: float, posxvar: float, posy: float, posyvar: float, "
          "gravity: pygame.math.Vector2, radialaccel: float, radialaccelvar: float, "
          "tangentialaccel: float, tangentialaccelvar: float, speed: float, speedvar: float) -> "
          "None",
          "Move particles by velocity and accelerations, from a birth place: pixels and seconds, "
          "each with its variance.\n\n`gravity` is kept as it is: changed in place it counts.")
      .method<&E::SetBlendType>(
          "SetBlendType(blendtype: str | int) -> None",
          "\"ADD\" and \"SUB\" select pygame's BLEND_ADD and BLEND_SUB, any other text BLEND_MULT, "
          "which is drawn as a plain blit; a flag is kept as it is. Living particles follow.")
      .method<&E::Run>("Run() -> None",
                       "Emit from now on. Particles need update() and draw() in every frame.")
      .method<&E::Pause>("Pause() -> None", "Emit no more; living particles go on.")
      .method<&E::IsFull>(
          "IsFull() -> bool",
          "Return whether there are exactly as many particles as `ParticleTotal` says.")
      .method<&E::CleanUp>(
          "CleanUp() -> None",
          "Remove the particles and set the parameters to 0, sizes and colours to their first "
          "values.\n\nThe pool then has no room: `ParticleTotal` is 0. Mode, picture, radii and "
          "accelerations stay.");
  declare_emission(emitter);
  declare_emitter_drawing(emitter);
  declare_presets(emitter);
  declare_definition_files(emitter);
  emitter.finish();
}

}  // namespace tessora
