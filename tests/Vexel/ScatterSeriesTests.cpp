#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "Vexel/SeriesExamples.h"
#include "Vexel/TestPlot.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

class ScatterSeries : public testing::Test {
 protected:
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
  TestPlot plot;
};

TEST_F(ScatterSeries, WithoutGraphIsNone) {
  EXPECT_EQ(plot.addPlot(cptLine(nullptr)), nullptr);
  EXPECT_EQ(plot.addPlot(nsLine(nullptr)), nullptr);
  EXPECT_EQ(plot.addPlot(plainLine(nullptr)), nullptr);
}

TEST_F(ScatterSeries, IsAddedOnTopOfTheGraphOnItsDefaultPlotSpace) {
  graph->addPlotSpace(std::make_shared<CPTXYPlotSpace>());
  const auto first = plot.addPlot(cptLine(graph));
  const auto second = plot.addPlot(nsLine(graph));
  const auto third = plot.addPlot(plainLine(graph));
  EXPECT_THAT(graph->allPlots(), ElementsAre(first, second, third));
  for (const auto& series : {first, second, third}) {
    EXPECT_EQ(series->graph(), graph.get());
    EXPECT_EQ(series->plotSpace(), graph->defaultPlotSpace());
    EXPECT_EQ(series->dataSource(), static_cast<CPTPlotDataSource*>(&plot));
    EXPECT_EQ(series->identifier(), "Charge");
  }
}

TEST_F(ScatterSeries, StartsFromTheChartEnginesDefaults) {
  const auto series = plot.addPlot(cptLine(graph));
  EXPECT_EQ(series->frame(), CGRect());
  EXPECT_EQ(series->plotSymbol(), std::nullopt);
  EXPECT_EQ(series->interpolation(), CPTScatterPlotInterpolation::linear);
  EXPECT_EQ(series->labelOffset(), 0);
  EXPECT_EQ(series->labelRotation(), 0);
}

TEST_F(ScatterSeries, IsALineOfTheGivenWidthAndColour) {
  CPTLineStyle expected;
  expected.lineWidth = 1.5;
  expected.lineColor = CPTColor::redColor();
  EXPECT_EQ(plot.addPlot(cptLine(graph))->dataLineStyle(), expected);
}

TEST_F(ScatterSeries, TakesLengthsOfSinglePrecision) {
  auto arguments = cptLine(graph);
  arguments.lineWidth = 0.1;
  arguments.label = true;
  arguments.labelOffset = 0.2;
  arguments.labelRotation = 0.3;
  const auto labelled = plot.addPlot(arguments);
  EXPECT_EQ(labelled->labelOffset(), 0.2f);
  EXPECT_EQ(labelled->labelRotation(), 0.3f);
  arguments.label = false;
  EXPECT_EQ(plot.addPlot(arguments)->dataLineStyle()->lineWidth, 0.1f);
}

TEST_F(ScatterSeries, WithoutColourIsALineInTheForegroundOfTheTheme) {
  const struct {
    PlotTheme theme;
    CPTColor foreground;
  } rows[] = {{PlotTheme::black, CPTColor::whiteColor()},
              {PlotTheme::white, CPTColor::blackColor()},
              {PlotTheme::print, CPTColor::blackColor()}};
  for (const auto& [theme, foreground] : rows) {
    plot.theme() = theme;
    auto cpt = cptLine(graph);
    cpt.color = std::nullopt;
    auto ns = nsLine(graph);
    ns.color = std::nullopt;
    EXPECT_EQ(plot.addPlot(cpt)->dataLineStyle()->lineColor, foreground);
    EXPECT_EQ(plot.addPlot(ns)->dataLineStyle()->lineColor, foreground);
    EXPECT_EQ(plot.addPlot(plainLine(graph))->dataLineStyle()->lineColor, foreground);
  }
}

TEST_F(ScatterSeries, IsSolidWithoutDashPatternAndDashedWithOne) {
  auto arguments = cptLine(graph);
  EXPECT_THAT(plot.addPlot(arguments)->dataLineStyle()->dashPattern, IsEmpty());
  arguments.dashPattern = {4, 2};
  EXPECT_THAT(plot.addPlot(arguments)->dataLineStyle()->dashPattern, ElementsAre(4, 2));
  arguments.dashPattern = std::vector<double>();
  EXPECT_THAT(plot.addPlot(arguments)->dataLineStyle()->dashPattern, IsEmpty());
}

