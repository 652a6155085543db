#include <CorePlot/CPTGraph.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::shared_ptr<CPTScatterPlot> named(const std::string& identifier) {
  auto plot = std::make_shared<CPTScatterPlot>();
  plot->setIdentifier(identifier);
  return plot;
}

TEST(CPTGraph, AGraphWithoutSizeDrawsNothingAndDoesNotFail) {
  for (const CGRect& frame : {CGRect{}, CGRect::make(0, 0, -5, 10),
                              CGRect::make(0, 0, std::numeric_limits<double>::quiet_NaN(), 10),
                              CGRect::make(0, 0, 3, 3)}) {
    const auto graph = std::make_shared<CPTXYGraph>(frame);
    graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
    EXPECT_THAT(calls(recorded(*graph), {"stroke", "text"}), IsEmpty());
  }
}

TEST(CPTGraph, WithoutFrameOrPlotAreaOnlyTheBackgroundIsDrawn) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 100));
  graph->setFill(CPTFill(CPTColor::redColor()));
  graph->setTitle("title");
  graph->plotAreaFrame()->setPlotArea(nullptr);
  EXPECT_THAT(calls(recorded(*graph), {"fill", "stroke", "text"}),
              ElementsAre("fill #ff0000 aligned: 0 0 100 100"));
  graph->setPlotAreaFrame(nullptr);
  EXPECT_THAT(calls(recorded(*graph), {"fill", "stroke", "text"}),
              ElementsAre("fill #ff0000 aligned: 0 0 100 100"));
}

TEST(CPTGraph, NullsAndStrangersChangeNothing) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 100));
  graph->addPlot(nullptr);
  graph->addPlotSpace(nullptr);
  graph->applyTheme(nullptr);
  graph->removePlot(*named("stranger"));
  graph->removePlotWithIdentifier("stranger");
  graph->removePlotSpace(CPTXYPlotSpace());
  EXPECT_THAT(graph->allPlots(), IsEmpty());
  EXPECT_EQ(graph->allPlotSpaces().size(), 1u);
}

TEST(CPTGraph, ANewXYGraphHasItsParts) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(5, 6, 400, 300));
  EXPECT_EQ(graph->paddingLeft(), 20);
  EXPECT_EQ(graph->paddingRight(), 20);
  EXPECT_EQ(graph->paddingTop(), 20);
  EXPECT_EQ(graph->paddingBottom(), 20);
  ASSERT_NE(graph->plotAreaFrame(), nullptr);
  EXPECT_EQ(graph->plotAreaFrame()->frame(), CGRect::make(20, 20, 360, 260));
  EXPECT_EQ(graph->plotAreaFrame()->paddedBounds(), graph->plotAreaFrame()->bounds());
  ASSERT_NE(graph->plotAreaFrame()->plotArea(), nullptr);
  EXPECT_EQ(graph->plotAreaFrame()->plotArea()->frame(), CGRect::make(0, 0, 360, 260));
  EXPECT_EQ(graph->fill(), std::nullopt);
  EXPECT_EQ(graph->title(), std::nullopt);
  EXPECT_EQ(graph->hostingView(), nullptr);
  EXPECT_THAT(graph->allPlots(), IsEmpty());

  const auto space = spaceOf(*graph);
  ASSERT_NE(space, nullptr);
  EXPECT_THAT(graph->allPlotSpaces(), ElementsAre(space));
  EXPECT_EQ(space->graph(), graph.get());
  const auto axes = axesOf(*graph);
  ASSERT_NE(axes, nullptr);
  EXPECT_EQ(axes->axes().size(), 2u);
  EXPECT_EQ(axes->xAxis()->plotSpace(), space);
  EXPECT_EQ(axes->yAxis()->plotSpace(), space);
}

TEST(CPTGraph, PaddingsAndSizePlaceThePlotArea) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 400, 300));
  graph->setPaddingLeft(1);
  graph->setPaddingRight(2);
  graph->setPaddingTop(3);
  graph->setPaddingBottom(4);
  const auto frame = graph->plotAreaFrame();
  EXPECT_EQ(frame->frame(), CGRect::make(1, 4, 397, 293));
  frame->setPaddingLeft(10);
  frame->setPaddingTop(20);
  frame->setPaddingRight(30);
  frame->setPaddingBottom(40);
  EXPECT_EQ(frame->plotArea()->frame(), CGRect::make(10, 40, 357, 233));
  graph->setFrame(CGRect::make(0, 0, 500, 400));
  EXPECT_EQ(frame->plotArea()->frame(), CGRect::make(10, 40, 457, 333));
}

