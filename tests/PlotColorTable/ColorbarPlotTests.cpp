#include <PlotColorTable/ColorbarPlot.h>

#include <CoreGraphics/CGBitmapContext.h>
#include <CorePlot/CPTDump.h>
#include <Foundation/NSNumberFormatter.h>
#include <Kitbase/EmptyFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PlotColorTable/ReplacedCatalogue.h"
#include "PlotColorTable/TestColorbarPlot.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

using AxisType = ColorBarDefinition::AxisType;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto kSizable = NSAutoresizingMask::widthSizable | NSAutoresizingMask::heightSizable;

class ColorbarPlotTest : public testing::Test {
 protected:
  ColorbarPlotTest() { plot.initPlot(host, PlotTheme::white); }

  std::shared_ptr<CPTPlotArea> barArea() {
    return plot.colorbarGraph()->plotAreaFrame()->plotArea();
  }
  std::shared_ptr<CPTXYPlotSpace> barSpace() {
    return std::dynamic_pointer_cast<CPTXYPlotSpace>(plot.colorbarGraph()->defaultPlotSpace());
  }
  /// In the order bottom, left, top, right.
  CPTXYAxis& barAxis(std::size_t index) {
    return dynamic_cast<CPTXYAxis&>(*plot.colorbarGraph()->axisSet()->axes().at(index));
  }

  /// Views, graphs and bar.
  void make(const ColorBarDefinition& definition) {
    plot.setViews();
    plot.formatColorBarPlotViews();
    plot.createColorbar(definition);
  }

  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(5, 6, 800, 600));
  TestColorbarPlot plot;
};

// Views

TEST_F(ColorbarPlotTest, PutsTheBarToTheRightOfTheFigure) {
  plot.setViews();
  EXPECT_EQ(plot.figureView()->frame(), CGRect::make(0, 0, 700, 600));
  EXPECT_EQ(plot.colorbarView()->frame(), CGRect::make(700, 0, 100, 600));
  EXPECT_THAT(host->subviews(), ElementsAre(plot.figureView(), plot.colorbarView()));
  EXPECT_THAT(plot.hostingViews(), ElementsAre(plot.figureView(), plot.colorbarView()));
}

TEST_F(ColorbarPlotTest, GivesTheFigureTheWholeWidthWithoutABar) {
  for (const SymbolColorCode code : {SymbolColorCode::none, SymbolColorCode::compositionType}) {
    plot.code = code;
    plot.setViews();
    EXPECT_EQ(plot.figureView()->frame(), CGRect::make(0, 0, 800, 600));
    EXPECT_EQ(plot.colorbarView(), nullptr);
    EXPECT_THAT(host->subviews(), ElementsAre(plot.figureView()));
    EXPECT_THAT(plot.hostingViews(), ElementsAre(plot.figureView()));
  }
}

TEST_F(ColorbarPlotTest, HasABarForQuantitiesWithoutColours) {
  plot.code = SymbolColorCode::bulkMass;
  plot.setViews();
  EXPECT_NE(plot.colorbarView(), nullptr);
}

TEST_F(ColorbarPlotTest, LetsViewsFollowTheSizeOfTheirHost) {
  host->setAutoresizesSubviews(false);
  plot.setViews();
  EXPECT_TRUE(host->autoresizesSubviews());
  EXPECT_EQ(host->autoresizingMask(), kSizable);
  plot.figureView()->setAutoresizesSubviews(false);
  plot.setViews();
  for (const auto& view : plot.hostingViews()) {
    EXPECT_TRUE(view->autoresizesSubviews());
    EXPECT_EQ(view->autoresizingMask(), kSizable);
  }
}

