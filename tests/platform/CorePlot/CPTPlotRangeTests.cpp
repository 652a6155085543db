#include <CorePlot/CPTPlotRange.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(CPTPlotRange, NothingIsInARangeOfNaNsAndNaNIsInNoRange) {
  EXPECT_FALSE(CPTPlotRange(kNaN, 1).containsDouble(0));
  EXPECT_FALSE(CPTPlotRange(0, kNaN).containsDouble(0));
  EXPECT_FALSE(CPTPlotRange(0, 1).containsDouble(kNaN));
}

TEST(CPTPlotRange, ANewRangeGoesFromZeroOverOne) {
  const CPTPlotRange range;
  EXPECT_EQ(range.locationDouble(), 0);
  EXPECT_EQ(range.lengthDouble(), 1);
  EXPECT_EQ(range, CPTPlotRange(0, 1));
}

TEST(CPTPlotRange, ARangeThatRunsBackwardsHasItsEndBelowItsLocation) {
  const CPTPlotRange range(10, -4);
  EXPECT_EQ(range.endDouble(), 6);
  EXPECT_EQ(range.minLimitDouble(), 6);
  EXPECT_EQ(range.maxLimitDouble(), 10);
  EXPECT_EQ(range.midPointDouble(), 8);
  EXPECT_TRUE(range.containsDouble(6));
  EXPECT_TRUE(range.containsDouble(10));
  EXPECT_FALSE(range.containsDouble(5.9));
}

TEST(CPTPlotRange, AnEmptyRangeContainsItsLocationAlone) {
  const CPTPlotRange range(3, 0);
  EXPECT_TRUE(range.containsDouble(3));
  EXPECT_FALSE(range.containsDouble(3.1));
}

TEST(CPTPlotRange, TheEndsOfARangeAreInside) {
  const CPTPlotRange range(2000, 8000);
  EXPECT_EQ(range.endDouble(), 10000);
  EXPECT_EQ(range.minLimitDouble(), 2000);
  EXPECT_EQ(range.maxLimitDouble(), 10000);
  EXPECT_EQ(range.midPointDouble(), 6000);
  EXPECT_TRUE(range.containsDouble(2000));
  EXPECT_TRUE(range.containsDouble(10000));
  EXPECT_FALSE(range.containsDouble(10000.1));
}

TEST(CPTPlotRange, TheEndOfAHugeRangeMayBeInfinite) {
  const CPTPlotRange range(1e308, 1.7e308);
  EXPECT_TRUE(std::isinf(range.endDouble()));
  EXPECT_TRUE(range.containsDouble(1.7e308));
}

}  // namespace
}  // namespace vexel
