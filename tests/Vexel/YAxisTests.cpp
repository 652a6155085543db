#include <CorePlot/CPTAxisDelegate.h>
#include <CorePlot/CPTDump.h>
#include <Foundation/NSNumberFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "Vexel/AxisText.h"
#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class AxisSetOfAnotherKind : public CPTAxisSet {};
class PlotSpaceOfAnotherKind : public CPTPlotSpace {
  std::optional<CGPoint> plotAreaViewPoint(double, double, CGSize) const override { return {}; }
};
class Delegate : public CPTAxisDelegate {};
class PlotThatIsADelegate : public TestPlot, public CPTAxisDelegate {};

/// Changes its theme each time it is asked.
class RestlessPlot : public TestPlot {
 public:
  PlotTheme& theme() override {
    ++questions;
    return TestPlot::theme() = questions % 2 == 0 ? PlotTheme::white : PlotTheme::black;
  }

  int questions = 0;
};

template <class Number>
class YAxis : public testing::Test {
 protected:
  using Arguments = YAxisArguments<Number>;

  YAxis() { plot.initPlot(nullptr, PlotTheme::white); }

  static Arguments plain() {
    return {.yRange = std::vector<Number>{2, 10},
            .yScale = Number{1},
            .gridLines = false,
            .minorGridLines = false,
            .noLabels = false,
            .tickMarks = true,
            .rightAxis = false};
  }

  std::shared_ptr<CPTXYAxis> format(const Arguments& arguments) {
    return std::dynamic_pointer_cast<CPTXYAxis>(plot.formatYAxis(graph, arguments));
  }

  CPTXYAxisSet& axisSet() { return dynamic_cast<CPTXYAxisSet&>(*graph->axisSet()); }
  CPTXYPlotSpace& space() { return dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()); }

  TestPlot plot;
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
};

using Numbers = testing::Types<float, double>;
TYPED_TEST_SUITE(YAxis, Numbers);

TYPED_TEST(YAxis, OfNoGraphIsNone) {
  EXPECT_EQ(this->plot.formatYAxis(nullptr, this->plain()), nullptr);
  auto arguments = this->plain();
  arguments.yRange = std::vector<TypeParam>{};
  arguments.rightAxis = true;
  EXPECT_EQ(this->plot.formatYAxis(nullptr, arguments), nullptr);
}

TYPED_TEST(YAxis, OfAnAxisSetOfAnotherKindIsNone) {
  for (const bool right : {false, true}) {
    auto arguments = this->plain();
    arguments.rightAxis = right;
    this->graph->setAxisSet(nullptr);
    EXPECT_EQ(this->format(arguments), nullptr);
    this->graph->setAxisSet(std::make_shared<AxisSetOfAnotherKind>());
    EXPECT_EQ(this->format(arguments), nullptr);
    EXPECT_EQ(this->space().yRange(), CPTPlotRange(0, 1));
  }
}

TYPED_TEST(YAxis, WithoutHorizontalAxisIsNone) {
  this->axisSet().setAxes({this->axisSet().yAxis()});
  const std::string before = describe(*this->axisSet().yAxis());
  EXPECT_EQ(this->format(this->plain()), nullptr);
  EXPECT_EQ(describe(*this->axisSet().yAxis()), before);
  EXPECT_EQ(this->space().yRange(), CPTPlotRange(0, 1));
}

TYPED_TEST(YAxis, IsTheGraphsOwnVerticalAxis) {
  const auto axes = this->axisSet().axes();
  const std::string horizontal = describe(*this->axisSet().xAxis());
  EXPECT_EQ(this->format(this->plain()), this->axisSet().yAxis());
  EXPECT_EQ(this->axisSet().axes(), axes);
  EXPECT_EQ(describe(*this->axisSet().xAxis()), horizontal);
}

