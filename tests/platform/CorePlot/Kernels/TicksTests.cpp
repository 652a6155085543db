#include <Kernels/Ticks.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Values = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr double kLargest = std::numeric_limits<double>::max();

void expectWellFormed(const Ticks& ticks, double lower, double upper, std::size_t maximumCount) {
  if (upper < lower) std::swap(lower, upper);
  EXPECT_LE(ticks.major.size(), maximumCount);
  EXPECT_LE(ticks.minor.size(), maximumCount);
  Values all = ticks.major;
  all.insert(all.end(), ticks.minor.begin(), ticks.minor.end());
  for (double tick : all) EXPECT_TRUE(tick >= lower && tick <= upper) << tick;
  EXPECT_TRUE(std::is_sorted(ticks.major.begin(), ticks.major.end()));
  EXPECT_TRUE(std::is_sorted(ticks.minor.begin(), ticks.minor.end()));
  std::sort(all.begin(), all.end());
  EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end()) << "a repeated tick";
}

TEST(FixedIntervalTicks, AreNoneWhenTheQuestionMakesNoSense) {
  struct Case {
    double lower, upper, interval, origin;
    int maximumCount;
  };
  const Case cases[] = {
      {kNaN, 1, 1, 0, 10},         {0, kNaN, 1, 0, 10},      {-kInfinity, 1, 1, 0, 10},
      {0, kInfinity, 1, 0, 10},    {0, 1, 0, 0, 10},         {0, 1, -1, 0, 10},
      {0, 1, kNaN, 0, 10},         {0, 1, kInfinity, 0, 10}, {0, 1, 1, kNaN, 10},
      {0, 1, 1, kInfinity, 10},    {0, 1, 1, 0, 0},          {0, 1, 1, 0, -5},
      {1e17, 1e17 + 64, 1, 0, 10}, {0, 1, kSmallest, 0, 10}, {-kLargest, kLargest, 1, 0, 10},
  };
  for (const auto& [lower, upper, interval, origin, count] : cases)
    EXPECT_EQ(fixedIntervalTicks(lower, upper, interval, origin, 1, count), Ticks{})
        << lower << " " << upper << " " << interval << " " << origin;
}

TEST(FixedIntervalTicks, IncludeTheEndsThatRoundingWouldMiss) {
  EXPECT_THAT(fixedIntervalTicks(0, 0.3, 0.1, 0, 0, 100).major, ElementsAre(0, 0.1, 0.2, 0.3));
  EXPECT_THAT(fixedIntervalTicks(0.1 + 0.2, 0.7, 0.1, 0, 0, 100).major,
              ElementsAre(0.1 + 0.2, 0.4, 0.5, 0.6, 0.7));
  EXPECT_THAT(fixedIntervalTicks(0.5e-9, 1 - 0.5e-9, 1, 0, 0, 100).major,
              ElementsAre(0.5e-9, 1 - 0.5e-9));
  EXPECT_THAT(fixedIntervalTicks(2e-9, 1 - 2e-9, 1, 0, 0, 100).major, IsEmpty());
}

TEST(FixedIntervalTicks, AreTheDecimalNumbersTheyReadAs) {
  EXPECT_THAT(fixedIntervalTicks(0, 1, 0.1, 0, 0, 100).major,
              ElementsAre(0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1));
  EXPECT_THAT(fixedIntervalTicks(0, 0.2, 0.05, 0, 1, 100).minor,
              ElementsAre(0.025, 0.075, 0.125, 0.175));
}

TEST(FixedIntervalTicks, AcceptTheEndsInEitherOrder) {
  EXPECT_EQ(fixedIntervalTicks(3, -2, 1, 0.25, 3, 100), fixedIntervalTicks(-2, 3, 1, 0.25, 3, 100));
}

TEST(FixedIntervalTicks, AreCountedFromTheOrigin) {
  EXPECT_THAT(fixedIntervalTicks(0, 3, 1, 0.25, 0, 100).major, ElementsAre(0.25, 1.25, 2.25));
  EXPECT_THAT(fixedIntervalTicks(0, 3, 1, 100.25, 0, 100).major, ElementsAre(0.25, 1.25, 2.25));
}

TEST(FixedIntervalTicks, PutMinorTicksAlsoOutsideTheOutermostMajorOnes) {
  const Ticks ticks = fixedIntervalTicks(0.5, 2.25, 1, 0, 3, 100);
  EXPECT_THAT(ticks.major, ElementsAre(1, 2));
  EXPECT_THAT(ticks.minor, ElementsAre(0.5, 0.75, 1.25, 1.5, 1.75, 2.25));
}

