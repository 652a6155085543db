#include "TimeAxis.h"

#include <Astrel/EventTime.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr double kTickShift = 1e-6;
constexpr std::int64_t kSecondsPerDay = 86400;
/// Noon of Julian day 0 before midnight of 1 January 1970.
constexpr std::int64_t kEpochSeconds = 4881175 * (kSecondsPerDay / 2);
/// Ranges drawn at a time: 100 times as many are in a run.
constexpr int kBatch = 1200;

std::int64_t floorDivide(std::int64_t number, std::int64_t divisor) {
  return number / divisor - (number % divisor < 0 ? 1 : 0);
}

/// A second of the calendar, by the civil calendar of the standard library.
class Second {
 public:
  explicit Second(std::int64_t sinceJulianZero) : seconds_(sinceJulianZero) {}
  Second(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
      : seconds_(kEpochSeconds + civilDays(year, month, day) * kSecondsPerDay + hour * 3600 +
                 minute * 60 + second) {}

  static Second ofDay(int year, int dayOfYear, int hour = 0, int minute = 0, int second = 0) {
    return Second(Second(year, 1, 1, hour, minute, second).seconds_ +
                  (dayOfYear - 1) * kSecondsPerDay);
  }

  std::int64_t count() const { return seconds_; }
  double julianDay() const { return static_cast<double>(seconds_) / kSecondsPerDay; }
  /// Since the noon before.
  std::int64_t noonDay() const { return floorDivide(seconds_, kSecondsPerDay); }
  std::int64_t sinceNoon() const { return seconds_ - noonDay() * kSecondsPerDay; }

  int year() const { return static_cast<int>(date().year()); }
  int dayOfYear() const {
    const std::chrono::sys_days newYear = date().year() / 1 / 1;
    return static_cast<int>((midnight() - newYear).count()) + 1;
  }
  int minuteOfDay() const {
    return static_cast<int>(floorDivide(seconds_ - kEpochSeconds, 60) -
                            floorDivide(seconds_ - kEpochSeconds, kSecondsPerDay) *
                                (kSecondsPerDay / 60));
  }

 private:
  static std::int64_t civilDays(int year, int month, int day) {
    const std::chrono::sys_days days = std::chrono::year(year) / month / day;
    return days.time_since_epoch().count();
  }
  std::chrono::sys_days midnight() const {
    return std::chrono::sys_days(
        std::chrono::days(floorDivide(seconds_ - kEpochSeconds, kSecondsPerDay)));
  }
  std::chrono::year_month_day date() const { return midnight(); }

  std::int64_t seconds_;
};

template <class... Numbers>
std::string printed(const char* format, Numbers... numbers) {
  char text[100];
  std::snprintf(text, sizeof text, format, numbers...);
  return text;
}

std::string clock(Second second) {
  return printed("%02i:%02i", second.minuteOfDay() / 60, second.minuteOfDay() % 60);
}

void addParts(TimeAxis& axis, Second from, Second to, int step, int perDay) {
  const std::int64_t length = kSecondsPerDay / perDay;
  const auto up = [&](std::int64_t number) { return -floorDivide(-number, step) * step; };
  const std::int64_t first = up(-floorDivide(-from.sinceNoon(), length));
  const std::int64_t last = floorDivide(to.sinceNoon() / length, step) * step;
  const std::int64_t days = to.noonDay() - from.noonDay();
  const double start = static_cast<double>(from.noonDay()) + static_cast<double>(first) / perDay;
  const double distance = step / (1.0 * perDay);
  for (std::int64_t i = 0; first + i * step <= days * perDay + last; ++i)
    axis.ticks.emplace_back(
        start + static_cast<double>(i) * distance + kTickShift,
        clock(Second(from.noonDay() * kSecondsPerDay + (first + i * step) * length)));
}

/// The axis from one second to another by whole numbers; neither is a full minute, and both are
/// in the years whose Julian days are not negative.
TimeAxis expectedAxis(Second from, Second to) {
  const int year0 = from.year(), year1 = to.year();
  const int day0 = from.dayOfYear(), day1 = to.dayOfYear();
  TimeAxis axis;
  if (year1 - year0 > 1) {
    axis.title = printed("%4i-%4i", year0, year1);
    for (int year = year0; year <= year1; ++year)
      axis.ticks.emplace_back(Second(year, 1, 1).julianDay(), printed("%4i", year));
    return axis;
  }
  if (year1 - year0 == 1) {
    axis.title = printed("Days of %4i-%4i", year0, year1);
    std::int64_t first = from.noonDay() + (from.sinceNoon() >= kSecondsPerDay / 2 ? 1 : 0);
    const std::int64_t last = to.noonDay() - (to.sinceNoon() < kSecondsPerDay / 2 ? 1 : 0);
    const std::int64_t days = std::max<std::int64_t>(last - first, 0) + 1;
    std::int64_t step = 1;
    if (days > 8) {
      step = std::max<std::int64_t>(days / 10, 1);
      if (const auto rest = (day0 + 1) % step; rest != 0) first += step - rest;
    }
    for (std::int64_t i = 0; i < days / step; ++i)
      axis.ticks.emplace_back(
          static_cast<double>(first + i * step) + kTickShift,
          printed("%03i", Second((first + i * step) * kSecondsPerDay).dayOfYear()));
    return axis;
  }
  if (day1 - day0 > 1) {
    axis.title = printed("Days of %4i", year0);
    const int span = day1 - day0;
    const int step = span >= 200 ? 25 : span >= 100 ? 20 : span >= 50 ? 10 : span >= 10 ? 5 : 1;
    const int first = (day0 + step - 1) / step * step;
    // A day beyond the last one is one of the next year.
    for (int day = first; Second::ofDay(year0, day).count() <= to.count(); day += step)
      axis.ticks.emplace_back(Second::ofDay(year0, first).julianDay() + (day - first) + kTickShift,
                              printed("%03i", Second::ofDay(year0, day).dayOfYear()));
    return axis;
  }
  const std::int64_t hours =
      to.sinceNoon() / 3600 - from.sinceNoon() / 3600 + (to.noonDay() - from.noonDay()) * 24;
  const std::int64_t minutes =
      to.sinceNoon() / 60 - from.sinceNoon() / 60 + (to.noonDay() - from.noonDay()) * 1440;
  if (day1 - day0 == 1 || hours >= 4) {
    axis.title = printed("Hours %4i-%03i", year0, day0);
    addParts(axis, from, to, hours >= 30 ? 4 : hours >= 20 ? 2 : 1, 24);
    return axis;
  }
  axis.title = printed("%4i-%03i", year0, day0);
  if (hours >= 2 || minutes >= 5)
    addParts(axis, from, to, minutes >= 40 ? 15 : minutes >= 31 ? 10 : minutes >= 11 ? 5 : 1, 1440);
  return axis;
}

std::string labels(const TimeAxis& axis) {
  std::string text;
  for (const auto& [tick, label] : axis.ticks) text += (text.empty() ? "" : " ") + label;
  return text;
}

std::vector<double> ticks(const TimeAxis& axis) {
  std::vector<double> result;
  for (const auto& [tick, label] : axis.ticks) result.push_back(tick);
  return result;
}

TimeAxis axisOf(Second from, Second to) {
  return timeAxis({from.julianDay(), to.julianDay()});
}

struct Row {
  Second from;
  Second to;
  std::string title;
  std::string labels;
};

/// Title and labels as written in the rows, ticks as computed here.
void expectAxes(const std::vector<Row>& rows) {
  for (const auto& [from, to, title, text] : rows) {
    const TimeAxis axis = axisOf(from, to);
    EXPECT_EQ(axis.title, title);
    EXPECT_EQ(labels(axis), text) << title;
    EXPECT_EQ(ticks(axis), ticks(expectedAxis(from, to))) << title;
    const TimeAxis reversed = axisOf(to, from);
    EXPECT_EQ(reversed.title, title);
    EXPECT_EQ(reversed.ticks, axis.ticks) << "reversed " << title;
  }
}

TEST(TimeAxisDeathTest, ARangeOfFewerThanTwoValuesStopsTheProcess) {
  EXPECT_DEATH(timeAxis({}), "Fatal error.*two values");
  EXPECT_DEATH(timeAxis({2451545}), "Fatal error.*two values");
}

TEST(TimeAxisDeathTest, AnEndThatIsNoDateStopsTheProcess) {
  using Limits = std::numeric_limits<double>;
  for (const double end : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                           Limits::max(), 1e19, 1e10, 0x1p31, -0x1p31}) {
    EXPECT_DEATH(timeAxis({2451545, end}), "Fatal error") << end;
    EXPECT_DEATH(timeAxis({end, 2451545}), "Fatal error") << end;
    EXPECT_DEATH(timeAxis({end, end}), "Fatal error") << end;
  }
}

