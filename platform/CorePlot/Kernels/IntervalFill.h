#pragma once

#include <CoreGraphics/PixelBuffer.h>
#include <CoreGraphics/PixelRect.h>

#include <cstdint>

#include <Kernels/CurveHull.h>
#include <Kernels/LineIntervals.h>

namespace vexel {

/// Blends a premultiplied colour over the target where the intervals cover it. Each column of the
/// clip has linesPerPixel lines (a power of 2, at most 64) at the middles of equal parts of its
/// width, from the leftmost column on; y counts from the clip's top, in pixels. The clip lies
/// inside the target.
void fillIntervals(const LineIntervals& intervals, int linesPerPixel, std::uint32_t color,
                   const PixelBuffer& target, const PixelRect& clip);

/// The same where a pen reaches that is led along a curve in the clip, which has as many sampling
/// lines per pixel. The curve is empty afterwards.
void fillHull(CurveHull& hull, int linesPerPixel, std::uint32_t color, const PixelBuffer& target,
              const PixelRect& clip);

}  // namespace vexel
