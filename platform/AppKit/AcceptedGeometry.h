#pragma once

#include <cmath>

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/CGSize.h>

namespace vexel {

/// The point with coordinates that are not finite taken as 0.
inline CGPoint acceptedPoint(CGPoint point) {
  return {std::isfinite(point.x) ? point.x : 0, std::isfinite(point.y) ? point.y : 0};
}

/// The size with lengths that are negative or not finite taken as 0.
inline CGSize acceptedSize(CGSize size) {
  const auto accepted = [](CGFloat length) {
    return std::isfinite(length) && length > 0 ? length : 0;
  };
  return {accepted(size.width), accepted(size.height)};
}

}  // namespace vexel
