#include <Astrel/EventTime.h>
#include <Foundation/FatalError.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <utility>

namespace vexel {

namespace {

__extension__ using Int128 = __int128;

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t kNanosecondsPerDay = 86400 * kNanosecondsPerSecond;
/// 1 January 1970, midnight, in nanoseconds of the Julian count: day 2440587.5.
constexpr Int128 kEpoch = Int128{4881175} * (kNanosecondsPerDay / 2);

// The Gregorian calendar repeats itself. The civil calendar of the standard library, whose years
// end at 32767, is asked about one cycle only.
constexpr int kYearsPerCycle = 400;
constexpr std::int64_t kDaysPerCycle = 146097;

template <class Integer>
struct Division {
  Integer quotient;
  Integer remainder;
};

/// The remainder is never negative.
template <class Integer>
constexpr Division<Integer> divideDown(Integer number, std::int64_t divisor) {
  const Integer rest = number % divisor;
  return rest < 0 ? Division<Integer>{number / divisor - 1, rest + divisor}
                  : Division<Integer>{number / divisor, rest};
}

/// Days from 1 January 1970 to a day that may have to be carried over.
std::int64_t civilDays(std::int64_t year, std::int64_t month, std::int64_t day) {
  const auto [carriedYear, monthIndex] = divideDown(year * 12 + (month - 1), 12);
  const auto [cycle, yearOfCycle] = divideDown(carriedYear, kYearsPerCycle);
  const std::chrono::sys_days first = std::chrono::year(static_cast<int>(yearOfCycle)) /
                                      std::chrono::month(static_cast<unsigned>(monthIndex + 1)) / 1;
  return cycle * kDaysPerCycle + first.time_since_epoch().count() + (day - 1);
}

struct CivilDate {
  std::int64_t year;
  int month;
  int day;
};

CivilDate civilDate(std::int64_t days) {
  const auto [cycle, dayOfCycle] = divideDown(days, kDaysPerCycle);
  const std::chrono::year_month_day date = std::chrono::sys_days(std::chrono::days(dayOfCycle));
  return {static_cast<int>(date.year()) + cycle * kYearsPerCycle,
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

/// julianDay * kNanosecondsPerDay, computed exactly and then rounded.
Int128 nanosecondsOf(double julianDay) {
  constexpr int kDigits = 53;
  // Beyond this shift every product of 53 and 47 bits rounds to 0.
  constexpr int kLargestShift = 110;
  int exponent = 0;
  const double mantissa = std::frexp(julianDay, &exponent);
  const auto digits = static_cast<std::int64_t>(std::ldexp(mantissa, kDigits));
  const int shift = std::min(kDigits - exponent, kLargestShift);
  return (Int128{digits} * kNanosecondsPerDay + (Int128{1} << (shift - 1))) >> shift;
}

/// The double nearest to nanoseconds / kNanosecondsPerDay.
double julianDayOf(Int128 nanoseconds) {
  if (nanoseconds < 0) return -julianDayOf(-nanoseconds);
  if (nanoseconds == 0) return 0;
  // The shift gives the quotient 60 bits, more than a double takes, and its last bit stands for
  // all that follow it; so the conversion to double is the only rounding.
  const int shift = 106 - std::ilogb(static_cast<double>(nanoseconds));
  const Int128 shifted = nanoseconds << shift;
  const auto quotient = static_cast<std::int64_t>(shifted / kNanosecondsPerDay);
  const bool isInexact = shifted % kNanosecondsPerDay != 0;
  return std::ldexp(static_cast<double>(quotient | std::int64_t{isInexact}), -shift);
}

}  // namespace

CalendarDate EventTime::julianDay2Date(double julianDay) {
  if (!(std::abs(julianDay) < 0x1p31))
    fatalError("EventTime.julianDay2Date: no date for this Julian day");

  const auto [days, nanosecondOfDay] =
      divideDown(nanosecondsOf(julianDay) - kEpoch, kNanosecondsPerDay);
  const auto [year, month, day] = civilDate(static_cast<std::int64_t>(days));
  const auto secondOfDay = static_cast<int>(nanosecondOfDay / kNanosecondsPerSecond);
  return {.year = static_cast<int>(year),
          .month = month,
          .day = day,
          .hour = secondOfDay / 3600,
          .minute = secondOfDay / 60 % 60,
          .second = secondOfDay % 60,
          .nanosecond = static_cast<int>(nanosecondOfDay % kNanosecondsPerSecond)};
}

double EventTime::date2JulianYear(const CalendarDate& date) {
  const std::int64_t days = civilDays(date.year, date.month, date.day);
  const std::int64_t seconds =
      std::int64_t{date.hour} * 3600 + std::int64_t{date.minute} * 60 + date.second;
  return julianDayOf(kEpoch + Int128{days} * kNanosecondsPerDay +
                     Int128{seconds} * kNanosecondsPerSecond + date.nanosecond);
}

DayOfYear EventTime::date2DayOfYear(int day, int month, int year) {
  const std::int64_t days = civilDays(year, month, day);
  const std::int64_t carriedYear = civilDate(days).year;
  if (!std::in_range<int>(carriedYear))
    fatalError("EventTime.date2DayOfYear: the date is carried over into a year beyond int");
  return {.dayOfYear = static_cast<int>(days - civilDays(carriedYear, 1, 1) + 1),
          .year = static_cast<int>(carriedYear)};
}

DayOfMonth EventTime::dayOfYear2date(int dayOfYear, int year) {
  const CivilDate date = civilDate(civilDays(year, 1, dayOfYear));
  return {.day = date.day, .month = date.month};
}

bool EventTime::isLeapYear(int year) {
  return std::chrono::year(year % kYearsPerCycle).is_leap();
}

}  // namespace vexel
