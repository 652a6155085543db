#pragma once

#include <CoreGraphics/CGAffineTransform.h>

namespace vexel {

/// Whether a transform can be undone and is finite.
bool hasInverse(const CGAffineTransform& transform);

/// How long a unit becomes; a mean for transforms that stretch one direction more.
CGFloat meanScale(const CGAffineTransform& transform);

/// Whether all directions are scaled alike, so that circles stay circles, but for rounding errors.
bool keepsShapes(const CGAffineTransform& transform);

/// Whether horizontal lines stay horizontal and vertical ones vertical, but for rounding errors.
bool keepsAxes(const CGAffineTransform& transform);

/// Whether horizontal lines become vertical and the reverse, but for rounding errors.
bool swapsAxes(const CGAffineTransform& transform);

}  // namespace vexel
