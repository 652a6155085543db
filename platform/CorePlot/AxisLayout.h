#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <CoreGraphics/CGContext.h>
#include <CorePlot/CPTXYAxis.h>
#include <Kernels/Ticks.h>

namespace vexel {

/// Where the parts of an axis lie on a plot area, in the plot area's coordinates. "Along" is the
/// axis's own coordinate, "across" the other one.
struct AxisLayout {
  struct Text {
    std::shared_ptr<CPTTextLayer> content;
    CGPoint center;
    CGFloat rotation = 0;
  };

  CPTCoordinate coordinate = CPTCoordinate::X;
  CGFloat along = 0;
  CGFloat across = 0;
  /// The axis line's place across.
  CGFloat line = 0;
  /// Ticks inside the plot area, along.
  std::vector<CGFloat> majorTicks;
  std::vector<CGFloat> minorTicks;
  std::vector<Text> labels;
  std::optional<Text> title;

  CGPoint point(CGFloat alongAxis, CGFloat acrossAxis) const {
    return coordinate == CPTCoordinate::X ? CGPoint{alongAxis, acrossAxis}
                                          : CGPoint{acrossAxis, alongAxis};
  }
};

/// Absent when the axis has no plot space, or the plot area no size.
std::optional<AxisLayout> layoutAxis(const CPTXYAxis& axis, CGSize plotArea);

void drawMinorGrid(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout);
void drawMajorGrid(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout);
void drawLineAndTicks(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout);
void drawLabels(CGContext& context, const AxisLayout& layout);
void drawAxisTitle(CGContext& context, const AxisLayout& layout);

/// The ticks that the axis shows, in plot-space units: those of its labelling policy inside the
/// visible range, no more than an axis of `extent` points has room for.
Ticks visibleTicks(const CPTAxis& axis, CGFloat extent);

}  // namespace vexel
