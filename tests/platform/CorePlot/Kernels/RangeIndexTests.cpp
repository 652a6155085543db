#include <CoreGraphics/CGPoint.h>
#include <Kernels/LineRaster.h>
#include <Kernels/RangeIndex.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <random>
#include <vector>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::Pair;
using Values = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

Values counted(std::size_t count) {
  Values values(count);
  for (std::size_t i = 0; i < count; ++i) values[i] = static_cast<double>(i);
  return values;
}

RangeIndex::Extremes plainExtremes(const Values& x, const Values& y, std::size_t first,
                                   std::size_t last) {
  RangeIndex::Extremes found;
  for (std::size_t i = first; i < std::min(last, y.size()); ++i) {
    if (!std::isfinite(x[i]) || !std::isfinite(y[i])) continue;
    found.lowest = std::min(found.lowest, y[i]);
    found.highest = std::max(found.highest, y[i]);
  }
  return found;
}

TEST(RangeIndex, HasNoExtremesWithoutFiniteSamples) {
  EXPECT_TRUE(RangeIndex().extremes(0, 100).isEmpty());
  const Values gaps = {kNaN, kInfinity, -kInfinity};
  const Values x = {1, 2, 3};
  EXPECT_TRUE(RangeIndex(x, gaps).extremes(0, 3).isEmpty());
  EXPECT_TRUE(RangeIndex(gaps, x).extremes(0, 3).isEmpty());
  EXPECT_TRUE(RangeIndex(x, x).extremes(2, 2).isEmpty());
  EXPECT_TRUE(RangeIndex(x, x).extremes(3, 1).isEmpty());
  EXPECT_TRUE(RangeIndex(x, x).extremes(7, 9).isEmpty());
}

TEST(RangeIndex, KnowsTheOrderOfX) {
  struct Case {
    Values x;
    bool isAscending, isDescending;
  };
  const Case cases[] = {
      {{}, true, true},
      {{kNaN, kNaN}, true, true},
      {{1}, true, true},
      {{1, 1, 1}, true, true},
      {{1, 2, 2, 3}, true, false},
      {{3, 2, 2, 1}, false, true},
      {{1, 3, 2}, false, false},
      {{1, kNaN, 2}, true, false},
      {{2, kNaN, 1}, false, true},
      {{1, kInfinity, 0.5, 3}, false, false},
  };
  for (const auto& [x, isAscending, isDescending] : cases) {
    const RangeIndex index(x, x);
    EXPECT_EQ(index.isAscending(), isAscending) << testing::PrintToString(x);
    EXPECT_EQ(index.isDescending(), isDescending) << testing::PrintToString(x);
  }
}

TEST(RangeIndex, FindsOneSampleOutOfOrderAnywhere) {
  const Values y = counted(300);
  for (std::size_t i = 1; i < 300; ++i) {
    Values x = y;
    x[i] = x[i - 1] - 0.5;
    EXPECT_FALSE(RangeIndex(x, y).isAscending()) << i;
    for (double& value : x) value = -value;
    EXPECT_FALSE(RangeIndex(x, y).isDescending()) << i;
    x[i] = kNaN;
    EXPECT_TRUE(RangeIndex(x, y).isDescending()) << i;
  }
}

TEST(RangeIndex, FindsTheSamplesALineNeeds) {
  const Values up = {0, 1, 2, 2, 3, 4};
  const Values down = {4, 3, 2, 2, 1, 0};
  const RangeIndex ascending(up, up);
  EXPECT_THAT(ascending.samplesBetween(1.5, 2.5), Pair(1, 5));
  EXPECT_THAT(ascending.samplesBetween(2.5, 1.5), Pair(1, 5));
  EXPECT_THAT(ascending.samplesBetween(2, 2), Pair(1, 5));
  EXPECT_THAT(ascending.samplesBetween(-9, 9), Pair(0, 6));
  EXPECT_THAT(ascending.samplesBetween(7, 9), Pair(5, 6));
  EXPECT_THAT(ascending.samplesBetween(-7, -3), Pair(0, 1));
  EXPECT_THAT(RangeIndex(down, down).samplesBetween(1.5, 2.5), Pair(1, 5));
  const Values gap = {0, 1, kNaN, 3};
  EXPECT_THAT(RangeIndex(gap, gap).samplesBetween(0, 0.5), Pair(0, 4));
  const Values unsorted = {0, 2, 1, 3};
  EXPECT_THAT(RangeIndex(unsorted, unsorted).samplesBetween(0, 0.5), Pair(0, 4));
}

