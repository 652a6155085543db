#pragma once

#include <vector>

#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGStrokeStyle.h>

#include "SafePath.h"

namespace vexel {

/// What lies farther out than this is not given to surfaces and files, in pixels or points. Cairo
/// fills polygons wrongly from about 2e5 pixels on, without an error, and drops what its 24 bits
/// before the point do not hold; so do viewers of files. Surfaces are half of this at most.
constexpr CGFloat kSafeReach = 65536;

/// The part of the device outside of which a line of that reach cannot be seen on `page`.
CGRect safeBox(const CGRect& page, CGFloat pen);

/// A path that fills alike where it can be seen on `page`, and whose coordinates surfaces and
/// viewers of files can hold.
CGPath visibleFill(CGPath devicePath, const CGRect& page);

/// The same for a stroke whose lengths are `scale` times as long on the device: in several pieces
/// only where dashes have to go on.
std::vector<ClippedPiece> visibleStroke(CGPath devicePath, const CGStrokeStyle& style,
                                        CGFloat scale, const CGRect& page);

/// Whether a path is four upright lines around a rectangle, in either direction, closed.
bool isRectangle(const CGPath& path);

}  // namespace vexel
