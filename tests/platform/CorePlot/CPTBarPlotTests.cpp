#include <CorePlot/CPTBarPlot.h>

#include <CoreGraphics/CGBitmapContext.h>
#include <Foundation/NSNumberFormatter.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class CPTBarPlotTest : public testing::Test {
 protected:
  CPTBarPlotTest() {
    measureInPoints(*graph);
    plot->setBarWidth(10);
    plot->setLineStyle(std::nullopt);
  }

  std::vector<std::string> drawnCalls(std::vector<std::vector<double>> fields) {
    source.fields = std::move(fields);
    plot->setDataNeedsReloading();
    return calls(recorded(*graph), {"stroke", "fill", "text"});
  }

  std::string bar(const std::string& rect) { return "fill #000000 aligned: " + rect; }

  std::shared_ptr<CPTXYGraph> graph = bareGraph();
  ListSource source{{{}, {}}};
  std::shared_ptr<CPTBarPlot> plot = addBars(*graph, source);
};

TEST_F(CPTBarPlotTest, RecordsWithoutNumbersHaveNoBar) {
  EXPECT_THAT(drawnCalls({{kNaN, 20, 30}, {5, kNaN, 5}}), ElementsAre(bar("25 0 10 5")));
  plot->setBarBasesVary(true);
  EXPECT_THAT(drawnCalls({{10, 30}, {5, 5}, {kNaN, 1}}), ElementsAre(bar("25 1 10 4")));
}

TEST_F(CPTBarPlotTest, InfiniteTipsReachBeyondTheEdge) {
  EXPECT_THAT(drawnCalls({{20, 40}, {kInfinity, -kInfinity}}),
              ElementsAre(bar("15 0 10 101"), bar("35 -1 10 1")));
  EXPECT_THAT(drawnCalls({{20}, {1e308}}), ElementsAre(bar("15 0 10 101")));
}

TEST_F(CPTBarPlotTest, BarsOutsideThePlotAreaAreNotDrawn) {
  EXPECT_THAT(drawnCalls({{-1e300, -10, 110, 1e300, kInfinity}, {5, 5, 5, 5, 5}}), IsEmpty());
  plot->setBaseValue(-1e300);
  EXPECT_THAT(drawnCalls({{20, 40}, {-5, -kInfinity}}), IsEmpty());
}

TEST_F(CPTBarPlotTest, WidthsOffsetsAndBasesThatAreNoNumbersDrawNothing) {
  const std::function<void(double)> setters[] = {[&](double v) { plot->setBarWidth(v); },
                                                 [&](double v) { plot->setBarOffset(v); },
                                                 [&](double v) { plot->setBaseValue(v); }};
  for (const bool inView : {false, true}) {
    plot->setBarWidthsAreInViewCoordinates(inView);
    for (const auto& set : setters) {
      set(kNaN);
      EXPECT_THAT(drawnCalls({{20}, {5}}), IsEmpty());
      set(0);
      plot->setBarWidth(10);
    }
  }
}

TEST_F(CPTBarPlotTest, HostileWidthsStayInsideThePlotArea) {
  plot->setBarWidth(kInfinity);
  EXPECT_THAT(drawnCalls({{20}, {5}}), ElementsAre(bar("-1 0 102 5")));
  plot->setBarWidth(1e308);
  EXPECT_THAT(drawnCalls({{20}, {5}}), ElementsAre(bar("-1 0 102 5")));
  plot->setBarWidth(-10);
  EXPECT_THAT(drawnCalls({{20}, {5}}), ElementsAre(bar("15 0 10 5")));
  plot->setBarWidth(0);
  for (const std::string& call : drawnCalls({{20}, {5}}))
    EXPECT_EQ(call, "fill #000000: M 20 0 L 20 0 L 20 5 L 20 5 Z");
}

