// Breaking a text into lines by width: behind spaces where there are any, and at line breaks.
#pragma once

#include "engine/gui/text_ruler.hpp"
#include "engine/host/characters.hpp"

namespace tessora {

// Lines keep their spaces and line breaks: joined, they are the text. A text that ends in a line
// break has an empty last line, an empty text none.
class LineBreaks {
 public:
  // The label and the text must outlive this.
  LineBreaks(GUI_Label& label, Value text, double room);

  // Appends the lines from a place on; `is_enough`, asked after each with the place where the next
  // one begins, ends it early. Returns where it ended.
  template <class Enough>
  Py_ssize_t append_lines(Py_ssize_t from, Value lines, Enough is_enough);
  [[nodiscard]] const host::Characters& characters() const noexcept { return characters_; }

 private:
  Py_ssize_t line_end(Py_ssize_t from);

  Value text_;
  TextRuler ruler_;
  host::Characters characters_;
  double room_;
  Py_ssize_t paragraph_end_ = -1;
  Py_ssize_t guess_ = 32;  // characters in a line
};

template <class Enough>
Py_ssize_t LineBreaks::append_lines(Py_ssize_t from, Value lines, Enough is_enough) {
  const Py_ssize_t length = characters_.length();
  while (from < length) {
    const Py_ssize_t end = line_end(from);
    lines.append(text_.slice(from, end));
    from = end;
    host::count_step();
    if (from < length && is_enough(from)) return from;
  }
  if (length > 0 && characters_[length - 1] == U'\n') lines.append(text_.slice(length, length));
  return length;
}

// How the lines of a text that was changed differ from those it had: new ones stand in place of
// some. The work goes with what changed.
struct RowPlace {
  Py_ssize_t row, start;  // `start` is where it begins in the text
};
struct LineChange {
  RowPlace first;
  Py_ssize_t last;  // rows from the first up to here are replaced
  Ref lines;
};
// `near` is some row of the old lines.
LineChange changed_lines(LineBreaks& breaks, const host::Characters& old, Value old_lines,
                         RowPlace near);

// The row in which a place of the text lies; the last one at its end.
RowPlace row_of(Value lines, Py_ssize_t place, RowPlace near);

}  // namespace tessora
