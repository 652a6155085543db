#include "TimeAxis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <Astrel/EventTime.h>
#include <Foundation/FatalError.h>
#include <fmt/format.h>

#include "TimeSteps.h"

namespace vexel {

namespace {

// A tick lies this far behind its moment, so that rounding does not put it into the day, hour or
// minute before; in days.
constexpr double kTickShift = 1e-6;
// Rounding may have put a start that is meant as a full hour or minute this far behind it; in days.
constexpr double kStartTolerance = 1e-9;

constexpr int kHoursPerDay = 24;
constexpr int kMinutesPerDay = 1440;

constexpr int kFirstYear = -4712;
constexpr int kLastYear = 9999;

/// A Julian day in the calendar, and parted into whole days since the epoch and the rest.
struct Moment {
  double julianDay;
  std::int64_t day;
  double hours;
  int dayOfYear;
  int year;

  Moment(double julianDayNumber, std::int64_t wholeDay)
      : julianDay(julianDayNumber),
        day(wholeDay),
        hours((julianDayNumber - static_cast<double>(wholeDay)) * kHoursPerDay) {
    const auto date = EventTime::julianDay2Date(julianDay);
    const auto inYear = EventTime::date2DayOfYear(date.day, date.month, date.year);
    dayOfYear = inYear.dayOfYear;
    year = inYear.year;
  }
};

std::int64_t integerPart(double number) {
  if (!(std::abs(number) < 0x1p63)) fatalError("time axis: an end of the range is no date");
  return static_cast<std::int64_t>(number);
}

std::int64_t roundedDown(std::int64_t number, std::int64_t step) {
  return (number >= 0 ? number : number - step + 1) / step * step;
}

std::int64_t roundedUp(std::int64_t number, std::int64_t step) {
  return -roundedDown(-number, step);
}

std::string dayLabel(double tick) {
  const auto date = EventTime::julianDay2Date(tick + kTickShift);
  return fmt::format("{:03}", EventTime::date2DayOfYear(date.day, date.month, date.year).dayOfYear);
}

std::string clockLabel(double tick) {
  const auto date = EventTime::julianDay2Date(tick + kTickShift);
  return fmt::format("{:02}:{:02}", date.hour, date.minute);
}

template <class Label>
void addTicks(TimeAxis& axis, double first, double step, std::int64_t count, Label label) {
  for (std::int64_t i = 0; i < count; ++i) {
    const double tick = first + static_cast<double>(i) * step + kTickShift;
    axis.ticks.emplace_back(tick, label(tick));
  }
}

std::int64_t countUpTo(double last, double first, double step) {
  return integerPart(std::floor((last - first) / step + 1e-6)) + 1;
}

double midnight(DayOfMonth date, int year) {
  return EventTime::date2JulianYear({.year = year,
                                     .month = date.month,
                                     .day = date.day,
                                     .hour = 0,
                                     .minute = 0,
                                     .second = 0,
                                     .nanosecond = 0});
}

double newYear(int year) {
  return midnight({.day = 1, .month = 1}, year);
}

void addYears(TimeAxis& axis, int year0, int year1) {
  for (int year = std::max(year0, kFirstYear); year <= std::min(year1, kLastYear); ++year)
    axis.ticks.emplace_back(newYear(year), fmt::format("{:4}", year));
}

bool isSecondHalf(double julianDay) {
  return julianDay - std::floor(julianDay) >= 0.5;
}

void addDaysAcrossNewYear(TimeAxis& axis, const Moment& from, const Moment& to) {
  const double s = std::floor(from.julianDay) + (isSecondHalf(from.julianDay) ? 1 : 0);
  const double e = std::floor(to.julianDay) - (isSecondHalf(to.julianDay) ? 0 : 1);
  const std::int64_t days = integerPart(e + 0.5 - s + 1e-6) + 1;
  std::int64_t step = 1;
  double start = s;
  if (days > 8) {
    step = std::max<std::int64_t>(days / 10, 1);
    const std::int64_t rest = (from.dayOfYear + 1) % step;
    if (rest != 0) start += static_cast<double>(step - rest);
  }
  addTicks(axis, start, static_cast<double>(step), days / step, dayLabel);
}

void addDaysOfYear(TimeAxis& axis, const Moment& from, const Moment& to) {
  const int step = dayStep(to.dayOfYear - from.dayOfYear);
  const auto [day, year] = firstTickDay({.dayOfYear = from.dayOfYear, .year = from.year}, step);
  const double first = midnight(EventTime::dayOfYear2date(day, year), year);
  addTicks(axis, first, step, countUpTo(to.julianDay, first, step), dayLabel);
}

/// Ticks at multiples of `step` parts of a day, of which a day has `partsPerDay`, counted from
/// the whole day in which the range starts; none lies before its start.
void addPartsOfDay(TimeAxis& axis, const Moment& from, const Moment& to, std::int64_t step,
                   int partsPerDay) {
  const double start =
      (from.julianDay - static_cast<double>(from.day) - kStartTolerance) * partsPerDay;
  const double end = (to.julianDay - static_cast<double>(to.day)) * partsPerDay;
  const std::int64_t firstPart = roundedUp(integerPart(std::ceil(start)), step);
  const std::int64_t lastPart =
      (to.day - from.day) * partsPerDay + roundedDown(integerPart(end), step);
  const double first = static_cast<double>(from.day) + static_cast<double>(firstPart) / partsPerDay;
  const double stepDays = static_cast<double>(step) / partsPerDay;
  addTicks(axis, first, stepDays, (lastPart - firstPart) / step + 1, clockLabel);
}

}  // namespace

TimeAxis timeAxis(const std::vector<double>& range) {
  if (range.size() < 2) fatalError("time axis: a range needs two values");
  if (std::isnan(range[0]) || std::isnan(range[1]))
    fatalError("time axis: an end of the range is no number");
  const double x0 = std::min(range[0], range[1]);
  const double x1 = std::max(range[0], range[1]);
  const Moment from(x0, integerPart(x0 + 1e-9));
  const Moment to(x1, integerPart(x1));
  const std::int64_t days = to.day - from.day;
  const std::int64_t hourSpan =
      integerPart(to.hours) - integerPart(from.hours) + days * kHoursPerDay;
  const std::int64_t minuteSpan =
      integerPart(to.hours * 60) - integerPart(from.hours * 60) + days * kMinutesPerDay;

  TimeAxis axis;
  if (to.year - from.year > 1) {
    axis.title = fmt::format("{:4}-{:4}", from.year, to.year);
    addYears(axis, from.year, to.year);
  } else if (to.year - from.year == 1) {
    axis.title = fmt::format("Days of {:4}-{:4}", from.year, to.year);
    addDaysAcrossNewYear(axis, from, to);
  } else if (to.dayOfYear - from.dayOfYear > 1) {
    axis.title = fmt::format("Days of {:4}", from.year);
    addDaysOfYear(axis, from, to);
  } else if (to.dayOfYear - from.dayOfYear == 1 || hourSpan >= 4) {
    axis.title = fmt::format("Hours {:4}-{:03}", from.year, from.dayOfYear);
    addPartsOfDay(axis, from, to, hourStep(hourSpan), kHoursPerDay);
  } else {
    axis.title = fmt::format("{:4}-{:03}", from.year, from.dayOfYear);
    if (hourSpan >= 2 || minuteSpan >= 5)
      addPartsOfDay(axis, from, to, minuteStep(minuteSpan), kMinutesPerDay);
  }
  return axis;
}

}  // namespace vexel
