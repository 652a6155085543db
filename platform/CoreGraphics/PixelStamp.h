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

  /// Bits of up to 32 rows, the lowest for the uppermost, that this meets with the given ones of
  /// its rows when it begins in `row`.
  std::uint32_t rowsWithin(int row, int rows, std::uint64_t ofMask = ~std::uint64_t{0}) const {
    const auto above = [rows](int v) { return (std::uint64_t{1} << std::clamp(v, 0, rows)) - 1; };
    const std::uint64_t met = above(row + height) - above(row);
    if (met == 0) return 0;
    return static_cast<std::uint32_t>(met & (row < 0 ? ofMask >> -row : ofMask << row));
  }
};

/// A mask, lent, and the premultiplied colour that it weights.
struct PixelStamp {
  const StampMask& mask;
  std::uint32_t color;
};

}  // namespace vexel
