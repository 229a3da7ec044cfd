// Frame atlases and animation lists in the property-list format.
#include "engine/core/property_list.hpp"
#include "engine/host/caught.hpp"
#include "engine/host/paths.hpp"
#include "engine/image/image.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace {

constinit host::Module builtins{"builtins"};

using render::Box;
using render::Point;
using render::Size;

// The first of these entries that a table has, or an empty reference.
Ref find_entry(Value table, std::initializer_list<Value> keys) {
  for (Value key : keys) {
    if (Ref found = table.find_item(key)) return found;
  }
  return {};
}

double number_at(Value table, Value key, double otherwise) {
  Ref value = table.find_item(key);
  return value ? Number(number_of(value)).to_double() : otherwise;
}

// The numbers of a text such as "{{x,y},{w,h}}", converted by `type`.
template <std::size_t Count>
std::array<double, Count> braced_numbers(Value text, Value type) {
  constexpr Py_ssize_t kLongest = 1000;
  std::array<double, Count> numbers{};
  std::size_t found = 0;
  Ref bare = text.call("replace"_name, "{"_name, ""_name);
  bare = bare.call("replace"_name, "}"_name, ""_name);
  if (bare.length() < kLongest) {
    for (Ref piece : host::items(bare.call("split"_name, ","_name))) {
      const Number number = builtins[type](piece);
      if (found < Count) numbers[found] = number.to_double();
      ++found;
    }
  }
  if (found == Count) return numbers;
  host::raise(PyExc_ValueError, "%zu numbers expected in %.200R", Count, text);
}

// A size or offset, whose numbers need not be whole.
Point pair_of(Value text) {
  const auto [first, second] = braced_numbers<2>(text, "float"_name);
  return {first, second};
}

struct Frame {
  Box rect{};  // upright
  bool rotated = false;
  Point source{};  // the size before it was trimmed
  Point offset{};  // of what is left, from the middle, y upwards
};

Box read_rect(Value entry) {
  if (Ref text = find_entry(entry, {"frame"_name, "textureRect"_name})) {
    const auto [x, y, width, height] = braced_numbers<4>(text, "int"_name);
    return {x, y, width, height};
  }
  Ref values = host::engine_value("read_rect"_name)(entry);
  auto side = [&](Py_ssize_t index) {
    return std::trunc(Number(number_of(values.item(index))).to_double());
  };
  return {side(0), side(1), side(2), side(3)};
}

Frame read_frame(Value entry) {
  Frame frame;
  frame.rect = read_rect(entry);
  double& width = frame.rect.width;
  double& height = frame.rect.height;
  if (Ref flag = find_entry(entry, {"rotated"_name, "textureRotated"_name})) {
    frame.rotated = flag.is_true();
  }
  Ref sprite = entry.find_item("spriteSize"_name);
  if (frame.rotated && sprite) {
    // Some packers give a rotated rectangle as it lies on the sheet.
    const Point upright = pair_of(sprite);
    if (upright.x == height && upright.y == width) std::swap(width, height);
  }
  Ref source = find_entry(entry, {"sourceSize"_name, "spriteSourceSize"_name});
  frame.source = source ? pair_of(source)
                        : Point{number_at(entry, "originalWidth"_name, width),
                                number_at(entry, "originalHeight"_name, height)};
  Ref offset = find_entry(entry, {"offset"_name, "spriteOffset"_name});
  frame.offset =
      offset ? pair_of(offset)
             : Point{number_at(entry, "offsetX"_name, 0), number_at(entry, "offsetY"_name, 0)};
  return frame;
}

Ref rect_of(const Box& box) {
  auto side = [](double value) { return static_cast<int>(value); };
  Ref make = host::modules::pygame["Rect"_name];
  return make(side(box.left), side(box.top), side(box.width), side(box.height));
}

render::Size plain_size(Value surface) {
  const render::NumberSize size = render::size_of(surface);
  const double width = size.width.to_double();
  return {width, size.height.to_double()};
}

// Cuts frames from a sheet. What a file can demand is bound by what its sheet holds: all frames, as
// large as they were before they were trimmed, may have 16 times its pixels, and 4096 x 4096 more.
// Frames are copies: a script may paint on one without changing the sheet or another.
class Cutter {
 public:
  explicit Cutter(Value sheet)
      : sheet_(sheet),
        size_(plain_size(sheet)),
        pixels_left_(16.0 * size_.width * size_.height + 4096.0 * 4096.0) {}

  Ref cut(const Frame& frame) {
    const auto [left, top, width, height] = frame.rect;
    // A rotated frame lies on its side.
    const Box area{left, top, frame.rotated ? height : width, frame.rotated ? width : height};
    check(area, frame);
    Ref picture = sheet_.call("subsurface"_name, rect_of(area)).call("copy"_name);
    if (frame.rotated) picture = host::modules::transform["rotate"_name](picture, 90);
    const int wide = static_cast<int>(frame.source.x);
    const int high = static_cast<int>(frame.source.y);
    if (wide == width && high == height) return picture;
    Ref whole = render::new_alpha_surface(host::tuple(wide, high));
    whole.call("fill"_name, host::tuple(0, 0, 0, 0));
    render::Canvas(whole).blit(picture, {(frame.source.x - width) / 2 + frame.offset.x,
                                         (frame.source.y - height) / 2 - frame.offset.y});
    return whole;
  }

