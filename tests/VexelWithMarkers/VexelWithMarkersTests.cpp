#include <VexelWithMarkers/VexelWithMarkers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "VexelWithMarkers/MarkerPlot.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const std::vector<float> kYRange = {1, 5};
const std::string kIdentifiers[] = {"Vertical Marker", "Horizontal Marker",
                                    "Permanent Vertical Marker", "Permanent Horizontal Marker"};

/// A plot space on which every event is at the same point.
class FixedPlotSpace : public CPTXYPlotSpace {
 public:
  std::optional<std::vector<double>> plotPointForEvent(const NSEvent&) const override {
    return point;
  }
  std::optional<std::vector<double>> point;
};

class VexelWithMarkersTest : public LogFixture {
 protected:
  VexelWithMarkersTest() {
    plot.initPlot(nullptr, PlotTheme::white);
    plot.auxiliaryValues() = {0, 10};
    graph->removePlotSpace(*graph->defaultPlotSpace());
    graph->addPlotSpace(space);
  }

  std::vector<std::string> identifiers() {
    std::vector<std::string> all;
    for (const auto& series : graph->allPlots()) all.push_back(series->identifier());
    return all;
  }

  void pointAt(double x, double y) { space->point = std::vector{x, y}; }

  MarkerPlot plot;
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
  std::shared_ptr<FixedPlotSpace> space = std::make_shared<FixedPlotSpace>();
  const NSEvent event;
};

using VexelWithMarkersDeathTest = VexelWithMarkersTest;

TEST_F(VexelWithMarkersTest, StartsWithItsMarkersAtZeroBeforeTheAdoptersSetUp) {
  class Watching : public MarkerPlot {
   public:
    void setupPlot() override {
      positions = {verticalMarkerX(), horizontalMarkerY(), permanentVerticalMarkerX(),
                   permanentHorizontalMarkerY()};
      hadText = auxiliaryText();
    }
    std::vector<double> positions;
    std::string hadText = "?";
  } watching;
  watching.verticalMarkerX() = watching.permanentVerticalMarkerX() = 7;
  watching.horizontalMarkerY() = watching.permanentHorizontalMarkerY() = 8;
  watching.auxiliaryText() = "old";
  watching.auxiliaryValues() = {1};
  watching.xUnitScale() = 5;
  const auto view = std::make_shared<NSView>();
  watching.initPlot(view, PlotTheme::print);
  EXPECT_THAT(watching.positions, ElementsAre(0, 0, 0, 0));
  EXPECT_EQ(watching.hadText, "");
  EXPECT_THAT(watching.auxiliaryValues(), IsEmpty());
  EXPECT_EQ(watching.xUnitScale(), 1);
  EXPECT_EQ(watching.plotView(), view);
  EXPECT_EQ(watching.theme(), PlotTheme(PlotTheme::print));
}

TEST_F(VexelWithMarkersTest, ResetsItsMarkersBeforeItTakesViewAndTheme) {
  class Noting : public MarkerPlot {
   public:
    std::string& auxiliaryText() override {
      order.push_back("text");
      return MarkerPlot::auxiliaryText();
    }
    double& yUnitScale() override {
      order.push_back("scale");
      return MarkerPlot::yUnitScale();
    }
    double& verticalMarkerX() override {
      order.push_back("marker");
      return MarkerPlot::verticalMarkerX();
    }
    std::shared_ptr<NSView>& plotView() override {
      order.push_back("view");
      return MarkerPlot::plotView();
    }
    std::vector<std::string> order;
  } noting;
  noting.initPlot(nullptr, PlotTheme::white);
  EXPECT_THAT(noting.order, ElementsAre("text", "scale", "marker", "view"));
}

TEST_F(VexelWithMarkersTest, AddsOneSeriesPerMarker) {
  pointAt(2, 3);
  plot.setVerticalMarker(event, graph);
  plot.setHorizontalMarker(event, graph, kYRange, 1);
  plot.setPermanentVerticalMarker(event, graph);
  plot.setPermanentHorizontalMarker(4, graph, kYRange, 1);
  plot.setVerticalMarker(6, graph);
  plot.setPermanentVerticalMarker(7, graph);
  plot.setHorizontalMarker(2.5f, graph, kYRange, 1);
  EXPECT_THAT(identifiers(),
              ElementsAre(kIdentifiers[0], kIdentifiers[1], kIdentifiers[2], kIdentifiers[3],
                          kIdentifiers[0], kIdentifiers[2], kIdentifiers[1]));
  EXPECT_EQ(plot.verticalMarkerX(), 6);
  EXPECT_EQ(plot.permanentVerticalMarkerX(), 7);
  EXPECT_EQ(plot.horizontalMarkerY(), 2.5f);
  EXPECT_EQ(plot.permanentHorizontalMarkerY(), 4.0f);
}