TYPED_TEST(YAxis, SetsTheVerticalRangeInItsOwnPrecision) {
  const struct {
    std::vector<TypeParam> range;
    TypeParam scale;
    CPTPlotRange expected;
  } rows[] = {
      {{2, 10}, 1000, {2000, 8000}},
      {{10, 2}, 1000, {10000, -8000}},
      {{2, 10}, -1, {-2, -8}},
      {{5, 5}, 1, {5, 0}},
      {{2, 10, 77, 99}, 1, {2, 8}},
      {{TypeParam(0.1), TypeParam(0.3)},
       TypeParam(3.3),
       {static_cast<double>(TypeParam(0.1) * TypeParam(3.3)),
        static_cast<double>((TypeParam(0.3) - TypeParam(0.1)) * TypeParam(3.3))}},
  };
  for (const auto& [range, scale, expected] : rows) {
    auto arguments = this->plain();
    arguments.yRange = range;
    arguments.yScale = scale;
    this->format(arguments);
    EXPECT_EQ(this->space().yRange(), expected);
    EXPECT_EQ(this->space().xRange(), CPTPlotRange(0, 1));
  }
}

TEST(YAxisPrecision, OfTheOverloadsDiffers) {
  EXPECT_NE(static_cast<double>(0.1f * 3.3f), 0.1 * 3.3);
}

TYPED_TEST(YAxis, HasTheIntervalThatIsGivenOrOneForTheScaledRange) {
  const struct {
    std::vector<TypeParam> range;
    TypeParam scale;
    std::optional<TypeParam> interval;
    double expected;
  } rows[] = {
      {{2, 10}, 1, {}, 2},
      {{2, 10}, 1000, {}, 2000},
      {{10, 2}, 1, {}, 2},
      {{2, 10}, 1, TypeParam(3), 3},
      {{2, 10}, 1000, TypeParam(0.25), 0.25},
      {{0, 0}, 1, {}, 1},
  };
  for (const auto& [range, scale, interval, expected] : rows) {
    auto arguments = this->plain();
    arguments.yRange = range;
    arguments.yScale = scale;
    arguments.yMajorIntervalLength = interval;
    EXPECT_EQ(this->format(arguments)->majorIntervalLength(), expected);
  }
}

TYPED_TEST(YAxis, WithTickMarksHasTicksInsideAndLabelsOutside) {
  const auto axis = this->format(this->plain());
  EXPECT_EQ(axis->majorTickLength(), 10);
  EXPECT_EQ(axis->minorTickLength(), 5);
  EXPECT_EQ(axis->minorTicksPerInterval(), 3);
  EXPECT_EQ(axis->tickDirection(), CPTSign::positive);
  EXPECT_EQ(axis->tickLabelDirection(), CPTSign::negative);
  EXPECT_EQ(axis->titleDirection(), CPTSign::negative);
  EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
}

TYPED_TEST(YAxis, OnTheRightIsTheMirrorImage) {
  auto arguments = this->plain();
  arguments.rightAxis = true;
  const auto axis = this->format(arguments);
  EXPECT_EQ(axis->majorTickLength(), 10);
  EXPECT_EQ(axis->minorTickLength(), 5);
  EXPECT_EQ(axis->minorTicksPerInterval(), 3);
  EXPECT_EQ(axis->tickDirection(), CPTSign::negative);
  EXPECT_EQ(axis->tickLabelDirection(), CPTSign::positive);
  EXPECT_EQ(axis->titleDirection(), CPTSign::positive);
}

TYPED_TEST(YAxis, TakesAnotherNumberOfMinorTicksOnlyWithTickMarks) {
  for (const int ticks : {0, 1, 9}) {
    auto arguments = this->plain();
    arguments.minorTicksPerInterval = ticks;
    EXPECT_EQ(this->format(arguments)->minorTicksPerInterval(), ticks);
  }
  auto arguments = this->plain();
  arguments.tickMarks = false;
  arguments.minorTicksPerInterval = 7;
  EXPECT_EQ(this->format(arguments)->minorTicksPerInterval(), 9);
  arguments.minorTicksPerInterval = -7;
  EXPECT_EQ(this->format(arguments)->minorTicksPerInterval(), 9);
}

