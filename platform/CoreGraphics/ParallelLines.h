#pragma once

#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGStrokeStyle.h>

#include "PixelTarget.h"

namespace vexel {

/// Strokes lines of a grid or ticks straight into the pixels: several horizontal or several
/// vertical ones that do not touch each other, with flat ends and without dashes. The path and the
/// width are in pixels. False, and nothing is drawn, for everything else.
bool strokeParallelLines(PixelTarget& target, const CGPath& path, const CGStrokeStyle& style,
                         CGFloat width);

}  // namespace vexel
