#pragma once

#include <concepts>
#include <cstdint>
#include <variant>

#include <Foundation/VexelAPI.h>

namespace vexel {

/// A number that remembers its precision: a whole number, a float or a double. A value. Two are
/// equal when their values are, whatever the precision: a whole 2 equals a double 2, but a float
/// 0.1 differs from a double 0.1, which is nearer to a tenth.
class VEXEL_API NSNumber {
 public:
  /// Whole numbers beyond 64 signed bits do not fit; booleans are no numbers.
  template <std::integral Whole>
  requires(!std::same_as<Whole, bool>) constexpr NSNumber(Whole value)
      : value_(static_cast<std::int64_t>(value)) {}
  /// Of that precision.
  constexpr NSNumber(float value) : value_(value) {}
  constexpr NSNumber(double value) : value_(value) {}

  /// Which precision it is of.
  constexpr bool isInteger() const { return std::holds_alternative<std::int64_t>(value_); }
  constexpr bool isFloat() const { return std::holds_alternative<float>(value_); }
  constexpr bool isDouble() const { return std::holds_alternative<double>(value_); }

  /// The nearest double; only whole numbers above 2^53 are rounded.
  constexpr double doubleValue() const {
    return std::visit([](auto value) { return static_cast<double>(value); }, value_);
  }
  /// The nearest float; infinite beyond the floats.
  constexpr float floatValue() const {
    return std::visit([](auto value) { return static_cast<float>(value); }, value_);
  }

  /// By value, as said above.
  friend constexpr bool operator==(const NSNumber& a, const NSNumber& b) {
    if (a.isInteger() && b.isInteger()) return a.value_ == b.value_;
    return a.doubleValue() == b.doubleValue();
  }

 private:
  std::variant<std::int64_t, float, double> value_;
};

}  // namespace vexel