TEST(TimeAxis, TakesNoMoreThanTwoValues) {
  const TimeAxis axis = timeAxis({2451545, 2451550});
  EXPECT_EQ(timeAxis({2451545, 2451550, 0, 1e300}).ticks, axis.ticks);
}

TEST(TimeAxis, OfNoTimeIsADay) {
  const TimeAxis axis = timeAxis({2451545, 2451545});
  EXPECT_EQ(axis.title, "2000-001");
  EXPECT_THAT(axis.ticks, IsEmpty());
}

TEST(TimeAxis, MoreThanOneYearApartHasATickPerNewYear) {
  expectAxes({
      {{2001, 6, 1}, {2003, 2, 1}, "2001-2003", "2001 2002 2003"},
      {{2001, 12, 31, 23, 59, 59}, {2003, 1, 1, 0, 0, 1}, "2001-2003", "2001 2002 2003"},
      {{2001, 1, 1, 0, 0, 1}, {2003, 12, 31}, "2001-2003", "2001 2002 2003"},
      {{1999, 5, 5}, {2005, 5, 5}, "1999-2005", "1999 2000 2001 2002 2003 2004 2005"},
      {{1581, 5, 5}, {1583, 5, 5}, "1581-1583", "1581 1582 1583"},
      {{-1, 7, 1}, {2, 7, 1}, "  -1-   2", "  -1    0    1    2"},
      {{998, 7, 1}, {1000, 7, 1}, " 998-1000", " 998  999 1000"},
      {{-1001, 7, 1}, {-999, 7, 1}, "-1001--999", "-1001 -1000 -999"},
      {{9997, 7, 1}, {9999, 7, 1}, "9997-9999", "9997 9998 9999"},
      {{-4712, 7, 1}, {-4710, 7, 1}, "-4712--4710", "-4712 -4711 -4710"},
  });
}

