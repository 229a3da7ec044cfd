#include "engine/gui/fonts.hpp"

#include <string>
#include <unordered_map>

#include "engine/host/caught.hpp"
#include "engine/host/paths.hpp"
#include "engine/host/quit.hpp"

namespace tessora {

namespace {

bool names_file(Value name) {
  Ref lowered = host::with_place("font name"_name, [&] { return name.call("lower"_name); });
  return lowered.contains(".ttf"_name) || lowered.contains(".otf"_name);
}

// A system font that was made once since pygame was started, so that it can be made again.
struct ProvenFont {
  Ref name, size;
  unsigned run;  // of pygame
  Ref standing;  // for a font of this kind
};

struct ProvenFonts {
  // More kinds of fonts than this are all made at once.
  static constexpr std::size_t kMost = 1024;
  std::vector<ProvenFont> all;
  std::unordered_map<std::string, std::size_t> places;
};

ProvenFonts& proven_fonts() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const fonts = new ProvenFonts;
  return *fonts;
}

Ref make_plain_font(Value name, Value size) {
  Ref font = named_font(name, size, false, false);
  finish_font(font, name, false, false);
  return font;
}

Ref make_proven_font(const host::LazyDefault& standing) {
  const ProvenFont proven = proven_fonts().all[standing.detail];
  if (proven.run != host::quit_count()) host::raise_old_font();
  return make_plain_font(proven.name, proven.size);
}

}  // namespace

Ref named_font(Value name, Value size, Value bold, Value italic) {
  Ref file = host::path_text(name);
  return names_file(file) ? resources_for(file).call("GetFont"_name, file, size, bold, italic)
                          : host::modules::font["SysFont"_name](file, size, bold, italic);
}

void finish_font(Value font, Value name, Value underline, Value strike) {
  if (font.is_none()) {
    host::raise(PyExc_AttributeError,
                "%.200R is not among the resources of Tessora.Res; system fonts are named without "
                "\".ttf\" or \".otf\"",
                name);
  }
  host::with_place(host::path_text(name), [&] { font.call("set_underline"_name, underline); });
  // Older versions of pygame cannot strike text through.
  if (Ref setter = font.find_attr("set_strikethrough"_name)) setter(strike);
  host::note_font(font);
  render::font_changed(font);
}

Ref font_when_needed(Value name, Value size) {
  const bool is_plain = name.is_plain_text() && size.is_plain_integer();
  if (!is_plain || names_file(name) || !host::makes_system_fonts())
    return make_plain_font(name, size);
  ProvenFonts& fonts = proven_fonts();
  std::string key;
  host::append_characters(key, host::formatted("%S %S", size, name));
  auto found = fonts.places.find(key);
  if (found != fonts.places.end()) {
    const ProvenFont& proven = fonts.all[found->second];
    if (proven.run == host::quit_count()) return proven.standing;
  }
  Ref font = make_plain_font(name, size);
  if (fonts.all.size() < ProvenFonts::kMost) {
    const auto place = static_cast<std::uint32_t>(fonts.all.size());
    fonts.places[std::move(key)] = place;
    fonts.all.push_back(
        {name, size, host::quit_count(), host::new_lazy_default(&make_proven_font, place)});
  }
  return font;
}

}  // namespace tessora
