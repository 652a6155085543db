#include <CorePlot/CPTAxisDelegate.h>
#include <CorePlot/CPTDump.h>
#include <Foundation/NSNumberFormatter.h>
#include <Kitbase/EmptyFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "TimeAxis.h"
#include "Vexel/AxisText.h"
#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class AxisSetOfAnotherKind : public CPTAxisSet {};
class Delegate : public CPTAxisDelegate {};
class PlotThatIsADelegate : public TestPlot, public CPTAxisDelegate {};

constexpr double kNewYear2001 = 2451910.5;

class XAxis : public testing::Test {
 protected:
  XAxis() { plot.initPlot(nullptr, PlotTheme::white); }

  static XAxisArguments plain() {
    return {.xRange = std::vector{2.0, 10.0},
            .gridLines = false,
            .noLabels = false,
            .tickMarks = true,
            .timeAxis = false,
            .upperAxis = false,
            .onNewPlotSpace = false,
            .separateLayers = false};
  }

  static XAxisArguments time() {
    XAxisArguments arguments = plain();
    arguments.xRange = std::vector{kNewYear2001 + 10, kNewYear2001 + 15};
    arguments.timeAxis = true;
    return arguments;
  }

  std::shared_ptr<CPTXYAxis> format(const XAxisArguments& arguments) {
    return std::dynamic_pointer_cast<CPTXYAxis>(plot.formatXAxis(graph, arguments));
  }

  CPTXYAxisSet& axisSet() { return dynamic_cast<CPTXYAxisSet&>(*graph->axisSet()); }
  CPTXYPlotSpace& space() { return dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()); }

  TestPlot plot;
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
};

TEST_F(XAxis, OfNoGraphIsNone) {
  EXPECT_EQ(plot.formatXAxis(nullptr, plain()), nullptr);
  XAxisArguments arguments = plain();
  arguments.xRange = std::vector<double>{};
  EXPECT_EQ(plot.formatXAxis(nullptr, arguments), nullptr);
}

TEST_F(XAxis, OfAnAxisSetOfAnotherKindIsNone) {
  for (const bool upper : {false, true}) {
    XAxisArguments arguments = plain();
    arguments.upperAxis = upper;
    arguments.onNewPlotSpace = true;
    graph->setAxisSet(nullptr);
    EXPECT_EQ(format(arguments), nullptr);
    graph->setAxisSet(std::make_shared<AxisSetOfAnotherKind>());
    EXPECT_EQ(format(arguments), nullptr);
    EXPECT_EQ(graph->allPlotSpaces().size(), 1u);
    EXPECT_EQ(space().xRange(), CPTPlotRange(0, 1));
  }
}

TEST_F(XAxis, OfASetWithoutHorizontalAxisIsNone) {
  axisSet().setAxes({axisSet().yAxis()});
  EXPECT_EQ(format(plain()), nullptr);
}

TEST_F(XAxis, IsTheGraphsOwnHorizontalAxis) {
  const auto axes = axisSet().axes();
  const std::string vertical = describe(*axisSet().yAxis());
  EXPECT_EQ(format(plain()), axisSet().xAxis());
  EXPECT_EQ(axisSet().axes(), axes);
  EXPECT_EQ(describe(*axisSet().yAxis()), vertical);
  EXPECT_EQ(axisSet().xAxis()->plotSpace().get(), &space());
  EXPECT_EQ(graph->allPlotSpaces().size(), 1u);
}

TEST_F(XAxis, SetsTheHorizontalRange) {
  const struct {
    std::vector<double> range;
    std::optional<double> scale;
    CPTPlotRange expected;
  } rows[] = {
      {{2, 10}, 1000, {2000, 8000}}, {{10, 2}, 1000, {10000, -8000}},
      {{2, 10}, {}, {2, 8}},         {{5, 5}, 1, {5, 0}},
      {{2, 10, 77}, 1, {2, 8}},      {{0.1, 0.3}, 3.3, {0.1 * 3.3, (0.3 - 0.1) * 3.3}},
  };
  for (const auto& [range, scale, expected] : rows) {
    XAxisArguments arguments = plain();
    arguments.xRange = range;
    arguments.xScale = scale;
    format(arguments);
    EXPECT_EQ(space().xRange(), expected);
    EXPECT_EQ(space().yRange(), CPTPlotRange(0, 1));
  }
}