TEST_F(ColorbarPlotTest, TakesItsPreviousViewsAway) {
  plot.setViews();
  plot.formatColorBarPlotViews();
  const auto figure = plot.figureView(), bar = plot.colorbarView();
  plot.graphs().push_back(plot.figureGraph());
  plot.code = SymbolColorCode::none;
  plot.setViews();
  EXPECT_EQ(figure->superview(), nullptr);
  EXPECT_EQ(figure->hostedGraph(), nullptr);
  EXPECT_EQ(bar->superview(), nullptr);
  EXPECT_EQ(bar->hostedGraph(), nullptr);
  EXPECT_NE(plot.figureView(), figure);
  EXPECT_EQ(plot.colorbarView(), nullptr);
  EXPECT_THAT(plot.graphs(), IsEmpty());
  EXPECT_THAT(host->subviews(), ElementsAre(plot.figureView()));
  EXPECT_THAT(plot.hostingViews(), ElementsAre(plot.figureView()));
}

TEST_F(ColorbarPlotTest, OnlyTakesViewsAwayWithoutAHost) {
  plot.setViews();
  plot.plotView() = nullptr;
  plot.setViews();
  EXPECT_THAT(host->subviews(), IsEmpty());
  EXPECT_EQ(plot.figureView(), nullptr);
  EXPECT_EQ(plot.colorbarView(), nullptr);
  EXPECT_THAT(plot.hostingViews(), IsEmpty());
}

TEST_F(ColorbarPlotTest, StillStacksBands) {
  plot.setViews(3, 0, 0);
  EXPECT_THAT(plot.hostingViews(), SizeIs(3));
}

// Resizing

TEST_F(ColorbarPlotTest, LaysFigureAndBarOutForANewSize) {
  plot.setViews();
  for (const auto& view : plot.hostingViews()) view->setNeedsDisplay(false);
  plot.set({500, 300});
  EXPECT_EQ(plot.figureView()->frame(), CGRect::make(0, 0, 400, 300));
  EXPECT_EQ(plot.colorbarView()->frame(), CGRect::make(400, 0, 100, 300));
  for (const auto& view : plot.hostingViews()) EXPECT_TRUE(view->needsDisplay());
}

TEST_F(ColorbarPlotTest, MarksViewsForDisplayEvenWhenTheyKeepTheirSize) {
  plot.setViews();
  for (const auto& view : plot.hostingViews()) view->setNeedsDisplay(false);
  plot.set({800, 600});
  for (const auto& view : plot.hostingViews()) EXPECT_TRUE(view->needsDisplay());
}

TEST_F(ColorbarPlotTest, LaysOnlyTheFigureOutWithoutABar) {
  plot.setViews();
  for (const SymbolColorCode code : {SymbolColorCode::none, SymbolColorCode::compositionType}) {
    plot.code = code;
    plot.set({500, 300});
    EXPECT_EQ(plot.figureView()->frame(), CGRect::make(0, 0, 500, 300));
    EXPECT_EQ(plot.colorbarView()->frame(), CGRect::make(700, 0, 100, 600));
  }
}

TEST_F(ColorbarPlotTest, LaysOutWhatThereIs) {
  plot.set({500, 300});
  plot.setViews();
  plot.figureView() = nullptr;
  plot.set({500, 300});
  EXPECT_EQ(plot.colorbarView()->frame(), CGRect::make(400, 0, 100, 300));
}

TEST_F(ColorbarPlotTest, StandsTinyAndHostileSizes) {
  plot.setViews();
  for (const double length : {0.0, 40.0, -5.0, 1e300, std::nan("")}) {
    plot.set({length, length});
    EXPECT_GE(plot.figureView()->frame().size.width, 0);
  }
}

// Graphs

std::vector<CGFloat> paddings(const CPTLayer& layer) {
  return {layer.paddingLeft(), layer.paddingTop(), layer.paddingRight(), layer.paddingBottom()};
}

TEST_F(ColorbarPlotTest, FormatsBothGraphs) {
  plot.setViews();
  plot.formatColorBarPlotViews();
  EXPECT_EQ(plot.figureView()->hostedGraph(), plot.figureGraph());
  EXPECT_THAT(paddings(*plot.figureGraph()), ElementsAre(0, 0, 0, 0));
  EXPECT_THAT(paddings(*plot.figureGraph()->plotAreaFrame()), ElementsAre(70, 20, 20, 50));
  EXPECT_EQ(plot.colorbarView()->hostedGraph(), plot.colorbarGraph());
  EXPECT_THAT(paddings(*plot.colorbarGraph()), ElementsAre(0, 0, 0, 0));
  EXPECT_THAT(paddings(*plot.colorbarGraph()->plotAreaFrame()), ElementsAre(50, 20, 20, 50));
  EXPECT_THAT(plot.graphs(), IsEmpty());
}

