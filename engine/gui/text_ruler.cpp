#include "engine/gui/text_ruler.hpp"

#include <algorithm>

#include "engine/host/fonts.hpp"
#include "engine/render/font_state.hpp"

namespace tessora {

namespace {

// The largest count up to `most` for which `fits` holds, which then holds for all smaller ones, and
// which is taken to hold for 0. Looks near the guess first.
template <class Fits>
Py_ssize_t largest(Py_ssize_t most, Py_ssize_t guess, Fits fits) {
  if (most <= 0) return 0;
  Py_ssize_t low = 0;
  Py_ssize_t high = most + 1;
  Py_ssize_t probe = std::clamp<Py_ssize_t>(guess, 1, most);
  Py_ssize_t step = std::max<Py_ssize_t>(1, probe / 16);
  while (high - low > 1) {
    (fits(probe) ? low : high) = probe;
    if (low == 0) {
      probe = std::max<Py_ssize_t>(1, high - step);
    } else if (high > most) {
      probe = std::min(most, low + step);
    } else {
      probe = low + (high - low) / 2;
      continue;
    }
    step *= 2;
  }
  return low;
}

}  // namespace

TextRuler::TextRuler(GUI_Label& label, Value text)
    : label_(label), text_(text), font_(label.read(label.font)), length_(text.length()) {
  host::check_font(font_);
}

double TextRuler::width(Py_ssize_t from, Py_ssize_t to) {
  if (from >= to) return 0.0;
  Ref shown = label_.displayed(text_.slice(from, to));
  return render::text_size(font_, shown).width;
}

double TextRuler::height() {
  return render::text_size(font_, ""_name).height;
}

Py_ssize_t TextRuler::last_fitting(Py_ssize_t from, Py_ssize_t limit, double room,
                                   Py_ssize_t guess) {
  auto fits = [&](Py_ssize_t count) { return width(from, from + count) <= room; };
  return from + largest(limit - from, guess, fits);
}

Py_ssize_t TextRuler::first_fitting(Py_ssize_t to, Py_ssize_t limit, double room,
                                    Py_ssize_t guess) {
  auto fits = [&](Py_ssize_t count) { return width(to - count, to) <= room; };
  return to - largest(to - limit, guess, fits);
}

Py_ssize_t TextRuler::nearest(Py_ssize_t from, Py_ssize_t to, double x) {
  if (!(x > 0.0)) return from;
  const Py_ssize_t before = last_fitting(from, to, x, (to - from) / 2);
  if (before == to) return to;
  const double left = x - width(from, before);
  const double right = width(from, before + 1) - x;
  return right < left ? before + 1 : before;
}

}  // namespace tessora
