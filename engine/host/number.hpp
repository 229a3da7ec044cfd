// Numbers as scripts see them: machine arithmetic where it gives what Python's would, Python's own
// for everything else, so that ints stay ints and wrong types fail with Python's errors.
#pragma once

#include <concepts>
#include <cstdint>
#include <optional>

#include "engine/host/call.hpp"

namespace tessora::host {

class Number {
 public:
  // NOLINTBEGIN(google-explicit-constructor): formulas mix numbers of all kinds
  Number(double value) noexcept : real_(value) {}
  Number(int value) noexcept : kind_(Kind::kInteger), integer_(value) {}
  Number(Py_ssize_t value) : Number(from_integer(value)) {}
  Number(Value value) {
    double small = 0.0;
    if (!small_number(value.get(), small)) {
      load(value);
    } else if (value.is_plain_real()) {
      real_ = small;
    } else {
      kind_ = Kind::kInteger;
      integer_ = static_cast<std::int64_t>(small);
    }
  }
  Number(const Ref& value) : Number(Value(value)) {}
  // NOLINTEND(google-explicit-constructor)

  // Neither an int of more than 53 bits nor of a type that Python's own arithmetic must handle.
  [[nodiscard]] bool is_plain() const noexcept { return kind_ != Kind::kObject; }
  [[nodiscard]] bool is_real() const noexcept { return kind_ == Kind::kReal; }
  // The value of a plain number.
  [[nodiscard]] std::optional<double> plain() const noexcept {
    if (kind_ == Kind::kReal) return real_;
    if (kind_ == Kind::kInteger) return static_cast<double>(integer_);
    return std::nullopt;
  }
  // The value as a double, as float() gives it; Python's error for what is no number.
  [[nodiscard]] double to_double() const;
  // The value of a number that is whole, or nothing.
  [[nodiscard]] std::optional<std::int64_t> whole() const;
  [[nodiscard]] Ref object() const;
  // What int() gives, as a Python integer.
  [[nodiscard]] Ref truncated() const;

