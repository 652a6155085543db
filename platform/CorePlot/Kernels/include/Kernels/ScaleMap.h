#pragma once

#include <Kernels/AxisScale.h>

#include <cmath>

namespace vexel {

/// An axis scale and a linear map of its positions, prepared for many values: the place of a value
/// is scale.position(value) * factor + offset, up to rounding. Not finite when it has none.
class ScaleMap {
 public:
  /// A map with a copy of the scale.
  ScaleMap(const AxisScale& scale, double factor, double offset)
      : scale_(scale), factor_(factor), offset_(offset) {
    if (scale.logarithmic) {
      origin_ = std::log(scale.location);
      const double span = std::log(scale.location + scale.length) - origin_;
      slope_ = std::abs(span) > kNarrowestLogarithms ? scale.extent / span * factor : std::nan("");
    } else {
      origin_ = scale.location;
      slope_ = scale.extent / scale.length * factor;
    }
  }

  /// The place of a value.
  double operator()(double value) const {
    const double unscaled = scale_.logarithmic ? std::log(value) : value;
    const double place = (unscaled - origin_) * slope_ + offset_;
    // Also where something above was beyond the doubles, or not a number.
    return std::abs(place) <= kFarthest ? place : scale_.position(value) * factor_ + offset_;
  }

 private:
  static constexpr double kFarthest = 1e300;
  // The difference of two logarithms has too few digits below.
  static constexpr double kNarrowestLogarithms = 1e-6;

  AxisScale scale_;
  double factor_;
  double offset_;
  double origin_;
  double slope_;
};

}  // namespace vexel
