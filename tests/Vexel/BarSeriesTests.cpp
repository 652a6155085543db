#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Vexel/SeriesExamples.h"
#include "Vexel/TestPlot.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BarSeries : public testing::Test {
 protected:
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
  TestPlot plot;
};

TEST_F(BarSeries, WithoutGraphIsNone) {
  EXPECT_EQ(plot.addBarPlot(bars(nullptr)), nullptr);
}

TEST_F(BarSeries, IsAddedOnTopOfTheGraphOnItsDefaultPlotSpace) {
  graph->addPlotSpace(std::make_shared<CPTXYPlotSpace>());
  const auto line = plot.addPlot(cptLine(graph));
  const auto series = plot.addBarPlot(bars(graph));
  EXPECT_THAT(graph->allPlots(), ElementsAre(line, series));
  EXPECT_EQ(series->plotSpace(), graph->defaultPlotSpace());
  EXPECT_EQ(series->dataSource(), static_cast<CPTPlotDataSource*>(&plot));
  EXPECT_EQ(series->identifier(), "Counts");
}

TEST_F(BarSeries, TakesItsDefaultColoursFromTheTheme) {
  const struct {
    PlotTheme theme;
    CPTColor fill;
    CPTColor foreground;
  } rows[] = {
      {PlotTheme::black, CPTColor::darkGrayColor(), CPTColor::whiteColor()},
      {PlotTheme::white, CPTColor::colorWithGenericGray(0.8), CPTColor::blackColor()},
      {PlotTheme::print, CPTColor::colorWithGenericGray(0.8), CPTColor::blackColor()},
  };
  // Absent, or not known as it is written.
  const std::optional<std::string> names[] = {std::nullopt, "", "Red", "grey", "clear"};
  for (const auto& [theme, fill, foreground] : rows)
    for (const auto& name : names) {
      plot.theme() = theme;
      auto arguments = bars(graph);
      arguments.color = name;
      arguments.lineColor = name;
      arguments.labels = true;
      const auto series = plot.addBarPlot(arguments);
      EXPECT_EQ(series->fill(), CPTFill(fill));
      EXPECT_EQ(series->lineStyle()->lineColor, foreground);
      EXPECT_EQ(series->labelTextStyle()->color, foreground);
    }
}

TEST_F(BarSeries, TakesKnownColourNames) {
  auto arguments = bars(graph);
  arguments.color = "brown";
  arguments.lineColor = "verylightgray";
  const auto series = plot.addBarPlot(arguments);
  EXPECT_EQ(series->fill(), CPTFill(CPTColor::brownColor()));
  CPTLineStyle outline;
  outline.lineWidth = 1.5;
  outline.lineColor = CPTColor::colorWithGenericGray(0.8);
  EXPECT_EQ(series->lineStyle(), outline);
}

TEST_F(BarSeries, LooksUpBothColoursInTheAdoptersWayFillFirst) {
  class OwnColors : public TestPlot {
   public:
    std::optional<CPTColor> getCPTColor(const std::optional<std::string>& name) override {
      calls.push_back(name.value_or("none"));
      if (name == "none of mine") return std::nullopt;
      return name ? CPTColor::cyanColor() : CPTColor::purpleColor();
    }
  };
  OwnColors own;
  auto arguments = bars(graph);
  arguments.lineColor = "red";
  auto series = own.addBarPlot(arguments);
  EXPECT_THAT(own.calls, ElementsAre("none", "red"));
  EXPECT_EQ(series->fill(), CPTFill(CPTColor::purpleColor()));
  EXPECT_EQ(series->lineStyle()->lineColor, CPTColor::cyanColor());

  arguments.color = "none of mine";
  series = own.addBarPlot(arguments);
  EXPECT_EQ(series->fill(), CPTFill(CPTColor::colorWithGenericGray(0.8)));
}

TEST_F(BarSeries, HasLabelsInTheForegroundWithOffsetAndRotation) {
  plot.theme() = PlotTheme::black;
  auto arguments = bars(graph);
  arguments.labels = true;
  arguments.color = "red";
  arguments.lineColor = "blue";
  const auto series = plot.addBarPlot(arguments);
  CPTTextStyle style;
  style.color = CPTColor::whiteColor();
  EXPECT_EQ(series->labelTextStyle(), style);
  EXPECT_EQ(series->labelOffset(), 3);
  EXPECT_EQ(series->labelRotation(), 0.5);
}

