#include "SafePath.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

constexpr CGRect kBox{{0, 0}, {100, 100}};

TEST(LiesInside, IsFalseForAnythingOutsideOrNotFinite) {
  EXPECT_TRUE(liesInside(CGPath(), kBox));
  EXPECT_TRUE(liesInside(rectPath(0, 0, 100, 100), kBox));
  for (const CGPoint p : {CGPoint{kNaN, 5}, {5, kNaN}, {kInfinity, 5}, {-1, 5}, {5, 101}}) {
    EXPECT_FALSE(liesInside(linePath({5, 5}, p), kBox));
    CGMutablePath curve;
    curve.move({5, 5});
    curve.addCurve({6, 6}, p, {7, 7});
    EXPECT_FALSE(liesInside(curve, kBox));
  }
}

TEST(ClippedLines, CutAtTheEdges) {
  EXPECT_EQ(clippedLines(linePath({-50, 50}, {150, 50}), kBox), linePath({0, 50}, {100, 50}));
  EXPECT_EQ(clippedLines(linePath({50, 50}, {50, 1e300}), kBox), linePath({50, 50}, {50, 100}));
  EXPECT_EQ(clippedLines(linePath({1e300, 50}, {50, 50}), kBox), linePath({100, 50}, {50, 50}));
  EXPECT_TRUE(clippedLines(linePath({-5, 50}, {-5, 60}), kBox).isEmpty());
  EXPECT_TRUE(clippedLines(linePath({-50, 90}, {10, 180}), kBox).isEmpty());
}

TEST(ClippedLines, KeepWhatIsInsideInOnePiece) {
  CGMutablePath path = linePath({10, 10}, {20, 20});
  path.addLine({30, 10});
  path.addLine({300, 10});
  path.addLine({300, 50});
  path.addLine({50, 50});
  path.addLine({60, 60});
  const auto pieces = clippedPieces(path, kBox);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(pieces[0].path.elements().size(), 4u);
  EXPECT_EQ(pieces[1].path.elements().front().point, (CGPoint{100, 50}));
  EXPECT_EQ(pieces[1].path.elements().size(), 3u);
}

TEST(ClippedLines, KeepSubpathsClosedThatAreWhole) {
  CGMutablePath path = rectPath(10, 10, 5, 5);
  path.addRect(CGRect::make(50, 50, 100, 10));
  const auto pieces = clippedPieces(path, kBox);
  ASSERT_EQ(pieces.size(), 3u);
  EXPECT_EQ(pieces[0].path.elements().back().type, CGPathElement::Type::close);
  EXPECT_NE(pieces[1].path.elements().back().type, CGPathElement::Type::close);
  EXPECT_NE(pieces[2].path.elements().back().type, CGPathElement::Type::close);
}

TEST(ClippedLines, LeaveOutLinesWithPointsThatAreNotFinite) {
  CGMutablePath path = linePath({10, 10}, {20, 10});
  path.addLine({kNaN, 10});
  path.addLine({30, 10});
  path.addLine({40, 10});
  path.closeSubpath();
  const auto pieces = clippedPieces(path, kBox);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(pieces[0].path, linePath({10, 10}, {20, 10}));
  // The line that closes is there; the subpath is not whole.
  EXPECT_EQ(pieces[1].path.elements().size(), 3u);
  EXPECT_EQ(pieces[1].path.elements().back().point, (CGPoint{10, 10}));
}

TEST(ClippedPieces, KnowTheLengthBeforeThem) {
  CGMutablePath path = linePath({-30, 50}, {130, 50});
  path.addLine({130, 60});
  path.addLine({-30, 60});
  const auto pieces = clippedPieces(path, kBox);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_DOUBLE_EQ(pieces[0].lengthBefore, 30);
  EXPECT_DOUBLE_EQ(pieces[1].lengthBefore, 160 + 10 + 30);
}

TEST(ClippedPolygons, FillTheBoxWhenTheySurroundIt) {
  EXPECT_EQ(clippedPolygons(rectPath(-1e300, -1e300, 2e300, 2e300), kBox).boundingBox(), kBox);
  EXPECT_TRUE(clippedPolygons(rectPath(200, 0, 10, 10), kBox).isEmpty());
  EXPECT_TRUE(clippedPolygons(linePath({1, 1}, {2, 2}), kBox).isEmpty());
}

TEST(FlattenedInside, FollowsACurveWhereItCanBeSeen) {
  // A circle of radius 1e6 through (50, 50).
  const CGPath flat = flattenedInside(ellipsePath(50, 50 - 1e6, 2e6, 2e6), kBox);
  int near = 0;
  for (const CGPathElement& e : flat.elements()) {
    EXPECT_NE(e.type, CGPathElement::Type::curve);
    if (e.type == CGPathElement::Type::close || !kBox.contains(e.point)) continue;
    ++near;
    // Exact circle, and the four curves that stand for it: within 3e-4 of the radius, at the
    // joint within far less.
    EXPECT_NEAR(e.point.x, 50, 0.01);
  }
  EXPECT_GE(near, 1);
  EXPECT_LT(flat.elements().size(), 2000u);
}

RC_GTEST_PROP(ClippedLines, StayInsideAndNeverGrowWithoutBound, ()) {
  const auto coordinate =
      rc::gen::oneOf(rc::gen::arbitrary<double>(), rc::gen::element(kNaN, kInfinity, 0.0, 1e308),
                     rc::gen::map(rc::gen::inRange(-2000, 3000), [](int v) { return v / 13.0; }));
  const auto at = [&] { return CGPoint{*coordinate, *coordinate}; };
  CGMutablePath path;
  const int count = *rc::gen::inRange(1, 20);
  for (int i = 0; i < count; ++i) {
    const int kind = *rc::gen::inRange(0, 8);
    if (kind == 0) path.move(at());
    if (kind == 1) path.closeSubpath();
    if (kind == 2) path.addCurve(at(), at(), at());
    if (kind > 2) path.addLine(at());
  }
  const CGPath flat = flattenedInside(path, kBox);
  RC_ASSERT(flat.elements().size() < 100000u);
  const CGPath lines = clippedLines(flat, kBox), polygons = clippedPolygons(flat, kBox);
  RC_ASSERT(liesInside(lines, kBox));
  RC_ASSERT(liesInside(polygons, kBox));
}

}  // namespace
}  // namespace vexel
