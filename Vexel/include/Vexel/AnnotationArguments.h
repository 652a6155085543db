#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <AppKit/NSColor.h>
#include <CorePlot/CPTColor.h>
#include <CorePlot/CPTXYGraph.h>
#include <Foundation/VexelAPI.h>
#include <Vexel/Argument.h>

namespace vexel {

/// Where a plain text stands on a graph and what it looks like.
struct VEXEL_API AnnotationArguments {
  /// Null: nothing is added.
  Argument<std::shared_ptr<CPTXYGraph>> graph;
  /// x, y in plot-space units; comes before anchorPointNormal. Julian days keep quarters of a day.
  std::optional<std::vector<float>> anchorPlotPoint = std::nullopt;
  /// x, y as fractions of the ranges that the graph has when the text is added: 0 is the start, 1
  /// the end; fractions of the decades on a logarithmic scale.
  std::optional<std::vector<double>> anchorPointNormal = std::nullopt;
  /// In points.
  Argument<float> fontSize;
  /// Absent: the chart engine's default.
  std::optional<std::string> fontName = std::nullopt;
  /// Not used; stays for its callers.
  std::optional<std::string> color = std::nullopt;
  /// Of the text; comes before nsColor. With neither it is the theme's foreground.
  std::optional<CPTColor> cptcolor = std::nullopt;
  /// Of the text when there is no cptcolor.
  std::optional<NSColor> nsColor = std::nullopt;
};

/// Where an attributed text stands on a graph; as in AnnotationArguments.
struct VEXEL_API AttributedAnnotationArguments {
  /// As above.
  Argument<std::shared_ptr<CPTXYGraph>> graph;
  std::optional<std::vector<float>> anchorPlotPoint = std::nullopt;
  std::optional<std::vector<double>> anchorPointNormal = std::nullopt;
};

}  // namespace vexel
