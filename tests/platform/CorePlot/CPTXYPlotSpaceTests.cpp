#include <CorePlot/CPTXYPlotSpace.h>

#include <gtest/gtest.h>

#include <limits>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(CPTXYPlotSpace, PointsWithoutAPlaceAreAbsent) {
  const struct {
    CPTPlotRange xRange;
    CPTScaleType scale;
    double x, y;
    CGSize size;
  } rows[] = {
      {{0, 1}, CPTScaleType::linear, kNaN, 0, {10, 10}},
      {{0, 1}, CPTScaleType::linear, 0, kNaN, {10, 10}},
      {{kNaN, 1}, CPTScaleType::linear, 0, 0, {10, 10}},
      {{0, kNaN}, CPTScaleType::linear, 0, 0, {10, 10}},
      {{0, kInfinity}, CPTScaleType::linear, 0, 0, {10, 10}},
      {{0, 0}, CPTScaleType::linear, 0, 0, {10, 10}},
      {{0, 1}, CPTScaleType::log, 0.5, 0, {10, 10}},
      {{1, 9}, CPTScaleType::log, 0, 0, {10, 10}},
      {{1, 9}, CPTScaleType::log, -1, 0, {10, 10}},
      {{0, 1}, CPTScaleType::linear, 0, 0, {0, 10}},
  };
  for (const auto& row : rows) {
    CPTXYPlotSpace space;
    space.setXRange(row.xRange);
    space.setXScaleType(row.scale);
    EXPECT_EQ(space.plotAreaViewPoint(row.x, row.y, row.size), std::nullopt)
        << row.x << " " << row.y << " in " << row.xRange.locationDouble() << " + "
        << row.xRange.lengthDouble();
  }
}

TEST(CPTXYPlotSpace, ANewSpaceIsLinearFromZeroOverOne) {
  const CPTXYPlotSpace space;
  EXPECT_EQ(space.xRange(), CPTPlotRange(0, 1));
  EXPECT_EQ(space.yRange(), CPTPlotRange(0, 1));
  EXPECT_EQ(space.xScaleType(), CPTScaleType::linear);
  EXPECT_EQ(space.yScaleType(), CPTScaleType::linear);
  EXPECT_EQ(space.graph(), nullptr);
}

TEST(CPTXYPlotSpace, TheRangesAreSpreadOverThePlotArea) {
  CPTXYPlotSpace space;
  space.setXRange({10, 20});
  space.setYRange({5, -10});
  EXPECT_EQ(space.plotAreaViewPoint(15, 5, {200, 100}), (CGPoint{50, 0}));
  EXPECT_EQ(space.plotAreaViewPoint(30, -5, {200, 100}), (CGPoint{200, 100}));
}

TEST(CPTXYPlotSpace, EqualDecadesAreEqualLengthsOnALogScale) {
  CPTXYPlotSpace space;
  space.setYRange({1, 999});
  space.setYScaleType(CPTScaleType::log);
  const auto ten = space.plotAreaViewPoint(0, 10, {100, 300});
  const auto hundred = space.plotAreaViewPoint(0, 100, {100, 300});
  ASSERT_TRUE(ten && hundred);
  EXPECT_NEAR(ten->y, 100, 1e-9);
  EXPECT_NEAR(hundred->y, 200, 1e-9);
}

TEST(CPTXYPlotSpace, RangesAndScalesAreKeptPerCoordinate) {
  CPTXYPlotSpace space;
  space.setXRange({1, 2});
  space.setYRange({3, 4});
  space.setXScaleType(CPTScaleTypeLog);
  EXPECT_EQ(space.range(CPTCoordinate::X), CPTPlotRange(1, 2));
  EXPECT_EQ(space.range(CPTCoordinate::Y), CPTPlotRange(3, 4));
  EXPECT_EQ(space.scaleType(CPTCoordinate::X), CPTScaleType::log);
  EXPECT_EQ(space.scaleType(CPTCoordinate::Y), CPTScaleType::linear);
}

TEST(CPTXYPlotSpace, AChangeAsksForDisplayOfWhatItPlacesAndARepetitionDoesNot) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 100));
  const auto other = std::make_shared<CPTXYPlotSpace>();
  graph->addPlotSpace(other);
  const auto here = std::make_shared<CPTScatterPlot>();
  const auto elsewhere = std::make_shared<CPTScatterPlot>();
  graph->addPlot(here);
  graph->addPlot(elsewhere, other);
  const auto space = spaceOf(*graph);
  const auto area = graph->plotAreaFrame()->plotArea();

  recorded(*graph);
  space->setXRange({0, 1});
  EXPECT_FALSE(here->needsDisplay());

  const auto change = [&](int kind) {
    if (kind == 0) space->setXRange({0, 2});
    if (kind == 1) space->setYRange({0, 2});
    if (kind == 2) space->setXScaleType(CPTScaleType::log);
    if (kind == 3) space->setYScaleType(CPTScaleType::log);
  };
  for (int kind = 0; kind < 4; ++kind) {
    recorded(*graph);
    change(kind);
    EXPECT_TRUE(here->needsDisplay()) << kind;
    EXPECT_FALSE(elsewhere->needsDisplay()) << kind;
    EXPECT_TRUE(axesOf(*graph)->xAxis()->needsDisplay()) << kind;
    EXPECT_TRUE(axesOf(*graph)->yAxis()->needsDisplay()) << kind;
    EXPECT_TRUE(area->annotationsNeedDisplay()) << kind;
    EXPECT_FALSE(area->needsDisplay()) << kind;
  }
}

TEST(CPTXYPlotSpace, ItOutlivesItsGraph) {
  const auto space = std::make_shared<CPTXYPlotSpace>();
  {
    const auto graph = std::make_shared<CPTXYGraph>();
    graph->addPlotSpace(space);
    EXPECT_EQ(space->graph(), graph.get());
  }
  EXPECT_EQ(space->graph(), nullptr);
  space->setXRange({1, 2});
}

TEST(CPTXYPlotSpace, ScalesToFitPlots) {
  const auto graph = bareGraph();
  const auto space = spaceOf(*graph);
  ListSource first{{{3, 1}, {-2, 5}}}, second{{{7, kNaN}, {0, 100}}}, single{{{4}, {4}}};
  const auto a = addScatter(*graph, first);
  const auto b = addScatter(*graph, second);
  const auto c = addScatter(*graph, single);

  space->setXRange({11, 22});
  space->scaleToFitPlots({});
  EXPECT_EQ(space->xRange(), CPTPlotRange(11, 22));
  const std::shared_ptr<CPTPlot> one[] = {c, nullptr};
  space->scaleToFitPlots(one);
  EXPECT_EQ(space->xRange(), CPTPlotRange(11, 22)) << "one number is no range";

  space->scaleToFitPlots(graph->allPlots());
  EXPECT_EQ(space->xRange(), CPTPlotRange(1, 6));
  EXPECT_EQ(space->yRange(), CPTPlotRange(-2, 7)) << "100 has no x";
  space->setYScaleType(CPTScaleType::log);
  space->scaleToFitPlots(graph->allPlots());
  EXPECT_EQ(space->yRange(), CPTPlotRange(4, 1)) << "only what is above 0";
}

}  // namespace
}  // namespace vexel
