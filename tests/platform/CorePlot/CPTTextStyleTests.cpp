#include <CorePlot/CPTTextStyle.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

TEST(CPTTextStyle, ANewStyleIsBlackHelveticaOfTwelvePointsAlignedLeft) {
  const CPTTextStyle style;
  EXPECT_EQ(style.fontName, "Helvetica");
  EXPECT_EQ(style.fontSize, 12);
  EXPECT_EQ(style.color, CPTColor::blackColor());
  EXPECT_EQ(style.textAlignment, CPTTextAlignment::left);
}

TEST(CPTTextStyle, TheAlignmentsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(CPTTextAlignment::left), 0);
  EXPECT_EQ(static_cast<int>(CPTTextAlignment::center), 1);
  EXPECT_EQ(static_cast<int>(CPTTextAlignment::right), 2);
}

TEST(CPTTextStyle, TextTakesFontColourAndAlignment) {
  const CPTTextStyle style{.fontName = "Times",
                           .fontSize = 9,
                           .color = CPTColor::redColor(),
                           .textAlignment = CPTTextAlignment::center};
  const CGText text = style.cgText("words");
  EXPECT_EQ(text.alignment, CGTextAlignment::center);
  EXPECT_EQ(text.runs, (std::vector<CGTextRun>{{.text = "words",
                                                .font = {.family = "Times", .size = 9},
                                                .color = CGColor::genericRGB(1, 0, 0)}}));
}

TEST(CPTTextStyle, AnAbsentColourDrawsBlack) {
  CPTMutableTextStyle style;
  style.color.reset();
  EXPECT_EQ(style.cgText("a").runs[0].color, CPTColor::blackColor().cgColor());
}

}  // namespace
}  // namespace vexel
