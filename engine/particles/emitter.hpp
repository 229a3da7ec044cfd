// The emitter: a node with a pool of particles, which it emits, steps, draws and removes.
#pragma once

#include "engine/particles/particle.hpp"

namespace tessora {

struct ParticleEmitter : GameNode {
  Slot plistFile, particleMode, ParticleTotal, ParticleCount;
  Slot EmissionRate, EmitCounter, Duration, LifeTime, ParticleArray;
  Slot ParticleX, ParticleXVar, ParticleY, ParticleYVar;
  Slot Life, LifeVar, Attenuation;
  Slot BeginSize, BeginSizeVar, EndSize, EndSizeVar;
  Slot BeginAngle, BeginAngleVar, EndAngle, EndAngleVar;
  Slot Direction, DirectionVar, Speed, SpeedVar;
  LazySlot BeginColor, BeginColorVar, EndColor, EndColorVar;
  Slot Imagefile, ParticleMode, blendtype;
  Slot BeginRadius, BeginRadiusVar, EndRadius, EndRadiusVar, RotateSpeed, RotateSpeedVar;
  Slot Gravity, Tangentialaccel, TangentialaccelVar, Radialaccel, RadialaccelVar;
  Slot running;

  // Attributes and settings: emitter.cpp
  void lead_particles();
  void set_first_modes();
  void SetCircleMode(Value begin, Value begin_var, Value end, Value end_var, Value speed,
                     Value speed_var);
  void SetGravityMode(Value x, Value x_var, Value y, Value y_var, Value gravity, Value radial,
                      Value radial_var, Value tangential, Value tangential_var, Value speed,
                      Value speed_var);
  void SetBlendType(Value blend);
  void Run();
  void Pause();
  bool IsFull();
  void CleanUp();
  // Whether the movement mode is "Gravity"; anything else is a circle.
  bool is_gravity();

  // Birth and time: emission.cpp
  void AddParticle();
  void initParticle(Value particle);
  Ref RandomAB(Value low, Value high);
  void update(Value delay);

  // Drawing and death: emitter_drawing.cpp
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

  // Ready-made effects: presets.cpp
  template <int Preset>
  void use_preset();

  // Definition files: definition_files.cpp
  void LoadFromFile(Value file);
  void SaveToFile(Value file);
  void SetData(Value name, Value value);
  Ref GetData(Value name);

 private:
  void emit(const Number& delay);
  void step_particles(Value delay);
  void draw_particles(Value screen, Value offset_x, Value offset_y, Value scale);
  void draw_counter(Value screen);
};

// pygame's flag for "ADD", "SUB" and, for any other text, BLEND_MULT; what is no text stays itself.
Ref emitter_blend_flag(Value blend);

namespace message {
inline Message AddParticle{"AddParticle"};
inline Message Clamp{"Clamp"};
inline Message initParticle{"initParticle"};
inline Message RandomAB{"RandomAB"};
inline Message SetCircleMode{"SetCircleMode"};
inline Message SetGravityMode{"SetGravityMode"};
}  // namespace message

using EmitterDeclaration = host::Declaration<ParticleEmitter, GameNode>;
void declare_emission(EmitterDeclaration& emitter);
void declare_emitter_drawing(EmitterDeclaration& emitter);
void declare_presets(EmitterDeclaration& emitter);
void declare_definition_files(EmitterDeclaration& emitter);
void register_emitter(PyObject* module);

}  // namespace tessora
