#include "engine/actions/vectors.hpp"

#include <cstring>

#include "engine/host/modules.hpp"

namespace tessora {

using namespace host::literals;
using host::Number;
using host::Ref;

namespace {

struct Doubles {
  double x, y;
};

Doubles mix(Doubles from, Doubles to, double time) {
  return {from.x * (1 - time) + to.x * time, from.y * (1 - time) + to.y * time};
}

Ref vector_class() {
  return host::get_attr(host::modules::pygame["math"_name], "Vector2"_name);
}

Ref real_lerp(PyObject* from, PyObject* to, const Number& time) {
  return host::call_method(from, "lerp"_name, to, time.object());
}

// pygame's vector type and its accessors, which no script can replace.
class VectorType {
 public:
  VectorType() {
    Ref found = vector_class();
    if (PyType_Check(found.get()) == 0) return;
    type_ = reinterpret_cast<PyTypeObject*>(found.get());
    if (std::strcmp(type_->tp_name, "pygame.math.Vector2") != 0) return;
    if (PyType_HasFeature(type_, Py_TPFLAGS_HEAPTYPE) || type_->tp_as_sequence == nullptr) return;
    item_ = type_->tp_as_sequence->sq_item;
    // Compilers may fuse multiplications with additions: pygame's own result decides whether the
    // same formula, compiled here, gives the same bits.
    mixes_alike_ = item_ != nullptr && mixes_alike();
    found.release();
  }

  [[nodiscard]] bool reads(PyObject* vector) const noexcept {
    return Py_TYPE(vector) == type_ && item_ != nullptr;
  }
  [[nodiscard]] bool mixes(PyObject* vector) const noexcept {
    return Py_TYPE(vector) == type_ && mixes_alike_;
  }
  [[nodiscard]] Doubles read(PyObject* vector) const {
    return {component(vector, 0), component(vector, 1)};
  }

 private:
  [[nodiscard]] double component(PyObject* vector, Py_ssize_t index) const {
    Ref value = host::take(item_(vector, index));
    return PyFloat_AS_DOUBLE(value.get());
  }

  [[nodiscard]] bool mixes_alike() const {
    constexpr int kTrials = 64;
    for (int trial = 1; trial <= kTrials; ++trial) {
      Doubles from{trial / 7.0, -trial * 11.0 / 3.0};
      Doubles to{100.0 / trial, trial * 0.1};
      double time = trial / (kTrials + 3.0);
      Ref start = make_vector(host::real(from.x).get(), host::real(from.y).get());
      Ref end = make_vector(host::real(to.x).get(), host::real(to.y).get());
      Doubles expected = read(real_lerp(start.get(), end.get(), Number(time)).get());
      Doubles mixed = mix(from, to, time);
      if (mixed.x != expected.x || mixed.y != expected.y) return false;
    }
    return true;
  }

  PyTypeObject* type_ = nullptr;
  ssizeargfunc item_ = nullptr;
  bool mixes_alike_ = false;
};

const VectorType& vectors() {
  static const VectorType type;
  return type;
}

bool is_fraction(const Number& time) {
  return time.is_real() && time.plain() >= 0.0 && time.plain() <= 1.0;
}

}  // namespace

Ref make_vector(PyObject* x, PyObject* y) {
  return host::call(vector_class(), x, y);
}

Point components(PyObject* vector) {
  if (vectors().reads(vector)) {
    Doubles values = vectors().read(vector);
    return {values.x, values.y};
  }
  Number x = host::number(host::get_attr(vector, "x"_name));
  return {x, host::number(host::get_attr(vector, "y"_name))};
}

Point lerp(PyObject* from, PyObject* to, const Number& time) {
  if (vectors().mixes(from) && vectors().mixes(to) && is_fraction(time)) {
    Doubles mixed = mix(vectors().read(from), vectors().read(to), time.plain());
    return {mixed.x, mixed.y};
  }
  return components(real_lerp(from, to, time).get());
}

Point lerp_from_origin(PyObject* to, const Number& time) {
  if (vectors().mixes(to) && is_fraction(time)) {
    Doubles mixed = mix({0.0, 0.0}, vectors().read(to), time.plain());
    return {mixed.x, mixed.y};
  }
  Ref zero = host::integer(0);
  Ref origin = make_vector(zero.get(), zero.get());
  return components(real_lerp(origin.get(), to, time).get());
}

}  // namespace tessora
