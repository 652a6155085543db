#pragma once

#include <optional>
#include <vector>

#include <CoreGraphics/CGStrokeStyle.h>
#include <CorePlot/CPTColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// How a line is drawn. A value: changing a copy changes nothing else, and a style takes effect
/// when it is set. Lengths are in points.
struct VEXEL_API CPTLineStyle {
  /// Ends, corners, and where corners become too long to be sharp, as CGStrokeStyle has them.
  CGLineCap lineCap = CGLineCap::butt;
  CGLineJoin lineJoin = CGLineJoin::miter;
  CGFloat miterLimit = 10;
  /// At most 0, or not finite: no line.
  CGFloat lineWidth = 1;
  /// Lengths on, off, on, ...; empty for a solid line.
  std::vector<CGFloat> dashPattern = {};
  /// Where in the pattern the line begins.
  CGFloat patternPhase = 0;
  /// Absent: black.
  std::optional<CPTColor> lineColor = CPTColor::blackColor();

  /// The style as the drawing context takes it.
  CGStrokeStyle strokeStyle() const;

  friend bool operator==(const CPTLineStyle&, const CPTLineStyle&) = default;
};

/// The name under which code that changes a style knows it.
using CPTMutableLineStyle = CPTLineStyle;

}  // namespace vexel
