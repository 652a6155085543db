#include <VexelWithMarkers/PlotMarker.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace vexel {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Type = PlotMarker::MarkerType;
using Number = std::optional<NSNumber>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const Number kNone = std::nullopt;
const Type kTypes[] = {Type::symbol, Type::label, Type::verticalLine, Type::horizontalLine,
                       Type::box};

PlotMarker marker(Type type) {
  return PlotMarker(PlotMarker::Arguments{.type = type,
                                          .x = 5.0,
                                          .y = 0.1f,
                                          .xRange = std::vector<double>{1, 2},
                                          .yRange = std::vector<float>{10, 20},
                                          .rotate = false});
}

PlotMarker::BoxArguments boxArguments() {
  return {
      .xRange = std::vector<double>{1, 2}, .yRange = std::vector<double>{10, 20}, .rotate = true};
}

TEST(PlotMarker, HasItsTypesInOrder) {
  for (int i = 0; i < 5; ++i) EXPECT_EQ(static_cast<int>(kTypes[i]), i);
}

TEST(PlotMarker, HoldsEachNumberInItsOwnPrecision) {
  const PlotMarker m(PlotMarker::Arguments{.type = Type::symbol,
                                           .x = 0.1,
                                           .y = 0.1f,
                                           .xRange = std::vector<double>{0.1, 0.2},
                                           .yRange = std::vector<float>{0.1f},
                                           .rotate = false});
  EXPECT_TRUE(m.x.isDouble());
  EXPECT_EQ(m.x.doubleValue(), 0.1);
  EXPECT_TRUE(m.y.isFloat());
  EXPECT_EQ(m.y.doubleValue(), static_cast<double>(0.1f));
  EXPECT_NE(m.y, NSNumber(0.1));
  ASSERT_THAT(m.xRange, SizeIs(2));
  for (const NSNumber& x : m.xRange) EXPECT_TRUE(x.isDouble());
  ASSERT_THAT(m.yRange, SizeIs(1));
  EXPECT_TRUE(m.yRange[0].isFloat());
}

TEST(PlotMarker, TakesTheNearestFloatOfAGivenDouble) {
  const PlotMarker m(PlotMarker::Arguments{.type = Type::symbol,
                                           .x = 0.1,
                                           .y = 0.1,
                                           .xRange = std::vector<double>{},
                                           .yRange = std::vector<float>{},
                                           .rotate = false});
  EXPECT_EQ(std::bit_cast<std::uint32_t>(m.y.floatValue()), 0x3dcccccdu);
  EXPECT_THAT(m.xRange, IsEmpty());
  EXPECT_THAT(m.yRange, IsEmpty());
}

TEST(PlotMarker, KeepsItsOtherFieldsAsGivenAndLetsThemBeChanged) {
  PlotMarker m = marker(Type::label);
  EXPECT_EQ(m.type, Type::label);
  EXPECT_EQ(m.label, std::nullopt);
  EXPECT_EQ(m.attributedLabel, std::nullopt);
  EXPECT_EQ(m.color, std::nullopt);
  EXPECT_FALSE(m.rotate);
  const PlotMarker before = m;
  EXPECT_EQ(m, before);
  m.x = 7.0;
  EXPECT_FALSE(m == before);
  m = before;
  m.label = "dust";
  EXPECT_FALSE(m == before);
}

TEST(PlotMarker, ThatIsABoxStandsAtTheWholeNumberZero) {
  for (const PlotMarker& box :
       {PlotMarker(boxArguments()), PlotMarker::makePlotBox(boxArguments())}) {
    EXPECT_EQ(box.type, Type::box);
    EXPECT_TRUE(box.x.isInteger());
    EXPECT_TRUE(box.y.isInteger());
    EXPECT_EQ(box.x, NSNumber(0));
    EXPECT_EQ(box.y, NSNumber(0));
    EXPECT_TRUE(box.yRange[0].isDouble());
    EXPECT_TRUE(box.rotate);
  }
}

TEST(PlotMarker, GivesTheLinesOfItsType) {
  EXPECT_THAT(marker(Type::verticalLine).lineX(), ElementsAre(Number(5.0), Number(5.0), kNone));
  EXPECT_THAT(marker(Type::horizontalLine).lineX(), ElementsAre(Number(1.0), Number(2.0), kNone));
  for (const Type type : {Type::symbol, Type::label, Type::box}) {
    EXPECT_THAT(marker(type).lineX(), SizeIs(3));
    EXPECT_THAT(marker(type).lineX(), Each(kNone));
  }
}

TEST(PlotMarker, GivesTheSameNumbersForTheYOfALineAsForItsX) {
  for (const Type type : kTypes) EXPECT_EQ(marker(type).lineY(), marker(type).lineX());
}

