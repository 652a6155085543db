#include "PixelBlend.h"

#include <gtest/gtest.h>

#include <random>

#include "Bitmaps.h"

namespace vexel {
namespace {

TEST(PixelBlend, RoundsEveryProductOfBytesToTheNearest) {
  for (std::uint32_t value = 0; value < 256; ++value) {
    for (std::uint32_t factor = 0; factor < 256; ++factor) {
      const std::uint32_t expected = (2 * value * factor + 255) / 510;
      ASSERT_EQ(scaledPixel(value * 0x01010101u, factor), expected * 0x01010101u)
          << value << " * " << factor;
    }
  }
}

TEST(PixelBlend, KeepsTheBytesApart) {
  EXPECT_EQ(scaledPixel(0xff00ff00u, 255), 0xff00ff00u);
  EXPECT_EQ(scaledPixel(0x00ff00ffu, 128), 0x00800080u);
}

TEST(PixelBlend, NeverOverflowsForPremultipliedPixels) {
  for (std::uint32_t alpha = 0; alpha < 256; ++alpha)
    for (std::uint32_t below = 0; below < 256; ++below)
      ASSERT_GE(pixelOver(alpha * 0x01010101u, below * 0x01010101u) & 255, alpha);
  EXPECT_EQ(pixelOver(kRedPixel, 0x12345678u), kRedPixel);
  EXPECT_EQ(pixelOver(0, 0x12345678u), 0x12345678u);
}

TEST(PixelBlend, PremultipliesAndBoundsColours) {
  EXPECT_EQ(premultipliedPixel(CGColor::genericRGB(kNaN, kInfinity, -1, 7)), 0xff00ff00u);
  EXPECT_EQ(premultipliedPixel(CGColor::genericRGB(1, 0.5, 0, kNaN)), 0u);
  EXPECT_EQ(premultipliedPixel(CGColor::genericRGB(1, 0.5, 0, 0.5)), 0x80804000u);
}

TEST(PixelBlend, RoundsTheSumOfTwoProductsOnce) {
  std::mt19937 random(1);
  const auto word = [&] { return static_cast<std::uint32_t>(random()); };
  const auto byte = [&] { return word() & 255u; };
  for (int i = 0; i < 10000; ++i) {
    const std::uint32_t covered = byte();
    const std::uint32_t alpha = byte();
    const std::uint32_t pixel = scaledPixel(0xff000000u | word(), covered);
    const std::uint32_t color = scaledPixel(0xff000000u | word(), alpha);
    const std::uint32_t below = scaledPixel(0xff000000u | word(), byte());
    const std::uint32_t weight = scaledPixel(byte(), 255 - covered);
    const std::uint32_t rest = 255 - covered - scaledPixel(weight, alpha);
    std::uint32_t expected = pixel;
    for (int shift = 0; shift < 32; shift += 8) {
      const std::uint32_t products =
          (color >> shift & 255u) * weight + (below >> shift & 255u) * rest;
      expected += (2 * products + 255) / 510 << shift;
    }
    ASSERT_EQ(weightedPixelOver(pixel, weight, rest, color, below), expected);
  }
}

TEST(PixelBlend, LeavesAloneWhatIsBelowNoWeight) {
  for (std::uint32_t below = 0; below < 256; ++below)
    ASSERT_EQ(WeightedPixels().over(0, kRedPixel, below * 0x01010101u), below * 0x01010101u);
}

}  // namespace
}  // namespace vexel
