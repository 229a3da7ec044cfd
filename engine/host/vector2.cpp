#include "engine/host/vector2.hpp"

#include <cstring>

#include "engine/host/modules.hpp"

namespace tessora::host {

namespace {

struct VectorType {
  PyTypeObject* type = nullptr;
  ssizeargfunc item = nullptr;
};

// Only a type that scripts cannot change will do; without it every vector is asked by name.
VectorType find_vector_type() {
  Ref found = modules::pygame["math"_name].attr("Vector2"_name);
  if (PyType_Check(found.get()) == 0) return {};
  auto* type = reinterpret_cast<PyTypeObject*>(found.get());
  if (std::strcmp(type->tp_name, "pygame.math.Vector2") != 0) return {};
  if (PyType_HasFeature(type, Py_TPFLAGS_HEAPTYPE) || type->tp_as_sequence == nullptr) return {};
  found.release();
  return {type, type->tp_as_sequence->sq_item};
}

double component(ssizeargfunc item, Value vector, Py_ssize_t index) {
  Ref value = take(item(vector.get(), index));
  return PyFloat_AS_DOUBLE(value.get());
}

}  // namespace

std::optional<Components> plain_vector(Value value) {
  static constinit VectorType vector;
  static constinit bool looked = false;
  if (!looked) {
    vector = find_vector_type();
    looked = true;
  }
  if (vector.item == nullptr || value.type() != vector.type) return std::nullopt;
  return Components{component(vector.item, value, 0), component(vector.item, value, 1)};
}

}  // namespace tessora::host
