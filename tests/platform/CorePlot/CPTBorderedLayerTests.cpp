#include <CorePlot/CPTBorderedLayer.h>

#include <CoreGraphics/CGRecordingContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string drawn(CPTBorderedLayer& layer) {
  CGRecordingContext context;
  layer.display(context);
  return context.text();
}

TEST(CPTBorderedLayer, ABorderWithoutAWidthIsNotDrawn) {
  CPTBorderedLayer layer(CGRect::make(0, 0, 10, 10));
  for (const double width : {kNaN, kInfinity, 0.0, -1.0}) {
    layer.setBorderLineStyle(CPTLineStyle{.lineWidth = width});
    EXPECT_EQ(drawn(layer), "") << width;
  }
}

TEST(CPTBorderedLayer, ACornerRadiusThatIsNoneMakesSquareCorners) {
  CPTBorderedLayer layer(CGRect::make(0, 0, 10, 10));
  layer.setFill(CPTFill(CPTColor::redColor()));
  for (const double radius : {kNaN, -3.0, 0.0}) {
    layer.setCornerRadius(radius);
    EXPECT_EQ(drawn(layer), "fill #ff0000 aligned: 0 0 10 10\n") << radius;
  }
}

TEST(CPTBorderedLayer, AnEmptyLayerDrawsNothing) {
  CPTBorderedLayer layer;
  layer.setFill(CPTFill(CPTColor::redColor()));
  layer.setBorderLineStyle(CPTLineStyle{});
  EXPECT_EQ(drawn(layer), "");
}

TEST(CPTBorderedLayer, ANewLayerHasNeitherFillNorBorderAndMasks) {
  CPTBorderedLayer layer(CGRect::make(0, 0, 10, 10));
  EXPECT_EQ(layer.fill(), std::nullopt);
  EXPECT_EQ(layer.borderLineStyle(), std::nullopt);
  EXPECT_EQ(layer.cornerRadius(), 0);
  EXPECT_TRUE(layer.masksToBorder());
  EXPECT_EQ(drawn(layer), "");
}

TEST(CPTBorderedLayer, TheBorderLiesInsideTheBoundsAboveTheFill) {
  CPTBorderedLayer layer(CGRect::make(7, 7, 10, 20));
  layer.setFill(CPTFill(CPTColor::redColor()));
  layer.setBorderLineStyle(CPTLineStyle{.lineWidth = 2});
  EXPECT_EQ(drawn(layer),
            "fill #ff0000 aligned: 0 0 10 20\n"
            "stroke #000000 width 2 aligned: M 1 1 L 9 1 L 9 19 L 1 19 Z\n");
}

TEST(CPTBorderedLayer, ARoundBorderKeepsTheOuterRadius) {
  CPTBorderedLayer layer(CGRect::make(0, 0, 20, 20));
  layer.setFill(CPTFill(CPTColor::redColor()));
  layer.setBorderLineStyle(CPTLineStyle{.lineWidth = 2});
  layer.setCornerRadius(5);
  CGMutablePath outer, middle;
  outer.addRoundedRect(CGRect::make(0, 0, 20, 20), 5);
  middle.addRoundedRect(CGRect::make(1, 1, 18, 18), 4);
  CGRecordingContext expected;
  expected.fill(outer, CGColor::genericRGB(1, 0, 0));
  expected.stroke(middle, {.width = 2});
  EXPECT_EQ(drawn(layer), expected.text());
}

TEST(CPTBorderedLayer, WhatLiesInsideIsCutOnlyWhenItMasks) {
  CPTBorderedLayer layer(CGRect::make(0, 0, 20, 10));
  CGRecordingContext square, round, none;
  layer.clipToBorder(square);
  EXPECT_EQ(square.text(), "clip M 0 0 L 20 0 L 20 10 L 0 10 Z\n");
  layer.setCornerRadius(2);
  layer.clipToBorder(round);
  EXPECT_THAT(round.text(), testing::HasSubstr("C "));
  layer.setMasksToBorder(false);
  layer.clipToBorder(none);
  EXPECT_EQ(none.text(), "");
}

TEST(CPTBorderedLayer, EveryChangeAsksForDisplayAndRepetitionDoesNot) {
  CPTBorderedLayer layer(CGRect::make(0, 0, 20, 10));
  const auto needsDisplayAfter = [&](const auto& change) {
    drawn(layer);
    change();
    return layer.needsDisplay();
  };
  const auto fill = [&] { layer.setFill(CPTFill(CPTColor::redColor())); };
  const auto border = [&] { layer.setBorderLineStyle(CPTLineStyle{}); };
  const auto radius = [&] { layer.setCornerRadius(3); };
  const auto masks = [&] { layer.setMasksToBorder(false); };
  EXPECT_TRUE(needsDisplayAfter(fill));
  EXPECT_FALSE(needsDisplayAfter(fill));
  EXPECT_TRUE(needsDisplayAfter(border));
  EXPECT_FALSE(needsDisplayAfter(border));
  EXPECT_TRUE(needsDisplayAfter(radius));
  EXPECT_FALSE(needsDisplayAfter(radius));
  EXPECT_TRUE(needsDisplayAfter(masks));
  EXPECT_FALSE(needsDisplayAfter(masks));
}

}  // namespace
}  // namespace vexel
