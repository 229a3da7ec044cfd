#include "engine/character/format.hpp"

#include <algorithm>
#include <array>

#include "engine/character/tracks.hpp"
#include "engine/host/caught.hpp"
#include "engine/host/files.hpp"
#include "engine/host/vector2.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

constinit host::Module builtins{"builtins"};

// Far more than a character needs. Python's objects take up to 25 times the bytes of a file.
constexpr Py_ssize_t kMostBytes = 16 << 20;
// Numbers of more digits take Python a time that grows with the square of their number.
constexpr int kMostDigits = 4300;
constexpr int kMostBits = 14000;
constexpr Py_ssize_t kMostParts = 4096;

bool is_instance(Value value, Value type) {
  return builtins["isinstance"_name](value, type).is_true();
}

bool is_number(Value value) {
  return value.is_integer() || is_instance(value, builtins["float"_name]);
}

bool is_row(Value value) {
  return value.is_list() || value.is_tuple();
}

// A list, or what may stand for one, of so many numbers.
bool is_numbers(Value value, Py_ssize_t least, Py_ssize_t most) {
  const bool is_vector = host::plain_vector(value).has_value();
  if (!is_vector && !is_row(value) && !is_instance(value, host::modules::pygame["Rect"_name])) {
    return false;
  }
  const host::Items numbers = host::items(value);
  if (numbers.size() < least || numbers.size() > most) return false;
  return host::all_of(value, [](Value number) { return is_number(number); });
}

template <class Test>
bool each_of(Value row, Test test) {
  return is_row(row) && host::all_of(row, test);
}

Ref marked(const char* mark, Value content) {
  Ref json = host::dictionary();
  json.set_item(host::intern(mark), content);
  return json;
}

Ref encoded_row(Value row) {
  Ref json = host::list();
  for (Ref item : host::items(row)) json.append(encoded(item));
  return json;
}

Ref encoded_table(Value table) {
  bool is_plain = true;
  for (const host::Entry& each : host::entries(table)) {
    is_plain =
        is_plain && each.key.is_text() && !each.key.call("startswith"_name, "$"_name).is_true();
  }
  Ref object = host::dictionary();
  Ref pairs = host::list();
  for (const host::Entry& each : host::entries(table)) {
    host::with_place(host::formatted("entry %R", each.key), [&] {
      Ref value = encoded(each.value);
      if (is_plain) {
        object.set_item(each.key, value);
      } else {
        pairs.append(host::list(encoded(each.key), value));
      }
    });
  }
  return is_plain ? object : marked("$dict", pairs);
}

[[noreturn]] void refuse(Value value) {
  host::raise(PyExc_ValueError, "%.200R is not what it should be", value);
}

Ref decoded_row(Value json) {
  if (!json.is_list()) refuse(json);
  Ref row = host::list();
  for (Ref item : host::items(json)) row.append(decoded(item));
  return row;
}

Ref decoded_pairs(Value json) {
  if (!json.is_list()) refuse(json);
  Ref table = host::dictionary();
  for (Ref pair : host::items(json)) {
    if (!pair.is_list() || pair.length() != 2) refuse(pair);
    Ref key = decoded(pair.item(0));
    table.set_item(key, decoded(pair.item(1)));
  }
  return table;
}

Ref decoded_color(Value json) {
  if (!is_numbers(json, 4, 4)) refuse(json);
  Ref red = json.item(0);
  Ref green = json.item(1);
  Ref blue = json.item(2);
  return host::modules::pygame["Color"_name](red, green, blue, json.item(3));
}

Ref decoded_rect(Value json) {
  if (!is_numbers(json, 4, 4)) refuse(json);
  return host::modules::pygame["Rect"_name](json);
}

Ref decoded_vector(Value json) {
  if (!is_numbers(json, 2, 2)) refuse(json);
  Ref type = host::modules::pygame["math"_name].attr("Vector2"_name);
  return type(json);
}

Ref decoded_tuple(Value json) {
  return builtins["tuple"_name](decoded_row(json));
}

struct Mark {
  const char* name;
  Ref (*decode)(Value json);
};
constexpr Mark kMarks[] = {{"$tuple", &decoded_tuple},
                           {"$dict", &decoded_pairs},
                           {"$color", &decoded_color},
                           {"$rect", &decoded_rect},
                           {"$vector", &decoded_vector}};

Ref decoded_table(Value json) {
  Ref table = host::dictionary();
  for (const host::Entry& each : host::entries(json)) {
    if (!each.key.call("startswith"_name, "$"_name).is_true()) {
      table.set_item(each.key, decoded(each.value));
      continue;
    }
    for (const Mark& mark : kMarks) {
      if (each.key.is_text(host::intern(mark.name)) && json.length() == 1) {
        return mark.decode(each.value);
      }
    }
    host::raise(PyExc_ValueError, "unknown mark %.200R", each.key);
  }
  return table;
}

