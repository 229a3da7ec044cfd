#include "engine/render/font_state.hpp"

#include <optional>
#include <unordered_map>

#include "engine/host/caught.hpp"
#include "engine/host/fonts.hpp"
#include "engine/host/getters.hpp"
#include "engine/pixels/once.hpp"
#include "engine/render/face_key.hpp"

namespace tessora::render {

using host::Ref;
using host::Value;
using namespace host::literals;

namespace {

struct FontState {
  std::uint64_t number = 0;      // of the font among all fonts
  std::uint64_t generation = 0;  // counts what cannot be read
  std::uint64_t tick = 0;        // of the script clock
  std::string bytes;
};

std::unordered_map<const void*, FontState>& the_states() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const states = new std::unordered_map<const void*, FontState>;
  return *states;
}

using Getters = std::vector<Ref>;

// The getters that work in this release, with the libraries that are installed, but for names:
// these stay. Null while they are being found out.
const Getters* working_getters(Value font) {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const working = new Once<std::optional<Getters>>;
  const std::optional<Getters>& found = working->get([&] {
    std::optional<Getters> usable = Getters();
    for (const Ref& getter : host::getters_of(font)) {
      Ref now;
      host::caught(PyExc_Exception, [&] { now = host::get_with(getter, font); });
      if (now && !now.is_text()) usable->push_back(getter);
    }
    return usable;
  });
  return found ? &*found : nullptr;
}

FontState& state_of(Value font, std::uint64_t number) {
  FontState& state = the_states()[font.identity()];
  if (state.number != number) state = {number, 0, 0, {}};
  return state;
}

}  // namespace

bool is_plain_font(Value font) {
  static const host::Lasting type(host::modules::font["Font"_name]);
  return font.is_exactly(type) && font.has_native_type();
}

const std::string& font_state(Value font) {
  static const std::string unknown;
  const std::uint64_t number = host::check_font(font);
  if (number == 0) return unknown;
  if (FontState& known = state_of(font, number); known.tick == host::clocks.script) {
    return known.bytes;
  }
  const Getters* getters = working_getters(font);
  if (getters == nullptr) return unknown;
  FaceKey key("");
  for (const Ref& getter : *getters) key.add(host::get_with(getter, font));
  FontState& state = state_of(font, number);
  key.add(state.number).add(state.generation);
  state.tick = host::clocks.script;
  state.bytes = key.is_known() ? key.bytes() : unknown;
  return state.bytes;
}

void renew_font(Value font) {
  if (!is_plain_font(font)) return;
  static std::uint64_t count = 0;
  auto found = the_states().find(font.identity());
  if (found == the_states().end()) return;
  found->second.generation = ++count;
  found->second.tick = 0;
}

void forget_fonts() {
  the_states().clear();
}

}  // namespace tessora::render
