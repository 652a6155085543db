#pragma once

#include <span>

#include <Foundation/VexelAPI.h>

namespace vexel {

/// The distance between major ticks that suits an axis which shows range[0] to range[1], in either
/// order, with all values multiplied by `scale`: the largest of 1, 2 and 5 times the powers of ten
/// that fits at least 4 times into the span |range[1] - range[0]| * |scale|; it fits at most 10
/// times. It is the double (float) nearest to the decimal number: 0.1, not a product.
///
/// It is above 0 and finite for every input:
/// - a span of 0, also by underflow of the product, gives 1, and so does one that is NaN: an end or
///   the scale is, both ends are the same infinity, or 0 meets infinity in the product;
/// - an infinite span, also by overflow, counts as the largest finite number and gives 2e307, as
///   float 5e37;
/// - a denormal interval is as round as denormal numbers can be and fits up to 15 times; a span of
///   less than 4 times the smallest of them gives that one.
///
/// Further values of the range do not count. A range of fewer than two is a fatal error.
VEXEL_API double getOptimimumMajorInterval(std::span<const double> range, double scale);

/// The same in single precision, the span included.
VEXEL_API float getOptimimumMajorInterval(std::span<const float> range, float scale);

}  // namespace vexel
