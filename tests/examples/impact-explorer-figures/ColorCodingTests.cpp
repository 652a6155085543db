#include "ColorCoding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace explorer {
namespace {

using vexel::ColorBarDefinition;
using vexel::SymbolColorCode;
using AxisType = ColorBarDefinition::AxisType;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

SymbolColorCode quantityOf(const std::string& name, const std::vector<double>& values) {
  return codingOf(name, values).quantity;
}

TEST(ColorCoding, IsThatOfTheQuantityThatTheNameSpeaksOf) {
  const std::vector<double> values{1, 20};
  EXPECT_EQ(quantityOf("Impact charge [fC]", values), SymbolColorCode::impactCharge);
  EXPECT_EQ(quantityOf("SPEED", values), SymbolColorCode::impactSpeed);
  EXPECT_EQ(quantityOf("velocity of the grain", values), SymbolColorCode::impactSpeed);
  EXPECT_EQ(quantityOf("Grain size [um]", values), SymbolColorCode::grainSize);
  EXPECT_EQ(quantityOf("Grain mass [kg]", values), SymbolColorCode::grainMass);
  EXPECT_EQ(quantityOf("Energy", values), SymbolColorCode::impactEnergy);
}

TEST(ColorCoding, IsLogarithmicForOtherNamesOverADecade) {
  EXPECT_EQ(quantityOf("x", {1, 10}), SymbolColorCode::grainMass);
}

TEST(ColorCoding, IsInWholeDecadesWhereTenthsHaveNone) {
  EXPECT_EQ(quantityOf("Speed", {0.05, 20}), SymbolColorCode::grainMass);
}

TEST(ColorCoding, IsLinearWhateverTheNameForOtherValues) {
  const std::vector<double> kLists[] = {{},        {kNaN}, {0, 20},    {-1, 20},
                                        {1, 9.99}, {5, 5}, {1, 1e308}, {1e-320, 1e308}};
  for (const auto& values : kLists)
    EXPECT_EQ(quantityOf("Speed", values), SymbolColorCode::dustCharge);
}

TEST(ColorCoding, GivesABarTitledWithTheNameAndLabelledWithNumbers) {
  const ColorBarDefinition logarithmic = codingOf("Speed [km/s]", {1, 20}).definition();
  EXPECT_EQ(logarithmic.title, "Speed [km/s]");
  EXPECT_EQ(logarithmic.type, AxisType::log);
  const ColorBarDefinition linear = codingOf("x", {-1, 1}).definition();
  EXPECT_EQ(linear.title, "x");
  EXPECT_EQ(linear.type, AxisType::linear);
  EXPECT_EQ(linear.formatter, nullptr);
}

TEST(ColorCoding, HasNoColourForAbsentValues) {
  for (const std::vector<double>& values :
       std::vector<std::vector<double>>{{1, kNaN, 20}, {-1, kNaN, 1}}) {
    const ColorBarDefinition bar = codingOf("Speed", values).definition();
    ASSERT_EQ(bar.colors.size(), 3u);
    EXPECT_TRUE(bar.colors[0]);
    EXPECT_FALSE(bar.colors[1]);
    EXPECT_TRUE(bar.colors[2]);
  }
}

}  // namespace
}  // namespace explorer
