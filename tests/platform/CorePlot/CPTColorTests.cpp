#include <CorePlot/CPTColor.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

void expectComponents(const CPTColor& color, double red, double green, double blue, double alpha) {
  EXPECT_DOUBLE_EQ(color.cgColor().red(), red);
  EXPECT_DOUBLE_EQ(color.cgColor().green(), green);
  EXPECT_DOUBLE_EQ(color.cgColor().blue(), blue);
  EXPECT_DOUBLE_EQ(color.cgColor().alpha(), alpha);
}

TEST(CPTColor, TheNamedColoursHaveTheirComponents) {
  const struct {
    CPTColor color;
    double red, green, blue, alpha;
  } rows[] = {
      {CPTColor::clearColor(), 0, 0, 0, 0},
      {CPTColor::whiteColor(), 1, 1, 1, 1},
      {CPTColor::blackColor(), 0, 0, 0, 1},
      {CPTColor::grayColor(), 0.5, 0.5, 0.5, 1},
      {CPTColor::darkGrayColor(), 1.0 / 3, 1.0 / 3, 1.0 / 3, 1},
      {CPTColor::lightGrayColor(), 2.0 / 3, 2.0 / 3, 2.0 / 3, 1},
      {CPTColor::redColor(), 1, 0, 0, 1},
      {CPTColor::greenColor(), 0, 1, 0, 1},
      {CPTColor::blueColor(), 0, 0, 1, 1},
      {CPTColor::cyanColor(), 0, 1, 1, 1},
      {CPTColor::yellowColor(), 1, 1, 0, 1},
      {CPTColor::magentaColor(), 1, 0, 1, 1},
      {CPTColor::orangeColor(), 1, 0.5, 0, 1},
      {CPTColor::purpleColor(), 0.5, 0, 0.5, 1},
      {CPTColor::brownColor(), 0.6, 0.4, 0.2, 1},
  };
  for (const auto& row : rows) expectComponents(row.color, row.red, row.green, row.blue, row.alpha);
}

TEST(CPTColor, AGenericGrayHasThreeEqualComponents) {
  expectComponents(CPTColor::colorWithGenericGray(0.8), 0.8, 0.8, 0.8, 1);
  EXPECT_EQ(CPTColor::colorWithGenericGray(0.8).cgColor(), CGColor::genericGray(0.8));
}

TEST(CPTColor, ComponentsAreOpaqueUnlessAnAlphaIsGiven) {
  expectComponents(CPTColor::colorWithComponents(0.1, 0.2, 0.3), 0.1, 0.2, 0.3, 1);
  expectComponents(CPTColor::colorWithComponents(0.1, 0.2, 0.3, 0.4), 0.1, 0.2, 0.3, 0.4);
}

TEST(CPTColor, TwoColoursAreEqualWhenTheirCGColorsAre) {
  EXPECT_EQ(CPTColor(CGColor::genericRGB(1, 0, 0)), CPTColor::redColor());
  EXPECT_NE(CPTColor(CGColor::deviceRGB(1, 0, 0)), CPTColor::redColor());
  EXPECT_NE(CPTColor::colorWithComponents(1, 0, 0, 0.5), CPTColor::redColor());
}

TEST(CPTColor, TheCGColorOfAViewColourIsGenericRGBWithTheSameComponents) {
  EXPECT_EQ(CPTCreateCGColorFromNSColor(NSColor::colorWithRed(0.25, 0.5, 0.75, 0.5)),
            CGColor::genericRGB(0.25, 0.5, 0.75, 0.5));
  EXPECT_EQ(CPTCreateCGColorFromNSColor(NSColor::whiteColor()), CGColor::genericRGB(1, 1, 1));
}

}  // namespace
}  // namespace vexel
