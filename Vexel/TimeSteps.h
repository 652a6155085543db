#pragma once

#include <cstdint>

#include <Astrel/DayOfYear.h>

namespace vexel {

// Where the ticks of a time axis stand. Their distances come from how much it shows.

/// In days, of a stretch of days inside one year.
int dayStep(int spanInDays);
/// In hours: about a tenth of the span, even from 2 on, at most 12.
std::int64_t hourStep(std::int64_t spanInHours);
/// In minutes.
std::int64_t minuteStep(std::int64_t spanInMinutes);

/// The first day from `start` on whose number is a multiple of `step`, as the calendar goes on:
/// what would be day 366 of a year without one is day 1 of the next.
DayOfYear firstTickDay(DayOfYear start, int step);

}  // namespace vexel
