#pragma once

#include <algorithm>

#include <CoreGraphics/CGRect.h>

namespace vexel {

/// What text may cover whose box, upright or turned, is given: slanted letters and marks above and
/// below others lean out of it.
inline CGRect textReach(const CGRect& box) {
  const CGFloat line = 1 + std::min(box.size.width, box.size.height);
  return box.insetBy(-line, -line);
}

}  // namespace vexel