TEST_F(XAxis, WithoutRangeKeepsTheOneThatIsShown) {
  space().setXRange({100, 8});
  XAxisArguments arguments = plain();
  arguments.xRange = std::nullopt;
  arguments.xScale = 1000;
  arguments.timeAxis = true;
  const auto axis = format(arguments);
  EXPECT_EQ(space().xRange(), CPTPlotRange(100, 8));
  EXPECT_EQ(axis->majorIntervalLength(), 2);
  EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
  EXPECT_EQ(axis->title(), std::nullopt);
}

TEST_F(XAxis, OnANewPlotSpaceSharesTheVerticalRange) {
  space().setYRange({7, 5});
  for (const bool upper : {false, true}) {
    XAxisArguments arguments = plain();
    arguments.onNewPlotSpace = true;
    arguments.upperAxis = upper;
    arguments.xScale = 2;
    const auto spaces = graph->allPlotSpaces().size();
    const auto axis = format(arguments);
    ASSERT_EQ(graph->allPlotSpaces().size(), spaces + 1);
    EXPECT_EQ(axis->plotSpace(), graph->allPlotSpaces().back());
    EXPECT_NE(axis->plotSpace().get(), &space());
    EXPECT_EQ(axis->plotSpace()->graph(), graph.get());
    EXPECT_EQ(axis->plotSpace()->yRange(), CPTPlotRange(7, 5));
    EXPECT_EQ(axis->plotSpace()->xRange(), CPTPlotRange(4, 16));
    EXPECT_EQ(space().xRange(), CPTPlotRange(4, 16));
    EXPECT_EQ(graph->defaultPlotSpace().get(), &space());
  }
}

TEST_F(XAxis, OnANewPlotSpaceWithoutRangeStartsAfresh) {
  space().setXRange({100, 8});
  XAxisArguments arguments = plain();
  arguments.onNewPlotSpace = true;
  arguments.xRange = std::nullopt;
  EXPECT_EQ(format(arguments)->plotSpace()->xRange(), CPTPlotRange(0, 1));
  EXPECT_EQ(space().xRange(), CPTPlotRange(100, 8));
}

TEST_F(XAxis, OnTheUpperSideIsANewAxisBehindTheOthers) {
  XAxisArguments arguments = plain();
  arguments.upperAxis = true;
  const auto own = axisSet().axes();
  const std::string before = describe(*axisSet().xAxis());
  const auto first = format(arguments);
  const auto second = format(arguments);
  EXPECT_THAT(axisSet().axes(), ElementsAre(own[0], own[1], first, second));
  EXPECT_EQ(describe(*axisSet().xAxis()), before);
  for (const auto& axis : {first, second}) {
    EXPECT_EQ(axis->coordinate(), CPTCoordinate::X);
    EXPECT_EQ(axis->plotSpace().get(), &space());
    EXPECT_FALSE(axis->separateLayers());
  }
}

TEST_F(XAxis, OnTheUpperSideJoinsASetWithoutAxes) {
  axisSet().setAxes({});
  XAxisArguments arguments = plain();
  arguments.upperAxis = true;
  const auto axis = format(arguments);
  EXPECT_THAT(axisSet().axes(), ElementsAre(axis));
}

TEST_F(XAxis, HasTheIntervalThatIsGivenOrOneForTheScaledRange) {
  const struct {
    std::vector<double> range;
    std::optional<double> scale;
    std::optional<double> interval;
    double expected;
  } rows[] = {
      {{2, 10}, {}, {}, 2},  {{2, 10}, 1000, {}, 2000},   {{10, 2}, 1, {}, 2},
      {{2, 10}, 1000, 3, 3}, {{2, 10}, {}, 0.125, 0.125}, {{0, 0}, {}, {}, 1},
  };
  for (const auto& [range, scale, interval, expected] : rows)
    for (const bool tickMarks : {false, true}) {
      XAxisArguments arguments = plain();
      arguments.xRange = range;
      arguments.xScale = scale;
      arguments.xMajorIntervalLength = interval;
      arguments.tickMarks = tickMarks;
      const auto axis = format(arguments);
      EXPECT_EQ(axis->majorIntervalLength(), expected);
      EXPECT_EQ(axis->minorTicksPerInterval(), 4);
    }
}

