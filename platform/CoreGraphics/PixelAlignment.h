#pragma once

#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGStrokeStyle.h>

namespace vexel {

/// A coordinate moved to the nearest edge between pixels.
CGFloat nearestPixelEdge(CGFloat coordinate);

/// The middle of a line `width` pixels wide at `coordinate` that makes its edges fall on edges of
/// pixels, when the width is whole: the middle of the pixel at the coordinate for an odd width
/// (rounded, at least 1), the nearest pixel edge for an even one. A line on the border of the
/// surface, which reaches from `low` to `high`, is moved inside.
CGFloat alignedLineMiddle(CGFloat coordinate, CGFloat width, CGFloat low, CGFloat high);

/// A path in pixels whose stroke covers whole pixels: horizontal and vertical lines lie as
/// alignedLineMiddle() says for `surface`, the open ends of lines with butt caps on edges of
/// pixels. A path with any other line or a curve is left alone.
CGPath alignedToPixels(const CGPath& path, CGFloat width, CGLineCap cap, const CGRect& surface);

}  // namespace vexel
