#pragma once

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGImage.h>
#include <CoreGraphics/CGRect.h>

#include "CairoHandles.h"

namespace vexel {

/// How often each pixel of an image is repeated in a row and a column; at least once.
struct ImageRepeat {
  std::size_t x = 1;
  std::size_t y = 1;
};

/// How a file holds an image. Viewers smooth enlarged images, whatever the file says: pixels that
/// are to stay squares are sent enlarged. One row or column of them looks alike in any case.
ImageRepeat fileRepeat(const CGImage& image, const CGAffineTransform& imageToDevice);

/// The repeated pixels of an image as Cairo takes them; null when it cannot hold so many.
CairoSurfaceHandle cairoImage(const CGImage& image, ImageRepeat repeat);

/// What an image shows of the pixels in `area` (of whole coordinates) once it has been mapped to
/// the device: each pixel has the colour of the image at its middle, taken from the nearest pixel
/// of the image where that lies outside. The device offset of the surface is set, so that it is
/// laid over the device at (0, 0). Null when there is no memory.
CairoSurfaceHandle sampledImage(const CGImage& image, const CGAffineTransform& imageToDevice,
                                const CGRect& area);

}  // namespace vexel
