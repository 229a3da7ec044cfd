#include "engine/host/number.hpp"

namespace tessora::host {

namespace {

constexpr std::int64_t kExactLimit = std::int64_t{1} << 53;
constexpr std::int64_t kFactorLimit = std::int64_t{1} << 31;

bool is_exact(std::int64_t value) noexcept {
  return value >= -kExactLimit && value <= kExactLimit;
}
bool is_factor(std::int64_t value) noexcept {
  return value > -kFactorLimit && value < kFactorLimit;
}

template <class Value>
bool holds(Value left, Value right, int operation) noexcept {
  switch (operation) {
    case Py_LT:
      return left < right;
    case Py_GT:
      return left > right;
    case Py_GE:
      return left >= right;
    default:
      return left == right;
  }
}

}  // namespace

void Number::load(PyObject* value) {
  if (PyLong_CheckExact(value)) {
    int overflow = 0;
    std::int64_t small = PyLong_AsLongLongAndOverflow(value, &overflow);
    if (overflow == 0 && is_exact(small)) {
      kind_ = Kind::kInteger;
      integer_ = small;
      return;
    }
  }
  kind_ = Kind::kObject;
  object_ = Ref::share(value);
}

Number Number::from_integer(std::int64_t value) {
  if (!is_exact(value)) return Number(take(PyLong_FromLongLong(value)));
  Number result(0);
  result.integer_ = value;
  return result;
}

Ref Number::object() const {
  switch (kind_) {
    case Kind::kReal:
      return real(real_);
    case Kind::kInteger:
      return integer(integer_);
    default:
      return object_;
  }
}

Number Number::slow(const Number& other, Operation operation) const {
  if (kind_ == Kind::kInteger && other.kind_ == Kind::kInteger) {
    if (operation == Operation::kAdd) return from_integer(integer_ + other.integer_);
    if (operation == Operation::kSubtract) return from_integer(integer_ - other.integer_);
    if (operation == Operation::kMultiply && is_factor(integer_) && is_factor(other.integer_)) {
      return from_integer(integer_ * other.integer_);
    }
  }
  if (operation == Operation::kDivide && is_plain() && other.is_plain() && other.plain() != 0.0) {
    return plain() / other.plain();
  }
  Ref left = object();
  Ref right = other.object();
  bool foreign = !is_plain() || !other.is_plain();
  if (foreign) script_ran();
  PyObject* result = nullptr;
  switch (operation) {
    case Operation::kAdd:
      result = PyNumber_Add(left.get(), right.get());
      break;
    case Operation::kSubtract:
      result = PyNumber_Subtract(left.get(), right.get());
      break;
    case Operation::kMultiply:
      result = PyNumber_Multiply(left.get(), right.get());
      break;
    case Operation::kDivide:
      result = PyNumber_TrueDivide(left.get(), right.get());
      break;
  }
  if (foreign) script_ran();
  return Number(take(result).get());
}

bool Number::compare(const Number& other, int operation) const {
  if (is_plain() && other.is_plain()) return holds(plain(), other.plain(), operation);
  script_ran();
  Ref result = take(PyObject_RichCompare(object().get(), other.object().get(), operation));
  bool truth = is_true(result);
  script_ran();
  return truth;
}

Ref Number::truncated() const {
  if (kind_ == Kind::kInteger) return integer(integer_);
  if (kind_ == Kind::kReal && std::fabs(real_) < static_cast<double>(kExactLimit)) {
    return integer(static_cast<std::int64_t>(real_));
  }
  Ref value = object();
  return call(reinterpret_cast<PyObject*>(&PyLong_Type), value);
}

}  // namespace tessora::host
