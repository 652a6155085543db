#include "ColorFigure.h"

#include <CoreGraphics/CGBitmapContext.h>
#include <Vexel/PlotView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "ColoredSeries.h"
#include "ImpactSample.h"
#include "TableSheet.h"

namespace explorer {
namespace {

using namespace vexel;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::unique_ptr<ColorFigure> figureOf(const std::shared_ptr<NSView>& view, const Table& table) {
  ColoredSeries series = coloredSeries(table, 0, std::nullopt, std::nullopt, "file.csv");
  return makePlot<ColorFigure>(view, PlotTheme::white, std::move(series.band),
                               std::move(series.coding));
}

std::size_t colorsIn(NSView& view) {
  const auto context = CGBitmapContext::create(view.bounds().size, 1);
  view.display(*context);
  const auto pixels = context->pixels();
  std::vector<std::uint32_t> all(pixels.begin(), pixels.end());
  std::ranges::sort(all);
  return static_cast<std::size_t>(std::ranges::unique(all).begin() - all.begin());
}

TEST(ColorFigure, ShowsTheSampleWithItsColourBar) {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 800, 500));
  const auto figure = figureOf(view, impactSample().table);
  figure->show();
  EXPECT_EQ(figure->symbolColorCode(), SymbolColorCode::impactSpeed);
  EXPECT_NE(figure->colorbarGraph()->plotAreaFrame()->plotArea()->fill()->image(), nullptr);
  EXPECT_GT(colorsIn(*view), 100u);
}

TEST(ColorFigure, ColoursEveryRecord) {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 400, 300));
  const Table table{{{"Day", {1, 2, 3}}, {"Charge", {1, 2, 3}}, {"Speed", {1, kNaN, 100}}}};
  const auto figure = figureOf(view, table);
  const CPTScatterPlot plot;
  const CPTColorList colors = figure->symbolColors(plot, {0, 3});
  ASSERT_EQ(colors.size(), 3u);
  EXPECT_EQ(colors[0], PlotCT(PlotCT::gmtPanoply).getCPTColor(0));
  EXPECT_EQ(colors[1], std::nullopt);
  EXPECT_EQ(colors[2], PlotCT(PlotCT::gmtPanoply).getCPTColor(255));
}

TEST(ColorFigure, OutlinesSymbolsOnWhiteUnlessThereAreVeryMany) {
  const auto isOutlined = [](PlotTheme theme, std::size_t rows) {
    const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 400, 300));
    const std::vector<double> numbers(rows, 1.5);
    const Table table{{{"Day", numbers}, {"Charge", numbers}, {"Speed", numbers}}};
    ColoredSeries series = coloredSeries(table, 0, std::nullopt, std::nullopt, "file.csv");
    const auto figure =
        makePlot<ColorFigure>(view, theme, std::move(series.band), std::move(series.coding));
    const auto plot =
        std::dynamic_pointer_cast<CPTScatterPlot>(figure->figureGraph()->allPlots().front());
    return plot->plotSymbol()->lineStyle().has_value();
  };
  EXPECT_TRUE(isOutlined(PlotTheme::white, 30'000));
  EXPECT_TRUE(isOutlined(PlotTheme::print, 3));
  EXPECT_FALSE(isOutlined(PlotTheme::white, 30'001));
  EXPECT_FALSE(isOutlined(PlotTheme::black, 3));
}

TEST(ColorFigure, StandsDataFarFromAnyCalendarAndViewsWithoutSize) {
  const Table far{{{"Day", {-1e300, kNaN, 1e300}}, {"a", {1, 2, kNaN}}, {"b", {-1e308, 0, 1e308}}}};
  for (const CGFloat side : {0.0, 3.0, 300.0}) {
    const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, side, side));
    const auto figure = figureOf(view, far);
    figure->show();
    if (side > 0) colorsIn(*view);
  }
}

TEST(TableSheet, ShowsAllColoursOfTheTables) {
  const auto sheet = std::make_shared<TableSheet>(CGRect::make(0, 0, 800, 680), PlotTheme::black);
  EXPECT_GT(colorsIn(*sheet), 2000u);
  const auto tiny = std::make_shared<TableSheet>(CGRect::make(0, 0, 5, 5), PlotTheme::white);
  colorsIn(*tiny);
}

}  // namespace
}  // namespace explorer
