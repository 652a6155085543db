#include <Kernels/BarRaster.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace vexel {
namespace {

using Direction = BarRaster::Direction;
using Bars = std::vector<CGRect>;

constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kHalfBlack = 0x80000000;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

struct Picture {
  Picture(int width, int height)
      : pixels(static_cast<std::size_t>(width * height), kWhite),
        buffer{pixels.data(), width, height, width} {}

  Picture& draw(const Bars& bars, std::uint32_t color = kBlack,
                Direction direction = Direction::upright) {
    return draw(bars, color, direction, {0, 0, buffer.width, buffer.height});
  }
  Picture& draw(const Bars& bars, std::uint32_t color, Direction direction, const PixelRect& clip) {
    BarRaster raster(buffer, clip, direction);
    for (const CGRect& bar : bars) raster.add(bar);
    raster.draw(color);
    return *this;
  }
  int ink(int x, int y) const { return 255 - static_cast<int>(buffer.row(y)[x] & 255); }
  int sum() const {
    int ink = 0;
    for (const std::uint32_t pixel : pixels) ink += 255 - static_cast<int>(pixel & 255);
    return ink;
  }

  std::vector<std::uint32_t> pixels;
  PixelBuffer buffer;
};

CGRect turned(const CGRect& rect) {
  return {{rect.origin.y, rect.origin.x}, {rect.size.height, rect.size.width}};
}

TEST(BarRaster, BarsOutsideTheClipDrawNothing) {
  const double huge = 1e300;
  const CGRect outside[] = {
      CGRect::make(-5, 0, 4, 9),    CGRect::make(9, 0, 4, 9),    CGRect::make(-0.001, 0, 0, 9),
      CGRect::make(8.02, 0, 0, 9),  CGRect::make(2, -8, 3, 8),   CGRect::make(2, 9, 3, 8),
      CGRect::make(-huge, 0, 1, 9), CGRect::make(huge, 0, 1, 9), CGRect::make(2, huge, 1, 1),
      CGRect::make(2, -huge, 1, 1), CGRect::make(2, 3, 3, 0),    CGRect::make(2, 3, 0, 0),
  };
  for (const CGRect& bar : outside)
    for (const Direction direction : {Direction::upright, Direction::lying}) {
      const bool lies = direction == Direction::lying;
      Picture picture(lies ? 9 : 8, lies ? 8 : 9);
      picture.draw({lies ? turned(bar) : bar}, kBlack, direction);
      EXPECT_EQ(picture.sum(), 0) << bar.minX() << ' ' << bar.minY();
    }
  Picture none(0, 0);
  none.draw({CGRect::make(0, 0, 1, 1)});
}

TEST(BarRaster, HugeBarsFillTheClipAndNothingElse) {
  const double huge = std::numeric_limits<double>::max() / 4;
  for (const Direction direction : {Direction::upright, Direction::lying}) {
    Picture picture(9, 7);
    picture.draw({CGRect::make(-huge, -huge, 2 * huge, 2 * huge)}, kBlack, direction, {2, 1, 6, 5});
    for (int y = 0; y < 7; ++y)
      for (int x = 0; x < 9; ++x)
        EXPECT_EQ(picture.ink(x, y), x >= 2 && x < 6 && y >= 1 && y < 5 ? 255 : 0) << x << y;
  }
}

TEST(BarRaster, CoversByAreaToA64thOfAPixel) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 10), width(1.0 / 32, 3), length(0, 8);
  for (int i = 0; i < 300; ++i) {
    const CGRect bar = CGRect::make(place(random), place(random), width(random), length(random));
    Picture picture(14, 19);
    picture.draw({bar});
    for (int y = 0; y < 19; ++y)
      for (int x = 0; x < 14; ++x) {
        const CGRect shared = bar.intersection(CGRect::make(x, y, 1, 1));
        const double area = shared.isEmpty() ? 0 : shared.size.width * shared.size.height;
        EXPECT_NEAR(picture.ink(x, y) / 255.0, area, 1.0 / 32 + 1.0 / 128) << x << ' ' << y;
      }
  }
}

TEST(BarRaster, ATranslucentColourCoversOnce) {
  const Bars bars{CGRect::make(1, 1, 2, 3), CGRect::make(1.5, 2, 2, 3), CGRect::make(1, 1, 2, 3)};
  Picture picture(5, 6);
  picture.draw(bars, kHalfBlack);
  EXPECT_EQ(picture.ink(1, 1), 128);
  EXPECT_EQ(picture.ink(2, 2), 128);
  EXPECT_EQ(picture.ink(3, 4), 64);
}

TEST(BarRaster, NoneOfAMillionBarsGetsLost) {
  Bars bars;
  for (int i = 0; i < 1000000; ++i) {
    const double length = i == 543210 || i == 543211 ? 80 : 10;
    bars.push_back(CGRect::make(i * 100e-6, 90 - length, 100e-6, length));
  }
  Picture picture(100, 100);
  picture.draw(bars);
  for (int x = 0; x < 100; ++x) {
    EXPECT_EQ(picture.ink(x, 85), 255) << x;
    EXPECT_EQ(picture.ink(x, 95), 0) << x;
    // The tall ones are seen as wide as a 32nd of a pixel.
    EXPECT_EQ(picture.ink(x, 20), x == 54 ? 8 : 0) << x;
  }
}

TEST(BarRaster, ABarOnTheBorderBetweenLinesIsOnOneOfThem) {
  for (int i = 0; i <= 64; ++i) {
    Picture picture(4, 1);
    picture.draw({CGRect::make(1 + i / 64.0, 0, 0, 1)});
    EXPECT_EQ(picture.sum(), 8) << i;
  }
}

TEST(BarRaster, LyingBarsAreTurnedUprightOnes) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(-3, 20), size(0, 9);
  Bars bars, lying;
  for (int i = 0; i < 40; ++i) {
    bars.push_back(CGRect::make(place(random), place(random), size(random) / 9, size(random)));
    lying.push_back(turned(bars.back()));
  }
  Picture upright(20, 16), turnedPicture(16, 20);
  upright.draw(bars, kHalfBlack, Direction::upright, {3, 2, 18, 15});
  turnedPicture.draw(lying, kHalfBlack, Direction::lying, {2, 3, 15, 18});
  for (int x = 0; x < 20; ++x)
    for (int y = 0; y < 16; ++y) EXPECT_EQ(upright.ink(x, y), turnedPicture.ink(y, x));
  EXPECT_GT(upright.sum(), 1000);
}

}  // namespace
}  // namespace vexel
