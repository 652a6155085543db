#pragma once

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/CGSize.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A rectangle in points: its bottom-left corner and its size, which is not negative.
struct VEXEL_API CGRect {
  /// The bottom-left corner, and what lies to the right and above.
  CGPoint origin;
  CGSize size;

  /// The rectangle of these coordinates; nothing is checked.
  static CGRect make(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
  }

  /// Coordinates of the edges and of the middle.
  CGFloat minX() const { return origin.x; }
  CGFloat midX() const { return origin.x + size.width / 2; }
  CGFloat maxX() const { return origin.x + size.width; }
  CGFloat minY() const { return origin.y; }
  CGFloat midY() const { return origin.y + size.height / 2; }
  CGFloat maxY() const { return origin.y + size.height; }

  /// No area, or a coordinate that is not a number.
  bool isEmpty() const {
    return !(size.width > 0 && size.height > 0 && origin.x == origin.x && origin.y == origin.y);
  }

  /// Edges count as inside.
  bool contains(CGPoint p) const {
    return p.x >= minX() && p.x <= maxX() && p.y >= minY() && p.y <= maxY();
  }

  /// Smaller by dx on the left and right and by dy at the bottom and top (larger when negative);
  /// never of negative size.
  CGRect insetBy(CGFloat dx, CGFloat dy) const;

  /// The common part; an empty rectangle at (0, 0) when there is none.
  CGRect intersection(const CGRect& other) const;

  /// The smallest rectangle around both; an empty one does not count.
  CGRect unionWith(const CGRect& other) const;

  friend bool operator==(const CGRect&, const CGRect&) = default;
};

}  // namespace vexel
