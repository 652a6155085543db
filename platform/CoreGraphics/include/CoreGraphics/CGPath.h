#pragma once

#include <span>
#include <vector>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGRect.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// One step of a path. `move` and `line` use `point`; `curve` is a cubic Bézier with two control
/// points that ends at `point`; `close` uses none.
struct VEXEL_API CGPathElement {
  /// What the step does.
  enum class Type { move, line, curve, close };

  /// Points that the type does not use are of no meaning.
  Type type;
  CGPoint point;
  CGPoint control1;
  CGPoint control2;

  friend bool operator==(const CGPathElement&, const CGPathElement&) = default;
};

/// A shape made of subpaths, in points. A value: copies are independent.
class VEXEL_API CGPath {
 public:
  /// Whether there is no step; the steps in their order, lent.
  bool isEmpty() const { return elements_.empty(); }
  std::span<const CGPathElement> elements() const { return elements_; }

  /// The smallest rectangle around all points, control points included; empty for an empty path.
  CGRect boundingBox() const;
  /// The path with all points taken through the transform.
  CGPath transformed(const CGAffineTransform& transform) const;

  friend bool operator==(const CGPath&, const CGPath&) = default;

 protected:
  /// The steps in their order.
  std::vector<CGPathElement> elements_;
};

/// A path that can be added to. `line` and `curve` continue from the current point; without one
/// a line begins at its own end and a curve at its first control point.
class VEXEL_API CGMutablePath : public CGPath {
 public:
  /// Adds a step.
  void move(CGPoint to);
  void addLine(CGPoint to);
  void addCurve(CGPoint to, CGPoint control1, CGPoint control2);
  /// A subpath through all points; nothing when there are none.
  void addLines(std::span<const CGPoint> points);
  /// A closed subpath around the rectangle.
  void addRect(const CGRect& rect);
  /// A rectangle whose corners are quarter circles; the radius is at most half the shorter side.
  void addRoundedRect(const CGRect& rect, CGFloat cornerRadius);
  /// The ellipse that touches the rectangle's edges.
  void addEllipse(const CGRect& inRect);
  /// All steps of another path.
  void addPath(const CGPath& path);
  /// Back to where the subpath began.
  void closeSubpath();
};

}  // namespace vexel
