#include "TimeColumn.h"

#include <limits>

#include <gmock/gmock.h>

#include "InputError.h"

namespace explorer {
namespace {

constexpr double absent = std::numeric_limits<double>::quiet_NaN();

Table tableOf(const std::vector<std::string>& names) {
  Table table;
  for (const auto& name : names) table.columns.push_back({name, {absent, 1}});
  return table;
}

std::string errorOf(const Table& table, const std::optional<std::string>& requested) {
  try {
    timeColumn(table, requested, "a.csv");
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(TimeColumn, IsFoundByName) {
  struct Case {
    std::vector<std::string> names;
    std::optional<std::size_t> found;
  };
  const Case cases[] = {
      {{}, std::nullopt},
      {{"time", "date", "day"}, std::nullopt},
      {{"MJD", "jdx", "ajd", "jd2000"}, std::nullopt},
      {{"Juli an"}, std::nullopt},
      {{"Flux", "Julian date"}, 1},
      {{"JULIAN DAY", "JD"}, 0},
      {{"Flux", "jd"}, 1},
      {{"MJD", "Time (JD)"}, 1},
      {{"x", "JD [days]"}, 1},
      {{"x", "jd_utc"}, 1},
      {{"x", "t/jd"}, 1},
      {{"x", "julian"}, 1},
      {{"Julian year", "x", "Julian date"}, 2},
      {{"Julian year", "x"}, 0},
  };
  for (const auto& c : cases) {
    const Table table = tableOf(c.names);
    if (c.found)
      EXPECT_EQ(timeColumn(table, std::nullopt, "a.csv"), c.found)
          << testing::PrintToString(c.names);
    else
      EXPECT_THROW(timeColumn(table, std::nullopt, "a.csv"), InputError)
          << testing::PrintToString(c.names);
  }
}

TEST(TimeColumn, TheRequestedOneWins) {
  const Table table = tableOf({"Julian date", "Flux", "flux", "Orbit"});
  EXPECT_EQ(timeColumn(table, "Flux", "a.csv"), 1);
  EXPECT_EQ(timeColumn(table, "flux", "a.csv"), 2);
  EXPECT_EQ(timeColumn(table, "FLUX", "a.csv"), 1);
  EXPECT_EQ(timeColumn(table, " orbit ", "a.csv"), 3);
}

TEST(TimeColumn, AnUnknownNameIsAnsweredWithTheNamesThatWouldDo) {
  EXPECT_EQ(errorOf(tableOf({"Julian date", "Flux"}), "speed"),
            "a.csv: there is no column \"speed\"; there are \"Julian date\", \"Flux\"");
  EXPECT_EQ(errorOf(tableOf({"Julian date"}), ""),
            "a.csv: there is no column \"\"; there are \"Julian date\"");
}

TEST(TimeColumn, AMissingOneIsAnsweredWithTheNamesToChooseFrom) {
  EXPECT_EQ(
      errorOf(tableOf({"a", "b"}), std::nullopt),
      "a.csv: there is no time column, such as \"Julian date\" or \"JD\"; choose one with --x "
      "from \"a\", \"b\"");
}

TEST(TimeColumn, TheListOfNamesIsNotEndless) {
  std::vector<std::string> names(10'000);
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = "c" + std::to_string(i);
  EXPECT_THAT(errorOf(tableOf(names), "x"), testing::EndsWith("\"c18\", \"c19\" and 9980 more"));
}

TEST(TimeColumn, MustHoldANumber) {
  Table table = tableOf({"JD", "x"});
  table.columns[0].values = {absent, absent};
  EXPECT_EQ(errorOf(table, std::nullopt), "a.csv: the time column \"JD\" holds no number");
  table.columns[0].values.clear();
  EXPECT_EQ(errorOf(table, "jd"), "a.csv: the time column \"JD\" holds no number");
  table.columns[0].values = {absent, std::numeric_limits<double>::infinity()};
  EXPECT_EQ(errorOf(table, "jd"), "a.csv: the time column \"JD\" holds no number");
  table.columns[0].values = {absent, -1e300};
  EXPECT_EQ(timeColumn(table, std::nullopt, "a.csv"), 0);
}

}  // namespace
}  // namespace explorer