TEST(TimeAxis, OfYearsHasItsTicksExactlyAtMidnight) {
  const TimeAxis axis = axisOf({2001, 6, 1}, {2003, 2, 1});
  EXPECT_THAT(ticks(axis), ElementsAre(2451910.5, 2452275.5, 2452640.5));
}

TEST(TimeAxis, HasNoTicksOutsideTheYearsOfTheCalendar) {
  const TimeAxis axis = timeAxis({-0x1p30, 0x1p30});
  ASSERT_EQ(axis.ticks.size(), 9999u + 4712 + 1);
  EXPECT_EQ(axis.ticks.front(), (std::pair<double, std::string>{37.5, "-4712"}));
  EXPECT_EQ(axis.ticks.back(), (std::pair<double, std::string>{5373119.5, "9999"}));
}

TEST(TimeAxis, AcrossTheNewYearHasATickPerDayForUpToNineDays) {
  expectAxes({
      // Less than a day: the only noon lies before the range.
      {{1999, 12, 31, 23, 59, 59}, {2000, 1, 1, 0, 0, 1}, "Days of 1999-2000", "365"},
      {{1999, 12, 31, 13}, {2000, 1, 1, 11, 0, 0}, "Days of 1999-2000", "365"},
      {{1999, 12, 31, 13}, {2000, 1, 1, 13, 0, 0}, "Days of 1999-2000", "365"},
      {{2000, 12, 31, 13}, {2001, 1, 2, 1}, "Days of 2000-2001", "366 001"},
      // Noon of the last day is not counted before midnight.
      {{2001, 12, 28, 6}, {2002, 1, 4, 18}, "Days of 2001-2002", "362 363 364 365 001 002 003"},
      {{2001, 12, 28, 6}, {2002, 1, 5, 1}, "Days of 2001-2002", "362 363 364 365 001 002 003 004"},
      {{2001, 12, 28, 6},
       {2002, 1, 6, 1},
       "Days of 2001-2002",
       "362 363 364 365 001 002 003 004 005"},
      {{2001, 12, 28, 18},
       {2002, 1, 6, 1},
       "Days of 2001-2002",
       "362 363 364 365 001 002 003 004 005"},
      {{2001, 12, 28, 6},
       {2002, 1, 7, 1},
       "Days of 2001-2002",
       "362 363 364 365 001 002 003 004 005 006"},
  });
}

