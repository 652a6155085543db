#pragma once

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGImage.h>
#include <CoreGraphics/CGRect.h>

#include "CairoHandles.h"

namespace vexel {

/// The pixels of an image as Cairo takes them, each repeated `repeatX` by `repeatY` times (at
/// least 1); null when it cannot hold so many.
CairoSurfaceHandle cairoImage(const CGImage& image, std::size_t repeatX, std::size_t repeatY);

/// What an image shows of the pixels in `area` (of whole coordinates) once it has been mapped to
/// the device: each pixel has the colour of the image at its middle, taken from the nearest pixel
/// of the image where that lies outside. The device offset of the surface is set, so that it is
/// laid over the device at (0, 0). Null when there is no memory.
CairoSurfaceHandle sampledImage(const CGImage& image, const CGAffineTransform& imageToDevice,
                                const CGRect& area);

}  // namespace vexel
