#include <Kitbase/EmptyFormatter.h>
#include <PlotColorTable/SymbolColorCode.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "PlotColorTable.h"
#include "PlotColorTable/ReplacedCatalogue.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

using AxisType = ColorBarDefinition::AxisType;
using Code = SymbolColorCode;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

ColorBarDefinition barOf(Code::Case quantity, const std::vector<double>& values,
                         std::optional<PlotCT> table = std::nullopt) {
  const auto definition = Code(quantity).getColors(values, table);
  EXPECT_TRUE(definition);
  return definition.value_or(ColorBarDefinition());
}

/// Where the colours stand in the black and white table, which has no colour twice; -1 for none.
std::vector<int> indicesOf(Code::Case quantity, const std::vector<double>& values) {
  std::vector<int> indices;
  for (const auto& color : barOf(quantity, values, PlotCT::idlBWLinear).colors.elements())
    indices.push_back(color ? static_cast<int>(std::lround(color->cgColor().red() * 255)) : -1);
  return indices;
}

const Code::Case kLogarithmic[] = {Code::impactCharge, Code::impactSpeed,
                                   Code::grainSize,    Code::grainMass,
                                   Code::impactEnergy, Code::impactEnergyDensity};
const Code::Case kTenths[] = {Code::impactSpeed, Code::grainSize, Code::impactEnergy};
const Code::Case kDecades[] = {Code::grainMass, Code::impactEnergyDensity};
const Code::Case kLinear[] = {Code::stretchParameter, Code::eventTime, Code::dustCharge};

// Quantities without colours of their own

TEST(GetColors, GivesTheDefaultForQuantitiesWithoutAScale) {
  const std::vector<std::any> objects{std::string("no number")};
  for (const Code::Case quantity :
       {Code::none, Code::wfIntegral, Code::riseTime, Code::calibrationQuality,
        Code::shiftParameter, Code::bulkSize, Code::bulkMass}) {
    EXPECT_EQ(Code(quantity).getColors(std::vector<double>{-1, kNaN}, PlotCT::gmtHot),
              ColorBarDefinition());
    EXPECT_EQ(Code(quantity).getColors(objects, std::nullopt), ColorBarDefinition());
  }
}

TEST(GetColors, LeavesTheCompositionTypeToTheHandler) {
  const Code code = Code::compositionType;
  const std::vector<std::any> objects{std::string("iron"), 2};
  const ColorBarDefinition own({CPTColor::redColor()}, PlotCT::gmtHot, AxisType::discrete, {7},
                               nullptr, "Composition");
  const SymbolValues* given = nullptr;
  std::vector<const std::any*> seen;
  const auto result = code.getColors(objects, PlotCT::gmtPolar, [&](const SymbolValues& values) {
    given = &values;
    for (const std::any& object : values.objects()) seen.push_back(&object);
    return std::optional(own);
  });
  EXPECT_NE(given, nullptr);
  EXPECT_THAT(seen, ElementsAre(&objects[0], &objects[1]));
  EXPECT_EQ(result, own);
  EXPECT_EQ(code.getColors(objects, PlotCT::gmtPolar,
                           [](const SymbolValues&) -> std::optional<ColorBarDefinition> {
                             return std::nullopt;
                           }),
            std::nullopt);
}

TEST(GetColors, GivesNothingForTheCompositionTypeWithoutAHandler) {
  const Code code = Code::compositionType;
  EXPECT_EQ(code.getColors(std::vector<double>{1}, PlotCT::gmtPolar), std::nullopt);
  EXPECT_EQ(code.getColors(std::vector<double>{1}, std::nullopt, nullptr), std::nullopt);
}

TEST(GetColors, AsksTheHandlerForNoOtherQuantity) {
  for (const Code::Case quantity : {Code::none, Code::bulkMass, Code::grainMass, Code::eventTime})
    Code(quantity).getColors(std::vector<double>{1, 2}, std::nullopt, [](const SymbolValues&) {
      ADD_FAILURE();
      return std::optional<ColorBarDefinition>();
    });
}

// Values