TEST_F(ColorbarPlotTest, LeavesTheGraphOfTheBarAloneWithoutAQuantity) {
  plot.setViews();
  plot.formatColorBarPlotViews();
  const auto bar = plot.colorbarGraph();
  plot.code = SymbolColorCode::none;
  plot.formatColorBarPlotViews();
  EXPECT_EQ(plot.colorbarGraph(), bar);
}

TEST_F(ColorbarPlotTest, FormatsTheViewOfTheBarForTheCompositionTypeAsItStands) {
  plot.setViews();
  plot.code = SymbolColorCode::compositionType;
  plot.formatColorbarView();
  EXPECT_NE(plot.colorbarGraph(), nullptr);
  plot.setViews();
  plot.formatColorbarView();
  EXPECT_EQ(plot.colorbarGraph(), nullptr);
}

TEST_F(ColorbarPlotTest, FormatsInTheAdoptersWay) {
  class OwnWay : public TestColorbarPlot {
   public:
    void formatFigureView() override { calls.push_back("figure"); }
    void formatColorbarView() override { calls.push_back("bar"); }
    std::vector<std::string> calls;
  } own;
  own.formatColorBarPlotViews();
  EXPECT_THAT(own.calls, ElementsAre("figure", "bar"));
}

// The bar

TEST_F(ColorbarPlotTest, FramesTheBarWithFourAxes) {
  make(linearBar());
  ASSERT_THAT(plot.colorbarGraph()->axisSet()->axes(), SizeIs(4));
  EXPECT_EQ(barAxis(0).coordinate(), CPTCoordinate::X);
  EXPECT_EQ(barAxis(1).coordinate(), CPTCoordinate::Y);
  EXPECT_EQ(barAxis(2).coordinate(), CPTCoordinate::X);
  EXPECT_EQ(barAxis(3).coordinate(), CPTCoordinate::Y);
}

TEST_F(ColorbarPlotTest, PlacesTheAxesAtTheEndsOfTheRanges) {
  make(linearBar());
  EXPECT_EQ(barSpace()->xRange(), CPTPlotRange(0, 1));
  EXPECT_EQ(barSpace()->yRange(), CPTPlotRange(0, 40));
  EXPECT_EQ(barAxis(0).orthogonalPosition(), 0.0);
  EXPECT_EQ(barAxis(1).orthogonalPosition(), 0.0);
  EXPECT_EQ(barAxis(2).orthogonalPosition(), 0.0 + 40.0 - 40.0 * 1e-6);
  EXPECT_EQ(barAxis(3).orthogonalPosition(), 0.0 + 1.0 - 40.0 * 1e-6);
}

TEST_F(ColorbarPlotTest, LabelsOnlyTheLeftAxis) {
  make(linearBar());
  EXPECT_EQ(barAxis(1).title(), "Dust Charge");
  EXPECT_EQ(barAxis(1).labelingPolicy(), CPTAxisLabelingPolicy::fixedInterval);
  EXPECT_EQ(barAxis(1).tickDirection(), CPTSign::positive);
  EXPECT_EQ(barAxis(1).majorGridLineStyle(), std::nullopt);
  for (const std::size_t index : {0, 2, 3}) {
    EXPECT_EQ(barAxis(index).title(), std::nullopt) << index;
    EXPECT_EQ(barAxis(index).labelingPolicy(), CPTAxisLabelingPolicy::none) << index;
    EXPECT_NE(barAxis(index).majorGridLineStyle(), std::nullopt) << index;
  }
  for (const std::size_t index : {0, 2}) {
    EXPECT_NE(std::dynamic_pointer_cast<EmptyFormatter>(barAxis(index).labelFormatter()), nullptr);
    EXPECT_NE(barAxis(index).minorGridLineStyle(), std::nullopt);
    EXPECT_FALSE(barAxis(index).separateLayers());
  }
  EXPECT_EQ(barAxis(3).minorGridLineStyle(), std::nullopt);
}

