#include <Kernels/AxisScale.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vexel {

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

/// ln(value / base) for numbers above 0. Near a ratio of 1 only the difference carries the digits;
/// towards the ends of the doubles the ratio is not representable.
double logarithmOfRatio(double value, double base) {
  const double difference = value - base;
  if (std::abs(difference) < base / 2) return std::log1p(difference / base);
  const double ratio = value / base;
  return std::isnormal(ratio) ? std::log(ratio) : std::log(value) - std::log(base);
}

/// ln((location + length) / location), also where the sum is beyond the doubles or rounds.
double logarithmicSpan(double location, double length) {
  if (std::abs(length) < location / 2) return std::log1p(length / location);
  const double end = location + length;
  return std::isinf(end) ? logarithmOfRatio(location / 2 + length / 2, location / 2)
                         : logarithmOfRatio(end, location);
}

/// base * e^exponent, without leaving the doubles on the way to a result that is one.
double grown(double base, double exponent) {
  const double quarter = std::exp(exponent / 4);
  return std::abs(exponent) < 600 ? base * std::exp(exponent)
                                  : base * quarter * quarter * quarter * quarter;
}

}  // namespace

bool AxisScale::isDrawable() const {
  if (!std::isfinite(location) || !std::isfinite(length) || !std::isfinite(extent)) return false;
  if (length == 0 || !(extent > 0)) return false;
  return !logarithmic || (location > 0 && length > -location && length / location != 0);
}

double AxisScale::position(double value) const {
  if (!isDrawable() || std::isnan(value) || (logarithmic && !(value > 0))) return std::nan("");
  if (std::isinf(value)) return length > 0 ? value : -value;

  const double difference = value - location;
  double fraction;
  if (logarithmic) {
    fraction = logarithmOfRatio(value, location) / logarithmicSpan(location, length);
  } else if (std::isinf(difference)) {
    fraction = (value / 2 - location / 2) / length * 2;
  } else {
    fraction = difference / length;
  }
  return std::clamp(fraction * extent, -kLargest, kLargest);
}

double AxisScale::value(double position) const {
  if (!isDrawable() || std::isnan(position)) return std::nan("");
  const double fraction = position / extent;
  if (logarithmic) return grown(location, fraction * logarithmicSpan(location, length));
  const double direct = location + fraction * length;
  return std::isfinite(direct) ? direct : (location / 2 + fraction / 2 * length) * 2;
}

}  // namespace vexel
