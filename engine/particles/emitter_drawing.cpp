// Drawing particles and their number, and removing the dead.
#include "engine/core/binding_tables.hpp"
#include "engine/host/caught.hpp"
#include "engine/host/fonts.hpp"
#include "engine/host/quit.hpp"
#include "engine/particles/emitter.hpp"

namespace tessora {

namespace {

using E = ParticleEmitter;
using P = Particle;

const host::MessageSet& drawing_messages() {
  static const host::MessageSet set{
      {&message::draw, &host::native<&P::draw>},
      {&message::draw_begin, &host::native<&GameNode::draw_begin>},
      {&message::draw_children, &host::native<&GameNode::draw_children>},
      {&message::drawimage, &host::native<&GUI_Image::drawimage>},
      {&message::drawBGColor, &host::native<&GUI_Image::drawBGColor>},
      {&message::IsVisible, &host::native_getter<&GameNode::visible>},
      {&message::IsDead, &host::native<&P::IsDead>},
  };
  return set;
}

// Whether drawing the particle runs no script that could look at the emitter.
bool draws_quietly(P& particle) {
  return particle.holds(particle.sceneInstance, nullptr) &&
         particle.holds_empty_list(particle.children) && drawing_messages().all_direct(particle);
}

bool is_dead(Value particle) {
  if (auto* known = message::IsDead.direct<&P::IsDead>(particle)) return known->IsDead();
  Ref dead = message::IsDead(particle);
  return dead.is_true();
}

// Dead particles on their way out, many at a time: from the pool before a script may look at it,
// from the children when all are drawn.
class Departure {
 public:
  explicit Departure(E& emitter) : emitter_(emitter) {}

  void add(Value particle) { waiting_.append(particle); }

  void leave_pool() {
    const Py_ssize_t count = waiting_.length();
    if (count == 0) return;
    Ref leaving = std::exchange(waiting_, host::list());
    Ref pool = emitter_.read(emitter_.ParticleArray);
    Py_ssize_t gone = 0;
    if (pool.is_plain_list()) {
      gone = host::erase_each(pool, leaving);
    } else {
      for (Ref particle : host::items(leaving)) {
        if (!pool.contains(particle)) continue;
        pool.call("remove"_name, particle);
        ++gone;
      }
    }
    for (Ref particle : host::Items(leaving)) left_.append(particle);
    emitter_.write(emitter_.ParticleCount, emitter_.read(emitter_.ParticleCount) - Number(gone));
  }

  void leave() {
    leave_pool();
    if (left_.length() != 0) emitter_.remove_children(left_);
  }

 private:
  E& emitter_;
  Ref waiting_ = host::list();
  Ref left_ = host::list();
};

Ref counter_font() {
  return host::modules::font["SysFont"_name]("Arial"_name, 16_const);
}

Ref counter_picture(Value font, Value text) {
  Ref red = host::modules::pygame["Color"_name]("red"_name);
  return font.call("render"_name, text, 0_const, red);
}

// Counters in pygame's own font, by their texts. No font is kept: some versions of pygame crash
// when one from before a pygame.font.quit() is used.
Ref& kept_counters() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const kept = [] {
    host::tell_of_quit([] { kept_counters() = host::dictionary(); });
    return new Ref(host::dictionary());
  }();
  return *kept;
}

Ref kept_counter(Value text) {
  constexpr Py_ssize_t kMost = 512;
  if (Ref picture = kept_counters().find_item(text)) return picture;
  Ref picture = counter_picture(counter_font(), text);
  host::listen_for_quit();
  if (kept_counters().length() >= kMost) kept_counters() = host::dictionary();
  kept_counters().set_item(text, picture);
  return picture;
}

}  // namespace

void ParticleEmitter::draw_particles(Value screen, Value offset_x, Value offset_y, Value scale) {
  Departure dead(*this);
  auto draw_each = [&] {
    host::walk(*this, ParticleArray, [&](Value particle) {
      auto* known = message::draw.direct<&P::draw>(particle);
      if (known == nullptr || !draws_quietly(*known)) dead.leave_pool();
      if (known != nullptr) {
        known->draw(screen, offset_x, offset_y, scale);
      } else {
        message::draw(particle, screen, offset_x, offset_y, scale);
      }
      if (is_dead(particle)) dead.add(particle);
    });
  };
  host::with_cleanup(draw_each, [&] { dead.leave(); });
}

void ParticleEmitter::draw_counter(Value screen) {
  // A script that makes the fonts is asked on every draw.
  const bool is_plain = host::makes_system_fonts();
  Ref font = is_plain ? Ref() : counter_font();
  Ref place = host::modules::mouse.call("get_pos"_name);
  Ref counts = host::tuple(read(ParticleCount), read(ParticleTotal));
  Ref text = "ParticleTotal:%d / %d "_name.call("__mod__"_name, counts);
  Ref picture = is_plain ? kept_counter(text) : counter_picture(font, text);
  const Number across = place.item(0);
  const Number down = place.item(1);
  render::Canvas(screen).blit(picture, {across.to_double(), down.to_double()});
}

void ParticleEmitter::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  message::draw_begin(*this, offset_x, offset_y, scale);
  draw_particles(screen, offset_x, offset_y, scale);
  draw_overlays(screen, scale);
  message::draw_children(*this, screen, offset_x, offset_y, scale);
  draw_counter(screen);
  if (is_set(sceneInstance)) message::CallInnerEvent(*this, "Render"_name);
}

void declare_emitter_drawing(EmitterDeclaration& emitter) {
  declare_draw<&E::draw>(
      emitter,
      "Draw the particles, the overlays, the other children and, at the mouse position, how many "
      "particles there are; then remove the dead ones.");
}

}  // namespace tessora
