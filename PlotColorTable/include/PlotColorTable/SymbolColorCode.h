#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include <Foundation/VexelAPI.h>
#include <PlotColorTable/ColorBarDefinition.h>
#include <PlotColorTable/PlotCT.h>
#include <PlotColorTable/SymbolValues.h>

namespace vexel {

/// The quantity by which the symbols of a series are coloured. A value of one byte.
///
/// A value that holds a raw value outside its cases is a broken invariant: asking it for its raw
/// value or for colours is a fatal error.
class VEXEL_API SymbolColorCode {
 public:
  /// The quantities; a raw value keeps its meaning.
  enum Case : std::uint8_t {
    none = 0,
    impactCharge = 1,
    wfIntegral = 2,
    riseTime = 3,
    impactSpeed = 4,
    grainSize = 5,
    compositionType = 6,
    calibrationQuality = 7,
    stretchParameter = 8,
    shiftParameter = 9,
    eventTime = 10,
    grainMass = 11,
    impactEnergy = 12,
    impactEnergyDensity = 14,
    dustCharge = 15,
    bulkSize = 16,
    bulkMass = 17,
  };

  /// Gives the colour bar of the composition type for the values of the points.
  using CompositionTypeHandler =
      std::function<std::optional<ColorBarDefinition>(const SymbolValues&)>;

  /// That quantity.
  constexpr SymbolColorCode(Case quantity) : case_(quantity) {}

  /// The quantity of that raw value; absent for 13 and every number outside 0 to 17.
  static std::optional<SymbolColorCode> fromRawValue(std::int64_t rawValue);
  /// The number that fromRawValue() takes.
  constexpr std::int64_t rawValue() const {
    if (case_ > bulkMass || case_ == kUnused) refuse();
    return case_;
  }

  /// Whether the value is a case. Setting true makes it that case, setting false changes nothing.
  constexpr bool isNone() const { return case_ == none; }
  constexpr void setIsNone(bool is) { become(none, is); }
  constexpr bool isImpactCharge() const { return case_ == impactCharge; }
  constexpr void setIsImpactCharge(bool is) { become(impactCharge, is); }
  constexpr bool isWfIntegral() const { return case_ == wfIntegral; }
  constexpr void setIsWfIntegral(bool is) { become(wfIntegral, is); }
  constexpr bool isRiseTime() const { return case_ == riseTime; }
  constexpr void setIsRiseTime(bool is) { become(riseTime, is); }
  constexpr bool isImpactSpeed() const { return case_ == impactSpeed; }
  constexpr void setIsImpactSpeed(bool is) { become(impactSpeed, is); }
  constexpr bool isGrainSize() const { return case_ == grainSize; }
  constexpr void setIsGrainSize(bool is) { become(grainSize, is); }
  constexpr bool isBulkSize() const { return case_ == bulkSize; }
  constexpr void setIsBulkSize(bool is) { become(bulkSize, is); }
  constexpr bool isCompositionType() const { return case_ == compositionType; }
  constexpr void setIsCompositionType(bool is) { become(compositionType, is); }
  constexpr bool isCalibrationQuality() const { return case_ == calibrationQuality; }
  constexpr void setIsCalibrationQuality(bool is) { become(calibrationQuality, is); }
  constexpr bool isStretchParameter() const { return case_ == stretchParameter; }
  constexpr void setIsStretchParameter(bool is) { become(stretchParameter, is); }
  constexpr bool isShiftParameter() const { return case_ == shiftParameter; }
  constexpr void setIsShiftParameter(bool is) { become(shiftParameter, is); }
  constexpr bool isEventTime() const { return case_ == eventTime; }
  constexpr void setIsEventTime(bool is) { become(eventTime, is); }
  constexpr bool isGrainMass() const { return case_ == grainMass; }
  constexpr void setIsGrainMass(bool is) { become(grainMass, is); }
  constexpr bool isBulkMass() const { return case_ == bulkMass; }
  constexpr void setIsBulkMass(bool is) { become(bulkMass, is); }
  constexpr bool isImpactEnergy() const { return case_ == impactEnergy; }
  constexpr void setIsImpactEnergy(bool is) { become(impactEnergy, is); }
  constexpr bool isImpactEnergyDensity() const { return case_ == impactEnergyDensity; }
  constexpr void setIsImpactEnergyDensity(bool is) { become(impactEnergyDensity, is); }
  constexpr bool isDustCharge() const { return case_ == dustCharge; }
  constexpr void setIsDustCharge(bool is) { become(dustCharge, is); }

