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

    /// The upright rectangle around the turned text.
    CGRect box() const;
  };

  CPTCoordinate coordinate = CPTCoordinate::X;
  CGFloat along = 0;
  CGFloat across = 0;
  /// The axis line's place across.
  CGFloat line = 0;
  /// Ticks inside the plot area, along; no more than can be told apart.
  std::vector<CGFloat> majorTicks;
  std::vector<CGFloat> minorTicks;
  std::vector<Text> labels;
  std::optional<Text> title;

  CGPoint point(CGFloat alongAxis, CGFloat acrossAxis) const {
    return coordinate == CPTCoordinate::X ? CGPoint{alongAxis, acrossAxis}
                                          : CGPoint{acrossAxis, alongAxis};
  }
};

/// The place across of the axis's line: where its constraints or its orthogonal position put it.
CGFloat pinnedLine(const CPTXYAxis& axis, CGSize plotArea);

/// The axis with its line at a place across. Labels are centred on their ticks, but moved along as
/// far as it takes to lie inside `view`, the part of the world around the plot area that can be
/// seen. Those that would touch are left out evenly, and of ticks too many to be told apart those
/// without labels. A title longer than the axis is broken into lines; where it would leave the view
/// it is moved towards the labels, and set in smaller type.
///
/// Absent when the axis has no plot space, or the plot area no size.
std::optional<AxisLayout> layoutAxis(const CPTXYAxis& axis, CGSize plotArea, const CGRect& view,
                                     CGFloat line);

void drawMinorGrid(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout);
void drawMajorGrid(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout);
void drawLineAndTicks(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout);
/// Whether labels or title touch `rect`, in the plot area's coordinates; true when it is absent.
bool textTouches(const AxisLayout& layout, const std::optional<CGRect>& rect);
/// Only what touches `rect`, in the plot area's coordinates, unless it is absent.
void drawLabels(CGContext& context, const AxisLayout& layout, const std::optional<CGRect>& rect);
void drawAxisTitle(CGContext& context, const AxisLayout& layout, const std::optional<CGRect>& rect);

/// The ticks that the axis shows, in plot-space units: those of its labelling policy inside the
/// visible range, no more than an axis of `extent` points has room for.
Ticks visibleTicks(const CPTAxis& axis, CGFloat extent);

/// The side of the axis line on which labels stand.
CPTSign labelSide(const CPTAxis& axis);
/// How far the major ticks reach to one side of the axis line.
CGFloat tickReach(const CPTAxis& axis, CPTSign side);

}  // namespace vexel
