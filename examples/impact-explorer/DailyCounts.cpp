#include "DailyCounts.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace explorer {
namespace {

constexpr double largestDay = 1e12;

bool isDay(double time) {
  return std::abs(time) <= largestDay;
}

}  // namespace

DailyCounts countsPerDays(std::span<const double> times, int days,
                          std::span<const DaySpan> unmeasured) {
  if (days < 1) throw std::invalid_argument("bins of less than one day");

  double first = std::numeric_limits<double>::infinity();
  double last = -first;
  for (const double time : times)
    if (isDay(time)) {
      first = std::min(first, time);
      last = std::max(last, time);
    }
  DailyCounts result{.days = static_cast<double>(days)};
  if (first > last) return result;

  result.start = std::floor(first - 0.5) + 0.5;
  const auto binOf = [&](double time) { return std::floor((time - result.start) / result.days); };
  while (binOf(last) >= static_cast<double>(DailyCounts::mostBins)) result.days *= 2;

  result.counts.resize(static_cast<std::size_t>(binOf(last)) + 1);
  for (const double time : times)
    if (isDay(time)) ++result.counts[static_cast<std::size_t>(binOf(time))];

  for (std::size_t i = 0; i < result.counts.size(); ++i) {
    const double start = result.start + static_cast<double>(i) * result.days;
    const bool unseen = std::ranges::any_of(unmeasured, [&](const DaySpan& span) {
      return span.start <= start && start + result.days <= span.end;
    });
    if (unseen && result.counts[i] == 0)
      result.counts[i] = std::numeric_limits<double>::quiet_NaN();
  }
  return result;
}

}  // namespace explorer
