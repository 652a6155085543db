#include <CorePlot/CPTXYAxis.h>
#include <CorePlot/CPTXYAxisSet.h>

#include <CoreGraphics/CGNullContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(CPTAxisDeathTest, ANegativeNumberOfMinorTicksIsFatal) {
  CPTAxis axis;
  EXPECT_DEATH(axis.setMinorTicksPerInterval(-1),
               "Fatal error: CPTAxis: minorTicksPerInterval is negative");
}

TEST(CPTAxis, TickLocationsThatAreNotFiniteAreLeftOut) {
  CPTAxis axis;
  axis.setMajorTickLocations({kNaN});
  axis.setMinorTickLocations({kNaN});
  EXPECT_THAT(axis.majorTickLocations(), IsEmpty());
  EXPECT_THAT(axis.minorTickLocations(), IsEmpty());
  axis.setMajorTickLocations({kInfinity, 2, -kInfinity, 1});
  axis.setMinorTickLocations({kInfinity, 3});
  EXPECT_THAT(axis.majorTickLocations(), ElementsAre(1, 2));
  EXPECT_THAT(axis.minorTickLocations(), ElementsAre(3));
}

TEST(CPTAxis, NullLabelsAreLeftOut) {
  CPTAxis axis;
  const auto label = std::make_shared<CPTAxisLabel>("a");
  axis.setAxisLabels({nullptr, label, nullptr});
  EXPECT_THAT(axis.axisLabels(), ElementsAre(label));
}

