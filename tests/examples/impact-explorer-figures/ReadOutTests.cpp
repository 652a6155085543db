#include "ReadOut.h"

#include <gtest/gtest.h>

#include <limits>

namespace explorer {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMinute = 1.0 / 1440;

struct Time {
  double time, resolution;
  bool isInCalendar;
  std::string text;
};

TEST(ReadOut, TimesAreAsLongAsTheyAreTrue) {
  const Time cases[] = {
      {kNaN, 1, false, "nan"},
      {-kInfinity, 1, false, "-inf"},
      {1e300, 1, false, "1e+300"},
      {12.3456789, 0.1, false, "12.34568"},
      {2451545, 2, true, "2000-01-01"},
      {2451545, 1, true, "2000-01-01 12:00"},
      {2451545, kMinute / 60, true, "2000-01-01 12:00:00"},
      {2451545.25, 0, true, "2000-01-01 18:00:00"},
      {2451544.5, 0, true, "2000-01-01 00:00:00"},
      {2451544.5 - 1e-7, 0, true, "2000-01-01 00:00:00"},
      {2451544.5 - 1e-7, 2, true, "2000-01-01"},
      {2460370.5 - 1.0 / 86400, 0, true, "2024-02-29 23:59:59"},
      {0, 1, true, "-4713-11-24 12:00"},
  };
  for (const auto& [time, resolution, isInCalendar, text] : cases)
    EXPECT_EQ(timeText(time, resolution, isInCalendar), text);
}

TEST(ReadOut, ValuesHaveFourDigitsThatCount) {
  EXPECT_EQ(valueText(kNaN), "-");
  EXPECT_EQ(valueText(kInfinity), "inf");
  EXPECT_EQ(valueText(0), "0");
  EXPECT_EQ(valueText(12.3456), "12.35");
  EXPECT_EQ(valueText(-1234567), "-1.235e+06");
}

struct Points {
  Numbers times, values;
};

TEST(NearestPoint, NoPointsAreNeverNear) {
  for (const auto& [points, values] :
       {Points{}, Points{{kNaN, kInfinity}, {1, 2}}, Points{{1, 2, 3}, {kNaN, kNaN, kNaN}}})
    for (const double time : {kNaN, -kInfinity, 0.0, 2.0})
      EXPECT_EQ(NearestPoint(points).at(time, 10, values), std::nullopt);
}

struct Near {
  double time, reach;
  std::optional<std::size_t> point;
};

TEST(NearestPoint, IsTheNearestWithAValueWithinReach) {
  // In any order, with a time and a value missing.
  const Numbers times{30, 10, kNaN, 20, 22};
  const Numbers values{3, 1, 9, kNaN, 2};
  const Near cases[] = {
      {kNaN, 5, std::nullopt},
      {10, kNaN, std::nullopt},
      {10, -1, std::nullopt},
      {10, 0, 1},
      {9, 5, 1},
      {4, 5, std::nullopt},
      {20, 1, std::nullopt},
      {20, 5, 4},
      {15, 6, 1},
      {17, 50, 4},
      {27, 5, 0},
      {25, 5, 4},
      {1000, 5, std::nullopt},
      {1000, 1e9, 0},
      {-1000, kInfinity, 1},
  };
  for (const auto& [time, reach, point] : cases)
    EXPECT_EQ(NearestPoint(times).at(time, reach, values), point) << time << ' ' << reach;
}

TEST(NearestPoint, GivesUpInALongGap) {
  const std::size_t count = 4 * NearestPoint::kMostTried;
  std::vector<double> times(count), values(count, kNaN);
  for (std::size_t i = 0; i < count; ++i) times[i] = static_cast<double>(i);
  values.front() = 1;
  EXPECT_EQ(NearestPoint(times).at(static_cast<double>(count) / 2, 1e9, values), std::nullopt);
  EXPECT_EQ(NearestPoint(times).at(10, 1e9, values), 0u);
}

}  // namespace
}  // namespace explorer