TEST(TimeAxis, AcrossTheNewYearCountsFromMidnightToMidnight) {
  expectAxes({
      {{2001, 12, 28}, {2002, 1, 3}, "Days of 2001-2002", "362 363 364 365 001 002"},
      {{2001, 12, 28, 0, 0, 1}, {2002, 1, 3}, "Days of 2001-2002", "362 363 364 365 001 002"},
      {{2001, 12, 28}, {2002, 1, 2, 23, 59, 59}, "Days of 2001-2002", "362 363 364 365 001"},
      {{2001, 12, 27, 23, 59, 59},
       {2002, 1, 3},
       "Days of 2001-2002",
       "361 362 363 364 365 001 002"},
  });
}

TEST(TimeAxis, AcrossTheNewYearTakesATenthOfTheDaysAsStep) {
  expectAxes({
      {{2001, 12, 28, 6},
       {2002, 1, 16, 1},
       "Days of 2001-2002",
       "362 363 364 365 001 002 003 004 005 006 007 008 009 010 011 012 013 014 015"},
      {{2001, 12, 28, 6},
       {2002, 1, 17, 1},
       "Days of 2001-2002",
       "363 365 002 004 006 008 010 012 014 016"},
      {{2001, 12, 27, 6},
       {2002, 1, 16, 1},
       "Days of 2001-2002",
       "361 363 365 002 004 006 008 010 012 014"},
      {{2001, 12, 1, 6},
       {2001 + 1, 1, 15, 1},
       "Days of 2001-2002",
       "335 339 343 347 351 355 359 363 002 006 010"},
      {{2000, 12, 1, 6},
       {2001, 1, 15, 1},
       "Days of 2000-2001",
       "339 343 347 351 355 359 363 001 005 009 013"},
      {{2001, 1, 1, 6},
       {2002, 12, 31, 20},
       "Days of 2001-2002",
       "071 143 215 287 359 066 138 210 282 354"},
      {{0, 12, 30, 6}, {1, 1, 2, 1}, "Days of    0-   1", "365 366 001"},
      {{-1, 12, 30, 6}, {0, 1, 2, 1}, "Days of   -1-   0", "364 365 001"},
      {{1582, 12, 30, 6}, {1583, 1, 2, 1}, "Days of 1582-1583", "364 365 001"},
  });
}

TEST(TimeAxis, AcrossTheNewYearHasItsTicksAtNoon) {
  EXPECT_THAT(ticks(axisOf({2000, 12, 31, 6}, {2001, 1, 2, 1})),
              ElementsAre(2451910 + 1e-6, 2451911 + 1e-6));
}

