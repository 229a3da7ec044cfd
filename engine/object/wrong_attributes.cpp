#include "engine/object/wrong_attributes.hpp"

#include <algorithm>
#include <string_view>

#include "engine/host/caught.hpp"
#include "engine/host/modules.hpp"

namespace tessora::host {

namespace {

bool comes_from_script() {
#if PY_VERSION_HEX >= 0x030C0000
  Ref error = Ref::steal(PyErr_GetRaisedException());
  Ref trace = Ref::steal(PyException_GetTraceback(error.get()));
  PyErr_SetRaisedException(error.release());
  return static_cast<bool>(trace);
#else
  PyObject* type = nullptr;
  PyObject* value = nullptr;
  PyObject* trace = nullptr;
  PyErr_Fetch(&type, &value, &trace);
  PyErr_Restore(type, value, trace);
  return trace != nullptr;
#endif
}

bool is_about_types() {
  PyObject* const types[] = {PyExc_TypeError, PyExc_ValueError, PyExc_AttributeError};
  auto is_pending = [](PyObject* type) { return PyErr_ExceptionMatches(type) != 0; };
  return std::ranges::any_of(types, is_pending);
}

bool is_color(Value value) {
  Ref type = modules::pygame["Color"_name];
  return !caught(PyExc_Exception, [&] { type(value); });
}

bool fits(Value value, std::string_view type) {
  if (type == "None") return value.is_none();
  if (type == "str") return value.is_text();
  if (type == "float" || type == "int") return PyNumber_Check(value.get()) != 0;
  if (type == "pygame.Color") return is_color(value);
  if (type == "pygame.Surface") return static_cast<bool>(value.find_attr("get_rect"_name));
  if (type == "pygame.font.Font") return static_cast<bool>(value.find_attr("render"_name));
  return true;
}

bool fits_one_of(Value value, std::string_view types) {
  constexpr std::string_view kOr = " | ";
  for (;;) {
    const auto end = types.find(kOr);
    if (fits(value, types.substr(0, end))) return true;
    if (end == std::string_view::npos) return false;
    types.remove_prefix(end + kOr.size());
  }
}

// "alpha is 'clear'", or an empty reference.
Ref wrong_attributes(Object& owner) {
  Ref found;
  for (const Attribute& attribute : type_record(Py_TYPE(&owner)).engine_class->attributes) {
    if (owner.is_unset(attribute.slot(&owner))) continue;
    Ref value = Value(owner).attr(attribute.name);
    if (fits_one_of(value, attribute.type)) continue;
    Ref words = formatted("%s is %.80R", attribute.chars, value);
    found = found ? formatted("%S, %S", found, words) : words;
  }
  return found;
}

}  // namespace

void raise_naming_attributes(Object& owner) {
  if (!is_about_types() || comes_from_script()) throw HostError();
  Ref error = take_error();
  Ref wrong;
  const Ref failure = caught(PyExc_Exception, [&] { wrong = wrong_attributes(owner); });
  PyErr_SetObject(reinterpret_cast<PyObject*>(error.type()), error.get());
  if (failure || !wrong) throw HostError();
  raise_with_place(wrong);
}

}  // namespace tessora::host
