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

/// A series of lines or circles, coloured by `Color`, which is CPTColor or NSColor. Lengths are
/// in points, angles in radians.
template <class Color>
struct VEXEL_API ColoredPlotArguments {
  /// Null: nothing is added.
  Argument<std::shared_ptr<CPTXYGraph>> to;
  /// The name by which the data source knows the series.
  Argument<std::string> identifiedBy;
  /// Of the line, where absent means the theme's foreground, or of the circles' outline, where
  /// absent means the chart engine's default.
  Argument<std::optional<Color>> color;
  /// Of the line or of the outlines.
  Argument<float> lineWidth;
  /// Lengths on, off, on, ...; absent: solid.
  std::optional<std::vector<double>> dashPattern = std::nullopt;
  /// True: circles without a line through them.
  Argument<bool> circle;
  /// The diameter.
  Argument<float> circleSize;
  /// Absent: circles are not filled.
  std::optional<Color> circleFillColor = std::nullopt;
  /// True: no line either, and labels take the offset and rotation.
  Argument<bool> label;
  /// From a point to its label, and how labels are turned, counter-clockwise.
  Argument<float> labelOffset;
  Argument<float> labelRotation;
  /// Used when it is a CALayerDelegate; referred to weakly.
  NSObject* delegate = nullptr;
};

/// The two kinds of colours that a series may be given.
using CPTColorPlotArguments = ColoredPlotArguments<CPTColor>;
using NSColorPlotArguments = ColoredPlotArguments<NSColor>;

/// A series in the theme's foreground.
struct VEXEL_API PlotArguments {
  /// As in ColoredPlotArguments.
  Argument<std::shared_ptr<CPTXYGraph>> to;
  Argument<std::string> identifiedBy;
  Argument<float> lineWidth;
  std::optional<std::vector<double>> dashPattern = std::nullopt;
  Argument<bool> circle;
  Argument<float> circleSize;
  std::optional<CPTColor> circleFillColor = std::nullopt;
  Argument<bool> label;
  Argument<float> labelOffset;
  Argument<float> labelRotation;
  NSObject* delegate = nullptr;
};

/// A series of bars. Colours are names as Vexel::getCPTColor knows them.
struct VEXEL_API BarPlotArguments {
  /// Null: nothing is added.
  Argument<std::shared_ptr<CPTXYGraph>> to;
  /// The name by which the data source knows the series.
  Argument<std::string> identifiedBy;
  /// In plot-space units; not used when bar bases vary.
  Argument<float> barWidth;
  /// True: the data source says where each bar begins.
  Argument<bool> barBasesVary;
  /// Of the fill; absent or unknown: grey that suits the theme.
  std::optional<std::string> color = std::nullopt;
  /// Of the outline; absent or unknown: the theme's foreground.
  std::optional<std::string> lineColor = std::nullopt;
  /// In points.
  Argument<float> lineWidth;
  /// True: bars lie.
  Argument<bool> barsAreHorizontal;
  /// True: labels in the theme's foreground, with the offset and rotation.
  Argument<bool> labels;
  /// From a tip to its label, in points, and how labels are turned, in radians.
  Argument<float> labelOffset;
  Argument<float> labelRotation;
  /// Used when it is a CALayerDelegate; referred to weakly.
  NSObject* delegate = nullptr;
};

}  // namespace vexel
