#include <CorePlot/CPTScatterPlot.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using Colors = std::vector<std::optional<CPTColor>>;

class ColoredSource : public ListSource {
 public:
  ColoredSource(std::vector<double> x, std::vector<double> y, Colors colorsOfRecords)
      : ListSource({std::move(x), std::move(y)}), colors(std::move(colorsOfRecords)) {}

  CPTColorList symbolColors(const CPTScatterPlot&, CPTRecordRange range) override {
    ++askedForColors;
    lastRange = range;
    return CPTColorList(colors);
  }

  Colors colors;
  int askedForColors = 0;
  CPTRecordRange lastRange;
};

class SymbolColors : public testing::Test {
 protected:
  /// Records at (10, 10), (20, 20) and so on in the colours, drawn with the symbol.
  std::vector<std::string> symbolCalls(const Colors& colors, std::optional<CPTPlotSymbol> symbol,
                                       std::size_t records = 4) {
    std::vector<double> places;
    for (std::size_t i = 1; i <= records; ++i) places.push_back(10.0 * static_cast<double>(i));
    source_ = std::make_unique<ColoredSource>(places, places, colors);
    source_->recordSymbols = ownSymbols;
    graph_ = bareGraph();
    measureInPoints(*graph_);
    plot_ = addScatter(*graph_, *source_);
    plot_->setDataLineStyle(std::nullopt);
    plot_->setPlotSymbol(std::move(symbol));
    return calls(recorded(*graph_), {"symbols"});
  }

  static CPTPlotSymbol square() {
    auto symbol = CPTPlotSymbol::rectanglePlotSymbol();
    symbol.setSize({2, 2});
    symbol.setLineStyle(std::nullopt);
    symbol.setFill(CPTFill(CPTColor::blackColor()));
    return symbol;
  }

  std::vector<std::optional<CPTPlotSymbol>> ownSymbols;
  std::unique_ptr<ColoredSource> source_;
  std::shared_ptr<CPTXYGraph> graph_;
  std::shared_ptr<CPTScatterPlot> plot_;
};

const CPTColor kRed = CPTColor::redColor();
const CPTColor kBlue = CPTColor::blueColor();

TEST_F(SymbolColors, FillTheSymbolsRecordByRecordInTheirOrder) {
  EXPECT_THAT(symbolCalls({kRed, kBlue, kBlue, kRed}, square()),
              ElementsAre(HasSubstr("#ff0000"), HasSubstr("#0000ff"), HasSubstr("#ff0000")));
  EXPECT_THAT(calls(recorded(*graph_), {"symbols"})[1], HasSubstr("20 20, 30 30"));
}

TEST_F(SymbolColors, ReplaceAFillOfAnyKindAndNone) {
  auto symbol = square();
  symbol.setFill(std::nullopt);
  EXPECT_THAT(symbolCalls({kRed, kRed, kRed, kRed}, symbol), ElementsAre(HasSubstr("#ff0000")));
  symbol.setFill(CPTFill(CPTImage{}));
  EXPECT_THAT(symbolCalls({kRed, kRed, kRed, kRed}, symbol), ElementsAre(HasSubstr("#ff0000")));
}

TEST_F(SymbolColors, LeaveTheOutlineAsItIs) {
  auto symbol = square();
  CPTMutableLineStyle green;
  green.lineColor = CPTColor::greenColor();
  symbol.setLineStyle(green);
  EXPECT_THAT(symbolCalls({kRed, kRed, kRed, kRed}, symbol),
              ElementsAre(testing::AllOf(HasSubstr("#ff0000"), HasSubstr("#00ff00"))));
}

TEST_F(SymbolColors, DrawSymbolsOfLines) {
  auto symbol = CPTPlotSymbol::plusPlotSymbol();
  EXPECT_THAT(symbolCalls({kRed, kRed, kBlue, kBlue}, symbol),
              ElementsAre(HasSubstr("#ff0000"), HasSubstr("#0000ff")));
  symbol.setLineStyle(std::nullopt);
  for (const std::string& call : symbolCalls({kRed, kRed, kBlue, kBlue}, symbol))
    EXPECT_THAT(call, testing::Not(HasSubstr("#")));
}

