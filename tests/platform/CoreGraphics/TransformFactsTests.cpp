#include "TransformFacts.h"

#include <gtest/gtest.h>

#include <numbers>

#include "Bitmaps.h"

namespace vexel {
namespace {

constexpr double kQuarter = std::numbers::pi / 2;

TEST(TransformFacts, HaveNoInverseWhenFlatOrNotFinite) {
  for (const CGAffineTransform& t :
       {CGAffineTransform::scale(kNaN, 1), CGAffineTransform::scale(1, kInfinity),
        CGAffineTransform::translation(kNaN, 0), CGAffineTransform::translation(0, kInfinity),
        CGAffineTransform::scale(0, 1), CGAffineTransform{1, 1, 1, 1, 0, 0},
        CGAffineTransform::scale(1e-200, 1e-200), CGAffineTransform::scale(1e200, 1e200)})
    EXPECT_FALSE(hasInverse(t));
  EXPECT_TRUE(hasInverse({}));
  EXPECT_TRUE(hasInverse({0, 2, -3, 0, 1e9, -1e9}));
}

TEST(TransformFacts, MeanScaleIsTheLengthOfAUnit) {
  EXPECT_DOUBLE_EQ(meanScale(CGAffineTransform::rotation(0.7)), 1);
  EXPECT_DOUBLE_EQ(meanScale({1.5, 0, 0, -1.5, 0, 9}), 1.5);
  EXPECT_DOUBLE_EQ(meanScale(CGAffineTransform::scale(2, 8)), 4);
}

TEST(TransformFacts, KnowWhenCirclesStayCircles) {
  for (const CGAffineTransform& t :
       {CGAffineTransform{}, CGAffineTransform{1.5, 0, 0, -1.5, 3, 4},
        CGAffineTransform::rotation(0.7), CGAffineTransform::scale(1e-9, 1e-9),
        CGAffineTransform::rotation(0.7).followedBy(CGAffineTransform::scale(-1e9, 1e9))})
    EXPECT_TRUE(keepsShapes(t));
  for (const CGAffineTransform& t :
       {CGAffineTransform::scale(1, 1.001), CGAffineTransform{1, 0, 0.1, 1, 0, 0},
        CGAffineTransform::scale(2, 0.5), CGAffineTransform{2, 0.5, 0.5, 2, 0, 0}})
    EXPECT_FALSE(keepsShapes(t));
}

TEST(TransformFacts, SeeQuarterTurnsThroughTheirRoundingErrors) {
  for (int quarters = 0; quarters < 8; ++quarters) {
    const CGAffineTransform t =
        CGAffineTransform::rotation(quarters * kQuarter).followedBy({2, 0, 0, -3, 5, 5});
    EXPECT_EQ(keepsAxes(t), quarters % 2 == 0) << quarters;
    EXPECT_EQ(swapsAxes(t), quarters % 2 == 1) << quarters;
  }
  for (const double angle : {0.1, 1e-6, kQuarter + 1e-6}) {
    EXPECT_FALSE(keepsAxes(CGAffineTransform::rotation(angle))) << angle;
    EXPECT_FALSE(swapsAxes(CGAffineTransform::rotation(angle))) << angle;
  }
}

}  // namespace
}  // namespace vexel
