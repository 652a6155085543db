#pragma once

#include <cstdint>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/PixelBuffer.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The pixels of a bitmap as CGContext::drawOnPixels() lends them.
struct VEXEL_API CGPixels {
  /// Lent for the call.
  PixelBuffer buffer;
  /// What may be drawn on; inside the buffer.
  PixelRect clip;
  /// From the present coordinates of the context to pixels of the buffer: x to the right, y down,
  /// pixel (i, j) covers i to i + 1 and j to j + 1.
  CGAffineTransform toPixels;
};

/// A colour as a premultiplied pixel: alpha, red, green, blue from the highest byte down.
VEXEL_API std::uint32_t premultipliedPixel(const CGColor& color);

}  // namespace vexel
