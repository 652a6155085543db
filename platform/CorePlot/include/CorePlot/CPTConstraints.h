#pragma once

#include <CoreGraphics/CGPoint.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Where an axis is pinned across the plot area, instead of at a data value. A value.
class VEXEL_API CPTConstraints {
 public:
  /// So many points above the lower (left) edge.
  static CPTConstraints constraintWithLowerOffset(CGFloat points) { return {points, 0}; }
  /// So many points below the upper (right) edge.
  static CPTConstraints constraintWithUpperOffset(CGFloat points) { return {-points, 1}; }
  /// At a fraction of the extent: 0 the lower edge, 1 the upper.
  static CPTConstraints constraintWithRelativeOffset(CGFloat fraction) { return {0, fraction}; }

  /// The place between a lower and an upper edge, in their coordinates.
  CGFloat position(CGFloat lower, CGFloat upper) const {
    return lower + fraction_ * (upper - lower) + points_;
  }

  friend bool operator==(const CPTConstraints&, const CPTConstraints&) = default;

 private:
  constexpr CPTConstraints(CGFloat points, CGFloat fraction)
      : points_(points), fraction_(fraction) {}

  CGFloat points_;
  CGFloat fraction_;
};

}  // namespace vexel