TEST_F(XAxis, WithTickMarksHasTicksInsideAndLabelsOutside) {
  for (const bool upper : {false, true}) {
    XAxisArguments arguments = plain();
    arguments.upperAxis = upper;
    const auto axis = format(arguments);
    const CPTSign outside = upper ? CPTSign::positive : CPTSign::negative;
    const CPTSign inside = upper ? CPTSign::negative : CPTSign::positive;
    EXPECT_EQ(axis->majorTickLength(), 10);
    EXPECT_EQ(axis->minorTickLength(), 5);
    EXPECT_EQ(axis->tickDirection(), inside);
    EXPECT_EQ(axis->tickLabelDirection(), outside);
    EXPECT_EQ(axis->titleDirection(), outside);
    EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
  }
}

TEST_F(XAxis, WithoutTickMarksKeepsTheEnginesTicksAndShowsNone) {
  for (const bool upper : {false, true}) {
    XAxisArguments arguments = plain();
    arguments.tickMarks = false;
    arguments.upperAxis = upper;
    const CPTXYAxis fresh;
    const auto axis = format(arguments);
    EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::none);
    EXPECT_EQ(axis->majorTickLength(), fresh.majorTickLength());
    EXPECT_EQ(axis->minorTickLength(), fresh.minorTickLength());
    EXPECT_EQ(axis->majorTickLineStyle(), fresh.majorTickLineStyle());
    EXPECT_EQ(axis->minorTickLineStyle(), fresh.minorTickLineStyle());
    EXPECT_THAT(dump(*graph), Not(HasSubstr("axis X line #000000 width 1\n    major 2")));
  }
}

TEST_F(XAxis, WithoutTickMarksShowsTicksOfTimeAndByHandInTheEnginesLooks) {
  for (const bool isTime : {false, true})
    for (const bool upper : {false, true}) {
      XAxisArguments arguments = isTime ? time() : plain();
      arguments.tickLocations = std::set<double>{3, 7};
      arguments.tickMarks = false;
      arguments.upperAxis = upper;
      const CPTXYAxis fresh;
      const auto axis = format(arguments);
      EXPECT_EQ(axis->majorTickLocations().size(), isTime ? 6u : 2u);
      EXPECT_EQ(axis->axisLabels().size(), isTime ? 6u : 0u);
      EXPECT_EQ(axis->majorTickLength(), fresh.majorTickLength());
      EXPECT_EQ(axis->majorTickLineStyle(), fresh.majorTickLineStyle());
      EXPECT_THAT(dump(*graph), HasSubstr(isTime ? "major 2.45192e+06" : "major 3 7\n"));
    }
}

TEST_F(XAxis, WithoutTickMarksHasItsTitleOutsideAllTheSame) {
  for (const bool upper : {false, true}) {
    XAxisArguments arguments = plain();
    arguments.tickMarks = false;
    arguments.upperAxis = upper;
    EXPECT_EQ(format(arguments)->titleDirection(), upper ? CPTSign::positive : CPTSign::negative);
  }
}

TEST_F(XAxis, IsDrawnInTheColoursOfTheTheme) {
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
    for (const bool upper : {false, true}) {
      plot.theme() = theme;
      XAxisArguments arguments = time();
      arguments.gridLines = true;
      arguments.upperAxis = upper;
      const auto axis = format(arguments);
      const CPTLineStyle lineStyle{.lineWidth = 1, .lineColor = line};
      const CPTLineStyle gridStyle{.lineWidth = 0.5, .lineColor = grid};
      EXPECT_EQ(axis->axisLineStyle(), lineStyle);
      EXPECT_EQ(axis->majorTickLineStyle(), lineStyle);
      EXPECT_EQ(axis->minorTickLineStyle(), lineStyle);
      EXPECT_EQ(axis->majorGridLineStyle(), gridStyle);
      EXPECT_EQ(axis->minorGridLineStyle(), gridStyle);
      EXPECT_EQ(axis->labelTextStyle(), (CPTTextStyle{.color = line}));
      for (const auto& label : axis->axisLabels())
        EXPECT_EQ(label->contentLayer()->textStyle(), (CPTTextStyle{.color = line}));
    }
}