TEST_F(VexelWithMarkersTest, DrawsThinLinesInTheThemesForeground) {
  const struct {
    PlotTheme theme;
    CPTColor color;
  } cases[] = {{PlotTheme::black, CPTColor::whiteColor()},
               {PlotTheme::white, CPTColor::blackColor()},
               {PlotTheme::print, CPTColor::blackColor()}};
  for (const auto& c : cases) {
    plot.theme() = c.theme;
    plot.setVerticalMarker(1, graph);
    plot.setPermanentVerticalMarker(1, graph);
    plot.setHorizontalMarker(1, graph, kYRange, 1);
    plot.setPermanentHorizontalMarker(1, graph, kYRange, 1);
    ASSERT_EQ(graph->allPlots().size(), 4u);
    for (const auto& each : std::vector(graph->allPlots())) {
      const auto& series = dynamic_cast<CPTScatterPlot&>(*each);
      CPTLineStyle line;
      line.lineWidth = 1;
      line.lineColor = c.color;
      EXPECT_EQ(series.dataLineStyle(), line);
      EXPECT_EQ(series.plotSymbol(), std::nullopt);
      EXPECT_EQ(series.delegate(), nullptr);
      EXPECT_EQ(series.dataSource(), static_cast<CPTPlotDataSource*>(&plot));
      graph->removePlot(*each);
    }
  }
}

TEST_F(VexelWithMarkersTest, GivesItsSeriesThroughTheOperationsOfThePlot) {
  class Noting : public MarkerPlot {
   public:
    using MarkerPlot::addPlot;
    std::shared_ptr<CPTScatterPlot> addPlot(const CPTColorPlotArguments& a) override {
      calls.push_back({"colour", *a.identifiedBy, verticalMarkerX(), horizontalMarkerY()});
      arguments = a;
      return nullptr;
    }
    std::shared_ptr<CPTScatterPlot> addPlot(const PlotArguments& a) override {
      calls.push_back({"plain", *a.identifiedBy, verticalMarkerX(), horizontalMarkerY()});
      EXPECT_EQ(*a.lineWidth, 1.0f);
      EXPECT_EQ(a.dashPattern, std::nullopt);
      EXPECT_FALSE(*a.circle);
      EXPECT_EQ(*a.circleSize, 6.0f);
      EXPECT_EQ(a.circleFillColor, std::nullopt);
      EXPECT_FALSE(*a.label);
      EXPECT_EQ(*a.labelOffset, 5.0f);
      EXPECT_EQ(*a.labelRotation, std::nextafter(static_cast<float>(std::acos(0.0)), 0.0f));
      EXPECT_EQ(a.delegate, nullptr);
      return nullptr;
    }
    struct Call {
      std::string form, identifier;
      double x;
      float y;
      bool operator==(const Call&) const = default;
    };
    std::vector<Call> calls;
    std::optional<CPTColorPlotArguments> arguments;
  } noting;
  noting.initPlot(nullptr, PlotTheme::white);
  noting.auxiliaryValues() = {0, 10};
  noting.setVerticalMarker(3, graph);
  noting.setHorizontalMarker(2, graph, kYRange, 1);
  noting.setPermanentVerticalMarker(4, graph);
  noting.setPermanentHorizontalMarker(2, graph, kYRange, 1);
  // Every series is added before its position is stored.
  EXPECT_THAT(noting.calls, ElementsAre(Noting::Call{"colour", kIdentifiers[0], 0, 0},
                                        Noting::Call{"plain", kIdentifiers[1], 3, 0},
                                        Noting::Call{"colour", kIdentifiers[2], 3, 2},
                                        Noting::Call{"plain", kIdentifiers[3], 3, 2}));
  const auto& a = *noting.arguments;
  EXPECT_EQ(*a.color, CPTColor::blackColor());
  EXPECT_EQ(*a.lineWidth, 1.0f);
  EXPECT_EQ(a.dashPattern, std::nullopt);
  EXPECT_FALSE(*a.circle);
  EXPECT_EQ(*a.circleSize, 6.0f);
  EXPECT_EQ(a.circleFillColor, std::nullopt);
  EXPECT_FALSE(*a.label);
  EXPECT_EQ(*a.labelOffset, 5.0f);
  EXPECT_EQ(*a.labelRotation, std::nextafter(static_cast<float>(std::acos(0.0)), 0.0f));
  EXPECT_EQ(a.delegate, nullptr);
}