TEST_F(BarSeries, WithoutLabelsKeepsTheChartEnginesLabelDefaults) {
  plot.theme() = PlotTheme::black;
  const auto series = plot.addBarPlot(bars(graph));
  const CPTBarPlot untouched;
  EXPECT_EQ(series->labelTextStyle(), untouched.labelTextStyle());
  EXPECT_EQ(series->labelOffset(), untouched.labelOffset());
  EXPECT_EQ(series->labelOffset(), 10);
  EXPECT_EQ(series->labelRotation(), 0);
}

TEST_F(BarSeries, HasTheGivenWidthWhenBasesDoNotVary) {
  auto arguments = bars(graph);
  arguments.barWidth = 0.1;
  const auto series = plot.addBarPlot(arguments);
  EXPECT_EQ(series->barWidth(), 0.1f);
  EXPECT_FALSE(series->barBasesVary());
  EXPECT_FALSE(series->barWidthsAreInViewCoordinates());
}

TEST_F(BarSeries, KeepsTheDefaultWidthWhenBasesVary) {
  auto arguments = bars(graph);
  arguments.barBasesVary = true;
  arguments.barWidth = 0.75;
  const auto series = plot.addBarPlot(arguments);
  EXPECT_TRUE(series->barBasesVary());
  EXPECT_EQ(series->barWidth(), CPTBarPlot().barWidth());
  EXPECT_EQ(series->barWidth(), 0.5);
  EXPECT_FALSE(series->barWidthsAreInViewCoordinates());
}

TEST_F(BarSeries, StandsOrLiesAsAsked) {
  auto arguments = bars(graph);
  EXPECT_FALSE(plot.addBarPlot(arguments)->barsAreHorizontal());
  arguments.barsAreHorizontal = true;
  EXPECT_TRUE(plot.addBarPlot(arguments)->barsAreHorizontal());
}

TEST_F(BarSeries, KeepsTheChartEnginesDefaultsForTheRest) {
  const auto series = plot.addBarPlot(bars(graph));
  EXPECT_EQ(series->barOffset(), 0);
  EXPECT_EQ(series->barCornerRadius(), 0);
  EXPECT_EQ(series->baseValue(), 0);
}

TEST_F(BarSeries, HasTheDelegateOnlyWhenItIsOneForLayers) {
  CALayerDelegate layers;
  NSObject other;
  const struct {
    NSObject* delegate;
    CALayerDelegate* expected;
  } rows[] = {{nullptr, nullptr}, {&other, nullptr}, {&layers, &layers}, {&plot, nullptr}};
  for (const auto& [delegate, expected] : rows) {
    auto arguments = bars(graph);
    arguments.delegate = delegate;
    EXPECT_EQ(plot.addBarPlot(arguments)->delegate(), expected);
  }
}

using BarSeriesDeathTest = BarSeries;

TEST_F(BarSeriesDeathTest, AThemeOutsideItsCasesStopsTheProcessWhereADefaultIsNeeded) {
  plot.theme() = PlotTheme(static_cast<PlotTheme::Case>(3));
  auto named = bars(graph);
  named.color = "red";
  named.lineColor = "blue";
  EXPECT_NE(plot.addBarPlot(named), nullptr);
  EXPECT_EQ(plot.addBarPlot(bars(nullptr)), nullptr);

  auto fill = named;
  fill.color = std::nullopt;
  EXPECT_DEATH(plot.addBarPlot(fill), "Fatal error");
  auto line = named;
  line.lineColor = "Blue";
  EXPECT_DEATH(plot.addBarPlot(line), "Fatal error");
  auto labels = named;
  labels.labels = true;
  EXPECT_DEATH(plot.addBarPlot(labels), "Fatal error");
}

class BarSeriesLog : public LogFixture {};

TEST_F(BarSeriesLog, IsEmpty) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  const auto recorder = addRecorder();
  TestPlot plot;
  plot.addBarPlot(bars(nullptr));
  plot.addBarPlot(bars(std::make_shared<CPTXYGraph>()));
  EXPECT_THAT(recorder->texts(), IsEmpty());
}

}  // namespace
}  // namespace vexel
