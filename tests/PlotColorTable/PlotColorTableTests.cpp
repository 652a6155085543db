#include "PlotColorTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "PlotColorTable/ReplacedCatalogue.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;

class PlotColorTableLog : public LogFixture {
 protected:
  /// What building the table writes to the log at that level.
  std::vector<std::string> written(std::int64_t number, const std::string& family,
                                   DDLogLevel level = DDLogLevel::all) {
    DDLog::setDynamicLevel(level);
    const auto recorder = addRecorder();
    const PlotColorTable table(number, family);
    log().removeLogger(recorder);
    return recorder->texts();
  }
};

TEST_F(PlotColorTableLog, NamesTheLoadedTableInTheWayOfItsFamily) {
  const std::string place = "PlotColorTable\\.init\\(ct:family:\\):[0-9]+ ";
  struct {
    std::int64_t number;
    const char* family;
    const char* text;
  } const kCases[] = {
      {0, "IDL", "Loaded color table IDL #0"},     {48, "IDL", "Loaded color table IDL #48"},
      {7, "gmt", "Loaded color table GMT #7"},     {17, "brewer", "Loaded color table Brewer #17"},
      {11, "qorm", "Loaded color table Qorm #11"}, {16, "xan", "Loaded color table Xan #16"},
  };
  for (const auto& [number, family, text] : kCases)
    EXPECT_THAT(written(number, family), ElementsAre(MatchesRegex(place + text)));
}

TEST_F(PlotColorTableLog, SaysThatATableIsUndefinedAndLoadsTheDefault) {
  struct {
    std::int64_t number;
    const char* family;
    const char* name;
  } const kCases[] = {
      {13, "", " #13"},
      {13, "idl", "idl #13"},
      {7, "GMT", "GMT #7"},
      {17, "Brewer", "Brewer #17"},
      {3, "IDL", "IDL #3"},
      {9, "gmt", "gmt #9"},
      {-1, "qorm", "qorm #-1"},
      {std::numeric_limits<std::int64_t>::min(), "xan", "xan #-9223372036854775808"},
  };
  for (const auto& [number, family, name] : kCases)
    EXPECT_THAT(
        written(number, family),
        ElementsAre(
            MatchesRegex(std::string("PlotColorTable\\.init\\(ct:family:\\):[0-9]+ Undefined color "
                                     "table ") +
                         name + " - load default"),
            MatchesRegex("PlotColorTable\\.loadDefaultTable\\(\\):[0-9]+ Loaded default color "
                         "table IDL #13")));
}

TEST_F(PlotColorTableLog, WritesWhatTheLevelIncludes) {
  for (const auto level : {DDLogLevel::debug, DDLogLevel::verbose, DDLogLevel::all}) {
    EXPECT_THAT(written(13, "IDL", level), SizeIs(1));
    EXPECT_THAT(written(13, "idl", level), SizeIs(2));
  }
  for (const auto level : {DDLogLevel::error, DDLogLevel::warning, DDLogLevel::info}) {
    EXPECT_THAT(written(13, "IDL", level), IsEmpty());
    EXPECT_THAT(written(13, "idl", level),
                ElementsAre(MatchesRegex(".*Undefined color table idl #13 - load default")));
  }
  EXPECT_THAT(written(13, "IDL", DDLogLevel::off), IsEmpty());
  EXPECT_THAT(written(13, "idl", DDLogLevel::off), IsEmpty());
}

TEST_F(PlotColorTableLog, FlagsMessagesAndSaysWhereTheyComeFrom) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  const auto recorder = addRecorder();
  const PlotColorTable loaded(13, "IDL");
  const PlotColorTable undefined(13, "idl");
  const auto messages = recorder->messages();
  ASSERT_THAT(messages, SizeIs(3));
  EXPECT_EQ(messages[0].flag, DDLogFlag::debug);
  EXPECT_EQ(messages[1].flag, DDLogFlag::error);
  EXPECT_EQ(messages[2].flag, DDLogFlag::debug);
  for (const DDLogMessage& message : messages) {
    EXPECT_EQ(message.file, "PlotColorTable.cpp");
    EXPECT_THAT(message.message, testing::StartsWith("PlotColorTable." + message.function + ":" +
                                                     std::to_string(message.line) + " "));
  }
}