double anyValue() {
  return *rc::gen::weightedOneOf<double>(
      {{20, rc::gen::map(rc::gen::inRange(-1000, 1000), [](int n) { return n / 7.0; })},
       {1, rc::gen::element(kNaN, kInfinity, -kInfinity)}});
}

RC_GTEST_PROP(RangeIndex, AgreesWithAPlainSearch, ()) {
  std::mt19937 random(*rc::gen::arbitrary<unsigned>());
  const auto count = static_cast<std::size_t>(*rc::gen::inRange(0, 3000));
  Values x(count), y(count);
  for (std::size_t i = 0; i < count; ++i) {
    x[i] = random() % 200 == 0 ? kNaN : static_cast<double>(i);
    y[i] = random() % 50 == 0 ? anyValue() : static_cast<double>(random() % 10000);
  }
  RangeIndex index;
  for (std::size_t known : {count / 3, count / 2, count})
    index.extend(std::span(x).first(known), std::span(y).first(known));
  for (int i = 0; i < 20; ++i) {
    const auto first = random() % (count + 1);
    const auto last = random() % (count + 10);
    RC_ASSERT(index.extremes(first, last) == plainExtremes(x, y, first, last));
  }
}

TEST(RangeIndex, ReadsEverythingAgainWhenThereIsLess) {
  const Values x = counted(1000);
  RangeIndex index(x, x);
  const Values other = {5, 7, 6};
  index.extend(other, other);
  EXPECT_EQ(index.count(), 3u);
  EXPECT_EQ(index.extremes(0, 1000), (RangeIndex::Extremes{5, 7}));
  EXPECT_FALSE(index.isAscending());
}

std::vector<CGPoint> outline(const RangeIndex& index, std::size_t first, std::size_t last,
                             double floor, double narrow) {
  std::vector<CGPoint> points;
  index.visitOutline(
      first, last, floor, [&](double x) { return index.isAscending() ? x + narrow : x - narrow; },
      [&](double x, double y) {
        points.push_back({x, y});
      });
  return points;
}

TEST(RangeIndex, GivesTheSamplesWhereTheyAreFarApart) {
  const Values x = counted(500);
  Values y = counted(500);
  y[77] = kNaN;
  const auto points = outline(RangeIndex(x, y), 70, 130, -kInfinity, 1);
  ASSERT_EQ(points.size(), 60u);
  for (std::size_t i = 0; i < 60; ++i) {
    EXPECT_EQ(points[i].x, x[70 + i]);
    if (i != 7) {
      EXPECT_EQ(points[i].y, y[70 + i]);
    }
  }
  EXPECT_TRUE(std::isnan(points[7].y));
}

TEST(RangeIndex, OutlinesNarrowSamplesByFirstLowestHighestAndLastInTheirOrder) {
  const Values x = {0, 0.1, 0.2, 0.3, 0.4, 1, 1.1, 1.2, 2, 2.1, 2.2, 2.3, 3};
  const Values y = {5, 9, 7, 1, 4, 8, 6, 6, kNaN, kNaN, 2, -1, 3};
  const auto points = outline(RangeIndex(x, y), 0, x.size(), 0, 0.5);
  std::vector<std::pair<double, double>> found;
  for (CGPoint p : points) found.emplace_back(p.x, std::isnan(p.y) ? 100 : p.y);
  EXPECT_THAT(found, ElementsAre(Pair(0, 5), Pair(0.1, 9), Pair(0.3, 1), Pair(0.4, 4), Pair(1, 8),
                                 Pair(1.1, 6), Pair(1.2, 6), Pair(2, 100), Pair(2.2, 2),
                                 Pair(2.3, -1), Pair(3, 3)));

  const Values down(x.rbegin(), x.rend());
  EXPECT_THAT(outline(RangeIndex(down, x), 8, 13, 0, 0.5).size(), 2u);
}

TEST(RangeIndex, KeepsGapsHoweverShort) {
  const Values x = counted(100000);
  Values y = counted(100000);
  y[50000] = kNaN;
  const auto points = outline(RangeIndex(x, y), 0, 100000, -kInfinity, 1e9);
  EXPECT_LT(points.size(), 1000u);
  int gaps = 0;
  for (CGPoint p : points)
    if (std::isnan(p.y)) ++gaps;
  EXPECT_EQ(gaps, 1);
}