TEST(FixedIntervalTicks, PutMinorTicksWhereNoMajorOneIsInside) {
  const Ticks ticks = fixedIntervalTicks(0.2, 0.8, 1, 0, 4, 100);
  EXPECT_THAT(ticks.major, IsEmpty());
  EXPECT_THAT(ticks.minor, ElementsAre(0.2, 0.4, 0.6, 0.8));
}

TEST(FixedIntervalTicks, GiveAnEmptyRangeTheTickThatIsThere) {
  EXPECT_THAT(fixedIntervalTicks(2, 2, 1, 0, 4, 100).major, ElementsAre(2));
  EXPECT_EQ(fixedIntervalTicks(2.1, 2.1, 1, 0, 4, 100), Ticks{});
}

TEST(FixedIntervalTicks, AreThinnedByMultiplesThatKeepTheOrigin) {
  EXPECT_THAT(fixedIntervalTicks(1, 10, 1, 0, 0, 5).major, ElementsAre(2, 4, 6, 8, 10));
  EXPECT_THAT(fixedIntervalTicks(1, 10, 1, 0, 0, 4).major, ElementsAre(5, 10));
  EXPECT_THAT(fixedIntervalTicks(-7, 7, 1, 1, 0, 3).major, ElementsAre(-4, 1, 6));
  EXPECT_THAT(fixedIntervalTicks(0, 1e15, 1, 0, 0, 3).major, ElementsAre(0, 5e14, 1e15));
  EXPECT_THAT(fixedIntervalTicks(0, 1e15, 1, 0, 0, 2).major, ElementsAre(0, 1e15));
}

TEST(FixedIntervalTicks, PutMinorTicksBetweenTheThinnedMajorOnes) {
  const Ticks ticks = fixedIntervalTicks(0, 20, 1, 0, 1, 5);
  EXPECT_THAT(ticks.major, ElementsAre(0, 5, 10, 15, 20));
  EXPECT_THAT(ticks.minor, ElementsAre(2.5, 7.5, 12.5, 17.5));
}

TEST(FixedIntervalTicks, LoseAllMinorOnesWhenThereAreTooMany) {
  EXPECT_EQ(fixedIntervalTicks(0, 10, 1, 0, 4, 40).minor.size(), 40u);
  EXPECT_THAT(fixedIntervalTicks(0, 10, 1, 0, 4, 39).minor, IsEmpty());
  for (int perInterval : {-1, 0, 1000000000, std::numeric_limits<int>::max()})
    EXPECT_THAT(fixedIntervalTicks(0, 10, 1, 0, perInterval, 100).minor, IsEmpty());
  EXPECT_EQ(fixedIntervalTicks(0, 10, 1, 0, std::numeric_limits<int>::max(), 100).major.size(),
            11u);
}

TEST(FixedIntervalTicks, DoNotDriftFarFromTheOrigin) {
  const Ticks ticks = fixedIntervalTicks(1e8, 1e8 + 0.5, 0.1, 0, 0, 100);
  EXPECT_THAT(ticks.major, ElementsAre(100000000.0, 100000000.1, 100000000.2, 100000000.3,
                                       100000000.4, 100000000.5));
}

TEST(FixedIntervalTicks, AreNotRepeatedWhereDoublesAreCoarserThanTheInterval) {
  const Ticks ticks = fixedIntervalTicks(1e15, 1e15 + 1, 0.1, 1e15, 3, 100);
  expectWellFormed(ticks, 1e15, 1e15 + 1, 100);
  EXPECT_EQ(ticks.major.front(), 1e15);
  EXPECT_EQ(ticks.major.back(), 1e15 + 1);
}

TEST(FixedIntervalTicks, EndAtTheLastMultipleThatDoublesTellApart) {
  constexpr double kLast = 0x1p53;
  EXPECT_EQ(fixedIntervalTicks(kLast - 2, kLast + 4, 1, 0, 0, 10), Ticks{});
  EXPECT_THAT(fixedIntervalTicks(kLast - 2, kLast, 1, 0, 0, 10).major,
              ElementsAre(kLast - 2, kLast - 1, kLast));
  EXPECT_THAT(fixedIntervalTicks(kLast / 2 - 1, kLast / 2, 1, 0, 1, 10).minor,
              ElementsAre(kLast / 2 - 0.5));
}

