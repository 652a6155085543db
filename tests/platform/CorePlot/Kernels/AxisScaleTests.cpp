#include <Kernels/AxisScale.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

AxisScale linear(double location, double length, double extent = 100) {
  return {.location = location, .length = length, .logarithmic = false, .extent = extent};
}

AxisScale logarithmic(double location, double length, double extent = 100) {
  return {.location = location, .length = length, .logarithmic = true, .extent = extent};
}

TEST(AxisScale, IsNotDrawableWithoutARangeAndALength) {
  const AxisScale cases[] = {
      linear(kNaN, 1),
      linear(kInfinity, 1),
      linear(0, kNaN),
      linear(0, -kInfinity),
      linear(0, 0),
      linear(5, -0.0),
      linear(0, 1, 0),
      linear(0, 1, -3),
      linear(0, 1, kNaN),
      linear(0, 1, kInfinity),
      logarithmic(0, 10),
      logarithmic(-1, 10),
      logarithmic(10, -10),
      logarithmic(10, -11),
      logarithmic(kNaN, 1),
      logarithmic(1, 0),
      logarithmic(1, kInfinity),
      logarithmic(1e300, kSmallest),
      logarithmic(1e300, -1e-300),
      AxisScale{},
  };
  for (const AxisScale& scale : cases) {
    SCOPED_TRACE(testing::Message() << scale.location << " " << scale.length << " "
                                    << scale.logarithmic << " " << scale.extent);
    EXPECT_FALSE(scale.isDrawable());
    EXPECT_TRUE(std::isnan(scale.position(1)));
    EXPECT_TRUE(std::isnan(scale.value(1)));
  }
}

TEST(AxisScale, IsDrawableAtTheLimitsOfTheDoubles) {
  for (const AxisScale& scale : {linear(0, kSmallest), linear(-kLargest, kLargest),
                                 linear(kLargest, kLargest), logarithmic(kSmallest, kLargest),
                                 logarithmic(kLargest, kLargest), logarithmic(kLargest, -1e300)})
    EXPECT_TRUE(scale.isDrawable());
}

TEST(AxisScale, GivesNoPlaceToWhatHasNone) {
  EXPECT_TRUE(std::isnan(linear(0, 1).position(kNaN)));
  EXPECT_TRUE(std::isnan(linear(0, 1).value(kNaN)));
  for (double value : {kNaN, -kInfinity, -kLargest, -1.0, -kSmallest, -0.0, 0.0})
    EXPECT_TRUE(std::isnan(logarithmic(1, 9).position(value))) << value;
}

TEST(AxisScale, PutsInfiniteValuesInfinitelyFar) {
  EXPECT_EQ(linear(0, 1).position(kInfinity), kInfinity);
  EXPECT_EQ(linear(0, 1).position(-kInfinity), -kInfinity);
  EXPECT_EQ(linear(0, -1).position(kInfinity), -kInfinity);
  EXPECT_EQ(linear(0, -1).position(-kInfinity), kInfinity);
  EXPECT_EQ(logarithmic(1, 9).position(kInfinity), kInfinity);
  EXPECT_EQ(logarithmic(10, -9).position(kInfinity), -kInfinity);
}

TEST(AxisScale, PutsFiniteValuesAtFinitePlaces) {
  EXPECT_EQ(linear(0, 1e-3).position(1e308), kLargest);
  EXPECT_EQ(linear(0, -kSmallest).position(1), -kLargest);
  EXPECT_EQ(linear(-1e308, 1e-300).position(kLargest), kLargest);
  EXPECT_TRUE(std::isfinite(logarithmic(kSmallest, kSmallest).position(kLargest)));
}

TEST(AxisScale, SpreadsTheRangeOverTheExtent) {
  struct Case {
    AxisScale scale;
    double value;
    double position;
  };
  const Case cases[] = {
      {linear(0, 1), 0, 0},
      {linear(0, 1), 1, 100},
      {linear(0, 1), -0.5, -50},
      {linear(10, -10), 10, 0},
      {linear(10, -10), 0, 100},
      {linear(10, -10), 7.5, 25},
      {linear(-1e308, 1.5e308), 5e307, 100},
      {linear(-1e308, 1e308), 1e308, 200},
      {linear(0, kSmallest), kSmallest, 100},
      {logarithmic(1, 9999), 1, 0},
      {logarithmic(1, 9999), 100, 50},
      {logarithmic(1, 9999), 10000, 100},
      {logarithmic(1, 9999), 0.01, -50},
      {logarithmic(10000, -9999), 10, 75},
      {logarithmic(1e308, 1e308), 1e308, 0},
      {logarithmic(1e308, 1e306 - 1e308), 1e307, 50},
  };
  for (const auto& [scale, value, position] : cases)
    EXPECT_NEAR(scale.position(value), position, 1e-11) << scale.location << " " << value;
}