TEST(PlotMarker, GoesAroundABoxAndEndsTheLine) {
  const PlotMarker box(boxArguments());
  EXPECT_THAT(box.boxX(),
              ElementsAre(Number(1.0), Number(2.0), Number(2.0), Number(1.0), Number(1.0), kNone));
  EXPECT_THAT(box.boxY(), ElementsAre(Number(10.0), Number(10.0), Number(20.0), Number(20.0),
                                      Number(10.0), kNone));
  for (const Type type : {Type::symbol, Type::label, Type::verticalLine, Type::horizontalLine}) {
    EXPECT_THAT(marker(type).boxX(), SizeIs(6));
    EXPECT_THAT(marker(type).boxX(), Each(kNone));
    EXPECT_THAT(marker(type).boxY(), SizeIs(6));
    EXPECT_THAT(marker(type).boxY(), Each(kNone));
  }
}

TEST(PlotMarker, PassesOnNumbersThatAreNone) {
  PlotMarker m = marker(Type::verticalLine);
  m.x = kNaN;
  EXPECT_TRUE(std::isnan(m.lineX()[0]->doubleValue()));
}

TEST(PlotMarker, IgnoresNumbersBeyondTheSecondOfARange) {
  PlotMarker m = marker(Type::horizontalLine);
  m.xRange.push_back(3.0);
  EXPECT_THAT(m.lineX(), ElementsAre(Number(1.0), Number(2.0), kNone));
}

TEST(PlotMarkerDeathTest, NeedsTwoNumbersOfARangeThatIsRead) {
  for (std::size_t count : {0u, 1u}) {
    PlotMarker line = marker(Type::horizontalLine);
    line.xRange.resize(count, NSNumber(1.0));
    EXPECT_DEATH(line.lineX(), "Fatal error: PlotMarker");
    EXPECT_DEATH(line.lineY(), "Fatal error: PlotMarker");
    PlotMarker box(boxArguments());
    box.xRange.resize(count, NSNumber(1.0));
    EXPECT_DEATH(box.boxX(), "Fatal error: PlotMarker");
    box.boxY();
    box.yRange.resize(count, NSNumber(1.0));
    EXPECT_DEATH(box.boxY(), "Fatal error: PlotMarker");
    line.yRange.clear();
    line.boxX();
    line.boxY();
  }
}

TEST(PlotMarker, WithoutTextHasNoLabels) {
  EXPECT_EQ(marker(Type::label).cptLabel(), nullptr);
  EXPECT_EQ(marker(Type::label).axisLabel(), nullptr);
  EXPECT_EQ(marker(Type::label).axisYLabel(), nullptr);
}

TEST(PlotMarker, HasALabelInItsColourAndOtherwiseTheDefaultStyle) {
  PlotMarker m = marker(Type::label);
  m.label = "dust";
  m.color = NSColor::redColor();
  CPTTextStyle red;
  red.color = CPTColor::redColor();
  EXPECT_EQ(m.cptLabel()->text(), "dust");
  EXPECT_EQ(m.cptLabel()->textStyle(), red);
  EXPECT_EQ(m.cptLabel()->attributedText(), std::nullopt);
  m.color = std::nullopt;
  CPTTextStyle none;
  none.color = std::nullopt;
  EXPECT_EQ(m.cptLabel()->textStyle(), none);
}

TEST(PlotMarker, PrefersAttributedTextInItsOwnColourExceptOnAxes) {
  PlotMarker m = marker(Type::label);
  m.attributedLabel = NSAttributedString("styled", {.bold = true});
  m.color = NSColor::redColor();
  EXPECT_EQ(m.axisLabel(), nullptr);
  EXPECT_EQ(m.axisYLabel(), nullptr);
  m.label = "plain";
  EXPECT_EQ(m.cptLabel()->attributedText(), m.attributedLabel);
  EXPECT_EQ(m.cptLabel()->textStyle(), CPTTextStyle());
  EXPECT_EQ(m.axisLabel()->contentLayer()->text(), "plain");
  EXPECT_EQ(m.axisLabel()->contentLayer()->attributedText(), std::nullopt);
}

TEST(PlotMarker, StandsOnTheAxesAtItsCoordinates) {
  PlotMarker m = marker(Type::label);
  m.label = "dust";
  m.color = NSColor::blueColor();
  CPTTextStyle blue;
  blue.color = CPTColor::blueColor();
  const auto x = m.axisLabel(), y = m.axisYLabel();
  EXPECT_EQ(x->tickLocation(), 5);
  EXPECT_EQ(y->tickLocation(), static_cast<double>(0.1f));
  for (const auto& label : {x, y}) {
    EXPECT_EQ(label->contentLayer()->text(), "dust");
    EXPECT_EQ(label->contentLayer()->textStyle(), blue);
    EXPECT_EQ(label->offset(), 3);
    EXPECT_EQ(label->rotation(), 0);
  }
  m.color = std::nullopt;
  EXPECT_EQ(m.axisLabel()->contentLayer()->textStyle()->color, std::nullopt);
}

TEST(PlotMarker, TurnsItsAxisLabelsByOneStepLessThanTheNearestQuarterTurn) {
  PlotMarker m = marker(Type::label);
  m.label = "dust";
  m.rotate = true;
  const float nearest = static_cast<float>(std::acos(0.0));
  EXPECT_EQ(m.axisLabel()->rotation(), static_cast<double>(std::nextafter(nearest, 0.0f)));
  EXPECT_EQ(m.axisYLabel()->rotation(), m.axisLabel()->rotation());
}

}  // namespace
}  // namespace vexel
