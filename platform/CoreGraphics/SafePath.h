#pragma once

#include <vector>

#include <CoreGraphics/CGPath.h>

namespace vexel {

/// Whether all points of a path are finite and inside `box`.
bool liesInside(const CGPath& path, const CGRect& box);

/// A path without its curves: they become lines that leave them by at most 0.01 where they are
/// near `box`, and only roughly follow them elsewhere. Curves with a point that is not finite
/// stay.
CGPath flattenedInside(const CGPath& path, const CGRect& box);

/// What a stroke of the lines of `path` shows inside `box`: pieces cut at its edges, each a
/// subpath, and no line with a point that is not finite. `path` has no curves but such that are
/// left out; whole closed subpaths stay closed.
CGPath clippedLines(const CGPath& path, const CGRect& box);

/// A stroked piece and the length of its subpath before it, where dashes have got to.
struct ClippedPiece {
  CGPath path;
  CGFloat lengthBefore = 0;
};

/// The same as clippedLines(), piece by piece.
std::vector<ClippedPiece> clippedPieces(const CGPath& path, const CGRect& box);

/// The polygons of a path cut to `box`, filled alike inside it. Without curves, as above; an edge
/// with a point that is not finite ends a polygon and the rest makes another one.
CGPath clippedPolygons(const CGPath& path, const CGRect& box);

}  // namespace vexel
