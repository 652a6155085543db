#include "ColorMapping.h"

#include <algorithm>
#include <cmath>

#include <CorePlot/CPTColorList.h>
#include <Foundation/FatalError.h>

#include "QuickLogarithm.h"

namespace vexel {

namespace {

/// The value brought onto the scale.
double onScale(double value, const ColorScale& scale) {
  const double x = value > scale.low ? value : scale.low;
  return scale.high < x ? scale.high : x;
}

/// NaN and numbers outside the table have no colour.
std::uint32_t placeAt(double index, std::size_t colors) {
  const bool isInside = index >= 0 && index < static_cast<double>(colors);
  return isInside ? static_cast<std::uint32_t>(index) : CPTColorList::kNoColor;
}

/// The places on a logarithmic scale, as exact as the arithmetic that defines them.
class LogarithmicPlaces {
 public:
  LogarithmicPlaces(ColorScale decades, std::size_t colors)
      : decades_(decades),
        colors_(colors),
        last_(static_cast<double>(colors) - 1),
        placesPerDecade_(last_ / (decades.high - decades.low)),
        // What rounding may do to the exact arithmetic comes on top of the quick logarithm's error.
        doubt_(placesPerDecade_ * (QuickLogarithm::kError +
                                   kRounding * (std::abs(decades.low) + std::abs(decades.high))) +
               kRounding * last_) {}

  std::uint32_t of(double value) const {
    if (!std::isfinite(value)) return placeAt(0, colors_);
    if (value < 0) fatalError("SymbolColorCode.getColors: a negative value has no logarithm");
    const double index = placesPerDecade_ * (quickLogarithm_(value) - decades_.low);
    // Neither near a border between two colours nor beyond the ends of the scale. NaN is neither.
    if (index > doubt_ && index < last_ - doubt_) {
      const auto place = static_cast<std::uint32_t>(index);
      const double fraction = index - place;
      if (fraction > doubt_ && fraction < 1 - doubt_) return place;
    }
    return exactly(value);
  }

 private:
  static constexpr double kRounding = 1e-13;

  std::uint32_t exactly(double value) const {
    const double x = onScale(std::log10(value), decades_);
    const double index = std::floor(last_ * ((x - decades_.low) / (decades_.high - decades_.low)));
    constexpr double kLimit = 9223372036854775808.0;
    const bool isInteger = index >= -kLimit && index < kLimit;
    if (!isInteger)
      fatalError(
          "SymbolColorCode.getColors: a colour index is no integer; the scale reaches 0 or "
          "infinity");
    return placeAt(index, colors_);
  }

  QuickLogarithm quickLogarithm_;
  ColorScale decades_;
  std::size_t colors_;
  double last_;
  double placesPerDecade_;
  double doubt_;
};

}  // namespace

std::vector<std::uint32_t> logarithmicPlaces(std::span<const double> values, ColorScale decades,
                                             std::size_t colors) {
  const LogarithmicPlaces places(decades, colors);
  std::vector<std::uint32_t> result(values.size());
  std::ranges::transform(values, result.begin(), [&](double value) { return places.of(value); });
  return result;
}

std::vector<std::uint32_t> linearPlaces(std::span<const double> values, ColorScale scale,
                                        std::size_t colors) {
  const double last = static_cast<double>(colors) - 1;
  std::vector<std::uint32_t> result(values.size());
  std::ranges::transform(values, result.begin(), [&](double value) {
    const double x = onScale(std::isfinite(value) ? value : scale.low, scale);
    // What is not negative is rounded down by the conversion.
    return placeAt((x - scale.low) / (scale.high - scale.low) * last, colors);
  });
  return result;
}

}  // namespace vexel