TEST_F(VexelWithMarkersTest, KeepsVerticalPositionsBetweenTheScaledBounds) {
  const struct {
    double x, scale, stored;
  } cases[] = {
      {kInfinity, 1, 10}, {-kInfinity, 1, 0}, {1e308, 1, 10},  {12, 1, 10}, {-3, 1, 0},
      {10, 1, 10},        {0, 1, 0},          {4.25, 1, 4.25}, {15, 2, 15}, {25, 2, 20},
  };
  for (const auto& c : cases) {
    plot.xUnitScale() = c.scale;
    pointAt(c.x, kNaN);
    plot.setVerticalMarker(event, graph);
    plot.setPermanentVerticalMarker(event, graph);
    EXPECT_EQ(plot.verticalMarkerX(), c.stored) << c.x;
    EXPECT_EQ(plot.permanentVerticalMarkerX(), c.stored) << c.x;
    plot.verticalMarkerX() = plot.permanentVerticalMarkerX() = -1;
    plot.updateVerticalMarker(event, graph);
    EXPECT_EQ(plot.verticalMarkerX(), c.stored) << c.x;
    plot.setVerticalMarker(c.x, graph);
    plot.setPermanentVerticalMarker(c.x, graph);
    EXPECT_EQ(plot.verticalMarkerX(), c.stored) << c.x;
    EXPECT_EQ(plot.permanentVerticalMarkerX(), c.stored) << c.x;
  }
  plot.setVerticalMarker(kNaN, graph);
  EXPECT_TRUE(std::isnan(plot.verticalMarkerX()));
}

TEST_F(VexelWithMarkersTest, BringsAPositionBelowReversedBoundsToTheFirstAndOthersToTheSecond) {
  plot.auxiliaryValues() = {10, 0, 99};
  const struct { double x, stored; } cases[] = {{-5, 10}, {5, 10}, {10, 0}, {15, 0}};
  for (const auto& c : cases) {
    plot.setVerticalMarker(c.x, graph);
    EXPECT_EQ(plot.verticalMarkerX(), c.stored) << c.x;
  }
}

TEST_F(VexelWithMarkersTest, ReadsAVerticalPositionBackBeforeItsUpperBound) {
  class Halving : public MarkerPlot {
   public:
    double& verticalMarkerX() override {
      double& x = MarkerPlot::verticalMarkerX();
      x /= 2;
      return x;
    }
  } halving;
  halving.initPlot(nullptr, PlotTheme::white);
  halving.auxiliaryValues() = {0, 10};
  halving.setVerticalMarker(16, graph);
  EXPECT_EQ(halving.MarkerPlot::verticalMarkerX(), 8);
}

TEST_F(VexelWithMarkersTest, KeepsHorizontalPositionsBetweenTheScaledBoundsInSinglePrecision) {
  const struct {
    double y;
    float scale, stored;
  } cases[] = {
      {kInfinity, 2, 10}, {-kInfinity, 2, 2}, {1e300, 2, 10}, {11, 2, 10},       {1, 2, 2},
      {10, 2, 10},        {2, 2, 2},          {3.5, 2, 3.5f}, {0.1, 0.1f, 0.1f}, {4.1, 1, 4.1f},
  };
  for (const auto& c : cases) {
    pointAt(kNaN, c.y);
    plot.setHorizontalMarker(event, graph, kYRange, c.scale);
    EXPECT_EQ(plot.horizontalMarkerY(), c.stored) << c.y;
    plot.horizontalMarkerY() = -1;
    plot.updateHorizontalMarker(event, graph, kYRange, c.scale);
    EXPECT_EQ(plot.horizontalMarkerY(), c.stored) << c.y;
    plot.setHorizontalMarker(static_cast<float>(c.y), graph, kYRange, c.scale);
    plot.setPermanentHorizontalMarker(static_cast<float>(c.y), graph, kYRange, c.scale);
    EXPECT_EQ(plot.horizontalMarkerY(), c.stored) << c.y;
    EXPECT_EQ(plot.permanentHorizontalMarkerY(), c.stored) << c.y;
  }
  // In double 16777217 would be above the bound.
  plot.setHorizontalMarker(16777216.0f, graph, {0, 16777215.0f}, 1.0000001f);
  EXPECT_EQ(plot.horizontalMarkerY(), 16777216.0f);
}