TEST(LogarithmicTicks, AreNoneWhenTheRangeMakesNoSense) {
  const std::pair<double, double> cases[] = {{kNaN, 1}, {1, kNaN}, {0, 1},         {-1, 1},
                                             {1, -1},   {1, 0},    {1, kInfinity}, {7, 7}};
  for (const auto& [lower, upper] : cases)
    EXPECT_EQ(logarithmicTicks(lower, upper, 10), Ticks{}) << lower << " " << upper;
  EXPECT_EQ(logarithmicTicks(1, 1000, 0), Ticks{});
}

TEST(LogarithmicTicks, StandAtTheDecades) {
  const Ticks ticks = logarithmicTicks(0.5, 200, 100);
  EXPECT_THAT(ticks.major, ElementsAre(1, 10, 100));
  EXPECT_THAT(ticks.minor, ElementsAre(0.5, 0.6, 0.7, 0.8, 0.9, 2, 3, 4, 5, 6, 7, 8, 9, 20, 30, 40,
                                       50, 60, 70, 80, 90, 200));
  EXPECT_EQ(logarithmicTicks(200, 0.5, 100), ticks);
}

TEST(LogarithmicTicks, AreExactDecimals) {
  EXPECT_THAT(logarithmicTicks(1e-16, 1e-13, 10).major, ElementsAre(1e-16, 1e-15, 1e-14, 1e-13));
  EXPECT_THAT(logarithmicTicks(2e-23, 9e22, 100).major.front(), 1e-22);
  EXPECT_THAT(logarithmicTicks(2e-23, 9e22, 100).major.back(), 1e22);
  EXPECT_THAT(logarithmicTicks(1e305, kLargest, 100).major,
              ElementsAre(1e305, 1e306, 1e307, 1e308));
}

TEST(LogarithmicTicks, IncludeTheEndsThatRoundingWouldMiss) {
  const double upper = 0.001 + 999.999;
  EXPECT_EQ(logarithmicTicks(0.001, upper, 100).major.size(), 7u);
  EXPECT_THAT(logarithmicTicks(10 + 5e-9, 10000 - 5e-6, 100).major,
              ElementsAre(10 + 5e-9, 100, 1000, 10000 - 5e-6));
}

TEST(LogarithmicTicks, StandAtOneTwoAndFiveWhenLessThanTwoDecadesShow) {
  EXPECT_THAT(logarithmicTicks(1, 100, 100).major, ElementsAre(1, 10, 100));
  EXPECT_THAT(logarithmicTicks(1e-3, 1e-1, 100).major, ElementsAre(1e-3, 1e-2, 1e-1));
  EXPECT_THAT(logarithmicTicks(1, 99, 100).major, ElementsAre(1, 2, 5, 10, 20, 50));
  const Ticks ticks = logarithmicTicks(3e-7, 3e-6, 100);
  EXPECT_THAT(ticks.major, ElementsAre(5e-7, 1e-6, 2e-6));
  EXPECT_THAT(ticks.minor, ElementsAre(3e-7, 4e-7, 6e-7, 7e-7, 8e-7, 9e-7, 3e-6));
}

TEST(LogarithmicTicks, AreLinearOnesWhenOneTwoAndFiveShowTooLittle) {
  EXPECT_THAT(logarithmicTicks(3, 4, 100).major, ElementsAre(3, 3.2, 3.4, 3.6, 3.8, 4));
  EXPECT_GE(logarithmicTicks(4.5, 6, 100).major.size(), 3u);
  EXPECT_GE(logarithmicTicks(1e6, 1e6 + 1e-3, 100).major.size(), 3u);
}

TEST(LogarithmicTicks, SkipDecadesByExponentWhenThereAreTooMany) {
  EXPECT_EQ(logarithmicTicks(1e-3, 1e4, 4), (Ticks{{1e-2, 1, 1e2, 1e4}, {}}));
  EXPECT_EQ(logarithmicTicks(1e-12, 1e12, 5), (Ticks{{1e-10, 1e-5, 1, 1e5, 1e10}, {}}));
  EXPECT_EQ(logarithmicTicks(1e-12, 1e12, 4), (Ticks{{1e-10, 1, 1e10}, {}}));
  EXPECT_EQ(logarithmicTicks(1, 99, 2), (Ticks{{1, 10}, {}}));
}

TEST(LogarithmicTicks, LoseAllMinorOnesWhenThereAreTooMany) {
  EXPECT_EQ(logarithmicTicks(1, 1e4, 32).minor.size(), 32u);
  EXPECT_THAT(logarithmicTicks(1, 1e4, 31).minor, IsEmpty());
}

