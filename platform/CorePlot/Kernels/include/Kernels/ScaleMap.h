#pragma once

#include <Kernels/AxisScale.h>

#include <cmath>
#include <cstddef>
#include <span>

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
    return std::isfinite(place) ? place : scale_.position(value) * factor_ + offset_;
  }

  /// The places of some values, for which there is room.
  void operator()(std::span<const double> values, double* places) const {
    constexpr std::size_t kLanes = 4;
    std::size_t i = 0;
    if (!scale_.logarithmic) {
      double remainder[kLanes] = {};  // 0 unless a place is not finite
      for (; i + kLanes <= values.size(); i += kLanes)
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
          const double place = (values[i + lane] - origin_) * slope_ + offset_;
          places[i + lane] = place;
          remainder[lane] += place - place;
        }
      if (remainder[0] + remainder[1] + remainder[2] + remainder[3] != 0) i = 0;
    }
    for (; i < values.size(); ++i) places[i] = (*this)(values[i]);
  }

 private:
  // The difference of two logarithms has too few digits below.
  static constexpr double kNarrowestLogarithms = 1e-6;

  AxisScale scale_;
  double factor_;
  double offset_;
  double origin_;
  double slope_;
};

}  // namespace vexel