TEST(TimeAxis, InsideAYearChoosesTheStepByTheDaysThatItSpans) {
  expectAxes({
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 9, 6), "Days of 2001", "007 008 009"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 15, 6), "Days of 2001",
       "007 008 009 010 011 012 013 014 015"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 16, 6), "Days of 2001",
       "007 008 009 010 011 012 013 014 015 016"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 17, 6), "Days of 2001", "010 015"},
      {Second::ofDay(2001, 10, 6), Second::ofDay(2001, 20, 6), "Days of 2001", "010 015 020"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 56, 6), "Days of 2001",
       "010 015 020 025 030 035 040 045 050 055"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 57, 6), "Days of 2001",
       "010 020 030 040 050"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 106, 6), "Days of 2001",
       "010 020 030 040 050 060 070 080 090 100"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 107, 6), "Days of 2001",
       "020 040 060 080 100"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 206, 6), "Days of 2001",
       "020 040 060 080 100 120 140 160 180 200"},
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 207, 6), "Days of 2001",
       "025 050 075 100 125 150 175 200"},
      {Second::ofDay(2001, 1), Second::ofDay(2001, 365, 23), "Days of 2001",
       "025 050 075 100 125 150 175 200 225 250 275 300 325 350"},
      {Second::ofDay(2001, 100, 6), Second::ofDay(2001, 250, 6), "Days of 2001",
       "100 120 140 160 180 200 220 240"},
      {Second::ofDay(2001, 100, 6), Second::ofDay(2001, 130, 6), "Days of 2001",
       "100 105 110 115 120 125 130"},
  });
}

TEST(TimeAxis, OfDaysCountsTheLastDayFromItsMidnightOn) {
  expectAxes({
      {Second::ofDay(2001, 7, 6), Second::ofDay(2001, 10), "Days of 2001", "007 008 009 010"},
      {Second::ofDay(2001, 7), Second::ofDay(2001, 9, 23, 59, 59), "Days of 2001", "007 008 009"},
  });
}

// Deliberate: a millionth of a step counts as none.
TEST(TimeAxis, OfDaysCountsALastDayThatBeginsJustBehindTheEnd) {
  const auto last = [](Second to) { return axisOf(Second::ofDay(2001, 1, 6), to).ticks.back(); };
  EXPECT_EQ(last(Second::ofDay(2001, 224, 23, 59, 59)).second, "225");
  EXPECT_EQ(last(Second::ofDay(2001, 224, 23, 59, 59)).first,
            Second::ofDay(2001, 225).julianDay() + kTickShift);
  EXPECT_EQ(last(Second::ofDay(2001, 224, 23, 59, 50)).second, "200");
}

TEST(TimeAxis, OfDaysHasItsTicksAtMidnight) {
  EXPECT_THAT(ticks(axisOf(Second::ofDay(2001, 10, 6), Second::ofDay(2001, 20, 6))),
              ElementsAre(2451919.5 + 1e-6, 2451924.5 + 1e-6, 2451929.5 + 1e-6));
}

TEST(TimeAxis, OfDaysKnowsTheLengthOfTheYear) {
  expectAxes({
      {Second::ofDay(2001, 350, 6), Second::ofDay(2001, 365, 6), "Days of 2001", "350 355 360 365"},
      {Second::ofDay(2000, 350, 6), Second::ofDay(2000, 366, 6), "Days of 2000", "350 355 360 365"},
      {Second::ofDay(2001, 356, 6), Second::ofDay(2001, 365, 23, 59, 59), "Days of 2001",
       "356 357 358 359 360 361 362 363 364 365"},
      {Second::ofDay(2000, 57, 6), Second::ofDay(2000, 62, 6), "Days of 2000",
       "057 058 059 060 061 062"},
      {Second::ofDay(2000, 363, 6), Second::ofDay(2000, 366, 6), "Days of 2000", "363 364 365 366"},
      {Second::ofDay(1900, 361, 6), Second::ofDay(1900, 365, 6), "Days of 1900",
       "361 362 363 364 365"},
      {Second::ofDay(1582, 270, 6), Second::ofDay(1582, 295, 6), "Days of 1582",
       "270 275 280 285 290 295"},
      {Second::ofDay(0, 350, 6), Second::ofDay(0, 366, 6), "Days of    0", "350 355 360 365"},
      {Second::ofDay(-4, 5, 6), Second::ofDay(-4, 20, 6), "Days of   -4", "005 010 015 020"},
  });
}

