#include <PlotColorTable/PlotCT.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <unordered_set>

#include <PlotColorTable/ColorTableCatalogue.h>
#include "PlotColorTable/ReplacedCatalogue.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;
using testing::SizeIs;

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();

struct Row {
  PlotCT::Case table;
  const char* description;
  const char* family;
  std::int64_t number;
  const ColorTableFamily& (*tables)();
};

const Row kRows[] = {
    {PlotCT::idlBWLinear, "IDL: B-W LINEAR", "IDL", 0, idlColorTables},
    {PlotCT::idlBlueWhite, "IDL: Blue/White", "IDL", 1, idlColorTables},
    {PlotCT::idlGreenRedBlueWhite, "IDL: Green-Red-Blue-White", "IDL", 2, idlColorTables},
    {PlotCT::idlGreenPink, "IDL: Green-Pink", "IDL", 10, idlColorTables},
    {PlotCT::idlBlueRed, "IDL: Blue-Red", "IDL", 11, idlColorTables},
    {PlotCT::idl16Level, "IDL: 16 Level", "IDL", 12, idlColorTables},
    {PlotCT::idlRainbow, "IDL: IDL Rainbow", "IDL", 13, idlColorTables},
    {PlotCT::gmtHaxby, "GMT: Haxby", "gmt", 7, gmtColorTables},
    {PlotCT::gmtHot, "GMT: Hot", "gmt", 8, gmtColorTables},
    {PlotCT::gmtNoGreen, "GMT: No Green", "gmt", 10, gmtColorTables},
    {PlotCT::gmtPanoply, "GMT: Panoply", "gmt", 12, gmtColorTables},
    {PlotCT::gmtPolar, "GMT: Polar", "gmt", 13, gmtColorTables},
    {PlotCT::gmtRainbow, "GMT: Rainbow", "gmt", 14, gmtColorTables},
    {PlotCT::gmtWysiwyg, "GMT: WYSIWYG", "gmt", 21, gmtColorTables},
    {PlotCT::brewerPuBuGn, "Brewer: PuBuGn (Sequential)", "brewer", 17, brewerColorTables},
    {PlotCT::brewerRdBu, "Brewer: RdBu (Diverging)", "brewer", 21, brewerColorTables},
    {PlotCT::brewerSpectral, "Brewer: Spectral (Diverging)", "brewer", 30, brewerColorTables},
    {PlotCT::qormMinTop, "Qorm: Min-Top", "qorm", 11, qormColorTables},
    {PlotCT::xanCyanotype01, "Xan: Cyanotype 01", "xan", 16, xanColorTables},
};

TEST(PlotCT, HasNoCaseForOtherRawValues) {
  for (const std::int64_t raw : {kLeast, kGreatest, std::int64_t{-1}, std::int64_t{19},
                                 std::int64_t{256}, std::int64_t{1} << 32})
    EXPECT_EQ(PlotCT::fromRawValue(raw), std::nullopt) << raw;
}

TEST(PlotCT, HasNineteenCasesWithNameFamilyAndNumber) {
  std::int64_t raw = 0;
  for (const Row& row : kRows) {
    const PlotCT table = row.table;
    EXPECT_EQ(table.rawValue(), raw);
    EXPECT_EQ(PlotCT::fromRawValue(raw), table);
    EXPECT_EQ(table.description(), row.description);
    EXPECT_EQ(table.family(), row.family);
    EXPECT_EQ(table.number(), row.number);
    ++raw;
  }
  EXPECT_EQ(raw, 19);
}

TEST(PlotCT, ListsItsTablesInTheOrderOfRawValues) {
  ASSERT_THAT(PlotCT::getTables(), SizeIs(19));
  ASSERT_THAT(PlotCT::getTableNames(), SizeIs(19));
  ASSERT_THAT(PlotCT::getTableDictionary(), SizeIs(19));
  for (std::size_t i = 0; i < 19; ++i) {
    EXPECT_EQ(PlotCT::getTables()[i], kRows[i].table);
    EXPECT_EQ(PlotCT::getTableNames()[i], kRows[i].description);
    EXPECT_EQ(PlotCT::getTableDictionary().at(static_cast<std::int64_t>(i)).rawValue(), i);
  }
}

TEST(PlotCT, FindsATableByNumberAndFamily) {
  for (const Row& row : kRows) EXPECT_EQ(PlotCT::getTable(row.number, row.family), row.table);
}

TEST(PlotCT, FallsBackToSixteenLevelsForAPairThatNoCaseHas) {
  const struct {
    std::int64_t number;
    const char* family;
  } kPairs[] = {{13, "idl"}, {13, ""},        {7, "GMT"},          {33, "IDL"},    {11, "gmt"},
                {-1, "IDL"}, {kLeast, "xan"}, {kGreatest, "qorm"}, {17, "Brewer"}, {12, "IDL "}};
  for (const auto& [number, family] : kPairs)
    EXPECT_EQ(PlotCT::getTable(number, family), PlotCT::idl16Level) << number << family;
}

