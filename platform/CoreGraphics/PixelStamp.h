#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "PixelBlend.h"

namespace vexel {

/// Rows of pixels to be laid around a place.
struct StampMask {
  /// Bits of 8x8 pixels, row by row, the lowest for the first: all that this changes, and what
  /// nothing below can be seen through.
  struct Block {
    static constexpr int kSide = WeightedPixels::kCount;
    static_assert(kSide == 8);
    std::uint64_t ink = 0;
    std::uint64_t opaque = 0;
  };

  /// The first column and row, from the place.
  int left = 0;
  int top = 0;
  /// In pixels.
  int width = 0;
  int height = 0;
  /// The pixels in groups, in each row as many as its width needs, and the blocks below each other.
  int groupsInRow = 0;
  std::vector<WeightedPixels> groups;
  std::vector<Block> blocks;

  /// Bits of its rows, the lowest for the uppermost, that are inside a box of so many rows when it
  /// begins in `row` of it.
  std::uint64_t rowsInside(int row, int rows) const {
    const auto above = [](int v) {
      return v <= 0 ? 0 : ~std::uint64_t{0} >> (64 - std::min(v, 64));
    };
    return above(std::min(height, rows - row)) & ~above(-row);
  }
};

/// A mask, lent, and the premultiplied colour that it weights.
struct PixelStamp {
  const StampMask& mask;
  std::uint32_t color;
};

}  // namespace vexel
