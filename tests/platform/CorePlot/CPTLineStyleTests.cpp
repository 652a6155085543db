#include <CorePlot/CPTLineStyle.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

TEST(CPTLineStyle, ANewStyleIsASolidBlackButtLineOfWidthOne) {
  const CPTLineStyle style;
  EXPECT_EQ(style.lineCap, CGLineCap::butt);
  EXPECT_EQ(style.lineJoin, CGLineJoin::miter);
  EXPECT_EQ(style.miterLimit, 10);
  EXPECT_EQ(style.lineWidth, 1);
  EXPECT_TRUE(style.dashPattern.empty());
  EXPECT_EQ(style.patternPhase, 0);
  EXPECT_EQ(style.lineColor, CPTColor::blackColor());
}

TEST(CPTLineStyle, AnAbsentColourDrawsBlack) {
  CPTLineStyle style;
  style.lineColor.reset();
  EXPECT_EQ(style.strokeStyle().color, CPTColor::blackColor().cgColor());
}

TEST(CPTLineStyle, TheDrawingContextIsHandedEveryField) {
  const CPTLineStyle style{.lineCap = CGLineCap::round,
                           .lineJoin = CGLineJoin::bevel,
                           .miterLimit = 3,
                           .lineWidth = 2.5,
                           .dashPattern = {4, 2},
                           .patternPhase = 1,
                           .lineColor = CPTColor::redColor()};
  EXPECT_EQ(style.strokeStyle(), (CGStrokeStyle{.color = CGColor::genericRGB(1, 0, 0),
                                                .width = 2.5,
                                                .cap = CGLineCap::round,
                                                .join = CGLineJoin::bevel,
                                                .miterLimit = 3,
                                                .dashPattern = {4, 2},
                                                .dashPhase = 1}));
}

TEST(CPTLineStyle, ChangingACopyLeavesTheOriginal) {
  const CPTLineStyle original;
  CPTMutableLineStyle copy = original;
  copy.lineWidth = 3;
  EXPECT_EQ(original.lineWidth, 1);
  EXPECT_NE(copy, original);
}

}  // namespace
}  // namespace vexel
