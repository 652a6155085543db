#pragma once

#include <CoreGraphics/PixelRect.h>
#include <Foundation/VexelAPI.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vexel {

/// Pixels lent for a call: premultiplied, 8 bits each of alpha, red, green and blue from the
/// highest byte of the word to the lowest, rows from top to bottom.
struct VEXEL_API PixelBuffer {
  /// The first pixel of the upper row; not owned.
  std::uint32_t* pixels = nullptr;
  /// In pixels.
  int width = 0;
  int height = 0;
  /// From one row to the next, in pixels.
  std::ptrdiff_t stride = 0;

  /// The first pixel of a row, 0 being the upper one; unchecked.
  std::uint32_t* row(int y) const { return pixels + y * stride; }

  /// The part of a rectangle that is inside the buffer.
  PixelRect clipped(const PixelRect& rect) const {
    return {std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, width),
            std::min(rect.bottom, height)};
  }
};

}  // namespace vexel