TEST_F(ColorbarPlotTest, UsesTheFormatterOfTheDefinition) {
  ColorBarDefinition definition = linearBar();
  make(definition);
  EXPECT_NE(std::dynamic_pointer_cast<NSNumberFormatter>(barAxis(1).labelFormatter()), nullptr);
  definition.formatter = std::make_shared<EmptyFormatter>();
  make(definition);
  EXPECT_EQ(barAxis(1).labelFormatter(), definition.formatter);
  EXPECT_NE(barAxis(3).labelFormatter(), definition.formatter);
}

TEST_F(ColorbarPlotTest, HasTheScaleOfTheDefinition) {
  make(logarithmicBar());
  EXPECT_EQ(barSpace()->yScaleType(), CPTScaleTypeLog);
  EXPECT_EQ(barSpace()->yRange(), CPTPlotRange(1e-15, 1e-11 - 1e-15));
  plot.createColorbar(linearBar());
  EXPECT_EQ(barSpace()->yScaleType(), CPTScaleTypeLinear);
  EXPECT_EQ(barSpace()->xScaleType(), CPTScaleTypeLinear);
}

TEST_F(ColorbarPlotTest, FillsThePlotAreaWithOneImageOfTheTable) {
  make(linearBar());
  ASSERT_TRUE(barArea()->fill());
  const CPTImage* image = barArea()->fill()->image();
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->scale, 1.0);
  EXPECT_FALSE(image->tiled);
  EXPECT_EQ(image->image->width(), 1u);
  EXPECT_EQ(image->image->height(), 256u);
  EXPECT_EQ(image->image->premultipliedARGB(0, 0), 0xff000000u);
  EXPECT_EQ(image->image->bytes(), PlotCT(PlotCT::gmtWysiwyg).image()->cgImage()->bytes());
  EXPECT_EQ(plot.figureGraph()->plotAreaFrame()->plotArea()->fill()->image(), nullptr);
}

TEST_F(ColorbarPlotTest, LeavesTheGraphAsItIsForADiscreteDefinition) {
  plot.setViews();
  plot.formatColorBarPlotViews();
  const std::string before = dump(*plot.colorbarGraph());
  const auto fill = barArea()->fill();
  ColorBarDefinition definition = logarithmicBar();
  definition.type = AxisType::discrete;
  plot.createColorbar(definition);
  EXPECT_EQ(dump(*plot.colorbarGraph()), before);
  EXPECT_EQ(barArea()->fill(), fill);
}

TEST_F(ColorbarPlotTest, AddsAnUpperAndARightAxisWithEveryBar) {
  make(linearBar());
  plot.createColorbar(linearBar());
  EXPECT_THAT(plot.colorbarGraph()->axisSet()->axes(), SizeIs(6));
}

TEST_F(ColorbarPlotTest, DrawsNoBarWithoutWhatItNeeds) {
  plot.createColorbar(linearBar());
  plot.setViews();
  plot.formatColorBarPlotViews();
  const auto withoutArea = [&] { plot.colorbarGraph()->plotAreaFrame()->setPlotArea(nullptr); };
  const auto withoutFrame = [&] { plot.colorbarGraph()->setPlotAreaFrame(nullptr); };
  const auto withoutSpace = [&] {
    plot.colorbarGraph()->removePlotSpace(*plot.colorbarGraph()->defaultPlotSpace());
  };
  for (const std::function<void()>& takeAway :
       std::initializer_list<std::function<void()>>{withoutArea, withoutFrame, withoutSpace}) {
    plot.formatColorbarView();
    takeAway();
    plot.createColorbar(linearBar());
    EXPECT_THAT(plot.colorbarGraph()->axisSet()->axes(), SizeIs(2));
  }
}

class OtherSpace : public CPTPlotSpace {
 public:
  std::optional<CGPoint> plotAreaViewPoint(double, double, CGSize) const override {
    return std::nullopt;
  }
};