 private:
  // Only with comparisons that NaN fails, too.
  void check(const Box& area, const Frame& frame) {
    constexpr double kLongestSide = 65535.0;
    auto inside = [](double start, double length, double end) {
      return start >= 0 && length >= 0 && start + length <= end;
    };
    if (!inside(area.left, area.width, size_.width) ||
        !inside(area.top, area.height, size_.height)) {
      host::raise(PyExc_ValueError, "the frame lies outside its sheet");
    }
    if (!inside(0, frame.source.x, kLongestSide) || !inside(0, frame.source.y, kLongestSide) ||
        !std::isfinite(frame.offset.x) || !std::isfinite(frame.offset.y)) {
      host::raise(PyExc_ValueError, "no picture has such a size or offset");
    }
    pixels_left_ -= frame.source.x * frame.source.y;
    if (pixels_left_ < 0) {
      host::raise(PyExc_ValueError, "the frames are far larger than the sheet that holds them");
    }
  }

  Ref sheet_;
  Size size_{};
  double pixels_left_;
};

Ref find_resource(Value file) {
  return resources_for(file).call("GetResPath"_name, file);
}

Ref read_property_list(Value file) {
  Ref path = find_resource(file);
  if (!path.is_set()) host::raise(PyExc_TypeError, "%R is not among the resources", file);
  return parse_property_list(path);
}

// The atlas's own name with the ending of a picture, or else the first name that it gives itself
// and that the resources have.
Ref load_sheet(Value given, Value file, Value atlas) {
  Ref name = host::path_text(given);
  if (!given.is_set()) {
    Ref parts = host::modules::path["splitext"_name](file);
    name = host::joined(parts.item(0), ".png"_name);
    Ref metadata = atlas.find_item("metadata"_name);
    if (metadata && metadata.is_dict() && !find_resource(name).is_set()) {
      for (Value key : {"textureFileName"_name, "realTextureFileName"_name}) {
        Ref other = metadata.find_item(key);
        if (other && other.is_text() && find_resource(other).is_set()) name = other;
      }
    }
  }
  Ref sheet = load_image(name);
  if (sheet.is_set()) return sheet;
  host::raise(PyExc_AttributeError, "the sheet %R of %R could not be loaded", name, file);
}

// The name of an animation, by default of the first.
Ref animation_name(Value given, Value animations) {
  if (given.is_set()) return given;
  if (animations.length() == 0) host::raise(PyExc_ValueError, "there is no animation");
  return host::items(animations)[0];
}

}  // namespace

Ref number_of(Value value) {
  return value.is_text() ? builtins["float"_name](value) : Ref(value);
}

Ref read_animations(Value file) {
  Ref animations = read_property_list(file);
  Ref nested = animations.find_item("animations"_name);
  return nested && nested.is_dict() ? nested : animations;
}

void GUI_Image::LoadImageFramesPList(Value plist_file, Value image_file) {
  Ref file = host::path_text(plist_file);
  Ref contents = read_property_list(file);
  Ref sheet = load_sheet(image_file, file, contents);
  Ref rects = host::dictionary();
  Ref by_name = host::dictionary();
  Ref pictures = host::list();
  host::with_place(file, [&] {
    Ref frames = contents.item("frames"_name);
    if (!frames.is_dict()) host::raise(PyExc_TypeError, "\"frames\" must be a dictionary");
    Cutter cutter(sheet);
    for (const host::Entry& each : host::entries(frames)) {
      host::with_place(host::formatted("frame %R", each.key), [&] {
        const Frame frame = read_frame(each.value);
        Ref picture = cutter.cut(frame);
        rects.set_item(each.key, rect_of(frame.rect));
        by_name.set_item(each.key, picture);
        pictures.append(picture);
      });
    }
  });
  // Only a whole atlas is taken over.
  write(imageFrameRectArray, rects);
  write(atlas_frames, by_name);
  write(plistFile, file);
  set_frames(pictures);
}

void GUI_Image::LoadAnimationPlist(Value plist_file, Value action_name) {
  Ref file = host::path_text(plist_file);
  Ref animations = read_animations(file);
  Ref known = read(atlas_frames);
  Ref frames = host::list();
  Ref name;
  Ref delay;
  host::with_place(file, [&] {
    name = animation_name(action_name, animations);
    Ref entry = animations.item(name);
    host::with_place(host::formatted("animation %R", name), [&] {
      for (Ref frame : host::items(entry.item("frames"_name))) {
        Ref picture = known ? known.find_item(frame) : Ref();
        frames.append(picture ? picture : load_image(frame));
      }
      delay = number_of(entry.item("delay"_name));
    });
  });
  set_frames(frames);
  write(imageSwitchDelay, delay);
  write(currActionName, name);
}

void declare_image_atlas(ImageDeclaration& image) {
  image
      .method<&GUI_Image::LoadImageFramesPList>(
          "LoadImageFramesPList(plistFile: str, imageFile: str | None = None) -> None",
          "Read a frame atlas and make all its frames, in the file's order, the frames.\n\n"
          "`imageFile` is the sheet; by default the atlas's name with \".png\" or, if there is no "
          "such file, the one that the atlas names. Rotated frames are turned back, trimmed ones "
          "placed in their source size. Missing files are a TypeError or AttributeError; malformed "
          "data, frames outside the sheet, and frames of more than 16 times the sheet's pixels and "
          "4096 x 4096 raise errors that name the frame.")
      .method<&GUI_Image::LoadAnimationPlist>(
          "LoadAnimationPlist(plistFile: str, actionName: str | None = None) -> None",
          "Read an animation (the first by default): frame names under \"frames\", seconds per "
          "frame under \"delay\".\n\nNames are looked up in the atlas read last, then as image "
          "files. Raises KeyError for an unknown animation.");
}

}  // namespace tessora
