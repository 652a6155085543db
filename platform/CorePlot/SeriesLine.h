#pragma once

#include <CoreGraphics/CGContext.h>
#include <CorePlot/CPTScatterPlot.h>
#include <Kernels/AxisScale.h>
#include <Kernels/RangeIndex.h>

namespace vexel {

/// The line through the records of a series on a plot area whose bottom-left corner is (0, 0).
/// Both scales are drawable.
struct SeriesLine {
  const RangeIndex& records;
  AxisScale xScale;
  AxisScale yScale;
  CPTScatterPlotInterpolation interpolation;
};

/// Strokes the line with round joins: straight into the pixels of a bitmap when the x are sorted
/// and the line is solid, as a path otherwise. What is drawn of many records is not farther from
/// the line through all of them than can be seen at 1152 dots per inch.
void drawSeriesLine(CGContext& context, const SeriesLine& line, CGStrokeStyle style);

}  // namespace vexel