TEST(TimeAxis, OverMidnightHasHours) {
  expectAxes({
      {{2001, 1, 7, 23, 59, 30}, {2001, 1, 8, 0, 0, 30}, "Hours 2001-007", "00:00"},
      {{2001, 1, 7, 23, 10, 30}, {2001, 1, 8, 0, 50, 30}, "Hours 2001-007", "00:00"},
      {{2001, 1, 7, 22, 10, 30},
       {2001, 1, 8, 2, 50, 30},
       "Hours 2001-007",
       "23:00 00:00 01:00 02:00"},
      {{2001, 1, 7, 10, 10, 30},
       {2001, 1, 8, 5, 50, 30},
       "Hours 2001-007",
       "11:00 12:00 13:00 14:00 15:00 16:00 17:00 18:00 19:00 20:00 21:00 22:00 23:00 00:00 01:00 "
       "02:00 03:00 04:00 05:00"},
      {{2001, 1, 7, 10, 10, 30},
       {2001, 1, 8, 6, 50, 30},
       "Hours 2001-007",
       "12:00 14:00 16:00 18:00 20:00 22:00 00:00 02:00 04:00 06:00"},
      {{2001, 1, 7, 10, 10, 30},
       {2001, 1, 8, 11, 50, 30},
       "Hours 2001-007",
       "12:00 14:00 16:00 18:00 20:00 22:00 00:00 02:00 04:00 06:00 08:00 10:00"},
      {{2001, 1, 7, 10, 10, 30},
       {2001, 1, 8, 15, 50, 30},
       "Hours 2001-007",
       "12:00 14:00 16:00 18:00 20:00 22:00 00:00 02:00 04:00 06:00 08:00 10:00 12:00 14:00"},
      {{2001, 1, 7, 10, 10, 30},
       {2001, 1, 8, 16, 50, 30},
       "Hours 2001-007",
       "12:00 16:00 20:00 00:00 04:00 08:00 12:00 16:00"},
      {{2001, 1, 7, 10, 10, 30},
       {2001, 1, 8, 21, 50, 30},
       "Hours 2001-007",
       "12:00 16:00 20:00 00:00 04:00 08:00 12:00 16:00 20:00"},
      {{2001, 1, 7, 0, 0, 30},
       {2001, 1, 8, 23, 59, 30},
       "Hours 2001-007",
       "04:00 08:00 12:00 16:00 20:00 00:00 04:00 08:00 12:00 16:00 20:00"},
      {{2000, 2, 28, 20, 10, 30},
       {2000, 2, 29, 3, 10, 30},
       "Hours 2000-059",
       "21:00 22:00 23:00 00:00 01:00 02:00 03:00"},
  });
}

TEST(TimeAxis, OfFourHoursAndMoreOnADayHasHours) {
  expectAxes({
      {{2001, 1, 7, 10, 20, 30},
       {2001, 1, 7, 14, 0, 30},
       "Hours 2001-007",
       "11:00 12:00 13:00 14:00"},
      {{2001, 1, 7, 10, 20, 30},
       {2001, 1, 7, 17, 50, 30},
       "Hours 2001-007",
       "11:00 12:00 13:00 14:00 15:00 16:00 17:00"},
      {{2001, 1, 7, 0, 20, 30},
       {2001, 1, 7, 20, 10, 30},
       "Hours 2001-007",
       "02:00 04:00 06:00 08:00 10:00 12:00 14:00 16:00 18:00 20:00"},
      {{2001, 1, 7, 0, 0, 1},
       {2001, 1, 7, 23, 59, 59},
       "Hours 2001-007",
       "02:00 04:00 06:00 08:00 10:00 12:00 14:00 16:00 18:00 20:00 22:00"},
      {{-4, 2, 29, 1, 0, 1}, {-4, 2, 29, 5, 0, 1}, "Hours   -4-060", "02:00 03:00 04:00 05:00"},
      {{1582, 10, 10, 1, 0, 1},
       {1582, 10, 10, 5, 0, 1},
       "Hours 1582-283",
       "02:00 03:00 04:00 05:00"},
  });
}