TEST_F(CPTBarPlotTest, OutlinesWithoutAWidthAreNotDrawnAndHugeOnesStayBounded) {
  for (const double width : {kNaN, kInfinity, 0.0, -1.0}) {
    plot->setLineStyle(CPTLineStyle{.lineWidth = width});
    EXPECT_THAT(drawnCalls({{20}, {5}}), SizeIs(1)) << width;
  }
  plot->setLineStyle(CPTLineStyle{.lineWidth = 1e300});
  EXPECT_THAT(drawnCalls({{20}, {kInfinity}}),
              ElementsAre(bar("15 0 10 10100"), HasSubstr("stroke")));
}

TEST_F(CPTBarPlotTest, RangesThatAreNoneDrawNothing) {
  plot->setLabelFormatter(std::make_shared<NSNumberFormatter>());
  for (const CPTPlotRange& range :
       {CPTPlotRange(kNaN, 1), CPTPlotRange(0, kInfinity), CPTPlotRange(0, 0)}) {
    spaceOf(*graph)->setXRange(range);
    EXPECT_THAT(drawnCalls({{20}, {5}}), IsEmpty());
  }
}

TEST_F(CPTBarPlotTest, ANewPlotHasTheDefaults) {
  const CPTBarPlot fresh;
  EXPECT_EQ(fresh.barWidth(), 0.5);
  EXPECT_FALSE(fresh.barWidthsAreInViewCoordinates());
  EXPECT_EQ(fresh.barOffset(), 0);
  EXPECT_EQ(fresh.barCornerRadius(), 0);
  EXPECT_EQ(fresh.baseValue(), 0);
  EXPECT_FALSE(fresh.barBasesVary());
  EXPECT_FALSE(fresh.barsAreHorizontal());
  EXPECT_EQ(fresh.lineStyle(), CPTLineStyle{});
  EXPECT_EQ(fresh.fill(), CPTFill(CPTColor::blackColor()));
  EXPECT_EQ(fresh.labelOffset(), 10);
  EXPECT_EQ(fresh.labelRotation(), 0);
}

TEST_F(CPTBarPlotTest, BarsRunFromTheBaseToTheTip) {
  EXPECT_THAT(drawnCalls({{20, 50}, {30, 60}}), ElementsAre(bar("15 0 10 30"), bar("45 0 10 60")));
  plot->setBaseValue(40);
  EXPECT_THAT(drawnCalls({{20, 50}, {30, 60}}),
              ElementsAre(bar("15 30 10 10"), bar("45 40 10 20")));
}

TEST_F(CPTBarPlotTest, BasesMayVary) {
  plot->setBarBasesVary(true);
  EXPECT_THAT(drawnCalls({{20, 50}, {30, 60}, {10, 70}}),
              ElementsAre(bar("15 10 10 20"), bar("45 60 10 10")));
  EXPECT_EQ(plot->recordCount(), 2u);
  EXPECT_THAT(drawnCalls({{20, 50}, {30, 60}, {10}}), SizeIs(1));
}

TEST_F(CPTBarPlotTest, SayingThatBasesVaryReadsThemFromTheSource) {
  drawnCalls({{20}, {30}, {10}});
  EXPECT_EQ(source.askedForFields.count(CPTBarPlotFieldBarBase), 0u);
  plot->setBarBasesVary(true);
  EXPECT_TRUE(plot->dataNeedsReloading());
  recorded(*graph);
  EXPECT_EQ(source.askedForFields[CPTBarPlotFieldBarBase], 1);
}

TEST_F(CPTBarPlotTest, HorizontalBarsHaveTheirLocationsOnTheYAxis) {
  plot->setBarsAreHorizontal(true);
  EXPECT_THAT(drawnCalls({{20, 50}, {30, -5}}), ElementsAre(bar("0 15 30 10"), bar("-1 45 1 10")));
}

TEST_F(CPTBarPlotTest, WidthAndOffsetAreInDataUnitsOrInPoints) {
  spaceOf(*graph)->setXRange({0, 10});
  plot->setBarWidth(0.5);
  plot->setBarOffset(1);
  EXPECT_THAT(drawnCalls({{2}, {30}}), ElementsAre(bar("27.5 0 5 30")));
  plot->setBarWidthsAreInViewCoordinates(true);
  plot->setBarWidth(8);
  EXPECT_THAT(drawnCalls({{2}, {30}}), ElementsAre(bar("17 0 8 30")));
}