// The values of the tracks of a part; both ways they must be what the tracks take.
void check_tracks(Value values) {
  for (const host::Entry& each : host::entries(values)) {
    host::with_place(host::formatted("%S", each.key), [&] {
      for (const Track& track : kTracks) {
        if (!each.key.equals(track_name(track)) || each.value.is_none()) continue;
        if (!is_of_kind(track.kind, each.value)) refuse(each.value);
      }
    });
  }
}

void expect_keys(Value table, std::initializer_list<Value> known) {
  for (Ref key : host::items(table)) {
    const bool found = std::ranges::any_of(known, [&](Value each) { return key.equals(each); });
    if (!found) host::raise(PyExc_ValueError, "unknown entry %.200R", key);
  }
}

Ref encoded_frame(Value index, Value frame) {
  expect_keys(frame, {"ChangeMode"_name, "Parts"_name});
  Ref parts = host::list();
  for (const host::Entry& each : host::entries(entry_of(frame, "Parts"_name, Kind::kTable))) {
    host::with_place(host::formatted("part %R", each.key), [&] {
      if (!is_number(each.key) || !each.value.is_dict()) refuse(each.value);
      Ref part = host::dictionary();
      part.set_item("part"_name, encoded(each.key));
      part.set_item("tracks"_name, encoded(each.value));
      check_tracks(each.value);
      parts.append(part);
    });
  }
  Ref json = host::dictionary();
  json.set_item("frame"_name, encoded(index));
  if (Ref mode = frame.find_item("ChangeMode"_name)) {
    json.set_item("ChangeMode"_name, encoded(mode));
  }
  json.set_item("parts"_name, parts);
  return json;
}

Ref decoded_frame(Value json) {
  expect_keys(json, {"frame"_name, "ChangeMode"_name, "parts"_name});
  Ref parts = host::dictionary();
  for (Ref part : host::items(list_at(json, "parts"_name))) {
    if (!part.is_dict()) refuse(part);
    expect_keys(part, {"part"_name, "tracks"_name});
    Ref index = decoded(entry_of(part, "part"_name, Kind::kNumber));
    host::with_place(host::formatted("part %R", index), [&] {
      Ref tracks = decoded(entry_of(part, "tracks"_name, Kind::kTable));
      if (!tracks.is_dict()) refuse(tracks);
      check_tracks(tracks);
      if (parts.contains(index)) host::raise(PyExc_ValueError, "it is there twice");
      parts.set_item(index, tracks);
    });
  }
  Ref frame = host::dictionary();
  if (Ref mode = json.find_item("ChangeMode"_name))
    frame.set_item("ChangeMode"_name, decoded(mode));
  frame.set_item("Parts"_name, parts);
  return frame;
}

Ref decoded_frames(Value json) {
  Ref frames = host::dictionary();
  for (Ref each : host::items(list_at(json, "keyframes"_name))) {
    if (!each.is_dict()) refuse(each);
    Ref index = decoded(entry_of(each, "frame"_name, Kind::kNumber));
    host::with_place(host::formatted("frame %R", index), [&] {
      if (frames.contains(index)) host::raise(PyExc_ValueError, "it is there twice");
      frames.set_item(index, decoded_frame(each));
    });
  }
  // A file of a few bytes a part must not make widgets without end.
  if (parts_of(frames).length() > kMostParts) {
    host::raise(PyExc_ValueError, "an action has at most %zd parts", kMostParts);
  }
  return frames;
}

// Python takes very long for numbers of very many digits, which no writer makes.
void refuse_long_numbers(Value text) {
  bool in_text = false;
  bool escaped = false;
  int digits = 0;
  for (const char each : host::utf8(text)) {
    if (in_text) {
      in_text = escaped || each != '"';
      escaped = !escaped && each == '\\';
    } else {
      in_text = each == '"';
      digits = each >= '0' && each <= '9' ? digits + 1 : 0;
      if (digits > kMostDigits) {
        host::raise(PyExc_ValueError, "a number has more than %d digits", kMostDigits);
      }
    }
  }
}

}  // namespace

bool is_of_kind(Kind kind, Value value) {
  switch (kind) {
    case Kind::kAny:
      return true;
    case Kind::kNumber:
      return is_number(value);
    case Kind::kText:
      return value.is_text();
    case Kind::kPair:
      return is_numbers(value, 2, 2);
    case Kind::kColor:
      return value.is_text() || value.is_integer() || is_numbers(value, 3, 4) ||
             render::plain_color(value).has_value();
    case Kind::kFiles:
      return value.is_text() || each_of(value, [](Value name) { return name.is_text(); });
    case Kind::kRects:
      return each_of(value, [](Value rect) { return is_numbers(rect, 4, 4); });
    case Kind::kTable:
      return value.is_dict();
  }
  return false;
}