TEST(TimeAxis, FromTwentyPastTenToTenToSixHasAsExactTicksTheFullHours) {
  const double noon = 2451545;
  const TimeAxis axis = timeAxis({noon - 100.0 / 1440, noon + 350.0 / 1440});
  EXPECT_EQ(axis.title, "Hours 2000-001");
  EXPECT_EQ(labels(axis), "11:00 12:00 13:00 14:00 15:00 16:00 17:00");
  std::vector<double> expected;
  for (int i = 0; i < 7; ++i) expected.push_back(noon - 1 + 23 / 24.0 + i * (1 / 24.0) + 1e-6);
  EXPECT_EQ(ticks(axis), expected);
}

TEST(TimeAxis, ThatStartsAtAFullHourOrMinuteHasATickThere) {
  for (int second = 0; second < 86400 - 5 * 3600; second += 3600) {
    const Second from(2024, 2, 29, 0, 0, second);
    const TimeAxis axis = axisOf(from, Second(from.count() + 4 * 3600 + 1800));
    ASSERT_FALSE(axis.ticks.empty());
    EXPECT_EQ(axis.ticks.front().second, clock(from));
    EXPECT_GE(axis.ticks.front().first, from.julianDay());
  }
  for (int second = 0; second < 86400 - 600; second += 60) {
    const Second from(2024, 2, 29, 0, 0, second);
    const TimeAxis axis = axisOf(from, Second(from.count() + 450));
    ASSERT_FALSE(axis.ticks.empty());
    EXPECT_EQ(axis.ticks.front().second, clock(from));
    EXPECT_GE(axis.ticks.front().first, from.julianDay());
  }
}

TEST(TimeAxis, ThatStartsJustBehindAFullHourHasItsFirstTickAtTheNext) {
  const double hour = 2451545;
  const double quarter = 5.5 / 24;
  EXPECT_THAT(labels(timeAxis({hour + 1e-7, hour + quarter})), StartsWith("13:00"));
  EXPECT_THAT(labels(timeAxis({hour, hour + quarter})), StartsWith("12:00"));
  EXPECT_THAT(labels(timeAxis({std::nextafter(hour, 3e6), hour + quarter})), StartsWith("12:00"));
  EXPECT_THAT(labels(timeAxis({std::nextafter(hour, 0), hour + quarter})), StartsWith("12:00"));
}

TEST(TimeAxis, ThatStartsJustBeforeAFullHourByRoundingLastsNoHourLonger) {
  const double noon = 2451545;
  const double almostFourHours = noon + 3.9 / 24;
  for (const double start : {noon, std::nextafter(noon, 0), std::nextafter(noon, 3e6)}) {
    EXPECT_EQ(timeAxis({start, almostFourHours}).title, "2000-001");
    EXPECT_THAT(labels(timeAxis({start, almostFourHours})), StartsWith("12:00 12:15 12:30"));
  }
}

TEST(TimeAxis, OfLessThanFourHoursHasMinutes) {
  expectAxes({
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 47, 30}, "2001-007", "10:15 10:30 10:45"},
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 42, 30}, "2001-007", "10:15 10:30"},
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 41, 30}, "2001-007", "10:10 10:20 10:30 10:40"},
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 33, 30}, "2001-007", "10:10 10:20 10:30"},
      {{2001, 1, 7, 10, 2, 30},
       {2001, 1, 7, 10, 32, 30},
       "2001-007",
       "10:05 10:10 10:15 10:20 10:25 10:30"},
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 13, 30}, "2001-007", "10:05 10:10"},
      {{2001, 1, 7, 10, 2, 30},
       {2001, 1, 7, 10, 12, 30},
       "2001-007",
       "10:03 10:04 10:05 10:06 10:07 10:08 10:09 10:10 10:11 10:12"},
      {{2001, 1, 7, 10, 2, 30},
       {2001, 1, 7, 10, 7, 30},
       "2001-007",
       "10:03 10:04 10:05 10:06 10:07"},
      {{2001, 1, 7, 10, 20, 30},
       {2001, 1, 7, 13, 59, 30},
       "2001-007",
       "10:30 10:45 11:00 11:15 11:30 11:45 12:00 12:15 12:30 12:45 13:00 13:15 13:30 13:45"},
      {{2001, 1, 7, 0, 0, 1},
       {2001, 1, 7, 3, 59, 59},
       "2001-007",
       "00:15 00:30 00:45 01:00 01:15 01:30 01:45 02:00 02:15 02:30 02:45 03:00 03:15 03:30 "
       "03:45"},
      // Over noon, where a new Julian day begins.
      {{2001, 1, 7, 11, 50, 30},
       {2001, 1, 7, 12, 15, 30},
       "2001-007",
       "11:55 12:00 12:05 12:10 12:15"},
  });
}

