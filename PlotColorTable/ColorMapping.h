#pragma once

#include <optional>
#include <span>
#include <vector>

#include <CorePlot/CPTColor.h>
#include <PlotColorTable/PlotCT.h>

namespace vexel {

/// The ends of the scale that colours are spread over.
struct ColorScale {
  double low;
  double high;
};

/// A colour per value, by its decimal logarithm on a scale of decades. Values that are not finite
/// take the first colour. Absent where there is no colour. A negative value and an index that is
/// no integer are fatal errors.
std::vector<std::optional<CPTColor>> logarithmicColors(std::span<const double> values,
                                                       ColorScale decades,
                                                       std::span<const NSColor> colors);

/// A colour per value on a linear scale; on one without length, colour 100 of the table for all.
/// Values that are not finite take the low end. Absent where there is no colour.
std::vector<std::optional<CPTColor>> linearColors(std::span<const double> values, ColorScale scale,
                                                  std::span<const NSColor> colors, PlotCT table);

}  // namespace vexel
