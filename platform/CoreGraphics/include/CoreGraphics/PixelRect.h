#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// Whole pixels of a buffer: columns left to right - 1, rows top to bottom - 1, row 0 uppermost.
struct VEXEL_API PixelRect {
  /// The first column and row inside, and those behind the last.
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  /// In pixels; negative when the edges are the wrong way round.
  int width() const { return right - left; }
  int height() const { return bottom - top; }
  /// Whether there is no pixel inside.
  bool isEmpty() const { return right <= left || bottom <= top; }

  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

}  // namespace vexel
