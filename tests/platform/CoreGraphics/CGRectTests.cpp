#include <CoreGraphics/CGRect.h>

#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

TEST(CGRect, IsEmptyWithoutAreaOrWithNaN) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(CGRect::make(nan, 0, 1, 1).isEmpty());
  EXPECT_TRUE(CGRect::make(0, nan, 1, 1).isEmpty());
  EXPECT_TRUE(CGRect::make(0, 0, nan, 1).isEmpty());
  EXPECT_TRUE(CGRect::make(0, 0, 1, nan).isEmpty());
  EXPECT_TRUE(CGRect::make(0, 0, 0, 1).isEmpty());
  EXPECT_TRUE(CGRect::make(0, 0, 1, 0).isEmpty());
  EXPECT_FALSE(CGRect::make(-1, -1, 1e-9, 1e-9).isEmpty());
}

}  // namespace
}  // namespace vexel
