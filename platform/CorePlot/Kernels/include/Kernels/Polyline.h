#pragma once

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/CGRect.h>

#include <span>
#include <vector>

namespace vexel {

/// The parts of the line through the points that lie inside a box, edges included, in order.
///
/// A point that is not finite, in either coordinate, breaks the line. A point between two breaks
/// (or one that is only repeated) gives a run of one point, for the caller to draw as a dot; all
/// other runs have at least two points, no two neighbours equal. Lines that only touch the box
/// from outside give nothing. Points inside are passed on unaltered; those put on an edge are on
/// the line as exactly as doubles allow, whatever the size of the coordinates.
///
/// The box is meant to include what the pen reaches: the line's width is not looked at.
/// An empty box, or one with a coordinate that is not finite, gives nothing.
std::vector<std::vector<CGPoint>> clippedRuns(std::span<const CGPoint> points, const CGRect& box);

/// Drops points that the line does not need: no dropped point is farther than tolerance from the
/// line through those that stay. The first and the last point stay, and so does each point where
/// the line turns back by more than the tolerance. One pass over the run.
///
/// Nothing is dropped when the tolerance is not above 0. Points with coordinates beyond 1e150 or
/// that are not finite all stay.
void thinRun(std::vector<CGPoint>& run, double tolerance);

}  // namespace vexel
