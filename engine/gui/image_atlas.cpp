// Frame atlases and animation lists in the property-list format.
#include "engine/core/property_list.hpp"
#include "engine/gui/image.hpp"

namespace tessora {

namespace {

Ref find_key(const Ref& table, std::initializer_list<PyObject*> keys) {
  for (PyObject* key : keys) {
    if (host::contains(table.get(), key)) return host::get_item(table.get(), key);
  }
  return {};
}

Ref part(const Ref& text, int index) {
  return host::get_item(text.get(), host::integer(index).get());
}

// The whole numbers of a text such as "{{x,y},{w,h}}".
Ref braced_numbers(const Ref& text, Py_ssize_t count) {
  Ref bare = text;
  for (const char* brace : {"{", "}"}) {
    bare = host::call_method(bare, "replace"_name, host::text(brace), host::text(""));
  }
  Ref pieces = host::call_method(bare, "split"_name, host::text(","));
  Ref numbers = host::list();
  for (Py_ssize_t index = 0; index < host::length(pieces.get()); ++index) {
    Ref number = host::call(reinterpret_cast<PyObject*>(&PyLong_Type),
                            part(pieces, static_cast<int>(index)));
    host::check(PyList_Append(numbers.get(), number.get()));
  }
  if (host::length(numbers.get()) != count) {
    PyErr_Format(PyExc_ValueError, "%zd whole numbers expected in %R", count, text.get());
    throw host::HostError();
  }
  return numbers;
}

struct Frame {
  Ref rect;  // pygame.Rect, upright
  bool rotated = false;
  Ref source;  // untrimmed size as (width, height), or empty
  Ref offset;  // of the trimmed picture's centre, y upwards, or empty
};

Frame read_frame(const Ref& entry) {
  Ref numbers;
  if (Ref text = find_key(entry, {"frame"_name, "textureRect"_name})) {
    numbers = braced_numbers(text, 4);
  } else {
    numbers = host::call(host::engine_value("read_rect"_name), entry);
  }
  Frame frame;
  frame.rect = host::call(host::modules::pygame["Rect"_name], part(numbers, 0), part(numbers, 1),
                          part(numbers, 2), part(numbers, 3));
  Ref flag = find_key(entry, {"rotated"_name, "textureRotated"_name});
  frame.rotated = flag && host::is_true(flag);
  if (Ref size = find_key(entry, {"sourceSize"_name, "spriteSourceSize"_name})) {
    frame.source = braced_numbers(size, 2);
  }
  if (Ref offset = find_key(entry, {"offset"_name, "spriteOffset"_name})) {
    frame.offset = braced_numbers(offset, 2);
  }
  return frame;
}

Number side(const Ref& rect, PyObject* name) {
  return host::number(host::get_attr(rect, name));
}

Ref half(const Number& whole) {
  return (whole / Number(2)).object();
}

// The frame as it was before it was trimmed.
Ref untrimmed(const Frame& frame, const Ref& picture) {
  Ref width = part(frame.source, 0);
  Ref height = part(frame.source, 1);
  Ref canvas = render::new_alpha_surface(host::tuple(width, height));
  Ref zero = host::integer(0);
  host::call_method(canvas, "fill"_name, host::tuple(zero, zero, zero, zero));
  Number left = host::number(half(host::number(width) - side(frame.rect, "width"_name)));
  Number top = host::number(half(host::number(height) - side(frame.rect, "height"_name)));
  if (frame.offset) {
    left = left + host::number(part(frame.offset, 0));
    top = top - host::number(part(frame.offset, 1));
  }
  host::call_method(canvas, "blit"_name, picture, host::tuple(left.object(), top.object()));
  return canvas;
}

// pygame's own test overflows far outside the sheet.
void check_inside(const Ref& sheet, const Ref& area) {
  Ref size = host::call_method(sheet, "get_size"_name);
  for (PyObject* each : {"x"_name, "y"_name, "width"_name, "height"_name}) {
    bool across = each == "x"_name || each == "width"_name;
    Number value = side(area, each);
    if (value < Number(0) || value > host::number(part(size, across ? 0 : 1))) {
      host::raise(PyExc_ValueError, "a frame lies outside its sheet");
    }
  }
}

Ref cut(const Ref& sheet, const Frame& frame) {
  Ref width = host::get_attr(frame.rect, "width"_name);
  Ref height = host::get_attr(frame.rect, "height"_name);
  // A rotated frame lies on its side in the sheet.
  Ref area = host::call(host::modules::pygame["Rect"_name], host::get_attr(frame.rect, "x"_name),
                        host::get_attr(frame.rect, "y"_name), frame.rotated ? height : width,
                        frame.rotated ? width : height);
  check_inside(sheet, area);
  Ref picture = host::call_method(host::call_method(sheet, "subsurface"_name, area), "copy"_name);
  if (frame.rotated) {
    picture = host::call(host::modules::transform["rotate"_name], picture, host::integer(90));
  }
  if (!frame.source) return picture;
  bool whole = host::equals(part(frame.source, 0).get(), width.get()) &&
               host::equals(part(frame.source, 1).get(), height.get());
  return whole ? picture : untrimmed(frame, picture);
}

Ref resource_path(PyObject* file) {
  return host::call_method(host::engine_value("Res"_name), "GetResPath"_name, file);
}

bool is_mapping(const Ref& value) {
  return value && PyDict_Check(value.get());
}

// The sheet that an atlas names itself, or the atlas's own name with the ending of a picture.
Ref sheet_name(PyObject* plist_file, const Ref& atlas) {
  if (Ref metadata = find_key(atlas, {"metadata"_name}); is_mapping(metadata)) {
    Ref named = find_key(metadata, {"realTextureFileName"_name, "textureFileName"_name});
    if (named && PyUnicode_Check(named.get()) && PyUnicode_GET_LENGTH(named.get()) > 0)
      return named;
  }
  Ref parts = host::call(host::modules::path["splitext"_name], plist_file);
  return host::take(PyNumber_Add(part(parts, 0).get(), host::text(".png").get()));
}

Ref items_of(const Ref& mapping) {
  if (!PyDict_Check(mapping.get())) {
    host::raise(PyExc_TypeError, "a property list entry must be a dictionary");
  }
  return host::take(PyDict_Items(mapping.get()));
}

}  // namespace

void GUI_Image::LoadImageFramesPList(PyObject* plist_file, PyObject* image_file) {
  Ref file = Ref::share(plist_file);
  Ref atlas = parse_property_list(resource_path(plist_file).get());
  Ref sheet =
      load_image(host::is_set(image_file) ? image_file : sheet_name(plist_file, atlas).get());
  Ref entries = items_of(host::get_item(atlas.get(), "frames"_name));
  Ref rects = host::take(PyDict_New());
  Ref by_name = host::take(PyDict_New());
  Ref frames = host::list();
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(entries.get()); ++index) {
    Ref entry = Ref::share(PyList_GET_ITEM(entries.get(), index));
    Frame frame = read_frame(part(entry, 1));
    Ref picture = cut(sheet, frame);
    host::set_item(rects.get(), part(entry, 0).get(), frame.rect.get());
    host::set_item(by_name.get(), part(entry, 0).get(), picture.get());
    host::check(PyList_Append(frames.get(), picture.get()));
  }
  // Only a whole atlas is taken over.
  write(imageFrameRectArray, rects);
  write(atlas_frames, by_name);
  write(plistFile, file);
  set_frames(frames);
}

