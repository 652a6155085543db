#include <Foundation/NSNumber.h>

#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

TEST(NSNumber, RemembersItsPrecision) {
  EXPECT_TRUE(NSNumber(0).isInteger());
  EXPECT_TRUE(NSNumber(std::size_t{7}).isInteger());
  EXPECT_TRUE(NSNumber(0.0f).isFloat());
  EXPECT_TRUE(NSNumber(0.0).isDouble());
  EXPECT_FALSE(NSNumber(0.0).isFloat());
  EXPECT_FALSE(NSNumber(0.0).isInteger());
  static_assert(!std::is_constructible_v<NSNumber, bool>);
}

TEST(NSNumber, GivesTheNearestNumberOfAnotherPrecision) {
  EXPECT_EQ(NSNumber(0.1).floatValue(), 0.1f);
  EXPECT_EQ(NSNumber(0.1f).doubleValue(), static_cast<double>(0.1f));
  EXPECT_EQ(NSNumber((std::int64_t{1} << 53) + 1).doubleValue(), 9007199254740992.0);
  EXPECT_EQ(NSNumber(16777217).floatValue(), 16777216.0f);
  EXPECT_EQ(NSNumber(1e300).floatValue(), std::numeric_limits<float>::infinity());
  EXPECT_EQ(NSNumber(-3).doubleValue(), -3);
}

TEST(NSNumber, EqualsANumberOfTheSameValue) {
  EXPECT_EQ(NSNumber(2), NSNumber(2.0));
  EXPECT_EQ(NSNumber(0.5f), NSNumber(0.5));
  EXPECT_NE(NSNumber(0.1f), NSNumber(0.1));
  EXPECT_NE(NSNumber(2), NSNumber(3));
  EXPECT_NE(NSNumber((std::int64_t{1} << 53) + 1), NSNumber(std::int64_t{1} << 53));
  EXPECT_EQ(NSNumber(-0.0), NSNumber(0));
  const NSNumber none(std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(none == none);
}

}  // namespace
}  // namespace vexel
