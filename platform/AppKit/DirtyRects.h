#pragma once

#include <vector>

#include <CoreGraphics/CGRect.h>

namespace vexel {

/// Adds a rectangle that has to be drawn again; an empty one does not count. The list stays short:
/// rectangles of which a common one is no larger than both become one, and when there are too many
/// those become one that lose least by it.
void addDirtyRect(std::vector<CGRect>& rects, CGRect rect);

/// The smallest rectangle around all.
CGRect boundingRect(const std::vector<CGRect>& rects);

}  // namespace vexel