TEST(GetColors, GivesNothingWhenAValueIsNoNumber) {
  const std::vector<std::any> objects{1.0, std::string("2"), 3.0};
  for (const Code::Case quantity : {Code::grainMass, Code::impactCharge, Code::eventTime})
    EXPECT_EQ(Code(quantity).getColors(objects, std::nullopt), std::nullopt);
}

TEST(GetColors, TakesNumbersOfEveryTypeAsDoubles) {
  const std::vector<std::any> objects{1, 2.5f, 40.0, true, 7LL};
  const std::vector<double> numbers{1, 2.5, 40, 1, 7};
  for (const Code::Case quantity : kLogarithmic)
    EXPECT_EQ(Code(quantity).getColors(objects, std::nullopt), barOf(quantity, numbers));
  const auto linear = Code(Code::eventTime).getColors(objects, std::nullopt);
  EXPECT_EQ(linear->colors, barOf(Code::eventTime, numbers).colors);
}

TEST(GetColors, TakesAnEmptyListOfObjects) {
  const auto definition = Code(Code::grainMass).getColors(std::vector<std::any>(), std::nullopt);
  ASSERT_TRUE(definition);
  EXPECT_EQ(*definition, barOf(Code::grainMass, {}));
}

// What the bar shows

TEST(GetColors, NamesQuantityTypeAndTable) {
  const struct {
    Code::Case quantity;
    const char* title;
    AxisType type;
    PlotCT table;
  } kRows[] = {
      {Code::impactCharge, "Impact Charge (fC)", AxisType::log, PlotCT::gmtWysiwyg},
      {Code::impactSpeed, "Impact Speed (km/s)", AxisType::log, PlotCT::gmtPanoply},
      {Code::grainSize, "Grain Size", AxisType::log, PlotCT::brewerSpectral},
      {Code::grainMass, "Grain Mass (kg)", AxisType::log, PlotCT::brewerSpectral},
      {Code::impactEnergy, "Impact Energy", AxisType::log, PlotCT::brewerSpectral},
      {Code::impactEnergyDensity, "Impact Energy", AxisType::log, PlotCT::brewerSpectral},
      {Code::stretchParameter, "Stretch Parameter (ns)", AxisType::linear, PlotCT::idl16Level},
      {Code::eventTime, "Event Time", AxisType::linear, PlotCT::gmtWysiwyg},
      {Code::dustCharge, "Dust Charge", AxisType::linear, PlotCT::brewerSpectral},
  };
  for (const auto& [quantity, title, type, table] : kRows) {
    const ColorBarDefinition bar = barOf(quantity, {1, 2, 3});
    EXPECT_EQ(bar.title, title);
    EXPECT_EQ(bar.type, type);
    EXPECT_EQ(bar.colorTable, table);
    EXPECT_EQ(barOf(quantity, {1, 2, 3}, PlotCT::gmtHot).colorTable, PlotCT::gmtHot);
    // Logarithmic bars have the numbers of the axis, linear ones empty labels.
    if (type == AxisType::log) {
      EXPECT_EQ(bar.formatter, nullptr);
    } else {
      EXPECT_NE(std::dynamic_pointer_cast<EmptyFormatter>(bar.formatter), nullptr);
      EXPECT_NE(bar.formatter, barOf(quantity, {1, 2, 3}).formatter);
    }
  }
}

TEST(GetColors, UsesTheDefaultTableThatTheApplicationAssigned) {
  const struct {
    Code::Case quantity;
    PlotCT& (*table)();
  } kRows[] = {
      {Code::impactCharge, Code::impactChargeCT},
      {Code::impactSpeed, Code::impactSpeedCT},
      {Code::grainSize, Code::grainSizeCT},
      {Code::grainMass, Code::grainMassCT},
      {Code::impactEnergy, Code::impactImpactEnergyCT},
      {Code::impactEnergyDensity, Code::impactImpactEnergyDensityCT},
      {Code::stretchParameter, Code::stretchParamterCT},
      {Code::eventTime, Code::eventTimeCT},
      {Code::dustCharge, Code::dustChargeCT},
  };
  for (const auto& [quantity, table] : kRows) {
    const PlotCT before = std::exchange(table(), PlotCT::qormMinTop);
    EXPECT_EQ(barOf(quantity, {1, 2}).colorTable, PlotCT::qormMinTop);
    EXPECT_EQ(barOf(quantity, {1, 2}).colors, barOf(quantity, {1, 2}, PlotCT::qormMinTop).colors);
    table() = before;
  }
}

