#include <PlotColorTable/SymbolColorCode.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include <Foundation/FatalError.h>
#include <Kitbase/EmptyFormatter.h>

#include "ColorMapping.h"
#include "PlotColorTable.h"

namespace vexel {

namespace {

using AxisType = ColorBarDefinition::AxisType;

constexpr std::int64_t kColorOfEqualValues = 100;

/// Where a logarithmic bar begins and ends.
enum class Ends { tenths, decades };

struct LogarithmicQuantity {
  SymbolColorCode::Case quantity;
  Ends ends;
  PlotCT& (*defaultTable)();
  const char* title;
  /// Values at or below it do not count for the lower end.
  double threshold;
};

constexpr LogarithmicQuantity kLogarithmic[] = {
    {SymbolColorCode::impactCharge, Ends::tenths, SymbolColorCode::impactChargeCT,
     "Impact Charge (fC)", 0.1},
    {SymbolColorCode::impactSpeed, Ends::tenths, SymbolColorCode::impactSpeedCT,
     "Impact Speed (km/s)", 0.0},
    {SymbolColorCode::grainSize, Ends::tenths, SymbolColorCode::grainSizeCT, "Grain Size", 0.0},
    {SymbolColorCode::grainMass, Ends::decades, SymbolColorCode::grainMassCT, "Grain Mass (kg)",
     0.0},
    {SymbolColorCode::impactEnergy, Ends::tenths, SymbolColorCode::impactImpactEnergyCT,
     "Impact Energy", 0.0},
    // Deliberate: the same title as the energy's.
    {SymbolColorCode::impactEnergyDensity, Ends::decades,
     SymbolColorCode::impactImpactEnergyDensityCT, "Impact Energy", 0.0},
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
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double least = kInfinity;
  double greatest = -kInfinity;
  bool anyCounts = false;
  // Comparisons with NaN are false.
  for (const double value : values) {
    const bool counts = value > quantity.threshold;
    anyCounts |= counts;
    least = counts && value < least ? value : least;
    greatest = value > greatest ? value : greatest;
  }
  const double min = anyCounts ? least : 1.0;
  const double max = greatest > -kInfinity ? greatest : 10.0;
  if (max <= min) return {0, 1};
  if (quantity.ends == Ends::decades)
    return {std::floor(std::log10(min)), std::ceil(std::log10(max))};
  return {std::log10(std::floor(10 * min) / 10), std::log10(10 * std::ceil(max / 10))};
}

ColorScale rangeOf(std::span<const double> values) {
  ColorScale range{std::numeric_limits<double>::infinity(),
                   -std::numeric_limits<double>::infinity()};
  // Comparisons with NaN are false.
  for (const double value : values) {
    range.low = value < range.low ? value : range.low;
    range.high = value > range.high ? value : range.high;
  }
  return range.low <= range.high ? range : ColorScale{0.0, 1.0};
}

std::vector<CPTColor> paletteOf(const PlotColorTable& table) {
  std::vector<CPTColor> palette;
  palette.reserve(table.colors().size());
  for (const NSColor& color : table.colors())
    palette.push_back(SymbolColorCode::getCPTColor(color));
  return palette;
}

ColorBarDefinition logarithmicDefinition(std::span<const double> values, PlotCT table,
                                         const LogarithmicQuantity& quantity) {
  std::vector<CPTColor> palette = paletteOf(PlotColorTable(table.number(), table.family()));
  const ColorScale decades = decadesOf(values, quantity);
  std::vector<std::uint32_t> places = logarithmicPlaces(values, decades, palette.size());
  return {CPTColorList(std::move(palette), std::move(places)),     table,   AxisType::log,
          {std::pow(10, decades.low), std::pow(10, decades.high)}, nullptr, quantity.title};
}

/// The colour of values that are all equal, once per value.
CPTColorList equalColors(std::size_t count, PlotCT table) {
  const auto color = table.getCPTColor(kColorOfEqualValues);
  if (!color) return CPTColorList({}, std::vector(count, CPTColorList::kNoColor));
  return CPTColorList({*color}, std::vector<std::uint32_t>(count, 0));
}

CPTColorList linearColors(std::span<const double> values, ColorScale range, PlotCT table) {
  std::vector<CPTColor> palette = paletteOf(PlotColorTable(table.number(), table.family()));
  if (range.low == range.high) return equalColors(values.size(), table);
  std::vector<std::uint32_t> places = linearPlaces(values, range, palette.size());
  return CPTColorList(std::move(palette), std::move(places));
}

ColorBarDefinition linearDefinition(std::span<const double> values, PlotCT table,
                                    const LinearQuantity& quantity) {
  const ColorScale range = rangeOf(values);
  return {
      linearColors(values, range, table), table,         AxisType::linear, {range.low, range.high},
      std::make_shared<EmptyFormatter>(), quantity.title};
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
