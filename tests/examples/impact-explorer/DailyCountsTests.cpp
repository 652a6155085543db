#include "DailyCounts.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <stdexcept>

#include <gmock/gmock.h>

namespace explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNan;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double absent = std::numeric_limits<double>::quiet_NaN();

DailyCounts counts(const std::vector<double>& times, int days = 1,
                   const std::vector<DaySpan>& unmeasured = {}) {
  return countsPerDays(times, days, unmeasured);
}

TEST(DailyCounts, TimesThatAreNoDaysAreNotCounted) {
  for (const double time : {absent, infinity, -infinity, 1e308, -1e308, 1.1e12}) {
    EXPECT_THAT(counts({time}).counts, IsEmpty()) << time;
    EXPECT_THAT(counts({time, 10.0, time}).counts, ElementsAre(1)) << time;
  }
  EXPECT_THAT(counts({}).counts, IsEmpty());
}

TEST(DailyCounts, BinsStayFewWhateverTheTimesAre) {
  const auto result = counts({-1e12, 0, 1e12});
  EXPECT_LE(result.counts.size(), DailyCounts::mostBins);
  EXPECT_GT(result.counts.size(), DailyCounts::mostBins / 2);
  EXPECT_EQ(std::accumulate(result.counts.begin(), result.counts.end(), 0.0), 3);
  EXPECT_EQ(result.counts.back(), 1);

  EXPECT_EQ(counts({0.5, 999'999.5}).days, 1);
  EXPECT_EQ(counts({0.5, 999'999.5}).counts.size(), 1'000'000);
  EXPECT_EQ(counts({0.5, 1'000'000.5}).days, 2);
}

TEST(DailyCounts, BinsOfLessThanADayAreRefused) {
  EXPECT_THROW(counts({1}, 0), std::invalid_argument);
  EXPECT_THROW(counts({1}, -7), std::invalid_argument);
  EXPECT_EQ(counts({1, 5}, std::numeric_limits<int>::max()).counts.size(), 1);
}

TEST(DailyCounts, DaysBeginAtMidnight) {
  const auto result = counts({2459000.5, 2459001.4999, 2459001.5, 2459003.0});
  EXPECT_EQ(result.start, 2459000.5);
  EXPECT_EQ(result.days, 1);
  EXPECT_THAT(result.counts, ElementsAre(2, 1, 1));
  EXPECT_EQ(result.middle(0), 2459001);
  EXPECT_EQ(result.middle(2), 2459003);

  EXPECT_EQ(counts({2459000.4}).start, 2458999.5);
  EXPECT_EQ(counts({-0.6}).start, -1.5);
}

TEST(DailyCounts, OrderOfTheTimesDoesNotMatter) {
  EXPECT_EQ(counts({3.0, 1.0, 2.0, 1.2}), counts({1.0, 1.2, 2.0, 3.0}));
}

TEST(DailyCounts, WiderBinsHoldTheirDaysTogether) {
  const auto result = counts({1.0, 2.0, 3.0, 4.0, 8.0}, 3);
  EXPECT_EQ(result.start, 0.5);
  EXPECT_EQ(result.days, 3);
  EXPECT_THAT(result.counts, ElementsAre(3, 1, 1));
  EXPECT_EQ(result.middle(1), 5);
}

TEST(DailyCounts, DaysWithoutMeasurementAreGapsAndQuietDaysAreZero) {
  const std::vector<double> times = {1.0, 2.0, 9.0};
  EXPECT_THAT(counts(times, 1, {{3.5, 5.5}, {6.6, 7.5}}).counts,
              ElementsAre(1, 1, 0, IsNan(), IsNan(), 0, 0, 0, 1));
  EXPECT_THAT(counts(times, 3, {{3.4, 6.5}, {8.0, 8.2}}).counts, ElementsAre(2, IsNan(), 1));
}

TEST(DailyCounts, WhatWasMeasuredIsNeverHiddenByAGap) {
  EXPECT_THAT(counts({1.0, 2.0, 3.0}, 1, {{-infinity, infinity}}).counts, ElementsAre(1, 1, 1));
  EXPECT_THAT(counts({1.0, 3.0}, 1, {{absent, absent}, {5, 2}}).counts, ElementsAre(1, 0, 1));
}

}  // namespace
}  // namespace explorer
