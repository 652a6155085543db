#pragma once

#include <cstdint>
#include <vector>

#include <CoreGraphics/PixelRect.h>

#include "PixelStamp.h"

namespace vexel {

/// The pixels of a box that are covered, at first none, while stamps are laid under others. Finds
/// what does not need to be drawn.
class CoveredPixels {
 public:
  /// Masks are no wider and no higher.
  static constexpr int kLargestMask = 64;
  /// Masks begin no farther on the left or right of the box.
  static constexpr int kMargin = 2 * kLargestMask;

  explicit CoveredPixels(const PixelRect& box);

  /// Covers what a mask hides that begins in a column and a row. Those of its rows in which some of
  /// it can be seen in the box, the lowest bit for the uppermost.
  std::uint64_t layUnder(const StampMask& mask, int column, int row);

 private:
  static constexpr int kSide = StampMask::Block::kSide;
  static constexpr int kSideBits = 3;
  static_assert(1 << kSideBits == kSide);

  /// Of the cells.
  std::size_t beginOf(int rowOfCells) const;
  /// Whether all cells are that a mask meets.
  bool isCovered(const StampMask& mask, std::size_t firstCell, int rowOfCells) const;

  int left_;
  int top_;
  std::size_t cellsInRow_;
  unsigned rowsOfCells_;
  // Bits like those of blocks. What is outside of the box counts as covered; rows there share the
  // last row of cells.
  std::vector<std::uint64_t> cells_;
};

}  // namespace vexel
