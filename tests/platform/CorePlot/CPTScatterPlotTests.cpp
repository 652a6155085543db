#include <CorePlot/CPTScatterPlot.h>

#include <Foundation/NSNumberFormatter.h>
#include <Kernels/Polyline.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <numbers>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class CPTScatterPlotTest : public testing::Test {
 protected:
  CPTScatterPlotTest() { measureInPoints(*graph); }

  std::vector<std::string> drawnCalls(std::vector<double> x, std::vector<double> y) {
    source.fields = {std::move(x), std::move(y)};
    plot->setDataNeedsReloading();
    return calls(recorded(*graph), {"stroke", "fill", "symbols", "text"});
  }

  std::shared_ptr<CPTXYGraph> graph = bareGraph();
  ListSource source{{{}, {}}};
  std::shared_ptr<CPTScatterPlot> plot = addScatter(*graph, source);
};

const std::string kLine = "stroke #000000 width 1 join round: ";

TEST_F(CPTScatterPlotTest, PointsWithoutNumbersBreakTheLine) {
  for (const double none : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_THAT(drawnCalls({10, 20, 30, 40, 50}, {1, 2, none, 4, 5}),
                ElementsAre(kLine + "M 10 1 L 20 2", kLine + "M 40 4 L 50 5"));
    EXPECT_THAT(drawnCalls({10, 20, none, 40, 50}, {1, 2, 3, 4, 5}),
                ElementsAre(kLine + "M 10 1 L 20 2", kLine + "M 40 4 L 50 5"));
  }
}

TEST_F(CPTScatterPlotTest, APointBetweenTwoGapsIsADotAsWideAsTheLine) {
  plot->setDataLineStyle(CPTLineStyle{.lineWidth = 4, .lineColor = CPTColor::redColor()});
  const auto made = drawnCalls({10, 20, 30}, {kNaN, 2, kNaN});
  ASSERT_THAT(made, SizeIs(1));
  EXPECT_THAT(made[0], testing::StartsWith("fill #ff0000: M 22 2 C"));
}

TEST_F(CPTScatterPlotTest, NumbersBeyondAllBoundsDrawALineToTheEdge) {
  EXPECT_THAT(drawnCalls({50, 50}, {50, 1e300}), ElementsAre(kLine + "M 50 50 L 50 101"));
  EXPECT_THAT(drawnCalls({-1e308, 1e308}, {50, 50}), ElementsAre(kLine + "M -1 50 L 101 50"));
  EXPECT_THAT(drawnCalls({1e308, 1e308}, {-1e308, 1e308}), IsEmpty());
  EXPECT_THAT(drawnCalls({0, 1e300}, {0, 1e300}), ElementsAre(kLine + "M 0 0 L 101 101"));
}

TEST_F(CPTScatterPlotTest, RangesThatAreNoneDrawNothing) {
  plot->setPlotSymbol(CPTPlotSymbol::plusPlotSymbol());
  for (const CPTPlotRange& range : {CPTPlotRange(kNaN, 1), CPTPlotRange(0, kInfinity),
                                    CPTPlotRange(0, 0), CPTPlotRange(5, kNaN)}) {
    spaceOf(*graph)->setXRange(range);
    EXPECT_THAT(drawnCalls({10, 20}, {1, 2}), IsEmpty());
  }
}

TEST_F(CPTScatterPlotTest, LineWidthsThatAreNoneDrawNoLine) {
  for (const double width : {kNaN, kInfinity, 0.0, -1.0}) {
    plot->setDataLineStyle(CPTLineStyle{.lineWidth = width});
    EXPECT_THAT(drawnCalls({10, 20}, {1, 2}), IsEmpty()) << width;
  }
  plot->setDataLineStyle(std::nullopt);
  EXPECT_THAT(drawnCalls({10, 20}, {1, 2}), IsEmpty());
}

TEST_F(CPTScatterPlotTest, ZeroAndNegativeNumbersAreGapsOnALogScale) {
  spaceOf(*graph)->setYRange({1, 99});
  spaceOf(*graph)->setYScaleType(CPTScaleType::log);
  EXPECT_THAT(drawnCalls({0, 10, 20, 30, 40, 50}, {1, 10, 0, 10, 100, -5}),
              ElementsAre(kLine + "M 0 0 L 10 50", kLine + "M 30 50 L 40 100"));
}

TEST_F(CPTScatterPlotTest, ANewPlotHasABlackLineAndNoSymbolsLabelsOrSteps) {
  const CPTScatterPlot fresh;
  EXPECT_EQ(fresh.dataLineStyle(), CPTLineStyle{});
  EXPECT_EQ(fresh.plotSymbol(), std::nullopt);
  EXPECT_EQ(fresh.interpolation(), CPTScatterPlotInterpolation::linear);
  EXPECT_EQ(fresh.labelOffset(), 0);
  EXPECT_EQ(fresh.labelRotation(), 0);
  EXPECT_EQ(fresh.labelFormatter(), nullptr);
  EXPECT_EQ(fresh.labelTextStyle(), CPTTextStyle{});
  EXPECT_EQ(fresh.frame(), CGRect{});
}

