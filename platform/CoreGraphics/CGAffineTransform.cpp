#include <CoreGraphics/CGAffineTransform.h>

#include <cmath>

namespace vexel {

CGAffineTransform CGAffineTransform::rotation(CGFloat angle) {
  const CGFloat cosine = std::cos(angle), sine = std::sin(angle);
  return {cosine, sine, -sine, cosine, 0, 0};
}

CGAffineTransform CGAffineTransform::followedBy(const CGAffineTransform& next) const {
  return {next.a * a + next.c * b,
          next.b * a + next.d * b,
          next.a * c + next.c * d,
          next.b * c + next.d * d,
          next.a * tx + next.c * ty + next.tx,
          next.b * tx + next.d * ty + next.ty};
}

CGAffineTransform CGAffineTransform::inverted() const {
  const CGFloat determinant = a * d - b * c;
  if (determinant == 0 || !std::isfinite(determinant)) return *this;
  return {d / determinant,
          -b / determinant,
          -c / determinant,
          a / determinant,
          (c * ty - d * tx) / determinant,
          (b * tx - a * ty) / determinant};
}

}  // namespace vexel
