#pragma once

#include <vector>

#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGPoint.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// How a line ends, and how it turns a corner.
enum class CGLineCap { butt, round, square };
enum class CGLineJoin { miter, round, bevel };

/// How a path is stroked. Lengths are in points.
struct VEXEL_API CGStrokeStyle {
  /// Black unless set.
  CGColor color = CGColor::genericGray(0);
  /// At most 0, or not finite: nothing is drawn.
  CGFloat width = 1;
  /// Ends and corners; a corner longer than the limit times the width is cut off.
  CGLineCap cap = CGLineCap::butt;
  CGLineJoin join = CGLineJoin::miter;
  CGFloat miterLimit = 10;
  /// Lengths on, off, on, ...; empty for a solid line, which a pattern with a negative or
  /// non-finite length, or of zeros alone, is taken for.
  std::vector<CGFloat> dashPattern = {};
  /// Where in the pattern the line begins.
  CGFloat dashPhase = 0;
  /// Horizontal and vertical lines are moved by less than a pixel so that their edges fall on
  /// the pixels of a bitmap. Vector surfaces draw them where they are.
  bool alignsToPixels = false;

  friend bool operator==(const CGStrokeStyle&, const CGStrokeStyle&) = default;
};

}  // namespace vexel