TEST_F(XAxis, HasGridLinesOnlyWhenTheyAreAskedFor) {
  const auto axis = format(plain());
  EXPECT_EQ(axis->majorGridLineStyle(), std::nullopt);
  EXPECT_EQ(axis->minorGridLineStyle(), std::nullopt);
}

TEST_F(XAxis, TakesSeparateLayers) {
  for (const bool upper : {false, true})
    for (const bool separate : {true, false}) {
      XAxisArguments arguments = plain();
      arguments.upperAxis = upper;
      arguments.separateLayers = separate;
      EXPECT_EQ(format(arguments)->separateLayers(), separate);
    }
}

TEST_F(XAxis, WithoutLabelsHasAFormatterThatPrintsNothing) {
  const CPTTextStyle style{.fontSize = 9};
  axisSet().xAxis()->setLabelTextStyle(style);
  XAxisArguments arguments = plain();
  arguments.noLabels = true;
  arguments.formatter = std::make_shared<NSNumberFormatter>();
  const auto axis = format(arguments);
  EXPECT_NE(std::dynamic_pointer_cast<EmptyFormatter>(axis->labelFormatter()), nullptr);
  EXPECT_EQ(axis->labelTextStyle(), style);
  EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
  EXPECT_THAT(dump(*graph), HasSubstr("major 2 4 6 8 10\n"));
  EXPECT_THAT(dump(*graph), HasSubstr("    labels\n"));
}

TEST_F(XAxis, WithoutLabelsSilencesATimeAxisAndKeepsItsSets) {
  XAxisArguments arguments = time();
  arguments.noLabels = true;
  const auto axis = format(arguments);
  EXPECT_EQ(axis->axisLabels().size(), 6u);
  EXPECT_EQ(axis->majorTickLocations().size(), 6u);
  EXPECT_EQ(axis->title(), "Days of 2001");
  EXPECT_THAT(dump(*graph), HasSubstr("    labels\n"));
}

TEST_F(XAxis, HasTheFormatterThatIsGiven) {
  XAxisArguments arguments = plain();
  arguments.formatter = std::make_shared<NSNumberFormatter>();
  EXPECT_EQ(format(arguments)->labelFormatter(), arguments.formatter);
  EXPECT_EQ(axisSet().xAxis()->labelTextStyle(), CPTTextStyle{});
}

TEST_F(XAxis, ShowsAsManyFractionDigitsAsTheIntervalAsksFor) {
  const struct {
    double interval;
    int digits;
  } rows[] = {
      {std::numeric_limits<double>::quiet_NaN(), 1},
      {-1, 3},
      {0, 3},
      {1e-9, 3},
      {0.002, 3},
      {std::nextafter(0.002, 1), 2},
      {0.01, 2},
      {0.2, 2},
      {std::nextafter(0.2, 1), 1},
      {0.5, 1},
      {std::nextafter(1.0, 0.0), 1},
      {1, 0},
      {1e9, 0},
      {std::numeric_limits<double>::infinity(), 0},
  };
  for (const auto& [interval, digits] : rows) {
    XAxisArguments arguments = plain();
    arguments.xMajorIntervalLength = interval;
    const auto formatter =
        std::dynamic_pointer_cast<NSNumberFormatter>(format(arguments)->labelFormatter());
    ASSERT_NE(formatter, nullptr);
    EXPECT_EQ(formatter->minimumFractionDigits(), digits) << interval;
    EXPECT_EQ(formatter->maximumFractionDigits(), 3) << interval;
    EXPECT_EQ(formatter->minimumIntegerDigits(), 1);
    EXPECT_FALSE(formatter->localizesFormat());
  }
}

TEST_F(XAxis, TakesTicksByHand) {
  XAxisArguments arguments = plain();
  arguments.tickLocations = std::set<double>{3, 7};
  const auto axis = format(arguments);
  EXPECT_THAT(axis->majorTickLocations(), ElementsAre(3, 7));
  EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::none);
  EXPECT_THAT(axis->axisLabels(), IsEmpty());
}

TEST_F(XAxis, TakesLabelsByHand) {
  const auto label = std::make_shared<CPTAxisLabel>("by hand");
  XAxisArguments arguments = plain();
  arguments.axisLabels = {label};
  const auto axis = format(arguments);
  EXPECT_THAT(axis->axisLabels(), ElementsAre(label));
  EXPECT_THAT(axis->majorTickLocations(), IsEmpty());
  EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
  arguments.axisLabels = std::nullopt;
  EXPECT_THAT(format(arguments)->axisLabels(), ElementsAre(label));
}

