#include "CoveredPixels.h"

#include <algorithm>
#include <cstddef>

namespace vexel {

namespace {

constexpr std::uint64_t kEveryRow = 0x0101010101010101;

constexpr unsigned kRowsOfCells = CoveredPixels::kRows / StampMask::Block::kSide;

// A bit for each of the eight rows of a block that has a bit.
std::uint64_t rowsOf(std::uint64_t block) {
  constexpr std::uint64_t kAllButLast = 0x7f * kEveryRow;
  const std::uint64_t rows = (((block & kAllButLast) + kAllButLast) | block) >> 7 & kEveryRow;
  return rows * 0x0102040810204080 >> 56;
}

}  // namespace

CoveredPixels::CoveredPixels(int left, int right)
    : left_(left),
      cellsInRow_(static_cast<std::size_t>((right - left + kWidestMask) / kSide + 2)),
      cells_(cellsInRow_ * (kRowsOfCells + 1)) {}

std::uint32_t CoveredPixels::layUnder(const StampMask& mask, int column, int row) {
  // The cell in which the mask begins, and the place in it.
  const unsigned x = static_cast<unsigned>(column - left_);
  const unsigned right = x % kSide;
  const unsigned down = static_cast<unsigned>(row) % kSide * kSide;
  int rowOfCells = row >> kSideBits;
  const StampMask::Block* block = mask.blocks.data();
  const StampMask::Block* const end = block + mask.blocks.size();
  // Columns of a block that stay in the cell in which it begins, and those in the next one.
  const std::uint64_t inFirst = kEveryRow * (0xffu >> right);
  const std::uint64_t inNext = kEveryRow * (0xffu >> (kSide - right));
  std::uint64_t seenRows = 0;
  for (; block < end; ++rowOfCells) {
    // Rows outside of the band share one, of which nobody wants to know.
    const unsigned upperRow = std::min(static_cast<unsigned>(rowOfCells), kRowsOfCells);
    const unsigned lowerRow = std::min(static_cast<unsigned>(rowOfCells + 1), kRowsOfCells);
    std::uint64_t* const uppers = cells_.data() + upperRow * cellsInRow_ + x / kSide;
    std::uint64_t* const lowers = cells_.data() + lowerRow * cellsInRow_ + x / kSide;
    std::uint64_t upperSeen = 0;
    std::uint64_t lowerSeen = 0;
    for (int i = 0; i < mask.groupsInRow; ++i, ++block) {
      const auto lay = [&](std::uint64_t ink, std::uint64_t opaque, int cell) {
        upperSeen |= ink << down & ~uppers[cell];
        uppers[cell] |= opaque << down;
        // Nothing when the block begins in the first row.
        lowerSeen |= ink >> 1 >> (63 - down) & ~lowers[cell];
        lowers[cell] |= opaque >> 1 >> (63 - down);
      };
      lay((block->ink & inFirst) << right, (block->opaque & inFirst) << right, i);
      lay(block->ink >> (kSide - right) & inNext, block->opaque >> (kSide - right) & inNext, i + 1);
    }
    seenRows |= rowsOf(upperSeen) << upperRow * kSide | rowsOf(lowerSeen) << lowerRow * kSide;
  }
  return static_cast<std::uint32_t>(seenRows);
}

}  // namespace vexel
