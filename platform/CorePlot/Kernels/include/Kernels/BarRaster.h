#pragma once

#include <CoreGraphics/CGRect.h>
#include <CoreGraphics/PixelBuffer.h>
#include <CoreGraphics/PixelRect.h>
#include <Kernels/LineIntervals.h>

#include <cstdint>

namespace vexel {

/// Many narrow bars as one shape: a translucent colour covers once what several bars share.
///
/// The bars are rectangles in device pixels: x to the right, y down, pixel (i, j) covers i to i + 1
/// and j to j + 1. Antialiasing is by area along the bars and by 32 sampling lines per pixel across
/// them. A bar between two lines covers the nearest one, so that none gets lost: of those that
/// share a line the longest is seen.
class BarRaster {
 public:
  /// Which way bars go: up and down, or left and right.
  enum class Direction { upright, lying };

  /// For what the clip shows of the target.
  BarRaster(const PixelBuffer& target, const PixelRect& clip, Direction direction);

  /// Coordinates are finite and of any size.
  void add(const CGRect& bar);

  /// Blends a premultiplied pixel value over what was covered; to be called once. Nothing outside
  /// the clip is touched.
  void draw(std::uint32_t color);

 private:
  PixelBuffer target_;
  PixelRect view_;
  bool isTurned_;
  LineIntervals intervals_;
};

}  // namespace vexel
