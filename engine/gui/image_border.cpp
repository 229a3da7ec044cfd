// Borders and outlines of a widget.
#include "engine/gui/image.hpp"

namespace tessora {

namespace {

constexpr int kFocusWidth = 2;

Ref point(const Number& px, const Number& py) {
  return host::tuple(px.object(), py.object());
}

void line(PyObject* screen, const Ref& color, const Number& from_x, const Number& from_y,
          const Number& to_x, const Number& to_y, int thickness) {
  host::call(host::modules::draw["line"_name], screen, color, point(from_x, from_y),
             point(to_x, to_y), host::integer(thickness));
}

struct Box {
  Number left, top, width, height;
};

// One-pixel lines inside the box; the right and bottom edges own the shared corners.
void draw_relief(PyObject* screen, const Box& box, int thickness, const Ref& left_top,
                 const Ref& right_bottom) {
  Number right = box.left + box.width - Number(1);
  Number bottom = box.top + box.height - Number(1);
  for (int inset = 0; inset < thickness; ++inset) {
    Number step(inset);
    line(screen, left_top, box.left + step, box.top, box.left + step, bottom, 1);
    line(screen, left_top, box.left, box.top + step, right, box.top + step, 1);
  }
  for (int inset = 0; inset < thickness; ++inset) {
    Number step(inset);
    line(screen, right_bottom, right - step, box.top, right - step, bottom, 1);
    line(screen, right_bottom, box.left, bottom - step, right, bottom - step, 1);
  }
}

// What a border can hold in pixels: more lines than that would draw nothing new.
int border_pixels(GUI_Image& widget) {
  constexpr int kMost = 4096;
  Number given = widget.number(widget.borderwidth);
  if (!(given > Number(0))) return 0;
  if (given > Number(kMost)) return kMost;
  return static_cast<int>(PyLong_AsLong(given.truncated().get()));
}

void draw_border(GUI_Image& widget, PyObject* screen, const Box& box) {
  int thickness = border_pixels(widget);
  // Zero would fill the rectangle instead of outlining it.
  if (thickness == 0) return;
  Ref style = widget.read(widget.style);
  if (host::is_text(style.get(), "solid"_name)) {
    Ref rect =
        host::tuple(box.left.object(), box.top.object(), box.width.object(), box.height.object());
    host::call(host::modules::draw["rect"_name], screen, widget.read(widget.borderColor), rect,
               host::integer(thickness));
  } else if (host::is_text(style.get(), "raised"_name)) {
    draw_relief(screen, box, thickness, widget.read(widget.borderColor_LT),
                widget.read(widget.borderColor_RB));
  } else if (host::is_text(style.get(), "sunken"_name)) {
    draw_relief(screen, box, thickness, widget.read(widget.borderColor_RB),
                widget.read(widget.borderColor_LT));
  }
}

// A colour that none of the border's colours equals, to become transparent.
Ref key_color(GUI_Image& widget) {
  Ref make = host::modules::pygame["Color"_name];
  const Ref used[] = {widget.read(widget.borderColor), widget.read(widget.borderColor_LT),
                      widget.read(widget.borderColor_RB)};
  for (int blue = 0;; ++blue) {
    Ref candidate = host::call(make, host::integer(0), host::integer(0), host::integer(blue));
    bool taken = false;
    for (const Ref& color : used) {
      Ref solid = host::call(make, color);
      host::set_attr(solid.get(), "a"_name, host::integer(255).get());
      taken = taken || host::equals(solid.get(), candidate.get());
    }
    if (!taken) return candidate;
  }
}

Ref unscaled_size(GUI_Image& widget) {
  return host::tuple(widget.number(widget.width).truncated(),
                     widget.number(widget.height).truncated());
}

}  // namespace

void GUI_Image::drawStyle(PyObject* screen) {
  if (!is_true(borderVisible) || !is_visible(this)) return;
  Ref kind = read(style);
  if (host::is_text(kind.get(), "flat"_name) || host::is_text(kind.get(), "hollow"_name)) return;
  if (number(WAngle) == Number(0)) {
    draw_border(
        *this, screen,
        {number(WX), number(WY), number(width) * number(WSX), number(height) * number(WSY)});
    return;
  }
  Ref key = key_color(*this);
  Ref sheet = host::call(host::modules::pygame["Surface"_name], unscaled_size(*this));
  host::call_method(sheet, "fill"_name, key);
  host::call_method(sheet, "set_colorkey"_name, key, host::modules::pygame["SRCCOLORKEY"_name]);
  draw_border(*this, sheet.get(), {Number(0), Number(0), number(width), number(height)});
  // A rotation drops the colour key; per-pixel alpha survives it.
  blit_rotated(screen, host::call_method(sheet, "convert_alpha"_name));
}

void GUI_Image::drawFocusBorder(PyObject* screen) {
  if (!is_true(focusIn)) return;
  Ref color = host::engine_value("g_pygameControl_BorderColor"_name);
  if (number(WAngle) == Number(0)) {
    host::call(host::modules::draw["rect"_name], screen, color, drawn_box(),
               host::integer(kFocusWidth));
    return;
  }
  Ref sheet = render::new_alpha_surface(unscaled_size(*this));
  Ref zero = host::integer(0);
  host::call_method(sheet, "fill"_name, host::tuple(zero, zero, zero, zero));
  Number right = number(width) - Number(kFocusWidth);
  Number bottom = number(height) - Number(kFocusWidth);
  Number start(0);
  line(sheet.get(), color, start, start, number(width), start, kFocusWidth);
  line(sheet.get(), color, start, start, start, number(height), kFocusWidth);
  line(sheet.get(), color, right, start, right, number(height), kFocusWidth);
  line(sheet.get(), color, start, bottom, number(width), bottom, kFocusWidth);
  blit_rotated(screen, sheet);
}

void GUI_Image::drawCollInfo(PyObject* screen) {
  if (!is_true(coll_visible) || is_default(coll_rectArray)) return;
  Ref color = host::engine_value("g_pygameControl_CollColor"_name);
  Ref lists =
      host::take(PySequence_List(host::call_method(read(coll_rectArray), "values"_name).get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(lists.get()); ++index) {
    Ref rects = host::take(PySequence_List(PyList_GET_ITEM(lists.get(), index)));
    for (Py_ssize_t each = 0; each < PyList_GET_SIZE(rects.get()); ++each) {
      Ref rect = Ref::share(PyList_GET_ITEM(rects.get(), each));
      auto side = [&](int which) {
        return host::number(host::get_item(rect.get(), host::integer(which).get()));
      };
      Ref box = host::tuple((number(WX) + side(0) * number(WSX)).object(),
                            (number(WY) + side(1) * number(WSY)).object(),
                            (side(2) * number(WSX)).object(), (side(3) * number(WSY)).object());
      host::call(host::modules::draw["rect"_name], screen, color, box, host::integer(1));
    }
  }
}

}  // namespace tessora