void GUI_Image::LoadAnimationPlist(PyObject* plist_file, PyObject* action_name) {
  Ref description = parse_property_list(resource_path(plist_file).get());
  if (Ref nested = find_key(description, {"animations"_name}); is_mapping(nested)) {
    description = nested;
  }
  Ref name = Ref::share(action_name);
  if (!host::is_set(name)) {
    Ref entries = items_of(description);
    if (PyList_GET_SIZE(entries.get()) == 0) {
      host::raise(PyExc_ValueError, "the file describes no animation");
    }
    name = part(part(entries, 0), 0);
  }
  Ref entry = host::get_item(description.get(), name.get());
  Ref names = host::take(PySequence_List(host::get_item(entry.get(), "frames"_name).get()));
  Ref delay = host::get_item(entry.get(), "delay"_name);
  Ref known =
      atlas_frames.object == nullptr ? host::take(PyDict_New()) : Ref::share(atlas_frames.object);
  Ref frames = host::list();
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(names.get()); ++index) {
    Ref frame_name = Ref::share(PyList_GET_ITEM(names.get(), index));
    Ref picture = find_key(known, {frame_name.get()});
    if (!picture) picture = load_image(frame_name.get());
    host::check(PyList_Append(frames.get(), picture.get()));
  }
  set_frames(frames);
  write(imageSwitchDelay, delay);
  write(currActionName, name);
}

void declare_image_atlas(ImageBuilder& builder) {
  builder
      .method<&GUI_Image::LoadImageFramesPList>(
          "LoadImageFramesPList", {"plistFile", {"imageFile", nullptr}},
          "Read a frame atlas and make all its frames, in the file's order, the frames.\n\n"
          "`imageFile` is the sheet; by default the one that the atlas names, else the atlas's "
          "name with \".png\". Rotated frames are turned back, trimmed ones placed in their "
          "source size. Raises the host's errors for missing files and malformed data.")
      .method<&GUI_Image::LoadAnimationPlist>(
          "LoadAnimationPlist", {"plistFile", {"actionName", nullptr}},
          "Read an animation (the first by default): frame names under \"frames\", seconds per "
          "frame under \"delay\".\n\nNames are looked up in the atlas read last, then as image "
          "files. Raises KeyError for an unknown animation.");
}

}  // namespace tessora
