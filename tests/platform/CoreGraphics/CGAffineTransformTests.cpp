#include <CoreGraphics/CGAffineTransform.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace vexel {
namespace {

void expectNear(CGPoint a, CGPoint b) {
  EXPECT_NEAR(a.x, b.x, 1e-12);
  EXPECT_NEAR(a.y, b.y, 1e-12);
}

TEST(CGAffineTransform, RotatesCounterClockwise) {
  expectNear(CGAffineTransform::rotation(std::numbers::pi / 2).apply({2, 1}), {-1, 2});
}

TEST(CGAffineTransform, FollowedByAppliesTheOtherOneAfterwards) {
  const auto move = CGAffineTransform::translation(10, 20);
  const auto stretch = CGAffineTransform::scale(2, 3);
  EXPECT_EQ(move.followedBy(stretch).apply({1, 1}), (CGPoint{22, 63}));
  EXPECT_EQ(stretch.followedBy(move).apply({1, 1}), (CGPoint{12, 23}));
}

TEST(CGAffineTransform, InverseUndoesIt) {
  const CGAffineTransform t = CGAffineTransform::rotation(0.7)
                                  .followedBy(CGAffineTransform::scale(2, -3))
                                  .followedBy(CGAffineTransform::translation(5, 6));
  expectNear(t.inverted().apply(t.apply({3, -4})), {3, -4});
}

TEST(CGAffineTransform, WithoutInverseGivesItself) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const CGAffineTransform& t :
       {CGAffineTransform::scale(0, 1), CGAffineTransform{1, 2, 2, 4, 5, 6},
        CGAffineTransform::scale(infinity, 1), CGAffineTransform::scale(1e200, 1e200)})
    EXPECT_EQ(t.inverted(), t);
}

}  // namespace
}  // namespace vexel
