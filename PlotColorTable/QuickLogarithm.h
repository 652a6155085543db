#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <numbers>

namespace vexel {

/// The decimal logarithm in a few steps, not to the last digit: a table for the leading bits of
/// the number and a short series for the others.
class QuickLogarithm {
 public:
  /// No result is farther than this from the logarithm.
  static constexpr double kError = 1e-10;

  QuickLogarithm() : segments_(segments()) {}

  /// Of a finite value that is not negative. NaN for 0 and for denormal values.
  double operator()(double value) const {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto exponent = static_cast<int>(bits >> kMantissaBits);
    if (exponent == 0) return std::numeric_limits<double>::quiet_NaN();
    const double mantissa = std::bit_cast<double>((bits & kMantissa) | kOne);
    const Segment& segment = segments_[bits >> (kMantissaBits - kTableBits) & (kSegments - 1)];
    const double r = mantissa * segment.inverse - 1;
    return (exponent - kBias) * kLog10Of2 + segment.logarithm +
           std::numbers::log10e * r * (1 + r * (-1.0 / 2 + r * (1.0 / 3)));
  }

 private:
  /// Mantissas with the same leading bits.
  struct Segment {
    double inverse;
    double logarithm;
  };

  static constexpr int kMantissaBits = 52;
  static constexpr int kBias = 1023;
  static constexpr std::uint64_t kMantissa = (std::uint64_t{1} << kMantissaBits) - 1;
  static constexpr std::uint64_t kOne = std::uint64_t{kBias} << kMantissaBits;
  static constexpr int kTableBits = 8;
  static constexpr std::size_t kSegments = 1 << kTableBits;
  static constexpr double kLog10Of2 = std::numbers::ln2 / std::numbers::ln10;

  using Segments = std::array<Segment, kSegments>;
  static const Segments& segments();

  const Segments& segments_;
};

}  // namespace vexel