class GetColorsLog : public LogFixture {};

TEST_F(GetColorsLog, BuildsTheTableOnce) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  const auto recorder = addRecorder();
  barOf(Code::grainMass, {1, 2, 3, 4, 5, 6});
  EXPECT_THAT(recorder->texts(), SizeIs(1));
  barOf(Code::eventTime, {1, 2, 3, 4, 5, 6});
  EXPECT_THAT(recorder->texts(), SizeIs(2));
  // The one colour of equal values is asked of the table anew.
  barOf(Code::eventTime, {1, 1, 1});
  EXPECT_THAT(recorder->texts(), SizeIs(4));
}

// Logarithmic quantities

TEST(GetColors, BeginsABarOfChargesAtTheSmallestAboveTheThreshold) {
  const ColorBarDefinition bar = barOf(Code::impactCharge, {0.05, 2.3, 47});
  EXPECT_THAT(bar.range, ElementsAre(DoubleNear(2.3, 1e-14), DoubleNear(50, 1e-13)));
  const double lo = std::log10(2.3), hi = std::log10(50.0);
  EXPECT_THAT(indicesOf(Code::impactCharge, {0.05, 2.3, 47}),
              ElementsAre(0, 0, static_cast<int>(255 * (std::log10(47.0) - lo) / (hi - lo))));
  // The threshold itself does not count.
  EXPECT_EQ(barOf(Code::impactCharge, {0.1, 2.3, 47}).range, bar.range);
}

TEST(GetColors, RoundsABarOfMassesToWholeDecades) {
  const ColorBarDefinition bar = barOf(Code::grainMass, {3e-15, 8e-12});
  EXPECT_THAT(bar.range, ElementsAre(1e-15, 1e-11));
  EXPECT_THAT(indicesOf(Code::grainMass, {1e-15, 3e-15, 1e-13, 8e-12, 1e-11}),
              ElementsAre(0, 30, 127, 248, 255));
}

TEST(GetColors, RoundsOtherBarsToTenthsOfADecadesNumbers) {
  for (const Code::Case quantity : kTenths) {
    EXPECT_THAT(barOf(quantity, {0.57, 3.2}).range,
                ElementsAre(DoubleNear(0.5, 1e-15), DoubleNear(10, 1e-14)));
    EXPECT_THAT(barOf(quantity, {12.34, 91}).range,
                ElementsAre(DoubleNear(12.3, 1e-14), DoubleNear(100, 1e-13)));
  }
}

TEST(GetColors, ShowsOneDecadeWithoutValues) {
  for (const Code::Case quantity : kLogarithmic) {
    EXPECT_THAT(barOf(quantity, {}).colors.elements(), IsEmpty());
    EXPECT_THAT(barOf(quantity, {}).range, ElementsAre(1, 10));
    EXPECT_THAT(barOf(quantity, {kNaN, kNaN}).range, ElementsAre(1, 10));
    EXPECT_THAT(indicesOf(quantity, {kNaN, kNaN}), ElementsAre(0, 0));
  }
}

TEST(GetColors, ShowsOneDecadeWhenAllValuesAreEqualOrNotAboveTheThreshold) {
  for (const Code::Case quantity : kLogarithmic) {
    EXPECT_THAT(barOf(quantity, {5, 5, 5}).range, ElementsAre(1, 10));
    EXPECT_THAT(indicesOf(quantity, {5, 5, 5}), testing::Each(178));
    EXPECT_THAT(barOf(quantity, {0, 0}).range, ElementsAre(1, 10));
    EXPECT_THAT(indicesOf(quantity, {0, -0.0}), ElementsAre(0, 0));
    EXPECT_THAT(indicesOf(quantity, {5000, 5000}), ElementsAre(255, 255));
  }
  EXPECT_THAT(barOf(Code::impactCharge, {0.02, 0.1}).range, ElementsAre(1, 10));
}

