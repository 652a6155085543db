#include "CoveredPixels.h"

#include <algorithm>
#include <cstddef>

namespace vexel {

namespace {

constexpr std::uint64_t kEveryRow = 0x0101010101010101;
constexpr std::uint64_t kWhole = ~std::uint64_t{0};

// A bit for each of the eight rows of a block that has a bit.
std::uint64_t rowsOf(std::uint64_t block) {
  constexpr std::uint64_t kAllButLast = 0x7f * kEveryRow;
  const std::uint64_t rows = (((block & kAllButLast) + kAllButLast) | block) >> 7 & kEveryRow;
  return rows * 0x0102040810204080 >> 56;
}

}  // namespace

CoveredPixels::CoveredPixels(const PixelRect& box)
    : left_(box.left - kMargin),
      top_(box.top),
      cellsInRow_(static_cast<std::size_t>((box.width() + 2 * kMargin + kLargestMask) / kSide + 2)),
      rowsOfCells_(static_cast<unsigned>((box.height() + kSide - 1) / kSide)),
      cells_(cellsInRow_ * (rowsOfCells_ + 1), kWhole) {
  static_assert(kMargin % kSide == 0);
  for (int y = 0; y < box.height(); y += kSide) {
    const std::uint64_t inRows = kWhole >> (kSide * std::max(y + kSide - box.height(), 0));
    std::uint64_t* cell = cells_.data() + beginOf(y / kSide) + kMargin / kSide;
    for (int x = 0; x < box.width(); x += kSide)
      *cell++ = ~(kEveryRow * (0xffu >> std::max(x + kSide - box.width(), 0)) & inRows);
  }
}

std::uint64_t CoveredPixels::layUnder(const StampMask& mask, int column, int row) {
  // The cell in which the mask begins, and the place in it.
  const unsigned x = static_cast<unsigned>(column - left_);
  const unsigned right = x % kSide;
  const unsigned rowsAbove = static_cast<unsigned>(row - top_) % kSide;
  const unsigned down = rowsAbove * kSide;
  int rowOfCells = (row - top_) >> kSideBits;
  if (isCovered(mask, x / kSide, rowOfCells)) return 0;
  const StampMask::Block* block = mask.blocks.data();
  const StampMask::Block* const end = block + mask.blocks.size();
  // Columns of a block that stay in the cell in which it begins, and those in the next one.
  const std::uint64_t inFirst = kEveryRow * (0xffu >> right);
  const std::uint64_t inNext = kEveryRow * (0xffu >> (kSide - right));
  std::uint64_t seenRows = 0;
  for (unsigned rowOfMask = 0; block < end; ++rowOfCells, rowOfMask += kSide) {
    std::uint64_t* const uppers = cells_.data() + beginOf(rowOfCells) + x / kSide;
    std::uint64_t* const lowers = cells_.data() + beginOf(rowOfCells + 1) + x / kSide;
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
    seenRows |= rowsOf(upperSeen) >> rowsAbove << rowOfMask;
    seenRows |= rowsOf(lowerSeen) << (kSide - rowsAbove) << rowOfMask;
  }
  return seenRows;
}

std::size_t CoveredPixels::beginOf(int rowOfCells) const {
  return std::min(static_cast<unsigned>(rowOfCells), rowsOfCells_) * cellsInRow_;
}

bool CoveredPixels::isCovered(const StampMask& mask, std::size_t firstCell, int rowOfCells) const {
  const int end = rowOfCells + (mask.height + kSide - 1) / kSide;
  for (; rowOfCells <= end; ++rowOfCells) {
    const std::uint64_t* const cells = cells_.data() + beginOf(rowOfCells) + firstCell;
    for (int i = 0; i <= mask.groupsInRow; ++i)
      if (cells[i] != kWhole) return false;
  }
  return true;
}

}  // namespace vexel
