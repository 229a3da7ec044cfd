#include "engine/gui/line_breaks.hpp"

#include <algorithm>

namespace tessora {

namespace {

// Where a line may be broken; spaces that are meant to hold words together are none.
bool is_gap(char32_t character) {
  constexpr char32_t kFigureSpace = 0x2007;
  return character == U' ' || character == U'\t' || character == 0x3000 ||
         (character >= 0x2000 && character <= 0x200A && character != kFigureSpace);
}

bool ends_paragraph(Value line) {
  const host::Characters characters(line);
  const Py_ssize_t length = characters.length();
  return length > 0 && characters[length - 1] == U'\n';
}

}  // namespace

LineBreaks::LineBreaks(GUI_Label& label, Value text, double room)
    : text_(text), ruler_(label, text), characters_(text), room_(room) {}

Py_ssize_t LineBreaks::line_end(Py_ssize_t from) {
  if (from > paragraph_end_) paragraph_end_ = characters_.find(U'\n', from);
  const Py_ssize_t behind = std::min(paragraph_end_ + 1, characters_.length());
  // A line has at least one character, however narrow it is.
  const Py_ssize_t fitting =
      std::max(from + 1, ruler_.last_fitting(from, paragraph_end_, room_, guess_));
  if (fitting >= paragraph_end_) return behind;
  guess_ = fitting - from;
  Py_ssize_t end = fitting;
  // Spaces hang over the edge.
  while (end < paragraph_end_ && is_gap(characters_[end])) ++end;
  if (end > fitting) return end == paragraph_end_ ? behind : end;
  while (end > from && !is_gap(characters_[end - 1])) --end;
  return end > from ? end : fitting;
}

RowPlace row_of(Value lines, Py_ssize_t place, RowPlace near) {
  const Py_ssize_t count = lines.length();
  auto length = [&](Py_ssize_t row) { return lines.item(row).length(); };
  if (near.row >= count) near = {0, 0};
  while (near.row > 0 && near.start > place) near.start -= length(--near.row);
  while (near.row + 1 < count) {
    const Py_ssize_t next = near.start + length(near.row);
    if (next > place) break;
    near = {near.row + 1, next};
  }
  return near;
}

LineChange changed_lines(LineBreaks& breaks, const host::Characters& old, Value old_lines,
                         RowPlace near) {
  const host::Characters& now = breaks.characters();
  const Py_ssize_t count = old_lines.length();
  const Py_ssize_t same = now.common_begin(old);
  const Py_ssize_t shorter = std::min(now.length(), old.length());
  const Py_ssize_t same_end = now.common_end(old, shorter - same);
  RowPlace first = row_of(old_lines, same, near);
  // The line before may have room for what begins this one now.
  if (first.row > 0) {
    Ref before = old_lines.item(first.row - 1);
    if (!ends_paragraph(before)) first = {first.row - 1, first.start - before.length()};
  }
  const Py_ssize_t moved = now.length() - old.length();
  RowPlace next = first;
  auto is_as_before = [&](Py_ssize_t place) {
    if (place < now.length() - same_end) return false;
    while (next.row < count && next.start < place - moved) {
      next.start += old_lines.item(next.row++).length();
    }
    return next.row < count && next.start == place - moved;
  };
  Ref lines = host::list();
  const Py_ssize_t end = breaks.append_lines(first.start, lines, is_as_before);
  return {first, end < now.length() ? next.row : count, lines};
}

}  // namespace tessora