TEST(GetColors, GivesZerosAndValuesThatAreNotFiniteTheFirstColour) {
  for (const Code::Case quantity : kLogarithmic)
    EXPECT_THAT(indicesOf(quantity, {0, -0.0, kNaN, 1, 100}), ElementsAre(0, 0, 0, 0, 255));
  for (const Code::Case quantity : kLogarithmic)
    EXPECT_THAT(indicesOf(quantity, {kInfinity, -kInfinity, kNaN, 1, 100}), testing::Each(0));
}

TEST(GetColors, SpreadsMassesOfAnySize) {
  EXPECT_THAT(indicesOf(Code::grainMass, {kSmallest, 1e300}), ElementsAre(0, 255));
  EXPECT_THAT(indicesOf(Code::grainMass, {1, kLargest}), ElementsAre(0, 254));
}

TEST(GetColors, HasNoColourInAnEmptyTable) {
  const ReplacedCatalogue catalogue({{"gmt", {{8, {}}}}});
  EXPECT_THAT(barOf(Code::grainMass, {0, 1, kNaN}, PlotCT::gmtHot).colors.elements(),
              testing::Each(std::nullopt));
  EXPECT_THAT(barOf(Code::eventTime, {0, 1, kNaN}, PlotCT::gmtHot).colors.elements(),
              ElementsAre(std::nullopt, std::nullopt, std::nullopt));
  EXPECT_THAT(barOf(Code::eventTime, {1, 1}, PlotCT::gmtHot).colors.elements(),
              ElementsAre(std::nullopt, std::nullopt));
}

TEST(GetColorsDeathTest, RefusesNegativeValuesOfALogarithmicQuantity) {
  for (const Code::Case quantity : kLogarithmic)
    for (const double value : {-kSmallest, -1.0, -kLargest})
      EXPECT_DEATH(barOf(quantity, {1, value, 100}), "Fatal error: .*negative value") << value;
}

TEST(GetColorsDeathTest, RefusesAScaleThatGivesNoIndex) {
  for (const Code::Case quantity : kTenths) {
    EXPECT_DEATH(barOf(quantity, {0.05, 20}), "Fatal error: .*no integer; the scale reaches 0");
    EXPECT_DEATH(barOf(quantity, {0, 0.05, 20}), "Fatal error: .*no integer");
    EXPECT_DEATH(barOf(quantity, {1e308, kLargest}), "Fatal error: .*no integer");
  }
  for (const Code::Case quantity : kDecades)
    EXPECT_DEATH(barOf(quantity, {1000, std::nextafter(1000, 2000)}), "Fatal error: .*no integer");
}

// Linear quantities

TEST(GetColors, SpreadsLinearQuantitiesFromTheSmallestToTheLargest) {
  for (const Code::Case quantity : kLinear) {
    EXPECT_THAT(indicesOf(quantity, {0, 10, 5}), ElementsAre(0, 255, 127));
    EXPECT_THAT(barOf(quantity, {0, 10, 5}).range, ElementsAre(0, 10));
    EXPECT_THAT(indicesOf(quantity, {-10, 30, 0}), ElementsAre(0, 255, 63));
  }
}

TEST(GetColors, ShowsTheUnitWithoutLinearValues) {
  for (const Code::Case quantity : kLinear) {
    EXPECT_THAT(barOf(quantity, {}).colors.elements(), IsEmpty());
    EXPECT_THAT(barOf(quantity, {}).range, ElementsAre(0, 1));
    EXPECT_THAT(barOf(quantity, {kNaN}).range, ElementsAre(0, 1));
    EXPECT_THAT(indicesOf(quantity, {kNaN}), ElementsAre(0));
  }
}

TEST(GetColors, GivesEqualLinearValuesColourOneHundred) {
  for (const Code::Case quantity : kLinear) {
    const ColorBarDefinition bar = barOf(quantity, {5, 5, 5});
    EXPECT_THAT(bar.range, ElementsAre(5, 5));
    EXPECT_THAT(bar.colors.elements(),
                ElementsAre(bar.colorTable.getCPTColor(100), bar.colorTable.getCPTColor(100),
                            bar.colorTable.getCPTColor(100)));
    EXPECT_THAT(indicesOf(quantity, {5, kNaN, 5}), testing::Each(100));
    EXPECT_THAT(indicesOf(quantity, {kInfinity, kInfinity}), testing::Each(100));
  }
}

