#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// A stretch of one coordinate, in plot-space units: from `location` over `length`, which is
/// negative for a range that runs backwards. A value.
class VEXEL_API CPTPlotRange {
 public:
  constexpr CPTPlotRange() = default;
  /// A range of any two numbers; nothing is checked.
  constexpr CPTPlotRange(double location, double length) : location_(location), length_(length) {}

  /// Start, length and end; the lower end, the upper one and the middle.
  double locationDouble() const { return location_; }
  double lengthDouble() const { return length_; }
  double endDouble() const { return location_ + length_; }
  double minLimitDouble() const { return length_ < 0 ? endDouble() : location_; }
  double maxLimitDouble() const { return length_ < 0 ? location_ : endDouble(); }
  double midPointDouble() const { return location_ + length_ / 2; }

  /// Ends count as inside; NaN is never inside.
  bool containsDouble(double number) const {
    return number >= minLimitDouble() && number <= maxLimitDouble();
  }

  friend bool operator==(const CPTPlotRange&, const CPTPlotRange&) = default;

 private:
  double location_ = 0;
  double length_ = 1;
};

}  // namespace vexel
