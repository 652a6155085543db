#include <CorePlot/CPTPlot.h>

#include <Foundation/NSNumberFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class CPTPlotTest : public testing::Test {
 protected:
  CPTPlotTest() { measureInPoints(*graph); }

  std::shared_ptr<CPTXYGraph> graph = bareGraph();
  ListSource source{{{10, 20, 30}, {1, 2, 3}}};
  std::shared_ptr<CPTScatterPlot> plot = addScatter(*graph, source, "plot");
};

TEST_F(CPTPlotTest, AnImpossibleNumberOfRecordsEndsWhereTheLentNumbersEnd) {
  source.records = std::numeric_limits<std::size_t>::max();
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 3u);
}

TEST_F(CPTPlotTest, AnImpossibleNumberOfSingleRecordsIsNotAskedForWithoutEnd) {
  class Endless : public CPTPlotDataSource {
   public:
    std::size_t numberOfRecords(const CPTPlot&) override {
      return std::numeric_limits<std::size_t>::max();
    }
    double number(const CPTPlot&, unsigned, std::size_t) override { return 0; }
  } endless;
  plot->setDataSource(&endless);
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 10'000'000u);
}

TEST_F(CPTPlotTest, FieldsOfDifferentLengthGiveAsManyRecordsAsTheShortest) {
  source.fields = {{10, 20, 30}, {1, 2}};
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 2u);
  source.fields = {{10}, {1, 2, 3}};
  source.records = 3;
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 1u);
  source.fields = {{}, {}};
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 0u);
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}), IsEmpty());
}

TEST_F(CPTPlotTest, MoreNumbersThanRecordsAreNotDrawn) {
  source.records = 2;
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 2u);
}

TEST_F(CPTPlotTest, ADataSourceThatIsGoneIsNotTouchedAndDrawsNothing) {
  {
    auto mortal = std::make_unique<ListSource>(source.fields);
    plot->setDataSource(mortal.get());
    EXPECT_THAT(calls(recorded(*graph), {"stroke"}), SizeIs(1));
    mortal->fields[1].clear();
    mortal->fields[1].shrink_to_fit();
  }
  EXPECT_EQ(plot->dataSource(), nullptr);
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}), IsEmpty());
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 0u);
}

TEST_F(CPTPlotTest, DataAreReadWhenFirstDrawnAndAfterBeingToldOfAChange) {
  EXPECT_TRUE(plot->dataNeedsReloading());
  EXPECT_EQ(source.askedForRecords, 0);
  recorded(*graph);
  recorded(*graph);
  EXPECT_EQ(source.askedForRecords, 1);
  EXPECT_FALSE(plot->dataNeedsReloading());

  plot->setDataNeedsReloading();
  EXPECT_EQ(source.askedForRecords, 1);
  plot->reloadDataIfNeeded();
  plot->reloadDataIfNeeded();
  EXPECT_EQ(source.askedForRecords, 2);
  EXPECT_TRUE(plot->needsDisplay());
  recorded(*graph);
  EXPECT_EQ(source.askedForRecords, 2);

  graph->reloadData();
  EXPECT_TRUE(plot->dataNeedsReloading());
  plot->reloadData();
  EXPECT_EQ(source.askedForRecords, 3);
  EXPECT_FALSE(plot->dataNeedsReloading());
}

TEST_F(CPTPlotTest, WithoutBulkEveryRecordIsAskedForOnce) {
  source.inBulk = false;
  plot->reloadData();
  EXPECT_EQ(plot->recordCount(), 3u);
  EXPECT_EQ(source.askedForNumbers, 6);
}

TEST_F(CPTPlotTest, RecordByRecordDrawsTheSameAsInBulk) {
  source.fields = {{10, kNaN, 30, 40, 50}, {1, 2, 3, kNaN, 5}};
  source.recordSymbols = {CPTPlotSymbol::starPlotSymbol(), std::nullopt};
  plot->setPlotSymbol(CPTPlotSymbol::plusPlotSymbol());
  plot->setDataNeedsReloading();
  const std::string inBulk = recorded(*graph);
  source.inBulk = false;
  plot->setDataNeedsReloading();
  EXPECT_EQ(recorded(*graph), inBulk);
}

TEST_F(CPTPlotTest, ASourceWithoutNumbersHasNoPoints) {
  class Silent : public CPTPlotDataSource {
    std::size_t numberOfRecords(const CPTPlot&) override { return 3; }
  } silent;
  plot->setDataSource(&silent);
  EXPECT_THAT(calls(recorded(*graph), {"stroke", "fill"}), IsEmpty());
  EXPECT_EQ(plot->recordCount(), 3u);
}

TEST_F(CPTPlotTest, AFurtherSourceReplacesTheFirst) {
  ListSource other({{50, 60}, {5, 6}});
  recorded(*graph);
  plot->setDataSource(&other);
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}),
              testing::ElementsAre("stroke #000000 width 1 join round: M 50 5 L 60 6"));
  plot->setDataSource(nullptr);
  EXPECT_THAT(calls(recorded(*graph), {"stroke"}), IsEmpty());
  EXPECT_EQ(plot->recordCount(), 0u);
}