TEST_F(CPTBarPlotTest, AReversedRangeTurnsTheBars) {
  spaceOf(*graph)->setYRange({100, -100});
  EXPECT_THAT(drawnCalls({{20}, {30}}), ElementsAre(bar("15 70 10 30")));
}

TEST_F(CPTBarPlotTest, FillAndOutlineAreAlignedToPixels) {
  plot->setLineStyle(CPTLineStyle{.lineColor = CPTColor::redColor()});
  EXPECT_THAT(drawnCalls({{20}, {30}}),
              ElementsAre(bar("15 0 10 30"),
                          "stroke #ff0000 width 1 aligned: M 15 0 L 25 0 L 25 30 L 15 30 Z"));
  plot->setFill(std::nullopt);
  EXPECT_THAT(drawnCalls({{20}, {30}}), SizeIs(1));
}

TEST_F(CPTBarPlotTest, AnOutlineIsCutOutsideThePlotArea) {
  plot->setLineStyle(CPTLineStyle{.lineWidth = 3});
  EXPECT_THAT(drawnCalls({{20}, {300}}),
              ElementsAre(bar("15 0 10 106"),
                          "stroke #000000 width 3 aligned: M 15 0 L 25 0 L 25 106 L 15 106 Z"));
}

TEST_F(CPTBarPlotTest, RoundCornersAreFilledAndOutlinedAlongTheSameShape) {
  plot->setBarCornerRadius(3);
  plot->setLineStyle(CPTLineStyle{});
  CGMutablePath path;
  path.addRoundedRect(CGRect::make(15, 0, 10, 30), 3);
  CGRecordingContext expected;
  expected.fill(path, CPTColor::blackColor().cgColor());
  expected.stroke(path, CGStrokeStyle{});
  const auto made = drawnCalls({{20}, {30}});
  ASSERT_THAT(made, SizeIs(2));
  EXPECT_EQ(made[0] + "\n" + made[1] + "\n", expected.text());
}

TEST_F(CPTBarPlotTest, ACornerRadiusThatIsNoneMakesSquareCorners) {
  for (const double radius : {kNaN, -5.0, 0.0}) {
    plot->setBarCornerRadius(radius);
    EXPECT_THAT(drawnCalls({{20}, {30}}), ElementsAre(bar("15 0 10 30"))) << radius;
  }
}

TEST_F(CPTBarPlotTest, NarrowBarsAreOneShapeWithoutOutline) {
  plot->setBarWidth(1);
  plot->setLineStyle(CPTLineStyle{});
  EXPECT_THAT(drawnCalls({{20, 21}, {30, 40}}),
              ElementsAre("fill #000000: M 19.5 0 L 20.5 0 L 20.5 30 L 19.5 30 Z "
                          "M 20.5 0 L 21.5 0 L 21.5 40 L 20.5 40 Z"));
  plot->setLineStyle(std::nullopt);
  plot->setFill(std::nullopt);
  EXPECT_THAT(drawnCalls({{20, 21}, {30, 40}}), IsEmpty());
}

TEST_F(CPTBarPlotTest, NarrowBarsWithoutFillTakeTheColourOfTheirOutline) {
  plot->setBarWidth(1);
  plot->setLineStyle(CPTLineStyle{.lineColor = CPTColor::redColor()});
  plot->setFill(std::nullopt);
  EXPECT_THAT(drawnCalls({{20}, {30}}),
              ElementsAre("fill #ff0000: M 19.5 0 L 20.5 0 L 20.5 30 L 19.5 30 Z"));
}