TEST(TimeAxis, OfLessThanFiveMinutesHasOnlyATitle) {
  expectAxes({
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 6, 59}, "2001-007", ""},
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 5, 30}, "2001-007", ""},
      {{2001, 1, 7, 10, 2, 30}, {2001, 1, 7, 10, 2, 31}, "2001-007", ""},
      {{2001, 1, 7, 11, 59, 30}, {2001, 1, 7, 12, 0, 30}, "2001-007", ""},
      {{2001, 1, 7, 10, 59, 30}, {2001, 1, 7, 11, 3, 59}, "2001-007", ""},
  });
}

TEST(TimeAxis, BeforeTheFirstJulianDayIsAscendingAsWell) {
  for (const double length : {0.01, 0.3, 1.5, 30.0, 500.0, 5000.0}) {
    const auto all = ticks(timeAxis({-12345.678, -12345.678 + length}));
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end())) << length;
  }
}

bool isFullMinute(std::int64_t second) {
  return second % 60 == 0;
}

RC_GTEST_PROP(TimeAxisProperties, EveryRangeHasTheAxisThatWholeNumbersGive, ()) {
  const std::int64_t first = Second(-4711, 1, 1).count();
  const std::int64_t end = Second(9990, 1, 1).count();
  for (int i = 0; i < kBatch; ++i) {
    // From seconds to centuries, all magnitudes equally likely.
    const double part = *rc::gen::inRange(0, 1'000'000) / 1e6;
    const auto length = static_cast<std::int64_t>(std::exp(part * std::log(1e10)));
    std::int64_t from = *rc::gen::inRange(first, end - 10'000'000'001);
    if (isFullMinute(from)) ++from;
    std::int64_t to = from + length;
    if (isFullMinute(to)) ++to;

    const TimeAxis axis = axisOf(Second(from), Second(to));
    const TimeAxis expected = expectedAxis(Second(from), Second(to));
    RC_ASSERT(axis.title == expected.title);
    RC_ASSERT(axis.ticks == expected.ticks);
  }
}

RC_GTEST_PROP(TimeAxisProperties, AnyRangeHasABoundedNumberOfAscendingTicks, ()) {
  for (int i = 0; i < kBatch; ++i) {
    const double part = *rc::gen::inRange(0, 1'000'000) / 1e6;
    const double length = std::exp(std::lerp(std::log(1e-6), std::log(1.5e5), part));
    const double from = *rc::gen::inRange(-2'000'000'000, 2'000'000'000) / 300.0 +
                        *rc::gen::inRange(0, 1'000'000) / 1e6;
    const TimeAxis axis = timeAxis({from, from + length});
    const auto all = ticks(axis);
    const bool isYears = axis.title.find("ours") == std::string::npos &&
                         axis.title.find("Days") == std::string::npos;
    RC_ASSERT(all.size() <= (isYears ? 415u : 25u));
    RC_ASSERT(std::is_sorted(all.begin(), all.end()));
    RC_ASSERT(std::adjacent_find(all.begin(), all.end()) == all.end());
    const bool isPartOfDay =
        !all.empty() && axis.ticks.front().second.find(':') != std::string::npos;
    if (isPartOfDay) RC_ASSERT(all.front() >= from);
  }
}

}  // namespace
}  // namespace vexel