TEST_F(VexelWithMarkersTest, EndsAfterAddingTheSeriesWhereNoPointIsTold) {
  plot.verticalMarkerX() = 1, plot.permanentVerticalMarkerX() = 2, plot.horizontalMarkerY() = 3;
  plot.auxiliaryValues() = {};
  const auto setAll = [&] {
    plot.setVerticalMarker(event, graph);
    plot.setPermanentVerticalMarker(event, graph);
    plot.setHorizontalMarker(event, graph, {}, 1);
    plot.updateVerticalMarker(event, graph);
    plot.updateHorizontalMarker(event, graph, {}, 1);
  };
  setAll();
  graph->removePlotSpace(*space);
  setAll();
  EXPECT_EQ(graph->allPlots().size(), 6u);
  EXPECT_EQ(plot.verticalMarkerX(), 1);
  EXPECT_EQ(plot.permanentVerticalMarkerX(), 2);
  EXPECT_EQ(plot.horizontalMarkerY(), 3);
}

TEST_F(VexelWithMarkersTest, DoesNothingWithoutAGraph) {
  const auto recorder = addRecorder();
  DDLog::setDynamicLevel(DDLogLevel::all);
  plot.auxiliaryValues() = {};
  plot.theme() = static_cast<PlotTheme::Case>(9);
  plot.setVerticalMarker(event, nullptr);
  plot.setVerticalMarker(1, nullptr);
  plot.updateVerticalMarker(event, nullptr);
  plot.removeVerticalMarker(nullptr);
  plot.setPermanentVerticalMarker(event, nullptr);
  plot.setPermanentVerticalMarker(1, nullptr);
  plot.removePermanentVerticalMarker(nullptr);
  plot.setHorizontalMarker(event, nullptr, {}, 1);
  plot.setHorizontalMarker(1, nullptr, {}, 1);
  plot.updateHorizontalMarker(event, nullptr, {}, 1);
  plot.removeHorizontalMarker(nullptr);
  plot.setPermanentHorizontalMarker(1, nullptr, {}, 1);
  plot.removePermanentHorizontalMarker(nullptr);
  EXPECT_EQ(plot.verticalMarkerX(), 0);
  EXPECT_THAT(recorder->texts(), IsEmpty());
}

TEST_F(VexelWithMarkersTest, ReadsTheDataOfAMovedMarkerAtOnce) {
  pointAt(2, 3);
  plot.setVerticalMarker(event, graph);
  plot.setHorizontalMarker(event, graph, kYRange, 1);
  plot.asked.clear();
  plot.updateVerticalMarker(event, graph);
  EXPECT_EQ(plot.asked, (std::map<std::string, int>{{kIdentifiers[0], 1}}));
  plot.updateHorizontalMarker(event, graph, kYRange, 1);
  EXPECT_EQ(plot.asked, (std::map<std::string, int>{{kIdentifiers[0], 1}, {kIdentifiers[1], 1}}));
  for (const auto& series : graph->allPlots()) {
    EXPECT_FALSE(series->dataNeedsReloading());
    EXPECT_TRUE(series->needsDisplay());
  }
}

TEST_F(VexelWithMarkersTest, LogsAnErrorWhenTheVerticalMarkerToMoveIsMissing) {
  const auto recorder = addRecorder();
  pointAt(12, 3);
  DDLog::setDynamicLevel(DDLogLevel::error);
  plot.updateVerticalMarker(event, graph);
  EXPECT_EQ(plot.verticalMarkerX(), 10);
  ASSERT_EQ(recorder->messages().size(), 1u);
  const DDLogMessage message = recorder->messages()[0];
  EXPECT_EQ(message.message,
            "VexelWithMarkers.updateVerticalMarker(with:for:):161 plot does not exist!");
  EXPECT_EQ(message.level, DDLogLevel::all);
  EXPECT_EQ(message.flag, DDLogFlag::error);
  EXPECT_EQ(message.context, 0);
  EXPECT_EQ(message.file, "VexelWithMarkers.cpp");
  EXPECT_EQ(message.function, "updateVerticalMarker(with:for:)");
  EXPECT_EQ(message.line, 161u);
  EXPECT_EQ(message.tag, std::nullopt);
  EXPECT_EQ(message.options, 0u);
}

