#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// Whole pixels of a buffer: columns left to right - 1, rows top to bottom - 1, row 0 uppermost.
struct VEXEL_API PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool isEmpty() const { return right <= left || bottom <= top; }

  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

}  // namespace vexel
