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

void Number::load(Value value) {
  if (value.is_plain_integer()) {
    int overflow = 0;
    std::int64_t small = PyLong_AsLongLongAndOverflow(value.get(), &overflow);
    if (overflow == 0 && is_exact(small)) {
      kind_ = Kind::kInteger;
      integer_ = small;
      return;
    }
  }
  kind_ = Kind::kObject;
  object_ = value;
}

Number Number::from_integer(std::int64_t value) {
  if (!is_exact(value)) return integer(value);
  Number result(0);
  result.integer_ = value;
  return result;
}

double Number::to_double() const {
  if (kind_ != Kind::kObject) return machine();
  double result = in_script([&] { return PyFloat_AsDouble(object_.get()); });
  if (result == -1.0 && PyErr_Occurred() != nullptr) throw HostError();
  return result;
}

std::optional<std::int64_t> Number::whole() const {
  constexpr double kLimit = 9007199254740992.0;
  if (kind_ == Kind::kInteger) return integer_;
  if (kind_ == Kind::kReal) {
    if (!(real_ >= -kLimit && real_ <= kLimit) || std::trunc(real_) != real_) return std::nullopt;
    return static_cast<std::int64_t>(real_);
  }
  Ref cut = PyIndex_Check(object_.get()) != 0
                ? take(in_script([&] { return PyNumber_Index(object_.get()); }))
                : truncated();
  int overflow = 0;
  const std::int64_t result = PyLong_AsLongLongAndOverflow(cut.get(), &overflow);
  if (overflow != 0 || !(*this == Number(cut))) return std::nullopt;
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
  bool foreign = !is_plain() || !other.is_plain();
  if (operation == Operation::kDivide && !foreign && other.machine() != 0.0) {
    return machine() / other.machine();
  }
  Ref left = object();
  Ref right = other.object();
  auto compute = [&]() -> PyObject* {
    switch (operation) {
      case Operation::kAdd:
        return PyNumber_Add(left.get(), right.get());
      case Operation::kSubtract:
        return PyNumber_Subtract(left.get(), right.get());
      case Operation::kMultiply:
        return PyNumber_Multiply(left.get(), right.get());
      case Operation::kRemainder:
        return PyNumber_Remainder(left.get(), right.get());
      default:
        return PyNumber_TrueDivide(left.get(), right.get());
    }
  };
  return take(foreign ? in_script(compute) : compute());
}

bool Number::compare(const Number& other, int operation) const {
  if (is_plain() && other.is_plain()) return holds(machine(), other.machine(), operation);
  Ref left = object();
  Ref right = other.object();
  auto body = [&] { return PyObject_RichCompare(left.get(), right.get(), operation); };
  Ref result = take(in_script(body));
  return result.is_true();
}

Ref Number::truncated() const {
  if (kind_ == Kind::kInteger) return integer(integer_);
  if (kind_ == Kind::kReal && std::fabs(real_) < static_cast<double>(kExactLimit)) {
    return integer(static_cast<std::int64_t>(real_));
  }
  return Value(&PyLong_Type)(*this);
}

std::int64_t library_integer(Value value) {
  double small = 0.0;
  if (value.is_plain_integer() && small_number(value.get(), small)) {
    return static_cast<std::int64_t>(small);
  }
  Ref whole = take(PyNumber_Long(value.get()));
  std::int64_t result = PyLong_AsLongLong(whole.get());
  if (result == -1 && PyErr_Occurred() != nullptr) throw HostError();
  return result;
}

}  // namespace tessora::host