TEST_F(PlotColorTableLog, NamesTheSameLineForTheSameMessage) {
  const auto first = written(13, "idl");
  EXPECT_EQ(written(13, "idl"), first);
}

TEST(PlotColorTable, HoldsTheEntriesAndTheirColours) {
  const PlotColorTable table(21, "brewer");
  const ColorTable& entries = brewerColorTables().at(21);
  EXPECT_EQ(table.entries(), entries);
  ASSERT_THAT(table.colors(), SizeIs(256));
  for (std::size_t i = 0; i < entries.size(); ++i)
    EXPECT_EQ(table.colors()[i],
              NSColor::colorWithRed(entries[i][0] / 255, entries[i][1] / 255, entries[i][2] / 255));
}

class QuietLog : public LogFixture {};

TEST_F(QuietLog, TheDefaultIsTheIdlRainbow) {
  EXPECT_EQ(PlotColorTable(13, "none").entries(), idlColorTables().at(13));
  EXPECT_EQ(PlotColorTable(9, "gmt").entries(), idlColorTables().at(13));
}

TEST(PlotColorTable, AsksForNoFamilyButItsOwn) {
  const ReplacedCatalogue catalogue;
  const PlotColorTable table(7, "gmt");
  EXPECT_THAT(catalogue.askedFor(), ElementsAre("gmt"));
}

TEST_F(QuietLog, TheDefaultAsksForIdlOnly) {
  const ReplacedCatalogue catalogue;
  const PlotColorTable table(7, "none");
  EXPECT_THAT(catalogue.askedFor(), ElementsAre("IDL"));
}

TEST(PlotColorTable, IgnoresComponentsBeyondTheThird) {
  const ReplacedCatalogue catalogue({{"gmt", {{1, {{51, 102, 153, 7}}}}}});
  const PlotColorTable table(1, "gmt");
  EXPECT_THAT(table.colors(), ElementsAre(NSColor::colorWithRed(0.2, 0.4, 0.6)));
  EXPECT_THAT(table.entries(), ElementsAre(ElementsAre(51, 102, 153, 7)));
}

TEST(PlotColorTable, MayBeEmpty) {
  const ReplacedCatalogue catalogue({{"gmt", {{1, {}}}}});
  EXPECT_THAT(PlotColorTable(1, "gmt").colors(), IsEmpty());
  EXPECT_THAT(PlotColorTable(1, "gmt").entries(), IsEmpty());
}

TEST(PlotColorTableDeathTest, NeedsThreeComponentsPerEntry) {
  const ReplacedCatalogue catalogue({{"gmt", {{1, {{1, 2, 3}, {1, 2}}}}}});
  EXPECT_DEATH(PlotColorTable(1, "gmt"), "Fatal error: .*three components");
}

TEST(PlotColorTableDeathTest, NeedsTheDefaultTable) {
  const ReplacedCatalogue catalogue({{"IDL", ColorTableFamily()}});
  DDLog::setDynamicLevel(DDLogLevel::off);
  // Without a log line of its own.
  EXPECT_DEATH(PlotColorTable(13, "none"),
               "^Fatal error: PlotColorTable\\.loadDefaultTable\\(\\):[0-9]+ Default color table "
               "IDL #13 does not exist!");
  EXPECT_DEATH(PlotColorTable(13, "IDL"), "Default color table IDL #13 does not exist!");
  DDLog::setDynamicLevel(DDLog::defaultDynamicLevel);
}

}  // namespace
}  // namespace vexel