TYPED_TEST(YAxis, WithoutTickMarksKeepsTheEnginesTicksAndShowsNone) {
  for (const bool right : {false, true}) {
    auto arguments = this->plain();
    arguments.tickMarks = false;
    arguments.rightAxis = right;
    CPTXYAxis fresh;
    const auto axis = this->format(arguments);
    EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::none);
    EXPECT_EQ(axis->majorIntervalLength(), fresh.majorIntervalLength());
    EXPECT_EQ(axis->majorTickLength(), fresh.majorTickLength());
    EXPECT_EQ(axis->minorTickLength(), fresh.minorTickLength());
    EXPECT_EQ(axis->majorTickLineStyle(), fresh.majorTickLineStyle());
    EXPECT_EQ(axis->minorTickLineStyle(), fresh.minorTickLineStyle());
    EXPECT_EQ(axis->minorTicksPerInterval(), fresh.minorTicksPerInterval());
    EXPECT_EQ(axis->tickDirection(), right ? CPTSign::none : CPTSign::negative);
    EXPECT_EQ(axis->tickLabelDirection(), CPTSign::none);
    EXPECT_EQ(axis->titleDirection(), CPTSign::none);
  }
}

TYPED_TEST(YAxis, IsDrawnInTheColoursOfTheTheme) {
  const struct {
    PlotTheme theme;
    CPTColor line;
    CPTColor grid;
  } rows[] = {
      {PlotTheme::black, CPTColor::whiteColor(), CPTColor::darkGrayColor()},
      {PlotTheme::white, CPTColor::blackColor(), CPTColor::colorWithGenericGray(0.8)},
      {PlotTheme::print, CPTColor::blackColor(), CPTColor::colorWithGenericGray(0.8)},
  };
  for (const auto& [theme, line, grid] : rows)
    for (const bool right : {false, true}) {
      this->plot.theme() = theme;
      auto arguments = this->plain();
      arguments.gridLines = true;
      arguments.minorGridLines = true;
      arguments.rightAxis = right;
      const auto axis = this->format(arguments);
      const CPTLineStyle lineStyle{.lineWidth = 1, .lineColor = line};
      const CPTLineStyle gridStyle{.lineWidth = 0.5, .lineColor = grid};
      EXPECT_EQ(axis->axisLineStyle(), lineStyle);
      EXPECT_EQ(axis->majorTickLineStyle(), lineStyle);
      EXPECT_EQ(axis->minorTickLineStyle(), lineStyle);
      EXPECT_EQ(axis->majorGridLineStyle(), gridStyle);
      EXPECT_EQ(axis->minorGridLineStyle(), gridStyle);
    }
}

TYPED_TEST(YAxis, AsksForTheThemeEachTimeItNeedsAColour) {
  RestlessPlot restless;
  auto arguments = this->plain();
  arguments.gridLines = true;
  arguments.minorGridLines = true;
  const auto axis = restless.formatYAxis(this->graph, arguments);
  EXPECT_EQ(restless.questions, 5);
  const auto color = [](const std::optional<CPTLineStyle>& style) { return style->lineColor; };
  EXPECT_EQ(color(axis->majorTickLineStyle()), CPTColor::whiteColor());
  EXPECT_EQ(color(axis->minorTickLineStyle()), CPTColor::blackColor());
  EXPECT_EQ(color(axis->majorGridLineStyle()), CPTColor::darkGrayColor());
  EXPECT_EQ(color(axis->minorGridLineStyle()), CPTColor::colorWithGenericGray(0.8));
  EXPECT_EQ(color(axis->axisLineStyle()), CPTColor::whiteColor());
}

TYPED_TEST(YAxis, HasMinorGridLinesOnlyBesideMajorOnes) {
  for (const bool major : {false, true})
    for (const bool minor : {false, true}) {
      auto arguments = this->plain();
      arguments.gridLines = major;
      arguments.minorGridLines = minor;
      this->graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
      const auto axis = this->format(arguments);
      EXPECT_EQ(axis->majorGridLineStyle().has_value(), major);
      EXPECT_EQ(axis->minorGridLineStyle().has_value(), major && minor);
    }
}

TYPED_TEST(YAxis, TakesTheTitleOrLosesIt) {
  auto arguments = this->plain();
  arguments.title = "Charge [fC]";
  EXPECT_EQ(this->format(arguments)->title(), "Charge [fC]");
  arguments.title = std::nullopt;
  EXPECT_EQ(this->format(arguments)->title(), std::nullopt);
}