TEST(LogarithmicTicks, CoverAllPositiveDoubles) {
  const Ticks ticks = logarithmicTicks(kSmallest, kLargest, 1000);
  expectWellFormed(ticks, kSmallest, kLargest, 1000);
  EXPECT_EQ(ticks.major.size(), 632u);  // 1e-323 to 1e308: 1e-324 is nearest to 0
  EXPECT_EQ(logarithmicTicks(kSmallest, kLargest, 10).major.size(), 7u);
}

TEST(AutomaticTicks, AreNoneWhenTheRangeMakesNoSense) {
  const std::pair<double, double> cases[] = {{kNaN, 1},       {1, kNaN}, {0, kInfinity},
                                             {-kInfinity, 0}, {3, 3},    {0, 0}};
  for (const auto& [lower, upper] : cases)
    EXPECT_EQ(automaticTicks(lower, upper, 5, 1, 10), Ticks{}) << lower << " " << upper;
  EXPECT_EQ(automaticTicks(0, 1, 5, 1, 0), Ticks{});
}

TEST(AutomaticTicks, StandAtNiceNumbers) {
  EXPECT_THAT(automaticTicks(0, 1, 5, 1, 100).major, ElementsAre(0, 0.2, 0.4, 0.6, 0.8, 1));
  EXPECT_THAT(automaticTicks(0, 1, 5, 1, 100).minor, ElementsAre(0.1, 0.3, 0.5, 0.7, 0.9));
  EXPECT_THAT(automaticTicks(97, -3, 10, 0, 100).major,
              ElementsAre(0, 10, 20, 30, 40, 50, 60, 70, 80, 90));
  EXPECT_THAT(automaticTicks(0, 0.7, 3, 0, 100).major, ElementsAre(0, 0.2, 0.4, 0.6));
  EXPECT_THAT(automaticTicks(0, 10, -4, 0, 100).major, ElementsAre(0, 10));
}

TEST(AutomaticTicks, CoverRangesThatAreLongerThanADouble) {
  EXPECT_THAT(automaticTicks(-kLargest, kLargest, 7, 0, 100).major,
              ElementsAre(-1.5e308, -1e308, -5e307, 0, 5e307, 1e308, 1.5e308));
  EXPECT_THAT(automaticTicks(-kLargest, kLargest, 1, 0, 100).major, ElementsAre(-1e308, 0, 1e308));
  EXPECT_THAT(automaticTicks(0, kSmallest, 5, 0, 100).major, ElementsAre(0, kSmallest));
}

TEST(EqualDivisionTicks, AreNoneWhenTheQuestionMakesNoSense) {
  struct Case {
    double lower, upper;
    int divisions;
  };
  const Case cases[] = {{kNaN, 1, 4},
                        {0, kInfinity, 4},
                        {2, 2, 4},
                        {0, 1, 0},
                        {0, 1, -1},
                        {0, 1, 10001},
                        {0, 1, std::numeric_limits<int>::max()}};
  for (const auto& [lower, upper, divisions] : cases)
    EXPECT_EQ(equalDivisionTicks(lower, upper, divisions, 1), Ticks{}) << lower << " " << upper;
}

TEST(EqualDivisionTicks, PartTheRangeEvenly) {
  const Ticks ticks = equalDivisionTicks(2, 0, 4, 1);
  EXPECT_THAT(ticks.major, ElementsAre(0, 0.5, 1, 1.5, 2));
  EXPECT_THAT(ticks.minor, ElementsAre(0.25, 0.75, 1.25, 1.75));
}

TEST(EqualDivisionTicks, EndExactlyAtTheEnds) {
  const Ticks ticks = equalDivisionTicks(0.1, 0.7, 3, 0);
  EXPECT_EQ(ticks.major.front(), 0.1);
  EXPECT_EQ(ticks.major.back(), 0.7);
  EXPECT_THAT(equalDivisionTicks(-kLargest, kLargest, 2, 0).major,
              ElementsAre(-kLargest, 0, kLargest));
}

TEST(EqualDivisionTicks, LoseAllMinorOnesWhenThereAreTooMany) {
  EXPECT_EQ(equalDivisionTicks(0, 1, 5, 2000).minor.size(), 10000u);
  EXPECT_THAT(equalDivisionTicks(0, 1, 5, 2001).minor, IsEmpty());
  EXPECT_THAT(equalDivisionTicks(0, 1, 5, std::numeric_limits<int>::max()).minor, IsEmpty());
  EXPECT_THAT(equalDivisionTicks(0, 1, 5, -3).minor, IsEmpty());
}