TEST_F(CPTScatterPlotTest, TheLineIsDrawnInItsStyleWithRoundJoins) {
  plot->setDataLineStyle(CPTLineStyle{
      .lineWidth = 2, .dashPattern = {4, 2}, .patternPhase = 1, .lineColor = CPTColor::redColor()});
  EXPECT_THAT(drawnCalls({10, 20, 10}, {1, 20, 40}),
              ElementsAre("stroke #ff0000 width 2 join round dash 4 2 phase 1: "
                          "M 10 1 L 20 20 L 10 40"));
}

TEST_F(CPTScatterPlotTest, ADataPointMayBeRepeatedAndXMayRunBack) {
  EXPECT_THAT(drawnCalls({10, 10, 30, 20}, {1, 1, 3, 30}),
              ElementsAre(kLine + "M 10 1 L 30 3 L 20 30"));
}

// Steps

TEST_F(CPTScatterPlotTest, StepsHoldEachValueUntilTheNextRecord) {
  plot->setInterpolation(CPTScatterPlotInterpolation::stepped);
  EXPECT_THAT(drawnCalls({10, 20, 40}, {5, 15, 10}),
              ElementsAre(kLine + "M 10 5 L 20 5 L 20 15 L 40 15 L 40 10"));
}

TEST_F(CPTScatterPlotTest, HistogramStepsLieHalfWay) {
  plot->setInterpolation(CPTScatterPlotInterpolation::histogram);
  EXPECT_THAT(drawnCalls({10, 20, 40}, {5, 15, 10}),
              ElementsAre(kLine + "M 10 5 L 15 5 L 15 15 L 30 15 L 30 10 L 40 10"));
}

TEST_F(CPTScatterPlotTest, StepsBreakAtEveryRecordWithoutAPlace) {
  plot->setInterpolation(CPTScatterPlotInterpolation::stepped);
  EXPECT_THAT(drawnCalls({10, 20, kNaN, 40, 50}, {1, 2, 3, 4, 5}),
              ElementsAre(kLine + "M 10 1 L 20 1 L 20 2", kLine + "M 40 4 L 50 4 L 50 5"));
  EXPECT_THAT(drawnCalls({10, 20, 30, 40, 50}, {1, 2, kNaN, 4, 5}),
              ElementsAre(kLine + "M 10 1 L 20 1 L 20 2", kLine + "M 40 4 L 50 4 L 50 5"));
}

TEST_F(CPTScatterPlotTest, HistogramStepsLieHalfWayBetweenTheFarthestNumbersToo) {
  plot->setInterpolation(CPTScatterPlotInterpolation::histogram);
  EXPECT_THAT(drawnCalls({-1e308, 1e308}, {10, 20}),
              ElementsAre(kLine + "M -1 10 L 0 10 L 0 20 L 101 20"));
}

// Symbols

TEST_F(CPTScatterPlotTest, SymbolsStandAtEveryPointInOneCall) {
  plot->setDataLineStyle(std::nullopt);
  plot->setPlotSymbol(CPTPlotSymbol::dashPlotSymbol());
  EXPECT_THAT(drawnCalls({10, 20, kNaN, 30}, {1, 2, 3, 4}),
              ElementsAre("symbols stroke #000000 width 1: M -2.5 0 L 2.5 0 at 10 1, 20 2, 30 4"));
}

TEST_F(CPTScatterPlotTest, SymbolsOfNoVisiblePartAreLeftOut) {
  plot->setDataLineStyle(std::nullopt);
  CPTPlotSymbol symbol = CPTPlotSymbol::rectanglePlotSymbol();
  symbol.setLineStyle(std::nullopt);
  symbol.setFill(CPTFill(CPTColor::redColor()));
  symbol.setSize({10, 10});
  plot->setPlotSymbol(symbol);
  const auto made = drawnCalls({-1e300, -6, -4, 50, 104, 106, 1e300, kInfinity},
                               {50, 50, 50, 50, 50, 50, 50, 50});
  ASSERT_THAT(made, SizeIs(1));
  EXPECT_THAT(made[0], testing::EndsWith(" at -4 50, 50 50, 104 50"));
}