TYPED_TEST(YAxis, TakesATitleOffsetOnlyWhenItIsGiven) {
  auto arguments = this->plain();
  EXPECT_EQ(this->format(arguments)->titleOffset(), 30);
  arguments.titleOffset = 42.5f;
  EXPECT_EQ(this->format(arguments)->titleOffset(), 42.5);
  arguments.titleOffset = std::nullopt;
  EXPECT_EQ(this->format(arguments)->titleOffset(), 42.5);
}

TYPED_TEST(YAxis, TakesConstraintsOnlyWhenTheyAreGiven) {
  const auto edge = CPTConstraints::constraintWithLowerOffset(3);
  auto arguments = this->plain();
  EXPECT_EQ(this->format(arguments)->axisConstraints(), std::nullopt);
  arguments.axisConstraints = edge;
  EXPECT_EQ(this->format(arguments)->axisConstraints(), edge);
  arguments.axisConstraints = std::nullopt;
  EXPECT_EQ(this->format(arguments)->axisConstraints(), edge);
}

TYPED_TEST(YAxis, HasTheDelegateThatIsGivenAndNeverThePlotItself) {
  PlotThatIsADelegate itself;
  itself.initPlot(nullptr, PlotTheme::white);
  Delegate delegate;
  TestPlot noDelegate;
  auto arguments = this->plain();
  EXPECT_EQ(itself.formatYAxis(this->graph, arguments)->delegate(), nullptr);
  arguments.delegate = &delegate;
  EXPECT_EQ(itself.formatYAxis(this->graph, arguments)->delegate(), &delegate);
  arguments.delegate = &itself;
  EXPECT_EQ(itself.formatYAxis(this->graph, arguments)->delegate(),
            static_cast<CPTAxisDelegate*>(&itself));
  arguments.delegate = &noDelegate;
  EXPECT_EQ(itself.formatYAxis(this->graph, arguments)->delegate(), nullptr);
}

TYPED_TEST(YAxis, HasTheFormatterThatIsGiven) {
  const auto formatter = std::make_shared<NSNumberFormatter>();
  auto arguments = this->plain();
  arguments.formatter = formatter;
  EXPECT_EQ(this->format(arguments)->labelFormatter(), formatter);
}

TYPED_TEST(YAxis, ShowsOneFractionDigitForIntervalsBelowOne) {
  const TypeParam justBelow = std::nextafter(TypeParam(1), TypeParam(0));
  const struct {
    std::vector<TypeParam> range;
    std::optional<TypeParam> interval;
    int digits;
  } rows[] = {
      {{0, 10}, justBelow, 1},
      {{0, 10}, TypeParam(1), 0},
      {{0, 1}, TypeParam(20), 0},
      {{0, 10}, {}, 0},
      {{0, 4}, {}, 0},
      {{0, 3}, {}, 1},
      {{0, 2}, {}, 1},
      {{0, 10}, TypeParam(0.001), 1},
      {{0, 10}, TypeParam(-5), 1},
  };
  for (const auto& [range, interval, digits] : rows)
    for (const bool tickMarks : {false, true}) {
      auto arguments = this->plain();
      arguments.yRange = range;
      arguments.yMajorIntervalLength = interval;
      arguments.tickMarks = tickMarks;
      const auto formatter =
          std::dynamic_pointer_cast<NSNumberFormatter>(this->format(arguments)->labelFormatter());
      ASSERT_NE(formatter, nullptr);
      EXPECT_EQ(formatter->minimumFractionDigits(), digits);
      EXPECT_EQ(formatter->maximumFractionDigits(), digits);
      EXPECT_EQ(formatter->minimumIntegerDigits(), 1);
      EXPECT_FALSE(formatter->localizesFormat());
      EXPECT_EQ(formatter->string(0.5), digits == 1 ? "0.5" : "0");
    }
}

TYPED_TEST(YAxis, WithoutLabelsHasNoneWhateverTheTicks) {
  for (const bool tickMarks : {false, true}) {
    this->axisSet().yAxis()->setAxisLabels({std::make_shared<CPTAxisLabel>("by hand")});
    auto arguments = this->plain();
    arguments.noLabels = true;
    arguments.tickMarks = tickMarks;
    arguments.axisLabels = {std::make_shared<CPTAxisLabel>("given")};
    arguments.tickLocations = std::set<double>{3};
    const auto axis = this->format(arguments);
    EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::none);
    EXPECT_THAT(axis->axisLabels(), IsEmpty());
  }
}

