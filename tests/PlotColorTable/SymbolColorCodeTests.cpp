#include <PlotColorTable/SymbolColorCode.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

namespace vexel {
namespace {

using Code = SymbolColorCode;

struct Row {
  Code::Case quantity;
  std::int64_t rawValue;
  bool (Code::*is)() const;
  void (Code::*setIs)(bool);
};

const Row kRows[] = {
    {Code::none, 0, &Code::isNone, &Code::setIsNone},
    {Code::impactCharge, 1, &Code::isImpactCharge, &Code::setIsImpactCharge},
    {Code::wfIntegral, 2, &Code::isWfIntegral, &Code::setIsWfIntegral},
    {Code::riseTime, 3, &Code::isRiseTime, &Code::setIsRiseTime},
    {Code::impactSpeed, 4, &Code::isImpactSpeed, &Code::setIsImpactSpeed},
    {Code::grainSize, 5, &Code::isGrainSize, &Code::setIsGrainSize},
    {Code::compositionType, 6, &Code::isCompositionType, &Code::setIsCompositionType},
    {Code::calibrationQuality, 7, &Code::isCalibrationQuality, &Code::setIsCalibrationQuality},
    {Code::stretchParameter, 8, &Code::isStretchParameter, &Code::setIsStretchParameter},
    {Code::shiftParameter, 9, &Code::isShiftParameter, &Code::setIsShiftParameter},
    {Code::eventTime, 10, &Code::isEventTime, &Code::setIsEventTime},
    {Code::grainMass, 11, &Code::isGrainMass, &Code::setIsGrainMass},
    {Code::impactEnergy, 12, &Code::isImpactEnergy, &Code::setIsImpactEnergy},
    {Code::impactEnergyDensity, 14, &Code::isImpactEnergyDensity, &Code::setIsImpactEnergyDensity},
    {Code::dustCharge, 15, &Code::isDustCharge, &Code::setIsDustCharge},
    {Code::bulkSize, 16, &Code::isBulkSize, &Code::setIsBulkSize},
    {Code::bulkMass, 17, &Code::isBulkMass, &Code::setIsBulkMass},
};

TEST(SymbolColorCode, HasNoCaseForOtherRawValues) {
  for (const std::int64_t raw :
       {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
        std::int64_t{-1}, std::int64_t{13}, std::int64_t{18}, std::int64_t{257}})
    EXPECT_EQ(Code::fromRawValue(raw), std::nullopt) << raw;
}

TEST(SymbolColorCode, HasSeventeenCases) {
  EXPECT_EQ(std::size(kRows), 17u);
  for (const Row& row : kRows) {
    EXPECT_EQ(Code(row.quantity).rawValue(), row.rawValue);
    EXPECT_EQ(Code::fromRawValue(row.rawValue), row.quantity);
  }
}

TEST(SymbolColorCode, SaysWhichCaseItIs) {
  for (const Row& value : kRows)
    for (const Row& asked : kRows) {
      const Code code = value.quantity;
      EXPECT_EQ((code.*asked.is)(), value.quantity == asked.quantity);
    }
}

TEST(SymbolColorCode, BecomesACaseThatIsSetTrue) {
  for (const Row& before : kRows)
    for (const Row& set : kRows) {
      Code code = before.quantity;
      (code.*set.setIs)(true);
      EXPECT_EQ(code, set.quantity);
    }
}

TEST(SymbolColorCode, StaysAsItIsWhenACaseIsSetFalse) {
  for (const Row& before : kRows)
    for (const Row& set : kRows) {
      Code code = before.quantity;
      (code.*set.setIs)(false);
      EXPECT_EQ(code, before.quantity);
    }
}

TEST(SymbolColorCode, HasAColourBarUnlessItIsNoneOrTheCompositionType) {
  for (const Row& row : kRows)
    EXPECT_EQ(Code(row.quantity).hasColorBar(),
              row.quantity != Code::none && row.quantity != Code::compositionType);
}

TEST(SymbolColorCode, IsHashedByItsRawValue) {
  std::unordered_set<Code> codes;
  for (const Row& row : kRows) codes.insert(row.quantity);
  EXPECT_EQ(codes.size(), 17u);
  EXPECT_TRUE(codes.contains(Code::grainMass));
}

TEST(SymbolColorCode, StartsWithADefaultTablePerQuantity) {
  const struct {
    PlotCT& (*table)();
    const char* description;
  } kDefaults[] = {
      {Code::impactChargeCT, "GMT: WYSIWYG"},
      {Code::wfIntegralCT, "IDL: 16 Level"},
      {Code::riseTimeCT, "IDL: 16 Level"},
      {Code::impactSpeedCT, "GMT: Panoply"},
      {Code::grainSizeCT, "Brewer: Spectral (Diverging)"},
      {Code::compositionTypeCT, "IDL: 16 Level"},
      {Code::calibrationQualityCT, "GMT: WYSIWYG"},
      {Code::stretchParamterCT, "IDL: 16 Level"},
      {Code::shiftParameterCT, "IDL: 16 Level"},
      {Code::eventTimeCT, "GMT: WYSIWYG"},
      {Code::grainMassCT, "Brewer: Spectral (Diverging)"},
      {Code::impactImpactEnergyCT, "Brewer: Spectral (Diverging)"},
      {Code::impactImpactEnergyDensityCT, "Brewer: Spectral (Diverging)"},
      {Code::dustChargeCT, "Brewer: Spectral (Diverging)"},
  };
  EXPECT_EQ(std::size(kDefaults), 14u);
  for (const auto& [table, description] : kDefaults) {
    EXPECT_EQ(table().description(), description);
    // Each is a property of its own that keeps what is assigned.
    const PlotCT before = std::exchange(table(), PlotCT::xanCyanotype01);
    EXPECT_EQ(table(), PlotCT::xanCyanotype01);
    EXPECT_EQ(std::ranges::count_if(
                  kDefaults, [](auto& row) { return row.table() == PlotCT::xanCyanotype01; }),
              1);
    table() = before;
  }
}

TEST(SymbolColorCode, MakesColoursForTheChartEngine) {
  EXPECT_EQ(Code::getCPTColor(NSColor::colorWithRed(0.1, 0.2, 0.3, 0.4)),
            CPTColor(CGColor::genericRGB(0.1, 0.2, 0.3, 0.4)));
}

TEST(SymbolColorCodeDeathTest, RefusesARawValueOutsideItsCases) {
  for (const int raw : {13, 18, 255}) {
    const Code code = static_cast<Code::Case>(raw);
    const std::string message =
        "Fatal error: SymbolColorCode: unexpected raw value " + std::to_string(raw);
    EXPECT_DEATH(code.rawValue(), message);
    EXPECT_DEATH(code.getColors({}, std::nullopt), message);
  }
}

}  // namespace
}  // namespace vexel
