#pragma once

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/PixelBuffer.h>
#include <CoreGraphics/PixelRect.h>

#include <cstdint>
#include <span>

namespace vexel {

/// Strokes a curve of sorted x with a round pen: round joins, round ends. A translucent colour
/// covers everything the stroke touches once, however often the curve crosses itself there.
///
/// The points are in device pixels: x to the right, y down, pixel (i, j) covers i to i + 1 and j
/// to j + 1. Their x ascend or descend; equal x are allowed. A point that is not finite breaks
/// the line; one between two breaks draws a dot as wide as the pen. Coordinates may be of any
/// size. The colour is a premultiplied pixel value. Nothing outside the clip is touched.
///
/// False, and nothing is drawn, when the x are not sorted or the width is not above 0 and at most
/// 256: what is left then is to stroke the curve in the general way.
///
/// Antialiasing is by area in y and by 8 sampling lines per pixel in x, 16 for pens thinner than a
/// pixel. Where more than four points lie between two lines, the curve is taken through the first,
/// the lowest and the highest with the neighbours of both, and the last.
bool strokeSortedLine(std::span<const CGPoint> points, double width, std::uint32_t color,
                      const PixelBuffer& target, const PixelRect& clip);

}  // namespace vexel
