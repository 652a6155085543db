#pragma once

#include <vector>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGStrokeStyle.h>

namespace vexel {

/// The lengths on, off, ... of a style; empty for a solid line.
std::vector<double> usableDashes(const CGStrokeStyle& style);

/// A pen for paths that are in the device already.
struct DevicePen {
  /// From the coordinates of the lengths below to the device; the identity, which keeps files
  /// small, where the pen stays round. It never makes anything smaller.
  CGAffineTransform toDevice = {};
  /// 0 for a pen that nothing can be drawn with.
  CGFloat width = 0;
  std::vector<double> dashes = {};
  CGFloat dashPhase = 0;
};

/// The pen of a style under a transform that has an inverse, for a path whose dashes have got
/// `lengthBefore` further than the style says (before the transform).
DevicePen devicePen(const CGStrokeStyle& style, const CGAffineTransform& transform,
                    CGFloat lengthBefore);

}  // namespace vexel
