#include "engine/host/getters.hpp"

namespace tessora::host {

std::vector<Ref> getters_of(Value object) {
  std::vector<Ref> getters;
  Ref dict = library_attr(Value(object.type()), "__dict__"_name);
  Ref values = take(PyMapping_Values(dict.get()));
  for (Py_ssize_t index = 0; index < PyList_GET_SIZE(values.get()); ++index) {
    Ref value = values.item(index);
    if (value.type() == &PyGetSetDescr_Type) getters.push_back(value);
  }
  return getters;
}

Ref get_with(Value getter, Value object) {
  PyObject* type = Value(object.type()).get();
  return take(
      in_library([&] { return getter.type()->tp_descr_get(getter.get(), object.get(), type); }));
}

}  // namespace tessora::host
