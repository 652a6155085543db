#include <Astrel/EventTime.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <chrono>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>

namespace vexel {

void PrintTo(const CalendarDate& date, std::ostream* out) {
  *out << date.year << "-" << date.month << "-" << date.day << " " << date.hour << ":"
       << date.minute << ":" << date.second << " + " << date.nanosecond << " ns";
}

void PrintTo(const DayOfYear& day, std::ostream* out) {
  *out << "day " << day.dayOfYear << " of " << day.year;
}

void PrintTo(const DayOfMonth& day, std::ostream* out) {
  *out << "day " << day.day << " of month " << day.month;
}

namespace {

using std::chrono::sys_days;

__extension__ typedef __int128 Int128;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kFirstYear = -4712;
constexpr int kLastYear = 9999;
/// Cases drawn at a time: rounding goes wrong rarely.
constexpr int kBatch = 100;
constexpr std::int64_t kNanosecondsPerDay = 86'400'000'000'000;
constexpr double kFirstJulianDay = 37.5;     // 1 January -4712, midnight
constexpr double kEndJulianDay = 5373484.5;  // 1 January 10000, midnight

/// Any time of any day in the years that the conversions are meant for, to the nanosecond.
CalendarDate anyDate() {
  const int year = *rc::gen::inRange(kFirstYear, kLastYear + 1);
  const int month = *rc::gen::inRange(1, 13);
  const auto last = std::chrono::year(year) / month / std::chrono::last;
  return {.year = year,
          .month = month,
          .day = *rc::gen::inRange(1, int(unsigned(last.day())) + 1),
          .hour = *rc::gen::inRange(0, 24),
          .minute = *rc::gen::inRange(0, 60),
          .second = *rc::gen::inRange(0, 60),
          .nanosecond = *rc::gen::inRange(0, 1'000'000'000)};
}

/// Any double from `lower` to `upper`, even where few of them are between two nanoseconds.
double anyJulianDay(double lower, double upper) {
  const auto part = *rc::gen::inRange<std::int64_t>(0, std::int64_t{1} << 53);
  return std::lerp(lower, upper, static_cast<double>(part) * 0x1p-53);
}

/// Nanoseconds since noon of 24 November -4713, by the civil calendar of the standard library.
Int128 civilNanoseconds(const CalendarDate& date) {
  const std::chrono::year_month_day civil(
      std::chrono::year(date.year), std::chrono::month(date.month), std::chrono::day(date.day));
  const std::int64_t halfDays = 2 * sys_days(civil).time_since_epoch().count() + 4881175;
  const std::int64_t seconds = date.hour * 3600 + date.minute * 60 + date.second;
  return Int128{halfDays} * (kNanosecondsPerDay / 2) + Int128{seconds} * 1'000'000'000 +
         date.nanosecond;
}

/// By how much a Julian day, which is `digits` units of 2^-shift days, is later than a time.
struct Difference {
  Int128 scaled;  ///< in nanoseconds * 2^-shift
  int shift;

  Difference(double julianDay, Int128 nanoseconds) {
    int exponent = 0;
    const auto digits = static_cast<std::int64_t>(std::ldexp(std::frexp(julianDay, &exponent), 53));
    shift = 53 - exponent;
    scaled = Int128{digits} * kNanosecondsPerDay - (nanoseconds << shift);
  }

  /// The last digit of the double stands for a whole day's nanoseconds * 2^-shift.
  bool isAtMostHalfALastDigit() const { return magnitude() * 2 <= kNanosecondsPerDay; }
  bool isAtMostHalfANanosecond() const { return magnitude() <= Int128{1} << (shift - 1); }

 private:
  Int128 magnitude() const { return scaled < 0 ? -scaled : scaled; }
};

TEST(EventTime, HasNoDateForJulianDaysThatAreNoNumberOrTooLarge) {
  for (double julianDay : {kNaN, -kNaN, kInfinity, -kInfinity, 1e308, -1e308, 0x1p31, -0x1p31})
    EXPECT_DEATH(EventTime::julianDay2Date(julianDay),
                 "Fatal error: EventTime.julianDay2Date: no date for this Julian day");
}

TEST(EventTime, HasADateForEveryJulianDayThatAnIntHolds) {
  const double last = std::nextafter(0x1p31, 0);
  for (double julianDay : {last, -last, 2147483647.0, -2147483647.0})
    EXPECT_EQ(EventTime::date2JulianYear(EventTime::julianDay2Date(julianDay)), julianDay);
}

TEST(EventTime, KnowsTheDatesOfJulianDays) {
  struct Case {
    double julianDay;
    CalendarDate date;
  };
  const Case cases[] = {
      {-2147483647, {-5884323, 5, 16, 12, 0, 0, 0}},
      {2147483647, {5874898, 6, 3, 12, 0, 0, 0}},
      {-1, {-4713, 11, 23, 12, 0, 0, 0}},
      {0, {-4713, 11, 24, 12, 0, 0, 0}},
      {-0.0, {-4713, 11, 24, 12, 0, 0, 0}},
      {37.5, {-4712, 1, 1, 0, 0, 0, 0}},
      {38, {-4712, 1, 1, 12, 0, 0, 0}},
      {1721059.5, {0, 1, 1, 0, 0, 0, 0}},
      {1721425.5, {1, 1, 1, 0, 0, 0, 0}},
      {1721425.25, {0, 12, 31, 18, 0, 0, 0}},
      {2299159.5, {1582, 10, 14, 0, 0, 0, 0}},
      {2299160.5, {1582, 10, 15, 0, 0, 0, 0}},
      {2400000.5, {1858, 11, 17, 0, 0, 0, 0}},
      {2440587.5, {1970, 1, 1, 0, 0, 0, 0}},
      {2451545.0, {2000, 1, 1, 12, 0, 0, 0}},
      {2451603.75, {2000, 2, 29, 6, 0, 0, 0}},
      {2488069.5, {2100, 1, 1, 0, 0, 0, 0}},
      {2488128.5, {2100, 3, 1, 0, 0, 0, 0}},
      {2451544.5 + 0x1p-31, {2000, 1, 1, 0, 0, 0, 40233}},
      {2451544.5 - 0x1p-31, {1999, 12, 31, 23, 59, 59, 999959767}},
      {5373484.5 - 0x1p-30, {9999, 12, 31, 23, 59, 59, 999919534}},
      {5373484.5, {10000, 1, 1, 0, 0, 0, 0}},
  };
  for (const auto& [julianDay, date] : cases) {
    EXPECT_EQ(EventTime::julianDay2Date(julianDay), date) << julianDay;
    EXPECT_EQ(EventTime::date2JulianYear(date), julianDay);
  }
}

TEST(EventTime, RoundsToNanosecondsOnce) {
  const CalendarDate noon = {-4713, 11, 24, 12, 0, 0, 0};
  CalendarDate later = noon;
  later.nanosecond = 1;
  const CalendarDate earlier = {-4713, 11, 24, 11, 59, 59, 999'999'999};
  const double halfANanosecond = 0.5 / kNanosecondsPerDay;

  for (double tiny : {5e-324, 1e-300, 1e-20, 0.999999 * halfANanosecond}) {
    EXPECT_EQ(EventTime::julianDay2Date(tiny), noon) << tiny;
    EXPECT_EQ(EventTime::julianDay2Date(-tiny), noon) << tiny;
  }
  EXPECT_EQ(EventTime::julianDay2Date(1.000001 * halfANanosecond), later);
  EXPECT_EQ(EventTime::julianDay2Date(-1.000001 * halfANanosecond), earlier);

  // 2^-17 of a day are 659179687.5 nanoseconds.
  EXPECT_EQ(EventTime::julianDay2Date(2451544.5 + 0x1p-17).nanosecond, 659'179'688);
  EXPECT_EQ(EventTime::julianDay2Date(2451544.5 - 0x1p-17).nanosecond, 340'820'313);
}

TEST(EventTime, CarriesDatesOverThatTheCalendarDoesNotHave) {
  struct Case {
    CalendarDate date, same;
  };
  const Case cases[] = {
      {{2001, 13, 1, 0, 0, 0, 0}, {2002, 1, 1, 0, 0, 0, 0}},
      {{2001, 0, 1, 0, 0, 0, 0}, {2000, 12, 1, 0, 0, 0, 0}},
      {{2001, -11, 1, 0, 0, 0, 0}, {2000, 1, 1, 0, 0, 0, 0}},
      {{2001, 2, 31, 0, 0, 0, 0}, {2001, 3, 3, 0, 0, 0, 0}},
      {{2000, 2, 31, 0, 0, 0, 0}, {2000, 3, 2, 0, 0, 0, 0}},
      {{2000, 3, 0, 0, 0, 0, 0}, {2000, 2, 29, 0, 0, 0, 0}},
      {{1, 1, -365, 0, 0, 0, 0}, {0, 1, 1, 0, 0, 0, 0}},
      {{2000, 12, 31, 24, 0, 0, 0}, {2001, 1, 1, 0, 0, 0, 0}},
      {{2000, 1, 1, 0, -1, 0, 0}, {1999, 12, 31, 23, 59, 0, 0}},
      {{2000, 1, 1, 0, 0, 86'400, 0}, {2000, 1, 2, 0, 0, 0, 0}},
      {{2000, 1, 1, 0, 0, -1, 1'000'000'000}, {2000, 1, 1, 0, 0, 0, 0}},
  };
  for (const auto& [date, same] : cases)
    EXPECT_EQ(EventTime::date2JulianYear(date), EventTime::date2JulianYear(same))
        << testing::PrintToString(date);
}

TEST(EventTime, GivesAJulianDayForAnyNumbers) {
  const int most = INT_MAX;
  const int least = INT_MIN;
  EXPECT_NEAR(EventTime::date2JulianYear({most, most, most, most, most, most, most}),
              most * (365.2425 * 13 / 12 + 1 + 1 / 24. + 1 / 1440. + 1 / 86400.), 1e7);
  EXPECT_NEAR(EventTime::date2JulianYear({least, least, least, least, least, least, least}),
              least * (365.2425 * 13 / 12 + 1 + 1 / 24. + 1 / 1440. + 1 / 86400.), 1e7);
}

TEST(EventTime, KnowsLeapYears) {
  for (int year : {-2147483600, -4712, -400, -8, -4, 0, 4, 400, 1600, 1996, 2000, 2004, 2400, 9996})
    EXPECT_TRUE(EventTime::isLeapYear(year)) << year;
  for (int year : {INT_MIN + 1, INT_MAX, -4711, -500, -100, -3, -1, 1, 100, 1582, 1700, 1900, 1999,
                   2001, 2100, 9999})
    EXPECT_FALSE(EventTime::isLeapYear(year)) << year;
}

TEST(EventTime, NumbersTheDaysOfAYear) {
  struct Case {
    int day, month, year;
    DayOfYear dayOfYear;
  };
  const Case cases[] = {
      {31, 12, INT_MAX, {365, INT_MAX}},
      {1, 1, INT_MIN, {1, INT_MIN}},
      {1, 13, 2001, {1, 2002}},
      {0, 1, 2001, {366, 2000}},
      {31, 2, 2001, {62, 2001}},
      {1, 3, -1, {60, -1}},
      {1, 3, 0, {61, 0}},
      {15, 10, 1582, {288, 1582}},
      {31, 12, 1900, {365, 1900}},
      {31, 12, 2000, {366, 2000}},
      {28, 2, 2100, {59, 2100}},
      {1, 3, 2100, {60, 2100}},
  };
  for (const auto& [day, month, year, dayOfYear] : cases)
    EXPECT_EQ(EventTime::date2DayOfYear(day, month, year), dayOfYear)
        << year << "-" << month << "-" << day;
}

TEST(EventTime, HasNoDayOfYearInAYearBeyondInt) {
  EXPECT_DEATH(EventTime::date2DayOfYear(1, 13, INT_MAX),
               "Fatal error: EventTime.date2DayOfYear: .* a year beyond int");
  EXPECT_DEATH(EventTime::date2DayOfYear(0, 1, INT_MIN),
               "Fatal error: EventTime.date2DayOfYear: .* a year beyond int");
}

TEST(EventTime, FindsTheDateOfADayOfYear) {
  struct Case {
    int dayOfYear, year;
    DayOfMonth date;
  };
  const Case cases[] = {
      {0, 2001, {31, 12}}, {-1, 2001, {30, 12}}, {366, 2001, {1, 1}},      {366, 2000, {31, 12}},
      {400, 2001, {4, 2}}, {60, 2001, {1, 3}},   {60, 2000, {29, 2}},      {60, 1900, {1, 3}},
      {60, 0, {29, 2}},    {60, -1, {1, 3}},     {365, INT_MAX, {31, 12}}, {1, INT_MIN, {1, 1}},
      {1, 2001, {1, 1}},   {32, 2001, {1, 2}},
  };
  for (const auto& [dayOfYear, year, date] : cases)
    EXPECT_EQ(EventTime::dayOfYear2date(dayOfYear, year), date) << dayOfYear << " of " << year;
}

TEST(EventTime, CountsTheDaysOfEveryMonth) {
  double monthBegin = kFirstJulianDay;
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    ASSERT_EQ(EventTime::isLeapYear(year), isLeap) << year;
    int daysBefore = 0;
    for (int month = 1; month <= 12; ++month) {
      const bool isShort = month == 4 || month == 6 || month == 9 || month == 11;
      const int length = month == 2 ? (isLeap ? 29 : 28) : isShort ? 30 : 31;
      for (int day : {1, length}) {
        const CalendarDate date = {year, month, day, 0, 0, 0, 0};
        const double julianDay = monthBegin + day - 1;
        const int dayOfYear = daysBefore + day;
        ASSERT_EQ(EventTime::julianDay2Date(julianDay), date);
        ASSERT_EQ(EventTime::date2JulianYear(date), julianDay) << testing::PrintToString(date);
        ASSERT_EQ(EventTime::date2DayOfYear(day, month, year), (DayOfYear{dayOfYear, year}));
        ASSERT_EQ(EventTime::dayOfYear2date(dayOfYear, year), (DayOfMonth{day, month}));
      }
      daysBefore += length;
      monthBegin += length;
    }
  }
  EXPECT_EQ(monthBegin, kEndJulianDay);
}

RC_GTEST_PROP(EventTime, GivesTheDoubleNearestToADate, ()) {
  for (int i = 0; i < kBatch; ++i) {
    const CalendarDate date = anyDate();
    const double julianDay = EventTime::date2JulianYear(date);
    RC_ASSERT(Difference(julianDay, civilNanoseconds(date)).isAtMostHalfALastDigit());
  }
}

RC_GTEST_PROP(EventTime, GivesTheNanosecondNearestToAJulianDay, ()) {
  for (int i = 0; i < kBatch; ++i) {
    const double julianDay = anyJulianDay(kFirstJulianDay, kEndJulianDay);
    const CalendarDate date = EventTime::julianDay2Date(julianDay);
    RC_ASSERT(Difference(julianDay, civilNanoseconds(date)).isAtMostHalfANanosecond());
    RC_ASSERT(date.hour >= 0 && date.hour < 24);
    RC_ASSERT(date.minute >= 0 && date.minute < 60);
    RC_ASSERT(date.second >= 0 && date.second < 60);
    RC_ASSERT(date.nanosecond >= 0 && date.nanosecond < 1'000'000'000);
  }
}

RC_GTEST_PROP(EventTime, BringsADateBackToHalfTheDistanceOfTwoJulianDays, ()) {
  for (int i = 0; i < kBatch; ++i) {
    const CalendarDate date = anyDate();
    const double julianDay = EventTime::date2JulianYear(date);
    const CalendarDate back = EventTime::julianDay2Date(julianDay);
    const Int128 distance = civilNanoseconds(back) - civilNanoseconds(date);
    // 2^-31 of a day are 40233.1 nanoseconds, 2^-30 are 80466.3.
    const std::int64_t half = julianDay < 0x1p22 ? 20117 : 40234;
    RC_ASSERT(distance >= -half && distance <= half);
  }
}

RC_GTEST_PROP(EventTime, BringsAJulianDayBackUnchanged, ()) {
  for (int i = 0; i < kBatch; ++i) {
    const double upper = *rc::gen::element(100.0, 1e4, kEndJulianDay, 0x1p31 - 1);
    const double julianDay = anyJulianDay(64, upper);
    RC_ASSERT(EventTime::date2JulianYear(EventTime::julianDay2Date(julianDay)) == julianDay);
  }
}

RC_GTEST_PROP(EventTime, AgreesWithTheDaysBetweenDatesAndTheFirstOfJanuary, ()) {
  for (int i = 0; i < kBatch; ++i) {
    const CalendarDate date = anyDate();
    const std::chrono::year year(date.year);
    const auto days = sys_days(year / date.month / date.day) - sys_days(year / 1 / 1);
    const DayOfYear expected = {static_cast<int>(days.count()) + 1, date.year};
    RC_ASSERT(EventTime::date2DayOfYear(date.day, date.month, date.year) == expected);
    RC_ASSERT(EventTime::dayOfYear2date(expected.dayOfYear, date.year) ==
              (DayOfMonth{date.day, date.month}));
  }
}

}  // namespace
}  // namespace vexel
