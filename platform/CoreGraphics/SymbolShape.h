#pragma once

#include <optional>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGPath.h>

namespace vexel {

/// A symbol on the device with its place at (0, 0), for files that hold it once and refer to it.
/// None when it has to be drawn at each place like any other path: it is too large, not of finite
/// coordinates, or the transform leaves no pen round.
std::optional<CGPath> symbolShape(const CGPath& symbol, const CGAffineTransform& transform);

}  // namespace vexel
