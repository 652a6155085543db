#include "PixelAlignment.h"

#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

constexpr CGRect kSurface{{0, 0}, {100, 50}};

TEST(AlignedLineMiddle, PutsEdgesOnEdgesOfPixels) {
  struct Row {
    double coordinate, width, middle;
  };
  for (const Row& row :
       {Row{10.0, 1, 10.5}, Row{10.99, 1, 10.5}, Row{10.9999999, 1, 11.5}, Row{10.995, 1, 11.5},
        Row{10.495, 2, 11}, Row{10, 0.2, 10.5}, Row{10.4, 2, 10}, Row{10.5, 2, 11},
        Row{10.4, 1.6, 10}, Row{10.4, 3.3, 10.5}, Row{-20.2, 1, -20.5}})
    EXPECT_EQ(alignedLineMiddle(row.coordinate, row.width, 0, 100), row.middle)
        << row.coordinate << " width " << row.width;
}

TEST(AlignedLineMiddle, KeepsLinesOnTheBorderInside) {
  for (const double width : {1.0, 2.0, 3.0, 7.0}) {
    EXPECT_EQ(alignedLineMiddle(0, width, 0, 100), width / 2);
    EXPECT_EQ(alignedLineMiddle(100, width, 0, 100), 100 - width / 2);
    EXPECT_EQ(alignedLineMiddle(-1e-9, width, 0, 100), width / 2);
    EXPECT_EQ(alignedLineMiddle(100 + 1e-9, width, 0, 100), 100 - width / 2);
  }
  EXPECT_LT(alignedLineMiddle(-0.3, 1, 0, 100), 0);
  EXPECT_GT(alignedLineMiddle(100.3, 1, 0, 100), 100);
}

TEST(AlignedLineMiddle, LetsLinesWiderThanTheSurfaceBe) {
  EXPECT_EQ(alignedLineMiddle(1, 300, 0, 2), 1);
}

TEST(AlignedToPixels, MovesEveryCornerOfARectangle) {
  const CGPath aligned =
      alignedToPixels(rectPath(10.3, 10.3, 20, 20), 1, CGLineCap::butt, kSurface);
  EXPECT_EQ(aligned, rectPath(10.5, 10.5, 20, 20));
}

TEST(AlignedToPixels, TakesARectangleClosedTwiceAsOne) {
  CGMutablePath path = linePath({10.3, 10.3}, {30.3, 10.3});
  path.addLine({30.3, 20.3});
  path.addLine({10.3, 20.3});
  path.addLine({10.3, 10.3});
  path.closeSubpath();
  const CGPath aligned = alignedToPixels(path, 1, CGLineCap::butt, kSurface);
  EXPECT_EQ(aligned.elements().front().point, (CGPoint{10.5, 10.5}));
  EXPECT_EQ(aligned.elements()[4].point, (CGPoint{10.5, 10.5}));
}

TEST(AlignedToPixels, PutsOpenEndsWhereTheirCapEndsOnAnEdge) {
  const CGMutablePath path = linePath({10.3, 10.3}, {20.8, 10.3});
  EXPECT_EQ(alignedToPixels(path, 1, CGLineCap::butt, kSurface), linePath({10, 10.5}, {21, 10.5}));
  EXPECT_EQ(alignedToPixels(path, 1, CGLineCap::square, kSurface),
            linePath({10.5, 10.5}, {20.5, 10.5}));
  EXPECT_EQ(alignedToPixels(path, 1, CGLineCap::round, kSurface),
            linePath({10.3, 10.5}, {20.8, 10.5}));
}

TEST(AlignedToPixels, LeavesPathsWithSlantedLinesCurvesAndNaN) {
  CGMutablePath slanted = linePath({1.3, 1.3}, {5.3, 1.3});
  slanted.addLine({6.3, 2.3});
  for (const CGPath& path : {CGPath(slanted), CGPath(ellipsePath(1.3, 1.3, 5, 5)),
                             CGPath(linePath({1, kNaN}, {2, 3})), CGPath()})
    EXPECT_EQ(alignedToPixels(path, 1, CGLineCap::butt, kSurface).elements().size(),
              path.elements().size());
  EXPECT_EQ(alignedToPixels(slanted, 1, CGLineCap::butt, kSurface), slanted);
}

}  // namespace
}  // namespace vexel