TYPED_TEST(YAxis, OnTheRightIsANewAxisBehindTheOthers) {
  auto arguments = this->plain();
  arguments.rightAxis = true;
  arguments.title = "Right";
  this->space().setYRange({7, 5});
  const auto own = this->axisSet().axes();
  const std::string before = describe(*this->axisSet().yAxis());
  const auto first = this->format(arguments);
  const auto second = this->format(arguments);
  EXPECT_THAT(this->axisSet().axes(), ElementsAre(own[0], own[1], first, second));
  EXPECT_NE(first, second);
  EXPECT_EQ(describe(*this->axisSet().yAxis()), before);
  EXPECT_EQ(this->space().yRange(), CPTPlotRange(7, 5));
  for (const auto& axis : {first, second}) {
    EXPECT_EQ(axis->coordinate(), CPTCoordinate::Y);
    EXPECT_EQ(axis->plotSpace().get(), &this->space());
    EXPECT_FALSE(axis->separateLayers());
    EXPECT_EQ(axis->title(), "Right");
  }
}

TYPED_TEST(YAxis, OnTheRightNeedsNoHorizontalAxis) {
  this->axisSet().setAxes({this->axisSet().yAxis()});
  auto arguments = this->plain();
  arguments.rightAxis = true;
  EXPECT_NE(this->format(arguments), nullptr);
  EXPECT_EQ(this->axisSet().axes().size(), 2u);
}

TYPED_TEST(YAxis, OnTheRightOfASetWithoutAxesStaysOutsideIt) {
  this->axisSet().setAxes({});
  auto arguments = this->plain();
  arguments.rightAxis = true;
  EXPECT_NE(this->format(arguments), nullptr);
  EXPECT_THAT(this->axisSet().axes(), IsEmpty());
}

TYPED_TEST(YAxis, OnTheRightNeedsNoRangeWhenTheIntervalIsGiven) {
  auto arguments = this->plain();
  arguments.rightAxis = true;
  arguments.yRange = std::vector<TypeParam>{};
  arguments.yMajorIntervalLength = TypeParam(1);
  EXPECT_NE(this->format(arguments), nullptr);
}

TYPED_TEST(YAxis, TakesTicksAndLabelsByHandInDoublePrecisionOnly) {
  constexpr bool isDouble = std::is_same_v<TypeParam, double>;
  auto label = std::make_shared<CPTAxisLabel>("seven");
  label->setTickLocation(7);
  auto arguments = this->plain();
  arguments.tickLocations = std::set<double>{3, 7};
  arguments.axisLabels = {label};
  const auto axis = this->format(arguments);
  const std::string picture = dump(*this->graph);
  if (isDouble) {
    EXPECT_THAT(axis->majorTickLocations(), ElementsAre(3, 7));
    EXPECT_THAT(axis->axisLabels(), ElementsAre(label));
    EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::none);
    EXPECT_THAT(picture, HasSubstr("major 3 7\n    minor\n    labels \"seven\"\n"));
  } else {
    EXPECT_THAT(axis->majorTickLocations(), IsEmpty());
    EXPECT_THAT(axis->axisLabels(), IsEmpty());
    EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
    EXPECT_THAT(picture, HasSubstr("major 2 4 6 8 10\n"));
    EXPECT_THAT(picture, HasSubstr("labels \"2\" \"4\" \"6\" \"8\" \"10\"\n"));
  }
}

TYPED_TEST(YAxis, TakesTicksByHandOnlyWithTickMarks) {
  auto arguments = this->plain();
  arguments.tickLocations = std::set<double>{3, 7};
  arguments.tickMarks = false;
  EXPECT_THAT(this->format(arguments)->majorTickLocations(), IsEmpty());
}

TYPED_TEST(YAxis, WithLabelsByHandAloneKeepsItsOwnTicks) {
  auto arguments = this->plain();
  arguments.axisLabels = {std::make_shared<CPTAxisLabel>("by hand")};
  const auto axis = this->format(arguments);
  EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
  EXPECT_EQ(axis->axisLabels().size(), (std::is_same_v<TypeParam, double> ? 1u : 0u));
  EXPECT_THAT(dump(*this->graph), HasSubstr("labels \"2\" \"4\" \"6\" \"8\" \"10\"\n"));
}

