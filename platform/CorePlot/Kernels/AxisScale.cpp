#include <Kernels/AxisScale.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vexel {

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

/// ln((base + difference) / base) for a base above 0 and a sum above 0. Near a ratio of 1 only the
/// difference carries the digits; towards the ends of the doubles the ratio is not representable.
double logarithmOfGrowth(double base, double difference) {
  if (std::abs(difference) < base / 2) return std::log1p(difference / base);
  const double end = base + difference;
  if (std::isinf(end)) return std::log(base / 2 + difference / 2) - std::log(base / 2);
  const double ratio = end / base;
  return std::isnormal(ratio) ? std::log(ratio) : std::log(end) - std::log(base);
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
  return !logarithmic || (location > 0 && length > -location);
}

double AxisScale::position(double value) const {
  if (!isDrawable() || std::isnan(value) || (logarithmic && !(value > 0))) return std::nan("");
  if (std::isinf(value)) return length > 0 ? value : -value;

  const double difference = value - location;
  double fraction;
  if (logarithmic) {
    fraction = logarithmOfGrowth(location, difference) / logarithmOfGrowth(location, length);
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
  if (logarithmic) return grown(location, fraction * logarithmOfGrowth(location, length));
  const double direct = location + fraction * length;
  return std::isfinite(direct) ? direct : (location / 2 + fraction * (length / 2)) * 2;
}

}  // namespace vexel