TEST(CPTGraph, PlotsAreKeptInOrderOfAdditionOnTheDefaultPlotSpace) {
  const auto graph = bareGraph();
  const auto a = named("a"), b = named("b");
  graph->addPlot(a);
  graph->addPlot(b);
  EXPECT_THAT(graph->allPlots(), ElementsAre(a, b));
  EXPECT_EQ(a->plotSpace(), graph->defaultPlotSpace());
  EXPECT_EQ(a->graph(), graph.get());
  EXPECT_EQ(a->superlayer(), graph.get());
}

TEST(CPTGraph, APlotAddedAgainMovesToTheTop) {
  const auto graph = bareGraph();
  const auto a = named("a"), b = named("b");
  graph->addPlot(a);
  graph->addPlot(b);
  graph->addPlot(a);
  EXPECT_THAT(graph->allPlots(), ElementsAre(b, a));
}

TEST(CPTGraph, APlotIsOnOneGraphAtATime) {
  const auto first = bareGraph(), second = bareGraph();
  const auto plot = named("a");
  first->addPlot(plot);
  second->addPlot(plot);
  EXPECT_THAT(first->allPlots(), IsEmpty());
  EXPECT_THAT(second->allPlots(), ElementsAre(plot));
  EXPECT_EQ(plot->graph(), second.get());
  EXPECT_EQ(plot->plotSpace(), second->defaultPlotSpace());
}

TEST(CPTGraph, APlotSpaceGivenWithAPlotIsAddedToTheGraph) {
  const auto graph = bareGraph();
  const auto space = std::make_shared<CPTXYPlotSpace>();
  const auto plot = named("a");
  graph->addPlot(plot, space);
  EXPECT_EQ(plot->plotSpace(), space);
  EXPECT_EQ(space->graph(), graph.get());
  EXPECT_EQ(graph->allPlotSpaces().size(), 2u);
}

TEST(CPTGraph, OfEqualIdentifiersTheFirstPlotIsMeant) {
  const auto graph = bareGraph();
  const auto first = named("marker"), second = named("marker");
  graph->addPlot(first);
  graph->addPlot(second);
  EXPECT_EQ(graph->plotWithIdentifier("marker"), first);
  EXPECT_EQ(graph->plotWithIdentifier("Marker"), nullptr);
  graph->removePlotWithIdentifier("marker");
  EXPECT_THAT(graph->allPlots(), ElementsAre(second));
  EXPECT_EQ(first->graph(), nullptr);
  EXPECT_EQ(first->superlayer(), nullptr);
  graph->removePlotWithIdentifier("marker");
  EXPECT_EQ(graph->plotWithIdentifier("marker"), nullptr);
}

TEST(CPTGraph, APlotThatOnlyTheGraphHoldsCanBeRemoved) {
  const auto graph = bareGraph();
  graph->addPlot(named("a"));
  graph->removePlot(*graph->allPlots()[0]);
  EXPECT_THAT(graph->allPlots(), IsEmpty());
  EXPECT_THAT(graph->sublayers(), ElementsAre(graph->plotAreaFrame()));
}

TEST(CPTGraph, PlotsOutliveTheirGraph) {
  const auto plot = named("a");
  {
    const auto graph = bareGraph();
    graph->addPlot(plot);
  }
  EXPECT_EQ(plot->graph(), nullptr);
  EXPECT_EQ(plot->superlayer(), nullptr);
}

TEST(CPTGraph, APlotSpaceIsOnOneGraphAtATimeAndTheFirstIsTheDefault) {
  const auto first = bareGraph(), second = bareGraph();
  const auto space = std::make_shared<CPTXYPlotSpace>();
  first->addPlotSpace(space);
  first->addPlotSpace(space);
  EXPECT_EQ(first->allPlotSpaces().size(), 2u);
  EXPECT_NE(first->defaultPlotSpace(), space);
  second->addPlotSpace(space);
  EXPECT_EQ(first->allPlotSpaces().size(), 1u);
  EXPECT_EQ(space->graph(), second.get());
  first->removePlotSpace(*first->defaultPlotSpace());
  EXPECT_EQ(first->defaultPlotSpace(), nullptr);
}

TEST(CPTGraph, APlotWithoutPlotSpaceDrawsNothing) {
  const auto graph = bareGraph();
  graph->removePlotSpace(*graph->defaultPlotSpace());
  ListSource source({{0, 1}, {0, 1}});
  addScatter(*graph, source);
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}), IsEmpty());
}