TEST_F(ScatterSeries, OfCirclesIsOutlinedInTheColourAndHasNoLine) {
  auto arguments = cptLine(graph);
  arguments.circle = true;
  arguments.dashPattern = {4, 2};
  const auto series = plot.addPlot(arguments);
  EXPECT_EQ(series->dataLineStyle(), std::nullopt);

  CPTLineStyle outline;
  outline.lineColor = CPTColor::redColor();
  auto expected = CPTPlotSymbol::ellipsePlotSymbol();
  expected.setSize({8, 8});
  expected.setLineStyle(outline);
  EXPECT_EQ(series->plotSymbol(), expected);
  EXPECT_EQ(series->plotSymbol()->fill(), std::nullopt);
}

TEST_F(ScatterSeries, OfCirclesIsFilledWhenAFillColourIsGiven) {
  auto arguments = cptLine(graph);
  arguments.circle = true;
  arguments.circleFillColor = CPTColor::cyanColor();
  EXPECT_EQ(plot.addPlot(arguments)->plotSymbol()->fill(), CPTFill(CPTColor::cyanColor()));
}

TEST_F(ScatterSeries, OfCirclesWithoutColourDoesNotTakeTheThemes) {
  for (const PlotTheme theme : {PlotTheme::black, PlotTheme::white, PlotTheme::print}) {
    plot.theme() = theme;
    auto arguments = cptLine(graph);
    arguments.circle = true;
    arguments.color = std::nullopt;
    const auto symbol = plot.addPlot(arguments)->plotSymbol();
    ASSERT_TRUE(symbol->lineStyle().has_value());
    EXPECT_EQ(symbol->lineStyle()->lineColor, std::nullopt);
  }
}

TEST_F(ScatterSeries, OfCirclesIgnoresWhatIsForLinesAndTheOtherWayRound) {
  auto circles = cptLine(graph);
  circles.circle = true;
  circles.lineWidth = 99;
  EXPECT_EQ(plot.addPlot(circles)->plotSymbol()->lineStyle()->lineWidth, 1);
  auto line = cptLine(graph);
  line.circleSize = 99;
  line.circleFillColor = CPTColor::cyanColor();
  EXPECT_EQ(plot.addPlot(line)->plotSymbol(), std::nullopt);
}

TEST_F(ScatterSeries, WithLabelsHasNoLineWhateverElseItIs) {
  for (const bool circle : {false, true}) {
    auto arguments = cptLine(graph);
    arguments.circle = circle;
    arguments.label = true;
    const auto series = plot.addPlot(arguments);
    EXPECT_EQ(series->dataLineStyle(), std::nullopt);
    EXPECT_EQ(series->labelOffset(), 3);
    EXPECT_EQ(series->labelRotation(), 0.5);
    EXPECT_EQ(series->plotSymbol().has_value(), circle);
  }
}

TEST_F(ScatterSeries, TakesAnyNumbers) {
  for (const float number : {kNaN, -1.0f, std::numeric_limits<float>::infinity()}) {
    auto arguments = cptLine(graph);
    arguments.lineWidth = number;
    arguments.circleSize = number;
    arguments.labelOffset = number;
    arguments.labelRotation = number;
    arguments.dashPattern = std::vector<double>{number, 0};
    for (const bool circle : {false, true})
      for (const bool label : {false, true}) {
        arguments.circle = circle;
        arguments.label = label;
        EXPECT_NE(plot.addPlot(arguments), nullptr);
      }
  }
}

TEST_F(ScatterSeries, HasTheDelegateOnlyWhenItIsOneForLayers) {
  class Layers : public CALayerDelegate {
  } layers;
  class Other : public NSObject {
  } other;
  const struct {
    NSObject* delegate;
    CALayerDelegate* expected;
  } rows[] = {{nullptr, nullptr}, {&other, nullptr}, {&layers, &layers}, {&plot, nullptr}};
  for (const auto& [delegate, expected] : rows) {
    auto cpt = cptLine(graph);
    cpt.delegate = delegate;
    EXPECT_EQ(plot.addPlot(cpt)->delegate(), expected);
    auto ns = nsLine(graph);
    ns.delegate = delegate;
    EXPECT_EQ(plot.addPlot(ns)->delegate(), expected);
    auto plain = plainLine(graph);
    plain.delegate = delegate;
    EXPECT_EQ(plot.addPlot(plain)->delegate(), expected);
  }
}

TEST_F(ScatterSeries, ForgetsADelegateThatIsGone) {
  auto delegate = std::make_unique<CALayerDelegate>();
  auto arguments = cptLine(graph);
  arguments.delegate = delegate.get();
  const auto series = plot.addPlot(arguments);
  delegate.reset();
  EXPECT_EQ(series->delegate(), nullptr);
}