TEST(RangeIndex, KeepsValuesNotAboveTheFloorApart) {
  const Values x = counted(100000);
  Values y(100000, 5.0);
  y[50000] = -3;
  EXPECT_LE(outline(RangeIndex(x, y), 0, 100000, -kInfinity, 1e9).size(), 16u);
  const auto points = outline(RangeIndex(x, y), 0, 100000, 0, 1e9);
  EXPECT_LT(points.size(), 1000u);
  EXPECT_EQ(std::count(points.begin(), points.end(), CGPoint{50000, -3}), 1);
}

TEST(RangeIndex, KeepsWhatStandsAnywhereInPartsOfAnyLength) {
  for (std::size_t count = 12; count < 32; ++count) {
    // More follow, so that no leaf is replaced as a whole.
    const Values x = counted(count + 40);
    for (std::size_t place = 0; place < count; ++place) {
      Values y(count + 40, 0.0);
      y[place] = 7;
      y[(place + 5) % count] = -3;
      const auto points = outline(RangeIndex(x, y), 0, count, -kInfinity, 1e9);
      const auto isLow = [](CGPoint p) { return p.y == -3; };
      const auto isHigh = [](CGPoint p) { return p.y == 7; };
      ASSERT_EQ(std::ranges::count_if(points, isLow), 1) << place << " of " << count;
      ASSERT_EQ(std::ranges::count_if(points, isHigh), 1) << place << " of " << count;
      y[place] = kNaN;
      const auto broken = outline(RangeIndex(x, y), 0, count, -kInfinity, 1e9);
      ASSERT_EQ(std::ranges::count_if(broken, [](CGPoint p) { return std::isnan(p.y); }), 1)
          << place << " of " << count;
    }
  }
}

TEST(RangeIndex, KeepsEveryExtremeInTheOutline) {
  std::mt19937 random(7);
  Values x = counted(200000), y(200000);
  for (double& value : y) value = static_cast<double>(random());
  y[123456] = 1e15;
  y[54321] = -1e15;
  const auto points = outline(RangeIndex(x, y), 1000, 199000, -kInfinity, 600);
  EXPECT_LT(points.size(), 2000u);
  const auto [lowest, highest] = std::minmax_element(
      points.begin(), points.end(), [](CGPoint a, CGPoint b) { return a.y < b.y; });
  EXPECT_EQ(lowest->y, -1e15);
  EXPECT_NEAR(lowest->x, 54321, 300);
  EXPECT_EQ(highest->y, 1e15);
  EXPECT_NEAR(highest->x, 123456, 300);
  EXPECT_TRUE(
      std::is_sorted(points.begin(), points.end(), [](CGPoint a, CGPoint b) { return a.x < b.x; }));
}

TEST(RangeIndex, OutlineLooksLikeTheSamples) {
  constexpr int kWidth = 400, kHeight = 300;
  constexpr std::size_t kCount = 1000000;
  std::mt19937 random(3);
  std::normal_distribution<double> normal;
  Values x(kCount), y(kCount);
  double walk = 150;
  for (std::size_t i = 0; i < kCount; ++i) {
    // Dense in the middle, sparse at the sides.
    const double t = static_cast<double>(i) / (kCount - 1) * 2 - 1;
    x[i] = kWidth * (0.5 + 0.5 * t * t * t);
    walk += 0.05 * normal(random);
    y[i] = walk + 10 * normal(random);
  }
  for (std::size_t i = 300000; i < 300100; ++i) y[i] = kNaN;

  const RangeIndex index(x, y);
  const auto points = outline(index, 0, kCount, -kInfinity, 1.0 / 16);
  EXPECT_LT(points.size(), kCount / 4);
  std::vector<CGPoint> all(kCount);
  for (std::size_t i = 0; i < kCount; ++i) all[i] = {x[i], y[i]};
  for (double width : {1.0, 2.0}) {
    std::vector<std::uint32_t> a(kWidth * kHeight), b(kWidth * kHeight);
    const PixelRect everything = {0, 0, kWidth, kHeight};
    const auto stroke = [&](const std::vector<CGPoint>& line, std::vector<std::uint32_t>& pixels) {
      LineRaster raster({pixels.data(), kWidth, kHeight, kWidth}, everything, width);
      raster.add(line);
      raster.draw(0xFF000000);
    };
    stroke(points, a);
    stroke(all, b);
    double inked = 0, beyond16 = 0;
    int largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
      if (a[i] == 0 && b[i] == 0) continue;
      const int apart = std::abs(static_cast<int>(a[i] >> 24) - static_cast<int>(b[i] >> 24));
      inked += 1;
      if (apart > 16) beyond16 += 1;
      largest = std::max(largest, apart);
    }
    std::cout << points.size() << " points for " << kCount << ", width " << width << ": "
              << 100 * beyond16 / inked << " % of " << inked
              << " inked pixels differ by more than 16, the largest difference is " << largest
              << "\n";
    EXPECT_GT(inked, 1000);
    EXPECT_LE(beyond16 / inked, 0.01);
    EXPECT_LE(largest, 64);
  }
}