TEST_F(ColorbarPlotTest, DrawsNoBarOnAPlotSpaceOfAnotherKind) {
  plot.setViews();
  plot.formatColorBarPlotViews();
  const auto graph = plot.colorbarGraph();
  graph->removePlotSpace(*graph->defaultPlotSpace());
  graph->addPlotSpace(std::make_shared<OtherSpace>());
  plot.createColorbar(linearBar());
  EXPECT_THAT(graph->axisSet()->axes(), SizeIs(2));
}

TEST_F(ColorbarPlotTest, FormatsTheAxesButHasNoFillForAnEmptyTable) {
  const ReplacedCatalogue catalogue({{"gmt", {{21, {}}}}});
  plot.setViews();
  plot.formatColorBarPlotViews();
  const auto fill = barArea()->fill();
  plot.createColorbar(linearBar());
  EXPECT_THAT(plot.colorbarGraph()->axisSet()->axes(), SizeIs(4));
  EXPECT_EQ(barArea()->fill(), fill);
}

TEST_F(ColorbarPlotTest, StandsRangesThatNoAxisCanShow) {
  const double nan = std::nan(""), infinity = HUGE_VAL;
  for (const std::vector<double>& range : std::vector<std::vector<double>>{{nan, nan},
                                                                           {0, nan},
                                                                           {-infinity, infinity},
                                                                           {0, infinity},
                                                                           {5, 5},
                                                                           {10, 1},
                                                                           {-1, 1},
                                                                           {0, 0},
                                                                           {1e-320, 1e-310},
                                                                           {-1e308, 1e308},
                                                                           {1, 2, 3}})
    for (const AxisType type : {AxisType::linear, AxisType::log}) {
      ColorBarDefinition definition = linearBar();
      definition.range = range;
      definition.type = type;
      make(definition);
      host->display(*CGBitmapContext::create({800, 600}, 1));
    }
}

using ColorbarPlotDeathTest = ColorbarPlotTest;

TEST_F(ColorbarPlotDeathTest, NeedsTwoValuesForTheRange) {
  plot.setViews();
  plot.formatColorBarPlotViews();
  ColorBarDefinition definition = linearBar();
  for (const std::vector<double>& range : std::vector<std::vector<double>>{{}, {1}}) {
    definition.range = range;
    EXPECT_DEATH(plot.createColorbar(definition), "Fatal error: ");
  }
}

TEST_F(ColorbarPlotDeathTest, NeedsTheAxes) {
  plot.setViews();
  plot.formatColorBarPlotViews();
  plot.colorbarGraph()->setAxisSet(nullptr);
  EXPECT_DEATH(plot.createColorbar(linearBar()), "Fatal error: .*an axis is missing");
}

TEST_F(ColorbarPlotDeathTest, NeedsAxesOfTheXyKindFromTheAdopter) {
  class OwnAxes : public TestColorbarPlot {
   public:
    std::shared_ptr<CPTAxis> formatXAxis(const std::shared_ptr<CPTXYGraph>&,
                                         const XAxisArguments&) override {
      return std::make_shared<CPTAxis>();
    }
  } own;
  own.initPlot(host, PlotTheme::white);
  own.setViews();
  own.formatColorBarPlotViews();
  EXPECT_DEATH(own.createColorbar(linearBar()), "Fatal error: .*an axis is missing");
}

// How it asks for its axes