TYPED_TEST(YAxis, LeavesWhatItDoesNotKnow) {
  const auto axis = this->axisSet().yAxis();
  axis->setLabelOffset(11);
  axis->setLabelRotation(0.5);
  axis->setOrthogonalPosition(4);
  axis->setSeparateLayers(true);
  axis->setLabelTextStyle(CPTTextStyle{.fontSize = 9});
  this->format(this->plain());
  EXPECT_EQ(axis->labelOffset(), 11);
  EXPECT_EQ(axis->labelRotation(), 0.5);
  EXPECT_EQ(axis->orthogonalPosition(), 4);
  EXPECT_TRUE(axis->separateLayers());
  EXPECT_EQ(axis->labelTextStyle(), CPTTextStyle{.fontSize = 9});
}

TYPED_TEST(YAxis, SurvivesRangesThatAreNone) {
  using Limits = std::numeric_limits<TypeParam>;
  const TypeParam ends[] = {Limits::quiet_NaN(),
                            Limits::infinity(),
                            -Limits::infinity(),
                            Limits::max(),
                            Limits::lowest(),
                            Limits::denorm_min(),
                            0};
  for (const TypeParam lower : ends)
    for (const TypeParam upper : ends) {
      auto arguments = this->plain();
      arguments.yRange = std::vector<TypeParam>{lower, upper};
      ASSERT_NE(this->format(arguments), nullptr);
      EXPECT_THAT(dump(*this->graph), Not(IsEmpty()));
    }
}

template <class Number>
using YAxisDeathTest = YAxis<Number>;
TYPED_TEST_SUITE(YAxisDeathTest, Numbers);

TYPED_TEST(YAxisDeathTest, ARangeOfFewerThanTwoValuesStopsTheProcess) {
  for (const auto& range : {std::vector<TypeParam>{}, std::vector<TypeParam>{1}}) {
    auto arguments = this->plain();
    arguments.yRange = range;
    EXPECT_DEATH(this->format(arguments), "Fatal error");
    arguments.yMajorIntervalLength = TypeParam(1);
    EXPECT_DEATH(this->format(arguments), "Fatal error.*formatYAxis.*yRange");
  }
}

TYPED_TEST(YAxisDeathTest, AMissingVerticalAxisStopsTheProcess) {
  this->axisSet().setAxes({this->axisSet().xAxis()});
  EXPECT_DEATH(this->format(this->plain()), "Fatal error.*formatYAxis.*vertical axis");
}

TYPED_TEST(YAxisDeathTest, AMissingPlotSpaceStopsTheProcess) {
  for (const bool right : {false, true}) {
    auto arguments = this->plain();
    arguments.rightAxis = right;
    const auto space = this->graph->defaultPlotSpace();
    this->graph->removePlotSpace(*space);
    EXPECT_DEATH(this->format(arguments), "Fatal error.*formatYAxis.*plot space");
    const auto other = std::make_shared<PlotSpaceOfAnotherKind>();
    this->graph->addPlotSpace(other);
    EXPECT_DEATH(this->format(arguments), "Fatal error.*formatYAxis.*plot space");
    this->graph->removePlotSpace(*other);
    this->graph->addPlotSpace(space);
  }
}

TYPED_TEST(YAxisDeathTest, ANegativeNumberOfMinorTicksStopsTheProcess) {
  auto arguments = this->plain();
  arguments.minorTicksPerInterval = -1;
  EXPECT_DEATH(this->format(arguments), "Fatal error.*minorTicksPerInterval");
}

TYPED_TEST(YAxisDeathTest, AThemeOutsideItsCasesStopsTheProcess) {
  this->plot.theme() = PlotTheme(static_cast<PlotTheme::Case>(3));
  auto arguments = this->plain();
  EXPECT_DEATH(this->format(arguments), "Fatal error");
  arguments.tickMarks = false;
  EXPECT_DEATH(this->format(arguments), "Fatal error");
  arguments.rightAxis = true;
  EXPECT_DEATH(this->format(arguments), "Fatal error");
  EXPECT_EQ(this->plot.formatYAxis(nullptr, arguments), nullptr);
}

}  // namespace
}  // namespace vexel
