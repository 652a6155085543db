#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vexel {

/// The ends of the scale that colours are spread over.
struct ColorScale {
  double low;
  double high;
};

// The place of the colour of each value in a table of so many colours. CPTColorList::kNoColor where
// the table has none.

/// By the decimal logarithm on a scale of decades. Values that are not finite take the first
/// colour. A negative value and a place that is no integer are fatal errors.
std::vector<std::uint32_t> logarithmicPlaces(std::span<const double> values, ColorScale decades,
                                             std::size_t colors);

/// On a linear scale, whose ends differ. Values that are not finite take the low end.
std::vector<std::uint32_t> linearPlaces(std::span<const double> values, ColorScale scale,
                                        std::size_t colors);

}  // namespace vexel