TEST_F(CPTPlotTest, TheSeriesIsCutAtThePlotAreaAndItsLabelsAreNot) {
  const auto formatter = std::make_shared<NSNumberFormatter>();
  source.fields = {{100}, {100}};
  plot->setLabelFormatter(formatter);
  plot->setPlotSymbol(CPTPlotSymbol::plusPlotSymbol());
  graph->plotAreaFrame()->setMasksToBorder(false);
  const std::string text = recorded(*graph);
  const auto clip = text.find("clip M 0 0 L 100 0 L 100 100 L 0 100 Z", text.find("clip") + 1);
  const auto symbols = text.find("symbols"), label = text.find("text \"100\"");
  ASSERT_NE(symbols, std::string::npos);
  ASSERT_NE(label, std::string::npos);
  EXPECT_LT(clip, symbols);
  const std::string between = text.substr(symbols, label - symbols);
  EXPECT_THAT(between, testing::HasSubstr("restore"));
}

TEST_F(CPTPlotTest, EveryChangeAsksForDisplayAndARepetitionDoesNot) {
  const auto formatter = std::make_shared<NSNumberFormatter>();
  const auto space = std::make_shared<CPTXYPlotSpace>();
  const std::function<void()> changes[] = {
      [&] { plot->setPlotSpace(space); },
      [&] { plot->setLabelFormatter(formatter); },
      [&] { plot->setLabelTextStyle(CPTTextStyle{.fontSize = 3}); },
      [&] { plot->setLabelOffset(7); },
      [&] { plot->setLabelRotation(7); },
      [&] { plot->setPlotSymbol(CPTPlotSymbol::starPlotSymbol()); },
      [&] { plot->setDataLineStyle(std::nullopt); },
      [&] { plot->setInterpolation(CPTScatterPlotInterpolation::stepped); },
  };
  for (const auto& change : changes) {
    recorded(*graph);
    change();
    EXPECT_TRUE(plot->needsDisplay());
    recorded(*graph);
    change();
    EXPECT_FALSE(plot->needsDisplay());
  }
  EXPECT_EQ(source.askedForRecords, 1);
}

TEST_F(CPTPlotTest, APlotThatIsNotOnAGraphKnowsNone) {
  const CPTScatterPlot loose;
  EXPECT_EQ(loose.graph(), nullptr);
  EXPECT_EQ(loose.plotSpace(), nullptr);
  EXPECT_EQ(loose.dataSource(), nullptr);
  EXPECT_EQ(loose.identifier(), "");
}

/// A source that notes which records it is asked for.
class GrowingSource : public ListSource {
 public:
  using ListSource::ListSource;
  std::optional<CPTNumericData> numbers(const CPTPlot& p, unsigned field,
                                        CPTRecordRange range) override {
    if (inBulk) asked.push_back(range);
    return ListSource::numbers(p, field, range);
  }
  std::vector<std::optional<CPTPlotSymbol>> symbols(const CPTScatterPlot&,
                                                    CPTRecordRange range) override {
    askedSymbols.push_back(range);
    return std::vector<std::optional<CPTPlotSymbol>>(hasSymbols ? range.length : 0,
                                                     CPTPlotSymbol::plusPlotSymbol());
  }
  CPTColorList symbolColors(const CPTScatterPlot&, CPTRecordRange range) override {
    askedColors.push_back(range);
    return CPTColorList({CPTColor::redColor()}, std::vector<std::uint32_t>(range.length, 0));
  }
  std::vector<CPTRecordRange> asked, askedSymbols, askedColors;
  bool hasSymbols = true;
};

TEST_F(CPTPlotTest, AppendedRecordsAloneAreRead) {
  for (const bool inBulk : {true, false}) {
    GrowingSource growing({{10, 20}, {1, 2}});
    growing.inBulk = inBulk;
    plot->setDataSource(&growing);
    const std::string before = recorded(*graph);

    growing.fields = {{10, 20, 30, 40, 50}, {1, 2, 3, 4, 5}};
    growing.askedForNumbers = 0;
    plot->insertData(2, 2);
    plot->insertData(4, 1);
    EXPECT_TRUE(plot->needsDisplay());
    EXPECT_TRUE(plot->dataNeedsReloading());
    const std::string grown = recorded(*graph);
    EXPECT_EQ(plot->recordCount(), 5u);
    EXPECT_EQ(growing.askedSymbols.back(), (CPTRecordRange{2, 3}));
    EXPECT_EQ(growing.askedColors.back(), (CPTRecordRange{2, 3}));
    if (inBulk) {
      EXPECT_EQ(growing.asked.back(), (CPTRecordRange{0, 5}));
    } else {
      EXPECT_EQ(growing.askedForNumbers, 6);
    }
    EXPECT_NE(grown, before);
    plot->reloadData();
    EXPECT_EQ(recorded(*graph), grown);
  }
}