TEST_F(SymbolColors, DrawNothingWhereAbsent) {
  EXPECT_THAT(symbolCalls({std::nullopt, kRed, std::nullopt, kRed}, square()),
              ElementsAre(testing::AllOf(HasSubstr("20 20, 40 40"), HasSubstr("#ff0000"))));
  EXPECT_THAT(symbolCalls(Colors(4), square()), IsEmpty());
}

TEST_F(SymbolColors, LeaveTheSymbolToRecordsBeyondTheirEnd) {
  EXPECT_THAT(symbolCalls({kRed}, square()),
              ElementsAre(HasSubstr("#ff0000"), HasSubstr("#000000")));
  EXPECT_THAT(symbolCalls({}, square()), ElementsAre(HasSubstr("#000000")));
  EXPECT_THAT(symbolCalls(Colors(9, kRed), square()), ElementsAre(HasSubstr("#ff0000")));
}

TEST_F(SymbolColors, DoNotConcernRecordsWithSymbolsOfTheirOwn) {
  auto green = square();
  green.setFill(CPTFill(CPTColor::greenColor()));
  ownSymbols = {green, std::nullopt};
  EXPECT_THAT(symbolCalls({kRed, kRed, kRed}, square()),
              ElementsAre(HasSubstr("#00ff00"), HasSubstr("#ff0000"), HasSubstr("#000000")));
  EXPECT_THAT(symbolCalls({kRed}, square()),
              ElementsAre(HasSubstr("#00ff00"), HasSubstr("#000000")));
  ownSymbols = {green, green, green, green, green};
  EXPECT_THAT(symbolCalls({kRed, kRed, kRed, kRed}, square()), ElementsAre(HasSubstr("#00ff00")));
}

TEST_F(SymbolColors, NeedASymbol) {
  EXPECT_THAT(symbolCalls({kRed, kRed, kRed, kRed}, std::nullopt), IsEmpty());
  EXPECT_THAT(symbolCalls({kRed, kRed, kRed, kRed}, CPTPlotSymbol()), IsEmpty());
}

TEST_F(SymbolColors, AreAskedForOnceForAllRecordsUntilTheDataChange) {
  symbolCalls({kRed, kRed, kRed, kRed}, square());
  recorded(*graph_);
  EXPECT_EQ(source_->askedForColors, 1);
  EXPECT_EQ(source_->lastRange, (CPTRecordRange{0, 4}));
  source_->colors = {kBlue, kBlue, kBlue, kBlue};
  plot_->setDataNeedsReloading();
  EXPECT_THAT(calls(recorded(*graph_), {"symbols"}), ElementsAre(HasSubstr("#0000ff")));
  EXPECT_EQ(source_->askedForColors, 2);
}

TEST_F(SymbolColors, LeaveOutWhatCannotBeSeen) {
  EXPECT_THAT(symbolCalls(Colors(300, kRed), square(), 300),
              ElementsAre(testing::Not(HasSubstr("500 500"))));
}

TEST_F(SymbolColors, LookLikeSymbolsOfTheirOwn) {
  Colors colors;
  for (std::size_t i = 0; i < 9; ++i)
    colors.push_back(CPTColor::colorWithComponents(static_cast<double>(i) / 9, 0, 0.5, 0.6));
  auto symbol = CPTPlotSymbol::ellipsePlotSymbol();
  symbol.setSize({14, 14});
  symbolCalls(colors, symbol, 9);
  const auto coloured = drawn(*graph_);
  for (const auto& color : colors) {
    symbol.setFill(CPTFill(*color));
    ownSymbols.push_back(symbol);
  }
  symbolCalls({}, symbol, 9);
  EXPECT_EQ(coloured, drawn(*graph_));
}

}  // namespace
}  // namespace vexel
