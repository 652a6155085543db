#pragma once

#include <Vexel/SeriesArguments.h>

namespace vexel {

/// Arguments of a plain line in red or, without colour, in the theme's; tests change what they
/// are about.
inline CPTColorPlotArguments cptLine(std::shared_ptr<CPTXYGraph> graph) {
  return {.to = std::move(graph),
          .identifiedBy = "Charge",
          .color = CPTColor::redColor(),
          .lineWidth = 1.5,
          .circle = false,
          .circleSize = 8,
          .label = false,
          .labelOffset = 3,
          .labelRotation = 0.5};
}

inline NSColorPlotArguments nsLine(std::shared_ptr<CPTXYGraph> graph) {
  return {.to = std::move(graph),
          .identifiedBy = "Charge",
          .color = NSColor::redColor(),
          .lineWidth = 1.5,
          .circle = false,
          .circleSize = 8,
          .label = false,
          .labelOffset = 3,
          .labelRotation = 0.5};
}

inline PlotArguments plainLine(std::shared_ptr<CPTXYGraph> graph) {
  return {.to = std::move(graph),
          .identifiedBy = "Charge",
          .lineWidth = 1.5,
          .circle = false,
          .circleSize = 8,
          .label = false,
          .labelOffset = 3,
          .labelRotation = 0.5};
}

inline BarPlotArguments bars(std::shared_ptr<CPTXYGraph> graph) {
  return {.to = std::move(graph),
          .identifiedBy = "Counts",
          .barWidth = 0.75,
          .barBasesVary = false,
          .lineWidth = 1.5,
          .barsAreHorizontal = false,
          .labels = false,
          .labelOffset = 3,
          .labelRotation = 0.5};
}

}  // namespace vexel
