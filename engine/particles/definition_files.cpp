// Definition files: an effect's parameters as a property list, and by their names there.
#include <array>
#include <string>
#include <vector>

#include "engine/core/property_list.hpp"
#include "engine/host/caught.hpp"
#include "engine/host/files.hpp"
#include "engine/host/paths.hpp"
#include "engine/particles/emitter.hpp"

namespace tessora {

namespace {

using E = ParticleEmitter;

constinit host::Module builtins{"builtins"};

enum class Mode : std::uint8_t { kBoth, kGravity, kCircle };
enum class Marker : std::uint8_t { kNo, kAllowed };

// A parameter that is a real number, in the order of the file.
struct Parameter {
  const char* key = nullptr;
  Slot E::* slot = nullptr;  // null for a component of the gravity
  double otherwise = 0.0;
  Mode written_in = Mode::kBoth;
  Marker marker = Marker::kNo;  // it may be "Begin", and is without an entry
};

// NOLINTBEGIN(readability-magic-numbers)
constexpr Parameter kParameters[] = {
    {"Duration", &E::Duration, -1},
    {"EmissionRate", &E::EmissionRate, 60},
    {"Life", &E::Life, 30},
    {"LifeVar", &E::LifeVar, 10},
    {"ParticleX", &E::ParticleX, 0, Mode::kGravity},
    {"ParticleXVar", &E::ParticleXVar, 0, Mode::kGravity},
    {"ParticleY", &E::ParticleY, 0, Mode::kGravity},
    {"ParticleYVar", &E::ParticleYVar, 0, Mode::kGravity},
    {"Direction", &E::Direction, -90},
    {"DirectionVar", &E::DirectionVar, 20},
    {"Speed", &E::Speed, -90, Mode::kGravity},
    {"SpeedVar", &E::SpeedVar, 20, Mode::kGravity},
    {"GravityX", nullptr, 0, Mode::kGravity},
    {"GravityY", nullptr, 0, Mode::kGravity},
    {"Radialaccel", &E::Radialaccel, 0, Mode::kGravity},
    {"RadialaccelVar", &E::RadialaccelVar, 0, Mode::kGravity},
    {"Tangentialaccel", &E::Tangentialaccel, 0, Mode::kGravity},
    {"TangentialaccelVar", &E::TangentialaccelVar, 0, Mode::kGravity},
    {"BeginRadius", &E::BeginRadius, 0, Mode::kCircle},
    {"BeginRadiusVar", &E::BeginRadiusVar, 0, Mode::kCircle},
    {"EndRadius", &E::EndRadius, 0, Mode::kCircle, Marker::kAllowed},
    {"EndRadiusVar", &E::EndRadiusVar, 0, Mode::kCircle, Marker::kAllowed},
    {"RotateSpeed", &E::RotateSpeed, 0, Mode::kCircle},
    {"RotateSpeedVar", &E::RotateSpeedVar, 0, Mode::kCircle},
    {"BeginSize", &E::BeginSize, 10},
    {"BeginSizeVar", &E::BeginSizeVar, 2},
    {"EndSize", &E::EndSize, 0, Mode::kBoth, Marker::kAllowed},
    {"EndSizeVar", &E::EndSizeVar, 0, Mode::kBoth, Marker::kAllowed},
    {"BeginAngle", &E::BeginAngle, 0},
    {"BeginAngleVar", &E::BeginAngleVar, 0},
    {"EndAngle", &E::EndAngle, 0, Mode::kBoth, Marker::kAllowed},
    {"EndAngleVar", &E::EndAngleVar, 0, Mode::kBoth, Marker::kAllowed},
};

struct ColorPart {
  const char* read_from;  // the end of the key
  int otherwise;
};

// A colour and its variance; the parts in the order r, g, b, a.
struct ColorParameter {
  const char* key;
  LazySlot E::* slot;
  LazySlot E::* begin;  // what "Begin" keeps; null where the marker is none
  std::array<ColorPart, 4> parts;
};

constexpr ColorParameter kColors[] = {
    {"BeginColor", &E::BeginColor, nullptr, {{{"R", 128}, {"G", 128}, {"B", 128}, {"A", 255}}}},
    // Red is read from the entry for alpha: effects were made with what that gives.
    {"BeginColorVar",
     &E::BeginColorVar,
     nullptr,
     {{{"A", 128}, {"G", 128}, {"B", 128}, {"A", 255}}}},
    {"EndColor", &E::EndColor, &E::BeginColor, {{{"R", 26}, {"G", 25}, {"B", 25}, {"A", 60}}}},
    {"EndColorVar",
     &E::EndColorVar,
     &E::BeginColorVar,
     {{{"R", 26}, {"G", 25}, {"B", 25}, {"A", 60}}}},
};
// NOLINTEND(readability-magic-numbers)

constexpr const char* kPartNames[] = {"R", "G", "B", "A"};
constexpr const char* kPartAttributes[] = {"r", "g", "b", "a"};
constexpr int kParts = 4;

Ref real_of(Value value) {
  return builtins["float"_name](value);
}

Ref entry(Value dict, const std::string& key, Value otherwise) {
  Ref found = dict.find_item(host::text(key.c_str()));
  return found ? found : Ref(otherwise);
}

// The marker stays; anything else becomes a number.
Ref converted(const Parameter& parameter, Value value) {
  const bool marker = parameter.marker == Marker::kAllowed && is_begin_marker(value);
  return marker ? Ref("Begin"_name) : real_of(value);
}

Ref read_parameter(Value dict, const Parameter& parameter) {
  Ref otherwise =
      parameter.marker == Marker::kAllowed ? Ref("Begin"_name) : host::real(parameter.otherwise);
  return host::with_place(host::text(parameter.key), [&] {
    return converted(parameter, entry(dict, parameter.key, otherwise));
  });
}

Ref color_of(const std::array<Ref, kParts>& parts) {
  return host::new_color(parts[0], parts[1], parts[2], parts[3]);
}

Ref read_color(Value dict, const ColorParameter& color) {
  return host::with_place(host::text(color.key), [&]() -> Ref {
    std::array<Ref, kParts> parts;
    for (int part = kParts - 1; part >= 0; --part) {
      const ColorPart& from = color.parts[part];
      Ref given =
          entry(dict, std::string(color.key) + from.read_from, host::integer(from.otherwise));
      if (color.begin != nullptr && is_begin_marker(given)) return "Begin"_name;
      parts[part] = integer_of(given);
    }
    return color_of(parts);
  });
}

// What a whole file says, before any of it is taken over.
struct Definition {
  Ref mode, blend, total, image;
  std::vector<Ref> numbers, colors;
};

Definition read_definition(Value dict) {
  Definition read;
  read.mode = entry(dict, "ParticleMode", "Gravity"_name);
  read.blend = entry(dict, "BlendType", "MUL"_name);
  read.total = host::with_place("ParticleTotal"_name, [&] {
    constexpr int kTotal = 250;
    return integer_of(entry(dict, "ParticleTotal", host::integer(kTotal)));
  });
  for (const Parameter& each : kParameters) read.numbers.push_back(read_parameter(dict, each));
  for (const ColorParameter& each : kColors) read.colors.push_back(read_color(dict, each));
  read.image = entry(dict, "imageFile", nullptr);
  if (read.image.is_set() && !read.image.is_text()) {
    host::raise(PyExc_TypeError, "imageFile is no file name: %.80R", read.image);
  }
  return read;
}

bool is_gravity_part(const Parameter& parameter) {
  return parameter.slot == nullptr;
}

Value gravity_axis(const Parameter& parameter) {
  return std::string_view(parameter.key) == "GravityX" ? "x"_name : "y"_name;
}

}  // namespace

void ParticleEmitter::LoadFromFile(Value file) {
  message::CleanUp(*this);
  Ref name = host::path_text(file);
  Ref path = resources_for(name).call("GetResPath"_name, name);
  if (!path.is_set()) return;
  Ref exists = host::modules::path["exists"_name](host::openable_path(path));
  if (!exists.is_true()) return;
  Ref dict = parse_property_list(path);
  const Definition read = host::with_place(path, [&] { return read_definition(dict); });
  write(plistFile, path);
  write(ParticleMode, read.mode);
  message::SetBlendType(*this, read.blend);
  write(ParticleTotal, read.total);
  Ref pull[2];
  auto number = read.numbers.begin();
  for (const Parameter& each : kParameters) {
    if (is_gravity_part(each)) {
      pull[gravity_axis(each).is("x"_name) ? 0 : 1] = *number++;
    } else {
      write(this->*each.slot, *number++);
    }
  }
  write(Gravity, vector_type()(pull[0], pull[1]));
  auto color = read.colors.begin();
  for (const ColorParameter& each : kColors) write(this->*each.slot, *color++);
  message::SetImage(*this, read.image);
  write(running, true);
}

namespace {

Ref escaped(Value text) {
  for (const char character : host::utf8(text)) {
    const auto code = static_cast<unsigned char>(character);
    if (code < ' ' && code != '\t' && code != '\n' && code != '\r') {
      host::raise(PyExc_ValueError, "%R has characters that no property list can hold", text);
    }
  }
  Ref safe = text;
  constexpr const char* kEntities[][2] = {
      {"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\r", "&#13;"}};
  for (const auto& [plain, entity] : kEntities) safe = safe.call("replace"_name, plain, entity);
  return safe;
}

// The lines of a file, a key and its value at a time.
class Lines {
 public:
  explicit Lines(E& emitter) : emitter_(emitter) {
    add("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"_name);
    add("<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"_name);
    add("<plist version=\"1.0\">"_name);
    add("<dict>"_name);
  }