TEST(GetColors, GivesLinearValuesThatAreNotFiniteTheFirstColour) {
  for (const Code::Case quantity : kLinear) {
    EXPECT_THAT(indicesOf(quantity, {kNaN, 0, 10}), ElementsAre(0, 0, 255));
    EXPECT_THAT(indicesOf(quantity, {kInfinity, 0, 10}), ElementsAre(0, 0, 0));
  }
}

TEST(GetColors, HasNoColourWhereALinearRangeHasNoLowerEnd) {
  for (const Code::Case quantity : kLinear) {
    EXPECT_THAT(indicesOf(quantity, {-kInfinity, 0, 10}), testing::Each(-1));
    EXPECT_THAT(indicesOf(quantity, {-kLargest, kLargest}), testing::Contains(-1));
  }
}

// Against a slow statement of the same, for values of every kind

/// Range of the bar and places of the colours in the table.
struct Expectation {
  std::vector<double> range;
  /// -1 for no colour.
  std::vector<int> indices;
  /// Whether an index is no number, which is refused.
  bool isRefused = false;
};

Expectation expectedLogarithmic(const std::vector<double>& values, double threshold,
                                bool wholeDecades) {
  std::vector<double> counted, all;
  for (const double v : values)
    if (v > threshold) counted.push_back(v);
  for (const double v : values)
    if (!std::isnan(v)) all.push_back(v);
  const double min = counted.empty() ? 1.0 : *std::min_element(counted.begin(), counted.end());
  const double max = all.empty() ? 10.0 : *std::max_element(all.begin(), all.end());
  double lo = 0, hi = 1;
  if (!(max <= min)) {
    lo = wholeDecades ? std::floor(std::log10(min)) : std::log10(std::floor(10 * min) / 10);
    hi = wholeDecades ? std::ceil(std::log10(max)) : std::log10(10 * std::ceil(max / 10));
  }
  Expectation expectation{{std::pow(10.0, lo), std::pow(10.0, hi)}, {}};
  for (const double v : values) {
    if (!std::isfinite(v)) {
      expectation.indices.push_back(0);
      continue;
    }
    double x = std::log10(v);
    if (!(x > lo)) x = lo;
    if (hi < x) x = hi;
    const double index = std::floor(255.0 * ((x - lo) / (hi - lo)));
    if (std::isnan(index)) expectation.isRefused = true;
    expectation.indices.push_back(index >= 0 && index < 256 ? static_cast<int>(index) : -1);
  }
  return expectation;
}

Expectation expectedLinear(const std::vector<double>& values) {
  std::vector<double> all;
  for (const double v : values)
    if (!std::isnan(v)) all.push_back(v);
  const double lo = all.empty() ? 0.0 : *std::min_element(all.begin(), all.end());
  const double hi = all.empty() ? 1.0 : *std::max_element(all.begin(), all.end());
  Expectation expectation{{lo, hi}, {}};
  for (const double v : values) {
    double x = std::isfinite(v) ? v : lo;
    if (!(x > lo)) x = lo;
    if (hi < x) x = hi;
    const double index = lo == hi ? 100 : std::floor((x - lo) / (hi - lo) * 255.0);
    expectation.indices.push_back(index >= 0 && index < 256 ? static_cast<int>(index) : -1);
  }
  return expectation;
}

void expectAgreement(Code::Case quantity, const std::vector<double>& values,
                     const Expectation& expected, PlotCT table) {
  const ColorBarDefinition bar = barOf(quantity, values, table);
  RC_ASSERT(bar.range == expected.range);
  RC_ASSERT(bar.colorTable == table);
  RC_ASSERT(bar.colors.size() == values.size());
  const ColorTable entries = PlotColorTable(table.number(), table.family()).entries();
  for (std::size_t i = 0; i < values.size(); ++i) {
    std::optional<CPTColor> color;
    if (expected.indices[i] >= 0) {
      const ColorTableEntry& entry = entries[static_cast<std::size_t>(expected.indices[i])];
      color = CPTColor::colorWithComponents(entry[0] / 255, entry[1] / 255, entry[2] / 255, 1);
    }
    RC_ASSERT(bar.colors[i] == color);
  }
}

