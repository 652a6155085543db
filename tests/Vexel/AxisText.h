#pragma once

#include <CorePlot/CPTXYAxis.h>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string>

namespace vexel {

inline std::string describe(const std::optional<CPTLineStyle>& style) {
  if (!style) return "none";
  const CGColor color = style->strokeStyle().color;
  return fmt::format("width {} of {}, {}, {}", style->lineWidth, color.red(), color.green(),
                     color.blue());
}

inline std::string describe(const std::optional<CPTTextStyle>& style) {
  if (!style) return "none";
  const CGColor color = style->color.value_or(CPTColor::blackColor()).cgColor();
  return fmt::format("{} {} of {}, {}, {}", style->fontName, style->fontSize, color.red(),
                     color.green(), color.blue());
}

/// Everything that can be set on an axis, as text: what two of them have in common does not differ.
inline std::string describe(const CPTXYAxis& axis) {
  std::string text = fmt::format(
      "coordinate {}, space {}, policy {}, interval {}, origin {}, minor {}, preferred {}\n",
      static_cast<int>(axis.coordinate()), fmt::ptr(axis.plotSpace().get()),
      static_cast<int>(axis.labelingPolicy()), axis.majorIntervalLength(), axis.labelingOrigin(),
      axis.minorTicksPerInterval(), axis.preferredNumberOfMajorTicks());
  text +=
      fmt::format("locations {} {}, labels", axis.majorTickLocations(), axis.minorTickLocations());
  for (const auto& label : axis.axisLabels())
    text += fmt::format(" {}:{}", label->tickLocation(), label->contentLayer()->text());
  text += fmt::format("\nticks {} {}, directions {} {} {}\n", axis.majorTickLength(),
                      axis.minorTickLength(), static_cast<int>(axis.tickDirection()),
                      static_cast<int>(axis.tickLabelDirection()),
                      static_cast<int>(axis.titleDirection()));
  text += fmt::format("line {}; ticks {}, {}; grid {}, {}\n", describe(axis.axisLineStyle()),
                      describe(axis.majorTickLineStyle()), describe(axis.minorTickLineStyle()),
                      describe(axis.majorGridLineStyle()), describe(axis.minorGridLineStyle()));
  text += fmt::format("labels {}, {} of 0.125, offset {}, rotation {}\n",
                      describe(axis.labelTextStyle()),
                      axis.labelFormatter() ? axis.labelFormatter()->string(0.125) : "none",
                      axis.labelOffset(), axis.labelRotation());
  text += fmt::format("title {}, {}, offset {}\n", axis.title().value_or("none"),
                      describe(axis.titleTextStyle()), axis.titleOffset());
  text +=
      fmt::format("position {}, pinned {}, separate {}, delegate {}\n", axis.orthogonalPosition(),
                  axis.axisConstraints() ? axis.axisConstraints()->position(0, 1000) : -1,
                  axis.separateLayers(), axis.delegate() != nullptr);
  return text;
}

}  // namespace vexel