  void text(const std::string& key, Value value) { put(key, "string", escaped(value)); }

  // A number in its ordinary text form, or the marker.
  void number(const std::string& key, const char* kind, Value value) {
    if (is_begin_marker(value)) return text(key, "Begin"_name);
    const bool whole = *kind == 'i';
    const bool as_it_is = value.is_plain_integer() || (!whole && value.is_plain_real());
    Ref plain = as_it_is ? Ref(value) : host::with_place(host::text(key.c_str()), [&] {
      return whole ? integer_of(value) : real_of(value);
    });
    put(key, kind, host::formatted("%S", plain));
  }

  void color(const ColorParameter& color, int part) {
    Ref value = emitter_.read(emitter_.*color.slot);
    if (!is_begin_marker(value)) value = value.attr(host::text(kPartAttributes[part]));
    number(std::string(color.key) + kPartNames[part], "integer", value);
  }

  Ref finish() {
    add("</dict>"_name);
    add("</plist>"_name);
    add(""_name);
    return "\n"_name.call("join"_name, lines_);
  }

 private:
  void add(Value line) { lines_.append(line); }
  void put(const std::string& key, const char* kind, Value value) {
    add(host::formatted("<key>%s</key>", key.c_str()));
    add(host::formatted("<%s>%S</%s>", kind, value, kind));
  }

