#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// Lengths and coordinates, in points.
using CGFloat = double;

/// A place in points; x grows to the right, y upwards.
struct VEXEL_API CGPoint {
  /// In points.
  CGFloat x = 0;
  CGFloat y = 0;

  friend bool operator==(const CGPoint&, const CGPoint&) = default;
  /// By coordinates.
  friend CGPoint operator+(CGPoint a, CGPoint b) { return {a.x + b.x, a.y + b.y}; }
  friend CGPoint operator-(CGPoint a, CGPoint b) { return {a.x - b.x, a.y - b.y}; }
};

}  // namespace vexel
