#include "ColorCoding.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Ascii.h"

namespace explorer {

using vexel::ColorBarDefinition;
using vexel::SymbolColorCode;

namespace {

struct Word {
  const char* word;
  SymbolColorCode::Case quantity;
};

constexpr Word kWords[] = {
    {"charge", SymbolColorCode::impactCharge},  {"speed", SymbolColorCode::impactSpeed},
    {"velocity", SymbolColorCode::impactSpeed}, {"size", SymbolColorCode::grainSize},
    {"radius", SymbolColorCode::grainSize},     {"mass", SymbolColorCode::grainMass},
    {"energy", SymbolColorCode::impactEnergy},
};

// Quantities other than masses begin at a tenth of their unit or above.
constexpr double kTenth = 0.1;
// Shorter spans are shown linearly, longer ones would have no whole decade in a double.
constexpr double kLeastSpan = 10;
constexpr double kLargest = 1e300;

SymbolColorCode quantityFor(const std::string& name, double least, double greatest) {
  if (!(least > 0 && greatest >= kLeastSpan * least && greatest <= kLargest))
    return SymbolColorCode::dustCharge;
  const std::string lower = lowerCase(name);
  const auto named = std::ranges::find_if(
      kWords, [&](const Word& known) { return lower.find(known.word) != std::string::npos; });
  if (named == std::end(kWords) || least < kTenth) return SymbolColorCode::grainMass;
  return named->quantity;
}

}  // namespace

ColorCoding codingOf(std::string title, Numbers values) {
  double least = std::numeric_limits<double>::infinity();
  double greatest = -least;
  for (const double value : values) {
    if (std::isnan(value)) continue;
    least = std::min(least, value);
    greatest = std::max(greatest, value);
  }
  const SymbolColorCode quantity = quantityFor(title, least, greatest);
  return {quantity, std::move(title), std::move(values)};
}

ColorBarDefinition ColorCoding::definition() const {
  ColorBarDefinition definition = *quantity.getColors(values, table);
  definition.title = title;
  // Dust charges have a bar without numbers, which other linear quantities need.
  definition.formatter = nullptr;
  for (std::size_t i = 0; i < values.size(); ++i)
    if (std::isnan(values[i])) definition.colors.set(i, std::nullopt);
  return definition;
}

}  // namespace explorer