Ref encoded(Value value) {
  host::RecursionGuard guard;
  if (value.is_none() || value.is_text() || value.is_flag()) return value;
  if (value.is_integer()) {
    if (Number(value.call("bit_length"_name)) > Number(kMostBits)) {
      host::raise(PyExc_ValueError, "a number of so many digits cannot be written to a file");
    }
    return value;
  }
  if (is_number(value)) return value;
  if (value.is_list()) return encoded_row(value);
  if (value.is_tuple()) return marked("$tuple", encoded_row(value));
  if (value.is_dict()) return encoded_table(value);
  if (render::plain_color(value)) return marked("$color", value.to_list());
  if (host::plain_vector(value)) return marked("$vector", value.to_list());
  if (is_instance(value, host::modules::pygame["Rect"_name])) {
    return marked("$rect", value.to_list());
  }
  host::raise(PyExc_TypeError, "%.200R cannot be written to a file", value);
}

Ref decoded(Value json) {
  host::RecursionGuard guard;
  if (json.is_list()) return decoded_row(json);
  return json.is_dict() ? decoded_table(json) : Ref(json);
}

Ref entry_of(Value table, Value key, Kind kind) {
  Ref value = table.find_item(key);
  if (!value || !is_of_kind(kind, value)) {
    host::raise(PyExc_ValueError, "%R is missing or not what it should be", key);
  }
  return value;
}

Ref list_at(Value table, Value key) {
  Ref value = entry_of(table, key, Kind::kAny);
  if (!value.is_list()) refuse(value);
  return value;
}

Ref encoded_actions(Value actions, Value names, Value speeds) {
  Ref json = host::list();
  for (Ref name : host::items(names)) {
    host::with_place(host::formatted("action %R", name), [&] {
      Ref frames = actions.item(name);
      if (!frames.is_dict()) refuse(frames);
      Ref key_frames = host::list();
      for (const host::Entry& each : host::entries(frames)) {
        host::with_place(host::formatted("frame %R", each.key), [&] {
          if (!is_number(each.key) || !each.value.is_dict()) refuse(each.value);
          key_frames.append(encoded_frame(each.key, each.value));
        });
      }
      Ref action = host::dictionary();
      action.set_item("name"_name, encoded(name));
      if (speeds.is_dict()) action.set_item("speed"_name, encoded(speeds.item(name)));
      action.set_item("keyframes"_name, key_frames);
      json.append(action);
    });
  }
  return json;
}

Ref decoded_actions(Value json, Value speeds) {
  if (!json.is_list()) refuse(json);
  Ref actions = host::dictionary();
  for (Ref action : host::items(json)) {
    if (!action.is_dict()) refuse(action);
    expect_keys(action, {"name"_name, "speed"_name, "keyframes"_name});
    Ref name = decoded(entry_of(action, "name"_name, Kind::kAny));
    host::with_place(host::formatted("action %R", name), [&] {
      if (actions.contains(name)) host::raise(PyExc_ValueError, "it is there twice");
      actions.set_item(name, decoded_frames(action));
      Ref speed = action.find_item("speed"_name);
      if (!speed) return;
      speed = decoded(speed);
      if (!is_number(number_of(speed))) refuse(speed);
      speeds.set_item(name, speed);
    });
  }
  return actions;
}

void write_json(Value path, const char* format, Value content) {
  Ref whole = host::dictionary();
  whole.set_item("format"_name, host::text(format));
  whole.set_item("version"_name, 1_const);
  whole.call("update"_name, content);
  Ref keywords = host::dictionary();
  keywords.set_item("obj"_name, whole);
  keywords.set_item("indent"_name, 1_const);
  Ref text = host::call_with_keywords(host::import("json", "dumps"_name), keywords);
  text = host::joined(text, "\n"_name);
  if (text.length() > kMostBytes) {
    host::raise(PyExc_ValueError, "the file would have more than %zd bytes", kMostBytes);
  }
  host::write_whole_file(path, text);
}

Ref read_json(Value path, const char* format) {
  Ref text = host::read_whole_file(path, kMostBytes);
  refuse_long_numbers(text);
  Ref whole = host::import("json", "loads"_name)(text);
  const bool fits =
      whole.is_dict() && entry_of(whole, "format"_name, Kind::kAny).equals(host::text(format));
  if (!fits) host::raise(PyExc_ValueError, "this is no file of a %s", format);
  Ref version = entry_of(whole, "version"_name, Kind::kAny);
  if (!version.equals(1_const)) {
    host::raise(PyExc_ValueError, "version %.200R of the format is not known", version);
  }
  return whole;
}

}  // namespace tessora
