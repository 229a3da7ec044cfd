// One particle: an image whose size, colour and angle run from begin to end values over its life.
#pragma once

#include "engine/host/vector2.hpp"
#include "engine/image/image.hpp"

namespace tessora {

struct Particle : GUI_Image {
  Slot BeginLife, Attenuation, CurrLife;
  Slot BeginSize, EndSize, BeginAngle, EndAngle;
  LazySlot BeginColor, EndColor;
  Slot lifeProgress;
  LazySlot Direction;
  Slot RadialAccel, TangentialAccel;
  Slot BeginRadius, EndRadius, RotateValue, RotateSpeed, ParticleMode;

  // Attributes and life: particle.cpp
  void center();
  void SetBeginLife(Value life);
  void SetEndColor(Value red, Value green, Value blue, Value opacity);
  Ref GetLifeProgress();
  bool IsDead();
  void update(Value delay);
  void draw(Value screen, Value offset_x, Value offset_y, Value scale);

  // Movement: particle_motion.cpp
  void UpdateGravity(Value delay, Value gravity);
  void UpdateCircle(Value delay);
  // A step of UpdateGravity in machine numbers; false, with nothing done, where a script or
  // Python's own arithmetic takes part.
  bool fall(double delay, host::Components gravity);

 private:
  bool age(double delay);
  bool color_at(double progress, std::uint32_t& color);
  bool turn(double delay);
};

// The marker of an end value that stays what the begin value is.
bool is_begin_marker(Value value);

// A begin value on its way to an end value, which may be the marker.
Number between(const Number& begin, const Number& end, const Number& progress);

// The colour of an attribute as 0xRRGGBBAA; false for what is no colour of pygame's own.
bool plain_color(host::Object& owner, LazySlot& slot, std::uint32_t& color);

// pygame.math.Vector2
Ref vector_type();

// Whether math's radians, cos and sin are Python's own, whose results are those of C++.
bool math_is_native();

namespace message {
inline Message GetLifeProgress{"GetLifeProgress"};
inline Message IsDead{"IsDead"};
inline Message SetBeginAngle{"SetBeginAngle"};
inline Message SetBeginColor{"SetBeginColor"};
inline Message SetBeginLife{"SetBeginLife"};
inline Message SetBeginSize{"SetBeginSize"};
inline Message SetEndAngle{"SetEndAngle"};
inline Message SetEndColor{"SetEndColor"};
inline Message SetEndSize{"SetEndSize"};
inline Message SetModeA_Direction{"SetModeA_Direction"};
inline Message SetModeA_RadialAccel{"SetModeA_RadialAccel"};
inline Message SetModeA_TangentialAccel{"SetModeA_TangentialAccel"};
inline Message SetModeB_BeginRaidus{"SetModeB_BeginRaidus"};
inline Message SetModeB_EndRaidus{"SetModeB_EndRaidus"};
inline Message SetModeB_RotateSpeed{"SetModeB_RotateSpeed"};
inline Message SetModeB_RotateValue{"SetModeB_RotateValue"};
inline Message SetParticleMode{"SetParticleMode"};
inline Message UpdateCircle{"UpdateCircle"};
inline Message UpdateGravity{"UpdateGravity"};
}  // namespace message

using ParticleDeclaration = host::Declaration<Particle, GUI_Image>;
void declare_motion(ParticleDeclaration& particle);
void register_particle(PyObject* module);

}  // namespace tessora