/// Keeps what the form that does the work is called with.
class OwnScatter : public TestPlot {
 public:
  using TestPlot::addPlot;
  std::shared_ptr<CPTScatterPlot> addPlot(const CPTColorPlotArguments& arguments) override {
    given.push_back(arguments);
    return result;
  }
  std::vector<CPTColorPlotArguments> given;
  std::shared_ptr<CPTScatterPlot> result = std::make_shared<CPTScatterPlot>();
};

TEST_F(ScatterSeries, OfAllFormsIsMadeInTheAdoptersWay) {
  OwnScatter own;
  EXPECT_EQ(own.addPlot(cptLine(graph)), own.result);
  EXPECT_EQ(own.addPlot(nsLine(graph)), own.result);
  EXPECT_EQ(own.addPlot(plainLine(graph)), own.result);
  Vexel& plotOfItsKind = own;
  EXPECT_EQ(plotOfItsKind.addPlot(cptLine(graph)), own.result);
  EXPECT_EQ(own.given.size(), 4u);
  EXPECT_THAT(graph->allPlots(), IsEmpty());
}

void expectAllButColours(const CPTColorPlotArguments& given, CPTXYGraph* graph,
                         NSObject* delegate) {
  EXPECT_EQ(given.to->get(), graph);
  EXPECT_EQ(*given.identifiedBy, "Charge");
  EXPECT_EQ(*given.lineWidth, 1.5);
  EXPECT_EQ(given.dashPattern, (std::vector<double>{4, 2}));
  EXPECT_EQ(*given.circle, true);
  EXPECT_EQ(*given.circleSize, 8);
  EXPECT_EQ(*given.label, true);
  EXPECT_EQ(*given.labelOffset, 3);
  EXPECT_EQ(*given.labelRotation, 0.5);
  EXPECT_EQ(given.delegate, delegate);
}

TEST_F(ScatterSeries, InColoursOfTheViewsPassesThemOnAsTheChartEngines) {
  OwnScatter own;
  CALayerDelegate delegate;
  auto arguments = nsLine(graph);
  arguments.dashPattern = {4, 2};
  arguments.circle = true;
  arguments.label = true;
  arguments.delegate = &delegate;
  arguments.color = NSColor::colorWithRed(0.1, 0.2, 0.3, 0.4);
  arguments.circleFillColor = NSColor::grayColor();
  own.addPlot(arguments);
  ASSERT_EQ(own.given.size(), 1u);
  expectAllButColours(own.given[0], graph.get(), &delegate);
  EXPECT_EQ(*own.given[0].color, CPTColor(CGColor::genericRGB(0.1, 0.2, 0.3, 0.4)));
  EXPECT_EQ(own.given[0].circleFillColor, CPTColor(CGColor::genericRGB(0.5, 0.5, 0.5)));
}

TEST_F(ScatterSeries, InNoColoursOfTheViewsPassesNoneOn) {
  OwnScatter own;
  auto arguments = nsLine(graph);
  arguments.color = std::nullopt;
  own.addPlot(arguments);
  EXPECT_EQ(*own.given.at(0).color, std::nullopt);
  EXPECT_EQ(own.given.at(0).circleFillColor, std::nullopt);
}

TEST_F(ScatterSeries, WithoutColourArgumentPassesTheForegroundOfTheThemeOn) {
  const struct {
    PlotTheme theme;
    CPTColor foreground;
  } rows[] = {{PlotTheme::black, CPTColor::whiteColor()},
              {PlotTheme::white, CPTColor::blackColor()},
              {PlotTheme::print, CPTColor::blackColor()}};
  CALayerDelegate delegate;
  for (const auto& [theme, foreground] : rows) {
    OwnScatter own;
    own.theme() = theme;
    auto arguments = plainLine(graph);
    arguments.dashPattern = {4, 2};
    arguments.circle = true;
    arguments.label = true;
    arguments.delegate = &delegate;
    arguments.circleFillColor = CPTColor::cyanColor();
    own.addPlot(arguments);
    ASSERT_EQ(own.given.size(), 1u);
    expectAllButColours(own.given[0], graph.get(), &delegate);
    EXPECT_EQ(*own.given[0].color, foreground);
    EXPECT_EQ(own.given[0].circleFillColor, CPTColor::cyanColor());
  }
}

// So the circles of a series without colour argument have an outline in the theme's foreground.
TEST_F(ScatterSeries, OfCirclesWithoutColourArgumentIsOutlinedInTheForeground) {
  plot.theme() = PlotTheme::black;
  auto arguments = plainLine(graph);
  arguments.circle = true;
  EXPECT_EQ(plot.addPlot(arguments)->plotSymbol()->lineStyle()->lineColor, CPTColor::whiteColor());
}

using ScatterSeriesDeathTest = ScatterSeries;