  friend Number operator+(const Number& left, const Number& right) {
    if (left.mixes_as_real(right)) return left.machine() + right.machine();
    return left.slow(right, Operation::kAdd);
  }
  friend Number operator-(const Number& left, const Number& right) {
    if (left.mixes_as_real(right)) return left.machine() - right.machine();
    return left.slow(right, Operation::kSubtract);
  }
  friend Number operator*(const Number& left, const Number& right) {
    if (left.mixes_as_real(right)) return left.machine() * right.machine();
    return left.slow(right, Operation::kMultiply);
  }
  // True division.
  friend Number operator/(const Number& left, const Number& right) {
    return left.slow(right, Operation::kDivide);
  }
  // Python's remainder.
  friend Number operator%(const Number& left, const Number& right) {
    return left.slow(right, Operation::kRemainder);
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

 private:
  enum class Kind : std::uint8_t { kReal, kInteger, kObject };
  enum class Operation : std::uint8_t { kAdd, kSubtract, kMultiply, kDivide, kRemainder };

  static Number from_integer(std::int64_t value);
  void load(Value value);
  [[nodiscard]] double machine() const noexcept {
    return kind_ == Kind::kReal ? real_ : static_cast<double>(integer_);
  }
  // One operand is a float and none is a foreign object: Python computes with doubles too.
  [[nodiscard]] bool mixes_as_real(const Number& other) const noexcept {
    return (kind_ == Kind::kReal && other.kind_ != Kind::kObject) ||
           (other.kind_ == Kind::kReal && kind_ != Kind::kObject);
  }
  [[nodiscard]] Number slow(const Number& other, Operation operation) const;
  [[nodiscard]] bool compare(const Number& other, int operation) const;

  Kind kind_ = Kind::kReal;
  union {
    double real_ = 0.0;
    std::int64_t integer_;  // at most 2**53 in size, so that it is exact as a double
  };
  Ref object_;
};

// The value of a float or of an int of less than 30 bits.
inline bool plain_number(Value number, double& value) {
  return small_number(number.get(), value);
}

inline Ref argument(const Number& value) {
  return value.object();
}

// Formulas. Reading an attribute and sending a message can reach scripts, and C++ leaves open which
// operand of `a * b` is computed first. So a formula over such operands is a Term: it is computed
// when a Number is made of it, its operands from left to right, as it stands.
template <class T>
concept Term = requires(const T& term) {
  typename T::IsTerm;
  { term.value() } -> std::same_as<Number>;
};

template <class T>
concept Operand = Term<T> || std::convertible_to<T, Number>;

namespace detail {

struct Constant {
  using IsTerm = void;
  Number number;
  [[nodiscard]] Number value() const { return number; }
};

template <Term T>
T term(const T& given) {
  return given;
}
template <class T>
  requires(!Term<T>)
Constant term(const T& given) {
  return {Number(given)};
}

template <class Left, class Right, class Operation>
struct Binary {
  using IsTerm = void;
  Left left;
  Right right;
  [[nodiscard]] Number value() const {
    Number first = left.value();
    Number second = right.value();
    return Operation::apply(first, second);
  }
  operator Number() const { return value(); }  // NOLINT(google-explicit-constructor)
};

struct Add {
  static Number apply(const Number& a, const Number& b) { return a + b; }
};
struct Subtract {
  static Number apply(const Number& a, const Number& b) { return a - b; }
};
struct Multiply {
  static Number apply(const Number& a, const Number& b) { return a * b; }
};
struct Divide {
  static Number apply(const Number& a, const Number& b) { return a / b; }
};

template <class Operation, class Left, class Right>
auto binary(const Left& left, const Right& right) {
  return Binary<decltype(term(left)), decltype(term(right)), Operation>{term(left), term(right)};
}

template <class Left, class Right, class Compare>
bool compare(const Left& left, const Right& right, Compare compare) {
  Number first = term(left).value();
  Number second = term(right).value();
  return compare(first, second);
}

template <class Left, class Right>
concept Formula = Operand<Left> && Operand<Right> && (Term<Left> || Term<Right>);

}  // namespace detail

template <class Left, class Right>
  requires detail::Formula<Left, Right>
auto operator+(const Left& left, const Right& right) {
  return detail::binary<detail::Add>(left, right);
}
template <class Left, class Right>
  requires detail::Formula<Left, Right>
auto operator-(const Left& left, const Right& right) {
  return detail::binary<detail::Subtract>(left, right);
}
template <class Left, class Right>
  requires detail::Formula<Left, Right>
auto operator*(const Left& left, const Right& right) {
  return detail::binary<detail::Multiply>(left, right);
}
template <class Left, class Right>
  requires detail::Formula<Left, Right>
auto operator/(const Left& left, const Right& right) {
  return detail::binary<detail::Divide>(left, right);
}
template <class Left, class Right>
  requires detail::Formula<Left, Right>
bool operator<(const Left& left, const Right& right) {
  return detail::compare(left, right, [](const Number& a, const Number& b) { return a < b; });
}
template <class Left, class Right>
  requires detail::Formula<Left, Right>
bool operator>(const Left& left, const Right& right) {
  return detail::compare(left, right, [](const Number& a, const Number& b) { return a > b; });
}
template <class Left, class Right>
  requires detail::Formula<Left, Right>
bool operator>=(const Left& left, const Right& right) {
  return detail::compare(left, right, [](const Number& a, const Number& b) { return a >= b; });
}
template <class Left, class Right>
  requires detail::Formula<Left, Right>
bool operator==(const Left& left, const Right& right) {
  return detail::compare(left, right, [](const Number& a, const Number& b) { return a == b; });
}

template <Term T>
Ref argument(const T& term) {
  return term.value().object();
}

// A position or size as pygame reads it for a rectangle: cut towards zero. False when the value is
// not a plain number in range; pygame itself must then say what it makes of it.
inline bool rect_integer(const Number& value, int& result) noexcept {
  std::optional<double> plain = value.plain();
  if (!plain || !(*plain > -2147483648.0 && *plain < 2147483648.0)) return false;
  result = static_cast<int>(*plain);
  return true;
}

// What int() gives for something of the library's own: an integer, or a colour as four bytes.
std::int64_t library_integer(Value value);

}  // namespace tessora::host
