#pragma once

#include <concepts>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <CorePlot/CPTAxisLabel.h>
#include <CorePlot/CPTConstraints.h>
#include <Foundation/NSFormatter.h>
#include <Foundation/VexelAPI.h>
#include <Vexel/Argument.h>

namespace vexel {

/// What the vertical axis of a graph looks like. Ranges are in data units, lower end first;
/// lengths in points.
template <std::floating_point Number>
struct VEXEL_API YAxisArguments {
  /// Absent: the axis has no title.
  std::optional<std::string> title = std::nullopt;
  /// Absent: the chart engine's default.
  std::optional<float> titleOffset = std::nullopt;
  /// Between major ticks, in plot-space units; absent: a round one for the range.
  std::optional<Number> yMajorIntervalLength = std::nullopt;
  /// Where the axis is pinned; absent: it stays where it is.
  std::optional<CPTConstraints> axisConstraints = std::nullopt;
  /// At least two values.
  Argument<std::vector<Number>> yRange;
  /// Multiplies the range into plot-space units.
  Argument<Number> yScale;
  /// Of the tick labels; null: a number formatter with as many digits as the interval asks for.
  std::shared_ptr<NSFormatter> formatter = nullptr;
  /// Major grid lines.
  Argument<bool> gridLines;
  /// Only with gridLines.
  Argument<bool> minorGridLines;
  /// Absent: 3. A negative number is a fatal error.
  std::optional<int> minorTicksPerInterval = std::nullopt;
  /// True: ticks have no labels.
  Argument<bool> noLabels;
  /// False: no ticks are drawn.
  Argument<bool> tickMarks;
  /// Exactly these ticks, with tickMarks. Ignored by the overload for float.
  std::optional<std::set<double>> tickLocations = std::nullopt;
  /// Exactly these labels. Ignored by the overload for float.
  std::optional<std::vector<std::shared_ptr<CPTAxisLabel>>> axisLabels = std::nullopt;
  /// True: a new axis for the right side; the graph's own and the range stay as they are.
  Argument<bool> rightAxis;
  /// Used when it is a CPTAxisDelegate; referred to weakly.
  NSObject* delegate = nullptr;
};

/// What the horizontal axis of a graph looks like.
struct VEXEL_API XAxisArguments {
  /// Replaced by the time title on a time axis. Absent: stays as it is.
  std::optional<std::string> title = std::nullopt;
  /// Absent: the chart engine's default.
  std::optional<float> titleOffset = std::nullopt;
  /// In data units, lower end first; Julian days on a time axis. Absent: the visible range stays.
  std::optional<std::vector<double>> xRange = std::nullopt;
  /// Multiplies the range into plot-space units; absent: 1.
  std::optional<double> xScale = std::nullopt;
  /// Between major ticks, in plot-space units; absent: a round one for the range.
  std::optional<double> xMajorIntervalLength = std::nullopt;
  /// Where the axis is pinned; absent: it stays where it is.
  std::optional<CPTConstraints> axisConstraints = std::nullopt;
  /// Of the tick labels; null: a number formatter with as many digits as the interval asks for.
  std::shared_ptr<NSFormatter> formatter = nullptr;
  /// Major and minor grid lines.
  Argument<bool> gridLines;
  /// True: ticks have no labels.
  Argument<bool> noLabels;
  /// False: no ticks but those by hand and those of time, and these as the engine draws them.
  Argument<bool> tickMarks;
  /// Exactly these ticks; not on a time axis.
  std::optional<std::set<double>> tickLocations = std::nullopt;
  /// Exactly these labels; not on a time axis.
  std::optional<std::vector<std::shared_ptr<CPTAxisLabel>>> axisLabels = std::nullopt;
  /// Labels the range with years, days of the year, hours or minutes.
  Argument<bool> timeAxis;
  /// True: a new axis for the upper side; the graph's own stays as it is.
  Argument<bool> upperAxis;
  /// True: the axis gets a plot space of its own, with the y range of the default one.
  Argument<bool> onNewPlotSpace;
  /// Used when it is a CPTAxisDelegate; referred to weakly.
  NSObject* delegate = nullptr;
  /// See CPTAxis::separateLayers().
  Argument<bool> separateLayers;
};

}  // namespace vexel