TEST_F(ScatterSeriesDeathTest, AThemeOutsideItsCasesStopsTheProcessWhereItsForegroundIsNeeded) {
  plot.theme() = PlotTheme(static_cast<PlotTheme::Case>(3));
  auto cpt = cptLine(graph);
  cpt.color = std::nullopt;
  EXPECT_DEATH(plot.addPlot(cpt), "Fatal error");
  auto ns = nsLine(graph);
  ns.color = std::nullopt;
  EXPECT_DEATH(plot.addPlot(ns), "Fatal error");
  EXPECT_DEATH(plot.addPlot(plainLine(graph)), "Fatal error");
  EXPECT_DEATH(plot.addPlot(plainLine(nullptr)), "Fatal error");
}

TEST_F(ScatterSeriesDeathTest, AThemeOutsideItsCasesIsNotLookedAtElsewhere) {
  plot.theme() = PlotTheme(static_cast<PlotTheme::Case>(3));
  EXPECT_NE(plot.addPlot(cptLine(graph)), nullptr);
  auto circles = cptLine(graph);
  circles.color = std::nullopt;
  circles.circle = true;
  EXPECT_NE(plot.addPlot(circles), nullptr);
  auto nowhere = cptLine(nullptr);
  nowhere.color = std::nullopt;
  EXPECT_EQ(plot.addPlot(nowhere), nullptr);
}

class ScatterSeriesLog : public LogFixture {
 protected:
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>();
  std::shared_ptr<RecordingLogger> recorder = addRecorder();
  TestPlot plot;
};

TEST_F(ScatterSeriesLog, NamesTheIdentifierAsAVerboseMessage) {
  DDLog::setDynamicLevel(DDLogLevel::verbose);
  plot.addPlot(cptLine(graph));
  ASSERT_EQ(recorder->messages().size(), 1u);
  const DDLogMessage message = recorder->messages()[0];
  EXPECT_EQ(message.message, "Vexel.addPlot: identifier -> Charge");
  EXPECT_EQ(message.flag, DDLogFlag::verbose);
  EXPECT_EQ(message.file, "PlotSeries.cpp");
}

TEST_F(ScatterSeriesLog, HasOneMessageForEveryFormAndAnyIdentifier) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  auto cpt = cptLine(graph);
  cpt.identifiedBy = "";
  auto ns = nsLine(graph);
  ns.identifiedBy = "%s {} \n\xc3\xa4";
  plot.addPlot(cpt);
  plot.addPlot(ns);
  plot.addPlot(plainLine(graph));
  EXPECT_THAT(recorder->texts(), ElementsAre("Vexel.addPlot: identifier -> ",
                                             "Vexel.addPlot: identifier -> %s {} \n\xc3\xa4",
                                             "Vexel.addPlot: identifier -> Charge"));
}

TEST_F(ScatterSeriesLog, IsWrittenOnlyAtLevelsWithTheVerboseFlag) {
  const struct {
    DDLogLevel level;
    std::size_t messages;
  } rows[] = {{DDLogLevel::off, 0},
              {DDLogLevel::error, 0},
              {DDLogLevel::warning, 0},
              {DDLogLevel::info, 0},
              {DDLogLevel::debug, 0},
              {DDLogLevel::verbose, 1},
              {static_cast<DDLogLevel>(16), 1},
              {static_cast<DDLogLevel>(~std::uint64_t{16}), 0},
              {DDLogLevel::all, 1}};
  for (const auto& [level, messages] : rows) {
    const auto before = recorder->messages().size();
    DDLog::setDynamicLevel(level);
    plot.addPlot(cptLine(graph));
    EXPECT_EQ(recorder->messages().size() - before, messages) << static_cast<std::uint64_t>(level);
  }
}

TEST_F(ScatterSeriesLog, IsWrittenBeforeThePlotIsOnTheGraph) {
  class Counter : public DDLogger {
   public:
    explicit Counter(const CPTXYGraph& graph) : graph_(graph) {}
    void log(const DDLogMessage&) override { plots.push_back(graph_.allPlots().size()); }
    std::vector<std::size_t> plots;

   private:
    const CPTXYGraph& graph_;
  };
  DDLog::setDynamicLevel(DDLogLevel::verbose);
  const auto counter = std::make_shared<Counter>(*graph);
  log().addLogger(counter);
  plot.addPlot(cptLine(graph));
  EXPECT_THAT(counter->plots, ElementsAre(0u));
}

TEST_F(ScatterSeriesLog, IsNotWrittenWithoutGraph) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  plot.addPlot(cptLine(nullptr));
  plot.addPlot(nsLine(nullptr));
  plot.addPlot(plainLine(nullptr));
  EXPECT_THAT(recorder->texts(), IsEmpty());
}

}  // namespace
}  // namespace vexel
