#pragma once

#include <vector>

namespace vexel {

/// Where an axis has ticks, in data units. Both lists ascend without repetitions, lie inside the
/// range they were asked for, and have no value in common.
struct Ticks {
  /// Those with labels, and those between them.
  std::vector<double> major;
  std::vector<double> minor;

  friend bool operator==(const Ticks&, const Ticks&) = default;
};

// What holds for all of them: the ends of the range may be given in either order. A tick that
// rounding puts just outside an end, by up to 1e-9 of the distance between two ticks (on
// logarithmic axes: of the tick), counts as inside and is put onto the end: 0 to 0.3 in steps of
// 0.1 has four ticks. Ticks are counted with integers, never summed up. There are at most
// maximumCount major ticks, and the minor ones are left out as a whole when they are more than
// that. No ticks come from ends that are not finite and from a maximumCount below 1.

/// Major ticks at origin + k * interval, and minorPerInterval minor ones evenly between two of
/// them, also before the first and after the last. When too many would be inside, only every 2nd,
/// 5th, 10th, 20th, ... k counts (multiples of that, so the origin stays a tick), with the minor
/// ticks between those. No ticks when the interval is not above 0 or not finite, or when a k would
/// be beyond 2^53.
Ticks fixedIntervalTicks(double lower, double upper, double interval, double origin,
                         int minorPerInterval, int maximumCount);

/// Major ticks at the decades, minor ones at 2 to 9 times them. When too many decades are inside,
/// only those whose exponent is a multiple of 2, 5, 10, 20, ... count, without minor ticks. When
/// less than two decades are visible, 1, 2 and 5 times the decades are major; when that gives
/// fewer than two ticks (3 to 4, say), the ticks are those of automaticTicks. Values are the
/// doubles nearest to the decimal number: 1e-15, not a product. No ticks when an end is not above
/// 0 or the range is empty.
Ticks logarithmicTicks(double lower, double upper, int maximumCount);

/// Ticks at multiples of niceInterval(), which gives roughly `about` major ones (below 1 counts as
/// 1). No ticks when the range is empty.
Ticks automaticTicks(double lower, double upper, int about, int minorPerInterval, int maximumCount);

/// Major ticks at both ends and at the divisions - 1 places that part the range evenly; minor ones
/// evenly between them. At most 10000 divisions; the minor ticks are left out when they would be
/// more than 10000. No ticks with divisions outside 1 to 10000 or an empty range.
Ticks equalDivisionTicks(double lower, double upper, int divisions, int minorPerInterval);

/// 1, 2 or 5 times a power of ten, exactly as the decimal number reads, that fits into a span
/// roughly `about` times (below 1 counts as 1). Always above 0 and finite: the sign of the span
/// does not count; a span of 0, NaN or infinity gives 1; the smallest result is the smallest
/// denormal double, the largest 1e308.
double niceInterval(double span, int about);

}  // namespace vexel
