#pragma once

#include <cstdint>
#include <vector>

#include "PixelStamp.h"

namespace vexel {

/// The pixels of a band of rows that are covered, at first none, while stamps are laid under others
/// in it. Finds what does not need to be drawn.
class CoveredPixels {
 public:
  /// Rows of a band.
  static constexpr int kRows = 32;
  /// Masks are no wider.
  static constexpr int kWidestMask = 64;

  /// For masks that begin in the columns `left` to `right` - 1.
  CoveredPixels(int left, int right);

  /// Covers what a mask hides that begins in a column and in a row of the band, or above it but
  /// reaching into it. The rows of the band in which some of the mask can be seen, the lowest bit
  /// for the uppermost.
  std::uint32_t layUnder(const StampMask& mask, int column, int row);

 private:
  static constexpr int kSide = StampMask::Block::kSide;
  static constexpr int kSideBits = 3;
  static_assert(1 << kSideBits == kSide);

  int left_;
  std::size_t cellsInRow_;
  // Bits like those of blocks.
  std::vector<std::uint64_t> cells_;
};

}  // namespace vexel
