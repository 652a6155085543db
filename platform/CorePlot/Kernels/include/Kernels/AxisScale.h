#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// The mapping between the values of one coordinate and places along its axis: the visible range
/// is spread over the axis, evenly or by equal decades.
///
/// The differences are taken before the division, so a range that is tiny beside its location
/// (dates as day numbers, say) loses no digits.
struct VEXEL_API AxisScale {
  /// Where the visible range starts, in data units; maps to position 0.
  double location = 0;
  /// How far the range goes from its start, in data units; negative for a reversed axis.
  double length = 1;
  /// Equal decades get equal lengths; only values above 0 have a place then.
  bool logarithmic = false;
  /// The length of the axis in points.
  double extent = 0;

  /// Whether values have places at all: location, length and extent are finite, length is not 0,
  /// extent is above 0, and on a logarithmic scale both ends of the range are above 0 and no
  /// double is too small for their relative distance. The far end need not be a finite number.
  bool isDrawable() const;

  /// The place of a value in points from the start of the range; outside 0 to extent when the
  /// value is not visible. Infinite for an infinite value only: a finite value too far away for a
  /// double stops at the largest one. NaN when the value has no place: it is NaN, it is not above
  /// 0 on a logarithmic scale, or the scale is not drawable.
  double position(double value) const;

  /// The value at a place in points: the inverse of position(). Infinite (or 0 on a logarithmic
  /// scale) when there is no such double; NaN for NaN or when the scale is not drawable.
  double value(double position) const;

  friend bool operator==(const AxisScale&, const AxisScale&) = default;
};

}  // namespace vexel