TEST(AxisScale, EndsAreExactOnALinearScale) {
  const AxisScale scale = linear(2459580.5, 1.0 / 1024, 731);
  EXPECT_EQ(scale.position(2459580.5), 0);
  EXPECT_EQ(scale.position(2459580.5 + 1.0 / 1024), 731);
}

TEST(AxisScale, LosesNothingWhenTheLocationDwarfsTheLength) {
  const double day = 2459580.5;
  const AxisScale scale = linear(day, 0x1p-20, 1000);
  for (int i = 0; i <= 1024; ++i)
    EXPECT_EQ(scale.position(day + i * 0x1p-30), i * (1000.0 / 1024)) << i;
}

TEST(AxisScale, LosesNothingOnNarrowLogarithmicRanges) {
  const AxisScale scale = logarithmic(1e6, 0x1p-20, 1000);
  EXPECT_NEAR(scale.position(1e6 + 0x1p-21), 500, 1e-6);
  EXPECT_NEAR(scale.position(1e6 + 0x1p-22), 250, 1e-6);
}

TEST(AxisScale, CoversAllPositiveDoublesOnALogarithmicScale) {
  const AxisScale scale = logarithmic(kSmallest, kLargest, 1000);
  const long double low = std::log(static_cast<long double>(kSmallest));
  const long double span = std::log(static_cast<long double>(kLargest)) - low;
  for (double value : {kSmallest, 1e-320, 1e-300, 1.0, 1e300, 1e308, kLargest}) {
    const long double expected = (std::log(static_cast<long double>(value)) - low) / span * 1000;
    EXPECT_NEAR(scale.position(value), static_cast<double>(expected), 1e-9) << value;
    EXPECT_NEAR(scale.value(scale.position(value)) / value, 1, 1e-12) << value;
  }
}

TEST(AxisScale, FindsValuesBeyondTheRange) {
  EXPECT_EQ(linear(0, 10).value(150), 15);
  EXPECT_EQ(linear(0, 10).value(-50), -5);
  EXPECT_EQ(linear(-1e308, 1e308).value(150), 5e307);
  EXPECT_EQ(linear(0, 1e308).value(1e300), kInfinity);
  EXPECT_EQ(linear(0, kSmallest, 1e-300).value(-1e300), -kInfinity);
  EXPECT_NEAR(logarithmic(1, 9).value(200), 100, 1e-12);
  EXPECT_EQ(logarithmic(1, 9).value(-1e6), 0);
  EXPECT_EQ(logarithmic(1, 9).value(1e6), kInfinity);
}

double between(double low, double high) {
  return low + (high - low) * (*rc::gen::inRange(0, 1000001) / 1e6);
}

double magnitude(double lowExponent, double highExponent) {
  return std::pow(10.0, between(lowExponent, highExponent));
}

double sign() {
  return *rc::gen::element(-1.0, 1.0);
}

RC_GTEST_PROP(AxisScale, ValueIsTheInverseOfPositionOnLinearScales, ()) {
  const AxisScale scale =
      linear(sign() * magnitude(-100, 100), sign() * magnitude(-100, 100), magnitude(-2, 5));
  const double value = scale.location + between(-2, 3) * scale.length;
  const double bound = 8 * kEpsilon * (std::abs(scale.location) + 3 * std::abs(scale.length));
  RC_ASSERT(std::abs(scale.value(scale.position(value)) - value) <= bound);
}

RC_GTEST_PROP(AxisScale, ValueIsTheInverseOfPositionOnLogarithmicScales, ()) {
  const double start = magnitude(-300, 300);
  const double end = magnitude(-300, 300);
  const AxisScale scale = logarithmic(start, end - start, magnitude(-2, 5));
  RC_PRE(scale.isDrawable());
  const double value = magnitude(-300, 300);
  const double exponents = std::abs(std::log(end / start)) + std::abs(std::log(value / start));
  const double found = scale.value(scale.position(value));
  RC_ASSERT(std::abs(found / value - 1) <= 8 * kEpsilon * (1 + exponents));
}

RC_GTEST_PROP(AxisScale, PositionFollowsTheOrderOfTheValues, ()) {
  const double start = magnitude(-300, 300);
  const AxisScale scale{.location = start,
                        .length = magnitude(-300, 300) - start,
                        .logarithmic = *rc::gen::arbitrary<bool>(),
                        .extent = magnitude(-2, 5)};
  RC_PRE(scale.isDrawable());
  const double a = magnitude(-300, 300);
  const double b = a * (1 + magnitude(-9, 3));
  const double step = scale.position(b) - scale.position(a);
  RC_ASSERT((scale.length > 0 ? step : -step) >= 0);
}

}  // namespace
}  // namespace vexel
