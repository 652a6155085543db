#include <PlotTheme/PlotSymbol.h>
#include <gtest/gtest.h>

#include <limits>
#include <unordered_set>

namespace vexel {
namespace {

constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

static_assert(sizeof(PlotSymbol) == 1);
static_assert(std::is_trivially_copyable_v<PlotSymbol>);

const PlotSymbol kSymbols[] = {PlotSymbol::circle,    PlotSymbol::diamond,  PlotSymbol::cross,
                               PlotSymbol::rectangle, PlotSymbol::triangle, PlotSymbol::star};

TEST(PlotSymbol, HasTheRawValuesZeroToFiveInOrder) {
  std::int64_t rawValue = 0;
  for (const PlotSymbol symbol : kSymbols) {
    EXPECT_EQ(symbol.rawValue(), rawValue);
    EXPECT_EQ(PlotSymbol::fromRawValue(rawValue), symbol);
    ++rawValue;
  }
}

TEST(PlotSymbol, IsAbsentForAnyOtherRawValue) {
  // Numbers that would be a symbol if only some of their bits were looked at come last.
  for (const std::int64_t rawValue :
       {kLeast, kMost, kLeast + 1, std::int64_t{-1}, std::int64_t{-6}, std::int64_t{6},
        std::int64_t{7}, std::int64_t{255}, std::int64_t{256}, std::int64_t{-256},
        std::int64_t{1} << 32, -(std::int64_t{1} << 32), (std::int64_t{1} << 32) + 1})
    EXPECT_EQ(PlotSymbol::fromRawValue(rawValue), std::nullopt) << rawValue;
}

TEST(PlotSymbol, IsEqualToItselfAndToNoOther) {
  for (const PlotSymbol a : kSymbols)
    for (const PlotSymbol b : kSymbols) EXPECT_EQ(a == b, a.rawValue() == b.rawValue());
}

TEST(PlotSymbol, HashesAsItsRawValue) {
  for (const PlotSymbol symbol : kSymbols)
    EXPECT_EQ(std::hash<PlotSymbol>{}(symbol), std::hash<std::int64_t>{}(symbol.rawValue()));
  const std::unordered_set<PlotSymbol> set(std::begin(kSymbols), std::end(kSymbols));
  EXPECT_EQ(set.size(), 6u);
}

TEST(PlotSymbol, IsDrawnAsThePlotSymbolOfItsNameAndACircleAsAnEllipse) {
  const struct {
    PlotSymbol symbol;
    CPTPlotSymbol expected;
    CPTPlotSymbolType type;
  } rows[] = {
      {PlotSymbol::circle, CPTPlotSymbol::ellipsePlotSymbol(), CPTPlotSymbolType::ellipse},
      {PlotSymbol::diamond, CPTPlotSymbol::diamondPlotSymbol(), CPTPlotSymbolType::diamond},
      {PlotSymbol::cross, CPTPlotSymbol::crossPlotSymbol(), CPTPlotSymbolType::cross},
      {PlotSymbol::rectangle, CPTPlotSymbol::rectanglePlotSymbol(), CPTPlotSymbolType::rectangle},
      {PlotSymbol::triangle, CPTPlotSymbol::trianglePlotSymbol(), CPTPlotSymbolType::triangle},
      {PlotSymbol::star, CPTPlotSymbol::starPlotSymbol(), CPTPlotSymbolType::star},
  };
  for (const auto& [symbol, expected, type] : rows) {
    const CPTPlotSymbol made = symbol.cptSymbol();
    EXPECT_EQ(made, expected) << symbol.rawValue();
    EXPECT_EQ(made.symbolType(), type) << symbol.rawValue();
    EXPECT_EQ(made.size(), (CGSize{5, 5})) << symbol.rawValue();
    EXPECT_EQ(made.fill(), std::nullopt) << symbol.rawValue();
    EXPECT_EQ(made.lineStyle(), CPTLineStyle{}) << symbol.rawValue();
  }
}

TEST(PlotSymbolDeathTest, AValueOutsideItsCasesStopsTheProcess) {
  for (const int value : {6, 7, 128, 255}) {
    const PlotSymbol unknown(static_cast<PlotSymbol::Case>(value));
    EXPECT_DEATH(unknown.cptSymbol(), "Fatal error: .*PlotSymbol.*" + std::to_string(value));
    EXPECT_DEATH(unknown.rawValue(), "Fatal error: .*PlotSymbol.*" + std::to_string(value));
  }
}

TEST(PointingTriangle, IsACustomSymbolOfTheDefaultSizeWhateverSizeIsAskedFor) {
  for (const CGSize size : {CGSize{kNaN, kNaN}, CGSize{0, 0}, CGSize{-1, -1}, CGSize{1e308, 1e308},
                            CGSize{40, 40}, CGSize{5, 5}}) {
    const auto symbol =
        PlotSymbol::createPointingTriangleSymbol(size, CPTColor::redColor(), std::nullopt);
    EXPECT_EQ(symbol.symbolType(), CPTPlotSymbolType::custom);
    EXPECT_EQ(symbol.size(), CPTPlotSymbol().size());
    EXPECT_EQ(symbol.size(), (CGSize{5, 5}));
    EXPECT_EQ(symbol.anchorPoint(), CPTPlotSymbol().anchorPoint());
  }
}

TEST(PointingTriangle, StandsOnItsApex) {
  const auto symbol =
      PlotSymbol::createPointingTriangleSymbol({40, 40}, CPTColor::redColor(), std::nullopt);
  ASSERT_TRUE(symbol.customSymbolPath().has_value());

  const CGFloat a = 0.86602540378 * 5;
  CGMutablePath expected;
  expected.move({a, 0});
  expected.addLine({2 * a, 5});
  expected.addLine({0, 5});
  expected.closeSubpath();
  EXPECT_EQ(*symbol.customSymbolPath(), expected);
}

TEST(PointingTriangle, TakesTheFillOrNone) {
  const std::optional<CPTFill> fills[] = {std::nullopt, CPTFill(CPTColor::blueColor()),
                                          CPTFill(CPTColor::clearColor())};
  for (const auto& fill : fills)
    EXPECT_EQ(PlotSymbol::createPointingTriangleSymbol({5, 5}, CPTColor::redColor(), fill).fill(),
              fill);
}

TEST(PointingTriangle, IsOutlinedWithTheDefaultLineInTheColour) {
  const CPTColor colors[] = {CPTColor::clearColor(), CPTColor::purpleColor()};
  for (const auto& color : colors) {
    CPTLineStyle expected;
    expected.lineColor = color;
    EXPECT_EQ(PlotSymbol::createPointingTriangleSymbol({9, 9}, color, std::nullopt).lineStyle(),
              expected);
  }
}

}  // namespace
}  // namespace vexel
