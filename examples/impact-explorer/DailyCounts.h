#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "DaySpan.h"

namespace explorer {

/// How many events fell into each of a row of equal bins.
struct DailyCounts {
  /// More bins than this are never made.
  static constexpr std::size_t mostBins = 1'000'000;

  /// Where the first bin begins, Julian day, a midnight (whole and a half); 0 without bins.
  double start = 0;
  /// Width of a bin in days.
  double days = 1;
  /// Per bin; NaN for a bin that lies in one of the times without measurement from end to end.
  std::vector<double> counts = {};

  /// The middle of bin `i`, Julian day.
  double middle(std::size_t i) const { return start + (static_cast<double>(i) + 0.5) * days; }

  friend bool operator==(const DailyCounts&, const DailyCounts&) = default;
};

/// Counts `times`, in any order, in bins of `days` whole days from the midnight before the first
/// one to the bin of the last one. Times that are no numbers, or so large (beyond 1e12) that single
/// days do not matter to them, are passed over. Bins become wider by doubling when there would be
/// more than `DailyCounts::mostBins`. There is no bin when there is no time.
/// Throws std::invalid_argument when `days` is below 1.
DailyCounts countsPerDays(std::span<const double> times, int days,
                          std::span<const DaySpan> unmeasured = {});

}  // namespace explorer
