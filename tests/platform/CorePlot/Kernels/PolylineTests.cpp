#include <Kernels/Polyline.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

namespace vexel {

void PrintTo(const CGPoint& p, std::ostream* stream) {
  *stream << "(" << p.x << ", " << p.y << ")";
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Points = std::vector<CGPoint>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();
const CGRect kBox = CGRect::make(0, 0, 100, 50);

double distanceToSegment(CGPoint p, CGPoint a, CGPoint b) {
  const CGPoint d = b - a;
  const CGPoint v = p - a;
  const double squared = d.x * d.x + d.y * d.y;
  const double t = squared > 0 ? std::clamp((v.x * d.x + v.y * d.y) / squared, 0.0, 1.0) : 0;
  return std::hypot(v.x - t * d.x, v.y - t * d.y);
}

TEST(ClippedRuns, AreNoneOutOfNothing) {
  EXPECT_THAT(clippedRuns({}, kBox), IsEmpty());
  EXPECT_THAT(clippedRuns(Points{{kNaN, 1}, {1, kNaN}, {kInfinity, 1}, {1, -kInfinity}}, kBox),
              IsEmpty());
  const Points line = {{1, 1}, {2, 2}};
  for (const CGRect& box : {CGRect{}, CGRect::make(0, 0, 10, 0), CGRect::make(kNaN, 0, 10, 10),
                            CGRect::make(0, -kInfinity, 10, 10), CGRect::make(0, 0, 10, kNaN)})
    EXPECT_THAT(clippedRuns(line, box), IsEmpty());
}

TEST(ClippedRuns, PassOnWhatIsInside) {
  const Points line = {{0, 0}, {100, 50}, {30, 20}, {100, 0}};
  EXPECT_THAT(clippedRuns(line, kBox), ElementsAre(line));
}

TEST(ClippedRuns, BreakAtPointsThatAreNotFinite) {
  EXPECT_THAT(
      clippedRuns(Points{{1, 1}, {2, 2}, {kNaN, 2}, {3, 3}, {4, 4}, {5, kInfinity}, {6, 6}, {7, 7}},
                  kBox),
      ElementsAre(Points{{1, 1}, {2, 2}}, Points{{3, 3}, {4, 4}}, Points{{6, 6}, {7, 7}}));
  EXPECT_THAT(clippedRuns(Points{{1, 1}, {kInfinity, 1}}, kBox), ElementsAre(Points{{1, 1}}));
}

TEST(ClippedRuns, KeepIsolatedPointsInside) {
  EXPECT_THAT(clippedRuns(Points{{5, 6}}, kBox), ElementsAre(Points{{5, 6}}));
  EXPECT_THAT(
      clippedRuns(Points{{kNaN, 0}, {5, 6}, {0, kNaN}, {500, 6}, {kNaN, kNaN}, {7, 8}}, kBox),
      ElementsAre(Points{{5, 6}}, Points{{7, 8}}));
  EXPECT_THAT(clippedRuns(Points{{5, 6}, {5, 6}, {5, 6}}, kBox), ElementsAre(Points{{5, 6}}));
}

TEST(ClippedRuns, GoOnThroughRepeatedPoints) {
  EXPECT_THAT(clippedRuns(Points{{1, 1}, {1, 1}, {2, 2}, {2, 2}, {2, 2}, {3, 1}, {3, 1}}, kBox),
              ElementsAre(Points{{1, 1}, {2, 2}, {3, 1}}));
}

TEST(ClippedRuns, EndAndStartAgainOnTheEdges) {
  const Points line = {{-10, 10}, {50, 10}, {50, 90}, {60, 90}, {60, 25}, {160, 75}};
  EXPECT_THAT(clippedRuns(line, kBox), ElementsAre(Points{{0, 10}, {50, 10}, {50, 50}},
                                                   Points{{60, 50}, {60, 25}, {100, 45}}));
}

TEST(ClippedRuns, CrossTheBoxBetweenPointsOutside) {
  EXPECT_THAT(clippedRuns(Points{{-50, -25}, {150, 75}}, kBox),
              ElementsAre(Points{{0, 0}, {100, 50}}));
  EXPECT_THAT(clippedRuns(Points{{-10, 45}, {50, 105}}, kBox), IsEmpty());
}

TEST(ClippedRuns, LeaveOutLinesThatOnlyTouchTheBox) {
  EXPECT_THAT(clippedRuns(Points{{-10, 40}, {10, 60}}, kBox), IsEmpty());
  EXPECT_THAT(clippedRuns(Points{{-10, 30}, {0, 25}, {-10, 20}}, kBox), IsEmpty());
  EXPECT_THAT(clippedRuns(Points{{-10, 30}, {0, 25}, {5, 25}}, kBox),
              ElementsAre(Points{{0, 25}, {5, 25}}));
}

TEST(ClippedRuns, KeepLinesAlongAnEdge) {
  EXPECT_THAT(clippedRuns(Points{{-10, 0}, {200, 0}}, kBox), ElementsAre(Points{{0, 0}, {100, 0}}));
}

TEST(ClippedRuns, AreExactForPointsFarAway) {
  EXPECT_THAT(clippedRuns(Points{{-1e300, -1e300}, {1e300, 1e300}}, kBox),
              ElementsAre(Points{{0, 0}, {50, 50}}));
  EXPECT_THAT(clippedRuns(Points{{-kLargest, 20}, {kLargest, 40}}, kBox),
              ElementsAre(Points{{0, 30}, {100, 30}}));
  EXPECT_THAT(clippedRuns(Points{{10, -kLargest}, {10, kLargest}}, kBox),
              ElementsAre(Points{{10, 0}, {10, 50}}));
  EXPECT_THAT(clippedRuns(Points{{-0x1p60, -0x1p60}, {0x1p60, 0x1p60}}, CGRect::make(3, 0, 7, 50)),
              ElementsAre(Points{{3, 3}, {10, 10}}));
  EXPECT_THAT(clippedRuns(Points{{20, 20}, {1e300, 1e300}, {30, 30}}, kBox),
              ElementsAre(Points{{20, 20}, {50, 50}}, Points{{50, 50}, {30, 30}}));
  EXPECT_THAT(clippedRuns(Points{{1e-200, 1e300}, {-1e-200, -1e300}}, kBox),
              ElementsAre(Points{{0, 50}, {0, 0}}));
}

TEST(ClippedRuns, WorkInBoxesAwayFromTheOrigin) {
  EXPECT_THAT(clippedRuns(Points{{-300, -20}, {300, -20}}, CGRect::make(-200, -30, 50, 20)),
              ElementsAre(Points{{-200, -20}, {-150, -20}}));
}

double coordinate(double size) {
  return size * (*rc::gen::inRange(-1000, 1001) / 1000.0);
}

RC_GTEST_PROP(ClippedRuns, AreWhatIsInsideOfTheLine, ()) {
  const CGPoint a = {coordinate(200), coordinate(200)};
  const CGPoint b = {coordinate(200), coordinate(200)};
  const CGRect box = CGRect::make(-50, -40, 100, 80);
  const auto runs = clippedRuns(Points{a, b}, box);
  RC_ASSERT(runs.size() <= 1u);
  for (const Points& run : runs)
    for (CGPoint p : run) {
      RC_ASSERT(box.contains(p));
      RC_ASSERT(distanceToSegment(p, a, b) < 1e-12);
    }
  for (int i = 0; i <= 100; ++i) {
    const CGPoint p = {a.x + (b.x - a.x) * i / 100, a.y + (b.y - a.y) * i / 100};
    if (!box.insetBy(1e-9, 1e-9).contains(p)) continue;
    RC_ASSERT(runs.size() == 1u);
    RC_ASSERT(distanceToSegment(p, runs[0].front(), runs[0].back()) < 1e-12);
  }
}

RC_GTEST_PROP(ClippedRuns, StayInsideForEveryLine, ()) {
  const auto any = rc::gen::oneOf(
      rc::gen::element(0.0, 100.0, 50.0, kNaN, kInfinity, -kInfinity, kLargest, -kLargest, 1e-300),
      rc::gen::map(rc::gen::inRange(-300, 301),
                   [](int n) { return (n < 0 ? -1 : 1) * std::pow(10.0, std::abs(n)); }),
      rc::gen::map(rc::gen::inRange(-50, 150), [](int n) { return 1.0 * n; }));
  Points points(static_cast<std::size_t>(*rc::gen::inRange(0, 20)));
  for (CGPoint& p : points) p = {*any, *any};
  for (const Points& run : clippedRuns(points, kBox)) {
    RC_ASSERT(!run.empty());
    for (CGPoint p : run) RC_ASSERT(kBox.contains(p));
    RC_ASSERT(std::adjacent_find(run.begin(), run.end()) == run.end());
  }
}

TEST(ThinRun, DropsNothingWithoutATolerance) {
  const Points line = {{0, 0}, {1, 0}, {2, 0}};
  for (double tolerance : {kNaN, -1.0, 0.0}) {
    Points run = line;
    thinRun(run, tolerance);
    EXPECT_EQ(run, line);
  }
}

TEST(ThinRun, LeavesShortRunsAlone) {
  for (const Points& line : {Points{}, Points{{1, 1}}, Points{{1, 1}, {1, 1}}}) {
    Points run = line;
    thinRun(run, 10);
    EXPECT_EQ(run, line);
  }
}

TEST(ThinRun, KeepsPointsThatAreHugeOrNotFinite) {
  for (double odd : {kNaN, kInfinity, -1e200}) {
    const Points line = {{0, 0}, {odd, 5}, {2, 0}, {3, odd}, {4, 0}};
    Points run = line;
    thinRun(run, 0.1);
    ASSERT_EQ(run.size(), line.size());
    EXPECT_EQ(run[2], line[2]);
  }
}

TEST(ThinRun, ReducesAStraightLineToItsEnds) {
  Points run;
  for (int i = 0; i <= 1000; ++i) run.push_back({i / 3.0, i / 7.0});
  thinRun(run, 1e-6);
  EXPECT_THAT(run, ElementsAre(CGPoint{0, 0}, CGPoint{1000 / 3.0, 1000 / 7.0}));
}

TEST(ThinRun, KeepsWhereTheLineTurnsBack) {
  Points run = {{0, 0}, {5, 0}, {10, 0}, {6, 0}, {2, 0}, {7, 0}};
  thinRun(run, 0.1);
  EXPECT_THAT(run, ElementsAre(CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{2, 0}, CGPoint{7, 0}));
}

TEST(ThinRun, KeepsCorners) {
  Points run = {{0, 0}, {0, 3}, {0, 10}, {4, 10}, {10, 10}, {10, 0}};
  thinRun(run, 0.1);
  EXPECT_THAT(run, ElementsAre(CGPoint{0, 0}, CGPoint{0, 10}, CGPoint{10, 10}, CGPoint{10, 0}));
}

TEST(ThinRun, ReducesASmoothCurveToAFewPieces) {
  Points run;
  for (int i = 0; i <= 100000; ++i)
    run.push_back({i / 100.0, 200 * std::sin(i / 100000.0 * 6.283185307179586)});
  thinRun(run, 0.05);
  EXPECT_LT(run.size(), 150u);
}

// Walks along both lines at once: each point must be near the piece it was dropped from.
void expectWithinTolerance(const Points& all, const Points& kept, double tolerance) {
  ASSERT_EQ(kept.front(), all.front());
  ASSERT_EQ(kept.back(), all.back());
  std::size_t piece = 0;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (piece + 1 < kept.size() && all[i] == kept[piece + 1]) ++piece;
    const std::size_t next = std::min(piece + 1, kept.size() - 1);
    const double distance = distanceToSegment(all[i], kept[piece], kept[next]);
    ASSERT_LE(distance, tolerance * (1 + 1e-9) + 1e-12) << "point " << i;
  }
  ASSERT_EQ(piece + 1, kept.size()) << "a point that was not in the line, or in another order";
}

RC_GTEST_PROP(ThinRun, KeepsEveryPointWithinTheTolerance, ()) {
  const double tolerance = std::pow(10.0, *rc::gen::inRange(-300, 101) / 100.0);
  const double drift = *rc::gen::element(0.0, 0.1, 1.0);
  const double noise = *rc::gen::element(0.01, 0.3, 3.0);
  Points all(static_cast<std::size_t>(*rc::gen::inRange(1, 300)));
  CGPoint walk;
  for (CGPoint& p : all) {
    walk = walk + CGPoint{drift + coordinate(noise), coordinate(noise)};
    p = walk;
  }
  Points kept = all;
  thinRun(kept, tolerance);
  expectWithinTolerance(all, kept, tolerance);
  RC_ASSERT(!testing::Test::HasFailure());
}

}  // namespace
}  // namespace vexel