TEST(CPTAxis, ANewAxisHasTheDefaults) {
  const CPTXYAxis axis;
  EXPECT_EQ(axis.coordinate(), CPTCoordinate::X);
  EXPECT_EQ(axis.plotSpace(), nullptr);
  EXPECT_EQ(axis.orthogonalPosition(), 0);
  EXPECT_EQ(axis.axisConstraints(), std::nullopt);
  EXPECT_EQ(axis.majorIntervalLength(), 1);
  EXPECT_EQ(axis.minorTicksPerInterval(), 1);
  EXPECT_EQ(axis.labelingOrigin(), 0);
  EXPECT_EQ(axis.labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
  EXPECT_EQ(axis.preferredNumberOfMajorTicks(), 5);
  EXPECT_EQ(axis.majorTickLength(), 5);
  EXPECT_EQ(axis.minorTickLength(), 3);
  EXPECT_EQ(axis.labelOffset(), 2);
  EXPECT_EQ(axis.labelRotation(), 0);
  EXPECT_EQ(axis.titleOffset(), 30);
  EXPECT_EQ(axis.tickDirection(), CPTSign::none);
  EXPECT_EQ(axis.tickLabelDirection(), CPTSign::none);
  EXPECT_EQ(axis.titleDirection(), CPTSign::none);
  EXPECT_EQ(axis.axisLineStyle(), CPTLineStyle{});
  EXPECT_EQ(axis.majorTickLineStyle(), CPTLineStyle{});
  EXPECT_EQ(axis.minorTickLineStyle(), CPTLineStyle{});
  EXPECT_EQ(axis.majorGridLineStyle(), std::nullopt);
  EXPECT_EQ(axis.minorGridLineStyle(), std::nullopt);
  EXPECT_EQ(axis.labelTextStyle(), CPTTextStyle{});
  EXPECT_EQ(axis.titleTextStyle(), CPTTextStyle{});
  EXPECT_EQ(axis.title(), std::nullopt);
  EXPECT_THAT(axis.majorTickLocations(), IsEmpty());
  EXPECT_THAT(axis.minorTickLocations(), IsEmpty());
  EXPECT_THAT(axis.axisLabels(), IsEmpty());
  EXPECT_FALSE(axis.separateLayers());
}

TEST(CPTAxis, TheDefaultFormatterShowsOneIntegerAndOneFractionDigit) {
  const CPTAxis axis;
  ASSERT_NE(axis.labelFormatter(), nullptr);
  EXPECT_EQ(axis.labelFormatter()->string(0), "0.0");
  EXPECT_EQ(axis.labelFormatter()->string(0.25), "0.2");
  EXPECT_EQ(axis.labelFormatter()->string(-12), "-12.0");
}

TEST(CPTAxis, EveryChangeAsksForDisplayAndARepetitionDoesNot) {
  CPTXYAxis axis;
  const auto formatter = axis.labelFormatter();
  const auto space = std::make_shared<CPTXYPlotSpace>();
  const CPTLineStyle line{.lineWidth = 2};
  const CPTTextStyle text{.fontSize = 9};
  const std::function<void()> changes[] = {
      [&] { axis.setCoordinate(CPTCoordinate::Y); },
      [&] { axis.setPlotSpace(space); },
      [&] { axis.setOrthogonalPosition(1); },
      [&] { axis.setAxisConstraints(CPTConstraints::constraintWithLowerOffset(1)); },
      [&] { axis.setLabelingPolicy(CPTAxisLabelingPolicy::none); },
      [&] { axis.setMajorIntervalLength(2); },
      [&] { axis.setLabelingOrigin(2); },
      [&] { axis.setMinorTicksPerInterval(3); },
      [&] { axis.setPreferredNumberOfMajorTicks(3); },
      [&] { axis.setMajorTickLocations({1}); },
      [&] { axis.setMinorTickLocations({1}); },
      [&] { axis.setMajorTickLength(1); },
      [&] { axis.setMinorTickLength(1); },
      [&] { axis.setTickDirection(CPTSign::positive); },
      [&] { axis.setTickLabelDirection(CPTSign::positive); },
      [&] { axis.setTitleDirection(CPTSign::positive); },
      [&] { axis.setAxisLineStyle(line); },
      [&] { axis.setMajorTickLineStyle(line); },
      [&] { axis.setMinorTickLineStyle(line); },
      [&] { axis.setMajorGridLineStyle(line); },
      [&] { axis.setMinorGridLineStyle(line); },
      [&] { axis.setLabelTextStyle(text); },
      [&] { axis.setLabelFormatter(nullptr); },
      [&] { axis.setLabelOffset(9); },
      [&] { axis.setLabelRotation(1); },
      [&] { axis.setTitle("title"); },
      [&] { axis.setTitleTextStyle(text); },
      [&] { axis.setTitleOffset(1); },
      [&] { axis.setSeparateLayers(true); },
  };
  CGNullContext context;
  int number = 0;
  for (const auto& change : changes) {
    axis.display(context);
    change();
    EXPECT_TRUE(axis.needsDisplay()) << number;
    axis.display(context);
    change();
    EXPECT_FALSE(axis.needsDisplay()) << number;
    ++number;
  }
}

TEST(CPTAxisLabel, ANewLabelStandsAtZeroAsFarFromTheLineAsLabelsOfTheAxis) {
  const CPTAxisLabel label("1999", CPTTextStyle{.fontSize = 9});
  EXPECT_EQ(label.tickLocation(), 0);
  EXPECT_EQ(label.offset(), 2);
  EXPECT_EQ(label.offset(), CPTAxis().labelOffset());
  EXPECT_EQ(label.rotation(), 0);
  EXPECT_EQ(label.contentLayer()->text(), "1999");
  EXPECT_EQ(label.contentLayer()->textStyle(), CPTTextStyle{.fontSize = 9});
}

TEST(CPTAxisLabel, AChangeAsksTheAxisForDisplay) {
  CPTAxis axis;
  const auto label = std::make_shared<CPTAxisLabel>("a");
  axis.setAxisLabels({label});
  CGNullContext context;
  const std::function<void()> changes[] = {
      [&] { label->setTickLocation(1); },
      [&] { label->setOffset(1); },
      [&] { label->setRotation(1); },
      [&] { label->contentLayer()->setText("b"); },
  };
  for (const auto& change : changes) {
    axis.display(context);
    label->contentLayer()->display(context);
    change();
    EXPECT_TRUE(axis.needsDisplay());
    axis.display(context);
    change();
    EXPECT_FALSE(axis.needsDisplay());
  }
}

TEST(CPTAxisLabel, OnceReplacedItNoLongerConcernsTheAxis) {
  CPTAxis axis;
  const auto label = std::make_shared<CPTAxisLabel>("a");
  axis.setAxisLabels({label});
  axis.setAxisLabels({});
  CGNullContext context;
  axis.display(context);
  label->setTickLocation(7);
  label->contentLayer()->setText("b");
  EXPECT_FALSE(axis.needsDisplay());
}

TEST(CPTAxisLabel, ItOutlivesItsAxis) {
  const auto label = std::make_shared<CPTAxisLabel>("a");
  {
    CPTAxis axis;
    axis.setAxisLabels({label});
  }
  label->setTickLocation(7);
  EXPECT_EQ(label->tickLocation(), 7);
}

TEST(CPTXYAxisSet, ANewSetHasAnXAndAYAxisWithTicksOnTheNegativeSide) {
  const auto set = std::make_shared<CPTXYAxisSet>();
  ASSERT_EQ(set->axes().size(), 2u);
  EXPECT_EQ(set->xAxis(), set->axes()[0]);
  EXPECT_EQ(set->yAxis(), set->axes()[1]);
  EXPECT_EQ(set->xAxis()->coordinate(), CPTCoordinate::X);
  EXPECT_EQ(set->yAxis()->coordinate(), CPTCoordinate::Y);
  EXPECT_EQ(set->xAxis()->tickDirection(), CPTSign::negative);
  EXPECT_EQ(set->yAxis()->tickDirection(), CPTSign::negative);
  EXPECT_EQ(set->xAxis()->superlayer(), set.get());
}

TEST(CPTXYAxisSet, FurtherAxesLeaveTheFirstOnesInPlace) {
  const auto set = std::make_shared<CPTXYAxisSet>();
  const auto x = set->xAxis(), y = set->yAxis();
  const auto right = std::make_shared<CPTXYAxis>();
  right->setCoordinate(CPTCoordinate::Y);
  auto axes = set->axes();
  axes.push_back(right);
  axes.push_back(nullptr);
  set->setAxes(axes);
  EXPECT_THAT(set->axes(), ElementsAre(x, y, right));
  EXPECT_EQ(set->yAxis(), y);
  set->setAxes({});
  EXPECT_EQ(set->xAxis(), nullptr);
  EXPECT_EQ(set->yAxis(), nullptr);
  EXPECT_EQ(right->superlayer(), nullptr);
}

TEST(CPTXYAxisSet, AnAxisOfAnotherKindIsNotItsXAxis) {
  const auto set = std::make_shared<CPTXYAxisSet>();
  set->setAxes({std::make_shared<CPTAxis>()});
  EXPECT_EQ(set->xAxis(), nullptr);
}

}  // namespace
}  // namespace vexel