TEST_F(XAxis, OfTimeHasTheTicksLabelsAndTitleOfItsRange) {
  XAxisArguments arguments = time();
  arguments.title = "not this";
  arguments.tickLocations = std::set<double>{3, 7};
  arguments.axisLabels = {std::make_shared<CPTAxisLabel>("not this")};
  for (const bool upper : {false, true}) {
    arguments.upperAxis = upper;
    const auto axis = format(arguments);
    const TimeAxis expected = timeAxis(*arguments.xRange);
    EXPECT_EQ(axis->title(), expected.title);
    EXPECT_EQ(axis->labelingPolicy(), CPTAxisLabelingPolicy::none);
    ASSERT_EQ(axis->axisLabels().size(), expected.ticks.size());
    ASSERT_EQ(axis->majorTickLocations().size(), expected.ticks.size());
    auto location = axis->majorTickLocations().begin();
    for (std::size_t i = 0; i < expected.ticks.size(); ++i) {
      EXPECT_EQ(*location++, expected.ticks[i].first);
      EXPECT_EQ(axis->axisLabels()[i]->tickLocation(), expected.ticks[i].first);
      EXPECT_EQ(axis->axisLabels()[i]->contentLayer()->text(), expected.ticks[i].second);
      EXPECT_EQ(axis->axisLabels()[i]->contentLayer()->textStyle(), CPTTextStyle{});
    }
  }
}

TEST_F(XAxis, OfTimeIsShownWithLabels) {
  format(time());
  EXPECT_THAT(dump(*graph), HasSubstr("labels \"011\" \"012\" \"013\" \"014\" \"015\" \"016\"\n"));
}

TEST_F(XAxis, OfEighteenHoursShowsTimesThatPartTheDayAtEveryWidth) {
  XAxisArguments arguments = time();
  const double noon = kNewYear2001 + 0.5;
  arguments.xRange = std::vector{noon - 1 / 24.0, noon + 17 / 24.0};
  const struct {
    CGFloat width;
    const char* labels;
  } rows[] = {
      {800, "11:00\" \"12:00\" \"13:00"},
      {400,
       "12:00\" \"14:00\" \"16:00\" \"18:00\" \"20:00\" \"22:00\" \"00:00\" \"02:00\" \"04:00"},
      {300, "12:00\" \"15:00\" \"18:00\" \"21:00\" \"00:00\" \"03:00"},
      {240, "12:00\" \"16:00\" \"20:00\" \"00:00\" \"04:00"},
      {170, "12:00\" \"18:00\" \"00:00"},
      {100, "12:00\" \"00:00"},
  };
  for (const auto& [width, labels] : rows) {
    graph->setFrame(CGRect::make(0, 0, width, 200));
    const auto axis = format(arguments);
    EXPECT_THAT(dump(*graph), HasSubstr(std::string("    labels \"") + labels + "\"")) << width;
    EXPECT_EQ(axis->axisLabels().size(), 19u);
    EXPECT_EQ(axis->majorTickLocations().size(), 19u);
  }
}

TEST_F(XAxis, TakesATitleOnlyWhenItIsGiven) {
  XAxisArguments arguments = plain();
  EXPECT_EQ(format(arguments)->title(), std::nullopt);
  arguments.title = "Time [us]";
  EXPECT_EQ(format(arguments)->title(), "Time [us]");
  arguments.title = std::nullopt;
  EXPECT_EQ(format(arguments)->title(), "Time [us]");
}

TEST_F(XAxis, TakesATitleOffsetOnlyWhenItIsGiven) {
  XAxisArguments arguments = plain();
  EXPECT_EQ(format(arguments)->titleOffset(), 30);
  arguments.titleOffset = 42.5f;
  EXPECT_EQ(format(arguments)->titleOffset(), 42.5);
  arguments.titleOffset = std::nullopt;
  EXPECT_EQ(format(arguments)->titleOffset(), 42.5);
}

