#include <CoreGraphics/CGPath.h>

#include <gmock/gmock.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

using Type = CGPathElement::Type;

std::vector<Type> types(const CGPath& path) {
  std::vector<Type> result;
  for (const CGPathElement& element : path.elements()) result.push_back(element.type);
  return result;
}

TEST(CGPath, HasNoBoundingBoxWhenEmpty) {
  EXPECT_TRUE(CGPath().isEmpty());
  EXPECT_EQ(CGPath().boundingBox(), CGRect{});
}

TEST(CGPath, BoundingBoxLeavesOutPointsThatAreNotFinite) {
  CGMutablePath path;
  path.move({kNaN, 0});
  path.addLine({1, kInfinity});
  EXPECT_EQ(path.boundingBox(), CGRect{});
  path.addLine({1, 2});
  path.addLine({4, -2});
  EXPECT_EQ(path.boundingBox(), CGRect::make(1, -2, 3, 4));
}

TEST(CGPath, BoundingBoxCountsControlPointsButNotTheOrigin) {
  CGMutablePath path;
  path.move({10, 10});
  path.addCurve({20, 10}, {12, 30}, {18, 5});
  path.closeSubpath();
  EXPECT_EQ(path.boundingBox(), CGRect::make(10, 5, 10, 25));
}

TEST(CGPath, TransformedLeavesTheOriginalAlone) {
  const CGMutablePath path = linePath({1, 2}, {3, 4});
  const CGPath moved = path.transformed(CGAffineTransform::translation(10, 20));
  EXPECT_EQ(moved, linePath({11, 22}, {13, 24}));
  EXPECT_EQ(path, linePath({1, 2}, {3, 4}));
}

TEST(CGMutablePath, StartsALineWithoutCurrentPointAtItsOwnEnd) {
  CGMutablePath path;
  path.addLine({1, 2});
  path.addLine({3, 4});
  EXPECT_EQ(path, linePath({1, 2}, {3, 4}));
}

TEST(CGMutablePath, StartsACurveWithoutCurrentPointAtItsFirstControlPoint) {
  CGMutablePath path;
  path.addCurve({9, 9}, {1, 2}, {3, 4});
  ASSERT_THAT(types(path), testing::ElementsAre(Type::move, Type::curve));
  EXPECT_EQ(path.elements()[0].point, (CGPoint{1, 2}));
}

TEST(CGMutablePath, AddsNothingForNoPoints) {
  CGMutablePath path;
  path.addLines({});
  path.closeSubpath();
  EXPECT_TRUE(path.isEmpty());
}

TEST(CGMutablePath, AddLinesMakesASubpathOfItsOwn) {
  CGMutablePath path = linePath({0, 0}, {1, 1});
  const std::vector<CGPoint> points{{5, 5}, {6, 6}, {7, 5}};
  path.addLines(points);
  EXPECT_THAT(types(path),
              testing::ElementsAre(Type::move, Type::line, Type::move, Type::line, Type::line));
}

TEST(CGMutablePath, ClosesOnce) {
  CGMutablePath path = linePath({0, 0}, {1, 1});
  path.closeSubpath();
  path.closeSubpath();
  EXPECT_THAT(types(path), testing::ElementsAre(Type::move, Type::line, Type::close));
}

TEST(CGMutablePath, RoundedRectWithoutRadiusIsARect) {
  const CGRect rect = CGRect::make(1, 2, 30, 40);
  for (const double radius : {0.0, -1.0, kNaN}) {
    CGMutablePath path;
    path.addRoundedRect(rect, radius);
    EXPECT_EQ(path, rectPath(1, 2, 30, 40)) << radius;
  }
}

TEST(CGMutablePath, RoundedRectBoundsItsRadiusByHalfTheShorterSide) {
  CGMutablePath bounded, excessive;
  bounded.addRoundedRect(CGRect::make(0, 0, 10, 20), 5);
  excessive.addRoundedRect(CGRect::make(0, 0, 10, 20), 1e9);
  EXPECT_EQ(bounded, excessive);
  EXPECT_EQ(bounded.boundingBox(), CGRect::make(0, 0, 10, 20));
}

TEST(CGMutablePath, EllipseStaysWithinAPromilleOfTheCircle) {
  const CGMutablePath path = ellipsePath(-1, -1, 2, 2);
  CGPoint from;
  for (const CGPathElement& e : path.elements()) {
    if (e.type == Type::curve) {
      for (double t = 0; t <= 1; t += 0.125) {
        const double u = 1 - t;
        const double x = u * u * u * from.x + 3 * u * u * t * e.control1.x +
                         3 * u * t * t * e.control2.x + t * t * t * e.point.x;
        const double y = u * u * u * from.y + 3 * u * u * t * e.control1.y +
                         3 * u * t * t * e.control2.y + t * t * t * e.point.y;
        EXPECT_NEAR(std::hypot(x, y), 1, 1e-3);
      }
    }
    if (e.type != Type::close) from = e.point;
  }
}

TEST(CGMutablePath, CanBeAddedToItself) {
  CGMutablePath path = linePath({0, 0}, {1, 1});
  path.addPath(path);
  EXPECT_THAT(types(path), testing::ElementsAre(Type::move, Type::line, Type::move, Type::line));
}

}  // namespace
}  // namespace vexel
