#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vexel {

/// How a stretch of time is labelled: title, and ticks (Julian days, ascending) with their texts.
struct TimeAxis {
  std::string title;
  std::vector<std::pair<double, std::string>> ticks;
};

/// Years, days of the year, hours or minutes, as the stretch between the two Julian days asks
/// for; the ends may be given in either order. Ticks lie 1e-6 days after the moments they stand
/// for, except those of years. A range that has fewer than two values, or an end that is no date
/// of the calendar, is a fatal error. Years have ticks from -4712 to 9999.
TimeAxis timeAxis(const std::vector<double>& range);

}  // namespace vexel
