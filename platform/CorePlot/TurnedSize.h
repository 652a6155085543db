#pragma once

#include <cmath>

#include <CoreGraphics/CGSize.h>

namespace vexel {

/// Width and height of the upright box around one that is turned by an angle in radians.
inline CGSize turned(CGSize size, CGFloat angle) {
  if (angle == 0) return size;
  const CGFloat c = std::abs(std::cos(angle));
  const CGFloat s = std::abs(std::sin(angle));
  return {size.width * c + size.height * s, size.width * s + size.height * c};
}

}  // namespace vexel
