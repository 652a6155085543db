#include <PlotTheme/PlotTheme.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <thread>
#include <unordered_set>

#include "PlotTheme/MissingThemes.h"

namespace vexel {
namespace {

constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
constexpr auto kMost = std::numeric_limits<std::int64_t>::max();

const PlotTheme kThemes[] = {PlotTheme::black, PlotTheme::white, PlotTheme::print};

PlotTheme unknownTheme(std::int64_t rawValue) {
  return PlotTheme(static_cast<PlotTheme::Case>(rawValue));
}

TEST(PlotTheme, HasTheRawValuesZeroToTwoInOrder) {
  std::int64_t rawValue = 0;
  for (const PlotTheme theme : kThemes) {
    EXPECT_EQ(theme.rawValue(), rawValue);
    EXPECT_EQ(PlotTheme::fromRawValue(rawValue), theme);
    ++rawValue;
  }
}

TEST(PlotTheme, IsAbsentForAnyOtherRawValue) {
  for (const std::int64_t rawValue :
       {kLeast, kMost, kLeast + 1, std::int64_t{-1}, std::int64_t{-2}, std::int64_t{3},
        std::int64_t{4}, std::int64_t{256}, std::int64_t{1} << 32, -(std::int64_t{1} << 32)})
    EXPECT_EQ(PlotTheme::fromRawValue(rawValue), std::nullopt) << rawValue;
}

TEST(PlotTheme, IsEqualToItselfAndToNoOther) {
  for (const PlotTheme a : kThemes)
    for (const PlotTheme b : kThemes) EXPECT_EQ(a == b, a.rawValue() == b.rawValue());
}

TEST(PlotTheme, HashesAsItsRawValue) {
  for (const PlotTheme theme : kThemes)
    EXPECT_EQ(std::hash<PlotTheme>{}(theme), std::hash<std::int64_t>{}(theme.rawValue()));
  const std::unordered_set<PlotTheme> set(std::begin(kThemes), std::end(kThemes));
  EXPECT_EQ(set.size(), 3u);
}

TEST(PlotTheme, DescribesItself) {
  EXPECT_EQ(PlotTheme(PlotTheme::black).description(), "Black Theme");
  EXPECT_EQ(PlotTheme(PlotTheme::white).description(), "White Theme");
  EXPECT_EQ(PlotTheme(PlotTheme::print).description(), "Print Theme");
}

TEST(PlotTheme, NamesThePlainThemeOfTheChartEngine) {
  EXPECT_EQ(PlotTheme(PlotTheme::black).cpTheme()->name(), kCPTPlainBlackTheme);
  EXPECT_EQ(PlotTheme(PlotTheme::white).cpTheme()->name(), kCPTPlainWhiteTheme);
  EXPECT_EQ(PlotTheme(PlotTheme::print).cpTheme()->name(), kCPTPlainWhiteTheme);
}

TEST(PlotTheme, GivesAThemeOfTheChartEngineThatIsNobodyElses) {
  const PlotTheme theme = PlotTheme::white;
  EXPECT_NE(theme.cpTheme(), theme.cpTheme());
}

TEST(PlotTheme, HasGridLinesOfHalfAPoint) {
  for (const PlotTheme theme : kThemes) EXPECT_EQ(theme.gridLineWidth(), 0.5);
}

TEST(PlotTheme, HasItsColours) {
  const struct {
    const char* property;
    NSColor (PlotTheme::*color)() const;
    NSColor dark;
    NSColor light;
  } rows[] = {
      {"plotColor", &PlotTheme::plotColor, NSColor::whiteColor(), NSColor::blackColor()},
      {"symbolLineColor", &PlotTheme::symbolLineColor, NSColor::grayColor(),
       NSColor::darkGrayColor()},
      {"labelColor", &PlotTheme::labelColor, NSColor::lightGrayColor(), NSColor::darkGrayColor()},
      {"markerColor", &PlotTheme::markerColor, NSColor::darkGrayColor(), NSColor::lightGrayColor()},
      {"fillColor", &PlotTheme::fillColor, NSColor::darkGrayColor(), NSColor::lightGrayColor()},
      {"gridLineColor", &PlotTheme::gridLineColor, NSColor::darkGrayColor(),
       NSColor::lightGrayColor()},
  };
  for (const auto& row : rows) {
    EXPECT_EQ((PlotTheme(PlotTheme::black).*row.color)(), row.dark) << row.property;
    EXPECT_EQ((PlotTheme(PlotTheme::white).*row.color)(), row.light) << row.property;
    EXPECT_EQ((PlotTheme(PlotTheme::print).*row.color)(), row.light) << row.property;
  }
}

TEST(PlotTheme, HasItsColoursOfTheChartEngineWithAGridOfAnotherGreyThanTheViews) {
  const CPTColor veryLightGray = CPTColor::colorWithGenericGray(0.8);
  const struct {
    const char* property;
    CPTColor (PlotTheme::*color)() const;
    CPTColor dark;
    CPTColor light;
  } rows[] = {
      {"plotCPTColor", &PlotTheme::plotCPTColor, CPTColor::whiteColor(), CPTColor::blackColor()},
      {"symbolLineCPTColor", &PlotTheme::symbolLineCPTColor, CPTColor::grayColor(),
       CPTColor::darkGrayColor()},
      {"fillCPTColor", &PlotTheme::fillCPTColor, CPTColor::darkGrayColor(),
       CPTColor::lightGrayColor()},
      {"markerCPTColor", &PlotTheme::markerCPTColor, CPTColor::darkGrayColor(), veryLightGray},
      {"gridLineCPTColor", &PlotTheme::gridLineCPTColor, CPTColor::darkGrayColor(), veryLightGray},
  };
  for (const auto& row : rows) {
    EXPECT_EQ((PlotTheme(PlotTheme::black).*row.color)(), row.dark) << row.property;
    EXPECT_EQ((PlotTheme(PlotTheme::white).*row.color)(), row.light) << row.property;
    EXPECT_EQ((PlotTheme(PlotTheme::print).*row.color)(), row.light) << row.property;
  }
}

TEST(PlotTheme, NamesTheNotificationOfAChangeOnceForAllThreads) {
  const std::string* first = nullptr;
  const std::string* second = nullptr;
  std::thread a([&] { first = &PlotTheme::didChange(); });
  std::thread b([&] { second = &PlotTheme::didChange(); });
  a.join();
  b.join();
  EXPECT_EQ(PlotTheme::didChange(), "PlotTheme.didChange");
  EXPECT_EQ(first, second);
}

class PlotThemeDeathTest : public testing::TestWithParam<std::int64_t> {};

TEST_P(PlotThemeDeathTest, EveryPropertyOfAValueOutsideItsCasesStopsTheProcess) {
  const PlotTheme theme = unknownTheme(GetParam());
  const std::pair<const char*, std::function<void()>> properties[] = {
      {"rawValue", [&] { (void)theme.rawValue(); }},
      {"description", [&] { theme.description(); }},
      {"cpTheme", [&] { theme.cpTheme(); }},
      {"gridLineWidth", [&] { theme.gridLineWidth(); }},
      {"plotColor", [&] { theme.plotColor(); }},
      {"plotCPTColor", [&] { theme.plotCPTColor(); }},
      {"symbolLineColor", [&] { theme.symbolLineColor(); }},
      {"symbolLineCPTColor", [&] { theme.symbolLineCPTColor(); }},
      {"labelColor", [&] { theme.labelColor(); }},
      {"markerColor", [&] { theme.markerColor(); }},
      {"markerCPTColor", [&] { theme.markerCPTColor(); }},
      {"fillColor", [&] { theme.fillColor(); }},
      {"fillCPTColor", [&] { theme.fillCPTColor(); }},
      {"gridLineColor", [&] { theme.gridLineColor(); }},
      {"gridLineCPTColor", [&] { theme.gridLineCPTColor(); }},
  };
  for (const auto& [name, read] : properties)
    EXPECT_DEATH(read(), "Fatal error: .*PlotTheme.*" + std::to_string(GetParam())) << name;
}

INSTANTIATE_TEST_SUITE_P(RawValues, PlotThemeDeathTest, testing::Values(kLeast, -1, 3, kMost));

TEST(MissingThemesDeathTest, AThemeThatTheChartEngineDoesNotHaveStopsTheProcess) {
  EXPECT_DEATH(
      {
        const MissingThemes missing;
        PlotTheme(PlotTheme::print).cpTheme();
      },
      "Fatal error: .*Plain White");
}

}  // namespace
}  // namespace vexel
