#include "ColorMapping.h"

#include <CorePlot/CPTColorList.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::uint32_t kNone = CPTColorList::kNoColor;

TEST(ColorMapping, OfNoValuesIsEmpty) {
  EXPECT_THAT(logarithmicPlaces({}, {0, 1}, 256), IsEmpty());
  EXPECT_THAT(linearPlaces({}, {0, 1}, 256), IsEmpty());
}

TEST(ColorMapping, KeepsValuesBeyondTheScaleAtItsEnds) {
  const std::vector<double> values{0, 1e-300, 0.999, 10, 100, 1e300};
  EXPECT_THAT(logarithmicPlaces(values, {0, 1}, 256), ElementsAre(0, 0, 0, 255, 255, 255));
  EXPECT_THAT(linearPlaces(std::vector{-1e300, -1.0, 2.0, 1e300}, {0, 1}, 256),
              ElementsAre(0, 0, 255, 255));
}

TEST(ColorMapping, GivesEachColourAnEqualPartOfTheScaleButTheLastOnlyItsEnd) {
  EXPECT_THAT(linearPlaces(std::vector{0.0, 0.24, 0.26, 0.51, 0.76, 0.999, 1.0}, {0, 1}, 5),
              ElementsAre(0, 0, 1, 2, 3, 3, 4));
  EXPECT_THAT(
      logarithmicPlaces(std::vector{1.0, 9.9, 10.1, 101.0, 1001.0, 9999.0, 10000.0}, {0, 4}, 5),
      ElementsAre(0, 0, 1, 2, 3, 3, 4));
}

TEST(ColorMapping, GivesValuesThatAreNotFiniteTheLowEnd) {
  const std::vector<double> values{kNaN, kInfinity, -kInfinity};
  EXPECT_THAT(logarithmicPlaces(values, {0, 1}, 256), ElementsAre(0, 0, 0));
  EXPECT_THAT(linearPlaces(values, {0, 1}, 256), ElementsAre(0, 0, 0));
}

TEST(ColorMapping, HasOnlyTheFirstColourOnScalesWithoutUpperEnd) {
  EXPECT_THAT(logarithmicPlaces(std::vector{1.0, 1e300}, {0, kInfinity}, 256), ElementsAre(0, 0));
  EXPECT_THAT(linearPlaces(std::vector{1.0, 1e300}, {0, kInfinity}, 256), ElementsAre(0, 0));
}

TEST(ColorMapping, HasNoLinearPlaceWithoutLowerEndOrBeyondTheLargestNumber) {
  EXPECT_THAT(linearPlaces(std::vector{1.0, kNaN}, {-kInfinity, 2}, 256),
              ElementsAre(kNone, kNone));
  const double largest = std::numeric_limits<double>::max();
  EXPECT_THAT(linearPlaces(std::vector{-largest, largest}, {-largest, largest}, 256),
              ElementsAre(0, kNone));
}

TEST(ColorMapping, HasNoPlacesInAnEmptyTableAndOneInATableOfOneColour) {
  const std::vector<double> values{1, 5, 10, kNaN, 0};
  EXPECT_THAT(logarithmicPlaces(values, {0, 1}, 1), testing::Each(0));
  EXPECT_THAT(linearPlaces(values, {0, 10}, 1), testing::Each(0));
  EXPECT_THAT(linearPlaces(std::vector{5.0, 10.0}, {0, 10}, 0), ElementsAre(kNone, kNone));
  EXPECT_THAT(logarithmicPlaces(std::vector{5.0, 10.0, kNaN}, {0, 1}, 0),
              ElementsAre(kNone, kNone, kNone));
}

TEST(ColorMappingDeathTest, RefusesNegativeValuesAndScalesThatGiveNoPlace) {
  EXPECT_DEATH(logarithmicPlaces(std::vector{-1.0}, {0, 1}, 256), "negative value");
  EXPECT_DEATH(logarithmicPlaces(std::vector{1.0}, {-kInfinity, 1}, 256), "no integer");
  EXPECT_DEATH(logarithmicPlaces(std::vector{1.0}, {1, 1}, 256), "no integer");
  EXPECT_DEATH(logarithmicPlaces(std::vector{1.0}, {kNaN, 1}, 256), "no integer");
}

}  // namespace
}  // namespace vexel