TEST(CPTGraph, TheTitleStandsInTheMiddleAboveThePlotArea) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 400, 300));
  graph->setAxisSet(nullptr);
  graph->setPaddingLeft(100);
  graph->setTitle("Impacts");
  graph->setTitleTextStyle(CPTTextStyle{.color = CPTColor::redColor()});
  const CGSize size = CPTTextLayer("Impacts").frame().size;
  const std::string text = recorded(*graph);
  EXPECT_THAT(text, HasSubstr("text \"Impacts\" Helvetica 12 #ff0000 at 1 1"));
  CGRecordingContext expected;
  expected.translate(240 - size.width / 2, 300 - 2 - size.height);
  EXPECT_THAT(text, HasSubstr(expected.text()));
}

TEST(CPTGraph, EverythingIsDrawnWithinTheBounds) {
  const auto graph = bareGraph();
  EXPECT_EQ(recorded(*graph).rfind("save\n  clip M 0 0 L 100 0 L 100 100 L 0 100 Z\n", 0), 0u);
  graph->setMasksToBorder(false);
  EXPECT_EQ(recorded(*graph).rfind("save\n  clip M 0 0 L 100 0 L 100 100 L 0 100 Z\n", 0), 0u);
}

TEST(CPTGraph, AxesAreCutAtTheFramesBorderOnlyWhenItMasks) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 100));
  const std::string frameClip = "clip M 0 0 L 60 0 L 60 60 L 0 60 Z";
  graph->setMasksToBorder(false);
  EXPECT_THAT(recorded(*graph), HasSubstr(frameClip));
  graph->plotAreaFrame()->setMasksToBorder(false);
  EXPECT_THAT(recorded(*graph), Not(HasSubstr(frameClip)));
}

TEST(CPTGraph, TheBorderOfTheFrameLiesWhereAxisLinesDoOrInsideWhereThereIsNoRoom) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 100));
  graph->setAxisSet(nullptr);
  graph->plotAreaFrame()->setBorderLineStyle(CPTLineStyle{});
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}),
              ElementsAre("stroke #000000 width 1 aligned: M 0 0 L 60 0 L 60 60 L 0 60 Z"));
  graph->setPadding(0);
  EXPECT_THAT(
      calls(recorded(*graph), {"stroke"}),
      ElementsAre("stroke #000000 width 1 aligned: M 0.5 0.5 L 99.5 0.5 L 99.5 99.5 L 0.5 99.5 Z"));
}

TEST(CPTGraph, HiddenPartsAreNotDrawn) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 200, 200));
  graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
  ListSource source({{0, 1}, {0, 1}});
  const auto plot = addScatter(*graph, source);
  plot->setDataLineStyle(CPTLineStyle{.lineColor = CPTColor::redColor()});
  EXPECT_THAT(recorded(*graph), HasSubstr("#ff0000"));
  plot->setHidden(true);
  EXPECT_THAT(recorded(*graph), Not(HasSubstr("#ff0000")));
  plot->setHidden(false);

  axesOf(*graph)->xAxis()->setHidden(true);
  const auto onlyY = calls(recorded(*graph), {"text"}).size();
  axesOf(*graph)->xAxis()->setHidden(false);
  EXPECT_GT(calls(recorded(*graph), {"text"}).size(), onlyY);
  graph->axisSet()->setHidden(true);
  EXPECT_THAT(calls(recorded(*graph), {"text"}), IsEmpty());

  graph->plotAreaFrame()->plotArea()->setHidden(true);
  EXPECT_THAT(calls(recorded(*graph), {"fill", "stroke", "text"}),
              ElementsAre("fill #ffffff aligned: 0 0 200 200"));
  graph->plotAreaFrame()->plotArea()->setHidden(false);
  graph->plotAreaFrame()->setHidden(true);
  EXPECT_THAT(calls(recorded(*graph), {"fill", "stroke", "text"}),
              ElementsAre("fill #ffffff aligned: 0 0 200 200"));
  graph->setHidden(true);
  EXPECT_EQ(recorded(*graph), "");
}

TEST(CPTGraph, AnAxisOnAnotherPlotSpaceFollowsThatOne) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 400, 400));
  const auto space = std::make_shared<CPTXYPlotSpace>();
  space->setXRange({100, 1});
  graph->addPlotSpace(space);
  const auto upper = std::make_shared<CPTXYAxis>();
  upper->setPlotSpace(space);
  auto axes = graph->axisSet()->axes();
  axes.push_back(upper);
  graph->axisSet()->setAxes(axes);
  EXPECT_THAT(recorded(*graph), HasSubstr("text \"101.0\""));
  EXPECT_THAT(recorded(*graph), HasSubstr("text \"1.0\""));
}

}  // namespace
}  // namespace vexel
