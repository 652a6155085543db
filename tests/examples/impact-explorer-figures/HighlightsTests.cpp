#include "Highlights.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace explorer {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

ImpactSample sampleOf(std::vector<double> days, std::vector<double> distances) {
  ImpactSample sample;
  sample.table.columns.push_back({.name = "Julian date", .values = std::move(days)});
  sample.table.columns.push_back({.name = "Radial distance [au]", .values = std::move(distances)});
  return sample;
}

/// Bars of ten days, the first around day 5.
Band barsOf(std::vector<double> counts) {
  std::vector<double> middles;
  for (std::size_t i = 0; i < counts.size(); ++i)
    middles.push_back(5 + 10 * static_cast<double>(i));
  return {.title = "", .times = std::move(middles), .values = std::move(counts), .barWidth = 10};
}

struct Case {
  const char* what;
  std::vector<double> counts;
  double start, end, most;
};

TEST(Highlights, TheStrongestStreamIsTheFullestBarWithNeighboursOfAQuarterOfIt) {
  const ImpactSample sample = sampleOf({1, 2}, {1, 0.5});
  const Case cases[] = {
      {"gaps first", {kNaN, 3, kNaN}, 10, 20, 3},
      {"no impact counted", {0, 0, 0}, 0, 30, 0},
      {"a single bar", {7}, 0, 10, 7},
      {"the first of two that are equal", {1, 8, 1, 8}, 10, 20, 8},
      {"a quarter belongs to it", {1, 2, 8, 2, 1}, 10, 40, 8},
      {"less than a quarter does not", {1.9, 8, 1.9}, 10, 20, 8},
      {"up to both ends", {4, 8, 4}, 0, 30, 8},
      {"what lies beyond a gap does not", {8, kNaN, 8}, 0, 10, 8},
  };
  for (const Case& c : cases) {
    const auto found = highlightsOf(sample, barsOf(c.counts));
    ASSERT_TRUE(found) << c.what;
    EXPECT_EQ(found->strongestStream, (DaySpan{c.start, c.end})) << c.what;
    EXPECT_EQ(found->mostImpacts, c.most) << c.what;
  }
}

TEST(Highlights, ThePerihelionIsWhereTheDistanceIsFirstSmallest) {
  const auto found = highlightsOf(sampleOf({10, 20, 30, 40}, {1, 0.4, 0.4, 0.9}), barsOf({1}));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->perihelionDay, 20);
  EXPECT_EQ(found->perihelionDistance, 0.4);
}

TEST(Highlights, ThereAreNoneWithoutImpactsOrBars) {
  EXPECT_EQ(highlightsOf(sampleOf({}, {}), barsOf({1})), std::nullopt);
  EXPECT_EQ(highlightsOf(sampleOf({1}, {1}), barsOf({})), std::nullopt);
}

}  // namespace
}  // namespace explorer
