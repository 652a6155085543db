#include "PenReach.h"

#include <algorithm>
#include <cmath>

namespace vexel {

CGFloat usableMiterLimit(const CGStrokeStyle& style) {
  constexpr CGFloat kDefault = 10;
  return style.miterLimit >= 1 && std::isfinite(style.miterLimit) ? style.miterLimit : kDefault;
}

CGFloat penReach(const CGStrokeStyle& style) {
  if (!(style.width > 0 && std::isfinite(style.width))) return 0;
  const CGFloat joins = style.join == CGLineJoin::miter ? usableMiterLimit(style) : 1;
  const CGFloat caps = style.cap == CGLineCap::square ? std::sqrt(2.0) : 1;
  return style.width / 2 * std::max(joins, caps);
}

}  // namespace vexel
