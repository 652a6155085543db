#include <IntervalFill.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace vexel {
namespace {

constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

struct Canvas {
  Canvas(int width, int height, std::uint32_t background)
      : pixels(static_cast<std::size_t>(width * height), background),
        buffer{pixels.data(), width, height, width} {}

  std::uint32_t at(int x, int y) const { return buffer.row(y)[x]; }

  std::vector<std::uint32_t> pixels;
  PixelBuffer buffer;
};

void addToPixel(LineIntervals& intervals, int column, float low, float high) {
  for (int part = 0; part < 8; ++part) intervals.add(8 * column + part, low, high);
}

TEST(IntervalFill, CoversByArea) {
  Canvas canvas(1, 5, kWhite);
  LineIntervals intervals(8);
  addToPixel(intervals, 0, 0.75F, 3.5F);
  intervals.finish();
  fillIntervals(intervals, 8, kBlack, canvas.buffer, {0, 0, 1, 5});
  EXPECT_EQ(canvas.pixels,
            (std::vector<std::uint32_t>{0xFFBFBFBF, kBlack, kBlack, 0xFF7F7F7F, kWhite}));
}

TEST(IntervalFill, CoversPartsOfOneRow) {
  Canvas canvas(2, 2, kWhite);
  LineIntervals intervals(16);
  addToPixel(intervals, 0, 1.25F, 1.5F);
  for (int part = 0; part < 4; ++part) intervals.add(8 + part, 0, 2);
  intervals.finish();
  fillIntervals(intervals, 8, kBlack, canvas.buffer, {0, 0, 2, 2});
  EXPECT_EQ(canvas.pixels,
            (std::vector<std::uint32_t>{kWhite, 0xFF7F7F7F, 0xFFBFBFBF, 0xFF7F7F7F}));
}

TEST(IntervalFill, TallColumnsLookLikeTheirParts) {
  constexpr int kHeight = 700;
  for (const std::uint32_t color : {kBlack, 0x80402010u, 0xFF336699u})
    for (const int width : {1, 3, 4, 5, 16, 19}) {
      LineIntervals intervals(8 * width);
      // Steep edges of few columns, and rows without any between them.
      for (int line = 0; line < 8 * width; line += 5) {
        intervals.add(line, 3.4F + static_cast<float>(line), 250.25F);
        intervals.add(line, 300.5F, 690.9F);
      }
      intervals.finish();
      Canvas whole(width, kHeight, kWhite), parts(width, kHeight, kWhite);
      fillIntervals(intervals, 8, color, whole.buffer, {0, 0, width, kHeight});
      for (int top = 0; top < kHeight; top += 7) {
        LineIntervals moved(8 * width);
        for (int line = 0; line < 8 * width; line += 5) {
          const auto from = static_cast<float>(top);
          moved.add(line, 3.4F + static_cast<float>(line) - from, 250.25F - from);
          moved.add(line, 300.5F - from, 690.9F - from);
        }
        moved.finish();
        fillIntervals(moved, 8, color, parts.buffer, {0, top, width, top + 7});
      }
      EXPECT_EQ(whole.pixels, parts.pixels) << width;
      EXPECT_NE(whole.at(0, 100), kWhite);
      EXPECT_EQ(whole.at(0, 280), kWhite);
    }
}

TEST(IntervalFill, CutsIntervalsAtTheClip) {
  Canvas canvas(3, 6, kWhite);
  LineIntervals intervals(8);
  addToPixel(intervals, 0, -1e30F, 1e30F);
  intervals.finish();
  fillIntervals(intervals, 8, kBlack, canvas.buffer, {1, 2, 2, 4});
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 3; ++x)
      EXPECT_EQ(canvas.at(x, y), x == 1 && (y == 2 || y == 3) ? kBlack : kWhite) << x << " " << y;
}

TEST(IntervalFill, ReachesEveryColumnOfEveryWidth) {
  for (int width = 1; width <= 50; ++width) {
    Canvas canvas(width, 3, kWhite);
    LineIntervals intervals(16 * width);
    for (int line = 0; line < 16 * width; ++line) intervals.add(line, 1, 2);
    intervals.finish();
    fillIntervals(intervals, 16, kBlack, canvas.buffer, {0, 0, width, 3});
    for (int x = 0; x < width; ++x) {
      EXPECT_EQ(canvas.at(x, 0), kWhite);
      EXPECT_EQ(canvas.at(x, 1), kBlack);
      EXPECT_EQ(canvas.at(x, 2), kWhite);
    }
  }
}

TEST(IntervalFill, FillsEachIntervalOfALine) {
  Canvas canvas(1, 7, kWhite);
  LineIntervals intervals(8);
  addToPixel(intervals, 0, 1, 2);
  addToPixel(intervals, 0, 5, 6);
  addToPixel(intervals, 0, 3, 4);
  intervals.finish();
  fillIntervals(intervals, 8, kBlack, canvas.buffer, {0, 0, 1, 7});
  EXPECT_EQ(canvas.pixels,
            (std::vector<std::uint32_t>{kWhite, kBlack, kWhite, kBlack, kWhite, kBlack, kWhite}));
}

TEST(IntervalFill, BlendsPremultipliedColoursOverWhatIsThere) {
  struct Case {
    std::uint32_t below, color, result;
  };
  const Case cases[] = {
      {0x00000000, 0x80402010, 0x80402010}, {0xFFFFFFFF, 0x00000000, 0xFFFFFFFF},
      {0xFFFFFFFF, 0x80800000, 0xFFFF7F7F}, {0xFF102030, 0xFFABCDEF, 0xFFABCDEF},
      {0x80808080, 0x80000000, 0xC0404040},
  };
  for (const auto& [below, color, result] : cases) {
    Canvas canvas(1, 1, below);
    LineIntervals intervals(8);
    addToPixel(intervals, 0, 0, 1);
    intervals.finish();
    fillIntervals(intervals, 8, color, canvas.buffer, {0, 0, 1, 1});
    EXPECT_EQ(canvas.at(0, 0), result) << std::hex << below << " " << color;
  }
}

}  // namespace
}  // namespace vexel
