#include "TimeSteps.h"

#include <algorithm>

#include <Astrel/EventTime.h>

namespace vexel {

int dayStep(int spanInDays) {
  if (spanInDays > 1000) return 1;
  if (spanInDays >= 200) return 25;
  if (spanInDays >= 100) return 20;
  if (spanInDays >= 50) return 10;
  if (spanInDays >= 10) return 5;
  return 1;
}

std::int64_t hourStep(std::int64_t spanInHours) {
  const std::int64_t tenth = std::max<std::int64_t>(1, spanInHours / 10);
  if (tenth >= 13) return 12;
  if (tenth < 2) return tenth;
  return tenth % 2 == 1 ? tenth + 1 : tenth;
}

std::int64_t minuteStep(std::int64_t spanInMinutes) {
  if (spanInMinutes > 1000) return 1;
  if (spanInMinutes >= 40) return 15;
  if (spanInMinutes >= 31) return 10;
  if (spanInMinutes >= 11) return 5;
  return 1;
}

DayOfYear firstTickDay(DayOfYear start, int step) {
  const int day = (start.dayOfYear + step - 1) / step * step;
  const int yearLength = EventTime::isLeapYear(start.year) ? 366 : 365;
  if (day > yearLength) return {.dayOfYear = day - yearLength, .year = start.year + 1};
  return {.dayOfYear = day, .year = start.year};
}

}  // namespace vexel
