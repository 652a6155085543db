#include <CoreGraphics/CGRect.h>

#include <algorithm>

namespace vexel {

CGRect CGRect::insetBy(CGFloat dx, CGFloat dy) const {
  const CGFloat x = std::min(dx, size.width / 2), y = std::min(dy, size.height / 2);
  return make(origin.x + x, origin.y + y, std::max(0.0, size.width - 2 * x),
              std::max(0.0, size.height - 2 * y));
}

CGRect CGRect::intersection(const CGRect& other) const {
  if (isEmpty() || other.isEmpty()) return {};
  const CGFloat left = std::max(minX(), other.minX()), right = std::min(maxX(), other.maxX());
  const CGFloat bottom = std::max(minY(), other.minY()), top = std::min(maxY(), other.maxY());
  const CGRect common = make(left, bottom, right - left, top - bottom);
  return common.isEmpty() ? CGRect{} : common;
}

CGRect CGRect::unionWith(const CGRect& other) const {
  if (isEmpty()) return other.isEmpty() ? CGRect{} : other;
  if (other.isEmpty()) return *this;
  const CGFloat left = std::min(minX(), other.minX()), right = std::max(maxX(), other.maxX());
  const CGFloat bottom = std::min(minY(), other.minY()), top = std::max(maxY(), other.maxY());
  return make(left, bottom, right - left, top - bottom);
}

}  // namespace vexel
