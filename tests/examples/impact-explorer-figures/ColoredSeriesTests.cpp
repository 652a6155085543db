#include "ColoredSeries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "InputError.h"

namespace explorer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Table table() {
  return {{{"Empty", {kNaN, kNaN}},
           {"Day", {2459000.5, 2459001.5}},
           {"Charge", {1, 2}},
           {"Speed", {3, 40}},
           {"Mass", {5, 6}}}};
}

std::string errorOf(const Table& input, const std::optional<std::string>& value,
                    const std::optional<std::string>& color) {
  try {
    coloredSeries(input, 1, value, color, "file.csv");
  } catch (const InputError& error) {
    return error.what();
  }
  return "none";
}

TEST(ColoredSeries, RefusesNamesThatNoColumnHas) {
  EXPECT_THAT(errorOf(table(), "Size", std::nullopt), HasSubstr("Size"));
  EXPECT_THAT(errorOf(table(), std::nullopt, "Size"), HasSubstr("Size"));
}

TEST(ColoredSeries, NeedsTwoColumnsBesidesTheTime) {
  Table small = table();
  small.columns.resize(3);
  EXPECT_THAT(errorOf(small, std::nullopt, std::nullopt), HasSubstr("file.csv: two columns"));
  EXPECT_THAT(errorOf(small, "Charge", std::nullopt), HasSubstr("two columns"));
  EXPECT_THAT(errorOf(small, std::nullopt, "Charge"), HasSubstr("two columns"));
}

TEST(ColoredSeries, ShowsTheFirstTwoColumnsThatHoldNumbers) {
  const ColoredSeries series = coloredSeries(table(), 1, std::nullopt, std::nullopt, "file.csv");
  EXPECT_EQ(series.band.title, "Charge");
  EXPECT_EQ(series.band.style, BandStyle::symbols);
  EXPECT_THAT(series.band.times, ElementsAre(2459000.5, 2459001.5));
  EXPECT_THAT(series.band.values, ElementsAre(1, 2));
  EXPECT_EQ(series.coding.title, "Speed");
  EXPECT_THAT(series.coding.values, ElementsAre(3, 40));
}

TEST(ColoredSeries, ShowsTheColumnsThatAreChosen) {
  const ColoredSeries one = coloredSeries(table(), 1, "mass", "charge", "file.csv");
  EXPECT_EQ(one.band.title, "Mass");
  EXPECT_EQ(one.coding.title, "Charge");
  const ColoredSeries same = coloredSeries(table(), 1, "Speed", "Speed", "file.csv");
  EXPECT_EQ(same.band.title, "Speed");
  EXPECT_EQ(same.coding.title, "Speed");
  EXPECT_EQ(coloredSeries(table(), 1, std::nullopt, "Charge", "file.csv").band.title, "Speed");
  EXPECT_EQ(coloredSeries(table(), 1, std::nullopt, "Day", "file.csv").coding.title, "Day");
}

}  // namespace
}  // namespace explorer