PlotCT anyTable() {
  return *PlotCT::fromRawValue(*rc::gen::inRange(0, 19));
}

/// Lists in which numbers from `least` on, zeros, infinities, NaN and equal numbers are likely.
std::vector<double> positiveValues(double leastDecade, double greatestDecade) {
  const double usual = *rc::gen::element(1.0, 10.0, 2.5, 1000.0, 0.5);
  return *rc::gen::container<std::vector<double>>(rc::gen::weightedOneOf<double>({
      {12, rc::gen::map(rc::gen::inRange(0, 1'000'000'001),
                        [=](int part) {
                          return std::pow(
                              10, leastDecade + (greatestDecade - leastDecade) * 1e-9 * part);
                        })},
      {2, rc::gen::just(usual)},
      {1, rc::gen::element(0.0, -0.0, kNaN, kInfinity)},
  }));
}

RC_GTEST_PROP(GetColors, AgreesWithItsStatementForCharges, ()) {
  const auto values = positiveValues(*rc::gen::inRange(-5, 3), *rc::gen::inRange(-5, 8));
  const Expectation expected = expectedLogarithmic(values, 0.1, false);
  RC_PRE(!expected.isRefused);
  expectAgreement(Code::impactCharge, values, expected, anyTable());
}

RC_GTEST_PROP(GetColors, AgreesWithItsStatementForSpeedsSizesAndEnergies, ()) {
  const auto values = positiveValues(*rc::gen::inRange(-1, 3), *rc::gen::inRange(0, 8));
  const Expectation expected = expectedLogarithmic(values, 0.0, false);
  RC_PRE(!expected.isRefused);
  expectAgreement(*rc::gen::elementOf(std::vector(std::begin(kTenths), std::end(kTenths))), values,
                  expected, anyTable());
}

RC_GTEST_PROP(GetColors, AgreesWithItsStatementForMassesAndEnergyDensities, ()) {
  const auto values = positiveValues(*rc::gen::inRange(-320, 100), *rc::gen::inRange(-100, 308));
  const Expectation expected = expectedLogarithmic(values, 0.0, true);
  RC_PRE(!expected.isRefused);
  expectAgreement(*rc::gen::elementOf(std::vector(std::begin(kDecades), std::end(kDecades))),
                  values, expected, anyTable());
}

RC_GTEST_PROP(GetColors, AgreesWithItsStatementAtTheBordersOfColours, ()) {
  const int low = *rc::gen::inRange(-300, 300);
  const int decades = *rc::gen::inRange(1, 8);
  std::vector<double> values{std::pow(10, low), std::pow(10, low + decades)};
  for (int k = 0; k <= 255; ++k) {
    double value = std::pow(10, low + decades * k / 255.0);
    // The nearest numbers on both sides.
    for (int i = 0; i < 4; ++i) value = std::nextafter(value, 0);
    for (int i = 0; i < 9; ++i) values.push_back(value = std::nextafter(value, kLargest));
  }
  const Expectation expected = expectedLogarithmic(values, 0.0, true);
  RC_PRE(!expected.isRefused);
  expectAgreement(Code::grainMass, values, expected, PlotCT::idlBWLinear);
}

RC_GTEST_PROP(GetColors, AgreesWithItsStatementForLinearQuantities, ()) {
  const double scale = std::pow(10, *rc::gen::inRange(-300, 300));
  const auto values = *rc::gen::container<std::vector<double>>(rc::gen::weightedOneOf<double>({
      {12, rc::gen::map(rc::gen::inRange(-1'000'000, 1'000'001),
                        [=](int part) { return scale * part; })},
      {2, rc::gen::just(scale)},
      {1, rc::gen::element(0.0, -0.0, kNaN, kInfinity, -kInfinity)},
  }));
  expectAgreement(*rc::gen::elementOf(std::vector(std::begin(kLinear), std::end(kLinear))), values,
                  expectedLinear(values), anyTable());
}

}  // namespace
}  // namespace vexel