TEST(PlotCT, GivesEveryColourOfEveryTable) {
  for (const Row& row : kRows) {
    const ColorTable& entries = row.tables().at(row.number);
    const PlotCT table = row.table;
    for (const std::int64_t i : {0, 1, 100, 128, 254, 255}) {
      const ColorTableEntry& entry = entries[static_cast<std::size_t>(i)];
      const double r = entry[0] / 255, g = entry[1] / 255, b = entry[2] / 255;
      EXPECT_EQ(table.getColor(i), NSColor::colorWithRed(r, g, b, 1.0));
      EXPECT_EQ(table.getCGColor(i), CGColor::genericRGB(r, g, b, 1.0));
      EXPECT_EQ(table.getCPTColor(i), CPTColor(CGColor::genericRGB(r, g, b, 1.0)));
    }
  }
}

TEST(PlotCT, HasNoColourOutsideTheTable) {
  const PlotCT table = PlotCT::gmtHaxby;
  for (const std::int64_t index : {std::int64_t{256}, kGreatest}) {
    EXPECT_EQ(table.getColor(index), std::nullopt);
    EXPECT_EQ(table.getCGColor(index), std::nullopt);
    EXPECT_EQ(table.getCPTColor(index), std::nullopt);
  }
  for (const std::int64_t index : {std::int64_t{-1}, kLeast}) {
    EXPECT_EQ(table.getColor(index), std::nullopt);
    EXPECT_EQ(table.getCGColor(index), std::nullopt);
  }
}

TEST(PlotCTDeathTest, RefusesANegativeIndexForTheChartEngine) {
  EXPECT_DEATH(PlotCT(PlotCT::gmtHaxby).getCPTColor(-1), "Fatal error: .*negative");
  EXPECT_DEATH(PlotCT(PlotCT::gmtHaxby).getCPTColor(kLeast), "Fatal error: .*negative");
}

TEST(PlotCT, HasNoColourInAnEmptyTable) {
  const ReplacedCatalogue catalogue({{"gmt", {{7, {}}}}});
  const PlotCT table = PlotCT::gmtHaxby;
  for (const std::int64_t index : {-1, 0, 100}) {
    EXPECT_EQ(table.getColor(index), std::nullopt);
    EXPECT_EQ(table.getCGColor(index), std::nullopt);
    EXPECT_EQ(table.getCPTColor(index), std::nullopt);
  }
  EXPECT_EQ(table.image(), std::nullopt);
}

TEST(PlotCT, HasAPreviewOnePixelWideAndAPointPerEntryHigh) {
  for (const PlotCT table : PlotCT::getTables()) {
    const auto image = table.image();
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{1, 256}));
    EXPECT_EQ(image->cgImage()->width(), 1u);
    EXPECT_EQ(image->cgImage()->height(), 256u);
    EXPECT_EQ(image->cgImage()->premultipliedARGB(0, 0), 0xff000000u);
  }
}

TEST(PlotCT, ShowsTheHighEndOnTopButOnePixelTooLow) {
  const auto image = PlotCT(PlotCT::gmtHaxby).image()->cgImage();
  const ColorTable& entries = gmtColorTables().at(7);
  for (std::size_t row = 1; row < 256; ++row) {
    const ColorTableEntry& entry = entries[256 - row];
    const auto expected = 0xff000000u | static_cast<unsigned>(entry[0]) << 16 |
                          static_cast<unsigned>(entry[1]) << 8 | static_cast<unsigned>(entry[2]);
    EXPECT_EQ(image->premultipliedARGB(0, row), expected) << row;
  }
}

class PlotCTLog : public LogFixture {};

TEST_F(PlotCTLog, BuildsTheTableForEveryAnswer) {
  DDLog::setDynamicLevel(DDLogLevel::debug);
  const auto recorder = addRecorder();
  const PlotCT table = PlotCT::xanCyanotype01;
  table.getColor(0);
  table.getCGColor(0);
  table.getCPTColor(0);
  table.getColor(256);
  table.image();
  EXPECT_THAT(recorder->texts(), SizeIs(5));
  EXPECT_THAT(recorder->texts(),
              testing::Each(MatchesRegex(
                  "PlotColorTable\\.init\\(ct:family:\\):[0-9]+ Loaded color table Xan #16")));
}

TEST_F(PlotCTLog, IsNotTroubledByLists) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  const auto recorder = addRecorder();
  PlotCT::getTables();
  PlotCT::getTableNames();
  PlotCT::getTable(3, "IDL");
  EXPECT_THAT(recorder->texts(), testing::IsEmpty());
}

TEST(PlotCT, IsHashedByItsRawValue) {
  const auto tables = PlotCT::getTables();
  const std::unordered_set<PlotCT> set(tables.begin(), tables.end());
  EXPECT_THAT(set, SizeIs(19));
  EXPECT_TRUE(set.contains(PlotCT::gmtHot));
}

TEST(PlotCT, AnnouncesAnotherChoiceByThatName) {
  EXPECT_EQ(PlotCT::colourTableDidChange(), "PlotCT.colourTableDidChange");
}

TEST(PlotCTDeathTest, RefusesARawValueOutsideItsCases) {
  const PlotCT table = static_cast<PlotCT::Case>(19);
  EXPECT_DEATH(table.rawValue(), "Fatal error: PlotCT: unexpected raw value 19");
  EXPECT_DEATH(table.description(), "unexpected raw value 19");
  EXPECT_DEATH(table.getColor(0), "unexpected raw value 19");
}

}  // namespace
}  // namespace vexel