  E& emitter_;
  Ref lines_ = host::list();
};

Ref saved_blend(Value flag) {
  Ref name = blend_name(flag);
  return name.is_text("MULT"_name) ? Ref("MUL"_name) : name;
}

Ref saved_image(Value file) {
  if (file.is_none()) return ""_name;
  Ref name = host::path_text(file);
  if (name.is_text()) return name;
  host::raise(PyExc_TypeError, "Imagefile is no file name that could be saved: %.80R", file);
}

}  // namespace

void ParticleEmitter::SaveToFile(Value file) {
  Lines lines(*this);
  const bool gravity = is_gravity();
  lines.text("ParticleMode", host::formatted("%S", Ref(read(ParticleMode))));
  lines.text("BlendType", saved_blend(Ref(read(blendtype))));
  lines.number("ParticleTotal", "integer", Ref(read(ParticleTotal)));
  for (const Parameter& each : kParameters) {
    if (each.written_in == (gravity ? Mode::kCircle : Mode::kGravity)) continue;
    Ref value = is_gravity_part(each) ? Ref(read(Gravity)).attr(gravity_axis(each))
                                      : Ref(read(this->*each.slot));
    lines.number(each.key, "real", value);
  }
  for (int first : {0, 2}) {
    for (int part = 0; part < kParts; ++part) {
      lines.color(kColors[first], part);
      lines.color(kColors[first + 1], part);
    }
  }
  lines.text("imageFile", saved_image(Ref(read(Imagefile))));
  host::write_whole_file(file, lines.finish());
}

namespace {

// The marker as scripts spell it here, in any case.
Ref with_marker(Value value) {
  if (!value.is_text()) return value;
  Ref lowered = value.call("lower"_name);
  return lowered.is_text("begin"_name) ? Ref("Begin"_name) : Ref(value);
}

const Parameter* find_parameter(const std::string& name) {
  std::string key = name;
  if (name == "direction") key = "Direction";
  if (name == "directionVariance") key = "DirectionVar";
  if (name == "speed") key = "Speed";
  for (const Parameter& each : kParameters) {
    if (key == each.key) return &each;
  }
  return nullptr;
}

struct FoundColor {
  const ColorParameter* color = nullptr;
  int part = 0;
};

FoundColor find_color(const std::string& name) {
  for (const ColorParameter& each : kColors) {
    for (int part = 0; part < kParts; ++part) {
      if (name == std::string(each.key) + kPartNames[part]) return {&each, part};
    }
  }
  return {};
}

void set_color_part(E& emitter, const FoundColor& found, Value given) {
  LazySlot& slot = emitter.*found.color->slot;
  if (found.color->begin != nullptr && is_begin_marker(given)) {
    return emitter.write(slot, "Begin"_name);
  }
  Ref part_value = integer_of(given);
  Ref now = emitter.read(slot);
  if (is_begin_marker(now)) now = emitter.read(emitter.*found.color->begin);
  std::array<Ref, kParts> parts;
  for (int part = 0; part < kParts; ++part) {
    parts[part] = part == found.part ? part_value : now.attr(host::text(kPartAttributes[part]));
  }
  emitter.write(slot, color_of(parts));
}

void set_parameter(E& emitter, const Parameter& parameter, Value given) {
  Ref value = converted(parameter, given);
  if (!is_gravity_part(parameter)) return emitter.write(emitter.*parameter.slot, value);
  // A new vector: the old one may be a script's own.
  Ref old = emitter.read(emitter.Gravity);
  const bool across = gravity_axis(parameter).is("x"_name);
  Ref x = across ? value : old.attr("x"_name);
  Ref y = across ? old.attr("y"_name) : value;
  emitter.write(emitter.Gravity, vector_type()(x, y));
}

}  // namespace

void ParticleEmitter::SetData(Value name, Value value) {
  if (!name.is_text()) return;
  const std::string key = host::utf8(name);
  Ref given = with_marker(value);
  if (key == "ParticleMode") return write(ParticleMode, value);
  if (key == "BlendType") return static_cast<void>(message::SetBlendType(*this, value));
  if (key == "ParticleTotal") return write(ParticleTotal, integer_of(value));
  if (key == "imageFile") return static_cast<void>(message::SetImage(*this, value));
  if (const Parameter* parameter = find_parameter(key)) {
    return set_parameter(*this, *parameter,
                         parameter->marker == Marker::kAllowed ? given : Ref(value));
  }
  const FoundColor found = find_color(key);
  if (found.color != nullptr) set_color_part(*this, found, given);
}

Ref ParticleEmitter::GetData(Value name) {
  if (!name.is_text()) return host::none();
  const std::string key = host::utf8(name);
  if (key == "ParticleMode") return read(ParticleMode);
  if (key == "BlendType") return read(blendtype);
  if (key == "ParticleTotal") return read(ParticleTotal);
  if (key == "imageFile") return read(Imagefile);
  if (const Parameter* parameter = find_parameter(key)) {
    if (!is_gravity_part(*parameter)) return read(this->*parameter->slot);
    return Ref(read(Gravity)).attr(gravity_axis(*parameter));
  }
  const FoundColor found = find_color(key);
  if (found.color == nullptr) return host::none();
  Ref color = read(this->*found.color->slot);
  return is_begin_marker(color) ? color : color.attr(host::text(kPartAttributes[found.part]));
}

void declare_definition_files(EmitterDeclaration& emitter) {
  emitter
      .method<&E::LoadFromFile>(
          "LoadFromFile(file: _File) -> None",
          "Read a definition file, named without its folder, through `Res`, and run.\n\nCleanUp() "
          "comes first and is all that happens for an unknown name. A file that is damaged, or has "
          "values of a wrong kind, raises an error that names it; nothing of it is taken over "
          "then. "
          "Raises AttributeError while `Tessora.Res` is not set.")
      .method<&E::SaveToFile>(
          "SaveToFile(file: _File) -> None",
          "Write the parameters of the active mode to a definition file at that path, whole or not "
          "at all.\n\nRaises TypeError or ValueError for parameters that cannot be saved and "
          "OSError for a path that cannot be written.")
      .method<&E::SetData>(
          "SetData(dataname: str, datavalue: Any) -> None",
          "Set a parameter by its key in definition files, or as \"direction\", "
          "\"directionVariance\" or \"speed\".\n\nEnd values take \"Begin\" in any case; other "
          "values are converted as on loading. Unknown names do nothing.")
      .method<&E::GetData>("GetData(dataname: str) -> Any",
                           "Return a parameter by such a name, None for an unknown one.");
}

}  // namespace tessora
