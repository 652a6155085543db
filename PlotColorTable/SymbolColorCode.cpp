#include <PlotColorTable/SymbolColorCode.h>

#include <algorithm>
#include <cmath>
#include <string>

#include <Foundation/FatalError.h>
#include <Kitbase/EmptyFormatter.h>

#include "ColorMapping.h"
#include "PlotColorTable.h"

namespace vexel {

namespace {

using AxisType = ColorBarDefinition::AxisType;

/// Where a logarithmic bar begins and ends.
enum class Ends { tenths, decades };

struct LogarithmicQuantity {
  SymbolColorCode::Case quantity;
  PlotCT& (*defaultTable)();
  const char* title;
  /// Values at or below it do not count for the lower end.
  double threshold;
  Ends ends;
};

constexpr LogarithmicQuantity kLogarithmic[] = {
    {SymbolColorCode::impactCharge, SymbolColorCode::impactChargeCT, "Impact Charge (fC)", 0.1,
     Ends::tenths},
    {SymbolColorCode::impactSpeed, SymbolColorCode::impactSpeedCT, "Impact Speed (km/s)", 0.0,
     Ends::tenths},
    {SymbolColorCode::grainSize, SymbolColorCode::grainSizeCT, "Grain Size", 0.0, Ends::tenths},
    {SymbolColorCode::grainMass, SymbolColorCode::grainMassCT, "Grain Mass (kg)", 0.0,
     Ends::decades},
    {SymbolColorCode::impactEnergy, SymbolColorCode::impactImpactEnergyCT, "Impact Energy", 0.0,
     Ends::tenths},
    // Deliberate: the same title as the energy's.
    {SymbolColorCode::impactEnergyDensity, SymbolColorCode::impactImpactEnergyDensityCT,
     "Impact Energy", 0.0, Ends::decades},
};

struct LinearQuantity {
  SymbolColorCode::Case quantity;
  PlotCT& (*defaultTable)();
  const char* title;
};

constexpr LinearQuantity kLinear[] = {
    {SymbolColorCode::stretchParameter, SymbolColorCode::stretchParamterCT,
     "Stretch Parameter (ns)"},
    {SymbolColorCode::eventTime, SymbolColorCode::eventTimeCT, "Event Time"},
    {SymbolColorCode::dustCharge, SymbolColorCode::dustChargeCT, "Dust Charge"},
};

template <class Quantity, std::size_t n>
const Quantity* find(const Quantity (&quantities)[n], const SymbolColorCode& code) {
  const auto* found = std::ranges::find_if(
      quantities, [&](const Quantity& known) { return known.quantity == code; });
  return found == std::end(quantities) ? nullptr : found;
}

/// Lends the values as doubles, or keeps them converted in `storage`; absent when one is no number.
std::optional<std::span<const double>> numbersOf(const SymbolValues& values,
                                                 std::vector<double>& storage) {
  if (values.objects().empty()) return values.numbers();
  storage.reserve(values.count());
  for (std::size_t i = 0; i < values.count(); ++i) {
    const auto number = values.number(i);
    if (!number) return std::nullopt;
    storage.push_back(*number);
  }
  return storage;
}

/// The decades from the smallest value above the threshold to the largest of all.
ColorScale decadesOf(std::span<const double> values, const LogarithmicQuantity& quantity) {
  std::optional<double> least;
  std::optional<double> greatest;
  for (const double value : values) {
    if (std::isnan(value)) continue;
    if (value > quantity.threshold && (!least || value < *least)) least = value;
    if (!greatest || value > *greatest) greatest = value;
  }
  const double min = least.value_or(1.0);
  const double max = greatest.value_or(10.0);
  if (max <= min) return {0, 1};
  if (quantity.ends == Ends::decades)
    return {std::floor(std::log10(min)), std::ceil(std::log10(max))};
  return {std::log10(std::floor(10 * min) / 10), std::log10(10 * std::ceil(max / 10))};
}

ColorScale rangeOf(std::span<const double> values) {
  std::optional<ColorScale> range;
  for (const double value : values) {
    if (std::isnan(value)) continue;
    if (!range) range = {value, value};
    range->low = std::min(range->low, value);
    range->high = std::max(range->high, value);
  }
  return range.value_or(ColorScale{0.0, 1.0});
}

ColorBarDefinition logarithmicDefinition(std::span<const double> values, PlotCT table,
                                         const LogarithmicQuantity& quantity) {
  const PlotColorTable colorTable(table.number(), table.family());
  const ColorScale decades = decadesOf(values, quantity);
  return {logarithmicColors(values, decades, colorTable.colors()), table,   AxisType::log,
          {std::pow(10, decades.low), std::pow(10, decades.high)}, nullptr, quantity.title};
}

ColorBarDefinition linearDefinition(std::span<const double> values, PlotCT table,
                                    const LinearQuantity& quantity) {
  const PlotColorTable colorTable(table.number(), table.family());
  const ColorScale range = rangeOf(values);
  return {linearColors(values, range, colorTable.colors(), table),
          table,
          AxisType::linear,
          {range.low, range.high},
          std::make_shared<EmptyFormatter>(),
          quantity.title};
}

}  // namespace

std::optional<SymbolColorCode> SymbolColorCode::fromRawValue(std::int64_t rawValue) {
  if (rawValue < none || rawValue > bulkMass || rawValue == kUnused) return std::nullopt;
  return SymbolColorCode(static_cast<Case>(rawValue));
}

std::optional<ColorBarDefinition> SymbolColorCode::getColors(
    const SymbolValues& values, std::optional<PlotCT> colorTable,
    const CompositionTypeHandler& handler) const {
  if (rawValue() == compositionType) return handler ? handler(values) : std::nullopt;

  const auto* logarithmic = find(kLogarithmic, *this);
  const auto* linear = find(kLinear, *this);
  if (!logarithmic && !linear) return ColorBarDefinition();

  std::vector<double> storage;
  const auto numbers = numbersOf(values, storage);
  if (!numbers) return std::nullopt;
  if (logarithmic) {
    const PlotCT table = colorTable ? *colorTable : logarithmic->defaultTable();
    return logarithmicDefinition(*numbers, table, *logarithmic);
  }
  const PlotCT table = colorTable ? *colorTable : linear->defaultTable();
  return linearDefinition(*numbers, table, *linear);
}

std::optional<ColorBarDefinition> SymbolColorCode::getColors(
    const SymbolValues& values, std::optional<PlotCT> colorTable) const {
  return getColors(values, colorTable, nullptr);
}

CPTColor SymbolColorCode::getCPTColor(const NSColor& color) {
  return CPTColor(color.cgColor());
}

void SymbolColorCode::refuse() const {
  fatalError("SymbolColorCode: unexpected raw value " + std::to_string(case_));
}

}  // namespace vexel