TEST_F(ColorbarPlotTest, AsksForTheAxesWithTheseArguments) {
  class Watched : public TestColorbarPlot {
   public:
    std::shared_ptr<CPTAxis> formatXAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                         const XAxisArguments& arguments) override {
      EXPECT_THAT(graph->plotAreaFrame()->plotArea()->fill(), before);
      x.push_back(arguments);
      return TestColorbarPlot::formatXAxis(graph, arguments);
    }
    using TestColorbarPlot::formatYAxis;
    std::shared_ptr<CPTAxis> formatYAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                         const YAxisArguments<double>& arguments) override {
      y.push_back(arguments);
      return TestColorbarPlot::formatYAxis(graph, arguments);
    }
    std::optional<CPTFill> before;
    std::vector<XAxisArguments> x;
    std::vector<YAxisArguments<double>> y;
  } watched;
  watched.initPlot(host, PlotTheme::white);
  watched.setViews();
  watched.formatColorBarPlotViews();
  watched.before = watched.colorbarGraph()->plotAreaFrame()->plotArea()->fill();
  ColorBarDefinition definition = linearBar();
  definition.formatter = std::make_shared<EmptyFormatter>();
  watched.createColorbar(definition);

  ASSERT_THAT(watched.x, SizeIs(2));
  for (const XAxisArguments& x : watched.x) {
    EXPECT_EQ(x.title, std::nullopt);
    EXPECT_EQ(x.titleOffset, std::nullopt);
    EXPECT_EQ(x.xRange, (std::vector{0.0, 1.0}));
    EXPECT_EQ(x.xScale, std::nullopt);
    EXPECT_EQ(x.xMajorIntervalLength, std::nullopt);
    EXPECT_EQ(x.axisConstraints, std::nullopt);
    EXPECT_EQ(x.formatter, nullptr);
    EXPECT_TRUE(*x.gridLines);
    EXPECT_TRUE(*x.noLabels);
    EXPECT_FALSE(*x.tickMarks);
    EXPECT_EQ(x.tickLocations, std::nullopt);
    EXPECT_EQ(x.axisLabels, std::nullopt);
    EXPECT_FALSE(*x.timeAxis);
    EXPECT_FALSE(*x.onNewPlotSpace);
    EXPECT_EQ(x.delegate, nullptr);
    EXPECT_FALSE(*x.separateLayers);
  }
  EXPECT_FALSE(*watched.x[0].upperAxis);
  EXPECT_TRUE(*watched.x[1].upperAxis);

  ASSERT_THAT(watched.y, SizeIs(2));
  for (const YAxisArguments<double>& y : watched.y) {
    EXPECT_EQ(y.titleOffset, std::nullopt);
    EXPECT_EQ(y.yMajorIntervalLength, std::nullopt);
    EXPECT_EQ(y.axisConstraints, std::nullopt);
    EXPECT_EQ(*y.yRange, definition.range);
    EXPECT_EQ(*y.yScale, 1.0);
    EXPECT_FALSE(*y.minorGridLines);
    EXPECT_EQ(y.minorTicksPerInterval, std::nullopt);
    EXPECT_FALSE(*y.noLabels);
    EXPECT_EQ(y.tickLocations, std::nullopt);
    EXPECT_EQ(y.axisLabels, std::nullopt);
    EXPECT_EQ(y.delegate, nullptr);
  }
  EXPECT_EQ(watched.y[0].title, "Dust Charge");
  EXPECT_EQ(watched.y[0].formatter, definition.formatter);
  EXPECT_FALSE(*watched.y[0].gridLines);
  EXPECT_TRUE(*watched.y[0].tickMarks);
  EXPECT_FALSE(*watched.y[0].rightAxis);
  EXPECT_EQ(watched.y[1].title, std::nullopt);
  EXPECT_EQ(watched.y[1].formatter, nullptr);
  EXPECT_TRUE(*watched.y[1].gridLines);
  EXPECT_FALSE(*watched.y[1].tickMarks);
  EXPECT_TRUE(*watched.y[1].rightAxis);
}

class ColorbarPlotLog : public LogFixture {};

TEST_F(ColorbarPlotLog, LogsNothingButTheTable) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  const auto recorder = addRecorder();
  TestColorbarPlot plot;
  plot.initPlot(std::make_shared<NSView>(CGRect::make(0, 0, 300, 200)), PlotTheme::black);
  plot.createColorbar(linearBar());
  plot.setViews();
  plot.formatColorBarPlotViews();
  plot.set({200, 100});
  EXPECT_THAT(recorder->texts(), IsEmpty());
  plot.createColorbar(linearBar());
  EXPECT_THAT(recorder->texts(), SizeIs(1));
}

}  // namespace
}  // namespace vexel