TEST_F(CPTBarPlotTest, BarsThatFilesCannotTellApartAreTheLongestOfThem) {
  plot->setBarWidth(0.01);
  const auto outline = [](const char* x, const char* to, const char* low, const char* high) {
    return fmt::format("M {0} {2} L {1} {2} L {1} {3} L {0} {3} Z", x, to, low, high);
  };
  EXPECT_THAT(drawnCalls({{20, 20.02, 20.04, 20.2}, {30, 50, 40, 10}}),
              ElementsAre("fill #000000: " + outline("19.995", "20.045", "0", "50") + " " +
                          outline("20.195", "20.205", "0", "10")));
  // Bars that do not meet stay apart, and so do neighbours that come later.
  plot->setBarBasesVary(true);
  EXPECT_THAT(drawnCalls({{20, 20.02, 20}, {30, 50, 30}, {10, 40, 10}}),
              ElementsAre("fill #000000: " + outline("19.995", "20.005", "10", "30") + " " +
                          outline("20.015", "20.025", "40", "50") + " " +
                          outline("19.995", "20.005", "10", "30")));
}

TEST_F(CPTBarPlotTest, NarrowBarsLookLikeOnePathOnBitmaps) {
  struct Row {
    double width, scale;
    bool areHorizontal;
    CPTColor color;
  };
  const CPTColor translucent = CPTColor::colorWithComponents(0.2, 0.4, 0.8, 0.5);
  for (const auto& [width, scale, areHorizontal, color] :
       {Row{0.3, 1, false, CPTColor::blackColor()}, Row{2.7, 1.5, false, translucent},
        Row{1, 2, true, CPTColor::redColor()}, Row{0.7, 1.25, true, translucent}}) {
    plot->setBarWidth(width);
    plot->setBarsAreHorizontal(areHorizontal);
    plot->setFill(CPTFill(color));
    source.fields = {{}, {}};
    CGMutablePath path;
    for (int i = 0; i < 150; ++i) {
      const double location = 5 + i * 0.613;
      const double tip = 50 + 40 * std::sin(i * 0.37);
      source.fields[0].push_back(location);
      source.fields[1].push_back(tip);
      path.addRect(areHorizontal ? CGRect::make(0, location - width / 2, tip, width)
                                 : CGRect::make(location - width / 2, 0, width, tip));
    }
    plot->setDataNeedsReloading();
    const auto fast = CGBitmapContext::create(graph->bounds().size, scale);
    graph->displayChart(*fast);
    const auto inParts =
        CGBitmapContext::create(graph->bounds().size, scale, CGBitmapContext::Use::file);
    for (int left = 0; left < 100; left += 28)
      for (int low = 0; low < 100; low += 36)
        graph->displayChart(*inParts, CGRect::make(left, low, 28, 36));
    EXPECT_TRUE(std::ranges::equal(fast->pixels(), inParts->pixels())) << width << ' ' << scale;
    const auto exact = CGBitmapContext::create(graph->bounds().size, scale);
    exact->fill(path, color.cgColor());
    const auto a = fast->pixels(), b = exact->pixels();
    ASSERT_EQ(a.size(), b.size());
    int greatest = 0;
    std::size_t inked = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
      inked += b[i] != 0;
      for (int shift = 0; shift < 32; shift += 8)
        greatest = std::max(greatest, std::abs(static_cast<int>(a[i] >> shift & 255) -
                                               static_cast<int>(b[i] >> shift & 255)));
    }
    EXPECT_GT(inked, 1000U);
    EXPECT_LE(greatest, 16) << width << ' ' << scale;
  }
}

TEST_F(CPTBarPlotTest, OnALogScaleABaseWithoutAPlaceIsTheLowEdge) {
  spaceOf(*graph)->setYRange({1, 99});
  spaceOf(*graph)->setYScaleType(CPTScaleType::log);
  EXPECT_THAT(drawnCalls({{20}, {10}}), ElementsAre(bar("15 0 10 50")));
  plot->setBarBasesVary(true);
  EXPECT_THAT(drawnCalls({{20, 40}, {10, 10}, {0, -5}}),
              ElementsAre(bar("15 0 10 50"), bar("35 0 10 50")));
  plot->setBarBasesVary(false);
  spaceOf(*graph)->setYRange({100, -99});
  EXPECT_THAT(drawnCalls({{20}, {10}}), ElementsAre(bar("15 50 10 50")));
  EXPECT_THAT(drawnCalls({{20}, {0}}), IsEmpty());
}

