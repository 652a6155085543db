#pragma once

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/PixelBuffer.h>
#include <CoreGraphics/PixelRect.h>
#include <Kernels/CurveHull.h>
#include <Kernels/LineIntervals.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <span>

namespace vexel {

/// What is known of a curve.
struct CurveShape {
  /// No segment is steeper, in y over x; infinity when this is not known or the curve has gaps.
  double steepest = std::numeric_limits<double>::infinity();
  /// On average, over all of the width that pictures show; 0 when this is not known.
  double pointsPerPixel = 0;
};

/// A curve of sorted x, stroked with a round pen: round joins, round ends. A translucent colour
/// covers everything the stroke touches once, however often the curve crosses itself there.
///
/// The points are in device pixels: x to the right, y down, pixel (i, j) covers i to i + 1 and j
/// to j + 1. Their x ascend or descend; equal x are allowed. A point that is not finite breaks
/// the line; one between two breaks draws a dot as wide as the pen. Coordinates may be of any
/// size.
///
/// Antialiasing is by area in y and by 16 sampling lines per pixel in x, 32 for pens thinner than a
/// pixel, 8 for crowded curves and for those of a known steepness, and as few as 4 for flat ones.
/// Points are shifted in x by up to half of the lines' distance.
class LineRaster {
 public:
  /// The widest pen, in pixels.
  static constexpr double kMaximumWidth = 256;

  /// For what the clip shows of the target. The width is above 0 and at most kMaximumWidth.
  LineRaster(const PixelBuffer& target, const PixelRect& clip, double width,
             const CurveShape& curve = {});

  /// Goes on with the curve.
  void add(std::span<const CGPoint> points);

  /// Blends a premultiplied pixel value over what was covered. Nothing outside the clip is touched.
  void draw(std::uint32_t color);

 private:
  void addFar(CGPoint point);
  void finishRun();

  PixelBuffer target_;
  PixelRect view_;
  double width_;
  int linesPerPixel_;
  CurveHull hull_;
  std::optional<LineIntervals> runs_;  // those before a gap
  CGPoint last_;                       // not a number before the first point and in gaps
};

}  // namespace vexel