TEST(EqualDivisionTicks, AreNotRepeatedWhereDoublesAreCoarserThanTheDivisions) {
  expectWellFormed(equalDivisionTicks(1, std::nextafter(1, 2), 10, 3), 1, std::nextafter(1, 2),
                   100);
}

TEST(NiceInterval, IsOneTwoOrFiveTimesAPowerOfTen) {
  struct Case {
    double span;
    int about;
    double interval;
  };
  const Case cases[] = {
      {kNaN, 5, 1},
      {kInfinity, 5, 1},
      {-kInfinity, 5, 1},
      {0, 5, 1},
      {-0.0, 5, 1},
      {kSmallest, 1, kSmallest},
      {kSmallest, 100, kSmallest},
      {1e-320, 1, 1e-320},
      {1e308, 1, 1e308},
      {kLargest, 1, 1e308},
      {kLargest, 10, 2e307},
      {1, 0, 1},
      {1, -7, 1},
      {-10, 5, 2},
      {1, 10, 0.1},
      {10, 10, 1},
      {1, 1, 1},
      {1.41, 1, 1},
      {1.42, 1, 2},
      {3.16, 1, 2},
      {3.17, 1, 5},
      {7.07, 1, 5},
      {7.08, 1, 10},
      {1e-15, 1, 1e-15},
      {3e-23, 10, 2e-24},
      {1e22, 1, 1e22},
      {1e23, 1, 1e23},
  };
  for (const auto& [span, about, interval] : cases)
    EXPECT_EQ(niceInterval(span, about), interval) << span << " / " << about;
}

double magnitude() {
  return std::pow(10.0, *rc::gen::inRange(-30000000, 30000001) / 1e5);
}

double anyNumber() {
  return *rc::gen::oneOf(
      rc::gen::element(0.0, kSmallest, kLargest, -kLargest, kNaN, kInfinity, -kInfinity),
      rc::gen::map(rc::gen::inRange(-30000000, 30000001),
                   [](int n) { return std::pow(10.0, n / 1e5); }),
      rc::gen::map(rc::gen::inRange(-1000, 1000), [](int n) { return n / 10.0; }));
}

RC_GTEST_PROP(Ticks, AreWellFormedForEveryQuestion, ()) {
  const double lower = anyNumber();
  const double upper = anyNumber();
  const int minor = *rc::gen::element(-1, 0, 1, 4, 9, 1000, std::numeric_limits<int>::max());
  const int maximum = *rc::gen::inRange(1, 50);
  const int about = *rc::gen::inRange(-2, 60);
  const auto count = static_cast<std::size_t>(maximum);
  expectWellFormed(fixedIntervalTicks(lower, upper, anyNumber(), anyNumber(), minor, maximum),
                   lower, upper, count);
  expectWellFormed(logarithmicTicks(lower, upper, maximum), lower, upper, count);
  expectWellFormed(automaticTicks(lower, upper, about, minor, maximum), lower, upper, count);
  expectWellFormed(equalDivisionTicks(lower, upper, *rc::gen::inRange(-1, 40), minor), lower, upper,
                   10000);
  RC_ASSERT(!testing::Test::HasFailure());
}

RC_GTEST_PROP(AutomaticTicks, AreAboutAsManyAsWanted, ()) {
  const double span = magnitude();
  const double lower = span * (*rc::gen::inRange(-1000, 1000) / 100.0);
  const int about = *rc::gen::inRange(3, 50);
  const double count =
      static_cast<double>(automaticTicks(lower, lower + span, about, 0, 1000).major.size());
  // The interval is at most sqrt(2.5) off either way, and the ends may or may not be ticks.
  RC_ASSERT(count >= std::floor(about / 1.59));
  RC_ASSERT(count <= about * 1.59 + 1);
}

RC_GTEST_PROP(FixedIntervalTicks, AreAllTheMultiplesInside, ()) {
  const int lower = *rc::gen::inRange(-5000, 5000);
  const int length = *rc::gen::inRange(0, 5000);
  const int interval = *rc::gen::inRange(1, 300);
  const int origin = *rc::gen::inRange(-5000, 5000);
  Values expected;
  for (int v = lower; v <= lower + length; ++v)
    if ((v - origin) % interval == 0) expected.push_back(v);
  RC_ASSERT(fixedIntervalTicks(lower, lower + length, interval, origin, 0, 10000).major ==
            expected);
}

}  // namespace
}  // namespace vexel
