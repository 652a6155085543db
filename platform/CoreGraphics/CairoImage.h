#pragma once

#include <CoreGraphics/CGImage.h>

#include "CairoHandles.h"

namespace vexel {

/// The pixels of an image as Cairo takes them; null when it cannot hold so many.
CairoSurfaceHandle cairoImage(const CGImage& image);

}  // namespace vexel
