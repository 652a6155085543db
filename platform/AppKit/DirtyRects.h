#pragma once

#include <vector>

#include <CoreGraphics/CGRect.h>

namespace vexel {

/// Adds a rectangle that has to be drawn again; an empty one does not count. The list stays short:
/// rectangles of which a common one is no larger than both become one, and when there are too many
/// those become one that lose least by it.
void addDirtyRect(std::vector<CGRect>& rects, CGRect rect);

/// Leaves of each rectangle what is above and below `drawn`, and all of one that `drawn` does not
/// cross from side to side or that the list is too long to cut in two. What is left is never put
/// together: it stays inside a former rectangle, so that drawing them one by one leaves nothing.
void removeDrawnRect(std::vector<CGRect>& rects, const CGRect& drawn);

/// The smallest rectangle around all.
CGRect boundingRect(const std::vector<CGRect>& rects);

}  // namespace vexel
