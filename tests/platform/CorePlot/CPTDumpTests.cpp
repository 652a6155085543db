#include <CorePlot/CPTDump.h>

#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

TEST(CPTDump, AGraphWithoutFrameIsOneBoxAndItsPlotSpaces) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(7, 8, 100, 50));
  graph->setPlotAreaFrame(nullptr);
  EXPECT_EQ(dump(*graph),
            "graph (0 0) 100 x 50 fill none\n"
            "  space x 0 to 1 y 0 to 1\n");
}

TEST(CPTDump, TheWholeChartAsText) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(7, 8, 240, 340));
  graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
  graph->setTitle("Impacts");
  graph->plotAreaFrame()->setPaddingLeft(40);
  const auto space = spaceOf(*graph);
  space->setXRange({2, -1});
  space->setYRange({1, 999});
  space->setYScaleType(CPTScaleType::log);
  axesOf(*graph)->xAxis()->setTitle("Time");
  axesOf(*graph)->yAxis()->setAxisLineStyle(std::nullopt);

  ListSource source({{1, 2}, {3, 4}});
  const auto line = addScatter(*graph, source, "line");
  line->setDataLineStyle(CPTLineStyle{.lineWidth = 1.5,
                                      .dashPattern = {4, 2},
                                      .lineColor = CPTColor::colorWithComponents(1, 0, 0, 0.5)});
  const auto symbols = addScatter(*graph, source, "symbols");
  symbols->setDataLineStyle(std::nullopt);
  CPTPlotSymbol symbol = CPTPlotSymbol::ellipsePlotSymbol();
  symbol.setFill(CPTFill(CPTColor::orangeColor()));
  symbols->setPlotSymbol(symbol);
  const auto bars = std::make_shared<CPTBarPlot>();
  bars->setIdentifier("bars");
  graph->addPlot(bars);
  const auto note =
      std::make_shared<CPTPlotSpaceAnnotation>(space.get(), std::vector<double>{1.5, 10});
  note->setContentLayer(std::make_shared<CPTTextLayer>("note"));
  graph->plotAreaFrame()->plotArea()->addAnnotation(note);
  graph->plotAreaFrame()->plotArea()->addAnnotation(
      std::make_shared<CPTPlotSpaceAnnotation>(space.get(), std::vector<double>{1.5, 0}));

  EXPECT_EQ(dump(*graph),
            "graph (0 0) 240 x 340 fill #ffffff\n"
            "  title \"Impacts\"\n"
            "  space x 2 to 1 y 1 to 1000 log\n"
            "  frame (20 20) 200 x 300 fill none border #000000 width 1\n"
            "  area (60 20) 160 x 300 fill #ffffff\n"
            "  axis X \"Time\" line #000000 width 1\n"
            "    major 1 1.5 2\n"
            "    minor 1.1 1.2 1.3 1.4 1.6 1.7 1.8 1.9\n"
            "    labels \"1.0\" \"1.5\" \"2.0\"\n"
            "  axis Y line none\n"
            "    major 1 10 100 1000\n"
            "    minor 2 3 4 5 6 7 8 9 20 30 40 50 60 70 80 90 200 300 400 500 600 700 800 900\n"
            "    labels \"10^0\" \"10^1\" \"10^2\" \"10^3\"\n"
            "  scatter \"line\" line #ff000080 width 1.5 dash 4 2 records 2\n"
            "  scatter \"symbols\" line none symbol 2 5 x 5 fill #ff8000 line #000000 width 1"
            " records 2\n"
            "  bars \"bars\" width 0.5 fill #000000 line #000000 width 1 records 0"
            " without data source\n"
            "  annotation \"note\" at 80 100\n"
            "  annotation \"\" at no place\n");
}

TEST(CPTDump, NamesPlotsOfOtherKinds) {
  class OtherPlot : public CPTPlot {
   public:
    OtherPlot() : CPTPlot({}) {}

   private:
    std::size_t readData(CPTPlotDataSource&, CPTRecordRange) override { return 0; }
    RangeIndex::Extremes extremes(CPTCoordinate, double) const override { return {}; }
    void drawSeries(CGContext&, const CPTXYPlotSpace&) override {}
    std::vector<LabelPlace> labelPlaces(const CPTXYPlotSpace&) const override { return {}; }
  };
  const auto plot = std::make_shared<OtherPlot>();
  plot->setIdentifier("another");
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 50));
  graph->addPlot(plot);
  EXPECT_THAT(dump(*graph), testing::HasSubstr("plot \"another\" records 0 without data source\n"));
}

TEST(CPTDump, LookingAtAChartLeavesItsNeedForDisplay) {
  const auto graph = bareGraph();
  ListSource source({{0, 1}, {0, 1}});
  const auto plot = addScatter(*graph, source);
  dump(*graph);
  EXPECT_TRUE(plot->needsDisplay());
  EXPECT_EQ(plot->recordCount(), 2u);
}

TEST(CPTDump, WritesColoursOutsideTheirScaleAsTheNearestOnIt) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  const auto graph = std::make_shared<CPTXYGraph>();
  graph->setFill(CPTFill(CPTColor::colorWithComponents(nan, infinity, -infinity, -2)));
  EXPECT_THAT(dump(*graph), testing::HasSubstr("fill #00ff0000\n"));
}

}  // namespace
}  // namespace vexel
