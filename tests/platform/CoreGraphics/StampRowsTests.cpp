#include "StampRows.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace vexel {
namespace {

constexpr int kColumns = 80;

class Random {
 public:
  std::uint32_t word() { return static_cast<std::uint32_t>(engine_()); }
  std::uint32_t byte() { return word() & 255u; }
  std::uint32_t pixel(std::uint32_t alpha) { return scaledPixel(0xff000000u | word(), alpha); }

 private:
  std::mt19937 engine_{1};
};

/// A mask whose pixels leave room for a colour of a given alpha, some of them none or all of it.
StampMask randomMask(Random& random, int width, int height, std::uint32_t alpha) {
  StampMask mask;
  mask.width = width;
  mask.height = height;
  mask.groupsInRow = (width + WeightedPixels::kCount - 1) / WeightedPixels::kCount;
  mask.groups.resize(static_cast<std::size_t>(mask.groupsInRow * height));
  const auto often = [&](std::uint32_t value) {
    const std::uint32_t kind = random.byte();
    return kind < 64 ? 0 : kind < 128 ? 255u : value;
  };
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const std::uint32_t covered = often(random.byte());
      const std::uint32_t weight = scaledPixel(often(random.byte()), 255 - covered);
      WeightedPixels& group =
          mask.groups[static_cast<std::size_t>(y * mask.groupsInRow + x / WeightedPixels::kCount)];
      const int place = x % WeightedPixels::kCount;
      group.pixels[place] = random.pixel(covered);
      group.weights[place] = static_cast<std::uint8_t>(weight);
      group.rests[place] = static_cast<std::uint8_t>(255 - covered - scaledPixel(weight, alpha));
    }
  return mask;
}

TEST(StampRows, AreLaidPixelByPixelInEveryWay) {
  struct Case {
    const char* what;
    int width;
    int maskRow;
    int from, to;
    std::uint32_t rows;
  };
  constexpr int kMost = kColumns;
  const Case cases[] = {
      {"nothing", 8, 0, 0, kMost, 0},
      {"one row", 8, 0, 0, kMost, 1},
      {"rows apart", 8, 0, 0, kMost, 0b1101},
      {"rows above the ground", 8, 2, 0, kMost, 0b11},
      {"rows of ground above the mask", 8, -4, 0, kMost, 0b110000},
      {"the last of 32 rows", 8, -30, 0, kMost, 1u << 31},
      {"a single column", 1, 0, 0, kMost, 0b111},
      {"an odd width", 13, 0, 0, kMost, 0b111},
      {"the widest", 64, 0, 0, kMost, 0b111},
      {"cut on the left", 13, 0, 5, kMost, 0b111},
      {"cut on the right", 13, 0, -20, 9, 0b111},
      {"cut behind the mask, in its last group", 13, 0, 0, 14, 0b111},
      {"a column of the middle", 40, 0, 21, 22, 0b111},
      {"beside the mask", 13, 0, 13, kMost, 0b111},
      {"before the mask", 13, 0, -9, 0, 0b111},
  };
  Random random;
  for (const Case& c : cases) {
    for (int round = 0; round < 20; ++round) {
      const std::uint32_t alpha = round % 2 == 0 ? 255 : random.byte();
      const StampMask mask = randomMask(random, c.width, 4, alpha);
      const std::uint32_t color = random.pixel(alpha);
      std::vector<std::uint32_t> before(std::size_t{kColumns} * 32);
      for (std::uint32_t& pixel : before) pixel = random.pixel(random.byte());

      std::vector<std::uint32_t> expected = before;
      for (int v = 0; v < 32; ++v)
        for (int u = std::max(c.from, 0); u < std::min(c.to, c.width); ++u) {
          if ((c.rows >> v & 1) == 0) continue;
          const int group = (v + c.maskRow) * mask.groupsInRow + u / WeightedPixels::kCount;
          std::uint32_t& pixel = expected[static_cast<std::size_t>(v * kColumns + u)];
          pixel = mask.groups[static_cast<std::size_t>(group)].over(u % WeightedPixels::kCount,
                                                                    color, pixel);
        }
      for (std::size_t way = 0; way < waysToLayStampRows().size(); ++way) {
        std::vector<std::uint32_t> pixels = before;
        waysToLayStampRows()[way]({mask, color}, {pixels.data(), kColumns, c.maskRow, c.from, c.to},
                                  c.rows);
        ASSERT_EQ(pixels, expected) << c.what << ", way " << way;
      }
    }
  }
}

}  // namespace
}  // namespace vexel
