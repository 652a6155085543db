#pragma once

#include <CoreGraphics/CGPoint.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vexel {

/// How far a stroke with a round pen reaches in the direction of growing y, on sampling lines in
/// the middles of slots of equal width. Slot i covers x from i to i + 1 slot widths; y and the
/// pen's radius are in pixels.
///
/// The stroke's boundary is the outermost of two kinds of pieces: the pen around points, of which
/// one per slot is taken, and the straight lines beside segments.
class StrokeBoundary {
 public:
  StrokeBoundary(int slotCount, int slotsPerPixel, double radius);

  /// The point whose pen counts in a slot; x in pixels from the slots' start.
  void setPoint(int slot, CGPoint point);

  /// The straight line beside a segment, which runs from left to right: the segment moved by an
  /// offset of the radius' length at a right angle to it. Coordinates are at most 1e8 in size.
  void addSegment(CGPoint from, CGPoint to, CGPoint offset) {
    const int begin = firstLineFrom(from.x + offset.x);
    const int end = firstLineFrom(to.x + offset.x);
    if (begin < end) addLine(from + offset, to + offset, begin, end);
  }

  /// Takes in the pens around the points of a range of slots, both ends included.
  void addPens(int firstSlot, int lastSlot);

  /// Minus infinity where the stroke does not reach the line.
  float at(int slot) const { return boundary_[static_cast<std::size_t>(slot)]; }

  /// Forgets a range of slots, both ends included.
  void clear(int firstSlot, int lastSlot);

 private:
  /// The first sampling line at or right of a place, at most slotCount_.
  int firstLineFrom(double x) const {
    const double place = x * slotsPerPixel_ + 0.5;
    return static_cast<int>(std::clamp(place, 0.0, static_cast<double>(slotCount_)));
  }

  void addLine(CGPoint from, CGPoint to, int begin, int end);
  /// The pens around the points of a range of slots, as far as they reach the slots `offset`
  /// before.
  void addPensAt(int offset, int firstSlot, int lastSlot);

  int slotCount_;
  double slotsPerPixel_;
  double slotWidth_;  // in pixels
  double radius_;
  int reach_;
  int pointCount_ = 0;
  std::vector<float> pointY_;
  std::vector<float> pointX_;  // from the slot's middle
  std::vector<float> boundary_;
};

}  // namespace vexel
