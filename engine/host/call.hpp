// Calls into Python, and the clocks that tell when script code may have run.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "engine/host/names.hpp"

namespace tessora::host {

class Number;

// `script` advances whenever control may have been with a script: on every entry from Python and
// after every call of something that is not known to be the library's own code. `state` advances
// then too, and whenever the engine itself writes an attribute. What was computed or verified at a
// given tick holds until the clock moves.
struct Clocks {
  std::uint64_t script = 1;
  std::uint64_t state = 1;
};
inline constinit Clocks clocks;

inline void script_ran() noexcept {
  ++clocks.script;
  ++clocks.state;
}

// Stands around calls that leave the engine. When the interpreter ends, some systems unwind the
// stack of a daemon thread that waits in such a call; unwinding further would free objects without
// the interpreter's lock, so the thread stops here for the rest of the process.
class Outside {
 public:
  Outside() = default;
  ~Outside() {
    // A C++ exception is no such end.
    if (!returned_ && std::uncaught_exceptions() == 0) stop_this_thread();
  }
  Outside(const Outside&) = delete;
  Outside& operator=(const Outside&) = delete;
  void returned() noexcept { returned_ = true; }

 private:
  static void stop_this_thread() noexcept;
  bool returned_ = false;
};

// Calls something of the library's own, in which no script runs.
template <class Body>
auto in_library(Body body) {
  Outside outside;
  auto result = body();
  outside.returned();
  return result;
}

// Calls something in which a script may run.
template <class Body>
auto in_script(Body body) {
  script_ran();
  auto result = in_library(body);
  script_ran();
  return result;
}

// Arguments of calls: values as they are, numbers and texts as new objects.
inline Value argument(Value value) noexcept {
  return value;
}
inline Value argument(PyObject* value) noexcept {
  return value;
}
inline Value argument(std::nullptr_t) noexcept {
  return nullptr;
}
inline Ref argument(int value) {
  return integer(value);
}
inline Ref argument(Py_ssize_t value) {
  return integer(value);
}
inline Ref argument(double value) {
  return real(value);
}
inline Ref argument(const char* value) {
  return text(value);
}
inline Value argument(bool value) noexcept {
  return value;
}
Ref argument(const Number& value);

PyObject* call_array(PyObject* callable, PyObject* const* args, std::size_t count,
                     PyObject* kwnames = nullptr);
PyObject* call_method_array(PyObject* const* receiver_and_args, std::size_t count, PyObject* name,
                            PyObject* kwnames = nullptr);

namespace detail {

// The caller holds the arguments; braces make them in their order. The first place belongs to the
// callee.
template <std::size_t Count>
struct Arguments {
  Ref held[Count + 1];
  [[nodiscard]] std::array<PyObject*, Count + 1> raw() const noexcept {
    std::array<PyObject*, Count + 1> array{};
    for (std::size_t index = 0; index <= Count; ++index) array[index] = held[index].get();
    return array;
  }
};

template <class... Args>
Arguments<sizeof...(Args)> arguments(const Args&... args) {
  return {{Ref(), Ref(argument(args))...}};
}

template <std::size_t Count>
Ref call(bool library, Value callable, const Arguments<Count>& arguments) {
  auto array = arguments.raw();
  auto body = [&] { return call_array(callable.get(), array.data() + 1, Count); };
  return take(library ? in_library(body) : in_script(body));
}

template <std::size_t Count>
Ref call_method(bool library, Value name, const Arguments<Count>& receiver_and_args) {
  auto array = receiver_and_args.raw();
  auto body = [&] { return call_method_array(array.data() + 1, Count, name.get()); };
  return take(library ? in_library(body) : in_script(body));
}

}  // namespace detail

template <class... Args>
Ref Value::operator()(const Args&... args) const {
  return detail::call(false, *this, detail::arguments(args...));
}

template <class... Args>
Ref Value::call(Value name, const Args&... args) const {
  return detail::call_method(false, name, detail::arguments(*this, args...));
}

// For calls of pygame's own functions and methods with pygame's own objects: no script runs in
// them.
template <class... Args>
Ref call_library(Value callable, const Args&... args) {
  return detail::call(true, callable, detail::arguments(args...));
}

template <class... Args>
Ref call_library_method(Value receiver, Value name, const Args&... args) {
  return detail::call_method(true, name, detail::arguments(receiver, args...));
}

// Reads an attribute of one of the library's own objects; empty when it has none of that name.
inline Ref library_attr(Value receiver, Value name) {
  PyObject* result = nullptr;
  check(in_library([&] { return optional_attr(receiver.get(), name.get(), &result); }));
  return Ref::steal(result);
}

// Reads an item of one of the library's own sequences.
inline Ref library_item(Value sequence, Py_ssize_t index) {
  return take(in_library([&] { return PySequence_GetItem(sequence.get(), index); }));
}

// A text as UTF-8; Python's error for what is none.
std::string utf8(Value text);
// Appends how long a text is, how wide its characters are, and these.
void append_characters(std::string& bytes, Value text);

// Calls with the entries of a dictionary as keyword arguments.
Ref call_with_keywords(Value callable, Value keywords);
// Calls a method whose last argument is the keyword argument `keyword`.
Ref call_method_with(Value receiver, Value name, std::initializer_list<Value> args, Value keyword,
                     Value value);

template <class... Items>
Ref tuple(const Items&... items) {
  // Braces keep the order of evaluation.
  const Ref held[] = {Ref(argument(items))...};
  Ref result = take(PyTuple_New(static_cast<Py_ssize_t>(sizeof...(Items))));
  Py_ssize_t index = 0;
  for (const Ref& each : held) PyTuple_SET_ITEM(result.get(), index++, Ref(each).release());
  return result;
}

inline Ref tuple() {
  return take(PyTuple_New(0));
}

template <class... Items>
Ref list(const Items&... items) {
  Ref result = take(PyList_New(0));
  (check(PyList_Append(result.get(), Ref(argument(items)).get())), ...);
  return result;
}

// The place of the first item that equals `item`; ValueError without one.
Py_ssize_t index_of(Value list, Value item);
// How often the item stands in the list.
Py_ssize_t count_of(Value list, Value item);

// A text put together by PyUnicode_FromFormat's placeholders, `%S` for values.
template <class... Args>
Ref formatted(const char* format, const Args&... args) {
  auto plain = [](const auto& arg) {
    if constexpr (std::is_base_of_v<Value, std::decay_t<decltype(arg)>>) {
      return arg.get();
    } else {
      return arg;
    }
  };
  return take(in_script([&] { return PyUnicode_FromFormat(format, plain(args)...); }));
}

// A bytes object with this content.
Ref bytes_object(std::string_view content);

// Texts, joined by `+` as scripts join them.
Ref joined(Value left, Value right);
// The texts of a list, one behind the other.
Ref joined_all(Value texts);
// Puts the items of a list in place of some of another.
void replace_slice(Value list, Py_ssize_t from, Py_ssize_t to, Value items);
// The text so many times.
Ref repeated(Value text, Py_ssize_t times);

// Writes a line to standard output, as the print function does.
void print_line(Value line);

// Lets signal handlers run: loops whose length scripts choose call it now and then.
void check_signals();
// For each step of a loop.
inline void count_step() {
  constexpr unsigned kInterval = 1024;
  static constinit unsigned steps = 0;
  if (++steps % kInterval == 0) [[unlikely]]
    check_signals();
}

}  // namespace tessora::host
