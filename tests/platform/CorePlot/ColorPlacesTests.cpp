#include "ColorPlaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CPTColor gray(double level) {
  return CPTColor::colorWithComponents(level, level, level);
}

TEST(ColorPlaces, NumbersColoursInTheOrderInWhichTheyAppear) {
  std::vector<CPTColor> colors;
  ColorPlaces places(colors);
  EXPECT_EQ(places.placeOf(CPTColor::redColor()), 0u);
  EXPECT_EQ(places.placeOf(CPTColor::blueColor()), 1u);
  EXPECT_EQ(places.placeOf(CPTColor::redColor()), 0u);
  EXPECT_EQ(places.placeOf(CPTColor::blueColor()), 1u);
  EXPECT_THAT(colors, ElementsAre(CPTColor::redColor(), CPTColor::blueColor()));
}

TEST(ColorPlaces, GoesOnBehindTheColoursThatAreThere) {
  std::vector<CPTColor> colors{CPTColor::redColor(), CPTColor::redColor()};
  ColorPlaces places(colors);
  EXPECT_EQ(places.placeOf(CPTColor::blueColor()), 2u);
  EXPECT_EQ(places.placeOf(CPTColor::redColor()), 0u);
}

TEST(ColorPlaces, TellsColoursApartAsComparisonDoes) {
  std::vector<CPTColor> colors;
  ColorPlaces places(colors);
  EXPECT_EQ(places.placeOf(CPTColor::colorWithComponents(0.0, 0, 0)), 0u);
  EXPECT_EQ(places.placeOf(CPTColor::colorWithComponents(-0.0, 0, 0)), 0u);
  EXPECT_EQ(places.placeOf(CPTColor::blackColor()), 1u) << "of another colour space";
  EXPECT_EQ(places.placeOf(CPTColor::clearColor()), 2u);
}

TEST(ColorPlaces, KnowsManyColours) {
  std::vector<CPTColor> colors;
  ColorPlaces places(colors);
  constexpr std::uint32_t kMany = 50000;
  for (int round = 0; round < 2; ++round)
    for (std::uint32_t i = 0; i < kMany; ++i) ASSERT_EQ(places.placeOf(gray(i / 50000.0)), i);
  EXPECT_EQ(colors.size(), kMany);
}

}  // namespace
}  // namespace vexel
