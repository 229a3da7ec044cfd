// Numbers as scripts see them: machine arithmetic where it gives what the host's would, the host's
// own for everything else, so that ints stay ints and wrong types fail with the host's errors.
#pragma once

#include <cstdint>

#include "engine/host/call.hpp"

namespace tessora::host {

class Number {
 public:
  Number(double value) noexcept : real_(value) {}  // NOLINT(google-explicit-constructor)
  Number(int value) noexcept : kind_(Kind::kInteger), integer_(value) {}  // NOLINT
  explicit Number(PyObject* value) {
    double small = 0.0;
    if (!small_number(value, small)) {
      load(value);
    } else if (PyFloat_CheckExact(value)) {
      real_ = small;
    } else {
      kind_ = Kind::kInteger;
      integer_ = static_cast<std::int64_t>(small);
    }
  }

  // The value as a double when it is an exact float or a small int.
  [[nodiscard]] bool is_plain() const noexcept { return kind_ != Kind::kObject; }
  [[nodiscard]] bool is_real() const noexcept { return kind_ == Kind::kReal; }
  [[nodiscard]] double plain() const noexcept {
    return kind_ == Kind::kReal ? real_ : static_cast<double>(integer_);
  }
  [[nodiscard]] Ref object() const;

  friend Number operator+(const Number& left, const Number& right) {
    if (left.mixes_as_real(right)) return left.plain() + right.plain();
    return left.slow(right, Operation::kAdd);
  }
  friend Number operator-(const Number& left, const Number& right) {
    if (left.mixes_as_real(right)) return left.plain() - right.plain();
    return left.slow(right, Operation::kSubtract);
  }
  friend Number operator*(const Number& left, const Number& right) {
    if (left.mixes_as_real(right)) return left.plain() * right.plain();
    return left.slow(right, Operation::kMultiply);
  }
  // True division.
  friend Number operator/(const Number& left, const Number& right) {
    return left.slow(right, Operation::kDivide);
  }
  friend bool operator<(const Number& left, const Number& right) {
    return left.compare(right, Py_LT);
  }
  friend bool operator>(const Number& left, const Number& right) {
    return left.compare(right, Py_GT);
  }
  friend bool operator>=(const Number& left, const Number& right) {
    return left.compare(right, Py_GE);
  }
  friend bool operator==(const Number& left, const Number& right) {
    return left.compare(right, Py_EQ);
  }

  // What int() gives, as a host integer.
  [[nodiscard]] Ref truncated() const;

 private:
  enum class Kind : std::uint8_t { kReal, kInteger, kObject };
  enum class Operation : std::uint8_t { kAdd, kSubtract, kMultiply, kDivide };

  explicit Number(Ref value) noexcept : kind_(Kind::kObject), object_(std::move(value)) {}
  static Number from_integer(std::int64_t value);

  void load(PyObject* value);
  // One operand is a float and none is a foreign object: the host computes with doubles too.
  [[nodiscard]] bool mixes_as_real(const Number& other) const noexcept {
    return (kind_ == Kind::kReal && other.kind_ != Kind::kObject) ||
           (other.kind_ == Kind::kReal && kind_ != Kind::kObject);
  }
  [[nodiscard]] Number slow(const Number& other, Operation operation) const;
  [[nodiscard]] bool compare(const Number& other, int operation) const;

  Kind kind_ = Kind::kReal;
  union {
    double real_ = 0.0;
    std::int64_t integer_;  // at most 2**53 in size, so that plain() is exact
  };
  Ref object_;
};

inline Number number(PyObject* value) {
  return Number(value);
}
inline Number number(const Ref& value) {
  return Number(value.get());
}

// A position or size as pygame reads it for a rectangle: cut towards zero. False when the value is
// not a plain number in range; pygame itself must then say what it makes of it.
inline bool rect_integer(const Number& value, int& result) noexcept {
  if (!value.is_plain()) return false;
  double plain = value.plain();
  if (!(plain > -2147483648.0 && plain < 2147483648.0)) return false;
  result = static_cast<int>(plain);
  return true;
}

}  // namespace tessora::host