TEST_F(CPTScatterPlotTest, ASymbolAnchoredElsewhereIsLeftOutOnlyWhereItCannotBeSeen) {
  plot->setDataLineStyle(std::nullopt);
  CPTPlotSymbol symbol = CPTPlotSymbol::rectanglePlotSymbol();
  symbol.setLineStyle(std::nullopt);
  symbol.setFill(CPTFill(CPTColor::redColor()));
  symbol.setSize({10, 10});
  symbol.setAnchorPoint({4, 0.5});
  plot->setPlotSymbol(symbol);
  // It reaches from 40 to 30 points to the left of its point.
  const auto made = drawnCalls({10, 29, 31, 139, 141}, {50, 50, 50, 50, 50});
  ASSERT_THAT(made, SizeIs(1));
  EXPECT_THAT(made[0], testing::EndsWith(" at 31 50, 139 50"));
}

TEST_F(CPTScatterPlotTest, EveryRecordMayHaveItsOwnSymbol) {
  plot->setDataLineStyle(std::nullopt);
  plot->setPlotSymbol(CPTPlotSymbol::dashPlotSymbol());
  const CPTPlotSymbol plus = CPTPlotSymbol::plusPlotSymbol();
  source.recordSymbols = {plus, plus, std::nullopt, CPTPlotSymbol::crossPlotSymbol()};
  const std::string style = "symbols stroke #000000 width 1: ";
  EXPECT_THAT(drawnCalls({10, 20, 30, 40, 50, 60}, {1, 2, 3, 4, 5, 6}),
              ElementsAre(style + "M -2.5 0 L 2.5 0 M 0 -2.5 L 0 2.5 at 10 1, 20 2",
                          style + "M -2.5 -2.5 L 2.5 2.5 M -2.5 2.5 L 2.5 -2.5 at 40 4",
                          style + "M -2.5 0 L 2.5 0 at 50 5, 60 6"));
  EXPECT_EQ(source.askedForSymbols, 1);
}

TEST_F(CPTScatterPlotTest, RecordsBeyondTheListHaveNoSymbolWhenThePlotHasNone) {
  plot->setDataLineStyle(std::nullopt);
  source.recordSymbols = {CPTPlotSymbol::dashPlotSymbol()};
  EXPECT_THAT(drawnCalls({10, 20}, {1, 2}),
              ElementsAre("symbols stroke #000000 width 1: M -2.5 0 L 2.5 0 at 10 1"));
}

TEST_F(CPTScatterPlotTest, MoreSymbolsThanRecordsDoNoHarm) {
  plot->setDataLineStyle(std::nullopt);
  source.recordSymbols.assign(5, CPTPlotSymbol::dashPlotSymbol());
  EXPECT_THAT(drawnCalls({10}, {1}), SizeIs(1));
}

TEST_F(CPTScatterPlotTest, SymbolsLieAboveTheLine) {
  plot->setPlotSymbol(CPTPlotSymbol::dashPlotSymbol());
  const auto made = drawnCalls({10, 20}, {1, 2});
  ASSERT_THAT(made, SizeIs(2));
  EXPECT_THAT(made[0], HasSubstr("stroke"));
  EXPECT_THAT(made[1], HasSubstr("symbols"));
}

// Labels

TEST_F(CPTScatterPlotTest, LabelsStandTheirOffsetAboveTheirPoints) {
  plot->setLabelOffset(5);
  const auto label = std::make_shared<CPTTextLayer>("peak");
  source.labels = {nullptr, label};
  source.fields = {{10, 20, 30}, {10, 20, 30}};
  const std::string text = recorded(*graph);
  EXPECT_THAT(calls(text, {"text"}), ElementsAre("text \"peak\" Helvetica 12 #000000 at 1 1"));
  const CGSize size = label->frame().size;
  CGRecordingContext expected;
  expected.translate(20, 25 + size.height / 2);
  EXPECT_THAT(text, HasSubstr(expected.text()));
}

TEST_F(CPTScatterPlotTest, ATurnedLabelKeepsItsNearEdgeAtTheOffset) {
  plot->setLabelOffset(5);
  plot->setLabelRotation(std::numbers::pi / 2);
  const auto label = std::make_shared<CPTTextLayer>("a longer label");
  source.labels = {label};
  source.fields = {{50}, {50}};
  CGRecordingContext expected;
  expected.translate(50, 55 + label->frame().size.width / 2);
  EXPECT_THAT(recorded(*graph), HasSubstr(expected.text()));
}

TEST_F(CPTScatterPlotTest, LabelOffsetsAndRotationsThatAreNoNumbersDrawNoLabels) {
  plot->setDataLineStyle(std::nullopt);
  source.labels = {std::make_shared<CPTTextLayer>("a")};
  plot->setLabelOffset(kNaN);
  EXPECT_THAT(drawnCalls({50}, {50}), IsEmpty());
  plot->setLabelOffset(0);
  plot->setLabelRotation(kInfinity);
  EXPECT_THAT(drawnCalls({50}, {50}), IsEmpty());
}

