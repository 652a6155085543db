#pragma once

#include <CoreGraphics/CGRect.h>
#include <CorePlot/CPTDefinitions.h>

namespace vexel {

/// Where a rectangle begins and ends in one direction.
struct Stretch {
  CGFloat low;
  CGFloat high;

  CGFloat length() const { return high - low; }
};

// The parts of sizes and rectangles that lie along an axis, and across it.

inline CGFloat alongOf(CPTCoordinate coordinate, CGSize size) {
  return coordinate == CPTCoordinate::X ? size.width : size.height;
}
inline CGFloat acrossOf(CPTCoordinate coordinate, CGSize size) {
  return coordinate == CPTCoordinate::X ? size.height : size.width;
}
inline Stretch alongOf(CPTCoordinate coordinate, const CGRect& rect) {
  return coordinate == CPTCoordinate::X ? Stretch{rect.minX(), rect.maxX()}
                                        : Stretch{rect.minY(), rect.maxY()};
}
inline Stretch acrossOf(CPTCoordinate coordinate, const CGRect& rect) {
  return coordinate == CPTCoordinate::X ? Stretch{rect.minY(), rect.maxY()}
                                        : Stretch{rect.minX(), rect.maxX()};
}

}  // namespace vexel
