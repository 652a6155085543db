#include "PenReach.h"

#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

TEST(PenReach, IsNothingWithoutAUsableWidth) {
  for (const double width : {kNaN, kInfinity, -2.0, 0.0}) EXPECT_EQ(penReach({.width = width}), 0);
}

TEST(PenReach, CountsJoinsAndCaps) {
  EXPECT_EQ(penReach({.width = 4, .join = CGLineJoin::round}), 2);
  EXPECT_DOUBLE_EQ(penReach({.width = 4, .cap = CGLineCap::square, .join = CGLineJoin::bevel}),
                   2 * std::sqrt(2));
  EXPECT_EQ(penReach({.width = 4, .miterLimit = 3}), 6);
}

TEST(PenReach, TakesAnUnusableMiterLimitForTheDefault) {
  for (const double limit : {kNaN, kInfinity, -1.0, 0.5})
    EXPECT_EQ(usableMiterLimit({.miterLimit = limit}), 10) << limit;
  EXPECT_EQ(usableMiterLimit({.miterLimit = 1}), 1);
}

}  // namespace
}  // namespace vexel
