#include "CellValue.h"

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace explorer {
namespace {

TEST(CellValue, WhatIsNoNumberIsUnreadable) {
  const char* cells[] = {
      "inf",   "-inf",    "Infinity", "1e400",      "-1e400", "1e-400", "1e99999999999999999999",
      "nan()", "nan(1)",  "nanx",     "0x1F",       "0x",     "1,5",    "1.234,5",
      "1 000", "1'000",   "1_000",    "1.2.3",      "1e",     "1e+",    "e5",
      "+",     "-",       "++1",      "+-1",        "-+1",    "--1",    ".",
      "1-",    "1d5",     "1f",       "12abc",      "abc",    "#1",     "# comment",
      "NA",    "null",    "true",     "2020-01-01", "12:30",  "1/2",    "50%",
      "\"1\"", "\u00A01", "\u22121",  "1\n2",
  };
  for (const char* cell : cells) EXPECT_EQ(cellValue(cell), std::nullopt) << cell;
  EXPECT_EQ(cellValue(std::string_view("1\0", 2)), std::nullopt);
  EXPECT_EQ(cellValue(std::string(100'000, '(')), std::nullopt);
}

TEST(CellValue, EmptyAndNanAreAbsent) {
  for (const char* cell : {"", " ", " \t ", "nan", "NaN", "NAN", "-nan", "+NaN", "  nan\t"}) {
    const auto value = cellValue(cell);
    ASSERT_TRUE(value.has_value()) << cell;
    EXPECT_TRUE(std::isnan(*value)) << cell;
  }
}

TEST(CellValue, ReadsDecimalNumbersExactly) {
  struct Case {
    std::string cell;
    double value;
  };
  const Case cases[] = {
      {"0", 0},
      {"-0", -0.0},
      {"0e999999", 0},
      {"1.7976931348623157e308", std::numeric_limits<double>::max()},
      {"-1.7976931348623157E+308", std::numeric_limits<double>::lowest()},
      {"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
      {"2.2250738585072014e-308", std::numeric_limits<double>::min()},
      {"2459029.4166666665", 2459029.4166666665},
      {"0.1", 0.1},
      {"9007199254740993", 9007199254740992},
      {"+1.5", 1.5},
      {"+.5", 0.5},
      {"-.5", -0.5},
      {"5.", 5},
      {"007", 7},
      {"1E3", 1000},
      {"1e-03", 0.001},
      {"  42\t", 42},
      {std::string(500, '0') + "1", 1},
      {"1" + std::string(308, '0'), 1e308},
      {"0." + std::string(300, '0') + "1", 1e-301},
  };
  for (const auto& c : cases) {
    const auto value = cellValue(c.cell);
    ASSERT_TRUE(value.has_value()) << c.cell;
    EXPECT_EQ(*value, c.value) << c.cell;
    EXPECT_EQ(std::signbit(*value), std::signbit(c.value)) << c.cell;
  }
}

TEST(CellValue, DoesNotDependOnTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8"}) {
    std::setlocale(LC_ALL, locale);
    EXPECT_EQ(cellValue("1.5"), 1.5);
    EXPECT_EQ(cellValue("1,5"), std::nullopt);
  }
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace explorer