TEST_F(VexelWithMarkersTest, LogsNoErrorThatNobodyWantsAndNoneOfOtherMarkers) {
  const auto recorder = addRecorder();
  pointAt(12, 30);
  DDLog::setDynamicLevel(static_cast<DDLogLevel>(~std::uint64_t{1}));
  plot.updateVerticalMarker(event, graph);
  DDLog::setDynamicLevel(DDLogLevel::off);
  plot.updateVerticalMarker(event, graph);
  DDLog::setDynamicLevel(DDLogLevel::all);
  plot.updateHorizontalMarker(event, graph, kYRange, 1);
  plot.removeVerticalMarker(graph);
  plot.removeHorizontalMarker(graph);
  plot.removePermanentVerticalMarker(graph);
  plot.removePermanentHorizontalMarker(graph);
  EXPECT_EQ(plot.verticalMarkerX(), 10);
  EXPECT_EQ(plot.horizontalMarkerY(), 5.0f);
  EXPECT_THAT(recorder->texts(), IsEmpty());
}

TEST_F(VexelWithMarkersTest, RemovesTheSeriesAndKeepsThePosition) {
  plot.setVerticalMarker(1, graph);
  plot.setHorizontalMarker(2, graph, kYRange, 1);
  plot.setPermanentVerticalMarker(3, graph);
  plot.setPermanentHorizontalMarker(4, graph, kYRange, 1);
  plot.removeVerticalMarker(graph);
  EXPECT_THAT(identifiers(), ElementsAre(kIdentifiers[1], kIdentifiers[2], kIdentifiers[3]));
  plot.removePermanentHorizontalMarker(graph);
  EXPECT_THAT(identifiers(), ElementsAre(kIdentifiers[1], kIdentifiers[2]));
  plot.removeHorizontalMarker(graph);
  plot.removePermanentVerticalMarker(graph);
  EXPECT_THAT(identifiers(), IsEmpty());
  EXPECT_EQ(plot.verticalMarkerX(), 1);
  EXPECT_EQ(plot.horizontalMarkerY(), 2);
  EXPECT_EQ(plot.permanentVerticalMarkerX(), 3);
  EXPECT_EQ(plot.permanentHorizontalMarkerY(), 4);
}

TEST_F(VexelWithMarkersDeathTest, NeedsTheBoundsThatItCompares) {
  plot.auxiliaryValues() = {};
  EXPECT_DEATH(plot.setVerticalMarker(1, graph),
               "Fatal error: VexelWithMarkers: .*auxiliaryValues");
  EXPECT_DEATH(plot.setPermanentVerticalMarker(1, graph), "Fatal error: VexelWithMarkers");
  EXPECT_DEATH(plot.setHorizontalMarker(1, graph, {}, 1), "Fatal error: VexelWithMarkers");
  EXPECT_DEATH(plot.setPermanentHorizontalMarker(1, graph, {0}, 1), "Fatal error: VexelWithM");
  pointAt(1, 1);
  EXPECT_DEATH(plot.updateVerticalMarker(event, graph), "Fatal error: VexelWithMarkers");
  EXPECT_DEATH(plot.updateHorizontalMarker(event, graph, {}, 1), "Fatal error: VexelWithMarkers");
  plot.auxiliaryValues() = {0};
  EXPECT_DEATH(plot.setVerticalMarker(1, graph), "Fatal error: VexelWithMarkers");
  // Below the first bound the second is not read.
  plot.setVerticalMarker(-1, graph);
  plot.setHorizontalMarker(-1, graph, {0}, 1);
  EXPECT_EQ(plot.verticalMarkerX(), 0);
}

TEST_F(VexelWithMarkersDeathTest, NeedsTheCoordinateOfThePointThatItTakes) {
  space->point = std::vector<double>{};
  EXPECT_DEATH(plot.setVerticalMarker(event, graph), "Fatal error: .*plot point");
  space->point = std::vector{1.0};
  plot.setVerticalMarker(event, graph);
  EXPECT_DEATH(plot.setHorizontalMarker(event, graph, kYRange, 1), "Fatal error: .*plot point");
  EXPECT_DEATH(plot.updateHorizontalMarker(event, graph, kYRange, 1), "Fatal error: .*plot point");
}

TEST_F(VexelWithMarkersDeathTest, NeedsAThemeForTheColour) {
  plot.theme() = static_cast<PlotTheme::Case>(3);
  EXPECT_DEATH(plot.setVerticalMarker(1, graph), "Fatal error: PlotTheme");
  EXPECT_DEATH(plot.setPermanentVerticalMarker(1, graph), "Fatal error: PlotTheme");
  EXPECT_DEATH(plot.setHorizontalMarker(1, graph, kYRange, 1), "Fatal error: PlotTheme");
}

}  // namespace
}  // namespace vexel