  /// Whether a figure coloured by the quantity has a colour bar: true for all but none and
  /// compositionType.
  constexpr bool hasColorBar() const { return !isNone() && !isCompositionType(); }

  /// The table of each quantity when none is chosen. The application may assign others, on one
  /// thread; the first use may be on any. The names are settled, with their slips of the pen.
  static PlotCT& impactChargeCT();
  static PlotCT& wfIntegralCT();
  static PlotCT& riseTimeCT();
  static PlotCT& impactSpeedCT();
  static PlotCT& grainSizeCT();
  static PlotCT& compositionTypeCT();
  static PlotCT& calibrationQualityCT();
  static PlotCT& stretchParamterCT();
  static PlotCT& shiftParameterCT();
  static PlotCT& eventTimeCT();
  static PlotCT& grainMassCT();
  static PlotCT& impactImpactEnergyCT();
  static PlotCT& impactImpactEnergyDensityCT();
  static PlotCT& dustChargeCT();

  /// A colour per value, in their order, and all else that the colour bar of the quantity shows.
  /// The table is the one given, or else the quantity's default.
  ///
  /// - Impact charge, impact speed, grain size, grain mass, impact energy and impact energy
  ///   density are mapped by their logarithm. The bar begins below the smallest value above 0 (0.1
  ///   for the charge) and ends above the largest, at tenths of a decade's numbers (2.3, 50) or,
  ///   for mass and energy density, at whole decades; it is 1 to 10 when there are no such values
  ///   or all are equal. Zeros take the first colour, as do infinities and NaN.
  /// - Stretch parameter, event time and dust charge are mapped linearly from the smallest to the
  ///   largest value, with empty labels on the bar. When those are equal, every value takes colour
  ///   100 of the table. A value that is not finite takes the first colour; where the range is
  ///   not finite at its lower end there is no colour.
  /// - The composition type is up to the handler, which gets the values and whose answer is
  ///   returned; absent without one.
  /// - All other quantities have the default definition, without colours.
  ///
  /// NaN does not count for the range. Absent when a value to be mapped is no number.
  ///
  /// A negative value of a quantity mapped by its logarithm is a fatal error, and so is a range
  /// that gives no index: for speed, size and energy, values above 0 and below 0.1, which put its
  /// lower end at 0.
  std::optional<ColorBarDefinition> getColors(const SymbolValues& values,
                                              std::optional<PlotCT> colorTable,
                                              const CompositionTypeHandler& handler) const;
  /// The same without a handler.
  std::optional<ColorBarDefinition> getColors(const SymbolValues& values,
                                              std::optional<PlotCT> colorTable) const;

  /// The colour for the chart engine.
  static CPTColor getCPTColor(const NSColor& color);

  friend constexpr bool operator==(const SymbolColorCode&, const SymbolColorCode&) = default;

 private:
  static constexpr int kUnused = 13;

  constexpr void become(Case quantity, bool is) {
    if (is) case_ = quantity;
  }
  [[noreturn]] void refuse() const;

  Case case_;
};

}  // namespace vexel

template <>
struct std::hash<vexel::SymbolColorCode> {
  std::size_t operator()(const vexel::SymbolColorCode& quantity) const noexcept {
    return std::hash<std::int64_t>{}(quantity.rawValue());
  }
};