TEST_F(CPTBarPlotTest, ALogScaleOfTheLocationsDoesNotMoveTheBase) {
  spaceOf(*graph)->setYScaleType(CPTScaleType::log);
  spaceOf(*graph)->setYRange({1, 99});
  spaceOf(*graph)->setXRange({100, -100});
  EXPECT_THAT(drawnCalls({{20}, {10}}), ElementsAre(bar("75 0 10 50")));
}

TEST_F(CPTBarPlotTest, LabelsStandBeyondTheTip) {
  plot->setLabelOffset(2);
  const auto label = std::make_shared<CPTTextLayer>("label");
  source.labels = {label, label};
  spaceOf(*graph)->setYRange({-50, 100});
  source.fields = {{20, 60}, {20, -10}};
  const double half = label->frame().size.height / 2;
  CGRecordingContext above, below;
  above.translate(20, 70 + 2 + half);
  below.translate(60, 40 - 2 - half);
  const std::string text = recorded(*graph);
  EXPECT_THAT(text, HasSubstr(above.text()));
  EXPECT_THAT(text, HasSubstr(below.text()));
}

TEST_F(CPTBarPlotTest, LabelsOfHorizontalBarsStandBesideTheTip) {
  plot->setBarsAreHorizontal(true);
  plot->setLabelOffset(2);
  const auto label = std::make_shared<CPTTextLayer>("label");
  source.labels = {label, label};
  spaceOf(*graph)->setXRange({-50, 100});
  source.fields = {{20, 60}, {20, -10}};
  const double half = label->frame().size.width / 2;
  CGRecordingContext right, left;
  right.translate(70 + 2 + half, 20);
  left.translate(40 - 2 - half, 60);
  const std::string text = recorded(*graph);
  EXPECT_THAT(text, HasSubstr(right.text()));
  EXPECT_THAT(text, HasSubstr(left.text()));
}

TEST_F(CPTBarPlotTest, TheFormatterLabelsTipsInsideThePlotArea) {
  plot->setLabelFormatter(std::make_shared<NSNumberFormatter>());
  plot->setFill(std::nullopt);
  EXPECT_THAT(drawnCalls({{20, 40, 60, 80}, {7, 101, -1, kNaN}}),
              ElementsAre("text \"7\" Helvetica 12 #000000 at 1 1"));
}

TEST_F(CPTBarPlotTest, BarsAreDrawnInTheOrderOfTheirRecords) {
  EXPECT_THAT(drawnCalls({{50, 20}, {5, 6}}), ElementsAre(bar("45 0 10 5"), bar("15 0 10 6")));
}

TEST_F(CPTBarPlotTest, AnImageIsStretchedOverEveryBar) {
  const auto pixel =
      CGImage::create({.width = 1, .height = 1, .bytesPerRow = 4}, std::vector<std::uint8_t>(4));
  plot->setFill(CPTFill(CPTImage{.image = pixel}));
  source.fields = {{20}, {30}};
  EXPECT_THAT(calls(recorded(*graph), {"image"}), ElementsAre("image 1 x 1 over 15 0 10 30"));
}

TEST_F(CPTBarPlotTest, EveryChangeAsksForDisplayAndARepetitionDoesNot) {
  const std::function<void()> changes[] = {
      [&] { plot->setBarWidth(3); },
      [&] { plot->setBarWidthsAreInViewCoordinates(true); },
      [&] { plot->setBarOffset(3); },
      [&] { plot->setBarCornerRadius(3); },
      [&] { plot->setBaseValue(3); },
      [&] { plot->setBarBasesVary(true); },
      [&] { plot->setBarsAreHorizontal(true); },
      [&] { plot->setLineStyle(CPTLineStyle{}); },
      [&] { plot->setFill(std::nullopt); },
  };
  for (const auto& change : changes) {
    recorded(*graph);
    change();
    EXPECT_TRUE(plot->needsDisplay());
    recorded(*graph);
    change();
    EXPECT_FALSE(plot->needsDisplay());
  }
}

}  // namespace
}  // namespace vexel
