// Measuring parts of a text as a label displays them.
#pragma once

#include "engine/gui/label.hpp"

namespace tessora {

class TextRuler {
 public:
  // The label and the text must outlive the ruler.
  TextRuler(GUI_Label& label, Value text);

  [[nodiscard]] Py_ssize_t length() const noexcept { return length_; }
  // Pixels.
  double width(Py_ssize_t from, Py_ssize_t to);
  double height();
  // How far from `from`, at most to `limit`, the text is no wider than `room`; `guess` is how many
  // characters that may be. Costs as much as what it finds is long.
  Py_ssize_t last_fitting(Py_ssize_t from, Py_ssize_t limit, double room, Py_ssize_t guess);
  // The same backwards from `to`, at most to `limit`.
  Py_ssize_t first_fitting(Py_ssize_t to, Py_ssize_t limit, double room, Py_ssize_t guess);
  // The place from `from` to `to` that is nearest to `x` pixels right of `from`.
  Py_ssize_t nearest(Py_ssize_t from, Py_ssize_t to, double x);

 private:
  GUI_Label& label_;
  Value text_;
  Ref font_;
  Py_ssize_t length_;
};

}  // namespace tessora