TEST_F(XAxis, TakesConstraintsOnlyWhenTheyAreGiven) {
  const auto edge = CPTConstraints::constraintWithLowerOffset(3);
  XAxisArguments arguments = plain();
  EXPECT_EQ(format(arguments)->axisConstraints(), std::nullopt);
  arguments.axisConstraints = edge;
  EXPECT_EQ(format(arguments)->axisConstraints(), edge);
  arguments.axisConstraints = std::nullopt;
  EXPECT_EQ(format(arguments)->axisConstraints(), edge);
}

TEST_F(XAxis, HasTheDelegateThatIsGiven) {
  PlotThatIsADelegate itself;
  itself.initPlot(nullptr, PlotTheme::white);
  Delegate delegate;
  XAxisArguments arguments = plain();
  arguments.delegate = &delegate;
  EXPECT_EQ(itself.formatXAxis(graph, arguments)->delegate(), &delegate);
  arguments.delegate = nullptr;
  EXPECT_EQ(itself.formatXAxis(graph, arguments)->delegate(), nullptr);
  arguments.delegate = &itself;
  EXPECT_EQ(itself.formatXAxis(graph, arguments)->delegate(),
            static_cast<CPTAxisDelegate*>(&itself));
  TestPlot noDelegate;
  arguments.delegate = &noDelegate;
  EXPECT_EQ(itself.formatXAxis(graph, arguments)->delegate(), nullptr);
}

TEST_F(XAxis, LeavesWhatItDoesNotKnow) {
  const auto axis = axisSet().xAxis();
  axis->setLabelOffset(11);
  axis->setLabelRotation(0.5);
  axis->setOrthogonalPosition(4);
  format(plain());
  EXPECT_EQ(axis->labelOffset(), 11);
  EXPECT_EQ(axis->labelRotation(), 0.5);
  EXPECT_EQ(axis->orthogonalPosition(), 4);
}

TEST_F(XAxis, SurvivesRangesThatAreNone) {
  using Limits = std::numeric_limits<double>;
  const double ends[] = {Limits::quiet_NaN(), Limits::infinity(),   -Limits::infinity(),
                         Limits::max(),       Limits::denorm_min(), 0};
  for (const double lower : ends)
    for (const double upper : ends) {
      XAxisArguments arguments = plain();
      arguments.xRange = std::vector{lower, upper};
      ASSERT_NE(format(arguments), nullptr);
      EXPECT_THAT(dump(*graph), Not(IsEmpty()));
    }
}

using XAxisDeathTest = XAxis;

TEST_F(XAxisDeathTest, ARangeOfFewerThanTwoValuesStopsTheProcess) {
  for (const bool isTime : {false, true})
    for (const auto& range : {std::vector<double>{}, std::vector<double>{1}}) {
      XAxisArguments arguments = plain();
      arguments.timeAxis = isTime;
      arguments.xRange = range;
      arguments.xMajorIntervalLength = 1;
      EXPECT_DEATH(format(arguments), "Fatal error.*formatXAxis.*xRange");
    }
}

TEST_F(XAxisDeathTest, AMissingPlotSpaceStopsTheProcess) {
  graph->removePlotSpace(*graph->defaultPlotSpace());
  EXPECT_DEATH(format(plain()), "Fatal error.*formatXAxis.*plot space");
}

TEST_F(XAxisDeathTest, ATimeThatIsNoneStopsTheProcess) {
  using Limits = std::numeric_limits<double>;
  for (const double end : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 1e300}) {
    XAxisArguments arguments = time();
    arguments.xRange = std::vector{kNewYear2001, end};
    EXPECT_DEATH(format(arguments), "Fatal error");
    arguments.xRange = std::vector{end, kNewYear2001};
    EXPECT_DEATH(format(arguments), "Fatal error");
  }
}

TEST_F(XAxisDeathTest, AThemeOutsideItsCasesStopsTheProcess) {
  plot.theme() = PlotTheme(static_cast<PlotTheme::Case>(3));
  XAxisArguments arguments = plain();
  EXPECT_DEATH(format(arguments), "Fatal error");
  arguments.tickMarks = false;
  EXPECT_DEATH(format(arguments), "Fatal error");
  EXPECT_DEATH(format(time()), "Fatal error");
  EXPECT_EQ(plot.formatXAxis(nullptr, arguments), nullptr);
}

}  // namespace
}  // namespace vexel
