#pragma once

#include <cstdint>

namespace vexel {

// The distances between the ticks of a time axis, from how much it shows.

/// In days, of a stretch of days inside one year.
int dayStep(int spanInDays);
/// In hours: about a tenth of the span, even from 2 on, at most 12.
std::int64_t hourStep(std::int64_t spanInHours);
/// In minutes.
std::int64_t minuteStep(std::int64_t spanInMinutes);

}  // namespace vexel
