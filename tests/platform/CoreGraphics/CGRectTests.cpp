#include <CoreGraphics/CGRect.h>

#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(CGRect, IsEmptyWithoutAreaOrWithNaN) {
  for (const CGRect& rect :
       {CGRect::make(kNaN, 0, 1, 1), CGRect::make(0, kNaN, 1, 1), CGRect::make(0, 0, kNaN, 1),
        CGRect::make(0, 0, 1, kNaN), CGRect::make(0, 0, -1, 1), CGRect::make(0, 0, 0, 1),
        CGRect::make(0, 0, 1, 0), CGRect{}})
    EXPECT_TRUE(rect.isEmpty());
  EXPECT_FALSE(CGRect::make(-1, -1, 1e-9, 1e-9).isEmpty());
  EXPECT_FALSE(CGRect::make(0, 0, kInfinity, 1).isEmpty());
}

TEST(CGRect, ContainsItsEdges) {
  const CGRect rect = CGRect::make(10, 20, 30, 40);
  EXPECT_TRUE(rect.contains({10, 20}));
  EXPECT_TRUE(rect.contains({40, 60}));
  EXPECT_FALSE(rect.contains({40.001, 60}));
  EXPECT_FALSE(rect.contains({kNaN, 30}));
}

TEST(CGRect, InsetNeverTurnsInsideOut) {
  const CGRect rect = CGRect::make(10, 20, 30, 40);
  EXPECT_EQ(rect.insetBy(1, 2), CGRect::make(11, 22, 28, 36));
  EXPECT_EQ(rect.insetBy(-1, -2), CGRect::make(9, 18, 32, 44));
  EXPECT_EQ(rect.insetBy(100, 100), CGRect::make(25, 40, 0, 0));
  EXPECT_EQ(rect.insetBy(100, 0), CGRect::make(25, 20, 0, 40));
}

TEST(CGRect, IntersectionIsTheCommonPart) {
  const CGRect rect = CGRect::make(0, 0, 10, 10);
  EXPECT_EQ(rect.intersection(CGRect::make(5, -5, 10, 10)), CGRect::make(5, 0, 5, 5));
  EXPECT_EQ(rect.intersection(CGRect::make(2, 3, 1, 1)), CGRect::make(2, 3, 1, 1));
  // Apart, touching, empty and not a number.
  for (const CGRect& other : {CGRect::make(20, 0, 1, 1), CGRect::make(10, 0, 5, 5),
                              CGRect::make(5, 5, 0, 0), CGRect::make(kNaN, 0, 5, 5)})
    EXPECT_EQ(rect.intersection(other), CGRect{});
}

TEST(CGRect, UnionLeavesOutWhatIsEmpty) {
  const CGRect rect = CGRect::make(0, 0, 10, 10);
  EXPECT_EQ(rect.unionWith(CGRect::make(20, -5, 5, 5)), CGRect::make(0, -5, 25, 15));
  EXPECT_EQ(rect.unionWith(CGRect::make(90, 90, 0, 0)), rect);
  EXPECT_EQ(CGRect::make(90, 90, 0, 0).unionWith(rect), rect);
  EXPECT_EQ(rect.unionWith(CGRect::make(kNaN, 0, 1, 1)), rect);
  EXPECT_EQ(CGRect::make(90, 90, 0, 0).unionWith(CGRect::make(5, 5, 0, 1)), CGRect{});
}

}  // namespace
}  // namespace vexel
