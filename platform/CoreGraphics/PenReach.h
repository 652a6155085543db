#pragma once

#include <CoreGraphics/CGStrokeStyle.h>

namespace vexel {

/// The miter limit of a style, or the default one instead of a limit below 1 or not finite.
CGFloat usableMiterLimit(const CGStrokeStyle& style);

/// How far a stroke can reach beyond its path, in points: half the width, and more at sharp joins
/// and square caps. 0 when nothing is drawn.
CGFloat penReach(const CGStrokeStyle& style);

}  // namespace vexel
