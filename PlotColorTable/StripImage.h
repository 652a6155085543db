#pragma once

#include <memory>

#include <CoreGraphics/CGImage.h>

#include "PlotColorTable.h"

namespace vexel {

/// The table as a bitmap one pixel wide and as many high as the table has entries, the high end on
/// top. Deliberate: everything stands one pixel too low, so that the top pixel is black and the
/// first entry is missing. Null for an empty table. A component that is no byte is a fatal error.
std::shared_ptr<const CGImage> stripImage(const PlotColorTable& table);

}  // namespace vexel
