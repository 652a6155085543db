#include <CorePlot/CPTTheme.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/CorePlot/Charts.h"

namespace vexel {
namespace {

TEST(CPTTheme, UnknownNamesHaveNoTheme) {
  EXPECT_EQ(CPTTheme::themeNamed(""), nullptr);
  EXPECT_EQ(CPTTheme::themeNamed("plain white"), nullptr);
  EXPECT_EQ(CPTTheme::themeNamed("Slate"), nullptr);
}

TEST(CPTTheme, AThemeKnowsItsName) {
  for (const char* name : {kCPTPlainWhiteTheme, kCPTPlainBlackTheme}) {
    const auto theme = CPTTheme::themeNamed(name);
    ASSERT_NE(theme, nullptr);
    EXPECT_EQ(theme->name(), name);
  }
}

TEST(CPTTheme, AThemeSetsFillsBorderAndAxisLooks) {
  const struct {
    const char* name;
    CPTColor background, foreground;
  } rows[] = {{kCPTPlainWhiteTheme, CPTColor::whiteColor(), CPTColor::blackColor()},
              {kCPTPlainBlackTheme, CPTColor::blackColor(), CPTColor::whiteColor()}};
  for (const auto& row : rows) {
    const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 100));
    graph->applyTheme(CPTTheme::themeNamed(row.name));
    const CPTLineStyle line{.lineWidth = 1, .lineColor = row.foreground};
    const CPTTextStyle text{.fontSize = 14, .color = row.foreground};
    EXPECT_EQ(graph->fill(), CPTFill(row.background));
    EXPECT_EQ(graph->borderLineStyle(), std::nullopt);
    EXPECT_EQ(graph->titleTextStyle(), text);
    EXPECT_EQ(graph->plotAreaFrame()->borderLineStyle(), line);
    EXPECT_EQ(graph->plotAreaFrame()->plotArea()->fill(), CPTFill(row.background));
    for (const auto& axis : graph->axisSet()->axes()) {
      EXPECT_EQ(axis->axisLineStyle(), line);
      EXPECT_EQ(axis->majorTickLineStyle(), line);
      EXPECT_EQ(axis->minorTickLineStyle(), line);
      EXPECT_EQ(axis->majorTickLength(), 7);
      EXPECT_EQ(axis->minorTickLength(), 5);
      EXPECT_EQ(axis->labelTextStyle(), text);
      EXPECT_EQ(axis->titleTextStyle(), text);
      EXPECT_EQ(axis->majorIntervalLength(), 0.5);
      EXPECT_EQ(axis->minorTicksPerInterval(), 4);
      EXPECT_EQ(axis->majorGridLineStyle(), std::nullopt);
    }
  }
}

TEST(CPTTheme, AThemeLeavesPaddingsAndPlotSpaces) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 100, 100));
  graph->setPaddingLeft(3);
  graph->plotAreaFrame()->setPaddingTop(4);
  const auto space = spaceOf(*graph);
  space->setXRange({5, 6});
  space->setYScaleType(CPTScaleType::log);
  graph->applyTheme(CPTTheme::themeNamed(kCPTPlainBlackTheme));
  EXPECT_EQ(graph->paddingLeft(), 3);
  EXPECT_EQ(graph->paddingRight(), 20);
  EXPECT_EQ(graph->plotAreaFrame()->paddingTop(), 4);
  EXPECT_EQ(graph->plotAreaFrame()->paddingBottom(), 0);
  EXPECT_EQ(spaceOf(*graph), space);
  EXPECT_EQ(space->xRange(), CPTPlotRange(5, 6));
  EXPECT_EQ(space->yScaleType(), CPTScaleType::log);
}

TEST(CPTTheme, AGraphThatLacksPartsTakesTheRest) {
  const auto graph = std::make_shared<CPTXYGraph>();
  graph->plotAreaFrame()->setPlotArea(nullptr);
  graph->setAxisSet(nullptr);
  graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
  graph->setPlotAreaFrame(nullptr);
  graph->applyTheme(CPTTheme::themeNamed(kCPTPlainBlackTheme));
  EXPECT_EQ(graph->fill(), CPTFill(CPTColor::blackColor()));
}

}  // namespace
}  // namespace vexel
