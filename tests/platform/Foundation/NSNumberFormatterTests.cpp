#include <Foundation/NSNumberFormatter.h>

#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

NSNumberFormatter withDigits(int integer, int minimumFraction, int maximumFraction) {
  NSNumberFormatter formatter;
  formatter.setMinimumIntegerDigits(integer);
  formatter.setMaximumFractionDigits(maximumFraction);
  formatter.setMinimumFractionDigits(minimumFraction);
  return formatter;
}

TEST(NSNumberFormatter, HasNoFractionAndNoIntegerDigitsByDefault) {
  const NSNumberFormatter formatter;
  EXPECT_EQ(formatter.minimumIntegerDigits(), 0);
  EXPECT_EQ(formatter.minimumFractionDigits(), 0);
  EXPECT_EQ(formatter.maximumFractionDigits(), 0);
  EXPECT_FALSE(formatter.localizesFormat());
}

struct Row {
  double value;
  int integer, minimumFraction, maximumFraction;
  const char* text;
};

TEST(NSNumberFormatter, WritesNumbers) {
  for (const Row& row : {
           Row{kNaN, 1, 2, 2, "NaN"},
           Row{kInfinity, 1, 2, 2, "+∞"},
           Row{-kInfinity, 1, 2, 2, "-∞"},
           Row{-0.0, 1, 1, 1, "0.0"},
           Row{-0.04, 1, 1, 1, "0.0"},
           Row{5e-324, 1, 0, 3, "0"},
           Row{-5e-324, 1, 0, 3, "0"},
           // Without a digit anywhere a number would be nothing at all.
           Row{0, 0, 0, 0, "0"},
           Row{0.25, 0, 0, 0, "0"},
           Row{0, 0, 1, 1, ".0"},
           Row{0.5, 0, 1, 1, ".5"},
           Row{-0.5, 0, 1, 1, "-.5"},
           Row{0.5, 1, 1, 1, "0.5"},
           Row{7, 3, 0, 0, "007"},
           Row{-7, 3, 2, 2, "-007.00"},
           Row{12345678, 1, 0, 0, "12345678"},
           // Half to even, of the exact binary value: 0.15 and 2.675 lie below their decimals.
           Row{0.5, 1, 0, 0, "0"},
           Row{1.5, 1, 0, 0, "2"},
           Row{2.5, 1, 0, 0, "2"},
           Row{-2.5, 1, 0, 0, "-2"},
           Row{0.125, 1, 0, 2, "0.12"},
           Row{0.375, 1, 0, 2, "0.38"},
           Row{2.675, 1, 0, 2, "2.67"},
           Row{0.999, 1, 0, 2, "1"},
           Row{0.999, 1, 1, 2, "1.0"},
           // Zeros beyond the minimum are left out.
           Row{1.5, 1, 0, 4, "1.5"},
           Row{1.25, 1, 1, 4, "1.25"},
           Row{1, 1, 2, 4, "1.00"},
       })
    EXPECT_EQ(withDigits(row.integer, row.minimumFraction, row.maximumFraction).string(row.value),
              row.text)
        << row.value;
}

TEST(NSNumberFormatter, WritesTheLargestNumbersInFull) {
  EXPECT_EQ(NSNumberFormatter().string(kLargest).size(), 309u);
  EXPECT_EQ(withDigits(309, 309, 309).string(-kLargest).size(), 1u + 309 + 1 + 309);
}

TEST(NSNumberFormatter, RaisingTheMinimumRaisesTheMaximum) {
  NSNumberFormatter formatter;
  formatter.setMinimumFractionDigits(3);
  EXPECT_EQ(formatter.maximumFractionDigits(), 3);
  formatter.setMaximumFractionDigits(5);
  EXPECT_EQ(formatter.minimumFractionDigits(), 3);
}

TEST(NSNumberFormatter, LoweringTheMaximumLowersTheMinimum) {
  NSNumberFormatter formatter;
  formatter.setMinimumFractionDigits(3);
  formatter.setMaximumFractionDigits(1);
  EXPECT_EQ(formatter.minimumFractionDigits(), 1);
}

TEST(NSNumberFormatter, BoundsDigits) {
  NSNumberFormatter formatter;
  for (const int digits : {-1, std::numeric_limits<int>::min()}) {
    formatter.setMinimumIntegerDigits(digits);
    formatter.setMinimumFractionDigits(digits);
    formatter.setMaximumFractionDigits(digits);
    EXPECT_EQ(formatter.minimumIntegerDigits(), 0);
    EXPECT_EQ(formatter.minimumFractionDigits(), 0);
    EXPECT_EQ(formatter.maximumFractionDigits(), 0);
  }
  for (const int digits : {310, std::numeric_limits<int>::max()}) {
    formatter.setMinimumIntegerDigits(digits);
    formatter.setMinimumFractionDigits(digits);
    EXPECT_EQ(formatter.minimumIntegerDigits(), NSNumberFormatter::kMaximumDigits);
    EXPECT_EQ(formatter.minimumFractionDigits(), NSNumberFormatter::kMaximumDigits);
    EXPECT_EQ(formatter.maximumFractionDigits(), NSNumberFormatter::kMaximumDigits);
  }
}

TEST(NSNumberFormatter, NeverLocalizes) {
  NSNumberFormatter formatter = withDigits(1, 1, 1);
  formatter.setLocalizesFormat(true);
  EXPECT_FALSE(formatter.localizesFormat());
  EXPECT_EQ(formatter.string(1234.5), "1234.5");
}

}  // namespace
}  // namespace vexel
