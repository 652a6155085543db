#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <ctime>
#include <locale>
#include <sstream>

// The whole suite relies on these conditions: code that reads or writes numbers or times in the
// locale or zone of users is to fail here, not at their desks.

namespace {

long secondsEastOfGreenwich(std::time_t when) {
  std::tm local{};
  localtime_r(&when, &local);
  return local.tm_gmtoff;
}

}  // namespace

TEST(Environment, NumbersHaveADecimalCommaForC) {
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "%.1f", 0.5);
  EXPECT_STREQ(text.data(), "0,5");
}

TEST(Environment, NumbersHaveADecimalCommaForStreams) {
  std::ostringstream text;
  text << 1234.5;
  EXPECT_EQ(text.str(), "1.234,5");
}

TEST(Environment, SummerTimeDiffersFromWinterTime) {
  constexpr std::time_t kJanuary = 1704067200;  // 2024-01-01 00:00 UTC
  constexpr std::time_t kJuly = 1719792000;     // 2024-07-01 00:00 UTC
  EXPECT_EQ(secondsEastOfGreenwich(kJanuary), 3600);
  EXPECT_EQ(secondsEastOfGreenwich(kJuly), 7200);
}
