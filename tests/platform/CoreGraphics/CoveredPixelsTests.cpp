#include "CoveredPixels.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace vexel {
namespace {

constexpr int kLeft = -70;
constexpr int kRight = 130;
constexpr int kTop = 30;
constexpr int kRows = 45;
constexpr PixelRect kBox{kLeft, kTop, kRight, kTop + kRows};
constexpr int kSide = StampMask::Block::kSide;

struct Row {
  std::uint64_t ink;
  std::uint64_t opaque;
};

StampMask maskOf(const std::vector<Row>& rows, int width) {
  StampMask mask;
  mask.width = width;
  mask.height = static_cast<int>(rows.size());
  mask.groupsInRow = (width + kSide - 1) / kSide;
  mask.blocks.resize(static_cast<std::size_t>(mask.groupsInRow) * ((rows.size() + 7) / kSide));
  for (std::size_t y = 0; y < rows.size(); ++y)
    for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
      StampMask::Block& block =
          mask.blocks[y / kSide * static_cast<std::size_t>(mask.groupsInRow) + x / kSide];
      const std::size_t bit = y % kSide * kSide + x % kSide;
      block.ink |= (rows[y].ink >> x & 1) << bit;
      block.opaque |= (rows[y].opaque >> x & 1) << bit;
    }
  return mask;
}

TEST(CoveredPixels, AreHiddenFromWhatIsLaidUnderThem) {
  const StampMask mask = maskOf({{0b1110, 0b0100}, {0b1111, 0b1111}}, 4);
  CoveredPixels covered(kBox);
  EXPECT_EQ(covered.layUnder(mask, 10, 45), 0b11u);
  // The middle of the upper row alone is covered, and the whole lower row.
  EXPECT_EQ(covered.layUnder(mask, 10, 45), 0b01u);
  EXPECT_EQ(covered.layUnder(mask, 11, 45), 0b11u);
  EXPECT_EQ(covered.layUnder(mask, 10, 46), 0b10u);
}

TEST(CoveredPixels, AreNoneOfAMaskWithoutInk) {
  CoveredPixels covered(kBox);
  EXPECT_EQ(covered.layUnder(maskOf({}, 0), 0, 0), 0u);
  EXPECT_EQ(covered.layUnder(maskOf({{0, 0}}, 3), 0, 0), 0u);
}

TEST(CoveredPixels, AreFoundAsPixelByPixel) {
  std::mt19937_64 random(1);
  for (const int width : {1, 7, 8, 9, 31, 33, 56, 57, 63, 64}) {
    for (const int height : {1, 7, 8, 9, 33, 64}) {
      CoveredPixels covered(kBox);
      std::array<std::array<bool, kRight - kLeft>, kRows> expected{};
      for (int i = 0; i < 100; ++i) {
        std::vector<Row> rows;
        for (int v = 0; v < height; ++v) {
          const std::uint64_t ink = random() >> (64 - width);
          rows.push_back({ink, ink & random()});
        }
        // Also wholly beside, above and below the box.
        const int column =
            kLeft - CoveredPixels::kMargin +
            static_cast<int>(random() % (kRight - kLeft + 2 * CoveredPixels::kMargin));
        const int row = static_cast<int>(random() % 200) - 100;
        std::uint64_t seen = 0;
        for (int v = std::max(-row, 0); v < std::min(height, kRows - row); ++v) {
          const Row& bits = rows[static_cast<std::size_t>(v)];
          auto& pixels = expected[static_cast<std::size_t>(row + v)];
          for (int u = std::max(kLeft - column, 0); u < std::min(width, kRight - column); ++u) {
            bool& isCovered = pixels[static_cast<std::size_t>(column - kLeft + u)];
            if (!isCovered && (bits.ink >> u & 1)) seen |= std::uint64_t{1} << v;
            if (bits.opaque >> u & 1) isCovered = true;
          }
        }
        ASSERT_EQ(covered.layUnder(maskOf(rows, width), column, kTop + row), seen)
            << width << "x" << height << " at " << column << ", " << row;
      }
    }
  }
}

TEST(StampMask, HasRowsInsideOfABox) {
  constexpr std::uint64_t kAll = ~std::uint64_t{0};
  struct Case {
    int row, rows, height;
    std::uint64_t expected;
  };
  constexpr Case cases[] = {
      {0, 32, 0, 0},
      {0, 0, 8, 0},
      {0, 32, 1, 1},
      {0, 64, 64, kAll},
      {5, 1000, 64, kAll},
      {31, 32, 1, 1},
      {31, 32, 64, 1},
      {32, 32, 8, 0},
      {-8, 32, 8, 0},
      {-7, 32, 8, 1u << 7},
      {-20, 44, 64, kAll << 20},
      {-64, 32, 64, 0},
      {-63, 32, 64, kAll << 63},
      {2, 5, 9, 0b111},
      {5, 5, 9, 0},
      {-1000000, 32, 9, 0},
      {1000000, 32, 9, 0},
      {-1, 1, 2, 0b10},
      {3, 32, 2, 0b11},
      {-30, 32, 64, kAll >> 2 & kAll << 30},
  };
  for (const Case& c : cases) {
    StampMask mask;
    mask.height = c.height;
    EXPECT_EQ(mask.rowsInside(c.row, c.rows), c.expected)
        << c.row << " " << c.rows << " " << c.height;
  }
}

}  // namespace
}  // namespace vexel