TEST_F(CPTPlotTest, InsertedOrVanishedRecordsAreReadAgain) {
  GrowingSource growing({{10, 20, 30}, {1, 2, 3}});
  plot->setDataSource(&growing);
  recorded(*graph);
  plot->insertData(3, 0);
  EXPECT_FALSE(plot->dataNeedsReloading());

  const auto nextAsked = [&] {
    recorded(*graph);
    return growing.askedSymbols.back();
  };
  plot->insertData(1, 1);
  EXPECT_EQ(nextAsked(), (CPTRecordRange{0, 3})) << "not at the end";
  plot->insertData(3, 1);
  plot->setDataNeedsReloading();
  EXPECT_EQ(nextAsked(), (CPTRecordRange{0, 3})) << "everything changed, too";
  plot->setDataNeedsReloading();
  plot->insertData(3, 1);
  EXPECT_EQ(nextAsked(), (CPTRecordRange{0, 3})) << "everything had changed";
  growing.fields = {{7}, {8}};
  plot->insertData(3, 1);
  EXPECT_EQ(nextAsked(), (CPTRecordRange{0, 1})) << "there is less than before";
  EXPECT_EQ(plot->recordCount(), 1u);
}

TEST_F(CPTPlotTest, AFieldOfFewerRecordsThanBeforeIsReadAgain) {
  class Source : public GrowingSource {
   public:
    using GrowingSource::GrowingSource;
    std::vector<std::shared_ptr<CPTTextLayer>> dataLabels(const CPTPlot&,
                                                          CPTRecordRange range) override {
      askedLabels.push_back(range);
      return {};
    }
    std::vector<CPTRecordRange> askedLabels;
  };
  Source shrinking({{10, 20, 30}, {1, 2, 3}});
  plot->setDataSource(&shrinking);
  recorded(*graph);
  shrinking.fields = {{10, 20, 30, 40}, {1}};
  plot->insertData(3, 1);
  recorded(*graph);
  EXPECT_EQ(plot->recordCount(), 1u);
  EXPECT_EQ(shrinking.askedLabels.back(), (CPTRecordRange{0, 1}));
  EXPECT_EQ(shrinking.askedSymbols.back(), (CPTRecordRange{0, 1}));
}

TEST_F(CPTPlotTest, AListOfSymbolsThatHasEndedDoesNotGoOn) {
  GrowingSource growing({{10, 20}, {1, 2}});
  growing.hasSymbols = false;
  plot->setDataSource(&growing);
  recorded(*graph);
  growing.fields = {{10, 20, 30}, {1, 2, 3}};
  growing.hasSymbols = true;
  plot->insertData(2, 1);
  EXPECT_EQ(calls(recorded(*graph), {"symbols"}).size(), 0u);
}

TEST_F(CPTPlotTest, TellsWhatItsRecordsSpan) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  const auto x = [&] { return plot->plotRangeForCoordinate(CPTCoordinate::X); };
  const auto y = [&](double floor = -kInfinity) {
    return plot->plotRangeForCoordinate(CPTCoordinate::Y, floor);
  };
  const auto show = [&](std::vector<double> xs, std::vector<double> ys) {
    source.fields = {std::move(xs), std::move(ys)};
    plot->setDataNeedsReloading();
  };
  show({}, {});
  EXPECT_EQ(x(), std::nullopt);
  show({kNaN, kInfinity}, {1, kNaN});
  EXPECT_EQ(x(), std::nullopt);
  EXPECT_EQ(y(), std::nullopt);
  show({5}, {-2});
  EXPECT_EQ(x(), CPTPlotRange(5, 0));
  show({5, 1, 9}, {-2, 0, 4});
  EXPECT_EQ(x(), CPTPlotRange(1, 8));
  EXPECT_EQ(y(), CPTPlotRange(-2, 6));
  EXPECT_EQ(y(0), CPTPlotRange(4, 0));
  show({-kLargest, kLargest}, {1, 2});
  EXPECT_EQ(x(), CPTPlotRange(-kLargest, kLargest)) << "no length is longer";
  plot->setDataSource(nullptr);
  EXPECT_EQ(x(), std::nullopt);

  ListSource barSource{{{4, 2}, {10, 30}, {-5, 7}}};
  const auto bars = addBars(*graph, barSource);
  EXPECT_EQ(bars->plotRangeForCoordinate(CPTCoordinate::X), CPTPlotRange(2, 2));
  EXPECT_EQ(bars->plotRangeForCoordinate(CPTCoordinate::Y), CPTPlotRange(0, 30));
  bars->setBarBasesVary(true);
  EXPECT_EQ(bars->plotRangeForCoordinate(CPTCoordinate::Y), CPTPlotRange(-5, 35));
  bars->setBarsAreHorizontal(true);
  EXPECT_EQ(bars->plotRangeForCoordinate(CPTCoordinate::Y), CPTPlotRange(2, 2));
}

}  // namespace
}  // namespace vexel
