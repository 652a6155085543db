#include <CorePlot/CPTConstraints.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

TEST(CPTConstraints, ALowerOffsetIsMeasuredUpFromTheLowerEdge) {
  EXPECT_EQ(CPTConstraints::constraintWithLowerOffset(5).position(100, 300), 105);
  EXPECT_EQ(CPTConstraints::constraintWithLowerOffset(-5).position(100, 300), 95);
}

TEST(CPTConstraints, AnUpperOffsetIsMeasuredDownFromTheUpperEdge) {
  EXPECT_EQ(CPTConstraints::constraintWithUpperOffset(0).position(100, 300), 300);
  EXPECT_EQ(CPTConstraints::constraintWithUpperOffset(5).position(100, 300), 295);
}

TEST(CPTConstraints, ARelativeOffsetIsAFractionOfTheExtent) {
  EXPECT_EQ(CPTConstraints::constraintWithRelativeOffset(0).position(100, 300), 100);
  EXPECT_EQ(CPTConstraints::constraintWithRelativeOffset(0.25).position(100, 300), 150);
  EXPECT_EQ(CPTConstraints::constraintWithRelativeOffset(1).position(100, 300), 300);
}

TEST(CPTConstraints, TwoAreEqualWhenTheyPinAlike) {
  EXPECT_EQ(CPTConstraints::constraintWithLowerOffset(0),
            CPTConstraints::constraintWithRelativeOffset(0));
  EXPECT_NE(CPTConstraints::constraintWithLowerOffset(1),
            CPTConstraints::constraintWithUpperOffset(1));
}

}  // namespace
}  // namespace vexel