TEST_F(CPTScatterPlotTest, PointsOutsideThePlotAreaHaveNoLabels) {
  const auto formatter = std::make_shared<NSNumberFormatter>();
  plot->setDataLineStyle(std::nullopt);
  plot->setLabelFormatter(formatter);
  EXPECT_THAT(drawnCalls({-1, 50, 101, 50, 100, kNaN, 50}, {50, 101, 50, -1, 100, 50, kNaN}),
              ElementsAre("text \"100\" Helvetica 12 #000000 at 1 1"));
}

TEST_F(CPTScatterPlotTest, TheFormatterLabelsEveryPointWithItsYUnlessTheSourceHasLabels) {
  plot->setDataLineStyle(std::nullopt);
  plot->setLabelFormatter(std::make_shared<NSNumberFormatter>());
  plot->setLabelTextStyle(CPTTextStyle{.fontSize = 9, .color = CPTColor::redColor()});
  EXPECT_THAT(drawnCalls({10, 20}, {7, 8}), ElementsAre("text \"7\" Helvetica 9 #ff0000 at 1 1",
                                                        "text \"8\" Helvetica 9 #ff0000 at 1 1"));
  source.labels = {std::make_shared<CPTTextLayer>("own")};
  EXPECT_THAT(drawnCalls({10, 20}, {7, 8}),
              ElementsAre("text \"own\" Helvetica 12 #000000 at 1 1"));
}

// Long lines

struct Difference {
  int largest = 0;
  std::size_t pixels = 0;
};

Difference difference(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
  Difference result;
  for (std::size_t i = 0; i < a.size(); ++i) {
    int here = 0;
    for (int shift = 0; shift < 32; shift += 8)
      here = std::max(here, std::abs(static_cast<int>(a[i] >> shift & 255) -
                                     static_cast<int>(b[i] >> shift & 255)));
    result.largest = std::max(result.largest, here);
    result.pixels += here > 0;
  }
  return result;
}

TEST_F(CPTScatterPlotTest, ALongLineCutInPartsLooksLikeTheWhole) {
  constexpr int kPoints = 6000;
  graph->setFrame(CGRect::make(0, 0, 1500, 100));
  graph->setFill(CPTFill(CPTColor::whiteColor()));
  measureInPoints(*graph);
  source.fields = {{}, {}};
  for (int i = 0; i < kPoints; ++i) {
    source.fields[0].push_back(20 + 1460.0 * i / kPoints);
    source.fields[1].push_back(50 + 30 * std::sin(0.35 * i) + 9 * std::sin(1.7 * i));
  }
  std::swap(source.fields[0][2000], source.fields[0][2001]);  // sorted lines are drawn otherwise
  for (const CGLineCap cap : {CGLineCap::butt, CGLineCap::round, CGLineCap::square})
    for (const double width : {1.0, 3.0}) {
      plot->setDataLineStyle(CPTLineStyle{.lineCap = cap, .lineWidth = width});
      const std::size_t strokes = calls(recorded(*graph), {"stroke"}).size();
      ASSERT_GE(strokes, 4u);
      const auto inParts = drawn(*graph);

      const auto context = CGBitmapContext::create({1500, 100}, 1);
      context->fillAligned(CGRect::make(0, 0, 1500, 100), CGColor::genericRGB(1, 1, 1));
      std::vector<CGPoint> points;
      for (int i = 0; i < kPoints; ++i)
        points.push_back({source.fields[0][static_cast<std::size_t>(i)],
                          source.fields[1][static_cast<std::size_t>(i)]});
      thinRun(points, 0.02);
      CGMutablePath whole;
      whole.addLines(points);
      context->stroke(whole, {.width = width, .cap = cap, .join = CGLineJoin::round});

      // Only at the joints are edges of the pen drawn twice: half of a half is added at most.
      const Difference found = difference(inParts, pixelsOf(*context));
      EXPECT_LE(found.largest, 64) << width;
      EXPECT_LE(found.pixels, 50 * strokes) << width;
    }
}

TEST_F(CPTScatterPlotTest, TranslucentAndDashedLinesStayWhole) {
  source.fields = {{}, {}};
  for (int i = 0; i < 5000; ++i) {
    source.fields[0].push_back(i % 100);
    source.fields[1].push_back(i * 37 % 100);
  }
  plot->setDataLineStyle(CPTLineStyle{.lineColor = CPTColor::colorWithComponents(0, 0, 0, 0.5)});
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}), SizeIs(1));
  plot->setDataLineStyle(CPTLineStyle{.dashPattern = {3, 1}});
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}), SizeIs(1));
  plot->setDataLineStyle(CPTLineStyle{});
  EXPECT_GT(calls(recorded(*graph), {"stroke"}).size(), 3u);
}

}  // namespace
}  // namespace vexel
