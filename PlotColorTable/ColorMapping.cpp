#include "ColorMapping.h"

#include <cmath>

#include <Foundation/FatalError.h>
#include <PlotColorTable/SymbolColorCode.h>

namespace vexel {

namespace {

using Colors = std::vector<std::optional<CPTColor>>;

constexpr std::int64_t kColorOfEqualValues = 100;

Colors converted(std::span<const NSColor> colors) {
  Colors result;
  result.reserve(colors.size());
  for (const NSColor& color : colors) result.push_back(SymbolColorCode::getCPTColor(color));
  return result;
}

/// NaN and numbers outside the table have no colour.
const std::optional<CPTColor>& at(double index, const Colors& colors) {
  static constexpr std::optional<CPTColor> kNoColor;
  const bool isInside = index >= 0 && index < static_cast<double>(colors.size());
  return isInside ? colors[static_cast<std::size_t>(index)] : kNoColor;
}

double logarithm(double value) {
  if (value < 0) fatalError("SymbolColorCode.getColors: a negative value has no logarithm");
  return std::log10(value);
}

bool isInteger(double index) {
  constexpr double kLimit = 9223372036854775808.0;
  return index >= -kLimit && index < kLimit;
}

/// The value brought onto the scale.
double onScale(double value, const ColorScale& scale) {
  const double x = value > scale.low ? value : scale.low;
  return scale.high < x ? scale.high : x;
}

}  // namespace

Colors logarithmicColors(std::span<const double> values, ColorScale decades,
                         std::span<const NSColor> colors) {
  const Colors palette = converted(colors);
  const double last = static_cast<double>(palette.size()) - 1;
  Colors result;
  result.reserve(values.size());
  for (const double value : values) {
    if (!std::isfinite(value)) {
      result.push_back(at(0, palette));
      continue;
    }
    const double x = onScale(logarithm(value), decades);
    const double index = std::floor(last * ((x - decades.low) / (decades.high - decades.low)));
    if (!isInteger(index)) fatalError("SymbolColorCode.getColors: a colour index is no integer");
    result.push_back(at(index, palette));
  }
  return result;
}

Colors linearColors(std::span<const double> values, ColorScale scale,
                    std::span<const NSColor> colors, PlotCT table) {
  if (scale.low == scale.high) return Colors(values.size(), table.getCPTColor(kColorOfEqualValues));

  const Colors palette = converted(colors);
  const double last = static_cast<double>(palette.size()) - 1;
  Colors result;
  result.reserve(values.size());
  for (const double value : values) {
    const double x = onScale(std::isfinite(value) ? value : scale.low, scale);
    result.push_back(at(std::floor((x - scale.low) / (scale.high - scale.low) * last), palette));
  }
  return result;
}

}  // namespace vexel
