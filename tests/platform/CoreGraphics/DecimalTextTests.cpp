#include "DecimalText.h"

#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

TEST(DecimalText, HasAtMostFourDecimalsAndNoTrailingZeros) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::pair<double, const char*> rows[] = {
      {std::numeric_limits<double>::quiet_NaN(), "nan"},
      {infinity, "inf"},
      {-infinity, "-inf"},
      {-0.0, "0"},
      {-0.00004, "0"},
      {0, "0"},
      {100, "100"},
      {-1.5, "-1.5"},
      {0.33333, "0.3333"},
      {2.99999, "3"},
      {1234567.25, "1234567.25"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(decimalText(value), text);
}

TEST(DecimalText, WritesTheLargestNumberInFull) {
  EXPECT_EQ(decimalText(-std::numeric_limits<double>::max()).size(), 310u);
}

}  // namespace
}  // namespace vexel
