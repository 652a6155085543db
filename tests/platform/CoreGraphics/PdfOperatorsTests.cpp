#include "PdfOperators.h"

#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

TEST(PdfOperators, HoldNumbersOnly) {
  std::string content;
  appendColor(content, CGColor::genericRGB(kNaN, -3, kInfinity), "rg");
  appendPen(content, {.miterLimit = kNaN}, {.width = 1e-9, .dashPhase = kNaN});
  EXPECT_EQ(content, "0 0 1 rg\n0 0 0 RG\n0 w 0 J 0 j 10 M [ ] 0 d\n");
}

TEST(PdfOperators, TellAllOfAPen) {
  const CGStrokeStyle style{.color = CGColor::genericRGB(0.5, 0.25, 1.0 / 3),
                            .cap = CGLineCap::round,
                            .join = CGLineJoin::bevel,
                            .miterLimit = 4};
  std::string content;
  appendPen(content, style, {.width = 1.5, .dashes = {3, 0.25}, .dashPhase = 2});
  EXPECT_EQ(content, "0.5 0.25 0.3333 RG\n1.5 w 1 J 2 j 4 M [ 3 0.25 ] 2 d\n");
}

TEST(PdfOperators, TellEveryStepOfAPath) {
  CGMutablePath path = linePath({1, 2}, {3.25, -4});
  path.addCurve({9, 10}, {5, 6}, {7, 8});
  path.closeSubpath();
  std::string content;
  appendPath(content, path);
  EXPECT_EQ(content, "1 2 m\n3.25 -4 l\n5 6 7 8 9 10 c\nh\n");
}

}  // namespace
}  // namespace vexel
