#pragma once

#include <CoreGraphics/CGPoint.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// x' = a x + c y + tx, y' = b x + d y + ty. Angles are in radians, counter-clockwise.
struct VEXEL_API CGAffineTransform {
  /// The coefficients, as above.
  CGFloat a = 1;
  CGFloat b = 0;
  CGFloat c = 0;
  CGFloat d = 1;
  CGFloat tx = 0;
  CGFloat ty = 0;

  /// Moves by points, scales about the origin, turns about it by radians, counter-clockwise.
  static CGAffineTransform translation(CGFloat tx, CGFloat ty) { return {1, 0, 0, 1, tx, ty}; }
  static CGAffineTransform scale(CGFloat sx, CGFloat sy) { return {sx, 0, 0, sy, 0, 0}; }
  static CGAffineTransform rotation(CGFloat angle);

  /// The point that a point is taken to.
  CGPoint apply(CGPoint p) const { return {a * p.x + c * p.y + tx, b * p.x + d * p.y + ty}; }

  /// The transform that applies this one first and `next` to its result.
  CGAffineTransform followedBy(const CGAffineTransform& next) const;

  /// The inverse; the transform itself when it has none (its determinant is 0 or not finite).
  CGAffineTransform inverted() const;

  friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

}  // namespace vexel