TEST(RangeIndex, KnowsWhatBothCoordinatesSpanAboveAFloor) {
  struct Case {
    Values x, y;
    double floor;
    RangeIndex::Extremes xExtremes, yExtremes;
  };
  const RangeIndex::Extremes none;
  const Case cases[] = {
      {{}, {}, -kInfinity, none, none},
      {{kNaN, 1}, {1, kNaN}, -kInfinity, {1, 1}, none},
      {{kInfinity, 1, 2}, {9, -kInfinity, 3}, -kInfinity, {1, 2}, {3, 3}},
      {{3, 1, 2}, {4, 6, 5}, -kInfinity, {1, 3}, {4, 6}},
      {{3, 2, 1}, {4, 6, 5}, -kInfinity, {1, 3}, {4, 6}},
      {{-1, 0, 2, 5}, {0, 3, -2, 4}, 0, {2, 5}, {3, 4}},
      {{-2, -1}, {0, 0}, 0, none, none},
  };
  for (const Case& c : cases) {
    const RangeIndex index(c.x, c.y);
    EXPECT_EQ(index.xExtremes(c.floor), c.xExtremes);
    EXPECT_EQ(index.yExtremes(c.floor), c.yExtremes);
  }
}

TEST(RangeIndex, KnowsWhatManyUnsortedXSpan) {
  Values x, y;
  for (int i = 0; i < 1000; ++i) {
    x.push_back(i * 617 % 1000 - 300);
    y.push_back(i);
  }
  EXPECT_EQ(RangeIndex(x, y).xExtremes(-kInfinity), (RangeIndex::Extremes{-300, 699}));
  EXPECT_EQ(RangeIndex(x, y).xExtremes(0), (RangeIndex::Extremes{1, 699}));
  x[500] = kNaN;
  x[617] = 1e300;
  EXPECT_EQ(RangeIndex(x, y).xExtremes(-kInfinity), (RangeIndex::Extremes{-300, 1e300}));
}

TEST(RangeIndex, ReadsNumbersOfAnyType) {
  std::vector<float> x;
  std::vector<std::int16_t> y;
  for (int i = 0; i < 1000; ++i) {
    x.push_back(static_cast<float>(i) / 2);
    y.push_back(static_cast<std::int16_t>(i * 37 % 1000 - 500));
  }
  const RangeIndex index(x, y);
  EXPECT_TRUE(index.isAscending());
  EXPECT_EQ(index.extremes(100, 900),
            plainExtremes({x.begin(), x.end()}, {y.begin(), y.end()}, 100, 900));
  EXPECT_THAT(index.samplesBetween(10.2, 20.1), Pair(20, 42));
  EXPECT_EQ(index.x(7), 3.5);
  EXPECT_EQ(index.y(7), -241);
}

TEST(RangeIndex, VisitsAllSamplesOfAPart) {
  const Values x = counted(300);
  Values found;
  const auto keep = [&](std::span<const double> px, std::span<const double> py) {
    EXPECT_LE(px.size(), RangeIndex::kMostAtOnce);
    EXPECT_THAT(py, testing::ElementsAreArray(px));
    found.insert(found.end(), px.begin(), px.end());
  };
  RangeIndex(x, x).visit(60, 200, keep);
  EXPECT_EQ(found, Values(x.begin() + 60, x.begin() + 200));
  found.clear();
  RangeIndex(x, x).visit(290, 1000, keep);
  EXPECT_EQ(found.size(), 10u);
}

}  // namespace
}  // namespace vexel
