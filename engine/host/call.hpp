// Calls into the host, and the clocks that tell when script code may have run.
#pragma once

#include <cstdint>

#include "engine/host/names.hpp"

namespace tessora::host {

// `script` advances whenever control may have been with a script: on every entry from the host and
// after every call of something that is not known to be the host library's own code. `state`
// advances then too, and whenever the engine itself writes an attribute. What was computed or
// verified at a given tick holds until the clock moves.
struct Clocks {
  std::uint64_t script = 1;
  std::uint64_t state = 1;
};
inline constinit Clocks clocks;

inline void script_ran() noexcept {
  ++clocks.script;
  ++clocks.state;
}

Ref call_array(PyObject* callable, PyObject* const* args, std::size_t count,
               PyObject* kwnames = nullptr);
Ref call_method_array(PyObject* const* receiver_and_args, std::size_t count, PyObject* name,
                      PyObject* kwnames = nullptr);

template <class Callable, class... Args>
Ref call(const Callable& callable, const Args&... args) {
  PyObject* array[sizeof...(Args) + 2] = {nullptr, raw(args)...};
  script_ran();
  Ref result = call_array(raw(callable), array + 1, sizeof...(Args));
  script_ran();
  return result;
}

template <class Receiver, class... Args>
Ref call_method(const Receiver& receiver, PyObject* name, const Args&... args) {
  PyObject* array[sizeof...(Args) + 2] = {nullptr, raw(receiver), raw(args)...};
  script_ran();
  Ref result = call_method_array(array + 1, sizeof...(Args) + 1, name);
  script_ran();
  return result;
}

// For calls of pygame's own functions and methods with pygame's own objects: no script runs in
// them.
template <class Callable, class... Args>
Ref call_library(const Callable& callable, const Args&... args) {
  PyObject* array[sizeof...(Args) + 2] = {nullptr, raw(args)...};
  return call_array(raw(callable), array + 1, sizeof...(Args));
}

template <class Receiver, class... Args>
Ref call_library_method(const Receiver& receiver, PyObject* name, const Args&... args) {
  PyObject* array[sizeof...(Args) + 2] = {nullptr, raw(receiver), raw(args)...};
  return call_method_array(array + 1, sizeof...(Args) + 1, name);
}

Ref get_attr(PyObject* object, PyObject* name);
inline Ref get_attr(const Ref& object, PyObject* name) {
  return get_attr(object.get(), name);
}
void set_attr(PyObject* object, PyObject* name, PyObject* value);

// The attribute, or an empty reference when the object has none of that name.
Ref find_attr(PyObject* object, PyObject* name);

bool is_true(PyObject* value);
// The engine's flag tests: `value == True`, `value == False`, `value != None`.
bool equals_true(PyObject* value);
bool equals_false(PyObject* value);
bool is_set(PyObject* value);
inline bool is_true(const Ref& value) {
  return is_true(value.get());
}
inline bool equals_true(const Ref& value) {
  return equals_true(value.get());
}
inline bool equals_false(const Ref& value) {
  return equals_false(value.get());
}
inline bool is_set(const Ref& value) {
  return is_set(value.get());
}

// The host's `==`.
bool equals(PyObject* left, PyObject* right);
inline bool is_text(PyObject* value, PyObject* name) {
  return value == name || equals(value, name);
}

// Item `key` of a mapping or sequence; the host's error when there is none.
Ref get_item(PyObject* container, PyObject* key);
void set_item(PyObject* container, PyObject* key, PyObject* value);
void del_item(PyObject* container, PyObject* key);
bool contains(PyObject* container, PyObject* item);
Py_ssize_t length(PyObject* container);

// Writes a line to the host's standard output, as its print function does.
void print_line(PyObject* text);
inline void print_line(const Ref& line) {
  print_line(line.get());
}

}  // namespace tessora::host
